// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "widgets/Export.h"

#include <QLineEdit>
#include <QSize>

/// A one-line field that shows a channel's name, cut to its width with an ellipsis, and that a
/// double click opens for editing. Single clicks leave it alone. Editing ends, and the name is
/// reported, when the field loses the keyboard focus; Return gives the focus to the parent that the
/// field was constructed with.
class ZOLTA_EXPORT ChannelNameEdit : public QLineEdit
{
    Q_OBJECT
    Q_PROPERTY(QString defaultName READ defaultName WRITE setDefaultName)
    Q_PROPERTY(int elideMargin READ elideMargin WRITE setElideMargin)

public:
    explicit ChannelNameEdit(QWidget* parent = nullptr);

    /// The name that an empty one is replaced with.
    QString defaultName() const { return m_defaultName; }
    void setDefaultName(const QString& name) { m_defaultName = name; }
    /// Pixels that the shown name leaves free at its right. Takes effect with the next name.
    int elideMargin() const { return m_elideMargin; }
    void setElideMargin(int pixels) { m_elideMargin = pixels; }

public Q_SLOTS:
    /// Shows \a channelName, or the default name if it is empty. If both are empty the field is
    /// cleared, channelNameChanged() reports the empty text, and the name stays as it was.
    void setChannelName(const QString& channelName);

Q_SIGNALS:
    /// The user ended an edit; \a text is the whole name.
    void channelNameChanged(const QString& text);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void beginEditing();
    void endEditing();
    void showElided(qint64 width);

    QString m_defaultName;
    QString m_channelName;
    QSize m_lastSize;
    int m_elideMargin = 0;
    bool m_contextMenuOpen = false;
    bool m_ending = false;
};
