// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/files/SessionData.h"

#include "host/files/PresetFolder.h"
#include "host/model/ChannelText.h"

#include <QCoreApplication>
#include <QJsonArray>

#include <cmath>

namespace {

constexpr QLatin1String versionKey("zolta-session");
constexpr QLatin1String channelsKey("channels");
constexpr QLatin1String nameKey("name");
constexpr QLatin1String stripKey("strip");
constexpr QLatin1String equalizerKey("equalizer");
constexpr QLatin1String compareKey("compare");
constexpr QLatin1String chosenKey("chosen");
constexpr QLatin1String otherKey("other");
constexpr QLatin1String presetKey("preset");
constexpr QLatin1String factoryKey("factory");
constexpr QLatin1String editorKey("editor");
constexpr QLatin1String masterKey("master");
constexpr QLatin1String mixerKey("mixer");
constexpr QLatin1String analyzerKey("analyzer");
constexpr QLatin1String editorsKey("editors");
constexpr QLatin1String channelKey("channel");
constexpr QLatin1String stereoKey("stereo");
constexpr QLatin1String scaleKey("scale");
constexpr QLatin1String measuredKey("measured");
constexpr QLatin1String geometryKey("geometry");
constexpr QLatin1String stateKey("state");
constexpr QLatin1String audioKey("audio");
constexpr QLatin1String fileKey("file");
constexpr QLatin1String positionKey("position");
constexpr QLatin1String loopKey("loop");
// Programs of the first version know defaultChannelCount channels.
constexpr int firstVersion = 1;
constexpr int version = 2;
constexpr double longest = 1e9; // seconds
constexpr qsizetype maxNameLength = 200;
constexpr double smallestScale = 0.5;
constexpr double largestScale = 4.0;

QString toJson(const QByteArray& bytes) { return QString::fromLatin1(bytes.toBase64()); }

QJsonObject toJson(const HostMemory::StripValues& values)
{
    QJsonObject object;
    for (std::size_t i = 0; i < stripParameterCount; ++i)
        object[QLatin1String(stripTable[i].key)] = QString::fromStdString(
            formatStrip(static_cast<StripParameter>(i), values[i]).value_or(""));
    return object;
}

QJsonObject toJson(const std::array<int, masterParameterCount>& values, QJsonObject object)
{
    for (std::size_t i = 0; i < masterParameterCount; ++i)
        object[QLatin1String(masterTable[i].key)] = QString::fromStdString(
            formatMaster(static_cast<MasterParameter>(i), values[i]).value_or(""));
    return object;
}

QJsonObject toJson(const SessionData::Channel& channel, QJsonObject object)
{
    object[nameKey] = channel.name;
    object[stripKey] = toJson(channel.strip);
    object[equalizerKey] = ChannelText::toJson(channel.equalizer);
    object[compareKey] = QJsonObject{{chosenKey, QLatin1String(channel.compare.isB ? "B" : "A")},
                                     {otherKey, ChannelText::toJson(channel.compare.other)}};
    object.remove(presetKey);
    if (channel.preset)
        object[presetKey] =
            QJsonObject{{nameKey, channel.preset->name}, {factoryKey, channel.preset->isFactory}};
    object[editorKey] = QJsonObject::fromVariantMap(channel.editor);
    return object;
}

QJsonObject toJson(const SessionData::Editor& editor)
{
    return {{channelKey, editor.channel},
            {stereoKey, editor.stereo},
            {scaleKey, editor.scale},
            {geometryKey, toJson(editor.geometry)},
            {stateKey, toJson(editor.state)}};
}

QJsonObject toJson(const SessionData::Audio& audio, QJsonObject object)
{
    object[fileKey] = audio.file;
    object[positionKey] = audio.position;
    object[loopKey] = audio.loop;
    return object;
}

// Reads values and keeps the first error; after one, nothing is read any more.
class Reader
{
    Q_DECLARE_TR_FUNCTIONS(SessionData)

public:
    const Status& status() const { return m_status; }

