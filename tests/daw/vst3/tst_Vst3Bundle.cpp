// SPDX-License-Identifier: GPL-3.0-or-later
#include "daw/processor/EqualizerProcessor.h"
#include "daw/vst3/ParameterList.h"
#include "hosting/RestoredValues.h"
#include "hosting/StateFile.h"
#include "parameters/FactoryPresets.h"
#include "parameters/ParameterText.h"
#include "parameters/SavedState.h"
#include "tests/daw/vst3/Vst3Host.h"
#include "tests/engine/EngineTesting.h"
#include "tests/engine/RealtimeTrap.h"
#include "tests/support/TestObject.h"

#include <public.sdk/source/common/memorystream.h>
#include <public.sdk/source/vst/vstpresetfile.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

#include <limits>

using namespace EngineTesting;
using namespace Steinberg;
using Vst3Host::Plugin;

namespace {

constexpr Vst::ParamID bypass = 0;
constexpr Vst::ParamID drive = 27;
constexpr Vst::ParamID program = 100;
constexpr Vst::ParamID latency = 101;
constexpr Vst::ParamID meters = 102;
const QString busy = QStringLiteral("1=0 2=300 5=10 6=350 7=-80 11=60 15=-30 19=40 21=2 23=-60 "
                                    "25=20 26=-35");

double normalized(std::size_t index, int value)
{
    const Parameter& p = parameterTable[index];
    return double(value - p.minimum) / (p.maximum - p.minimum);
}

QByteArray bytesOf(const Values& values, bool isBypassed = false)
{
    const auto bytes = encodeState({values, isBypassed});
    return {reinterpret_cast<const char*>(bytes.data()), qsizetype(bytes.size())};
}

QString plain(const Vst::TChar* text) { return QString::fromUtf16(text); }

/// One bus through the processor that every format shares.
template <typename Sample>
std::vector<Sample> expected(EqualizerProcessor* processor, std::vector<Sample> block)
{
    const std::array<const Sample*, 2> inputs = {block.data(), block.data()};
    const std::array<Sample*, 2> outputs = {block.data(), block.data()};
    processor->process(std::span(inputs).first(processor->channelCount()),
                       std::span(outputs).first(processor->channelCount()), block.size());
    return block;
}

} // namespace

class tst_Vst3Bundle : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void exportsTheEntryPointsAlone();
    void offersBothHalves();
    void moduleInfoSaysTheSame();
    void parametersAreTheTables();
    void everyValueHasItsText();
    void textsThatAreTyped();
    void unitsAndPrograms();
    void programsSetEveryValue();
    void takesMonoAndStereo();
    void soundsAsTheEngine_data();
    void soundsAsTheEngine();
    void automationActsAtItsSample();
    void oddAutomationIsHarmless();
    void stateIsTheComponents();
    void otherStatesChangeNothing();
    void presetsAreTheMixersOwn();
    void stateFollowsBothThreads();
    void statesHoldEditsAtOnce();
    void latencyIsAnnouncedOnceItIsInForce();
    void metersReachTheController();
    void processingNeitherAllocatesNorLocks();

private:
    std::unique_ptr<Vst3Host::Module> m_module;
};

void tst_Vst3Bundle::initTestCase()
{
    m_module = std::make_unique<Vst3Host::Module>(ZOLTA_VST3_LIBRARY);
    QVERIFY(m_module->isLoaded());
}

void tst_Vst3Bundle::exportsTheEntryPointsAlone()
{
    QProcess nm;
    nm.start(QStringLiteral(ZOLTA_NM), {QStringLiteral("-D"), QStringLiteral("--defined-only"),
                                        QStringLiteral("-j"), QStringLiteral(ZOLTA_VST3_LIBRARY)});
    QVERIFY(nm.waitForFinished());
    QCOMPARE(nm.readAllStandardOutput(), QByteArray("GetPluginFactory\nModuleEntry\nModuleExit\n"));
}

