// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/ChannelProcessor.h"
#include "host/audio/AudioReader.h"
#include "host/audio/AudioWriter.h"
#include "host/audio/BlockResampler.h"
#include "hosting/Result.h"

#include <QCoreApplication>
#include <QString>

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

/// Sends a sound file through the equalizer into another one of the same length and rate, in
/// constant memory. Every channel of the file gets the same settings and an equalizer of its own,
/// whose delay is taken out. Where a band lies at or beyond half the file's rate, the equalizers
/// run at a multiple of it.
class AudioRenderer
{
    Q_DECLARE_TR_FUNCTIONS(AudioRenderer)

public:
    struct Job
    {
        QString input;
        QString output; ///< AudioFormat::canWrite() must hold
        ChannelProcessor::Values values{};
        bool forceFloat = false; ///< a WAV file gets 32-bit floats whatever the input has
    };

    /// Told after every block how much is done, from 0 to 1; -1 where the length is not known.
    /// False ends the work.
    using Progress = std::function<bool(double done)>;

    explicit AudioRenderer(const Job& job);

    /// Does the job. Where that fails, or was ended, the output is as it was before.
    Status run(const Progress& progress);

    /// What was written, as a sentence.
    QString report() const;
    bool wasEnded() const { return m_ended; }
    /// Samples of the output that were set to its format's limit.
    std::int64_t clipped() const { return m_writer.clipped(); }
    /// Samples of the input that counted as 0.
    const AudioReader::Damage& damage() const { return m_reader.damage(); }

private:
    Status open();
    void copyTexts();
    void prepareStrips();
    double stripRate() const;
    Status runBlocks(const Progress& progress);
    Status runDelayed(AudioBlock* block);
    Status process(AudioBlock* block, bool last);
    Status equalize(AudioBlock* block, bool last);
    Status write(AudioBlock* block);
    Status fillUp(AudioBlock* block);
    double done() const;

    Job m_job;
    AudioReader m_reader;
    AudioWriter m_writer;
    std::vector<std::unique_ptr<ChannelProcessor>> m_strips;
    std::size_t m_delay = 0;              // frames
    std::size_t m_toDrop = 0;             // of those that come out first
    std::unique_ptr<BlockResampler> m_up; // null at the file's own rate
    std::unique_ptr<BlockResampler> m_down;
    std::int64_t m_written = 0; // frames
    bool m_ended = false;
};
