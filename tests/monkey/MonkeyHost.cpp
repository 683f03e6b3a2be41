// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/monkey/MonkeyHost.h"

#include "equalizer/EqualizerParameters.h"
#include "interfaces/IMeterObserver.h"
#include "interfaces/IPrmObserver.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

constexpr int maxDepth = 4;
constexpr int failed = -1;

// A list that changes while it is walked; each observer is called only while it is still in it.
template <typename Observer, typename Call>
void callEach(const std::vector<Observer*>& list, const Call& call)
{
    const std::vector<Observer*> copy = list;
    for (Observer* each : copy) {
        if (std::find(list.begin(), list.end(), each) != list.end())
            call(each);
    }
}

} // namespace

MonkeyHost::MonkeyHost(Dice& dice)
    : m_dice(dice)
{
    for (std::size_t i = 0; i < m_cells.size(); ++i) {
        const EqualizerField field = equalizerParameters[i % parameters].field;
        Cell& cell = m_cells[i];
        cell.maximum = field == EqualizerField::Frequency ? 1200
                       : field == EqualizerField::Type    ? 3
                                                          : 1;
        if (field == EqualizerField::Gain || field == EqualizerField::InputLevel)
            cell = {0, -200, 200, {}};
    }
}

MonkeyHost::Cell* MonkeyHost::cell(unsigned short parameter, unsigned short ch)
{
    if (parameter < 1 || parameter > parameters || ch >= channels)
        return nullptr;
    return &m_cells[static_cast<std::size_t>(ch * parameters + parameter - 1)];
}

std::pair<unsigned short, unsigned short> MonkeyHost::anyPlace()
{
    return {static_cast<unsigned short>(m_dice.between(1, parameters)),
            static_cast<unsigned short>(m_dice.between(0, channels - 1))};
}

void MonkeyHost::disturb()
{
    if (m_disturbance && m_dice.oneIn(50))
        m_disturbance();
}

void MonkeyHost::notify(unsigned short parameter, unsigned short ch)
{
    callEach(cell(parameter, ch)->observers, [&](IPrmObserver* observer) {
        observer->Update(parameter, ch, cell(parameter, ch)->value,
                         m_dice.oneIn(9) ? nullptr : "x");
    });
}

void MonkeyHost::writeAny()
{
    const auto [parameter, ch] = anyPlace();
    Cell* place = cell(parameter, ch);
    place->value = m_dice.oneIn(4) ? m_dice.anyInt()
                                   : m_dice.between(std::min(place->minimum, place->maximum),
                                                    std::max(place->minimum, place->maximum));
    notify(parameter, ch);
}

void MonkeyHost::changeAnyRange()
{
    const auto [parameter, ch] = anyPlace();
    cell(parameter, ch)->minimum = m_dice.anyInt();
    cell(parameter, ch)->maximum = m_dice.anyInt();
    notifyAnyProperty();
}

void MonkeyHost::notifyAnyProperty()
{
    const auto [parameter, ch] = anyPlace();
    callEach(cell(parameter, ch)->observers, [&, p = parameter, c = ch](IPrmObserver* observer) {
        observer->UpdateProperty(p, c, m_dice.anyInt(), 0, 1, m_dice.oneIn(2), nullptr);
    });
}

void MonkeyHost::pushMeters()
{
    std::vector<unsigned int> words(static_cast<std::size_t>(m_dice.between(0, 40)));
    for (unsigned int& word : words)
        word = static_cast<unsigned int>(m_dice.anyInt());
    const auto count = static_cast<unsigned int>(words.size());
    callEach(m_meters,
             [&](IMeterObserver* each) { each->notifyMeterDbUpdated(words.data(), count); });
    callEach(m_meters,
             [&](IMeterObserver* each) { each->notifyMeterLvlUpdated(words.data(), count); });
}

std::size_t MonkeyHost::observers() const
{
    std::size_t count = m_meters.size();
    for (const Cell& each : m_cells)
        count += each.observers.size();
    return count;
}

