// SPDX-License-Identifier: GPL-3.0-or-later
// The controls: a move of a value, up to the painted pixels, beside the same layers rendered from
// their SVG files at every paint ("direct"); what a notification of the host costs; what a control
// takes of memory. The number behind the slash is the scale. Windows are Qt's offscreen platform's,
// whose raster engine is also what a desktop window is painted with.
#include "benchmarks/DirectControls.h"
#include "controls/FaderController.h"
#include "controls/KnobController.h"
#include "controls/PushButtonController.h"
#include "controls/RoundMeterController.h"
#include "controls/TextEditController.h"
#include "hosting/HostMemory.h"
#include "widgets/SvgLabel.h"

#include <QApplication>
#include <QPaintEvent>

#include <benchmark/benchmark.h>

#include <malloc.h>

#include <memory>
#include <vector>

using namespace CommonController_MemAPI;
using namespace DirectControls;

namespace {

constexpr QRect fieldRect(5, 450, 56, 14);
constexpr QRect meterGroundRect(813, 20, 20, 326);
constexpr QRect meterRect(4, 4, 12, 318);
/// The values that a control passes through; every move is a step of some of them.
constexpr int highestValue = 1200;
constexpr int valueStep = 7;

QRect zoomed(const QRect& rect, double scale)
{
    return QRectF(rect.x() * scale, rect.y() * scale, rect.width() * scale, rect.height() * scale)
        .toRect();
}

void show(QWidget& window)
{
    window.show();
    QApplication::processEvents();
}

/// Moves \a widget once an iteration, with \a move(value), and paints it. Every value has been
/// shown once before.
template <class Move> void moveAndPaint(benchmark::State& state, QWidget& widget, Move move)
{
    show(*widget.window());
    for (int value = 0; value <= highestValue; ++value) {
        move(value);
        widget.repaint();
    }
    int value = 0;
    for (auto _ : state) {
        value = (value + valueStep) % (highestValue + 1);
        move(value);
        widget.repaint();
    }
}

template <class Control> void moveControl(benchmark::State& state, Control& control, QSize size)
{
    const auto scale = static_cast<double>(state.range(0));
    control.setScale(scale);
    control.resize((QSizeF(size) * scale).toSize());
    moveAndPaint(state, control, [&control](int value) { control.setValue(value); });
}

template <class Direct> void moveDirect(benchmark::State& state)
{
    Direct direct(static_cast<double>(state.range(0)));
    moveAndPaint(state, direct, [&direct](int value) {
        direct.setPosition(static_cast<double>(value) / highestValue);
    });
}

void setUpKnob(KnobController& knob)
{
    knob.setKnobType(KnobController::RotateKnob);
    knob.setKnobSvg(knobFile);
    knob.setBackgroundSvg(knobBackFile);
    knob.setMaximumValue(highestValue);
}

void cachedKnobMove(benchmark::State& state)
{
    KnobController knob;
    setUpKnob(knob);
    moveControl(state, knob, knobSize);
}

void directKnobMove(benchmark::State& state) { moveDirect<DirectKnob>(state); }

void setUpFader(FaderController& fader)
{
    fader.setKnobSvg(capFile);
    fader.setShadowSvg(capShadowFile);
    fader.setBackgroundSvg(trackFile);
    fader.setMaximumValue(highestValue);
}

void cachedFaderMove(benchmark::State& state)
{
    FaderController fader;
    setUpFader(fader);
    moveControl(state, fader, faderSize);
}

void directFaderMove(benchmark::State& state) { moveDirect<DirectFader>(state); }

void setUpLamp(PushButtonController& lamp)
{
    lamp.setCheckable(true);
    lamp.setButtonSvg(lampOffFile);
    lamp.setOnButtonSvg(lampOnFile);
}

/// Off and on in turn.
int lampValue(int value) { return value & 1; }

void cachedButtonMove(benchmark::State& state)
{
    const auto scale = static_cast<double>(state.range(0));
    PushButtonController lamp;
    setUpLamp(lamp);
    lamp.setScale(scale);
    lamp.resize((QSizeF(lampSize) * scale).toSize());
    moveAndPaint(state, lamp, [&lamp](int value) { lamp.setValue(lampValue(value)); });
}

void directButtonMove(benchmark::State& state)
{
    DirectLamp lamp(static_cast<double>(state.range(0)));
    moveAndPaint(state, lamp, [&lamp](int value) { lamp.setPosition(lampValue(value)); });
}

/// A text field has no pictures: what costs is the editor's background underneath.
void moveText(benchmark::State& state, QWidget& ground)
{
    const auto scale = static_cast<double>(state.range(0));
    TextEditController edit(&ground);
    edit.setMaximumValue(highestValue);
    edit.setPostfix(QStringLiteral("Hz"));
    edit.setAlignment(Qt::AlignCenter);
    QFont font = edit.font();
    font.setPixelSize(static_cast<int>(12.0 * scale));
    edit.setFont(font);
    edit.setScale(scale);
    edit.setGeometry(zoomed(fieldRect, scale));
    moveAndPaint(state, edit, [&edit](int value) { edit.setString(QString::number(value)); });
}

std::unique_ptr<SvgLabel> cachedGround(const QString& file, QSize size, double scale)
{
    auto label = std::make_unique<SvgLabel>(nullptr);
    label->setSvg(file);
    label->setHidesGround(true);
    label->resize((QSizeF(size) * scale).toSize());
    return label;
}

void cachedTextMove(benchmark::State& state)
{
    const auto ground =
        cachedGround(editorBackFile, editorSize, static_cast<double>(state.range(0)));
    moveText(state, *ground);
}

void directTextMove(benchmark::State& state)
{
    DirectGround ground(editorBackFile, editorSize, static_cast<double>(state.range(0)));
    moveText(state, ground);
}

/// Counts the pixels that a widget is asked to paint.
class PaintedPixels : public QObject
{
public:
    double count = 0.0;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) {
            for (const QRect& rect : static_cast<QPaintEvent*>(event)->region())
                count += static_cast<double>(rect.width()) * rect.height();
        }
        return false;
    }
};

