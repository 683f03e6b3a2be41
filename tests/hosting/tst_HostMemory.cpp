// SPDX-License-Identifier: GPL-3.0-or-later
#include "hosting/ChangeListener.h"
#include "hosting/HostMemory.h"
#include "interfaces/IMeterObserver.h"
#include "interfaces/IPrmObserver.h"
#include "tests/support/TestObject.h"

#include <functional>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr unsigned short lowTypeId = 0x0101;
constexpr unsigned short lowFrequencyId = 0x0102;
constexpr unsigned short lowGainId = 0x0103;
constexpr unsigned short driveId = 0x011B;
constexpr unsigned short levelId = stripId(StripParameter::Level);

// Writes down whatever it is told, as "name: parameter channel value text" or "name: parameter
// channel before after" or "name: words", then does what it is told to, once.
class Recorder final : public IPrmObserver, public ChangeListener, public IMeterObserver
{
public:
    Recorder(const char* name, QStringList* log)
        : m_name(QLatin1String(name))
        , m_log(log)
    {}

    int Update(unsigned short parameter, unsigned short ch, int value, const char* text) override
    {
        note(u"%1 %2 %3 %4"_s.arg(parameter).arg(ch).arg(value).arg(QString::fromUtf8(text)));
        return 0;
    }
    int UpdateProperty(unsigned short, unsigned short, int, int, int, bool, const char*) override
    {
        return 0;
    }
    void changed(unsigned short parameter, unsigned short ch, int before, int after) override
    {
        note(u"%1 %2 %3 %4"_s.arg(parameter).arg(ch).arg(before).arg(after));
    }
    void countChanged(int channels) override { note(u"%1 channels"_s.arg(channels)); }
    void notifyMeterLvlUpdated(unsigned int*, unsigned int) override { note(u"linear"_s); }
    void notifyMeterDbUpdated(unsigned int* values, unsigned int count) override
    {
        QStringList words;
        for (unsigned int i = 0; i < count; ++i)
            words << QString::number(values[i], 16);
        note(words.join(u' '));
    }

    std::function<void()> act;

private:
    void note(const QString& text)
    {
        *m_log << m_name + u": "_s + text;
        if (const std::function<void()> now = std::exchange(act, nullptr))
            now();
    }

    QString m_name;
    QStringList* m_log;
};

} // namespace

class tst_HostMemory : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void rangesAndDefaults_data();
    void rangesAndDefaults();
    void keepsChannelsAndParametersApart();
    void clampsIntoTheRange();
    void refusesWhatDoesNotExist_data();
    void refusesWhatDoesNotExist();
    void refusesNullPointers();
    void formatsIntoTheBuffer();
    void parsesTexts();
    void tellsObserversInOrderOnEveryWrite();
    void tellsOnlyTheRightObservers();
    void observerMayActInANotification_data();
    void observerMayActInANotification();
    void observerMayDeleteALaterOne();
    void manyMayJoinInANotification();
    void listenersHearOfChangesFirst();
    void listenersMayComeAndGo();
    void resetWritesEveryDefault();
    void handsOutMeters();
    void hasAsManyChannelsAsItIsGiven_data();
    void hasAsManyChannelsAsItIsGiven();
    void channelThatIsGoneKeepsItsValues();

private:
    void observe(Recorder* recorder, unsigned short id = lowGainId, unsigned short ch = 0)
    {
        QCOMPARE(m_memory->registerObserver(id, ch, recorder), 0);
    }
    void leave(Recorder* recorder)
    {
        QCOMPARE(m_memory->unregisterObserver(lowGainId, 0, recorder), 0);
    }
    void write(int value, unsigned short id = lowGainId, unsigned short ch = 0)
    {
        QCOMPARE(m_memory->setValue(id, ch, value, 0, 0, 1), 0);
    }
    int value(unsigned short id, unsigned short ch)
    {
        int value = -999;
        return m_memory->getValue(id, ch, &value, 0) == 0 ? value : -998;
    }

    std::unique_ptr<HostMemory> m_memory;
    QStringList m_log;
    Recorder m_a{"a", &m_log};
    Recorder m_b{"b", &m_log};
    Recorder m_c{"c", &m_log};
};

void tst_HostMemory::init()
{
    TestObject::init();
    m_memory = std::make_unique<HostMemory>();
    m_log.clear();
    m_a.act = m_b.act = nullptr;
}

