// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph/ZoltaEqualizerGraph.h"

#include "controls/ControlAccessible.h"
#include "effect/EffectEditor.h"
#include "graph/EqualizerGraphAccessible.h"
#include "graph/GraphAnnouncements.h"
#include "graph/HandleKeys.h"

#include <QGraphicsProxyWidget>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>

#include <utility>

namespace {

/// Whether focus that goes for \a reason comes back by itself.
bool isTemporary(Qt::FocusReason reason)
{
    return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason;
}

} // namespace

ZoltaEqualizerGraph::ZoltaEqualizerGraph(EffectEditor* editor)
    : QWidget(editor)
    , m_ground(*this)
    , m_binding(editor, this)
{
    CommonController_MemAPI::registerAccessible(
        staticMetaObject, [](QWidget* widget) -> QAccessibleInterface* {
            return new EqualizerGraphAccessible(widget, *static_cast<ZoltaEqualizerGraph*>(widget));
        });
}

void ZoltaEqualizerGraph::setCh(int ch)
{
    const auto channel = static_cast<unsigned short>(ch);
    if (channel != m_binding.channel())
        bind(m_binding.memory(), channel);
}

void ZoltaEqualizerGraph::setFs(int fs)
{
    if (fs == bands().sampleRate())
        return;
    m_binding.setSampleRate(fs);
    repaintAll();
}

void ZoltaEqualizerGraph::setEditTarget(EditTarget target)
{
    if (target == m_editTarget)
        return;
    m_editTarget = target;
    repaintAll();
}

void ZoltaEqualizerGraph::setZoom(int index)
{
    if (index < 0 || index >= static_cast<int>(ZoomRangeList.size()))
        return;
    m_zoom = index;
    repaintAll();
}

bool ZoltaEqualizerGraph::focusHandle(EditTarget target)
{
    if (!view().isOn(bandOf(target)) || !isEnabled())
        return false;
    markHandle(target);
    const QPointer<ZoltaEqualizerGraph> alive(this);
    setFocus(Qt::TabFocusReason);
    if (alive && hasFocus())
        GraphAnnouncements::focused(this, bandOf(target));
    return true;
}

EditTarget ZoltaEqualizerGraph::focusedHandle() const
{
    return window()->focusWidget() == this ? m_focusedHandle : EditTargetNone;
}

int ZoltaEqualizerGraph::Update(unsigned short parameter, unsigned short ch, int value, const char*)
{
    if (ch != m_binding.channel())
        return 0;
    const std::optional<GraphBinding::Change> change = m_binding.receive(parameter, value);
    repaintChanges();
    if (!change)
        return 0;
    const QPointer<ZoltaEqualizerGraph> alive(this);
    GraphAnnouncements::changed(this, bands(), change->band, change->before);
    if (alive)
        dropMark();
    return 0;
}

bool ZoltaEqualizerGraph::eventFilter(QObject* window, QEvent* event)
{
    if (event->type() == QEvent::UpdateRequest) {
        window->removeEventFilter(this);
        lookForChanges();
    }
    return QWidget::eventFilter(window, event);
}

void ZoltaEqualizerGraph::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !isEnabled() || m_drag.isRunning())
        return;
    const QPoint position = event->position().toPoint();
    const EditTarget target = getPointTarget(position);
    if (target == EditTargetNone)
        return;
    m_drag.begin(target, position, event->modifiers(), view());
    update();
}

void ZoltaEqualizerGraph::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_drag.isRunning() || !m_binding.isBound())
        return;
    const int band = bandOf(m_drag.target());
    const QPointer<ZoltaEqualizerGraph> alive(this);
    for (const GraphBinding::Edit& edit :
         m_drag.move(event->position().toPoint(), event->modifiers(), view()))
        if (alive)
            m_binding.edit(band, edit);
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
    QWidget::focusInEvent(event);
    const EditTarget returning = std::exchange(m_returningHandle, EditTargetNone);
    if (isTemporary(event->reason()))
        focusHandle(isBand(returning) ? returning : m_focusedHandle);
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

void ZoltaEqualizerGraph::paintEvent(QPaintEvent*)
{
    if (std::exchange(m_hasChanged, false))
        update(plotPixels()); // nobody looked before: this may be a part of what has changed
    QPainter painter(this);
    m_painter.paint(painter, view(), bandOf(m_editTarget),
                    hasFocus() ? bandOf(m_focusedHandle) : -1, m_ground.pixels(painter));
}

void ZoltaEqualizerGraph::bind(IMemAPI* memAPI, unsigned short ch)
{
    m_binding.bind(memAPI, ch);
    repaintAll();
    dropMark();
}

void ZoltaEqualizerGraph::repaintAll()
{
    m_painter.forgetPrepared();
    update();
}

void ZoltaEqualizerGraph::repaintChanges()
{
    m_painter.forgetPrepared();
    const QRect plot = plotPixels(); // nothing of a band shows outside of it
    if (window()->graphicsProxyWidget()) {
        update(plot); // a scene repaints without the window
        return;
    }
    m_hasChanged = true;
    window()->installEventFilter(this);
    update(QRect(plot.topLeft(), QSize(1, 1))); // so that the window repaints
}

void ZoltaEqualizerGraph::lookForChanges()
{
    if (!std::exchange(m_hasChanged, false) || !isVisible())
        return;
    const QRegion changed = m_painter.prepare(view(), bandOf(m_editTarget), devicePixelRatioF());
    update(changed.isEmpty() ? plotPixels() : changed);
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
    if (!isBand(m_focusedHandle) || view().isOn(bandOf(m_focusedHandle)))
        return;
    markHandle(EditTargetNone);
    if (hasFocus())
        GraphAnnouncements::focused(this, -1);
}

void ZoltaEqualizerGraph::endDrag()
{
    if (m_drag.end())
        update();
}

#include "moc_ZoltaEqualizerGraph.cpp"
