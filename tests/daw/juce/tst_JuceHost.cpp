// SPDX-License-Identifier: GPL-3.0-or-later
// Both formats in a host on JUCE's hosting classes.
#include "daw/lv2/Ports.h"
#include "daw/lv2/Turtle.h"
#include "daw/window/EmbeddedEditor.h"
#include "engine/ChannelProcessor.h"
#include "equalizer/Decibels.h"
#include "parameters/ParameterText.h"
#include "tests/daw/HostWindow.h"
#include "tests/support/TestObject.h"

#include <QScreen>

#include <juce_audio_processors/juce_audio_processors.h>

#include <cmath>
#include <complex>
#include <memory>
#include <numbers>

namespace {

constexpr int blockLength = 256;
constexpr double defaultRate = 48000.0;
constexpr int patience = 20000;    // ms
constexpr double tolerance = 0.01; // dB

juce::String text(const std::string& words) { return juce::String(words); }

/// Bands of every kind, some of them narrow, and levels.
ChannelValues busyValues()
{
    ChannelValues values = defaultValues();
    const std::array<std::pair<std::size_t, int>, 12> changes = {{{0, 2},
                                                                  {1, 310},
                                                                  {2, 65},
                                                                  {4, 400},
                                                                  {6, -83},
                                                                  {9, 633},
                                                                  {10, 57},
                                                                  {14, -31},
                                                                  {18, 42},
                                                                  {20, 1},
                                                                  {21, 1090},
                                                                  {24, 21}}};
    for (const auto& [index, value] : changes)
        values[index] = value;
    return values;
}

std::vector<float> impulse(std::size_t length)
{
    std::vector<float> samples(length);
    samples.front() = 0.5F;
    return samples;
}

/// What the engine makes of it.
std::vector<float> equalized(const ChannelValues& values, std::vector<float> samples)
{
    ChannelProcessor processor;
    processor.setValues(values);
    std::vector<double> block(samples.begin(), samples.end());
    processor.process(block);
    std::transform(block.begin(), block.end(), samples.begin(),
                   [](double sample) { return static_cast<float>(sample); });
    return samples;
}

/// In dB, against the impulse that went in.
double levelAt(const std::vector<float>& response, double frequency, double rate)
{
    std::complex<double> sum = 0.0;
    for (std::size_t i = 0; i < response.size(); ++i)
        sum += double{response[i]} *
               std::polar(1.0, -2.0 * std::numbers::pi * frequency / rate * static_cast<double>(i));
    return decibelsOf(std::abs(sum) / 0.5);
}

/// A loaded plug-in with two channels.
class Plugin
{
public:
    explicit Plugin(std::unique_ptr<juce::AudioPluginInstance> instance)
        : m_instance(std::move(instance))
    {}
    ~Plugin() { m_instance->releaseResources(); }
    Plugin(const Plugin&) = delete;
    Plugin& operator=(const Plugin&) = delete;

    juce::AudioPluginInstance* operator->() const { return m_instance.get(); }
    bool isLv2() const { return m_instance->getPluginDescription().pluginFormatName == "LV2"; }

    juce::AudioProcessorParameter* parameter(std::size_t index) const
    {
        for (juce::AudioProcessorParameter* candidate : m_instance->getParameters()) {
            if (candidate->getName(100) == juce::String(parameterTable[index].title))
                return candidate;
        }
        qFatal("There is no parameter %s.", parameterTable[index].title);
    }
    /// What a user of this format types.
    juce::String typed(std::size_t index, int value) const
    {
        const bool isNumber = isLv2() && parameter(index)->getAllValueStrings().isEmpty();
        return isNumber ? text(portNumber(index, value))
                        : text(formatParameter(parameterTable[index], value).value());
    }
    /// Where a value lies between the least and the greatest.
    float normalized(std::size_t index, int value) const
    {
        const Parameter& parameter = parameterTable[index];
        const auto number = [&](int raw) {
            return isLv2() ? std::stod(portNumber(index, raw)) : double(raw);
        };
        return static_cast<float>((number(value) - number(parameter.minimum)) /
                                  (number(parameter.maximum) - number(parameter.minimum)));
    }
    void setAll(const ChannelValues& values)
    {
        for (std::size_t i = 0; i < values.size(); ++i)
            parameter(i)->setValue(normalized(i, values[i]));
    }

