// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/PushButtonController.h"

#include "controls/ButtonAccessible.h"
#include "controls/ModifierReport.h"
#include "controls/Placement.h"

#include <QApplication>
#include <QEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>

namespace CommonController_MemAPI {

namespace {

constexpr PushButtonController::CheckTrigger Edges = {PushButtonController::Press |
                                                      PushButtonController::Release};
constexpr PushButtonController::CheckTrigger Directions = {PushButtonController::On |
                                                           PushButtonController::Off};

} // namespace

PushButtonController::PushButtonController(QWidget* parent)
    : QPushButton(parent)
{
    registerAccessible(staticMetaObject, [](QWidget* button) -> QAccessibleInterface* {
        auto* const self = static_cast<PushButtonController*>(button);
        return new ButtonAccessible(self, self);
    });
    setFocusPolicy(Qt::NoFocus);
    setMaximumValue(1);
    for (const SvgImage& image : m_images)
        connect(&image, &SvgImage::repaintNeeded, this, qOverload<>(&QWidget::update));
    connect(this, &QAbstractButton::pressed, this, &PushButtonController::buttonPress);
    connect(this, &QAbstractButton::released, this, &PushButtonController::buttonRelease);
    connect(this, &QAbstractButton::toggled, this, &PushButtonController::buttonToggle);
    m_focusConnection =
        connect(qApp, &QApplication::focusChanged, this, &PushButtonController::focusChange);
}

PushButtonController::~PushButtonController()
{
    // A button that holds the focus loses it when nothing but a plain widget is left of it.
    disconnect(m_focusConnection);
    blockSignals(true);
    closeEdits();
    if (m_held)
        writeState(false);
    unbind();
}

void PushButtonController::setScale(double scale)
{
    if (storeScale(scale))
        update();
}

void PushButtonController::setMemAPIValue(IMemAPI* memAPI, unsigned short parameter,
                                          unsigned short ch, unsigned short index)
{
    const Lifetime::Guard alive(lifetime());
    if (!isBoundTo(memAPI, parameter, ch, index))
        letGo();
    if (alive)
        bind(memAPI, parameter, ch, index);
}

void PushButtonController::setCheckTrigger(CheckTrigger trigger)
{
    const CheckTrigger old = m_checkTrigger;
    trigger &= Edges | Directions;
    if (trigger.testFlag(Press) && !old.testFlag(Press))
        trigger.setFlag(Release, false);
    if (trigger.testFlag(Release) && !old.testFlag(Release))
        trigger.setFlag(Press, false);
    if (!trigger.testAnyFlags(Edges))
        trigger.setFlag(old.testFlag(Press) ? Release : Press);
    if (!trigger.testAnyFlags(Directions))
        trigger.setFlag(old.testFlag(On) ? Off : On);
    m_checkTrigger = trigger;
}

void PushButtonController::setOn()
{
    if (isEnabled() && isCheckable() && !isChecked())
        switchTo(true);
}

void PushButtonController::setOff()
{
    if (isEnabled() && isCheckable() && isChecked())
        switchTo(false);
}

void PushButtonController::valueChanged()
{
    const Lifetime::Guard alive(lifetime());
    if (isCheckable() && isChecked() != (value() != minimumValue()))
        setCheckedSilently(!isChecked());
    if (alive)
        update();
}

void PushButtonController::valueChangedRequest()
{
    const Lifetime::Guard alive(lifetime());
    valueChanged();
    if (!alive)
        return;
    const int now = value();
    if (isVisible())
        announceValue(this, now);
    if (alive)
        Q_EMIT valueChanged(now);
}

void PushButtonController::buttonPress()
{
    if (isCheckable())
        return;
    m_held = true;
    writeState(true);
}

void PushButtonController::buttonRelease()
{
    if (isCheckable() && !m_held)
        return;
    m_held = false;
    writeState(false);
}

void PushButtonController::buttonToggle(bool checked)
{
    if (!m_syncing && !m_checkTrigger.testFlag(Press))
        writeState(checked);
}

void PushButtonController::focusChange()
{
    if (focusPolicy() == Qt::NoFocus)
        letGo();
}

bool PushButtonController::hitButton(const QPoint& position) const
{
    return rect().contains(position);
}

void PushButtonController::nextCheckState()
{
    if (isCheckable() && maySwitch())
        switchTo(!isChecked());
}

void PushButtonController::mousePressEvent(QMouseEvent* event)
{
    m_modifiers = event->modifiers();
    if (event->buttons().testFlag(Qt::RightButton)) {
        QWidget::mousePressEvent(event);
        return;
    }
    const Lifetime::Guard alive(lifetime());
    m_letGo = false;
    setInside(hitButton(event->position().toPoint()));
    if (alive)
        QPushButton::mousePressEvent(event);
    if (alive && event->button() == Qt::LeftButton && isEnabled() && isCheckable() &&
        m_checkTrigger.testFlag(Press) && maySwitch())
        switchTo(!isChecked());
}

void PushButtonController::mouseMoveEvent(QMouseEvent* event)
{
    const Lifetime::Guard alive(lifetime());
    setInside(hitButton(event->position().toPoint()));
    if (alive && !m_letGo)
        QPushButton::mouseMoveEvent(event);
}

void PushButtonController::mouseReleaseEvent(QMouseEvent* event)
{
    m_modifiers = event->modifiers();
    const bool isSwitch = event->button() == Qt::LeftButton && isEnabled() && isCheckable();
    if (event->button() == Qt::RightButton)
        QWidget::mouseReleaseEvent(event);
    else if (isSwitch && !(m_checkTrigger.testFlag(Release) && maySwitch()))
        endClick(event);
    else
        QPushButton::mouseReleaseEvent(event);
}

void PushButtonController::enterEvent(QEnterEvent* event)
{
    QPushButton::enterEvent(event);
    m_hovered = true;
    update();
    setInside(true);
}

void PushButtonController::leaveEvent(QEvent* event)
{
    QPushButton::leaveEvent(event);
    m_hovered = false;
    update();
    setInside(false);
}

void PushButtonController::focusOutEvent(QFocusEvent* event)
{
    if (event->reason() == Qt::PopupFocusReason || releaseEarly())
        QPushButton::focusOutEvent(event);
}

void PushButtonController::changeEvent(QEvent* event)
{
    const bool isEnabledChange = event->type() == QEvent::EnabledChange;
    if (isEnabledChange && !isEnabled() && !releaseEarly())
        return;
    QPushButton::changeEvent(event);
    if (isEnabledChange)
        update();
}

void PushButtonController::hideEvent(QHideEvent* event)
{
    const Lifetime::Guard alive(lifetime());
    letGo();
    if (alive)
        QPushButton::hideEvent(event);
}

void PushButtonController::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(m_opacity);
    const bool pushed = isDown() && m_inside;
    drawShadow(painter, pushed);
    drawButton(painter, pushed);
    drawIcon(painter);
    drawText(painter);
}

