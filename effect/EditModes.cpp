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

} // namespace

int knobEditMode(int hostMode)
{
    switch (hostMode) {
    case 1:
        return 2;
    case 2:
        return 1;
    default:
        return 0;
    }
}

int faderEditMode(int hostMode)
{
    switch (hostMode) {
    case 0:
        return 3;
    case 1:
        return 1;
    case 3:
        return 2;
    default:
        return 0;
    }
}

void setDialEditMode(QWidget* widget, int hostMode)
{
    const auto type = static_cast<KnobController::OperationType>(knobEditMode(hostMode));
    forEachWidgetOfTree(widget, [type](QWidget* member) {
        if (auto* knob = qobject_cast<KnobController*>(member))
            knob->setOperationType(type);
    });
}

void setSliderEditMode(QWidget* widget, int hostMode)
{
    const auto type = static_cast<FaderController::OperationType>(faderEditMode(hostMode));
    forEachWidgetOfTree(widget, [type](QWidget* member) {
        if (auto* fader = qobject_cast<FaderController*>(member))
            fader->setOperationType(type);
    });
}
