// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/walls/TracedRun.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <functional>
#include <vector>

/// Something that saves a file, in its older or its newer version.
struct Writer
{
    enum class Version { Old, New };

    const char* name;
    const char* file;
    /// Saves the version in \a file and returns the exit code; what goes wrong is printed to the
    /// error stream. Only for a process that ends afterwards.
    std::function<int(const QString& file, Version version)> save;
    bool isProgram = false;  ///< starts zolta-host, which takes its time
    bool hasWindows = false; ///< and saves once it is told to end
};

/// All that the programs save.
std::vector<Writer> writers();

/// The folder that one of them saves in.
class WriterFolder
{
public:
    /// The file has its older version.
    explicit WriterFolder(const Writer& writer);

    /// Empty where all is well: the calls of a saving that nothing disturbs, and both versions, are
    /// known.
    QString problem() const { return m_problem; }
    const std::vector<TracedRun::Call>& calls() const { return m_calls; }
    bool hasWindows() const { return m_writer.hasWindows; }
    QString file() const { return m_folder.filePath(QLatin1String(m_writer.file)); }
    const QByteArray& oldBytes() const { return m_old; }
    const QByteArray& newBytes() const { return m_new; }

    /// Removes whatever is there and puts the old version in its place.
    void reset() const;
    /// Saves the new version.
    TracedRun::Outcome save(TracedRun::Act act = TracedRun::Act::Watch, std::size_t call = 0,
                            int error = 0) const;
    QByteArray bytes() const;
    QStringList names() const;
    /// The file alone, where its name is all that there is.
    bool isTidy() const;

private:
    TracedRun::Outcome run(Writer::Version version, TracedRun::Plan plan) const;

    const Writer& m_writer;
    QTemporaryDir m_folder;
    QByteArray m_old;
    QByteArray m_new;
    std::vector<TracedRun::Call> m_calls;
    QString m_problem;
};
