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
    m_running = static_cast<std::size_t>(m_target.count);
    m_sampleRate = hertz;
    m_rampLength = rampSamples(hertz);
    for (std::size_t i = 0; i < m_current.size(); ++i) {
        m_current[i] = targetOf(i);
        m_leftLevels[i].jumpTo(m_current[i].left);
        m_rightLevels[i].jumpTo(m_current[i].right);
        m_delays[i].setSampleRate(hertz);
        m_delays[i].reset();
        m_emptyFor[i] = 0;
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

void MixBus::takeStrips()
{
    if (const Strips* strips = m_strips.take())
        m_target = *strips;
    const auto wanted = static_cast<std::size_t>(m_target.count);
    m_running = std::max(m_running, wanted);
    while (m_running > wanted && isSilent(m_running - 2) && isSilent(m_running - 1)) {
        retire(--m_running);
        retire(--m_running);
    }
}

// What goes is silent from now on.
MixBus::Strip MixBus::targetOf(std::size_t channel) const
{
    return channel < static_cast<std::size_t>(m_target.count) ? m_target[channel] : Strip();
}

bool MixBus::isSilent(std::size_t channel) const
{
    return m_leftLevels[channel].isSilent() && m_rightLevels[channel].isSilent();
}

// As if it had never run: so it begins when it comes back.
void MixBus::retire(std::size_t channel)
{
    m_engine.reset(static_cast<int>(channel));
    m_current[channel] = {};
    m_delays[channel].reset();
    m_emptyFor[channel] = 0;
}

void MixBus::reroute(std::size_t channel)
{
    Strip& current = m_current[channel];
    const Strip target = targetOf(channel);
    LevelRamp& left = m_leftLevels[channel];
    LevelRamp& right = m_rightLevels[channel];
    const bool ready = current.route == target.route || isSilent(channel);
    if (ready)
        current = target;
    const bool audible = ready && !m_auditions.isHushed(channel);
    left.moveTo(audible ? target.left : 0.0, m_rampLength);
    right.moveTo(audible ? target.right : 0.0, m_rampLength);
}

void MixBus::playStrips(Inputs inputs, std::size_t first, std::size_t frames)
{
    takeStrips();
    m_auditions.takeWanted(m_running);
    std::array<float*, maxChannelCount> blocks{};
    for (std::size_t i = 0; i < m_running; ++i) {
        reroute(i);
        blocks[i] = takeInput(i, inputs, first, frames);
    }
    m_engine.process(std::span<float* const>(blocks).first(m_running), frames);
    audition(frames);
    align(frames);
}

// The channel's part with what it plays; null if it plays nothing.
float* MixBus::takeInput(std::size_t channel, Inputs inputs, std::size_t first, std::size_t frames)
{
    Part& part = m_parts[channel];
    const float* input = inputOf(m_current[channel].route, inputs);
    if (!input) {
        std::fill_n(part.begin(), frames, 0.0F);
        m_emptyFor[channel] += frames;
        return nullptr;
    }
    std::copy_n(input + first, frames, part.begin());
    m_emptyFor[channel] = 0;
    m_auditions.takeInput(channel, std::span(part).first(frames),
                          m_engine.processor(static_cast<int>(channel)));
    return part.data();
}

// Whether the part of \a frames samples under way is silent, and nothing is held back any more.
bool MixBus::isResting(std::size_t channel, std::size_t frames) const
{
    return m_emptyFor[channel] >= frames + std::size_t{Drive::latency};
}

void MixBus::audition(std::size_t frames)
{
    for (std::size_t i = 0; i < m_running; i += 2) {
        const int channel = static_cast<int>(i);
        m_auditions.process(
            i, {std::span(m_parts[i]).first(frames), std::span(m_parts[i + 1]).first(frames)},
            {&m_engine.processor(channel), &m_engine.processor(channel + 1)});
    }
}

void MixBus::align(std::size_t frames)
{
    const double latest = maxLatency();
    for (std::size_t i = 0; i < m_running; ++i) {
        m_delays[i].set(m_engine.latency(static_cast<int>(i)) < latest);
        if (isResting(i, frames))
            m_delays[i].skip();
        else
            m_delays[i].process(std::span(m_parts[i]).first(frames));
    }
}

// In samples, of the strips that play.
double MixBus::maxLatency() const
{
    double latest = 0.0;
    for (std::size_t i = 0; i < m_running; ++i) {
        if (isPlaying(m_current[i].route))
            latest = std::max(latest, m_engine.latency(static_cast<int>(i)));
    }
    return latest;
}

void MixBus::mixDown(Outputs outputs, std::size_t first, std::size_t frames)
{
    std::fill_n(m_left.begin(), frames, 0.0F);
    std::fill_n(m_right.begin(), frames, 0.0F);
    for (std::size_t i = 0; i < m_running; ++i) {
        const bool isMoving = m_leftLevels[i].isMoving() || m_rightLevels[i].isMoving();
        if (isResting(i, frames) && !isMoving)
            continue;
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
