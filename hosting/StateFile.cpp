// SPDX-License-Identifier: GPL-3.0-or-later
#include "hosting/StateFile.h"

#include "hosting/OutputFile.h"
#include "parameters/ParameterTable.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <public.sdk/source/common/memorystream.h>
#include <public.sdk/source/vst/vstpresetfile.h>

#include <algorithm>
#include <array>
#include <utility>

namespace {

using Content = StateFile::Content;
using Steinberg::FUID;
using Steinberg::MemoryStream;

constexpr char stateVersion[] = "2620";
constexpr char presetMark[] = "VST3";
constexpr char listMark[] = "List";
constexpr qsizetype markSize = 4;
constexpr qsizetype presetHeaderSize = 48;
constexpr qsizetype presetListHeaderSize = 8;
constexpr qsizetype presetEntrySize = 20;
constexpr qint32 maxChunks = 128; // as many as PresetFile reads
constexpr qsizetype largestFile = 1 << 20;

Content bad(const QString& error) { return {QByteArray(), error}; }

QString classText(const FUID& uid)
{
    Steinberg::FUID::String text = {};
    uid.toString(text);
    return QString::fromLatin1(text);
}

// The number at offset; 0 where the bytes end before it does.
template <typename Integer> Integer littleEndianAt(const QByteArray& bytes, qsizetype offset)
{
    char number[sizeof(Integer)] = {};
    const QByteArray part = bytes.mid(offset, sizeof number);
    std::copy(part.begin(), part.end(), number);
    return qFromLittleEndian<Integer>(number);
}

// Whether [offset, offset + size) lies between the preset's header and its end.
bool liesInside(const QByteArray& bytes, qint64 offset, qint64 size)
{
    return offset >= presetHeaderSize && offset <= bytes.size() && size >= 0 &&
           size <= bytes.size() - offset;
}

// Says what is wrong with a value, or nothing.
QString errorOfValue(const QByteArray& state, std::size_t entry)
{
    const auto offset = static_cast<qsizetype>(markSize + 4 * entry);
    const auto value = qFromBigEndian<float>(state.constData() + offset);
    if (value >= 0.0F && value <= 1.0F)
        return QString();
    const Parameter& parameter =
        parameterTable[static_cast<std::size_t>(StateFile::order[entry] - 1)];
    return QStringLiteral("holds %1 for %2 (%3), where values lie between 0 and 1")
        .arg(QString::number(value), QLatin1String(parameter.name), QLatin1String(parameter.title));
}

Content checkedValues(const QByteArray& state)
{
    for (std::size_t entry = 0; entry < StateFile::order.size(); ++entry) {
        const QString error = errorOfValue(state, entry);
        if (!error.isEmpty())
            return bad(error);
    }
    return {state, QString()};
}

QString shownBytes(const QByteArray& bytes)
{
    return QString::fromLatin1(bytes.left(markSize).toHex(' '));
}

Content decodeRaw(const QByteArray& bytes)
{
    const QByteArray version = QByteArray::fromRawData(stateVersion, markSize);
    if (bytes.left(markSize) != version.left(bytes.size()))
        return bad(QStringLiteral("is no equalizer state and no preset: it begins with the "
                                  "bytes %1")
                       .arg(shownBytes(bytes)));
    if (bytes.size() < StateFile::stateSize)
        return bad(QStringLiteral("is cut short: it holds %1 of the 116 bytes of a state")
                       .arg(bytes.size()));
    if (bytes.size() > StateFile::stateSize)
        return bad(QStringLiteral("is too long: it holds %1 bytes, where a state has 116")
                       .arg(bytes.size()));
    return checkedValues(bytes);
}

QString errorOfHeader(const QByteArray& bytes, const FUID& uid)
{
    if (bytes.size() < presetHeaderSize)
        return QStringLiteral("is a preset cut short: it ends inside its header");
    const auto version = littleEndianAt<qint32>(bytes, 4);
    if (version != 1)
        return QStringLiteral("is a preset of the unknown format version %1").arg(version);
    const QString classId = QString::fromLatin1(bytes.mid(8, 32));
    if (classId.compare(classText(uid), Qt::CaseInsensitive) != 0)
        return QStringLiteral("is a preset of another plug-in (class %1, not %2)")
            .arg(classId.toHtmlEscaped(), classText(uid));
    return QString();
}

QString errorOfList(const QByteArray& bytes)
{
    const auto list = littleEndianAt<qint64>(bytes, 40);
    if (!liesInside(bytes, list, presetListHeaderSize))
        return QStringLiteral("is a preset cut short: its list of chunks is missing");
    if (bytes.mid(list, markSize) != listMark)
        return QStringLiteral("is a damaged preset: its list of chunks is not where it should be");
    const auto count = littleEndianAt<qint32>(bytes, list + markSize);
    if (count < 0 || count > maxChunks)
        return QStringLiteral("is a damaged preset: it claims %1 chunks").arg(count);
    if (!liesInside(bytes, list, presetListHeaderSize + count * presetEntrySize))
        return QStringLiteral("is a preset cut short: it ends inside its list of chunks");
    return QString();
}

QString errorOfEntries(const QByteArray& bytes)
{
    const auto list = littleEndianAt<qint64>(bytes, 40);
    const auto count = littleEndianAt<qint32>(bytes, list + markSize);
    for (qsizetype i = 0; i < count; ++i) {
        const qsizetype entry = list + presetListHeaderSize + i * presetEntrySize;
        if (!liesInside(bytes, littleEndianAt<qint64>(bytes, entry + markSize),
                        littleEndianAt<qint64>(bytes, entry + markSize + 8)))
            return QStringLiteral("is a damaged preset: its chunk %1 lies outside the file")
                .arg(i + 1);
    }
    return QString();
}

// The component state of a preset that the checks above found sound.
Content componentState(QByteArray bytes)
{
    MemoryStream stream(bytes.data(), bytes.size());
    Steinberg::Vst::PresetFile preset(&stream);
    if (!preset.readChunkList() || !preset.contains(Steinberg::Vst::kComponentState))
        return bad(QStringLiteral("is a preset without a state"));
    const auto* entry = preset.getEntry(Steinberg::Vst::kComponentState);
    if (entry->size != StateFile::stateSize)
        return bad(
            QStringLiteral("is a preset whose state has %1 bytes instead of 116").arg(entry->size));
    QByteArray state(StateFile::stateSize, '\0');
    Steinberg::int32 count = 0;
    preset.seekToComponentState();
    stream.read(state.data(), StateFile::stateSize, &count);
    return {state, QString()};
}

Content decodePreset(const QByteArray& bytes, const FUID& uid)
{
    QString error = errorOfHeader(bytes, uid);
    if (error.isEmpty())
        error = errorOfList(bytes);
    if (error.isEmpty())
        error = errorOfEntries(bytes);
    if (!error.isEmpty())
        return bad(error);

    const Content content = componentState(bytes);
    if (!content.error.isEmpty())
        return content;
    if (!content.state.startsWith(stateVersion))
        return bad(QStringLiteral("is a preset whose state begins with the bytes %1, which is "
                                  "no equalizer state")
                       .arg(shownBytes(content.state)));
    return checkedValues(content.state);
}

QString shown(const QString& file) { return QDir::toNativeSeparators(file); }

} // namespace

