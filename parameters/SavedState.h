// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "parameters/ChannelValues.h"

#include <array>
#include <optional>
#include <span>

/// What the equalizer's component saves, for programs that know no component: byte for byte what
/// it writes and value for value what it restores. std only.
struct SavedState
{
    ChannelValues values = defaultValues(); ///< of every parameter
    /// Kept in the value that belongs to no parameter, which components write as 0 and skip.
    bool isBypassed = false;

    /// Whether both save the same.
    bool operator==(const SavedState&) const = default;
};

/// The bytes that the component would save.
std::array<unsigned char, stateSize> encodeState(const SavedState& state);

/// Nothing unless \a bytes begin with the version of a state and are as many as one has, or more.
std::optional<SavedState> decodeState(std::span<const unsigned char> bytes);
