// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/audio/AudioWriter.h"

#include "host/audio/AudioFormat.h"
#include "host/audio/SampleConversion.h"

#include <cerrno>
#include <cstring>

namespace {

// Of the lossy format, from 0 to 1: well beyond the point where differences are heard.
constexpr double vorbisQuality = 0.8;

// Peaks would cost a pass over the samples and bring the time of day into the file.
void setUp(SNDFILE* sound)
{
    sf_command(sound, SFC_SET_ADD_PEAK_CHUNK, nullptr, SF_FALSE);
    double quality = vorbisQuality;
    sf_command(sound, SFC_SET_VBR_ENCODING_QUALITY, &quality, sizeof quality);
}

} // namespace

AudioWriter::AudioWriter() = default;

AudioWriter::~AudioWriter() = default;

Status AudioWriter::open(const QString& file, const SF_INFO& info)
{
    m_name = file;
    m_info = info;
    m_file = std::make_unique<OutputFile>(file);
    const Status opened = openDraft();
    if (!opened.isOk())
        return opened;
    SF_INFO format = info;
    m_access = std::make_unique<FileAccess>(m_file->descriptor());
    m_sound.reset(sf_open_virtual(FileAccess::operations(), SFM_WRITE, &format, m_access.get()));
    if (!m_sound)
        return m_access->hasFailed() ? errorOf(m_access->reason()) : unsupported();
    setUp(m_sound.get());
    return {};
}

Status AudioWriter::openDraft()
{
    const int error = m_file->open(OutputFile::Draft::Unnamed);
    if (error == EISDIR)
        return Error{tr("The sound file %1 cannot be written: it is a folder.").arg(m_name)};
    if (error == EINVAL)
        return Error{
            tr("The sound file %1 cannot be written: it is not a regular file.").arg(m_name)};
    return error == 0 ? Status() : errorOf(error);
}

void AudioWriter::setText(int kind, const char* text)
{
    if (text)
        sf_set_string(m_sound.get(), kind, text);
}

void AudioWriter::setChannelMap(std::vector<int> map)
{
    if (!map.empty())
        sf_command(m_sound.get(), SFC_SET_CHANNEL_MAP_INFO, map.data(),
                   static_cast<int>(map.size() * sizeof(int)));
}

Status AudioWriter::write(const AudioBlock& block)
{
    if (block.frames() == 0)
        return {};
    m_isEmpty = false;
    const bool written = transfer(block) == static_cast<sf_count_t>(block.frames());
    if (m_access->hasFailed())
        return errorOf(m_access->reason());
    if (written)
        return {};
    // Vorbis checks channels and rate only now.
    if (sf_error(m_sound.get()) == SF_ERR_UNRECOGNISED_FORMAT)
        return unsupported();
    return encoderError();
}

sf_count_t AudioWriter::transfer(const AudioBlock& block)
{
    const std::size_t samples = block.channels() * block.frames();
    const auto frames = static_cast<sf_count_t>(block.frames());
    switch (AudioFormat::transferOf(m_info.format)) {
    case AudioFormat::Transfer::Short:
        m_shorts.resize(samples);
        m_clipped += SampleConversion::fromBlock(block, m_shorts.data());
        return sf_writef_short(m_sound.get(), m_shorts.data(), frames);
    case AudioFormat::Transfer::Int:
        m_ints.resize(samples);
        m_clipped +=
            SampleConversion::fromBlock(block, AudioFormat::bitsOf(m_info.format), m_ints.data());
        return sf_writef_int(m_sound.get(), m_ints.data(), frames);
    case AudioFormat::Transfer::Float:
        m_floats.resize(samples);
        m_clipped += SampleConversion::fromBlock(block, m_floats.data());
        return sf_writef_float(m_sound.get(), m_floats.data(), frames);
    case AudioFormat::Transfer::Double:
        m_doubles.resize(samples);
        m_clipped += SampleConversion::fromBlock(block, m_doubles.data());
        return sf_writef_double(m_sound.get(), m_doubles.data(), frames);
    }
    return 0;
}

Status AudioWriter::commit()
{
    const Status closed = close();
    if (!closed.isOk())
        return closed;
    const int error = m_file->commit();
    return error == 0 ? Status() : errorOf(error);
}

Status AudioWriter::close()
{
    // FLAC's header would come with the first sample only.
    if (m_isEmpty && (m_info.format & SF_FORMAT_TYPEMASK) == SF_FORMAT_FLAC)
        sf_command(m_sound.get(), SFC_UPDATE_HEADER_NOW, nullptr, 0);
    const int error = sf_close(m_sound.release());
    if (m_access->hasFailed())
        return errorOf(m_access->reason());
    if (error != SF_ERR_NO_ERROR)
        return encoderError();
    // Nothing but the header would tell an empty file's format.
    if (m_access->size() == 0)
        return unsupported();
    return {};
}

Error AudioWriter::errorOf(const QString& reason) const
{
    return {tr("The sound file %1 cannot be written: %2.").arg(m_name, reason)};
}

Error AudioWriter::errorOf(int number) const
{
    return errorOf(QString::fromLocal8Bit(std::strerror(number)));
}

Error AudioWriter::encoderError() const
{
    return {tr("The sound file %1 cannot be written: its encoder failed.").arg(m_name)};
}

Error AudioWriter::unsupported() const
{
    return {tr("The sound file %1 cannot be written: its format does not take %2 channels at %3 "
               "Hz.")
                .arg(m_name, QString::number(m_info.channels), QString::number(m_info.samplerate))};
}
