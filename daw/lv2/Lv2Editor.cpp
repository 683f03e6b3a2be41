// SPDX-License-Identifier: GPL-3.0-or-later
#include "daw/lv2/Lv2Editor.h"

#include "daw/lv2/Turtle.h"
#include "parameters/ParameterScale.h"

#include <algorithm>
#include <cmath>
#include <utility>

Lv2Editor::Lv2Editor(std::size_t channels, Host host, const EmbeddedEditor::Options& options)
    : m_ports(portsOf(channels))
    , m_host(std::move(host))
    , m_window(*this, options)
{}

void Lv2Editor::setPort(std::uint32_t index, float value)
{
    if (index >= m_ports.size() || std::isnan(value))
        return;
    const auto [role, number] = m_ports[index];
    const auto side = static_cast<int>(number);
    if (role == PortRole::Parameter)
        m_window.setValue(number, stepOf(parameterTable[number].kind, double{value}));
    else if (role == PortRole::InputMeter || role == PortRole::OutputMeter)
        m_window.setMeter(
            static_cast<MeterPlace>((role == PortRole::InputMeter ? InLeft : OutLeft) + side),
            static_cast<int>(
                std::lround(std::clamp(value, float{lowestMeter}, float{highestMeter}) * 10.0F)));
}

void Lv2Editor::beginEdit(std::size_t parameter) { m_host.touch(portOf(parameter), true); }

void Lv2Editor::edit(std::size_t parameter, int value)
{
    m_host.write(portOf(parameter), portValue(parameter, value));
}

void Lv2Editor::endEdit(std::size_t parameter) { m_host.touch(portOf(parameter), false); }

std::uint32_t Lv2Editor::portOf(std::size_t parameter) const
{
    const auto port =
        std::find(m_ports.begin(), m_ports.end(), Port{PortRole::Parameter, parameter});
    return static_cast<std::uint32_t>(port - m_ports.begin());
}