    /// Begins anew: what is set before the first sample is in force at once. JUCE forgets what was
    /// set in an LV2 plug-in before this, unless a block was processed since.
    void prepare(double rate = defaultRate)
    {
        m_instance->releaseResources();
        m_instance->setRateAndBufferSizeDetails(rate, blockLength);
        m_instance->prepareToPlay(rate, blockLength);
    }
    /// What comes out of the right channel; the left one has silence.
    std::vector<float> process(std::vector<float> samples)
    {
        juce::MidiBuffer none;
        for (std::size_t first = 0; first < samples.size(); first += blockLength) {
            const auto count =
                static_cast<int>(std::min<std::size_t>(blockLength, samples.size() - first));
            juce::AudioBuffer<float> block(2, count);
            block.clear();
            block.copyFrom(1, 0, samples.data() + first, count);
            m_instance->processBlock(block, none);
            std::copy_n(block.getReadPointer(1), count, samples.data() + first);
        }
        return samples;
    }
    juce::MemoryBlock state() const
    {
        juce::MemoryBlock block;
        m_instance->getStateInformation(block);
        return block;
    }

private:
    std::unique_ptr<juce::AudioPluginInstance> m_instance;
};

/// The editor in a window of its own.
class EditorWindow
{
public:
    explicit EditorWindow(const Plugin& plugin)
        : m_editor(plugin->createEditorIfNeeded())
    {
        if (!m_editor)
            return;
        m_editor->addToDesktop(0);
        m_editor->setTopLeftPosition(0, 0);
        m_editor->setVisible(true);
    }

    juce::AudioProcessorEditor* operator->() const { return m_editor.get(); }
    /// Waits until the editor's program has painted.
    bool isShownSoon() const
    {
        return runUntil([this] { return isShown(); });
    }
    void close() { m_editor.reset(); }

    template <typename Condition> static bool runUntil(Condition condition)
    {
        QElapsedTimer clock;
        clock.start();
        while (!condition() && clock.elapsed() < patience)
            juce::MessageManager::getInstance()->runDispatchLoopUntil(20);
        return condition();
    }

private:
    bool isShown() const
    {
        const QImage picture =
            qGuiApp->primaryScreen()->grabWindow(0, m_editor->getWidth() / 2, 4, 1, 1).toImage();
        const QColor color = picture.pixelColor(0, 0);
        return color != HostWindow::ground && color != Qt::black && color != Qt::white;
    }

    std::unique_ptr<juce::AudioProcessorEditor> m_editor;
};

} // namespace

