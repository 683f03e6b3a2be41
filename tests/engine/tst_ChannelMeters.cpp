// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/ChannelMeters.h"
#include "tests/support/TestObject.h"

#include <cmath>
#include <limits>
#include <vector>

class tst_ChannelMeters : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsAtTheBottom();
    void readsTenthsOfDecibels_data();
    void readsTenthsOfDecibels();
    void risesAtOnce();
    void fallsTwentyDecibelsASecond_data();
    void fallsTwentyDecibelsASecond();
    void stopsFallingAtTheSignal();
    void stopsFallingAtTheBottom();
    void comesBackFromNonsense();
    void findsThePeak_data();
    void findsThePeak();
    void metersAreApart();
};

void tst_ChannelMeters::startsAtTheBottom()
{
    QCOMPARE(PeakLevel().tenths(), -1270);
    QCOMPARE(ChannelMeters().levels(), (MeterLevels{-1270, -1270}));
}

void tst_ChannelMeters::readsTenthsOfDecibels_data()
{
    QTest::addColumn<double>("peak");
    QTest::addColumn<int>("expected");
    QTest::newRow("full scale") << 1.0 << 0;
    QTest::newRow("half") << 0.5 << -60;
    QTest::newRow("a tenth") << 0.1 << -200;
    QTest::newRow("a thousandth") << 0.001 << -600;
    QTest::newRow("over") << 10.0 << 200;
    QTest::newRow("a little over") << 1.0116 << 1;
    QTest::newRow("silence") << 0.0 << -1270;
    QTest::newRow("too quiet") << 1e-9 << -1270;
    QTest::newRow("smallest") << std::numeric_limits<double>::denorm_min() << -1270;
    QTest::newRow("too loud") << 1e9 << 1270;
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity() << 1270;
    QTest::newRow("NaN") << std::numeric_limits<double>::quiet_NaN() << 1270;
}

void tst_ChannelMeters::readsTenthsOfDecibels()
{
    QFETCH(const double, peak);
    PeakLevel level;
    level.update(peak, 0.033);
    QTEST(level.tenths(), "expected");
}

void tst_ChannelMeters::risesAtOnce()
{
    PeakLevel level;
    level.update(0.01, 0.001);
    QCOMPARE(level.tenths(), -400);
    level.update(1.0, 0.001);
    QCOMPARE(level.tenths(), 0);
}

void tst_ChannelMeters::fallsTwentyDecibelsASecond_data()
{
    QTest::addColumn<int>("blocks");
    QTest::newRow("in one block") << 1;
    QTest::newRow("at 30 a second") << 30;
    QTest::newRow("at 1000 a second") << 1000;
}

void tst_ChannelMeters::fallsTwentyDecibelsASecond()
{
    QFETCH(const int, blocks);
    PeakLevel level;
    level.update(1.0, 0.033);
    for (int second = 1; second <= 3; ++second) {
        for (int i = 0; i < blocks; ++i)
            level.update(0.0, 1.0 / blocks);
        QCOMPARE(level.tenths(), -200 * second);
    }
}

void tst_ChannelMeters::stopsFallingAtTheSignal()
{
    PeakLevel level;
    level.update(1.0, 0.033);
    level.update(0.1, 0.5);
    QCOMPARE(level.tenths(), -100);
    level.update(0.1, 0.6);
    QCOMPARE(level.tenths(), -200);
}

void tst_ChannelMeters::stopsFallingAtTheBottom()
{
    PeakLevel level;
    level.update(1.0, 0.033);
    level.update(0.0, 1000.0);
    QCOMPARE(level.tenths(), -1270);
}

void tst_ChannelMeters::comesBackFromNonsense()
{
    PeakLevel level;
    level.update(std::numeric_limits<double>::quiet_NaN(), 0.033);
    level.update(0.0, 1.0);
    QCOMPARE(level.tenths(), 1070);
}

void tst_ChannelMeters::findsThePeak_data()
{
    QTest::addColumn<QList<double>>("samples");
    QTest::addColumn<double>("expected");
    QTest::newRow("none") << QList<double>{} << 0.0;
    QTest::newRow("positive") << QList<double>{0.1, 0.7, -0.3} << 0.7;
    QTest::newRow("negative") << QList<double>{0.1, 0.7, -0.9} << 0.9;
    QTest::newRow("first") << QList<double>{-1.0, 0.0} << 1.0;
}

void tst_ChannelMeters::findsThePeak()
{
    QFETCH(const QList<double>, samples);
    QTEST(peakOf({samples.data(), static_cast<std::size_t>(samples.size())}), "expected");
    std::vector<double> broken(samples.begin(), samples.end());
    broken.insert(broken.begin(), std::numeric_limits<double>::quiet_NaN());
    QVERIFY(std::isnan(peakOf(broken)));
}

void tst_ChannelMeters::metersAreApart()
{
    ChannelMeters meters;
    meters.takeSend(std::vector<double>{1.0}, 0.033);
    QCOMPARE(meters.levels(), (MeterLevels{0, -1270}));
    meters.takeReturn(std::vector<double>{-0.1}, 0.033);
    QCOMPARE(meters.levels(), (MeterLevels{0, -200}));
}

QTEST_APPLESS_MAIN(tst_ChannelMeters)

#include "tst_ChannelMeters.moc"
