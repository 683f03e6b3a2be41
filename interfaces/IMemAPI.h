// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class IMeterNotifier;
class IPrmObserver;

/// The host's parameter memory: integer values keyed by (parameter id, channel, element), with
/// their ranges, defaults and display texts. Owned by the host; all calls on the GUI thread.
///
/// Every operation returns a status; a negative one means failure and leaves the outputs alone.
/// The order of the operations is the host's binary contract: the reserved ones are the host's own
/// and are never called by the library.
class IMemAPI
{
public:
    virtual void reserved0() {}
    virtual void reserved1() {}
    virtual void reserved2() {}
    virtual void reserved3() {}
    /// Reads a value.
    virtual int getValue(unsigned short parameter, unsigned short ch, int* value,
                         unsigned short element) = 0;
    /// Writes a value and notifies every observer registered for it, the writer's own included. The
    /// library always passes 0 and 1 as the last two arguments.
    virtual int setValue(unsigned short parameter, unsigned short ch, int value,
                         unsigned short element, int, int) = 0;
    virtual void reserved6() {}
    virtual void reserved7() {}
    virtual void reserved8() {}
    virtual void reserved9() {}
    virtual void reserved10() {}
    /// The smallest and the largest value.
    virtual int getRange(unsigned short parameter, unsigned short ch, int* minimum,
                         int* maximum) = 0;
    /// The value that a reset gives.
    virtual int getDefault(unsigned short parameter, unsigned short ch, int* value) = 0;
    virtual void reserved13() {}
    virtual void reserved14() {}
    virtual void reserved15() {}
    virtual void reserved16() {}
    virtual void reserved17() {}
    virtual void reserved18() {}
    /// Formats \a value for display into \a buffer of \a size bytes, zero-terminated.
    virtual int valueToString(unsigned short parameter, unsigned short ch, int value, char* buffer,
                              int size) = 0;
    /// Parses a display text.
    virtual int stringToValue(unsigned short parameter, unsigned short ch, const char* text,
                              int* value) = 0;
    virtual void reserved21() {}
    virtual void reserved22() {}
    virtual void reserved23() {}
    virtual void reserved24() {}
    virtual void reserved25() {}
    /// From now on \a observer is told of every change of (\a parameter, \a ch). Not owned.
    virtual int registerObserver(unsigned short parameter, unsigned short ch,
                                 IPrmObserver* observer) = 0;
    /// Undoes registerObserver().
    virtual int unregisterObserver(unsigned short parameter, unsigned short ch,
                                   IPrmObserver* observer) = 0;
    virtual void reserved28() {}
    virtual void reserved29() {}
    /// On success \a notifier is the host's meter notifier, which the host keeps.
    virtual int queryMeterNotifier(IMeterNotifier** notifier) = 0;

protected:
    ~IMemAPI() = default;
};
