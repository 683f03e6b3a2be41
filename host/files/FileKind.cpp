// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/files/FileKind.h"

#include <QFile>

#include <cerrno>

#include <sys/stat.h>

FileKind kindOf(const QString& file)
{
    struct stat status = {};
    if (::stat(QFile::encodeName(file).constData(), &status) != 0)
        return errno == ENOENT || errno == ENOTDIR ? FileKind::Missing : FileKind::Regular;
    return S_ISREG(status.st_mode) ? FileKind::Regular : FileKind::Other;
}
