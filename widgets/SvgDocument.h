// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "widgets/PrerenderedSvg.h"

#include <QRectF>
#include <QSize>
#include <QString>
#include <QSvgRenderer>

#include <memory>
#include <optional>

/// An SVG file, shared by every SvgImage that shows it.
///
/// A file is parsed when it is loaded, a resource that has a prerendered form when its renderer is
/// first needed. Files are parsed once: load() hands out the same document again as long as the
/// file holds the same bytes. Documents that nobody uses any more are kept for a while, within a
/// fixed bound, so that a lamp which switches between two pictures does not parse them at every
/// change. GUI thread only.
class SvgDocument
{
public:
    /// The document of the file or resource \a path; null, silently, if that cannot be read or is
    /// no SVG.
    static std::shared_ptr<SvgDocument> load(const QString& path);

    ~SvgDocument();
    SvgDocument(const SvgDocument&) = delete;
    SvgDocument& operator=(const SvgDocument&) = delete;

    QSvgRenderer& renderer();
    bool isAnimated();
    QSize defaultSize();
    /// A number that no other document has or had.
    quint64 id() const { return m_id; }
    /// The part of the target rectangle that the picture draws on, in units of its width and
    /// height: (0, 0, 1, 1) for a picture that fills it exactly. Pictures may draw beyond their
    /// edges. Empty when the extent is unknown, too large to keep a raster of, or changing.
    QRectF extent();
    /// The raster of \a size pixels that the file brings along; nothing if it brings none.
    std::optional<SvgRaster> prerendered(const QSize& size) const;

private:
    explicit SvgDocument(const QString& path);

    QString m_path;
    std::optional<PrerenderedSvg> m_prerendered;
    QSvgRenderer m_renderer;
    bool m_isParsed = false;
    quint64 m_id;
    std::optional<QRectF> m_extent; ///< measured when it is first asked for
};
