// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/SvgImage.h"

#include "widgets/SvgDocument.h"
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

constexpr double FixedOne = 4294967296.0;
constexpr double LargestCoordinate = 1 << 24;

qint64 toFixed(double pixels) { return std::llround(pixels * FixedOne); }

/// A picture laid out on a device's pixels.
struct Placement
{
    Placement(const QPainter& painter, const QRectF& pictureRect)
        : toDevice(painter.deviceTransform())
        , rect(pictureRect)
        , deviceRect(toDevice.mapRect(pictureRect))
    {}

    bool isUpright() const
    {
        return toDevice.type() <= QTransform::TxScale && toDevice.m11() > 0.0 &&
               toDevice.m22() > 0.0;
    }

    bool isSane() const
    {
        return qIsFinite(deviceRect.x()) && qIsFinite(deviceRect.y()) &&
               qIsFinite(deviceRect.width()) && qIsFinite(deviceRect.height()) && !rect.isEmpty() &&
               !deviceRect.isEmpty() &&
               QRectF(-LargestCoordinate, -LargestCoordinate, 2 * LargestCoordinate,
                      2 * LargestCoordinate)
                   .contains(deviceRect);
    }

    /// The pixel that holds the left top corner.
    QPoint origin() const
    {
        return {static_cast<int>(toFixed(deviceRect.x()) >> 32),
                static_cast<int>(toFixed(deviceRect.y()) >> 32)};
    }

    /// The pixels that \a area of the painter touches, from the origin on.
    QRect pixels(const QRectF& area) const
    {
        return toDevice.mapRect(area).toAlignedRect().translated(-origin());
    }

    /// The pixels that the picture touches, from the origin on; those of its rectangle if
    /// \a extent is empty.
    QRect inkPixels(const QRectF& extent) const
    {
        const QRectF box = extent.isEmpty() ? QRectF(0.0, 0.0, 1.0, 1.0) : extent;
        const QRectF ink(rect.x() + box.x() * rect.width(), rect.y() + box.y() * rect.height(),
                         extent.width() * rect.width(), extent.height() * rect.height());
        return pixels(ink).adjusted(-1, -1, 1, 1);
    }

    double pixelSize() const { return std::sqrt(std::abs(toDevice.determinant())); }

    SvgRasterKey key(quint64 document) const
    {
        constexpr qint64 fraction = 0xffffffff;
        return {.document = document,
                .x = toFixed(deviceRect.x()) & fraction,
                .y = toFixed(deviceRect.y()) & fraction,
                .width = toFixed(deviceRect.width()),
                .height = toFixed(deviceRect.height())};
    }

    QTransform toDevice;
    QRectF rect;
    QRectF deviceRect;
};

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

