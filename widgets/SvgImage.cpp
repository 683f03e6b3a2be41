// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/SvgImage.h"

#include "widgets/PixelCopy.h"
#include "widgets/SvgDocument.h"
#include "widgets/SvgPlacement.h"
#include "widgets/SvgRasters.h"

#include <QGraphicsBlurEffect>
#include <QGraphicsPixmapItem>
#include <QGraphicsScene>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace {

bool fits(const QSize& size)
{
    return qint64(size.width()) * size.height() * 4 <= SvgRasters::MaximumBytesOfOne;
}

/// Whether no clip edge runs through pixels: such an edge would cut each shape by itself.
bool isClippedToPixels(const QPainter& painter)
{
    if (!painter.hasClipping())
        return true;
    const QPainterPath clip = painter.clipPath();
    QPainterPath rectangle;
    rectangle.addRect(clip.boundingRect());
    return clip.isEmpty() || clip == rectangle;
}

bool takesRasters(const QPainter& painter)
{
    return painter.paintEngine()->type() == QPaintEngine::Raster &&
           painter.compositionMode() == QPainter::CompositionMode_SourceOver &&
           isClippedToPixels(painter);
}

QImage emptyGround(const QSize& size)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

/// The same pixels, which all have an alpha; \a image must outlive it.
QImage withAlpha(const QImage& image)
{
    return {image.constBits(), image.width(), image.height(), image.bytesPerLine(),
            QImage::Format_ARGB32_Premultiplied};
}

/// The part \a pixels (counted from the origin) of the picture on an empty ground.
QImage rendered(QSvgRenderer& renderer, const SvgPlacement& placement, const QRect& pixels,
                double opacity)
{
    QImage image = emptyGround(pixels.size());
    QPainter painter(&image);
    painter.setWorldTransform(placement.toPixels(pixels));
    painter.setOpacity(opacity);
    renderer.render(&painter, placement.rect);
    return image;
}

/// \a image as the blur effect shows it, cut to its size.
QImage blurred(const QImage& image, double radius)
{
    QGraphicsScene scene;
    scene.setItemIndexMethod(QGraphicsScene::NoIndex);
    auto* effect = new QGraphicsBlurEffect;
    effect->setBlurRadius(radius);
    scene.addPixmap(QPixmap::fromImage(image))->setGraphicsEffect(effect);

    QImage result = emptyGround(image.size());
    QPainter painter(&result);
    scene.render(&painter, result.rect(), result.rect());
    return result;
}

double toDeviceRadius(double radius, const SvgPlacement& placement)
{
    constexpr double widest = 256.0;
    return radius > 0.0 ? std::min(radius * placement.pixelSize(), widest) : 0.0;
}

/// What of a picture can be seen on a canvas. A painter that turns is left to its own clip.
QRect sheetPart(SvgDocument& document, const SvgPlacement& placement, const QRect& canvas)
{
    if (!placement.isUpright())
        return placement.inkPixels(document.extent());
    const QRect field = placement.pixels(canvas);
    return document.extent().isEmpty() ? field : placement.inkPixels(document.extent()) & field;
}

/// What of a picture a blur of \a radius needs and shows. Beyond four radii it has faded to
/// nothing. Wide blurs work on pairs of pixels counted from the canvas's corner; an even start
/// keeps the pairs together.
QRect blurPart(SvgDocument& document, const SvgPlacement& placement, const QRect& canvas,
               double radius)
{
    const int reach = static_cast<int>(std::ceil(4.0 * radius)) + 2;
    QRect part = sheetPart(document, placement, canvas).adjusted(-reach, -reach, reach, reach);
    QPoint corner = -placement.origin();
    if (placement.isUpright()) {
        const QRect field = placement.pixels(canvas);
        part &= field;
        corner = field.topLeft();
    }
    return part.adjusted(-((part.left() - corner.x()) & 1), -((part.top() - corner.y()) & 1), 0, 0);
}

/// The picture at \a placement, cached; null if that cannot be.
const SvgRaster* plainRaster(SvgDocument& document, const SvgPlacement& placement, double opacity)
{
    if (document.extent().isEmpty() || !placement.isUpright())
        return nullptr;
    SvgRasterKey key = placement.key(document.id());
    key.opacity = opacity;
    if (const SvgRaster* known = SvgRasters::find(key))
        return known;
    if (const auto ready =
            opacity == 1.0 ? document.prerendered(placement.wholePixels()) : std::nullopt)
        return SvgRasters::insert(key, *ready);
    const QRect pixels = placement.inkPixels(document.extent());
    if (!fits(pixels.size()))
        return nullptr;
    const QImage image = rendered(document.renderer(), placement, pixels, opacity);
    return SvgRasters::insert(key, simplified(trimmed({image, pixels.topLeft()})));
}

/// The raster of \a key from memory, or else as \a make makes it.
template <typename Make> SvgRaster kept(const SvgRasterKey& key, const Make& make)
{
    const SvgRaster* known = SvgRasters::find(key);
    return known ? *known : *SvgRasters::insert(key, make());
}

SvgRaster blurredRaster(SvgDocument& document, const SvgPlacement& placement, const QRect& part,
                        double radius)
{
    const auto make = [&]() -> SvgRaster {
        const QImage image = rendered(document.renderer(), placement, part, 1.0);
        return {blurred(image, radius), part.topLeft()};
    };
    if (document.extent().isEmpty() || !placement.isUpright())
        return make();
    SvgRasterKey key = placement.key(document.id());
    key.blur = radius;
    key.part = part;
    return kept(key, make);
}

