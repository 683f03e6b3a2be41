// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProxyStyle>

/// Fusion with the mixer's own symbols, so that none of a desktop's icons stands among them: no
/// pictures on dialogs' buttons, and signs and a frame like those of the mixer's strips.
class HostStyle : public QProxyStyle
{
    Q_OBJECT

public:
    HostStyle();

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override;
    QIcon standardIcon(StandardPixmap symbol, const QStyleOption* option,
                       const QWidget* widget) const override;
    /// The keyboard focus is a line in the accent's colour, a box for a switch is seen when it is
    /// empty, too.
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    /// A choice in a tool bar looks like the buttons beside it.
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;
    /// The text of a choice that is wider than its box ends in dots.
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
};
