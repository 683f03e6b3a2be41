// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/program/RenderCommand.h"

#include "engine/ChannelProcessor.h"
#include "host/audio/AudioRenderer.h"
#include "host/files/SessionFile.h"
#include "host/program/Application.h"
#include "host/program/ChannelSettings.h"
#include "host/program/CommandLine.h"
#include "host/program/EndingSignals.h"
#include "host/program/ProgressBar.h"

namespace {

void warnAbout(const AudioReader::Damage& damage, const QString& file)
{
    if (damage.count == 0)
        return;
    printError(CommandLine::tr("Warning: Samples in %2 that are NaN or larger than %3 and count "
                               "as 0: %1; the first is in frame %4 of channel %5.")
                   .arg(QString::number(damage.count), file,
                        QString::number(ChannelProcessor::loudest), QString::number(damage.frame),
                        QString::number(damage.channel)));
}

void warnAboutClipping(std::int64_t clipped, const QString& file)
{
    if (clipped > 0)
        printError(CommandLine::tr("Warning: Clipped samples in %2: %1; a lower output level or "
                                   "--float avoids clipping.")
                       .arg(QString::number(clipped), file));
}

Result<AudioRenderer::Job> readJob(const CommandLine& commandLine)
{
    AudioRenderer::Job job;
    job.input = commandLine.render.input;
    job.output = commandLine.render.output;
    job.forceFloat = commandLine.render.forceFloat;
    const Result<SessionData> session =
        commandLine.session.isEmpty() ? SessionData() : SessionFile::read(commandLine.session);
    if (!session.isOk())
        return Error{session.error()};
    job.values = session.value().heardBy(commandLine.editor.channel).equalizer;
    if (!commandLine.state.isEmpty()) {
        const Status loaded = ChannelSettings::load(commandLine.state, &job.values);
        if (!loaded.isOk())
            return Error{loaded.error()};
    }
    ChannelSettings::apply(commandLine.settings, &job.values);
    return job;
}

Status render(const AudioRenderer::Job& job)
{
    const EndingSignals signalsNoted;
    AudioRenderer renderer(job);
    const Status rendered = [&renderer] {
        ProgressBar bar;
        return renderer.run([&bar](double done) {
            bar.show(done);
            return !EndingSignals::hasArrived();
        });
    }();
    warnAbout(renderer.damage(), job.input);
    if (!rendered.isOk())
        return rendered;
    if (!renderer.wasEnded())
        warnAboutClipping(renderer.clipped(), job.output);
    return Status();
}

} // namespace

int renderCommand(const CommandLine& commandLine)
{
    const Result<AudioRenderer::Job> job = readJob(commandLine);
    const Status rendered = job.isOk() ? render(job.value()) : job.status();
    if (EndingSignals::hasArrived())
        EndingSignals::endProgram();
    return exitCodeOf(rendered);
}
