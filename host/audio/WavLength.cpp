// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/audio/WavLength.h"

#include <QByteArray>
#include <QIODevice>
#include <QtEndian>

namespace {

constexpr qint64 firstChunk = 12;
constexpr qint64 chunkHeader = 8;
constexpr quint32 openLength = 0xFFFFFFFF;
constexpr int mostChunks = 10000;

QByteArray bytesAt(QIODevice& device, qint64 offset, qint64 count)
{
    return device.seek(offset) ? device.read(count) : QByteArray();
}

struct Walk
{
    QIODevice& device;
    bool bigEndian;
    qint64 longData = -1; // what a "ds64" chunk says about a length beyond 32 bits

    quint32 lengthOf(const QByteArray& header) const
    {
        const char* four = header.constData() + 4;
        return bigEndian ? qFromBigEndian<quint32>(four) : qFromLittleEndian<quint32>(four);
    }

    void readLongData(qint64 content)
    {
        const QByteArray bytes = bytesAt(device, content + 8, 8);
        if (bytes.size() == 8)
            longData = qFromLittleEndian<qint64>(bytes.constData());
    }

    WavLength find()
    {
        qint64 offset = firstChunk;
        for (int i = 0; i < mostChunks; ++i) {
            const QByteArray header = bytesAt(device, offset, chunkHeader);
            if (header.size() < chunkHeader)
                break;
            const quint32 length = lengthOf(header);
            offset += chunkHeader;
            if (header.startsWith("data"))
                return lengthOfData(length, offset);
            if (header.startsWith("ds64"))
                readLongData(offset);
            offset += qint64{length} + (length & 1U);
        }
        return {};
    }

    WavLength lengthOfData(quint32 length, qint64 offset) const
    {
        if (length == openLength && longData < 0)
            return {};
        return {length == openLength ? longData : qint64{length}, device.size() - offset};
    }
};

} // namespace

WavLength WavLength::of(QIODevice& device)
{
    const QByteArray start = bytesAt(device, 0, firstChunk);
    const QByteArray kind = start.left(4);
    if (start.mid(8) != "WAVE" || (kind != "RIFF" && kind != "RIFX" && kind != "RF64"))
        return {};
    return Walk{device, kind == "RIFX"}.find();
}
