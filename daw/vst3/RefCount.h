// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <pluginterfaces/base/funknown.h>

#include <atomic>
#include <cstring>

/// How many hold an object. It begins with its creator.
class RefCount
{
public:
    Steinberg::uint32 add() { return ++m_count; }
    /// At 0 the object is to be deleted.
    Steinberg::uint32 remove() { return --m_count; }

private:
    std::atomic<Steinberg::uint32> m_count = 1;
};

/// Answers a query for \a Interface with \a object, if it is for that.
template <typename Interface>
bool answerQuery(const Steinberg::TUID asked, const Steinberg::TUID iid, Interface* object,
                 void** result)
{
    if (std::memcmp(asked, iid, sizeof(Steinberg::TUID)) != 0)
        return false;
    object->addRef();
    *result = object;
    return true;
}
