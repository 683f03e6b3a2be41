// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "widgets/Export.h"

#include <QObject>
#include <QRect>
#include <QSize>
#include <QString>

#include <memory>

class QPainter;
class SvgDocument;
struct SvgRaster;

/// An SVG picture that is rendered once and then drawn from memory.
///
/// Rasters are made per device size, position within the pixel, opacity and angle, and shared by
/// all images of the same file in the process (see SvgRasters for the bound). Drawing is therefore
/// sharp at every device pixel ratio, and drawing again what was drawn before costs one copy.
/// Where a raster does not serve (a painter that turns, mirrors or clips to more than a rectangle,
/// composition modes other than source-over, paint engines other than the raster one, pictures that
/// are animated or exceed SvgRasters::MaximumBytesOfOne) the picture is rendered directly.
///
/// Nothing is reported: an image that is not valid draws nothing. GUI thread only.
class ZOLTA_EXPORT SvgImage : public QObject
{
    Q_OBJECT

public:
    explicit SvgImage(QObject* parent = nullptr);
    ~SvgImage() override;

    /// Reads the file \a path and emits repaintNeeded(). The image is not valid if that is empty,
    /// cannot be read or is no SVG. Loading the same path again reads it again; rasters survive
    /// only if the file is the same. A resource, which does not change, is read when it is first
    /// needed.
    void load(const QString& path);

    /// The path last given to load(), whether or not it was good.
    QString path() const { return m_path; }
    /// Whether there is a picture to draw.
    bool isValid() const { return document() != nullptr; }
    /// The picture's own size; (0, 0) if not valid.
    QSize defaultSize() const;

    /// Stretches the picture over \a rect. The pixels are those of QSvgRenderer::render(), exactly
    /// where no more than one plain shape is translucent, by its edge or its paint. Elsewhere they
    /// differ by rounding: by 1/255 inside gradients, whose colours the rasteriser finds by its
    /// place on the device, and by 1/255 for each further translucent shape on the same pixel,
    /// because these are blended with each other first and with the ground last. The painter's
    /// opacity applies to each shape by itself, as it does there. The pixels \a covered of the
    /// device need not be drawn.
    void draw(QPainter& painter, const QRectF& rect, const QRect& covered = {});

    /// Draws the picture turned clockwise around the middle of \a rect by \a degrees, with
    /// \a opacity (0 to 1) as one sheet. \a canvas is all that can be seen, in the painter's units.
    /// Every angle is a picture of its own and has a raster of its own, so that a value that moves
    /// to and fro meets them again. The pixels are those of a turned painter, to within the
    /// rounding of the blending.
    void drawTurned(QPainter& painter, const QRectF& rect, double degrees, double opacity,
                    const QRect& canvas);

    /// Draws the picture as a QGraphicsBlurEffect of \a radius does, when the picture was drawn
    /// into an empty pixmap that covers \a canvas: what lies outside of it is cut off before the
    /// blur and after it (but not for a painter that turns). All lengths, the radius too, are in
    /// the painter's units, so a blur looks the same at every device pixel ratio. As with that
    /// effect, a radius below one device pixel does not blur.
    void drawBlurred(QPainter& painter, const QRectF& rect, double radius, const QRect& canvas);

    /// Draws the picture as a QGraphicsOpacityEffect of \a opacity (0 to 1) does: as one sheet,
    /// where setting the painter's opacity would fade every shape by itself and let those
    /// underneath shine through. \a canvas as above; it is cut off at its edges.
    void drawTranslucent(QPainter& painter, const QRectF& rect, double opacity,
                         const QRect& canvas);

    /// The pixels that draw() copies to the device of \a painter, with their place on it, if they
    /// cover everything that lies beneath them; else an image that is null.
    SvgRaster coveringPixels(const QPainter& painter, const QRectF& rect);

Q_SIGNALS:
    /// The picture changed: it was loaded, or it is animated.
    void repaintNeeded();

private:
    SvgDocument* document() const;
    void read() const;

    QString m_path;
    mutable bool m_isRead = true;
    mutable std::shared_ptr<SvgDocument> m_document; ///< null until it is read
};
