// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "component/EffectComponent.h"

/// The component of the equalizer: data version "2620" and 28 values, of which the last belongs to
/// no parameter; 116 bytes in all.
class ZoltaComponent final : public EffectComponent
{
public:
    /// The class that the equalizer's presets belong to.
    static Steinberg::FUID classId();

    const unsigned char* getDataVersion() const override;
    /// The same list for every version.
    std::list<const char*> getParameterList(const unsigned char* dataVersion) const override;
};
