// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph/ZoltaEqualizerGraph.h"

#include "effect/EffectEditor.h"
#include "equalizer/BandDesign.h"
#include "graph/EqualizerGraphAccessible.h"
#include "graph/GraphAnnouncements.h"
#include "graph/HandleKeys.h"
#include "interfaces/IMemAPI.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <tuple>
#include <utility>

namespace {

constexpr unsigned short Element = 0;

int bandOf(ZoltaEqualizerGraph::EditTarget target) { return target - 1; }

bool isBand(ZoltaEqualizerGraph::EditTarget target)
{
    return target >= ZoltaEqualizerGraph::EditTargetLow &&
           target <= ZoltaEqualizerGraph::EditTargetHigh;
}

/// Whether focus that goes for \a reason comes back by itself.
bool isTemporary(Qt::FocusReason reason)
{
    return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason;
}

} // namespace

const std::array<ZoltaEqualizerGraph::Slot, 24> ZoltaEqualizerGraph::Slots = {{
    {"fx_rackfx_prm_4", 0, Field::On},         {"fx_rackfx_prm_1", 0, Field::Type},
    {"fx_rackfx_prm_2", 0, Field::Frequency},  {"fx_rackfx_prm_3", 0, Field::Gain},
    {"fx_rackfx_prm_8", 1, Field::On},         {"fx_rackfx_prm_5", 1, Field::Quality},
    {"fx_rackfx_prm_6", 1, Field::Frequency},  {"fx_rackfx_prm_7", 1, Field::Gain},
    {"fx_rackfx_prm_12", 2, Field::On},        {"fx_rackfx_prm_9", 2, Field::Quality},
    {"fx_rackfx_prm_10", 2, Field::Frequency}, {"fx_rackfx_prm_11", 2, Field::Gain},
    {"fx_rackfx_prm_16", 3, Field::On},        {"fx_rackfx_prm_13", 3, Field::Quality},
    {"fx_rackfx_prm_14", 3, Field::Frequency}, {"fx_rackfx_prm_15", 3, Field::Gain},
    {"fx_rackfx_prm_20", 4, Field::On},        {"fx_rackfx_prm_17", 4, Field::Quality},
    {"fx_rackfx_prm_18", 4, Field::Frequency}, {"fx_rackfx_prm_19", 4, Field::Gain},
    {"fx_rackfx_prm_24", 5, Field::On},        {"fx_rackfx_prm_21", 5, Field::Type},
    {"fx_rackfx_prm_22", 5, Field::Frequency}, {"fx_rackfx_prm_23", 5, Field::Gain},
}};

ZoltaEqualizerGraph::ZoltaEqualizerGraph(EffectEditor* editor)
    : QWidget(editor)
    , m_editor(editor)
{
    EqualizerGraphAccessible::install();
}

ZoltaEqualizerGraph::~ZoltaEqualizerGraph() { unregisterParameters(); }

void ZoltaEqualizerGraph::setMemAPI(IMemAPI* memAPI)
{
    unregisterParameters();
    m_memAPI = memAPI;
    registerParameters();
    update();
}

void ZoltaEqualizerGraph::setCh(int ch)
{
    const auto channel = static_cast<unsigned short>(ch);
    if (channel == m_ch)
        return;
    unregisterParameters();
    m_ch = channel;
    registerParameters();
    update();
}

void ZoltaEqualizerGraph::setFs(int fs)
{
    if (fs == m_bands.sampleRate())
        return;
    m_bands.setSampleRate(fs);
    update();
}

void ZoltaEqualizerGraph::setEditTarget(EditTarget target)
{
    if (target == m_editTarget)
        return;
    m_editTarget = target;
    update();
}

void ZoltaEqualizerGraph::setZoom(int index)
{
    if (index < 0 || index >= static_cast<int>(ZoomRangeList.size()))
        return;
    m_zoom = index;
    update();
}

void ZoltaEqualizerGraph::zoomUp() { setZoom(m_zoom + 1); }

void ZoltaEqualizerGraph::zoomDown() { setZoom(m_zoom - 1); }

ZoltaEqualizerGraph::EditTarget ZoltaEqualizerGraph::getPointTarget(const QPoint& point) const
{
    const PlotAxes plot = axes();
    if (!plot.contains(point.x(), point.y()))
        return EditTargetNone;

    EditTarget nearest = EditTargetNone;
    double best = 10000.0 * plot.unit();
    for (int i = EditTargetLow; i <= EditTargetHigh; ++i) {
        const auto target = static_cast<EditTarget>(i);
        const QPointF away = getTargetPoint(target) - point;
        const double distance = std::hypot(away.x(), away.y());
        if (m_bands[bandOf(target)].on && distance < best) {
            best = distance;
            nearest = target;
        }
    }
    return nearest;
}

