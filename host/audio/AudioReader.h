// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/audio/AudioBlock.h"
#include "host/audio/FileAccess.h"
#include "hosting/Result.h"

#include <QCoreApplication>
#include <QFile>
#include <QString>

#include <sndfile.h>

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

/// A sound file read block by block: WAV, FLAC, OGG and whatever else the sound file library knows.
///
/// Samples that are NaN, infinite or beyond ChannelProcessor::loudest count as 0.
class AudioReader
{
    Q_DECLARE_TR_FUNCTIONS(AudioReader)

public:
    /// Samples that counted as 0.
    struct Damage
    {
        std::int64_t count = 0;
        std::int64_t frame = 0; ///< of the first one, from 0
        int channel = 0;        ///< of the first one, from 0
    };

    AudioReader();
    ~AudioReader();

    /// Opens \a file. A file that holds less than its header promises is an error, too.
    Status open(const QString& file);

    /// The file's format; its frames are SF_COUNT_MAX where the header does not tell.
    const SF_INFO& info() const { return m_info; }
    bool knowsLength() const { return m_info.frames != SF_COUNT_MAX; }
    int channels() const { return m_info.channels; }

    /// Fills \a block, which has the file's channels, up to its capacity; fewer frames at the end
    /// and none after it. Whether the end was the right one: status().
    void read(AudioBlock* block);
    /// The same as interleaved floats, as many whole frames as there is room for. Returns how many
    /// frames that were.
    std::size_t read(std::span<float> samples);
    /// Goes to a frame, or to the end if there are fewer.
    void seek(std::int64_t frame);
    /// The frame that read() gives next.
    std::int64_t position() const { return m_position; }

    /// Why reading ended before the length that open() found, if it did.
    const Status& status() const { return m_status; }
    const Damage& damage() const { return m_damage; }

    /// A text of the file (SF_STR_TITLE and so on), null without one.
    const char* text(int kind) const { return sf_get_string(m_sound.get(), kind); }
    /// Where the channels of a WAV file with an extensible header belong; empty otherwise.
    std::vector<int> channelMap() const;

private:
    struct Closer
    {
        void operator()(SNDFILE* sound) const { sf_close(sound); }
    };

    Status checkKind() const;
    Status checkLength();
    Status openSound();
    std::size_t transfer(AudioBlock* block);
    template <typename Sample>
    std::size_t transfer(AudioBlock* block, sf_count_t (*readFrames)(SNDFILE*, Sample*, sf_count_t),
                         std::vector<Sample>* buffer);
    template <typename Sample> void repair(Sample* sample, std::size_t frame, std::size_t channel);
    void repair(AudioBlock* block);
    void repair(std::span<float> samples);
    void advance(std::size_t frames, std::size_t wanted);
    Status checkEnd() const;
    Error errorOf(const QString& reason) const;

    QString m_name;
    QFile m_file;
    std::unique_ptr<FileAccess> m_access;
    std::unique_ptr<SNDFILE, Closer> m_sound;
    SF_INFO m_info = {};
    std::int64_t m_position = 0;
    Status m_status;
    Damage m_damage;
    std::vector<short> m_shorts;
    std::vector<int> m_ints;
    std::vector<float> m_floats;
    std::vector<double> m_doubles;
};
