// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "interfaces/IModelInfo.h"

/// The mixer's hardware as editors see it: channels 0 to 7, the parameters of parameterTable, and
/// one input and one output meter a channel.
///
/// Lookups that fail leave their outputs alone; a null pointer makes a lookup fail.
class HostModel : public IModelInfo
{
public:
    /// How many words an update of the meters holds.
    static constexpr unsigned int meterWordCount = 32;
    /// Where the words of the meters before and after the equalizer begin in it.
    static constexpr unsigned short sendMeter = 0;
    static constexpr unsigned short returnMeter = 16;

    void getChannelEntry(unsigned short* attribute, unsigned short* channel,
                         unsigned int position) override;
    unsigned short getChannelCount() override;
    bool findParameter(unsigned short* index, const char* name) override;
    bool getParameterAddress(unsigned short* parameter, unsigned short* second,
                             unsigned short index) override;
    bool findMeter(unsigned short* index, const char* name) override;
    bool getMeterRange(unsigned short* base, unsigned short* count, unsigned short index) override;
};
