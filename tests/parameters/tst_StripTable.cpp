// SPDX-License-Identifier: GPL-3.0-or-later
#include "hosting/HostMemory.h"
#include "hosting/HostModel.h"
#include "interfaces/IPrmObserver.h"
#include "parameters/StripTable.h"
#include "tests/support/TestObject.h"

#include <cmath>

class tst_StripTable : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyTextIsItsValue();
    void fader_data();
    void fader();
    void faderRises();
    void typedLevels_data();
    void typedLevels();
    void nonsenseIsNoValue_data();
    void nonsenseIsNoValue();
    void memoryKeepsThem();
    void memoryTellsObservers();
    void equalizerStateIsUntouched();
    void editorsAreNotTold();
};

void tst_StripTable::everyTextIsItsValue()
{
    for (std::size_t i = 0; i < stripParameterCount; ++i) {
        const auto parameter = static_cast<StripParameter>(i);
        QCOMPARE(findStripParameter(stripId(parameter)), std::optional(parameter));
        QCOMPARE(findStripParameter(stripTable[i].key), std::optional(parameter));
        for (int value = stripTable[i].minimum; value <= stripTable[i].maximum; ++value) {
            const auto text = formatStrip(parameter, value);
            QVERIFY(text && !text->empty());
            QCOMPARE(parseStrip(parameter, *text), std::optional(value));
        }
        QVERIFY(!formatStrip(parameter, stripTable[i].minimum - 1));
        QVERIFY(!formatStrip(parameter, stripTable[i].maximum + 1));
    }
}

void tst_StripTable::fader_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<QString>("text");
    QTest::newRow("top") << 400 << "+10.0";
    QTest::newRow("unity") << 300 << "0.0";
    QTest::newRow("a step below") << 299 << "-0.1";
    QTest::newRow("first bend") << 200 << "-10.0";
    QTest::newRow("below the first bend") << 199 << "-10.2";
    QTest::newRow("second bend") << 100 << "-30.0";
    QTest::newRow("below the second bend") << 99 << "-30.5";
    QTest::newRow("third bend") << 40 << "-60.0";
    QTest::newRow("below the third bend") << 39 << "-61.0";
    QTest::newRow("lowest") << 1 << "-99.0";
    QTest::newRow("silence") << 0 << "-inf";
}

void tst_StripTable::fader()
{
    QFETCH(const int, position);
    QFETCH(const QString, text);
    QCOMPARE(QString::fromStdString(*formatStrip(StripParameter::Level, position)), text);
    const double decibels = text == QLatin1String("-inf") ? -INFINITY : text.toDouble();
    QVERIFY(std::abs(stripGain(position) - std::pow(10.0, decibels / 20.0)) < 1e-12);
}

void tst_StripTable::faderRises()
{
    for (int position = 1; position <= highestLevel; ++position)
        QVERIFY(stripGain(position) > stripGain(position - 1));
}

void tst_StripTable::typedLevels_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("position");
    QTest::newRow("unit") << QByteArray(" -6 dB ") << 240;
    QTest::newRow("comma") << QByteArray("+2,5") << 325;
    QTest::newRow("too high") << QByteArray("25") << 400;
    QTest::newRow("too low") << QByteArray("-120") << 0;
    QTest::newRow("between steps") << QByteArray("-30.4") << 99;
    QTest::newRow("silence") << QByteArray("-INF dB") << 0;
    QTest::newRow("off") << QByteArray("off") << 0;
}

void tst_StripTable::typedLevels()
{
    QFETCH(const QByteArray, text);
    QFETCH(const int, position);
    QCOMPARE(parseStrip(StripParameter::Level, text.toStdString()), std::optional(position));
}

