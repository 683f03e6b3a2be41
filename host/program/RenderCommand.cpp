// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/program/RenderCommand.h"

#include "engine/ChannelProcessor.h"
#include "host/audio/AudioRenderer.h"
#include "host/files/SessionFile.h"
#include "host/program/Application.h"
#include "host/program/ChannelSettings.h"
#include "host/program/CommandLine.h"
#include "host/program/EndingSignals.h"
#include "host/program/OptionValue.h"
#include "host/program/ProgressBar.h"

#include <QFileInfo>

#include <array>
#include <cctype>
#include <cstdio>

#include <unistd.h>

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
    const Status channel = OptionValue::checkChannel(commandLine, session.value().channelCount);
    if (!channel.isOk())
        return Error{channel.error()};
    job.values = session.value().heardBy(commandLine.editor.channel).equalizer;
    if (!commandLine.state.isEmpty()) {
        const Status loaded = ChannelSettings::load(commandLine.state, &job.values);
        if (!loaded.isOk())
            return Error{loaded.error()};
    }
    ChannelSettings::apply(commandLine.settings, &job.values);
    return job;
}

bool saysYes(const QString& question)
{
    std::fprintf(stderr, "%s ", question.toLocal8Bit().constData());
    std::fflush(stderr);
    std::array<char, 8> answer{};
    if (!std::fgets(answer.data(), answer.size(), stdin))
        return false;
    const int letter = std::tolower(static_cast<unsigned char>(answer[0]));
    return letter == 'y' || letter == 'j'; // ja
}

// What else keeps a file from being written is the renderer's to say.
Status checkOutput(const AudioRenderer::Job& job, bool overwrite)
{
    const QFileInfo output(job.output);
    if (overwrite || !output.isFile() || output == QFileInfo(job.input))
        return Status();
    const bool answers = ::isatty(STDIN_FILENO) && ::isatty(STDERR_FILENO);
    if (answers &&
        saysYes(CommandLine::tr("The file %1 exists. Replace it? [y/N]").arg(job.output)))
        return Status();
    return Error{CommandLine::tr("The file %1 exists and is left as it is. Choose another name, or "
                                 "use --overwrite to replace it.")
                     .arg(job.output)};
}

// Where nobody listens the file is there all the same.
void sayWhatWasWritten(const AudioRenderer& renderer)
{
    std::fprintf(stdout, "%s\n", renderer.report().toLocal8Bit().constData());
    std::fflush(stdout);
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
    if (renderer.wasEnded())
        return Status();
    warnAboutClipping(renderer.clipped(), job.output);
    sayWhatWasWritten(renderer);
    return Status();
}

} // namespace

int renderCommand(const CommandLine& commandLine)
{
    const Result<AudioRenderer::Job> job = readJob(commandLine);
    Status rendered = job.status();
    if (rendered.isOk())
        rendered = checkOutput(job.value(), commandLine.render.overwrite);
    if (rendered.isOk())
        rendered = render(job.value());
    if (EndingSignals::hasArrived())
        EndingSignals::endProgram();
    return exitCodeOf(rendered);
}
