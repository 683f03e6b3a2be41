// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/MeterController.h"
#include "controls/PeakMeterController.h"
#include "controls/RoundGainReductionMeterController.h"
#include "controls/RoundMeterController.h"
#include "gallery/GalleryControls.h"
#include "gallery/GallerySection.h"
#include "gallery/GallerySections.h"

#include <QHBoxLayout>

using namespace Gallery;
using CommonController_MemAPI::MeterController;
using CommonController_MemAPI::PeakMeterController;
using CommonController_MemAPI::RoundGainReductionMeterController;
using CommonController_MemAPI::RoundMeterController;

namespace {

constexpr QSize meterSize(12, 110);
/// Tenths of a dB: silence, the scale's start, the zones' border, full, over.
constexpr std::array<int, 7> levels = {-1270, -600, -300, -180, -60, 0, 1};
constexpr std::array<int, 5> reductions = {0, -10, -60, -180, -600};

template <class Meter> Meter* meter(int level, double scale = 1.0)
{
    auto* result = new Meter;
    result->setPalette(meterPalette());
    result->setValue(level);
    return zoomed(result, meterSize, scale);
}

/// On the dark ground that a meter without a background of its own has in an editor.
template <class Meter> Meter* framed(Meter* result)
{
    QPalette palette = result->palette();
    palette.setColor(QPalette::Window, 0xFF0B0D10);
    result->setPalette(palette);
    result->setAutoFillBackground(true);
    return result;
}

template <class Meter>
Meter* boundMeter(HostMemory& memory, const char* name, int channel, double position)
{
    Meter* result = meter<Meter>(0);
    bindAt(*result, memory, name, channel, position);
    return result;
}

MeterController* typed(MeterController::MeterType type)
{
    MeterController* result = framed(meter<MeterController>(-200));
    result->setMeterType(type);
    return result;
}

template <class Meter> void addLevels(GallerySection& section, bool frame)
{
    for (const int level : levels) {
        Meter* each = meter<Meter>(level);
        section.add(frame ? framed(each) : each, decibels(level));
    }
}

template <class Meter> void addScales(GallerySection& section, int level, bool frame)
{
    for (const double scale : scales) {
        Meter* each = meter<Meter>(level, scale);
        section.add(frame ? framed(each) : each, times(scale));
    }
}

} // namespace

GallerySection* makeMeterSection(HostMemory& memory, QWidget* parent)
{
    auto* section =
        new GallerySection(QStringLiteral("MeterController, PeakMeterController"), parent);
    section->addRow(QStringLiteral("Bar, unbound"));
    addLevels<MeterController>(*section, true);
    section->add(typed(MeterController::Minus600), QStringLiteral("-600"));
    section->add(typed(MeterController::Minus480), QStringLiteral("-480"));
    section->add(typed(MeterController::Minus225), QStringLiteral("-225"));
    section->add(disabled(framed(meter<MeterController>(-60))), QStringLiteral("disabled"));
    section->add(framed(boundMeter<MeterController>(memory, "fx_rackfx_prm_26", 0, 0.3)),
                 QStringLiteral("bound"));
    addScales<MeterController>(*section, 1, true);
    section->addRow(QStringLiteral("Peak, unbound"));
    addLevels<PeakMeterController>(*section, true);
    section->add(disabled(framed(meter<PeakMeterController>(-60))), QStringLiteral("disabled"));
    section->add(framed(boundMeter<PeakMeterController>(memory, "fx_rackfx_prm_26", 0, 0.3)),
                 QStringLiteral("bound"));
    addScales<PeakMeterController>(*section, -60, true);
    return section;
}

GallerySection* makeRoundMeterSection(HostMemory& memory, QWidget* parent)
{
    auto* section = new GallerySection(
        QStringLiteral("RoundMeterController, RoundGainReductionMeterController"), parent);
    section->addRow(QStringLiteral("Level, unbound"));
    addLevels<RoundMeterController>(*section, false);
    section->add(disabled(meter<RoundMeterController>(-60)), QStringLiteral("disabled"));
    section->add(boundMeter<RoundMeterController>(memory, "fx_rackfx_prm_26", 0, 0.3),
                 QStringLiteral("bound"));
    addScales<RoundMeterController>(*section, 1, false);
    section->addRow(QStringLiteral("Gain reduction, unbound"));
    for (const int level : reductions)
        section->add(meter<RoundGainReductionMeterController>(level), decibels(level));
    section->add(disabled(meter<RoundGainReductionMeterController>(-60)),
                 QStringLiteral("disabled"));
    section->add(boundMeter<RoundGainReductionMeterController>(memory, "fx_rackfx_prm_26", 0, 0.3),
                 QStringLiteral("bound"));
    addScales<RoundGainReductionMeterController>(*section, -60, false);
    return section;
}
