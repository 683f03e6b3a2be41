// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

/// Renames \a file to a name beside it that is not taken (".damaged", ".damaged-2", ...), so that
/// nothing that somebody might still want is overwritten. Returns the new name, or nothing if the
/// file cannot be renamed.
std::optional<QString> setDamagedFileAside(const QString& file);
