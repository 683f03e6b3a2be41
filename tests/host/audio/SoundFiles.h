// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

#include <sndfile.h>

#include <cmath>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

/// Sound files made and read by the sound file library alone, for tests.
namespace SoundFiles {

/// Interleaved samples, full scale 1.
struct Sound
{
    int format = SF_FORMAT_WAV | SF_FORMAT_FLOAT;
    int rate = 48000;
    int channels = 1;
    std::vector<double> samples;

    std::size_t frames() const { return samples.size() / static_cast<std::size_t>(channels); }
    std::vector<double> channel(int index) const
    {
        std::vector<double> result;
        for (std::size_t i = static_cast<std::size_t>(index); i < samples.size();
             i += static_cast<std::size_t>(channels))
            result.push_back(samples[i]);
        return result;
    }
};

inline std::vector<double> noise(std::size_t count, double peak = 0.25, unsigned int seed = 1)
{
    std::mt19937 generator(seed);
    std::vector<double> samples(count);
    for (double& sample : samples)
        sample = peak * (static_cast<double>(generator()) / 2147483648.0 - 1.0);
    return samples;
}

inline std::vector<double> sine(double frequency, int rate, std::size_t count, double peak = 0.25)
{
    std::vector<double> samples(count);
    for (std::size_t i = 0; i < count; ++i)
        samples[i] = peak * std::sin(2.0 * M_PI * frequency * static_cast<double>(i) / rate);
    return samples;
}

inline QString write(const QString& file, const Sound& sound)
{
    SF_INFO info = {};
    info.format = sound.format;
    info.samplerate = sound.rate;
    info.channels = sound.channels;
    SNDFILE* out = sf_open(QFile::encodeName(file).constData(), SFM_WRITE, &info);
    if (!out)
        throw std::runtime_error(sf_strerror(nullptr));
    sf_command(out, SFC_SET_CLIPPING, nullptr, SF_TRUE);
    const auto frames = static_cast<sf_count_t>(sound.frames());
    if (frames == 0 && (sound.format & SF_FORMAT_TYPEMASK) == SF_FORMAT_FLAC)
        sf_command(out, SFC_UPDATE_HEADER_NOW, nullptr, 0);
    const bool written = sf_writef_double(out, sound.samples.data(), frames) == frames;
    if (sf_close(out) != 0 || !written)
        throw std::runtime_error("cannot write " + file.toStdString());
    return file;
}

inline Sound read(const QString& file)
{
    SF_INFO info = {};
    SNDFILE* in = sf_open(QFile::encodeName(file).constData(), SFM_READ, &info);
    if (!in)
        throw std::runtime_error("cannot read " + file.toStdString());
    Sound sound{info.format, info.samplerate, info.channels, {}};
    std::vector<double> part(static_cast<std::size_t>(info.channels) * 1000);
    sf_count_t count = 0;
    while ((count = sf_readf_double(in, part.data(), 1000)) > 0)
        sound.samples.insert(sound.samples.end(), part.begin(),
                             part.begin() + count * info.channels);
    sf_close(in);
    return sound;
}

inline QByteArray bytesOf(const QString& file)
{
    QFile in(file);
    return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray("unreadable");
}

inline QString writeBytes(const QString& file, const QByteArray& bytes)
{
    QFile out(file);
    if (!out.open(QIODevice::WriteOnly) || out.write(bytes) != bytes.size())
        throw std::runtime_error("cannot write " + file.toStdString());
    return file;
}

} // namespace SoundFiles
