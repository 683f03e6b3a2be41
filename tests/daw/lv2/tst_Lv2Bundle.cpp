// SPDX-License-Identifier: GPL-3.0-or-later
#include "daw/lv2/Ports.h"
#include "daw/lv2/Turtle.h"
#include "parameters/ParameterScale.h"
#include "tests/engine/EngineTesting.h"
#include "tests/engine/RealtimeTrap.h"
#include "tests/support/TestObject.h"

#include <lv2/core/lv2.h>

#include <QProcess>

#include <dlfcn.h>
#include <limits>
#include <map>

using namespace EngineTesting;

namespace {

/// An instance with a buffer at each port, as a host has it.
class Instance
{
public:
    Instance(const LV2_Descriptor* descriptor, double rate, std::size_t frames)
        : m_descriptor(descriptor)
        , m_channels(std::string_view(descriptor->URI) == monoUri ? 1 : 2)
        , m_handle(descriptor->instantiate(descriptor, rate, "", nullptr))
    {
        const std::vector<Port> ports = portsOf(m_channels);
        for (std::size_t i = 0; i < ports.size(); ++i) {
            std::vector<float>& buffer = m_buffers[symbolOf(ports[i], m_channels)];
            buffer.assign(ports[i].isAudio() ? frames : 1, defaultOf(ports[i]));
            descriptor->connect_port(m_handle, std::uint32_t(i), buffer.data());
        }
        descriptor->activate(m_handle);
    }
    ~Instance() { m_descriptor->cleanup(m_handle); }
    Instance(const Instance&) = delete;
    Instance& operator=(const Instance&) = delete;

    float& operator[](const char* symbol) { return m_buffers.at(symbol).front(); }
    std::vector<float>& buffer(const char* symbol) { return m_buffers.at(symbol); }
    void run(std::size_t frames) { m_descriptor->run(m_handle, std::uint32_t(frames)); }
    void set(const Values& values)
    {
        for (std::size_t i = 0; i < values.size(); ++i)
            m_buffers.at(symbolOf({PortRole::Parameter, i}, m_channels)).front() =
                std::stof(portNumber(i, values[i]));
    }
    LV2_Handle handle() const { return m_handle; }

private:
    static float defaultOf(const Port& port)
    {
        if (port.role == PortRole::Parameter)
            return std::stof(portNumber(port.number, parameterTable[port.number].defaultValue));
        return port.role == PortRole::Enabled ? 1.0F : 0.0F;
    }

    const LV2_Descriptor* m_descriptor;
    std::size_t m_channels;
    LV2_Handle m_handle;
    std::map<std::string, std::vector<float>> m_buffers;
};

} // namespace

class tst_Lv2Bundle : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void exportsOneFunction();
    void offersTwoPlugins();
    void symbolsStay();
    void everyValueHasItsNumber();
    void soundsAsTheEngine_data();
    void soundsAsTheEngine();
    void numbersCountAsTheNearestStep();
    void reportsLatencyAndLevels();
    void bypassPassesEveryBit();
    void toleratesMissingPortsAndBadRates();
    void runningNeitherAllocatesNorLocks();

private:
    void* m_library = nullptr;
    LV2_Descriptor_Function m_descriptors = nullptr;
};

void tst_Lv2Bundle::initTestCase()
{
    m_library = dlopen(ZOLTA_LV2_LIBRARY, RTLD_NOW | RTLD_LOCAL);
    QVERIFY2(m_library, dlerror());
    m_descriptors = reinterpret_cast<LV2_Descriptor_Function>(dlsym(m_library, "lv2_descriptor"));
    QVERIFY(m_descriptors);
}

void tst_Lv2Bundle::cleanupTestCase() { QCOMPARE(dlclose(m_library), 0); }

void tst_Lv2Bundle::exportsOneFunction()
{
    QProcess nm;
    nm.start(QStringLiteral(ZOLTA_NM), {QStringLiteral("-D"), QStringLiteral("--defined-only"),
                                        QStringLiteral("-j"), QStringLiteral(ZOLTA_LV2_LIBRARY)});
    QVERIFY(nm.waitForFinished());
    QCOMPARE(nm.readAllStandardOutput(), QByteArray("lv2_descriptor\n"));
}

