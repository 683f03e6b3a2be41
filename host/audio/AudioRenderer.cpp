// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/audio/AudioRenderer.h"

#include "graph/filters/BandDesign.h"
#include "host/audio/AudioFormat.h"

#include <QFileInfo>

#include <algorithm>
#include <cmath>

namespace {

bool isSameFile(const QString& first, const QString& second)
{
    const QFileInfo a(first);
    const QFileInfo b(second);
    return a.exists() && b.exists() && a == b;
}

// In Hz; 0 for an outer band that changes nothing.
double cornerOf(const Band& band)
{
    const bool pass =
        band.type == BandDesign::SecondOrderPass || band.type == BandDesign::FirstOrderPass;
    return band.on && (pass || band.gain != 0.0) ? band.frequency : 0.0;
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
        fault = faultOfSettings();
    if (fault.isEmpty())
        fault = m_writer.open(
            m_job.output, AudioFormat::outputFor(m_job.output, m_reader.info(), m_job.forceFloat));
    if (fault.isEmpty()) {
        copyTexts();
        prepareStrips();
    }
    return fault;
}

// A corner beyond half the sampling rate makes an outer band run away; the middle bands are flat
// there.
QString AudioRenderer::faultOfSettings() const
{
    for (const int band : {EqualizerBands::Low, EqualizerBands::High}) {
        const double corner = cornerOf(bandOf(m_job.values, band));
        if (corner * 2.0 < m_reader.info().samplerate)
            continue;
        const char* name = band == EqualizerBands::Low ? "low" : "high";
        return QStringLiteral("The sound file %1 cannot be processed: the %2 frequency of %3 Hz "
                              "lies beyond half its sampling rate of %4 Hz.")
            .arg(m_job.input, QLatin1String(name))
            .arg(std::lround(corner))
            .arg(m_reader.info().samplerate);
    }
    return QString();
}

void AudioRenderer::copyTexts()
{
    for (const int kind :
         {SF_STR_TITLE, SF_STR_COPYRIGHT, SF_STR_ARTIST, SF_STR_COMMENT, SF_STR_DATE, SF_STR_ALBUM,
          SF_STR_LICENSE, SF_STR_TRACKNUMBER, SF_STR_GENRE})
        m_writer.setText(kind, m_reader.text(kind));
    m_writer.setChannelMap(m_reader.channelMap());
}

void AudioRenderer::prepareStrips()
{
    for (int channel = 0; channel < m_reader.channels(); ++channel) {
        m_strips.push_back(std::make_unique<ChannelProcessor>());
        m_strips.back()->setSampleRate(m_reader.info().samplerate);
        m_strips.back()->setValues(m_job.values);
    }
    const double delay = m_strips.empty() ? 0.0 : m_strips.front()->latency();
    m_delay = m_toDrop = static_cast<std::size_t>(std::lround(delay));
}

QString AudioRenderer::runBlocks(const Progress& progress)
{
    AudioBlock block(m_strips.size());
    bool last = false;
    while (!last && !m_ended) {
        m_reader.read(&block);
        last = block.frames() < block.capacity();
        if (!m_reader.fault().isEmpty())
            return m_reader.fault();
        const QString fault = process(&block);
        if (!fault.isEmpty())
            return fault;
        m_ended = progress && !progress(done());
    }
    return m_ended ? QString() : runDelayed(&block);
}

// What is still under way at the end of the file comes out with silence behind it.
QString AudioRenderer::runDelayed(AudioBlock* block)
{
    for (std::size_t left = m_delay; left > 0; left -= block->capacity()) {
        const std::size_t count = std::min(left, block->capacity());
        block->setFrames(count);
        for (std::size_t c = 0; c < block->channels(); ++c)
            std::ranges::fill(block->channel(c), 0.0);
        const QString fault = process(block);
        if (!fault.isEmpty() || count == left)
            return fault;
    }
    return QString();
}

QString AudioRenderer::process(AudioBlock* block)
{
    for (std::size_t c = 0; c < m_strips.size(); ++c)
        m_strips[c]->process(block->channel(c));
    m_toDrop -= block->dropFront(m_toDrop);
    return m_writer.write(*block);
}

double AudioRenderer::done() const
{
    if (!m_reader.knowsLength())
        return -1.0;
    const auto frames = static_cast<double>(m_reader.info().frames);
    return frames > 0.0 ? static_cast<double>(m_reader.position()) / frames : 1.0;
}
