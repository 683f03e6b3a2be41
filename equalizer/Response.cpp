// SPDX-License-Identifier: GPL-3.0-or-later
#include "equalizer/Response.h"

#include "equalizer/Decibels.h"

#include <cmath>

MiddleResponse::MiddleResponse(const FILTER2PEQ& filter, double gain)
    : m_filter(&filter)
    , m_gainFactor(amplitudeRatio(std::abs(gain)) - 1.0)
    , m_boost(gain >= 0.0)
{}

ZPlane::Complex MiddleResponse::response(ZPlane::Complex unitDelay) const
{
    return m_boost ? m_filter->response_boost(unitDelay, m_gainFactor)
                   : m_filter->response_cut(unitDelay, m_gainFactor);
}

double MiddleResponse::level(double frequency, double sampleRate) const
{
    return ZPlane::level(response(ZPlane::unitDelay(frequency, sampleRate)));
}

EqualizerResponse::Levels EqualizerResponse::levels(double frequency, double sampleRate) const
{
    const ZPlane::Complex unitDelay = ZPlane::unitDelay(frequency, sampleRate);
    Levels levels;

    ZPlane::Complex product = 1.0;
    for (std::size_t i = 0; i < MiddleCount; ++i) {
        if (!middle[i])
            continue;
        const ZPlane::Complex response = middle[i]->response(unitDelay);
        levels.band[1 + i] = ZPlane::level(response);
        product = ZPlane::product(product, response);
    }

    if (low)
        levels.band.front() = ZPlane::level(low->response(unitDelay));
    if (high)
        levels.band.back() = ZPlane::level(high->response(unitDelay));
    levels.total = levels.band.front() + levels.band.back() + ZPlane::level(product);
    return levels;
}
