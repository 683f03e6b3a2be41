// SPDX-License-Identifier: GPL-3.0-or-later
#include "daw/vst3/Vst3Factory.h"

#include "daw/vst3/Identifiers.h"
#include "daw/vst3/Vst3Controller.h"
#include "daw/vst3/Vst3Processor.h"

#include <array>

using namespace Steinberg;

namespace {

FUnknown* createProcessor() { return static_cast<Vst::IComponent*>(new Vst3Processor); }

FUnknown* createController() { return static_cast<Vst::IEditController*>(new Vst3Controller); }

struct Entry
{
    FUID (*classId)();
    const char* category;
    const char* name;
    int32 flags;
    const char* subCategories;
    FUnknown* (*create)();
};

const std::array<Entry, 2> entries = {{{processorClassId, kVstAudioEffectClass, pluginName,
                                        Vst::kDistributable, Vst::PlugType::kFxEQ, createProcessor},
                                       {controllerClassId, kVstComponentControllerClass,
                                        "Zolta Equalizer Controller", 0, "", createController}}};

bool isEntry(int32 index) { return index >= 0 && index < static_cast<int32>(entries.size()); }

} // namespace

Vst3Factory* Vst3Factory::instance()
{
    static Vst3Factory factory;
    return &factory;
}

tresult PLUGIN_API Vst3Factory::queryInterface(const TUID asked, void** obj)
{
    *obj = nullptr;
    const bool known = answerQuery<IPluginFactory2>(asked, FUnknown_iid, this, obj) ||
                       answerQuery<IPluginFactory2>(asked, IPluginFactory_iid, this, obj) ||
                       answerQuery<IPluginFactory2>(asked, IPluginFactory2_iid, this, obj);
    return known ? kResultOk : kNoInterface;
}

tresult PLUGIN_API Vst3Factory::getFactoryInfo(PFactoryInfo* info)
{
    if (!info)
        return kInvalidArgument;
    *info = PFactoryInfo(vendorName, "", "", PFactoryInfo::kUnicode);
    return kResultOk;
}

int32 PLUGIN_API Vst3Factory::countClasses() { return static_cast<int32>(entries.size()); }

tresult PLUGIN_API Vst3Factory::getClassInfo(int32 index, PClassInfo* info)
{
    if (!info || !isEntry(index))
        return kInvalidArgument;
    const Entry& entry = entries[static_cast<std::size_t>(index)];
    TUID classId;
    entry.classId().toTUID(classId);
    *info = PClassInfo(classId, PClassInfo::kManyInstances, entry.category, entry.name);
    return kResultOk;
}

tresult PLUGIN_API Vst3Factory::getClassInfo2(int32 index, PClassInfo2* info)
{
    if (!info || !isEntry(index))
        return kInvalidArgument;
    const Entry& entry = entries[static_cast<std::size_t>(index)];
    TUID classId;
    entry.classId().toTUID(classId);
    *info =
        PClassInfo2(classId, PClassInfo::kManyInstances, entry.category, entry.name, entry.flags,
                    entry.subCategories, vendorName, ZOLTA_VERSION, kVstVersionString);
    return kResultOk;
}

tresult PLUGIN_API Vst3Factory::createInstance(FIDString classId, FIDString asked, void** obj)
{
    if (!obj)
        return kInvalidArgument;
    *obj = nullptr;
    for (const Entry& entry : entries) {
        if (!classId || !asked || !FUnknownPrivate::iidEqual(classId, entry.classId().toTUID()))
            continue;
        try {
            FUnknown* object = entry.create();
            const tresult result = object->queryInterface(asked, obj);
            object->release();
            return result;
        } catch (...) {
            return kOutOfMemory;
        }
    }
    return kNoInterface;
}
