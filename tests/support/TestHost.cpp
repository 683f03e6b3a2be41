// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/TestHost.h"

#include <QtGlobal>

#include <algorithm>
#include <cstring>

namespace {

constexpr unsigned int MeterPattern = 0xA5C30000u;
constexpr int SilentTenths = -1270;

struct Kind
{
    int minimum;
    int maximum;
    int defaultValue;
};

constexpr Kind Type = {0, 3, 3}, Frequency = {0, 1200, 600}, Quality = {0, 500, 250},
               Gain = {-200, 200, 0}, BandOn = {0, 1, 1}, Level = {-200, 200, 0}, Drive = {0, 1, 0};

// clang-format off
constexpr Kind EqualizerKinds[] = {
    Type, Frequency, Gain, BandOn,
    Quality, Frequency, Gain, BandOn,
    Quality, Frequency, Gain, BandOn,
    Quality, Frequency, Gain, BandOn,
    Quality, Frequency, Gain, BandOn,
    Type, Frequency, Gain, BandOn,
    Level, Level, Drive};
// clang-format on

unsigned int meterWord(int tenths) { return MeterPattern | static_cast<unsigned short>(tenths); }

void copyText(const QByteArray& text, char* buffer, int size, bool terminating)
{
    std::memset(buffer, 0, static_cast<std::size_t>(size));
    const auto room = terminating ? size - 1 : size;
    std::memcpy(buffer, text.constData(),
                static_cast<std::size_t>(std::min(room, static_cast<int>(text.size()))));
}

QByteArray decimalText(const QByteArray&, unsigned short, int value)
{
    return QByteArray::number(value);
}

std::optional<int> decimalValue(const QByteArray&, unsigned short, const QByteArray& text)
{
    bool ok = false;
    const int value = text.toInt(&ok);
    return ok ? std::optional<int>(value) : std::nullopt;
}

} // namespace

class TestHost::Model final : public IModelInfo
{
public:
    explicit Model(TestHost& host)
        : m_host(host)
    {}

    void reserved0() override { m_host.recordReserved(0); }
    void reserved1() override { m_host.recordReserved(1); }
    void reserved2() override { m_host.recordReserved(2); }

    void getChannelEntry(unsigned short* attribute, unsigned short* channel,
                         unsigned int position) override
    {
        if (!m_host.enter(
                {.operation = Operation::GetChannelEntry, .value = static_cast<int>(position)},
                position < m_host.m_channels.size()))
            return;
        *attribute = static_cast<unsigned short>(0x7F00 + position);
        *channel = m_host.m_channels[position];
    }

    unsigned short getChannelCount() override
    {
        const bool succeeds = m_host.enter({.operation = Operation::GetChannelCount});
        return succeeds ? static_cast<unsigned short>(m_host.m_channels.size()) : 0;
    }

    bool findParameter(unsigned short* index, const char* name) override
    {
        const auto found = m_host.find(QByteArray(name));
        if (!m_host.enter({.operation = Operation::FindParameter, .text = name},
                          found != m_host.m_parameters.end()))
            return false;
        *index = found->first;
        return true;
    }

    bool getParameterAddress(unsigned short* parameter, unsigned short* second,
                             unsigned short index) override
    {
        const auto found = m_host.m_parameters.find(index);
        if (!m_host.enter({.operation = Operation::GetParameterAddress, .parameter = index},
                          found != m_host.m_parameters.end()))
            return false;
        *parameter = found->second.id;
        *second = found->second.second;
        return true;
    }

    void reserved7() override { m_host.recordReserved(7); }

    bool findMeter(unsigned short* index, const char* name) override
    {
        const auto found = m_host.m_meters.find(name);
        if (!m_host.enter({.operation = Operation::FindMeter, .text = name},
                          found != m_host.m_meters.end()))
            return false;
        *index = found->second.index;
        return true;
    }

