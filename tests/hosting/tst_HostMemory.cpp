// SPDX-License-Identifier: GPL-3.0-or-later
#include "hosting/ChangeListener.h"
#include "hosting/HostMemory.h"
#include "interfaces/IMeterObserver.h"
#include "interfaces/IPrmObserver.h"
#include "tests/support/TestObject.h"

#include <functional>
#include <limits>

namespace {

constexpr unsigned short lowTypeId = 0x0101;
constexpr unsigned short lowFrequencyId = 0x0102;
constexpr unsigned short lowGainId = 0x0103;
constexpr unsigned short driveId = 0x011B;

// Writes down every update as "name: parameter channel value text", then does what it is told.
class Recorder : public IPrmObserver
{
public:
    Recorder(QString name, QStringList* log)
        : m_name(std::move(name))
        , m_log(log)
    {}

    int Update(unsigned short parameter, unsigned short ch, int value, const char* text) override
    {
        *m_log << QStringLiteral("%1: %2 %3 %4 %5")
                      .arg(m_name)
                      .arg(parameter)
                      .arg(ch)
                      .arg(value)
                      .arg(QString::fromUtf8(text));
        if (const std::function<void(int)> act = std::exchange(onUpdate, nullptr))
            act(value);
        return 0;
    }

    int UpdateProperty(unsigned short, unsigned short, int, int, int, bool, const char*) override
    {
        return 0;
    }

    std::function<void(int)> onUpdate; // done once, at the next update

private:
    QString m_name;
    QStringList* m_log;
};

// Writes down every change as "name: parameter channel before after", then does what it is told.
class ChangeRecorder final : public ChangeListener
{
public:
    ChangeRecorder(QString name, QStringList* log)
        : m_name(std::move(name))
        , m_log(log)
    {}

    void changed(unsigned short parameter, unsigned short ch, int before, int after) override
    {
        *m_log << QStringLiteral("%1: %2 %3 %4 %5")
                      .arg(m_name)
                      .arg(parameter)
                      .arg(ch)
                      .arg(before)
                      .arg(after);
        if (const std::function<void()> act = std::exchange(onChange, nullptr))
            act();
    }

    std::function<void()> onChange; // done once, at the next change

private:
    QString m_name;
    QStringList* m_log;
};

class MeterRecorder : public IMeterObserver
{
public:
    void notifyMeterLvlUpdated(unsigned int*, unsigned int) override { ++linear; }
    void notifyMeterDbUpdated(unsigned int* values, unsigned int count) override
    {
        received.emplace_back(values, values + count);
        if (const std::function<void()> act = std::exchange(onUpdate, nullptr))
            act();
    }

    std::vector<std::vector<unsigned int>> received;
    std::function<void()> onUpdate;
    int linear = 0;
};

} // namespace

class tst_HostMemory : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsAtDefaults();
    void rangesOfKinds_data();
    void rangesOfKinds();
    void keepsChannelsAndParametersApart();
    void clampsIntoTheRange();
    void refusesWhatDoesNotExist_data();
    void refusesWhatDoesNotExist();
    void refusesNullPointers();
    void formatsIntoTheBuffer();
    void parsesTexts();
    void tellsObserversInOrderOnEveryWrite();
    void tellsTheValueThatWasKept();
    void tellsOnlyTheRightObservers();
    void refusesDuplicateObservers();
    void observerMayLeaveInANotification();
    void observerMayRemoveALaterOne();
    void observerMayJoinInANotification();
    void observerMayComeBackInANotification();
    void observerMayWriteInANotification();
    void observerMayWriteAnotherParameter();
    void listenersHearOfChangesFirst();
    void listenersMayComeAndGo();
    void resetWritesEveryDefault();
    void handsOutMeters();
    void metersMayComeAndGo();
};

void tst_HostMemory::startsAtDefaults()
{
    HostMemory memory;
    for (unsigned short ch = 0; ch < 8; ++ch) {
        for (unsigned short id = lowTypeId; id <= driveId; ++id) {
            int value = -999;
            int initial = -998;
            QCOMPARE(memory.getValue(id, ch, &value, 0), 0);
            QCOMPARE(memory.getDefault(id, ch, &initial), 0);
            QCOMPARE(value, initial);
        }
    }
}