void tst_HostMemory::rangesAndDefaults_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<int>("lowest");
    QTest::addColumn<int>("highest");
    QTest::addColumn<int>("initial");
    const auto rows = [](const char* kind, std::initializer_list<int> numbers, int lowest,
                         int highest, int initial) {
        for (const int number : numbers)
            QTest::addRow("%s %d", kind, number) << 0x0100 + number << lowest << highest << initial;
    };
    rows("type", {1, 21}, 0, 3, 3);
    rows("gain", {3, 7, 11, 15, 19, 23}, -200, 200, 0);
    rows("switch", {4, 8, 12, 16, 20, 24}, 0, 1, 1);
    rows("quality", {5, 9, 13, 17}, 0, 500, 158);
    rows("level", {25, 26}, -200, 200, 0);
    rows("drive", {27}, 0, 1, 0);
    rows("low frequency", {2}, 0, 1200, 241);
    rows("middle 1 frequency", {6}, 0, 1200, 520);
    rows("middle 2 frequency", {10}, 0, 1200, 641);
    rows("middle 3 frequency", {14}, 0, 1200, 839);
    rows("middle 4 frequency", {18}, 0, 1200, 979);
    rows("high frequency", {22}, 0, 1200, 1118);
    QTest::newRow("fader") << int(levelId) << 0 << 400 << 300;
}

void tst_HostMemory::rangesAndDefaults()
{
    QFETCH(const int, id);
    const auto parameter = static_cast<unsigned short>(id);
    int lowest = -999;
    int highest = -999;
    int initial = -999;
    for (unsigned short ch = 0; ch < 8; ++ch) {
        QCOMPARE(m_memory->getRange(parameter, ch, &lowest, &highest), 0);
        QCOMPARE(m_memory->getDefault(parameter, ch, &initial), 0);
        QCOMPARE(value(parameter, ch), initial);
        QTEST(lowest, "lowest");
        QTEST(highest, "highest");
        QTEST(initial, "initial");
    }
}

void tst_HostMemory::keepsChannelsAndParametersApart()
{
    for (unsigned short ch = 0; ch < 8; ++ch) {
        write(10 + ch, lowGainId, ch);
        write(500 + ch, lowFrequencyId, ch);
        write(200 + ch, levelId, ch);
    }
    for (unsigned short ch = 0; ch < 8; ++ch) {
        QCOMPARE(value(lowGainId, ch), 10 + ch);
        QCOMPARE(value(lowFrequencyId, ch), 500 + ch);
        QCOMPARE(m_memory->strip(ch, StripParameter::Level), 200 + ch);
    }
}

void tst_HostMemory::clampsIntoTheRange()
{
    for (unsigned short id = lowTypeId; id <= driveId; ++id) {
        int minimum = 0;
        int maximum = 0;
        m_memory->getRange(id, 2, &minimum, &maximum);
        write(std::numeric_limits<int>::max(), id, 2);
        QCOMPARE(value(id, 2), maximum);
        write(std::numeric_limits<int>::min(), id, 2);
        QCOMPARE(value(id, 2), minimum);
    }
}

void tst_HostMemory::refusesWhatDoesNotExist_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<int>("ch");
    QTest::addColumn<int>("element");
    QTest::newRow("parameter 0") << 0 << 0 << 0;
    QTest::newRow("before the first parameter") << 0x0100 << 0 << 0;
    QTest::newRow("after the last parameter") << 0x011C << 0 << 0;
    QTest::newRow("before the strip's first") << 0x0200 << 0 << 0;
    QTest::newRow("after the strip's last") << 0x0208 << 0 << 0;
    QTest::newRow("before the master's first") << 0x0300 << 0 << 0;
    QTest::newRow("after the master's last") << 0x0305 << 0 << 0;
    QTest::newRow("another channel's master") << 0x0301 << 1 << 0;
    QTest::newRow("a second word") << 0x4001 << 0 << 0;
    QTest::newRow("channel 8") << 0x0101 << 8 << 0;
    QTest::newRow("no channel") << 0x0101 << 65535 << 0;
    QTest::newRow("element 1") << 0x0101 << 0 << 1;
}

