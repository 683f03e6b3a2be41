// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "widgets/Export.h"

namespace CommonController_MemAPI {

/// The life of an object that calls code which may destroy it: a member of the object, asked
/// through guards on the stack. Host calls, signals, moves of the focus and the virtual functions
/// of derived classes are such code.
///
///     const Lifetime::Guard alive(lifetime());
///     openEdit();
///     if (alive)
///         closeEdit();
class ZOLTA_EXPORT Lifetime
{
public:
    /// False as soon as the object is destroyed. Guards of one object end in the reverse order of
    /// their beginning, as automatic variables do.
    class Guard
    {
    public:
        /// Watches \a lifetime from here on.
        explicit Guard(Lifetime& lifetime);
        ~Guard();
        Guard(const Guard&) = delete;
        Guard& operator=(const Guard&) = delete;

        /// Whether the object is still there.
        explicit operator bool() const { return m_lifetime != nullptr; }

    private:
        friend class Lifetime;
        Lifetime* m_lifetime;
        Guard* m_outer;
    };

    Lifetime() = default;
    ~Lifetime();
    Lifetime(const Lifetime&) = delete;
    Lifetime& operator=(const Lifetime&) = delete;

private:
    Guard* m_innermost = nullptr;
};

} // namespace CommonController_MemAPI
