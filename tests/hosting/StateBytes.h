// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QtEndian>

#include <vector>

/// States and presets put together byte by byte, for tests that read or compare them.
namespace StateBytes {

inline const QByteArray classId = QByteArrayLiteral("56535464787042657175616C697A6572");

inline QByteArray bigEndianFloat(float value)
{
    QByteArray bytes(4, '\0');
    qToBigEndian(value, bytes.data());
    return bytes;
}

/// "2620", the same value 27 times and an empty entry.
inline QByteArray state(float value = 0.5F)
{
    QByteArray bytes("2620");
    for (int i = 0; i < 27; ++i)
        bytes += bigEndianFloat(value);
    return bytes + QByteArray(4, '\0');
}

/// A state with one entry replaced.
inline QByteArray stateWith(int entry, const QByteArray& four)
{
    return state().replace(4 + 4 * entry, 4, four);
}

template <typename Integer> QByteArray littleEndian(Integer value)
{
    QByteArray bytes(sizeof value, '\0');
    qToLittleEndian(value, bytes.data());
    return bytes;
}

struct Chunk
{
    QByteArray id;
    qint64 offset;
    qint64 size;
};

/// A preset: header, \a body, then the list of \a chunks at \a list.
inline QByteArray preset(const QByteArray& body, const std::vector<Chunk>& chunks, qint64 list,
                         qint32 count, const QByteArray& id = classId, qint32 version = 1)
{
    QByteArray bytes = "VST3" + littleEndian(version) + id + littleEndian(list) + body;
    bytes += "List" + littleEndian(count);
    for (const Chunk& chunk : chunks)
        bytes += chunk.id + littleEndian(chunk.offset) + littleEndian(chunk.size);
    return bytes;
}

/// A sound preset around \a body as its component state.
inline QByteArray presetOf(const QByteArray& body, const QByteArray& id = classId,
                           const QByteArray& chunk = "Comp")
{
    return preset(body, {{chunk, 48, body.size()}}, 48 + body.size(), 1, id);
}

} // namespace StateBytes
