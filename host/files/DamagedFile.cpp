// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/files/DamagedFile.h"

#include <QFile>
#include <QFileInfo>

namespace {

QString freeNameBeside(const QString& file)
{
    QString name = file + QLatin1String(".damaged");
    for (int i = 2; QFileInfo::exists(name); ++i)
        name = file + QStringLiteral(".damaged-%1").arg(i);
    return name;
}

} // namespace

std::optional<QString> setDamagedFileAside(const QString& file)
{
    const QString name = freeNameBeside(file);
    return QFile::rename(file, name) ? std::optional(name) : std::nullopt;
}
