// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/audio/AudioCallback.h"
#include "host/engine/AudioEngine.h"

#include <QTimer>

class HostMemory;

/// The equalizer on what is played: both sides run through the channels of one pair, with the
/// settings of the one that is followed, as they are in the mixer's memory at that moment.
///
/// The GUI thread looks at the memory a hundred times a second and publishes what has changed; the
/// audio thread takes it with its next block.
class LiveEqualizer : public AudioCallback
{
public:
    LiveEqualizer();

    /// Follows a channel of \a memory, which must outlive this; while nothing is played.
    void follow(const HostMemory& memory, int channel);
    const AudioEngine& engine() const { return m_engine; }

    void setSampleRate(double hertz) override;
    void process(float* const* channels, int count, int frames) override;

private:
    void look();

    const HostMemory* m_memory = nullptr;
    int m_channel = 0;
    AudioEngine::Values m_published;
    QTimer m_timer;
    AudioEngine m_engine;
};
