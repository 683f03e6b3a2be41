// SPDX-License-Identifier: GPL-3.0-or-later
#include "parameters/StripTable.h"
#include "tests/support/TestObject.h"

#include <cmath>

using namespace Qt::StringLiterals;

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
    void typedBalances_data();
    void typedBalances();
    void balanceFadesOneSide_data();
    void balanceFadesOneSide();
    void masterReadsItsTexts();
    void nonsenseIsNoValue_data();
    void nonsenseIsNoValue();
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
    const double decibels = text == "-inf"_L1 ? -INFINITY : text.toDouble();
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
    QTest::newRow("unit") << " -6 dB "_ba << 240;
    QTest::newRow("comma") << "+2,5"_ba << 325;
    QTest::newRow("too high") << "25"_ba << 400;
    QTest::newRow("too low") << "-120"_ba << 0;
    QTest::newRow("between steps") << "-30.4"_ba << 99;
    QTest::newRow("silence") << "-INF dB"_ba << 0;
    QTest::newRow("off") << "off"_ba << 0;
}

void tst_StripTable::typedLevels()
{
    QFETCH(const QByteArray, text);
    QFETCH(const int, position);
    QCOMPARE(parseStrip(StripParameter::Level, text.toStdString()), std::optional(position));
}

void tst_StripTable::typedBalances_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("balance");
    QTest::newRow("middle") << " c "_ba << 0;
    QTest::newRow("zero") << "0"_ba << 0;
    QTest::newRow("left") << "l 30"_ba << -30;
    QTest::newRow("right") << "R7"_ba << 7;
    QTest::newRow("beyond the end") << "L400"_ba << -100;
}

void tst_StripTable::typedBalances()
{
    QFETCH(const QByteArray, text);
    QFETCH(const int, balance);
    QCOMPARE(parseStrip(StripParameter::Balance, text.toStdString()), std::optional(balance));
}

void tst_StripTable::balanceFadesOneSide_data()
{
    QTest::addColumn<int>("balance");
    QTest::addColumn<double>("left");
    QTest::addColumn<double>("right");
    QTest::newRow("middle") << 0 << 1.0 << 1.0;
    QTest::newRow("left") << -100 << 1.0 << 0.0;
    QTest::newRow("half right") << 50 << 0.5 << 1.0;
    QTest::newRow("right") << 100 << 0.0 << 1.0;
}

void tst_StripTable::balanceFadesOneSide()
{
    QFETCH(const int, balance);
    QTEST(balanceGains(balance).left, "left");
    QTEST(balanceGains(balance).right, "right");
}

void tst_StripTable::masterReadsItsTexts()
{
    for (std::size_t i = 0; i < masterParameterCount; ++i) {
        const auto parameter = static_cast<MasterParameter>(i);
        QCOMPARE(findMasterParameter(masterId(parameter)), std::optional(parameter));
        QVERIFY(!findStripParameter(masterId(parameter)));
        for (const int value : {masterTable[i].minimum, masterTable[i].maximum}) {
            const auto text = formatMaster(parameter, value);
            QVERIFY(text);
            QCOMPARE(parseMaster(parameter, *text), std::optional(value));
        }
    }
    QVERIFY(!findMasterParameter(0x0300) && !findMasterParameter(0x0305));
}

void tst_StripTable::nonsenseIsNoValue_data()
{
    QTest::addColumn<int>("parameter");
    QTest::addColumn<QByteArray>("text");
    const int level = static_cast<int>(StripParameter::Level);
    QTest::newRow("empty level") << level << QByteArray();
    QTest::newRow("word") << level << "loud"_ba;
    QTest::newRow("not a number") << level << "nan"_ba;
    QTest::newRow("infinite") << level << "inf"_ba;
    QTest::newRow("unit alone") << level << "dB"_ba;
    QTest::newRow("rest") << level << "3 dBu"_ba;
    QTest::newRow("switch") << static_cast<int>(StripParameter::Mute) << "maybe"_ba;
    const int balance = static_cast<int>(StripParameter::Balance);
    QTest::newRow("side alone") << balance << "L"_ba;
    QTest::newRow("no side") << balance << "30"_ba;
    QTest::newRow("two signs") << balance << "L-3"_ba;
    QTest::newRow("source") << static_cast<int>(StripParameter::Source) << "Input 33"_ba;
}

void tst_StripTable::nonsenseIsNoValue()
{
    QFETCH(const int, parameter);
    QFETCH(const QByteArray, text);
    QVERIFY(!parseStrip(static_cast<StripParameter>(parameter), text.toStdString()));
}

QTEST_APPLESS_MAIN(tst_StripTable)

#include "tst_StripTable.moc"
