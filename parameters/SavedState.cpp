// SPDX-License-Identifier: GPL-3.0-or-later
#include "parameters/SavedState.h"

#include "equalizer/StateValue.h"

#include <algorithm>

namespace {

constexpr std::size_t wordSize = std::tuple_size_v<StateValue::Word>;

constexpr std::size_t offsetOf(std::size_t entry) { return stateVersion.size() + wordSize * entry; }

float placeAt(std::span<const unsigned char> bytes, std::size_t entry)
{
    StateValue::Word word{};
    std::copy_n(bytes.subspan(offsetOf(entry)).begin(), word.size(), word.begin());
    return StateValue::fromWord(word);
}

} // namespace

std::array<unsigned char, stateSize> encodeState(const SavedState& state)
{
    std::array<unsigned char, stateSize> bytes{};
    std::copy(stateVersion.begin(), stateVersion.end(), bytes.begin());
    const auto write = [&bytes](std::size_t entry, float place) {
        const StateValue::Word word = StateValue::toWord(place);
        std::copy(word.begin(), word.end(), std::span(bytes).subspan(offsetOf(entry)).begin());
    };
    for (std::size_t entry = 0; entry < parameterCount; ++entry) {
        const Parameter& parameter = parameterTable[stateOrder[entry]];
        write(entry, StateValue::toPlace(state.values[stateOrder[entry]], parameter.minimum,
                                         parameter.maximum));
    }
    write(parameterCount, state.isBypassed ? 1.0F : 0.0F);
    return bytes;
}

std::optional<SavedState> decodeState(std::span<const unsigned char> bytes)
{
    if (bytes.size() < stateSize ||
        !std::equal(stateVersion.begin(), stateVersion.end(), bytes.begin()))
        return std::nullopt;
    SavedState state;
    for (std::size_t entry = 0; entry < parameterCount; ++entry) {
        const Parameter& parameter = parameterTable[stateOrder[entry]];
        state.values[stateOrder[entry]] =
            StateValue::fromPlace(placeAt(bytes, entry), parameter.minimum, parameter.maximum);
    }
    state.isBypassed = placeAt(bytes, parameterCount) > 0.5F;
    return state;
}
