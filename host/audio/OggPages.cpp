// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/audio/OggPages.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QFileDevice>
#include <QtEndian>

#include <array>
#include <numeric>

namespace {

constexpr qsizetype headerSize = 27; // without the table of segments
constexpr qsizetype flagsAt = 5;
constexpr qsizetype checksumAt = 22;
constexpr qsizetype segmentsAt = 26;

enum Flag : unsigned { FirstOfStream = 2, LastOfStream = 4 };

// Of the polynomial 0x04C11DB7, highest bit first.
constexpr std::array<quint32, 256> remainders = [] {
    std::array<quint32, 256> table{};
    for (quint32 i = 0; i < table.size(); ++i) {
        table[i] = i << 24U;
        for (int bit = 0; bit < 8; ++bit)
            table[i] = (table[i] << 1U) ^ ((table[i] >> 31U) * 0x04C11DB7U);
    }
    return table;
}();

unsigned char byteAt(const QByteArray& bytes, qsizetype index)
{
    return static_cast<unsigned char>(bytes[index]);
}

quint32 checksum(const QByteArray& page)
{
    quint32 sum = 0;
    for (qsizetype i = 0; i < page.size(); ++i) {
        const bool itself = i >= checksumAt && i < checksumAt + 4;
        sum = (sum << 8U) ^ remainders[(sum >> 24U) ^ (itself ? 0U : byteAt(page, i))];
    }
    return sum;
}

bool isWhole(const QByteArray& page)
{
    return checksum(page) == qFromLittleEndian<quint32>(page.constData() + checksumAt);
}

// Empty where there is no whole and undamaged page.
QByteArray pageAt(QFileDevice& device, qint64 offset)
{
    const QByteArray header = device.seek(offset) ? device.read(headerSize) : QByteArray();
    if (header.size() < headerSize || !header.startsWith("OggS"))
        return {};
    const QByteArray segments = device.read(byteAt(header, segmentsAt));
    const auto content =
        std::accumulate(segments.begin(), segments.end(), qint64{0}, [](qint64 sum, char size) {
            return sum + static_cast<unsigned char>(size);
        });
    const QByteArray page = header + segments + device.read(content);
    return isWhole(page) ? page : QByteArray();
}

} // namespace

Status OggPages::check(QFileDevice& file)
{
    unsigned flags = FirstOfStream;
    qint64 offset = 0;
    for (;;) {
        const QByteArray page = pageAt(file, offset);
        if (page.isEmpty())
            break;
        const bool follows = (flags & FirstOfStream) == 0;
        flags = byteAt(page, flagsAt);
        if (follows && (flags & FirstOfStream) != 0) {
            return Error{QCoreApplication::translate("AudioReader",
                                                     "The sound file %1 cannot be read: it holds "
                                                     "several streams one after the other.")
                             .arg(file.fileName())};
        }
        offset += page.size();
    }
    if ((flags & LastOfStream) != 0)
        return {};
    return Error{QCoreApplication::translate("AudioReader",
                                             "The sound file %1 cannot be read: it is damaged at "
                                             "byte %2.")
                     .arg(file.fileName(), QString::number(offset))};
}
