// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/AlignmentDelay.h"
#include "engine/AudioEngine.h"
#include "engine/Auditions.h"
#include "engine/LatestValue.h"
#include "engine/Ramps.h"
#include "engine/SharedLevels.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

/// The mixer on what is played: every strip takes the sound of its source, sends it through its
/// channel's equalizer and adds it to the outputs by its levels, one a side; the master has the
/// last word. std only.
///
/// Three parties use it. Whoever sets audio up calls prepare(), while process() does not run. The
/// audio thread calls process(), which neither allocates nor locks nor waits. The GUI thread
/// publishes settings, at any time; they act from the next part of a block on.
///
/// Levels and routes change without clicks; a new route is faded in once the old one is out. So are
/// channels that come; one that goes is faded out before it is left out, and costs nothing then.
/// While the drive of one strip delays it, the others are held back as much, so that strips of the
/// same sound stay in step.
class MixBus
{
public:
    /// Where a strip's sound comes from. Each kind is silent while the other one is played.
    enum class Source { None, File, Input };

    struct Route
    {
        Source source = Source::None;
        int number = 0; ///< of the file's channel or the input, from 0

        bool operator==(const Route&) const = default;
    };

    struct Strip
    {
        Route route;
        double left = 0.0; ///< the factors to either side
        double right = 0.0;

        bool operator==(const Strip&) const = default;
    };
    struct Master
    {
        double gain = 1.0;
        bool mono = false; ///< both sides play the mean of the two

        bool operator==(const Master&) const = default;
    };
    struct Strips
    {
        int count = defaultChannelCount; ///< of the channels there are, as isChannelCount() says
        std::array<Strip, maxChannelCount> strips{};

        Strip& operator[](std::size_t channel) { return strips[channel]; }
        const Strip& operator[](std::size_t channel) const { return strips[channel]; }
        bool operator==(const Strips&) const = default;
    };

    /// The GUI thread's: what is mixed, and the equalizer's raw values of a channel.
    void publish(const Strips& strips) { m_strips.publish(strips); }
    void publish(const Master& master) { m_master.publish(master); }
    void publish(int channel, const ChannelValues& values) { m_engine.publish(channel, values); }

    /// What is to be heard of a channel for a comparison; meters and taps stay its equalizer's.
    /// While one is listened to, the others are silent.
    void publish(int channel, const Audition& audition) { m_auditions.publish(channel, audition); }

    /// The rate in Hz, and whether process() gets a device's inputs instead of a file. Resets what
    /// was heard; what is published is in force at once.
    void prepare(double hertz, bool live);

    /// Fills \a frames samples of each of \a outputs, full scale 1: left, right, and silence in any
    /// others. The inputs are as long; a buffer may be an input and an output. The one channel of a
    /// mono file counts as its second one, too; an input that does not exist is silent.
    void process(std::span<const float* const> inputs, std::span<float* const> outputs,
                 std::size_t frames) noexcept;

    /// For the meters.
    const AudioEngine& engine() const { return m_engine; }
    /// What comes out in the end: left as sent, right as returned. Any thread's.
    MeterLevels outputLevels() const { return m_outputLevels.get(); }
    /// The gain in dB of a channel's bypassed sound that makes it as loud as the equalized one, as
    /// last measured; 0 at first. Any thread's.
    double matchedGain(int channel) const { return m_auditions.matchedGain(channel); }
    /// For the spectrum of a channel.
    SignalTap& tap(int channel) { return m_engine.tap(channel); }

private:
    static constexpr std::size_t maxPart = 256;
    using Part = std::array<float, maxPart>;
    using Inputs = std::span<const float* const>;
    using Outputs = std::span<float* const>;

    bool isPlaying(const Route& route) const;
    const float* inputOf(const Route& route, Inputs inputs) const;
    void takeStrips();
    Strip targetOf(std::size_t channel) const;
    bool isSilent(std::size_t channel) const;
    void retire(std::size_t channel);
    void reroute(std::size_t channel);
    float* takeInput(std::size_t channel, Inputs inputs, std::size_t first, std::size_t frames);
    bool isResting(std::size_t channel, std::size_t frames) const;
    void playStrips(Inputs inputs, std::size_t first, std::size_t frames);
    void audition(std::size_t frames);
    void align(std::size_t frames);
    double maxLatency() const;
    void mixDown(Outputs outputs, std::size_t first, std::size_t frames);
    void takeMaster();
    void runMaster(std::size_t frames);
    void measure(std::size_t frames);
    static void add(const Part& part, LevelRamp* level, std::size_t frames, Part* side);

    AudioEngine m_engine{maxChannelCount};
    Auditions m_auditions;
    LatestValue<Strips> m_strips;
    bool m_live = false;
    Strips m_target;
    std::array<Strip, maxChannelCount> m_current{};
    std::size_t m_running = defaultChannelCount; // channels that are mixed
    std::int64_t m_rampLength = 1;
    std::array<LevelRamp, maxChannelCount> m_leftLevels;
    std::array<LevelRamp, maxChannelCount> m_rightLevels;
    std::array<AlignmentDelay, maxChannelCount> m_delays;
    std::array<std::size_t, maxChannelCount> m_emptyFor{}; // samples without input
    std::array<Part, maxChannelCount> m_parts{};
    Part m_left{};
    Part m_right{};
    LatestValue<Master> m_master;
    Master m_wantedMaster;
    LevelRamp m_masterLevel;
    FadeRamp m_mono;
    double m_sampleRate = 48000.0;
    ChannelMeters m_outputMeters;
    SharedLevels m_outputLevels;
};
