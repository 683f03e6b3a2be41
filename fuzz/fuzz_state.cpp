// SPDX-License-Identifier: GPL-3.0-or-later
// The host's reader of states and presets over arbitrary bytes: it either says what is wrong or
// returns a state that is sound.
#include "hosting/StateFile.h"

#include <QtEndian>

#include <cstdint>
#include <cstdlib>

namespace {

void require(bool condition)
{
    if (!condition)
        std::abort();
}

void checkState(const QByteArray& state)
{
    require(state.size() == 116 && state.startsWith("2620"));
    for (int entry = 0; entry < 27; ++entry) {
        const auto value = qFromBigEndian<float>(state.constData() + 4 + 4 * entry);
        require(value >= 0.0F && value <= 1.0F);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const Steinberg::FUID uid(0x56535464, 0x78704265, 0x7175616C, 0x697A6572);
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const StateFile::Content content = StateFile::decode(bytes, uid);
    require(content.state.isEmpty() != content.error.isEmpty());
    if (content.state.isEmpty())
        return 0;
    checkState(content.state);
    const QByteArray preset = StateFile::encodePreset(content.state, uid);
    require(StateFile::decode(preset, uid).state == content.state);
    return 0;
}
