// SPDX-License-Identifier: GPL-3.0-or-later
#include "daw/lv2/FilterChain.h"

#include "daw/lv2/Ports.h"
#include "daw/lv2/Turtle.h"

#include <algorithm>

namespace {

constexpr std::size_t sinkChannels = 2;
constexpr std::size_t commentColumn = 56;

const char* const head =
    R"(# An equalizer for everything that the desktop plays, without a window:
#
#     systemctl --user enable --now zolta-equalizer
#
# Then choose "Zolta Equalizer" as the output. To change settings, copy this file to
# ~/.config/pipewire/, edit the copy, and restart the service.

context.properties = { log.level = 2 }

context.spa-libs = {
    audio.convert.* = audioconvert/libspa-audioconvert
    support.*       = support/libspa-support
}

context.modules = [
    { name = libpipewire-module-rt
        args = { nice.level = -11 }
        flags = [ ifexists nofail ]
    }
    { name = libpipewire-module-protocol-native }
    { name = libpipewire-module-client-node }
    { name = libpipewire-module-adapter }
    { name = libpipewire-module-filter-chain
        args = {
            node.description = "Zolta Equalizer"
            media.name       = "Zolta Equalizer"
            filter.graph = {
                nodes = [
                    {
                        type   = lv2
                        name   = equalizer
                        plugin = ")";

const char* const tail = R"(            }
            audio.channels = 2
            audio.position = [ FL FR ]
            capture.props = {
                node.name   = "zolta-equalizer"
                media.class = Audio/Sink
            }
            playback.props = {
                node.name    = "zolta-equalizer-output"
                node.passive = true
            }
        }
    }
]
)";

std::string controlLine(const Port& port)
{
    const Parameter& parameter = parameterTable[port.number];
    std::string text = std::string(28, ' ') + symbolOf(port, sinkChannels) + " = " +
                       portNumber(port.number, parameter.defaultValue);
    text.resize(std::max(text.size() + 1, commentColumn), ' ');
    return text + "# " + portNumber(port.number, parameter.minimum) + " to " +
           portNumber(port.number, parameter.maximum) + '\n';
}

std::string audioPorts(PortRole role)
{
    std::string text;
    for (const Port& port : portsOf(sinkChannels)) {
        if (port.role == role)
            text += " \"equalizer:" + symbolOf(port, sinkChannels) + '"';
    }
    return "[" + text + " ]\n";
}

} // namespace

std::string filterChainText()
{
    std::string text = head + std::string(stereoUri) + "\"\n                        control = {\n";
    for (const Port& port : portsOf(sinkChannels)) {
        if (port.role == PortRole::Parameter)
            text += controlLine(port);
    }
    const std::string indent(16, ' ');
    return text + "                        }\n                    }\n" + indent + "]\n" + indent +
           "inputs  = " + audioPorts(PortRole::AudioInput) + indent +
           "outputs = " + audioPorts(PortRole::AudioOutput) + tail;
}
