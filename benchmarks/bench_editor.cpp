// SPDX-License-Identifier: GPL-3.0-or-later
// The whole editor on the host's own memory, model and meters, in windows of Qt's offscreen
// platform, whose raster engine is also what a desktop window is painted with. The number behind
// the slash is the scale. All bands are on and have a gain; both channels' meters are shown.
//
// firstEditor...  from the user's click to the first picture in a process that has never loaded the
//                 plug-in; the host's window and its fonts are up. Every sample is a process of its
//                 own. The whole is measured in a host that loads the library, its parts (make and
//                 attach the widgets, paint) in a program that has the editor built in, where they
//                 can be told apart.
// nextEditor      the same for a further editor of a host; how much memory it takes, without and
//                 with its window.
// editorRepaint   every pixel of the window again, beside pictureBlit: one opaque picture of the
//                 same size that is copied to a window.
// knobStep        one step of a gain knob by the host, until nothing is left to do; then its parts:
//                 the host's write with all that its observers do, and each repaint that follows.
// meterTick       one update of all six meters by a signal that moves by a few dB; Swing: between
//                 silence and an over; Same: by a signal that does not move.
// idleSecond      processor time while the host does nothing for a second.
// meters...       processor time of a second of updates, 30, with so many editors open. Hidden: the
//                 same with their windows hidden.
#include "controls/KnobController.h"
#include "controls/TextEditController.h"
#include "editor/ZoltaEditor.h"
#include "equalizer/BandDesign.h"
#include "graph/ZoltaEqualizerGraph.h"
#include "host/window/HostTheme.h"
#include "hosting/HostMemory.h"
#include "hosting/HostModel.h"
#include "widgets/SvgLabel.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QLabel>
#include <QPaintEvent>
#include <QPainter>
#include <QPixmap>
#include <QProcess>
#include <QTimer>

#include <benchmark/benchmark.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <malloc.h>
#include <memory>
#include <vector>

using CommonController_MemAPI::KnobController;
using CommonController_MemAPI::TextEditController;

namespace {

constexpr char StagesOption[] = "--stages-of-first-editor";
constexpr int UpdatesPerSecond = 30;
constexpr std::size_t SteppedParameter = 10;
constexpr std::array<int, 2> SteppedValues = {50, 51};
constexpr std::array<std::pair<std::size_t, int>, 6> Gains = {
    {{2, 80}, {6, -80}, {10, 50}, {14, -40}, {18, 40}, {22, -60}}};

/// The mixer: its services, with every band of every channel away from 0 dB.
struct Host
{
    Host()
    {
        for (unsigned short ch = 0; ch < defaultChannelCount; ++ch)
            for (const auto& [index, gain] : Gains)
                memory.setValue(parameterId(index), ch, gain, 0, 0, 1);
    }

    void step(int turn)
    {
        memory.setValue(parameterId(SteppedParameter), 0,
                        SteppedValues[static_cast<std::size_t>(turn & 1)], 0, 0, 1);
    }

    HostMemory memory;
    HostModel model{memory};
};

/// An editor in a window of its own, on the memory of a host.
class OpenEditor
{
public:
    OpenEditor(Host& host, double scale, int ch = 0)
    {
        m_editor.setModelInfo(&host.model);
        m_editor.initialize();
        m_editor.setMemAPI(&host.memory);
        m_editor.setCh(ch, partnerOf(ch));
        m_editor.setScale(scale);
    }
    ~OpenEditor() { m_editor.setMemAPI(nullptr); }
    OpenEditor(const OpenEditor&) = delete;
    OpenEditor& operator=(const OpenEditor&) = delete;

    void show()
    {
        m_editor.show();
        QApplication::processEvents();
    }
    void hide()
    {
        m_editor.hide();
        QApplication::processEvents();
    }
    QWidget& widget() { return m_editor; }

    template <class Widget> Widget* find(const char* name = nullptr)
    {
        return m_editor.findChild<Widget*>(QString::fromLatin1(name));
    }

private:
    ZoltaEditor m_editor;
};

/// Counts what is painted while it lives.
class PaintCount : public QObject
{
public:
    PaintCount() { qApp->installEventFilter(this); }

