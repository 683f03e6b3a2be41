// SPDX-License-Identifier: GPL-3.0-or-later
#include "daw/vst3/Vst3Controller.h"

#include "daw/vst3/EditMessage.h"
#include "daw/vst3/StateStream.h"
#include "engine/Drive.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

using namespace Steinberg;

namespace {

constexpr std::size_t maxTyped = 127;
constexpr Vst::ParamID driveId =
    ParameterList::firstId +
    static_cast<Vst::ParamID>(parameterIndex(noBand, EqualizerField::Drive));

// Whether a workstation may set a parameter.
bool isEdit(Vst::ParamID id)
{
    return id == ParameterList::bypassId || id == ParameterList::programId ||
           ParameterList::tableIndex(id) < parameterCount;
}

// What was typed, with a mark for every letter that no text of ours has.
std::string typedText(const Vst::TChar* text)
{
    std::string result;
    for (std::size_t i = 0; i < maxTyped && text[i] != 0; ++i)
        result += text[i] < 0x80 ? static_cast<char>(text[i]) : '?';
    return result;
}

} // namespace

Vst3Controller::Vst3Controller()
{
    for (int32 index = 0; index < ParameterList::count(); ++index) {
        const ParameterList::Range range = ParameterList::rangeOf(ParameterList::idAt(index));
        m_normalized.push_back(ParameterList::normalizedOf(range, range.defaultValue));
    }
}

tresult PLUGIN_API Vst3Controller::queryInterface(const TUID asked, void** obj)
{
    *obj = nullptr;
    const bool known =
        answerQuery<Vst::IEditController>(asked, FUnknown_iid, this, obj) ||
        answerQuery<Vst::IEditController>(asked, IPluginBase_iid, this, obj) ||
        answerQuery<Vst::IEditController>(asked, Vst::IEditController_iid, this, obj) ||
        answerQuery<Vst::IUnitInfo>(asked, Vst::IUnitInfo_iid, this, obj) ||
        answerQuery<Vst::IConnectionPoint>(asked, Vst::IConnectionPoint_iid, this, obj);
    return known ? kResultOk : kNoInterface;
}

uint32 PLUGIN_API Vst3Controller::release()
{
    const uint32 left = m_references.remove();
    if (left == 0)
        delete this;
    return left;
}

tresult PLUGIN_API Vst3Controller::initialize(FUnknown* context)
{
    m_context = context;
    return kResultOk;
}

tresult PLUGIN_API Vst3Controller::terminate()
{
    m_handler = nullptr;
    m_processor = nullptr;
    m_context = nullptr;
    return kResultOk;
}

tresult PLUGIN_API Vst3Controller::setComponentState(IBStream* stream)
{
    const std::optional<SavedState> state = readState(stream);
    if (!state)
        return kResultFalse;
    setValues(state->values);
    setValue(ParameterList::bypassId, state->isBypassed ? 1 : 0);
    announceLatency(isDriven(state->values) ? Drive::latency : 0);
    return kResultOk;
}

tresult PLUGIN_API Vst3Controller::setState(IBStream*) { return kNotImplemented; }

tresult PLUGIN_API Vst3Controller::getState(IBStream*) { return kNotImplemented; }

int32 PLUGIN_API Vst3Controller::getParameterCount() { return ParameterList::count(); }

tresult PLUGIN_API Vst3Controller::getParameterInfo(int32 index, Vst::ParameterInfo& info)
{
    if (index < 0 || index >= ParameterList::count())
        return kInvalidArgument;
    ParameterList::describe(ParameterList::idAt(index), &info);
    return kResultOk;
}

tresult PLUGIN_API Vst3Controller::getParamStringByValue(Vst::ParamID id,
                                                         Vst::ParamValue normalized,
                                                         Vst::String128 text)
{
    if (!isKnown(id) || std::isnan(normalized))
        return kInvalidArgument;
    const int value = ParameterList::valueOf(ParameterList::rangeOf(id), normalized);
    ParameterList::write(ParameterList::textOf(id, value), text);
    return kResultOk;
}

