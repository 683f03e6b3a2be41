// SPDX-License-Identifier: GPL-3.0-or-later
#include "hosting/LibraryFile.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <cstring>
#include <elf.h>
#include <link.h>

namespace {

using Header = ElfW(Ehdr);
using Segment = ElfW(Phdr);

// Whether count items of the given size at offset lie inside the file. 64 bits hold the sum: the
// format keeps count and size in 16 bits each.
bool holds(const QFile& file, quint64 offset, quint64 count, quint64 size)
{
    const auto length = static_cast<quint64>(file.size());
    return offset <= length && count * size <= length - offset;
}

bool readHeader(QFile& file, Header* header)
{
    return file.read(reinterpret_cast<char*>(header), sizeof *header) == sizeof *header;
}

bool segmentIsThere(QFile& file, const Header& header, int index)
{
    Segment segment;
    const auto offset = static_cast<qint64>(header.e_phoff) + index * qint64(sizeof segment);
    if (!file.seek(offset) ||
        file.read(reinterpret_cast<char*>(&segment), sizeof segment) != sizeof segment)
        return false;
    return holds(file, segment.p_offset, 1, segment.p_filesz);
}

bool isComplete(QFile& file, const Header& header)
{
    if (!holds(file, header.e_shoff, header.e_shnum, header.e_shentsize) ||
        !holds(file, header.e_phoff, header.e_phnum, header.e_phentsize))
        return false;
    for (int i = 0; i < header.e_phnum; ++i) {
        if (!segmentIsThere(file, header, i))
            return false;
    }
    return true;
}

} // namespace

Status checkLibraryFile(const QString& file)
{
    const QFileInfo info(file);
    if (!info.exists())
        return Error{
            QCoreApplication::translate("LibraryFile", "The plug-in %1 does not exist.").arg(file)};
    if (info.isDir())
        return Error{
            QCoreApplication::translate("LibraryFile", "The plug-in %1 is a folder, not a library.")
                .arg(file)};
    if (!info.isFile())
        return Error{
            QCoreApplication::translate("LibraryFile", "The plug-in %1 is not a regular file.")
                .arg(file)};
    QFile library(file);
    if (!library.open(QIODevice::ReadOnly))
        return Error{
            QCoreApplication::translate("LibraryFile", "The plug-in %1 cannot be read: %2.")
                .arg(file, library.errorString())};
    Header header = {};
    const bool read = readHeader(library, &header);
    if (std::memcmp(header.e_ident, ELFMAG, SELFMAG) != 0)
        return Error{QCoreApplication::translate("LibraryFile", "The plug-in %1 is not a library.")
                         .arg(file)};
    if (!read || !isComplete(library, header))
        return Error{QCoreApplication::translate("LibraryFile",
                                                 "The plug-in %1 is a library that was cut short.")
                         .arg(file)};
    return {};
}
