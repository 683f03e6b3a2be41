// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// While it lives, the signals that end a program (Control-C, hang-up, terminate) are only noted,
/// so that a work under way can put its files in order first. One at a time.
class Interruption
{
public:
    Interruption();
    ~Interruption();
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

    static bool isWanted();
    /// Ends this program by the signal that was noted, as whoever sent it expects.
    static void obey();
};
