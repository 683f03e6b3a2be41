// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/audio/LiveEqualizer.h"

#include "host/HostMemory.h"
#include "host/audio/ChannelSettings.h"

#include <algorithm>

namespace {

constexpr int lookInterval = 10; // ms

} // namespace

LiveEqualizer::LiveEqualizer()
    : m_posted(ChannelSettings::defaults())
    , m_piece(pieceFrames)
{
    m_timer.setInterval(lookInterval);
    m_timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
}

void LiveEqualizer::follow(const HostMemory& memory, int channel)
{
    m_memory = &memory;
    m_channel = channel;
    look();
    m_timer.start();
}

void LiveEqualizer::look()
{
    const ChannelProcessor::Values& values = m_memory->values(m_channel);
    if (values == m_posted)
        return;
    m_posted = values;
    m_mailbox.post(values);
}

void LiveEqualizer::setSampleRate(double hertz)
{
    for (ChannelProcessor& strip : m_strips) {
        strip.setSampleRate(hertz);
        strip.forget();
    }
    if (m_mailbox.take(&m_values)) {
        for (ChannelProcessor& strip : m_strips)
            strip.setValues(m_values);
    }
}

void LiveEqualizer::process(float* const* channels, int count, int frames)
{
    if (m_mailbox.take(&m_values)) {
        for (ChannelProcessor& strip : m_strips)
            strip.setValues(m_values);
    }
    const auto heard = std::min(static_cast<std::size_t>(count), mostChannels);
    for (std::size_t c = 0; c < heard; ++c) {
        for (int done = 0; done < frames; done += pieceFrames)
            processPiece(channels[c] + done,
                         static_cast<std::size_t>(std::min(pieceFrames, frames - done)),
                         &m_strips[c]);
    }
}

void LiveEqualizer::processPiece(float* samples, std::size_t frames, ChannelProcessor* strip)
{
    const std::span<double> piece(m_piece.data(), frames);
    std::copy_n(samples, frames, piece.begin());
    strip->process(piece);
    std::transform(piece.begin(), piece.end(), samples,
                   [](double sample) { return static_cast<float>(sample); });
}
