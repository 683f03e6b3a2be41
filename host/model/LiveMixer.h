// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/AlignmentDelay.h"
#include "engine/AudioEngine.h"
#include "host/audio/AudioCallback.h"

#include <QTimer>

#include <array>
#include <span>

class MixerModel;

/// The mixer on what is played: every strip takes the sound that its source names, sends it through
/// its channel's equalizer and adds it to the outputs by its fader.
///
/// A file's left side goes to the even channels, its right side to the odd ones; what comes in goes
/// by its number. Of a pair the even channel is heard on the left, the odd one on the right; a mono
/// strip is heard on both sides, at full level on each. The one channel of a mono file goes to both
/// sides; of a device with one output only the left is heard. A strip whose equalizer is off lets
/// the sound past as it is.
/// Faders, mutes and sources act without clicks; a new source is faded in once the old one is out.
/// While the drive of one strip delays it, the others are held back as much, so that strips of the
/// same sound stay in step.
///
/// After writes to the mixer's model's memory the GUI thread publishes what has changed, once for
/// all writes that come together; the audio thread takes it with its next block.
class LiveMixer : public AudioCallback
{
public:
    LiveMixer();

    /// Follows \a mixerModel, which must outlive this; while nothing is played.
    void follow(MixerModel& mixerModel);
    const AudioEngine& engine() const { return m_engine; }

    void prepare(double hertz, bool live) override;
    void process(const float* const* inputs, int inputCount, float* const* outputs, int outputCount,
                 int frames) override;

private:
    static constexpr std::size_t maxPart = 256;
    static constexpr int noSource = -1;

    struct Strip
    {
        int source = noSource; // which of the inputs
        bool left = true;
        bool right = true;
        double gain = 0.0;

        bool operator==(const Strip&) const = default;
    };
    using Mix = std::array<Strip, channelCount>;
    using Part = std::array<float, maxPart>;
    using Inputs = std::span<const float* const>;
    using Outputs = std::span<float* const>;

    void look();
    void publishValues(int channel);
    Mix wanted() const;
    Strip wantedStrip(int channel) const;
    int sourceOf(int channel, int source) const;
    const float* inputOf(std::size_t channel, Inputs inputs) const;
    void route(std::size_t channel);
    void playStrips(Inputs inputs, std::size_t first, std::size_t frames);
    void align(std::size_t frames);
    double latestDelay() const;
    void mixDown(Outputs outputs, std::size_t first, std::size_t frames);
    void add(std::size_t channel, std::size_t frames);

    const MixerModel* m_mixerModel = nullptr;
    QMetaObject::Connection m_writes;
    QTimer m_delay;
    bool m_live = false;
    std::array<AudioEngine::Values, channelCount> m_published{};
    Mix m_publishedMix;

    AudioEngine m_engine;
    LatestValue<Mix> m_mix;
    // The audio thread's:
    Mix m_target;
    Mix m_current;
    std::int64_t m_rampLength = 1;
    std::array<LevelRamp, channelCount> m_levels;
    std::array<AlignmentDelay, channelCount> m_delays;
    std::array<Part, channelCount> m_parts{};
    Part m_left{};
    Part m_right{};
};
