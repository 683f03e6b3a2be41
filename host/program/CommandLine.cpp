// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/program/CommandLine.h"

bool CommandLine::headless() const
{
    return help || version || list || devices || renders() || !saveState.isEmpty() ||
           !screenshot.isEmpty();
}
