// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/audio/AudioRenderer.h"

#include "equalizer/BandDesign.h"
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

void silence(AudioBlock* block, std::size_t frames)
{
    block->setFrames(frames);
    for (std::size_t c = 0; c < block->channels(); ++c)
        std::ranges::fill(block->channel(c), 0.0);
}

bool isActive(const Band& band, int number)
{
    const bool pass =
        band.type == BandDesign::SecondOrderPass || band.type == BandDesign::FirstOrderPass;
    return band.on && (band.gain != 0.0 || (pass && !EqualizerBands::isMiddle(number)));
}

} // namespace

AudioRenderer::AudioRenderer(const Job& job)
    : m_job(job)
{}

Status AudioRenderer::run(const Progress& progress)
{
    Status result = open();
    if (result.isOk())
        result = runBlocks(progress);
    return result.isOk() && !m_ended ? m_writer.commit() : result;
}

QString AudioRenderer::report() const
{
    const SF_INFO& info = m_reader.info();
    return tr("Wrote %1: %2 seconds, %3 Hz, channels: %4.")
        .arg(m_job.output, QString::number(double(m_written) / info.samplerate, 'f', 1),
             QString::number(info.samplerate), QString::number(info.channels));
}

Status AudioRenderer::open()
{
    if (isSameFile(m_job.input, m_job.output))
        return Error{tr("The sound file %1 cannot be written: it is also the input file.")
                         .arg(m_job.output)};
    Status result = m_reader.open(m_job.input);
    if (result.isOk())
        result = m_writer.open(
            m_job.output, AudioFormat::outputFor(m_job.output, m_reader.info(), m_job.forceFloat));
    if (result.isOk()) {
        copyTexts();
        prepareStrips();
    }
    return result;
}

// The lowest multiple of the file's rate at which every band is heard, if it takes one, as far as
// resampling goes.
double AudioRenderer::stripRate() const
{
    const double rate = m_reader.info().samplerate;
    for (int number = 0; number < EqualizerBands::Count; ++number) {
        const Band band = bandOf(m_job.values, number);
        if (isActive(band, number) && 2.0 * band.frequency >= rate)
            return rate * std::min(std::floor(ChannelProcessor::allBandsRate / rate) + 1.0,
                                   Resampler::maxRatio);
    }
    return rate;
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
    const auto channels = static_cast<std::size_t>(m_reader.channels());
    const double fileRate = m_reader.info().samplerate;
    const double rate = stripRate();
    if (rate != fileRate) {
        m_up = std::make_unique<BlockResampler>(channels, fileRate, rate);
        m_down = std::make_unique<BlockResampler>(channels, rate, fileRate);
    }
    for (std::size_t channel = 0; channel < channels; ++channel) {
        m_strips.push_back(std::make_unique<ChannelProcessor>());
        m_strips.back()->setSampleRate(rate);
        m_strips.back()->setValues(m_job.values);
    }
    const double delay = m_strips.empty() ? 0.0 : m_strips.front()->latency();
    m_delay = m_toDrop = static_cast<std::size_t>(std::lround(delay));
}

Status AudioRenderer::runBlocks(const Progress& progress)
{
    AudioBlock block(m_strips.size());
    bool last = false;
    while (!last && !m_ended) {
        m_reader.read(&block);
        last = block.frames() < block.capacity();
        const Status result = m_reader.status().isOk() ? process(&block, last) : m_reader.status();
        if (!result.isOk())
            return result;
        m_ended = progress && !progress(done());
    }
    return m_ended ? Status() : runDelayed(&block);
}

// What is still under way at the end of the file comes out with silence behind it.
Status AudioRenderer::runDelayed(AudioBlock* block)
{
    Status result;
    std::size_t left = m_delay;
    do {
        silence(block, std::min(left, block->capacity()));
        left -= block->frames();
        result = equalize(block, left == 0);
    } while (left > 0 && result.isOk());
    return result.isOk() ? fillUp(block) : result;
}

Status AudioRenderer::process(AudioBlock* block, bool last)
{
    return equalize(m_up ? &m_up->process(*block, last) : block, false);
}

Status AudioRenderer::equalize(AudioBlock* block, bool last)
{
    for (std::size_t c = 0; c + 1 < m_strips.size(); c += 2)
        ChannelProcessor::processPair(m_strips[c].get(), m_strips[c + 1].get(), block->channel(c),
                                      block->channel(c + 1));
    if (m_strips.size() % 2 != 0)
        m_strips.back()->process(block->channel(m_strips.size() - 1));
    m_toDrop -= block->dropFront(m_toDrop);
    return write(m_down ? &m_down->process(*block, last) : block);
}

// Never more than were read: resampling there and back may end a frame late.
Status AudioRenderer::write(AudioBlock* block)
{
    const auto room = static_cast<std::size_t>(m_reader.position() - m_written);
    block->setFrames(std::min(block->frames(), room));
    m_written += static_cast<std::int64_t>(block->frames());
    return m_writer.write(*block);
}

// Or early.
Status AudioRenderer::fillUp(AudioBlock* block)
{
    Status result;
    while (result.isOk() && m_written < m_reader.position()) {
        silence(block, block->capacity());
        result = write(block);
    }
    return result;
}

double AudioRenderer::done() const
{
    if (!m_reader.knowsLength())
        return -1.0;
    const auto frames = static_cast<double>(m_reader.info().frames);
    return frames > 0.0 ? static_cast<double>(m_reader.position()) / frames : 1.0;
}
