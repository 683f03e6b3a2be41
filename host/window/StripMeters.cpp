// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/StripMeters.h"

#include "controls/PeakMeterController.h"
#include "host/window/MixerStyle.h"
#include "host/window/PeakDisplay.h"

#include <QPainter>

using namespace CommonController_MemAPI;

namespace {

constexpr int barGap = 2;
constexpr int displayHeight = 22;
constexpr int barsTop = displayHeight + 6;
constexpr int barsWidth = 16;
constexpr int scaleFontSize = 8;
constexpr int peakLight = 140; // per cent of the bar
// As beside the editor's meters, in dB.
constexpr int marks[] = {0, -3, -6, -9, -12, -15, -18, -24, -30, -40, -50, -60};

void setColors(QWidget* meter, const QColor& low, const QColor& high)
{
    QPalette palette;
    palette.setColor(QPalette::Dark, low);
    palette.setColor(QPalette::Mid, high);
    palette.setColor(QPalette::Light, MixerStyle::meterClipped);
    meter->setPalette(palette);
}

} // namespace

/// A bar that says where its levels are.
class StripMeters::Bar : public MeterController
{
public:
    using MeterController::MeterController;

    double positionOf(int level) const { return rectAbove(convertNormalized(level)).bottom(); }
};

StripMeters::StripMeters(QWidget* parent)
    : QWidget(parent)
    , m_display(new PeakDisplay(this))
{
    for (Side& side : m_sides) {
        side.bar = new Bar(this);
        side.peak = new PeakMeterController(this);
        setColors(side.bar, MixerStyle::meterLow, MixerStyle::meterHigh);
        setColors(side.peak, MixerStyle::meterLow.lighter(peakLight),
                  MixerStyle::meterHigh.lighter(peakLight));
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
    m_display->take(level);
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

double StripMeters::positionOf(int level) const
{
    const Bar& bar = *m_sides[0].bar;
    return bar.y() + bar.positionOf(level);
}

void StripMeters::resizeEvent(QResizeEvent*) { place(); }

void StripMeters::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    MixerStyle::drawWell(painter, well(), 3);
    QFont digits = font();
    digits.setPixelSize(scaleFontSize);
    painter.setFont(digits);
    for (const int mark : marks) {
        const double y = positionOf(10 * mark);
        const double right = well().left() - 4;
        painter.setPen(MixerStyle::dimLetters);
        painter.drawText(QRectF(0, y - 6, right - 1, 12), Qt::AlignRight | Qt::AlignVCenter,
                         QString::number(mark));
        painter.fillRect(QRectF(right, y - 0.5, 3, 1), MixerStyle::dimLetters);
    }
}

QRect StripMeters::well() const
{
    return {width() - barsWidth - 2 * barGap, barsTop - barGap, barsWidth + 2 * barGap,
            height() - barsTop};
}

void StripMeters::place()
{
    m_display->setGeometry(0, 0, width(), displayHeight);
    const QRect bars = well().adjusted(barGap, barGap, -barGap, -barGap);
    const int each = m_pair ? (bars.width() - barGap) / sides : bars.width();
    for (int i = 0; i < sides; ++i) {
        const Side& side = m_sides[static_cast<std::size_t>(i)];
        for (QWidget* part : std::initializer_list<QWidget*>{side.bar, side.peak}) {
            part->setGeometry(bars.left() + i * (each + barGap), bars.top(), each, bars.height());
            part->setVisible(i == 0 || m_pair);
        }
    }
}

#include "moc_StripMeters.cpp"
