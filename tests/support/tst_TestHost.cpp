// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/TestHost.h"
#include "tests/support/TestObject.h"

#include <cstring>

using Operation = TestHost::Operation;

namespace {

constexpr const char* Frequency = "fx_rackfx_prm_2";
constexpr const char* Gain = "fx_rackfx_prm_3";

// Writes down what it is told, then does what it is told to.
struct Observer final : IPrmObserver, IMeterObserver
{
    int Update(unsigned short parameter, unsigned short ch, int value, const char*) override
    {
        told.push_back({parameter, ch, value});
        if (action)
            action();
        return 0;
    }
    int UpdateProperty(unsigned short parameter, unsigned short ch, int, int, int, bool,
                       const char*) override
    {
        properties.push_back({parameter, ch});
        return 0;
    }
    void notifyMeterLvlUpdated(unsigned int* values, unsigned int count) override
    {
        levels.assign(values, values + count);
    }
    void notifyMeterDbUpdated(unsigned int* values, unsigned int count) override
    {
        decibels.assign(values, values + count);
    }

    using Numbers = std::vector<std::vector<int>>;
    Numbers told;
    Numbers properties;
    std::vector<unsigned int> levels;
    std::vector<unsigned int> decibels;
    std::function<void()> action;
};

} // namespace

class tst_TestHost : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void listsItsChannels();
    void resolvesNames();
    void keepsCellsApart();
    void writesReachStoreObserversAndLedger();
    void clampsAndStaysSilentWhenAsked();
    void observersMayComeAndGoWhileTold();
    void countsRegistrations();
    void convertsTexts();
    void removedParameterIsGone();
    void pushesMeters();
    void failsWhatIsPlanted();
    void sweepsEveryCall();
    void errorsLeaveOutputsAlone();
    void reservedOperationsAreNoticed();

private:
    int write(int value, unsigned short ch = 0, unsigned short element = 0)
    {
        return m_host->memory()->setValue(gain(), ch, value, element, 0, 1);
    }
    int read(unsigned short ch = 0) const
    {
        int value = 0;
        return m_host->memory()->getValue(gain(), ch, &value, 0);
    }
    unsigned short gain() const { return m_host->id(Gain); }

    std::unique_ptr<TestHost> m_host;
};

void tst_TestHost::init()
{
    TestObject::init();
    m_host = std::make_unique<TestHost>();
}

void tst_TestHost::listsItsChannels()
{
    QCOMPARE(m_host->model()->getChannelCount(), 8);
    m_host->setChannels({4, 17});
    QCOMPARE(m_host->model()->getChannelCount(), 2);
    unsigned short attribute = 0;
    unsigned short channel = 99;
    m_host->model()->getChannelEntry(&attribute, &channel, 1);
    QCOMPARE(channel, 17);
    QCOMPARE(m_host->value(Frequency, 17), 600);
}

void tst_TestHost::resolvesNames()
{
    unsigned short index = 0;
    for (int number = 1; number <= 27; ++number) {
        unsigned short parameter = 0;
        unsigned short second = 0;
        QVERIFY(m_host->model()->findParameter(&index, TestHost::name(number).constData()));
        QVERIFY(m_host->model()->getParameterAddress(&parameter, &second, index));
        QCOMPARE(index, 99 + number);
        QCOMPARE(parameter, 3000 + 13 * number);
        QCOMPARE(second, 900 + number);
    }
    QVERIFY(!m_host->model()->findParameter(&index, "fx_rackfx_prm_28"));
    QCOMPARE(index, 126);
}

