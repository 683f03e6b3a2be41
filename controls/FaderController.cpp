// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/FaderController.h"

#include "controls/ControlAccessible.h"
#include "controls/LinearDrag.h"
#include "controls/PropertyBounds.h"
#include "controls/WideInteger.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace CommonController_MemAPI {

namespace {

constexpr int RampStep = 5;
constexpr int PageStep = 10;

QRectF centred(const QPointF& centre, const QSizeF& size)
{
    return {centre - QPointF(size.width(), size.height()) * 0.5, size};
}

/// What moves \a position to the nearest whole pixel of the device, in the painter's units.
QPointF pixelCorrection(const QPainter& painter, const QPointF& position)
{
    const QTransform toDevice = painter.deviceTransform();
    if (toDevice.type() > QTransform::TxScale || !toDevice.isInvertible())
        return {};
    const QPointF device = toDevice.map(position);
    const QPointF pixel(std::round(device.x()), std::round(device.y()));
    return toDevice.inverted().map(pixel) - position;
}

} // namespace

FaderController::FaderController(QWidget* parent)
    : QWidget(parent)
    , m_gesture(*this)
    , m_doubleClickTimer(this)
    , m_rampTimer(this)
{
    setFocusPolicy(Qt::ClickFocus);
    for (SvgImage* image : {&m_knob, &m_shadow, &m_background})
        connect(image, &SvgImage::repaintNeeded, this, qOverload<>(&QWidget::update));
    for (QTimer* timer : {&m_doubleClickTimer, &m_rampTimer})
        timer->setSingleShot(true);
    connect(&m_doubleClickTimer, &QTimer::timeout, this, &FaderController::doubleClickTimeout);
    connect(&m_rampTimer, &QTimer::timeout, this, [this] { ramp(); });
    registerAccessible(staticMetaObject, makeAccessible<FaderController, QAccessible::Slider>);
}

FaderController::~FaderController()
{
    endDrag();
    unbind();
}

void FaderController::setScale(double scale)
{
    if (storeScale(scale))
        update();
}

void FaderController::setMemAPIValue(IMemAPI* memAPI, unsigned short parameter, unsigned short ch,
                                     unsigned short index)
{
    if (isBoundTo(memAPI, parameter, ch, index))
        return;
    if (endDrag())
        bind(memAPI, parameter, ch, index);
}

void FaderController::setShadowBlur(double radius)
{
    const double clamped = atLeast(0.0, radius);
    if (clamped == m_shadowBlur)
        return;
    m_shadowBlur = clamped;
    if (m_shadow.isValid())
        update();
}

void FaderController::setKnobDisableOpacity(double opacity)
{
    const double clamped = within(0.0, 1.0, opacity);
    if (clamped == m_knobDisableOpacity)
        return;
    m_knobDisableOpacity = clamped;
    if (m_knob.isValid() && !isEnabled())
        update();
}

void FaderController::setKnobSvg(const QString& path) { loadSvg(m_knob, path); }

void FaderController::setShadowSvg(const QString& path) { loadSvg(m_shadow, path); }

void FaderController::setBackgroundSvg(const QString& path) { loadSvg(m_background, path); }

void FaderController::valueChanged() { update(); }

void FaderController::valueChangedRequest()
{
    const Lifetime::Guard alive(lifetime());
    valueChanged();
    const int now = value();
    announceValue(this, now);
    if (alive)
        Q_EMIT valueChanged(now);
}

void FaderController::doubleClickTimeout() { m_doubleClickPending = false; }