QPointF ZoltaEqualizerGraph::getTargetPoint(EditTarget target) const
{
    return isBand(target) ? EqualizerGraphPainter::handle(m_bands, bandOf(target), axes())
                          : QPointF();
}

ZoltaEqualizerGraph::DragMode
ZoltaEqualizerGraph::getDragMode(Qt::KeyboardModifiers modifiers) const
{
    if (!isBand(m_grabbedTarget))
        return DragModeNone;
    const int band = bandOf(m_grabbedTarget);
    if (!m_bands[band].on)
        return DragModeNone;

    if (modifiers == Qt::ShiftModifier)
        return EqualizerBands::isMiddle(band) ? DragModeQuality : DragModeNone;
    if (modifiers == Qt::ControlModifier)
        return m_bands.hasGain(band) ? DragModeGain : DragModeNone;
    if (modifiers == Qt::AltModifier)
        return DragModeFrequency;
    return m_bands.hasGain(band) ? DragModeFrequencyGain : DragModeFrequency;
}

QRectF ZoltaEqualizerGraph::handleRect(EditTarget target) const
{
    if (!isBand(target) || !m_bands[bandOf(target)].on)
        return {};
    return EqualizerGraphPainter::markRect(m_bands, bandOf(target), axes());
}

bool ZoltaEqualizerGraph::focusHandle(EditTarget target)
{
    if (!isBand(target) || !m_bands[bandOf(target)].on || !isEnabled())
        return false;
    markHandle(target);
    setFocus(Qt::TabFocusReason);
    if (hasFocus())
        GraphAnnouncements::focused(this, bandOf(target));
    return true;
}

ZoltaEqualizerGraph::EditTarget ZoltaEqualizerGraph::focusedHandle() const
{
    return window()->focusWidget() == this ? m_focusedHandle : EditTargetNone;
}

bool ZoltaEqualizerGraph::hasField(EditTarget target, Field field) const
{
    if (!isBand(target))
        return false;
    if (field == Field::Quality)
        return EqualizerBands::isMiddle(bandOf(target));
    return field == Field::Frequency || (field == Field::Gain && m_bands.hasGain(bandOf(target)));
}

void ZoltaEqualizerGraph::stepHandle(EditTarget target, Field field, int count)
{
    if (!hasField(target, field))
        return;
    const std::optional<unsigned short> parameter = parameterId(bandOf(target), field);
    int value = 0;
    if (!parameter || m_memAPI->getValue(*parameter, m_ch, &value, Element) < 0)
        return;
    const std::optional<Range> limits = range(*parameter);
    if (!limits || limits->minimum > limits->maximum)
        return;
    write(*parameter, static_cast<int>(std::clamp<std::int64_t>(std::int64_t{value} + count,
                                                                limits->minimum, limits->maximum)));
}

void ZoltaEqualizerGraph::setHandle(EditTarget target, Field field, double value)
{
    if (!hasField(target, field))
        return;
    if (field == Field::Frequency)
        writePosition(bandOf(target), field, BandDesign::frequencyPosition(value));
    if (field == Field::Gain)
        writePosition(bandOf(target), field, BandDesign::gainPosition(value));
}

std::optional<double> ZoltaEqualizerGraph::stepSize(EditTarget target, Field field) const
{
    const std::optional<unsigned short> parameter =
        hasField(target, field) ? parameterId(bandOf(target), field) : std::nullopt;
    const std::optional<Range> limits = parameter ? range(*parameter) : std::nullopt;
    if (!limits || limits->minimum >= limits->maximum)
        return std::nullopt;
    const double steps = static_cast<double>(limits->maximum) - limits->minimum;
    if (field == Field::Gain)
        return (fieldMaximum(field) - fieldMinimum(field)) / steps;
    if (field == Field::Frequency)
        return m_bands[bandOf(target)].frequency *
               (std::pow(10.0, BandDesign::FrequencyRatio / steps) - 1.0);
    return std::nullopt;
}

double ZoltaEqualizerGraph::fieldMinimum(Field field)
{
    return field == Field::Gain ? BandDesign::gain(0.0F) : BandDesign::frequency(0.0F);
}

