// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/TestHost.h"
#include "tests/support/TestObject.h"

#include <cstring>

using Operation = TestHost::Operation;

namespace {

constexpr const char* Frequency = "fx_rackfx_prm_2";
constexpr const char* Gain = "fx_rackfx_prm_3";

struct Observer final : IPrmObserver
{
    int Update(unsigned short parameter, unsigned short ch, int value, const char*) override
    {
        ++updates;
        lastParameter = parameter;
        lastCh = ch;
        lastValue = value;
        if (action)
            action();
        return 0;
    }
    int UpdateProperty(unsigned short, unsigned short, int, int, int, bool, const char*) override
    {
        ++properties;
        return 0;
    }

    std::function<void()> action;
    int updates = 0;
    int properties = 0;
    int lastParameter = -1;
    int lastCh = -1;
    int lastValue = -1;
};

struct MeterObserver final : IMeterObserver
{
    void notifyMeterLvlUpdated(unsigned int* values, unsigned int count) override
    {
        levels.assign(values, values + count);
    }
    void notifyMeterDbUpdated(unsigned int* values, unsigned int count) override
    {
        decibels.assign(values, values + count);
    }

    std::vector<unsigned int> levels;
    std::vector<unsigned int> decibels;
};

} // namespace

class tst_TestHost : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void listsItsChannels();
    void resolvesNames();
    void answersRangesDefaultsAndValues();
    void keepsChannelsAndElementsApart();
    void writesReachStoreObserversAndLedger();
    void clampsOnlyWhenAsked();
    void staysSilentWhenAsked();
    void setIsNotRecorded();
    void observersMayLeaveWhileToldOfAChange();
    void observersMayArriveWhileToldOfAChange();
    void countsRegistrations();
    void convertsTexts();
    void cutsTextsToTheBuffer();
    void removedParameterIsGone();
    void addressCanBeChosen();
    void pushesMeters();
    void unknownAddressesFail();
    void failsTheChosenCallOnce();
    void failsEveryCallOfAnOperation();
    void sweepsEveryCall();
    void errorsLeaveOutputsAlone();
    void ledgerCanBeReset();
    void reservedOperationsAreNoticed();
};

void tst_TestHost::listsItsChannels()
{
    TestHost host(3);
    QCOMPARE(host.model()->getChannelCount(), 3);
    unsigned short attribute = 0, channel = 99;
    host.model()->getChannelEntry(&attribute, &channel, 2);
    QCOMPARE(channel, 2);
    host.setChannels({4, 17});
    QCOMPARE(host.model()->getChannelCount(), 2);
    host.model()->getChannelEntry(&attribute, &channel, 1);
    QCOMPARE(channel, 17);
    QCOMPARE(host.value(Frequency, 17), 600);
}

void tst_TestHost::resolvesNames()
{
    TestHost host;
    for (int number = 1; number <= 27; ++number) {
        unsigned short index = 0, parameter = 0, second = 0;
        QVERIFY(host.model()->findParameter(&index, TestHost::name(number).constData()));
        QVERIFY(host.model()->getParameterAddress(&parameter, &second, index));
        QCOMPARE(index, 99 + number);
        QCOMPARE(parameter, 3000 + 13 * number);
        QCOMPARE(second, 900 + number);
    }
    unsigned short untouched = 7;
    QVERIFY(!host.model()->findParameter(&untouched, "fx_rackfx_prm_28"));
    QCOMPARE(untouched, 7);
}

void tst_TestHost::answersRangesDefaultsAndValues()
{
    TestHost host;
    int minimum = -1, maximum = -1, standard = -1, value = -1;
    QCOMPARE(host.memory()->getRange(host.id(Gain), 1, &minimum, &maximum), 0);
    QCOMPARE(minimum, -200);
    QCOMPARE(maximum, 200);
    QCOMPARE(host.memory()->getDefault(host.id(Frequency), 1, &standard), 0);
    QCOMPARE(standard, 600);
    QCOMPARE(host.memory()->getValue(host.id(Frequency), 1, &value, 0), 0);
    QCOMPARE(value, 600);
    host.setRange(Gain, 1, 5, 6);
    host.setDefault(Gain, 1, 6);
    QCOMPARE(host.range(Gain, 1), (std::pair<int, int>(5, 6)));
    QCOMPARE(host.range(Gain, 2), (std::pair<int, int>(-200, 200)));
    QCOMPARE(host.defaultValue(Gain, 1), 6);
    QCOMPARE(host.value(Gain, 1), 0);
}

