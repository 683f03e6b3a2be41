// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/AbstractController.h"
#include "widgets/Export.h"

#include <QPalette>
#include <QRectF>
#include <QRegion>
#include <QWidget>

#include <optional>

class QPainter;

namespace CommonController_MemAPI {

/// A vertical level meter with an indicator of overs above it. The value is a level in tenths of a
/// dB; it comes from a bound parameter or from setValue(). At first it is -127.0 dB, silence.
///
/// The level is shown on the converter's scale of 53 segments: linear per segment, not per dB. The
/// part above -18.0 dB is filled with the palette's Mid, the part below with Dark, and the over
/// indicator, lit by every positive value, with Light. The colour group is Disabled while disabled,
/// else Active with the keyboard focus, else Inactive.
///
/// All lengths are pixels, multiplied by the scale.
class ZOLTA_EXPORT MeterController : public QWidget, public AbstractController
{
    Q_OBJECT
    Q_PROPERTY(int meterLeftMargin READ meterLeftMargin WRITE setMeterLeftMargin)
    Q_PROPERTY(int meterRightMargin READ meterRightMargin WRITE setMeterRightMargin)
    Q_PROPERTY(int meterTopMargin READ meterTopMargin WRITE setMeterTopMargin)
    Q_PROPERTY(int meterBottomMargin READ meterBottomMargin WRITE setMeterBottomMargin)
    Q_PROPERTY(int meterOverMargin READ meterOverMargin WRITE setMeterOverMargin)
    Q_PROPERTY(int meterOverHeight READ meterOverHeight WRITE setMeterOverHeight)
    Q_PROPERTY(MeterType meterType READ meterType WRITE setMeterType)

public:
    /// Where the scale begins, in tenths of a dB below full. An int, because a property may be set
    /// to any number.
    enum MeterType : int { Minus600 = 0, Minus480 = 1, Minus225 = 2 };
    Q_ENUM(MeterType)

    explicit MeterController(QWidget* parent = nullptr);
    ~MeterController() override;

    void setScale(double scale) override;
    void setMemAPIValue(IMemAPI* memAPI, unsigned short parameter, unsigned short ch,
                        unsigned short index) override;

    int meterLeftMargin() const { return m_leftMargin; }
    void setMeterLeftMargin(int pixels);
    int meterRightMargin() const { return m_rightMargin; }
    void setMeterRightMargin(int pixels);
    /// Above the over indicator.
    int meterTopMargin() const { return m_topMargin; }
    void setMeterTopMargin(int pixels);
    int meterBottomMargin() const { return m_bottomMargin; }
    void setMeterBottomMargin(int pixels);
    /// Between the over indicator and the bar.
    int meterOverMargin() const { return m_overMargin; }
    void setMeterOverMargin(int pixels);
    int meterOverHeight() const { return m_overHeight; }
    void setMeterOverHeight(int pixels);
    MeterType meterType() const { return m_type; }
    void setMeterType(MeterType type);

Q_SIGNALS:
    /// The control was refreshed and has \a value.
    void valueChanged(int value);
    /// Not emitted: a meter has no gestures.
    void modifiersChange(AbstractController* pController, Qt::KeyboardModifiers modifiers);

protected:
    /// Repaints what differs between the level shown and the new one; bound, everything, because
    /// the host's value may have changed in between without notice.
    void valueChanged() override;

private Q_SLOTS:
    void valueChangedRequest() override;

protected:
    /// Draws what lies under the bar; nothing here.
    virtual void drawBackground(QPainter* painter);
    /// Draws the over indicator, lit or unlit.
    virtual void drawOver(QPainter* painter);
    /// Draws the bar.
    virtual void drawMeter(QPainter* painter);
    /// Contains every pixel that differs between the pictures of two values.
    virtual QRegion changedRegion(int from, int to) const;

    void paintEvent(QPaintEvent* event) override;

    /// Where the over indicator lies.
    QRectF scaledOverRect() const;
    /// Where the full bar lies.
    QRectF scaledMeterRect() const;
    /// The filled fraction of the bar at the level \a value, 0 to 1.
    double convertNormalized(int value) const;
    /// convertNormalized() of -18.0 dB, where the upper zone begins.
    double upperZoneStart() const;
    /// The part of scaledMeterRect() from the top down to where the bar is filled to \a fraction.
    QRectF rectAbove(double fraction) const;
    /// The part of scaledMeterRect() that is filled at one of two levels only; empty if none is.
    QRectF rectBetween(int from, int to) const;
    /// The pixels that an antialiased \a shape may touch, and a row above and below it; none for an
    /// empty shape. Nothing to its sides: meters side by side would be painted in pieces.
    static QRegion touchedPixels(const QRectF& shape);
    /// The value that is being painted: a paint event reads it once, for all that it draws.
    int readPaintedValue();
    /// What readPaintedValue() read.
    int paintedValue() const { return m_paintedValue; }
    /// The palette's brush of \a role in the meter's colour group.
    const QBrush& brush(QPalette::ColorRole role) const;
    /// Stores \a value and repaints if it differs.
    template <typename T> void setAndRepaint(T& property, T value)
    {
        if (property == value)
            return;
        property = value;
        update();
    }

private:
    int m_leftMargin = 0;
    int m_rightMargin = 0;
    int m_topMargin = 0;
    int m_bottomMargin = 0;
    int m_overMargin = 3;
    int m_overHeight = 3;
    MeterType m_type = Minus600;
    std::optional<int> m_shownValue; // unknown while the host's value is shown
    int m_paintedValue = 0;
};

} // namespace CommonController_MemAPI