void MonkeyHost::getChannelEntry(unsigned short* attribute, unsigned short* channel,
                                 unsigned int position)
{
    *attribute = 0;
    *channel = static_cast<unsigned short>(position);
}

unsigned short MonkeyHost::getChannelCount() { return channels; }

bool MonkeyHost::findParameter(unsigned short* index, const char* name)
{
    const auto found = std::find_if(
        equalizerParameters.begin(), equalizerParameters.end(),
        [name](const EqualizerParameter& each) { return std::strcmp(each.name, name) == 0; });
    if (found == equalizerParameters.end() || fails())
        return false;
    *index = static_cast<unsigned short>(found->number);
    return true;
}

bool MonkeyHost::getParameterAddress(unsigned short* parameter, unsigned short* second,
                                     unsigned short index)
{
    if (fails())
        return false;
    *parameter = index;
    *second = 0;
    return true;
}

bool MonkeyHost::findMeter(unsigned short* index, const char* name)
{
    if (fails())
        return false;
    *index = std::strcmp(name, "meter_oxa_snd") == 0 ? 0 : 1;
    return true;
}

bool MonkeyHost::getMeterRange(unsigned short* base, unsigned short* count, unsigned short index)
{
    if (fails())
        return false;
    *base = static_cast<unsigned short>(16 * index);
    *count = channels;
    return true;
}

int MonkeyHost::getValue(unsigned short parameter, unsigned short ch, int* value,
                         unsigned short element)
{
    const Cell* place = cell(parameter, ch);
    if (!place || element != 0 || fails())
        return failed;
    *value = place->value;
    return 0;
}

int MonkeyHost::setValue(unsigned short parameter, unsigned short ch, int value, unsigned short,
                         int, int)
{
    Cell* place = cell(parameter, ch);
    if (!place || m_depth >= maxDepth || fails())
        return failed;
    ++m_depth;
    disturb();
    place->value = value;
    notify(parameter, ch);
    disturb();
    --m_depth;
    return 0;
}

int MonkeyHost::getRange(unsigned short parameter, unsigned short ch, int* minimum, int* maximum)
{
    const Cell* place = cell(parameter, ch);
    if (!place || fails())
        return failed;
    *minimum = place->minimum;
    *maximum = place->maximum;
    return 0;
}

int MonkeyHost::getDefault(unsigned short parameter, unsigned short ch, int* value)
{
    if (!cell(parameter, ch) || fails())
        return failed;
    *value = m_dice.anyInt();
    return 0;
}

int MonkeyHost::valueToString(unsigned short, unsigned short, int value, char* buffer, int size)
{
    const std::string text = std::to_string(value) + std::string(m_dice.oneIn(9) ? 300 : 0, 'x');
    if (size <= static_cast<int>(text.size()) || fails())
        return failed;
    std::memcpy(buffer, text.c_str(), text.size() + 1);
    return 0;
}

int MonkeyHost::stringToValue(unsigned short, unsigned short, const char* text, int* value)
{
    const auto result = std::from_chars(text, text + std::strlen(text), *value);
    return result.ec == std::errc() && !fails() ? 0 : failed;
}

int MonkeyHost::registerObserver(unsigned short parameter, unsigned short ch,
                                 IPrmObserver* observer)
{
    Cell* place = cell(parameter, ch);
    if (!place || fails())
        return failed;
    place->observers.push_back(observer);
    return 0;
}

// A host that kept an observer it was told to drop would call what is gone: even a failure drops
// it.
int MonkeyHost::unregisterObserver(unsigned short parameter, unsigned short ch,
                                   IPrmObserver* observer)
{
    Cell* place = cell(parameter, ch);
    if (!place)
        return failed;
    std::erase(place->observers, observer);
    return fails() ? failed : 0;
}

int MonkeyHost::queryMeterNotifier(IMeterNotifier** notifier)
{
    if (fails())
        return failed;
    *notifier = this;
    return 0;
}

void MonkeyHost::addMeterObserver(IMeterObserver* observer) { m_meters.push_back(observer); }

void MonkeyHost::removeMeterObserver(IMeterObserver* observer) { std::erase(m_meters, observer); }
