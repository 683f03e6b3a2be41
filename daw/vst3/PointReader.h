// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <pluginterfaces/vst/ivstparameterchanges.h>

#include <array>
#include <optional>
#include <span>

/// Reads the points of a block's automation in the order of their places, all parameters together.
/// Neither allocates nor locks. A point before the one that was read last counts as being there;
/// points that are not numbers are left out. Of more than maxQueues changing parameters the others
/// are.
class PointReader
{
public:
    static constexpr std::size_t maxQueues = 64;

    struct Point
    {
        Steinberg::Vst::ParamID id;
        Steinberg::int32 offset; ///< in samples from the block's start
        double value;            ///< 0 to 1
    };

    /// \a changes may be null.
    explicit PointReader(Steinberg::Vst::IParameterChanges* changes);

    /// The place of the next point; nothing behind the last one.
    std::optional<Steinberg::int32> nextOffset() const
    {
        return m_count > 0 ? std::optional(m_cursors[first()].point.offset) : std::nullopt;
    }
    /// Takes the next point; only where there is one.
    Point take();

private:
    struct Cursor
    {
        Steinberg::Vst::IParamValueQueue* queue;
        Steinberg::int32 next; ///< the index behind point's
        Point point;
    };

    static bool advance(Cursor* cursor);
    std::size_t first() const;

    std::array<Cursor, maxQueues> m_cursors;
    std::size_t m_count = 0; // cursors that have a point
};
