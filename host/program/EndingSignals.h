// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// The signals that end a program: Control-C, terminate, hang-up.
namespace EndingSignals {

/// Hands them to \a handler, apart from those that the program was started to ignore.
void handle(void (*handler)(int));
/// Lets them end the program again.
void release();

} // namespace EndingSignals
