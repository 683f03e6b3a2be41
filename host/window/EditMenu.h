// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/window/Retranslator.h"

#include <QObject>

class MixerModel;

/// The part of the edit menus that all windows share: undo and redo, which name the step, and
/// copying, pasting and resetting the equalizer of a channel.
class EditMenu : public QObject
{
    Q_OBJECT

public:
    struct Texts
    {
        Retranslator::Text copy;
        Retranslator::Text paste;
        Retranslator::Text reset;
    };

    /// Fills \a menu, which becomes its parent. \a channel gives the channel to edit whenever an
    /// action is triggered. \a mixerModel and \a retranslator must outlive the menu.
    EditMenu(QMenu* menu, MixerModel& mixerModel, std::function<int()> channel, const Texts& texts,
             Retranslator& retranslator);

Q_SIGNALS:
    /// A channel was pasted to or reset, or could not be: \a message is a sentence about it.
    void finished(const QString& message);

private:
    void addHistory(QMenu* menu, Retranslator& retranslator);
    static QString undoText(const QString& step);
    static QString redoText(const QString& step);
    void paste();
    void reset();

    MixerModel& m_mixerModel;
    std::function<int()> m_channel;
};
