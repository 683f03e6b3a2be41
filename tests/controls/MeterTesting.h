// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QImage>
#include <QPaintEvent>
#include <QRegion>
#include <QWidget>

#include <utility>

/// What the tests of meters and faders share.
namespace MeterTesting {

/// What a widget paints on a white ground.
inline QImage shown(QWidget& widget, double ratio = 1.0)
{
    QImage image(widget.size() * ratio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::white);
    widget.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

/// The pixels in which two pictures differ.
inline QRegion differing(const QImage& a, const QImage& b)
{
    QRegion region;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            if (a.pixel(x, y) != b.pixel(x, y))
                region += QRect(x, y, 1, 1);
        }
    }
    return region;
}

inline int area(const QRegion& region)
{
    int pixels = 0;
    for (const QRect& rect : region)
        pixels += rect.width() * rect.height();
    return pixels;
}

/// A palette with the meters' own colours, the same in every group.
inline QPalette meterPalette()
{
    QPalette palette;
    palette.setColor(QPalette::WindowText, QColor(0x33, 0x33, 0x33));
    palette.setColor(QPalette::Light, QColor(0xfc, 0x67, 0x69));
    palette.setColor(QPalette::Dark, QColor(0x39, 0xca, 0x74));
    palette.setColor(QPalette::Mid, QColor(0xf9, 0xe2, 0x43));
    return palette;
}

/// Remembers what of a widget is painted.
class PaintRecorder : public QObject
{
public:
    explicit PaintRecorder(QWidget& widget) { widget.installEventFilter(this); }

    /// What was painted since the last question.
    QRegion take()
    {
        QCoreApplication::processEvents();
        return std::exchange(m_painted, QRegion());
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            m_painted += static_cast<QPaintEvent*>(event)->region();
        return false;
    }

private:
    QRegion m_painted;
};

/// What a meter on the screen shows, against what of it is painted anew.
class ScreenWatch
{
public:
    explicit ScreenWatch(QWidget& widget)
        : m_widget(widget)
        , m_paints(widget)
        , m_picture(shown(widget))
    {
        m_paints.take();
    }

    /// Has due paints done and compares the picture with the one before.
    void compare()
    {
        const QRegion painted = m_paints.take();
        const QImage now = shown(m_widget);
        m_paints.take();
        m_changed = differing(std::exchange(m_picture, now), now);
        m_missed = m_changed - painted;
    }

    /// Whether the picture differs from the one before.
    bool isChanged() const { return !m_changed.isEmpty(); }
    /// Whether every pixel that differs was painted.
    bool isRepainted() const { return m_missed.isEmpty(); }

private:
    QWidget& m_widget;
    PaintRecorder m_paints;
    QImage m_picture;
    QRegion m_changed;
    QRegion m_missed;
};

} // namespace MeterTesting
