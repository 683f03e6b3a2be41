// SPDX-License-Identifier: GPL-3.0-or-later
// The one function that LV2 hosts look for. Nothing that it hands out lets an exception out.
#include "daw/lv2/Lv2Equalizer.h"

#include <lv2/core/lv2.h>

#include <string_view>

namespace {

Lv2Equalizer& equalizer(LV2_Handle instance) { return *static_cast<Lv2Equalizer*>(instance); }

LV2_Handle instantiate(const LV2_Descriptor* descriptor, double sampleRate, const char*,
                       const LV2_Feature* const*)
{
    if (!(sampleRate > 0.0))
        return nullptr;
    const std::size_t channels = std::string_view(descriptor->URI) == monoUri ? 1 : 2;
    try {
        return new Lv2Equalizer(channels, sampleRate);
    } catch (...) {
        return nullptr;
    }
}

void connectPort(LV2_Handle instance, std::uint32_t index, void* buffer)
{
    equalizer(instance).connect(index, buffer);
}

void activate(LV2_Handle instance) { equalizer(instance).activate(); }

void run(LV2_Handle instance, std::uint32_t frames) { equalizer(instance).run(frames); }

void cleanup(LV2_Handle instance) { delete &equalizer(instance); }

constexpr LV2_Descriptor describe(const char* uri)
{
    return {uri, instantiate, connectPort, activate, run, nullptr, cleanup, nullptr};
}

constexpr LV2_Descriptor descriptors[] = {describe(stereoUri), describe(monoUri)};

} // namespace

LV2_SYMBOL_EXPORT const LV2_Descriptor* lv2_descriptor(std::uint32_t index)
{
    return index < std::size(descriptors) ? &descriptors[index] : nullptr;
}
