// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/files/SessionFile.h"

#include "host/files/DamagedFile.h"
#include "hosting/OutputFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QStandardPaths>

#include <utility>

namespace {

constexpr qint64 largestFile = 4 << 20;

QString shown(const QString& file) { return QDir::toNativeSeparators(file); }

QString leftAlone(const QString& file, const QString& reason)
{
    return QCoreApplication::translate(
               "SessionFile", "The session %1 cannot be read: %2. It is left alone, and nothing "
                              "will be saved.")
        .arg(shown(file), reason);
}

QString openElsewhere(const QString& file)
{
    return QCoreApplication::translate(
               "SessionFile", "Another program has the session %1 open. What is changed here will "
                              "not be saved.")
        .arg(shown(file));
}

enum class ErrorKind { None, Unreadable, Later, Damaged };

struct Content
{
    QJsonObject root;
    SessionData data;
    ErrorKind error = ErrorKind::None;
    QString reason; // the end of a sentence

    Content& refuse(ErrorKind kind, const QString& why)
    {
        error = kind;
        reason = why;
        return *this;
    }
};

Content parse(const QByteArray& bytes, const SessionData& before)
{
    Content content{{}, before, ErrorKind::None, {}};
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (document.isNull())
        return content.refuse(
            ErrorKind::Damaged,
            QStringLiteral("%1 at byte %2").arg(error.errorString()).arg(error.offset));
    content.root = document.object();
    const QString reason = content.data.read(content.root);
    if (reason.isEmpty())
        return content;
    return content.refuse(
        SessionData::isLater(content.root) ? ErrorKind::Later : ErrorKind::Damaged, reason);
}

Content contentOf(const QString& file, const SessionData& before)
{
    Content content;
    QFile input(file);
    if (QFileInfo::exists(file) && !QFileInfo(file).isFile())
        return content.refuse(ErrorKind::Unreadable, QStringLiteral("it is no file"));
    if (!input.open(QIODevice::ReadOnly))
        return content.refuse(ErrorKind::Unreadable, input.errorString());
    if (input.size() > largestFile)
        return content.refuse(ErrorKind::Damaged, QStringLiteral("it is too long"));
    return parse(input.readAll(), before);
}

} // namespace

QString SessionFile::standardFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
           QLatin1String("/session.json");
}

QString SessionFile::read(const QString& file, SessionData* data)
{
    const Content content = contentOf(file, *data);
    if (content.error != ErrorKind::None)
        return QCoreApplication::translate("SessionFile", "The session %1 cannot be read: %2.")
            .arg(shown(file), content.reason);
    *data = content.data;
    return QString();
}

QString SessionFile::open(const QString& file, SessionData* data)
{
    m_file = file;
    const bool taken = isTaken();
    const Content content =
        QFileInfo::exists(file) ? contentOf(file, *data) : Content{{}, *data, ErrorKind::None, {}};
    if (content.error == ErrorKind::Damaged && !taken)
        return setAside(content.reason);
    if (taken || content.error != ErrorKind::None)
        m_file.clear();
    if (content.error != ErrorKind::None)
        return leftAlone(file, content.reason);
    *data = content.data;
    m_root = content.root;
    return taken ? openElsewhere(file) : QString();
}

// A folder that takes no lock file does not take the session either, which saving will say.
bool SessionFile::isTaken()
{
    if (QFileInfo(m_file).isDir())
        return false;
    QDir().mkpath(QFileInfo(m_file).path());
    m_lock = std::make_unique<QLockFile>(m_file + QLatin1String(".lock"));
    m_lock->setStaleLockTime(0); // it is held as long as the program runs
    return !m_lock->tryLock() && m_lock->error() == QLockFile::LockFailedError;
}

QString SessionFile::save(const SessionData& data)
{
    const QJsonObject root = data.toJson(m_root);
    if (m_file.isEmpty() || (root == m_root && QFileInfo::exists(m_file)))
        return QString();
    QDir().mkpath(QFileInfo(m_file).path());
    const Status written = writeFile(m_file, QJsonDocument(root).toJson());
    if (!written.isOk())
        return written.error();
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
