// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/files/SessionFile.h"

#include "host/files/DamagedFile.h"
#include "host/files/FileKind.h"
#include "hosting/OutputFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QStandardPaths>

#include <cerrno>
#include <utility>

#include <fcntl.h>

namespace {

constexpr qint64 maxSessionSize = 4 << 20;

QString shown(const QString& file) { return QDir::toNativeSeparators(file); }

QString inUserData(QLatin1String name)
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + name;
}

// One for all links to the file.
QString lockFileOf(const QString& file)
{
    const QString target = QFileInfo(file).canonicalFilePath();
    const bool isLink = QFileInfo(file).isSymLink() && !target.isEmpty();
    return (isLink ? target : file) + QLatin1String(".lock");
}

enum class Outcome { Read, Unreadable, Later, Damaged };

struct Content
{
    Outcome outcome = Outcome::Read;
    QString error;
    QJsonObject root;
    SessionData data;
};

QString joined(const QString& first, const QString& second)
{
    //: Two whole sentences, one after the other
    return SessionFile::tr("%1 %2").arg(first, second);
}

Content failed(Outcome outcome, const QString& error) { return {outcome, error, {}, {}}; }

Content damaged(const QString& file, const QString& reason)
{
    return failed(Outcome::Damaged,
                  SessionFile::tr("The session %1 is damaged. %2").arg(shown(file), reason));
}

Content parse(const QString& file, const QByteArray& bytes, const SessionData& before)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (document.isNull())
        return damaged(file, SessionFile::tr("The file is not valid JSON: %1 at byte %2.")
                                 .arg(error.errorString(), QString::number(error.offset)));
    Content content{Outcome::Read, {}, document.object(), before};
    const Status status = content.data.read(content.root);
    if (status.isOk())
        return content;
    if (SessionData::isLater(content.root))
        return failed(
            Outcome::Later,
            SessionFile::tr("The session %1 cannot be read. %2").arg(shown(file), status.error()));
    return damaged(file, status.error());
}

Content contentOf(const QString& file, const SessionData& before)
{
    QFile input(file);
    if (kindOf(file) == FileKind::Other)
        return failed(Outcome::Unreadable,
                      SessionFile::tr("The session %1 cannot be read because it is not a regular "
                                      "file.")
                          .arg(shown(file)));
    const QByteArray bytes =
        input.open(QIODevice::ReadOnly) ? input.read(maxSessionSize + 1) : QByteArray();
    if (input.error() != QFileDevice::NoError)
        return failed(Outcome::Unreadable, SessionFile::tr("The session %1 cannot be read: %2.")
                                               .arg(shown(file), input.errorString()));
    if (bytes.size() > maxSessionSize)
        return damaged(file, SessionFile::tr("The file is too long."));
    return parse(file, bytes, before);
}

bool isLockedElsewhere(const LockedFile* lock) { return lock && lock->error() == EWOULDBLOCK; }

} // namespace

QString SessionFile::standardFile() { return inUserData(QLatin1String("/session.json")); }

QString SessionFile::desktopFile() { return inUserData(QLatin1String("/desktop.json")); }

SessionFile::~SessionFile() { unlock(); }

Result<SessionData> SessionFile::read(const QString& file)
{
    Content content = contentOf(file, SessionData());
    if (content.outcome != Outcome::Read)
        return Error{content.error};
    return std::move(content.data);
}

Status SessionFile::open(const QString& file, SessionData* data)
{
    m_lock = lock(file);
    const bool taken = isLockedElsewhere(m_lock.get());
    const Content content = kindOf(file) == FileKind::Missing
                                ? Content{Outcome::Read, {}, {}, *data}
                                : contentOf(file, *data);
    if (content.outcome == Outcome::Damaged && !taken)
        return setAside(file, content.error);
    if (content.outcome != Outcome::Read)
        return Error{
            joined(content.error, tr("The file is left alone, and nothing will be saved."))};
    *data = content.data;
    m_root = content.root;
    (taken ? m_taken : m_file) = file;
    if (!taken)
        return Status();
    return takenError(file);
}

void SessionFile::saveAnyway()
{
    if (isTaken())
        m_file = std::exchange(m_taken, QString());
}

bool SessionFile::isSavedIn(const QString& file) const
{
    const QFileInfo asked(file);
    const QFileInfo own(m_file);
    if (m_file.isEmpty())
        return false;
    return asked.absoluteFilePath() == own.absoluteFilePath() ||
           (asked.exists() && own.exists() && asked == own);
}

Status SessionFile::moveTo(const QString& file)
{
    if (isSavedIn(file))
        return Status();
    std::unique_ptr<LockedFile> next = lock(file);
    if (isLockedElsewhere(next.get()))
        return takenError(file);
    unlock();
    m_lock = std::move(next);
    m_file = file;
    m_taken.clear();
    m_moved = true;
    return Status();
}

// A folder that takes no lock file does not take the session either, which saving will say.
std::unique_ptr<LockedFile> SessionFile::lock(const QString& file)
{
    if (QFileInfo(file).isDir())
        return nullptr;
    QDir().mkpath(QFileInfo(file).path());
    const std::string name = QFile::encodeName(lockFileOf(file)).toStdString();
    return std::make_unique<LockedFile>(name, O_RDONLY | O_CREAT);
}

void SessionFile::unlock()
{
    if (m_lock && m_lock->isOpen())
        m_lock->remove();
    m_lock.reset();
}

Error SessionFile::takenError(const QString& file)
{
    return {tr("Another program has the session %1 open, as its lock file %2 says. Changes "
               "made here will not be saved.")
                .arg(shown(file), shown(lockFileOf(file)))};
}

Status SessionFile::save(const SessionData& data)
{
    const QJsonObject root = data.toJson(m_root);
    if (m_file.isEmpty() || (!m_moved && root == m_root && QFileInfo::exists(m_file)))
        return Status();
    QDir().mkpath(QFileInfo(m_file).path());
    const Status written = writeFile(m_file, QJsonDocument(root).toJson());
    if (!written.isOk())
        return Error{tr("The session cannot be saved. %1").arg(written.error())};
    m_root = root;
    m_moved = false;
    return Status();
}

Status SessionFile::setAside(const QString& file, const QString& damage)
{
    const std::optional<QString> name = setDamagedFileAside(file);
    if (!name)
        return Error{joined(
            damage, tr("The file cannot be renamed, so it is left alone, and nothing will be "
                       "saved."))};
    m_file = file;
    return Error{joined(
        damage, tr("The session is not used, and the file is kept as %1.").arg(shown(*name)))};
}
