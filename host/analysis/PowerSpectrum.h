// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/analysis/SpectrumWindow.h"

#include <memory>
#include <span>

/// The power of the bins of a windowed block of samples, from 0 Hz to half the rate: 1 for a sine
/// of full scale in the middle of a bin. Of one thread: FFTW plans while no other thread does.
class PowerSpectrum
{
public:
    /// \a size is of a block, a power of two.
    PowerSpectrum(AnalyzerSettings::Window window, std::size_t size);
    ~PowerSpectrum();
    PowerSpectrum(const PowerSpectrum&) = delete;
    PowerSpectrum& operator=(const PowerSpectrum&) = delete;

    const SpectrumWindow& window() const { return m_window; }
    std::size_t size() const { return m_window.weights().size(); }
    std::size_t bins() const { return size() / 2 + 1; }

    /// Adds \a share of the power of each bin to \a powers, which has bins() of them. Samples that
    /// are NaN or infinite make the whole block count as silence.
    void add(std::span<const float> samples, double share, std::span<double> powers);

private:
    struct Transform;

    SpectrumWindow m_window;
    std::unique_ptr<Transform> m_transform;
};
