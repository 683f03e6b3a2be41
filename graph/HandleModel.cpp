// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph/HandleModel.h"

#include "equalizer/BandDesign.h"

double HandleModel::fieldMinimum(EqualizerField field)
{
    return field == EqualizerField::Gain ? BandDesign::gain(0.0F) : BandDesign::frequency(0.0F);
}

double HandleModel::fieldMaximum(EqualizerField field)
{
    return field == EqualizerField::Gain ? BandDesign::gain(1.0F) : BandDesign::frequency(1.0F);
}
