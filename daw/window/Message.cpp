// SPDX-License-Identifier: GPL-3.0-or-later
#include "daw/window/Message.h"

#include "parameters/ParameterTable.h"

namespace {

constexpr std::int32_t maxSampleRate = 10'000'000;
constexpr std::int32_t maxExtent = 32'767; // of a window, in pixels

constexpr bool isWithin(std::int32_t value, std::int32_t first, std::int32_t last)
{
    return value >= first && value <= last;
}

} // namespace

bool isValid(const Message& message)
{
    switch (message.kind) {
    case MessageKind::Value:
        return message.index < parameterCount &&
               parameterTable[message.index].allows(message.value);
    case MessageKind::Begin:
    case MessageKind::End:
        return message.index < parameterCount && message.value == 0;
    case MessageKind::Meter:
        return message.index < MeterPlaceCount && isWithin(message.value, INT16_MIN, INT16_MAX);
    case MessageKind::SampleRate:
        return message.index == 0 && isWithin(message.value, 1, maxSampleRate);
    case MessageKind::Size:
        return isWithin(message.index, 1, maxExtent) && isWithin(message.value, 1, maxExtent);
    case MessageKind::Ready:
        return message.index == 0 && message.value == 0;
    }
    return false;
}
