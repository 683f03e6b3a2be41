// SPDX-License-Identifier: GPL-3.0-or-later
// Anything on the clipboard, pasted into an equalizer: the first byte says whether it is text or
// comes under the mixer's own type. A text that is taken gives values that every parameter allows,
// and copying them gives a text that says the same.
#include "fuzz/Require.h"
#include "host/model/ChannelText.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    static const HostMemory::Values defaults = HostMemory().values(0);
    const QByteArray bytes(reinterpret_cast<const char*>(data + 1),
                           static_cast<qsizetype>(size - 1));
    QMimeData clipboard;
    if (data[0] == 'T')
        clipboard.setText(QString::fromUtf8(bytes));
    else
        clipboard.setData(QStringLiteral("application/x-zolta-equalizer+json"), bytes);
    const auto pasted = ChannelText::fromMime(&clipboard, defaults);
    require(pasted.isOk() == pasted.error().isEmpty());
    if (!pasted.isOk())
        return 0;
    require(areAllowed(pasted.value()));
    const auto copied = ChannelText::fromMime(ChannelText::toMime(pasted.value()).get(), defaults);
    require(copied.isOk() && copied.value() == pasted.value());
    return 0;
}
