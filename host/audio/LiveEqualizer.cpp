// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/audio/LiveEqualizer.h"

#include "host/HostMemory.h"
#include "host/audio/ChannelSettings.h"

namespace {

constexpr int lookInterval = 10; // ms

} // namespace

LiveEqualizer::LiveEqualizer()
    : m_published(ChannelSettings::defaults())
{
    m_timer.setInterval(lookInterval);
    m_timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
}

void LiveEqualizer::follow(const HostMemory& memory, int channel)
{
    m_memory = &memory;
    m_channel = channel;
    m_published = memory.values(channel);
    m_engine.publish(channel, m_published);
    m_engine.publish(partnerOf(channel), m_published);
    m_timer.start();
}

void LiveEqualizer::look()
{
    const AudioEngine::Values& values = m_memory->values(m_channel);
    if (values == m_published)
        return;
    m_published = values;
    m_engine.publish(m_channel, values);
    m_engine.publish(partnerOf(m_channel), values);
}

void LiveEqualizer::setSampleRate(double hertz)
{
    m_engine.setSampleRate(hertz);
    m_engine.reset();
}

// The left side is the pair's even channel; one side alone is the channel that is followed.
void LiveEqualizer::process(float* const* channels, int count, int frames)
{
    std::array<float*, channelCount> blocks{};
    const auto left = static_cast<std::size_t>(count == 1 ? m_channel : m_channel & ~1);
    if (count > 0)
        blocks[left] = channels[0];
    if (count > 1)
        blocks[left + 1] = channels[1];
    m_engine.process(std::span<float* const>(blocks), static_cast<std::size_t>(frames));
}
