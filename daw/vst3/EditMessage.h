// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <pluginterfaces/base/funknown.h>
#include <pluginterfaces/vst/ivstmessage.h>
#include <pluginterfaces/vst/vsttypes.h>

#include <optional>

/// What the controller says to the processor: a parameter has a value, in steps of its range.
struct EditMessage
{
    Steinberg::Vst::ParamID id;
    int value;
};

/// Sends \a edit to \a receiver in a message of the workstation's (\a context, its
/// IHostApplication), and says whether it was taken.
bool sendEdit(Steinberg::FUnknown* context, Steinberg::Vst::IConnectionPoint* receiver,
              const EditMessage& edit);

/// Nothing for any other message, and for a parameter or a value that does not exist.
std::optional<EditMessage> readEdit(Steinberg::Vst::IMessage* message);
