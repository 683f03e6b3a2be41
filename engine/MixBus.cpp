// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/MixBus.h"

#include <algorithm>

void MixBus::prepare(double hertz, bool live)
{
    m_live = live;
    m_engine.setSampleRate(hertz);
    m_engine.reset();
    if (const Strips* strips = m_strips.take())
        m_target = *strips;
    m_current = m_target;
    m_rampLength = rampSamples(hertz);
    for (std::size_t i = 0; i < m_current.size(); ++i) {
        m_levels[i].jumpTo(m_current[i].gain);
        m_delays[i].setSampleRate(hertz);
        m_delays[i].reset();
    }
}

void MixBus::process(Inputs inputs, Outputs outputs, std::size_t frames) noexcept
{
    for (std::size_t done = 0; done < frames; done += maxPart) {
        const std::size_t count = std::min(maxPart, frames - done);
        playStrips(inputs, done, count);
        mixDown(outputs, done, count);
    }
}

bool MixBus::isPlaying(const Route& route) const
{
    return route.source == (m_live ? Source::Input : Source::File);
}

// Null where the strip has nothing to play.
const float* MixBus::inputOf(const Route& route, Inputs inputs) const
{
    if (!isPlaying(route) || inputs.empty())
        return nullptr;
    auto number = static_cast<std::size_t>(route.number);
    if (!m_live)
        number = std::min(number, inputs.size() - 1);
    return number < inputs.size() ? inputs[number] : nullptr;
}

void MixBus::reroute(std::size_t channel)
{
    Strip& current = m_current[channel];
    const Strip& target = m_target[channel];
    LevelRamp& level = m_levels[channel];
    const bool silent = level.value() == 0.0 && !level.isMoving();
    const bool ready = current.route == target.route || silent;
    if (ready)
        current = target;
    level.moveTo(ready ? target.gain : 0.0, m_rampLength);
}

void MixBus::playStrips(Inputs inputs, std::size_t first, std::size_t frames)
{
    if (const Strips* strips = m_strips.take())
        m_target = *strips;
    std::array<float*, channelCount> blocks{};
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        reroute(i);
        const float* input = inputOf(m_current[i].route, inputs);
        if (!input) {
            std::fill_n(m_parts[i].begin(), frames, 0.0F);
            continue;
        }
        std::copy_n(input + first, frames, m_parts[i].begin());
        blocks[i] = m_parts[i].data();
    }
    m_engine.process(std::span<float* const>(blocks), frames);
    align(frames);
}

void MixBus::align(std::size_t frames)
{
    const double latest = maxLatency();
    for (std::size_t i = 0; i < m_parts.size(); ++i) {
        m_delays[i].set(m_engine.latency(static_cast<int>(i)) < latest);
        m_delays[i].process(std::span(m_parts[i]).first(frames));
    }
}

// In samples, of the strips that play.
double MixBus::maxLatency() const
{
    double latest = 0.0;
    for (std::size_t i = 0; i < m_current.size(); ++i) {
        if (isPlaying(m_current[i].route))
            latest = std::max(latest, m_engine.latency(static_cast<int>(i)));
    }
    return latest;
}

void MixBus::mixDown(Outputs outputs, std::size_t first, std::size_t frames)
{
    std::fill_n(m_left.begin(), frames, 0.0F);
    std::fill_n(m_right.begin(), frames, 0.0F);
    for (std::size_t i = 0; i < m_parts.size(); ++i)
        add(i, frames);
    for (std::size_t c = 0; c < outputs.size(); ++c) {
        if (c < 2)
            std::copy_n((c == 0 ? m_left : m_right).begin(), frames, outputs[c] + first);
        else
            std::fill_n(outputs[c] + first, frames, 0.0F);
    }
}

void MixBus::add(std::size_t channel, std::size_t frames)
{
    const Route& route = m_current[channel].route;
    const Part& part = m_parts[channel];
    for (std::size_t i = 0; i < frames; ++i) {
        const float sample = part[i] * static_cast<float>(m_levels[channel].next());
        if (route.left)
            m_left[i] += sample;
        if (route.right)
            m_right[i] += sample;
    }
}
