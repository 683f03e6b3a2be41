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
    void readsTenthsOfDecibels_data();
    void readsTenthsOfDecibels();
    void fallsTwentyDecibelsASecond();
    void follows_data();
    void follows();
    void findsThePeak_data();
    void findsThePeak();
    void metersAreApart();
};

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

void tst_ChannelMeters::fallsTwentyDecibelsASecond()
{
    for (const int blocks : {1, 30, 1000}) {
        PeakLevel level;
        level.update(1.0, 0.033);
        for (int second = 1; second <= 3; ++second) {
            for (int i = 0; i < blocks; ++i)
                level.update(0.0, 1.0 / blocks);
            QCOMPARE(level.tenths(), -200 * second);
        }
    }
}

void tst_ChannelMeters::follows_data()
{
    QTest::addColumn<double>("first");
    QTest::addColumn<double>("second");
    QTest::addColumn<double>("seconds");
    QTest::addColumn<int>("expected");
    QTest::newRow("rises at once") << 0.01 << 1.0 << 0.001 << 0;
    QTest::newRow("falls") << 1.0 << 0.1 << 0.5 << -100;
    QTest::newRow("stops at the signal") << 1.0 << 0.1 << 1.1 << -200;
    QTest::newRow("stops at the bottom") << 1.0 << 0.0 << 1000.0 << -1270;
    QTest::newRow("falls from NaN") << std::nan("") << 0.0 << 1.0 << 1070;
}

void tst_ChannelMeters::follows()
{
    QFETCH(const double, first);
    QFETCH(const double, second);
    QFETCH(const double, seconds);
    PeakLevel level;
    QCOMPARE(level.tenths(), -1270);
    level.update(first, 0.001);
    level.update(second, seconds);
    QTEST(level.tenths(), "expected");
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
    QCOMPARE(meters.levels(), (MeterLevels{-1270, -1270}));
    meters.takeSend(std::vector<double>{1.0}, 0.033);
    QCOMPARE(meters.levels(), (MeterLevels{0, -1270}));
    meters.takeReturn(std::vector<double>{-0.1}, 0.033);
    QCOMPARE(meters.levels(), (MeterLevels{0, -200}));
}

QTEST_APPLESS_MAIN(tst_ChannelMeters)

#include "tst_ChannelMeters.moc"
