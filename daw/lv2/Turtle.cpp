// SPDX-License-Identifier: GPL-3.0-or-later
#include "daw/lv2/Turtle.h"

#include "daw/lv2/Ports.h"
#include "daw/processor/BandName.h"
#include "equalizer/EqualizerBands.h"
#include "parameters/FactoryPresets.h"
#include "parameters/ParameterText.h"

#include <array>
#include <cctype>
#include <charconv>
#include <cstdlib>
#include <iterator>
#include <utility>

namespace {

constexpr const char* pluginsFile = "equalizer.ttl";
constexpr const char* presetsFile = "presets.ttl";
constexpr std::array<std::pair<const char*, std::size_t>, 2> plugins = {
    {{stereoUri, 2}, {monoUri, 1}}};

constexpr const char* prefixes = R"(@prefix doap: <http://usefulinc.com/ns/doap#> .
@prefix foaf: <http://xmlns.com/foaf/0.1/> .
@prefix lv2: <http://lv2plug.in/ns/lv2core#> .
@prefix opts: <http://lv2plug.in/ns/ext/options#> .
@prefix param: <http://lv2plug.in/ns/ext/parameters#> .
@prefix pg: <http://lv2plug.in/ns/ext/port-groups#> .
@prefix pprops: <http://lv2plug.in/ns/ext/port-props#> .
@prefix pset: <http://lv2plug.in/ns/ext/presets#> .
@prefix rdf: <http://www.w3.org/1999/02/22-rdf-syntax-ns#> .
@prefix rdfs: <http://www.w3.org/2000/01/rdf-schema#> .
@prefix ui: <http://lv2plug.in/ns/extensions/ui#> .
@prefix units: <http://lv2plug.in/ns/extensions/units#> .

)";

std::string quoted(const std::string& text) { return '"' + text + '"'; }
std::string uri(const std::string& text) { return '<' + text + '>'; }

// One statement about a node whose other statements follow.
std::string line(const std::string& predicate, const std::string& object)
{
    return "        " + predicate + ' ' + object + " ;\n";
}

std::string groupUri(const std::string& name) { return uri(std::string(stereoUri) + '#' + name); }

std::string group(const std::string& name, const std::string& title, const std::string& type)
{
    return groupUri(name) + "\n        a " + type + " ;\n" + line("lv2:symbol", quoted(name)) +
           "        lv2:name " + quoted(title) + " .\n\n";
}

std::string groups()
{
    std::string text = group("input", "Input", "pg:StereoGroup , pg:InputGroup") +
                       group("output", "Output", "pg:StereoGroup , pg:OutputGroup") +
                       group("mono_input", "Input", "pg:MonoGroup , pg:InputGroup") +
                       group("mono_output", "Output", "pg:MonoGroup , pg:OutputGroup");
    for (int band = 0; band < EqualizerBands::Count; ++band)
        text += group(bandSymbol(band), bandName(band), "pg:Group");
    return text + group("levels", "Levels", "pg:Group");
}

std::string range(const std::string& lowest, const std::string& highest)
{
    return line("lv2:minimum", lowest) + line("lv2:maximum", highest);
}

std::string choices(const Parameter& parameter)
{
    std::string text;
    for (int value = parameter.minimum; value <= parameter.maximum; ++value)
        text +=
            line("lv2:scalePoint", "[ rdfs:label " + quoted(*formatParameter(parameter, value)) +
                                       " ; rdf:value " + std::to_string(value) + " ]");
    return text;
}

std::string properties(const Parameter& parameter)
{
    const std::string steps =
        line("pprops:rangeSteps", std::to_string(parameter.maximum - parameter.minimum + 1));
    const std::string logarithmic = line("lv2:portProperty", "pprops:logarithmic") + steps;
    switch (parameter.kind) {
    case ParameterKind::Frequency:
        return logarithmic + line("units:unit", "units:hz");
    case ParameterKind::Quality:
        return logarithmic;
    case ParameterKind::Decibels:
        return steps + line("units:unit", "units:db");
    case ParameterKind::Switch:
        return line("lv2:portProperty", "lv2:toggled");
    default:
        return line("lv2:portProperty", "lv2:integer , lv2:enumeration") + choices(parameter);
    }
}

