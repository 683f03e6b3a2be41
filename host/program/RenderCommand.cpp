// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/program/RenderCommand.h"

#include "engine/ChannelProcessor.h"
#include "host/audio/AudioRenderer.h"
#include "host/files/SessionFile.h"
#include "host/program/Application.h"
#include "host/program/ChannelSettings.h"
#include "host/program/Interruption.h"
#include "host/program/ProgressBar.h"

namespace {

void warnAbout(const AudioReader::Damage& damage, const QString& file)
{
    if (damage.count == 0)
        return;
    printError(
        QStringLiteral("Warning: %1 samples of %2 are no numbers or larger than %3 and count "
                       "as 0; the first is in frame %4 of channel %5.")
            .arg(QString::number(damage.count), file, QString::number(ChannelProcessor::loudest),
                 QString::number(damage.frame), QString::number(damage.channel)));
}

void warnAboutClipping(std::int64_t clipped, const QString& file)
{
    if (clipped > 0)
        printError(QStringLiteral("Warning: %1 samples of %2 are clipped; a lower output level or "
                                  "--float avoids that.")
                       .arg(QString::number(clipped), file));
}

QString readJob(const CommandLine& commandLine, AudioRenderer::Job* job)
{
    job->input = commandLine.render.input;
    job->output = commandLine.render.output;
    job->forceFloat = commandLine.render.forceFloat;
    SessionData session;
    QString error;
    if (!commandLine.session.isEmpty())
        error = SessionFile::read(commandLine.session, &session);
    job->values = session.heardBy(commandLine.editor.channel).equalizer;
    if (error.isEmpty() && !commandLine.state.isEmpty())
        error = ChannelSettings::load(commandLine.state, &job->values).error();
    ChannelSettings::apply(commandLine.settings, &job->values);
    return error;
}

QString runWithBar(AudioRenderer* renderer)
{
    ProgressBar bar;
    const Status result = renderer->run([&bar](double done) {
        bar.show(done);
        return !Interruption::isWanted();
    });
    return result.error();
}

} // namespace

int renderCommand(const CommandLine& commandLine)
{
    AudioRenderer::Job job;
    QString error = readJob(commandLine, &job);
    if (error.isEmpty()) {
        const Interruption interruption;
        AudioRenderer renderer(job);
        error = runWithBar(&renderer);
        warnAbout(renderer.damage(), job.input);
        if (error.isEmpty() && !renderer.wasEnded())
            warnAboutClipping(renderer.clipped(), job.output);
    }
    if (Interruption::isWanted())
        Interruption::obey();
    if (error.isEmpty())
        return ExitDone;
    printError(error);
    return ExitError;
}
