// SPDX-License-Identifier: GPL-3.0-or-later
// Presets of this class that hold anything: the input is what follows the mark, the version and the
// class. A preset that is taken restores values that every parameter allows.
#include "fuzz/MemoryFile.h"
#include "fuzz/Require.h"
#include "hosting/RestoredValues.h"
#include "hosting/StateFile.h"

#include <vector>

namespace {

std::vector<std::uint8_t> presetWith(const std::uint8_t* data, std::size_t size)
{
    constexpr std::uint8_t start[] = {'V', 'S', 'T', '3', 1, 0, 0, 0};
    Steinberg::FUID::String classId = {};
    ZoltaComponent::classId().toString(classId);
    std::vector<std::uint8_t> bytes(std::begin(start), std::end(start));
    bytes.insert(bytes.end(), classId, classId + 32);
    bytes.insert(bytes.end(), data, data + size);
    return bytes;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static MemoryFile file;
    const std::vector<std::uint8_t> preset = presetWith(data, size);
    file.fill(preset.data(), preset.size());
    const Result<QByteArray> state = StateFile(file.name()).read();
    require(state.isOk() == state.error().isEmpty());
    if (state.isOk())
        require(areAllowed(restoredValues(state.value())));
    return 0;
}