    bool getMeterRange(unsigned short* base, unsigned short* count, unsigned short index) override
    {
        const auto found = std::find_if(m_host.m_meters.begin(), m_host.m_meters.end(),
                                        [index](const auto& m) { return m.second.index == index; });
        if (!m_host.enter({.operation = Operation::GetMeterRange, .parameter = index},
                          found != m_host.m_meters.end()))
            return false;
        *base = found->second.base;
        *count = found->second.count;
        return true;
    }

private:
    TestHost& m_host;
};

class TestHost::Memory final : public IMemAPI
{
public:
    explicit Memory(TestHost& host)
        : m_host(host)
    {}

    void reserved0() override { m_host.recordReserved(0); }
    void reserved1() override { m_host.recordReserved(1); }
    void reserved2() override { m_host.recordReserved(2); }
    void reserved3() override { m_host.recordReserved(3); }

    int getValue(unsigned short parameter, unsigned short ch, int* value,
                 unsigned short element) override
    {
        const Cell* cell = enter(Operation::GetValue, parameter, ch, {.element = element});
        if (!cell)
            return -1;
        *value = cell->value(element);
        return 0;
    }

    int setValue(unsigned short parameter, unsigned short ch, int value, unsigned short element,
                 int trailing1, int trailing2) override
    {
        Cell* cell = enter(
            Operation::SetValue, parameter, ch,
            {.value = value, .element = element, .trailing1 = trailing1, .trailing2 = trailing2});
        if (!cell)
            return -1;
        const int stored =
            m_host.m_clamping ? std::max(cell->minimum, std::min(value, cell->maximum)) : value;
        cell->values[element] = stored;
        m_host.tellValue(parameter, ch, stored);
        return 0;
    }

    void reserved6() override { m_host.recordReserved(6); }
    void reserved7() override { m_host.recordReserved(7); }
    void reserved8() override { m_host.recordReserved(8); }
    void reserved9() override { m_host.recordReserved(9); }
    void reserved10() override { m_host.recordReserved(10); }

    int getRange(unsigned short parameter, unsigned short ch, int* minimum, int* maximum) override
    {
        const Cell* cell = enter(Operation::GetRange, parameter, ch);
        if (!cell)
            return -1;
        *minimum = cell->minimum;
        *maximum = cell->maximum;
        return 0;
    }

    int getDefault(unsigned short parameter, unsigned short ch, int* value) override
    {
        const Cell* cell = enter(Operation::GetDefault, parameter, ch);
        if (!cell)
            return -1;
        *value = cell->defaultValue;
        return 0;
    }

    void reserved13() override { m_host.recordReserved(13); }
    void reserved14() override { m_host.recordReserved(14); }
    void reserved15() override { m_host.recordReserved(15); }
    void reserved16() override { m_host.recordReserved(16); }
    void reserved17() override { m_host.recordReserved(17); }
    void reserved18() override { m_host.recordReserved(18); }

    int valueToString(unsigned short parameter, unsigned short ch, int value, char* buffer,
                      int size) override
    {
        if (!enter(Operation::ValueToString, parameter, ch, {.value = value, .trailing1 = size},
                   size > 0))
            return -1;
        copyText(m_host.m_formatter(m_host.nameOf(parameter), ch, value), buffer, size,
                 m_host.m_terminating);
        return 0;
    }

    int stringToValue(unsigned short parameter, unsigned short ch, const char* text,
                      int* value) override
    {
        std::optional<int> parsed;
        if (m_host.cell(parameter, ch))
            parsed = m_host.m_parser(m_host.nameOf(parameter), ch, text);
        if (!enter(Operation::StringToValue, parameter, ch, {.text = text}, parsed.has_value()))
            return -1;
        *value = *parsed;
        return 0;
    }

    void reserved21() override { m_host.recordReserved(21); }
    void reserved22() override { m_host.recordReserved(22); }
    void reserved23() override { m_host.recordReserved(23); }
    void reserved24() override { m_host.recordReserved(24); }
    void reserved25() override { m_host.recordReserved(25); }

    int registerObserver(unsigned short parameter, unsigned short ch,
                         IPrmObserver* observer) override
    {
        if (!enter(Operation::RegisterObserver, parameter, ch, {.observer = observer}, observer))
            return -1;
        m_host.m_registrations.push_back({parameter, ch, observer, m_host.m_nextTicket++});
        return 0;
    }

