// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#if defined(__SSE2__)
#include <xmmintrin.h>
#endif

/// While it lives, this thread's processor counts numbers next to 0 as 0. They would make filters
/// that fade into silence many times slower, and nobody hears them.
class NoDenormals
{
public:
#if defined(__SSE2__)
    NoDenormals()
        : m_before(_mm_getcsr())
    {
        constexpr unsigned int flushToZero = 0x8000;
        constexpr unsigned int denormalsAreZero = 0x0040;
        _mm_setcsr(m_before | flushToZero | denormalsAreZero);
    }
    ~NoDenormals() { _mm_setcsr(m_before); }
#else
    NoDenormals() = default;
    ~NoDenormals() {}
#endif
    NoDenormals(const NoDenormals&) = delete;
    NoDenormals& operator=(const NoDenormals&) = delete;

#if defined(__SSE2__)
private:
    unsigned int m_before;
#endif
};
