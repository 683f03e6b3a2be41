// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "interfaces/IModelInfo.h"
#include "parameters/ParameterTable.h"

class HostMemory;

/// The mixer's hardware as editors see it: the channels that the memory has at the moment, the
/// parameters of parameterTable, and one input and one output meter a channel.
///
/// The meters' words have a place for every channel that there can be, so that they stay where they
/// are when the number of channels changes.
///
/// Lookups that fail leave their outputs alone; a null pointer makes a lookup fail.
class HostModel : public IModelInfo
{
public:
    /// Where the words of the meters before and after the equalizer begin in an update.
    static constexpr unsigned short sendMeter = 0;
    static constexpr unsigned short returnMeter = sendMeter + 2 * maxChannelCount;
    /// How many words an update of the meters holds.
    static constexpr unsigned int meterWordCount = returnMeter + 2 * maxChannelCount;

    /// \a memory must outlive it.
    explicit HostModel(const HostMemory& memory)
        : m_memory(memory)
    {}

    void getChannelEntry(unsigned short* attribute, unsigned short* channel,
                         unsigned int position) override;
    unsigned short getChannelCount() override;
    bool findParameter(unsigned short* index, const char* name) override;
    bool getParameterAddress(unsigned short* parameter, unsigned short* second,
                             unsigned short index) override;
    bool findMeter(unsigned short* index, const char* name) override;
    bool getMeterRange(unsigned short* base, unsigned short* count, unsigned short index) override;

private:
    const HostMemory& m_memory;
};
