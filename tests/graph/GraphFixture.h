// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "effect/EffectEditor.h"
#include "graph/ZoltaEqualizerGraph.h"
#include "tests/support/TestHost.h"

#include <QImage>
#include <QPainter>

#include <pluginterfaces/base/funknown.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>

/// An effect editor with nothing of its own.
class GraphEditor : public EffectEditor
{
public:
    GraphEditor()
        : EffectEditor(nullptr)
    {}

    Steinberg::FUID& uid() override { return m_uid; }
    void loadUids(std::vector<Steinberg::FUID>& uids) override { uids.push_back(m_uid); }
    Steinberg::Vst::IComponent* getVstComponent() const override { return nullptr; }
    void setMemAPI(IMemAPI*) override {}
    void setCh(int, int) override {}

private:
    Steinberg::FUID m_uid;
};

/// The parameters' numbers in the order in which the graph takes them up.
inline constexpr std::array<int, 24> SlotNumbers = {4,  1,  2,  3,  8,  5,  6,  7,  12, 9,  10, 11,
                                                    16, 13, 14, 15, 20, 17, 18, 19, 24, 21, 22, 23};

/// The parameter of a band's field; bands are 0 (low), 1 to 4 (middle), 5 (high). The type of the
/// outer bands stands where the middle bands have their quality.
inline QByteArray onName(int band) { return TestHost::name(4 * band + 4); }
inline QByteArray typeName(int band) { return TestHost::name(4 * band + 1); }
inline QByteArray qualityName(int band) { return TestHost::name(4 * band + 1); }
inline QByteArray frequencyName(int band) { return TestHost::name(4 * band + 2); }
inline QByteArray gainName(int band) { return TestHost::name(4 * band + 3); }

inline ZoltaEqualizerGraph::EditTarget targetOf(int band)
{
    return static_cast<ZoltaEqualizerGraph::EditTarget>(band + 1);
}

/// What the test host's raw values stand for: 1200 steps for three decades of frequency, 500 for
/// five octaves of quality, 400 for 40 dB.
inline double hertz(double raw) { return 20.0 * std::pow(1000.0, raw / 1200.0); }
inline double quality(double raw) { return 0.5 * std::pow(32.0, raw / 500.0); }
inline double decibels(double raw) { return raw / 10.0; }

/// The plot inside a widget of W x H pixels whose top edge stands for Z dB.
struct Plot
{
    double W, H, Z;
    double u = H / 192.0;
    double left = 43.5 * u;
    double top = 9.5 * u;
    double width = W - 58.0 * u;
    double height = H - 38.0 * u;
    double right = left + width;
    double bottom = top + height;
    double centre = top + height / 2.0;

    double x(double f) const { return left + width * std::log10(f / 20.0) / 3.0; }
    double y(double g) const { return centre - height / 2.0 * g / Z; }
    QRectF rect() const { return {left, top, width, height}; }
};

/// The raw value at a position of 0 to 1 in a range.
inline int raw(double position, double minimum, double maximum)
{
    const double exact = std::clamp(position, 0.0, 1.0) * (maximum - minimum);
    // A half would make the rounding depend on single precision; no case here is one.
    Q_ASSERT(std::abs(exact - std::floor(exact) - 0.5) > 1e-3);
    return static_cast<int>(std::lround(exact) + std::lround(minimum));
}

/// The raw values that bring a handle to \a point.
inline int rawFrequencyAt(const Plot& plot, double x)
{
    return raw((x - plot.left) / plot.width, 0, 1200);
}
inline int rawGainAt(const Plot& plot, double y)
{
    const double gain = (plot.centre - y) / (plot.height / 2.0) * plot.Z;
    return raw((gain + 20.0) / 40.0, -200, 200);
}

/// A graph in an editor that knows the test host's model; nothing is bound yet.
class GraphFixture
{
public:
    static constexpr QSize DesignSize{679, 192};

    explicit GraphFixture(QSize size = DesignSize)
        : graph(new ZoltaEqualizerGraph(&editor))
    {
        editor.setModelInfo(host.model());
        editor.resize(size);
        graph->resize(size);
    }
    ~GraphFixture() { delete graph; }

    void bind() { graph->setMemAPI(host.memory()); }

    Plot plot() const
    {
        const auto zoom = static_cast<std::size_t>(graph->zoom());
        return {static_cast<double>(graph->width()), static_cast<double>(graph->height()),
                std::array{40.0, 20.0, 16.0, 12.0, 8.0, 4.0, 2.0}[zoom]};
    }

    void set(const QByteArray& name, int value, unsigned short ch = 0) const
    {
        const_cast<TestHost&>(host).set(name, ch, value);
    }
    void setBand(int band, int frequency, int gain)
    {
        set(frequencyName(band), frequency);
        set(gainName(band), gain);
    }
    /// Switches every band off except \a band.
    void solo(int band)
    {
        for (int i = 0; i < 6; ++i)
            set(onName(i), i == band ? 1 : 0);
    }

    /// The graph on black.
    QImage picture() const
    {
        const double ratio = graph->devicePixelRatioF();
        QImage image((QSizeF(graph->size()) * ratio).toSize(), QImage::Format_RGB32);
        image.setDevicePixelRatio(ratio);
        image.fill(Qt::black);
        graph->render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
        return image;
    }

    TestHost host;
    GraphEditor editor;
    ZoltaEqualizerGraph* graph;
};

/// Calls a function on every notification of one parameter.
class Listener : public IPrmObserver
{
public:
    Listener(TestHost& host, const QByteArray& name, std::function<void()> action)
        : m_action(std::move(action))
    {
        host.memory()->registerObserver(host.id(name), 0, this);
    }
    int Update(unsigned short, unsigned short, int, const char*) override
    {
        m_action();
        return 0;
    }
    int UpdateProperty(unsigned short, unsigned short, int, int, int, bool, const char*) override
    {
        return 0;
    }

private:
    std::function<void()> m_action;
};

/// Whether two points are the same to a thousandth of a pixel.
inline bool isNear(QPointF a, QPointF b) { return QLineF(a, b).length() < 1e-3; }
