// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/Lifetime.h"

#include <utility>

using CommonController_MemAPI::Lifetime;

Lifetime::Guard::Guard(Lifetime& lifetime)
    : m_lifetime(&lifetime)
    , m_outer(std::exchange(lifetime.m_innermost, this))
{}

Lifetime::Guard::~Guard()
{
    if (m_lifetime)
        m_lifetime->m_innermost = m_outer;
}

Lifetime::~Lifetime()
{
    for (Guard* guard = m_innermost; guard; guard = guard->m_outer)
        guard->m_lifetime = nullptr;
}
