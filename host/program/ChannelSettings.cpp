// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/program/ChannelSettings.h"

#include "hosting/RestoredValues.h"
#include "hosting/StateFile.h"

Status ChannelSettings::load(const QString& file, ChannelValues* values)
{
    const Result<QByteArray> state = StateFile(file).read();
    if (state.isOk())
        *values = restoredValues(state.value());
    return state.status();
}

void ChannelSettings::apply(const std::vector<CommandLine::Setting>& settings,
                            ChannelValues* values)
{
    for (const CommandLine::Setting& setting : settings)
        (*values)[setting.parameter] = setting.value;
}
