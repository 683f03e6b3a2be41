// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/ProgramRunner.h"

namespace {

constexpr int patience = 120000; // ms

} // namespace

ProgramRunner::ProgramRunner(const QString& program, const QString& folder)
    : m_program(program)
    , m_folder(folder)
{}

QProcessEnvironment ProgramRunner::environment() const
{
    QProcessEnvironment bare;
    const QProcessEnvironment system = QProcessEnvironment::systemEnvironment();
    for (const char* name :
         {"ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS", "HOME", "XDG_CACHE_HOME"}) {
        if (system.contains(QLatin1String(name)))
            bare.insert(QLatin1String(name), system.value(QLatin1String(name)));
    }
    if (!bare.contains(QStringLiteral("HOME")))
        bare.insert(QStringLiteral("HOME"), m_folder);
    for (const char* name : {"XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "XDG_DATA_HOME"})
        bare.insert(QLatin1String(name), m_folder);
    return bare;
}

QProcessEnvironment ProgramRunner::offscreen() const
{
    QProcessEnvironment result = environment();
    result.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    return result;
}

void ProgramRunner::prepare(QProcess* process) const
{
    process->setProcessEnvironment(environment());
    process->setWorkingDirectory(m_folder);
    process->setProgram(m_program);
}

ProgramResult ProgramRunner::run(const QStringList& arguments) const
{
    QProcess process;
    prepare(&process);
    return finish(&process, arguments);
}

ProgramResult ProgramRunner::runOffscreen(const QStringList& arguments) const
{
    QProcess process;
    prepare(&process);
    process.setProcessEnvironment(offscreen());
    return finish(&process, arguments);
}

ProgramResult ProgramRunner::finish(QProcess* process, const QStringList& arguments)
{
    process->setArguments(arguments);
    process->start();
    if (!process->waitForFinished(patience) || process->exitStatus() != QProcess::NormalExit)
        return {-1, QString(), process->errorString()};
    return {process->exitCode(), QString::fromUtf8(process->readAllStandardOutput()),
            QString::fromUtf8(process->readAllStandardError())};
}
