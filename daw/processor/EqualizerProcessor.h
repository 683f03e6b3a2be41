// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/BypassPath.h"
#include "engine/ChannelMeters.h"
#include "engine/ChannelProcessor.h"

#include <array>
#include <cstddef>
#include <span>

/// The equalizer as a plug-in of a workstation runs it: one or two channels with the same settings,
/// with bypass and meters. std only.
///
/// No operation but the constructor allocates, locks or calls the system, so all of them may be
/// called on the audio thread; an object is used by one thread at a time. Settings fade in as in
/// ChannelProcessor, and bypass likewise; those made before the first sample or after reset() are
/// in force at once.
class EqualizerProcessor
{
public:
    using Values = ChannelValues;
    static constexpr std::size_t maxChannels = 2;

    /// With 1 or 2 channels, every parameter at its default, at 48000 Hz.
    explicit EqualizerProcessor(std::size_t channels = maxChannels);

    /// 1 or 2; resets.
    void setChannelCount(std::size_t channels);
    std::size_t channelCount() const { return m_channelCount; }
    /// In Hz, above 0; resets.
    void setSampleRate(double hertz);
    /// Clears what is left of the samples so far, and the meters.
    void reset();

    void setValues(const Values& values);
    const Values& values() const { return m_values; }
    /// Lets the sound past the equalizer, as late as it would be through it.
    void setBypassed(bool bypassed);
    bool isBypassed() const { return m_isBypassed; }

    /// How many samples later what goes in comes out, whether it is bypassed or not.
    int latency() const { return isDriven(m_values) ? Drive::latency : 0; }

    /// Processes blocks of \a frames samples, which may be 0, one a channel. An input may be an
    /// output, also of another channel. Where there is no input or its pointer is null, there is
    /// silence; an output whose pointer is null gets nothing, and outputs beyond the channels get
    /// silence. Single precision is computed in double and rounded once.
    void process(std::span<const float* const> inputs, std::span<float* const> outputs,
                 std::size_t frames) noexcept;
    void process(std::span<const double* const> inputs, std::span<double* const> outputs,
                 std::size_t frames) noexcept;

    /// What the meters of a channel show as of the last block: behind the input level, and what
    /// comes out in the end.
    MeterLevels levels(std::size_t channel) const { return m_channels[channel].meters.levels(); }

private:
    static constexpr std::size_t maxPart = BypassPath::maxBlock;
    using Part = std::array<double, maxPart>;

    struct Channel
    {
        std::span<double> first(std::size_t count) { return std::span(part).first(count); }

        ChannelProcessor equalizer;
        BypassPath bypass;
        ChannelMeters meters;
        double inputPeak = 0.0;
        double outputPeak = 0.0;
        Part part{};
    };

    std::span<Channel> channels() { return std::span(m_channels).first(m_channelCount); }
    template <typename Sample>
    void processBlock(std::span<const Sample* const> inputs, std::span<Sample* const> outputs,
                      std::size_t frames) noexcept;
    template <typename Sample>
    static void read(const Sample* from, Channel* channel, std::size_t count);
    template <typename Sample> static void write(Channel* channel, Sample* to, std::size_t count);
    void equalize(std::size_t count);
    bool isTransparent() const;
    void updateMeters(std::size_t frames);

    std::size_t m_channelCount;
    double m_sampleRate = 48000.0;
    Values m_values = defaultValues();
    bool m_isBypassed = false;
    std::array<Channel, maxChannels> m_channels;
};
