// SPDX-License-Identifier: GPL-3.0-or-later
// Restores a state from a stream that may be short, lie or break, into a host that may have any
// ranges and fail now and then; then saves. Whatever comes in, the host only gets values inside
// its ranges, and the state saved is whole.
//
// An input starts with a header, missing bytes of which are zero:
//     1 byte     how reads go: bit 0 end of stream is hidden, bit 1 one byte a read
//     1 byte     the read that breaks, from 1; 0 for none
//     1 byte     every how many-th host call fails; 0 for none
//     1 byte     channel
//     4 times    minimum, maximum, value (4 bytes each, little-endian) of every fourth parameter
// and the rest is the stream.
#include "component/ZoltaComponent.h"
#include "interfaces/IMemAPI.h"
#include "interfaces/IModelInfo.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

using namespace Steinberg;

namespace {

constexpr int ParameterCount = 27;
constexpr unsigned short FirstId = 500;

void check(bool holds)
{
    if (!holds)
        std::abort();
}

class Input
{
public:
    Input(const std::uint8_t* data, std::size_t size)
        : m_data(data)
        , m_size(size)
    {}

    std::uint8_t byte()
    {
        if (m_size == 0)
            return 0;
        --m_size;
        return *m_data++;
    }

    int number()
    {
        std::uint32_t bits = 0;
        for (int shift = 0; shift < 32; shift += 8)
            bits |= static_cast<std::uint32_t>(byte()) << shift;
        return static_cast<int>(bits);
    }

    std::vector<std::uint8_t> rest() const { return {m_data, m_data + m_size}; }

private:
    const std::uint8_t* m_data;
    std::size_t m_size;
};

struct Parameter
{
    int minimum = 0;
    int maximum = 0;
    int value = 0;

    // Few enough steps that a single tells them apart.
    bool isNarrow() const
    {
        const std::int64_t span = std::int64_t{maximum} - minimum;
        return span > 0 && span <= 1 << 20;
    }
};

class Host final : public IModelInfo, public IMemAPI
{
public:
    Host(Input& input, unsigned failEvery, unsigned short ch)
        : m_failEvery(failEvery)
        , m_ch(ch)
    {
        std::array<Parameter, 4> kinds;
        for (Parameter& kind : kinds)
            kind = {input.number(), input.number(), input.number()};
        for (std::size_t i = 0; i < parameters.size(); ++i)
            parameters[i] = kinds[i % kinds.size()];
    }

    void reserved0() override { std::abort(); }
    void reserved1() override { std::abort(); }
    void reserved2() override { std::abort(); }
    void reserved7() override { std::abort(); }
    void getChannelEntry(unsigned short*, unsigned short*, unsigned int) override { std::abort(); }
    unsigned short getChannelCount() override { std::abort(); }
    bool findMeter(unsigned short*, const char*) override { std::abort(); }
    bool getMeterRange(unsigned short*, unsigned short*, unsigned short) override { std::abort(); }

    bool findParameter(unsigned short* index, const char* name) override
    {
        const std::string text(name);
        const std::string prefix = "fx_rackfx_prm_";
        check(text.compare(0, prefix.size(), prefix) == 0);
        if (fails())
            return false;
        *index = static_cast<unsigned short>(std::stoi(text.substr(prefix.size())));
        check(*index >= 1 && *index <= ParameterCount);
        return true;
    }

    bool getParameterAddress(unsigned short* parameter, unsigned short* second,
                             unsigned short index) override
    {
        if (fails())
            return false;
        *parameter = static_cast<unsigned short>(FirstId + index - 1);
        *second = 0xFFFF;
        return true;
    }

    int getValue(unsigned short parameter, unsigned short ch, int* value,
                 unsigned short element) override
    {
        check(ch == m_ch && element == 0);
        if (fails())
            return -1;
        *value = at(parameter).value;
        return 0;
    }

    int setValue(unsigned short parameter, unsigned short ch, int value, unsigned short element,
                 int trailing1, int trailing2) override
    {
        check(ch == m_ch && element == 0 && trailing1 == 0 && trailing2 == 1);
        const auto [lowest, highest] = std::minmax(at(parameter).minimum, at(parameter).maximum);
        check(value >= lowest && value <= highest);
        if (fails())
            return -1;
        at(parameter).value = value;
        return 0;
    }

