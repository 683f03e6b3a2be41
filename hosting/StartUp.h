// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

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
