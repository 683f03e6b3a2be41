// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/files/SessionData.h"

#include <QJsonObject>
#include <QLockFile>
#include <QString>

#include <memory>

/// A session in a JSON file. Errors are sentences; an empty text means success.
class SessionFile
{
public:
    /// The file in the user's data.
    static QString standardFile();

    /// Reads \a file over \a data and leaves it alone, whatever is wrong with it; then \a data
    /// stays as it is.
    static QString read(const QString& file, SessionData* data);
    /// Reads \a file over \a data and saves there from now on. A file that does not exist changes
    /// nothing and is made when something is saved. A damaged one changes nothing and is put aside
    /// under another name; where that is not possible, or the file cannot be read or is a later
    /// version's, or another program has it open, it is left alone and nothing is ever saved. Until
    /// the end of this object, a lock file beside \a file says that it is open.
    QString open(const QString& file, SessionData* data);
    /// Replaces the file, at once or not at all, keeping what it held that this program does not
    /// know. Does nothing without a file, or when nothing has changed.
    QString save(const SessionData& data);

    /// Whether there was no session to read.
    bool isNew() const { return m_root.isEmpty(); }

private:
    bool isTaken();
    QString setAside(const QString& reason);

    QString m_file;
    QJsonObject m_root; // as in the file
    std::unique_ptr<QLockFile> m_lock;
};
