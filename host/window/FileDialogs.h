// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <functional>

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
    /// Gives a file to save the ending that it needs by the filter that was chosen.
    std::function<QString(const QString& file, const QString& filter)> complete = {};
};

/// The file to read; empty if the user gives up.
QString open(QWidget* parent, SettingsFile& settings, const Question& question);
/// The complete name of the file to write, which the user allows to be replaced; empty likewise.
QString save(QWidget* parent, SettingsFile& settings, const Question& question);

} // namespace FileDialogs
