// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "graph/filters/FILTER2PEQ.h"
#include "graph/filters/VEQ_Filter.h"
#include "host/ParameterTable.h"

#include <array>
#include <cstddef>
#include <span>

/// The equalizer of one channel as it processes samples: input level, six bands in the order low,
/// middle 1 to 4, high, and output level. The filters are the ones that the editors draw. Clean or
/// drive makes no difference here.
class ChannelStrip
{
public:
    using Values = std::array<int, parameterCount>;

    /// Every parameter at its default, at 48000 Hz.
    ChannelStrip();

    /// In Hz; a new rate designs every band and forgets what was heard.
    void setSampleRate(int hertz);
    /// The channel's raw values; only bands whose values changed are designed.
    void setValues(const Values& values);

    /// Applies the input level to \a block.
    void applyInput(std::span<double> block) const;
    /// Applies the bands that are on and the output level.
    void equalize(std::span<double> block);
    /// Forgets the samples heard so far.
    void forget();

private:
    static constexpr std::size_t bandCount = 6;
    static constexpr std::size_t highBand = bandCount - 1;

    bool isOn(std::size_t band) const;
    bool differs(std::size_t band, const Values& values) const;
    void design(std::size_t band);
    void designAll();
    void runBand(std::size_t band, std::span<double> block);
    float position(std::size_t parameter) const;
    double gainOf(std::size_t parameter) const;

    Values m_values{};
    int m_sampleRate = 48000;
    VEQ_Filter m_low;
    std::array<FILTER2PEQ, bandCount - 2> m_middle;
    std::array<bool, bandCount - 2> m_cut{};
    VEQ_Filter m_high;
};
