// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/walls/Writers.h"

#include "host/audio/AudioRenderer.h"
#include "host/files/SessionFile.h"
#include "host/files/SettingsFile.h"
#include "hosting/StateFile.h"
#include "tests/host/audio/SoundFiles.h"
#include "tests/hosting/StateBytes.h"
#include "tests/support/ProgramRunner.h"

#include <QDir>

#include <csignal>
#include <cstdio>
#include <filesystem>

#include <unistd.h>

namespace {

using Version = Writer::Version;

bool isNew(Version version) { return version == Version::New; }

int exitCode(const QString& error)
{
    std::fprintf(stderr, "%s", error.toLocal8Bit().constData());
    std::fflush(stderr);
    return error.isEmpty() ? 0 : 1;
}

int saveState(const QString& file, Version version)
{
    return exitCode(StateFile(file).write(StateBytes::state(isNew(version) ? 1.0F : 0.0F)).error());
}

int saveSession(const QString& file, Version version)
{
    SessionData data;
    SessionFile session;
    const Status opened = session.open(file, &data);
    data.channels[0].equalizer[2] = isNew(version) ? 60 : 0;
    const Status saved = session.save(data);
    return exitCode(opened.isOk() ? saved.error() : opened.error());
}

int saveSettings(const QString& file, Version version)
{
    SettingsFile settings;
    QString error;
    const Status opened = settings.open(file);
    settings.setReporter([&error](const QString& text) { error = text; });
    settings.keep(0, {{QStringLiteral("GraphZoom"), isNew(version)}});
    return exitCode(opened.isOk() ? error : opened.error());
}

// One for all writers, outside the folders that they write in.
QString soundFile()
{
    static const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("in.wav"));
    if (!QFile::exists(file))
        SoundFiles::write(file, SoundFiles::Sound{SF_FORMAT_WAV | SF_FORMAT_PCM_16, 48000, 2,
                                                  SoundFiles::noise(8000)});
    return file;
}

int render(const QString& file, Version version)
{
    AudioRenderer::Job job;
    job.input = soundFile();
    job.output = file;
    job.values = HostMemory().values(0);
    job.values[25] = isNew(version) ? -20 : 0;
    return exitCode(AudioRenderer(job).run({}).error());
}

// In place of this process.
int startHost(const QStringList& arguments, const QString& setting)
{
    static const QTemporaryDir folder;
    const ProgramRunner program(QStringLiteral(HOST_PROGRAM), folder.path());
    const QStringList words = QStringList{QStringLiteral(HOST_PROGRAM)} + arguments +
                              QStringList{QStringLiteral("--set"), setting};
    QProcessEnvironment environment = program.offscreen();
    // Its own ptrace(2) finds the process traced already.
    environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0"));
    const auto pointersTo = [](const QStringList& texts, std::vector<QByteArray>* bytes) {
        std::vector<char*> pointers;
        for (const QString& text : texts)
            bytes->push_back(QFile::encodeName(text));
        for (QByteArray& text : *bytes)
            pointers.push_back(text.data());
        pointers.push_back(nullptr);
        return pointers;
    };
    std::vector<QByteArray> argumentBytes;
    std::vector<QByteArray> environmentBytes;
    ::execve(HOST_PROGRAM, pointersTo(words, &argumentBytes).data(),
             pointersTo(environment.toStringList(), &environmentBytes).data());
    return 1;
}

Writer host(const char* name, const char* file, const QString& option)
{
    const auto save = [option](const QString& target, Version version) {
        return startHost({option, target},
                         QStringLiteral("fx_rackfx_prm_3=@%1").arg(isNew(version) ? 60 : 0));
    };
    return {name, file, save, true};
}

Writer hostRendering()
{
    const auto save = [](const QString& target, Version version) {
        return startHost(
            {QStringLiteral("--render"), soundFile(), target, QStringLiteral("--overwrite")},
            QStringLiteral("fx_rackfx_prm_26=@%1").arg(isNew(version) ? -20 : 0));
    };
    return {"zolta-host --render", "out.wav", save, true};
}

} // namespace

std::vector<Writer> writers()
{
    Writer session = host("zolta-host --session", "session.json", QStringLiteral("--session"));
    session.hasWindows = true;
    return {{"state", "a.state", saveState},
            {"preset", "a.vstpreset", saveState},
            {"session", "session.json", saveSession},
            {"settings", "editors.json", saveSettings},
            {"sound, WAV", "out.wav", render},
            {"sound, FLAC", "out.flac", render},
            {"sound, Ogg", "out.ogg", render},
            host("zolta-host --save-state", "a.state", QStringLiteral("--save-state")),
            host("zolta-host --screenshot", "a.png", QStringLiteral("--screenshot")),
            hostRendering(),
            session};
}

WriterFolder::WriterFolder(const Writer& writer)
    : m_writer(writer)
{
    const auto saved = [this](Version version) {
        const TracedRun::Outcome outcome = run(version, {});
        m_problem = QString::fromStdString(outcome.refusal);
        if (m_problem.isEmpty() && outcome.code != 0)
            m_problem = QStringLiteral("Saving ends with %1: %2")
                            .arg(outcome.code)
                            .arg(QString::fromStdString(outcome.output));
        m_calls = outcome.calls;
        return bytes();
    };
    static_cast<void>(soundFile());
    m_old = saved(Version::Old);
    if (m_problem.isEmpty())
        m_new = saved(Version::New);
    if (m_problem.isEmpty() && (m_old == m_new || !isTidy()))
        m_problem = QStringLiteral("The versions do not differ, or more than the file is there.");
}

void WriterFolder::reset() const
{
    for (const QString& name : names())
        std::filesystem::remove(QFile::encodeName(m_folder.filePath(name)).toStdString());
    SoundFiles::writeBytes(file(), m_old);
}

TracedRun::Outcome WriterFolder::save(TracedRun::Act act, std::size_t call, int error) const
{
    return run(Version::New, {{}, act, call, error, 0});
}

TracedRun::Outcome WriterFolder::run(Version version, TracedRun::Plan plan) const
{
    plan.folder = QFile::encodeName(m_folder.path()).toStdString() + '/';
    plan.signalAtFirst = m_writer.hasWindows ? SIGTERM : 0;
    return TracedRun::run(plan, [&] { return m_writer.save(file(), version); });
}

QByteArray WriterFolder::bytes() const { return SoundFiles::bytesOf(file()); }

QStringList WriterFolder::names() const
{
    return QDir(m_folder.path())
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

bool WriterFolder::isTidy() const { return names() == QStringList(QLatin1String(m_writer.file)); }
