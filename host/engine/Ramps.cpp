// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/engine/Ramps.h"

void GainRamp::jumpTo(double target)
{
    m_value = m_target = target;
    m_left = 0;
}

void GainRamp::moveTo(double target, std::int64_t samples)
{
    if (target == m_target)
        return;
    m_target = target;
    m_left = samples;
    m_step = std::exp(std::log(target / m_value) / static_cast<double>(samples));
}

double GainRamp::next()
{
    if (m_left == 0)
        return m_value;
    --m_left;
    m_value = m_left == 0 ? m_target : m_value * m_step;
    return m_value;
}

void GainRamp::apply(std::span<double> block)
{
    auto sample = block.begin();
    for (; sample != block.end() && isMoving(); ++sample)
        *sample *= next();
    if (m_value == 1.0)
        return;
    const double factor = m_value;
    for (; sample != block.end(); ++sample)
        *sample *= factor;
}

void FadeRamp::setLength(std::int64_t samples)
{
    const bool in = m_target != 0;
    m_length = samples;
    jumpTo(in);
}

double FadeRamp::next()
{
    if (m_position < m_target)
        ++m_position;
    else if (m_position > m_target)
        --m_position;
    const double t = static_cast<double>(m_position) / static_cast<double>(m_length);
    return t * t * (3.0 - 2.0 * t);
}
