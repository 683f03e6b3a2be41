// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <zolta/interfaces/IModelInfo.h>
#include <zolta/parameters/ParameterTable.h>

#include <cstring>

/// The hardware: channel 0, the equalizer's parameters, and a meter before and after it.
class Model : public IModelInfo
{
public:
    unsigned short getChannelCount() override { return 1; }
    void getChannelEntry(unsigned short* attribute, unsigned short* channel, unsigned int) override
    {
        *attribute = 1;
        *channel = 0;
    }
    bool findParameter(unsigned short* index, const char* name) override
    {
        *index = static_cast<unsigned short>(findParameterByName(name));
        return *index < parameterCount;
    }
    bool getParameterAddress(unsigned short* parameter, unsigned short* second,
                             unsigned short index) override
    {
        *parameter = parameterId(index);
        *second = parameterSecondWord(index);
        return index < parameterCount;
    }
    bool findMeter(unsigned short* index, const char* name) override
    {
        *index = std::strcmp(name, "meter_oxa_rtn") == 0;
        return true;
    }
    bool getMeterRange(unsigned short* base, unsigned short* count, unsigned short index) override
    {
        *base = index == 0 ? 0 : 2; // two words a channel and meter
        *count = 1;
        return true;
    }
};
