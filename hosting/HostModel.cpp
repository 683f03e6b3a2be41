// SPDX-License-Identifier: GPL-3.0-or-later
#include "hosting/HostModel.h"

#include "hosting/HostMemory.h"

#include <cstddef>
#include <string_view>

namespace {

constexpr unsigned short inputChannel = 1;

struct Meter
{
    std::string_view name;
    unsigned short base;
};

constexpr Meter meters[] = {{"meter_oxa_snd", HostModel::sendMeter},
                            {"meter_oxa_rtn", HostModel::returnMeter}};

} // namespace

void HostModel::getChannelEntry(unsigned short* attribute, unsigned short* channel,
                                unsigned int position)
{
    if (position >= getChannelCount())
        return;
    if (attribute)
        *attribute = inputChannel;
    if (channel)
        *channel = static_cast<unsigned short>(position);
}

unsigned short HostModel::getChannelCount()
{
    return static_cast<unsigned short>(m_memory.channelCount());
}

bool HostModel::findParameter(unsigned short* index, const char* name)
{
    if (!index || !name)
        return false;
    const std::size_t found = findParameterByName(name);
    if (found == parameterCount)
        return false;
    *index = static_cast<unsigned short>(found);
    return true;
}

bool HostModel::getParameterAddress(unsigned short* parameter, unsigned short* second,
                                    unsigned short index)
{
    if (index >= parameterCount)
        return false;
    if (parameter)
        *parameter = parameterId(index);
    if (second)
        *second = parameterSecondWord(index);
    return true;
}

bool HostModel::findMeter(unsigned short* index, const char* name)
{
    if (!index || !name)
        return false;
    for (unsigned short i = 0; i < std::size(meters); ++i) {
        if (meters[i].name == name) {
            *index = i;
            return true;
        }
    }
    return false;
}

bool HostModel::getMeterRange(unsigned short* base, unsigned short* count, unsigned short index)
{
    if (index >= std::size(meters))
        return false;
    if (base)
        *base = meters[index].base;
    if (count)
        *count = getChannelCount();
    return true;
}
