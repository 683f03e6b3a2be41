// SPDX-License-Identifier: GPL-3.0-or-later
// What a plug-in of workstations costs over the engine alone: blocks of 256 stereo samples. "0" is
// clean with six bands, "1" with drive, "2" flat.
#include "daw/lv2/Ports.h"
#include "daw/lv2/Turtle.h"
#include "engine/ChannelProcessor.h"
#include "parameters/SavedState.h"

#include <benchmark/benchmark.h>
#include <lv2/core/lv2.h>
#include <pluginterfaces/base/ibstream.h>
#include <pluginterfaces/base/ipluginbase.h>
#include <pluginterfaces/base/smartpointer.h>
#include <pluginterfaces/vst/ivstaudioprocessor.h>
#include <pluginterfaces/vst/ivstcomponent.h>
#include <pluginterfaces/vst/ivstparameterchanges.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <iostream>
#include <random>
#include <vector>

namespace {

constexpr std::size_t blockLength = 256;
constexpr double rate = 48000.0;

using Block = std::vector<float>;

ChannelValues settings(std::int64_t kind)
{
    ChannelValues values = defaultValues();
    for (std::size_t band = 0; band < 6 && kind < 2; ++band)
        values[4 * band + 2] = band % 2 == 0 ? 60 : -60;
    values[26] = kind == 1 ? 1 : 0;
    return values;
}

Block noise()
{
    std::minstd_rand generator(7);
    std::uniform_real_distribution<float> sample(-0.5F, 0.5F);
    Block block(blockLength);
    std::generate(block.begin(), block.end(), [&] { return sample(generator); });
    return block;
}

template <typename Function> Function symbolIn(const char* library, const char* name)
{
    void* const handle = dlopen(library, RTLD_NOW | RTLD_LOCAL);
    void* const symbol = handle ? dlsym(handle, name) : nullptr;
    if (!symbol) {
        std::cerr << "The library " << library << " cannot be used: " << dlerror() << '\n';
        std::exit(1);
    }
    return reinterpret_cast<Function>(symbol);
}

// Both channels from single precision to the engine's and back.
void engine(benchmark::State& state)
{
    const Block in = noise();
    std::array<ChannelProcessor, 2> channels;
    std::array<Block, 2> out = {in, in};
    std::array<std::array<double, blockLength>, 2> blocks{};
    for (ChannelProcessor& channel : channels)
        channel.setValues(settings(state.range(0)));
    for (auto _ : state) {
        for (auto& block : blocks)
            std::copy(in.begin(), in.end(), block.begin());
        ChannelProcessor::processPair(&channels[0], &channels[1], blocks[0], blocks[1]);
        for (std::size_t c = 0; c < channels.size(); ++c)
            std::transform(blocks[c].begin(), blocks[c].end(), out[c].begin(),
                           [](double sample) { return static_cast<float>(sample); });
        benchmark::ClobberMemory();
    }
}

void lv2Run(benchmark::State& state)
{
    const auto descriptors = symbolIn<LV2_Descriptor_Function>(ZOLTA_LV2_LIBRARY, "lv2_descriptor");
    const LV2_Descriptor* descriptor = descriptors(0);
    LV2_Handle instance = descriptor->instantiate(descriptor, rate, "", nullptr);
    const std::vector<Port> ports = portsOf(2);
    const ChannelValues values = settings(state.range(0));
    std::vector<Block> buffers;
    for (std::size_t i = 0; i < ports.size(); ++i) {
        buffers.push_back(ports[i].isAudio() ? noise() : Block(1, 1.0F));
        if (ports[i].role == PortRole::Parameter)
            buffers[i][0] = std::stof(portNumber(ports[i].number, values[ports[i].number]));
        descriptor->connect_port(instance, static_cast<std::uint32_t>(i), buffers[i].data());
    }
    descriptor->activate(instance);
    for (auto _ : state) {
        descriptor->run(instance, blockLength);
        benchmark::ClobberMemory();
    }
    descriptor->cleanup(instance);
}

using namespace Steinberg;

/// A stream that holds a state.
class StateStream final : public IBStream
{
public:
    explicit StateStream(const ChannelValues& values)
        : m_bytes(encodeState({values, false}))
    {}

