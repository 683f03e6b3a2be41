// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>

/// What a plug-in and the program that shows its editor say to each other.
enum class MessageKind : std::uint16_t {
    Value,      ///< both ways: parameter \c index holds the raw \c value
    Begin,      ///< from the editor: a gesture on parameter \c index begins
    End,        ///< from the editor: the gesture on parameter \c index ends
    Meter,      ///< to the editor: meter \c index (MeterPlace) reads \c value, in tenths of a dB
    SampleRate, ///< to the editor: \c value, in Hz
    Size,       ///< to the editor: the window is \c index wide and \c value high, in pixels
    Ready       ///< from the editor: it is shown
};

/// The meters that an editor shows, before and after the equalizer; a mono one has the left ones.
enum MeterPlace : std::uint16_t { InLeft, InRight, OutLeft, OutRight, MeterPlaceCount };

struct Message
{
    MessageKind kind;
    std::uint16_t index;
    std::int32_t value;

    bool operator==(const Message&) const = default;
};
static_assert(sizeof(Message) == 8);

/// Whether a message is one that either side sends: indices that exist, values within their ranges.
bool isValid(const Message& message);
