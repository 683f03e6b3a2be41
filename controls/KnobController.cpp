// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/KnobController.h"

#include "controls/ControlAccessible.h"
#include "controls/PropertyBounds.h"
#include "controls/WideInteger.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <array>
#include <cmath>

namespace CommonController_MemAPI {

KnobController::KnobController(QWidget* parent)
    : QWidget(parent)
    , m_gesture(*this)
{
    setFocusPolicy(Qt::ClickFocus);
    for (SvgImage* image : {&m_knob, &m_shadow, &m_background})
        connect(image, &SvgImage::repaintNeeded, this, qOverload<>(&QWidget::update));
    registerAccessible(staticMetaObject, makeAccessible<KnobController, QAccessible::Dial>);
}

KnobController::~KnobController()
{
    m_gesture.end();
    unbind();
}

void KnobController::setScale(double scale)
{
    if (storeScale(scale))
        update();
}

void KnobController::setMemAPIValue(IMemAPI* memAPI, unsigned short parameter, unsigned short ch,
                                    unsigned short index)
{
    if (isBoundTo(memAPI, parameter, ch, index))
        return;
    if (m_gesture.end())
        bind(memAPI, parameter, ch, index);
}

void KnobController::setStartAngle(double degrees)
{
    setLength(m_geometry.startAngle, within(0.0, 360.0, degrees));
}

void KnobController::setSpanAngle(double degrees)
{
    setLength(m_geometry.spanAngle, within(0.0, 360.0, degrees));
}

void KnobController::setInside(double length)
{
    m_outside = std::max(m_outside, length);
    setLength(m_inside, length);
}

void KnobController::setOutside(double length)
{
    m_inside = std::min(m_inside, atLeast(0.0, length));
    setLength(m_outside, length);
}

void KnobController::setThick(double width) { setLength(m_thick, width); }

void KnobController::setShadowBlur(double radius)
{
    const double clamped = atLeast(0.0, radius);
    if (clamped == m_shadowBlur)
        return;
    m_shadowBlur = clamped;
    if (m_shadow.isValid())
        update();
}

void KnobController::setKnobDisableOpacity(double opacity)
{
    const double clamped = within(0.0, 1.0, opacity);
    if (clamped == m_knobDisableOpacity)
        return;
    m_knobDisableOpacity = clamped;
    if (m_knob.isValid() && !isEnabled())
        update();
}

void KnobController::setKnobSvg(const QString& path) { loadSvg(m_knob, path); }

void KnobController::setShadowSvg(const QString& path) { loadSvg(m_shadow, path); }

void KnobController::setBackgroundSvg(const QString& path) { loadSvg(m_background, path); }

void KnobController::setKnobType(KnobType type)
{
    if (type == m_knobType)
        return;
    m_knobType = type;
    update();
}

void KnobController::setOperationType(OperationType type) { m_operationType = type; }

void KnobController::setValueChangeStep(int step) { m_valueChangeStep = step; }

void KnobController::valueChanged() { update(); }

void KnobController::valueChangedRequest()
{
    const Lifetime::Guard alive(lifetime());
    valueChanged();
    const int now = value();
    announceValue(this, now);
    if (alive)
        Q_EMIT valueChanged(now);
}

void KnobController::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !isEnabled()) {
        QWidget::mousePressEvent(event);
        return;
    }
    if (event->modifiers() == Qt::ControlModifier)
        m_gesture.resetToDefault(event->modifiers());
    else
        startDrag(event->position().toPoint(), event->modifiers());
}

void KnobController::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_gesture.isMove(*event, m_drag.lastPoint()))
        return;
    const Lifetime::Guard alive(lifetime());
    const QPoint point = event->position().toPoint();
    const Qt::KeyboardModifiers modifiers = event->modifiers();
    if (m_drag.isFine() != LinearDrag::isFine(modifiers))
        changeFineness(point, modifiers);
    if (!alive || !m_gesture.isDragging())
        return;
    if (m_operationType == Linear)
        slideTo(point, modifiers);
    else
        turnTo(point, modifiers);
    if (alive)
        m_drag.setLastPoint(point);
}

void KnobController::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        QWidget::mouseReleaseEvent(event);
    else if (m_gesture.isDragging())
        m_gesture.end();
}

void KnobController::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !isEnabled())
        QWidget::mouseDoubleClickEvent(event);
    else if (event->modifiers() & Qt::ControlModifier)
        m_gesture.resetToDefault(event->modifiers());
}

void KnobController::wheelEvent(QWheelEvent* event)
{
    event->accept();
    if (!isEnabled())
        return;
    const Lifetime::Guard alive(lifetime());
    setFocus(Qt::OtherFocusReason);
    if (alive)
        m_gesture.editBy(m_wheel.steps(*event, m_valueChangeStep), event->modifiers());
}

void KnobController::keyPressEvent(QKeyEvent* event)
{
    const std::optional<int> target = isEnabled() ? keyTarget(event->key()) : std::nullopt;
    if (!target) {
        QWidget::keyPressEvent(event);
        return;
    }
    event->accept();
    m_gesture.edit(*target, event->modifiers());
}

void KnobController::keyReleaseEvent(QKeyEvent* event)
{
    constexpr std::array stepKeys = {Qt::Key_Left, Qt::Key_Up,     Qt::Key_Right,
                                     Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown};
    if (isEnabled() && std::find(stepKeys.begin(), stepKeys.end(), event->key()) != stepKeys.end())
        event->accept();
    else
        QWidget::keyReleaseEvent(event);
}