/// Levels as music gives them, in tenths of a dB: up at once, then falling.
int levelAt(int tick) { return -60 - 15 * (tick % 24); }

/// A meter as an editor has it: on its own background, which lies on the editor's.
struct PlacedMeter
{
    PlacedMeter(QWidget& window, QWidget& ground, double scale)
        : meter(&ground)
    {
        ground.setParent(&window);
        ground.setGeometry(zoomed(meterGroundRect, scale));
        meter.setScale(scale);
        meter.setGeometry(zoomed(meterRect, scale));
        ground.show();
        show(window);
    }

    RoundMeterController meter;
};

/// A new level, and the whole meter.
void moveMeter(benchmark::State& state, QWidget& window, QWidget& ground)
{
    PlacedMeter placed(window, ground, static_cast<double>(state.range(0)));
    moveAndPaint(state, placed.meter,
                 [&placed](int value) { placed.meter.setValue(levelAt(value)); });
}

/// A new level, and what of the window that changes.
void tickMeter(benchmark::State& state, QWidget& window, QWidget& ground)
{
    PlacedMeter placed(window, ground, static_cast<double>(state.range(0)));
    RoundMeterController& meter = placed.meter;
    PaintedPixels painted;
    meter.installEventFilter(&painted);
    int tick = 0;
    for (auto _ : state) {
        meter.setValue(levelAt(++tick));
        QCoreApplication::sendPostedEvents();
    }
    state.counters["painted_pixels"] =
        benchmark::Counter(painted.count, benchmark::Counter::kAvgIterations);
    state.counters["all_pixels"] = static_cast<double>(meter.width()) * meter.height();
}

using OnMeter = void (*)(benchmark::State& state, QWidget& window, QWidget& ground);

void onCachedGrounds(benchmark::State& state, OnMeter run)
{
    const auto scale = static_cast<double>(state.range(0));
    const auto window = cachedGround(editorBackFile, editorSize, scale);
    SvgLabel ground(nullptr);
    ground.setSvg(meterBackFile);
    run(state, *window, ground);
}

void onDirectGrounds(benchmark::State& state, OnMeter run)
{
    const auto scale = static_cast<double>(state.range(0));
    DirectGround window(editorBackFile, editorSize, scale);
    DirectGround ground(meterBackFile, meterGroundRect.size(), scale);
    run(state, window, ground);
}

void cachedMeterMove(benchmark::State& state) { onCachedGrounds(state, moveMeter); }
void directMeterMove(benchmark::State& state) { onDirectGrounds(state, moveMeter); }
void cachedMeterTick(benchmark::State& state) { onCachedGrounds(state, tickMeter); }
void directMeterTick(benchmark::State& state) { onDirectGrounds(state, tickMeter); }

