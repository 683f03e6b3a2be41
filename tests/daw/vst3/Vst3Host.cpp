// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/daw/vst3/Vst3Host.h"

#include <public.sdk/source/common/memorystream.h>

#include <dlfcn.h>

using namespace Steinberg;

namespace Vst3Host {

tresult PLUGIN_API Queue::getPoint(int32 index, int32& offset, Vst::ParamValue& value)
{
    if (index < 0 || index >= count)
        return kInvalidArgument;
    offset = points[static_cast<std::size_t>(index)].offset;
    value = points[static_cast<std::size_t>(index)].value;
    return kResultOk;
}

tresult PLUGIN_API Queue::addPoint(int32 offset, Vst::ParamValue value, int32& index)
{
    if (static_cast<std::size_t>(count) >= points.size())
        return kOutOfMemory;
    index = count;
    points[static_cast<std::size_t>(count++)] = {offset, value};
    return kResultOk;
}

void Changes::add(Vst::ParamID id, int32 offset, double value)
{
    int32 index = 0;
    if (Vst::IParamValueQueue* queue = addParameterData(id, index))
        queue->addPoint(offset, value, index);
}

double Changes::last(Vst::ParamID id) const
{
    for (std::size_t i = 0; i < static_cast<std::size_t>(m_count); ++i) {
        const Queue& queue = m_queues[i];
        if (queue.id == id && queue.count > 0)
            return queue.points[static_cast<std::size_t>(queue.count - 1)].value;
    }
    return -1.0;
}

Vst::IParamValueQueue* PLUGIN_API Changes::getParameterData(int32 index)
{
    if (index < 0 || index >= m_count || (hasHole && index == 0))
        return nullptr;
    return &m_queues[static_cast<std::size_t>(index)];
}

Vst::IParamValueQueue* PLUGIN_API Changes::addParameterData(const Vst::ParamID& id, int32& index)
{
    for (index = 0; index < m_count; ++index) {
        if (m_queues[static_cast<std::size_t>(index)].id == id)
            return &m_queues[static_cast<std::size_t>(index)];
    }
    if (static_cast<std::size_t>(m_count) >= m_queues.size())
        return nullptr;
    Queue& queue = m_queues[static_cast<std::size_t>(m_count++)];
    queue.id = id;
    queue.count = 0;
    return &queue;
}

tresult PLUGIN_API Handler::beginEdit(Vst::ParamID id)
{
    edits.push_back("begin " + std::to_string(id));
    return kResultOk;
}

tresult PLUGIN_API Handler::performEdit(Vst::ParamID id, Vst::ParamValue value)
{
    edits.push_back("perform " + std::to_string(id));
    lastEdit = value;
    return kResultOk;
}

tresult PLUGIN_API Handler::endEdit(Vst::ParamID id)
{
    edits.push_back("end " + std::to_string(id));
    return kResultOk;
}

tresult PLUGIN_API Handler::restartComponent(int32 flags)
{
    restarts.push_back(flags);
    return kResultOk;
}

Module::Module(const char* library)
    : m_library(dlopen(library, RTLD_NOW | RTLD_LOCAL))
{
    if (!m_library)
        return;
    using Enter = bool (*)(void*);
    using Get = IPluginFactory* (*)();
    const auto enter = reinterpret_cast<Enter>(dlsym(m_library, "ModuleEntry"));
    const auto get = reinterpret_cast<Get>(dlsym(m_library, "GetPluginFactory"));
    if (enter && get && enter(m_library))
        m_factory = owned(get());
}

Module::~Module()
{
    m_factory = nullptr;
    using Leave = bool (*)();
    if (!m_library)
        return;
    if (const auto leave = reinterpret_cast<Leave>(dlsym(m_library, "ModuleExit")))
        leave();
    dlclose(m_library);
}

Plugin::Plugin(const Module& module, int channels, double rate, int32 sampleSize)
    : m_sampleSize(sampleSize)
    , m_channels(channels)
{
    PClassInfo info;
    void* object = nullptr;
    module.factory()->getClassInfo(0, &info);
    module.factory()->createInstance(info.cid, Vst::IComponent::iid, &object);
    component = owned(static_cast<Vst::IComponent*>(object));
    component->initialize(&application);
    processor = FUnknownPtr<Vst::IAudioProcessor>(component);
    TUID controllerId;
    component->getControllerClassId(controllerId);
    module.factory()->createInstance(controllerId, Vst::IEditController::iid, &object);
    controller = owned(static_cast<Vst::IEditController*>(object));
    controller->initialize(&application);
    controller->setComponentHandler(&handler);
    units = FUnknownPtr<Vst::IUnitInfo>(controller);
    connect();

    Vst::SpeakerArrangement speakers =
        channels == 1 ? Vst::SpeakerArr::kMono : Vst::SpeakerArr::kStereo;
    processor->setBusArrangements(&speakers, 1, &speakers, 1);
    Vst::ProcessSetup setup = {Vst::kRealtime, sampleSize, 8192, rate};
    processor->setupProcessing(setup);
    component->setActive(true);
    processor->setProcessing(true);
}

void Plugin::connect()
{
    const FUnknownPtr<Vst::IConnectionPoint> first(component);
    const FUnknownPtr<Vst::IConnectionPoint> second(controller);
    first->connect(second);
    second->connect(first);
}

void Plugin::disconnect()
{
    const FUnknownPtr<Vst::IConnectionPoint> first(component);
    const FUnknownPtr<Vst::IConnectionPoint> second(controller);
    first->disconnect(second);
    second->disconnect(first);
}

Plugin::~Plugin()
{
    disconnect();
    processor->setProcessing(false);
    component->setActive(false);
    controller->setComponentHandler(nullptr);
    controller->terminate();
    component->terminate();
}

Vst::ProcessData Plugin::dataFor(Vst::AudioBusBuffers* bus, std::size_t frames)
{
    Vst::ProcessData data;
    data.symbolicSampleSize = m_sampleSize;
    data.numSamples = static_cast<int32>(frames);
    data.numInputs = data.numOutputs = 1;
    data.inputs = data.outputs = bus;
    data.inputParameterChanges = &input;
    data.outputParameterChanges = &output;
    return data;
}

template <typename Sample> void Plugin::process(std::vector<std::vector<Sample>>* channels)
{
    std::vector<Sample*> pointers;
    for (std::vector<Sample>& channel : *channels)
        pointers.push_back(channel.data());
    Vst::AudioBusBuffers bus;
    bus.numChannels = static_cast<int32>(pointers.size());
    if constexpr (sizeof(Sample) == sizeof(float))
        bus.channelBuffers32 = pointers.data();
    else
        bus.channelBuffers64 = pointers.data();
    Vst::ProcessData data = dataFor(&bus, channels->front().size());
    processor->process(data);
    input.clear();
}

template void Plugin::process(std::vector<std::vector<float>>*);
template void Plugin::process(std::vector<std::vector<double>>*);

void Plugin::process(float* const* channels, std::size_t frames)
{
    Vst::AudioBusBuffers bus;
    bus.numChannels = m_channels;
    bus.channelBuffers32 = const_cast<float**>(channels);
    Vst::ProcessData data = dataFor(&bus, frames);
    processor->process(data);
    input.clear();
}

void Plugin::tellController()
{
    for (int32 i = 0; i < output.getParameterCount(); ++i) {
        const Vst::ParamID id = output.getParameterData(i)->getParameterId();
        controller->setParamNormalized(id, output.last(id));
    }
    output.clear();
}

QByteArray Plugin::state() const
{
    MemoryStream stream;
    component->getState(&stream);
    return {stream.getData(), static_cast<qsizetype>(stream.getSize())};
}

bool Plugin::setState(const QByteArray& bytes, bool alsoController)
{
    QByteArray copy = bytes;
    MemoryStream stream(copy.data(), copy.size());
    const bool isSet = component->setState(&stream) == kResultOk;
    stream.seek(0, IBStream::kIBSeekSet, nullptr);
    return isSet && (!alsoController || controller->setComponentState(&stream) == kResultOk);
}

std::string Plugin::text(Vst::ParamID id, double normalized) const
{
    Vst::String128 text = {};
    if (controller->getParamStringByValue(id, normalized, text) != kResultOk)
        return "refused";
    std::string result;
    for (const Vst::TChar* c = text; *c; ++c)
        result += static_cast<char>(*c);
    return result;
}

double Plugin::typed(Vst::ParamID id, const std::string& text) const
{
    std::u16string wide(text.begin(), text.end());
    double normalized = -1.0;
    const tresult result = controller->getParamValueByString(
        id, reinterpret_cast<Vst::TChar*>(wide.data()), normalized);
    return result == kResultOk ? normalized : -1.0;
}

} // namespace Vst3Host
