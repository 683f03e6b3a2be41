// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

/// What a program that has ended leaves. Where it did not end by itself, the code is -1 and the
/// errors are the reason.
struct ProgramResult
{
    int code;
    QString output;
    QString errors;
};

/// Runs a program in a folder that is its working, configuration, data and runtime folder, too.
/// There is no display and no platform for windows; what sanitizers and the fonts' cache need is
/// handed on.
class ProgramRunner
{
public:
    ProgramRunner(const QString& program, const QString& folder);

    QProcessEnvironment environment() const;
    /// The same with a platform that shows nothing.
    QProcessEnvironment offscreen() const;

    /// Sets \a process up to be started with arguments of its own.
    void prepare(QProcess* process) const;
    ProgramResult run(const QStringList& arguments) const;
    ProgramResult runOffscreen(const QStringList& arguments) const;

private:
    static ProgramResult finish(QProcess* process, const QStringList& arguments);

    QString m_program;
    QString m_folder;
};
