// SPDX-License-Identifier: GPL-3.0-or-later
#include "equalizer/Memory.h"

#include <cstdlib>

void* GetMem(std::size_t size) { return std::malloc(size); }

void ReleaseMem(void* pointer) { std::free(pointer); }