    /// Square pixels of the window that were painted at least once.
    double area() const
    {
        double sum = 0.0;
        for (const QRect& rect : m_region)
            sum += double(rect.width()) * rect.height();
        return sum;
    }
    double events() const { return m_events; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && watched->isWidgetType()) {
            const auto* widget = static_cast<QWidget*>(watched);
            const QPoint corner = widget->mapTo(widget->window(), QPoint());
            m_region += static_cast<QPaintEvent*>(event)->region().translated(corner);
            ++m_events;
        }
        return false;
    }

private:
    QRegion m_region;
    int m_events = 0;
};

double scaleOf(const benchmark::State& state) { return static_cast<double>(state.range(0)); }

/// Runs \a action some times and reports what one of them paints.
template <class Action> void countPaints(benchmark::State& state, Action action)
{
    constexpr int times = 30;
    double area = 0.0;
    double events = 0.0;
    for (int i = 0; i < times; ++i) {
        const PaintCount count;
        action(i);
        area += count.area();
        events += count.events();
    }
    state.counters["px"] = area / times;
    state.counters["paints"] = events / times;
}

/// Times \a action, and not what \a prepare and \a finish do before and after it.
template <class Prepare, class Action, class Finish>
void timeOnly(benchmark::State& state, Prepare prepare, Action action, Finish finish)
{
    QElapsedTimer timer;
    for (auto _ : state) {
        prepare();
        timer.start();
        action();
        state.SetIterationTime(static_cast<double>(timer.nsecsElapsed()) * 1e-9);
        finish();
    }
}

// A first editor ---------------------------------------------------------------------------------

/// The seconds of every stage that \a program prints, at \a scale.
std::vector<double> stagesOf(const QString& program, const QStringList& options, double scale)
{
    QProcess process;
    process.start(QCoreApplication::applicationDirPath() + u'/' + program,
                  options + QStringList{QString::number(scale)});
    process.waitForFinished();
    std::vector<double> seconds;
    for (const QByteArray& stage : process.readAllStandardOutput().split(' '))
        seconds.push_back(stage.toDouble() * 1e-9);
    return seconds;
}

/// One sample is the sum of the stages from \a first to \a last.
void sampleStages(benchmark::State& state, const QString& program, const QStringList& options,
                  std::size_t first, std::size_t last)
{
    for (auto _ : state) {
        const std::vector<double> stages = stagesOf(program, options, scaleOf(state));
        double sum = 0.0;
        for (std::size_t i = first; i <= last; ++i)
            sum += stages.at(i);
        state.SetIterationTime(sum);
    }
}

void sampleHost(benchmark::State& state, std::size_t first, std::size_t last)
{
    sampleStages(state, QStringLiteral("first_editor"), {}, first, last);
}

void sampleBuiltIn(benchmark::State& state, std::size_t stage)
{
    sampleStages(state, QStringLiteral("bench_editor"), {QLatin1String(StagesOption)}, stage,
                 stage);
}

void firstEditor(benchmark::State& state) { sampleHost(state, 0, 2); }
void firstEditorLibrary(benchmark::State& state) { sampleHost(state, 0, 0); }
void firstEditorWidgets(benchmark::State& state) { sampleBuiltIn(state, 0); }
void firstEditorPaint(benchmark::State& state) { sampleBuiltIn(state, 1); }

/// What this program does when it is started for a sample.
void printStages(double scale)
{
    applyHostTheme();
    QLabel window(QStringLiteral("Mixer"));
    window.show();
    QApplication::processEvents();
    Host host;
    QElapsedTimer timer;
    timer.start();
    OpenEditor editor(host, scale);
    const qint64 made = timer.nsecsElapsed();
    editor.show();
    const qint64 painted = timer.nsecsElapsed();
    std::printf("%lld %lld\n", made, painted - made);
}

// One editor -------------------------------------------------------------------------------------

double usedKibibytes()
{
    const auto info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd) / 1024.0;
}

void countMemory(benchmark::State& state, Host& host)
{
    constexpr int count = 8;
    std::vector<std::unique_ptr<OpenEditor>> editors;
    const double before = usedKibibytes();
    for (int i = 0; i < count; ++i)
        editors.push_back(std::make_unique<OpenEditor>(host, scaleOf(state)));
    const double open = usedKibibytes();
    for (const auto& editor : editors)
        editor->show();
    state.counters["KiB"] = (open - before) / count;
    state.counters["shown_KiB"] = (usedKibibytes() - before) / count;
}

