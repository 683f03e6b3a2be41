// SPDX-License-Identifier: GPL-3.0-or-later
#include "daw/vst3/ParameterList.h"

#include "daw/processor/BandName.h"
#include "engine/ChannelMeters.h"
#include "engine/Drive.h"
#include "equalizer/EqualizerBands.h"
#include "parameters/FactoryPresets.h"
#include "parameters/ParameterScale.h"
#include "parameters/ParameterText.h"

#include <algorithm>
#include <array>
#include <cmath>

using namespace Steinberg;
using Steinberg::Vst::ParameterInfo;

namespace {

using ParameterList::Id;

constexpr int maxSampleRate = 1'000'000;
constexpr int32 extraCount =
    static_cast<int32>(ParameterList::lastId - ParameterList::programId + 1);
constexpr int32 contiguous = static_cast<int32>(ParameterList::firstId + parameterCount);

const Parameter* parameterOf(Id id)
{
    const std::size_t index = ParameterList::tableIndex(id);
    return index < parameterCount ? &parameterTable[index] : nullptr;
}

bool isChoice(ParameterKind kind)
{
    return kind != ParameterKind::Frequency && kind != ParameterKind::Quality &&
           kind != ParameterKind::Decibels;
}

std::string titleOf(Id id)
{
    constexpr std::array<const char*, extraCount> extras = {
        "Program",           "Latency",           "Input meter left",
        "Input meter right", "Output meter left", "Output meter right",
        "Sampling rate",     "Channels"};
    if (const Parameter* parameter = parameterOf(id))
        return parameter->title;
    return id == ParameterList::bypassId ? "Bypass" : extras[id - ParameterList::programId];
}

int32 flagsOf(Id id)
{
    if (id == ParameterList::bypassId)
        return ParameterInfo::kCanAutomate | ParameterInfo::kIsBypass;
    if (id == ParameterList::programId)
        return ParameterInfo::kIsProgramChange | ParameterInfo::kIsList;
    const Parameter* parameter = parameterOf(id);
    if (id >= ParameterList::sampleRateId)
        return ParameterInfo::kIsReadOnly | ParameterInfo::kIsHidden;
    if (!parameter)
        return ParameterInfo::kIsReadOnly;
    const bool isList = isChoice(parameter->kind) && parameter->maximum > 1;
    return ParameterInfo::kCanAutomate | (isList ? ParameterInfo::kIsList : 0);
}

// Texts of levels have their unit already, as in the editor.
std::string unitsOf(Id id)
{
    const Parameter* parameter = parameterOf(id);
    return parameter && parameter->kind == ParameterKind::Frequency ? parameter->unit : "";
}

Vst::UnitID unitOf(Id id)
{
    const std::size_t index = ParameterList::tableIndex(id);
    if (index == parameterCount || equalizerParameters[index].band == noBand)
        return Vst::kRootUnitId;
    return equalizerParameters[index].band + 1;
}

} // namespace

int32 ParameterList::count() { return contiguous + extraCount; }

ParameterList::Id ParameterList::idAt(int32 index)
{
    const auto id = static_cast<Id>(index);
    return index < contiguous ? id : programId + id - static_cast<Id>(contiguous);
}

int32 ParameterList::indexOf(Id id)
{
    if (id < static_cast<Id>(contiguous))
        return static_cast<int32>(id);
    return id >= programId && id <= lastId ? contiguous + static_cast<int32>(id - programId)
                                           : count();
}

ParameterList::Range ParameterList::rangeOf(Id id)
{
    if (const Parameter* parameter = parameterOf(id))
        return {parameter->minimum, parameter->maximum, parameter->defaultValue,
                isChoice(parameter->kind)};
    if (id == bypassId)
        return {0, 1, 0, true};
    if (id == programId)
        return {0, programCount() - 1, 0, true};
    if (id == latencyId)
        return {0, Drive::latency, 0, false};
    if (id == sampleRateId)
        return {0, maxSampleRate, 0, false};
    if (id == channelCountId)
        return {0, 2, 0, false};
    return {MeterLevels::lowest, MeterLevels::highest, MeterLevels::lowest, false};
}

