// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/audio/AudioCallback.h"
#include "host/audio/Mailbox.h"
#include "host/engine/ChannelProcessor.h"

#include <QTimer>

#include <array>
#include <vector>

class HostMemory;

/// The equalizer on what is played: both sides are processed with the settings of one channel, as
/// they are in the mixer's memory at that moment.
///
/// The GUI thread looks at the memory a hundred times a second and hands what has changed to the
/// audio thread, which takes it at its next block.
class LiveEqualizer : public AudioCallback
{
public:
    LiveEqualizer();

    /// Follows a channel of \a memory, which must outlive this.
    void follow(const HostMemory& memory, int channel);

    void setSampleRate(double hertz) override;
    void process(float* const* channels, int channelCount, int frames) override;

private:
    static constexpr std::size_t mostChannels = 2;
    static constexpr int pieceFrames = 256;

    void look();
    void processPiece(float* samples, std::size_t frames, ChannelProcessor* strip);

    const HostMemory* m_memory = nullptr;
    int m_channel = 0;
    ChannelProcessor::Values m_posted{};
    QTimer m_timer;
    Mailbox<ChannelProcessor::Values> m_mailbox;
    // the audio thread's:
    std::array<ChannelProcessor, mostChannels> m_strips;
    ChannelProcessor::Values m_values{};
    std::vector<double> m_piece;
};
