// SPDX-License-Identifier: GPL-3.0-or-later
// The pages of OGG files. The first byte says whether each page gets the checksum that it should
// have, without which no page but the stored ones would be whole.
#include "fuzz/MemoryFile.h"
#include "fuzz/Require.h"
#include "host/audio/OggPages.h"

#include <QFile>

#include <algorithm>
#include <numeric>
#include <span>
#include <vector>

namespace {

using Bytes = std::span<std::uint8_t>;

constexpr std::size_t headerSize = 27;
constexpr std::size_t checksumAt = 22;

void sign(Bytes page)
{
    std::uint32_t sum = 0;
    std::fill_n(page.begin() + checksumAt, 4, std::uint8_t{0});
    for (const std::uint8_t byte : page) {
        sum ^= std::uint32_t{byte} << 24U;
        for (int bit = 0; bit < 8; ++bit)
            sum = (sum << 1U) ^ ((sum >> 31U) * 0x04C11DB7U);
    }
    for (std::size_t i = 0; i < 4; ++i)
        page[checksumAt + i] = static_cast<std::uint8_t>(sum >> (8 * i));
}

// Of the page that the bytes begin with; 0 where it is not all there.
std::size_t pageSize(Bytes bytes)
{
    if (bytes.size() < headerSize || bytes.size() < headerSize + bytes[headerSize - 1])
        return 0;
    const Bytes segments = bytes.subspan(headerSize, bytes[headerSize - 1]);
    const std::size_t size = headerSize + segments.size() +
                             std::accumulate(segments.begin(), segments.end(), std::size_t{0});
    return size <= bytes.size() ? size : 0;
}

void signAll(Bytes bytes)
{
    for (std::size_t size = pageSize(bytes); size > 0; size = pageSize(bytes)) {
        sign(bytes.first(size));
        bytes = bytes.subspan(size);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    std::vector<std::uint8_t> bytes(data + 1, data + size);
    if (data[0] == 'S')
        signAll(bytes);
    static MemoryFile memory;
    memory.fill(bytes.data(), bytes.size());
    QFile file(memory.name());
    require(file.open(QIODevice::ReadOnly | QIODevice::Unbuffered));
    const Status status = OggPages::check(file);
    require(status.isOk() == status.error().isEmpty());
    return 0;
}
