// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/model/LiveMixer.h"

#include "host/model/MixerModel.h"
#include "hosting/HostMemory.h"

#include <algorithm>

LiveMixer::LiveMixer()
{
    m_published.fill(defaultValues());
    m_delay.setSingleShot(true);
    m_delay.callOnTimeout(&m_delay, [this] { look(); });
}

void LiveMixer::follow(MixerModel& mixerModel)
{
    QObject::disconnect(m_writes);
    m_mixerModel = &mixerModel;
    m_writes = QObject::connect(&mixerModel, &MixerModel::channelChanged, &m_delay,
                                [this] { m_delay.start(0); });
    look();
}

void LiveMixer::look()
{
    for (int channel = 0; channel < channelCount; ++channel)
        publishValues(channel);
    const Mix mix = wanted();
    if (mix == m_publishedMix)
        return;
    m_publishedMix = mix;
    m_mix.publish(mix);
}

// The second channel of a pair runs with the settings of the first one.
void LiveMixer::publishValues(int channel)
{
    const AudioEngine::Values values = m_mixerModel->soundingValues(channel);
    AudioEngine::Values& published = m_published[static_cast<std::size_t>(channel)];
    if (values == published)
        return;
    published = values;
    m_engine.publish(channel, values);
}

LiveMixer::Mix LiveMixer::wanted() const
{
    Mix mix;
    for (int channel = 0; channel < channelCount; ++channel)
        mix[static_cast<std::size_t>(channel)] = wantedStrip(channel);
    return mix;
}

LiveMixer::Strip LiveMixer::wantedStrip(int channel) const
{
    const HostMemory& memory = m_mixerModel->memory();
    const int leader = m_mixerModel->leaderOf(channel);
    const bool pair = m_mixerModel->isPair(channel);
    Strip strip;
    strip.source = sourceOf(channel, memory.strip(leader, StripParameter::Source));
    strip.left = !pair || channel % 2 == 0;
    strip.right = !pair || channel % 2 == 1;
    if (m_mixerModel->isAudible(channel))
        strip.gain = stripGain(memory.strip(leader, StripParameter::Level));
    return strip;
}

// The second channel of a pair takes the input after the one of the first.
int LiveMixer::sourceOf(int channel, int source) const
{
    if (source == SourceFile)
        return m_live ? noSource : channel % 2;
    if (!m_live || source < SourceInput1 || source >= SourceOff)
        return noSource;
    return source - SourceInput1 + channel - m_mixerModel->leaderOf(channel);
}

void LiveMixer::prepare(double hertz, bool live)
{
    m_live = live;
    m_engine.setSampleRate(hertz);
    if (m_mixerModel)
        look();
    m_engine.reset();
    if (const Mix* mix = m_mix.take())
        m_target = *mix;
    m_current = m_target;
    m_rampLength = rampSamples(hertz);
    for (std::size_t i = 0; i < m_current.size(); ++i) {
        m_levels[i].jumpTo(m_current[i].gain);
        m_delays[i].setSampleRate(hertz);
        m_delays[i].reset();
    }
}

void LiveMixer::process(const float* const* inputs, int inputCount, float* const* outputs,
                        int outputCount, int frames)
{
    const Inputs in(inputs, static_cast<std::size_t>(inputCount));
    const Outputs out(outputs, static_cast<std::size_t>(outputCount));
    const auto all = static_cast<std::size_t>(frames);
    for (std::size_t done = 0; done < all; done += maxPart) {
        const std::size_t count = std::min(maxPart, all - done);
        playStrips(in, done, count);
        mixDown(out, done, count);
    }
}

// Null where the strip has nothing to play. A file of one channel has but one side.
const float* LiveMixer::inputOf(std::size_t channel, Inputs inputs) const
{
    const int source = m_current[channel].source;
    if (source == noSource || inputs.empty())
        return nullptr;
    auto index = static_cast<std::size_t>(source);
    if (!m_live)
        index = std::min(index, inputs.size() - 1);
    return index < inputs.size() ? inputs[index] : nullptr;
}

// A new source or side comes in once the old one is out.
void LiveMixer::route(std::size_t channel)
{
    Strip& current = m_current[channel];
    const Strip& target = m_target[channel];
    LevelRamp& level = m_levels[channel];
    const bool rerouted = current.source != target.source || current.left != target.left ||
                          current.right != target.right;
    const bool ready = !rerouted || (level.value() == 0.0 && !level.isMoving());
    if (ready)
        current = target;
    level.moveTo(ready ? target.gain : 0.0, m_rampLength);
}

void LiveMixer::playStrips(Inputs inputs, std::size_t first, std::size_t frames)
{
    if (const Mix* mix = m_mix.take())
        m_target = *mix;
    std::array<float*, channelCount> blocks{};
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        route(i);
        const float* input = inputOf(i, inputs);
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

// The drive of one strip delays it; the others wait for it.
void LiveMixer::align(std::size_t frames)
{
    const double latest = latestDelay();
    for (std::size_t i = 0; i < m_parts.size(); ++i) {
        m_delays[i].set(m_engine.latency(static_cast<int>(i)) < latest);
        m_delays[i].process(std::span(m_parts[i]).first(frames));
    }
}

// In samples, of the strips that play.
double LiveMixer::latestDelay() const
{
    double latest = 0.0;
    for (std::size_t i = 0; i < m_current.size(); ++i) {
        if (m_current[i].source != noSource)
            latest = std::max(latest, m_engine.latency(static_cast<int>(i)));
    }
    return latest;
}

void LiveMixer::mixDown(Outputs outputs, std::size_t first, std::size_t frames)
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

void LiveMixer::add(std::size_t channel, std::size_t frames)
{
    const Strip& strip = m_current[channel];
    const Part& part = m_parts[channel];
    for (std::size_t i = 0; i < frames; ++i) {
        const float sample = part[i] * static_cast<float>(m_levels[channel].next());
        if (strip.left)
            m_left[i] += sample;
        if (strip.right)
            m_right[i] += sample;
    }
}
