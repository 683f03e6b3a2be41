// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <span>

/// What fills a sound device's buffers, on the audio thread.
class AudioCallback
{
public:
    /// Fills \a frames samples of each of \a outputs, full scale 1. \a inputs holds as many samples
    /// of what comes in; there are none unless the device was opened for that. Must neither lock,
    /// allocate nor throw.
    virtual void process(std::span<const float* const> inputs, std::span<float* const> outputs,
                         std::size_t frames) = 0;

protected:
    ~AudioCallback() = default;
};
