// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "hosting/LibraryTrial.h"

struct CommandLine;

/// Tries whether the plug-in that \a commandLine names can be loaded; it is not tried where it
/// names none, or the one that belongs to the program in \a folder. Sentences are in the language
/// that the command line names.
LibraryTrial tryPlugin(const CommandLine& commandLine, const QString& folder, int argc,
                       char* argv[]);