    void fail(const QString& sentence)
    {
        if (m_status.isOk())
            m_status = Error{sentence};
    }

    // Whether there is something to read, of the right type.
    bool has(const QJsonValue& value, QJsonValue::Type type, const QString& path)
    {
        if (!m_status.isOk() || value.isUndefined())
            return false;
        if (value.type() == type)
            return true;
        fail(typeError(type).arg(path));
        return false;
    }

    void number(const QJsonValue& value, double minimum, double maximum, const QString& path,
                double* out)
    {
        if (!has(value, QJsonValue::Double, path))
            return;
        *out = value.toDouble();
        if (*out < minimum || *out > maximum)
            fail(tr("%1 is %2, but must be between %3 and %4.")
                     .arg(path, QString::number(*out), QString::number(minimum),
                          QString::number(maximum)));
    }

    void bytes(const QJsonValue& value, const QString& path, QByteArray* out)
    {
        if (has(value, QJsonValue::String, path))
            *out = QByteArray::fromBase64(value.toString().toLatin1());
    }

    void equalizer(const QJsonValue& value, const QString& path, HostMemory::Values* out)
    {
        if (!has(value, QJsonValue::Object, path))
            return;
        const Result<HostMemory::Values> values = ChannelText::fromJson(value.toObject(), *out);
        if (!values.isOk())
            return fail(tr("%1 cannot be read. %2").arg(path, values.error()));
        *out = values.value();
    }

    void strip(const QJsonValue& value, const QString& path, HostMemory::StripValues* out)
    {
        entries(value, path, stripTable, out, [](std::size_t i, const std::string& text) {
            return parseStrip(static_cast<StripParameter>(i), text);
        });
    }

    void master(const QJsonValue& value, std::array<int, masterParameterCount>* out)
    {
        entries(value, masterKey, masterTable, out, [](std::size_t i, const std::string& text) {
            return parseMaster(static_cast<MasterParameter>(i), text);
        });
    }

private:
    template <std::size_t Count, typename Parse>
    void entries(const QJsonValue& value, const QString& path,
                 const std::array<StripEntry, Count>& table, std::array<int, Count>* out,
                 Parse parse)
    {
        if (!has(value, QJsonValue::Object, path))
            return;
        for (std::size_t i = 0; i < Count; ++i) {
            const QLatin1String key(table[i].key);
            const QString entry = path + QLatin1Char('.') + key;
            const QJsonValue text = value[key];
            if (!has(text, QJsonValue::String, entry))
                continue;
            const std::optional<int> parsed = parse(i, text.toString().toStdString());
            if (!parsed)
                return fail(tr("%1 cannot be set to \"%2\".").arg(entry, text.toString()));
            (*out)[i] = *parsed;
        }
    }

    static QString typeError(QJsonValue::Type type)
    {
        switch (type) {
        case QJsonValue::Bool:
            return tr("%1 must be true or false.");
        case QJsonValue::Double:
            return tr("%1 must be a number.");
        case QJsonValue::String:
            return tr("%1 must be text.");
        case QJsonValue::Array:
            return tr("%1 must be a list.");
        default:
            return tr("%1 must be an object.");
        }
    }

