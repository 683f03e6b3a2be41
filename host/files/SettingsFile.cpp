// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/files/SettingsFile.h"

#include "host/files/DamagedFile.h"
#include "hosting/OutputFile.h"
#include "parameters/ParameterTable.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>

#include <optional>
#include <utility>

namespace {

constexpr int version = 1;
constexpr qint64 largestFile = 1 << 20;
constexpr QLatin1String versionKey("version");
constexpr QLatin1String channelsKey("channels");

using Maps = QMap<int, SettingsFile::Map>;

struct Parsed
{
    Maps maps;
    QString error; // the end of a sentence
    bool isLater = false;
};

Parsed bad(const QString& error, bool isLater = false) { return {{}, error, isLater}; }

std::optional<int> channelOf(const QString& key)
{
    bool understood = false;
    const int channel = key.toInt(&understood);
    return understood && channel >= 0 && channel < channelCount ? std::optional(channel)
                                                                : std::nullopt;
}

Parsed parseChannels(const QJsonObject& channels)
{
    Parsed result;
    for (auto it = channels.begin(); it != channels.end(); ++it) {
        const std::optional<int> channel = channelOf(it.key());
        if (!channel || !it.value().isObject())
            return bad(QStringLiteral("it holds no settings of a channel \"%1\"").arg(it.key()));
        result.maps[*channel] = it.value().toObject().toVariantMap();
    }
    return result;
}

Parsed parse(const QByteArray& bytes)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (document.isNull())
        return bad(QStringLiteral("%1 at byte %2").arg(error.errorString()).arg(error.offset));
    const QJsonObject root = document.object();
    if (root.value(versionKey).toInt() != version)
        return bad(QStringLiteral("it is no settings file of version %1").arg(version),
                   root.value(versionKey).toInt() > version);
    if (!root.value(channelsKey).isObject())
        return bad(QStringLiteral("it holds no channels"));
    return parseChannels(root.value(channelsKey).toObject());
}

} // namespace

QString SettingsFile::standardFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QLatin1String("/zolta/editors.json");
}

QString SettingsFile::open(const QString& file)
{
    m_file = file;
    m_maps.clear();
    QFile input(file);
    if (!input.exists())
        return QString();
    if (!input.open(QIODevice::ReadOnly))
        return leaveAlone(input.errorString());
    if (input.size() > largestFile)
        return setAside(QStringLiteral("it is too long"));
    Parsed parsed = parse(input.readAll());
    if (parsed.isLater)
        return leaveAlone(parsed.error);
    m_maps = std::move(parsed.maps);
    return parsed.error.isEmpty() ? QString() : setAside(parsed.error);
}

void SettingsFile::keep(int channel, const Map& map)
{
    if (m_maps.value(channel) == map)
        return;
    m_maps[channel] = map;
    if (m_file.isEmpty())
        return;
    QDir().mkpath(QFileInfo(m_file).path());
    const Status written = writeFile(m_file, bytes());
    if (!written.isOk() && m_reporter)
        m_reporter(written.error());
}

QString SettingsFile::leaveAlone(const QString& reason)
{
    return QCoreApplication::translate("SettingsFile",
                                       "The editors' settings in %1 cannot be read: %2.")
        .arg(std::exchange(m_file, QString()), reason);
}

QString SettingsFile::setAside(const QString& reason)
{
    const QString name = setDamagedFileAside(m_file);
    if (!name.isEmpty())
        return QCoreApplication::translate(
                   "SettingsFile", "The editors' settings in %1 are damaged and ignored: %2. The "
                                   "file is kept as %3.")
            .arg(m_file, reason, name);
    return QCoreApplication::translate(
               "SettingsFile", "The editors' settings in %1 are damaged and ignored: %2. The file "
                               "cannot be renamed, so nothing is kept.")
        .arg(std::exchange(m_file, QString()), reason);
}

QByteArray SettingsFile::bytes() const
{
    QJsonObject channels;
    for (auto it = m_maps.begin(); it != m_maps.end(); ++it)
        channels[QString::number(it.key())] = QJsonObject::fromVariantMap(it.value());
    const QJsonObject root{{versionKey, version}, {channelsKey, channels}};
    return QJsonDocument(root).toJson();
}
