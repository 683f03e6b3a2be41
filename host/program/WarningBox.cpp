// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/program/WarningBox.h"

#include "host/program/ProgramError.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <QPushButton>

#include <algorithm>

namespace {

bool isShown(const QWidget& window, const QString& sentence)
{
    const QList<QMessageBox*> boxes = window.findChildren<QMessageBox*>();
    return std::any_of(boxes.begin(), boxes.end(), [&sentence](const QMessageBox* box) {
        return box->isVisible() && box->text() == sentence;
    });
}

} // namespace

QMessageBox* WarningBox::show(QWidget& window, const QString& sentence)
{
    printError(sentence);
    if (isShown(window, sentence))
        return nullptr;
    auto* box = new QMessageBox(QMessageBox::Warning, window.windowTitle(), sentence,
                                QMessageBox::Ok, &window);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setModal(false);
    box->show();
    return box;
}

QMessageBox* WarningBox::show(QWidget& window, const Status& status)
{
    return status.isOk() ? nullptr : show(window, status.error());
}

bool WarningBox::endsUnsaved(QWidget& window, const QString& error)
{
    printError(error);
    QMessageBox box(QMessageBox::Warning, window.windowTitle(), error, QMessageBox::Cancel,
                    &window);
    const auto* quit =
        box.addButton(QCoreApplication::translate("Application", "Quit Without Saving"),
                      QMessageBox::DestructiveRole);
    box.setDefaultButton(QMessageBox::Cancel);
    box.setEscapeButton(QMessageBox::Cancel);
    box.exec();
    return box.clickedButton() == quit;
}
