// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/MessageDialog.h"

#include <QMessageBox>
#include <QPointer>

namespace {

// The button; none where the parent is gone.
int run(QMessageBox* box)
{
    const QPointer<QMessageBox> guard = box;
    const int answer = box->exec();
    if (!guard)
        return QMessageBox::NoButton;
    delete box;
    return answer;
}

} // namespace

bool MessageDialog::warn(QWidget* parent, const QString& title, const QString& text)
{
    const QPointer<QWidget> guard = parent;
    run(new QMessageBox(QMessageBox::Warning, title, text, QMessageBox::Ok, parent));
    return !guard.isNull();
}

bool MessageDialog::ask(QWidget* parent, const QString& title, const QString& question)
{
    return run(new QMessageBox(QMessageBox::Question, title, question,
                               QMessageBox::Yes | QMessageBox::No, parent)) == QMessageBox::Yes;
}
