// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/KnobController.h"

#include "controls/ControlAccessible.h"
#include "controls/ModifierReport.h"
#include "controls/WideInteger.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace CommonController_MemAPI {

namespace {

// Degrees to radians to this precision, on purpose; so are the turns.
constexpr double Radian = 0.017453292519888888;
constexpr double FullTurn = 6.28318530716;
constexpr double HalfTurn = 3.14159265358;

double atLeastZero(double value) { return std::max(0.0, value); }

double clampTo(double maximum, double value) { return std::min(atLeastZero(value), maximum); }

QAccessibleInterface* makeAccessible(QWidget* control)
{
    return new ControlAccessible(control, static_cast<KnobController*>(control), QAccessible::Dial);
}

} // namespace

KnobController::KnobController(QWidget* parent)
    : QWidget(parent)
{
    setFocusPolicy(Qt::ClickFocus);
    for (SvgImage* image : {&m_knob, &m_shadow, &m_background})
        connect(image, &SvgImage::repaintNeeded, this, qOverload<>(&QWidget::update));
    registerAccessible(staticMetaObject, makeAccessible);
}

KnobController::~KnobController()
{
    endDrag();
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
    endDrag();
    bind(memAPI, parameter, ch, index);
}

void KnobController::setStartAngle(double degrees)
{
    setLength(m_startAngle, std::min(degrees, 360.0));
}

void KnobController::setSpanAngle(double degrees)
{
    setLength(m_spanAngle, std::min(degrees, 360.0));
}

void KnobController::setInside(double length)
{
    m_outside = std::max(m_outside, length);
    setLength(m_inside, length);
}

void KnobController::setOutside(double length)
{
    m_inside = std::min(m_inside, atLeastZero(length));
    setLength(m_outside, length);
}

void KnobController::setThick(double width) { setLength(m_thick, width); }

void KnobController::setShadowBlur(double radius)
{
    const double clamped = atLeastZero(radius);
    if (clamped == m_shadowBlur)
        return;
    m_shadowBlur = clamped;
    if (m_shadow.isValid())
        update();
}

void KnobController::setKnobDisableOpacity(double opacity)
{
    const double clamped = clampTo(1.0, opacity);
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
    valueChanged();
    const int now = value();
    announceValue(this, now);
    Q_EMIT valueChanged(now);
}

void KnobController::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !isEnabled()) {
        QWidget::mousePressEvent(event);
        return;
    }
    if (event->modifiers() == Qt::ControlModifier)
        resetToDefault(event->modifiers());
    else
        startDrag(event->position().toPoint(), event->modifiers());
}

void KnobController::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint point = event->position().toPoint();
    if (!(event->buttons() & Qt::LeftButton) || !m_dragging || point == m_drag.lastPoint() ||
        !isEnabled())
        return;
    const Qt::KeyboardModifiers modifiers = event->modifiers();
    if (m_drag.isFine() != LinearDrag::isFine(modifiers))
        changeFineness(point, modifiers);
    if (m_operationType == Linear)
        slideTo(point, modifiers);
    else
        turnTo(point, modifiers);
    m_drag.setLastPoint(point);
}

void KnobController::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        QWidget::mouseReleaseEvent(event);
    else if (m_dragging)
        endDrag();
}

void KnobController::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !isEnabled())
        QWidget::mouseDoubleClickEvent(event);
    else if (event->modifiers() & Qt::ControlModifier)
        resetToDefault(event->modifiers());
}

void KnobController::wheelEvent(QWheelEvent* event)
{
    event->accept();
    if (!isEnabled())
        return;
    setFocus(Qt::OtherFocusReason);
    const ModifierReport report(*this, event->modifiers());
    const std::int64_t steps = m_wheel.steps(*event, m_valueChangeStep);
    editValue(saturateToInt(value() + steps));
    if (report.isDue())
        Q_EMIT modifiersChange(this, report.modifiers());
}

void KnobController::keyPressEvent(QKeyEvent* event)
{
    const std::optional<int> target = isEnabled() ? keyTarget(event->key()) : std::nullopt;
    if (!target) {
        QWidget::keyPressEvent(event);
        return;
    }
    const ModifierReport report(*this, event->modifiers());
    editValue(*target);
    event->accept();
    if (report.isDue())
        Q_EMIT modifiersChange(this, report.modifiers());
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
    if (!isEnabled())
        endDrag();
    update();
}