void tst_HostMemory::refusesWhatDoesNotExist()
{
    QFETCH(const int, id);
    QFETCH(const int, ch);
    QFETCH(const int, element);
    const auto parameter = static_cast<unsigned short>(id);
    const auto channel = static_cast<unsigned short>(ch);
    const auto part = static_cast<unsigned short>(element);
    int value = 4711;
    QVERIFY(m_memory->getValue(parameter, channel, &value, part) < 0);
    QVERIFY(m_memory->setValue(parameter, channel, 1, part, 0, 1) < 0);
    QCOMPARE(value, 4711);
    for (int i = 0; i < 8; ++i)
        QCOMPARE(m_memory->values(i), HostMemory().values(0));
    if (element != 0)
        return;
    int other = 4712;
    char buffer[8] = "before";
    QVERIFY(m_memory->getRange(parameter, channel, &value, &other) < 0);
    QVERIFY(m_memory->getDefault(parameter, channel, &value) < 0);
    QVERIFY(m_memory->valueToString(parameter, channel, 0, buffer, sizeof buffer) < 0);
    QVERIFY(m_memory->stringToValue(parameter, channel, "1", &value) < 0);
    QVERIFY(m_memory->registerObserver(parameter, channel, &m_a) < 0);
    QVERIFY(m_memory->unregisterObserver(parameter, channel, &m_a) < 0);
    QCOMPARE(value, 4711);
    QCOMPARE(other, 4712);
    QCOMPARE(buffer, "before");
}

void tst_HostMemory::refusesNullPointers()
{
    int value = 0;
    QVERIFY(m_memory->getValue(lowGainId, 0, nullptr, 0) < 0);
    QVERIFY(m_memory->getRange(lowGainId, 0, nullptr, &value) < 0);
    QVERIFY(m_memory->getRange(lowGainId, 0, &value, nullptr) < 0);
    QVERIFY(m_memory->getDefault(lowGainId, 0, nullptr) < 0);
    QVERIFY(m_memory->valueToString(lowGainId, 0, 0, nullptr, 256) < 0);
    QVERIFY(m_memory->stringToValue(lowGainId, 0, nullptr, &value) < 0);
    QVERIFY(m_memory->stringToValue(lowGainId, 0, "1", nullptr) < 0);
    QVERIFY(m_memory->registerObserver(lowGainId, 0, nullptr) < 0);
    QVERIFY(m_memory->unregisterObserver(lowGainId, 0, nullptr) < 0);
    QVERIFY(m_memory->queryMeterNotifier(nullptr) < 0);
}

void tst_HostMemory::formatsIntoTheBuffer()
{
    char buffer[8] = "xxxxxxx";
    QCOMPARE(m_memory->valueToString(lowGainId, 0, 30, buffer, 5), 0);
    QCOMPARE(QByteArray(buffer, 8), QByteArray("+3.0\0xx\0", 8));
    for (const int size : {4, 1, 0, -1, std::numeric_limits<int>::min()}) {
        char small[8] = "before";
        QVERIFY(m_memory->valueToString(lowGainId, 0, 30, small, size) < 0);
        QCOMPARE(small, "before");
    }
    QVERIFY(m_memory->valueToString(lowGainId, 0, 201, buffer, 8) < 0);
    QCOMPARE(buffer, "+3.0");
    QCOMPARE(m_memory->valueToString(levelId, 3, 400, buffer, 8), 0);
    QCOMPARE(buffer, "+10.0");
}

void tst_HostMemory::parsesTexts()
{
    int value = 5;
    QCOMPARE(m_memory->stringToValue(lowFrequencyId, 3, "1.25 kHz", &value), 0);
    QVERIFY(m_memory->stringToValue(lowFrequencyId, 3, "loud", &value) < 0);
    QCOMPARE(value, 718);
    QCOMPARE(m_memory->values(3)[1], 241);
    QCOMPARE(m_memory->stringToValue(levelId, 3, "-inf", &value), 0);
    QCOMPARE(value, 0);
}

void tst_HostMemory::tellsObserversInOrderOnEveryWrite()
{
    observe(&m_b, lowGainId, 1);
    observe(&m_a, lowGainId, 1);
    int seen = 0;
    m_b.act = [&] { seen = value(lowGainId, 1); };
    write(5000, lowGainId, 1);
    QCOMPARE(seen, 200);
    write(200, lowGainId, 1);
    const QStringList once = {u"b: 259 1 200 +20.0"_s, u"a: 259 1 200 +20.0"_s};
    QCOMPARE(m_log, once + once);
}

