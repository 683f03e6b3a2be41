// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "hosting/Result.h"

#include <QString>

/// Exit codes of the program.
enum ExitCode { ExitDone = 0, ExitError = 1, ExitUsage = 2 };

/// Writes "zolta-host: " and \a sentence to the standard error stream.
void printError(const QString& sentence);

/// The exit code after \a status, which is printed where it is an error.
int exitCodeOf(const Status& status);
