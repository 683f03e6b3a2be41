// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph/HandleKeys.h"

namespace {

constexpr int LargeStep = 10;

std::optional<HandleKeys::Step> unitStep(int key)
{
    using Field = EqualizerField;
    switch (key) {
    case Qt::Key_Left:
        return HandleKeys::Step{Field::Frequency, -1};
    case Qt::Key_Right:
        return HandleKeys::Step{Field::Frequency, 1};
    case Qt::Key_Down:
        return HandleKeys::Step{Field::Gain, -1};
    case Qt::Key_Up:
        return HandleKeys::Step{Field::Gain, 1};
    case Qt::Key_PageDown:
        return HandleKeys::Step{Field::Quality, -1};
    case Qt::Key_PageUp:
        return HandleKeys::Step{Field::Quality, 1};
    default:
        return std::nullopt;
    }
}

} // namespace

std::optional<HandleKeys::Step> HandleKeys::step(int key, Qt::KeyboardModifiers modifiers)
{
    const Qt::KeyboardModifiers held = modifiers & ~Qt::KeyboardModifiers(Qt::KeypadModifier);
    if (held != Qt::NoModifier && held != Qt::ShiftModifier)
        return std::nullopt;
    std::optional<Step> step = unitStep(key);
    if (step && held == Qt::ShiftModifier)
        step->count *= LargeStep;
    return step;
}
