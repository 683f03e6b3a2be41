// SPDX-License-Identifier: GPL-3.0-or-later
#include "parameters/ChannelValues.h"

#include "equalizer/BandDesign.h"

#include <algorithm>

namespace {

constexpr std::size_t parametersPerBand = 4;
constexpr std::size_t inputLevel = 24;
constexpr std::size_t outputLevel = 25;
constexpr std::size_t drive = 26;

// Where a band's four parameters stand after its first: the type or the quality.
enum Field : std::size_t { TypeOrQuality, Frequency, Gain, OnOff };

std::size_t indexOf(int band, Field field)
{
    return static_cast<std::size_t>(band) * parametersPerBand + field;
}

float position(const ChannelValues& values, std::size_t parameter)
{
    const Parameter& entry = parameterTable[parameter];
    return BandDesign::position(values[parameter], entry.minimum, entry.maximum);
}

double gainOf(const ChannelValues& values, std::size_t parameter)
{
    return BandDesign::gain(position(values, parameter));
}

} // namespace

ChannelValues defaultValues()
{
    ChannelValues values{};
    std::transform(parameterTable.begin(), parameterTable.end(), values.begin(),
                   [](const Parameter& parameter) { return parameter.defaultValue; });
    return values;
}

ChannelValues bandsOnly(ChannelValues values)
{
    for (const std::size_t parameter : {inputLevel, outputLevel, drive})
        values[parameter] = 0;
    return values;
}

ChannelValues bypassed(ChannelValues values)
{
    for (int band = 0; band < EqualizerBands::Count; ++band)
        values[indexOf(band, OnOff)] = 0;
    return bandsOnly(values);
}

Band bandOf(const ChannelValues& values, int band)
{
    Band settings;
    settings.on = values[indexOf(band, OnOff)] != 0;
    if (EqualizerBands::isMiddle(band))
        settings.quality = BandDesign::quality(position(values, indexOf(band, TypeOrQuality)));
    else
        settings.type = values[indexOf(band, TypeOrQuality)];
    settings.frequency = BandDesign::frequency(position(values, indexOf(band, Frequency)));
    settings.gain = gainOf(values, indexOf(band, Gain));
    return settings;
}

void setBands(EqualizerBands& bands, const ChannelValues& values)
{
    for (int band = 0; band < EqualizerBands::Count; ++band)
        bands[band] = bandOf(values, band);
    bands.designAll();
}

bool isSameBand(const ChannelValues& a, const ChannelValues& b, int band)
{
    const auto first = static_cast<std::ptrdiff_t>(indexOf(band, TypeOrQuality));
    return std::equal(a.begin() + first, a.begin() + first + std::ptrdiff_t{parametersPerBand},
                      b.begin() + first);
}

double inputLevelOf(const ChannelValues& values) { return gainOf(values, inputLevel); }

double outputLevelOf(const ChannelValues& values) { return gainOf(values, outputLevel); }

bool isDriven(const ChannelValues& values) { return values[drive] != 0; }
