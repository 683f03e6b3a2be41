// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <pluginterfaces/base/ipluginbase.h>
#include <pluginterfaces/base/smartpointer.h>
#include <pluginterfaces/vst/ivstaudioprocessor.h>
#include <pluginterfaces/vst/ivstcomponent.h>
#include <pluginterfaces/vst/ivsteditcontroller.h>
#include <pluginterfaces/vst/ivstparameterchanges.h>
#include <pluginterfaces/vst/ivstunits.h>
#include <public.sdk/source/vst/hosting/hostclasses.h>

#include <QByteArray>

#include <array>
#include <cstddef>
#include <string>
#include <vector>

/// A workstation on the plain interfaces of VST 3, as small as tests need it.
namespace Vst3Host {

/// The reference counting and queries of an object that tests own.
template <typename Interface> class Owned : public Interface
{
public:
    Steinberg::tresult PLUGIN_API queryInterface(const Steinberg::TUID, void** obj) override
    {
        *obj = nullptr;
        return Steinberg::kNoInterface;
    }
    Steinberg::uint32 PLUGIN_API addRef() override { return 1; }
    Steinberg::uint32 PLUGIN_API release() override { return 1; }
};

class Queue : public Owned<Steinberg::Vst::IParamValueQueue>
{
public:
    struct Point
    {
        Steinberg::int32 offset;
        double value;
    };

    Steinberg::Vst::ParamID PLUGIN_API getParameterId() override { return id; }
    Steinberg::int32 PLUGIN_API getPointCount() override { return count; }
    Steinberg::tresult PLUGIN_API getPoint(Steinberg::int32 index, Steinberg::int32& offset,
                                           Steinberg::Vst::ParamValue& value) override;
    Steinberg::tresult PLUGIN_API addPoint(Steinberg::int32 offset,
                                           Steinberg::Vst::ParamValue value,
                                           Steinberg::int32& index) override;

    Steinberg::Vst::ParamID id = 0;
    Steinberg::int32 count = 0;
    std::array<Point, 512> points{};
};

/// A block's changes; it has room for all that tests send, so that adding allocates nothing.
class Changes : public Owned<Steinberg::Vst::IParameterChanges>
{
public:
    void add(Steinberg::Vst::ParamID id, Steinberg::int32 offset, double value);
    void clear() { m_count = 0; }
    /// The last value of an id; -1 where there is none.
    double last(Steinberg::Vst::ParamID id) const;

    Steinberg::int32 PLUGIN_API getParameterCount() override { return m_count; }
    Steinberg::Vst::IParamValueQueue* PLUGIN_API getParameterData(Steinberg::int32 index) override;
    Steinberg::Vst::IParamValueQueue* PLUGIN_API addParameterData(const Steinberg::Vst::ParamID& id,
                                                                  Steinberg::int32& index) override;

    bool hasHole = false; ///< the first queue is null

private:
    std::vector<Queue> m_queues = std::vector<Queue>(80);
    Steinberg::int32 m_count = 0;
};

/// Notes what the controller asks of the workstation.
class Handler : public Owned<Steinberg::Vst::IComponentHandler>
{
public:
    Steinberg::tresult PLUGIN_API beginEdit(Steinberg::Vst::ParamID) override;
    Steinberg::tresult PLUGIN_API performEdit(Steinberg::Vst::ParamID,
                                              Steinberg::Vst::ParamValue) override;
    Steinberg::tresult PLUGIN_API endEdit(Steinberg::Vst::ParamID) override;
    Steinberg::tresult PLUGIN_API restartComponent(Steinberg::int32 flags) override;

    std::vector<Steinberg::int32> restarts;
    std::vector<std::string> edits; ///< "begin 3", "perform 3", "end 3"
    double lastEdit = -1.0;
};

/// The library of a bundle, loaded.
class Module
{
public:
    explicit Module(const char* library);
    ~Module();
    Module(const Module&) = delete;
    Module& operator=(const Module&) = delete;

    bool isLoaded() const { return m_factory != nullptr; }
    Steinberg::IPluginFactory* factory() const { return m_factory; }

private:
    void* m_library;
    Steinberg::IPtr<Steinberg::IPluginFactory> m_factory;
};

/// Both halves of a plug-in, set up and active.
class Plugin
{
public:
    Plugin(const Module& module, int channels = 2, double rate = 48000.0,
           Steinberg::int32 sampleSize = Steinberg::Vst::kSample32);
    ~Plugin();
    Plugin(const Plugin&) = delete;
    Plugin& operator=(const Plugin&) = delete;

    /// Processes every channel's block in place with input, and hands what the processor tells to
    /// the controller if the host does that.
    template <typename Sample> void process(std::vector<std::vector<Sample>>* channels);
    void process(float* const* channels, std::size_t frames);
    void tellController();
    /// The controller and the processor from one another.
    void disconnect();

    QByteArray state() const;
    bool setState(const QByteArray& bytes, bool alsoController = true);
    std::string text(Steinberg::Vst::ParamID id, double normalized) const;
    /// The normalised value of a text; -1 where it is refused.
    double typed(Steinberg::Vst::ParamID id, const std::string& text) const;

    Steinberg::IPtr<Steinberg::Vst::IComponent> component;
    Steinberg::IPtr<Steinberg::Vst::IAudioProcessor> processor;
    Steinberg::IPtr<Steinberg::Vst::IEditController> controller;
    Steinberg::IPtr<Steinberg::Vst::IUnitInfo> units;
    Steinberg::Vst::HostApplication application;
    Handler handler;
    Changes input;
    Changes output;

private:
    void connect();
    Steinberg::Vst::ProcessData dataFor(Steinberg::Vst::AudioBusBuffers* bus, std::size_t frames);

    Steinberg::int32 m_sampleSize;
    Steinberg::int32 m_channels;
};

} // namespace Vst3Host
