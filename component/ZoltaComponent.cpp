// SPDX-License-Identifier: GPL-3.0-or-later
#include "component/ZoltaComponent.h"

#include "equalizer/EqualizerParameters.h"

namespace {

// Null stands for the value that belongs to no parameter: every state saved so far has it.
std::list<const char*> namesInStateOrder()
{
    std::list<const char*> names;
    for (const std::size_t index : stateOrder)
        names.push_back(equalizerParameters[index].name);
    names.push_back(nullptr);
    return names;
}

const std::list<const char*> ParameterList = namesInStateOrder();

static_assert(sizeof(ZoltaComponent) == sizeof(EffectComponent),
              "release() runs the destructor of EffectComponent alone");

} // namespace

Steinberg::FUID ZoltaComponent::classId()
{
    return {equalizerClassId[0], equalizerClassId[1], equalizerClassId[2], equalizerClassId[3]};
}

const unsigned char* ZoltaComponent::getDataVersion() const { return stateVersion.data(); }

std::list<const char*> ZoltaComponent::getParameterList(const unsigned char*) const
{
    return ParameterList;
}
