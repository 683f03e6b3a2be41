// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPoint>
#include <Qt>

namespace CommonController_MemAPI {

/// A drag that changes a value by whole steps: right and up raise it, left and down lower it.
/// Points are whole pixels of the control.
class LinearDrag
{
public:
    /// How much slower a fine drag is.
    static constexpr double FineDivisor = 4.0;

    /// Whether \a modifiers ask for a fine drag: Shift and nothing else.
    static bool isFine(Qt::KeyboardModifiers modifiers) { return modifiers == Qt::ShiftModifier; }
    /// The pixels of one step, 1 to 20: 200 for the whole range, in whole pixels.
    static int pixelsPerStep(int minimum, int maximum);

    /// Starts at \a point with \a value.
    void begin(QPoint point, int value, bool fine);
    /// Starts again where the pointer was last, so that a change of fineness makes no jump.
    void reanchor(int value, bool fine);
    void setLastPoint(QPoint point) { m_last = point; }

    bool isFine() const { return m_fine; }
    QPoint lastPoint() const { return m_last; }

    /// The value for the pointer at \a point: each step counts \a valueStep, or 1 when fine.
    /// \a scale is the control's zoom factor. May lie outside the range.
    int valueAt(QPoint point, int minimum, int maximum, double scale, int valueStep) const;

private:
    QPoint m_press;
    QPoint m_last;
    int m_startValue = 0;
    bool m_fine = false;
};

} // namespace CommonController_MemAPI
