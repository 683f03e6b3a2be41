// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/monkey/MonkeyHost.h"
#include "tests/monkey/UserInput.h"

#include <QPluginLoader>
#include <QPointer>
#include <QTranslator>
#include <QWidget>

#include <memory>

class IVaskEffect;
class IVaskEffectEditor2;

/// Does random things to an editor of the built library: what a user does with mouse and keyboard,
/// what a host does through its interfaces, and what goes wrong in between. A seed fixes all of it.
class EditorMonkey
{
public:
    EditorMonkey(const QString& library, std::uint32_t seed);
    ~EditorMonkey();

    /// One thing more. Returns what is wrong, empty for nothing; a crash is the other way to fail.
    QString act();

private:
    void makeEditor();
    void deleteEditor();
    void disturb();

    void windowEvent();
    void configure();
    void bind();
    void state();
    void hostEvent();

    Dice m_dice;
    UserInput m_user{m_dice};
    MonkeyHost m_host{m_dice};
    QPluginLoader m_loader;
    IVaskEffect* m_effect = nullptr;
    std::unique_ptr<QWidget> m_stage = std::make_unique<QWidget>();
    QPointer<QWidget> m_guard; // of m_editor
    IVaskEffectEditor2* m_editor = nullptr;
    QTranslator m_translator;
    bool m_leaked = false;
};
