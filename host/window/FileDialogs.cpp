// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/FileDialogs.h"

#include "host/files/SettingsFile.h"
#include "host/window/MessageDialog.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QPointer>

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

bool mayReplace(QWidget* parent, const QString& title, const QString& file)
{
    const auto text = [](const char* english) {
        return QCoreApplication::translate("FileDialogs", english);
    };
    const QString question =
        text(QT_TRANSLATE_NOOP("FileDialogs", "The file %1 already exists. Replace it?"));
    return !QFileInfo::exists(file) ||
           MessageDialog::ask(parent, title, question.arg(QFileInfo(file).fileName()),
                              text(QT_TRANSLATE_NOOP("FileDialogs", "Replace")));
}

} // namespace

QString FileDialogs::open(QWidget* parent, SettingsFile& settings, const Question& question)
{
    return kept(settings, question.kind,
                QFileDialog::getOpenFileName(parent, question.title, startOf(settings, question),
                                             question.filter));
}

// The dialog's own question would not know the complete name.
QString FileDialogs::save(QWidget* parent, SettingsFile& settings, const Question& question)
{
    const QPointer<QWidget> guard = parent;
    QString file = startOf(settings, question);
    while (guard) {
        QString filter;
        file = QFileDialog::getSaveFileName(parent, question.title, file, question.filter, &filter,
                                            QFileDialog::DontConfirmOverwrite);
        if (!file.isEmpty() && question.complete)
            file = question.complete(file, filter);
        if (file.isEmpty() || mayReplace(parent, question.title, file))
            return kept(settings, question.kind, file);
    }
    return {};
}