void tst_HostMemory::rangesOfKinds_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("lowest");
    QTest::addColumn<int>("highest");
    QTest::addColumn<int>("initial");
    const auto rows = [](const char* kind, std::initializer_list<int> numbers, int lowest,
                         int highest, int initial) {
        for (const int number : numbers)
            QTest::addRow("%s %d", kind, number) << number << lowest << highest << initial;
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
}

void tst_HostMemory::rangesOfKinds()
{
    QFETCH(const int, number);
    HostMemory memory;
    const auto id = static_cast<unsigned short>(0x0100 + number);
    int lowest = -999;
    int highest = -999;
    int initial = -999;
    QCOMPARE(memory.getRange(id, 7, &lowest, &highest), 0);
    QCOMPARE(memory.getDefault(id, 7, &initial), 0);
    QTEST(lowest, "lowest");
    QTEST(highest, "highest");
    QTEST(initial, "initial");
}

void tst_HostMemory::keepsChannelsAndParametersApart()
{
    HostMemory memory;
    for (unsigned short ch = 0; ch < 8; ++ch) {
        QCOMPARE(memory.setValue(lowGainId, ch, 10 + ch, 0, 0, 1), 0);
        QCOMPARE(memory.setValue(lowFrequencyId, ch, 500 + ch, 0, 0, 1), 0);
    }
    for (unsigned short ch = 0; ch < 8; ++ch) {
        int gain = 0;
        int frequency = 0;
        QCOMPARE(memory.getValue(lowGainId, ch, &gain, 0), 0);
        QCOMPARE(memory.getValue(lowFrequencyId, ch, &frequency, 0), 0);
        QCOMPARE(gain, 10 + ch);
        QCOMPARE(frequency, 500 + ch);
    }
}

