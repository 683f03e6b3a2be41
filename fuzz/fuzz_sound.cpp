// SPDX-License-Identifier: GPL-3.0-or-later
// Sound files of any bytes, read as they are played and as they are rendered, with jumps in
// between. Whatever comes, samples are numbers that the equalizer processes, and no more frames
// come than the file has.
#include "engine/ChannelProcessor.h"
#include "fuzz/MemoryFile.h"
#include "fuzz/Require.h"
#include "host/audio/AudioReader.h"

#include <cmath>
#include <vector>

namespace {

constexpr std::size_t blockSize = 64;
constexpr int maxBlocks = 64;

void readAsPlayed(AudioReader& reader)
{
    std::vector<float> samples(blockSize * static_cast<std::size_t>(reader.channels()));
    for (int i = 0; i < maxBlocks; ++i) {
        const std::size_t frames = reader.read(samples);
        require(frames <= blockSize);
        for (std::size_t s = 0; s < frames * static_cast<std::size_t>(reader.channels()); ++s)
            require(std::abs(double(samples[s])) <= ChannelProcessor::loudest);
        if (frames < blockSize)
            return;
    }
}

void readAsRendered(AudioReader& reader)
{
    AudioBlock block(static_cast<std::size_t>(reader.channels()), blockSize);
    for (int i = 0; i < maxBlocks; ++i) {
        reader.read(&block);
        require(block.frames() <= blockSize);
        if (block.frames() < blockSize)
            return;
    }
}

} // namespace

// What the sound file library keeps of a damaged Vorbis stream.
extern "C" [[gnu::visibility("default")]] const char* __lsan_default_suppressions()
{
    return "leak:libvorbis";
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static MemoryFile file;
    file.fill(data, size);
    AudioReader reader;
    const Status opened = reader.open(file.name());
    require(opened.isOk() == opened.error().isEmpty());
    if (!opened.isOk())
        return 0;
    require(reader.channels() > 0);
    static_cast<void>(reader.channelMap());
    readAsPlayed(reader);
    reader.seek(1);
    readAsRendered(reader);
    return 0;
}
