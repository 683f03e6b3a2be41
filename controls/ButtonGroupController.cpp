// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/ButtonGroupController.h"

#include "controls/ControlAccessible.h"
#include "controls/ModifierReport.h"
#include "controls/WideInteger.h"

#include <QAbstractButton>
#include <QChildEvent>
#include <QMouseEvent>

#include <algorithm>

namespace CommonController_MemAPI {

ButtonGroupController::ButtonGroupController(QWidget* parent)
    : QGroupBox(parent)
{
    registerAccessible(staticMetaObject, [](QWidget* group) -> QAccessibleInterface* {
        return new ControlAccessible(group, static_cast<ButtonGroupController*>(group),
                                     QAccessible::Grouping);
    });
    m_updateTimer.setSingleShot(true);
    m_updateTimer.setInterval(UpdateDelay);
    connect(&m_updateTimer, &QTimer::timeout, this, &ButtonGroupController::updateChild);
    connect(this, &ButtonGroupController::childAdded, this, &ButtonGroupController::addChild,
            Qt::QueuedConnection);
}

ButtonGroupController::~ButtonGroupController()
{
    closeEdits();
    unbind();
}

void ButtonGroupController::setScale(double scale)
{
    if (storeScale(scale))
        update();
}

void ButtonGroupController::setMemAPIValue(IMemAPI* memAPI, unsigned short parameter,
                                           unsigned short ch, unsigned short index)
{
    bind(memAPI, parameter, ch, index);
}

void ButtonGroupController::valueChanged()
{
    if (!m_updateTimer.isActive())
        m_updateTimer.start();
}

void ButtonGroupController::valueChangedRequest()
{
    const Lifetime::Guard alive(lifetime());
    valueChanged();
    const int now = value();
    if (isVisible())
        announceValue(this, now);
    if (alive)
        Q_EMIT valueChanged(now);
}

void ButtonGroupController::addChild(QObject* pObject)
{
    // A child that left again before it could join may be gone.
    if (!m_pending.removeOne(pObject))
        return;
    if (auto* button = qobject_cast<QAbstractButton*>(pObject)) {
        m_buttons.append(button);
        button->setAutoExclusive(true);
        connect(button, &QAbstractButton::toggled, this, &ButtonGroupController::updateButton);
        button->installEventFilter(this);
    }
    registerChildren();
}

void ButtonGroupController::updateChild()
{
    m_updateTimer.stop();
    if (!m_pending.isEmpty())
        return;
    QAbstractButton* button = m_buttons.value(qint64{value()} - minimumValue());
    if (button && !button->isChecked())
        button->setChecked(true);
}

void ButtonGroupController::updateButton(bool checked)
{
    const qint64 index = checked ? checkedIndex() : -1;
    const auto [minimum, maximum] = range();
    if (index < 0 || index > qint64{maximum} - minimum || value() == minimum + index)
        return;
    editValue(saturateToInt(minimum + index));
}

void ButtonGroupController::childEvent(QChildEvent* event)
{
    QGroupBox::childEvent(event);
    if (event->added()) {
        m_pending.append(event->child());
        const Lifetime::Guard alive(lifetime());
        updateMaximum();
        if (alive)
            Q_EMIT childAdded(event->child());
    } else if (event->removed()) {
        removeChild(event->child());
    }
}

bool ButtonGroupController::eventFilter(QObject* watched, QEvent* event)
{
    if (!isReset(watched, *event))
        return QGroupBox::eventFilter(watched, event);
    event->accept();
    reset(static_cast<QMouseEvent*>(event)->modifiers());
    return true;
}

void ButtonGroupController::paintEvent(QPaintEvent*) {}

void ButtonGroupController::removeChild(QObject* child)
{
    // Of a child that is being destroyed only the object is left.
    const auto isChild = [child](const QObject* object) { return object == child; };
    if (m_pending.removeOne(child)) {
        registerChildren();
    } else if (m_buttons.removeIf(isChild) > 0) {
        disconnect(child, nullptr, this, nullptr);
        child->removeEventFilter(this);
        updateMaximum();
    }
}

void ButtonGroupController::registerChildren()
{
    const Lifetime::Guard alive(lifetime());
    updateMaximum();
    if (alive && m_pending.isEmpty())
        valueChangedRequest();
}

void ButtonGroupController::updateMaximum()
{
    const qint64 count = m_buttons.size() + m_pending.size();
    setMaximumValue(saturateToInt(minimumValue() + count));
}

qsizetype ButtonGroupController::checkedIndex() const
{
    const auto found = std::find_if(m_buttons.begin(), m_buttons.end(),
                                    [](QAbstractButton* button) { return button->isChecked(); });
    return found == m_buttons.end() ? -1 : found - m_buttons.begin();
}

bool ButtonGroupController::isReset(QObject* watched, const QEvent& event) const
{
    const bool isPress =
        event.type() == QEvent::MouseButtonPress || event.type() == QEvent::MouseButtonDblClick;
    if (!m_enableDefaultSet || !isPress || !isEnabled())
        return false;
    const auto* button = qobject_cast<QAbstractButton*>(watched);
    const auto& press = static_cast<const QMouseEvent&>(event);
    return button && m_buttons.contains(button) && button->isEnabled() &&
           press.button() == Qt::LeftButton && press.modifiers() == Qt::ControlModifier;
}

void ButtonGroupController::reset(Qt::KeyboardModifiers modifiers)
{
    const ModifierReport report(*this, modifiers);
    editToDefault();
    if (report.isDue())
        Q_EMIT modifiersChange(this, modifiers);
}

} // namespace CommonController_MemAPI

#include "moc_ButtonGroupController.cpp"