std::string parameterPort(std::size_t index)
{
    const Parameter& parameter = parameterTable[index];
    const int band = equalizerParameters[index].band;
    return line("a", "lv2:InputPort , lv2:ControlPort") +
           line("lv2:default", portNumber(index, parameter.defaultValue)) +
           range(portNumber(index, parameter.minimum), portNumber(index, parameter.maximum)) +
           properties(parameter) +
           line("pg:group", groupUri(band == noBand ? "levels" : bandSymbol(band)));
}

std::string audioPort(const Port& port, std::size_t channels)
{
    const bool isInput = port.role == PortRole::AudioInput;
    const std::string side = channels == 1 ? "center" : port.number == 0 ? "left" : "right";
    const std::string name = isInput ? "input" : "output";
    return line("a",
                std::string(isInput ? "lv2:InputPort" : "lv2:OutputPort") + " , lv2:AudioPort") +
           line("pg:group", groupUri(channels == 1 ? "mono_" + name : name)) +
           line("lv2:designation", "pg:" + side);
}

std::string enabledPort()
{
    return line("a", "lv2:InputPort , lv2:ControlPort") + line("lv2:default", "1") +
           range("0", "1") + line("lv2:portProperty", "lv2:toggled") +
           line("lv2:designation", "lv2:enabled");
}

std::string latencyPort()
{
    return line("a", "lv2:OutputPort , lv2:ControlPort") + range("0", "78") +
           line("lv2:portProperty", "lv2:integer , lv2:reportsLatency") +
           line("lv2:designation", "lv2:latency") + line("units:unit", "units:frame");
}

std::string meterPort()
{
    return line("a", "lv2:OutputPort , lv2:ControlPort") +
           range(std::to_string(lowestMeter), std::to_string(highestMeter)) +
           line("units:unit", "units:db");
}

std::string portBody(const Port& port, std::size_t channels)
{
    if (port.isAudio())
        return audioPort(port, channels);
    if (port.isMeter())
        return meterPort();
    if (port.role == PortRole::Parameter)
        return parameterPort(port.number);
    return port.role == PortRole::Enabled ? enabledPort() : latencyPort();
}

std::string ports(std::size_t channels)
{
    std::string text;
    const std::vector<Port> all = portsOf(channels);
    for (std::size_t i = 0; i < all.size(); ++i) {
        text += i == 0 ? "    lv2:port [\n" : " , [\n";
        text += portBody(all[i], channels) + line("lv2:index", std::to_string(i)) +
                line("lv2:symbol", quoted(symbolOf(all[i], channels))) + "        lv2:name " +
                quoted(nameOf(all[i], channels)) + "\n    ]";
    }
    return text + " .\n\n";
}

std::string plugin(const char* name, std::size_t channels, const std::string& version)
{
    const std::size_t dot = version.find('.');
    const std::string group = channels == 1 ? "mono_" : "";
    return uri(name) + "\n    a lv2:Plugin , lv2:EQPlugin , doap:Project ;\n" + "    doap:name " +
           quoted(channels == 1 ? "Zolta Equalizer Mono" : "Zolta Equalizer") +
           " ;\n    doap:license <http://usefulinc.com/doap/licenses/gpl> ;\n"
           "    doap:maintainer [ foaf:name \"The Zolta developers\" ] ;\n"
           "    rdfs:comment \"A channel equalizer: two shelves or passes, four middle bands, "
           "levels "
           "and drive\" ;\n"
           "    lv2:minorVersion " +
           version.substr(0, dot) + " ;\n    lv2:microVersion " +
           version.substr(version.rfind('.') + 1) +
           " ;\n    lv2:optionalFeature lv2:hardRTCapable ;\n    ui:ui " + uri(uiUri) +
           " ;\n    pg:mainInput " + groupUri(group + "input") + " ;\n    pg:mainOutput " +
           groupUri(group + "output") + " ;\n" + ports(channels);
}