    tresult PLUGIN_API queryInterface(const TUID, void**) override { return kNoInterface; }
    uint32 PLUGIN_API addRef() override { return 1; }
    uint32 PLUGIN_API release() override { return 1; }
    tresult PLUGIN_API read(void* buffer, int32 count, int32* read) override
    {
        std::memcpy(buffer, m_bytes.data(), static_cast<std::size_t>(count));
        *read = count;
        return kResultOk;
    }
    tresult PLUGIN_API write(void*, int32, int32*) override { return kResultFalse; }
    tresult PLUGIN_API seek(int64, int32, int64*) override { return kResultFalse; }
    tresult PLUGIN_API tell(int64*) override { return kResultFalse; }

private:
    std::array<unsigned char, stateSize> m_bytes;
};

/// A workstation that takes what the processor tells, and one queue for all of it.
class Told final : public Vst::IParameterChanges, public Vst::IParamValueQueue
{
public:
    tresult PLUGIN_API queryInterface(const TUID, void**) override { return kNoInterface; }
    uint32 PLUGIN_API addRef() override { return 1; }
    uint32 PLUGIN_API release() override { return 1; }
    int32 PLUGIN_API getParameterCount() override { return 0; }
    IParamValueQueue* PLUGIN_API getParameterData(int32) override { return nullptr; }
    IParamValueQueue* PLUGIN_API addParameterData(const Vst::ParamID&, int32&) override
    {
        return this;
    }
    Vst::ParamID PLUGIN_API getParameterId() override { return 0; }
    int32 PLUGIN_API getPointCount() override { return 0; }
    tresult PLUGIN_API getPoint(int32, int32&, Vst::ParamValue&) override { return kResultFalse; }
    tresult PLUGIN_API addPoint(int32, Vst::ParamValue, int32&) override { return kResultOk; }
};

IPtr<Vst::IComponent> createComponent()
{
    const auto factory = symbolIn<IPluginFactory* (*)()>(ZOLTA_VST3_LIBRARY, "GetPluginFactory")();
    PClassInfo info;
    factory->getClassInfo(0, &info);
    void* object = nullptr;
    factory->createInstance(info.cid, Vst::IComponent::iid, &object);
    return owned(static_cast<Vst::IComponent*>(object));
}

void vst3Process(benchmark::State& state)
{
    const IPtr<Vst::IComponent> component = createComponent();
    const FUnknownPtr<Vst::IAudioProcessor> processor(component);
    Vst::ProcessSetup setup = {Vst::kRealtime, Vst::kSample32, blockLength, rate};
    StateStream stream(settings(state.range(0)));
    component->setState(&stream);
    processor->setupProcessing(setup);
    component->setActive(true);
    std::array<Block, 4> blocks = {noise(), noise(), noise(), noise()};
    std::array<float*, 2> in = {blocks[0].data(), blocks[1].data()};
    std::array<float*, 2> out = {blocks[2].data(), blocks[3].data()};
    std::array<Vst::AudioBusBuffers, 2> buses;
    buses[0].numChannels = buses[1].numChannels = 2;
    buses[0].channelBuffers32 = in.data();
    buses[1].channelBuffers32 = out.data();
    Told told;
    Vst::ProcessData data;
    data.inputParameterChanges = data.outputParameterChanges = &told;
    data.numSamples = blockLength;
    data.numInputs = data.numOutputs = 1;
    data.inputs = &buses[0];
    data.outputs = &buses[1];
    for (auto _ : state) {
        processor->process(data);
        benchmark::ClobberMemory();
    }
    component->setActive(false);
}

BENCHMARK(engine)->DenseRange(0, 2);
BENCHMARK(lv2Run)->DenseRange(0, 2);
BENCHMARK(vst3Process)->DenseRange(0, 2);

} // namespace
