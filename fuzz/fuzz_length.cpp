// SPDX-License-Identifier: GPL-3.0-or-later
// The lengths in the headers of sound files of any bytes. A length that is completed is written
// over a part of the file, and then the header is whole.
#include "fuzz/Require.h"
#include "host/audio/SoundLength.h"

#include <QBuffer>

namespace {

void checkCover(const SoundLength& length, QByteArray bytes)
{
    require(length.closed.size() == 4 || length.closed.size() == 8);
    require(length.offset >= 0 && length.offset <= bytes.size());
    bytes.replace(length.offset, length.closed.size(), length.closed);
    QBuffer file(&bytes);
    file.open(QIODevice::ReadOnly);
    require(!SoundLength::of(file).isShort());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    QBuffer file(&bytes);
    file.open(QIODevice::ReadOnly);
    const SoundLength length = SoundLength::of(file);
    require(length.present >= 0 && length.present <= bytes.size());
    require(length.isOpen || length.closed.isEmpty());
    if (!length.closed.isEmpty())
        checkCover(length, bytes);
    return 0;
}