void tst_TestHost::keepsCellsApart()
{
    int minimum = -1;
    int maximum = -1;
    int standard = -1;
    QCOMPARE(m_host->memory()->getRange(gain(), 1, &minimum, &maximum), 0);
    QCOMPARE(std::pair(minimum, maximum), std::pair(-200, 200));
    QCOMPARE(m_host->memory()->getDefault(m_host->id(Frequency), 1, &standard), 0);
    QCOMPARE(standard, 600);
    m_host->setRange(Gain, 1, 5, 6);
    m_host->setDefault(Gain, 1, 6);
    QCOMPARE(m_host->range(Gain, 1), std::pair(5, 6));
    QCOMPARE(m_host->range(Gain, 2), std::pair(-200, 200));
    QCOMPARE(m_host->defaultValue(Gain, 1), 6);
    write(11, 2);
    write(12, 2, 5);
    QCOMPARE(m_host->value(Gain, 1), 0);
    QCOMPARE(m_host->value(Gain, 2), 11);
    QCOMPARE(m_host->value(Gain, 2, 5), 12);
}

void tst_TestHost::writesReachStoreObserversAndLedger()
{
    Observer first;
    Observer second;
    Observer other;
    m_host->memory()->registerObserver(gain(), 1, &first);
    m_host->memory()->registerObserver(gain(), 1, &second);
    m_host->memory()->registerObserver(gain(), 0, &other);
    QCOMPARE(write(5000, 1), 0);
    QCOMPARE(m_host->value(Gain, 1), 5000);
    const Observer::Numbers told = {{gain(), 1, 5000}};
    QCOMPARE(first.told, told);
    QCOMPARE(second.told, told);
    QCOMPARE(other.told, Observer::Numbers());
    QCOMPARE(m_host->writes(), (std::vector<TestHost::Write>{{Gain, 1, 5000}}));
    const TestHost::Call call = m_host->calls(Operation::SetValue).at(0);
    QCOMPARE(std::pair(call.trailing1, call.trailing2), std::pair(0, 1));
    m_host->resetLedger();
    m_host->set(Gain, 0, -20); // the device's own panel
    QCOMPARE(other.told, (Observer::Numbers{{gain(), 0, -20}}));
    QCOMPARE(m_host->callCount(), 0);
}

void tst_TestHost::clampsAndStaysSilentWhenAsked()
{
    Observer observer;
    m_host->memory()->registerObserver(gain(), 0, &observer);
    m_host->setNotifying(false);
    m_host->setClamping(true);
    write(-5000);
    QCOMPARE(m_host->value(Gain, 0), -200);
    write(5000);
    QCOMPARE(m_host->value(Gain, 0), 200);
    m_host->setNotifying(true);
    m_host->setSilently(Gain, 0, 8);
    QCOMPARE(observer.told, Observer::Numbers());
    m_host->notifyProperty(Gain, 0);
    QCOMPARE(observer.properties, (Observer::Numbers{{gain(), 0}}));
}

void tst_TestHost::observersMayComeAndGoWhileTold()
{
    IMemAPI* memory = m_host->memory();
    Observer first;
    Observer second;
    std::vector<Observer> more(50);
    memory->registerObserver(gain(), 0, &first);
    memory->registerObserver(gain(), 0, &second);
    first.action = [&] {
        memory->unregisterObserver(gain(), 0, &first);
        memory->unregisterObserver(gain(), 0, &second);
        for (Observer& observer : more)
            memory->registerObserver(gain(), 0, &observer);
    };
    m_host->set(Gain, 0, 1);
    QCOMPARE(first.told.size(), 1U);
    QCOMPARE(second.told.size() + more[0].told.size(), 0U);
    m_host->set(Gain, 0, 2);
    QCOMPARE(first.told.size(), 1U);
    QCOMPARE(more[49].told, (Observer::Numbers{{gain(), 0, 2}}));
}

void tst_TestHost::countsRegistrations()
{
    Observer observer;
    Observer stranger;
    IMemAPI* memory = m_host->memory();
    for (const int ch : {0, 0, 1})
        QCOMPARE(memory->registerObserver(gain(), static_cast<unsigned short>(ch), &observer), 0);
    QCOMPARE(m_host->observerCount(), 3);
    QCOMPARE(m_host->observerCount(Gain, 0), 2);
    QCOMPARE(m_host->observerCount(Frequency, 0), 0);
    QVERIFY(m_host->isObserving(&observer, Gain, 1));
    QVERIFY(!m_host->isObserving(&stranger, Gain, 1));
    QVERIFY(memory->unregisterObserver(gain(), 0, &stranger) < 0);
    QCOMPARE(memory->unregisterObserver(gain(), 0, &observer), 0);
    QCOMPARE(m_host->observerCount(Gain, 0), 1);
    QVERIFY(m_host->calls(Operation::UnregisterObserver).at(0).failed);
    QCOMPARE(m_host->calls(Operation::UnregisterObserver).at(1).observer,
             static_cast<const void*>(static_cast<IPrmObserver*>(&observer)));
}

