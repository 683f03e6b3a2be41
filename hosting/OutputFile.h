// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "hosting/Result.h"

#include <QByteArray>
#include <QString>

/// Replaces \a file by \a bytes, at once or not at all. Where \a file is a link, the file that it
/// leads to is replaced. The new file belongs to the old one's owner and group and has its mode as
/// far as this user may give it them. What a program that was killed while it wrote the same file
/// left behind is removed.
[[nodiscard]] Status writeFile(const QString& file, const QByteArray& bytes);
