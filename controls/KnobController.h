// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/AbstractController.h"
#include "controls/EditGesture.h"
#include "controls/KnobGeometry.h"
#include "controls/LinearDrag.h"
#include "controls/WheelAccumulator.h"
#include "widgets/Export.h"
#include "widgets/SvgImage.h"

#include <QPen>
#include <QWidget>

#include <optional>

namespace CommonController_MemAPI {

/// A rotary knob. Draws a background, a blurred shadow and a knob, all of them SVG pictures at
/// their own size in the middle of the widget, and either turns the knob's picture with the value
/// or draws an index line over it. It is turned by dragging, with the wheel and with the keyboard;
/// Control-click resets it to its default.
///
/// Angles are degrees, clockwise from 12 o'clock; lengths are pixels, multiplied by the scale.
/// Setters bring their argument into the property's bounds. A picture that cannot be loaded is left
/// out.
class ZOLTA_EXPORT KnobController : public QWidget, public AbstractController
{
    Q_OBJECT
    Q_PROPERTY(double startAngle READ startAngle WRITE setStartAngle)
    Q_PROPERTY(double spanAngle READ spanAngle WRITE setSpanAngle)
    Q_PROPERTY(double inside READ inside WRITE setInside)
    Q_PROPERTY(double outside READ outside WRITE setOutside)
    Q_PROPERTY(double thick READ thick WRITE setThick)
    Q_PROPERTY(double shadowBlur READ shadowBlur WRITE setShadowBlur)
    Q_PROPERTY(double knobDisableOpacity READ knobDisableOpacity WRITE setKnobDisableOpacity)
    Q_PROPERTY(QString knobSvg READ knobSvg WRITE setKnobSvg)
    Q_PROPERTY(QString shadowSvg READ shadowSvg WRITE setShadowSvg)
    Q_PROPERTY(QString backgroundSvg READ backgroundSvg WRITE setBackgroundSvg)
    Q_PROPERTY(KnobType knobType READ knobType WRITE setKnobType)
    Q_PROPERTY(OperationType operationType READ operationType WRITE setOperationType)
    Q_PROPERTY(int valueChangeStep READ valueChangeStep WRITE setValueChangeStep)

public:
    /// How the value is shown.
    enum KnobType {
        LineIndex = 0, ///< the picture stays, a line shows the value
        RotateKnob = 1 ///< the picture turns
    };
    Q_ENUM(KnobType)

    /// What dragging does.
    enum OperationType {
        Circular = 0,        ///< a press jumps to the pointer, a drag turns around the centre
        Linear = 1,          ///< a drag right or up raises the value
        RelativeCircular = 2 ///< a drag turns around the centre, from the current value
    };
    Q_ENUM(OperationType)

    explicit KnobController(QWidget* parent = nullptr);
    ~KnobController() override;

    void setScale(double scale) override;
    void setMemAPIValue(IMemAPI* memAPI, unsigned short parameter, unsigned short ch,
                        unsigned short index) override;

    /// Where the minimum is, 0 to 360.
    double startAngle() const { return m_geometry.startAngle; }
    void setStartAngle(double degrees);
    /// From the minimum to the maximum, 0 to 360.
    double spanAngle() const { return m_geometry.spanAngle; }
    void setSpanAngle(double degrees);
    /// The ends of the index line, from the centre; each takes the other along where it passes it.
    double inside() const { return m_inside; }
    void setInside(double length);
    double outside() const { return m_outside; }
    void setOutside(double length);
    /// The width of the index line.
    double thick() const { return m_thick; }
    void setThick(double width);
    /// The radius that the shadow is blurred with.
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
    KnobType knobType() const { return m_knobType; }
    void setKnobType(KnobType type);
    OperationType operationType() const { return m_operationType; }
    void setOperationType(OperationType type);
    /// What a notch of the wheel and a step of a linear drag count; ten of them are a page.
    int valueChangeStep() const { return m_valueChangeStep; }
    void setValueChangeStep(int step);

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
    void startDrag(QPoint point, Qt::KeyboardModifiers modifiers);
    void changeFineness(QPoint point, Qt::KeyboardModifiers modifiers);
    void turnTo(QPoint point, Qt::KeyboardModifiers modifiers);
    void slideTo(QPoint point, Qt::KeyboardModifiers modifiers);
    void pointTo(QPoint point);
    void loadSvg(SvgImage& image, const QString& path);
    void setLength(double& length, double value);

    bool isPointing(Qt::KeyboardModifiers modifiers) const;
    std::optional<int> keyTarget(int key) const;
    double shownPosition() const;
    QRectF pictureRect(const SvgImage& image) const;
    QPen indexPen() const;
    void paintKnob(QPainter& painter, double position);

    SvgImage m_knob;
    SvgImage m_shadow;
    SvgImage m_background;

    KnobGeometry m_geometry;
    double m_inside = 4.0;
    double m_outside = 14.0;
    double m_thick = 2.0;
    double m_shadowBlur = 2.0;
    double m_knobDisableOpacity = 1.0;
    KnobType m_knobType = LineIndex;
    OperationType m_operationType = Circular;
    int m_valueChangeStep = 1;

    EditGesture m_gesture;
    LinearDrag m_drag;
    WheelAccumulator m_wheel;
    float m_startNormalized = 0.0f;
    double m_turned = 0.0; ///< radians since m_startNormalized
};

} // namespace CommonController_MemAPI
