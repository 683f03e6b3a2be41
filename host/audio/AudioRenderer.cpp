// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/audio/AudioRenderer.h"

#include "host/audio/AudioFormat.h"
#include "host/audio/NoDenormals.h"

#include <QFileInfo>

#include <cmath>

namespace {

bool isSameFile(const QString& first, const QString& second)
{
    const QFileInfo a(first);
    const QFileInfo b(second);
    return a.exists() && b.exists() && a == b;
}

} // namespace

AudioRenderer::AudioRenderer(const Job& job)
    : m_job(job)
{}

QString AudioRenderer::run(const Progress& progress)
{
    QString fault = open();
    if (fault.isEmpty())
        fault = runBlocks(progress);
    if (!fault.isEmpty() || m_ended)
        return fault;
    return m_writer.commit();
}

QString AudioRenderer::open()
{
    if (isSameFile(m_job.input, m_job.output))
        return QStringLiteral("The sound file %1 cannot be written: it is the one to be read.")
            .arg(m_job.output);
    QString fault = m_reader.open(m_job.input);
    if (fault.isEmpty())
        fault = m_writer.open(m_job.output, AudioFormat::outputFor(m_job.output, m_reader.info(),
                                                                   m_job.forceFloat));
    if (fault.isEmpty()) {
        copyTexts();
        prepareStrips();
    }
    return fault;
}

void AudioRenderer::copyTexts()
{
    for (const int kind : {SF_STR_TITLE, SF_STR_COPYRIGHT, SF_STR_ARTIST, SF_STR_COMMENT,
                           SF_STR_DATE, SF_STR_ALBUM, SF_STR_LICENSE, SF_STR_TRACKNUMBER,
                           SF_STR_GENRE})
        m_writer.setText(kind, m_reader.text(kind));
    m_writer.setChannelMap(m_reader.channelMap());
}

void AudioRenderer::prepareStrips()
{
    for (int channel = 0; channel < m_reader.channels(); ++channel) {
        m_strips.push_back(std::make_unique<ChannelStrip>());
        m_strips.back()->setSampleRate(m_reader.info().samplerate);
        m_strips.back()->setValues(m_job.values);
    }
}

QString AudioRenderer::runBlocks(const Progress& progress)
{
    const NoDenormals noDenormals;
    AudioBlock block(m_strips.size());
    do {
        m_reader.read(&block);
        if (!m_reader.fault().isEmpty())
            return m_reader.fault();
        if (!process(&block))
            return runAway();
        const QString fault = m_writer.write(block);
        if (!fault.isEmpty())
            return fault;
        m_ended = progress && !progress(done());
    } while (!m_ended && block.frames() == block.capacity());
    return QString();
}

bool AudioRenderer::process(AudioBlock* block)
{
    bool finite = true;
    for (std::size_t c = 0; c < m_strips.size() && block->frames() > 0; ++c) {
        const std::span<double> samples = block->channel(c);
        m_strips[c]->applyInput(samples);
        m_strips[c]->equalize(samples);
        finite &= std::isfinite(samples.back());
    }
    return finite;
}

double AudioRenderer::done() const
{
    if (!m_reader.knowsLength())
        return -1.0;
    const auto frames = static_cast<double>(m_reader.info().frames);
    return frames > 0.0 ? static_cast<double>(m_reader.position()) / frames : 1.0;
}

QString AudioRenderer::runAway() const
{
    return QStringLiteral("The sound file %1 cannot be processed: at %2 Hz the equalizer runs away, "
                          "because a band lies beyond half the sampling rate.")
        .arg(m_job.input)
        .arg(m_reader.info().samplerate);
}
