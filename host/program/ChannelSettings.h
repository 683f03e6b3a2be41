// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/program/CommandLine.h"
#include "hosting/Result.h"
#include "parameters/ChannelValues.h"

#include <QString>

#include <vector>

/// A channel's raw values without an editor: what audio is processed with where no plug-in is
/// loaded. The same files and settings give the same values as through an open editor.
namespace ChannelSettings {

/// Reads the state or preset \a file into \a values, which stay where that fails.
[[nodiscard]] Status load(const QString& file, ChannelValues* values);

/// Overwrites the values that \a settings name, in their order.
void apply(const std::vector<CommandLine::Setting>& settings, ChannelValues* values);

} // namespace ChannelSettings
