// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/desktop/DesktopProcessor.h"

#include "engine/MixBus.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

DesktopProcessor::DesktopProcessor(MixBus& bus)
    : m_bus(bus)
{}

void DesktopProcessor::process(std::span<const float* const> inputs,
                               std::span<float* const> outputs, std::size_t frames) noexcept
{
    prepare(m_wantedRate);
    if (m_rate > 0)
        m_bus.process(inputs, outputs, frames);
    fade(outputs, frames);
}

void DesktopProcessor::prepare(int rate)
{
    if (rate == m_rate)
        return;
    m_rate = rate;
    m_bus.prepare(rate, true);
    m_level.jumpTo(0.0);
}

void DesktopProcessor::fade(std::span<float* const> outputs, std::size_t frames)
{
    const bool audible = m_audible && m_rate > 0;
    m_level.moveTo(audible ? 1.0 : 0.0, std::lround(fadeSeconds * m_rate));
    for (std::size_t i = 0; i < frames && (m_level.isMoving() || m_level.value() != 1.0); ++i) {
        const auto level = static_cast<float>(m_level.next());
        for (float* output : outputs)
            output[i] = level == 0.0F ? 0.0F : level * output[i];
    }
    m_fadedOut = !audible && !m_level.isMoving();
}
