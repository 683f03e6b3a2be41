// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/TextEditControllerLineEdit.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>

#include <utility>

namespace CommonController_MemAPI::TextEditControllerPrivate {

LineEdit::LineEdit(QWidget* field, std::function<void()> cancel)
    : QLineEdit(field)
    , m_cancel(std::move(cancel))
{
    hide();
    setFrame(false);
    setAttribute(Qt::WA_InputMethodEnabled, false);
}

int LineEdit::s_losingFocus = 0;

QWidget* LineEdit::nextFocus() { return s_losingFocus > 0 ? QApplication::focusWidget() : nullptr; }

void LineEdit::retire()
{
    const bool isNext = nextFocus() == this;
    if (m_eventDepth == 0 && !isNext) {
        delete this;
        return;
    }
    blockSignals(true);
    setParent(nullptr);
    if (isNext)
        deleteLater();
    else
        m_retired = true;
}

bool LineEdit::event(QEvent* event)
{
    constexpr auto commandKeys = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    const int losing = event->type() == QEvent::FocusOut ? 1 : 0;
    ++m_eventDepth;
    s_losingFocus += losing;
    const bool handled = QLineEdit::event(event);
    s_losingFocus -= losing;
    --m_eventDepth;
    // Taken here, a key is typed instead of triggering a shortcut of the window.
    if (event->type() == QEvent::ShortcutOverride &&
        !(static_cast<QKeyEvent*>(event)->modifiers() & commandKeys))
        event->accept();
    if (m_retired && m_eventDepth == 0)
        delete this;
    return handled;
}

void LineEdit::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier)
        m_cancel();
    else
        QLineEdit::keyPressEvent(event);
    event->accept();
}

void LineEdit::keyReleaseEvent(QKeyEvent* event)
{
    QLineEdit::keyReleaseEvent(event);
    event->accept();
}

void LineEdit::resizeEvent(QResizeEvent* event)
{
    QLineEdit::resizeEvent(event);
    // An editor that is zoomed sizes every widget of its tree by itself.
    if (isVisible() && geometry() != parentWidget()->rect())
        setGeometry(parentWidget()->rect());
}

void LineEdit::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    if (!m_held && !isHidden())
        Q_EMIT editingFinished();
}

void LineEdit::contextMenuEvent(QContextMenuEvent* event)
{
    QMenu* menu = createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setStyle(style());
    setHeld(true);
    connect(menu, &QMenu::aboutToHide, this, [this] { setHeld(false); });
    menu->popup(event->globalPos());
}

} // namespace CommonController_MemAPI::TextEditControllerPrivate
