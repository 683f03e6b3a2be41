// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "hosting/Result.h"

#include <QString>

class QMessageBox;
class QWidget;

/// What goes wrong while windows are open. It is also printed; but programs that a desktop starts
/// have no standard error stream that anybody reads.
namespace WarningBox {

/// Null where \a window shows the sentence already.
QMessageBox* show(QWidget& window, const QString& sentence);
/// The same where \a status is an error.
QMessageBox* show(QWidget& window, const Status& status);
/// Asks whether to end although \a error kept the session from being saved.
bool endsUnsaved(QWidget& window, const QString& error);

} // namespace WarningBox
