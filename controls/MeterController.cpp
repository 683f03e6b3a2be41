// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/MeterController.h"

#include "controls/ControlAccessible.h"
#include "controls/MeterConverter.h"
#include "controls/RoundShapes.h"

#include <QCoreApplication>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace CommonController_MemAPI {

namespace {

constexpr int Silence = -1270;
constexpr int LargestLevel = 8191;
constexpr int UpperZone = -180;

constexpr int ScaleSegments = 53;
constexpr int FullSegments = 51;

/// How many segments lie below the scale's beginning.
int segmentOffset(MeterController::MeterType type)
{
    switch (type) {
    case MeterController::Minus480:
        return 4;
    case MeterController::Minus225:
        return 20;
    default:
        return 0;
    }
}

/// A meter can be read but not operated.
class MeterAccessible final : public ControlAccessible
{
public:
    explicit MeterAccessible(MeterController* meter)
        : ControlAccessible(meter, meter, QAccessible::ProgressBar)
    {}

    QAccessible::State state() const override
    {
        QAccessible::State state = ControlAccessible::state();
        state.readOnly = true;
        return state;
    }

    void setCurrentValue(const QVariant&) override {}
    QStringList actionNames() const override { return QAccessibleWidget::actionNames(); }
    void doAction(const QString& name) override { QAccessibleWidget::doAction(name); }

protected:
    ~MeterAccessible() override = default;

    QString valueText() const override
    {
        if (!controller()->string().isEmpty())
            return ControlAccessible::valueText();
        return QCoreApplication::translate("CommonController_MemAPI", "%1 dB")
            .arg(controller()->value() / 10.0, 0, 'f', 1);
    }
};

} // namespace

MeterController::MeterController(QWidget* parent)
    : QWidget(parent)
{
    setMinimumValue(Silence);
    setMaximumValue(LargestLevel);
    setValue(Silence);
    registerAccessible(staticMetaObject, [](QWidget* meter) -> QAccessibleInterface* {
        return new MeterAccessible(static_cast<MeterController*>(meter));
    });
}

MeterController::~MeterController() { unbind(); }

void MeterController::setScale(double scale)
{
    if (storeScale(scale))
        update();
}

void MeterController::setMemAPIValue(IMemAPI* memAPI, unsigned short parameter, unsigned short ch,
                                     unsigned short index)
{
    bind(memAPI, parameter, ch, index);
}

void MeterController::setMeterLeftMargin(int pixels) { setAndRepaint(m_leftMargin, pixels); }

void MeterController::setMeterRightMargin(int pixels) { setAndRepaint(m_rightMargin, pixels); }

void MeterController::setMeterTopMargin(int pixels) { setAndRepaint(m_topMargin, pixels); }

void MeterController::setMeterBottomMargin(int pixels) { setAndRepaint(m_bottomMargin, pixels); }

void MeterController::setMeterOverMargin(int pixels) { setAndRepaint(m_overMargin, pixels); }

void MeterController::setMeterOverHeight(int pixels) { setAndRepaint(m_overHeight, pixels); }

void MeterController::setMeterType(MeterType type) { setAndRepaint(m_type, type); }

void MeterController::valueChanged()
{
    const std::optional<int> now = isBound() ? std::nullopt : std::optional(value());
    const std::optional<int> before = std::exchange(m_shownValue, now);
    if (before && now)
        update(changedRegion(*before, *now));
    else
        update();
}

void MeterController::valueChangedRequest()
{
    valueChanged();
    const int now = value();
    announceValue(this, now);
    Q_EMIT valueChanged(now);
}

void MeterController::drawBackground(QPainter*) {}

void MeterController::drawOver(QPainter* painter)
{
    painter->fillRect(scaledOverRect(), brush(QPalette::Light));
}

void MeterController::drawMeter(QPainter* painter)
{
    const QRectF bar = scaledMeterRect();
    const double lit = bar.height() * convertNormalized(m_paintedValue);
    painter->setClipRect(QRectF(bar.x() - 1, bar.bottom() - lit, bar.width() + 2, lit),
                         Qt::IntersectClip);
    // On a pixel edge, so that the ground does not show through between the zones.
    QRectF upper = rectAbove(upperZoneStart());
    upper.setBottom(RoundShapes::snapped(*painter, upper).bottom());
    painter->fillRect(upper, brush(QPalette::Mid));
    painter->fillRect(QRectF(upper.bottomLeft(), bar.bottomRight()), brush(QPalette::Dark));
}

QRegion MeterController::changedRegion(int from, int to) const
{
    const QRegion bar = touchedPixels(rectBetween(from, to));
    return (from > 0) == (to > 0) ? bar : bar | touchedPixels(scaledOverRect());
}

void MeterController::paintEvent(QPaintEvent*)
{
    readPaintedValue();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.save();
    drawBackground(&painter);
    painter.restore();
    if (m_paintedValue > 0) {
        painter.save();
        drawOver(&painter);
        painter.restore();
    }
    painter.save();
    drawMeter(&painter);
    painter.restore();
}

QRectF MeterController::scaledOverRect() const
{
    return {m_leftMargin * scale(), m_topMargin * scale(),
            width() - (double(m_leftMargin) + m_rightMargin) * scale(), m_overHeight * scale()};
}

QRectF MeterController::scaledMeterRect() const
{
    const double top = (double(m_topMargin) + m_overHeight + m_overMargin) * scale();
    return {m_leftMargin * scale(), top, width() - (double(m_leftMargin) + m_rightMargin) * scale(),
            height() - top - m_bottomMargin * scale()};
}

double MeterController::convertNormalized(int value) const
{
    unsigned short segment = 0;
    if (!MeterConverter::convertDB2SegNum(ScaleSegments, static_cast<unsigned int>(value), segment))
        return 0.0;
    const int offset = segmentOffset(m_type);
    return std::clamp(double(segment - offset) / (FullSegments - offset), 0.0, 1.0);
}

double MeterController::upperZoneStart() const { return convertNormalized(UpperZone); }

QRectF MeterController::rectAbove(double fraction) const
{
    QRectF above = scaledMeterRect();
    above.setHeight(above.height() * (1.0 - fraction));
    return above;
}

QRectF MeterController::rectBetween(int from, int to) const
{
    const auto [lower, higher] = std::minmax({convertNormalized(from), convertNormalized(to)});
    QRectF between = rectAbove(lower);
    between.setTop(rectAbove(higher).bottom());
    return between;
}

QRegion MeterController::touchedPixels(const QRectF& shape)
{
    return shape.isEmpty() ? QRegion() : shape.adjusted(0, -1, 0, 1).toAlignedRect();
}

int MeterController::readPaintedValue() { return m_paintedValue = value(); }

const QBrush& MeterController::brush(QPalette::ColorRole role) const
{
    const QPalette::ColorGroup enabledGroup = hasFocus() ? QPalette::Active : QPalette::Inactive;
    return palette().brush(isEnabled() ? enabledGroup : QPalette::Disabled, role);
}

} // namespace CommonController_MemAPI

#include "moc_MeterController.cpp"
