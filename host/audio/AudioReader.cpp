// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/audio/AudioReader.h"

#include "engine/ChannelProcessor.h"
#include "host/audio/AudioFormat.h"
#include "host/audio/OggPages.h"
#include "host/audio/SampleConversion.h"
#include "host/audio/SoundLength.h"

#include <QFileInfo>

#include <algorithm>
#include <cmath>

#include <fcntl.h>

namespace {

// Beyond it the equalizer hears silence.
constexpr double loudest = ChannelProcessor::loudest;

} // namespace

AudioReader::AudioReader() = default;

AudioReader::~AudioReader() = default;

Status AudioReader::open(const QString& file)
{
    m_name = file;
    m_file.setFileName(file);
    const Status kind = checkKind();
    if (!kind.isOk())
        return kind;
    if (!m_file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return errorOf(m_file.errorString());
    m_access = std::make_unique<FileAccess>(m_file.handle(), m_file.size());
    const Status length = checkLength();
    return length.isOk() ? openSound() : length;
}

Status AudioReader::checkKind() const
{
    const QFileInfo info(m_name);
    if (info.isDir())
        return Error{tr("The sound file %1 cannot be read: it is a folder.").arg(m_name)};
    if (info.exists() && !info.isFile())
        return Error{tr("The sound file %1 cannot be read: it is not a regular file.").arg(m_name)};
    return {};
}

Status AudioReader::checkLength()
{
    const SoundLength length = SoundLength::of(m_file);
    if (length.isTooLong()) {
        return Error{tr("The sound file %1 cannot be read: it is longer than its header can state.")
                         .arg(m_name)};
    }
    if (length.isShort()) {
        return Error{
            tr("The sound file %1 cannot be read. It is cut short: its header promises %2 "
               "bytes of samples, but it holds %3.")
                .arg(m_name, QString::number(length.promised), QString::number(length.present))};
    }
    m_access->cover(length.offset, length.closed);
    return {};
}

Status AudioReader::openSound()
{
    ::posix_fadvise(m_file.handle(), 0, 0, POSIX_FADV_SEQUENTIAL);
    m_sound.reset(sf_open_virtual(FileAccess::operations(), SFM_READ, &m_info, m_access.get()));
    if (!m_sound && m_access->hasFailed())
        return errorOf(m_access->reason());
    if (!m_sound)
        return Error{tr("The file %1 is not a sound file that can be read.").arg(m_name)};
    if ((m_info.format & SF_FORMAT_TYPEMASK) != SF_FORMAT_OGG)
        return {};
    if (!knowsLength()) {
        return Error{tr("The sound file %1 cannot be read. It is cut short: its last page is "
                        "missing.")
                         .arg(m_name)};
    }
    return OggPages::check(m_file);
}

void AudioReader::read(AudioBlock* block)
{
    block->setFrames(block->capacity());
    block->setFrames(m_status.isOk() ? transfer(block) : 0);
    if (AudioFormat::bitsOf(m_info.format) == 0 && !SampleConversion::isWithin(*block, loudest))
        repair(block);
    advance(block->frames(), block->capacity());
}

std::size_t AudioReader::read(std::span<float> samples)
{
    const auto channels = static_cast<std::size_t>(m_info.channels);
    const auto wanted = static_cast<sf_count_t>(samples.size() / channels);
    const sf_count_t count =
        m_status.isOk() ? sf_readf_float(m_sound.get(), samples.data(), wanted) : 0;
    const auto frames = static_cast<std::size_t>(std::clamp<sf_count_t>(count, 0, wanted));
    if (AudioFormat::bitsOf(m_info.format) == 0)
        repair(samples.first(frames * channels));
    advance(frames, static_cast<std::size_t>(wanted));
    return frames;
}

void AudioReader::advance(std::size_t frames, std::size_t wanted)
{
    m_position += static_cast<std::int64_t>(frames);
    if (frames < wanted && m_status.isOk())
        m_status = checkEnd();
}

std::size_t AudioReader::transfer(AudioBlock* block)
{
    switch (AudioFormat::transferOf(m_info.format)) {
    case AudioFormat::Transfer::Short:
        return transfer(block, sf_readf_short, &m_shorts);
    case AudioFormat::Transfer::Int:
        return transfer(block, sf_readf_int, &m_ints);
    case AudioFormat::Transfer::Float:
        return transfer(block, sf_readf_float, &m_floats);
    case AudioFormat::Transfer::Double:
        return transfer(block, sf_readf_double, &m_doubles);
    }
    return 0;
}

template <typename Sample>
std::size_t AudioReader::transfer(AudioBlock* block,
                                  sf_count_t (*readFrames)(SNDFILE*, Sample*, sf_count_t),
                                  std::vector<Sample>* buffer)
{
    buffer->resize(block->channels() * block->capacity());
    const auto wanted = static_cast<sf_count_t>(block->capacity());
    const sf_count_t count = readFrames(m_sound.get(), buffer->data(), wanted);
    const auto frames = static_cast<std::size_t>(std::clamp<sf_count_t>(count, 0, wanted));
    block->setFrames(frames);
    SampleConversion::toBlock(buffer->data(), block);
    return frames;
}

void AudioReader::seek(std::int64_t frame)
{
    const std::int64_t target = std::clamp<std::int64_t>(frame, 0, m_info.frames);
    if (sf_seek(m_sound.get(), target, SEEK_SET) >= 0)
        m_position = target;
}

std::vector<int> AudioReader::channelMap() const
{
    std::vector<int> map(static_cast<std::size_t>(m_info.channels));
    const int size = static_cast<int>(map.size() * sizeof(int));
    if (sf_command(m_sound.get(), SFC_GET_CHANNEL_MAP_INFO, map.data(), size) != SF_TRUE)
        map.clear();
    return map;
}

void AudioReader::repair(AudioBlock* block)
{
    for (std::size_t i = 0; i < block->frames(); ++i) {
        for (std::size_t c = 0; c < block->channels(); ++c)
            repair(&block->channel(c)[i], i, c);
    }
}

void AudioReader::repair(std::span<float> samples)
{
    const auto channels = static_cast<std::size_t>(m_info.channels);
    for (std::size_t i = 0; i < samples.size(); ++i)
        repair(&samples[i], i / channels, i % channels);
}

// The frame counts from the current position.
template <typename Sample>
void AudioReader::repair(Sample* sample, std::size_t frame, std::size_t channel)
{
    if (std::abs(*sample) <= static_cast<Sample>(loudest))
        return;
    if (m_damage.count++ == 0) {
        m_damage.frame = m_position + static_cast<std::int64_t>(frame);
        m_damage.channel = static_cast<int>(channel);
    }
    *sample = 0;
}

Status AudioReader::checkEnd() const
{
    if (m_access->hasFailed())
        return errorOf(m_access->reason());
    if (knowsLength() && m_position < m_info.frames) {
        return Error{tr("The sound file %1 cannot be read. It is cut short: it ends after %2 of %3 "
                        "frames.")
                         .arg(m_name, QString::number(m_position), QString::number(m_info.frames))};
    }
    if (sf_error(m_sound.get()) != SF_ERR_NO_ERROR)
        return Error{tr("The sound file %1 cannot be read: it is damaged.").arg(m_name)};
    return {};
}

Error AudioReader::errorOf(const QString& reason) const
{
    return {tr("The sound file %1 cannot be read: %2.").arg(m_name, reason)};
}
