// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

/// What an LV2 bundle says about its plug-ins in Turtle, one text a file.

/// manifest.ttl: which plug-ins, editors and presets there are, and the files that say more.
/// \a library and \a uiLibrary are the names of the libraries in the bundle.
std::string manifestTurtle(const std::string& library, const std::string& uiLibrary);
/// Both plug-ins with their ports, and their editor; \a version is the project's, "2.0.0".
std::string pluginsTurtle(const std::string& version);
/// The factory presets, for both plug-ins.
std::string presetsTurtle();

/// The number that a port takes for a raw value of the parameter at \a index in parameterTable: the
/// roundest that names it, as people read it.
std::string portNumber(std::size_t index, int value);
/// The same as a number.
float portValue(std::size_t index, int value);
