// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

/// Replaces \a file by \a bytes, at once or not at all. Returns nothing, or the reason why it did
/// not work, as the end of a sentence without its full stop.
QString writeFile(const QString& file, const QByteArray& bytes);
