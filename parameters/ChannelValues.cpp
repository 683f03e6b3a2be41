// SPDX-License-Identifier: GPL-3.0-or-later
#include "parameters/ChannelValues.h"

#include "equalizer/BandDesign.h"

#include <algorithm>

namespace {

constexpr std::size_t inputLevel = parameterIndex(noBand, EqualizerField::InputLevel);
constexpr std::size_t outputLevel = parameterIndex(noBand, EqualizerField::OutputLevel);
constexpr std::size_t drive = parameterIndex(noBand, EqualizerField::Drive);

float position(const ChannelValues& values, std::size_t parameter)
{
    const Parameter& entry = parameterTable[parameter];
    return BandDesign::position(values[parameter], entry.minimum, entry.maximum);
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
    for (std::size_t i = 0; i < parameterCount; ++i) {
        if (equalizerParameters[i].band == noBand)
            values[i] = 0;
    }
    return values;
}

ChannelValues bypassed(ChannelValues values)
{
    for (std::size_t i = 0; i < parameterCount; ++i) {
        if (equalizerParameters[i].field == EqualizerField::On)
            values[i] = 0;
    }
    return bandsOnly(values);
}

Band bandOf(const ChannelValues& values, int band)
{
    const auto index = [band](EqualizerField field) { return parameterIndex(band, field); };
    Band settings;
    settings.on = values[index(EqualizerField::On)] != 0;
    if (EqualizerBands::isMiddle(band))
        settings.quality = BandDesign::quality(position(values, index(EqualizerField::Quality)));
    else
        settings.type = values[index(EqualizerField::Type)];
    settings.frequency = BandDesign::frequency(position(values, index(EqualizerField::Frequency)));
    settings.gain = BandDesign::gain(position(values, index(EqualizerField::Gain)));
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
    for (std::size_t i = 0; i < parameterCount; ++i) {
        if (equalizerParameters[i].band == band && a[i] != b[i])
            return false;
    }
    return true;
}

double inputLevelOf(const ChannelValues& values)
{
    return BandDesign::gain(position(values, inputLevel));
}

double outputLevelOf(const ChannelValues& values)
{
    return BandDesign::gain(position(values, outputLevel));
}

bool isDriven(const ChannelValues& values) { return values[drive] != 0; }
