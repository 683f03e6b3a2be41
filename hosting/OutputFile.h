// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "hosting/Result.h"

#include <QByteArray>

/// Replaces \a file by \a bytes, at once or not at all.
[[nodiscard]] Status writeFile(const QString& file, const QByteArray& bytes);
