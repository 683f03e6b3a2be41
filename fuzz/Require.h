// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "parameters/ChannelValues.h"
#include "parameters/ParameterTable.h"

#include <cstdlib>

/// What a fuzzer finds wrong ends the program.
inline void require(bool condition)
{
    if (!condition)
        std::abort();
}

/// Whether every value of an equalizer is one that its parameter allows.
inline bool areAllowed(const ChannelValues& values)
{
    for (std::size_t i = 0; i < parameterCount; ++i) {
        if (!parameterTable[i].allows(values[i]))
            return false;
    }
    return true;
}