// Hosts tell an editor of the outputs that are listed here.
std::string meterNotifications(const char* name, std::size_t channels)
{
    std::string text;
    for (const Port& port : portsOf(channels)) {
        if (port.isMeter())
            text += " ;\n    ui:portNotification [ ui:plugin " + uri(name) + " ; lv2:symbol " +
                    quoted(symbolOf(port, channels)) + " ; ui:protocol ui:floatProtocol ]";
    }
    return text;
}

std::string editorTurtle()
{
    std::string text = uri(uiUri) +
                       "\n    a ui:X11UI ;\n"
                       "    lv2:requiredFeature ui:parent , ui:idleInterface ;\n"
                       "    lv2:optionalFeature ui:resize , ui:touch , opts:options ;\n"
                       "    opts:supportedOption ui:scaleFactor , param:sampleRate ;\n"
                       "    lv2:extensionData ui:idleInterface , ui:resize";
    for (const auto& [name, channels] : plugins)
        text += meterNotifications(name, channels);
    return text + " .\n\n";
}

// "Vocal de-esser" as "vocal-de-esser".
std::string presetUri(const FactoryPreset& preset)
{
    std::string text = "urn:zolta:equalizer:preset:";
    for (const char* c = preset.name; *c; ++c)
        text += std::isalnum(static_cast<unsigned char>(*c))
                    ? static_cast<char>(std::tolower(static_cast<unsigned char>(*c)))
                    : '-';
    return uri(text);
}

std::string appliesTo() { return "    lv2:appliesTo " + uri(stereoUri) + " , " + uri(monoUri); }

std::string presetTurtle(const FactoryPreset& preset)
{
    std::string text = presetUri(preset) + "\n    a pset:Preset ;\n" + appliesTo() +
                       " ;\n    rdfs:label " + quoted(preset.name) + " ;\n    rdfs:comment " +
                       quoted(preset.hint);
    const ChannelValues values = valuesOf(preset);
    for (std::size_t i = 0; i < parameterCount; ++i)
        text += (i == 0 ? " ;\n    lv2:port [ lv2:symbol " : " , [ lv2:symbol ") +
                quoted(symbolOf({PortRole::Parameter, i}, 2)) + " ; pset:value " +
                portNumber(i, values[i]) + " ]";
    return text + " .\n\n";
}

} // namespace

std::string manifestTurtle(const std::string& library, const std::string& uiLibrary)
{
    std::string text = prefixes + uri(uiUri) + "\n    a ui:X11UI ;\n    ui:binary " +
                       uri(uiLibrary) + " ;\n    rdfs:seeAlso " + uri(pluginsFile) + " .\n\n";
    for (const auto& [name, channels] : plugins)
        text += uri(name) + "\n    a lv2:Plugin ;\n    lv2:binary " + uri(library) +
                " ;\n    rdfs:seeAlso " + uri(pluginsFile) + " .\n\n";
    for (const FactoryPreset& preset : factoryPresets())
        text += presetUri(preset) + "\n    a pset:Preset ;\n" + appliesTo() +
                " ;\n    rdfs:seeAlso " + uri(presetsFile) + " .\n\n";
    return text;
}

std::string pluginsTurtle(const std::string& version)
{
    std::string text = prefixes + groups();
    for (const auto& [name, channels] : plugins)
        text += plugin(name, channels, version);
    return text + editorTurtle();
}

std::string presetsTurtle()
{
    std::string text = prefixes;
    for (const FactoryPreset& preset : factoryPresets())
        text += presetTurtle(preset);
    return text;
}

std::string portNumber(std::size_t index, int value)
{
    const Parameter& parameter = parameterTable[index];
    if (parameter.kind >= ParameterKind::Switch || parameter.kind <= ParameterKind::HighType)
        return std::to_string(value);
    const std::string text = *formatParameter(parameter, value);
    double number = std::strtod(text.c_str(), nullptr);
    if (text.back() == 'k')
        number *= 1000.0;
    char buffer[64];
    const auto end = std::to_chars(std::begin(buffer), std::end(buffer), static_cast<float>(number),
                                   std::chars_format::fixed);
    return {buffer, end.ptr};
}

float portValue(std::size_t index, int value)
{
    return std::strtof(portNumber(index, value).c_str(), nullptr);
}