void tst_TestHost::convertsTexts()
{
    IMemAPI* memory = m_host->memory();
    int value = 0;
    QCOMPARE(memory->stringToValue(gain(), 0, "17", &value), 0);
    QVERIFY(memory->stringToValue(gain(), 0, "loud", &value) < 0);
    QCOMPARE(value, 17);
    m_host->setParser([](const QByteArray&, unsigned short, const QByteArray& text) {
        return std::optional<int>(static_cast<int>(text.size()));
    });
    memory->stringToValue(gain(), 0, "loud", &value);
    QCOMPARE(value, 4);

    char buffer[5] = "....";
    memory->valueToString(gain(), 0, 123456, buffer, 4);
    QCOMPARE(std::memcmp(buffer, "123\0", 5), 0);
    m_host->setTerminating(false);
    memory->valueToString(gain(), 0, 123456, buffer, 4);
    QCOMPARE(std::memcmp(buffer, "1234", 5), 0);
    QVERIFY(memory->valueToString(gain(), 0, 1, buffer, 0) < 0);
    m_host->setFormatter([](const QByteArray& name, unsigned short ch, int shown) {
        return name.right(1) + '/' + QByteArray::number(ch + shown);
    });
    memory->valueToString(gain(), 4, 5, buffer, 4);
    QCOMPARE(std::memcmp(buffer, "3/9\0", 5), 0);
}

void tst_TestHost::removedParameterIsGone()
{
    const unsigned short index = m_host->index(Gain);
    const unsigned short id = gain();
    m_host->removeParameter(Gain);
    unsigned short word = 0;
    int value = 77;
    QVERIFY(!m_host->model()->findParameter(&word, Gain));
    QVERIFY(!m_host->model()->getParameterAddress(&word, &word, index));
    QVERIFY(m_host->memory()->getValue(id, 0, &value, 0) < 0);
    QVERIFY(m_host->memory()->getValue(m_host->id(Frequency), 8, &value, 0) < 0);
    QVERIFY(m_host->memory()->setValue(id, 0, 1, 0, 0, 1) < 0);
    QCOMPARE(value, 77);
    QVERIFY(m_host->writes().empty());
    m_host->addParameter(Gain, 1, 9, 4);
    QCOMPARE(m_host->index(Gain), 127);
    QCOMPARE(m_host->value(Gain, 7), 4);
}

void tst_TestHost::pushesMeters()
{
    TestHost host(2);
    Observer observer;
    IMeterNotifier* notifier = nullptr;
    QCOMPARE(host.memory()->queryMeterNotifier(&notifier), 0);
    notifier->addMeterObserver(&observer);
    QCOMPARE(host.meterObserverCount(), 1);
    unsigned short index = 0;
    unsigned short base = 0;
    unsigned short count = 0;
    QVERIFY(host.model()->findMeter(&index, "meter_oxa_rtn"));
    QVERIFY(host.model()->getMeterRange(&base, &count, index));
    QCOMPARE(std::pair(base, count), (std::pair<unsigned short, unsigned short>(12, 2)));

    host.setMeterDb("meter_oxa_rtn", 1, -600);
    host.setMeterDb("meter_oxa_rtn", 1, 15, 1);
    host.pushMetersDb();
    QCOMPARE(observer.decibels.size(), 16U);
    QCOMPARE(static_cast<short>(observer.decibels[14]), -600);
    QCOMPARE(static_cast<short>(observer.decibels[15]), 15);
    QCOMPARE(static_cast<short>(observer.decibels[0]), -1270);
    QVERIFY(observer.decibels[15] > 0xFFFF);
    host.pushMetersLvl({1, 2, 3});
    QCOMPARE(observer.levels, (std::vector<unsigned int>{1, 2, 3}));
    notifier->removeMeterObserver(&observer);
    host.pushMetersDb({9});
    QCOMPARE(observer.decibels.size(), 16U);
    host.removeMeter("meter_oxa_rtn");
    QVERIFY(!host.model()->findMeter(&index, "meter_oxa_rtn"));
}

