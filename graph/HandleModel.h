// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "equalizer/EqualizerParameters.h"
#include "graph/EditTarget.h"

#include <QPoint>
#include <QRectF>

#include <optional>

class EqualizerBands;

/// The handles of the curve, as assistive technology reads and operates them. All places are in the
/// graph's own pixels.
class HandleModel
{
public:
    /// What the graph shows of the bands.
    virtual const EqualizerBands& bands() const = 0;
    /// What the focus mark of \a target covers; empty for a band that is off or whose handle lies
    /// outside the plot.
    virtual QRectF handleRect(EditTarget target) const = 0;
    /// The band whose handle is nearest to \a point, among those that are on; none outside the
    /// plot.
    virtual EditTarget getPointTarget(const QPoint& point) const = 0;

    /// The handle with the keyboard's focus.
    virtual EditTarget focusedHandle() const = 0;
    /// Gives the keyboard's focus to the handle of \a target. False, and nothing changes, for a
    /// band that is off and while the graph is disabled.
    virtual bool focusHandle(EditTarget target) = 0;

    /// Moves the host's raw value by \a count, within its range; nothing happens where the band has
    /// no such field or the host does not tell value and range.
    virtual void stepHandle(EditTarget target, EqualizerField field, int count) = 0;
    /// Writes the raw value nearest to a frequency in Hz or a gain in dB.
    virtual void setHandle(EditTarget target, EqualizerField field, double value) = 0;
    /// What the next raw step upward adds to the frequency in Hz or the gain in dB.
    virtual std::optional<double> stepSize(EditTarget target, EqualizerField field) const = 0;

    /// The least and the greatest frequency in Hz or gain in dB.
    static double fieldMinimum(EqualizerField field);
    static double fieldMaximum(EqualizerField field);

protected:
    ~HandleModel() = default;
};
