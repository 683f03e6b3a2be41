// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/analysis/SpectrumAnalyzer.h"
#include "host/model/ResponseComparison.h"
#include "host/window/AnalyzerPainting.h"
#include "host/window/SpectrumRaster.h"

#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <memory>
#include <optional>

class MixerModel;
class SignalReader;

/// The spectrum of what runs through a channel, or through both of a pair, before and after the
/// equalizer; over it the equalizer's curve, drawn as a line and measured as points. The pointer,
/// or the arrow keys, read frequency, note and levels off; a double-click begins averages and
/// peaks anew.
///
/// It listens only while it is visible, not frozen, and the mixer's transport plays; the last
/// picture stays.
class AnalyzerView : public QWidget
{
    Q_OBJECT

public:
    static constexpr int viewHeight = 236;
    static constexpr int interval = 33; ///< ms

    /// \a mixerModel must outlive it. \a delay is how many milliseconds after the last of several
    /// writes the curve follows.
    AnalyzerView(MixerModel& mixerModel, int channel, QWidget* parent = nullptr, int delay = 30);
    ~AnalyzerView() override;

    /// Lets the frequencies stand below those of the editor that fills \a stage, as far as there
    /// is room.
    void alignWith(QWidget* stage);
    /// Of the curve, in Hz; that of the spectrum is the transport's.
    void setSampleRate(int hertz);
    void setSettings(const AnalyzerSettings& settings);
    void setFrozen(bool frozen);
    /// Begins averages and peaks anew.
    void reset();

    /// Whether it takes samples at the moment.
    bool isListening() const { return m_reader != nullptr; }
    /// Where what stands.
    AnalyzerPlot plot() const;
    QSize sizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void followTransport();
    void followChannel(int changed);
    void listen();
    void measure();
    void takeSamples();
    void moveCursor(std::optional<double> frequency);
    QList<AnalyzerPainting::Line> readout() const;
    QList<AnalyzerPainting::Entry> legend() const;
    double curveRange() const;

    void rebuild();
    void buildGround();
    void placeCurve(const AnalyzerPlot& where, double ratio);
    void compose();
    std::vector<float> toPixels(const SpectrumAnalyzer::Levels& levels) const;

    MixerModel& m_mixerModel;
    int m_channel;
    QPointer<QWidget> m_stage;
    AnalyzerSettings m_settings;
    bool m_frozen = false;
    bool m_shown = false; // not in a minimized window either
    SpectrumAnalyzer m_analyzer;
    std::unique_ptr<SignalReader> m_reader; // while it listens
    bool m_pair = false;                    // that it listens to
    QTimer m_timer;
    ResponseComparison m_comparison;
    QTimer m_delay;
    std::optional<double> m_cursor; // Hz
    QImage m_ground;                // null while it has to be drawn anew
    SpectrumRaster m_raster;
    std::vector<float> m_curve;
    std::vector<QPointF> m_dots;
};
