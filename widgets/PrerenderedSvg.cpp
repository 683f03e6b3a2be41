// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/PrerenderedSvg.h"

#include <QDataStream>
#include <QIODevice>
#include <QResource>

#include <algorithm>
#include <cstring>
#include <span>

namespace {

// Packed pixels are groups: a head, twice the number of pixels, plus 1 for a run; then the one
// pixel of a run, or all the pixels.
constexpr std::size_t ShortestRun = 3;
using Pixels = std::span<const QRgb>;

std::size_t runLength(Pixels pixels)
{
    const auto end = std::ranges::find_if(pixels, [&](QRgb pixel) { return pixel != pixels[0]; });
    return static_cast<std::size_t>(end - pixels.begin());
}

void appendGroup(QByteArray& packed, Pixels pixels, bool isRun)
{
    if (pixels.empty())
        return;
    const quint32 head = static_cast<quint32>(pixels.size()) * 2 + (isRun ? 1 : 0);
    packed.append(reinterpret_cast<const char*>(&head), sizeof head);
    const Pixels kept = isRun ? pixels.first(1) : pixels;
    packed.append(reinterpret_cast<const char*>(kept.data()),
                  static_cast<qsizetype>(kept.size_bytes()));
}

QByteArray pack(Pixels pixels)
{
    QByteArray packed;
    std::size_t single = 0; // pixels before the run that is looked at
    while (single < pixels.size()) {
        const std::size_t length = runLength(pixels.subspan(single));
        if (length < ShortestRun) {
            single += length;
            continue;
        }
        appendGroup(packed, pixels.first(single), false);
        appendGroup(packed, pixels.subspan(single, length), true);
        pixels = pixels.subspan(single + length);
        single = 0;
    }
    appendGroup(packed, pixels, false);
    return packed;
}

/// Whether \a packed holds exactly \a pixels.
bool unpack(std::span<const char> packed, std::span<QRgb> pixels)
{
    while (packed.size() > sizeof(quint32)) {
        quint32 head = 0;
        std::memcpy(&head, packed.data(), sizeof head);
        packed = packed.subspan(sizeof head);
        const bool isRun = head & 1;
        const std::size_t count = head / 2;
        const std::size_t bytes = (isRun ? 1 : count) * sizeof(QRgb);
        if (count > pixels.size() || bytes > packed.size())
            return false;
        std::memcpy(pixels.data(), packed.data(), bytes);
        if (isRun)
            std::fill_n(pixels.begin(), count, pixels[0]);
        packed = packed.subspan(bytes);
        pixels = pixels.subspan(count);
    }
    return packed.empty() && pixels.empty();
}

std::size_t pixelCount(const QImage& image)
{
    return static_cast<std::size_t>(image.sizeInBytes()) / sizeof(QRgb);
}

/// The next \a count bytes of \a stream, without a copy.
QByteArray taken(QDataStream& stream, const QByteArray& bytes, quint32 count)
{
    const qint64 begin = stream.device()->pos();
    if (stream.skipRawData(static_cast<int>(count)) != static_cast<int>(count))
        stream.setStatus(QDataStream::ReadPastEnd);
    return QByteArray::fromRawData(bytes.constData() + begin, static_cast<qsizetype>(count));
}

} // namespace

std::optional<PrerenderedSvg> PrerenderedSvg::find(const QString& path)
{
    if (!path.startsWith(u':'))
        return {};
    const QResource resource(QStringLiteral(":/prerendered") + path.mid(1));
    if (!resource.isValid())
        return {};
    return read(QByteArray::fromRawData(reinterpret_cast<const char*>(resource.data()),
                                        static_cast<qsizetype>(resource.size())));
}

std::optional<PrerenderedSvg> PrerenderedSvg::read(const QByteArray& bytes)
{
    QDataStream stream(bytes);
    PrerenderedSvg svg({}, {});
    quint32 count = 0;
    stream >> svg.m_defaultSize >> svg.m_extent >> count;
    for (quint32 i = 0; i < count && stream.status() == QDataStream::Ok; ++i) {
        Packed raster = {};
        quint32 length = 0;
        stream >> raster.size >> raster.offset >> raster.imageSize >> raster.format >> length;
        raster.pixels = taken(stream, bytes, length);
        svg.m_rasters.append(raster);
    }
    return stream.status() == QDataStream::Ok ? std::optional(svg) : std::nullopt;
}

PrerenderedSvg::PrerenderedSvg(const QSize& defaultSize, const QRectF& extent)
    : m_defaultSize(defaultSize)
    , m_extent(extent)
{}

void PrerenderedSvg::add(const QSize& size, const SvgRaster& raster)
{
    const QImage& image = raster.image;
    const Pixels pixels(reinterpret_cast<const QRgb*>(image.constBits()), pixelCount(image));
    m_rasters.append({size, raster.offset, image.size(), image.format(), pack(pixels)});
}

QByteArray PrerenderedSvg::bytes() const
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << m_defaultSize << m_extent << static_cast<quint32>(m_rasters.size());
    for (const Packed& raster : m_rasters)
        stream << raster.size << raster.offset << raster.imageSize << raster.format
               << raster.pixels;
    return bytes;
}

std::optional<SvgRaster> PrerenderedSvg::raster(const QSize& size) const
{
    const auto found =
        std::ranges::find_if(m_rasters, [&](const Packed& packed) { return packed.size == size; });
    if (found == m_rasters.end())
        return {};
    QImage image(found->imageSize, found->format);
    const std::span<QRgb> pixels(reinterpret_cast<QRgb*>(image.bits()), pixelCount(image));
    const std::span<const char> packed(found->pixels.constData(),
                                       static_cast<std::size_t>(found->pixels.size()));
    return unpack(packed, pixels) ? std::optional(SvgRaster{image, found->offset}) : std::nullopt;
}
