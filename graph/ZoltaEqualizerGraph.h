// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "equalizer/EqualizerBands.h"
#include "equalizer/PlotAxes.h"
#include "graph/EqualizerGraphPainter.h"
#include "interfaces/IPrmObserver.h"

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
///
/// One handle can have the keyboard's focus: its keys (HandleKeys) write raw values as a drag does.
/// The graph's focus policy lets neither a click nor Tab in; whoever leads the focus through the
/// editor calls focusHandle().
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

    /// What a parameter of a band holds.
    enum class Field { On, Type, Quality, Frequency, Gain };

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

    /// What the graph shows of the bands.
    const EqualizerBands& bands() const { return m_bands; }
    /// What the focus mark of \a target covers; empty for a band that is off or whose handle lies
    /// outside the plot.
    QRectF handleRect(EditTarget target) const;

    /// Gives the keyboard's focus to the handle of \a target. False, and nothing changes, for a
    /// band that is off and while the graph is disabled.
    bool focusHandle(EditTarget target);
    /// The handle with the keyboard's focus. It gives the focus up when the graph loses it, except
    /// to another window for as long as that is in front, and when its band is switched off.
    EditTarget focusedHandle() const;

    /// Whether a band of its type has a quality, a frequency or a gain to be set.
    bool hasField(EditTarget target, Field field) const;
    /// Moves the host's raw value by \a count, within its range; nothing happens where the band has
    /// no such field or the host does not tell value and range.
    void stepHandle(EditTarget target, Field field, int count);
    /// Writes the raw value nearest to a frequency in Hz or a gain in dB.
    void setHandle(EditTarget target, Field field, double value);
    /// What the next raw step upward adds to the frequency in Hz or the gain in dB.
    std::optional<double> stepSize(EditTarget target, Field field) const;
    /// The least and the greatest frequency in Hz or gain in dB.
    static double fieldMinimum(Field field);
    static double fieldMaximum(Field field);

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
    /// Keys that the focused handle has no use for are the parent's.
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    /// A widget that is disabled or hidden is not told of the release, so either ends a drag.
    void changeEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
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

    void markHandle(EditTarget target);
    /// Gives the mark up when its band is off.
    void dropMark();
    void announceChange(int band, const Band& before);

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
    EditTarget m_focusedHandle = EditTargetNone;
    EditTarget m_returningHandle = EditTargetNone; ///< while another window has the focus

    bool m_dragging = false;
    EditTarget m_grabbedTarget = EditTargetNone;
    DragMode m_dragMode = DragModeNone;
    QPointF m_dragOffset;
    QPoint m_lastPosition;
};
