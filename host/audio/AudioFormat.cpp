// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/audio/AudioFormat.h"

#include <QFileInfo>

namespace {

constexpr double headerSpace = 1 << 20;
constexpr double largestWav = 4294967295.0 - headerSpace;

int kindOf(const QString& file)
{
    const QString suffix = QFileInfo(file).suffix().toLower();
    if (suffix == QLatin1String("wav"))
        return SF_FORMAT_WAV;
    if (suffix == QLatin1String("flac"))
        return SF_FORMAT_FLAC;
    return suffix == QLatin1String("ogg") ? SF_FORMAT_OGG : 0;
}

bool isWavKind(int format)
{
    const int kind = format & SF_FORMAT_TYPEMASK;
    return kind == SF_FORMAT_WAV || kind == SF_FORMAT_WAVEX || kind == SF_FORMAT_RF64 ||
           kind == SF_FORMAT_W64;
}

// The sample formats that a WAV file takes and gives sample by sample; packed ones become floats.
int wavSamples(int format)
{
    const int samples = format & SF_FORMAT_SUBMASK;
    switch (samples) {
    case SF_FORMAT_PCM_U8:
    case SF_FORMAT_PCM_16:
    case SF_FORMAT_PCM_24:
    case SF_FORMAT_PCM_32:
    case SF_FORMAT_FLOAT:
    case SF_FORMAT_DOUBLE:
    case SF_FORMAT_ULAW:
    case SF_FORMAT_ALAW:
        return samples;
    default:
        return SF_FORMAT_FLOAT;
    }
}

int bytesOf(int samples)
{
    switch (samples) {
    case SF_FORMAT_DOUBLE:
        return 8;
    case SF_FORMAT_FLOAT:
        return 4;
    case SF_FORMAT_ULAW:
    case SF_FORMAT_ALAW:
        return 1;
    default:
        return AudioFormat::bitsOf(samples) / 8;
    }
}

int wavFormat(const SF_INFO& input, bool forceFloat)
{
    const bool keeps = isWavKind(input.format) && !forceFloat;
    const int samples = keeps ? wavSamples(input.format) : int{SF_FORMAT_FLOAT};
    const double size = double(input.frames) * input.channels * bytesOf(samples);
    if (input.frames != SF_COUNT_MAX && size > largestWav)
        return SF_FORMAT_RF64 | samples;
    const bool extensible = (input.format & SF_FORMAT_TYPEMASK) == SF_FORMAT_WAVEX;
    return (extensible ? SF_FORMAT_WAVEX : SF_FORMAT_WAV) | samples;
}

int flacFormat(const SF_INFO& input)
{
    switch (AudioFormat::bitsOf(input.format)) {
    case 8:
        return SF_FORMAT_FLAC | SF_FORMAT_PCM_S8;
    case 16:
        return SF_FORMAT_FLAC | SF_FORMAT_PCM_16;
    default:
        return SF_FORMAT_FLAC | SF_FORMAT_PCM_24;
    }
}

} // namespace

bool AudioFormat::canWrite(const QString& file) { return kindOf(file) != 0; }

SF_INFO AudioFormat::outputFor(const QString& file, const SF_INFO& input, bool forceFloat)
{
    SF_INFO output = {};
    output.frames = input.frames;
    output.samplerate = input.samplerate;
    output.channels = input.channels;
    const int kind = kindOf(file);
    if (kind == SF_FORMAT_WAV)
        output.format = wavFormat(input, forceFloat);
    else if (kind == SF_FORMAT_FLAC)
        output.format = flacFormat(input);
    else
        output.format = SF_FORMAT_OGG | SF_FORMAT_VORBIS;
    return output;
}

AudioFormat::Transfer AudioFormat::transferOf(int format)
{
    if ((format & SF_FORMAT_SUBMASK) == SF_FORMAT_DOUBLE)
        return Transfer::Double;
    switch (bitsOf(format)) {
    case 0:
        return Transfer::Float;
    case 16:
        return Transfer::Short;
    default:
        return Transfer::Int;
    }
}

int AudioFormat::bitsOf(int format)
{
    switch (format & SF_FORMAT_SUBMASK) {
    case SF_FORMAT_PCM_S8:
    case SF_FORMAT_PCM_U8:
        return 8;
    case SF_FORMAT_PCM_16:
    case SF_FORMAT_ULAW:
    case SF_FORMAT_ALAW:
        return 16;
    case SF_FORMAT_PCM_24:
        return 24;
    case SF_FORMAT_PCM_32:
        return 32;
    default:
        return 0;
    }
}
