// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/ChannelNameEdit.h"

#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QResizeEvent>

#include <algorithm>

ChannelNameEdit::ChannelNameEdit(QWidget* parent)
    : QLineEdit(parent)
    , m_lastSize(size())
{
    setCursor(Qt::ArrowCursor);
    setFocusPolicy(Qt::NoFocus);
    connect(this, &QLineEdit::returnPressed, this, [this, owner = QPointer<QWidget>(parent)] {
        if (owner)
            owner->setFocus(Qt::OtherFocusReason);
        else
            clearFocus();
    });
}

void ChannelNameEdit::setChannelName(const QString& channelName)
{
    const QString& name = channelName.isEmpty() ? m_defaultName : channelName;
    if (name.isEmpty()) {
        setText({});
        Q_EMIT channelNameChanged({});
        return;
    }
    m_channelName = name;
    showElided(qint64{width()} - m_elideMargin);
}

void ChannelNameEdit::mousePressEvent(QMouseEvent* event)
{
    if (hasFocus())
        QLineEdit::mousePressEvent(event);
    else
        event->ignore();
}

void ChannelNameEdit::mouseMoveEvent(QMouseEvent* event)
{
    if (hasFocus())
        QLineEdit::mouseMoveEvent(event);
    else
        event->ignore();
}

void ChannelNameEdit::mouseReleaseEvent(QMouseEvent* event)
{
    if (hasFocus())
        QLineEdit::mouseReleaseEvent(event);
    else
        event->ignore();
}

void ChannelNameEdit::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !isEnabled() || !isVisible()) {
        event->ignore();
        return;
    }
    if (!hasFocus())
        beginEditing();
    selectAll();
}

void ChannelNameEdit::contextMenuEvent(QContextMenuEvent* event)
{
    if (!hasFocus()) {
        event->ignore();
        return;
    }
    m_contextMenuOpen = true;
    QLineEdit::contextMenuEvent(event);
}

void ChannelNameEdit::focusInEvent(QFocusEvent* event)
{
    m_contextMenuOpen = false;
    QLineEdit::focusInEvent(event);
}

void ChannelNameEdit::focusOutEvent(QFocusEvent* event)
{
    if (m_contextMenuOpen)
        m_contextMenuOpen = false;
    else if (!m_ending)
        endEditing();
    QLineEdit::focusOutEvent(event);
}

void ChannelNameEdit::resizeEvent(QResizeEvent* event)
{
    const int before = m_lastSize.width();
    const int now = event->size().width();
    // The whole quotient is deliberate: a field that shrinks drops its margin.
    if (before >= 1 && now >= 1 && now != before)
        showElided(now - qint64{now / before} * m_elideMargin);
    m_lastSize = event->size();
}

void ChannelNameEdit::beginEditing()
{
    setFocus(Qt::OtherFocusReason);
    setFocusPolicy(Qt::ClickFocus);
    setText(m_channelName);
    setCursor(Qt::IBeamCursor);
}

void ChannelNameEdit::endEditing()
{
    m_ending = true; // taking the focus away may report its loss once more
    setCursor(Qt::ArrowCursor);
    setFocusPolicy(Qt::NoFocus);
    clearFocus();
    m_ending = false;
    setChannelName(text());
    Q_EMIT channelNameChanged(m_channelName);
}

void ChannelNameEdit::showElided(qint64 width)
{
    const auto pixels = static_cast<int>(std::clamp<qint64>(width, 0, QWIDGETSIZE_MAX));
    setText(fontMetrics().elidedText(m_channelName, Qt::ElideRight, pixels));
    setCursorPosition(0);
}

#include "moc_ChannelNameEdit.cpp"
