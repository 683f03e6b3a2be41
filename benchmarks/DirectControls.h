// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QGraphicsBlurEffect>
#include <QGraphicsPixmapItem>
#include <QGraphicsScene>
#include <QPainter>
#include <QSvgRenderer>
#include <QWidget>

/// The layers of the controls rendered from their SVG files at every paint, and the pictures that
/// the controls show beside them.
namespace DirectControls {

inline constexpr QSize knobSize(60, 60);
inline constexpr QSize lampSize(28, 28);
inline constexpr QSize faderSize(44, 160);
inline constexpr QSize editorSize(977, 559);
inline constexpr double blurRadius = 2.0;

inline QString artwork(const char* file)
{
    return QLatin1String(":/image/zolta/") + QLatin1String(file);
}
inline QString image(const char* file)
{
    return QLatin1String(":/gallery/images/") + QLatin1String(file);
}

/// What the pictures are, for the control and for its direct twin.
inline const QString knobFile = artwork("knob_F.svg");
inline const QString knobBackFile = artwork("knob_F_back.svg");
inline const QString lampOffFile = artwork("btn_off_up.svg");
inline const QString lampOnFile = artwork("btn_orange_up.svg");
inline const QString capFile = image("fader_cap.svg");
inline const QString capShadowFile = image("fader_shadow.svg");
inline const QString trackFile = image("fader_track.svg");
inline const QString editorBackFile = artwork("back_zolta.svg");
inline const QString meterBackFile = artwork("back_meter.svg");

/// A widget that renders its layers anew each time.
class DirectWidget : public QWidget
{
public:
    DirectWidget(QSize size, double scale)
        : m_scale(scale)
    {
        resize((QSizeF(size) * scale).toSize());
    }

    void setPosition(double position)
    {
        m_position = position;
        update();
    }

protected:
    double position() const { return m_position; }
    double scale() const { return m_scale; }
    QSizeF sizeOf(const QSvgRenderer& renderer) const
    {
        return QSizeF(renderer.defaultSize()) * m_scale;
    }
    QRectF centred(const QSvgRenderer& renderer, QPointF middle) const
    {
        const QSizeF size = sizeOf(renderer);
        return {middle - QPointF(size.width() * 0.5, size.height() * 0.5), size};
    }
    QPointF middle() const { return {width() * 0.5, height() * 0.5}; }
    /// Draws what lies in \a rect as a picture of the widget's size, blurred.
    void drawBlurred(QPainter& painter, QSvgRenderer& renderer, const QRectF& place)
    {
        QPixmap pixmap(size());
        pixmap.fill(Qt::transparent);
        QPainter inner(&pixmap);
        renderer.render(&inner, place);
        inner.end();
        QGraphicsScene scene;
        auto* effect = new QGraphicsBlurEffect;
        effect->setBlurRadius(blurRadius * m_scale);
        scene.addPixmap(pixmap)->setGraphicsEffect(effect);
        scene.render(&painter, rect(), rect());
    }

private:
    double m_scale;
    double m_position = 0.0;
};

class DirectKnob : public DirectWidget
{
public:
    explicit DirectKnob(double scale)
        : DirectWidget(knobSize, scale)
    {}

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        m_back.render(&painter, centred(m_back, middle()));
        painter.translate(middle());
        painter.rotate(210.0 + 300.0 * position());
        m_knob.render(&painter, centred(m_knob, QPointF()));
    }

private:
    QSvgRenderer m_back{knobBackFile};
    QSvgRenderer m_knob{knobFile};
};

class DirectLamp : public DirectWidget
{
public:
    explicit DirectLamp(double scale)
        : DirectWidget(lampSize, scale)
    {}

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        QSvgRenderer& lamp = position() > 0.5 ? m_on : m_off;
        lamp.render(&painter, centred(lamp, middle()));
    }

private:
    QSvgRenderer m_off{lampOffFile};
    QSvgRenderer m_on{lampOnFile};
};

class DirectFader : public DirectWidget
{
public:
    explicit DirectFader(double scale)
        : DirectWidget(faderSize, scale)
    {}

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        m_track.render(&painter, centred(m_track, middle()));
        const double travel = height() - sizeOf(m_cap).height();
        const QPointF cap(middle().x(), (1.0 - position()) * travel + sizeOf(m_cap).height() * 0.5);
        drawBlurred(painter, m_shadow, centred(m_shadow, cap));
        m_cap.render(&painter, centred(m_cap, cap));
    }

private:
    QSvgRenderer m_cap{capFile};
    QSvgRenderer m_shadow{capShadowFile};
    QSvgRenderer m_track{trackFile};
};

/// A picture under controls.
class DirectGround : public DirectWidget
{
public:
    DirectGround(const QString& file, QSize size, double scale)
        : DirectWidget(size, scale)
        , m_picture(file)
    {}

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        m_picture.render(&painter, QRectF(rect()));
    }

private:
    QSvgRenderer m_picture;
};

} // namespace DirectControls
