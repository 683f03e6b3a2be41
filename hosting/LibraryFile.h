// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// Why \a file cannot be a complete library of this machine's kind, as the end of a sentence that
/// begins with the file; nothing if it looks like one.
///
/// The system's loader maps a library before it looks at its size: one that was cut short would
/// end this process with a signal instead of a message.
QString errorOfLibraryFile(const QString& file);