void tst_Vst3Bundle::offersBothHalves()
{
    IPluginFactory* factory = m_module->factory();
    FUnknownPtr<IPluginFactory2> second(factory);
    QVERIFY(second);
    QCOMPARE(factory->countClasses(), 2);
    PClassInfo2 info;
    QCOMPARE(second->getClassInfo2(0, &info), kResultOk);
    QVERIFY(FUID::fromTUID(info.cid) == ZoltaComponent::classId());
    QCOMPARE(info.name, "Zolta Equalizer");
    QCOMPARE(info.category, kVstAudioEffectClass);
    QCOMPARE(info.subCategories, "Fx|EQ");
    QCOMPARE(second->getClassInfo2(1, &info), kResultOk);
    QCOMPARE(info.category, kVstComponentControllerClass);
    QCOMPARE(second->getClassInfo2(2, &info), kInvalidArgument);
    void* object = this;
    QCOMPARE(factory->createInstance(Vst::IComponent::iid, Vst::IComponent::iid, &object),
             kNoInterface);
    QVERIFY(!object);
}

void tst_Vst3Bundle::moduleInfoSaysTheSame()
{
    QFile file(QStringLiteral(ZOLTA_VST3_BUNDLE "/Contents/Resources/moduleinfo.json"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QJsonObject info = QJsonDocument::fromJson(file.readAll()).object();
    const QJsonArray classes = info[QStringLiteral("Classes")].toArray();
    QCOMPARE(classes.size(), m_module->factory()->countClasses());
    for (int32 i = 0; i < m_module->factory()->countClasses(); ++i) {
        PClassInfo expectedInfo;
        m_module->factory()->getClassInfo(i, &expectedInfo);
        FUID::String id = {};
        FUID::fromTUID(expectedInfo.cid).toString(id);
        const QJsonObject described = classes[i].toObject();
        QCOMPARE(described[QStringLiteral("CID")].toString(), QString::fromLatin1(id));
        QCOMPARE(described[QStringLiteral("Name")].toString(),
                 QString::fromLatin1(expectedInfo.name));
    }
    QCOMPARE(classes[0].toObject()[QStringLiteral("Sub Categories")].toArray(),
             (QJsonArray{QStringLiteral("Fx"), QStringLiteral("EQ")}));
}

void tst_Vst3Bundle::parametersAreTheTables()
{
    Plugin plugin(*m_module);
    QCOMPARE(plugin.controller->getParameterCount(), 36);
    Vst::ParameterInfo info;
    QCOMPARE(plugin.controller->getParameterInfo(0, info), kResultOk);
    QCOMPARE(info.id, bypass);
    QCOMPARE(info.flags, int(Vst::ParameterInfo::kCanAutomate | Vst::ParameterInfo::kIsBypass));
    for (std::size_t i = 0; i < parameterCount; ++i) {
        const Parameter& p = parameterTable[i];
        plugin.controller->getParameterInfo(int32(i + 1), info);
        QCOMPARE(info.id, Vst::ParamID(equalizerParameters[i].number));
        QCOMPARE(plain(info.title), QLatin1String(p.title));
        QCOMPARE(info.defaultNormalizedValue, normalized(i, p.defaultValue));
        QCOMPARE(plugin.controller->getParamNormalized(info.id), info.defaultNormalizedValue);
        QCOMPARE(info.stepCount, p.maximum <= 3 ? p.maximum : 0);
        QVERIFY(info.flags & Vst::ParameterInfo::kCanAutomate);
        QCOMPARE(bool(info.flags & Vst::ParameterInfo::kIsList), p.maximum == 3);
        QCOMPARE(info.unitId, equalizerParameters[i].band + 1);
    }
    for (const int32 index : {29, 33}) {
        plugin.controller->getParameterInfo(index, info);
        QCOMPARE(info.flags, int(Vst::ParameterInfo::kIsReadOnly));
    }
    for (const int32 index : {34, 35}) {
        plugin.controller->getParameterInfo(index, info);
        QCOMPARE(info.flags, int(Vst::ParameterInfo::kIsReadOnly | Vst::ParameterInfo::kIsHidden));
    }
    for (const int32 index : {-1, 36})
        QCOMPARE(plugin.controller->getParameterInfo(index, info), kInvalidArgument);
    for (const Vst::ParamID unknown : {28U, 99U, 108U, 0xFFFFFFFFU}) {
        QCOMPARE(plugin.controller->setParamNormalized(unknown, 0.5), kInvalidArgument);
        QCOMPARE(plugin.text(unknown, 0.5), std::string("refused"));
        QCOMPARE(plugin.typed(unknown, "1"), -1.0);
    }
    QCOMPARE(plugin.controller->setParamNormalized(1, std::nan("")), kInvalidArgument);
}

// What is shown and typed is the equalizer's own, and names its value.
void tst_Vst3Bundle::everyValueHasItsText()
{
    Plugin plugin(*m_module);
    for (std::size_t i = 0; i < parameterCount; ++i) {
        const Parameter& p = parameterTable[i];
        const auto id = Vst::ParamID(i + 1);
        for (int value = p.minimum; value <= p.maximum; ++value) {
            const double place = normalized(i, value);
            const std::string unit = p.kind == ParameterKind::Decibels ? "dB" : "";
            QCOMPARE(plugin.text(id, place), *formatParameter(p, value) + unit);
            QCOMPARE(plugin.typed(id, plugin.text(id, place)), place);
            const double number = plugin.controller->normalizedParamToPlain(id, place);
            QCOMPARE(plugin.controller->plainParamToNormalized(id, number), place);
        }
    }
    QCOMPARE(plugin.controller->normalizedParamToPlain(2, 1.0), 20000.0);
    QCOMPARE(plugin.controller->normalizedParamToPlain(3, 0.0), -20.0);
}

void tst_Vst3Bundle::textsThatAreTyped()
{
    Plugin plugin(*m_module);
    QCOMPARE(plugin.text(2, plugin.typed(2, "1250 hz")), std::string("1.25k"));
    QCOMPARE(plugin.text(3, plugin.typed(3, "+3 dB")), std::string("+3.0dB"));
    QCOMPARE(plugin.text(5, plugin.typed(5, "0,7")), std::string("0.70"));
    QCOMPARE(plugin.text(21, plugin.typed(21, "lpf6")), std::string("LPF 6"));
    QCOMPARE(plugin.text(bypass, plugin.typed(bypass, "On")), std::string("On"));
    QCOMPARE(plugin.text(latency, 1.0), std::string("78"));
    QCOMPARE(plugin.text(meters, 0.0), std::string("-127.0dB"));
    QCOMPARE(plugin.text(program, plugin.typed(program, "Kick")), std::string("Kick"));
    for (const char* text : {"", "nan", "loud", "\xFF", "1 Hz 2"})
        QCOMPARE(plugin.typed(3, text), -1.0);
}

void tst_Vst3Bundle::unitsAndPrograms()
{
    Plugin plugin(*m_module);
    QStringList names;
    for (int32 i = 0; i < plugin.units->getUnitCount(); ++i) {
        Vst::UnitInfo info;
        QCOMPARE(plugin.units->getUnitInfo(i, info), kResultOk);
        QCOMPARE(info.id, i);
        QCOMPARE(info.programListId, i == 0 ? 1 : Vst::kNoProgramListId);
        QCOMPARE(info.parentUnitId, i == 0 ? Vst::kNoParentUnitId : Vst::kRootUnitId);
        names << plain(info.name);
    }
    QCOMPARE(names.join(QLatin1Char(',')),
             QStringLiteral("Equalizer,Low,Middle 1,Middle 2,Middle 3,Middle 4,High"));
    Vst::ProgramListInfo list;
    QCOMPARE(plugin.units->getProgramListInfo(0, list), kResultOk);
    QCOMPARE(list.programCount, int32(factoryPresets().size()) + 1);
    Vst::String128 name = {};
    for (int32 i = 1; i < list.programCount; ++i) {
        QCOMPARE(plugin.units->getProgramName(list.id, i, name), kResultOk);
        QCOMPARE(plain(name), QLatin1String(factoryPresets()[std::size_t(i - 1)].name));
    }
    QCOMPARE(plugin.units->getProgramName(list.id, list.programCount, name), kInvalidArgument);
    QCOMPARE(plugin.units->getProgramName(7, 0, name), kInvalidArgument);
}

void tst_Vst3Bundle::programsSetEveryValue()
{
    Plugin plugin(*m_module);
    std::vector<std::vector<float>> block(2, std::vector<float>(64));
    const FactoryPreset& preset = factoryPresets()[4];
    const double place = plugin.typed(program, preset.name);
    plugin.input.add(program, 0, place);
    plugin.controller->setParamNormalized(program, place);
    plugin.process(&block);
    QCOMPARE(plugin.handler.restarts, std::vector<int32>{Vst::kParamValuesChanged});
    QCOMPARE(plugin.state(), bytesOf(valuesOf(preset)));
    for (std::size_t i = 0; i < parameterCount; ++i)
        QCOMPARE(plugin.controller->getParamNormalized(Vst::ParamID(i + 1)),
                 normalized(i, valuesOf(preset)[i]));
    // A workstation that says again which program it is leaves what was changed since.
    plugin.input.add(3, 0, 1.0);
    plugin.process(&block);
    plugin.input.add(program, 0, place);
    plugin.process(&block);
    Values changed = valuesOf(preset);
    changed[2] = 200;
    QCOMPARE(plugin.state(), bytesOf(changed));
}

void tst_Vst3Bundle::takesMonoAndStereo()
{
    Plugin plugin(*m_module);
    const auto set = [&plugin](Vst::SpeakerArrangement in, Vst::SpeakerArrangement out) {
        return plugin.processor->setBusArrangements(&in, 1, &out, 1);
    };
    Vst::BusInfo info;
    QCOMPARE(set(Vst::SpeakerArr::kMono, Vst::SpeakerArr::kMono), kResultOk);
    QCOMPARE(plugin.component->getBusInfo(Vst::kAudio, Vst::kInput, 0, info), kResultOk);
    QCOMPARE(info.channelCount, 1);
    QCOMPARE(set(Vst::SpeakerArr::kMono, Vst::SpeakerArr::kStereo), kResultFalse);
    QCOMPARE(set(Vst::SpeakerArr::k51, Vst::SpeakerArr::k51), kResultFalse);
    Vst::SpeakerArrangement now = 0;
    plugin.processor->getBusArrangement(Vst::kOutput, 0, now);
    QCOMPARE(now, Vst::SpeakerArr::kMono);
    QCOMPARE(set(Vst::SpeakerArr::kStereo, Vst::SpeakerArr::kStereo), kResultOk);
    QCOMPARE(plugin.processor->setBusArrangements(nullptr, 0, nullptr, 0), kResultFalse);
    QCOMPARE(plugin.component->getBusCount(Vst::kAudio, Vst::kOutput), 1);
    QCOMPARE(plugin.component->getBusCount(Vst::kEvent, Vst::kInput), 0);
    QCOMPARE(plugin.component->getBusInfo(Vst::kAudio, Vst::kInput, 1, info), kInvalidArgument);
    Vst::ProcessSetup setup = {Vst::kRealtime, Vst::kSample32, 512, 0.0};
    QCOMPARE(plugin.processor->setupProcessing(setup), kResultFalse);
    QCOMPARE(plugin.processor->getTailSamples(), 96000U);
}

void tst_Vst3Bundle::soundsAsTheEngine_data()
{
    QTest::addColumn<int>("channels");
    QTest::addColumn<int>("rate");
    QTest::addColumn<QString>("settings");
    for (const int channels : {1, 2}) {
        for (const int rate : {44100, 48000, 96000}) {
            for (const char* driven : {"", " 27=1"})
                QTest::addRow("%d, %d%s", channels, rate, driven)
                    << channels << rate << busy + QLatin1String(driven);
        }
    }
}

void tst_Vst3Bundle::soundsAsTheEngine()
{
    QFETCH(const int, channels);
    QFETCH(const int, rate);
    QFETCH(const QString, settings);
    const Values values = valuesFrom(settings);
    const auto compare = [&](auto sample, int32 size) {
        using Sample = decltype(sample);
        const Block signal = noise(3000);
        const std::vector<Sample> in(signal.begin(), signal.end());
        Plugin plugin(*m_module, channels, rate, size);
        QVERIFY(plugin.setState(bytesOf(values)));
        EqualizerProcessor processor{std::size_t(channels)};
        processor.setSampleRate(rate);
        processor.setValues(values);
        for (const std::size_t frames : {1UL, 700UL, 2299UL}) {
            const std::vector<Sample> part(in.begin(), in.begin() + std::ptrdiff_t(frames));
            std::vector<std::vector<Sample>> blocks(std::size_t(channels), part);
            plugin.process(&blocks);
            const std::vector<Sample> wanted = expected(&processor, part);
            QCOMPARE(blocks.front(), wanted);
            QCOMPARE(blocks.back(), wanted);
        }
    };
    compare(float{}, Vst::kSample32);
    compare(double{}, Vst::kSample64);
}

void tst_Vst3Bundle::automationActsAtItsSample()
{
    const Block signal = noise(1000);
    Plugin plugin(*m_module, 1, 48000.0, Vst::kSample64);
    std::vector<std::vector<double>> blocks = {signal};
    plugin.input.add(3, 0, normalized(2, 60));
    plugin.input.add(3, 500, normalized(2, -60));
    plugin.input.add(7, 123, normalized(6, 90));
    plugin.input.add(7, 500, normalized(6, 91));
    plugin.input.add(bypass, 777, 1.0);
    plugin.process(&blocks);

    EqualizerProcessor processor(1);
    Block wanted;
    Values values = defaultValues();
    const auto play = [&](std::size_t from, std::size_t to) {
        processor.setValues(values);
        const Block part = expected(&processor, Block(signal.begin() + std::ptrdiff_t(from),
                                                      signal.begin() + std::ptrdiff_t(to)));
        wanted.insert(wanted.end(), part.begin(), part.end());
    };
    values[2] = 60;
    play(0, 123);
    values[6] = 90;
    play(123, 500);
    values[2] = -60;
    values[6] = 91;
    play(500, 777);
    processor.setBypassed(true);
    play(777, 1000);
    QCOMPARE(blocks.front(), wanted);
    QCOMPARE(plugin.state(), bytesOf(values, true));
}

void tst_Vst3Bundle::oddAutomationIsHarmless()
{
    constexpr int32 farthest = std::numeric_limits<int32>::max();
    Plugin plugin(*m_module);
    std::vector<std::vector<float>> blocks(2, std::vector<float>(64, 0.5F));
    plugin.input.add(3, -50, 2.0);
    plugin.input.add(7, 40, 1.0);
    plugin.input.add(7, 10, 0.0); // counts as at 40
    plugin.input.add(11, farthest, 1.0);
    plugin.input.add(11, 5, std::nan(""));
    plugin.input.add(28, 0, 1.0);
    plugin.input.add(latency, 0, 1.0);
    plugin.process(&blocks);
    Values values = defaultValues();
    values[2] = 200;
    values[6] = -200;
    values[10] = 200;
    QCOMPARE(plugin.state(), bytesOf(values));
    // Without samples all of it is for the next block; a queue may be missing.
    std::vector<std::vector<float>> nothing(2);
    plugin.input.hasHole = true;
    plugin.input.add(3, 0, 0.0);
    plugin.input.add(7, 3, 0.5);
    plugin.process(&nothing);
    values[6] = 0;
    QCOMPARE(plugin.state(), bytesOf(values));
    plugin.input.hasHole = false;
    for (Vst::ParamID id = 1; id <= 80; ++id)
        plugin.input.add(id, 0, 0.0);
    plugin.process(&blocks);
    Vst::ProcessData bare;
    bare.numSamples = 100;
    QCOMPARE(plugin.processor->process(bare), kResultOk);
}

void tst_Vst3Bundle::stateIsTheComponents()
{
    Plugin plugin(*m_module);
    QCOMPARE(plugin.state(), bytesOf(defaultValues()));
    for (const bool isBypassed : {false, true}) {
        const QByteArray bytes = bytesOf(valuesFrom(busy), isBypassed);
        QVERIFY(plugin.setState(bytes));
        QCOMPARE(plugin.state(), bytes);
        QCOMPARE(plugin.controller->getParamNormalized(bypass), isBypassed ? 1.0 : 0.0);
        QCOMPARE(plugin.controller->getParamNormalized(7), normalized(6, -80));
        Plugin second(*m_module);
        QVERIFY(second.setState(plugin.state()));
        QCOMPARE(second.state(), plugin.state());
    }
}

void tst_Vst3Bundle::otherStatesChangeNothing()
{
    Plugin plugin(*m_module);
    const QByteArray good = bytesOf(valuesFrom(busy));
    QVERIFY(plugin.setState(good));
    QVERIFY(!plugin.setState({}));
    QVERIFY(!plugin.setState(good.first(115)));
    QVERIFY(!plugin.setState("2619" + good.sliced(4)));
    QCOMPARE(plugin.component->setState(nullptr), kResultFalse);
    QCOMPARE(plugin.component->getState(nullptr), kResultFalse);
    QCOMPARE(plugin.controller->setComponentState(nullptr), kResultFalse);
    QCOMPARE(plugin.state(), good);
}

// A preset that a workstation saves opens in the mixer, and the other way round.
void tst_Vst3Bundle::presetsAreTheMixersOwn()
{
    QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("both.vstpreset"));
    const Values values = valuesFrom(busy);
    Plugin plugin(*m_module);
    PClassInfo info;
    m_module->factory()->getClassInfo(0, &info);
    const FUID classId = FUID::fromTUID(info.cid);

    QVERIFY(plugin.setState(bytesOf(values)));
    MemoryStream saved;
    QVERIFY(Vst::PresetFile::savePreset(&saved, classId, plugin.component, plugin.controller));
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(saved.getData(), saved.getSize());
    file.close();
    const Result<QByteArray> read = StateFile(name).read();
    QVERIFY2(read.isOk(), qPrintable(read.error()));
    QCOMPARE(restoredValues(read.value()), values);

    Values others = values;
    others[2] = 111;
    QVERIFY(StateFile(name).write(bytesOf(others)).isOk());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QByteArray bytes = file.readAll();
    MemoryStream stream(bytes.data(), bytes.size());
    QVERIFY(Vst::PresetFile::loadPreset(&stream, classId, plugin.component, plugin.controller));
    QCOMPARE(plugin.state(), bytesOf(others));
    QCOMPARE(plugin.controller->getParamNormalized(3), normalized(2, 111));
}

// A state that is set while sound runs counts at once for who asks, and from the next block on for
// what is heard; automation before that block does not bring the old values back.
void tst_Vst3Bundle::stateFollowsBothThreads()
{
    Plugin plugin(*m_module);
    std::vector<std::vector<float>> blocks(2, std::vector<float>(64, 0.5F));
    plugin.input.add(3, 0, 1.0);
    plugin.process(&blocks);
    Values values = defaultValues();
    values[2] = 200;
    QCOMPARE(plugin.state(), bytesOf(values));
    const Values set = valuesFrom(busy);
    QVERIFY(plugin.setState(bytesOf(set)));
    QCOMPARE(plugin.state(), bytesOf(set));
    plugin.process(&blocks);
    QCOMPARE(plugin.state(), bytesOf(set));
    plugin.input.add(3, 0, 0.0);
    plugin.process(&blocks);
    values = set;
    values[2] = -200;
    QCOMPARE(plugin.state(), bytesOf(values));
}

// Also where the workstation does not process.
void tst_Vst3Bundle::statesHoldEditsAtOnce()
{
    Plugin plugin(*m_module);
    Values values = defaultValues();
    values[2] = 200;
    plugin.controller->setParamNormalized(3, 1.0);
    QCOMPARE(plugin.state(), bytesOf(values));
    plugin.controller->setParamNormalized(bypass, 1.0);
    QCOMPARE(plugin.state(), bytesOf(values, true));
    plugin.controller->setParamNormalized(program, plugin.typed(program, "Kick"));
    QCOMPARE(plugin.state(), bytesOf(ParameterList::programValues(4), true));
    // What sounds counts as soon as there is a block.
    std::vector<std::vector<float>> blocks(2, std::vector<float>(64));
    plugin.input.add(7, 0, 1.0);
    plugin.process(&blocks);
    values = defaultValues();
    values[6] = 200;
    QCOMPARE(plugin.state(), bytesOf(values));
    const FUnknownPtr<Vst::IConnectionPoint> receiver(plugin.component);
    const auto notify = [&receiver](const char* name, int64 id, int64 value) {
        const IPtr<Vst::IMessage> message = owned(new Vst::HostMessage);
        message->setMessageID(name);
        message->getAttributes()->setInt("id", id);
        message->getAttributes()->setInt("value", value);
        return receiver->notify(message);
    };
    QCOMPARE(notify("edit", 3, 0), kResultOk);
    QCOMPARE(notify("edit", 3, 201), kResultFalse);
    QCOMPARE(notify("edit", 28, 0), kResultFalse);
    QCOMPARE(notify("other", 3, 0), kResultFalse);
    QCOMPARE(receiver->notify(nullptr), kResultFalse);
    plugin.disconnect();
    plugin.controller->setParamNormalized(3, 0.0);
    QCOMPARE(plugin.state(), bytesOf(values));
}

void tst_Vst3Bundle::latencyIsAnnouncedOnceItIsInForce()
{
    Plugin plugin(*m_module);
    std::vector<std::vector<float>> blocks(2, std::vector<float>(64));
    plugin.process(&blocks);
    plugin.tellController();
    QCOMPARE(plugin.processor->getLatencySamples(), 0U);
    // An edit that the processor is told of, and again when that has come into force.
    plugin.controller->setParamNormalized(drive, 1.0);
    QCOMPARE(plugin.processor->getLatencySamples(), 78U);
    QCOMPARE(plugin.handler.restarts, std::vector<int32>{Vst::kLatencyChanged});
    plugin.process(&blocks);
    QCOMPARE(plugin.processor->getLatencySamples(), 78U);
    plugin.input.add(drive, 0, 1.0);
    plugin.input.add(bypass, 0, 1.0);
    plugin.process(&blocks);
    plugin.tellController();
    QCOMPARE(plugin.processor->getLatencySamples(), 78U);
    QCOMPARE(plugin.handler.restarts.size(), 1U);
    // A state.
    QVERIFY(plugin.setState(bytesOf(defaultValues())));
    QCOMPARE(plugin.processor->getLatencySamples(), 0U);
    QCOMPARE(plugin.handler.restarts.size(), 2U);
    // An edit that only the block brings.
    plugin.disconnect();
    plugin.process(&blocks);
    plugin.tellController();
    plugin.controller->setParamNormalized(drive, 1.0);
    QCOMPARE(plugin.handler.restarts.size(), 2U);
    plugin.input.add(drive, 0, 1.0);
    plugin.process(&blocks);
    QCOMPARE(plugin.processor->getLatencySamples(), 78U);
    plugin.tellController();
    QCOMPARE(plugin.handler.restarts.size(), 3U);
}

void tst_Vst3Bundle::metersReachTheController()
{
    Plugin plugin(*m_module);
    std::vector<std::vector<float>> blocks(2, std::vector<float>(64, 0.5F));
    plugin.input.add(25, 0, normalized(24, 60));
    plugin.input.add(26, 0, normalized(25, -100));
    blocks[1].assign(64, 0.05F);
    plugin.process(&blocks);
    plugin.tellController();
    const auto shown = [&plugin](Vst::ParamID id) {
        return plugin.text(id, plugin.controller->getParamNormalized(id));
    };
    QCOMPARE(shown(meters), std::string("0.0dB"));
    QCOMPARE(shown(meters + 1), std::string("-20.0dB"));
    QCOMPARE(shown(meters + 2), std::string("-10.0dB"));
    QCOMPARE(shown(meters + 3), std::string("-30.0dB"));
}

void tst_Vst3Bundle::processingNeitherAllocatesNorLocks()
{
    {
        const RealtimeTrap trap; // reaches into the library
        const Plugin other(*m_module);
        QVERIFY(trap.allocations() > 0);
    }
    Plugin plugin(*m_module);
    std::vector<float> left(8192, 0.3F);
    std::vector<float> right(8192, -0.3F);
    float* const channels[] = {left.data(), right.data()};
    std::minstd_rand generator(9);
    for (int round = 0; round < 60; ++round) {
        plugin.output.clear();
        for (Vst::ParamID id = 0; id <= program; ++id)
            plugin.input.add(id, int32(generator() % 600), double(generator() % 1000) / 999.0);
        if (round % 10 == 0)
            plugin.setState(bytesOf(valuesFrom(busy)));
        const RealtimeTrap trap;
        plugin.process(channels, std::size_t(round * 17));
        QCOMPARE(trap.allocations(), 0);
        QCOMPARE(trap.locks(), 0);
    }
}

QTEST_APPLESS_MAIN(tst_Vst3Bundle)

#include "tst_Vst3Bundle.moc"
