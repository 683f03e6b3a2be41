// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#ifdef __SSE2__
#include <xmmintrin.h>
#endif

/// While it lives, results and operands too small for full precision count as zero on this thread.
/// A filter that fades into silence would otherwise end in numbers that the processor computes many
/// times slower. Only x86 needs it; elsewhere it does nothing.
class DenormalGuard
{
public:
#ifdef __SSE2__
    DenormalGuard()
        : m_control(_mm_getcsr())
    {
        _mm_setcsr(m_control | flushResults | flushOperands);
    }
    ~DenormalGuard() { _mm_setcsr(m_control); }
#else
    DenormalGuard() {}
    ~DenormalGuard() {}
#endif
    DenormalGuard(const DenormalGuard&) = delete;
    DenormalGuard& operator=(const DenormalGuard&) = delete;

private:
#ifdef __SSE2__
    static constexpr unsigned int flushResults = 0x8000;
    static constexpr unsigned int flushOperands = 0x0040;

    unsigned int m_control;
#endif
};
