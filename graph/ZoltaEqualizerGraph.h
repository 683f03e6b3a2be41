// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "graph/EqualizerGraphPainter.h"
#include "graph/filters/EqualizerBands.h"
#include "graph/filters/PlotAxes.h"
#include "plugin/interfaces/IPrmObserver.h"

#include <QWidget>

#include <array>
#include <optional>

class EffectEditor;
class IMemAPI;

/// The interactive frequency response of the equalizer.
///
/// It mirrors the 24 band parameters of one channel from the host's parameter memory, draws the
/// response that they produce, and writes the raw values of a band whose handle is dragged. It
/// never changes its own copy: the host's notification does. The memory is the host's and must
/// outlive the binding; setMemAPI(nullptr) or destruction ends it.
class ZoltaEqualizerGraph : public QWidget, public IPrmObserver
{
    Q_OBJECT

public:
    /// A band, as the editor highlights it.
    enum EditTarget {
        EditTargetNone,
        EditTargetLow,
        EditTargetMiddle1,
        EditTargetMiddle2,
        EditTargetMiddle3,
        EditTargetMiddle4,
        EditTargetHigh
    };

    /// What a drag changes.
    enum DragMode {
        DragModeNone,
        DragModeQuality,
        DragModeFrequency,
        DragModeGain,
        DragModeFrequencyGain
    };

    /// The level in dB at the plot's top edge, by zoom index.
    static constexpr std::array<double, 7> ZoomRangeList = {40.0, 20.0, 16.0, 12.0, 8.0, 4.0, 2.0};
    static constexpr int DefaultZoom = 3;

    /// A child of \a editor, through which parameter names are looked up.
    explicit ZoltaEqualizerGraph(EffectEditor* editor);
    ~ZoltaEqualizerGraph() override;

    /// Leaves the memory that was set before, and mirrors \a memAPI; null unbinds.
    void setMemAPI(IMemAPI* memAPI);
    void setCh(int ch);
    /// The sampling rate in Hz.
    void setFs(int fs);
    /// The band that is drawn in its full colour, above the others.
    void setEditTarget(EditTarget target);

    int zoom() const { return m_zoom; }
    /// Sets the index into ZoomRangeList; an index outside it is ignored.
    void setZoom(int index);

    /// The band whose handle is nearest to \a point, among those that are on; none outside the
    /// plot.
    EditTarget getPointTarget(const QPoint& point) const;
    /// Where the handle of \a target stands.
    QPointF getTargetPoint(EditTarget target) const;
    /// What a drag of the grabbed band changes while \a modifiers are held.
    DragMode getDragMode(Qt::KeyboardModifiers modifiers) const;

    int Update(unsigned short parameter, unsigned short ch, int value, const char* text) override;
    int UpdateProperty(unsigned short parameter, unsigned short ch, int, int, int, bool,
                       const char* text) override;

public Q_SLOTS:
    void zoomUp();
    void zoomDown();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    /// A widget that is disabled or hidden is not told of the release, so either ends a drag.
    void changeEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    enum class Field { On, Type, Quality, Frequency, Gain };
    struct Slot
    {
        const char* name;
        int band;
        Field field;
    };
    struct Range
    {
        int minimum;
        int maximum;
    };
    static const std::array<Slot, 24> Slots;

    PlotAxes axes() const;
    void registerParameters();
    void unregisterParameters();
    std::optional<unsigned short> parameterId(int band, Field field) const;
    std::optional<Range> range(unsigned short parameter) const;
    /// Stores the raw value in the slot's field; false when the field keeps what it holds, because
    /// the host does not tell the parameter's range.
    bool store(std::size_t slot, int value);

    void endDrag();
    void dragQuality(int band, int y);
    void dragFrequency(int band, double x);
    void dragGain(int band, double y);
    void writePosition(int band, Field field, float position);
    void write(unsigned short parameter, int value);

    EffectEditor* m_editor;
    IMemAPI* m_memAPI = nullptr;
    unsigned short m_ch = 0;
    std::array<std::optional<unsigned short>, 24> m_parameters;
    EqualizerBands m_bands;
    EqualizerGraphPainter m_painter;
    int m_zoom = DefaultZoom;
    EditTarget m_editTarget = EditTargetNone;

    bool m_dragging = false;
    EditTarget m_grabbedTarget = EditTargetNone;
    DragMode m_dragMode = DragModeNone;
    QPointF m_dragOffset;
    QPoint m_lastPosition;
};
