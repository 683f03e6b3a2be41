// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <samplerate.h>

#include <memory>
#include <span>
#include <vector>

/// Interleaved samples of one rate as samples of another, piece by piece, by band-limited
/// interpolation. Equal rates pass every sample as it is.
class Resampler
{
public:
    /// The most that two rates may differ by, in either direction.
    static constexpr double maxRatio = 256.0;
    static bool converts(double fromRate, double toRate)
    {
        return fromRate <= maxRatio * toRate && toRate <= maxRatio * fromRate;
    }

    enum class Quality {
        Fast, ///< keeps 90 % of the lower rate's band, for playing
        Best  ///< 97 %
    };

    /// converts() must hold.
    Resampler(int channels, double fromRate, double toRate, Quality quality = Quality::Fast);

    /// The samples that \a samples add to the output; valid until the next call. \a last says that
    /// nothing follows: what is still under way comes out, too.
    std::span<const float> process(std::span<const float> samples, bool last);

private:
    struct Deleter
    {
        void operator()(SRC_STATE* state) const { src_delete(state); }
    };

    bool convert(SRC_DATA* data);

    long m_channels;
    double m_ratio;
    std::unique_ptr<SRC_STATE, Deleter> m_state; // null for equal rates
    std::vector<float> m_piece;
    std::vector<float> m_output;
};
