// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/ChannelMeters.h"
#include "parameters/ParameterTable.h"

#include <array>

/// Where meter readings come from: the built-in signal, or audio.
class MeterProducer
{
public:
    virtual ~MeterProducer() = default;

    /// The meters of \a channel, \a seconds after the reading before. \a values are the channel's
    /// raw values, \a sampleRate is in Hz. Asked on the GUI thread, only while somebody looks.
    virtual MeterLevels read(int channel, const std::array<int, parameterCount>& values,
                             int sampleRate, double seconds) = 0;
    /// Whether no more than silence can come until somebody changes something.
    virtual bool isResting() const { return false; }
};
