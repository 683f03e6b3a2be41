// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/FaderController.h"

#include "controls/ControlAccessible.h"
#include "controls/LinearDrag.h"
#include "controls/ModifierReport.h"
#include "controls/WideInteger.h"

#include <QApplication>
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

constexpr int RampStep = 5;
constexpr int PageStep = 10;

QAccessibleInterface* makeAccessible(QWidget* control)
{
    return new ControlAccessible(control, static_cast<FaderController*>(control),
                                 QAccessible::Slider);
}

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
    registerAccessible(staticMetaObject, makeAccessible);
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
    endDrag();
    bind(memAPI, parameter, ch, index);
}

void FaderController::setOrientation(Qt::Orientation orientation)
{
    if (orientation == m_orientation)
        return;
    m_orientation = orientation;
    update();
}

void FaderController::setShadowBlur(double radius)
{
    const double clamped = std::max(0.0, radius);
    if (clamped == m_shadowBlur)
        return;
    m_shadowBlur = clamped;
    if (m_shadow.isValid())
        update();
}

void FaderController::setKnobDisableOpacity(double opacity)
{
    const double clamped = std::min(std::max(0.0, opacity), 1.0);
    if (clamped == m_knobDisableOpacity)
        return;
    m_knobDisableOpacity = clamped;
    if (m_knob.isValid() && !isEnabled())
        update();
}

void FaderController::setKnobSvg(const QString& path) { loadSvg(m_knob, path); }

void FaderController::setShadowSvg(const QString& path) { loadSvg(m_shadow, path); }

void FaderController::setBackgroundSvg(const QString& path) { loadSvg(m_background, path); }

void FaderController::setReverse(bool on)
{
    if (on == m_reverse)
        return;
    m_reverse = on;
    update();
}

void FaderController::valueChanged() { update(); }

void FaderController::valueChangedRequest()
{
    valueChanged();
    const int now = value();
    announceValue(this, now);
    Q_EMIT valueChanged(now);
}

void FaderController::doubleClickTimeout() { m_doubleClickPending = false; }

void FaderController::ramp(bool repeat)
{
    if (!m_dragging || m_operationType != Ramp)
        return;
    const Qt::KeyboardModifiers modifiers = QGuiApplication::keyboardModifiers();
    const ModifierReport report(*this, modifiers, ModifierReport::Of::Normalized);
    const float before = normalized();
    const std::int64_t step = LinearDrag::isFine(modifiers) ? 1 : RampStep;
    const std::int64_t now = value();
    setValue(saturateToInt(std::clamp<std::int64_t>(rampTarget(), now - step, now + step)));
    if (report.isDue())
        Q_EMIT modifiersChange(this, modifiers);
    // A range of one value has no position, which is not a change.
    const float after = normalized();
    if (m_dragging && after != before && !std::isnan(after))
        m_rampTimer.start(repeat ? RampDelay : FirstRampDelay);
}

void FaderController::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !isEnabled()) {
        QWidget::mousePressEvent(event);
        return;
    }
    endDrag();
    const QPoint point = event->position().toPoint();
    const Qt::KeyboardModifiers modifiers = event->modifiers();
    const bool onKnob = isOnKnob(point);
    if (modifiers == Qt::ControlModifier && (onKnob || m_operationType == Jump))
        resetToDefault(modifiers);
    else if (onKnob)
        startDrag(point, modifiers);
    else
        pressBesideKnob(point, modifiers);
}

void FaderController::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint point = event->position().toPoint();
    if (!(event->buttons() & Qt::LeftButton) || !m_dragging || point == m_currentPoint ||
        !isEnabled())
        return;
    const bool fine = LinearDrag::isFine(event->modifiers());
    if (fine != m_fine) {
        m_fine = fine;
        m_startNormalized = normalized();
        m_pressPoint = m_currentPoint;
    }
    if (m_operationType != Ramp)
        dragTo(point, event->modifiers());
    m_currentPoint = point;
}

void FaderController::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        QWidget::mouseReleaseEvent(event);
    else if (m_dragging)
        endDrag();
}

void FaderController::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !isEnabled())
        QWidget::mouseDoubleClickEvent(event);
    else if (m_enableDoubleClick && !m_doubleClickPending && isOnKnob(event->position().toPoint()))
        resetToDefault(event->modifiers());
}

