// SPDX-License-Identifier: GPL-3.0-or-later
#include "designer/ControlTable.h"

#include "controls/ButtonGroupController.h"
#include "controls/FaderController.h"
#include "controls/KnobController.h"
#include "controls/MeterController.h"
#include "controls/PeakMeterController.h"
#include "controls/PullDownButtonController.h"
#include "controls/PushButtonController.h"
#include "controls/RoundGainReductionMeterController.h"
#include "controls/RoundMeterController.h"
#include "controls/TextEditController.h"
#include "widgets/ChannelNameEdit.h"
#include "widgets/SvgLabel.h"

using namespace CommonController_MemAPI;

namespace {

template <class Control> QWidget* make(QWidget* parent) { return new Control(parent); }

constexpr QSize meterSize(12, 160);

const ControlEntry table[] = {
    {&KnobController::staticMetaObject, "controls/KnobController.h", "knob", "Knob",
     "A rotary knob over one parameter", "knob", QSize(60, 60), make<KnobController>},
    {&FaderController::staticMetaObject, "controls/FaderController.h", "fader", "Fader",
     "A linear fader over one parameter", "fader", QSize(44, 160), make<FaderController>},
    {&TextEditController::staticMetaObject, "controls/TextEditController.h", "textEdit",
     "Value Field", "A parameter as text, to be dragged or typed over", "text_edit", QSize(56, 16),
     make<TextEditController>},
    {&PushButtonController::staticMetaObject, "controls/PushButtonController.h", "pushButton",
     "Button", "A switch or a momentary button over one parameter", "push_button", QSize(28, 28),
     make<PushButtonController>},
    {&PullDownButtonController::staticMetaObject, "controls/PullDownButtonController.h",
     "pullDownButton", "Pull-Down Button", "A button that chooses a value from a menu", "pull_down",
     QSize(120, 26), make<PullDownButtonController>},
    {&ButtonGroupController::staticMetaObject, "controls/ButtonGroupController.h", "buttonGroup",
     "Button Group", "A container whose buttons choose a value", "button_group", QSize(160, 40),
     make<ButtonGroupController>, true},
    {&MeterController::staticMetaObject, "controls/MeterController.h", "meter", "Meter",
     "A level meter with an over indicator", "meter", meterSize, make<MeterController>},
    {&PeakMeterController::staticMetaObject, "controls/PeakMeterController.h", "peakMeter",
     "Peak Meter", "A level meter that shows a thin segment", "peak_meter", meterSize,
     make<PeakMeterController>},
    {&RoundMeterController::staticMetaObject, "controls/RoundMeterController.h", "roundMeter",
     "Round Meter", "A level meter of rounded shapes", "round_meter", meterSize,
     make<RoundMeterController>},
    {&RoundGainReductionMeterController::staticMetaObject,
     "controls/RoundGainReductionMeterController.h", "gainReductionMeter", "Gain Reduction Meter",
     "A round meter of a gain reduction", "gain_reduction_meter", meterSize,
     make<RoundGainReductionMeterController>},
    {&SvgLabel::staticMetaObject, "widgets/SvgLabel.h", "svgLabel", "SVG Label",
     "A label that shows an SVG picture", "svg_label", QSize(40, 40), make<SvgLabel>},
    {&ChannelNameEdit::staticMetaObject, "widgets/ChannelNameEdit.h", "channelNameEdit",
     "Channel Name", "A name that a double click opens for editing", "channel_name_edit",
     QSize(110, 24), make<ChannelNameEdit>},
};

} // namespace

std::span<const ControlEntry> controlTable() { return table; }
