// SPDX-License-Identifier: GPL-3.0-or-later
#include "component/EffectComponent.h"

#include "equalizer/StateValue.h"
#include "interfaces/IMemAPI.h"
#include "interfaces/IModelInfo.h"

#include <cstring>
#include <new>

using namespace Steinberg;

namespace {

using StateValue::Word;

tresult readWord(IBStream* stream, Word* word)
{
    word->fill(0);
    return stream->read(word->data(), static_cast<int32>(word->size()), nullptr);
}

tresult writeWord(IBStream* stream, Word word)
{
    return stream->write(word.data(), static_cast<int32>(word.size()), nullptr);
}

} // namespace

// A host parameter.
struct EffectComponent::Target
{
    unsigned short parameter = 0;
    int minimum = 0;
    int maximum = 0;
};

// A setState() that is running. It learns when the component is freed meanwhile, and so do those
// that it runs inside of.
class EffectComponent::Restore
{
public:
    explicit Restore(EffectComponent& component)
        : m_component(&component)
        , m_outer(component.m_restore)
    {
        component.m_restore = this;
    }
    ~Restore()
    {
        if (m_component)
            m_component->m_restore = m_outer;
    }
    Restore(const Restore&) = delete;
    Restore& operator=(const Restore&) = delete;

    bool isComponentFreed() const { return !m_component; }
    void setComponentFreed()
    {
        m_component = nullptr;
        if (m_outer)
            m_outer->setComponentFreed();
    }

private:
    EffectComponent* m_component;
    Restore* m_outer;
};

EffectComponent::~EffectComponent()
{
    if (m_restore)
        m_restore->setComponentFreed();
}

void EffectComponent::setModelInfo(IModelInfo* modelInfo) { m_modelInfo = modelInfo; }

void EffectComponent::setMemAPI(IMemAPI* memAPI) { m_memAPI = memAPI; }

void EffectComponent::setCh(int ch) { m_ch = ch; }

tresult PLUGIN_API EffectComponent::queryInterface(const TUID, void** obj)
{
    *obj = nullptr;
    return kNoInterface;
}

uint32 PLUGIN_API EffectComponent::addRef() { return static_cast<uint32>(++m_references); }

uint32 PLUGIN_API EffectComponent::release()
{
    const int32 left = --m_references;
    if (left == 0) {
        EffectComponent::~EffectComponent();
        ::operator delete(static_cast<void*>(this));
    }
    return static_cast<uint32>(left);
}

tresult PLUGIN_API EffectComponent::initialize(FUnknown*) { return kNotImplemented; }

tresult PLUGIN_API EffectComponent::terminate() { return kNotImplemented; }

tresult PLUGIN_API EffectComponent::getControllerClassId(TUID) { return kNotImplemented; }

tresult PLUGIN_API EffectComponent::setIoMode(Vst::IoMode) { return kNotImplemented; }

int32 PLUGIN_API EffectComponent::getBusCount(Vst::MediaType, Vst::BusDirection)
{
    return kNotImplemented;
}

tresult PLUGIN_API EffectComponent::getBusInfo(Vst::MediaType, Vst::BusDirection, int32,
                                               Vst::BusInfo&)
{
    return kNotImplemented;
}

tresult PLUGIN_API EffectComponent::getRoutingInfo(Vst::RoutingInfo&, Vst::RoutingInfo&)
{
    return kNotImplemented;
}

tresult PLUGIN_API EffectComponent::activateBus(Vst::MediaType, Vst::BusDirection, int32, TBool)
{
    return kNotImplemented;
}

tresult PLUGIN_API EffectComponent::setActive(TBool) { return kNotImplemented; }

tresult PLUGIN_API EffectComponent::setState(IBStream* state)
{
    if (state == nullptr)
        return kResultFalse;
    Word version;
    if (const tresult result = readWord(state, &version); result != kResultOk)
        return result;
    if (!isBound())
        return kResultFalse;
    Restore restore(*this);
    for (const char* name : getParameterList(version.data())) {
        Word word;
        if (const tresult result = readWord(state, &word); result != kResultOk)
            return result;
        restoreValue(name, StateValue::fromWord(word));
        if (restore.isComponentFreed())
            return kResultFalse;
    }
    return kResultOk;
}

tresult PLUGIN_API EffectComponent::getState(IBStream* state)
{
    if (state == nullptr)
        return kResultFalse;
    Word version;
    std::memcpy(version.data(), getDataVersion(), version.size());
    if (const tresult result = writeWord(state, version); result != kResultOk)
        return result;
    if (!isBound())
        return kResultFalse;
    for (const char* name : getParameterList(nullptr)) {
        const Word word = StateValue::toWord(normalizedValue(name));
        if (const tresult result = writeWord(state, word); result != kResultOk)
            return result;
    }
    return kResultOk;
}

bool EffectComponent::isBound() const { return m_modelInfo != nullptr && m_memAPI != nullptr; }

// Asks anew whether there is a host: an observer of a restored value may have detached it.
bool EffectComponent::findTarget(const char* name, Target* target) const
{
    if (name == nullptr || !isBound())
        return false;
    unsigned short index = 0;
    unsigned short second = 0;
    return m_modelInfo->findParameter(&index, name) &&
           m_modelInfo->getParameterAddress(&target->parameter, &second, index) &&
           m_memAPI->getRange(target->parameter, static_cast<unsigned short>(m_ch),
                              &target->minimum, &target->maximum) >= 0;
}

float EffectComponent::normalizedValue(const char* name) const
{
    Target target;
    int value = 0;
    if (!findTarget(name, &target) ||
        m_memAPI->getValue(target.parameter, static_cast<unsigned short>(m_ch), &value, 0) < 0)
        return 0.0f;
    return StateValue::toPlace(value, target.minimum, target.maximum);
}

void EffectComponent::restoreValue(const char* name, float normalized)
{
    Target target;
    if (findTarget(name, &target))
        m_memAPI->setValue(target.parameter, static_cast<unsigned short>(m_ch),
                           StateValue::fromPlace(normalized, target.minimum, target.maximum), 0, 0,
                           1);
}
