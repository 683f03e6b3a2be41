// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/audio/ChannelSettings.h"

#include "host/StateFile.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <cstdint>

namespace {

using Values = ChannelSettings::Values;

constexpr std::size_t versionSize = 4;

const Steinberg::FUID& editorClass()
{
    static const Steinberg::FUID uid(0x56535464, 0x78704265, 0x7175616C, 0x697A6572);
    return uid;
}

// The parameters' numbers in the order in which the editor's component saves them: the first five
// bands downwards, the high band upwards.
constexpr std::array<std::size_t, parameterCount> savedOrder = {4,  3,  2,  1,  8,  7,  6,  5,  12,
                                                                11, 10, 9,  16, 15, 14, 13, 20, 19,
                                                                18, 17, 21, 22, 23, 24, 25, 26, 27};

// Single precision up to the rounding, as the component restores it.
int rawOf(const Parameter& parameter, float unit)
{
    const float steps = static_cast<float>(parameter.maximum - parameter.minimum) * unit;
    const auto rounded = static_cast<std::int64_t>(static_cast<double>(steps) + 0.5);
    return static_cast<int>(std::clamp<std::int64_t>(parameter.minimum + rounded, parameter.minimum,
                                                     parameter.maximum));
}

} // namespace

Values ChannelSettings::defaults()
{
    Values values{};
    std::transform(parameterTable.begin(), parameterTable.end(), values.begin(),
                   [](const Parameter& parameter) { return parameter.defaultValue; });
    return values;
}

Values ChannelSettings::ofState(const QByteArray& state)
{
    Values values = defaults();
    for (std::size_t entry = 0; entry < savedOrder.size(); ++entry) {
        const char* bytes = state.constData() + versionSize + entry * sizeof(float);
        const std::size_t index = savedOrder[entry] - 1;
        values[index] = rawOf(parameterTable[index], qFromBigEndian<float>(bytes));
    }
    return values;
}

QString ChannelSettings::load(const QString& file, Values* values)
{
    const StateFile::Content content = StateFile(file, editorClass()).read();
    if (content.fault.isEmpty())
        *values = ofState(content.state);
    return content.fault;
}

void ChannelSettings::apply(const std::vector<CommandLine::Setting>& settings, Values* values)
{
    for (const CommandLine::Setting& setting : settings)
        (*values)[setting.parameter] = setting.value;
}
