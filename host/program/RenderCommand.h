// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

struct CommandLine;

/// What "--render" does: reads the settings, renders with a progress bar on a terminal, and says on
/// the standard error stream what went wrong. Needs an application object, but no display and no
/// plug-in. Returns the program's exit code; interrupted, it ends the program by the signal.
int renderCommand(const CommandLine& commandLine);
