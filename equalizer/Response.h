// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "equalizer/FILTER2PEQ.h"
#include "equalizer/VEQ_Filter.h"

#include <array>
#include <cstddef>
#include <optional>

/// A middle band as it is drawn: its filter, boosting or cutting by the band's own gain in dB. The
/// gain factor is 10^(|gain| / 20) - 1 whatever factor the filter was designed with. The filter is
/// not owned.
class MiddleResponse
{
public:
    /// Of \a filter with \a gain in dB.
    MiddleResponse(const FILTER2PEQ& filter, double gain);

    /// 1 + k B for a gain of 0 dB and above, 1 / (1 + k B) below.
    ZPlane::Complex response(ZPlane::Complex unitDelay) const;

    /// The level in dB at a frequency, both in Hz: FILTER2PEQ's power_boost() or power_cut().
    double level(double frequency, double sampleRate) const;

private:
    const FILTER2PEQ* m_filter;
    double m_gainFactor;
    bool m_boost;
};

/// What an equalizer's curve is drawn from: the filters of its enabled bands, evaluated afresh at
/// every frequency. A band that is off is null or empty and contributes nothing. The filters are
/// not owned and are read each time, so an object lives no longer than one drawing.
struct EqualizerResponse
{
    static constexpr std::size_t MiddleCount = 4;             ///< middle bands
    static constexpr std::size_t BandCount = MiddleCount + 2; ///< bands in all

    /// Levels in dB. `band` is in the order low, middle 1 to 4, high, and 0 dB for a band that is
    /// off.
    struct Levels
    {
        std::array<double, BandCount> band{}; ///< of each band
        double total = 0.0;                   ///< of the whole equalizer
    };

    /// The filters of the bands that are on.
    /// @{
    const VEQ_Filter* low = nullptr;
    std::array<std::optional<MiddleResponse>, MiddleCount> middle;
    const VEQ_Filter* high = nullptr;
    /// @}

    /// The level of every band and of the whole equalizer at a frequency, both in Hz. The total is
    /// the sum in dB of the low band, the high band and the product of the middle bands' complex
    /// responses (-100 dB where that product is zero). Each filter is evaluated once.
    Levels levels(double frequency, double sampleRate) const;
};