constexpr int controlCount = 1000;

/// Every parameter of every channel is written once, and each of the controls, which are spread
/// over them, is told once.
void hostUpdates(benchmark::State& state)
{
    HostMemory memory;
    QWidget window;
    std::vector<KnobController*> knobs;
    for (int i = 0; i < controlCount; ++i) {
        knobs.push_back(new KnobController(&window));
        knobs.back()->setMemAPIValue(
            &memory, parameterId(static_cast<std::size_t>(i) % parameterCount),
            static_cast<unsigned short>(i / static_cast<int>(parameterCount) % defaultChannelCount),
            0);
    }
    int signalCount = 0;
    for (KnobController* knob : knobs)
        QObject::connect(knob, qOverload<int>(&KnobController::valueChanged),
                         [&signalCount](int) { ++signalCount; });
    for (auto _ : state) {
        for (std::size_t i = 0; i < parameterCount; ++i) {
            for (unsigned short ch = 0; ch < defaultChannelCount; ++ch)
                memory.setValue(parameterId(i), ch, signalCount & 1, 0, 0, 1);
        }
    }
    if (signalCount != controlCount * state.iterations())
        state.SkipWithError("not every control was told once");
    state.SetItemsProcessed(signalCount);
    state.counters["ns_an_update"] =
        benchmark::Counter(controlCount * 1e-9, benchmark::Counter::kIsIterationInvariantRate |
                                                    benchmark::Counter::kInvert);
}

void setUp(KnobController& knob) { setUpKnob(knob); }
void setUp(FaderController& fader) { setUpFader(fader); }
void setUp(PushButtonController& lamp) { setUpLamp(lamp); }
void setUp(TextEditController& edit) { edit.setPostfix(QStringLiteral("Hz")); }
void setUp(RoundMeterController&) {}

/// Makes and destroys many controls of a kind, with their pictures, and counts the bytes that each
/// holds on the heap. The pictures themselves are shared, and not counted but for the first one.
template <class Control> void memoryOf(benchmark::State& state)
{
    Control first;
    setUp(first);
    double bytes = 0.0;
    for (auto _ : state) {
        std::vector<std::unique_ptr<Control>> controls(controlCount);
        const std::size_t before = mallinfo2().uordblks;
        for (std::unique_ptr<Control>& each : controls) {
            each = std::make_unique<Control>();
            setUp(*each);
        }
        bytes = static_cast<double>(mallinfo2().uordblks - before) / controlCount;
    }
    state.SetItemsProcessed(state.iterations() * controlCount);
    state.counters["bytes"] = bytes;
}

void knobMemory(benchmark::State& state) { memoryOf<KnobController>(state); }
void faderMemory(benchmark::State& state) { memoryOf<FaderController>(state); }
void buttonMemory(benchmark::State& state) { memoryOf<PushButtonController>(state); }
void textMemory(benchmark::State& state) { memoryOf<TextEditController>(state); }
void meterMemory(benchmark::State& state) { memoryOf<RoundMeterController>(state); }

void atBothScales(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Arg(1)->Arg(2)->Unit(benchmark::kMicrosecond);
}

} // namespace

BENCHMARK(cachedKnobMove)->Apply(atBothScales);
BENCHMARK(directKnobMove)->Apply(atBothScales);
BENCHMARK(cachedFaderMove)->Apply(atBothScales);
BENCHMARK(directFaderMove)->Apply(atBothScales);
BENCHMARK(cachedButtonMove)->Apply(atBothScales);
BENCHMARK(directButtonMove)->Apply(atBothScales);
BENCHMARK(cachedTextMove)->Apply(atBothScales);
BENCHMARK(directTextMove)->Apply(atBothScales);
BENCHMARK(cachedMeterMove)->Apply(atBothScales);
BENCHMARK(directMeterMove)->Apply(atBothScales);
BENCHMARK(cachedMeterTick)->Apply(atBothScales);
BENCHMARK(directMeterTick)->Apply(atBothScales);
BENCHMARK(hostUpdates)->Unit(benchmark::kMicrosecond);
BENCHMARK(knobMemory)->Unit(benchmark::kMillisecond);
BENCHMARK(faderMemory)->Unit(benchmark::kMillisecond);
BENCHMARK(buttonMemory)->Unit(benchmark::kMillisecond);
BENCHMARK(textMemory)->Unit(benchmark::kMillisecond);
BENCHMARK(meterMemory)->Unit(benchmark::kMillisecond);

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
