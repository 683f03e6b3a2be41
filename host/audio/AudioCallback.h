// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// What makes sound out of sound while it is played.
class AudioCallback
{
public:
    virtual ~AudioCallback() = default;

    /// Called before the first process(), while none runs: the rate, and whether process() gets
    /// what comes in instead of a file.
    virtual void prepare(double hertz, bool live) = 0;

    /// Fills \a frames samples of each of \a outputCount outputs from what each of \a inputCount
    /// inputs holds, full scale 1. A buffer may be an input and an output. On the audio thread:
    /// must neither lock, allocate nor throw.
    virtual void process(const float* const* inputs, int inputCount, float* const* outputs,
                         int outputCount, int frames) = 0;
};
