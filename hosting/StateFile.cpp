// SPDX-License-Identifier: GPL-3.0-or-later
#include "hosting/StateFile.h"

#include "equalizer/EqualizerParameters.h"
#include "hosting/OutputFile.h"
#include "parameters/ParameterTable.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <public.sdk/source/common/memorystream.h>
#include <public.sdk/source/vst/vstpresetfile.h>

#include <algorithm>
#include <utility>

namespace {

using Steinberg::FUID;
using Steinberg::MemoryStream;

constexpr char presetMark[] = "VST3";
constexpr char listMark[] = "List";
constexpr qsizetype markSize = 4;
constexpr qsizetype presetHeaderSize = 48;
constexpr qsizetype presetListHeaderSize = 8;
constexpr qsizetype presetEntrySize = 20;
constexpr qint32 maxChunks = 128; // as many as PresetFile reads
constexpr qsizetype maxFileSize = 1 << 20;
constexpr auto sizeOfState = static_cast<qsizetype>(stateSize);

QByteArray versionMark() { return {reinterpret_cast<const char*>(stateVersion.data()), markSize}; }

QString classText(const FUID& uid)
{
    FUID::String text = {};
    uid.toString(text);
    return QString::fromLatin1(text);
}

QString shownBytes(const QByteArray& bytes)
{
    return QString::fromLatin1(bytes.left(markSize).toHex(' '));
}

// The number at offset; 0 where the bytes end before it does.
template <typename Integer> Integer littleEndianAt(const QByteArray& bytes, qsizetype offset)
{
    char number[sizeof(Integer)] = {};
    const QByteArray part = bytes.mid(offset, sizeof number);
    std::copy(part.begin(), part.end(), number);
    return qFromLittleEndian<Integer>(number);
}

// Reads the bytes of a file; its errors name the file.
class Decoder
{
    Q_DECLARE_TR_FUNCTIONS(StateFile)

public:
    Decoder(const QByteArray& bytes, const FUID& uid, QString file)
        : m_bytes(bytes)
        , m_uid(uid)
        , m_file(std::move(file))
    {}

    Result<QByteArray> decode() const;

private:
    Result<QByteArray> decodeState() const;
    Result<QByteArray> decodePreset() const;
    Status checkHeader() const;
    Status checkList() const;
    Status checkEntries() const;
    Result<QByteArray> componentState() const;
    Result<QByteArray> checkedValues(const QByteArray& state) const;

    // The sentence, about the file.
    template <typename... Details>
    Error error(const QString& sentence, const Details&... details) const
    {
        return Error{sentence.arg(m_file, details...)};
    }

    bool liesInside(qint64 offset, qint64 size) const;
    qint64 listOffset() const { return littleEndianAt<qint64>(m_bytes, 40); }
    qint32 chunkCount() const { return littleEndianAt<qint32>(m_bytes, listOffset() + markSize); }