void tst_Lv2Bundle::offersTwoPlugins()
{
    QCOMPARE(m_descriptors(0)->URI, "urn:zolta:equalizer");
    QCOMPARE(m_descriptors(1)->URI, "urn:zolta:equalizer-mono");
    QVERIFY(!m_descriptors(2));
    QVERIFY(!m_descriptors(std::numeric_limits<std::uint32_t>::max()));
}

// Sessions hold them, and older hosts the indices.
void tst_Lv2Bundle::symbolsStay()
{
    QStringList symbols;
    for (const Port& port : portsOf(2))
        symbols << QString::fromStdString(symbolOf(port, 2));
    QCOMPARE(
        symbols.join(QLatin1Char(' ')),
        QStringLiteral("in_l in_r out_l out_r low_type low_frequency low_gain low_on "
                       "middle_1_quality middle_1_frequency middle_1_gain middle_1_on "
                       "middle_2_quality middle_2_frequency middle_2_gain middle_2_on "
                       "middle_3_quality middle_3_frequency middle_3_gain middle_3_on "
                       "middle_4_quality middle_4_frequency middle_4_gain middle_4_on "
                       "high_type high_frequency high_gain high_on input_level output_level drive "
                       "enabled latency meter_in_l meter_in_r meter_out_l meter_out_r"));
    QCOMPARE(symbolOf(portsOf(1)[0], 1), std::string("in"));
    QCOMPARE(symbolOf(portsOf(1)[1], 1), std::string("out"));
    QCOMPARE(portsOf(1).size(), portsOf(2).size() - 4);
}

void tst_Lv2Bundle::everyValueHasItsNumber()
{
    for (std::size_t i = 0; i < parameterCount; ++i) {
        const Parameter& parameter = parameterTable[i];
        for (int value = parameter.minimum; value <= parameter.maximum; ++value)
            QCOMPARE(stepOf(parameter.kind, double{std::stof(portNumber(i, value))}), value);
    }
    QCOMPARE(portNumber(1, parameterTable[1].defaultValue), std::string("80"));
    QCOMPARE(portNumber(21, parameterTable[21].defaultValue), std::string("12500"));
    QCOMPARE(portNumber(4, parameterTable[4].defaultValue), std::string("1.5"));
    QCOMPARE(portNumber(2, -125), std::string("-12.5"));
}

void tst_Lv2Bundle::soundsAsTheEngine_data()
{
    QTest::addColumn<int>("plugin");
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("drive");
    for (const int plugin : {0, 1}) {
        for (const int rate : {44100, 96000}) {
            for (const int drive : {0, 1})
                QTest::addRow("%d %d %d", plugin, rate, drive) << plugin << rate << drive;
        }
    }
}

void tst_Lv2Bundle::soundsAsTheEngine()
{
    QFETCH(const int, plugin);
    QFETCH(const int, rate);
    QFETCH(const int, drive);
    const Values values = valuesFrom(
        QStringLiteral(
            "1=0 2=300 5=10 6=350 7=-80 11=60 15=-30 19=40 21=2 23=-60 25=20 26=-35 27=%1")
            .arg(drive));
    const Block signal = noise(1000);
    Instance instance(m_descriptors(std::uint32_t(plugin)), rate, signal.size());
    instance.set(values);
    const auto expected = [&](double sign) {
        ChannelProcessor engine;
        engine.setSampleRate(rate);
        engine.setValues(values);
        std::vector<float> floats(signal.begin(), signal.end());
        Block block(floats.begin(), floats.end());
        std::for_each(block.begin(), block.end(), [sign](double& s) { s *= sign; });
        engine.process(block);
        return std::vector<float>(block.begin(), block.end());
    };
    const std::vector<float> in(signal.begin(), signal.end());
    if (plugin == 1) {
        instance.buffer("in").assign(in.begin(), in.end());
        instance.run(in.size());
        QCOMPARE(instance.buffer("out"), expected(1.0));
        return;
    }
    instance.buffer("in_l").assign(in.begin(), in.end());
    std::transform(in.begin(), in.end(), instance.buffer("in_r").begin(), std::negate<>());
    instance.run(in.size());
    QCOMPARE(instance.buffer("out_l"), expected(1.0));
    QCOMPARE(instance.buffer("out_r"), expected(-1.0));
}

