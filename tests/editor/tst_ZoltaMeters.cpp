// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/LedMeterSvgTable.h"
#include "tests/editor/EditorFixture.h"
#include "tests/support/DataTable.h"
#include "tests/support/TestObject.h"

#include <QApplication>

class tst_ZoltaMeters : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void tableOfPictures();
    void picturesLightUpAboveTheirThreshold_data();
    void picturesLightUpAboveTheirThreshold();
    void silenceLeavesThePictureAlone();
    void feeds_data();
    void feeds();
    void wordsAreSixteenBitsWithASign();
    void metersAreNotParameters();
    void shortArraysKeepTheLastLevels_data();
    void shortArraysKeepTheLastLevels();
    void noArrayAndNoDecibels();
    void unknownMetersKeepTheLastLevels();
    void channelsBeyondTheMeterKeepTheLastLevels();
    void levelsOutsideTheMetersRangeAreBroughtIntoIt();
    void noLevelsAfterDetaching();
};

namespace {

QString picture(int lamps) { return QStringLiteral(":/image/zolta/meter_%1.svg").arg(lamps); }

constexpr std::array MeterNames = {"InputMonoMeter",  "InputStereoMeterL",  "InputStereoMeterR",
                                   "OutputMonoMeter", "OutputStereoMeterL", "OutputStereoMeterR"};

struct Meters : EditorFixture
{
    explicit Meters(int ch = 2, int ch2 = 3) { bind(ch, ch2); }

    void feed(int inL, int inR, int outL, int outR)
    {
        host.setMeterDb("meter_oxa_snd", 2, inL);
        host.setMeterDb("meter_oxa_snd", 3, inR);
        host.setMeterDb("meter_oxa_rtn", 2, outL);
        host.setMeterDb("meter_oxa_rtn", 3, outR);
        host.pushMetersDb();
    }
    QList<int> levels() const
    {
        QList<int> levels;
        for (const char* name : MeterNames)
            levels.append(control(name)->value());
        return levels;
    }
    QStringList lamps() const
    {
        return {svg("LedMonoMeter"), svg("LedStereoMeterL"), svg("LedStereoMeterR")};
    }
};

} // namespace

void tst_ZoltaMeters::tableOfPictures()
{
    const QList<int> thresholds = {0,    -30,  -60,  -90,  -120, -150,
                                   -180, -210, -240, -270, -300, -1271};
    QCOMPARE(LedMeterSvgTable.size(), 12);
    for (int row = 0; row < 12; ++row) {
        QCOMPARE(LedMeterSvgTable[row].first, picture(11 - row));
        QCOMPARE(LedMeterSvgTable[row].second, thresholds[row]);
    }
}

void tst_ZoltaMeters::picturesLightUpAboveTheirThreshold_data()
{
    addColumns<int, int>("level", "lamps");

    QTest::newRow("loudest") << 32767 << 11;
    QTest::newRow("0.1 dB") << 1 << 11;
    QTest::newRow("0 dB") << 0 << 10;
    QTest::newRow("-2.9 dB") << -29 << 10;
    QTest::newRow("-3 dB") << -30 << 9;
    QTest::newRow("-29.9 dB") << -299 << 1;
    QTest::newRow("-30 dB") << -300 << 0;
    QTest::newRow("-127 dB") << -1270 << 0;
}

void tst_ZoltaMeters::picturesLightUpAboveTheirThreshold()
{
    QFETCH(int, level);
    QFETCH(int, lamps);
    const EditorFixture fixture;
    fixture.editor->setLedMeterL(-100);
    fixture.editor->setLedMeterR(-100);

    fixture.editor->setLedMeterL(level);
    QCOMPARE(fixture.svg("LedMonoMeter"), picture(lamps));
    QCOMPARE(fixture.svg("LedStereoMeterL"), picture(lamps));
    QCOMPARE(fixture.svg("LedStereoMeterR"), picture(7));
    fixture.editor->setLedMeterR(level);
    QCOMPARE(fixture.svg("LedStereoMeterR"), picture(lamps));
}

void tst_ZoltaMeters::silenceLeavesThePictureAlone()
{
    Meters meters;
    meters.feed(0, 0, -45, -45);
    meters.feed(0, 0, -1271, -32768);
    QCOMPARE(meters.lamps(), QStringList(3, picture(9)));
    meters.feed(0, 0, -1270, -1270);
    QCOMPARE(meters.lamps(), QStringList(3, picture(0)));
}

void tst_ZoltaMeters::feeds_data()
{
    addColumns<int, QList<int>, QStringList>("ch2", "levels", "lamps");
    QTest::newRow("stereo") << 3 << QList<int>({-600, -600, -500, -40, -40, -100})
                            << QStringList{picture(9), picture(9), picture(7)};
    QTest::newRow("mono: the first channel only")
        << -1 << QList<int>({-600, -600, -1270, -40, -40, -1270})
        << QStringList{picture(9), picture(9), picture(0)};
}

// Only the first of a channel's two words counts. Retranslating keeps the lamps.
void tst_ZoltaMeters::feeds()
{
    QFETCH(int, ch2);
    Meters meters(2, ch2);
    for (const char* name : {"meter_oxa_snd", "meter_oxa_rtn"}) {
        meters.host.setMeterDb(name, 2, -1, 1);
        meters.host.setMeterDb(name, 3, -1, 1);
    }
    meters.feed(-600, -500, -40, -100);
    QTEST(meters.levels(), "levels");
    QTEST(meters.lamps(), "lamps");
    QEvent languageChange(QEvent::LanguageChange);
    QCoreApplication::sendEvent(meters.editor.get(), &languageChange);
    QTEST(meters.lamps(), "lamps");
}

