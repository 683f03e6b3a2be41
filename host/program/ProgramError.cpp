// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/program/ProgramError.h"

#include <cstdio>

void printError(const QString& sentence)
{
    std::fprintf(stderr, "zolta-host: %s\n", sentence.toLocal8Bit().constData());
}

int exitCodeOf(const Status& status)
{
    if (status.isOk())
        return ExitDone;
    printError(status.error());
    return ExitError;
}
