// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/window/AnalyzerPlot.h"

#include <QColor>
#include <QList>
#include <QString>

class QPainter;
class QSize;

/// How an analyzer looks: its colours and what stands still in it.
namespace AnalyzerPainting {

inline constexpr QColor fillColor{0x03, 0x94, 0xd0, 0x70};
inline constexpr QColor afterColor{0x35, 0xb6, 0xee};
inline constexpr QColor beforeColor{0x9a, 0xa2, 0xaa, 0xc8};
inline constexpr QColor peakColor{0xfe, 0xba, 0x24, 0xb8};
inline constexpr QColor curveColor{0xf0, 0xf3, 0xf6, 0xe8};

/// What a colour stands for.
struct Entry
{
    QString text;
    QColor color;
    bool isDots = false;
};

/// What the cursor reads off.
struct Line
{
    QString label;
    QString value;
};

/// The panel of so many pixels, the glass in it, the grid and its numbers; those of the curve's
/// scale only where the curve is shown.
void drawGround(QPainter& painter, const QSize& size, const AnalyzerPlot& plot, bool hasCurve);
/// Above the plot, from its left edge as far as \a end.
void drawLegend(QPainter& painter, const AnalyzerPlot& plot, const QList<Entry>& entries,
                double end);
/// The cursor, and what it reads: beside the plot, or where there is no room, above it.
void drawCursor(QPainter& painter, const AnalyzerPlot& plot, double frequency);
void drawReadout(QPainter& painter, const QSize& size, const AnalyzerPlot& plot,
                 const QList<Line>& lines);
/// A sentence in the middle of an empty plot.
void drawHint(QPainter& painter, const AnalyzerPlot& plot, const QString& text);

/// Says that the keyboard reads here.
void drawFocus(QPainter& painter, const QSize& size);

} // namespace AnalyzerPainting
