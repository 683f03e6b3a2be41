// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/meters/BuiltInSignal.h"
#include "parameters/ChannelValues.h"
#include "tests/support/TestObject.h"

class tst_BuiltInSignal : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void moves();
    void defaultsReturnWhatIsSent();
    void settingsActWhereTheyShould_data();
    void settingsActWhereTheyShould();
    void driveCompresses();
    void sendIgnoresTheBands();
    void everyRateGivesLevels();
    void channelsDiffer();

private:
    using Values = ChannelProcessor::Values;
    static constexpr double tick = 0.033;

    static Values defaults() { return defaultValues(); }
    static Values with(std::size_t number, int value);
};

// The defaults but for the parameter of that number.
tst_BuiltInSignal::Values tst_BuiltInSignal::with(std::size_t number, int value)
{
    Values values = defaults();
    values[number - 1] = value;
    return values;
}

void tst_BuiltInSignal::moves()
{
    BuiltInSignal signal;
    int quietest = 0;
    int loudest = -1270;
    for (int i = 0; i < 300; ++i) {
        const int level = signal.read(0, defaults(), 48000, tick).send;
        quietest = std::min(quietest, level);
        loudest = std::max(loudest, level);
    }
    QVERIFY2(loudest > -100 && loudest <= 0, qPrintable(QString::number(loudest)));
    QVERIFY2(quietest < loudest - 60, qPrintable(QString::number(quietest)));
}

void tst_BuiltInSignal::defaultsReturnWhatIsSent()
{
    BuiltInSignal signal;
    for (int i = 0; i < 100; ++i) {
        const MeterLevels levels = signal.read(3, defaults(), 48000, tick);
        QCOMPARE(levels.returned, levels.send);
    }
}

void tst_BuiltInSignal::settingsActWhereTheyShould_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("send");
    QTest::addColumn<int>("returned");
    QTest::newRow("input up") << 25 << 60 << 60 << 60;
    QTest::newRow("input down") << 25 << -123 << -123 << -123;
    QTest::newRow("output up") << 26 << 200 << 0 << 200;
    QTest::newRow("output down") << 26 << -45 << 0 << -45;
}

// How many tenths of a dB the meters stand higher than at the defaults.
void tst_BuiltInSignal::settingsActWhereTheyShould()
{
    QFETCH(const int, number);
    QFETCH(const int, value);
    QFETCH(const int, send);
    QFETCH(const int, returned);
    BuiltInSignal plain;
    BuiltInSignal changed;
    for (int i = 0; i < 60; ++i) {
        const MeterLevels before = plain.read(2, defaults(), 48000, tick);
        const MeterLevels after =
            changed.read(2, with(static_cast<std::size_t>(number), value), 48000, tick);
        QVERIFY(std::abs(after.send - before.send - send) <= 1);
        QVERIFY(std::abs(after.returned - before.returned - returned) <= 1);
    }
}

void tst_BuiltInSignal::driveCompresses()
{
    BuiltInSignal signal;
    int loudest = -1270;
    for (int i = 0; i < 300; ++i) {
        const MeterLevels levels = signal.read(2, with(27, 1), 48000, tick);
        QVERIFY(levels.returned < levels.send + 6);
        loudest = std::max(loudest, levels.send - levels.returned);
    }
    QVERIFY2(loudest > 10, qPrintable(QString::number(loudest)));
}

void tst_BuiltInSignal::sendIgnoresTheBands()
{
    BuiltInSignal plain;
    BuiltInSignal changed;
    Values values = with(11, 200);
    values[0] = 0;
    values[2] = -200;
    values[22] = -200;
    bool differed = false;
    for (int i = 0; i < 60; ++i) {
        const MeterLevels before = plain.read(0, defaults(), 48000, tick);
        const MeterLevels after = changed.read(0, values, 48000, tick);
        QCOMPARE(after.send, before.send);
        differed = differed || std::abs(after.returned - before.returned) > 30;
    }
    QVERIFY(differed);
}

void tst_BuiltInSignal::everyRateGivesLevels()
{
    Values values = defaults();
    for (const std::size_t number : {3, 7, 11, 15, 19, 23})
        values[number - 1] = 200;
    for (const int rate : {1000, 8000, 44100, 192000, 768000}) {
        for (const double seconds : {0.0, 1e-6, 0.033, 3600.0}) {
            BuiltInSignal signal;
            for (int i = 0; i < 100; ++i) {
                const MeterLevels levels = signal.read(5, values, rate, seconds);
                QVERIFY(levels.send >= -1270 && levels.send <= 0);
                QVERIFY(levels.returned >= -1270 && levels.returned <= 1270);
            }
        }
    }
}

void tst_BuiltInSignal::channelsDiffer()
{
    BuiltInSignal signal;
    int different = 0;
    for (int i = 0; i < 60; ++i) {
        const MeterLevels left = signal.read(0, defaults(), 48000, tick);
        const MeterLevels right = signal.read(1, defaults(), 48000, tick);
        different += left.send != right.send;
    }
    QVERIFY(different > 30);
}

QTEST_APPLESS_MAIN(tst_BuiltInSignal)

#include "tst_BuiltInSignal.moc"
