// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/LedMeterSvgTable.h"
#include "tests/editor/EditorFixture.h"
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
    void stereoFeedsEverything();
    void monoUpdatesTheFirstChannelOnly();
    void wordsAreSixteenBitsWithASign();
    void levelsAreIgnored();
    void onlyTheFirstOfAPairCounts();
    void metersAreNotParameters();
    void shortArraysKeepTheLastLevels_data();
    void shortArraysKeepTheLastLevels();
    void noArrayAtAll();
    void unknownMetersKeepTheLastLevels();
    void channelsBeyondTheMeterKeepTheLastLevels();
    void levelsOutsideTheMetersRangeAreBroughtIntoIt();
    void retranslatingKeepsTheLamps();
    void noLevelsAfterDetaching();
};

namespace {

QString picture(int lamps) { return QStringLiteral(":/image/zolta/meter_%1.svg").arg(lamps); }

struct Meters : EditorFixture
{
    explicit Meters(int ch = 2, int ch2 = 3)
    {
        bind();
        editor->setCh(ch, ch2);
    }

    void feed(int inL, int inR, int outL, int outR)
    {
        host.setMeterDb("meter_oxa_snd", 2, inL);
        host.setMeterDb("meter_oxa_snd", 3, inR);
        host.setMeterDb("meter_oxa_rtn", 2, outL);
        host.setMeterDb("meter_oxa_rtn", 3, outR);
        host.pushMetersDb();
    }
    int level(const char* name) const { return controller(widget(name))->value(); }
    QList<int> levels() const
    {
        return {level("InputMonoMeter"),  level("InputStereoMeterL"),  level("InputStereoMeterR"),
                level("OutputMonoMeter"), level("OutputStereoMeterL"), level("OutputStereoMeterR")};
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
    QTest::addColumn<int>("level");
    QTest::addColumn<int>("lamps");

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
    QCOMPARE(meters.svg("LedMonoMeter"), picture(9));
    meters.feed(0, 0, -1271, -32768);
    QCOMPARE(meters.lamps(), QStringList({picture(9), picture(9), picture(9)}));
    meters.feed(0, 0, -1270, -1270);
    QCOMPARE(meters.lamps(), QStringList({picture(0), picture(0), picture(0)}));
}

void tst_ZoltaMeters::stereoFeedsEverything()
{
    Meters meters;
    meters.feed(-600, -500, -40, -100);
    QCOMPARE(meters.levels(), QList<int>({-600, -600, -500, -40, -40, -100}));
    QCOMPARE(meters.lamps(), QStringList({picture(9), picture(9), picture(7)}));
}

void tst_ZoltaMeters::monoUpdatesTheFirstChannelOnly()
{
    Meters meters(2, -1);
    meters.feed(-600, -500, -40, -100);
    QCOMPARE(meters.levels(), QList<int>({-600, -600, -1270, -40, -40, -1270}));
    QCOMPARE(meters.lamps(), QStringList({picture(9), picture(9), picture(0)}));
}

void tst_ZoltaMeters::wordsAreSixteenBitsWithASign()
{
    EditorFixture fixture;
    fixture.bind();
    fixture.editor->setCh(0, -1);
    std::vector<unsigned int> words(64, 0x0000FDA8u);
    words[4] = 0x7FFFFDA8u;
    fixture.host.pushMetersDb(words);
    QCOMPARE(controller(fixture.widget("InputMonoMeter"))->value(), -600);
    QCOMPARE(controller(fixture.widget("OutputMonoMeter"))->value(), -600);
}

void tst_ZoltaMeters::levelsAreIgnored()
{
    Meters meters;
    meters.host.pushMetersLvl(std::vector<unsigned int>(64, 0u));
    QCOMPARE(meters.levels(), QList<int>(6, -1270));
}

void tst_ZoltaMeters::onlyTheFirstOfAPairCounts()
{
    Meters meters;
    meters.host.setMeterDb("meter_oxa_snd", 2, -100, 1);
    meters.host.setMeterDb("meter_oxa_rtn", 3, -100, 1);
    meters.host.pushMetersDb();
    QCOMPARE(meters.levels(), QList<int>(6, -1270));
}

void tst_ZoltaMeters::metersAreNotParameters()
{
    const Meters meters;
    for (const char* name : {"InputMonoMeter", "InputStereoMeterL", "InputStereoMeterR",
                             "OutputMonoMeter", "OutputStereoMeterL", "OutputStereoMeterR"})
        QVERIFY(!controller(meters.widget(name))->isBound());
}

void tst_ZoltaMeters::shortArraysKeepTheLastLevels_data()
{
    QTest::addColumn<unsigned int>("count");
    QTest::addColumn<QList<int>>("levels");

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

void tst_ZoltaMeters::noArrayAtAll()
{
    Meters meters;
    meters.feed(-77, -77, -77, -77);
    IMeterObserver* observer = meters.editor.get();
    observer->notifyMeterDbUpdated(nullptr, 0);
    observer->notifyMeterDbUpdated(nullptr, 64);
    observer->notifyMeterLvlUpdated(nullptr, 64);
    QCOMPARE(meters.levels(), QList<int>(6, -77));
}

void tst_ZoltaMeters::unknownMetersKeepTheLastLevels()
{
    Meters meters;
    meters.feed(-77, -77, -77, -77);
    meters.host.removeMeter("meter_oxa_snd");
    meters.host.pushMetersDb(std::vector<unsigned int>(64, 0u));
    QCOMPARE(meters.levels(), QList<int>({-77, -77, -77, 0, 0, 0}));
    meters.host.removeMeter("meter_oxa_rtn");
    meters.host.pushMetersDb(std::vector<unsigned int>(64, 0xFFFFFFFFu));
    QCOMPARE(meters.levels(), QList<int>({-77, -77, -77, 0, 0, 0}));
    meters.editor->setModelInfo(nullptr);
    meters.host.pushMetersDb(std::vector<unsigned int>(64, 0xFFFFFFFFu));
    QCOMPARE(meters.levels(), QList<int>({-77, -77, -77, 0, 0, 0}));
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

void tst_ZoltaMeters::retranslatingKeepsTheLamps()
{
    Meters meters;
    meters.feed(0, 0, -40, -100);
    const QStringList lamps = meters.lamps();
    QEvent languageChange(QEvent::LanguageChange);
    QCoreApplication::sendEvent(meters.editor.get(), &languageChange);
    QCOMPARE(meters.lamps(), lamps);
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