int ParameterList::valueOf(const Range& range, double normalized)
{
    const double inside = std::clamp(normalized, 0.0, 1.0);
    const int steps = range.maximum - range.minimum;
    const int step = range.isChoice ? std::min(steps, static_cast<int>(inside * (steps + 1)))
                                    : static_cast<int>(std::lround(inside * steps));
    return range.minimum + step;
}

double ParameterList::normalizedOf(const Range& range, int value)
{
    return static_cast<double>(value - range.minimum) / (range.maximum - range.minimum);
}

void ParameterList::describe(Id id, ParameterInfo* info)
{
    *info = {};
    const Range range = rangeOf(id);
    info->id = id;
    write(titleOf(id), info->title);
    write(titleOf(id), info->shortTitle);
    write(unitsOf(id), info->units);
    info->stepCount = range.isChoice ? range.maximum - range.minimum : 0;
    info->defaultNormalizedValue = normalizedOf(range, range.defaultValue);
    info->unitId = unitOf(id);
    info->flags = flagsOf(id);
}

std::string ParameterList::textOf(Id id, int value)
{
    if (const Parameter* parameter = parameterOf(id)) {
        const bool isLevel = parameter->kind == ParameterKind::Decibels;
        return formatParameter(*parameter, value).value_or("") + (isLevel ? parameter->unit : "");
    }
    if (id == bypassId)
        return value != 0 ? "On" : "Off";
    if (id == programId)
        return programName(value);
    return rangeOf(id).minimum == 0 ? std::to_string(value) : formatTenths(value) + "dB";
}

std::optional<int> ParameterList::parse(Id id, std::string_view text)
{
    if (const Parameter* parameter = parameterOf(id))
        return parseParameter(*parameter, text);
    const Range range = rangeOf(id);
    for (int value = range.minimum; range.isChoice && value <= range.maximum; ++value) {
        if (textOf(id, value) == text)
            return value;
    }
    return std::nullopt;
}

double ParameterList::plainOf(Id id, int value)
{
    if (const Parameter* parameter = parameterOf(id))
        return numberOf(parameter->kind, value);
    return rangeOf(id).minimum < 0 ? value / 10.0 : value;
}

int ParameterList::valueOfPlain(Id id, double plain)
{
    if (const Parameter* parameter = parameterOf(id))
        return stepOf(parameter->kind, plain);
    const Range range = rangeOf(id);
    const double value = range.minimum < 0 ? plain * 10.0 : plain;
    return static_cast<int>(
        std::lround(std::clamp(value, double(range.minimum), double(range.maximum))));
}

int32 ParameterList::programCount() { return static_cast<int32>(factoryPresets().size()) + 1; }

std::string ParameterList::programName(int32 program)
{
    return program == 0 ? "Default" : factoryPresets()[static_cast<std::size_t>(program - 1)].name;
}

ChannelValues ParameterList::programValues(int32 program)
{
    return program == 0 ? defaultValues()
                        : valuesOf(factoryPresets()[static_cast<std::size_t>(program - 1)]);
}

int32 ParameterList::unitCount() { return EqualizerBands::Count + 1; }

void ParameterList::describeUnit(int32 index, Vst::UnitInfo* info)
{
    const bool isRoot = index == 0;
    info->id = index;
    info->parentUnitId = isRoot ? Vst::kNoParentUnitId : Vst::kRootUnitId;
    info->programListId = isRoot ? programListId : Vst::kNoProgramListId;
    write(isRoot ? "Equalizer" : bandName(index - 1), info->name);
}

void ParameterList::write(std::string_view text, Vst::String128 target)
{
    const std::string_view fitting = text.substr(0, 127);
    std::copy(fitting.begin(), fitting.end(), target);
    target[fitting.size()] = 0;
}
