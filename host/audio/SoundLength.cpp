// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/audio/SoundLength.h"

#include <QIODevice>

#include <algorithm>

namespace {

constexpr int maxChunks = 10000;
constexpr qint64 largest32 = 0xFFFFFFFF;
constexpr qint64 longest = qint64{1} << 62;

// How a kind of file writes its chunks: a mark, the length of the content, and the content.
struct Layout
{
    const char* soundMark;
    qint64 firstChunk = 12;
    int markSize = 4;
    int lengthSize = 4;
    bool bigEndian = false;
    bool countsHeader = false; // in the lengths of chunks
    int alignment = 2;
    int preface = 0; // bytes of the content before the samples

    int headerSize() const { return markSize + lengthSize; }
    int counted() const { return countsHeader ? headerSize() : 0; }
    qint64 aligned(qint64 offset) const { return (offset + alignment - 1) / alignment * alignment; }
};

constexpr Layout wav{.soundMark = "data"};
constexpr Layout bigEndianWav{.soundMark = "data", .bigEndian = true};
constexpr Layout aiff{.soundMark = "SSND", .bigEndian = true, .preface = 8};
constexpr Layout caf{.soundMark = "data",
                     .firstChunk = 8,
                     .lengthSize = 8,
                     .bigEndian = true,
                     .alignment = 1,
                     .preface = 4};
constexpr Layout w64{.soundMark = "data",
                     .firstChunk = 40,
                     .markSize = 16,
                     .lengthSize = 8,
                     .countsHeader = true,
                     .alignment = 8};

// A length as the header writes it, which may count more than the samples.
struct Field
{
    qint64 offset = 0;
    int size = 4;
    bool bigEndian = false;
    int extra = 0;
};

QByteArray bytesAt(QIODevice& device, qint64 offset, qint64 count)
{
    return device.seek(offset) ? device.read(count) : QByteArray();
}

qint64 read(QIODevice& device, const Field& field)
{
    QByteArray bytes = bytesAt(device, field.offset, field.size);
    if (!field.bigEndian)
        std::reverse(bytes.begin(), bytes.end());
    quint64 value = 0;
    for (const char byte : bytes)
        value = (value << 8U) | static_cast<unsigned char>(byte);
    return static_cast<qint64>(value - static_cast<quint64>(field.extra));
}

bool isThere(const QIODevice& device, const Field& field)
{
    return field.offset + field.size <= device.size();
}

QByteArray written(qint64 length, const Field& field)
{
    auto value = static_cast<quint64>(length + field.extra);
    QByteArray bytes;
    for (int i = 0; i < field.size; ++i, value >>= 8U)
        bytes.append(static_cast<char>(value & 0xFFU));
    if (field.bigEndian)
        std::reverse(bytes.begin(), bytes.end());
    return value == 0 ? bytes : QByteArray();
}

// Whole blocks or the header may have been taken off the numbers that stand for an unknown length.
bool isPlaceholder(qint64 length, int size)
{
    constexpr qint64 slack = 0x2000;
    if (length <= 0 || size == 8)
        return length <= 0 || length >= longest - slack;
    return std::ranges::any_of(
        std::initializer_list<qint64>{0x7F000000, 0x80000000, largest32},
        [length](qint64 most) { return length <= most && length >= most - slack; });
}

class Walk
{
public:
    Walk(QIODevice& device, const Layout& layout)
        : m_device(device)
        , m_layout(layout)
    {}

    SoundLength find()
    {
        qint64 chunk = m_layout.firstChunk;
        for (int i = 0; i < maxChunks && chunk < m_device.size(); ++i) {
            const QByteArray mark = bytesAt(m_device, chunk, 4);
            if (mark == m_layout.soundMark)
                return soundAt(chunk);
            if (mark == "ds64")
                m_longField = {chunk + m_layout.headerSize() + 8, 8, false, 0};
            chunk = m_layout.aligned(endOf(chunk));
        }
        return {};
    }

private:
    Field fieldOf(qint64 chunk) const
    {
        return {chunk + m_layout.markSize, m_layout.lengthSize, m_layout.bigEndian,
                m_layout.counted()};
    }

    qint64 endOf(qint64 chunk) const
    {
        const qint64 length = read(m_device, fieldOf(chunk));
        return chunk + m_layout.headerSize() + std::clamp<qint64>(length, 0, longest);
    }

    SoundLength soundAt(qint64 chunk) const
    {
        Field field = fieldOf(chunk);
        if (m_longField.offset != 0 && read(m_device, field) == largest32)
            field = m_longField;
        field.extra += m_layout.preface;
        const qint64 start = chunk + m_layout.headerSize() + m_layout.preface;
        const qint64 promised = read(m_device, field);
        const qint64 present = std::max<qint64>(m_device.size() - start, 0);
        const bool known = promised >= 0 && promised <= present && leadsToEnd(start + promised);
        if (known || !isPlaceholder(promised, field.size) || !isThere(m_device, field))
            return {promised, present, false, {}, 0};
        return {promised, present, true, written(present, field), field.offset};
    }

    // Whether there are whole chunks, or none, between the end of a chunk and that of the file.
    bool leadsToEnd(qint64 end) const
    {
        const qint64 size = m_device.size();
        for (int i = 0; i < maxChunks && end < size && m_layout.aligned(end) < size; ++i) {
            if (!isMark(bytesAt(m_device, m_layout.aligned(end), 4)))
                return false;
            end = endOf(m_layout.aligned(end));
        }
        return end == size || m_layout.aligned(end) == size;
    }

    static bool isMark(const QByteArray& bytes)
    {
        return bytes.size() == 4 && std::ranges::all_of(bytes, [](char letter) {
                   return letter >= ' ' && letter <= '~';
               });
    }

    QIODevice& m_device;
    const Layout& m_layout;
    Field m_longField;
};

const Layout* layoutOf(const QByteArray& start)
{
    const QByteArray kind = start.left(4);
    const QByteArray content = start.mid(8, 4);
    if (content == "WAVE" && (kind == "RIFF" || kind == "RF64"))
        return &wav;
    if (content == "WAVE" && kind == "RIFX")
        return &bigEndianWav;
    if (kind == "FORM" && (content == "AIFF" || content == "AIFC"))
        return &aiff;
    if (kind == "caff")
        return &caf;
    return kind == "riff" && start.mid(24, 4) == "wave" ? &w64 : nullptr;
}

// An AU file has no chunks, and its samples begin where its second number says.
SoundLength lengthOfAu(QIODevice& device, bool bigEndian)
{
    const Field field{8, 4, bigEndian, 0};
    const qint64 promised = read(device, field);
    const qint64 start = read(device, {4, 4, bigEndian, 0});
    const qint64 present = std::max<qint64>(device.size() - start, 0);
    if (promised == largest32)
        return {};
    if (promised > 0 || present == 0 || !isThere(device, field))
        return {promised, present, false, {}, 0};
    return {promised, present, true, written(present, field), field.offset};
}

} // namespace

SoundLength SoundLength::of(QIODevice& device)
{
    const QByteArray start = bytesAt(device, 0, 40);
    if (start.startsWith(".snd") || start.startsWith("dns."))
        return lengthOfAu(device, start.startsWith('.'));
    const Layout* layout = layoutOf(start);
    return layout ? Walk(device, *layout).find() : SoundLength();
}