void KnobController::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::EnabledChange)
        return;
    if (isEnabled() || m_gesture.end())
        update();
}

void KnobController::hideEvent(QHideEvent* event)
{
    if (m_gesture.end())
        QWidget::hideEvent(event);
}

void KnobController::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double position = shownPosition();
    m_background.draw(painter, pictureRect(m_background));
    m_shadow.drawBlurred(painter, pictureRect(m_shadow), m_shadowBlur * scale(), rect());
    paintKnob(painter, position);
    if (m_knobType != LineIndex)
        return;
    painter.setPen(indexPen());
    painter.drawLine(
        m_geometry.indexLine(position, size(), m_inside * scale(), m_outside * scale()));
}

void KnobController::startDrag(QPoint point, Qt::KeyboardModifiers modifiers)
{
    const Lifetime::Guard alive(lifetime());
    if (!m_gesture.open())
        return;
    if (isPointing(modifiers))
        pointTo(point);
    // Whoever was told of the new value may have ended the gesture already.
    if (!alive || !isEditing())
        return;
    m_drag.begin(point, value(), LinearDrag::isFine(modifiers));
    m_startNormalized = normalized();
    m_turned = 0.0;
    m_gesture.start();
}

void KnobController::changeFineness(QPoint point, Qt::KeyboardModifiers modifiers)
{
    const Lifetime::Guard alive(lifetime());
    if (isPointing(modifiers))
        pointTo(point);
    if (!alive)
        return;
    m_drag.reanchor(value(), LinearDrag::isFine(modifiers));
    m_startNormalized = normalized();
    m_turned = 0.0;
}

void KnobController::turnTo(QPoint point, Qt::KeyboardModifiers modifiers)
{
    m_turned += KnobGeometry::turn(m_drag.lastPoint(), point, size());
    const double divisor = m_drag.isFine() ? LinearDrag::FineDivisor : 1.0;
    const double target = double{m_startNormalized} + m_turned / m_geometry.span() / divisor;
    m_gesture.setNormalized(static_cast<float>(target), modifiers);
}

void KnobController::slideTo(QPoint point, Qt::KeyboardModifiers modifiers)
{
    const auto [minimum, maximum] = range();
    const int target = m_drag.valueAt(point, minimum, maximum, scale(), m_valueChangeStep);
    m_gesture.setValue(target, modifiers);
}

void KnobController::pointTo(QPoint point)
{
    setNormalized(static_cast<float>(m_geometry.positionAt(point, size())));
}

void KnobController::loadSvg(SvgImage& image, const QString& path)
{
    if (path == image.path())
        return;
    image.load(path);
    update();
}

void KnobController::setLength(double& length, double value)
{
    const double clamped = atLeast(0.0, value);
    if (clamped == length)
        return;
    length = clamped;
    update();
}

bool KnobController::isPointing(Qt::KeyboardModifiers modifiers) const
{
    return m_operationType == Circular && !LinearDrag::isFine(modifiers) &&
           !(modifiers & Qt::ControlModifier);
}

std::optional<int> KnobController::keyTarget(int key) const
{
    const std::int64_t page = std::int64_t{10} * m_valueChangeStep;
    switch (key) {
    case Qt::Key_Home:
        return minimumValue();
    case Qt::Key_End:
        return maximumValue();
    case Qt::Key_Left:
    case Qt::Key_Down:
        return saturateToInt(std::int64_t{value()} - 1);
    case Qt::Key_Right:
    case Qt::Key_Up:
        return saturateToInt(std::int64_t{value()} + 1);
    case Qt::Key_PageUp:
        return saturateToInt(value() + page);
    case Qt::Key_PageDown:
        return saturateToInt(value() - page);
    default:
        return std::nullopt;
    }
}

double KnobController::shownPosition() const
{
    const double position = double{normalized()};
    return std::isfinite(position) ? position : 0.0;
}

QRectF KnobController::pictureRect(const SvgImage& image) const
{
    const QSizeF size = QSizeF(image.defaultSize()) * scale();
    return {QPointF(width() - size.width(), height() - size.height()) * 0.5, size};
}

QPen KnobController::indexPen() const
{
    const QPalette::ColorGroup enabledGroup = hasFocus() ? QPalette::Active : QPalette::Inactive;
    const QBrush brush =
        palette().brush(isEnabled() ? enabledGroup : QPalette::Disabled, QPalette::WindowText);
    return {brush, m_thick * scale(), Qt::SolidLine, Qt::FlatCap, Qt::BevelJoin};
}

void KnobController::paintKnob(QPainter& painter, double position)
{
    const double opacity = isEnabled() ? 1.0 : m_knobDisableOpacity;
    if (m_knobType == RotateKnob)
        m_knob.drawTurned(painter, pictureRect(m_knob),
                          m_geometry.startAngle + m_geometry.spanAngle * position, opacity, rect());
    else if (opacity < 1.0)
        m_knob.drawTranslucent(painter, pictureRect(m_knob), opacity, rect());
    else
        m_knob.draw(painter, pictureRect(m_knob));
}

} // namespace CommonController_MemAPI

#include "moc_KnobController.cpp"
