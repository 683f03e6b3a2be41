// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "graph/EditTarget.h"
#include "graph/EqualizerGraphPainter.h"
#include "graph/GraphBinding.h"
#include "graph/GraphGround.h"
#include "graph/GraphView.h"
#include "graph/HandleDrag.h"
#include "graph/HandleModel.h"
#include "interfaces/IPrmObserver.h"

#include <QWidget>

#include <array>
#include <optional>

class EffectEditor;
class IMemAPI;
class SvgLabel;

/// The interactive frequency response of the equalizer.
///
/// It mirrors the 24 band parameters of one channel from the host's parameter memory, draws the
/// response that they produce, and writes the raw values of a band whose handle is dragged. It
/// never changes its own copy: the host's notification does. The memory is the host's and must
/// outlive the binding; setMemAPI(nullptr) or destruction ends it.
///
/// One handle can have the keyboard's focus: its keys (HandleKeys) write raw values as a drag does.
/// The graph's focus policy lets neither a click nor Tab in; whoever leads the focus through the
/// editor calls focusHandle().
///
/// Whoever hears of a write or of an announcement may delete the graph. So each is the last thing
/// that a function does, or is followed by nothing unless the graph still lives.
class ZoltaEqualizerGraph : public QWidget, public IPrmObserver, private HandleModel
{
    Q_OBJECT

public:
    /// The names of targets, drag modes and fields are this class's own names too.
    using EditTarget = ::EditTarget;
    using enum ::EditTarget;
    using DragMode = HandleDrag::DragMode;
    using enum HandleDrag::DragMode;
    using Field = EqualizerField;

    /// The level in dB at the plot's top edge, by zoom index.
    static constexpr std::array<double, 7> ZoomRangeList = {40.0, 20.0, 16.0, 12.0, 8.0, 4.0, 2.0};
    static constexpr int DefaultZoom = 3;

    /// A child of \a editor, through which parameter names are looked up.
    explicit ZoltaEqualizerGraph(EffectEditor* editor);

    /// The label beneath the graph. While the graph lies on nothing but its picture, that is
    /// painted as one with the graph's own, which is faster.
    void setGround(SvgLabel* ground) { m_ground.set(ground); }

    /// Leaves the memory that was set before, and mirrors \a memAPI; null unbinds.
    void setMemAPI(IMemAPI* memAPI) { bind(memAPI, m_binding.channel()); }
    void setCh(int ch);
    /// The sampling rate in Hz.
    void setFs(int fs);
    /// The band that is drawn in its full colour, above the others.
    void setEditTarget(EditTarget target);

    int zoom() const { return m_zoom; }
    /// Sets the index into ZoomRangeList; an index outside it is ignored.
    void setZoom(int index);

    EditTarget getPointTarget(const QPoint& point) const override { return view().nearest(point); }
    /// Where the handle of \a target stands.
    QPointF getTargetPoint(EditTarget target) const { return view().handle(bandOf(target)); }
    /// What a drag of the grabbed band changes while \a modifiers are held.
    DragMode getDragMode(Qt::KeyboardModifiers modifiers) const
    {
        return m_drag.mode(modifiers, bands());
    }

    const EqualizerBands& bands() const override { return m_binding.bands(); }
    QRectF handleRect(EditTarget target) const override { return view().markRect(bandOf(target)); }

    bool focusHandle(EditTarget target) override;
    /// The handle gives the focus up when the graph loses it, except to another window for as long
    /// as that is in front, and when its band is switched off.
    EditTarget focusedHandle() const override;

    /// Whether a band of its type has a quality, a frequency or a gain to be set.
    bool hasField(EditTarget target, Field field) const
    {
        return m_binding.hasField(bandOf(target), field);
    }
    void stepHandle(EditTarget target, Field field, int count) override
    {
        m_binding.step(bandOf(target), field, count);
    }
    void setHandle(EditTarget target, Field field, double value) override
    {
        m_binding.set(bandOf(target), field, value);
    }
    std::optional<double> stepSize(EditTarget target, Field field) const override
    {
        return m_binding.stepSize(bandOf(target), field);
    }
    using HandleModel::fieldMaximum;
    using HandleModel::fieldMinimum;

    int Update(unsigned short parameter, unsigned short ch, int value, const char* text) override;
    int UpdateProperty(unsigned short, unsigned short, int, int, int, bool, const char*) override
    {
        return 0;
    }

public Q_SLOTS:
    void zoomUp() { setZoom(m_zoom + 1); }
    void zoomDown() { setZoom(m_zoom - 1); }

protected:
    /// Looks, before the window repaints, for what has changed.
    bool eventFilter(QObject* window, QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    /// Keys that the focused handle has no use for are the parent's.
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    /// A widget that is disabled or hidden is not told of the release, so either ends a drag.
    void changeEvent(QEvent* event) override;
    void hideEvent(QHideEvent*) override { endDrag(); }
    void paintEvent(QPaintEvent* event) override;

private:
    GraphView view() const
    {
        return {bands(), size(), ZoomRangeList[static_cast<std::size_t>(m_zoom)]};
    }
    void bind(IMemAPI* memAPI, unsigned short ch);
    void repaintAll();
    /// Repaints what the bands' changes move: the curves are evaluated when the window is about to
    /// repaint, once for all changes until then.
    void repaintChanges();
    void lookForChanges();
    QRect plotPixels() const { return view().plotRect().toAlignedRect(); }
    void markHandle(EditTarget target);
    /// Gives the mark up when its band is off.
    void dropMark();
    void endDrag();

    EqualizerGraphPainter m_painter;
    bool m_hasChanged = false; ///< since the window last repainted
    GraphGround m_ground;
    int m_zoom = DefaultZoom;
    EditTarget m_editTarget = EditTargetNone;
    EditTarget m_focusedHandle = EditTargetNone;
    EditTarget m_returningHandle = EditTargetNone; ///< while another window has the focus
    HandleDrag m_drag;
    GraphBinding m_binding; ///< the last: a host that is left may still call
};