/// Copies the part \a pixels of \a raster to the device, both counted from \a origin, but for the
/// pixels \a covered of the device.
void paintPixels(QPainter& painter, const SvgRaster& raster, const QPoint& origin,
                 const QRect& pixels, double opacity, const QRect& covered = {})
{
    const QImage image = opacity < 1.0 ? withAlpha(raster.image) : raster.image;
    copyPixels(painter, origin + pixels.topLeft(), image, pixels.translated(-raster.offset),
               opacity, covered);
}

QRect pixelsOf(const SvgRaster& raster) { return {raster.offset, raster.image.size()}; }

/// Stretches the picture over \a rect; the pixels \a covered of the device need not be drawn.
void paint(QPainter& painter, SvgDocument& document, const QRectF& rect, const QRect& covered = {})
{
    const SvgPlacement placement(painter, rect);
    const SvgRaster* raster = takesRasters(painter) && placement.isSane()
                                  ? plainRaster(document, placement, painter.opacity())
                                  : nullptr;
    if (raster)
        paintPixels(painter, *raster, placement.origin(), pixelsOf(*raster), 1.0, covered);
    else
        document.renderer().render(&painter, rect);
}

/// The part \a part of the picture turned around the middle of its rectangle.
SvgRaster turnedRaster(SvgDocument& document, const SvgPlacement& placement, const QRect& part,
                       double degrees)
{
    const auto make = [&] {
        QImage image = emptyGround(part.size());
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setWorldTransform(placement.toPixels(part));
        painter.translate(placement.rect.center());
        painter.rotate(degrees);
        paint(painter, document, placement.rect.translated(-placement.rect.center()));
        painter.end();
        return trimmed({image, part.topLeft()});
    };
    if (document.isAnimated() || !placement.isUpright() || !fits(part.size()))
        return make();
    return kept(placement.turnedKey(document.id(), degrees, part), make);
}

} // namespace

SvgImage::SvgImage(QObject* parent)
    : QObject(parent)
{}

SvgImage::~SvgImage() = default;

void SvgImage::load(const QString& path)
{
    if (m_document && m_document->isAnimated())
        m_document->renderer().disconnect(this);
    m_path = path;
    m_document = nullptr;
    m_isRead = false;
    if (!path.startsWith(u':'))
        read();
    Q_EMIT repaintNeeded();
}

QSize SvgImage::defaultSize() const { return isValid() ? m_document->defaultSize() : QSize(0, 0); }

void SvgImage::draw(QPainter& painter, const QRectF& rect, const QRect& covered)
{
    if (isValid() && painter.isActive())
        paint(painter, *m_document, rect, covered);
}

void SvgImage::drawTurned(QPainter& painter, const QRectF& rect, double degrees, double opacity,
                          const QRect& canvas)
{
    if (!isValid() || !painter.isActive())
        return;
    const SvgPlacement placement(painter, rect);
    if (!placement.isSane() || !std::isfinite(degrees))
        return;
    const QRect part = placement.pixels(canvas);
    if (part.isEmpty())
        return;
    const SvgRaster raster = turnedRaster(*m_document, placement, part, degrees);
    paintPixels(painter, raster, placement.origin(), pixelsOf(raster), painter.opacity() * opacity);
}

void SvgImage::drawBlurred(QPainter& painter, const QRectF& rect, double radius,
                           const QRect& canvas)
{
    if (!isValid() || !painter.isActive())
        return;
    const SvgPlacement placement(painter, rect);
    if (!placement.isSane())
        return;
    const double deviceRadius = toDeviceRadius(radius, placement);
    const QRect part = blurPart(*m_document, placement, canvas, deviceRadius);
    if (part.isEmpty() || !fits(part.size()))
        return;
    const SvgRaster raster = blurredRaster(*m_document, placement, part, deviceRadius);
    paintPixels(painter, raster, placement.origin(), part, painter.opacity());
}

void SvgImage::drawTranslucent(QPainter& painter, const QRectF& rect, double opacity,
                               const QRect& canvas)
{
    if (!isValid() || !painter.isActive() || !(opacity > 0.0))
        return;
    const SvgPlacement placement(painter, rect);
    if (!placement.isSane())
        return;
    const QRect part = sheetPart(*m_document, placement, canvas);
    if (part.isEmpty() || !fits(part.size()))
        return;
    const SvgRaster* kept = plainRaster(*m_document, placement, 1.0);
    const SvgRaster raster =
        kept ? *kept
             : SvgRaster{rendered(m_document->renderer(), placement, part, 1.0), part.topLeft()};
    paintPixels(painter, raster, placement.origin(), part & pixelsOf(raster),
                painter.opacity() * std::min(opacity, 1.0));
}

SvgRaster SvgImage::coveringPixels(const QPainter& painter, const QRectF& rect)
{
    const SvgPlacement placement(painter, rect);
    if (!isValid() || !takesRasters(painter) || !placement.isSane())
        return {};
    const SvgRaster* raster = plainRaster(*m_document, placement, painter.opacity());
    if (!raster || raster->image.format() != QImage::Format_RGB32)
        return {};
    return {raster->image, placement.origin() + raster->offset};
}

SvgDocument* SvgImage::document() const
{
    if (!m_isRead)
        read();
    return m_document.get();
}

void SvgImage::read() const
{
    m_isRead = true;
    m_document = SvgDocument::load(m_path);
    if (m_document && m_document->isAnimated())
        connect(&m_document->renderer(), &QSvgRenderer::repaintNeeded, this,
                &SvgImage::repaintNeeded);
}

#include "moc_SvgImage.cpp"