tresult PLUGIN_API Vst3Controller::getParamValueByString(Vst::ParamID id, Vst::TChar* text,
                                                         Vst::ParamValue& normalized)
{
    if (!isKnown(id) || !text)
        return kInvalidArgument;
    const std::optional<int> value = ParameterList::parse(id, typedText(text));
    if (!value)
        return kResultFalse;
    normalized = ParameterList::normalizedOf(ParameterList::rangeOf(id), *value);
    return kResultOk;
}

Vst::ParamValue PLUGIN_API Vst3Controller::normalizedParamToPlain(Vst::ParamID id,
                                                                  Vst::ParamValue normalized)
{
    if (!isKnown(id) || std::isnan(normalized))
        return normalized;
    return ParameterList::plainOf(id,
                                  ParameterList::valueOf(ParameterList::rangeOf(id), normalized));
}

Vst::ParamValue PLUGIN_API Vst3Controller::plainParamToNormalized(Vst::ParamID id,
                                                                  Vst::ParamValue plain)
{
    if (!isKnown(id) || std::isnan(plain))
        return plain;
    return ParameterList::normalizedOf(ParameterList::rangeOf(id),
                                       ParameterList::valueOfPlain(id, plain));
}

Vst::ParamValue PLUGIN_API Vst3Controller::getParamNormalized(Vst::ParamID id)
{
    return isKnown(id) ? m_normalized[static_cast<std::size_t>(ParameterList::indexOf(id))] : 0.0;
}

tresult PLUGIN_API Vst3Controller::setParamNormalized(Vst::ParamID id, Vst::ParamValue value)
{
    if (!isKnown(id) || std::isnan(value))
        return kInvalidArgument;
    const int before = valueOf(id);
    m_normalized[static_cast<std::size_t>(ParameterList::indexOf(id))] =
        std::clamp(value, 0.0, 1.0);
    if (valueOf(id) == before)
        return kResultOk;
    show(id);
    if (id == ParameterList::latencyId)
        announceLatency(valueOf(id));
    else if (isEdit(id))
        applyEdit(id);
    return kResultOk;
}

tresult PLUGIN_API Vst3Controller::setComponentHandler(Vst::IComponentHandler* handler)
{
    m_handler = handler;
    return kResultOk;
}

IPlugView* PLUGIN_API Vst3Controller::createView(FIDString name)
{
    const bool isEditor = name && std::strcmp(name, Vst::ViewType::kEditor) == 0;
    return isEditor ? new Vst3View(*this) : nullptr;
}

int32 PLUGIN_API Vst3Controller::getUnitCount() { return ParameterList::unitCount(); }

tresult PLUGIN_API Vst3Controller::getUnitInfo(int32 index, Vst::UnitInfo& info)
{
    if (index < 0 || index >= ParameterList::unitCount())
        return kInvalidArgument;
    ParameterList::describeUnit(index, &info);
    return kResultOk;
}

tresult PLUGIN_API Vst3Controller::getProgramListInfo(int32 index, Vst::ProgramListInfo& info)
{
    if (index != 0)
        return kInvalidArgument;
    info.id = ParameterList::programListId;
    info.programCount = ParameterList::programCount();
    ParameterList::write("Factory presets", info.name);
    return kResultOk;
}

tresult PLUGIN_API Vst3Controller::getProgramName(Vst::ProgramListID list, int32 program,
                                                  Vst::String128 name)
{
    if (!isProgram(list, program))
        return kInvalidArgument;
    ParameterList::write(ParameterList::programName(program), name);
    return kResultOk;
}

tresult PLUGIN_API Vst3Controller::getProgramInfo(Vst::ProgramListID, int32, Vst::CString,
                                                  Vst::String128)
{
    return kResultFalse;
}

tresult PLUGIN_API Vst3Controller::hasProgramPitchNames(Vst::ProgramListID, int32)
{
    return kResultFalse;
}

tresult PLUGIN_API Vst3Controller::getProgramPitchName(Vst::ProgramListID, int32, int16,
                                                       Vst::String128)
{
    return kResultFalse;
}

tresult PLUGIN_API Vst3Controller::selectUnit(Vst::UnitID unit)
{
    if (unit < 0 || unit >= ParameterList::unitCount())
        return kInvalidArgument;
    m_selectedUnit = unit;
    return kResultOk;
}

tresult PLUGIN_API Vst3Controller::getUnitByBus(Vst::MediaType, Vst::BusDirection, int32, int32,
                                                Vst::UnitID& unit)
{
    unit = Vst::kRootUnitId;
    return kResultOk;
}

