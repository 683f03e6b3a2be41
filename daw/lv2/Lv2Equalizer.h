// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "daw/lv2/Ports.h"
#include "daw/processor/EqualizerProcessor.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

/// One instance of an LV2 plug-in: the host connects buffers to its ports, and run() processes what
/// is in them. Values of ports count as the nearest step of their scale; one that is not a number
/// changes nothing. A port without a buffer is at its default, or silent.
class Lv2Equalizer
{
public:
    /// With 1 or 2 channels; the rate is in Hz.
    Lv2Equalizer(std::size_t channels, double sampleRate);

    /// \a buffer stays the host's. An index that no port has is ignored.
    void connect(std::uint32_t index, void* buffer);
    /// Forgets what was heard.
    void activate() { m_processor.reset(); }
    /// Processes \a frames samples; with 0 the outputs for control are still set.
    void run(std::uint32_t frames);

private:
    template <typename Sample>
    using PerChannel = std::array<Sample, EqualizerProcessor::maxChannels>;

    void readPorts();
    void writePorts();

    EqualizerProcessor m_processor;
    std::vector<Port> m_ports;
    PerChannel<const float*> m_inputs{};
    PerChannel<float*> m_outputs{};
    std::array<const float*, parameterCount> m_parameters{};
    std::array<float, parameterCount> m_read{}; // the numbers that the values are made of
    const float* m_enabled = nullptr;
    float* m_latency = nullptr;
    PerChannel<float*> m_inputMeters{};
    PerChannel<float*> m_outputMeters{};
};
