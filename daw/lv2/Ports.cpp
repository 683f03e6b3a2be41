// SPDX-License-Identifier: GPL-3.0-or-later
#include "daw/lv2/Ports.h"

#include "equalizer/EqualizerBands.h"

namespace {

std::string fieldSymbol(EqualizerField field)
{
    switch (field) {
    case EqualizerField::Type:
        return "type";
    case EqualizerField::Quality:
        return "quality";
    case EqualizerField::Frequency:
        return "frequency";
    case EqualizerField::Gain:
        return "gain";
    case EqualizerField::On:
        return "on";
    case EqualizerField::InputLevel:
        return "input_level";
    case EqualizerField::OutputLevel:
        return "output_level";
    default:
        return "drive";
    }
}

std::string parameterSymbol(std::size_t index)
{
    const EqualizerParameter& parameter = equalizerParameters[index];
    const std::string field = fieldSymbol(parameter.field);
    return parameter.band == noBand ? field : bandSymbol(parameter.band) + '_' + field;
}

std::string perChannel(const std::string& text, const Port& port, std::size_t channels)
{
    if (channels == 1)
        return text;
    return text + (port.number == 0 ? "_l" : "_r");
}

std::string channelName(const std::string& text, const Port& port, std::size_t channels)
{
    if (channels == 1)
        return text;
    return text + (port.number == 0 ? " left" : " right");
}

} // namespace

std::vector<Port> portsOf(std::size_t channels)
{
    std::vector<Port> ports;
    const auto add = [&ports](PortRole role, std::size_t count) {
        for (std::size_t number = 0; number < count; ++number)
            ports.push_back({role, number});
    };
    add(PortRole::AudioInput, channels);
    add(PortRole::AudioOutput, channels);
    add(PortRole::Parameter, parameterCount);
    add(PortRole::Enabled, 1);
    add(PortRole::Latency, 1);
    add(PortRole::InputMeter, channels);
    add(PortRole::OutputMeter, channels);
    return ports;
}

std::string symbolOf(const Port& port, std::size_t channels)
{
    switch (port.role) {
    case PortRole::AudioInput:
        return perChannel("in", port, channels);
    case PortRole::AudioOutput:
        return perChannel("out", port, channels);
    case PortRole::Parameter:
        return parameterSymbol(port.number);
    case PortRole::Enabled:
        return "enabled";
    case PortRole::Latency:
        return "latency";
    case PortRole::InputMeter:
        return perChannel("meter_in", port, channels);
    default:
        return perChannel("meter_out", port, channels);
    }
}

std::string nameOf(const Port& port, std::size_t channels)
{
    switch (port.role) {
    case PortRole::AudioInput:
        return channelName("Input", port, channels);
    case PortRole::AudioOutput:
        return channelName("Output", port, channels);
    case PortRole::Parameter:
        return parameterTable[port.number].title;
    case PortRole::Enabled:
        return "Enabled";
    case PortRole::Latency:
        return "Latency";
    case PortRole::InputMeter:
        return channelName("Input meter", port, channels);
    default:
        return channelName("Output meter", port, channels);
    }
}

std::string bandSymbol(int band)
{
    if (band == EqualizerBands::Low)
        return "low";
    return band == EqualizerBands::High ? "high" : "middle_" + std::to_string(band);
}