void nextEditor(benchmark::State& state)
{
    Host host;
    OpenEditor first(host, scaleOf(state));
    first.show();
    countMemory(state, host);
    std::unique_ptr<OpenEditor> next;
    timeOnly(
        state, [] {},
        [&] {
            next = std::make_unique<OpenEditor>(host, scaleOf(state));
            next->show();
        },
        [&] { next.reset(); });
}

void editorRepaint(benchmark::State& state)
{
    Host host;
    OpenEditor editor(host, scaleOf(state));
    editor.show();
    // It covers all of the editor and lies below all other widgets.
    auto* ground = editor.find<SvgLabel>("m_pBackground");
    countPaints(state, [&](int) { ground->repaint(); });
    for (auto _ : state)
        ground->repaint();
}

class Picture : public QWidget
{
public:
    explicit Picture(const QPixmap& pixmap)
        : m_pixmap(pixmap)
    {
        setAttribute(Qt::WA_OpaquePaintEvent);
        resize(pixmap.size());
    }

protected:
    void paintEvent(QPaintEvent*) override { QPainter(this).drawPixmap(0, 0, m_pixmap); }

private:
    QPixmap m_pixmap;
};

QPixmap pictureOf(double scale)
{
    Host host;
    OpenEditor editor(host, scale);
    QImage image(editor.widget().size(), QImage::Format_RGB32);
    editor.widget().render(&image);
    return QPixmap::fromImage(image);
}

void pictureBlit(benchmark::State& state)
{
    Picture picture(pictureOf(scaleOf(state)));
    picture.show();
    QApplication::processEvents();
    countPaints(state, [&](int) { picture.repaint(); });
    for (auto _ : state)
        picture.repaint();
}

void knobStep(benchmark::State& state)
{
    Host host;
    OpenEditor editor(host, scaleOf(state));
    editor.show();
    const auto step = [&](int turn) {
        host.step(turn);
        QApplication::processEvents();
    };
    countPaints(state, step);
    int turn = 0;
    for (auto _ : state)
        step(turn++);
}

void knobStepWrite(benchmark::State& state)
{
    Host host;
    OpenEditor editor(host, scaleOf(state));
    editor.show();
    int turn = 0;
    timeOnly(
        state, [] {}, [&] { host.step(turn++); }, [] { QApplication::processEvents(); });
}

QWidget* steppedKnob(OpenEditor& editor)
{
    return editor.find<KnobController>("m_pMiddle2GainKnob");
}

QWidget* steppedText(OpenEditor& editor)
{
    return editor.find<TextEditController>("m_pMiddle2GainTextEdit");
}

QWidget* graph(OpenEditor& editor) { return editor.find<ZoltaEqualizerGraph>(); }

/// The repaint of one of the widgets that show the parameter. A repaint takes along everything that
/// waits for its own, so the others are hidden.
void timeStepOf(benchmark::State& state, QWidget* (*select)(OpenEditor&))
{
    Host host;
    OpenEditor editor(host, scaleOf(state));
    QWidget* widget = select(editor);
    for (const auto other : {steppedKnob, steppedText, graph})
        other(editor)->setVisible(other == select);
    editor.show();
    countPaints(state, [&](int turn) {
        host.step(turn);
        widget->repaint();
    });
    int turn = 0;
    timeOnly(
        state, [&] { host.step(turn++); }, [&] { widget->repaint(); }, [] {});
}

void knobStepKnob(benchmark::State& state) { timeStepOf(state, steppedKnob); }
void knobStepText(benchmark::State& state) { timeStepOf(state, steppedText); }
void knobStepGraph(benchmark::State& state) { timeStepOf(state, graph); }

// Meters -----------------------------------------------------------------------------------------

using Levels = std::vector<int>;

/// Every channel on its own way between about -33 and -3 dB, by up to 3 dB an update.
Levels movingLevels(int tick)
{
    Levels levels(HostModel::meterWordCount);
    for (std::size_t i = 0; i < levels.size(); ++i) {
        const double phase = 0.2 * tick + 0.7 * static_cast<double>(i);
        levels[i] = static_cast<int>(-180.0 + 120.0 * std::sin(phase) + 30.0 * std::sin(5 * phase));
    }
    return levels;
}

Levels swingingLevels(int tick) { return Levels(HostModel::meterWordCount, tick & 1 ? 1 : -1270); }

Levels sameLevels(int) { return Levels(HostModel::meterWordCount, -120); }