    int getRange(unsigned short parameter, unsigned short ch, int* minimum, int* maximum) override
    {
        check(ch == m_ch);
        if (fails())
            return -1;
        *minimum = at(parameter).minimum;
        *maximum = at(parameter).maximum;
        return 0;
    }

    int getDefault(unsigned short, unsigned short, int*) override { std::abort(); }
    int valueToString(unsigned short, unsigned short, int, char*, int) override { std::abort(); }
    int stringToValue(unsigned short, unsigned short, const char*, int*) override { std::abort(); }
    int registerObserver(unsigned short, unsigned short, IPrmObserver*) override { std::abort(); }
    int unregisterObserver(unsigned short, unsigned short, IPrmObserver*) override { std::abort(); }
    int queryMeterNotifier(IMeterNotifier**) override { std::abort(); }

    bool isReliable() const { return m_failEvery == 0; }

    std::array<Parameter, ParameterCount> parameters;

private:
    bool fails() { return m_failEvery != 0 && ++m_calls % m_failEvery == 0; }

    Parameter& at(unsigned short id)
    {
        return parameters.at(static_cast<std::size_t>(id - FirstId));
    }

    unsigned m_failEvery;
    unsigned m_calls = 0;
    unsigned short m_ch;
};

class Stream final : public IBStream
{
public:
    explicit Stream(std::vector<std::uint8_t> content = {}, unsigned mode = 0, int breaking = 0)
        : bytes(std::move(content))
        , m_hidesEnd((mode & 1) != 0)
        , m_portion((mode & 2) != 0 ? 1 : 4)
        , m_breaking(breaking)
    {}

    tresult PLUGIN_API queryInterface(const TUID, void**) override { std::abort(); }
    uint32 PLUGIN_API addRef() override { std::abort(); }
    uint32 PLUGIN_API release() override { std::abort(); }
    tresult PLUGIN_API seek(int64, int32, int64*) override { std::abort(); }
    tresult PLUGIN_API tell(int64*) override { std::abort(); }

    tresult PLUGIN_API read(void* buffer, int32 size, int32*) override
    {
        check(size == 4);
        const std::size_t left = bytes.size() - m_position;
        const std::size_t moved = std::min(m_portion, left);
        if (moved > 0)
            std::memcpy(buffer, bytes.data() + m_position, moved);
        m_position += moved;
        if (++m_reads == m_breaking)
            return kInternalError;
        return left < 4 && !m_hidesEnd ? kResultFalse : kResultOk;
    }

    tresult PLUGIN_API write(void* buffer, int32 size, int32*) override
    {
        check(size == 4);
        const auto* first = static_cast<const std::uint8_t*>(buffer);
        bytes.insert(bytes.end(), first, first + size);
        return kResultOk;
    }

    float valueAt(std::size_t place) const
    {
        std::uint32_t bits = 0;
        for (std::size_t i = 0; i < 4; ++i)
            bits = bits << 8 | bytes[4 + 4 * place + i];
        return std::bit_cast<float>(bits);
    }

    std::vector<std::uint8_t> bytes;

private:
    bool m_hidesEnd;
    std::size_t m_portion;
    int m_breaking;
    int m_reads = 0;
    std::size_t m_position = 0;
};

Stream savedState(ZoltaComponent& component)
{
    Stream stream;
    check(component.getState(&stream) == kResultOk);
    check(stream.bytes.size() == 116);
    check(std::memcmp(stream.bytes.data(), "2620", 4) == 0);
    for (std::size_t place = 0; place < 28; ++place)
        check(stream.valueAt(place) >= 0.0f && stream.valueAt(place) <= 1.0f);
    check(std::bit_cast<std::uint32_t>(stream.valueAt(27)) == 0);
    return stream;
}

bool areAllNarrow(const Host& host)
{
    return std::all_of(host.parameters.begin(), host.parameters.end(),
                       [](const Parameter& parameter) { return parameter.isNarrow(); });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    const unsigned mode = input.byte();
    const int breaking = input.byte();
    const unsigned failEvery = input.byte();
    const unsigned short ch = input.byte();
    Host host(input, failEvery, ch);

    ZoltaComponent component;
    component.setModelInfo(&host);
    component.setMemAPI(&host);
    component.setCh(ch);

    Stream before = savedState(component);
    if (host.isReliable() && areAllNarrow(host)) {
        check(component.setState(&before) == kResultOk);
        check(savedState(component).bytes == before.bytes);
    }

    Stream stream(input.rest(), mode, breaking);
    component.setState(&stream);
    savedState(component);
    return 0;
}
