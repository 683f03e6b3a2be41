// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/FaderController.h"
#include "gallery/GalleryControls.h"
#include "gallery/GallerySection.h"
#include "gallery/GallerySections.h"

using namespace Gallery;
using CommonController_MemAPI::FaderController;

namespace {

constexpr QSize faderSize(44, 160);

FaderController* fader(FaderController::OperationType type, double scale = 1.0)
{
    auto* result = new FaderController;
    result->setKnobSvg(image("fader_cap.svg"));
    result->setShadowSvg(image("fader_shadow.svg"));
    result->setBackgroundSvg(image("fader_track.svg"));
    result->setKnobDisableOpacity(disabledOpacity);
    result->setEnableDoubleClick(true);
    result->setOperationType(type);
    return zoomed(result, faderSize, scale);
}

FaderController* boundFader(HostMemory& memory, int channel, double position, double scale = 1.0)
{
    FaderController* result = fader(FaderController::Touch, scale);
    bindAt(*result, memory, "fx_rackfx_prm_25", channel, position);
    return result;
}

FaderController* wideFader(FaderController::OperationType type, double position)
{
    FaderController* result = fader(type);
    result->setOrientation(Qt::Horizontal);
    result->setKnobSvg(image("fader_cap_wide.svg"));
    result->setShadowSvg(image("fader_shadow_wide.svg"));
    result->setBackgroundSvg(image("fader_track_wide.svg"));
    setPosition(*result, position);
    return zoomed(result, faderSize.transposed());
}

FaderController* reversedFader(double position)
{
    FaderController* result = fader(FaderController::Touch);
    result->setReverse(true);
    setPosition(*result, position);
    return result;
}

} // namespace

GallerySection* makeFaderSection(HostMemory& memory, QWidget* parent)
{
    auto* section = new GallerySection(QStringLiteral("FaderController"), parent);
    section->addRow(QStringLiteral("Vertical, bound"));
    for (std::size_t i = 0; i < positions.size(); ++i)
        section->add(boundFader(memory, static_cast<int>(i), positions[i]), percent(positions[i]));
    section->add(disabled(boundFader(memory, 5, 0.3)), QStringLiteral("disabled"));
    section->add(reversedFader(0.25), QStringLiteral("reverse, 25 %"));
    for (const double scale : scales)
        section->add(boundFader(memory, 6, 0.6, scale), times(scale));
    section->addRow(QStringLiteral("Horizontal, unbound"));
    section->add(wideFader(FaderController::Touch, 0.0), QStringLiteral("touch"));
    section->add(wideFader(FaderController::Jump, 0.25), QStringLiteral("jump"));
    section->add(wideFader(FaderController::Ramp, 0.5), QStringLiteral("ramp"));
    section->add(wideFader(FaderController::Relative, 1.0), QStringLiteral("relative"));
    section->addFocused(wideFader(FaderController::Jump, 0.5));
    return section;
}
