// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDir>
#include <QFile>
#include <QFileInfo>

/// Small files of tests, read and written whole.
namespace TestFiles {

/// "unreadable" where there is no such file.
inline QByteArray read(const QString& file)
{
    QFile input(file);
    return input.open(QIODevice::ReadOnly) ? input.readAll() : QByteArray("unreadable");
}

/// Makes the folder, too. Returns the file's name.
inline QString write(const QString& file, const QByteArray& bytes)
{
    QFile output(file);
    if (!QDir().mkpath(QFileInfo(file).path()) || !output.open(QIODevice::WriteOnly) ||
        output.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(file));
    return file;
}

/// What is in a folder, hidden and special files included.
inline QStringList namesIn(const QString& folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System |
                                  QDir::NoDotAndDotDot);
}

} // namespace TestFiles
