// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/TextPixels.h"

#include "widgets/PixelCopy.h"
#include "widgets/SvgRasters.h"

#include <QCache>
#include <QColor>
#include <QFont>
#include <QGuiApplication>
#include <QImage>
#include <QPaintEngine>
#include <QPainter>
#include <QTransform>

#include <cstring>
#include <utility>

namespace TextPixels {

namespace {

constexpr qsizetype MaximumBytes = 8 * 1024 * 1024;
constexpr int MaximumPixels = 64 * 1024;

using Key = std::pair<QString, QRect>;

struct Look
{
    QRect rect;
    int flags;
    QColor color;
    QFont font;
    QPainter::RenderHints hints;
    Qt::LayoutDirection direction;
    QTransform toDevice;
    int dpi;

    bool operator==(const Look&) const = default;
};

struct Remembered
{
    Look look;
    QImage before;
    QImage after; ///< opaque
};

class Memory : public QObject
{
public:
    Memory()
    {
        connect(qGuiApp, &QGuiApplication::fontDatabaseChanged, this, [this] { texts.clear(); });
    }

    QCache<Key, Remembered> texts = QCache<Key, Remembered>(MaximumBytes);
};

QCache<Key, Remembered>& memory()
{
    static Memory memory;
    return memory.texts;
}

/// The image that a painter draws on, if what is drawn plainly depends on nothing else; else null.
const QImage* canvasOf(const QPainter& painter)
{
    QPaintDevice* device = painter.paintEngine()->paintDevice();
    if (painter.paintEngine()->type() != QPaintEngine::Raster ||
        device->devType() != QInternal::Image || painter.hasClipping() ||
        painter.opacity() != 1.0 || painter.backgroundMode() != Qt::TransparentMode ||
        painter.compositionMode() != QPainter::CompositionMode_SourceOver)
        return nullptr;
    const auto* image = static_cast<const QImage*>(device);
    const bool isPlain = image->format() == QImage::Format_RGB32 ||
                         image->format() == QImage::Format_ARGB32_Premultiplied;
    return isPlain ? image : nullptr;
}

/// The pixels that may change; none if they are too many or in several places.
QRect areaOf(const QPainter& painter, const QImage& canvas)
{
    const QRegion clip = painter.paintEngine()->systemClip();
    const QRect area = clip.boundingRect() & canvas.rect();
    return clip.rectCount() == 1 && area.width() * area.height() <= MaximumPixels ? area : QRect();
}

bool isShown(const QImage& canvas, const QRect& area, const QImage& pixels)
{
    const std::size_t bytes = static_cast<std::size_t>(area.width()) * sizeof(QRgb);
    for (int y = 0; y < area.height(); ++y) {
        const uchar* row = canvas.constScanLine(area.y() + y) + area.x() * qsizetype{sizeof(QRgb)};
        if (std::memcmp(row, pixels.constScanLine(y), bytes) != 0)
            return false;
    }
    return true;
}

/// An equal font that shares no font engine: those must not outlive the application.
QFont withoutEngine(QFont font)
{
    const bool kerning = font.kerning();
    font.setKerning(!kerning);
    font.setKerning(kerning);
    return font;
}

Look lookOf(const QPainter& painter, const Text& text)
{
    return {text.rect,
            text.flags,
            text.brush.color(),
            painter.font(),
            painter.renderHints(),
            painter.layoutDirection(),
            painter.deviceTransform(),
            painter.device()->logicalDpiY()};
}

void remember(const Key& key, Look look, const QImage& before, QImage after)
{
    after.setDevicePixelRatio(1.0);
    after = simplified({std::move(after), {}}).image;
    if (after.format() != QImage::Format_RGB32)
        return;
    look.font = withoutEngine(look.font);
    memory().insert(key, new Remembered{std::move(look), before, after}, 2 * after.sizeInBytes());
}

} // namespace

void draw(QPainter& painter, const Text& text, const std::function<void()>& draw)
{
    const QImage* canvas = text.brush.style() == Qt::SolidPattern ? canvasOf(painter) : nullptr;
    const QRect area = canvas ? areaOf(painter, *canvas) : QRect();
    if (area.isEmpty()) {
        draw();
        return;
    }
    const Key key(text.text, area);
    const Look look = lookOf(painter, text);
    const Remembered* known = memory().object(key);
    if (known && known->look == look && isShown(*canvas, area, known->before)) {
        copyPixels(painter, area.topLeft(), known->after, known->after.rect(), 1.0);
        return;
    }
    const QImage before = canvas->copy(area);
    draw();
    remember(key, look, before, canvas->copy(area));
}

} // namespace TextPixels
