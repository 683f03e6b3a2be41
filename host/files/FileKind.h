// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

enum class FileKind { Missing, Regular, Other };

/// What is in the place of \a file. A file that the system cannot look at counts as regular: it
/// must not be taken for a new one, and opening it says what is wrong.
[[nodiscard]] FileKind kindOf(const QString& file);
