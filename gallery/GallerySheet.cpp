// SPDX-License-Identifier: GPL-3.0-or-later
#include "gallery/GallerySheet.h"

#include "gallery/GallerySection.h"
#include "gallery/GallerySections.h"
#include "host/window/MixerStyle.h"

#include <QApplication>
#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace {

constexpr int sheetMargin = 16;
constexpr QRgb ground = 0xFF16191C;

/// An empty picture of \a size pixels of the screen.
QImage emptyPicture(QSize size, double ratio)
{
    const QSizeF pixels = QSizeF(size) * ratio;
    QImage image(QSize(static_cast<int>(std::ceil(pixels.width())),
                       static_cast<int>(std::ceil(pixels.height()))),
                 QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(ground);
    return image;
}

/// Paints \a widget, which lies in \a origin, where it lies.
void paint(QPainter& painter, QWidget& widget, const QWidget& origin)
{
    // Without a window's background the ground that is there stays.
    widget.render(&painter, widget.mapTo(&origin, QPoint()), QRegion(), QWidget::DrawChildren);
}

void paintStages(QPainter& painter, const GallerySection& section, const QWidget& origin)
{
    for (const GalleryStage& stage : section.stages()) {
        const QRect place(stage.cell->mapTo(&origin, QPoint()), stage.cell->size());
        stage.enter();
        painter.fillRect(place, section.palette().window());
        paint(painter, *stage.cell, origin);
        painter.save();
        painter.translate(place.topLeft());
        MixerStyle::drawFocus(painter, *stage.cell);
        painter.restore();
        stage.leave();
    }
}

} // namespace

std::vector<GallerySection*> makeGallerySections(HostMemory& memory, QWidget* parent)
{
    return {makeKnobSection(memory, parent),
            makeTextSection(memory, parent),
            makePushButtonSection(memory, parent),
            makePullDownSection(memory, parent),
            makeButtonGroupSection(memory, parent),
            makeFaderSection(memory, parent),
            makeMeterSection(memory, parent),
            makeRoundMeterSection(memory, parent),
            makeSvgLabelSection(parent),
            makeChannelNameSection(parent)};
}

GallerySheet::GallerySheet(HostMemory& memory, QWidget* parent)
    : QWidget(parent)
{
    QPalette colors = palette();
    colors.setColor(QPalette::Window, ground);
    setPalette(colors);
    setAutoFillBackground(true);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(sheetMargin, sheetMargin, sheetMargin, sheetMargin);
    layout->setSpacing(sheetMargin);
    m_sections = makeGallerySections(memory, this);
    for (GallerySection* each : m_sections)
        layout->addWidget(each);
    layout->addStretch();
    adjustSize();
}

GallerySection* GallerySheet::section(const QString& title) const
{
    const auto found = std::find_if(m_sections.begin(), m_sections.end(),
                                    [&](const GallerySection* s) { return s->title() == title; });
    return found == m_sections.end() ? nullptr : *found;
}

void GallerySheet::settle()
{
    if (!isVisible()) {
        window()->setAttribute(Qt::WA_DontShowOnScreen);
        window()->show();
    }
    QApplication::setActiveWindow(window());
    if (QWidget* focused = window()->focusWidget())
        focused->clearFocus();
    QApplication::sendPostedEvents();
}

QImage GallerySheet::picture(double ratio)
{
    settle();
    QImage image = emptyPicture(size(), ratio);
    QPainter painter(&image);
    render(&painter);
    for (const GallerySection* each : m_sections)
        paintStages(painter, *each, *this);
    return image;
}

QImage GallerySheet::picture(GallerySection& section, double ratio)
{
    settle();
    QImage image = emptyPicture(section.size(), ratio);
    QPainter painter(&image);
    section.render(&painter);
    paintStages(painter, section, section);
    return image;
}

#include "moc_GallerySheet.cpp"
