// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/files/SessionData.h"
#include "hosting/LockedFile.h"
#include "hosting/Result.h"

#include <QCoreApplication>
#include <QJsonObject>
#include <QString>

#include <memory>

/// A session in a JSON file.
class SessionFile
{
    Q_DECLARE_TR_FUNCTIONS(SessionFile)

public:
    /// The file in the user's data.
    static QString standardFile();
    /// That of the desktop equalizer, likewise.
    static QString desktopFile();

    SessionFile() = default;
    /// Removes the lock file.
    ~SessionFile();
    SessionFile(const SessionFile&) = delete;
    SessionFile& operator=(const SessionFile&) = delete;

    /// Reads \a file and leaves it alone, whatever is wrong with it.
    static Result<SessionData> read(const QString& file);
    /// Reads \a file over \a data and saves there from now on. A file that does not exist changes
    /// nothing and is made when something is saved. A damaged one changes nothing and is put aside
    /// under another name; where that is not possible, or the file cannot be read or is a later
    /// version's, or another program has it open, it is left alone and nothing is saved, which the
    /// error says. Until the end of this object, a lock file beside \a file says that it is open; a
    /// lock file that no running program holds does not count.
    Status open(const QString& file, SessionData* data);
    /// Whether open() read a session that another program has open.
    bool isTaken() const { return !m_taken.isEmpty(); }
    /// Saves there nevertheless from now on.
    void saveAnyway();
    /// Saves in \a file from now on, whatever it holds; an error, which changes nothing, where
    /// another program has it open.
    Status moveTo(const QString& file);
    /// Whether it is saved in \a file, by whatever name.
    bool isSavedIn(const QString& file) const;
    /// Where it is saved; empty for nowhere.
    const QString& file() const { return m_file; }
    /// Replaces the file, at once or not at all, keeping what it held that this program does not
    /// know. Does nothing without a file, or when nothing has changed.
    Status save(const SessionData& data);

    /// Whether there was no session to read.
    bool isNew() const { return m_root.isEmpty(); }

private:
    static std::unique_ptr<LockedFile> lock(const QString& file);
    void unlock();
    static Error takenError(const QString& file);
    Status setAside(const QString& file, const QString& damage);

    QString m_file;       // empty: nothing is saved
    QString m_taken;      // empty: no other program has it
    QJsonObject m_root;   // as in the file
    bool m_moved = false; // the file holds something else
    std::unique_ptr<LockedFile> m_lock;
};
