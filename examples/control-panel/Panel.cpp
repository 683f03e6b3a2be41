// SPDX-License-Identifier: GPL-3.0-or-later
#include "Panel.h"

#include "ui_Panel.h"

using CommonController_MemAPI::AbstractController;
using CommonController_MemAPI::FaderController;
using CommonController_MemAPI::KnobController;

namespace {

QPalette panelPalette()
{
    QPalette palette(QColor(0x1b, 0x26, 0x3b), QColor(0x15, 0x20, 0x2f));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(role, QColor(0xe0, 0xe1, 0xdd));
    palette.setColor(QPalette::Base, QColor(0x0d, 0x1b, 0x2a));
    palette.setColor(QPalette::Light, QColor(0xe0, 0x4f, 0x5f)); // overs
    palette.setColor(QPalette::Mid, QColor(0xf4, 0xd3, 0x5e));   // above -18 dB
    palette.setColor(QPalette::Dark, QColor(0x3b, 0xb2, 0x73));  // below
    return palette;
}

} // namespace

Panel::Panel(Memory& memory, QWidget* parent)
    : QWidget(parent)
    , m_memory(memory)
    , m_ui(new Ui::Panel)
{
    m_ui->setupUi(this);
    setPalette(panelPalette());
    setAutoFillBackground(true);
    m_ui->input->setTextList({tr("Microphone"), tr("Line"), tr("Instrument"), tr("Digital")});
    m_ui->name->setChannelName({});
    bindControls();
    connect(m_ui->gain, qOverload<int>(&KnobController::valueChanged), this, &Panel::showMeters);
    connect(m_ui->level, qOverload<int>(&FaderController::valueChanged), this, &Panel::showMeters);
    showMeters();
}

Panel::~Panel() = default;

void Panel::setTone(int tenths)
{
    m_tone = tenths;
    showMeters();
}

void Panel::bindControls()
{
    const auto bind = [this](AbstractController* control, ParameterId parameter) {
        control->setMemAPIValue(&m_memory, parameter, 0, 0);
    };
    bind(m_ui->gain, Gain);
    bind(m_ui->gainText, Gain);
    bind(m_ui->input, Input);
    bind(m_ui->mode, Mode);
    bind(m_ui->level, Level);
}

void Panel::showMeters()
{
    const int level = m_tone + m_memory.value(Gain) + m_memory.value(Level);
    m_ui->meterLeft->setValue(level);
    m_ui->meterRight->setValue(level);
}