tresult PLUGIN_API Vst3Controller::setUnitProgramData(int32, int32, IBStream*)
{
    return kNotImplemented;
}

tresult PLUGIN_API Vst3Controller::connect(Vst::IConnectionPoint* other)
{
    m_processor = other;
    return kResultOk;
}

tresult PLUGIN_API Vst3Controller::disconnect(Vst::IConnectionPoint*)
{
    m_processor = nullptr;
    return kResultOk;
}

tresult PLUGIN_API Vst3Controller::notify(Vst::IMessage*) { return kResultFalse; }

bool Vst3Controller::isKnown(Vst::ParamID id)
{
    return ParameterList::indexOf(id) < ParameterList::count();
}

bool Vst3Controller::isProgram(Vst::ProgramListID list, int32 program)
{
    return list == ParameterList::programListId && program >= 0 &&
           program < ParameterList::programCount();
}

int Vst3Controller::valueOf(Vst::ParamID id) const
{
    return ParameterList::valueOf(
        ParameterList::rangeOf(id),
        m_normalized[static_cast<std::size_t>(ParameterList::indexOf(id))]);
}

void Vst3Controller::setValue(Vst::ParamID id, int value)
{
    m_normalized[static_cast<std::size_t>(ParameterList::indexOf(id))] =
        ParameterList::normalizedOf(ParameterList::rangeOf(id), value);
    show(id);
}

void Vst3Controller::setValues(const ChannelValues& values)
{
    for (std::size_t i = 0; i < values.size(); ++i)
        setValue(ParameterList::firstId + static_cast<Vst::ParamID>(i), values[i]);
}

void Vst3Controller::applyEdit(Vst::ParamID id)
{
    const bool isTold = sendEdit(m_context, m_processor, {id, valueOf(id)});
    if (id == ParameterList::programId) {
        setValues(ParameterList::programValues(valueOf(id)));
        announce(Vst::kParamValuesChanged);
    }
    if (isTold)
        announceLatency(valueOf(driveId) != 0 ? Drive::latency : 0);
}

void Vst3Controller::announceLatency(int latency)
{
    if (std::exchange(m_announcedLatency, latency) != latency)
        announce(Vst::kLatencyChanged);
}

void Vst3Controller::announce(int32 flags)
{
    const IPtr<Vst::IComponentHandler> handler = m_handler;
    if (handler)
        handler->restartComponent(flags);
}

void Vst3Controller::beginEdit(std::size_t parameter)
{
    if (m_handler)
        m_handler->beginEdit(ParameterList::idOf(parameter));
}

void Vst3Controller::edit(std::size_t parameter, int value)
{
    const Vst::ParamID id = ParameterList::idOf(parameter);
    setValue(id, value);
    if (m_handler)
        m_handler->performEdit(id, getParamNormalized(id));
    applyEdit(id);
}

void Vst3Controller::endEdit(std::size_t parameter)
{
    if (m_handler)
        m_handler->endEdit(ParameterList::idOf(parameter));
}

bool Vst3Controller::isStereo() const { return valueOf(ParameterList::channelCountId) != 1; }

void Vst3Controller::editorOpened(EmbeddedEditor& editor)
{
    m_editors.push_back(&editor);
    for (int32 index = 0; index < ParameterList::count(); ++index)
        show(ParameterList::idAt(index), editor);
}

void Vst3Controller::editorClosed(EmbeddedEditor& editor) { std::erase(m_editors, &editor); }

void Vst3Controller::show(Vst::ParamID id) const
{
    for (EmbeddedEditor* editor : m_editors)
        show(id, *editor);
}

void Vst3Controller::show(Vst::ParamID id, EmbeddedEditor& editor) const
{
    const int value = valueOf(id);
    if (const std::size_t parameter = ParameterList::tableIndex(id); parameter < parameterCount)
        editor.setValue(parameter, value);
    else if (id == ParameterList::sampleRateId)
        editor.setSampleRate(value);
    else if (id >= ParameterList::inputMeterId && id < ParameterList::sampleRateId)
        editor.setMeter(static_cast<MeterPlace>(InLeft + id - ParameterList::inputMeterId), value);
}
