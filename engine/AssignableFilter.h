// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// A filter that can be assigned, which the filters themselves cannot by accident: it becomes as
/// the other one is, with what that has heard and with changes under way. Assigning does not
/// allocate.
template <typename Filter> class AssignableFilter : public Filter
{
public:
    AssignableFilter() = default;
    AssignableFilter& operator=(const AssignableFilter& other)
    {
        this->copyFrom(other);
        return *this;
    }
};
