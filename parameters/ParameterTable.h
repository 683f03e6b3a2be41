// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "equalizer/EqualizerParameters.h"

#include <array>
#include <cstddef>
#include <string_view>

/// What a parameter measures; it decides how raw values read as text (ParameterText).
enum class ParameterKind {
    LowType,   ///< 0 second-order pass, 1 first-order pass, 2 first-order shelf, 3 second-order
    HighType,  ///< the same, mirrored
    Frequency, ///< 20 Hz to 20 kHz, 400 steps a decade
    Quality,   ///< 0.5 to 16, 100 steps an octave
    Decibels,  ///< tenths of a dB, -20.0 to +20.0
    Switch,    ///< 0 off, 1 on
    Drive      ///< 0 clean, 1 drive
};

/// One parameter of the equalizer, as this mixer keeps it; what it holds is in
/// equalizerParameters at the same index.
struct Parameter
{
    const char* name;   ///< the name that editors look it up by
    const char* title;  ///< for people, in English; the translations' context is "Parameter"
    ParameterKind kind; ///< what it measures
    int minimum;        ///< the lowest raw value
    int maximum;        ///< the highest raw value
    int defaultValue;   ///< the raw value of a reset
    const char* unit;   ///< what people read after the text; empty for none

    /// Whether a raw value is in its range.
    constexpr bool allows(int value) const { return value >= minimum && value <= maximum; }
};

/// A mixer has so many channels, always an even number: they come in stereo pairs (0 and 1, 2 and
/// 3, ...). How many it has now is HostMemory's to say; a new one has defaultChannelCount.
/// @{
inline constexpr int minChannelCount = 2;
inline constexpr int maxChannelCount = 32;
inline constexpr int defaultChannelCount = 8;
constexpr bool isChannelCount(int count)
{
    return count >= minChannelCount && count <= maxChannelCount && count % 2 == 0;
}
/// @}

/// The other channel of the pair that \a channel belongs to.
constexpr int partnerOf(int channel) { return channel ^ 1; }

/// Every channel has these parameters; a parameter's index is its place in here and in
/// equalizerParameters.
extern const std::array<Parameter, parameterCount> parameterTable;

/// The two words of the address of the parameter at \a index.
/// @{
constexpr unsigned short parameterId(std::size_t index)
{
    return static_cast<unsigned short>(0x0101 + index);
}
constexpr unsigned short parameterSecondWord(std::size_t index)
{
    return static_cast<unsigned short>(0x4001 + index);
}
/// @}

/// The index of the parameter called \a name, or with the id \a id; parameterCount if none is.
/// @{
std::size_t findParameterByName(std::string_view name);
std::size_t findParameterById(unsigned short id);
/// @}
