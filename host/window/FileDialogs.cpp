// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/FileDialogs.h"

#include "host/files/SettingsFile.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

namespace {

QString preferenceOf(const QString& kind) { return QStringLiteral("folder.") + kind; }

QString startOf(const SettingsFile& settings, const FileDialogs::Question& question)
{
    const QString folder =
        settings.preference(preferenceOf(question.kind), QDir::homePath()).toString();
    return question.name.isEmpty() ? folder : folder + QLatin1Char('/') + question.name;
}

QString kept(SettingsFile& settings, const QString& kind, const QString& file)
{
    if (!file.isEmpty())
        settings.setPreference(preferenceOf(kind), QFileInfo(file).absolutePath());
    return file;
}

} // namespace

QString FileDialogs::open(QWidget* parent, SettingsFile& settings, const Question& question)
{
    return kept(settings, question.kind,
                QFileDialog::getOpenFileName(parent, question.title, startOf(settings, question),
                                             question.filter));
}

QString FileDialogs::save(QWidget* parent, SettingsFile& settings, const Question& question,
                          QString* filter)
{
    return kept(settings, question.kind,
                QFileDialog::getSaveFileName(parent, question.title, startOf(settings, question),
                                             question.filter, filter));
}
