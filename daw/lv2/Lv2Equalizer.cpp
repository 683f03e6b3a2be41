// SPDX-License-Identifier: GPL-3.0-or-later
#include "daw/lv2/Lv2Equalizer.h"

#include "parameters/ParameterScale.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

float meterOf(int tenths)
{
    return std::clamp(static_cast<float>(tenths) / 10.0F, float{lowestMeter}, float{highestMeter});
}

void write(float* port, float value)
{
    if (port)
        *port = value;
}

} // namespace

Lv2Equalizer::Lv2Equalizer(std::size_t channels, double sampleRate)
    : m_processor(channels)
    , m_ports(portsOf(channels))
{
    m_processor.setSampleRate(sampleRate);
    m_read.fill(std::numeric_limits<float>::quiet_NaN());
}

void Lv2Equalizer::connect(std::uint32_t index, void* buffer)
{
    if (index >= m_ports.size())
        return;
    const Port& port = m_ports[index];
    auto* const data = static_cast<float*>(buffer);
    switch (port.role) {
    case PortRole::AudioInput:
        m_inputs[port.number] = data;
        break;
    case PortRole::AudioOutput:
        m_outputs[port.number] = data;
        break;
    case PortRole::Parameter:
        m_parameters[port.number] = data;
        break;
    case PortRole::Enabled:
        m_enabled = data;
        break;
    case PortRole::Latency:
        m_latency = data;
        break;
    case PortRole::InputMeter:
        m_inputMeters[port.number] = data;
        break;
    case PortRole::OutputMeter:
        m_outputMeters[port.number] = data;
        break;
    }
}

void Lv2Equalizer::run(std::uint32_t frames)
{
    readPorts();
    const std::size_t channels = m_processor.channelCount();
    m_processor.process(std::span<const float* const>(m_inputs).first(channels),
                        std::span<float* const>(m_outputs).first(channels), frames);
    writePorts();
}

void Lv2Equalizer::readPorts()
{
    m_processor.setBypassed(m_enabled && *m_enabled <= 0.0F);
    ChannelValues values = m_processor.values();
    for (std::size_t i = 0; i < parameterCount; ++i) {
        if (!m_parameters[i] || *m_parameters[i] == m_read[i] || std::isnan(*m_parameters[i]))
            continue;
        m_read[i] = *m_parameters[i];
        values[i] = stepOf(parameterTable[i].kind, double{m_read[i]});
    }
    if (values != m_processor.values())
        m_processor.setValues(values);
}

void Lv2Equalizer::writePorts()
{
    write(m_latency, static_cast<float>(m_processor.latency()));
    for (std::size_t i = 0; i < m_processor.channelCount(); ++i) {
        const MeterLevels levels = m_processor.levels(i);
        write(m_inputMeters[i], meterOf(levels.send));
        write(m_outputMeters[i], meterOf(levels.returned));
    }
}
