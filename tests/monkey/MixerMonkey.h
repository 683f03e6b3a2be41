// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/monkey/ForeignFiles.h"
#include "tests/monkey/MixerProgram.h"
#include "tests/monkey/UserInput.h"

#include <memory>

class QFileDialog;

/// Does random things to the mixer's windows: what a user does with mouse and keyboard, menus,
/// dialogs, panels and files, what else may happen meanwhile, and ends and new starts of the
/// program. A seed fixes all of it. Everything that is read or written lies in one folder.
class MixerMonkey
{
public:
    MixerMonkey(QString plugin, const QString& folder, std::uint32_t seed);
    ~MixerMonkey();

    /// One thing more. Returns what is wrong, empty for nothing; a crash is the other way to fail.
    QString act();

private:
    void start();
    void restart();
    void actOnWindows();
    bool answer();
    void answer(QFileDialog& dialog);
    void answerDialog(QWidget* dialog);

    QWidget* anyWindow();
    EditorWindow* anyEditor();
    void menu();
    void windowEvent(QWidget* window);
    void panel();
    void channels();
    int anyChannel();
    void editor();
    void clipboard();
    void audio();
    void write();
    void language();
    void files();
    void save();
    void checkValues();
    void checkHistory();
    void check(bool holds, const char* sentence);

    QString m_plugin;
    QString m_folder;
    Dice m_dice;
    ForeignFiles m_files;
    UserInput m_user{m_dice};
    std::unique_ptr<MixerProgram> m_program;
    QString m_error;
};
