// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "hosting/LibraryTrial.h"

#include <QString>

struct CommandLine;

/// What has to be settled before the application object exists.

/// The folder that this program lies in.
QString programFolder();

/// Points fontconfig at the editor's font set-up beside the program, unless the environment points
/// it somewhere already.
void chooseFonts(const QString& folder);

/// Whether windows can be opened: there is a display, or the environment names a platform.
bool canShowWindows();

/// Lets a run without windows work, and give the same pictures, whatever display there is. A
/// platform that the environment names stays.
void chooseNoDisplay();

/// Tries whether the plug-in that \a commandLine names can be loaded; it is not tried where it
/// names none, or the one that belongs to the program in \a folder. Sentences are in the language
/// that the command line names.
LibraryTrial tryPlugin(const CommandLine& commandLine, const QString& folder, int argc,
                       char* argv[]);