// Whatever a host writes: between steps, beyond the range, nothing at all.
void tst_Lv2Bundle::numbersCountAsTheNearestStep()
{
    const Block signal = noise(64);
    const auto sound = [&](float frequency, float gain, float type) {
        Instance instance(m_descriptors(1), 48000.0, signal.size());
        instance.buffer("in").assign(signal.begin(), signal.end());
        instance["low_frequency"] = frequency;
        instance["low_gain"] = gain;
        instance["low_type"] = type;
        instance.run(signal.size());
        return instance.buffer("out");
    };
    constexpr float infinity = std::numeric_limits<float>::infinity();
    constexpr float nothing = std::numeric_limits<float>::quiet_NaN();
    QCOMPARE(sound(80.05F, 6.04F, 2.4F), sound(80.0F, 6.0F, 2.0F));
    QCOMPARE(sound(1e9F, 1000.0F, -5.0F), sound(20000.0F, 20.0F, 0.0F));
    QCOMPARE(sound(-infinity, infinity, infinity), sound(20.0F, 20.0F, 3.0F));
    QCOMPARE(sound(nothing, nothing, nothing), sound(80.0F, 0.0F, 3.0F));
    QVERIFY(sound(80.0F, 6.0F, 2.0F) != sound(80.0F, 6.1F, 2.0F));
}

void tst_Lv2Bundle::reportsLatencyAndLevels()
{
    Instance instance(m_descriptors(0), 48000.0, 256);
    instance.run(0);
    QCOMPARE(instance["latency"], 0.0F);
    QCOMPARE(instance["meter_in_l"], -127.0F);
    instance["drive"] = 1.0F;
    instance["enabled"] = 0.0F;
    instance.run(0);
    QCOMPARE(instance["latency"], 78.0F);
    instance["drive"] = 0.0F;
    instance["enabled"] = 1.0F;
    instance["output_level"] = 20.0F;
    instance.buffer("in_l").assign(256, 0.5F);
    instance.buffer("in_r").assign(256, 5.0F);
    instance.run(256);
    QCOMPARE(instance["latency"], 0.0F);
    QCOMPARE(instance["meter_in_l"], -6.0F);
    QCOMPARE(instance["meter_in_r"], 14.0F);
    QCOMPARE(instance["meter_out_r"], 20.0F); // its range ends there
}

void tst_Lv2Bundle::bypassPassesEveryBit()
{
    Instance instance(m_descriptors(1), 48000.0, 500);
    const Block signal = noise(500);
    instance.buffer("in").assign(signal.begin(), signal.end());
    instance["input_level"] = 12.0F;
    instance["enabled"] = 0.0F;
    instance.run(500);
    QCOMPARE(instance.buffer("out"), instance.buffer("in"));
    instance["enabled"] = 1.0F;
    instance.run(500);
    QVERIFY(instance.buffer("out") != instance.buffer("in"));
}

void tst_Lv2Bundle::toleratesMissingPortsAndBadRates()
{
    const LV2_Descriptor* descriptor = m_descriptors(0);
    for (const double rate : {0.0, -1.0, std::nan("")})
        QVERIFY(!descriptor->instantiate(descriptor, rate, "", nullptr));
    LV2_Handle handle = descriptor->instantiate(descriptor, 48000.0, "", nullptr);
    descriptor->connect_port(handle, 99, nullptr);
    descriptor->run(handle, 100);
    descriptor->cleanup(handle);
    QVERIFY(!descriptor->extension_data);
}

void tst_Lv2Bundle::runningNeitherAllocatesNorLocks()
{
    {
        const RealtimeTrap trap; // reaches into the library
        const LV2_Descriptor* descriptor = m_descriptors(0);
        descriptor->cleanup(descriptor->instantiate(descriptor, 48000.0, "", nullptr));
        QVERIFY(trap.allocations() > 0);
    }
    Instance instance(m_descriptors(0), 48000.0, 8192);
    std::minstd_rand generator(3);
    for (int round = 0; round < 60; ++round) {
        Values values{};
        for (std::size_t i = 0; i < values.size(); ++i) {
            const Parameter& p = parameterTable[i];
            values[i] = std::uniform_int_distribution<int>(p.minimum, p.maximum)(generator);
        }
        instance.set(values);
        instance["enabled"] = float(round % 2);
        const RealtimeTrap trap;
        instance.run(std::size_t(round * 17));
        QCOMPARE(trap.allocations(), 0);
        QCOMPARE(trap.locks(), 0);
    }
}

QTEST_APPLESS_MAIN(tst_Lv2Bundle)

#include "tst_Lv2Bundle.moc"
