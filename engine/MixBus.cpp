// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/MixBus.h"

#include <algorithm>

void MixBus::prepare(double hertz, bool live)
{
    m_live = live;
    m_engine.setSampleRate(hertz);
    m_engine.reset();
    m_auditions.prepare(hertz);
    if (const Strips* strips = m_strips.take())
        m_target = *strips;
    m_current = m_target;
    m_sampleRate = hertz;
    m_rampLength = rampSamples(hertz);
    for (std::size_t i = 0; i < m_current.size(); ++i) {
        m_leftLevels[i].jumpTo(m_current[i].left);
        m_rightLevels[i].jumpTo(m_current[i].right);
        m_delays[i].setSampleRate(hertz);
        m_delays[i].reset();
    }
    takeMaster();
    m_masterLevel.jumpTo(m_wantedMaster.gain);
    m_mono.setLength(m_rampLength);
    m_mono.jumpTo(m_wantedMaster.mono);
    m_outputMeters = {};
    m_outputLevels.set({});
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
    LevelRamp& left = m_leftLevels[channel];
    LevelRamp& right = m_rightLevels[channel];
    const bool ready = current.route == target.route || (left.isSilent() && right.isSilent());
    if (ready)
        current = target;
    const bool audible = ready && !m_auditions.isHushed(channel);
    left.moveTo(audible ? target.left : 0.0, m_rampLength);
    right.moveTo(audible ? target.right : 0.0, m_rampLength);
}

void MixBus::playStrips(Inputs inputs, std::size_t first, std::size_t frames)
{
    m_auditions.takeWanted();
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
        m_auditions.takeInput(i, std::span(m_parts[i]).first(frames),
                              m_engine.processor(static_cast<int>(i)));
    }
    m_engine.process(std::span<float* const>(blocks), frames);
    audition(frames);
    align(frames);
}

void MixBus::audition(std::size_t frames)
{
    for (std::size_t i = 0; i < m_parts.size(); i += 2) {
        const int channel = static_cast<int>(i);
        m_auditions.process(
            i, {std::span(m_parts[i]).first(frames), std::span(m_parts[i + 1]).first(frames)},
            {&m_engine.processor(channel), &m_engine.processor(channel + 1)});
    }
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
    for (std::size_t i = 0; i < m_parts.size(); ++i) {
        add(m_parts[i], &m_leftLevels[i], frames, &m_left);
        add(m_parts[i], &m_rightLevels[i], frames, &m_right);
    }
    runMaster(frames);
    measure(frames);
    for (std::size_t c = 0; c < outputs.size(); ++c) {
        if (c < 2)
            std::copy_n((c == 0 ? m_left : m_right).begin(), frames, outputs[c] + first);
        else
            std::fill_n(outputs[c] + first, frames, 0.0F);
    }
}

void MixBus::add(const Part& part, LevelRamp* level, std::size_t frames, Part* side)
{
    std::size_t i = 0;
    for (; i < frames && level->isMoving(); ++i)
        (*side)[i] += part[i] * static_cast<float>(level->next());
    if (level->isSilent())
        return;
    const auto factor = static_cast<float>(level->value());
    for (; i < frames; ++i)
        (*side)[i] += part[i] * factor;
}

void MixBus::takeMaster()
{
    if (const Master* master = m_master.take())
        m_wantedMaster = *master;
}

void MixBus::runMaster(std::size_t frames)
{
    takeMaster();
    m_masterLevel.moveTo(m_wantedMaster.gain, m_rampLength);
    m_mono.moveTo(m_wantedMaster.mono);
    if (!m_masterLevel.isMoving() && m_masterLevel.value() == 1.0 && m_mono.isOut())
        return;
    for (std::size_t i = 0; i < frames; ++i) {
        const double level = m_masterLevel.next();
        const double share = m_mono.next();
        const double left = double{m_left[i]};
        const double right = double{m_right[i]};
        const double apart = 0.5 * share * (right - left);
        m_left[i] = static_cast<float>(level * (left + apart));
        m_right[i] = static_cast<float>(level * (right - apart));
    }
}

void MixBus::measure(std::size_t frames)
{
    const double seconds = static_cast<double>(frames) / m_sampleRate;
    const auto peak = [frames](const Part& side) {
        std::array<double, maxPart> samples;
        std::copy_n(side.begin(), frames, samples.begin());
        return peakOf(std::span(samples).first(frames));
    };
    m_outputMeters.take(peak(m_left), peak(m_right), seconds);
    m_outputLevels.set(m_outputMeters.levels());
}