class tst_JuceHost : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_juce = std::make_unique<juce::ScopedJuceInitialiser_GUI>();
        m_formats = std::make_unique<juce::AudioPluginFormatManager>();
        auto* lv2 = new juce::LV2PluginFormat;
        m_formats->addFormat(lv2);
        auto* vst3 = new juce::VST3PluginFormat;
        m_formats->addFormat(vst3);
        lv2->searchPathsForPlugins(juce::FileSearchPath(LV2_FOLDER), false);
        lv2->findAllTypesForFile(m_found, stereoUri);
        vst3->findAllTypesForFile(m_found, VST3_BUNDLE);
        QCOMPARE(m_found.size(), 2);
    }
    void cleanupTestCase()
    {
        m_found.clear();
        m_formats.reset();
        m_juce.reset();
    }
    void cleanup() { QTRY_COMPARE(childrenRunning(EDITOR_PROGRAM), QStringList()); }

    void everyParameterTakesTexts_data() { formats(); }
    void everyParameterTakesTexts()
    {
        checkValues([](Plugin& plugin, std::size_t index, int value) {
            auto* parameter = plugin.parameter(index);
            parameter->setValue(parameter->getValueForText(plugin.typed(index, value)));
        });
    }

    void everyParameterTakesValues_data() { formats(); }
    void everyParameterTakesValues()
    {
        checkValues([](Plugin& plugin, std::size_t index, int value) {
            plugin.parameter(index)->setValue(plugin.normalized(index, value));
        });
    }

    void soundsAsTheCurve_data() { formats(); }
    void soundsAsTheCurve()
    {
        Plugin plugin = load();
        const ChannelValues values = busyValues();
        for (const double rate : {44100.0, 48000.0, 96000.0}) {
            plugin.prepare(rate);
            plugin.setAll(values);
            const std::vector<float> response = plugin.process(impulse(32768));
            EqualizerBands bands;
            bands.setSampleRate(rate);
            setBands(bands, values);
            const double level = inputLevelOf(values) + outputLevelOf(values);
            for (double frequency = 20.0; frequency < 20000.0; frequency *= 1.2) {
                const double drawn = bands.response().levels(frequency, rate).total + level;
                const double heard = levelAt(response, frequency, rate);
                QVERIFY2(std::abs(heard - drawn) < tolerance,
                         qPrintable(QStringLiteral("%1 Hz at %2 Hz: %3 dB, drawn %4 dB")
                                        .arg(frequency)
                                        .arg(rate)
                                        .arg(heard)
                                        .arg(drawn)));
            }
        }
    }

    void latencyIsThatOfTheDrive_data() { formats(); }
    void latencyIsThatOfTheDrive()
    {
        Plugin plugin = load();
        plugin.prepare();
        plugin.process(impulse(blockLength));
        QCOMPARE(plugin->getLatencySamples(), 0);
        plugin.parameter(parameterCount - 1)->setValue(1.0F);
        plugin.process(impulse(blockLength));
        QVERIFY(
            EditorWindow::runUntil([&] { return plugin->getLatencySamples() == Drive::latency; }));
    }

    void aStateMakesTheSamePlugin_data() { formats(); }
    void aStateMakesTheSamePlugin()
    {
        Plugin first = load();
        Plugin second = load();
        first.prepare();
        first.setAll(busyValues());
        const std::vector<float> heard = first.process(impulse(4096));
        const juce::MemoryBlock state = first.state();
        QVERIFY(second.state() != state);
        second->setStateInformation(state.getData(), static_cast<int>(state.getSize()));
        QVERIFY(second.state() == state);
        second.prepare();
        QCOMPARE(second.process(impulse(4096)), heard);
        for (std::size_t i = 0; i < parameterCount; ++i)
            QCOMPARE(second.parameter(i)->getValue(), first.parameter(i)->getValue());
    }

    void theEditorOpensAndCloses_data() { formats(); }
    void theEditorOpensAndCloses()
    {
        Plugin plugin = load();
        for (int turn = 0; turn < 3; ++turn) {
            EditorWindow window(plugin);
            QVERIFY(window.isShownSoon());
            QCOMPARE(window->getWidth(), EmbeddedEditor::naturalWidth);
            QCOMPARE(window->getHeight(), EmbeddedEditor::naturalHeight);
            QCOMPARE(childrenRunning(EDITOR_PROGRAM).size(), 1);
            window.close();
            QTRY_COMPARE(childrenRunning(EDITOR_PROGRAM), QStringList());
        }
    }

    void theWheelInTheEditorIsHeard_data() { formats(); }
    void theWheelInTheEditorIsHeard()
    {
        Plugin plugin = load();
        plugin.prepare();
        EditorWindow window(plugin);
        QVERIFY(window.isShownSoon());
        const float before = plugin.parameter(2)->getValue();
        xdotool({"mousemove", "306", "455", "click", "4"});
        QVERIFY(EditorWindow::runUntil([&] {
            plugin.process(impulse(blockLength));
            return plugin.parameter(2)->getValue() > before;
        }));
        plugin.prepare();
        ChannelValues values = defaultValues();
        const std::vector<float> heard = plugin.process(impulse(blockLength));
        for (values[2] = 1; plugin.normalized(2, values[2]) < plugin.parameter(2)->getValue();)
            ++values[2];
        QCOMPARE(heard, equalized(values, impulse(blockLength)));
    }

private:
    void formats()
    {
        QTest::addColumn<int>("index");
        for (int i = 0; i < m_found.size(); ++i)
            QTest::newRow(m_found[i]->pluginFormatName.toRawUTF8()) << i;
    }
    Plugin load()
    {
        QFETCH(int, index);
        juce::String error;
        auto instance =
            m_formats->createPluginInstance(*m_found[index], 48000.0, blockLength, error);
        if (!instance)
            qFatal("%s", error.toRawUTF8());
        return Plugin(std::move(instance));
    }
    /// Sets some values of every parameter, the ends among them, and listens whether they act.
    template <typename Set> void checkValues(Set set)
    {
        Plugin plugin = load();
        ChannelValues values = busyValues();
        plugin.prepare();
        plugin.setAll(values);
        for (std::size_t index = 0; index < parameterCount; ++index) {
            const Parameter& parameter = parameterTable[index];
            const int step = std::max((parameter.maximum - parameter.minimum) / 7, 1);
            for (int value = parameter.minimum; value <= parameter.maximum; value += step) {
                set(plugin, index, value);
                values[index] = value;
                QVERIFY2(
                    plugin.process(impulse(600)) == equalized(values, impulse(600)),
                    qPrintable(
                        QStringLiteral("%1 = %2").arg(QLatin1String(parameter.title)).arg(value)));
                plugin.prepare();
            }
            values[index] = busyValues()[index];
            set(plugin, index, values[index]);
        }
    }

    std::unique_ptr<juce::ScopedJuceInitialiser_GUI> m_juce;
    std::unique_ptr<juce::AudioPluginFormatManager> m_formats;
    juce::OwnedArray<juce::PluginDescription> m_found;
};

QTEST_MAIN(tst_JuceHost)
#include "tst_JuceHost.moc"
