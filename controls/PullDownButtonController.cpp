// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/PullDownButtonController.h"

#include "controls/ControlAccessible.h"
#include "controls/WideInteger.h"

#include <QEvent>
#include <QMouseEvent>

#include <algorithm>

namespace CommonController_MemAPI {

using PullDownButtonControllerPrivate::Menu;

namespace {

class PullDownAccessible final : public ControlAccessible
{
public:
    explicit PullDownAccessible(PullDownButtonController* button)
        : ControlAccessible(button, button, QAccessible::ComboBox)
        , m_button(button)
    {}

    QAccessible::State state() const override
    {
        QAccessible::State state = ControlAccessible::state();
        state.hasPopup = true;
        state.expandable = true;
        state.expanded = m_button->isOpen();
        state.collapsed = !m_button->isOpen();
        return state;
    }

    /// Unbound, the list has the texts. The description is what is shown, since AT-SPI carries no
    /// other text of a choice.
    QString text(QAccessible::Text text) const override
    {
        const bool isShown = text == QAccessible::Description ||
                             (text == QAccessible::Value && !m_button->isBound());
        return isShown ? m_button->currentText() : ControlAccessible::text(text);
    }

    QStringList actionNames() const override
    {
        QStringList names = ControlAccessible::actionNames();
        if (isOperable())
            names << showMenuAction() << pressAction();
        return names;
    }

    /// The menu is opened by the event loop, for whoever asks must not wait until it has closed.
    void doAction(const QString& actionName) override
    {
        if (actionName == showMenuAction() || actionName == pressAction())
            QMetaObject::invokeMethod(
                m_button, [button = m_button] { button->openPullDown(); }, Qt::QueuedConnection);
        else
            ControlAccessible::doAction(actionName);
    }

private:
    PullDownButtonController* m_button;
};

} // namespace

PullDownButtonController::PullDownButtonController(QWidget* parent, const MenuClock& menuClock)
    : PushButtonController(parent)
    , m_menuClock(menuClock)
{
    registerAccessible(staticMetaObject, [](QWidget* button) -> QAccessibleInterface* {
        return new PullDownAccessible(static_cast<PullDownButtonController*>(button));
    });
    setSvgAlignment(Qt::AlignRight | Qt::AlignVCenter);
    setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    setMaximumValue(minimumValue());
}

PullDownButtonController::~PullDownButtonController() { closePullDown(); }

void PullDownButtonController::setMemAPIValue(IMemAPI* memAPI, unsigned short parameter,
                                              unsigned short ch, unsigned short index)
{
    if (!isBoundTo(memAPI, parameter, ch, index))
        closePullDown();
    PushButtonController::setMemAPIValue(memAPI, parameter, ch, index);
}

void PullDownButtonController::setTextList(const QStringList& texts)
{
    if (texts == m_textList)
        return;
    closePullDown();
    m_textList = texts;
    const qint64 last = std::max<qint64>(texts.size() - 1, 0);
    setMaximumValue(saturateToInt(minimumValue() + last));
    update();
}

void PullDownButtonController::setEmptyText(const QString& text)
{
    if (text == m_emptyText)
        return;
    m_emptyText = text;
    update();
}

void PullDownButtonController::setInvisibleText(const QString& text)
{
    if (text == m_invisibleText)
        return;
    m_invisibleText = text;
    update();
}

void PullDownButtonController::setVisibleList(const QList<bool>& visible)
{
    if (visible == m_visibleList)
        return;
    closePullDown();
    m_visibleList = visible;
    update();
}

QString PullDownButtonController::currentText() const
{
    if (m_textList.isEmpty())
        return m_emptyText;
    const qint64 index = currentIndex();
    return isItemVisible(index) ? m_textList.value(index) : m_invisibleText;
}

bool PullDownButtonController::isOpen() const { return m_menu != nullptr; }

void PullDownButtonController::openPullDown()
{
    if (m_menu || !isEnabled() || !hasVisibleItem())
        return;
    const QPointer<QWidget> self(this);
    m_menu = new Menu(this, m_menuClock);
    fill(*m_menu);
    m_menu->installEventFilter(this);
    const QAction* chosen = m_menu->exec(mapToGlobal(QPoint(0, height())));
    if (!self)
        return;
    window()->activateWindow();
    if (!self)
        return;
    if (m_menu) {
        m_menu->removeEventFilter(this);
        m_menu->deleteLater();
        m_menu = nullptr;
    }
    const qsizetype index = m_actions.indexOf(chosen);
    m_actions.clear();
    setDown(false);
    if (index >= 0)
        choose(index);
}

void PullDownButtonController::valueChanged() { update(); }

bool PullDownButtonController::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress && watched == m_menu) {
        const QPointF position = static_cast<QMouseEvent*>(event)->globalPosition();
        const bool onButton = rect().contains(mapFromGlobal(position).toPoint());
        // A press on the button closes the menu and must not open it anew.
        m_menu->setAttribute(Qt::WA_NoMouseReplay, onButton);
    }
    return PushButtonController::eventFilter(watched, event);
}

void PullDownButtonController::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::EnabledChange && !isEnabled())
        closePullDown();
    PushButtonController::changeEvent(event);
}

void PullDownButtonController::hideEvent(QHideEvent* event)
{
    closePullDown();
    PushButtonController::hideEvent(event);
}

void PullDownButtonController::writeState(bool) {}

QString PullDownButtonController::shownText() const { return currentText(); }

void PullDownButtonController::buttonPress()
{
    if (m_autoPullDown)
        openPullDown();
}

qint64 PullDownButtonController::currentIndex() const { return qint64{value()} - minimumValue(); }

bool PullDownButtonController::isItemVisible(qsizetype index) const
{
    return m_visibleList.value(index, true);
}

bool PullDownButtonController::hasVisibleItem() const
{
    for (qsizetype index = 0; index < m_textList.size(); ++index) {
        if (isItemVisible(index))
            return true;
    }
    return false;
}

QString PullDownButtonController::itemText(qsizetype index) const
{
    const QString text = m_textList.at(index);
    if (m_indexWidth <= 0)
        return text;
    return QString::number(m_indexOrigin + index) + QLatin1Char(' ') + text;
}

void PullDownButtonController::fill(Menu& menu)
{
    m_actions.clear();
    for (qsizetype index = 0; index < m_textList.size(); ++index) {
        QAction* action = menu.addAction(itemText(index));
        action->setVisible(isItemVisible(index));
        m_actions.append(action);
    }
    if (QAction* current = m_actions.value(currentIndex())) {
        current->setCheckable(true);
        current->setChecked(true);
        menu.setActiveAction(current);
    }
}

void PullDownButtonController::closePullDown()
{
    if (m_menu)
        m_menu->close();
}

void PullDownButtonController::choose(qsizetype index)
{
    const QPointer<QWidget> self(this);
    const int before = value();
    openEdit();
    if (self)
        setValue(saturateToInt(minimumValue() + qint64{index}));
    if (self)
        closeEdit();
    if (self && value() != before)
        Q_EMIT changed();
    if (self)
        Q_EMIT selected();
}

} // namespace CommonController_MemAPI

#include "moc_PullDownButtonController.cpp"
