// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/program/CommandLine.h"

bool CommandLine::headless() const
{
    return help || list || devices || renders() || !saveState.isEmpty() || !screenshot.isEmpty();
}
