// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "parameters/ChannelValues.h"

#include <pluginterfaces/vst/ivsteditcontroller.h>
#include <pluginterfaces/vst/ivstunits.h>

#include <optional>
#include <string>
#include <string_view>

/// The parameters that a VST 3 workstation sees: the bypass, the equalizer's 27 by the numbers in
/// their names, a program for each factory preset, and what only the processor sets: the latency,
/// the meters, and, hidden, what the editor must know of the sound. Ids are in every session that
/// uses the plug-in, so they never change.
namespace ParameterList {

using Id = Steinberg::Vst::ParamID;

inline constexpr Id bypassId = 0;
inline constexpr Id firstId = 1;
inline constexpr Id programId = 100;
inline constexpr Id latencyId = 101;     ///< in samples
inline constexpr Id inputMeterId = 102;  ///< of the left channel; the right one's follows
inline constexpr Id outputMeterId = 104; ///< likewise; in tenths of a dB as MeterLevels
inline constexpr Id sampleRateId = 106;  ///< in Hz; 0 before any sound
inline constexpr Id channelCountId = 107;
inline constexpr Id lastId = channelCountId;

/// The place of an equalizer's parameter in parameterTable; parameterCount for any other id.
constexpr std::size_t tableIndex(Id id)
{
    return id >= firstId && id < firstId + parameterCount ? id - firstId : parameterCount;
}

/// The id of the parameter at a place in parameterTable.
constexpr Id idOf(std::size_t tableIndex) { return firstId + static_cast<Id>(tableIndex); }

/// How many there are, and the id of the one at \a index.
Steinberg::int32 count();
Id idAt(Steinberg::int32 index);
/// The place of an id, count() for one that nothing has.
Steinberg::int32 indexOf(Id id);

/// What a parameter can be, in whole steps; of choices each has an equal share of what a
/// workstation sets, other steps are taken to the nearest.
struct Range
{
    int minimum;
    int maximum;
    int defaultValue;
    bool isChoice;
};
/// Of an id that exists. Neither allocates nor locks.
Range rangeOf(Id id);

/// The value of a number from 0 to 1, which is not NaN, and back.
int valueOf(const Range& range, double normalized);
double normalizedOf(const Range& range, int value);

void describe(Id id, Steinberg::Vst::ParameterInfo* info);
/// What people read of a value, and the value of what they type.
std::string textOf(Id id, int value);
std::optional<int> parse(Id id, std::string_view text);
/// What a value stands for: Hz, Q, dB, samples, or the number of a choice; and the nearest value.
double plainOf(Id id, int value);
int valueOfPlain(Id id, double plain);

/// Programs: first the defaults, then the factory presets.
Steinberg::int32 programCount();
std::string programName(Steinberg::int32 program);
ChannelValues programValues(Steinberg::int32 program);

inline constexpr Steinberg::Vst::ProgramListID programListId = 1;

/// Units: the whole, and one for each band.
Steinberg::int32 unitCount();
void describeUnit(Steinberg::int32 index, Steinberg::Vst::UnitInfo* info);

/// \a text, which is ASCII, as the SDK has texts, cut where it does not fit.
void write(std::string_view text, Steinberg::Vst::String128 target);

} // namespace ParameterList