    Status m_status;
};

void readCompare(Reader& reader, const QJsonValue& value, const QString& path,
                 ChannelCompare::State* out)
{
    if (!reader.has(value, QJsonValue::Object, path))
        return;
    const QString chosenPath = path + QLatin1String(".chosen");
    if (reader.has(value[chosenKey], QJsonValue::String, chosenPath)) {
        const QString chosen = value[chosenKey].toString();
        if (chosen != QLatin1String("A") && chosen != QLatin1String("B"))
            reader.fail(Reader::tr("%1 must be A or B.").arg(chosenPath));
        out->isB = chosen == QLatin1String("B");
    }
    reader.equalizer(value[otherKey], path + QLatin1String(".other"), &out->other);
}

void readPreset(Reader& reader, const QJsonValue& value, const QString& path,
                std::optional<PresetName>* out)
{
    if (!reader.has(value, QJsonValue::Object, path))
        return;
    PresetName preset;
    const QString namePath = path + QLatin1String(".name");
    if (reader.has(value[nameKey], QJsonValue::String, namePath))
        preset.name = value[nameKey].toString();
    if (reader.has(value[factoryKey], QJsonValue::Bool, path + QLatin1String(".factory")))
        preset.isFactory = value[factoryKey].toBool();
    if (!PresetFolder::checkName(preset.name).isOk())
        reader.fail(Reader::tr("%1 cannot be set to \"%2\".").arg(namePath, preset.name));
    *out = preset;
}

void readChannel(Reader& reader, const QJsonValue& value, const QString& path,
                 SessionData::Channel* out)
{
    if (!reader.has(value, QJsonValue::Object, path))
        return;
    if (reader.has(value[nameKey], QJsonValue::String, path + QLatin1String(".name")))
        out->name = value[nameKey].toString().simplified().left(maxNameLength);
    reader.strip(value[stripKey], path + QLatin1String(".strip"), &out->strip);
    reader.equalizer(value[equalizerKey], path + QLatin1String(".equalizer"), &out->equalizer);
    readCompare(reader, value[compareKey], path + QLatin1String(".compare"), &out->compare);
    readPreset(reader, value[presetKey], path + QLatin1String(".preset"), &out->preset);
    if (reader.has(value[editorKey], QJsonValue::Object, path + QLatin1String(".editor")))
        out->editor = value[editorKey].toObject().toVariantMap();
}

void readCount(Reader& reader, const QJsonValue& mixer, int* out)
{
    const QString path = QStringLiteral("mixer.channels");
    double count = *out;
    reader.number(mixer[channelsKey], minChannelCount, maxChannelCount, path, &count);
    if (std::fmod(count, 2.0) != 0.0)
        reader.fail(
            Reader::tr("%1 is %2, but must be an even number.").arg(path, QString::number(count)));
    if (reader.status().isOk())
        *out = static_cast<int>(count);
}

void readChannels(Reader& reader, const QJsonValue& value, SessionData* out)
{
    if (!reader.has(value, QJsonValue::Array, channelsKey))
        return;
    const QJsonArray list = value.toArray();
    if (list.size() > out->channelCount)
        return reader.fail(Reader::tr("%1 has %2 entries, but the mixer has %3 channels.")
                               .arg(channelsKey, QString::number(list.size()),
                                    QString::number(out->channelCount)));
    for (int i = 0; i < list.size(); ++i)
        readChannel(reader, list[i], QStringLiteral("channels[%1]").arg(i),
                    &out->channels[static_cast<std::size_t>(i)]);
}

void readEditor(Reader& reader, const QJsonValue& value, const QString& path, SessionData* out)
{
    if (!reader.has(value, QJsonValue::Object, path))
        return;
    SessionData::Editor editor;
    double channel = 0.0;
    reader.number(value[channelKey], 0, out->channelCount - 1, path + QLatin1String(".channel"),
                  &channel);
    editor.channel = static_cast<int>(channel);
    if (reader.has(value[stereoKey], QJsonValue::Bool, path + QLatin1String(".stereo")))
        editor.stereo = value[stereoKey].toBool();
    reader.number(value[scaleKey], smallestScale, largestScale, path + QLatin1String(".scale"),
                  &editor.scale);
    if (reader.has(value[measuredKey], QJsonValue::Bool, path + QLatin1String(".measured")))
        editor.measured = value[measuredKey].toBool();
    reader.bytes(value[geometryKey], path + QLatin1String(".geometry"), &editor.geometry);
    reader.bytes(value[stateKey], path + QLatin1String(".state"), &editor.state);
    out->editors.push_back(editor);
}

void readAudio(Reader& reader, const QJsonValue& value, SessionData::Audio* out)
{
    if (!reader.has(value, QJsonValue::Object, audioKey))
        return;
    if (reader.has(value[fileKey], QJsonValue::String, QStringLiteral("audio.file")))
        out->file = value[fileKey].toString();
    reader.number(value[positionKey], 0.0, longest, QStringLiteral("audio.position"),
                  &out->position);
    if (reader.has(value[loopKey], QJsonValue::Bool, QStringLiteral("audio.loop")))
        out->loop = value[loopKey].toBool();
}

} // namespace

