// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/SvgDocument.h"

#include "widgets/SvgRasters.h"

#include <QByteArray>
#include <QCache>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QLoggingCategory>
#include <QPainter>
#include <QResource>

#include <cstring>

namespace {

/// Keeps the SVG reader from complaining about a broken file: the picture stays blank instead.
class QuietReader
{
public:
    QuietReader() { s_outer = QLoggingCategory::installFilter(filter); }
    ~QuietReader() { QLoggingCategory::installFilter(s_outer); }
    QuietReader(const QuietReader&) = delete;
    QuietReader& operator=(const QuietReader&) = delete;

private:
    static void filter(QLoggingCategory* category)
    {
        if (s_outer)
            s_outer(category);
        if (std::strncmp(category->categoryName(), "qt.svg", 6) == 0)
            category->setEnabled(QtWarningMsg, false);
    }

    static QLoggingCategory::CategoryFilter s_outer;
};

QLoggingCategory::CategoryFilter QuietReader::s_outer = nullptr;

/// A document and the bytes that it was made of.
struct Kept
{
    QByteArray bytes;
    std::shared_ptr<SvgDocument> document;
};

/// Bounded by the size of the files. A parsed file takes some twenty times its size.
QCache<QString, Kept>& keptDocuments()
{
    static QCache<QString, Kept> kept(2 * 1024 * 1024);
    return kept;
}

/// The bytes of a resource as they are compiled in, without a copy.
QByteArray resourceBytes(const QString& path)
{
    const QResource resource(path);
    return QByteArray::fromRawData(reinterpret_cast<const char*>(resource.data()),
                                   static_cast<qsizetype>(resource.size()));
}

/// What tells one file at \a path from the next; empty if it cannot be read.
QByteArray contents(const QString& path)
{
    if (path.startsWith(u':'))
        return resourceBytes(path);
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return {};
    return file.readAll();
}

/// Draws the picture in the middle of a field of three times its size and measures where ink is.
QRectF measureExtent(QSvgRenderer& renderer)
{
    const QSize size = renderer.defaultSize().expandedTo({16, 16}).boundedTo({256, 256});
    QImage field(size * 3, QImage::Format_ARGB32_Premultiplied);
    field.fill(Qt::transparent);
    QPainter painter(&field);
    renderer.render(&painter, QRectF(QPointF(size.width(), size.height()), size));
    painter.end();
    const QRect ink = inkOf(field).adjusted(-1, -1, 1, 1);
    if (!field.rect().contains(ink))
        return {};
    const QRectF relative = ink.translated(-size.width(), -size.height());
    return {relative.x() / size.width(), relative.y() / size.height(),
            relative.width() / size.width(), relative.height() / size.height()};
}

quint64 nextId()
{
    static quint64 last = 0;
    return ++last;
}

} // namespace

std::shared_ptr<SvgDocument> SvgDocument::load(const QString& path)
{
    const QByteArray bytes = contents(path);
    if (bytes.isEmpty())
        return nullptr;
    const Kept* kept = keptDocuments().object(path);
    if (kept && kept->bytes == bytes)
        return kept->document;

    const std::shared_ptr<SvgDocument> document(new SvgDocument(path));
    if (!document->m_prerendered && !document->renderer().isValid())
        return nullptr;
    if (document->isAnimated())
        return document;
    keptDocuments().insert(path, new Kept{QByteArray(bytes.constData(), bytes.size()), document},
                           bytes.size());
    return document;
}

QSvgRenderer& SvgDocument::renderer()
{
    if (!m_isParsed) {
        const QuietReader quiet;
        m_isParsed = true;
        m_renderer.load(m_path);
    }
    return m_renderer;
}

bool SvgDocument::isAnimated() { return !m_prerendered && renderer().animated(); }

QSize SvgDocument::defaultSize()
{
    return m_prerendered ? m_prerendered->defaultSize() : renderer().defaultSize();
}

QRectF SvgDocument::extent()
{
    if (m_prerendered)
        return m_prerendered->extent();
    if (!m_extent)
        m_extent = isAnimated() ? QRectF() : measureExtent(renderer());
    return *m_extent;
}

std::optional<SvgRaster> SvgDocument::prerendered(const QSize& size) const
{
    return m_prerendered ? m_prerendered->raster(size) : std::nullopt;
}

SvgDocument::SvgDocument(const QString& path)
    : m_path(path)
    , m_prerendered(PrerenderedSvg::find(path))
    , m_id(nextId())
{
    QObject::connect(&m_renderer, &QSvgRenderer::repaintNeeded, &m_renderer,
                     [id = m_id] { SvgRasters::drop(id); });
}

SvgDocument::~SvgDocument() { SvgRasters::drop(m_id); }
