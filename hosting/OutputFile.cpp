// SPDX-License-Identifier: GPL-3.0-or-later
#include "hosting/OutputFile.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSaveFile>

namespace {

// A disk that is full takes a part of the bytes first and gives its reason only for the rest.
bool writeAll(QIODevice& device, const QByteArray& bytes)
{
    qint64 done = 0;
    while (done < bytes.size()) {
        const qint64 count = device.write(bytes.constData() + done, bytes.size() - done);
        if (count <= 0)
            return false;
        done += count;
    }
    return true;
}

} // namespace

Status writeFile(const QString& file, const QByteArray& bytes)
{
    // A saved file takes the place of the old one, which a device or a pipe must not lose.
    const QFileInfo old(file);
    if (old.isDir())
        return Error{QCoreApplication::translate("OutputFile",
                                                 "The file %1 cannot be written: it is a folder.")
                         .arg(file)};
    if (old.exists() && !old.isFile())
        return Error{QCoreApplication::translate(
                         "OutputFile", "The file %1 cannot be written: it is not an ordinary file.")
                         .arg(file)};
    // Unbuffered, because commit() does not notice when the last buffer could not be written and
    // would put a file that was cut short into the old one's place.
    QSaveFile target(file);
    if (!target.open(QIODevice::WriteOnly | QIODevice::Unbuffered) || !writeAll(target, bytes) ||
        !target.commit())
        return Error{QCoreApplication::translate("OutputFile", "The file %1 cannot be written: %2.")
                         .arg(file, target.errorString())};
    return {};
}