    int unregisterObserver(unsigned short parameter, unsigned short ch,
                           IPrmObserver* observer) override
    {
        auto& all = m_host.m_registrations;
        const auto found = std::find_if(all.begin(), all.end(), [&](const Registration& r) {
            return r.parameter == parameter && r.ch == ch && r.observer == observer;
        });
        if (!m_host.enter({.operation = Operation::UnregisterObserver,
                           .parameter = parameter,
                           .ch = ch,
                           .observer = observer},
                          found != all.end()))
            return -1;
        all.erase(found);
        return 0;
    }

    void reserved28() override { m_host.recordReserved(28); }
    void reserved29() override { m_host.recordReserved(29); }

    int queryMeterNotifier(IMeterNotifier** notifier) override
    {
        if (!m_host.enter({.operation = Operation::QueryMeterNotifier}))
            return -1;
        *notifier = m_host.meterNotifier();
        return 0;
    }

private:
    // The cell that is meant; null where the call fails.
    Cell* enter(Operation operation, unsigned short parameter, unsigned short ch, Call call = {},
                bool possible = true)
    {
        Cell* cell = m_host.cell(parameter, ch);
        call.operation = operation;
        call.parameter = parameter;
        call.ch = ch;
        return m_host.enter(call, cell && possible) ? cell : nullptr;
    }

    TestHost& m_host;
};

class TestHost::Meters final : public IMeterNotifier
{
public:
    explicit Meters(TestHost& host)
        : m_host(host)
    {}

    void reserved0() override { m_host.recordReserved(0); }
    void reserved1() override { m_host.recordReserved(1); }

    void addMeterObserver(IMeterObserver* observer) override
    {
        if (m_host.enter({.operation = Operation::AddMeterObserver, .observer = observer},
                         observer))
            m_host.m_meterObservers.push_back(observer);
    }

    void reserved3() override { m_host.recordReserved(3); }

    void removeMeterObserver(IMeterObserver* observer) override
    {
        auto& observers = m_host.m_meterObservers;
        const auto found = std::find(observers.begin(), observers.end(), observer);
        if (m_host.enter({.operation = Operation::RemoveMeterObserver, .observer = observer},
                         found != observers.end()))
            observers.erase(found);
    }

private:
    TestHost& m_host;
};

int TestHost::Cell::value(unsigned short element) const
{
    const auto found = values.find(element);
    return found == values.end() ? defaultValue : found->second;
}

TestHost::TestHost(unsigned short channels)
    : m_model(std::make_unique<Model>(*this))
    , m_memory(std::make_unique<Memory>(*this))
    , m_meterNotifier(std::make_unique<Meters>(*this))
    , m_formatter(decimalText)
    , m_parser(decimalValue)
{
    for (unsigned short ch = 0; ch < channels; ++ch)
        m_channels.push_back(ch);
    int number = 0;
    for (const Kind& kind : EqualizerKinds)
        addParameter(name(++number), kind.minimum, kind.maximum, kind.defaultValue);
    setMeter("meter_oxa_snd", 4, channels);
    setMeter("meter_oxa_rtn", static_cast<unsigned short>(8 + 2 * channels), channels);
}

TestHost::~TestHost() = default;

IModelInfo* TestHost::model() const { return m_model.get(); }
IMemAPI* TestHost::memory() const { return m_memory.get(); }
IMeterNotifier* TestHost::meterNotifier() const { return m_meterNotifier.get(); }

void TestHost::setChannels(const std::vector<unsigned short>& channels)
{
    m_channels = channels;
    for (auto& [index, parameter] : m_parameters) {
        Cell pattern = parameter.cells.empty() ? Cell() : parameter.cells.begin()->second;
        pattern.values = {{0, pattern.defaultValue}};
        std::map<unsigned short, Cell> cells;
        for (const unsigned short ch : channels) {
            const auto kept = parameter.cells.find(ch);
            cells[ch] = kept == parameter.cells.end() ? pattern : kept->second;
        }
        parameter.cells = cells;
    }
}