void tickMeters(benchmark::State& state, Levels (*levels)(int))
{
    Host host;
    OpenEditor editor(host, scaleOf(state));
    editor.show();
    const auto tick = [&](int turn) {
        host.memory.meters().notify(levels(turn));
        QApplication::processEvents();
    };
    tick(0);
    tick(1);
    countPaints(state, tick);
    int turn = 0;
    for (auto _ : state)
        tick(turn++);
}

void meterTick(benchmark::State& state) { tickMeters(state, movingLevels); }
void meterTickSwing(benchmark::State& state) { tickMeters(state, swingingLevels); }
void meterTickSame(benchmark::State& state) { tickMeters(state, sameLevels); }

double processorSeconds()
{
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

/// Takes the processor time of \a second, which stands for a second, as the time and as the share
/// of one processor.
template <class Second> void shareOfCore(benchmark::State& state, Second second)
{
    double sum = 0.0;
    for (auto _ : state) {
        const double before = processorSeconds();
        second();
        const double used = processorSeconds() - before;
        state.SetIterationTime(used);
        sum += used;
    }
    state.counters["core_%"] = 100.0 * sum / static_cast<double>(state.iterations());
}

void idleSecond(benchmark::State& state)
{
    Host host;
    OpenEditor editor(host, scaleOf(state));
    editor.show();
    const PaintCount count;
    shareOfCore(state, [] {
        QEventLoop loop;
        QTimer::singleShot(1000, &loop, &QEventLoop::quit);
        loop.exec();
    });
    state.counters["paints"] = count.events();
}

void secondOfMeters(benchmark::State& state, int editorCount, bool hidden)
{
    Host host;
    std::vector<std::unique_ptr<OpenEditor>> editors;
    for (int i = 0; i < editorCount; ++i) {
        editors.push_back(
            std::make_unique<OpenEditor>(host, scaleOf(state), i % defaultChannelCount));
        editors.back()->show();
        if (hidden)
            editors.back()->hide();
    }
    int tick = 0;
    shareOfCore(state, [&] {
        for (int i = 0; i < UpdatesPerSecond; ++i) {
            host.memory.meters().notify(movingLevels(tick++));
            QApplication::processEvents();
        }
    });
}

void meters16(benchmark::State& state) { secondOfMeters(state, 16, false); }
void meters64(benchmark::State& state) { secondOfMeters(state, 64, false); }
void metersHidden16(benchmark::State& state) { secondOfMeters(state, 16, true); }
void metersHidden64(benchmark::State& state) { secondOfMeters(state, 64, true); }

void atScales(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Arg(1)->Arg(2)->Unit(benchmark::kMicrosecond);
}

void inProcesses(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Apply(atScales)->UseManualTime()->Iterations(4);
}

void bySeconds(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Apply(atScales)->UseManualTime()->Iterations(2);
}

} // namespace

BENCHMARK(firstEditor)->Apply(inProcesses);
BENCHMARK(firstEditorLibrary)->Apply(inProcesses);
BENCHMARK(firstEditorWidgets)->Apply(inProcesses);
BENCHMARK(firstEditorPaint)->Apply(inProcesses);
BENCHMARK(nextEditor)->Apply(atScales)->UseManualTime()->Iterations(10);
BENCHMARK(pictureBlit)->Apply(atScales);
BENCHMARK(editorRepaint)->Apply(atScales);
BENCHMARK(knobStep)->Apply(atScales);
BENCHMARK(knobStepWrite)->Apply(atScales)->UseManualTime()->Iterations(500);
BENCHMARK(knobStepKnob)->Apply(atScales)->UseManualTime()->Iterations(500);
BENCHMARK(knobStepText)->Apply(atScales)->UseManualTime()->Iterations(500);
BENCHMARK(knobStepGraph)->Apply(atScales)->UseManualTime()->Iterations(500);
BENCHMARK(meterTick)->Apply(atScales);
BENCHMARK(meterTickSwing)->Apply(atScales);
BENCHMARK(meterTickSame)->Apply(atScales);
BENCHMARK(idleSecond)->Apply(atScales)->UseManualTime()->Iterations(1);
BENCHMARK(meters16)->Apply(bySeconds);
BENCHMARK(meters64)->Apply(bySeconds);
BENCHMARK(metersHidden16)->Apply(bySeconds);
BENCHMARK(metersHidden64)->Apply(bySeconds);

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    if (argc == 3 && qstrcmp(argv[1], StagesOption) == 0) {
        printStages(std::atof(argv[2]));
        return 0;
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
