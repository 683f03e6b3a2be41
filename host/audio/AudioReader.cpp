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

QString errorOfFile(const QString& file)
{
    const QFileInfo info(file);
    if (info.isDir())
        return QStringLiteral("it is a folder");
    if (info.exists() && !info.isFile())
        return QStringLiteral("it is no ordinary file");
    return QString();
}

QString shortened(std::int64_t found, std::int64_t promised)
{
    return QStringLiteral("it is cut short: it ends after %1 of %2 frames")
        .arg(QString::number(found), QString::number(promised));
}

} // namespace

AudioReader::AudioReader() = default;

AudioReader::~AudioReader() = default;

QString AudioReader::open(const QString& file)
{
    m_name = file;
    m_file.setFileName(file);
    const QString error = errorOfFile(file);
    if (!error.isEmpty())
        return sentence(error);
    if (!m_file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return sentence(m_file.errorString());
    if (m_file.size() == 0)
        return sentence(QStringLiteral("it is empty (0 bytes)"));
    const SoundLength length = SoundLength::of(m_file);
    if (length.isTooLong())
        return sentence(QStringLiteral("it is longer than its header can say"));
    if (length.isShort())
        return sentence(
            QStringLiteral("it is cut short: its header promises %1 bytes of samples, "
                           "it holds %2")
                .arg(QString::number(length.promised), QString::number(length.present)));
    m_access = std::make_unique<FileAccess>(m_file.handle(), m_file.size());
    m_access->cover(length.offset, length.closed);
    return openSound();
}

QString AudioReader::openSound()
{
    ::posix_fadvise(m_file.handle(), 0, 0, POSIX_FADV_SEQUENTIAL);
    m_sound.reset(sf_open_virtual(FileAccess::operations(), SFM_READ, &m_info, m_access.get()));
    if (!m_sound && !m_access->error().isEmpty())
        return sentence(m_access->error());
    if (!m_sound)
        return sentence(QStringLiteral("it is no sound file that this program knows (%1)")
                            .arg(AudioFormat::reasonOf(nullptr)));
    const bool ogg = (m_info.format & SF_FORMAT_TYPEMASK) == SF_FORMAT_OGG;
    if (ogg && !knowsLength())
        return sentence(QStringLiteral("it is cut short: its last page is missing"));
    const QString error = ogg ? OggPages::errorIn(m_file) : QString();
    return error.isEmpty() ? QString() : sentence(error);
}

void AudioReader::read(AudioBlock* block)
{
    block->setFrames(block->capacity());
    const std::size_t frames = m_error.isEmpty() ? transfer(block) : 0;
    block->setFrames(frames);
    if (AudioFormat::bitsOf(m_info.format) == 0 && !SampleConversion::isWithin(*block, loudest))
        repair(block);
    m_position += static_cast<std::int64_t>(frames);
    if (frames < block->capacity())
        checkEnd();
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
        for (std::size_t c = 0; c < block->channels(); ++c) {
            double& sample = block->channel(c)[i];
            if (std::abs(sample) <= loudest)
                continue;
            if (m_damage.count++ == 0) {
                m_damage.frame = m_position + static_cast<std::int64_t>(i);
                m_damage.channel = static_cast<int>(c);
            }
            sample = 0.0;
        }
    }
}

void AudioReader::checkEnd()
{
    if (!m_error.isEmpty())
        return;
    if (!m_access->error().isEmpty())
        m_error = sentence(m_access->error());
    else if (knowsLength() && m_position < m_info.frames)
        m_error = sentence(shortened(m_position, m_info.frames));
    else if (sf_error(m_sound.get()) != SF_ERR_NO_ERROR)
        m_error = sentence(
            QStringLiteral("it is damaged (%1)").arg(AudioFormat::reasonOf(m_sound.get())));
}

QString AudioReader::sentence(const QString& reason) const
{
    return QStringLiteral("The sound file %1 cannot be read: %2.").arg(m_name, reason);
}
