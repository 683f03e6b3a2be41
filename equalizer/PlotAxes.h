// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// The coordinate system of the response plot inside a widget of a given size, in pixels.
///
/// Frequency runs logarithmically from 20 Hz at the left edge to 20 kHz at the right one, level
/// linearly from +range dB at the top edge to -range dB at the bottom one. Painting and hit testing
/// both go through here, so what is drawn and what is grabbed agree.
class PlotAxes
{
public:
    /// \a width and \a height are the widget's, \a range the dB value at the top edge.
    PlotAxes(double width, double height, double range);

    /// The widget's height in units of the height that the plot was designed at (192 pixels).
    double unit() const { return m_unit; }
    /// The plot's edges and its size.
    /// @{
    double left() const { return m_left; }
    double top() const { return m_top; }
    double width() const { return m_width; }
    double height() const { return m_height; }
    double right() const { return m_left + m_width; }
    double bottom() const { return m_top + m_height; }
    /// @}
    /// The y of 0 dB.
    double centre() const { return m_top + m_height / 2.0; }
    /// The level at the top edge in dB.
    double range() const { return m_range; }

    /// The x of a frequency in Hz.
    double x(double frequency) const;
    /// The y of a level in dB.
    double y(double gain) const;
    /// The frequency in Hz at \a x pixels from the widget's left edge; beyond the plot it goes on.
    double frequency(double x) const;
    /// The level in dB at \a y pixels from the widget's top edge; beyond the plot it goes on.
    double gain(double y) const;
    /// Whether a point lies in the plot, its edges included.
    bool contains(double x, double y) const;

private:
    double m_unit;
    double m_left;
    double m_top;
    double m_width;
    double m_height;
    double m_range;
};
