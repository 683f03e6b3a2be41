// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/audio/LiveEqualizer.h"

#include "host/HostMemory.h"
#include "host/audio/ChannelSettings.h"

#include <algorithm>
#include <cmath>

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
    const ChannelStrip::Values& values = m_memory->values(m_channel);
    if (values == m_posted)
        return;
    m_posted = values;
    m_mailbox.post(values);
}

void LiveEqualizer::setSampleRate(double hertz)
{
    for (ChannelStrip& strip : m_strips) {
        strip.setSampleRate(static_cast<int>(std::lround(hertz)));
        strip.forget();
    }
    if (m_mailbox.take(&m_values)) {
        for (ChannelStrip& strip : m_strips)
            strip.setValues(m_values);
    }
}

void LiveEqualizer::process(float* const* channels, int count, int frames)
{
    if (m_mailbox.take(&m_values)) {
        for (ChannelStrip& strip : m_strips)
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

void LiveEqualizer::processPiece(float* samples, std::size_t frames, ChannelStrip* strip)
{
    const std::span<double> piece(m_piece.data(), frames);
    std::copy_n(samples, frames, piece.begin());
    strip->applyInput(piece);
    strip->equalize(piece);
    if (!std::isfinite(piece.back()))
        strip->forget();
    for (std::size_t i = 0; i < frames; ++i)
        samples[i] = std::isfinite(piece[i]) ? static_cast<float>(piece[i]) : 0.0F;
}
