// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/ZoltaEditor.h"

#include "equalizer/EqualizerParameters.h"

#include <QPointer>
#include <QTimerEvent>

#include <algorithm>
#include <vector>

using enum EqualizerField;

namespace {

constexpr int FlatHoldMilliseconds = 1000;
constexpr int LowBand = 0;
constexpr int HighBand = 5;

/// What holding the button resets, one after the other; Drive is left alone.
const std::vector<std::vector<EqualizerField>> HoldOrder = {
    {InputLevel}, {OutputLevel}, {On}, {Gain}, {Frequency}, {Type, Quality}};

} // namespace

void ZoltaEditor::beginFlat()
{
    const QPointer<ZoltaEditor> self(this);
    resetFields({Gain});
    for (const int band : {LowBand, HighBand}) {
        if (self && bandIsOn(band))
            resetParameter(equalizerParameters[parameterIndex(band, Type)]);
    }
    if (!self)
        return;
    endFlat();
    m_flatTimerId = startTimer(FlatHoldMilliseconds, Qt::CoarseTimer);
}

void ZoltaEditor::endFlat()
{
    if (m_flatTimerId == 0)
        return;
    killTimer(m_flatTimerId);
    m_flatTimerId = 0;
}

void ZoltaEditor::timerEvent(QTimerEvent* event)
{
    if (m_flatTimerId == 0 || event->timerId() != m_flatTimerId) {
        EffectEditor::timerEvent(event);
        return;
    }
    endFlat();
    const QPointer<ZoltaEditor> self(this);
    for (const std::vector<EqualizerField>& fields : HoldOrder) {
        if (self)
            resetFields(fields);
    }
}

bool ZoltaEditor::bandIsOn(int band)
{
    return parameterValue(equalizerParameters[parameterIndex(band, On)]).value_or(0) != 0;
}

void ZoltaEditor::resetFields(const std::vector<EqualizerField>& fields)
{
    const QPointer<ZoltaEditor> self(this);
    for (const EqualizerParameter& parameter : equalizerParameters) {
        if (self && std::find(fields.begin(), fields.end(), parameter.field) != fields.end())
            resetParameter(parameter);
    }
}