void tst_TestHost::keepsChannelsAndElementsApart()
{
    TestHost host;
    host.memory()->setValue(host.id(Gain), 2, 11, 0, 0, 1);
    host.memory()->setValue(host.id(Gain), 2, 12, 5, 0, 1);
    QCOMPARE(host.value(Gain, 1), 0);
    QCOMPARE(host.value(Gain, 2), 11);
    QCOMPARE(host.value(Gain, 2, 5), 12);
}

void tst_TestHost::writesReachStoreObserversAndLedger()
{
    TestHost host;
    Observer first, second, other;
    host.memory()->registerObserver(host.id(Gain), 1, &first);
    host.memory()->registerObserver(host.id(Gain), 1, &second);
    host.memory()->registerObserver(host.id(Gain), 0, &other);
    QCOMPARE(host.memory()->setValue(host.id(Gain), 1, 5000, 0, 0, 1), 0);
    QCOMPARE(host.value(Gain, 1), 5000);
    QCOMPARE(first.updates, 1);
    QCOMPARE(first.lastParameter, host.id(Gain));
    QCOMPARE(first.lastCh, 1);
    QCOMPARE(first.lastValue, 5000);
    QCOMPARE(second.updates, 1);
    QCOMPARE(other.updates, 0);
    QCOMPARE(host.writes(), (std::vector<TestHost::Write>{{Gain, 1, 5000}}));
    const TestHost::Call call = host.calls(Operation::SetValue).at(0);
    QCOMPARE(call.trailing1, 0);
    QCOMPARE(call.trailing2, 1);
}

void tst_TestHost::clampsOnlyWhenAsked()
{
    TestHost host;
    host.setClamping(true);
    host.memory()->setValue(host.id(Gain), 0, 5000, 0, 0, 1);
    QCOMPARE(host.value(Gain, 0), 200);
    host.memory()->setValue(host.id(Gain), 0, -5000, 0, 0, 1);
    QCOMPARE(host.value(Gain, 0), -200);
}

void tst_TestHost::staysSilentWhenAsked()
{
    TestHost host;
    Observer observer;
    host.memory()->registerObserver(host.id(Gain), 0, &observer);
    host.setNotifying(false);
    host.memory()->setValue(host.id(Gain), 0, 7, 0, 0, 1);
    QCOMPARE(observer.updates, 0);
    QCOMPARE(host.value(Gain, 0), 7);
    host.setNotifying(true);
    host.setSilently(Gain, 0, 8);
    QCOMPARE(observer.updates, 0);
    host.notifyProperty(Gain, 0);
    QCOMPARE(observer.properties, 1);
}

void tst_TestHost::setIsNotRecorded()
{
    TestHost host;
    Observer observer;
    host.memory()->registerObserver(host.id(Gain), 3, &observer);
    host.set(Gain, 3, -20);
    QCOMPARE(observer.lastValue, -20);
    QCOMPARE(host.value(Gain, 3), -20);
    QCOMPARE(host.callCount(), 1);
    QVERIFY(host.writes().empty());
}

void tst_TestHost::observersMayLeaveWhileToldOfAChange()
{
    TestHost host;
    Observer first, second;
    host.memory()->registerObserver(host.id(Gain), 0, &first);
    host.memory()->registerObserver(host.id(Gain), 0, &second);
    first.action = [&] {
        host.memory()->unregisterObserver(host.id(Gain), 0, &first);
        host.memory()->unregisterObserver(host.id(Gain), 0, &second);
    };
    host.set(Gain, 0, 1);
    QCOMPARE(first.updates, 1);
    QCOMPARE(second.updates, 0);
    QCOMPARE(host.observerCount(), 0);
}

