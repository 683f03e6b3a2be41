// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/analysis/PowerSpectrum.h"

#include <fftw3.h>

#include <cmath>

struct PowerSpectrum::Transform
{
    explicit Transform(std::size_t size)
        : samples(fftwf_alloc_real(size))
        , bins(fftwf_alloc_complex(size / 2 + 1))
        , plan(fftwf_plan_dft_r2c_1d(static_cast<int>(size), samples, bins, FFTW_ESTIMATE))
    {}
    ~Transform()
    {
        fftwf_destroy_plan(plan);
        fftwf_free(bins);
        fftwf_free(samples);
    }
    Transform(const Transform&) = delete;
    Transform& operator=(const Transform&) = delete;

    float* samples;
    fftwf_complex* bins;
    fftwf_plan plan;
};

PowerSpectrum::PowerSpectrum(AnalyzerSettings::Window window, std::size_t size)
    : m_window(window, size)
    , m_transform(std::make_unique<Transform>(size))
{}

PowerSpectrum::~PowerSpectrum() = default;

void PowerSpectrum::add(std::span<const float> samples, double share, std::span<double> powers)
{
    const float* weights = m_window.weights().data();
    for (std::size_t i = 0; i < samples.size(); ++i)
        m_transform->samples[i] = samples[i] * weights[i];
    fftwf_execute(m_transform->plan);
    const fftwf_complex* bins = m_transform->bins;
    if (!std::isfinite(bins[0][0])) // to which every sample is added
        return;
    const double scale = 2.0 / (m_window.gain() * static_cast<double>(samples.size()));
    const double factor = share * scale * scale;
    for (std::size_t k = 0; k < powers.size(); ++k) {
        const double real = double{bins[k][0]};
        const double imaginary = double{bins[k][1]};
        powers[k] += factor * (real * real + imaginary * imaginary);
    }
}
