// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QWidget;
class SettingsFile;

/// Asking the user for a file. A dialog opens in the folder that the last file of its kind was in,
/// also in the next run.
namespace FileDialogs {

/// A kind of file ("sound", "session", "state") with what the dialog is called and offers.
struct Question
{
    QString kind;
    QString title;
    QString filter;
    QString name = {}; ///< suggested for a file to save
};

/// The file to read; empty if the user gives up.
QString open(QWidget* parent, SettingsFile& settings, const Question& question);
/// The file to write, which the user allows to be replaced, and the filter that was chosen; empty
/// likewise.
QString save(QWidget* parent, SettingsFile& settings, const Question& question,
             QString* filter = nullptr);

} // namespace FileDialogs
