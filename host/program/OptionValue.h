// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/program/CommandLine.h"
#include "hosting/Result.h"

#include <QString>

/// The values of the command line's options. Each function reads \a text, the value of "--option",
/// and writes it only where it is valid.
namespace OptionValue {

Status readFile(const char* option, const QString& text, QString* file);
Status readInteger(const char* option, const QString& text, int minimum, int maximum, int* value);
Status readNumber(const char* option, const QString& text, double minimum, double maximum,
                  double* value);
/// What isChannelCount() allows.
Status readChannelCount(const char* option, const QString& text, int* count);
/// Whether the channel that \a line names is one of \a count.
Status checkChannel(const CommandLine& line, int count);
/// "on" or "off".
Status readSwitch(const char* option, const QString& text, std::optional<bool>* on);
Status readLanguage(const char* option, const QString& text, Language* language);
/// "NAME=TEXT" or "NAME=@N", which is appended.
Status readSetting(const QString& text, std::vector<CommandLine::Setting>* settings);

} // namespace OptionValue
