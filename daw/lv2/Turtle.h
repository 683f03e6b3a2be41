// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

/// What an LV2 bundle says about its plug-ins in Turtle, one text a file.

/// manifest.ttl: which plug-ins and presets there are, and the files that say more. \a library is
/// the name of the library in the bundle.
std::string manifestTurtle(const std::string& library);
/// Both plug-ins with their ports; \a version is the project's, "2.0.0".
std::string pluginsTurtle(const std::string& version);
/// The factory presets, for both plug-ins.
std::string presetsTurtle();

/// The number that a port takes for a raw value of the parameter at \a index in parameterTable: the
/// roundest that names it, as people read it.
std::string portNumber(std::size_t index, int value);
