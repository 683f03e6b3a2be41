// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/Ramps.h"

#include <algorithm>

namespace {

double smoothStep(std::int64_t position, std::int64_t length)
{
    const double t = static_cast<double>(position) / static_cast<double>(length);
    return t * t * (3.0 - 2.0 * t);
}

} // namespace

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
    m_half = std::max<std::int64_t>(samples / 2, 1);
    m_left = 2 * m_half;
    m_step = 1.0;
    // The step grows by the acceleration m_half times and shrinks m_half - 1 times; all steps
    // together are the way.
    const auto half = static_cast<double>(m_half);
    m_acceleration = std::exp(std::log(target / m_value) / (half * (half + 1.0)));
}

double GainRamp::next()
{
    if (m_left == 0)
        return m_value;
    --m_left;
    if (m_left >= m_half)
        m_step *= m_acceleration;
    else if (m_left < m_half - 1)
        m_step /= m_acceleration;
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

void LevelRamp::jumpTo(double target)
{
    m_value = m_target = target;
    m_left = 0;
}

void LevelRamp::moveTo(double target, std::int64_t samples)
{
    if (target == m_target)
        return;
    m_from = m_value;
    m_target = target;
    m_length = m_left = samples;
}

double LevelRamp::next()
{
    if (m_left == 0)
        return m_value;
    --m_left;
    const double share = smoothStep(m_length - m_left, m_length);
    m_value = m_left == 0 ? m_target : m_from + share * (m_target - m_from);
    return m_value;
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
    return smoothStep(m_position, m_length);
}