void tst_HostMemory::clampsIntoTheRange()
{
    HostMemory memory;
    for (unsigned short id = lowTypeId; id <= driveId; ++id) {
        int minimum = 0;
        int maximum = 0;
        int value = 0;
        memory.getRange(id, 2, &minimum, &maximum);
        QCOMPARE(memory.setValue(id, 2, std::numeric_limits<int>::max(), 0, 0, 1), 0);
        memory.getValue(id, 2, &value, 0);
        QCOMPARE(value, maximum);
        QCOMPARE(memory.setValue(id, 2, std::numeric_limits<int>::min(), 0, 0, 1), 0);
        memory.getValue(id, 2, &value, 0);
        QCOMPARE(value, minimum);
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
    HostMemory memory;
    int value = 4711;
    QVERIFY(memory.getValue(parameter, channel, &value, part) < 0);
    QVERIFY(memory.setValue(parameter, channel, 1, part, 0, 1) < 0);
    QCOMPARE(value, 4711);
    for (int i = 0; i < 8; ++i)
        QCOMPARE(memory.values(i), HostMemory().values(0));
    if (element != 0)
        return;
    int other = 4712;
    char buffer[8] = "before";
    QStringList log;
    Recorder recorder(QStringLiteral("a"), &log);
    QVERIFY(memory.getRange(parameter, channel, &value, &other) < 0);
    QVERIFY(memory.getDefault(parameter, channel, &value) < 0);
    QVERIFY(memory.valueToString(parameter, channel, 0, buffer, sizeof buffer) < 0);
    QVERIFY(memory.stringToValue(parameter, channel, "1", &value) < 0);
    QVERIFY(memory.registerObserver(parameter, channel, &recorder) < 0);
    QVERIFY(memory.unregisterObserver(parameter, channel, &recorder) < 0);
    QCOMPARE(value, 4711);
    QCOMPARE(other, 4712);
    QCOMPARE(buffer, "before");
}

void tst_HostMemory::refusesNullPointers()
{
    HostMemory memory;
    int value = 0;
    QVERIFY(memory.getValue(lowGainId, 0, nullptr, 0) < 0);
    QVERIFY(memory.getRange(lowGainId, 0, nullptr, &value) < 0);
    QVERIFY(memory.getRange(lowGainId, 0, &value, nullptr) < 0);
    QVERIFY(memory.getDefault(lowGainId, 0, nullptr) < 0);
    QVERIFY(memory.valueToString(lowGainId, 0, 0, nullptr, 256) < 0);
    QVERIFY(memory.stringToValue(lowGainId, 0, nullptr, &value) < 0);
    QVERIFY(memory.stringToValue(lowGainId, 0, "1", nullptr) < 0);
    QVERIFY(memory.registerObserver(lowGainId, 0, nullptr) < 0);
    QVERIFY(memory.unregisterObserver(lowGainId, 0, nullptr) < 0);
    QVERIFY(memory.queryMeterNotifier(nullptr) < 0);
}

void tst_HostMemory::formatsIntoTheBuffer()
{
    HostMemory memory;
    char buffer[8] = "xxxxxxx";
    QCOMPARE(memory.valueToString(lowGainId, 0, 30, buffer, 5), 0);
    QCOMPARE(buffer, "+3.0");
    QCOMPARE(QByteArray(buffer, 8), QByteArray("+3.0\0xx\0", 8));
    for (const int size : {4, 1, 0, -1, std::numeric_limits<int>::min()}) {
        char small[8] = "before";
        QVERIFY(memory.valueToString(lowGainId, 0, 30, small, size) < 0);
        QCOMPARE(small, "before");
    }
    QVERIFY(memory.valueToString(lowGainId, 0, 201, buffer, 8) < 0);
    QCOMPARE(buffer, "+3.0");
}

void tst_HostMemory::parsesTexts()
{
    HostMemory memory;
    int value = 5;
    QCOMPARE(memory.stringToValue(lowFrequencyId, 3, "1.25 kHz", &value), 0);
    QCOMPARE(value, 718);
    QVERIFY(memory.stringToValue(lowFrequencyId, 3, "loud", &value) < 0);
    QCOMPARE(value, 718);
    QCOMPARE(memory.values(3)[1], 241);
}

void tst_HostMemory::tellsObserversInOrderOnEveryWrite()
{
    HostMemory memory;
    QStringList log;
    Recorder a(QStringLiteral("a"), &log);
    Recorder b(QStringLiteral("b"), &log);
    QCOMPARE(memory.registerObserver(lowGainId, 1, &b), 0);
    QCOMPARE(memory.registerObserver(lowGainId, 1, &a), 0);
    memory.setValue(lowGainId, 1, 30, 0, 0, 1);
    memory.setValue(lowGainId, 1, 30, 0, 0, 1);
    const QStringList once = {QStringLiteral("b: 259 1 30 +3.0"),
                              QStringLiteral("a: 259 1 30 +3.0")};
    QCOMPARE(log, once + once);
}

void tst_HostMemory::tellsTheValueThatWasKept()
{
    HostMemory memory;
    QStringList log;
    Recorder a(QStringLiteral("a"), &log);
    memory.registerObserver(lowGainId, 0, &a);
    int seen = 0;
    a.onUpdate = [&](int) { memory.getValue(lowGainId, 0, &seen, 0); };
    memory.setValue(lowGainId, 0, 5000, 0, 0, 1);
    QCOMPARE(seen, 200);
    QCOMPARE(log, QStringList{QStringLiteral("a: 259 0 200 +20.0")});
}

void tst_HostMemory::tellsOnlyTheRightObservers()
{
    HostMemory memory;
    QStringList log;
    Recorder a(QStringLiteral("a"), &log);
    memory.registerObserver(lowGainId, 0, &a);
    memory.setValue(lowGainId, 1, 30, 0, 0, 1);
    memory.setValue(lowFrequencyId, 0, 30, 0, 0, 1);
    memory.setValue(lowGainId, 0, 30, 1, 0, 1);
    QCOMPARE(log, QStringList());
    QCOMPARE(memory.unregisterObserver(lowGainId, 0, &a), 0);
    memory.setValue(lowGainId, 0, 30, 0, 0, 1);
    QCOMPARE(log, QStringList());
    QVERIFY(memory.unregisterObserver(lowGainId, 0, &a) < 0);
}

void tst_HostMemory::refusesDuplicateObservers()
{
    HostMemory memory;
    QStringList log;
    Recorder a(QStringLiteral("a"), &log);
    QCOMPARE(memory.registerObserver(lowGainId, 0, &a), 0);
    QVERIFY(memory.registerObserver(lowGainId, 0, &a) < 0);
    QCOMPARE(memory.registerObserver(lowGainId, 1, &a), 0);
    memory.setValue(lowGainId, 0, 30, 0, 0, 1);
    QCOMPARE(log.size(), 1);
}

void tst_HostMemory::observerMayLeaveInANotification()
{
    HostMemory memory;
    QStringList log;
    Recorder a(QStringLiteral("a"), &log);
    Recorder b(QStringLiteral("b"), &log);
    memory.registerObserver(lowGainId, 0, &a);
    memory.registerObserver(lowGainId, 0, &b);
    a.onUpdate = [&](int) { QCOMPARE(memory.unregisterObserver(lowGainId, 0, &a), 0); };
    memory.setValue(lowGainId, 0, 10, 0, 0, 1);
    memory.setValue(lowGainId, 0, 20, 0, 0, 1);
    QCOMPARE(log,
             (QStringList{QStringLiteral("a: 259 0 10 +1.0"), QStringLiteral("b: 259 0 10 +1.0"),
                          QStringLiteral("b: 259 0 20 +2.0")}));
}

void tst_HostMemory::observerMayRemoveALaterOne()
{
    HostMemory memory;
    QStringList log;
    Recorder a(QStringLiteral("a"), &log);
    auto b = std::make_unique<Recorder>(QStringLiteral("b"), &log);
    memory.registerObserver(lowGainId, 0, &a);
    memory.registerObserver(lowGainId, 0, b.get());
    a.onUpdate = [&](int) {
        memory.unregisterObserver(lowGainId, 0, b.get());
        b.reset();
    };
    memory.setValue(lowGainId, 0, 10, 0, 0, 1);
    QCOMPARE(log, QStringList{QStringLiteral("a: 259 0 10 +1.0")});
}

void tst_HostMemory::observerMayJoinInANotification()
{
    HostMemory memory;
    QStringList log;
    Recorder a(QStringLiteral("a"), &log);
    std::vector<std::unique_ptr<Recorder>> others;
    memory.registerObserver(lowGainId, 0, &a);
    a.onUpdate = [&](int) {
        for (int i = 0; i < 100; ++i) {
            others.push_back(std::make_unique<Recorder>(QStringLiteral("other"), &log));
            QCOMPARE(memory.registerObserver(lowGainId, 0, others.back().get()), 0);
        }
    };
    memory.setValue(lowGainId, 0, 10, 0, 0, 1);
    QCOMPARE(log.size(), 1);
    memory.setValue(lowGainId, 0, 20, 0, 0, 1);
    QCOMPARE(log.size(), 102);
}

void tst_HostMemory::observerMayComeBackInANotification()
{
    HostMemory memory;
    QStringList log;
    Recorder a(QStringLiteral("a"), &log);
    memory.registerObserver(lowGainId, 0, &a);
    a.onUpdate = [&](int) {
        QCOMPARE(memory.unregisterObserver(lowGainId, 0, &a), 0);
        QCOMPARE(memory.registerObserver(lowGainId, 0, &a), 0);
    };
    memory.setValue(lowGainId, 0, 10, 0, 0, 1);
    QCOMPARE(log.size(), 1);
    memory.setValue(lowGainId, 0, 20, 0, 0, 1);
    QCOMPARE(log.size(), 2);
}

void tst_HostMemory::observerMayWriteInANotification()
{
    HostMemory memory;
    QStringList log;
    Recorder a(QStringLiteral("a"), &log);
    Recorder b(QStringLiteral("b"), &log);
    memory.registerObserver(lowGainId, 0, &a);
    memory.registerObserver(lowGainId, 0, &b);
    a.onUpdate = [&](int) { memory.setValue(lowGainId, 0, 50, 0, 0, 1); };
    memory.setValue(lowGainId, 0, 10, 0, 0, 1);
    // The inner write reaches both; the outer one then tells b what holds now, never what is past.
    QCOMPARE(log,
             (QStringList{QStringLiteral("a: 259 0 10 +1.0"), QStringLiteral("a: 259 0 50 +5.0"),
                          QStringLiteral("b: 259 0 50 +5.0"), QStringLiteral("b: 259 0 50 +5.0")}));
}

void tst_HostMemory::observerMayWriteAnotherParameter()
{
    HostMemory memory;
    QStringList log;
    Recorder a(QStringLiteral("a"), &log);
    Recorder b(QStringLiteral("b"), &log);
    memory.registerObserver(lowGainId, 0, &a);
    memory.registerObserver(driveId, 0, &b);
    a.onUpdate = [&](int) { memory.setValue(driveId, 0, 1, 0, 0, 1); };
    memory.setValue(lowGainId, 0, 10, 0, 0, 1);
    QCOMPARE(log,
             (QStringList{QStringLiteral("a: 259 0 10 +1.0"), QStringLiteral("b: 283 0 1 Drive")}));
}

void tst_HostMemory::listenersHearOfChangesFirst()
{
    HostMemory memory;
    QStringList log;
    Recorder observer(QStringLiteral("observer"), &log);
    ChangeRecorder a(QStringLiteral("a"), &log);
    ChangeRecorder b(QStringLiteral("b"), &log);
    memory.registerObserver(lowGainId, 3, &observer);
    memory.addChangeListener(&b);
    memory.addChangeListener(&a);
    memory.setValue(lowGainId, 3, 999, 0, 0, 1);
    memory.setValue(lowGainId, 3, 200, 0, 0, 1);
    memory.setStrip(7, StripParameter::Mute, 1);
    QCOMPARE(log, (QStringList{QStringLiteral("b: 259 3 0 200"), QStringLiteral("a: 259 3 0 200"),
                               QStringLiteral("observer: 259 3 200 +20.0"),
                               QStringLiteral("observer: 259 3 200 +20.0"),
                               QStringLiteral("b: 516 7 0 1"), QStringLiteral("a: 516 7 0 1")}));
}

void tst_HostMemory::listenersMayComeAndGo()
{
    HostMemory memory;
    QStringList log;
    ChangeRecorder a(QStringLiteral("a"), &log);
    ChangeRecorder b(QStringLiteral("b"), &log);
    ChangeRecorder c(QStringLiteral("c"), &log);
    memory.addChangeListener(&a);
    memory.addChangeListener(&b);
    a.onChange = [&] {
        memory.removeChangeListener(&a);
        memory.removeChangeListener(&b);
        memory.addChangeListener(&c);
    };
    memory.setValue(lowGainId, 0, 10, 0, 0, 1);
    memory.setValue(lowGainId, 0, 20, 0, 0, 1);
    QCOMPARE(log, (QStringList{QStringLiteral("a: 259 0 0 10"), QStringLiteral("c: 259 0 10 20")}));
}

void tst_HostMemory::resetWritesEveryDefault()
{
    HostMemory memory;
    QStringList log;
    Recorder a(QStringLiteral("a"), &log);
    for (unsigned short id = lowTypeId; id <= driveId; ++id) {
        memory.setValue(id, 4, 1, 0, 0, 1);
        memory.setValue(id, 5, 1, 0, 0, 1);
        memory.registerObserver(id, 4, &a);
    }
    const HostMemory::Values neighbour = memory.values(5);
    memory.reset(4);
    QCOMPARE(log.size(), 27);
    QCOMPARE(memory.values(4), HostMemory().values(4));
    QCOMPARE(memory.values(5), neighbour);
}

void tst_HostMemory::handsOutMeters()
{
    HostMemory memory;
    IMeterNotifier* notifier = nullptr;
    QCOMPARE(memory.queryMeterNotifier(&notifier), 0);
    QCOMPARE(notifier, &memory.meters());
    MeterRecorder a;
    notifier->addMeterObserver(&a);
    notifier->addMeterObserver(&a);
    notifier->addMeterObserver(nullptr);
    memory.meters().notify({-600, 0, 5});
    QCOMPARE(a.received.size(), 1U);
    QCOMPARE(a.received[0], (std::vector<unsigned int>{0xFFFFFDA8U, 0U, 5U}));
    QCOMPARE(a.linear, 0);
    notifier->removeMeterObserver(&a);
    notifier->removeMeterObserver(&a);
    memory.meters().notify({1});
    QCOMPARE(a.received.size(), 1U);
}

void tst_HostMemory::metersMayComeAndGo()
{
    MeterNotifier meters;
    MeterRecorder a;
    MeterRecorder b;
    MeterRecorder c;
    meters.addMeterObserver(&a);
    meters.addMeterObserver(&b);
    a.onUpdate = [&] {
        meters.removeMeterObserver(&a);
        meters.removeMeterObserver(&b);
        meters.addMeterObserver(&c);
    };
    meters.notify({1});
    QCOMPARE(a.received.size(), 1U);
    QCOMPARE(b.received.size(), 0U);
    QCOMPARE(c.received.size(), 0U);
    meters.notify({2});
    QCOMPARE(a.received.size(), 1U);
    QCOMPARE(b.received.size(), 0U);
    QCOMPARE(c.received.size(), 1U);
}

QTEST_APPLESS_MAIN(tst_HostMemory)

#include "tst_HostMemory.moc"
