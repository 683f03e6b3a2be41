// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/hosting/StandInComponent.h"

#include "interfaces/IMemAPI.h"
#include "interfaces/IModelInfo.h"

#include <pluginterfaces/base/ibstream.h>

#include <QtEndian>

#include <string>

using namespace Steinberg;

namespace {

constexpr int entryCount = 28;

// Five groups of four downwards (4 3 2 1, 8 7 6 5, ...), then 21 to 27; the last entry is empty.
int numberOfEntry(int entry)
{
    if (entry < 20)
        return entry / 4 * 4 + 4 - entry % 4;
    return entry + 1;
}

} // namespace

unsigned short StandInComponent::parameterId(int number) const
{
    const std::string name = "fx_rackfx_prm_" + std::to_string(number);
    unsigned short index = 0;
    unsigned short id = 0;
    if (m_model && m_model->findParameter(&index, name.c_str()))
        m_model->getParameterAddress(&id, nullptr, index);
    return id;
}

float StandInComponent::position(int number) const
{
    const unsigned short id = parameterId(number);
    int minimum = 0;
    int maximum = 0;
    int value = 0;
    if (!m_memory || m_memory->getRange(id, m_channel, &minimum, &maximum) < 0 ||
        m_memory->getValue(id, m_channel, &value, 0) < 0)
        return 0.0F;
    return static_cast<float>(value - minimum) / static_cast<float>(maximum - minimum);
}

tresult StandInComponent::queryInterface(const TUID, void** obj)
{
    *obj = nullptr;
    return kNoInterface;
}

tresult StandInComponent::setState(IBStream* state)
{
    char bytes[4] = {};
    if (state->read(bytes, 4) != kResultOk)
        return kResultFalse;
    for (int entry = 0; entry + 1 < entryCount; ++entry) {
        state->read(bytes, 4);
        const unsigned short id = parameterId(numberOfEntry(entry));
        int minimum = 0;
        int maximum = 0;
        m_memory->getRange(id, m_channel, &minimum, &maximum);
        const float offset = static_cast<float>(maximum - minimum) * qFromBigEndian<float>(bytes);
        m_memory->setValue(id, m_channel, minimum + static_cast<int>(double(offset) + 0.5), 0, 0,
                           1);
    }
    return kResultOk;
}

tresult StandInComponent::getState(IBStream* state)
{
    char version[] = "2620";
    state->write(version, 4);
    for (int entry = 0; entry < entryCount; ++entry) {
        char bytes[4] = {};
        if (entry + 1 < entryCount)
            qToBigEndian(position(numberOfEntry(entry)), bytes);
        state->write(bytes, 4);
    }
    return kResultOk;
}
