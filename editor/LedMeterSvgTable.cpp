// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/LedMeterSvgTable.h"

#include <algorithm>

const QList<QPair<QString, int>> LedMeterSvgTable = {
    {QStringLiteral(":/image/zolta/meter_11.svg"), 0},
    {QStringLiteral(":/image/zolta/meter_10.svg"), -30},
    {QStringLiteral(":/image/zolta/meter_9.svg"), -60},
    {QStringLiteral(":/image/zolta/meter_8.svg"), -90},
    {QStringLiteral(":/image/zolta/meter_7.svg"), -120},
    {QStringLiteral(":/image/zolta/meter_6.svg"), -150},
    {QStringLiteral(":/image/zolta/meter_5.svg"), -180},
    {QStringLiteral(":/image/zolta/meter_4.svg"), -210},
    {QStringLiteral(":/image/zolta/meter_3.svg"), -240},
    {QStringLiteral(":/image/zolta/meter_2.svg"), -270},
    {QStringLiteral(":/image/zolta/meter_1.svg"), -300},
    {QStringLiteral(":/image/zolta/meter_0.svg"), -1271},
};

QString ledMeterSvg(int level)
{
    const auto row = std::find_if(LedMeterSvgTable.begin(), LedMeterSvgTable.end(),
                                  [level](const auto& entry) { return entry.second < level; });
    return row == LedMeterSvgTable.end() ? QString() : row->first;
}
