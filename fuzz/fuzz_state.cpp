// SPDX-License-Identifier: GPL-3.0-or-later
// The host's reader of states and presets over arbitrary bytes: it either says what is wrong or
// returns a state that is sound.
#include "equalizer/EqualizerParameters.h"
#include "fuzz/Require.h"
#include "hosting/StateFile.h"

#include <QtEndian>

#include <cstdint>

namespace {

void checkState(const QByteArray& state)
{
    require(state.size() == qsizetype{stateSize} && state.startsWith("2620"));
    for (int entry = 0; entry < int{parameterCount}; ++entry) {
        const auto value = qFromBigEndian<float>(state.constData() + 4 + 4 * entry);
        require(value >= 0.0F && value <= 1.0F);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const Steinberg::FUID uid = ZoltaComponent::classId();
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QString name = QStringLiteral("input");
    const Result<QByteArray> state = StateFile::decode(bytes, uid, name);
    require(state.isOk() == state.error().isEmpty());
    if (!state.isOk())
        return 0;
    checkState(state.value());
    const Result<QByteArray> again =
        StateFile::decode(StateFile::encodePreset(state.value(), uid), uid, name);
    require(again.isOk() && again.value() == state.value());
    return 0;
}
