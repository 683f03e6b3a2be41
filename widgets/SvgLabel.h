// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "widgets/Export.h"
#include "widgets/SvgImage.h"

#include <QLabel>

#include <functional>
#include <optional>
#include <utility>

/// A label that shows an SVG picture, stretched over its whole rectangle, underneath whatever a
/// label shows. A second picture takes its place while the label is disabled, if it has both.
/// Pictures that cannot be loaded leave the label blank.
class ZOLTA_EXPORT SvgLabel : public QLabel
{
    Q_OBJECT
    Q_PROPERTY(QString svg READ svg WRITE setSvg)
    // Forms know the picture of the disabled state by this name, which is not its setter's.
    Q_PROPERTY(QString disableSvgRenderer READ disableSvg WRITE setDisableSvg)
    Q_PROPERTY(double opacity READ opacity WRITE setOpacity)

public:
    explicit SvgLabel(QWidget* parent = nullptr);

    /// Paths of files or resources.
    QString svg() const { return m_image.path(); }
    void setSvg(const QString& path);
    QString disableSvg() const { return m_disabledImage.path(); }
    void setDisableSvg(const QString& path);
    /// The opacity that the picture is painted with; values outside of 0 to 1 count as the nearer
    /// of the two.
    double opacity() const { return m_opacity; }
    void setOpacity(double opacity);

    /// The pixels that the label paints on the device of \a painter, with their place on it, when
    /// its left top corner lies at \a corner of the painter and it paints nothing but a picture
    /// that covers everything beneath; else an image that is null.
    SvgRaster coveringPixels(const QPainter& painter, const QPoint& corner);

    /// Tells which pixels of a painter's device another widget paints over after the label, whole.
    using Cover = std::function<QRect(const QPainter&)>;
    /// The label leaves what \a cover tells out of its picture, where that saves time. It is asked
    /// whenever the label is painted; empty for none.
    void setCover(Cover cover) { m_cover = std::move(cover); }

    /// Whether the label may tell Qt that nothing beneath it is seen, which is then not painted: as
    /// long as its picture is known to cover all of it at a whole pixel ratio. False at first. For
    /// a label that fills a window; small ones would cut what they lie on into pieces.
    void setHidesGround(bool hides);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    SvgImage& shownImage();
    void lookAtGround(const QPainter& painter);
    /// The ground is painted until the next painting has shown that it is not seen.
    void forgetGround();
    /// Whether the label has a frame or contents, or a style sheet that may give it some.
    bool showsMore() const;

    SvgImage m_image;
    SvgImage m_disabledImage;
    double m_opacity = 1.0;
    Cover m_cover;
    bool m_hidesGround = false;
    std::optional<double> m_groundRatio; ///< that the ground was looked at for
};
