// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

/// What workstations call the group of a band's parameters: "Low", "Middle 1", "High".
std::string bandName(int band);
