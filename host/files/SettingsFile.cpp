// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/files/SettingsFile.h"

#include "host/files/DamagedFile.h"
#include "host/files/FileKind.h"
#include "hosting/OutputFile.h"
#include "parameters/ParameterTable.h"

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

constexpr int settingsVersion = 1;
constexpr qint64 maxSettingsSize = 1 << 20;
constexpr QLatin1String settingsVersionKey("version");
constexpr QLatin1String settingsChannelsKey("channels");
constexpr QLatin1String preferencesKey("preferences");

using Maps = QMap<int, SettingsFile::Map>;

std::optional<int> channelOf(const QString& key)
{
    bool understood = false;
    const int channel = key.toInt(&understood);
    return understood && channel >= 0 && channel < maxChannelCount ? std::optional(channel)
                                                                   : std::nullopt;
}

Result<Maps> parseChannels(const QJsonObject& channels)
{
    Maps maps;
    for (auto it = channels.begin(); it != channels.end(); ++it) {
        const std::optional<int> channel = channelOf(it.key());
        if (!channel || !it.value().isObject())
            return Error{SettingsFile::tr("\"%1\" is not a channel with settings.").arg(it.key())};
        maps[*channel] = it.value().toObject().toVariantMap();
    }
    return maps;
}

Result<Maps> parse(const QJsonObject& root)
{
    if (root.value(settingsVersionKey).toInt() != settingsVersion)
        return Error{SettingsFile::tr("The file is not a settings file of version %1.")
                         .arg(settingsVersion)};
    if (!root.value(settingsChannelsKey).isObject())
        return Error{SettingsFile::tr("The file has no channels.")};
    return parseChannels(root.value(settingsChannelsKey).toObject());
}

Result<QJsonObject> parseJson(const QByteArray& bytes)
{
    if (bytes.size() > maxSettingsSize)
        return Error{SettingsFile::tr("The file is too long.")};
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (document.isNull())
        return Error{SettingsFile::tr("The file is not valid JSON: %1 at byte %2.")
                         .arg(error.errorString(), QString::number(error.offset))};
    return document.object();
}

} // namespace

QString SettingsFile::standardFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QLatin1String("/zolta/editors.json");
}

Status SettingsFile::open(const QString& file)
{
    m_file.clear();
    m_maps.clear();
    m_preferences.clear();
    QFile input(file);
    const FileKind kind = kindOf(file);
    if (kind == FileKind::Other)
        return Error{tr("The editors' settings in %1 cannot be read because %1 is not a regular "
                        "file. No settings will be saved.")
                         .arg(QDir::toNativeSeparators(file))};
    const bool isOpen = kind == FileKind::Regular && input.open(QIODevice::ReadOnly);
    const QByteArray bytes = isOpen ? input.read(maxSettingsSize + 1) : QByteArray();
    if (input.error() != QFileDevice::NoError)
        return Error{tr("The editors' settings in %1 cannot be read: %2. No settings will be "
                        "saved.")
                         .arg(QDir::toNativeSeparators(file), input.errorString())};
    m_file = file;
    return isOpen ? read(bytes) : Status();
}

Status SettingsFile::read(const QByteArray& bytes)
{
    const Result<QJsonObject> root = parseJson(bytes);
    if (!root.isOk())
        return setAside(root.error());
    if (root.value().value(settingsVersionKey).toInt() > settingsVersion) {
        const QString file = std::exchange(m_file, QString());
        return Error{tr("The editors' settings in %1 were saved by a later version of this "
                        "program. They are left alone, and no settings will be saved.")
                         .arg(QDir::toNativeSeparators(file))};
    }
    const Result<Maps> maps = parse(root.value());
    if (!maps.isOk())
        return setAside(maps.error());
    m_maps = maps.value();
    m_preferences = root.value().value(preferencesKey).toObject().toVariantMap();
    return Status();
}

void SettingsFile::keep(int channel, const Map& map)
{
    if (m_maps.value(channel) == map)
        return;
    m_maps[channel] = map;
    write();
}

void SettingsFile::setPreference(const QString& name, const QVariant& value)
{
    if (m_preferences.value(name) == value)
        return;
    m_preferences[name] = value;
    write();
}

void SettingsFile::write()
{
    if (m_file.isEmpty())
        return;
    QDir().mkpath(QFileInfo(m_file).path());
    const Status written = writeFile(m_file, bytes());
    if (!written.isOk() && m_reporter)
        m_reporter(tr("The editors' settings cannot be saved. %1").arg(written.error()));
}

Status SettingsFile::setAside(const QString& reason)
{
    const std::optional<QString> name = setDamagedFileAside(m_file);
    if (name)
        return Error{
            tr("The editors' settings in %1 are damaged and ignored. %2 The file is kept "
               "as %3.")
                .arg(QDir::toNativeSeparators(m_file), reason, QDir::toNativeSeparators(*name))};
    const QString file = std::exchange(m_file, QString());
    return Error{tr("The editors' settings in %1 are damaged and ignored. %2 The file cannot be "
                    "renamed, so no settings will be saved.")
                     .arg(QDir::toNativeSeparators(file), reason)};
}

QByteArray SettingsFile::bytes() const
{
    QJsonObject channels;
    for (auto it = m_maps.begin(); it != m_maps.end(); ++it)
        channels[QString::number(it.key())] = QJsonObject::fromVariantMap(it.value());
    const QJsonObject root{{settingsVersionKey, settingsVersion},
                           {settingsChannelsKey, channels},
                           {preferencesKey, QJsonObject::fromVariantMap(m_preferences)}};
    return QJsonDocument(root).toJson();
}
