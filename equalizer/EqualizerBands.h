// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "equalizer/FILTER2PEQ.h"
#include "equalizer/Response.h"
#include "equalizer/VEQ_Filter.h"

#include <array>

/// The settings of one band. The low and high bands have a type and no quality, the middle bands a
/// quality and no type.
struct Band
{
    bool on = true;         ///< whether it takes part
    int type = 3;           ///< 0 and 1: pass filter, 2 and 3: shelf; see BandDesign
    double quality = 1.5;   ///< 0.5 to 16
    double frequency = 0.0; ///< Hz, 20 to 20000
    double gain = 0.0;      ///< dB, -20 to +20
};

/// The six bands of the equalizer with one designed filter each.
///
/// Bands are numbered 0 (low), 1 to 4 (middle 1 to 4), 5 (high). Setting a field does not design:
/// call design() after the last of a batch.
class EqualizerBands
{
public:
    static constexpr int Count = 6; ///< of bands
    static constexpr int Low = 0;   ///< the low band's number
    static constexpr int High = 5;  ///< the high band's number

    /// Every band on and flat, designed at 44100 Hz.
    EqualizerBands();

    /// The settings of a band.
    /// @{
    Band& operator[](int band) { return m_bands[static_cast<std::size_t>(band)]; }
    const Band& operator[](int band) const { return m_bands[static_cast<std::size_t>(band)]; }
    /// @}

    /// Whether a band is one of the four in the middle.
    static bool isMiddle(int band) { return band > Low && band < High; }
    /// Whether the band's gain acts: middle bands and shelves.
    bool hasGain(int band) const;
    /// Whether the band is a low or high band of a pass type.
    bool isPass(int band) const;

    /// In Hz.
    double sampleRate() const { return m_sampleRate; }
    /// Stores the rate in Hz and designs every band.
    void setSampleRate(double sampleRate);
    /// Designs one band's filter from its settings.
    void design(int band);
    /// Designs every band's filter.
    void designAll();

    /// What the curve is drawn from: the designed filters of the bands that are on. It refers to
    /// this object and lives no longer.
    EqualizerResponse response() const;

private:
    std::array<Band, Count> m_bands;
    double m_sampleRate = 44100.0;
    VEQ_Filter m_low;
    std::array<FILTER2PEQ, 4> m_middle;
    VEQ_Filter m_high;
};
