// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "interfaces/IMemAPI.h"
#include "interfaces/IMeterNotifier.h"
#include "interfaces/IModelInfo.h"
#include "tests/monkey/Dice.h"

#include <array>
#include <functional>
#include <utility>
#include <vector>

class IMeterObserver;
class IPrmObserver;

/// A host of 4 channels that behaves as badly as a host may: its calls fail at random, its ranges
/// are of every shape, and something else happens in the middle of a write.
class MonkeyHost : public IModelInfo, public IMemAPI, public IMeterNotifier
{
public:
    static constexpr int channels = 4;

    explicit MonkeyHost(Dice& dice);

    /// One in \a n calls fails; 0 for none.
    void setFailing(int n) { m_failing = n; }
    /// What may happen inside a write, before or after the observers hear of it.
    void setDisturbance(std::function<void()> disturbance)
    {
        m_disturbance = std::move(disturbance);
    }

    /// A value of the host's own, inside the range or not.
    void writeAny();
    void changeAnyRange();
    void notifyAnyProperty();
    void pushMeters();
    /// How many parameter and meter observers are registered.
    std::size_t observers() const;

    void getChannelEntry(unsigned short* attribute, unsigned short* channel,
                         unsigned int position) override;
    unsigned short getChannelCount() override;
    bool findParameter(unsigned short* index, const char* name) override;
    bool getParameterAddress(unsigned short* parameter, unsigned short* second,
                             unsigned short index) override;
    bool findMeter(unsigned short* index, const char* name) override;
    bool getMeterRange(unsigned short* base, unsigned short* count, unsigned short index) override;

    int getValue(unsigned short parameter, unsigned short ch, int* value,
                 unsigned short element) override;
    int setValue(unsigned short parameter, unsigned short ch, int value, unsigned short element,
                 int, int) override;
    int getRange(unsigned short parameter, unsigned short ch, int* minimum, int* maximum) override;
    int getDefault(unsigned short parameter, unsigned short ch, int* value) override;
    int valueToString(unsigned short parameter, unsigned short ch, int value, char* buffer,
                      int size) override;
    int stringToValue(unsigned short parameter, unsigned short ch, const char* text,
                      int* value) override;
    int registerObserver(unsigned short parameter, unsigned short ch,
                         IPrmObserver* observer) override;
    int unregisterObserver(unsigned short parameter, unsigned short ch,
                           IPrmObserver* observer) override;
    int queryMeterNotifier(IMeterNotifier** notifier) override;

    void addMeterObserver(IMeterObserver* observer) override;
    void removeMeterObserver(IMeterObserver* observer) override;

private:
    static constexpr int parameters = 27;
    struct Cell
    {
        int value = 0;
        int minimum = 0;
        int maximum = 0;
        std::vector<IPrmObserver*> observers;
    };

    bool fails() { return m_failing > 0 && m_dice.oneIn(m_failing); }
    Cell* cell(unsigned short parameter, unsigned short ch);
    std::pair<unsigned short, unsigned short> anyPlace();
    void disturb();
    void notify(unsigned short parameter, unsigned short ch);

    Dice& m_dice;
    std::array<Cell, channels * parameters> m_cells;
    std::vector<IMeterObserver*> m_meters;
    std::function<void()> m_disturbance;
    int m_failing = 0;
    int m_depth = 0; // of writes within writes
};
