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

QString folderOf(const SettingsFile& settings, const FileDialogs::Question& question)
{
    return settings.preference(preferenceOf(question.kind), QDir::homePath()).toString();
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

struct Choice
{
    QString folder;
    QString name; // of the file; complete once it is chosen
    QString filter;
};

// Qt's own functions have the dialog on the stack, where its parent would delete it.
bool choose(QWidget* parent, const FileDialogs::Question& question, QFileDialog::AcceptMode mode,
            Choice* choice)
{
    const QPointer<QFileDialog> dialog =
        new QFileDialog(parent, question.title, choice->folder, question.filter);
    dialog->setAcceptMode(mode);
    dialog->setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile
                                                        : QFileDialog::AnyFile);
    dialog->setOption(QFileDialog::DontConfirmOverwrite); // would not know the complete name
    dialog->selectFile(choice->name);
    const bool accepted = dialog->exec() == QDialog::Accepted && dialog;
    if (accepted)
        *choice = {choice->folder, dialog->selectedFiles().value(0), dialog->selectedNameFilter()};
    delete dialog;
    return accepted && !choice->name.isEmpty();
}

} // namespace

QString FileDialogs::open(QWidget* parent, SettingsFile& settings, const Question& question)
{
    Choice choice{folderOf(settings, question), question.name, {}};
    const bool chosen = choose(parent, question, QFileDialog::AcceptOpen, &choice);
    return chosen ? kept(settings, question.kind, choice.name) : QString();
}

QString FileDialogs::save(QWidget* parent, SettingsFile& settings, const Question& question)
{
    const QPointer<QWidget> guard = parent;
    Choice choice{folderOf(settings, question), question.name, {}};
    while (guard && choose(parent, question, QFileDialog::AcceptSave, &choice)) {
        const QString file =
            question.complete ? question.complete(choice.name, choice.filter) : choice.name;
        if (mayReplace(parent, question.title, file))
            return kept(settings, question.kind, file);
        const QFileInfo refused(file);
        choice = {refused.path(), refused.fileName(), {}};
    }
    return {};
}
