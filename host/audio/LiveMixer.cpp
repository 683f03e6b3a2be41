// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/audio/LiveMixer.h"

#include "host/HostMemory.h"
#include "host/mixer/Desk.h"

#include <algorithm>

LiveMixer::LiveMixer()
{
    m_published.fill(defaultValues());
    m_delay.setSingleShot(true);
    m_delay.callOnTimeout(&m_delay, [this] { look(); });
}

void LiveMixer::follow(Desk& desk)
{
    QObject::disconnect(m_writes);
    m_desk = &desk;
    m_writes = QObject::connect(&desk.history(), &EditHistory::changed, &m_delay,
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
    const int leader = m_desk->leaderOf(channel);
    AudioEngine::Values values = m_desk->memory().values(leader);
    if (m_desk->memory().strip(leader, StripParameter::EqualizerOn) == 0)
        values = bypassed(values);
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
    const HostMemory& memory = m_desk->memory();
    const int leader = m_desk->leaderOf(channel);
    const bool pair = m_desk->isPair(channel);
    Strip strip;
    strip.source = sourceOf(channel, memory.strip(leader, StripParameter::Source));
    strip.left = !pair || channel % 2 == 0;
    strip.right = !pair || channel % 2 == 1;
    if (m_desk->isAudible(channel))
        strip.gain = static_cast<float>(stripGain(memory.strip(leader, StripParameter::Level)));
    return strip;
}

// The second channel of a pair takes the input after the one of the first.
int LiveMixer::sourceOf(int channel, int source) const
{
    if (source == SourceFile)
        return m_live ? noSource : channel % 2;
    if (!m_live || source < SourceInput1 || source >= SourceOff)
        return noSource;
    return source - SourceInput1 + channel - m_desk->leaderOf(channel);
}

void LiveMixer::prepare(double hertz, bool live)
{
    m_live = live;
    m_engine.setSampleRate(hertz);
    if (m_desk)
        look();
    m_engine.reset();
    if (const Mix* mix = m_mix.take())
        m_target = *mix;
    m_current = m_target;
}

void LiveMixer::process(const float* const* inputs, int inputCount, float* const* outputs,
                        int outputCount, int frames)
{
    const Inputs in(inputs, static_cast<std::size_t>(inputCount));
    const Outputs out(outputs, static_cast<std::size_t>(outputCount));
    const auto all = static_cast<std::size_t>(frames);
    for (std::size_t done = 0; done < all; done += longestPart) {
        const std::size_t count = std::min(longestPart, all - done);
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

void LiveMixer::playStrips(Inputs inputs, std::size_t first, std::size_t frames)
{
    if (const Mix* mix = m_mix.take())
        m_target = *mix;
    std::array<float*, channelCount> blocks{};
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        const float* input = inputOf(i, inputs);
        if (!input) {
            std::fill_n(m_parts[i].begin(), frames, 0.0F);
            continue;
        }
        std::copy_n(input + first, frames, m_parts[i].begin());
        blocks[i] = m_parts[i].data();
    }
    m_engine.process(std::span<float* const>(blocks), frames);
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

// Adds a strip to the sides, while its gain moves to where it is wanted.
void LiveMixer::add(std::size_t channel, std::size_t frames)
{
    Strip& current = m_current[channel];
    const Strip& target = m_target[channel];
    const bool rerouted = current.source != target.source || current.left != target.left ||
                          current.right != target.right;
    const float goal = rerouted ? 0.0F : target.gain;
    const float step = (goal - current.gain) / static_cast<float>(frames);
    const Part& part = m_parts[channel];
    for (std::size_t i = 0; i < frames; ++i) {
        const bool last = i + 1 == frames;
        const float gain = last || step == 0.0F ? goal : current.gain + step * float(i + 1);
        const float sample = part[i] * gain;
        if (current.left)
            m_left[i] += sample;
        if (current.right)
            m_right[i] += sample;
    }
    current.gain = goal;
    if (rerouted)
        current = {target.source, target.left, target.right, 0.0F};
}