SessionData::SessionData()
{
    HostMemory fresh;
    for (std::size_t i = 0; i < masterParameterCount; ++i)
        master[i] = fresh.master(static_cast<MasterParameter>(i));
    for (int ch = 0; ch < maxChannelCount; ++ch) {
        Channel& channel = channels[static_cast<std::size_t>(ch)];
        channel.equalizer = channel.compare.other = fresh.values(ch);
        for (std::size_t i = 0; i < stripParameterCount; ++i)
            channel.strip[i] = fresh.strip(ch, static_cast<StripParameter>(i));
    }
}

const SessionData::Channel& SessionData::heardBy(int channel) const
{
    const Channel& first = channels[static_cast<std::size_t>(channel & ~1)];
    const bool pair = first.strip[static_cast<std::size_t>(StripParameter::Stereo)] != 0;
    return pair ? first : channels[static_cast<std::size_t>(channel)];
}

QJsonObject SessionData::toJson(const QJsonObject& base) const
{
    const QJsonArray before = base[channelsKey].toArray();
    QJsonArray list;
    for (int ch = 0; ch < channelCount; ++ch)
        list << ::toJson(channels[static_cast<std::size_t>(ch)], before.at(ch).toObject());
    QJsonArray open;
    for (const Editor& editor : editors)
        open << ::toJson(editor);
    QJsonObject mixer = base[mixerKey].toObject();
    mixer[geometryKey] = ::toJson(mixerGeometry);
    const bool isUsual = channelCount == defaultChannelCount;
    if (isUsual)
        mixer.remove(channelsKey);
    else
        mixer[channelsKey] = channelCount;
    if (!analyzer.isEmpty())
        mixer[analyzerKey] = analyzer;
    QJsonObject root = base;
    root[versionKey] = isUsual ? firstVersion : version;
    root[channelsKey] = list;
    root[masterKey] = ::toJson(master, base[masterKey].toObject());
    root[mixerKey] = mixer;
    root[editorsKey] = open;
    root[audioKey] = ::toJson(audio, base[audioKey].toObject());
    return root;
}

bool SessionData::isLater(const QJsonObject& root) { return root[versionKey].toDouble() > version; }

Status SessionData::read(const QJsonObject& root)
{
    if (!root[versionKey].isDouble())
        return Error{Reader::tr("The file is not a session file.")};
    const double given = root[versionKey].toDouble();
    if (given != firstVersion && given != version)
        return Error{
            Reader::tr("The file has version %1, which this program does not know.").arg(given)};
    Reader reader;
    readCount(reader, root[mixerKey], &channelCount);
    readChannels(reader, root[channelsKey], this);
    reader.master(root[masterKey], &master);
    if (reader.has(root[mixerKey], QJsonValue::Object, mixerKey)) {
        const QJsonValue mixer = root[mixerKey];
        reader.bytes(mixer[geometryKey], QStringLiteral("mixer.geometry"), &mixerGeometry);
        if (reader.has(mixer[analyzerKey], QJsonValue::Object, QStringLiteral("mixer.analyzer")))
            analyzer = mixer[analyzerKey].toObject();
    }
    if (reader.has(root[editorsKey], QJsonValue::Array, editorsKey)) {
        const QJsonArray open = root[editorsKey].toArray();
        for (int i = 0; i < open.size(); ++i)
            readEditor(reader, open[i], QStringLiteral("editors[%1]").arg(i), this);
    }
    readAudio(reader, root[audioKey], &audio);
    return reader.status();
}
