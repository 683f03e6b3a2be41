// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/program/ChannelSettings.h"

#include "hosting/StateFile.h"

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

// Single precision up to the rounding, as the component restores it.
int rawOf(const Parameter& parameter, float unit)
{
    const float steps = static_cast<float>(parameter.maximum - parameter.minimum) * unit;
    const auto rounded = static_cast<std::int64_t>(static_cast<double>(steps) + 0.5);
    return static_cast<int>(std::clamp<std::int64_t>(parameter.minimum + rounded, parameter.minimum,
                                                     parameter.maximum));
}

} // namespace

Values ChannelSettings::ofState(const QByteArray& state)
{
    Values values = defaultValues();
    for (std::size_t entry = 0; entry < StateFile::order.size(); ++entry) {
        const char* bytes = state.constData() + versionSize + entry * sizeof(float);
        const std::size_t index = static_cast<std::size_t>(StateFile::order[entry]) - 1;
        values[index] = rawOf(parameterTable[index], qFromBigEndian<float>(bytes));
    }
    return values;
}

QString ChannelSettings::load(const QString& file, Values* values)
{
    const StateFile::Content content = StateFile(file, editorClass()).read();
    if (content.error.isEmpty())
        *values = ofState(content.state);
    return content.error;
}

void ChannelSettings::apply(const std::vector<CommandLine::Setting>& settings, Values* values)
{
    for (const CommandLine::Setting& setting : settings)
        (*values)[setting.parameter] = setting.value;
}