void TestHost::addParameter(const QByteArray& name, int minimum, int maximum, int defaultValue)
{
    if (find(name) != m_parameters.end())
        qFatal("TestHost: parameter %s is there already", name.constData());
    const unsigned short index = m_nextIndex++;
    const int number = index - 99;
    Parameter parameter = {name, static_cast<unsigned short>(3000 + 13 * number),
                           static_cast<unsigned short>(900 + number)};
    for (const unsigned short ch : m_channels)
        parameter.cells[ch] = {minimum, maximum, defaultValue, {{0, defaultValue}}};
    m_parameters[index] = parameter;
}

unsigned short TestHost::index(const QByteArray& name) const
{
    const auto found = find(name);
    if (found == m_parameters.end())
        qFatal("TestHost: no parameter %s", name.constData());
    return found->first;
}

void TestHost::setRange(const QByteArray& name, int minimum, int maximum)
{
    for (const unsigned short ch : m_channels)
        setRange(name, ch, minimum, maximum);
}

void TestHost::setRange(const QByteArray& name, unsigned short ch, int minimum, int maximum)
{
    known(name, ch).minimum = minimum;
    known(name, ch).maximum = maximum;
}

void TestHost::setDefault(const QByteArray& name, int value)
{
    for (const unsigned short ch : m_channels)
        setDefault(name, ch, value);
}

void TestHost::setFormatter(Formatter formatter)
{
    m_formatter = formatter ? std::move(formatter) : Formatter(decimalText);
}

void TestHost::setMeter(const QByteArray& name, unsigned short base, unsigned short count)
{
    const auto next = static_cast<unsigned short>(40 + 3 * m_meters.size());
    Meter& meter = m_meters.try_emplace(name, Meter{next}).first->second;
    meter.base = base;
    meter.count = count;
}

void TestHost::set(const QByteArray& name, unsigned short ch, int value)
{
    setSilently(name, ch, value);
    tellValue(id(name), ch, value);
}

void TestHost::notifyProperty(const QByteArray& name, unsigned short ch)
{
    const unsigned short parameter = id(name);
    tell(parameter, ch, [=](IPrmObserver* observer) {
        observer->UpdateProperty(parameter, ch, 0, 0, 0, false, nullptr);
    });
}

void TestHost::setMeterDb(const QByteArray& name, unsigned short channel, int tenths, int side)
{
    const auto meter = m_meters.find(name);
    if (meter == m_meters.end() || channel >= meter->second.count)
        qFatal("TestHost: meter %s has no channel %d", name.constData(), channel);
    m_meterWords[static_cast<std::size_t>(meter->second.base + 2 * channel + side)] =
        meterWord(tenths);
}

void TestHost::pushMetersDb()
{
    std::vector<unsigned int> words(meterWordCount(), meterWord(SilentTenths));
    for (const auto& [position, word] : m_meterWords)
        words[position] = word;
    pushMetersDb(words);
}

void TestHost::pushMetersDb(const std::vector<unsigned int>& words)
{
    tellMeters(words, &IMeterObserver::notifyMeterDbUpdated);
}

void TestHost::pushMetersLvl(const std::vector<unsigned int>& words)
{
    tellMeters(words, &IMeterObserver::notifyMeterLvlUpdated);
}

std::vector<TestHost::Call> TestHost::calls(Operation operation) const
{
    std::vector<Call> chosen;
    std::copy_if(m_calls.begin(), m_calls.end(), std::back_inserter(chosen),
                 [operation](const Call& call) { return call.operation == operation; });
    return chosen;
}

std::vector<TestHost::Write> TestHost::writes() const
{
    std::vector<Write> writes;
    for (const Call& call : calls(Operation::SetValue)) {
        const auto parameter = find(call.parameter);
        if (!call.failed && parameter != m_parameters.end())
            writes.push_back({parameter->second.name, call.ch, call.value});
    }
    return writes;
}

int TestHost::observerCount(const QByteArray& name, unsigned short ch) const
{
    return registrations(nullptr, id(name), ch);
}