    const QByteArray& m_bytes;
    const FUID& m_uid;
    QString m_file;
};

Result<QByteArray> Decoder::decode() const
{
    if (m_bytes.isEmpty())
        return error(tr("The state file %1 is empty."));
    if (m_bytes.size() > maxFileSize)
        return error(tr("The state file %1 is too long: it holds more than a megabyte, where a "
                        "state has %2 bytes."),
                     QString::number(stateSize));
    if (m_bytes.left(markSize) == QByteArray(presetMark).left(m_bytes.size()))
        return decodePreset();
    return decodeState();
}

Result<QByteArray> Decoder::decodeState() const
{
    const QString size = QString::number(m_bytes.size());
    if (m_bytes.left(markSize) != versionMark().left(m_bytes.size()))
        return error(tr("The state file %1 is neither an equalizer state nor a preset: it begins "
                        "with the bytes %2."),
                     shownBytes(m_bytes));
    if (m_bytes.size() < sizeOfState)
        return error(tr("The state file %1 is cut short: it holds %2 of the %3 bytes of a state."),
                     size, QString::number(stateSize));
    if (m_bytes.size() > sizeOfState)
        return error(tr("The state file %1 is too long: it holds %2 bytes, where a state has %3."),
                     size, QString::number(stateSize));
    return checkedValues(m_bytes);
}

Result<QByteArray> Decoder::decodePreset() const
{
    for (const auto check : {&Decoder::checkHeader, &Decoder::checkList, &Decoder::checkEntries}) {
        if (const Status status = (this->*check)(); !status.isOk())
            return Error{status.error()};
    }
    const Result<QByteArray> state = componentState();
    if (!state.isOk())
        return state;
    if (!state.value().startsWith(versionMark()))
        return error(tr("The state file %1 is a preset whose state is not an equalizer state: it "
                        "begins with the bytes %2."),
                     shownBytes(state.value()));
    return checkedValues(state.value());
}

Status Decoder::checkHeader() const
{
    if (m_bytes.size() < presetHeaderSize)
        return error(tr("The state file %1 is a preset cut short: it ends inside its header."));
    const auto version = littleEndianAt<qint32>(m_bytes, 4);
    if (version != 1)
        return error(tr("The state file %1 is a preset of the unknown format version %2."),
                     QString::number(version));
    const QString classId = QString::fromLatin1(m_bytes.mid(8, 32));
    if (classId.compare(classText(m_uid), Qt::CaseInsensitive) != 0)
        return error(tr("The state file %1 is a preset of another plug-in (class %2, not %3)."),
                     classId.toHtmlEscaped(), classText(m_uid));
    return {};
}

Status Decoder::checkList() const
{
    if (!liesInside(listOffset(), presetListHeaderSize))
        return error(tr("The state file %1 is a preset cut short: its list of chunks is missing."));
    if (m_bytes.mid(listOffset(), markSize) != listMark)
        return error(tr("The state file %1 is a damaged preset: its list of chunks is not where it "
                        "should be."));
    if (chunkCount() < 0 || chunkCount() > maxChunks)
        return error(tr("The state file %1 is a damaged preset: it claims %2 chunks."),
                     QString::number(chunkCount()));
    if (!liesInside(listOffset(), presetListHeaderSize + chunkCount() * presetEntrySize))
        return error(
            tr("The state file %1 is a preset cut short: it ends inside its list of chunks."));
    return {};
}

Status Decoder::checkEntries() const
{
    for (qsizetype i = 0; i < chunkCount(); ++i) {
        const qsizetype entry = listOffset() + presetListHeaderSize + i * presetEntrySize;
        if (!liesInside(littleEndianAt<qint64>(m_bytes, entry + markSize),
                        littleEndianAt<qint64>(m_bytes, entry + markSize + 8)))
            return error(
                tr("The state file %1 is a damaged preset: its chunk %2 lies outside the file."),
                QString::number(i + 1));
    }
    return {};
}

// The component state of a preset that the checks above found sound.
Result<QByteArray> Decoder::componentState() const
{
    QByteArray bytes = m_bytes;
    MemoryStream stream(bytes.data(), bytes.size());
    Steinberg::Vst::PresetFile preset(&stream);
    if (!preset.readChunkList() || !preset.contains(Steinberg::Vst::kComponentState))
        return error(tr("The state file %1 is a preset without a state."));
    const auto* entry = preset.getEntry(Steinberg::Vst::kComponentState);
    if (entry->size != sizeOfState)
        return error(tr("The state file %1 is a preset whose state has %2 bytes instead of %3."),
                     QString::number(entry->size), QString::number(stateSize));
    QByteArray state(sizeOfState, '\0');
    preset.seekToComponentState();
    stream.read(state.data(), static_cast<Steinberg::int32>(sizeOfState), nullptr);
    return state;
}

Result<QByteArray> Decoder::checkedValues(const QByteArray& state) const
{
    for (std::size_t entry = 0; entry < parameterCount; ++entry) {
        const auto offset = markSize + 4 * static_cast<qsizetype>(entry);
        const auto value = qFromBigEndian<float>(state.constData() + offset);
        if (value >= 0.0F && value <= 1.0F)
            continue;
        const Parameter& parameter = parameterTable[stateOrder[entry]];
        return error(tr("The state file %1 holds %2 for %3 (%4), but values must lie between 0 "
                        "and 1."),
                     QString::number(value), QLatin1String(parameter.name),
                     QCoreApplication::translate("Parameter", parameter.title));
    }
    return state;
}

// Whether [offset, offset + size) lies between the preset's header and its end.
bool Decoder::liesInside(qint64 offset, qint64 size) const
{
    return offset >= presetHeaderSize && offset <= m_bytes.size() && size >= 0 &&
           size <= m_bytes.size() - offset;
}

} // namespace

StateFile::StateFile(QString file, const FUID& uid)
    : m_file(std::move(file))
    , m_uid(uid)
{}

Result<QByteArray> StateFile::read() const
{
    const QString name = QDir::toNativeSeparators(m_file);
    const QFileInfo info(m_file);
    if (info.isDir())
        return Error{tr("The state file %1 is a folder.").arg(name)};
    if (info.exists() && !info.isFile()) // a pipe that nobody writes to would never end
        return Error{tr("The state file %1 is not a regular file.").arg(name)};
    QFile file(m_file);
    const QByteArray bytes =
        file.open(QIODevice::ReadOnly) ? file.read(maxFileSize + 1) : QByteArray();
    if (file.error() != QFileDevice::NoError)
        return Error{tr("The state file %1 cannot be read: %2.").arg(name, file.errorString())};
    return decode(bytes, m_uid, name);
}

Status StateFile::write(const QByteArray& state) const
{
    const bool preset = m_file.endsWith(QLatin1String(".vstpreset"), Qt::CaseInsensitive);
    return writeFile(m_file, preset ? encodePreset(state, m_uid) : state);
}

Result<QByteArray> StateFile::decode(const QByteArray& bytes, const FUID& uid, const QString& file)
{
    return Decoder(bytes, uid, file).decode();
}

QByteArray StateFile::encodePreset(const QByteArray& state, const FUID& uid)
{
    QByteArray copy = state;
    MemoryStream source(copy.data(), copy.size());
    MemoryStream target;
    if (!Steinberg::Vst::PresetFile::savePreset(&target, uid, &source))
        return QByteArray();
    return QByteArray(target.getData(), static_cast<qsizetype>(target.getSize()));
}
