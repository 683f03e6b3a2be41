// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/ChannelMeters.h"
#include "engine/ChannelProcessor.h"
#include "engine/LatestValue.h"
#include "engine/SharedLevels.h"
#include "engine/SignalTap.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

/// Every channel of the mixer as audio runs through it. std only.
///
/// Three parties use it. Whoever sets audio up calls setSampleRate() and reset(), while process()
/// does not run. The audio thread calls process(), which neither allocates nor locks nor waits. The
/// GUI thread publishes values and reads levels, at any time. Values that are published while a
/// block is processed act from the next block on; of several only the last counts.
class AudioEngine
{
public:
    /// The raw values of one channel.
    using Values = ChannelProcessor::Values;

    /// With so many channels, an even number, each at the parameters' defaults, at 48000 Hz.
    explicit AudioEngine(std::size_t channels = defaultChannelCount)
        : m_channels(channels)
    {}

    /// In Hz, above 0; a new rate resets.
    void setSampleRate(double hertz);
    /// In Hz.
    double sampleRate() const { return m_sampleRate; }
    /// Clears the samples so far and the levels; what is published is in force at once.
    void reset();
    /// The same for one channel. The audio thread's.
    void reset(int channel) noexcept;

    /// The GUI thread's: the raw values of a channel, counted from 0.
    void publish(int channel, const Values& values);

    /// Processes blocks of \a frames samples in place, one a channel from channel 0 on. A channel
    /// whose pointer is null gets no signal. A pair without pointers stays as it is and costs
    /// nothing; pointers beyond the engine's channels are left alone.
    void process(std::span<double* const> channels, std::size_t frames) noexcept;
    /// The same for single precision: computed in double precision and rounded once.
    void process(std::span<float* const> channels, std::size_t frames) noexcept;

    /// What the meters show, as of the last block: they reach a peak with the block it is in, and
    /// fall by PeakLevel::releasePerSecond. Any thread's.
    MeterLevels levels(int channel) const { return at(channel).levels.get(); }
    /// How many blocks have been processed: as long as it grows, audio runs. Any thread's.
    std::uint64_t blocks() const { return m_blocks.load(std::memory_order_relaxed); }
    /// A channel's samples where the send meter measures and where the return meter does; silence
    /// of one that gets no signal.
    SignalTap& tap(int channel) { return at(channel).tap; }
    /// What a channel's sound goes through, as of the last block. The audio thread's.
    const ChannelProcessor& processor(int channel) const { return at(channel).processor; }
    /// The delay of a channel in samples. The audio thread's.
    double latency(int channel) const { return at(channel).processor.latency(); }

private:
    struct Peaks
    {
        double send = 0.0;
        double returned = 0.0;
    };
    struct Channel
    {
        void reset();
        void takeInput(std::span<double> block);
        void takeOutput(std::span<const double> block);

        LatestValue<Values> settings;
        ChannelProcessor processor;
        ChannelMeters meters;
        SignalTap tap;
        Peaks peaks; // of the block under way
        SharedLevels levels;
    };

    Channel& at(int channel) { return m_channels[static_cast<std::size_t>(channel)]; }
    const Channel& at(int channel) const { return m_channels[static_cast<std::size_t>(channel)]; }

    template <typename Sample>
    void processAll(std::span<Sample* const> channels, std::size_t frames) noexcept;
    template <typename Sample>
    static void processBoth(Channel* first, Sample* left, Sample* right, std::size_t frames);
    template <typename Sample>
    static void processPair(Channel* first, std::span<Sample> left, std::span<Sample> right);
    template <typename Sample> static void processOne(Channel* channel, std::span<Sample> block);

    double m_sampleRate = 48000.0;
    std::vector<Channel> m_channels;
    std::atomic<std::uint64_t> m_blocks = 0;
};
