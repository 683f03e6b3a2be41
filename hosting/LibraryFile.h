// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "hosting/Result.h"

/// Whether \a file looks like a complete library of this machine's kind.
///
/// The system's loader maps a library before it looks at its size: one that was cut short would
/// end this process with a signal instead of a message.
[[nodiscard]] Status checkLibraryFile(const QString& file);
