// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QPair>
#include <QString>

/// The LED meter's pictures, from all lamps lit down to none, each with the level in tenths of a
/// dB that it takes more than.
extern const QList<QPair<QString, int>> LedMeterSvgTable;

/// The picture for \a level tenths of a dB; empty for a level that is too low for any of them.
QString ledMeterSvg(int level);