void FaderController::ramp(bool repeat)
{
    if (!m_gesture.isDragging() || m_operationType != Ramp)
        return;
    const Lifetime::Guard alive(lifetime());
    const Qt::KeyboardModifiers modifiers = QGuiApplication::keyboardModifiers();
    const float before = normalized();
    const std::int64_t step = LinearDrag::isFine(modifiers) ? 1 : RampStep;
    const std::int64_t now = value();
    m_gesture.setValue(
        saturateToInt(std::clamp<std::int64_t>(rampTarget(), now - step, now + step)), modifiers,
        ModifierReport::Of::Normalized);
    if (!alive || !m_gesture.isDragging())
        return;
    // A range of one value has no position, which is not a change.
    const float after = normalized();
    if (after != before && !std::isnan(after))
        m_rampTimer.start(repeat ? RampDelay : FirstRampDelay);
}

void FaderController::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !isEnabled()) {
        QWidget::mousePressEvent(event);
        return;
    }
    if (!endDrag())
        return;
    const QPoint point = event->position().toPoint();
    const Qt::KeyboardModifiers modifiers = event->modifiers();
    const bool onKnob = isOnKnob(point);
    if (modifiers == Qt::ControlModifier && (onKnob || m_operationType == Jump))
        m_gesture.resetToDefault(modifiers);
    else if (onKnob)
        startDrag(point, modifiers);
    else
        pressBesideKnob(point, modifiers);
}

void FaderController::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_gesture.isMove(*event, m_currentPoint))
        return;
    const Lifetime::Guard alive(lifetime());
    const QPoint point = event->position().toPoint();
    const bool fine = LinearDrag::isFine(event->modifiers());
    if (fine != m_fine) {
        m_fine = fine;
        m_startNormalized = normalized();
        m_pressPoint = m_currentPoint;
    }
    if (m_operationType != Ramp)
        dragTo(point, event->modifiers());
    if (alive)
        m_currentPoint = point;
}

void FaderController::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        QWidget::mouseReleaseEvent(event);
    else if (m_gesture.isDragging())
        endDrag();
}

void FaderController::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !isEnabled())
        QWidget::mouseDoubleClickEvent(event);
    else if (m_enableDoubleClick && !m_doubleClickPending && isOnKnob(event->position().toPoint()))
        m_gesture.resetToDefault(event->modifiers());
}

void FaderController::wheelEvent(QWheelEvent* event)
{
    event->accept();
    if (!isEnabled())
        return;
    const Lifetime::Guard alive(lifetime());
    setFocus(Qt::OtherFocusReason);
    if (!alive)
        return;
    const std::int64_t steps = m_wheel.steps(*event, 1);
    m_gesture.editBy(m_reverse ? -steps : steps, event->modifiers());
}

void FaderController::keyPressEvent(QKeyEvent* event)
{
    const std::optional<int> step = isEnabled() ? keyStep(event->key()) : std::nullopt;
    if (!step) {
        QWidget::keyPressEvent(event);
        return;
    }
    event->accept();
    if (*step != 0)
        m_gesture.editBy(m_reverse ? -*step : *step, event->modifiers());
}

void FaderController::keyReleaseEvent(QKeyEvent* event)
{
    if (isEnabled() && keyStep(event->key()))
        event->accept();
    else
        QWidget::keyReleaseEvent(event);
}

void FaderController::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::EnabledChange)
        return;
    if (isEnabled() || endDrag())
        update();
}

void FaderController::hideEvent(QHideEvent* event)
{
    if (endDrag())
        QWidget::hideEvent(event);
}

void FaderController::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPointF middle(width() * 0.5, height() * 0.5);
    m_background.draw(painter, centred(middle, pictureSize(m_background)));

    // Along its travel the knob rests on whole pixels, so that it stays sharp while it moves.
    QRectF knob = travelLayout().knobRect(double{normalized()});
    const QPointF correction = pixelCorrection(painter, knob.topLeft());
    knob.translate(isVertical() ? QPointF(0.0, correction.y()) : QPointF(correction.x(), 0.0));
    m_shadow.drawBlurred(painter, centred(knob.center(), pictureSize(m_shadow)),
                         m_shadowBlur * scale(), rect());
    paintKnob(painter, knob);
}

