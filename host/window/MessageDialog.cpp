// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/MessageDialog.h"

#include <QMessageBox>
#include <QPointer>
#include <QPushButton>

bool MessageDialog::warn(QWidget* parent, const QString& title, const QString& text)
{
    const QPointer<QWidget> guard = parent;
    const QPointer<QMessageBox> box =
        new QMessageBox(QMessageBox::Warning, title, text, QMessageBox::Ok, parent);
    box->exec();
    delete box;
    return !guard.isNull();
}

bool MessageDialog::ask(QWidget* parent, const QString& title, const QString& question,
                        const QString& action)
{
    const QPointer<QMessageBox> box =
        new QMessageBox(QMessageBox::Question, title, question, QMessageBox::Cancel, parent);
    const QAbstractButton* agreeing = box->addButton(action, QMessageBox::AcceptRole);
    box->setDefaultButton(QMessageBox::Cancel);
    box->setEscapeButton(QMessageBox::Cancel);
    box->exec();
    const bool agreed = box && box->clickedButton() == agreeing;
    delete box;
    return agreed;
}
