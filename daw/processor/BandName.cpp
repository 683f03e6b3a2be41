// SPDX-License-Identifier: GPL-3.0-or-later
#include "daw/processor/BandName.h"

#include "equalizer/EqualizerBands.h"

std::string bandName(int band)
{
    if (band == EqualizerBands::Low)
        return "Low";
    return band == EqualizerBands::High ? "High" : "Middle " + std::to_string(band);
}
