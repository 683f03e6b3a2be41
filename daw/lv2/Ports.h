// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "parameters/ParameterTable.h"

#include <cstddef>
#include <string>
#include <vector>

/// The ports of the LV2 plug-ins, one with two channels and one with one. Indices, symbols and
/// ranges are in every session that uses the plug-ins, so they never change. std only.

inline constexpr const char* stereoUri = "urn:zolta:equalizer";
inline constexpr const char* monoUri = "urn:zolta:equalizer-mono";
/// The editor of both.
inline constexpr const char* uiUri = "urn:zolta:equalizer#ui";

enum class PortRole {
    AudioInput,
    AudioOutput,
    Parameter,   ///< of the equalizer, in Hz, dB or Q, or the number of a choice
    Enabled,     ///< 1: the sound goes through the equalizer, 0: past it
    Latency,     ///< in samples
    InputMeter,  ///< in dB of full scale, behind the input level
    OutputMeter, ///< in dB of full scale
};

struct Port
{
    PortRole role;
    std::size_t number; ///< of the channel, or the parameter's index in parameterTable

    bool isAudio() const { return role <= PortRole::AudioOutput; }
    bool isMeter() const { return role >= PortRole::InputMeter; }
    bool operator==(const Port&) const = default;
};

/// What the meters' ports show at the least and at the most.
inline constexpr int lowestMeter = -127;
inline constexpr int highestMeter = 20;

/// The ports of the plug-in with 1 or 2 channels, by index.
std::vector<Port> portsOf(std::size_t channels);

/// "low_frequency", "in_l"; of a mono plug-in "in".
std::string symbolOf(const Port& port, std::size_t channels);
/// What people read: "Low frequency", "Left input".
std::string nameOf(const Port& port, std::size_t channels);

/// The symbols of the group that a band's parameters are in: "low", "middle_1".
std::string bandSymbol(int band);