bool TestHost::isObserving(const IPrmObserver* observer, const QByteArray& name,
                           unsigned short ch) const
{
    return observer != nullptr && registrations(observer, id(name), ch) > 0;
}

void TestHost::clearErrors()
{
    m_errors.clear();
    m_failAll.clear();
    m_failAny = 0;
}

TestHost::Parameters::const_iterator TestHost::find(const QByteArray& name) const
{
    return std::find_if(m_parameters.begin(), m_parameters.end(),
                        [&name](const auto& entry) { return entry.second.name == name; });
}

TestHost::Parameters::const_iterator TestHost::find(unsigned short id) const
{
    return std::find_if(m_parameters.begin(), m_parameters.end(),
                        [id](const auto& entry) { return entry.second.id == id; });
}

const TestHost::Cell& TestHost::known(const QByteArray& name, unsigned short ch) const
{
    const auto& cells = m_parameters.at(index(name)).cells;
    const auto found = cells.find(ch);
    if (found == cells.end())
        qFatal("TestHost: no channel %d", ch);
    return found->second;
}

TestHost::Cell& TestHost::known(const QByteArray& name, unsigned short ch)
{
    return const_cast<Cell&>(std::as_const(*this).known(name, ch));
}

TestHost::Cell* TestHost::cell(unsigned short id, unsigned short ch)
{
    const auto parameter = find(id);
    if (parameter == m_parameters.end())
        return nullptr;
    auto& cells = m_parameters[parameter->first].cells;
    const auto found = cells.find(ch);
    return found == cells.end() ? nullptr : &found->second;
}

int TestHost::registrations(const IPrmObserver* observer, unsigned short id,
                            unsigned short ch) const
{
    return static_cast<int>(
        std::count_if(m_registrations.begin(), m_registrations.end(), [&](const Registration& r) {
            return r.parameter == id && r.ch == ch &&
                   (observer == nullptr || r.observer == observer);
        }));
}

std::size_t TestHost::meterWordCount() const
{
    std::size_t count = 0;
    for (const auto& [name, meter] : m_meters)
        count = std::max(count, static_cast<std::size_t>(meter.base + 2 * meter.count));
    for (const auto& [position, word] : m_meterWords)
        count = std::max(count, position + 1);
    return count;
}

bool TestHost::enter(Call call, bool possible)
{
    const bool planted = takeError(call.operation);
    call.failed = planted || !possible;
    m_calls.push_back(call);
    return !call.failed;
}

bool TestHost::takeError(Operation operation)
{
    bool fails = m_failAll[operation];
    for (int& remaining : m_errors[operation])
        fails = --remaining == 0 || fails;
    if (m_failAny > 0)
        fails = --m_failAny == 0 || fails;
    return fails;
}

void TestHost::recordReserved(int number)
{
    enter({.operation = Operation::Reserved, .value = number});
    qWarning("TestHost: a reserved operation was called (%d)", number);
}

void TestHost::tell(unsigned short id, unsigned short ch,
                    const std::function<void(IPrmObserver*)>& message)
{
    // Observers come and go while they are told: one that went is not told, nor is one that came.
    const std::vector<Registration> told = m_registrations;
    for (const Registration& entry : told) {
        const bool registered =
            std::any_of(m_registrations.begin(), m_registrations.end(),
                        [&](const Registration& r) { return r.ticket == entry.ticket; });
        if (registered && entry.parameter == id && entry.ch == ch)
            message(entry.observer);
    }
}

void TestHost::tellValue(unsigned short id, unsigned short ch, int value)
{
    if (m_notifying)
        tell(id, ch, [=](IPrmObserver* observer) { observer->Update(id, ch, value, nullptr); });
}

void TestHost::tellMeters(const std::vector<unsigned int>& words,
                          void (IMeterObserver::*message)(unsigned int*, unsigned int))
{
    const std::vector<IMeterObserver*> told = m_meterObservers;
    for (IMeterObserver* observer : told) {
        std::vector<unsigned int> copy = words;
        if (std::count(m_meterObservers.begin(), m_meterObservers.end(), observer) > 0)
            (observer->*message)(copy.data(), static_cast<unsigned int>(copy.size()));
    }
}
