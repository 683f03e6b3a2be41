// SPDX-License-Identifier: GPL-3.0-or-later
#include "daw/vst3/PointReader.h"

#include <algorithm>
#include <cmath>

using namespace Steinberg;

PointReader::PointReader(Vst::IParameterChanges* changes)
{
    const int32 queues = changes ? changes->getParameterCount() : 0;
    for (int32 i = 0; i < queues && m_count < maxQueues; ++i) {
        Vst::IParamValueQueue* queue = changes->getParameterData(i);
        if (!queue)
            continue;
        Cursor& cursor = m_cursors[m_count];
        cursor = {queue, 0, {queue->getParameterId(), 0, 0.0}};
        m_count += advance(&cursor) ? 1U : 0U;
    }
}

PointReader::Point PointReader::take()
{
    Cursor* cursor = &m_cursors[first()];
    const Point point = cursor->point;
    if (!advance(cursor)) {
        std::move(cursor + 1, m_cursors.data() + m_count, cursor);
        --m_count;
    }
    return point;
}

bool PointReader::advance(Cursor* cursor)
{
    const int32 reached = cursor->point.offset;
    const int32 points = cursor->queue->getPointCount();
    while (cursor->next < points) {
        Point& point = cursor->point;
        if (cursor->queue->getPoint(cursor->next++, point.offset, point.value) != kResultOk ||
            std::isnan(point.value))
            continue;
        point.offset = std::max(point.offset, reached);
        return true;
    }
    return false;
}

// Of several at one place the one whose parameter comes first in the block's list.
std::size_t PointReader::first() const
{
    std::size_t found = 0;
    for (std::size_t i = 1; i < m_count; ++i) {
        if (m_cursors[i].point.offset < m_cursors[found].point.offset)
            found = i;
    }
    return found;
}
