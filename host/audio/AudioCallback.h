// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// What works on sound while it is played.
class AudioCallback
{
public:
    virtual ~AudioCallback() = default;

    /// Called before the first process(), while none runs: the rate, and whether process() gets
    /// what comes in instead of a file.
    virtual void prepare(double hertz, bool live) = 0;

    /// Processes \a frames samples of each of \a channelCount channels in place, full scale 1. On
    /// the audio thread: must neither lock, allocate nor throw.
    virtual void process(float* const* channels, int channelCount, int frames) = 0;
};
