// SPDX-License-Identifier: GPL-3.0-or-later
#include "effect/EditModes.h"

#include "controls/FaderController.h"
#include "controls/KnobController.h"
#include "effect/WidgetTree.h"

using CommonController_MemAPI::FaderController;
using CommonController_MemAPI::KnobController;

namespace {

template <typename Function> void forEachWidgetOfTree(QWidget* widget, Function function)
{
    function(widget);
    forEachChildWidget(widget, [=](QWidget* child) { forEachWidgetOfTree(child, function); });
}

/// The host numbers the modes differently from the controls, on purpose.
KnobController::OperationType knobMode(int hostMode)
{
    switch (hostMode) {
    case 1:
        return KnobController::RelativeCircular;
    case 2:
        return KnobController::Linear;
    default:
        return KnobController::Circular;
    }
}

FaderController::OperationType faderMode(int hostMode)
{
    switch (hostMode) {
    case 0:
        return FaderController::Relative;
    case 1:
        return FaderController::Jump;
    case 3:
        return FaderController::Ramp;
    default:
        return FaderController::Touch;
    }
}

} // namespace

void setDialEditMode(QWidget* widget, int hostMode)
{
    const KnobController::OperationType type = knobMode(hostMode);
    forEachWidgetOfTree(widget, [type](QWidget* member) {
        if (auto* knob = qobject_cast<KnobController*>(member))
            knob->setOperationType(type);
    });
}

void setSliderEditMode(QWidget* widget, int hostMode)
{
    const FaderController::OperationType type = faderMode(hostMode);
    forEachWidgetOfTree(widget, [type](QWidget* member) {
        if (auto* fader = qobject_cast<FaderController*>(member))
            fader->setOperationType(type);
    });
}