StateFile::StateFile(QString file, const Steinberg::FUID& uid)
    : m_file(std::move(file))
    , m_uid(uid)
{}

StateFile::Content StateFile::read() const
{
    QFile file(m_file);
    const QFileInfo info(m_file);
    if (info.isDir())
        return bad(QStringLiteral("%1 is a folder, not a state file.").arg(shown(m_file)));
    if (info.exists() && !info.isFile()) // a pipe that nobody writes to would never end
        return bad(QStringLiteral("%1 is not a regular file.").arg(shown(m_file)));
    if (!file.open(QIODevice::ReadOnly))
        return bad(QStringLiteral("The state file %1 cannot be read: %2.")
                       .arg(shown(m_file), file.errorString()));
    const QByteArray bytes = file.read(largestFile + 1);
    if (file.error() != QFileDevice::NoError)
        return bad(QStringLiteral("The state file %1 cannot be read: %2.")
                       .arg(shown(m_file), file.errorString()));
    Content content = decode(bytes, m_uid);
    if (!content.error.isEmpty())
        content.error = QStringLiteral("The state file %1 %2.").arg(shown(m_file), content.error);
    return content;
}

QString StateFile::write(const QByteArray& state) const
{
    const bool preset = m_file.endsWith(QLatin1String(".vstpreset"), Qt::CaseInsensitive);
    return writeFile(m_file, preset ? encodePreset(state, m_uid) : state).error();
}

StateFile::Content StateFile::decode(const QByteArray& bytes, const Steinberg::FUID& uid)
{
    if (bytes.isEmpty())
        return bad(QStringLiteral("is empty"));
    if (bytes.size() > largestFile)
        return bad(QStringLiteral("is too long: it holds more than a megabyte, where a state "
                                  "has 116 bytes"));
    if (bytes.left(markSize) == QByteArray(presetMark).left(bytes.size()))
        return decodePreset(bytes, uid);
    return decodeRaw(bytes);
}

QByteArray StateFile::encodePreset(const QByteArray& state, const Steinberg::FUID& uid)
{
    QByteArray copy = state;
    MemoryStream source(copy.data(), copy.size());
    MemoryStream target;
    if (!Steinberg::Vst::PresetFile::savePreset(&target, uid, &source))
        return QByteArray();
    return QByteArray(target.getData(), static_cast<qsizetype>(target.getSize()));
}