void tst_StripTable::nonsenseIsNoValue_data()
{
    QTest::addColumn<int>("parameter");
    QTest::addColumn<QByteArray>("text");
    const int level = static_cast<int>(StripParameter::Level);
    QTest::newRow("empty level") << level << QByteArray();
    QTest::newRow("word") << level << QByteArray("loud");
    QTest::newRow("not a number") << level << QByteArray("nan");
    QTest::newRow("infinite") << level << QByteArray("inf");
    QTest::newRow("unit alone") << level << QByteArray("dB");
    QTest::newRow("rest") << level << QByteArray("3 dBu");
    QTest::newRow("switch") << static_cast<int>(StripParameter::Mute) << QByteArray("maybe");
    QTest::newRow("source") << static_cast<int>(StripParameter::Source) << QByteArray("Input 9");
}

void tst_StripTable::nonsenseIsNoValue()
{
    QFETCH(const int, parameter);
    QFETCH(const QByteArray, text);
    QVERIFY(!parseStrip(static_cast<StripParameter>(parameter), text.toStdString()));
}

void tst_StripTable::memoryKeepsThem()
{
    HostMemory memory;
    const unsigned short id = stripId(StripParameter::Level);
    int minimum = -1;
    int maximum = -1;
    int value = -1;
    QCOMPARE(memory.getRange(id, 3, &minimum, &maximum), 0);
    QCOMPARE(minimum, 0);
    QCOMPARE(maximum, 400);
    QCOMPARE(memory.getDefault(id, 3, &value), 0);
    QCOMPARE(value, 300);
    QCOMPARE(memory.setValue(id, 3, 5000, 0, 0, 1), 0);
    QCOMPARE(memory.strip(3, StripParameter::Level), 400);
    QCOMPARE(memory.strip(2, StripParameter::Level), 300);
    char buffer[8] = {};
    QCOMPARE(memory.valueToString(id, 3, 400, buffer, sizeof buffer), 0);
    QCOMPARE(QByteArray(buffer), QByteArray("+10.0"));
    QCOMPARE(memory.stringToValue(id, 3, "-inf", &value), 0);
    QCOMPARE(value, 0);
    QVERIFY(memory.getValue(0x0200, 0, &value, 0) < 0);
    QVERIFY(memory.getValue(0x0207, 0, &value, 0) < 0);
}

void tst_StripTable::memoryTellsObservers()
{
    struct Observer : IPrmObserver
    {
        QStringList log;
        int Update(unsigned short parameter, unsigned short ch, int value,
                   const char* text) override
        {
            log << QStringLiteral("%1 %2 %3 %4")
                       .arg(parameter)
                       .arg(ch)
                       .arg(value)
                       .arg(QLatin1String(text));
            return 0;
        }
        int UpdateProperty(unsigned short, unsigned short, int, int, int, bool,
                           const char*) override
        {
            return 0;
        }
    };
    HostMemory memory;
    Observer observer;
    const unsigned short id = stripId(StripParameter::Source);
    QCOMPARE(memory.registerObserver(id, 6, &observer), 0);
    memory.setStrip(6, StripParameter::Source, SourceInput1 + 2);
    memory.setStrip(6, StripParameter::Mute, 1);
    memory.setStrip(5, StripParameter::Source, SourceOff);
    QCOMPARE(observer.log, QStringList{QStringLiteral("513 6 4 Input 3")});
    QCOMPARE(memory.unregisterObserver(id, 6, &observer), 0);
}

void tst_StripTable::equalizerStateIsUntouched()
{
    HostMemory memory;
    for (std::size_t i = 0; i < stripParameterCount; ++i)
        memory.setStrip(0, static_cast<StripParameter>(i), stripTable[i].maximum);
    QCOMPARE(memory.values(0), HostMemory().values(0));
    memory.reset(0);
    QCOMPARE(memory.strip(0, StripParameter::Level), 400);
}

void tst_StripTable::editorsAreNotTold()
{
    HostModel model;
    unsigned short index = 0;
    for (const StripEntry& entry : stripTable)
        QVERIFY(!model.findParameter(&index, entry.key));
    unsigned short id = 0;
    QVERIFY(!model.getParameterAddress(&id, nullptr, parameterCount));
}

QTEST_APPLESS_MAIN(tst_StripTable)

#include "tst_StripTable.moc"
