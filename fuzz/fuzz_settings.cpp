// SPDX-License-Identifier: GPL-3.0-or-later
// Settings files of any bytes: each is refused with a sentence and gives no map, or gives maps for
// channels that there are.
#include "fuzz/MemoryFile.h"
#include "fuzz/Require.h"
#include "host/files/SettingsFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static MemoryFile file;
    file.fill(data, size);
    SettingsFile settings;
    const Status opened = settings.open(file.name());
    require(opened.isOk() == opened.error().isEmpty());
    require(settings.map(-1).isEmpty() && settings.map(maxChannelCount).isEmpty());
    for (int channel = 0; channel < maxChannelCount; ++channel)
        require(opened.isOk() || settings.map(channel).isEmpty());
    return 0;
}
