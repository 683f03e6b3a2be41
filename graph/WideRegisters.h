// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#ifdef __x86_64__
#include <immintrin.h>
#endif

/// Ends the use of the processor's wide vector registers.
///
/// Qt 6.4's routine that fills a rectangle with a colour, which runs before a widget is painted,
/// returns with the upper halves of the AVX registers in use. On processors with AVX-512 every
/// plain double operation after it then waits for those halves: log10() takes twenty times as long.
/// Call it before longer arithmetic in a paint event.
#ifdef __x86_64__
__attribute__((target("avx"))) inline void releaseWideRegistersOfAvx() { _mm256_zeroupper(); }

inline void releaseWideRegisters()
{
    if (__builtin_cpu_supports("avx"))
        releaseWideRegistersOfAvx();
}
#else
inline void releaseWideRegisters() {}
#endif
