// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph/GraphBinding.h"

#include "effect/EffectEditor.h"
#include "equalizer/BandDesign.h"
#include "interfaces/IMemAPI.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace {

constexpr unsigned short Element = 0;
constexpr std::size_t SlotCount = 24;

/// The order in which a host is asked: band by band, the switch first, then the rest by number.
constexpr std::array<EqualizerParameter, SlotCount> slotsInOrder()
{
    std::array<EqualizerParameter, SlotCount> slots{};
    std::size_t next = 0;
    for (int band = 0; band < EqualizerBands::Count; ++band)
        for (const bool isSwitch : {true, false})
            for (const EqualizerParameter& parameter : equalizerParameters)
                if (parameter.band == band && (parameter.field == EqualizerField::On) == isSwitch)
                    slots[next++] = parameter;
    return slots;
}

constexpr std::array<EqualizerParameter, SlotCount> Slots = slotsInOrder();

} // namespace

GraphBinding::GraphBinding(EffectEditor* editor, IPrmObserver* observer)
    : m_editor(editor)
    , m_observer(observer)
{}

GraphBinding::~GraphBinding() { leave(); }

void GraphBinding::bind(IMemAPI* memory, unsigned short channel)
{
    leave();
    m_memory = memory;
    m_channel = channel;
    join();
}

std::optional<GraphBinding::Change> GraphBinding::receive(unsigned short parameter, int value)
{
    const auto found = std::find(m_parameters.begin(), m_parameters.end(), parameter);
    if (found == m_parameters.end())
        return std::nullopt;
    const auto slot = static_cast<std::size_t>(found - m_parameters.begin());
    const int band = Slots[slot].band;
    const Change change{band, m_bands[band]};
    if (store(slot, value) && Slots[slot].field != EqualizerField::On)
        m_bands.design(band);
    return change;
}

bool GraphBinding::hasField(int band, EqualizerField field) const
{
    if (band < 0 || band >= EqualizerBands::Count)
        return false;
    switch (field) {
    case EqualizerField::Quality:
        return EqualizerBands::isMiddle(band);
    case EqualizerField::Frequency:
        return true;
    case EqualizerField::Gain:
        return m_bands.hasGain(band);
    default:
        return false;
    }
}

std::optional<double> GraphBinding::stepSize(int band, EqualizerField field) const
{
    const std::optional<unsigned short> parameter =
        hasField(band, field) ? parameterId(band, field) : std::nullopt;
    const std::optional<Range> limits = parameter ? range(*parameter) : std::nullopt;
    if (!limits || limits->minimum >= limits->maximum)
        return std::nullopt;
    const double steps = static_cast<double>(limits->maximum) - limits->minimum;
    if (field == EqualizerField::Gain)
        return (BandDesign::gain(1.0F) - BandDesign::gain(0.0F)) / steps;
    if (field == EqualizerField::Frequency)
        return m_bands[band].frequency * (std::pow(10.0, BandDesign::FrequencyRatio / steps) - 1.0);
    return std::nullopt;
}

void GraphBinding::step(int band, EqualizerField field, int count)
{
    if (!hasField(band, field))
        return;
    const std::optional<unsigned short> parameter = parameterId(band, field);
    const std::optional<int> before = parameter ? value(*parameter) : std::nullopt;
    const std::optional<Range> limits = before ? range(*parameter) : std::nullopt;
    if (!limits || limits->minimum > limits->maximum)
        return;
    write(*parameter, static_cast<int>(std::clamp<std::int64_t>(std::int64_t{*before} + count,
                                                                limits->minimum, limits->maximum)));
}

void GraphBinding::set(int band, EqualizerField field, double value)
{
    if (!hasField(band, field))
        return;
    if (field == EqualizerField::Frequency)
        edit(band, {field, 0.0, BandDesign::frequencyPosition(value)});
    if (field == EqualizerField::Gain)
        edit(band, {field, 0.0, BandDesign::gainPosition(value)});
}

void GraphBinding::edit(int band, const Edit& edit)
{
    const std::optional<unsigned short> parameter = parameterId(band, edit.field);
    if (!parameter)
        return;
    if (edit.field == EqualizerField::Quality)
        shift(*parameter, edit.difference);
    else
        setPosition(*parameter, edit.position);
}

void GraphBinding::join()
{
    if (!m_memory)
        return;
    for (std::size_t slot = 0; slot < SlotCount; ++slot) {
        unsigned short parameter = 0;
        if (!m_editor->getParameter(Slots[slot].name, &parameter, nullptr))
            continue;
        m_parameters[slot] = parameter;
        if (const std::optional<int> current = value(parameter))
            store(slot, *current);
        m_memory->registerObserver(parameter, m_channel, m_observer);
    }
    m_bands.designAll();
}

void GraphBinding::leave()
{
    for (std::optional<unsigned short>& parameter : m_parameters) {
        if (parameter)
            m_memory->unregisterObserver(*parameter, m_channel, m_observer);
        parameter.reset();
    }
}

std::optional<unsigned short> GraphBinding::parameterId(int band, EqualizerField field) const
{
    for (std::size_t slot = 0; slot < SlotCount; ++slot)
        if (Slots[slot].band == band && Slots[slot].field == field)
            return m_parameters[slot];
    return std::nullopt;
}

std::optional<int> GraphBinding::value(unsigned short parameter) const
{
    int value = 0;
    if (m_memory->getValue(parameter, m_channel, &value, Element) < 0)
        return std::nullopt;
    return value;
}

std::optional<GraphBinding::Range> GraphBinding::range(unsigned short parameter) const
{
    Range range{};
    if (m_memory->getRange(parameter, m_channel, &range.minimum, &range.maximum) < 0)
        return std::nullopt;
    return range;
}

std::optional<float> GraphBinding::position(unsigned short parameter, int value) const
{
    const std::optional<Range> limits = range(parameter);
    if (!limits)
        return std::nullopt;
    return BandDesign::position(value, limits->minimum, limits->maximum);
}

bool GraphBinding::store(std::size_t slot, int value)
{
    Band& band = m_bands[Slots[slot].band];
    const auto convert = [&](double& field, double (*unit)(float)) {
        const std::optional<float> r = position(*m_parameters[slot], value);
        if (r)
            field = unit(*r);
        return r.has_value();
    };
    switch (Slots[slot].field) {
    case EqualizerField::On:
        band.on = value != 0;
        return true;
    case EqualizerField::Type:
        band.type = value;
        return true;
    case EqualizerField::Quality:
        return convert(band.quality, BandDesign::quality);
    case EqualizerField::Frequency:
        return convert(band.frequency, BandDesign::frequency);
    case EqualizerField::Gain:
        return convert(band.gain, BandDesign::gain);
    default:
        return false;
    }
}

void GraphBinding::shift(unsigned short parameter, double difference)
{
    const std::optional<int> before = value(parameter);
    if (!before)
        return;
    // The sum only has to fit an int.
    write(parameter,
          static_cast<int>(std::clamp<double>(*before + difference, std::numeric_limits<int>::min(),
                                              std::numeric_limits<int>::max())));
}

void GraphBinding::setPosition(unsigned short parameter, float position)
{
    if (const std::optional<Range> limits = range(parameter))
        write(parameter, BandDesign::rawValue(position, limits->minimum, limits->maximum));
}

void GraphBinding::write(unsigned short parameter, int value)
{
    if (m_memory)
        m_memory->setValue(parameter, m_channel, value, Element, 0, 1);
}
