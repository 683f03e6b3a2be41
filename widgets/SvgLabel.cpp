// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/SvgLabel.h"

#include "widgets/SvgRasters.h"

#include <QEvent>
#include <QPainter>
#include <QStyle>

#include <cmath>

namespace {

void loadOnce(SvgImage& image, const QString& path)
{
    if (path != image.path())
        image.load(path);
}

} // namespace

SvgLabel::SvgLabel(QWidget* parent)
    : QLabel(parent)
{
    for (SvgImage* image : {&m_image, &m_disabledImage}) {
        connect(image, &SvgImage::repaintNeeded, this, &SvgLabel::forgetGround);
        connect(image, &SvgImage::repaintNeeded, this, qOverload<>(&QWidget::update));
    }
}

void SvgLabel::setSvg(const QString& path) { loadOnce(m_image, path); }

void SvgLabel::setDisableSvg(const QString& path) { loadOnce(m_disabledImage, path); }

void SvgLabel::setOpacity(double opacity)
{
    if (opacity == m_opacity)
        return;
    m_opacity = opacity;
    forgetGround();
    update();
}

SvgRaster SvgLabel::coveringPixels(const QPainter& painter, const QPoint& corner)
{
    if (!isVisible() || !updatesEnabled() || graphicsEffect() || !mask().isEmpty() ||
        m_opacity != 1.0 || showsMore())
        return {};
    return shownImage().coveringPixels(painter, QRect(corner, size()));
}

void SvgLabel::paintEvent(QPaintEvent* event)
{
    if (m_image.isValid()) {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setOpacity(m_opacity);
        shownImage().draw(painter, rect(), m_cover ? m_cover(painter) : QRect());
        lookAtGround(painter);
    }
    if (showsMore())
        QLabel::paintEvent(event);
}

void SvgLabel::resizeEvent(QResizeEvent* event)
{
    forgetGround();
    QLabel::resizeEvent(event);
}

void SvgLabel::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::EnabledChange || event->type() == QEvent::StyleChange)
        forgetGround();
    QLabel::changeEvent(event);
}

void SvgLabel::setHidesGround(bool hides)
{
    m_hidesGround = hides;
    forgetGround();
    update();
}

void SvgLabel::lookAtGround(const QPainter& painter)
{
    const double ratio = devicePixelRatioF();
    if (!m_hidesGround || m_groundRatio == ratio)
        return;
    const bool isSeen =
        ratio != std::floor(ratio) || coveringPixels(painter, QPoint()).image.isNull();
    if (isSeen && testAttribute(Qt::WA_OpaquePaintEvent))
        update(); // what lies beneath was not painted this time
    setAttribute(Qt::WA_OpaquePaintEvent, !isSeen);
    m_groundRatio = ratio;
}

void SvgLabel::forgetGround()
{
    if (std::exchange(m_groundRatio, std::nullopt))
        setAttribute(Qt::WA_OpaquePaintEvent, false);
}

bool SvgLabel::showsMore() const
{
    return frameShape() != NoFrame || !text().isEmpty() || !pixmap(Qt::ReturnByValue).isNull() ||
           !picture(Qt::ReturnByValue).isNull() || movie() || style()->inherits("QStyleSheetStyle");
}

SvgImage& SvgLabel::shownImage()
{
    return !isEnabled() && m_disabledImage.isValid() ? m_disabledImage : m_image;
}

#include "moc_SvgLabel.cpp"
