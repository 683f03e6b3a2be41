// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/audio/AudioBlock.h"
#include "host/audio/FileAccess.h"

#include <QFile>
#include <QString>

#include <sndfile.h>

#include <cstdint>
#include <memory>
#include <vector>

/// A sound file read block by block: WAV, FLAC, OGG and whatever else the sound file library knows.
///
/// Samples that are no number, infinite or beyond ChannelProcessor::loudest count as 0. Errors are
/// sentences that name the file.
class AudioReader
{
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

    /// Opens \a file. Returns nothing, or why it cannot be read: also that its header promises more
    /// than the file holds.
    QString open(const QString& file);

    /// The file's format; its frames are SF_COUNT_MAX where the header does not tell.
    const SF_INFO& info() const { return m_info; }
    bool knowsLength() const { return m_info.frames != SF_COUNT_MAX; }
    int channels() const { return m_info.channels; }

    /// Fills \a block, which has the file's channels, up to its capacity; fewer frames at the end
    /// and none after it. Whether the end was the right one: error().
    void read(AudioBlock* block);
    /// Goes to a frame, or to the end if there are fewer.
    void seek(std::int64_t frame);
    /// The frame that read() gives next.
    std::int64_t position() const { return m_position; }

    /// Why reading ended before the length that open() found; nothing otherwise.
    const QString& error() const { return m_error; }
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

    QString openSound();
    std::size_t transfer(AudioBlock* block);
    template <typename Sample>
    std::size_t transfer(AudioBlock* block, sf_count_t (*readFrames)(SNDFILE*, Sample*, sf_count_t),
                         std::vector<Sample>* buffer);
    void repair(AudioBlock* block);
    void checkEnd();
    QString sentence(const QString& reason) const;

    QString m_name;
    QFile m_file;
    std::unique_ptr<FileAccess> m_access;
    std::unique_ptr<SNDFILE, Closer> m_sound;
    SF_INFO m_info = {};
    std::int64_t m_position = 0;
    QString m_error;
    Damage m_damage;
    std::vector<short> m_shorts;
    std::vector<int> m_ints;
    std::vector<float> m_floats;
    std::vector<double> m_doubles;
};
