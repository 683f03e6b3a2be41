// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/AccessibleNames.h"

#include "controls/AbstractController.h"
#include "editor/ParameterMap.h"

#include "ui_ZoltaEditor.h"

#include <QCoreApplication>

namespace {

constexpr char Context[] = "ZoltaEditor";

// In the order of equalizerParameters.
constexpr std::array<const char*, parameterCount> ParameterTitles = {
    QT_TRANSLATE_NOOP("ZoltaEditor", "Low type"),
    QT_TRANSLATE_NOOP("ZoltaEditor", "Low frequency"),
    QT_TRANSLATE_NOOP("ZoltaEditor", "Low gain"),
    QT_TRANSLATE_NOOP("ZoltaEditor", "Low band on"),
    QT_TRANSLATE_NOOP("ZoltaEditor", "Middle 1 quality"),
    QT_TRANSLATE_NOOP("ZoltaEditor", "Middle 1 frequency"),
    QT_TRANSLATE_NOOP("ZoltaEditor", "Middle 1 gain"),
    QT_TRANSLATE_NOOP("ZoltaEditor", "Middle 1 band on"),
    QT_TRANSLATE_NOOP("ZoltaEditor", "Middle 2 quality"),
    QT_TRANSLATE_NOOP("ZoltaEditor", "Middle 2 frequency"),
    QT_TRANSLATE_NOOP("ZoltaEditor", "Middle 2 gain"),
    QT_TRANSLATE_NOOP("ZoltaEditor", "Middle 2 band on"),
    QT_TRANSLATE_NOOP("ZoltaEditor", "Middle 3 quality"),
    QT_TRANSLATE_NOOP("ZoltaEditor", "Middle 3 frequency"),
    QT_TRANSLATE_NOOP("ZoltaEditor", "Middle 3 gain"),
    QT_TRANSLATE_NOOP("ZoltaEditor", "Middle 3 band on"),
    QT_TRANSLATE_NOOP("ZoltaEditor", "Middle 4 quality"),
    QT_TRANSLATE_NOOP("ZoltaEditor", "Middle 4 frequency"),
    QT_TRANSLATE_NOOP("ZoltaEditor", "Middle 4 gain"),
    QT_TRANSLATE_NOOP("ZoltaEditor", "Middle 4 band on"),
    QT_TRANSLATE_NOOP("ZoltaEditor", "High type"),
    QT_TRANSLATE_NOOP("ZoltaEditor", "High frequency"),
    QT_TRANSLATE_NOOP("ZoltaEditor", "High gain"),
    QT_TRANSLATE_NOOP("ZoltaEditor", "High band on"),
    QT_TRANSLATE_NOOP("ZoltaEditor", "Input level"),
    QT_TRANSLATE_NOOP("ZoltaEditor", "Output level"),
    QT_TRANSLATE_NOOP("ZoltaEditor", "Drive"),
};

QString unitOf(const EqualizerParameter& parameter)
{
    switch (parameter.field) {
    case EqualizerField::Frequency:
        return QStringLiteral("Hz");
    case EqualizerField::Gain:
    case EqualizerField::InputLevel:
    case EqualizerField::OutputLevel:
        return QStringLiteral("dB");
    default:
        return {};
    }
}

void name(QWidget* widget, const char* title)
{
    widget->setAccessibleName(QCoreApplication::translate(Context, title));
}

} // namespace

void nameControls(const Ui_ZoltaEditor& form)
{
    for (const ParameterRow& row : ParameterMap) {
        const char* title = ParameterTitles[static_cast<std::size_t>(row.parameter.number - 1)];
        if (row.knob)
            name(form.*row.knob, title);
        if (row.text)
            name(form.*row.text, title);
        if (row.button)
            name(form.*row.button, title);
        for (CommonController_MemAPI::AbstractController* control : row.controls(form))
            control->setUnit(unitOf(row.parameter));
    }
    name(form.m_pAboutButton, QT_TRANSLATE_NOOP("ZoltaEditor", "About Zolta"));
    name(form.m_pZoomPlusButton, QT_TRANSLATE_NOOP("ZoltaEditor", "Zoom the curve in"));
    name(form.m_pZoomMinusButton, QT_TRANSLATE_NOOP("ZoltaEditor", "Zoom the curve out"));
    name(form.m_pEqualizerSpectrumButton, QT_TRANSLATE_NOOP("ZoltaEditor", "Spectrum"));
    name(form.m_pFlatButton, QT_TRANSLATE_NOOP("ZoltaEditor", "Flat"));
    name(form.m_pInputStereoMeterL, QT_TRANSLATE_NOOP("ZoltaEditor", "Input meter, left"));
    name(form.m_pInputStereoMeterR, QT_TRANSLATE_NOOP("ZoltaEditor", "Input meter, right"));
    name(form.m_pInputMonoMeter, QT_TRANSLATE_NOOP("ZoltaEditor", "Input meter"));
    name(form.m_pOutputStereoMeterL, QT_TRANSLATE_NOOP("ZoltaEditor", "Output meter, left"));
    name(form.m_pOutputStereoMeterR, QT_TRANSLATE_NOOP("ZoltaEditor", "Output meter, right"));
    name(form.m_pOutputMonoMeter, QT_TRANSLATE_NOOP("ZoltaEditor", "Output meter"));
}
