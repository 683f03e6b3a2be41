// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/audio/AudioBlock.h"
#include "host/audio/FileAccess.h"
#include "hosting/OutputFile.h"
#include "hosting/Result.h"

#include <QCoreApplication>
#include <QString>

#include <sndfile.h>

#include <cstdint>
#include <memory>
#include <vector>

/// A sound file written block by block into a draft, which takes its place at the end or never. A
/// writer that goes without commit() leaves nothing behind.
class AudioWriter
{
    Q_DECLARE_TR_FUNCTIONS(AudioWriter)

public:
    AudioWriter();
    ~AudioWriter();

    /// Begins \a file, of a format from AudioFormat::outputFor().
    Status open(const QString& file, const SF_INFO& info);

    /// A text (SF_STR_TITLE and so on) and the places of the channels; before the first block.
    void setText(int kind, const char* text);
    void setChannelMap(std::vector<int> map);

    /// Appends the frames in use.
    Status write(const AudioBlock& block);
    /// Completes the file, brings it to the disk and puts it in its place.
    Status commit();

    /// Samples so far that were set to the format's nearest limit.
    std::int64_t clipped() const { return m_clipped; }

private:
    struct Closer
    {
        void operator()(SNDFILE* sound) const { sf_close(sound); }
    };

    sf_count_t transfer(const AudioBlock& block);
    Status openDraft();
    Status close();
    Error errorOf(const QString& reason) const;
    Error errorOf(int number) const;
    Error encoderError() const;
    Error unsupported() const;

    QString m_name;
    std::unique_ptr<OutputFile> m_file;
    std::unique_ptr<FileAccess> m_access;
    std::unique_ptr<SNDFILE, Closer> m_sound;
    SF_INFO m_info = {};
    bool m_isEmpty = true;
    std::int64_t m_clipped = 0;
    std::vector<short> m_shorts;
    std::vector<int> m_ints;
    std::vector<float> m_floats;
    std::vector<double> m_doubles;
};