void tst_TestHost::failsWhatIsPlanted()
{
    int value = 0;
    m_host->failCall(Operation::GetValue, 2);
    QCOMPARE(read(3), 0);
    QCOMPARE(m_host->memory()->getDefault(gain(), 0, &value), 0);
    QCOMPARE(read(), -1);
    QCOMPARE(read(), 0);
    QCOMPARE(m_host->count(Operation::GetValue), 3);
    QCOMPARE(m_host->calls().at(0).ch, 3);
    m_host->failAll(Operation::SetValue);
    for (int i = 0; i < 2; ++i)
        QCOMPARE(write(9), -1);
    QCOMPARE(m_host->value(Gain, 0), 0);
    m_host->clearErrors();
    QCOMPARE(write(9), 0);
}

void tst_TestHost::sweepsEveryCall()
{
    std::vector<std::vector<bool>> outcomes;
    int n = 0;
    do {
        m_host = std::make_unique<TestHost>();
        m_host->failAnyCall(++n);
        unsigned short index = 0;
        const bool found = m_host->model()->findParameter(&index, Gain);
        outcomes.push_back({found, read() == 0, write(1) == 0});
    } while (m_host->callCount() >= n);
    const std::vector<std::vector<bool>> expected = {
        {false, true, true}, {true, false, true}, {true, true, false}, {true, true, true}};
    QCOMPARE(outcomes, expected);
}

void tst_TestHost::errorsLeaveOutputsAlone()
{
    for (int i = 0; i <= static_cast<int>(Operation::Reserved); ++i)
        m_host->failAll(static_cast<Operation>(i));
    unsigned short a = 7;
    unsigned short b = 7;
    int x = 7;
    int y = 7;
    char buffer[] = "7";
    IMeterNotifier* notifier = nullptr;
    Observer observer;
    IModelInfo* model = m_host->model();
    IMemAPI* memory = m_host->memory();
    model->getChannelEntry(&a, &b, 0);
    QCOMPARE(model->getChannelCount(), 0);
    QVERIFY(!model->findParameter(&a, Gain));
    QVERIFY(!model->getParameterAddress(&a, &b, m_host->index(Gain)));
    QVERIFY(!model->findMeter(&a, "meter_oxa_snd"));
    QVERIFY(!model->getMeterRange(&a, &b, 40));
    QVERIFY(memory->getValue(gain(), 0, &x, 0) < 0);
    QVERIFY(memory->getRange(gain(), 0, &x, &y) < 0);
    QVERIFY(memory->getDefault(gain(), 0, &x) < 0);
    QVERIFY(memory->valueToString(gain(), 0, 1, buffer, 2) < 0);
    QVERIFY(memory->stringToValue(gain(), 0, "1", &x) < 0);
    QVERIFY(memory->queryMeterNotifier(&notifier) < 0);
    m_host->meterNotifier()->addMeterObserver(&observer);
    QCOMPARE(m_host->meterObserverCount(), 0);
    QCOMPARE(notifier, nullptr);
    QCOMPARE((std::vector<int>{a, b, x, y}), (std::vector<int>{7, 7, 7, 7}));
    QCOMPARE(buffer[0], '7');
}

void tst_TestHost::reservedOperationsAreNoticed()
{
    QTest::ignoreMessage(QtWarningMsg, "TestHost: a reserved operation was called (29)");
    m_host->memory()->reserved29();
    QCOMPARE(m_host->count(Operation::Reserved), 1);
}

QTEST_APPLESS_MAIN(tst_TestHost)
#include "tst_TestHost.moc"