double ZoltaEqualizerGraph::fieldMaximum(Field field)
{
    return field == Field::Gain ? BandDesign::gain(1.0F) : BandDesign::frequency(1.0F);
}

int ZoltaEqualizerGraph::Update(unsigned short parameter, unsigned short ch, int value, const char*)
{
    if (ch != m_ch)
        return 0;
    for (std::size_t slot = 0; slot < Slots.size(); ++slot) {
        if (m_parameters[slot] != parameter)
            continue;
        const int band = Slots[slot].band;
        const Band before = m_bands[band];
        if (store(slot, value) && Slots[slot].field != Field::On)
            m_bands.design(band);
        announceChange(band, before);
        dropMark();
        break;
    }
    update();
    return 0;
}

int ZoltaEqualizerGraph::UpdateProperty(unsigned short, unsigned short, int, int, int, bool,
                                        const char*)
{
    return 0;
}

void ZoltaEqualizerGraph::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !isEnabled() || m_dragging)
        return;
    const QPoint position = event->position().toPoint();
    m_grabbedTarget = getPointTarget(position);
    if (m_grabbedTarget == EditTargetNone)
        return;
    m_dragging = true;
    m_dragOffset = position - getTargetPoint(m_grabbedTarget);
    m_lastPosition = position;
    m_dragMode = getDragMode(event->modifiers());
    update();
}

void ZoltaEqualizerGraph::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_dragging || !m_memAPI)
        return;
    const DragMode mode = getDragMode(event->modifiers());
    if (mode != m_dragMode) {
        m_dragMode = mode;
        m_dragOffset = m_lastPosition - getTargetPoint(m_grabbedTarget);
        return;
    }

    const int band = bandOf(m_grabbedTarget);
    const QPoint position = event->position().toPoint();
    const QPointF handle = position - m_dragOffset;
    if (mode == DragModeQuality)
        dragQuality(band, position.y());
    if (mode == DragModeFrequencyGain || mode == DragModeFrequency)
        dragFrequency(band, handle.x());
    if (mode == DragModeFrequencyGain || mode == DragModeGain)
        dragGain(band, handle.y());
    m_lastPosition = position;
}

void ZoltaEqualizerGraph::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        endDrag();
}

void ZoltaEqualizerGraph::keyPressEvent(QKeyEvent* event)
{
    const EditTarget target = focusedHandle();
    const std::optional<HandleKeys::Step> step = HandleKeys::step(event->key(), event->modifiers());
    if (step && hasField(target, step->field))
        stepHandle(target, step->field, step->count);
    else
        QWidget::keyPressEvent(event);
}

void ZoltaEqualizerGraph::focusInEvent(QFocusEvent* event)
{
    const EditTarget returning = std::exchange(m_returningHandle, EditTargetNone);
    if (isTemporary(event->reason()))
        focusHandle(isBand(returning) ? returning : m_focusedHandle);
    QWidget::focusInEvent(event);
}

void ZoltaEqualizerGraph::focusOutEvent(QFocusEvent* event)
{
    m_returningHandle = isTemporary(event->reason()) ? m_focusedHandle : EditTargetNone;
    markHandle(EditTargetNone);
    QWidget::focusOutEvent(event);
}

void ZoltaEqualizerGraph::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::EnabledChange && !isEnabled())
        endDrag();
    QWidget::changeEvent(event);
}

void ZoltaEqualizerGraph::hideEvent(QHideEvent*) { endDrag(); }

void ZoltaEqualizerGraph::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    m_painter.paint(painter, size(), m_bands, axes(), bandOf(m_editTarget),
                    hasFocus() ? bandOf(m_focusedHandle) : -1);
}

PlotAxes ZoltaEqualizerGraph::axes() const
{
    return PlotAxes(width(), height(), ZoomRangeList[static_cast<std::size_t>(m_zoom)]);
}

void ZoltaEqualizerGraph::registerParameters()
{
    if (!m_memAPI)
        return;
    for (std::size_t slot = 0; slot < Slots.size(); ++slot) {
        unsigned short parameter = 0;
        if (!m_editor->getParameter(Slots[slot].name, &parameter, nullptr))
            continue;
        m_parameters[slot] = parameter;
        int value = 0;
        if (m_memAPI->getValue(parameter, m_ch, &value, Element) >= 0)
            store(slot, value);
        m_memAPI->registerObserver(parameter, m_ch, this);
    }
    m_bands.designAll();
    dropMark();
}