void KnobController::hideEvent(QHideEvent* event)
{
    endDrag();
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
    painter.drawLine(indexLine(position));
}

void KnobController::startDrag(QPoint point, Qt::KeyboardModifiers modifiers)
{
    endDrag();
    openEdit();
    if (isPointing(modifiers))
        pointTo(point);
    // Whoever was told of the new value may have ended the gesture already.
    if (!isEditing())
        return;
    m_dragging = true;
    m_drag.begin(point, value(), LinearDrag::isFine(modifiers));
    m_startNormalized = normalized();
    m_turned = 0.0;
    Q_EMIT drag(true);
}

void KnobController::endDrag()
{
    const bool wasDragging = std::exchange(m_dragging, false);
    closeEdits();
    if (wasDragging)
        Q_EMIT drag(false);
}

void KnobController::changeFineness(QPoint point, Qt::KeyboardModifiers modifiers)
{
    if (isPointing(modifiers))
        pointTo(point);
    m_drag.reanchor(value(), LinearDrag::isFine(modifiers));
    m_startNormalized = normalized();
    m_turned = 0.0;
}

void KnobController::turnTo(QPoint point, Qt::KeyboardModifiers modifiers)
{
    m_turned += angleBetween(m_drag.lastPoint(), point);
    const double divisor = m_drag.isFine() ? LinearDrag::FineDivisor : 1.0;
    const ModifierReport report(*this, modifiers, ModifierReport::Of::Normalized);
    setNormalized(
        static_cast<float>(double{m_startNormalized} + m_turned / spanRadians() / divisor));
    if (report.isDue())
        Q_EMIT modifiersChange(this, report.modifiers());
}

void KnobController::slideTo(QPoint point, Qt::KeyboardModifiers modifiers)
{
    const ModifierReport report(*this, modifiers);
    setValue(m_drag.valueAt(point, minimumValue(), maximumValue(), scale(), m_valueChangeStep));
    if (report.isDue())
        Q_EMIT modifiersChange(this, report.modifiers());
}

void KnobController::pointTo(QPoint point)
{
    const double gap = (360.0 - m_spanAngle) * 0.5 * Radian;
    const double base = (m_startAngle - 90.0) * Radian - gap;
    double angle = screenAngle(point) - base;
    while (angle < 0.0)
        angle += FullTurn;
    setNormalized(static_cast<float>((angle - gap) / spanRadians()));
}

void KnobController::resetToDefault(Qt::KeyboardModifiers modifiers)
{
    const ModifierReport report(*this, modifiers);
    editToDefault();
    if (report.isDue())
        Q_EMIT modifiersChange(this, report.modifiers());
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
    const double clamped = atLeastZero(value);
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

double KnobController::spanRadians() const { return m_spanAngle * Radian; }

double KnobController::screenAngle(QPoint point) const
{
    return std::atan2(point.y() - height() / 2, point.x() - width() / 2);
}

double KnobController::angleBetween(QPoint from, QPoint to) const
{
    const double angle = screenAngle(to) - screenAngle(from);
    if (angle > HalfTurn)
        return angle - FullTurn;
    return angle < -HalfTurn ? angle + FullTurn : angle;
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

QLineF KnobController::indexLine(double position) const
{
    const double angle = (m_spanAngle * position + (m_startAngle - 90.0)) * Radian;
    const QPointF centre(width() * 0.5, height() * 0.5);
    const QPointF direction(std::cos(angle), std::sin(angle));
    return {centre + direction * (m_inside * scale()), centre + direction * (m_outside * scale())};
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
        m_knob.drawTurned(painter, pictureRect(m_knob), m_startAngle + m_spanAngle * position,
                          opacity, rect());
    else if (opacity < 1.0)
        m_knob.drawTranslucent(painter, pictureRect(m_knob), opacity, rect());
    else
        m_knob.draw(painter, pictureRect(m_knob));
}

} // namespace CommonController_MemAPI

#include "moc_KnobController.cpp"
