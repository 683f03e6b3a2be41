// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/program/CommandLine.h"
#include "hosting/Result.h"

#include <QStringList>

/// From the program's arguments to what they ask for. Sentences are in the language that the
/// application's translators speak; English where there is no application object, as while a
/// program starts.
namespace CommandLineParser {

/// The arguments of main() as text. Names of files that are not valid UTF-8 are an error: as text
/// they would name another file.
Result<QStringList> decode(int argc, const char* const argv[]);

/// \a arguments begin with the program's name. Where help is asked for, nothing else counts.
Result<CommandLine> parse(const QStringList& arguments);

/// The language that \a arguments name, even where others of them are wrong: parsing again with its
/// translators gives the error in that language. English where they name none.
Language languageIn(const QStringList& arguments);

/// What "--help" prints. In English, it is the source of the manual page and of the completion.
QString helpText();

} // namespace CommandLineParser