void tst_HostMemory::tellsOnlyTheRightObservers()
{
    observe(&m_a);
    QVERIFY(m_memory->registerObserver(lowGainId, 0, &m_a) < 0); // is told once
    observe(&m_b, lowGainId, 1);
    observe(&m_c, stripId(StripParameter::Source), 6);
    write(30, lowGainId, 2);
    write(30, lowFrequencyId);
    m_memory->setValue(lowGainId, 0, 30, 1, 0, 1);
    m_memory->setStrip(6, StripParameter::Mute, 1);
    m_memory->setStrip(5, StripParameter::Source, SourceOff);
    QCOMPARE(m_log, QStringList());
    write(30);
    m_memory->setStrip(6, StripParameter::Source, SourceInput1 + 2);
    const QStringList expected = {u"a: 259 0 30 +3.0"_s, u"c: 513 6 4 Input 3"_s};
    QCOMPARE(m_log, expected);
    leave(&m_a);
    QVERIFY(m_memory->unregisterObserver(lowGainId, 0, &m_a) < 0);
    write(40);
    QCOMPARE(m_log, expected);
}

void tst_HostMemory::observerMayActInANotification_data()
{
    using Act = std::function<void(tst_HostMemory&)>;
    QTest::addColumn<Act>("act"); // of a, which comes before b
    QTest::addColumn<QStringList>("first");
    QTest::addColumn<QStringList>("second");
    const auto row = [](const char* name, const Act& act, const QStringList& first,
                        const QStringList& second) {
        QTest::newRow(name) << act << first << second;
    };
    const QString a1 = u"a: 259 0 10 +1.0"_s;
    const QString b1 = u"b: 259 0 10 +1.0"_s;
    const QString a2 = u"a: 259 0 20 +2.0"_s;
    const QString b2 = u"b: 259 0 20 +2.0"_s;
    row("leave", [](auto& t) { t.leave(&t.m_a); }, {a1, b1}, {b2});
    row("remove a later one", [](auto& t) { t.leave(&t.m_b); }, {a1}, {a2});
    row("bring another", [](auto& t) { t.observe(&t.m_c); }, {a1, b1},
        {a2, b2, u"c: 259 0 20 +2.0"_s});
    const auto comeBack = [](auto& t) {
        t.leave(&t.m_a);
        t.observe(&t.m_a);
    };
    row("come back", comeBack, {a1, b1}, {b2, a2});
    // The inner write reaches both; the outer one then tells b what holds now, never what is past.
    row("write", [](auto& t) { t.write(50); },
        {a1, u"a: 259 0 50 +5.0"_s, u"b: 259 0 50 +5.0"_s, u"b: 259 0 50 +5.0"_s}, {a2, b2});
    const auto writeAnother = [](auto& t) {
        t.observe(&t.m_c, driveId);
        t.write(1, driveId);
    };
    row("write another", writeAnother, {a1, u"c: 283 0 1 Drive"_s, b1}, {a2, b2});
}

void tst_HostMemory::observerMayActInANotification()
{
    QFETCH(const std::function<void(tst_HostMemory&)>, act);
    observe(&m_a);
    observe(&m_b);
    m_a.act = [&] { act(*this); };
    write(10);
    QTEST(std::exchange(m_log, {}), "first");
    write(20);
    QTEST(m_log, "second");
}

void tst_HostMemory::observerMayDeleteALaterOne()
{
    auto later = std::make_unique<Recorder>("later", &m_log);
    observe(&m_a);
    observe(later.get());
    m_a.act = [&] {
        leave(later.get());
        later.reset();
    };
    write(10);
    QCOMPARE(m_log.size(), 1);
}

void tst_HostMemory::manyMayJoinInANotification()
{
    std::vector<Recorder> others(100, Recorder("other", &m_log));
    observe(&m_a);
    m_a.act = [&] {
        for (Recorder& other : others)
            observe(&other);
    };
    write(10);
    QCOMPARE(m_log.size(), 1);
    write(20);
    QCOMPARE(m_log.size(), 102);
}

void tst_HostMemory::listenersHearOfChangesFirst()
{
    observe(&m_c, lowGainId, 3);
    m_memory->addChangeListener(&m_b);
    m_memory->addChangeListener(&m_a);
    write(999, lowGainId, 3);
    write(200, lowGainId, 3);
    m_memory->setStrip(7, StripParameter::Mute, 1);
    QCOMPARE(m_log, (QStringList{u"b: 259 3 0 200"_s, u"a: 259 3 0 200"_s, u"c: 259 3 200 +20.0"_s,
                                 u"c: 259 3 200 +20.0"_s, u"b: 516 7 0 1"_s, u"a: 516 7 0 1"_s}));
}

