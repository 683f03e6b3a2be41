// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// What a channel's strip in the mixer has besides the equalizer's parameters.
enum class StripParameter : std::size_t {
    Source,      ///< a value of StripSource
    Stereo,      ///< 1: the channel and its partner are one strip; the pair's first channel decides
    EqualizerOn, ///< 0: the sound goes past the equalizer
    Mute,
    Solo,
    Level,  ///< a position of the fader; see stripLevelTenths()
    Balance ///< -fullBalance (left) to fullBalance (right); see balanceGains()
};

inline constexpr std::size_t stripParameterCount = 7;

/// What the mixer has once, behind all strips.
enum class MasterParameter : std::size_t {
    Level, ///< as a strip's
    Mute,
    Dim, ///< 1: dimDecibels quieter
    Mono ///< 1: both sides play the mean of the two
};

inline constexpr std::size_t masterParameterCount = 4;

/// Where a channel's sound comes from: one of the inputs, from SourceInput1 on, or something else.
inline constexpr int inputCount = 32;
enum StripSource {
    SourceTestSignal = 0,
    SourceFile = 1,
    SourceInput1 = 2,
    SourceOff = SourceInput1 + inputCount
};

struct StripEntry
{
    const char* key;   ///< its name in sessions
    const char* title; ///< for people, in English; the translations' context is "Parameter"
    int minimum;
    int maximum;
    int defaultValue;
};

/// In the order of StripParameter, and of MasterParameter.
extern const std::array<StripEntry, stripParameterCount> stripTable;
extern const std::array<StripEntry, masterParameterCount> masterTable;

inline constexpr const StripEntry& stripEntry(StripParameter parameter)
{
    return stripTable[static_cast<std::size_t>(parameter)];
}

/// The id in the mixer's memory. Editors are not told of these parameters.
constexpr unsigned short stripId(StripParameter parameter)
{
    return static_cast<unsigned short>(0x0201 + static_cast<std::size_t>(parameter));
}
/// The same for the master, which is kept as channel 0's.
constexpr unsigned short masterId(MasterParameter parameter)
{
    return static_cast<unsigned short>(0x0301 + static_cast<std::size_t>(parameter));
}
std::optional<MasterParameter> findMasterParameter(unsigned short id);

/// The parameter with an id, or with a name in sessions; nothing if none has it.
std::optional<StripParameter> findStripParameter(unsigned short id);
std::optional<StripParameter> findStripParameter(std::string_view key);

/// The text of a value, the same in every locale: "Input 3", "On", "Stereo", "-6.0", "-inf", "L30".
/// Nothing if the parameter does not allow the value.
std::optional<std::string> formatStrip(StripParameter parameter, int value);
/// The value of a text, in any case and with blanks around it; levels with a unit or without, the
/// nearest position of the fader, beyond the range its end. Nothing for any other text.
std::optional<int> parseStrip(StripParameter parameter, std::string_view text);
std::optional<std::string> formatMaster(MasterParameter parameter, int value);
std::optional<int> parseMaster(MasterParameter parameter, std::string_view text);

/// The highest position of the fader, +10 dB, and the one of 0 dB. Position 0 is silence.
inline constexpr int highestLevel = 400;
inline constexpr int unityLevel = 300;

/// The level at a position from 1 to highestLevel, in tenths of a dB. A step is 0.1 dB down to -10
/// dB, 0.2 dB down to -30, 0.5 dB down to -60 and 1 dB down to -99.
int stripLevelTenths(int position);
/// The factor that the fader multiplies samples with at a position; 0 at 0.
double stripGain(int position);

inline constexpr int fullBalance = 100;
struct BalanceGains
{
    double left;
    double right;
};
/// The factors of the two sides: the one turned away from fades out evenly, the other one stays.
BalanceGains balanceGains(int balance);

/// How much quieter the master is while it is dimmed, in dB.
inline constexpr double dimDecibels = 20.0;
