// SPDX-License-Identifier: GPL-3.0-or-later
// What the mixer's analyzer costs, thirty times a second: a spectrum of the newest samples of a
// pair (the number behind the slash is the order of its transforms), and the paint of it in a
// window of Qt's offscreen platform, at a scale. "tap" is what the audio thread does for it, of 256
// samples, without and with a listener.
#include "engine/MixBus.h"
#include "engine/SignalTap.h"
#include "host/analysis/SignalReader.h"
#include "host/audio/AudioCallback.h"
#include "host/audio/AudioDevice.h"
#include "host/audio/AudioSession.h"
#include "host/model/MixerModel.h"
#include "host/model/SettingsPublisher.h"
#include "host/window/AnalyzerView.h"
#include "hosting/HostMemory.h"

#include <QApplication>

#include <benchmark/benchmark.h>

#include <random>

namespace {

constexpr int rate = 48000;
constexpr std::size_t tick = rate / 30;
constexpr QSize viewSize(977, 236);

using Samples = std::vector<float>;

Samples noise(std::size_t count)
{
    std::minstd_rand generator(1);
    std::uniform_real_distribution<float> random(-0.25F, 0.25F);
    Samples samples(count);
    std::generate(samples.begin(), samples.end(), [&] { return random(generator); });
    return samples;
}

/// Samples until there are enough for every transform.
void fill(SignalTap& tap)
{
    const Samples samples = noise(SignalTap::capacity);
    const std::vector<double> block(samples.begin(), samples.end());
    tap.writeBefore(block);
    tap.writeAfter(block);
}

void tap(benchmark::State& state)
{
    SignalTap signal;
    if (state.range(0) != 0)
        signal.listen();
    const Samples samples = noise(256);
    const std::vector<double> block(samples.begin(), samples.end());
    for (auto _ : state) {
        signal.writeBefore(block);
        signal.writeAfter(block);
    }
}

void spectrum(benchmark::State& state)
{
    SpectrumAnalyzer analyzer;
    AnalyzerSettings settings;
    settings.order = static_cast<int>(state.range(0));
    analyzer.setSettings(settings);
    analyzer.setColumns(1242);
    std::array<SignalTap, 2> taps;
    SignalReader reader({&taps[0], &taps[1]}, analyzer);
    for (SignalTap& each : taps)
        fill(each);
    const std::vector<double> block(tick, 0.1);
    for (auto _ : state) {
        for (SignalTap& each : taps) {
            each.writeBefore(block);
            each.writeAfter(block);
        }
        if (!reader.update())
            state.SkipWithError("no spectrum");
    }
}

/// A sound device that asks for samples when it is told to.
class StillDevice : public AudioDevice
{
public:
    void call(const Samples& input)
    {
        const std::array<const float*, 2> inputs = {input.data(), input.data()};
        std::array<Samples, 2> heard = {Samples(input.size()), Samples(input.size())};
        const std::array<float*, 2> outputs = {heard[0].data(), heard[1].data()};
        m_callback->process(inputs, outputs, input.size());
    }

    std::vector<AudioDeviceInfo> list() const override { return {}; }
    int rateFor(const AudioDeviceSettings&, int) const override { return rate(); }
    Status open(const AudioDeviceSettings&, int) override { return {}; }
    Status start(AudioCallback& callback) override
    {
        m_callback = &callback;
        return {};
    }
    void close() override {}
    QString name() const override { return {}; }
    int rate() const override { return ::rate; }
    Status status() const override { return {}; }
    bool mayComeBack() const override { return false; }
    std::int64_t calls() const override { return 0; }

private:
    AudioCallback* m_callback = nullptr;
};

/// An analyzer with everything on, at a scale, that has seen two seconds of noise.
class ShownView
{
public:
    explicit ShownView(int scale)
    {
        HostMemory::Values values = m_memory.values(0);
        values[6] = 80;
        values[10] = -60;
        m_memory.write(0, values);
        m_memory.setStrip(0, StripParameter::Source, SourceInput1);
        m_publisher.publish();
        AnalyzerSettings settings;
        settings.peaks = true;
        m_view.setSettings(settings);
        m_view.resize(viewSize * scale); // as many pixels
        m_mixerModel.setTransport(&m_session);
        m_session.setDevice({QString(), 0, 0, true});
        static_cast<void>(m_session.play());
        m_view.show();
        for (int i = 0; i < 60; ++i)
            play();
        QApplication::processEvents();
    }

    AnalyzerView& view() { return m_view; }
    void play() { m_device->call(m_noise); }

private:
    HostMemory m_memory;
    MixerModel m_mixerModel{m_memory};
    MixBus m_bus;
    SettingsPublisher m_publisher{m_mixerModel, m_bus};
    StillDevice* m_device = new StillDevice; // the session's
    AudioSession m_session{m_bus, std::unique_ptr<AudioDevice>(m_device), std::chrono::hours(1)};
    AnalyzerView m_view{m_mixerModel, 0};
    Samples m_noise = noise(tick);
};

void paint(benchmark::State& state)
{
    ShownView shown(static_cast<int>(state.range(0)));
    for (auto _ : state)
        shown.view().repaint();
}

/// Another curve, and so another ground, too.
void groundAndPaint(benchmark::State& state)
{
    ShownView shown(static_cast<int>(state.range(0)));
    int hertz = 0;
    for (auto _ : state) {
        shown.view().setSampleRate((hertz ^= 1) != 0 ? 48000 : 96000);
        shown.view().repaint();
    }
}

} // namespace

BENCHMARK(tap)->Arg(0)->Arg(1);
BENCHMARK(spectrum)->DenseRange(AnalyzerSettings::smallestOrder, AnalyzerSettings::largestOrder);
BENCHMARK(paint)->Arg(1)->Arg(2)->Unit(benchmark::kMicrosecond);
BENCHMARK(groundAndPaint)->Arg(1)->Arg(2)->Unit(benchmark::kMicrosecond);

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
