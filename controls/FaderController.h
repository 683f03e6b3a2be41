// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/AbstractController.h"
#include "controls/EditGesture.h"
#include "controls/FaderGeometry.h"
#include "controls/WheelAccumulator.h"
#include "widgets/Export.h"
#include "widgets/SvgImage.h"

#include <QTimer>
#include <QWidget>

#include <optional>

namespace CommonController_MemAPI {

/// A linear fader: a knob with a blurred shadow that slides over a background, all of them SVG
/// pictures at their own size times the scale. The knob travels over the widget's whole height or
/// width; the background lies in the widget's middle, the shadow in the knob's. It is moved by
/// dragging, with the wheel and with the keyboard; Control-click resets it to its default.
///
/// Setters bring their argument into the property's bounds. A picture that cannot be loaded is left
/// out; without the knob's picture there is no knob to take hold of.
class ZOLTA_EXPORT FaderController : public QWidget, public AbstractController
{
    Q_OBJECT
    Q_PROPERTY(Qt::Orientation orientation READ orientation WRITE setOrientation)
    Q_PROPERTY(double shadowBlur READ shadowBlur WRITE setShadowBlur)
    Q_PROPERTY(double knobDisableOpacity READ knobDisableOpacity WRITE setKnobDisableOpacity)
    Q_PROPERTY(QString knobSvg READ knobSvg WRITE setKnobSvg)
    Q_PROPERTY(QString shadowSvg READ shadowSvg WRITE setShadowSvg)
    Q_PROPERTY(QString backgroundSvg READ backgroundSvg WRITE setBackgroundSvg)
    Q_PROPERTY(bool enableDoubleClick READ enableDoubleClick WRITE setEnableDoubleClick)
    Q_PROPERTY(bool reverse READ reverse WRITE setReverse)
    Q_PROPERTY(OperationType operationType READ operationType WRITE setOperationType)

public:
    /// What a press beside the knob does.
    enum OperationType {
        Touch = 0,   ///< nothing
        Jump = 1,    ///< moves the knob to the pointer, then drags it
        Ramp = 2,    ///< moves the knob towards the pointer, step by step, while held
        Relative = 3 ///< drags the knob from where it is
    };
    Q_ENUM(OperationType)

    /// Milliseconds from the press to the second step of a ramp.
    static constexpr int FirstRampDelay = 300;
    /// Milliseconds between the later steps of a ramp.
    static constexpr int RampDelay = 100;

    explicit FaderController(QWidget* parent = nullptr);
    ~FaderController() override;

    void setScale(double scale) override;
    void setMemAPIValue(IMemAPI* memAPI, unsigned short parameter, unsigned short ch,
                        unsigned short index) override;

    /// The direction of travel.
    Qt::Orientation orientation() const { return m_orientation; }
    void setOrientation(Qt::Orientation orientation) { store(m_orientation, orientation); }
    /// The radius that the shadow is blurred with, in pixels, times the scale.
    double shadowBlur() const { return m_shadowBlur; }
    void setShadowBlur(double radius);
    /// The opacity of the knob's picture while disabled, 0 to 1.
    double knobDisableOpacity() const { return m_knobDisableOpacity; }
    void setKnobDisableOpacity(double opacity);
    QString knobSvg() const { return m_knob.path(); }
    void setKnobSvg(const QString& path);
    QString shadowSvg() const { return m_shadow.path(); }
    void setShadowSvg(const QString& path);
    QString backgroundSvg() const { return m_background.path(); }
    void setBackgroundSvg(const QString& path);
    /// Whether a double click on the knob resets it to its default.
    bool enableDoubleClick() const { return m_enableDoubleClick; }
    void setEnableDoubleClick(bool on) { m_enableDoubleClick = on; }
    /// Whether the minimum is at the top or at the right, not at the bottom or at the left.
    bool reverse() const { return m_reverse; }
    void setReverse(bool on) { store(m_reverse, on); }
    OperationType operationType() const { return m_operationType; }
    void setOperationType(OperationType type) { m_operationType = type; }

Q_SIGNALS:
    /// The control was refreshed and has \a value.
    void valueChanged(int value);
    /// The user changed the value of \a pController while \a modifiers were held.
    void modifiersChange(AbstractController* pController, Qt::KeyboardModifiers modifiers);
    /// A drag begins or ends.
    void drag(bool);

protected:
    void valueChanged() override;

private Q_SLOTS:
    void valueChangedRequest() override;

protected Q_SLOTS:
    /// From now on a double click is one again.
    void doubleClickTimeout();
    /// Moves a step towards the pointer, and again after RampDelay, or after FirstRampDelay when
    /// not to \a repeat, until a step has no effect.
    void ramp(bool repeat = true);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    template <class Value> void store(Value& member, Value value)
    {
        if (value == member)
            return;
        member = value;
        update();
    }
    void pressBesideKnob(QPoint point, Qt::KeyboardModifiers modifiers);
    void jumpTo(QPoint point, Qt::KeyboardModifiers modifiers);
    void startDrag(QPoint point, Qt::KeyboardModifiers modifiers);
    void dragTo(QPoint point, Qt::KeyboardModifiers modifiers);
    /// Whether the fader is still there.
    bool endDrag();
    void loadSvg(SvgImage& image, const QString& path);

    bool isVertical() const { return m_orientation == Qt::Vertical; }
    QSizeF pictureSize(const SvgImage& image) const;
    FaderGeometry travelLayout() const;
    bool isOnKnob(QPoint point) const;
    /// The position that puts the knob's middle at \a point, or the present one if it cannot
    /// travel.
    double positionAt(QPoint point) const;
    int rampTarget() const;
    /// The change that a key asks for, 0 for the arrows of the other axis.
    std::optional<int> keyStep(int key) const;
    void paintKnob(QPainter& painter, const QRectF& rect);

    Qt::Orientation m_orientation = Qt::Vertical;
    double m_shadowBlur = 2.0;
    double m_knobDisableOpacity = 1.0;
    SvgImage m_knob;
    SvgImage m_shadow;
    SvgImage m_background;
    bool m_enableDoubleClick = false;
    bool m_reverse = false;
    OperationType m_operationType = Touch;

    EditGesture m_gesture;
    bool m_fine = false;
    float m_startNormalized = 0.0f;
    QPoint m_pressPoint;
    QPoint m_currentPoint;
    bool m_doubleClickPending = false;
    WheelAccumulator m_wheel;
    QTimer m_doubleClickTimer;
    QTimer m_rampTimer;
};

} // namespace CommonController_MemAPI