void tst_TestHost::observersMayArriveWhileToldOfAChange()
{
    TestHost host;
    Observer first;
    std::vector<Observer> more(50);
    first.action = [&] {
        for (Observer& observer : more)
            host.memory()->registerObserver(host.id(Gain), 0, &observer);
    };
    host.memory()->registerObserver(host.id(Gain), 0, &first);
    host.set(Gain, 0, 1);
    QCOMPARE(more[0].updates, 0);
    first.action = nullptr;
    host.set(Gain, 0, 2);
    QCOMPARE(more[49].lastValue, 2);
}

void tst_TestHost::countsRegistrations()
{
    TestHost host;
    Observer observer, stranger;
    IMemAPI* memory = host.memory();
    QCOMPARE(memory->registerObserver(host.id(Gain), 0, &observer), 0);
    QCOMPARE(memory->registerObserver(host.id(Gain), 0, &observer), 0);
    QCOMPARE(memory->registerObserver(host.id(Gain), 1, &observer), 0);
    QCOMPARE(host.observerCount(), 3);
    QCOMPARE(host.observerCount(Gain, 0), 2);
    QCOMPARE(host.observerCount(Frequency, 0), 0);
    QVERIFY(host.isObserving(&observer, Gain, 1));
    QVERIFY(!host.isObserving(&stranger, Gain, 1));
    QVERIFY(memory->unregisterObserver(host.id(Gain), 0, &stranger) < 0);
    QCOMPARE(memory->unregisterObserver(host.id(Gain), 0, &observer), 0);
    QCOMPARE(host.observerCount(Gain, 0), 1);
    QCOMPARE(host.calls(Operation::UnregisterObserver).at(0).failed, true);
    QCOMPARE(host.calls(Operation::UnregisterObserver).at(1).observer,
             static_cast<const void*>(&observer));
}

void tst_TestHost::convertsTexts()
{
    TestHost host;
    char buffer[256];
    int value = 0;
    IMemAPI* memory = host.memory();
    QCOMPARE(memory->valueToString(host.id(Gain), 0, -42, buffer, 256), 0);
    QCOMPARE(QByteArray(buffer), QByteArray("-42"));
    QCOMPARE(memory->stringToValue(host.id(Gain), 0, "17", &value), 0);
    QCOMPARE(value, 17);
    QVERIFY(memory->stringToValue(host.id(Gain), 0, "loud", &value) < 0);
    QCOMPARE(value, 17);
    host.setFormatter([](const QByteArray& name, unsigned short ch, int shown) {
        return name + '/' + QByteArray::number(ch) + '=' + QByteArray::number(shown);
    });
    host.setParser([](const QByteArray&, unsigned short, const QByteArray& text) {
        return std::optional<int>(static_cast<int>(text.size()));
    });
    memory->valueToString(host.id(Gain), 4, 5, buffer, 256);
    QCOMPARE(QByteArray(buffer), QByteArray("fx_rackfx_prm_3/4=5"));
    memory->stringToValue(host.id(Gain), 0, "loud", &value);
    QCOMPARE(value, 4);
}

void tst_TestHost::cutsTextsToTheBuffer()
{
    TestHost host;
    char buffer[5] = "....";
    host.memory()->valueToString(host.id(Gain), 0, 123456, buffer, 4);
    QCOMPARE(std::memcmp(buffer, "123\0", 5), 0);
    host.setTerminating(false);
    host.memory()->valueToString(host.id(Gain), 0, 123456, buffer, 4);
    QCOMPARE(std::memcmp(buffer, "1234", 5), 0);
    QVERIFY(host.memory()->valueToString(host.id(Gain), 0, 1, buffer, 0) < 0);
}

