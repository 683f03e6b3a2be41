// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/session/SessionFile.h"

#include "host/DamagedFile.h"
#include "host/OutputFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QStandardPaths>

namespace {

constexpr qint64 largestFile = 4 << 20;

QString shown(const QString& file) { return QDir::toNativeSeparators(file); }

QString unreadable(const QString& file, const QString& reason)
{
    return QCoreApplication::translate(
               "SessionFile", "The session %1 cannot be read: %2. It is left alone, and nothing "
                              "will be saved.")
        .arg(shown(file), reason);
}

} // namespace

QString SessionFile::standardFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
           QLatin1String("/session.json");
}

QString SessionFile::open(const QString& file, SessionData* data)
{
    m_file = file;
    m_root = QJsonObject();
    if (!QFileInfo::exists(file))
        return QString();
    QFile input(file);
    if (!QFileInfo(file).isFile() || !input.open(QIODevice::ReadOnly)) {
        m_file.clear();
        return unreadable(file, QFileInfo(file).isFile() ? input.errorString()
                                                         : QStringLiteral("it is no file"));
    }
    if (input.size() > largestFile)
        return setAside(QStringLiteral("it is too long"));
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(input.readAll(), &error);
    if (document.isNull())
        return setAside(QStringLiteral("%1 at byte %2").arg(error.errorString()).arg(error.offset));
    SessionData read = *data;
    const QString fault = read.read(document.object());
    if (!fault.isEmpty())
        return setAside(fault);
    *data = read;
    m_root = document.object();
    return QString();
}

QString SessionFile::save(const SessionData& data)
{
    const QJsonObject root = data.toJson(m_root);
    if (m_file.isEmpty() || (root == m_root && QFileInfo::exists(m_file)))
        return QString();
    QDir().mkpath(QFileInfo(m_file).path());
    const QString fault = writeFile(m_file, QJsonDocument(root).toJson());
    if (!fault.isEmpty())
        return QCoreApplication::translate("SessionFile", "The session %1 cannot be saved: %2.")
            .arg(shown(m_file), fault);
    m_root = root;
    return QString();
}

QString SessionFile::setAside(const QString& reason)
{
    const QString name = setDamagedFileAside(m_file);
    if (!name.isEmpty())
        return QCoreApplication::translate(
                   "SessionFile", "The session %1 is damaged and not used: %2. The file is kept "
                                  "as %3.")
            .arg(shown(m_file), reason, shown(name));
    const QString file = std::exchange(m_file, QString());
    return QCoreApplication::translate(
               "SessionFile", "The session %1 is damaged and not used: %2. The file cannot be "
                              "renamed, so nothing will be saved.")
        .arg(shown(file), reason);
}
