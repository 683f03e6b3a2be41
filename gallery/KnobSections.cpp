// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/KnobController.h"
#include "gallery/GalleryControls.h"
#include "gallery/GallerySection.h"
#include "gallery/GallerySections.h"

using namespace Gallery;
using CommonController_MemAPI::KnobController;

namespace {

constexpr QSize knobSize(60, 60);

KnobController* turningKnob(double scale = 1.0)
{
    auto* knob = new KnobController;
    knob->setKnobType(KnobController::RotateKnob);
    knob->setKnobSvg(artwork("knob_G.svg"));
    knob->setBackgroundSvg(artwork("knob_G_back.svg"));
    knob->setKnobDisableOpacity(disabledOpacity);
    return zoomed(knob, knobSize, scale);
}

KnobController* lineKnob(double position, double scale = 1.0)
{
    auto* knob = new KnobController;
    knob->setKnobSvg(image("knob.svg"));
    knob->setShadowSvg(image("knob_shadow.svg"));
    knob->setBackgroundSvg(image("knob_back.svg"));
    knob->setKnobDisableOpacity(disabledOpacity);
    knob->setOperationType(KnobController::Linear);
    knob->setInside(8.0);
    knob->setOutside(17.0);
    knob->setPalette(textPalette());
    setPosition(*knob, position);
    return zoomed(knob, knobSize, scale);
}

// The ground of the others would shine through the translucent picture.
KnobController* disabledTurningKnob()
{
    KnobController* knob = disabled(turningKnob());
    knob->setBackgroundSvg(image("knob_turning_disabled.svg"));
    return knob;
}

template <class Knob> Knob* bound(Knob* knob, HostMemory& memory, int channel, double position)
{
    bindAt(*knob, memory, "fx_rackfx_prm_2", channel, position);
    return knob;
}

void addTurningKnobs(GallerySection& section, HostMemory& memory)
{
    section.addRow(QStringLiteral("Turning picture, bound"));
    for (std::size_t i = 0; i < positions.size(); ++i)
        section.add(bound(turningKnob(), memory, static_cast<int>(i), positions[i]),
                    percent(positions[i]));
    section.add(bound(disabledTurningKnob(), memory, 5, 0.3), QStringLiteral("disabled"));
    for (const double scale : scales)
        section.add(bound(turningKnob(scale), memory, 6, 0.6), times(scale));
}

void addLineKnobs(GallerySection& section)
{
    section.addRow(QStringLiteral("Index line and shadow, unbound"));
    for (const double position : positions)
        section.add(lineKnob(position), percent(position));
    section.add(disabled(lineKnob(0.3)), QStringLiteral("disabled"));
    for (const double scale : scales)
        section.add(lineKnob(0.6, scale), times(scale));
}

KnobController* typeKnob(int value)
{
    auto* knob = new KnobController;
    knob->setKnobType(KnobController::RotateKnob);
    knob->setStartAngle(300.0);
    knob->setSpanAngle(120.0);
    knob->setKnobSvg(artwork("knob_QLH.svg"));
    knob->setBackgroundSvg(artwork("knob_QLH_back.svg"));
    knob->setMaximumValue(3);
    knob->setValue(value);
    return zoomed(knob, knobSize);
}

KnobController* blurredKnob(double blur)
{
    KnobController* knob = lineKnob(0.4);
    knob->setShadowBlur(blur);
    return knob;
}

KnobController* bareKnob()
{
    auto* knob = new KnobController;
    knob->setPalette(textPalette());
    setPosition(*knob, 0.75);
    return zoomed(knob, knobSize);
}

void addOtherKnobs(GallerySection& section)
{
    section.addRow(QStringLiteral("Other angles, focus, shadows"));
    for (int value = 0; value <= 3; ++value)
        section.add(typeKnob(value), QStringLiteral("type %1").arg(value));
    section.addFocused(lineKnob(0.5));
    for (const double blur : {0.0, 2.0, 8.0})
        section.add(blurredKnob(blur), QStringLiteral("blur %1").arg(blur));
    section.add(bareKnob(), QStringLiteral("no pictures"));
}

} // namespace

GallerySection* makeKnobSection(HostMemory& memory, QWidget* parent)
{
    auto* section = new GallerySection(QStringLiteral("KnobController"), parent);
    addTurningKnobs(*section, memory);
    addLineKnobs(*section);
    addOtherKnobs(*section);
    return section;
}