void tst_ZoltaMeters::wordsAreSixteenBitsWithASign()
{
    Meters meters;
    std::vector<unsigned int> words(64, 0x0000FDA8u);
    words[8] = 0x7FFFFDA8u;
    meters.host.pushMetersDb(words);
    QCOMPARE(meters.levels(), QList<int>(6, -600));
}

void tst_ZoltaMeters::metersAreNotParameters()
{
    const Meters meters;
    for (const char* name : MeterNames)
        QVERIFY(!meters.control(name)->isBound());
}

void tst_ZoltaMeters::shortArraysKeepTheLastLevels_data()
{
    addColumns<unsigned int, QList<int>>("count", "levels");

    // With eight channels the input's words start at 4, the output's at 24.
    const int was = -77;
    QTest::newRow("none") << 0u << QList<int>(6, was);
    QTest::newRow("up to the input") << 8u << QList<int>(6, was);
    QTest::newRow("one channel of the input") << 9u << QList<int>({-30, -30, was, was, was, was});
    QTest::newRow("the input") << 11u << QList<int>({-30, -30, -30, was, was, was});
    QTest::newRow("up to the output") << 28u << QList<int>({-30, -30, -30, was, was, was});
    QTest::newRow("one channel of the output") << 30u << QList<int>({-30, -30, -30, -30, -30, was});
    QTest::newRow("all") << 31u << QList<int>(6, -30);
}

void tst_ZoltaMeters::shortArraysKeepTheLastLevels()
{
    QFETCH(unsigned int, count);
    QFETCH(QList<int>, levels);
    Meters meters;
    meters.feed(-77, -77, -77, -77);
    meters.host.pushMetersDb(std::vector<unsigned int>(count, 0xFFFFFFE2u));
    QCOMPARE(meters.levels(), levels);
}

void tst_ZoltaMeters::noArrayAndNoDecibels()
{
    Meters meters;
    meters.feed(-77, -77, -77, -77);
    IMeterObserver* observer = meters.editor.get();
    observer->notifyMeterDbUpdated(nullptr, 0);
    observer->notifyMeterDbUpdated(nullptr, 64);
    observer->notifyMeterLvlUpdated(nullptr, 64);
    meters.host.pushMetersLvl(std::vector<unsigned int>(64, 0u));
    QCOMPARE(meters.levels(), QList<int>(6, -77));
}

void tst_ZoltaMeters::unknownMetersKeepTheLastLevels()
{
    Meters meters;
    meters.feed(-77, -77, -77, -77);
    meters.host.removeMeter("meter_oxa_snd");
    meters.host.pushMetersDb(std::vector<unsigned int>(64, 0u));
    const QList<int> last = {-77, -77, -77, 0, 0, 0};
    QCOMPARE(meters.levels(), last);
    meters.host.removeMeter("meter_oxa_rtn");
    meters.host.pushMetersDb(std::vector<unsigned int>(64, 0xFFFFFFFFu));
    QCOMPARE(meters.levels(), last);
    meters.editor->setModelInfo(nullptr);
    meters.host.pushMetersDb(std::vector<unsigned int>(64, 0xFFFFFFFFu));
    QCOMPARE(meters.levels(), last);
}

void tst_ZoltaMeters::channelsBeyondTheMeterKeepTheLastLevels()
{
    Meters meters;
    meters.feed(-77, -77, -77, -77);
    meters.host.setMeter("meter_oxa_snd", 4, 3);
    meters.host.setMeter("meter_oxa_rtn", 24, 2);
    meters.host.pushMetersDb(std::vector<unsigned int>(64, 0u));
    QCOMPARE(meters.levels(), QList<int>({0, 0, -77, -77, -77, -77}));

    for (const auto& [ch, ch2] : {std::pair(50, 51), std::pair(-1, -1), std::pair(65535, -2)}) {
        meters.editor->setCh(ch, ch2);
        meters.host.pushMetersDb(std::vector<unsigned int>(64, 0xFFFFFFFFu));
        QCOMPARE(meters.levels(), QList<int>({0, 0, -77, -77, -77, -77}));
    }
}

void tst_ZoltaMeters::levelsOutsideTheMetersRangeAreBroughtIntoIt()
{
    Meters meters;
    meters.feed(32767, -32768, 32767, -32768);
    QCOMPARE(meters.levels(), QList<int>({8191, 8191, -1270, 8191, 8191, -1270}));
}

void tst_ZoltaMeters::noLevelsAfterDetaching()
{
    Meters meters;
    QCOMPARE(meters.host.meterObserverCount(), 1);
    meters.feed(-77, -77, -77, -77);
    meters.editor->setMemAPI(nullptr);
    QCOMPARE(meters.host.meterObserverCount(), 0);
    meters.feed(0, 0, 0, 0);
    QCOMPARE(meters.levels(), QList<int>(6, -77));
}

ZOLTA_TEST_MAIN(tst_ZoltaMeters)
#include "tst_ZoltaMeters.moc"