void tst_TestHost::removedParameterIsGone()
{
    TestHost host;
    const unsigned short index = host.index(Gain), id = host.id(Gain);
    host.removeParameter(Gain);
    QVERIFY(!host.hasParameter(Gain));
    unsigned short word = 0;
    int value = 0;
    QVERIFY(!host.model()->findParameter(&word, Gain));
    QVERIFY(!host.model()->getParameterAddress(&word, &word, index));
    QVERIFY(host.memory()->getValue(id, 0, &value, 0) < 0);
    QCOMPARE(host.index(Frequency), 101);
    host.addParameter(Gain, 1, 9, 4);
    QCOMPARE(host.index(Gain), 127);
    QCOMPARE(host.value(Gain, 7), 4);
}

void tst_TestHost::addressCanBeChosen()
{
    TestHost host;
    host.setAddress(Gain, 0xFFFF, 0x1234);
    unsigned short parameter = 0, second = 0;
    QVERIFY(host.model()->getParameterAddress(&parameter, &second, host.index(Gain)));
    QCOMPARE(parameter, 0xFFFF);
    QCOMPARE(second, 0x1234);
    int value = -1;
    QCOMPARE(host.memory()->getValue(0xFFFF, 0, &value, 0), 0);
}

void tst_TestHost::pushesMeters()
{
    TestHost host(2);
    MeterObserver observer;
    IMeterNotifier* notifier = nullptr;
    QCOMPARE(host.memory()->queryMeterNotifier(&notifier), 0);
    notifier->addMeterObserver(&observer);
    QCOMPARE(host.meterObserverCount(), 1);

    unsigned short index = 0, base = 0, count = 0;
    QVERIFY(host.model()->findMeter(&index, "meter_oxa_rtn"));
    QVERIFY(host.model()->getMeterRange(&base, &count, index));
    QCOMPARE(base, 12);
    QCOMPARE(count, 2);

    host.setMeterDb("meter_oxa_rtn", 1, -600);
    host.setMeterDb("meter_oxa_rtn", 1, 15, 1);
    host.pushMetersDb();
    QCOMPARE(observer.decibels.size(), std::size_t(16));
    QCOMPARE(static_cast<short>(observer.decibels[14]), -600);
    QCOMPARE(static_cast<short>(observer.decibels[15]), 15);
    QCOMPARE(static_cast<short>(observer.decibels[0]), -1270);
    QVERIFY(observer.decibels[15] > 0xFFFF);

    host.pushMetersLvl({1, 2, 3});
    QCOMPARE(observer.levels, (std::vector<unsigned int>{1, 2, 3}));
    notifier->removeMeterObserver(&observer);
    QCOMPARE(host.meterObserverCount(), 0);
    host.pushMetersDb({9});
    QCOMPARE(observer.decibels.size(), std::size_t(16));
    host.removeMeter("meter_oxa_rtn");
    QVERIFY(!host.model()->findMeter(&index, "meter_oxa_rtn"));
}

void tst_TestHost::unknownAddressesFail()
{
    TestHost host;
    int value = 77;
    QVERIFY(host.memory()->getValue(1, 0, &value, 0) < 0);
    QVERIFY(host.memory()->getValue(host.id(Gain), 8, &value, 0) < 0);
    QVERIFY(host.memory()->setValue(host.id(Gain), 8, 1, 0, 0, 1) < 0);
    QCOMPARE(value, 77);
    QCOMPARE(host.callCount(), 3);
    QVERIFY(host.writes().empty());
}

void tst_TestHost::failsTheChosenCallOnce()
{
    TestHost host;
    int value = 0;
    host.failCall(Operation::GetValue, 2);
    QCOMPARE(host.memory()->getValue(host.id(Gain), 0, &value, 0), 0);
    QCOMPARE(host.memory()->getDefault(host.id(Gain), 0, &value), 0);
    QCOMPARE(host.memory()->getValue(host.id(Gain), 0, &value, 0), -1);
    QCOMPARE(host.memory()->getValue(host.id(Gain), 0, &value, 0), 0);
    QCOMPARE(host.count(Operation::GetValue), 3);
}