/// The part \a pixels (counted from the origin) of the picture on an empty ground.
QImage rendered(QSvgRenderer& renderer, const Placement& placement, const QRect& pixels,
                double opacity)
{
    QImage image(pixels.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    const QPoint corner = placement.origin() + pixels.topLeft();
    painter.setWorldTransform(placement.toDevice *
                              QTransform::fromTranslate(-corner.x(), -corner.y()));
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

    QImage result(image.size(), QImage::Format_ARGB32_Premultiplied);
    result.fill(Qt::transparent);
    QPainter painter(&result);
    scene.render(&painter, result.rect(), result.rect());
    return result;
}

double toDeviceRadius(double radius, const Placement& placement)
{
    constexpr double widest = 256.0;
    return radius > 0.0 ? std::min(radius * placement.pixelSize(), widest) : 0.0;
}

/// What of a picture can be seen on a canvas. A painter that turns is left to its own clip.
QRect sheetPart(const SvgDocument& document, const Placement& placement, const QRect& canvas)
{
    if (!placement.isUpright())
        return placement.inkPixels(document.extent());
    const QRect field = placement.pixels(canvas);
    return document.extent().isEmpty() ? field : placement.inkPixels(document.extent()) & field;
}

/// What of a picture a blur of \a radius needs and shows. Beyond four radii it has faded to
/// nothing. Wide blurs work on pairs of pixels counted from the canvas's corner; an even start
/// keeps the pairs together.
QRect blurPart(const SvgDocument& document, const Placement& placement, const QRect& canvas,
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
const SvgRaster* plainRaster(SvgDocument& document, const Placement& placement, double opacity)
{
    if (document.extent().isEmpty() || !placement.isUpright())
        return nullptr;
    SvgRasterKey key = placement.key(document.id());
    key.opacity = opacity;
    if (const SvgRaster* known = SvgRasters::find(key))
        return known;
    const QRect pixels = placement.inkPixels(document.extent());
    if (!fits(pixels.size()))
        return nullptr;
    const QImage image = rendered(document.renderer(), placement, pixels, opacity);
    return SvgRasters::insert(key, trimmed({image, pixels.topLeft()}));
}

SvgRaster blurredRaster(SvgDocument& document, const Placement& placement, const QRect& part,
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
    const SvgRaster* known = SvgRasters::find(key);
    return known ? *known : *SvgRasters::insert(key, make());
}

/// Under a clip of several rectangles Qt cuts an image up row by row, and hands many rows to other
/// threads: waking those takes longer than the copying. Of so few rows it does not.
constexpr int fewRows = 64;

bool isClippedToRegion(const QPainter& painter)
{
    return painter.paintEngine()->systemClip().rectCount() > 1;
}

/// Copies the part \a pixels of \a raster to the device, both counted from \a origin.
void paintPixels(QPainter& painter, const SvgRaster& raster, const QPoint& origin,
                 const QRect& pixels, double opacity)
{
    const QTransform world = painter.worldMatrixEnabled() ? painter.worldTransform() : QTransform();
    const QTransform rest = world.inverted() * painter.deviceTransform();
    painter.save();
    painter.setWorldTransform(rest.inverted());
    painter.setOpacity(opacity);
    const int step = isClippedToRegion(painter) ? fewRows : pixels.height();
    for (int y = pixels.top(); y <= pixels.bottom(); y += step) {
        const QRect rows = pixels & QRect(pixels.left(), y, pixels.width(), step);
        painter.drawImage(origin + rows.topLeft(), raster.image, rows.translated(-raster.offset));
    }
    painter.restore();
}

QRect pixelsOf(const SvgRaster& raster) { return {raster.offset, raster.image.size()}; }

} // namespace

SvgImage::SvgImage(QObject* parent)
    : QObject(parent)
{}

SvgImage::~SvgImage() = default;

bool SvgImage::load(const QString& path)
{
    if (m_document)
        m_document->renderer().disconnect(this);
    m_path = path;
    m_document = SvgDocument::load(path);
    if (m_document)
        connect(&m_document->renderer(), &QSvgRenderer::repaintNeeded, this,
                &SvgImage::repaintNeeded);
    Q_EMIT repaintNeeded();
    return isValid();
}

QSize SvgImage::defaultSize() const
{
    return m_document ? m_document->renderer().defaultSize() : QSize(0, 0);
}

bool SvgImage::isAnimated() const { return m_document && m_document->renderer().animated(); }

void SvgImage::draw(QPainter& painter, const QRectF& rect)
{
    if (!m_document || !painter.isActive())
        return;
    const Placement placement(painter, rect);
    const SvgRaster* raster = takesRasters(painter) && placement.isSane()
                                  ? plainRaster(*m_document, placement, painter.opacity())
                                  : nullptr;
    if (raster)
        paintPixels(painter, *raster, placement.origin(), pixelsOf(*raster), 1.0);
    else
        m_document->renderer().render(&painter, rect);
}

void SvgImage::drawBlurred(QPainter& painter, const QRectF& rect, double radius,
                           const QRect& canvas)
{
    if (!m_document || !painter.isActive())
        return;
    const Placement placement(painter, rect);
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
    if (!m_document || !painter.isActive() || !(opacity > 0.0))
        return;
    const Placement placement(painter, rect);
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

#include "moc_SvgImage.cpp"
