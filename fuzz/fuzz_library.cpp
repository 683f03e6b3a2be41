// SPDX-License-Identifier: GPL-3.0-or-later
// The check of a library before it is loaded, over any bytes. A library that is taken is one, and
// holds every segment that its header promises.
#include "fuzz/MemoryFile.h"
#include "fuzz/Require.h"
#include "hosting/LibraryFile.h"

#include <cstring>

#include <link.h>

namespace {

void checkSegment(const std::uint8_t* start, std::size_t size)
{
    ElfW(Phdr) segment;
    std::memcpy(&segment, start, sizeof segment);
    require(segment.p_offset <= size && segment.p_filesz <= size - segment.p_offset);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static MemoryFile file;
    file.fill(data, size);
    const Status status = checkLibraryFile(file.name());
    require(status.isOk() == status.error().isEmpty());
    if (!status.isOk())
        return 0;
    ElfW(Ehdr) header;
    require(size >= sizeof header);
    std::memcpy(&header, data, sizeof header);
    require(std::memcmp(header.e_ident, ELFMAG, SELFMAG) == 0);
    for (std::size_t i = 0; i < header.e_phnum; ++i) {
        const std::size_t place = header.e_phoff + i * sizeof(ElfW(Phdr));
        require(place + sizeof(ElfW(Phdr)) <= size);
        checkSegment(data + place, size);
    }
    return 0;
}
