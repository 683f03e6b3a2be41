// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

/// A configuration with which "pipewire -c" is the equalizer for everything that the desktop plays,
/// without a window: the stereo plug-in in a filter chain behind a sink. It lists every parameter
/// with its default and its range, for users to change.
std::string filterChainText();