void tst_HostMemory::listenersMayComeAndGo()
{
    m_memory->addChangeListener(&m_a);
    m_memory->addChangeListener(&m_b);
    m_a.act = [this] {
        m_memory->removeChangeListener(&m_a);
        m_memory->removeChangeListener(&m_b);
        m_memory->addChangeListener(&m_c);
    };
    write(10);
    write(20);
    QCOMPARE(m_log, (QStringList{u"a: 259 0 0 10"_s, u"c: 259 0 10 20"_s}));
}

void tst_HostMemory::resetWritesEveryDefault()
{
    for (unsigned short id = lowTypeId; id <= driveId; ++id) {
        write(1, id, 4);
        write(1, id, 5);
        observe(&m_a, id, 4);
    }
    m_memory->setStrip(4, StripParameter::Level, 400);
    const HostMemory::Values neighbour = m_memory->values(5);
    m_memory->reset(4);
    QCOMPARE(m_log.size(), 27);
    QCOMPARE(m_memory->values(4), HostMemory().values(4));
    QCOMPARE(m_memory->values(5), neighbour);
    QCOMPARE(m_memory->strip(4, StripParameter::Level), 400); // is no part of the equalizer
}

void tst_HostMemory::handsOutMeters()
{
    IMeterNotifier* notifier = nullptr;
    QCOMPARE(m_memory->queryMeterNotifier(&notifier), 0);
    QCOMPARE(notifier, &m_memory->meters());
    for (IMeterObserver* observer : std::initializer_list<IMeterObserver*>{&m_a, &m_a, nullptr})
        notifier->addMeterObserver(observer);
    notifier->addMeterObserver(&m_b);
    m_a.act = [&] {
        notifier->removeMeterObserver(&m_a);
        notifier->removeMeterObserver(&m_a);
        notifier->removeMeterObserver(&m_b);
        notifier->addMeterObserver(&m_c);
    };
    m_memory->meters().notify({-600, 0, 5});
    m_memory->meters().notify({1});
    QCOMPARE(m_log, (QStringList{u"a: fffffda8 0 5"_s, u"c: 1"_s}));
}

void tst_HostMemory::hasAsManyChannelsAsItIsGiven_data()
{
    QTest::addColumn<int>("wanted");
    QTest::addColumn<bool>("allowed");
    for (const int count : {2, 4, 8, 10, 30, 32})
        QTest::addRow("%d", count) << count << true;
    for (const int count : {-2, 0, 1, 7, 31, 33, 34, 1 << 30})
        QTest::addRow("%d", count) << count << false;
}

void tst_HostMemory::hasAsManyChannelsAsItIsGiven()
{
    QFETCH(const int, wanted);
    QFETCH(const bool, allowed);
    m_memory->addChangeListener(&m_a);
    QCOMPARE(m_memory->setChannelCount(wanted), allowed ? 0 : -1);
    const int count = allowed ? wanted : 8;
    QCOMPARE(m_memory->channelCount(), count);
    QCOMPARE(m_log, count == 8 ? QStringList() : QStringList(u"a: %1 channels"_s.arg(count)));
    for (int ch = 0; ch <= 32; ++ch) {
        int found = 0;
        QCOMPARE(m_memory->getValue(levelId, static_cast<unsigned short>(ch), &found, 0),
                 ch < count ? 0 : -1);
    }
}

// It hears of nothing while it is gone, and whoever observes it may leave.
void tst_HostMemory::channelThatIsGoneKeepsItsValues()
{
    QCOMPARE(m_memory->setChannelCount(32), 0);
    observe(&m_a, lowGainId, 31);
    observe(&m_b, lowGainId, 31);
    write(40, lowGainId, 31);
    m_log.clear();
    QCOMPARE(m_memory->setChannelCount(30), 0);
    QVERIFY(m_memory->setValue(lowGainId, 31, 50, 0, 0, 1) < 0);
    QVERIFY(m_memory->registerObserver(lowGainId, 31, &m_c) < 0);
    QCOMPARE(m_memory->unregisterObserver(lowGainId, 31, &m_b), 0);
    QCOMPARE(m_log, QStringList());
    m_memory->setStrip(31, StripParameter::Balance, -7); // of a session that is restored
    QCOMPARE(m_memory->setChannelCount(32), 0);
    QCOMPARE(value(lowGainId, 31), 40);
    QCOMPARE(m_memory->strip(31, StripParameter::Balance), -7);
    write(60, lowGainId, 31);
    QCOMPARE(m_log, QStringList(u"a: 259 31 60 +6.0"_s));
}

QTEST_APPLESS_MAIN(tst_HostMemory)

#include "tst_HostMemory.moc"
