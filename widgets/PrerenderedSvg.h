// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "widgets/SvgRasters.h"

#include <QByteArray>
#include <QList>
#include <QRectF>
#include <QSize>

#include <optional>

class QString;

/// What is known of an SVG picture without parsing it: its size, its extent, and its rasters at
/// some sizes.
///
/// It is made when the library is built and lies among the resources, beside the picture, so that a
/// process's first window waits neither for the parser nor for the rasteriser. Runs of equal pixels
/// are stored once: most of a picture is ground, and unpacking takes no longer than writing the
/// pixels.
class PrerenderedSvg
{
public:
    /// That of the resource \a path, if it has one, from the resource ":/prerendered" + path
    /// without its colon. It refers to the resource's bytes.
    static std::optional<PrerenderedSvg> find(const QString& path);
    /// What bytes() gave, which must outlive it; nothing if \a bytes end too early.
    static std::optional<PrerenderedSvg> read(const QByteArray& bytes);

    PrerenderedSvg(const QSize& defaultSize, const QRectF& extent);
    /// Adds the raster of the picture stretched to \a size, in pixels, at a whole pixel.
    void add(const QSize& size, const SvgRaster& raster);
    QByteArray bytes() const;

    QSize defaultSize() const { return m_defaultSize; }
    /// As SvgDocument::extent().
    QRectF extent() const { return m_extent; }
    /// The raster that was added for \a size; nothing if there is none or its pixels are not whole.
    std::optional<SvgRaster> raster(const QSize& size) const;

private:
    /// A raster whose pixels are packed.
    struct Packed
    {
        QSize size;
        QPoint offset;
        QSize imageSize;
        QImage::Format format;
        QByteArray pixels;
    };

    QSize m_defaultSize;
    QRectF m_extent;
    QList<Packed> m_rasters;
};
