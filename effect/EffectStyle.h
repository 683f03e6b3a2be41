// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProxyStyle>
#include <QSvgRenderer>

/// The look of an effect editor's widgets: pop-up menus are flat dark panels with a thin white
/// frame, in sizes that follow the zoom factor of the widget's editor (getWidgetScale()). All else
/// is the base style's.
class EffectStyle : public QProxyStyle
{
    Q_OBJECT

public:
    /// Takes ownership of \a style, the base style; null means the application's.
    explicit EffectStyle(QStyle* style);

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget = nullptr) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget = nullptr) const override;
    void drawItemText(QPainter* painter, const QRect& rect, int flags, const QPalette& palette,
                      bool isEnabled, const QString& text,
                      QPalette::ColorRole role = QPalette::NoRole) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option = nullptr,
                    const QWidget* widget = nullptr) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contentsSize,
                           const QWidget* widget = nullptr) const override;
    int styleHint(StyleHint hint, const QStyleOption* option = nullptr,
                  const QWidget* widget = nullptr,
                  QStyleHintReturn* returnData = nullptr) const override;

private:
    // Part of every editor's style, and empty: no menu element is drawn from a picture.
    QSvgRenderer m_firstRenderer;
    QSvgRenderer m_secondRenderer;
};