void PushButtonController::writeState(bool on)
{
    const Qt::KeyboardModifiers modifiers = m_modifiers;
    const ModifierReport report(*this, modifiers);
    withEdit([&] { setValue(on ? maximumValue() : minimumValue()); });
    if (report.isDue())
        Q_EMIT modifiersChange(this, modifiers);
}

QString PushButtonController::shownText() const { return text(); }

void PushButtonController::letGo()
{
    if (!isDown() && !m_held)
        return;
    m_letGo = true;
    setDown(false);
    buttonRelease();
}

bool PushButtonController::releaseEarly()
{
    if (!isDown())
        return true;
    const Lifetime::Guard alive(lifetime());
    setDown(false);
    if (alive)
        Q_EMIT released();
    return bool(alive);
}

void PushButtonController::setSvg(Layer layer, const QString& path)
{
    if (path != svg(layer))
        m_images[layer].load(path);
}

bool PushButtonController::maySwitch() const
{
    return m_checkTrigger.testFlag(isChecked() ? Off : On);
}

void PushButtonController::setCheckedSilently(bool checked)
{
    const Lifetime::Guard alive(lifetime());
    // Told after the change, not inside it: QAbstractButton survives no deletion in there.
    const bool wasBlocked = blockSignals(true);
    setChecked(checked);
    if (!alive)
        return;
    blockSignals(wasBlocked);
    if (isChecked() != checked)
        return;
    m_syncing = true;
    Q_EMIT toggled(checked);
    if (alive)
        m_syncing = false;
}

void PushButtonController::switchTo(bool on)
{
    const Lifetime::Guard alive(lifetime());
    setCheckedSilently(on);
    if (alive && isChecked() == on)
        writeState(on);
}

void PushButtonController::endClick(QMouseEvent* event)
{
    const Lifetime::Guard alive(lifetime());
    setDown(false);
    QWidget::mouseReleaseEvent(event);
    if (alive)
        Q_EMIT clicked(isChecked());
    if (alive)
        Q_EMIT released();
    // An event that is ignored goes on from the button to its parent.
    if (!alive)
        event->accept();
}

void PushButtonController::setInside(bool inside)
{
    if (inside == m_inside)
        return;
    m_inside = inside;
    update();
    Q_EMIT sideChanged();
}

SvgImage& PushButtonController::loadedOr(Layer preferred, bool applies, Layer otherwise)
{
    return m_images[applies && m_images[preferred].isValid() ? preferred : otherwise];
}

QRectF PushButtonController::imageRect(const SvgImage& image) const
{
    return alignedRect(QSizeF(image.defaultSize()) * scale(), size(),
                       QStyle::visualAlignment(layoutDirection(), m_svgAlignment));
}

void PushButtonController::drawShadow(QPainter& painter, bool pushed)
{
    SvgImage& image = m_images[pushed ? PushShadowLayer : ShadowLayer];
    if (image.isValid())
        image.drawBlurred(painter, imageRect(image), m_shadowBlur * scale(), rect());
}

void PushButtonController::drawButton(QPainter& painter, bool pushed)
{
    const bool on = isCheckable() && isChecked();
    SvgImage& image = pushed ? loadedOr(OnPushButtonLayer, on, PushButtonLayer)
                             : loadedOr(OnButtonLayer, on, ButtonLayer);
    if (!image.isValid())
        return;
    if (!isEnabled() && m_buttonDisableOpacity < 1.0)
        image.drawTranslucent(painter, imageRect(image), m_buttonDisableOpacity, rect());
    else
        image.draw(painter, imageRect(image));
}

void PushButtonController::drawIcon(QPainter& painter)
{
    SvgImage& image = loadedOr(OnIconLayer, isOn(), IconLayer);
    if (image.isValid())
        image.draw(painter, imageRect(image));
}

void PushButtonController::drawText(QPainter& painter) const
{
    const qreal right = scaledMargin(m_textRightMargin, scale());
    const qreal bottom = scaledMargin(m_textBottomMargin, scale());
    const QRectF textRect =
        QRectF(rect()).adjusted(scaledMargin(m_textLeftMargin, scale()),
                                scaledMargin(m_textTopMargin, scale()), -right, -bottom);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(textRect, static_cast<int>(m_textAlignment), shownText());
}

} // namespace CommonController_MemAPI

#include "moc_PushButtonController.cpp"
