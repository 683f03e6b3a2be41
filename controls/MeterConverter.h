// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "widgets/Export.h"

/// Converts meter readings into the number of lit segments of a segmented scale. There are scales
/// of 30, 37, 49 and 53 segments; a segment is lit when the reading reaches its threshold. The last
/// segment of each lies above any regular reading.
class ZOLTA_EXPORT MeterConverter
{
public:
    /// \a value's low 16 bits, as a signed number, are tenths of a dB. False, with \a segments left
    /// alone, if there is no scale of \a segmentCount segments.
    static bool convertDB2SegNum(unsigned short segmentCount, unsigned int value,
                                 unsigned short& segments);

    /// The same for a linear level: \a value's low 16 bits as an unsigned number.
    static bool convertLevel2SegNum(unsigned short segmentCount, unsigned int value,
                                    unsigned short& segments);
};