void ZoltaEqualizerGraph::unregisterParameters()
{
    for (std::optional<unsigned short>& parameter : m_parameters) {
        if (parameter)
            m_memAPI->unregisterObserver(*parameter, m_ch, this);
        parameter.reset();
    }
}

std::optional<unsigned short> ZoltaEqualizerGraph::parameterId(int band, Field field) const
{
    for (std::size_t slot = 0; slot < Slots.size(); ++slot)
        if (Slots[slot].band == band && Slots[slot].field == field)
            return m_parameters[slot];
    return std::nullopt;
}

std::optional<ZoltaEqualizerGraph::Range> ZoltaEqualizerGraph::range(unsigned short parameter) const
{
    Range range{};
    if (m_memAPI->getRange(parameter, m_ch, &range.minimum, &range.maximum) < 0)
        return std::nullopt;
    return range;
}

bool ZoltaEqualizerGraph::store(std::size_t slot, int value)
{
    Band& band = m_bands[Slots[slot].band];
    const auto position = [&]() -> std::optional<float> {
        const std::optional<Range> limits = range(*m_parameters[slot]);
        if (!limits)
            return std::nullopt;
        return BandDesign::position(value, limits->minimum, limits->maximum);
    };
    const auto convert = [&](double& field, double (*unit)(float)) {
        const std::optional<float> r = position();
        if (r)
            field = unit(*r);
        return r.has_value();
    };

    switch (Slots[slot].field) {
    case Field::On:
        band.on = value != 0;
        return true;
    case Field::Type:
        band.type = value;
        return true;
    case Field::Quality:
        return convert(band.quality, BandDesign::quality);
    case Field::Frequency:
        return convert(band.frequency, BandDesign::frequency);
    case Field::Gain:
        return convert(band.gain, BandDesign::gain);
    }
    return false;
}

void ZoltaEqualizerGraph::markHandle(EditTarget target)
{
    if (target == m_focusedHandle)
        return;
    m_focusedHandle = target;
    update();
}

void ZoltaEqualizerGraph::dropMark()
{
    if (!isBand(m_focusedHandle) || m_bands[bandOf(m_focusedHandle)].on)
        return;
    markHandle(EditTargetNone);
    if (hasFocus())
        GraphAnnouncements::focused(this, -1);
}

void ZoltaEqualizerGraph::announceChange(int band, const Band& before)
{
    const Band& after = m_bands[band];
    if (before.on != after.on)
        GraphAnnouncements::switched(this, band);
    const auto settings = [](const Band& b) {
        return std::tie(b.type, b.quality, b.frequency, b.gain);
    };
    if (after.on && settings(before) != settings(after))
        GraphAnnouncements::valueChanged(this, band,
                                         EqualizerGraphAccessible::handleValue(m_bands, band));
}

void ZoltaEqualizerGraph::endDrag()
{
    if (!m_dragging)
        return;
    m_dragging = false;
    m_grabbedTarget = EditTargetNone;
    update();
}

void ZoltaEqualizerGraph::dragQuality(int band, int y)
{
    const std::optional<unsigned short> parameter = parameterId(band, Field::Quality);
    int value = 0;
    if (height() == 0 || !parameter || m_memAPI->getValue(*parameter, m_ch, &value, Element) < 0)
        return;
    const double step = height() / 181.0;
    const double moved = value + std::round((m_lastPosition.y() - y) / step);
    // The range is the host's to keep; here the sum only has to fit an int.
    write(*parameter, static_cast<int>(std::clamp<double>(moved, std::numeric_limits<int>::min(),
                                                          std::numeric_limits<int>::max())));
}

void ZoltaEqualizerGraph::dragFrequency(int band, double x)
{
    writePosition(band, Field::Frequency, BandDesign::frequencyPosition(axes().frequency(x)));
}

void ZoltaEqualizerGraph::dragGain(int band, double y)
{
    writePosition(band, Field::Gain, BandDesign::gainPosition(axes().gain(y)));
}

void ZoltaEqualizerGraph::writePosition(int band, Field field, float position)
{
    const std::optional<unsigned short> parameter = parameterId(band, field);
    if (!parameter)
        return;
    if (const std::optional<Range> limits = range(*parameter))
        write(*parameter, BandDesign::rawValue(position, limits->minimum, limits->maximum));
}

void ZoltaEqualizerGraph::write(unsigned short parameter, int value)
{
    if (m_memAPI)
        m_memAPI->setValue(parameter, m_ch, value, Element, 0, 1);
}

#include "moc_ZoltaEqualizerGraph.cpp"