void tst_TestHost::failsEveryCallOfAnOperation()
{
    TestHost host;
    Observer observer;
    host.memory()->registerObserver(host.id(Gain), 0, &observer);
    host.failAll(Operation::SetValue);
    QCOMPARE(host.memory()->setValue(host.id(Gain), 0, 9, 0, 0, 1), -1);
    QCOMPARE(host.memory()->setValue(host.id(Gain), 0, 9, 0, 0, 1), -1);
    QCOMPARE(host.value(Gain, 0), 0);
    QCOMPARE(observer.updates, 0);
    host.clearErrors();
    QCOMPARE(host.memory()->setValue(host.id(Gain), 0, 9, 0, 0, 1), 0);
}

void tst_TestHost::sweepsEveryCall()
{
    std::vector<std::vector<bool>> outcomes;
    int n = 0, made = 0;
    do {
        TestHost host;
        host.failAnyCall(++n);
        int value = 0;
        unsigned short index = 0;
        outcomes.push_back({host.model()->findParameter(&index, Gain),
                            host.memory()->getValue(host.id(Gain), 0, &value, 0) >= 0,
                            host.memory()->setValue(host.id(Gain), 0, 1, 0, 0, 1) >= 0});
        made = host.callCount();
    } while (made >= n);
    QCOMPARE(
        outcomes,
        (std::vector<std::vector<bool>>{
            {false, true, true}, {true, false, true}, {true, true, false}, {true, true, true}}));
}

void tst_TestHost::errorsLeaveOutputsAlone()
{
    TestHost host;
    for (int i = 0; i <= static_cast<int>(Operation::Reserved); ++i)
        host.failAll(static_cast<Operation>(i));
    unsigned short a = 7, b = 7;
    int x = 7, y = 7;
    char buffer[] = "7";
    IMeterNotifier* notifier = nullptr;
    MeterObserver observer;
    host.model()->getChannelEntry(&a, &b, 0);
    QCOMPARE(host.model()->getChannelCount(), 0);
    QVERIFY(!host.model()->findParameter(&a, Gain));
    QVERIFY(!host.model()->getParameterAddress(&a, &b, host.index(Gain)));
    QVERIFY(!host.model()->findMeter(&a, "meter_oxa_snd"));
    QVERIFY(!host.model()->getMeterRange(&a, &b, 40));
    QVERIFY(host.memory()->getValue(host.id(Gain), 0, &x, 0) < 0);
    QVERIFY(host.memory()->getRange(host.id(Gain), 0, &x, &y) < 0);
    QVERIFY(host.memory()->getDefault(host.id(Gain), 0, &x) < 0);
    QVERIFY(host.memory()->valueToString(host.id(Gain), 0, 1, buffer, 2) < 0);
    QVERIFY(host.memory()->stringToValue(host.id(Gain), 0, "1", &x) < 0);
    QVERIFY(host.memory()->queryMeterNotifier(&notifier) < 0);
    host.meterNotifier()->addMeterObserver(&observer);
    QCOMPARE(host.meterObserverCount(), 0);
    QCOMPARE(notifier, nullptr);
    QCOMPARE((std::vector<int>{a, b, x, y}), (std::vector<int>{7, 7, 7, 7}));
    QCOMPARE(buffer[0], '7');
}

void tst_TestHost::ledgerCanBeReset()
{
    TestHost host;
    int value = 0;
    host.memory()->getValue(host.id(Gain), 3, &value, 2);
    QCOMPARE(host.calls().at(0).operation, Operation::GetValue);
    QCOMPARE(host.calls().at(0).parameter, host.id(Gain));
    QCOMPARE(host.calls().at(0).ch, 3);
    QCOMPARE(host.calls().at(0).element, 2);
    host.resetLedger();
    QCOMPARE(host.callCount(), 0);
    QCOMPARE(host.count(Operation::GetValue), 0);
}

void tst_TestHost::reservedOperationsAreNoticed()
{
    TestHost host;
    QTest::ignoreMessage(QtWarningMsg, "TestHost: a reserved operation was called (29)");
    host.memory()->reserved29();
    QCOMPARE(host.count(Operation::Reserved), 1);
}

QTEST_APPLESS_MAIN(tst_TestHost)
#include "tst_TestHost.moc"
