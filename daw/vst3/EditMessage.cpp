// SPDX-License-Identifier: GPL-3.0-or-later
#include "daw/vst3/EditMessage.h"

#include "daw/vst3/ParameterList.h"

#include <pluginterfaces/base/smartpointer.h>
#include <pluginterfaces/vst/ivsthostapplication.h>

#include <cstring>

using namespace Steinberg;

namespace {

constexpr const char* messageName = "edit";
constexpr const char* idName = "id";
constexpr const char* valueName = "value";

IPtr<Vst::IMessage> createMessage(FUnknown* context)
{
    const FUnknownPtr<Vst::IHostApplication> host(context);
    TUID iid;
    std::memcpy(iid, Vst::IMessage_iid, sizeof iid);
    void* object = nullptr;
    if (!host || host->createInstance(iid, iid, &object) != kResultOk)
        return nullptr;
    return owned(static_cast<Vst::IMessage*>(object));
}

} // namespace

bool sendEdit(FUnknown* context, Vst::IConnectionPoint* receiver, const EditMessage& edit)
{
    const IPtr<Vst::IMessage> message = receiver ? createMessage(context) : nullptr;
    Vst::IAttributeList* attributes = message ? message->getAttributes() : nullptr;
    if (!attributes)
        return false;
    message->setMessageID(messageName);
    attributes->setInt(idName, edit.id);
    attributes->setInt(valueName, edit.value);
    return receiver->notify(message) == kResultOk;
}

std::optional<EditMessage> readEdit(Vst::IMessage* message)
{
    const char* name = message ? message->getMessageID() : nullptr;
    Vst::IAttributeList* attributes = name ? message->getAttributes() : nullptr;
    int64 id = 0;
    int64 value = 0;
    if (!attributes || std::strcmp(name, messageName) != 0 ||
        attributes->getInt(idName, id) != kResultOk ||
        attributes->getInt(valueName, value) != kResultOk)
        return std::nullopt;
    const auto known = static_cast<Vst::ParamID>(id);
    if (ParameterList::indexOf(known) == ParameterList::count())
        return std::nullopt;
    const ParameterList::Range range = ParameterList::rangeOf(known);
    if (value < range.minimum || value > range.maximum)
        return std::nullopt;
    return EditMessage{known, static_cast<int>(value)};
}
