// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// The host's description of the connected hardware. Owned by the host.
///
/// The order of the operations is the host's binary contract: the reserved ones are the host's own
/// and are never called by the library.
class IModelInfo
{
public:
    virtual void reserved0() {}
    virtual void reserved1() {}
    virtual void reserved2() {}
    /// Fills the two words of the channel entry at \a position, counted from 0.
    virtual void getChannelEntry(unsigned short* attribute, unsigned short* channel,
                                 unsigned int position) = 0;
    /// How many channel entries there are.
    virtual unsigned short getChannelCount() = 0;
    /// The index of the parameter called \a name ("fx_rackfx_prm_3"); false if there is none.
    virtual bool findParameter(unsigned short* index, const char* name) = 0;
    /// The address of the parameter at \a index: its id, which keys every IMemAPI operation, and a
    /// second word that the library hands on without reading it.
    virtual bool getParameterAddress(unsigned short* parameter, unsigned short* second,
                                     unsigned short index) = 0;
    virtual void reserved7() {}
    /// The index of the meter called \a name ("meter_oxa_snd"); false if there is none.
    virtual bool findMeter(unsigned short* index, const char* name) = 0;
    /// Where the meter's values start in the array of IMeterObserver, and for how many channels it
    /// has them. Channel c owns the two positions base + 2c and base + 2c + 1.
    virtual bool getMeterRange(unsigned short* base, unsigned short* count,
                               unsigned short index) = 0;

protected:
    ~IModelInfo() = default;
};
