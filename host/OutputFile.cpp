// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/OutputFile.h"

#include <QFileInfo>
#include <QSaveFile>

QString writeFile(const QString& file, const QByteArray& bytes)
{
    // A saved file takes the place of the old one, which a device or a pipe must not lose.
    const QFileInfo old(file);
    if (old.exists() && !old.isFile())
        return old.isDir() ? QStringLiteral("it is a folder")
                           : QStringLiteral("it is no ordinary file");
    QSaveFile target(file);
    if (!target.open(QIODevice::WriteOnly) || target.write(bytes) != bytes.size() ||
        !target.commit())
        return target.errorString();
    return QString();
}
