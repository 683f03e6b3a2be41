// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/ZoltaEditor.h"

#include "editor/LedMeterSvgTable.h"
#include "interfaces/IMemAPI.h"
#include "interfaces/IMeterNotifier.h"

#include "ui_ZoltaEditor.h"

#include <cstdint>

void ZoltaEditor::notifyMeterLvlUpdated(unsigned int*, unsigned int) {}

void ZoltaEditor::notifyMeterDbUpdated(unsigned int* values, unsigned int count)
{
    if (const auto level = meterValue("meter_oxa_snd", m_primaryCh, values, count)) {
        m_ui->m_pInputMonoMeter->setValue(*level);
        m_ui->m_pInputStereoMeterL->setValue(*level);
    }
    if (const auto level = meterValue("meter_oxa_snd", m_secondaryCh, values, count))
        m_ui->m_pInputStereoMeterR->setValue(*level);
    if (const auto level = meterValue("meter_oxa_rtn", m_primaryCh, values, count)) {
        setLedMeterL(*level);
        m_ui->m_pOutputMonoMeter->setValue(*level);
        m_ui->m_pOutputStereoMeterL->setValue(*level);
    }
    if (const auto level = meterValue("meter_oxa_rtn", m_secondaryCh, values, count)) {
        setLedMeterR(*level);
        m_ui->m_pOutputStereoMeterR->setValue(*level);
    }
}

void ZoltaEditor::setLedMeterL(int value)
{
    const QString svg = ledMeterSvg(value);
    if (svg.isEmpty())
        return;
    m_ui->m_pLedMonoMeter->setSvg(svg);
    m_ui->m_pLedStereoMeterL->setSvg(svg);
}

void ZoltaEditor::setLedMeterR(int value)
{
    const QString svg = ledMeterSvg(value);
    if (!svg.isEmpty())
        m_ui->m_pLedStereoMeterR->setSvg(svg);
}

void ZoltaEditor::setMeterObserver(bool registered)
{
    IMeterNotifier* notifier = nullptr;
    if (!m_memAPI || m_memAPI->queryMeterNotifier(&notifier) < 0 || !notifier)
        notifier = registered ? nullptr : m_meterNotifier;
    m_meterNotifier = registered ? notifier : nullptr;
    if (!notifier)
        return;
    if (registered)
        notifier->addMeterObserver(this);
    else
        notifier->removeMeterObserver(this);
}

std::optional<int> ZoltaEditor::meterValue(const char* name, int ch, const unsigned int* values,
                                           unsigned int count)
{
    unsigned short index = 0;
    if (!values || ch < 0 || !getMeterIndex(name, static_cast<unsigned short>(ch), false, &index) ||
        index >= count)
        return {};
    return static_cast<std::int16_t>(values[index]);
}
