// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/program/CommandLine.h"
#include "parameters/ChannelValues.h"

#include <QByteArray>
#include <QString>

#include <vector>

/// A channel's raw values without an editor: what audio is processed with where no plug-in is
/// loaded. The same files and settings give the same values as through an open editor.
namespace ChannelSettings {

using Values = ChannelValues;

/// The values that a checked state of 116 bytes restores (StateFile).
Values ofState(const QByteArray& state);

/// Reads the state or preset \a file into \a values. Returns nothing, or what is wrong with it as
/// a sentence that names it; \a values then stay.
QString load(const QString& file, Values* values);

/// Overwrites the values that \a settings name, in their order.
void apply(const std::vector<CommandLine::Setting>& settings, Values* values);

} // namespace ChannelSettings