void FaderController::pressBesideKnob(QPoint point, Qt::KeyboardModifiers modifiers)
{
    switch (m_operationType) {
    case Touch:
        break;
    case Jump:
        jumpTo(point, modifiers);
        break;
    case Ramp:
    case Relative:
        startDrag(point, modifiers);
        break;
    }
}

void FaderController::jumpTo(QPoint point, Qt::KeyboardModifiers modifiers)
{
    const Lifetime::Guard alive(lifetime());
    if (!m_gesture.open())
        return;
    m_gesture.setNormalized(static_cast<float>(positionAt(point)), modifiers);
    if (!alive)
        return;
    if (m_enableDoubleClick) {
        m_doubleClickPending = true;
        m_doubleClickTimer.start(QApplication::doubleClickInterval());
    }
    // Whoever was told of the new value may have ended the gesture already.
    if (isEditing())
        startDrag(point, modifiers);
}

void FaderController::startDrag(QPoint point, Qt::KeyboardModifiers modifiers)
{
    const Lifetime::Guard alive(lifetime());
    if (!isEditing() && !m_gesture.open())
        return;
    m_fine = LinearDrag::isFine(modifiers);
    m_startNormalized = normalized();
    m_pressPoint = m_currentPoint = point;
    m_gesture.start();
    if (alive && m_operationType == Ramp)
        ramp(false);
}

void FaderController::dragTo(QPoint point, Qt::KeyboardModifiers modifiers)
{
    const FaderGeometry shape = travelLayout();
    if (shape.travel() <= 0.0)
        return;
    const double change = shape.change(QPointF(point) - m_pressPoint);
    const double divisor = m_fine ? LinearDrag::FineDivisor : 1.0;
    m_gesture.setNormalized(static_cast<float>(double{m_startNormalized} + change / divisor),
                            modifiers);
}

bool FaderController::endDrag()
{
    m_rampTimer.stop();
    return m_gesture.end();
}

void FaderController::loadSvg(SvgImage& image, const QString& path)
{
    if (path != image.path())
        image.load(path);
}

QSizeF FaderController::pictureSize(const SvgImage& image) const
{
    return QSizeF(image.defaultSize()) * scale();
}

FaderGeometry FaderController::travelLayout() const
{
    return {size(), pictureSize(m_knob), m_orientation == Qt::Vertical, m_reverse};
}

bool FaderController::isOnKnob(QPoint point) const
{
    const QRectF knob = travelLayout().knobRect(double{normalized()});
    return !knob.isEmpty() && knob.contains(point);
}

double FaderController::positionAt(QPoint point) const
{
    const FaderGeometry shape = travelLayout();
    return shape.travel() > 0.0 ? shape.positionAt(point) : double{normalized()};
}

int FaderController::rampTarget() const
{
    const auto [minimum, maximum] = range();
    const double offset = positionAt(m_currentPoint) * (double(maximum) - minimum) + 0.5;
    return saturateToInt(minimum + truncateToInteger(offset));
}

std::optional<int> FaderController::keyStep(int key) const
{
    switch (key) {
    case Qt::Key_Up:
        return isVertical() ? 1 : 0;
    case Qt::Key_Down:
        return isVertical() ? -1 : 0;
    case Qt::Key_Right:
        return isVertical() ? 0 : 1;
    case Qt::Key_Left:
        return isVertical() ? 0 : -1;
    case Qt::Key_PageUp:
        return PageStep;
    case Qt::Key_PageDown:
        return -PageStep;
    default:
        return std::nullopt;
    }
}

void FaderController::paintKnob(QPainter& painter, const QRectF& rect)
{
    if (!isEnabled() && m_knobDisableOpacity < 1.0)
        m_knob.drawTranslucent(painter, rect, m_knobDisableOpacity, this->rect());
    else
        m_knob.draw(painter, rect);
}

} // namespace CommonController_MemAPI

#include "moc_FaderController.cpp"
