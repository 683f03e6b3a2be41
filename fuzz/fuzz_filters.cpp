// SPDX-License-Identifier: GPL-3.0-or-later
// Band design, response and per-sample functions over any bits of their arguments. An input is a
// packed list of the values of Settings, missing ones being zero, then samples.
#include "equalizer/BandDesign.h"
#include "equalizer/Response.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>

namespace {

class Input
{
public:
    Input(const std::uint8_t* data, std::size_t size)
        : m_data(data)
        , m_size(size)
    {}

    bool atEnd() const { return m_size == 0; }

    template <typename T> T take()
    {
        T value{};
        const std::size_t count = std::min(sizeof value, m_size);
        std::copy_n(m_data, count, reinterpret_cast<std::uint8_t*>(&value));
        m_data += count;
        m_size -= count;
        return value;
    }

private:
    const std::uint8_t* m_data;
    std::size_t m_size;
};

struct Settings
{
    explicit Settings(Input& input)
        : value(input.take<std::int32_t>())
        , minimum(input.take<std::int32_t>())
        , maximum(input.take<std::int32_t>())
        , type(input.take<std::int32_t>())
        , position(input.take<float>())
        , frequency(input.take<double>())
        , quality(input.take<double>())
        , gain(input.take<double>())
        , sampleRate(input.take<double>())
        , probe(input.take<double>())
    {}

    std::int32_t value, minimum, maximum;
    std::int32_t type;
    float position;
    double frequency, quality, gain, sampleRate, probe;
};

void require(bool holds)
{
    if (!holds)
        std::abort();
}

void requireSame(double a, double b) { require(a == b || (std::isnan(a) && std::isnan(b))); }

bool isPosition(float r) { return r >= 0.0F && r <= 1.0F; }

void checkConversions(const Settings& s)
{
    const float r = BandDesign::position(s.value, s.minimum, s.maximum);
    require(isPosition(r));
    require(isPosition(BandDesign::frequencyPosition(s.frequency)));
    require(isPosition(BandDesign::gainPosition(s.gain)));

    const double f = BandDesign::frequency(r);
    require(f >= 20.0 && f <= 20000.0);
    const double q = BandDesign::quality(r);
    require(q >= 0.5 && q < 16.0001);
    const double g = BandDesign::gain(r);
    require(g >= -20.0 && g <= 20.0);

    const auto [lowest, highest] = std::minmax(s.minimum, s.maximum);
    const int raw = BandDesign::rawValue(s.position, s.minimum, s.maximum);
    require(raw >= lowest && raw <= highest);

    // Single precision tells the values of a range of a million apart.
    if (std::int64_t{highest} - lowest <= 1000000)
        require(BandDesign::rawValue(r, s.minimum, s.maximum) ==
                std::clamp(s.value, lowest, highest));
}

void runOuter(VEQ_Filter& filter, const Settings& s, Input samples)
{
    filter.SetSampleRate(s.sampleRate);
    filter.cal(1.0);
    filter.clear();
    while (!samples.atEnd())
        filter.cal(samples.take<double>());
    filter.phase(s.probe, s.sampleRate);
}

void runMiddle(FILTER2PEQ& filter, Input samples)
{
    while (!samples.atEnd()) {
        const double x = samples.take<double>();
        filter.cal_boost(x);
        filter.cal_cut();
        filter.dlyupdate_bpf(x);
    }
}

void checkResponse(const Settings& s, Input samples)
{
    VEQ_Filter low;
    VEQ_Filter high(2);
    FILTER2PEQ middle;
    BandDesign::designLow(low, s.type, s.frequency, s.gain, s.sampleRate);
    BandDesign::designHigh(high, s.type, s.frequency, s.gain, s.sampleRate);
    BandDesign::designMiddle(middle, s.frequency, s.quality, s.gain, s.sampleRate);
    require(middle.mode() >= FILTER2PEQ::ModeNone && middle.mode() <= FILTER2PEQ::ModeClamped);

    EqualizerResponse response;
    response.low = &low;
    response.middle[0].emplace(middle, s.gain);
    response.middle[3].emplace(middle, -s.gain);
    response.high = &high;
    const EqualizerResponse::Levels levels = response.levels(s.probe, s.sampleRate);
    requireSame(levels.band.front(), low.power(s.probe, s.sampleRate));
    requireSame(levels.band.back(), high.power(s.probe, s.sampleRate));
    requireSame(levels.band[1], response.middle[0]->level(s.probe, s.sampleRate));
    requireSame(levels.band[4], response.middle[3]->level(s.probe, s.sampleRate));
    require(levels.band[2] == 0.0 && levels.band[3] == 0.0);

    runOuter(low, s, samples);
    runOuter(high, s, samples);
    runMiddle(middle, samples);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    const Settings settings(input);
    checkConversions(settings);
    checkResponse(settings, input);
    return 0;
}
