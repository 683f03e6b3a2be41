// SPDX-License-Identifier: GPL-3.0-or-later
// Presets of this class that hold anything: the input is what follows the mark, the version and the
// class. A preset that is taken restores values that every parameter allows.
#include "fuzz/Require.h"
#include "hosting/RestoredValues.h"
#include "hosting/StateFile.h"

namespace {

QByteArray presetWith(const char* data, qsizetype size)
{
    Steinberg::FUID::String classId = {};
    ZoltaComponent::classId().toString(classId);
    QByteArray preset("VST3\1\0\0\0", 8);
    return preset.append(classId, 32).append(data, size);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const Result<QByteArray> state = StateFile::decode(
        presetWith(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)),
        ZoltaComponent::classId(), QStringLiteral("input"));
    require(state.isOk() == state.error().isEmpty());
    if (state.isOk())
        require(areAllowed(restoredValues(state.value())));
    return 0;
}
