// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/StripMeters.h"

#include "controls/PeakMeterController.h"

using namespace CommonController_MemAPI;

namespace {

constexpr int gap = 2;

void setColors(QWidget* meter, const QColor& low, const QColor& high)
{
    QPalette palette;
    palette.setColor(QPalette::Dark, low);
    palette.setColor(QPalette::Mid, high);
    palette.setColor(QPalette::Light, QColor(0xff, 0x4a, 0x48));
    meter->setPalette(palette);
}

} // namespace

StripMeters::StripMeters(QWidget* parent)
    : QWidget(parent)
{
    for (Side& side : m_sides) {
        side.bar = new MeterController(this);
        side.peak = new PeakMeterController(this);
        setColors(side.bar, QColor(0x1f, 0xb0, 0x4e), QColor(0xe3, 0xc2, 0x2e));
        setColors(side.peak, QColor(0x8f, 0xf0, 0xac), QColor(0xff, 0xee, 0x99));
    }
    place();
}

void StripMeters::setPair(bool pair)
{
    m_pair = pair;
    place();
}

void StripMeters::show(int side, int level)
{
    Side& meter = m_sides[static_cast<std::size_t>(side)];
    meter.bar->setValue(level);
    if (++meter.held <= peakHold && level < meter.peak->value())
        return;
    meter.peak->setValue(level);
    meter.held = 0;
}

void StripMeters::setNames(int side, const QString& bar, const QString& peak)
{
    const Side& meter = m_sides[static_cast<std::size_t>(side)];
    meter.bar->setAccessibleName(bar);
    meter.peak->setAccessibleName(peak);
}

void StripMeters::resizeEvent(QResizeEvent*) { place(); }

void StripMeters::place()
{
    const int each = m_pair ? (width() - gap) / sides : width();
    for (int i = 0; i < sides; ++i) {
        const Side& side = m_sides[static_cast<std::size_t>(i)];
        for (QWidget* part : std::initializer_list<QWidget*>{side.bar, side.peak}) {
            part->setGeometry(i * (each + gap), 0, each, height());
            part->setVisible(i == 0 || m_pair);
        }
    }
}

#include "moc_StripMeters.cpp"
