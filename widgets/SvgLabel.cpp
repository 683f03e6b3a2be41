// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/SvgLabel.h"

#include "widgets/SvgRasters.h"

#include <QPainter>
#include <QStyle>

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
    for (SvgImage* image : {&m_image, &m_disabledImage})
        connect(image, &SvgImage::repaintNeeded, this, qOverload<>(&QWidget::update));
}

void SvgLabel::setSvg(const QString& path) { loadOnce(m_image, path); }

void SvgLabel::setDisableSvg(const QString& path) { loadOnce(m_disabledImage, path); }

void SvgLabel::setOpacity(double opacity)
{
    if (opacity == m_opacity)
        return;
    m_opacity = opacity;
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
    }
    if (showsMore())
        QLabel::paintEvent(event);
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
