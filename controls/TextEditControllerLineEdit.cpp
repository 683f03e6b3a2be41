// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/TextEditControllerLineEdit.h"

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

void LineEdit::retire()
{
    if (m_eventDepth == 0) {
        delete this;
        return;
    }
    m_retired = true;
    blockSignals(true);
    setParent(nullptr);
}

bool LineEdit::event(QEvent* event)
{
    constexpr auto commandKeys = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    ++m_eventDepth;
    const bool handled = QLineEdit::event(event);
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