void FaderController::wheelEvent(QWheelEvent* event)
{
    event->accept();
    if (!isEnabled())
        return;
    setFocus(Qt::OtherFocusReason);
    const ModifierReport report(*this, event->modifiers());
    const std::int64_t steps = m_wheel.steps(*event, 1);
    editValue(saturateToInt(value() + (m_reverse ? -steps : steps)));
    if (report.isDue())
        Q_EMIT modifiersChange(this, report.modifiers());
}

void FaderController::keyPressEvent(QKeyEvent* event)
{
    const std::optional<int> step = isEnabled() ? keyStep(event->key()) : std::nullopt;
    if (!step) {
        QWidget::keyPressEvent(event);
        return;
    }
    event->accept();
    if (*step == 0)
        return;
    const ModifierReport report(*this, event->modifiers());
    editValue(saturateToInt(std::int64_t{value()} + (m_reverse ? -*step : *step)));
    if (report.isDue())
        Q_EMIT modifiersChange(this, report.modifiers());
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
    if (!isEnabled())
        endDrag();
    update();
}

void FaderController::hideEvent(QHideEvent* event)
{
    endDrag();
    QWidget::hideEvent(event);
}

void FaderController::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPointF middle(width() * 0.5, height() * 0.5);
    m_background.draw(painter, centred(middle, pictureSize(m_background)));

    // Along its travel the knob rests on whole pixels, so that it stays sharp while it moves.
    QRectF knob = knobRect(double{normalized()});
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
    openEdit();
    const ModifierReport report(*this, modifiers, ModifierReport::Of::Normalized);
    setNormalized(static_cast<float>(positionAt(point)));
    if (report.isDue())
        Q_EMIT modifiersChange(this, modifiers);
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
    if (!isEditing())
        openEdit();
    m_dragging = true;
    m_fine = LinearDrag::isFine(modifiers);
    m_startNormalized = normalized();
    m_pressPoint = m_currentPoint = point;
    Q_EMIT drag(true);
    if (m_operationType == Ramp)
        ramp(false);
}

void FaderController::dragTo(QPoint point, Qt::KeyboardModifiers modifiers)
{
    if (travel() <= 0.0)
        return;
    const QPointF moved = QPointF(point) - m_pressPoint;
    const double distance = isVertical() ? -moved.y() : moved.x();
    const double change = distance / travel() / (m_fine ? LinearDrag::FineDivisor : 1.0);
    const ModifierReport report(*this, modifiers, ModifierReport::Of::Normalized);
    setNormalized(static_cast<float>(double{m_startNormalized} + (m_reverse ? -change : change)));
    if (report.isDue())
        Q_EMIT modifiersChange(this, modifiers);
}

void FaderController::endDrag()
{
    const bool wasDragging = std::exchange(m_dragging, false);
    m_rampTimer.stop();
    closeEdits();
    if (wasDragging)
        Q_EMIT drag(false);
}

void FaderController::resetToDefault(Qt::KeyboardModifiers modifiers)
{
    const ModifierReport report(*this, modifiers);
    editToDefault();
    if (report.isDue())
        Q_EMIT modifiersChange(this, modifiers);
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

double FaderController::travel() const
{
    const QSizeF knob = pictureSize(m_knob);
    return isVertical() ? height() - knob.height() : width() - knob.width();
}

QRectF FaderController::knobRect(double normalized) const
{
    const QSizeF size = pictureSize(m_knob);
    const double position = normalized >= 0.0 ? std::min(normalized, 1.0) : 0.0;
    const double n = m_reverse ? 1.0 - position : position;
    const QPointF corner = isVertical()
                               ? QPointF(0.5 * (width() - size.width()), (1.0 - n) * travel())
                               : QPointF(n * travel(), 0.5 * (height() - size.height()));
    return {corner, size};
}

bool FaderController::isOnKnob(QPoint point) const
{
    const QRectF knob = knobRect(double{normalized()});
    return !knob.isEmpty() && knob.contains(point);
}

double FaderController::positionAt(QPoint point) const
{
    if (travel() <= 0.0)
        return double{normalized()};
    const QSizeF knob = pictureSize(m_knob);
    const double n = isVertical() ? 1.0 - (point.y() - 0.5 * knob.height()) / travel()
                                  : (point.x() - 0.5 * knob.width()) / travel();
    return m_reverse ? 1.0 - n : n;
}

int FaderController::rampTarget() const
{
    const int minimum = minimumValue();
    const double range = double(maximumValue()) - minimum;
    return saturateToInt(minimum + truncateToInteger(positionAt(m_currentPoint) * range + 0.5));
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
