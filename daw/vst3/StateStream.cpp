// SPDX-License-Identifier: GPL-3.0-or-later
#include "daw/vst3/StateStream.h"

using namespace Steinberg;

// A stream may give less than is asked for at a time.
std::optional<SavedState> readState(IBStream* stream)
{
    std::array<unsigned char, stateSize> bytes{};
    std::size_t read = 0;
    while (stream && read < bytes.size()) {
        int32 count = 0;
        const auto left = static_cast<int32>(bytes.size() - read);
        if (stream->read(bytes.data() + read, left, &count) != kResultOk || count <= 0 ||
            count > left)
            break;
        read += static_cast<std::size_t>(count);
    }
    return decodeState(std::span(bytes).first(read));
}

bool writeState(IBStream* stream, const SavedState& state)
{
    std::array<unsigned char, stateSize> bytes = encodeState(state);
    int32 written = 0;
    return stream &&
           stream->write(bytes.data(), static_cast<int32>(bytes.size()), &written) == kResultOk &&
           written == static_cast<int32>(bytes.size());
}
