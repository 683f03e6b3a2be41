// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>

/// The allocation hooks of the filters: every coefficient and delay line comes from GetMem() and
/// goes back through ReleaseMem(). They forward to malloc and free and nothing else, so that a
/// program can put its own pair in their place by defining both.

/// `size` uninitialised bytes aligned for any type, or null when there is no memory.
void* GetMem(std::size_t size);

/// Gives back what GetMem() handed out; null is allowed.
void ReleaseMem(void* pointer);
