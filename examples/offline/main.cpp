// SPDX-License-Identifier: GPL-3.0-or-later
// Runs a sound file through the equalizer:
//
//   offline in.wav out.wav [NAME=TEXT...]     for example fx_rackfx_prm_11=+6 fx_rackfx_prm_1="HPF
//   12"
#include <zolta/engine/ChannelProcessor.h>
#include <zolta/engine/DenormalGuard.h>
#include <zolta/parameters/ParameterText.h>

#include <sndfile.hh>

#include <cstdio>
#include <string_view>
#include <vector>

namespace {

/// Takes over a setting such as "fx_rackfx_prm_11=+6"; false if that is none.
bool set(std::string_view setting, ChannelValues& values)
{
    const std::size_t end = setting.find('=');
    const std::size_t index = findParameterByName(setting.substr(0, end));
    if (end == setting.npos || index == parameterCount)
        return false;
    const auto value = parseParameter(parameterTable[index], setting.substr(end + 1));
    values[index] = value.value_or(0);
    return value.has_value();
}

/// Each channel of the interleaved frames through a processor of its own.
void process(std::span<double> frames, std::vector<ChannelProcessor>& processors)
{
    const std::size_t channels = processors.size();
    std::vector<double> block(frames.size() / channels);
    for (std::size_t channel = 0; channel < channels; ++channel) {
        for (std::size_t i = 0; i < block.size(); ++i)
            block[i] = frames[i * channels + channel];
        processors[channel].process(block);
        for (std::size_t i = 0; i < block.size(); ++i)
            frames[i * channels + channel] = block[i];
    }
}

} // namespace

int main(int argc, char* argv[])
{
    ChannelValues values = defaultValues();
    for (int i = 3; i < argc; ++i) {
        if (!set(argv[i], values))
            return std::fprintf(stderr, "offline: \"%s\" is no setting\n", argv[i]), 2;
    }
    SndfileHandle in(argc > 2 ? argv[1] : "");
    if (!in)
        return std::fprintf(stderr, "usage: offline IN OUT [NAME=TEXT...]\n"), 2;
    SndfileHandle out(argv[2], SFM_WRITE, SF_FORMAT_WAV | SF_FORMAT_FLOAT, in.channels(),
                      in.samplerate());
    std::vector<ChannelProcessor> processors(static_cast<std::size_t>(in.channels()));
    for (ChannelProcessor& processor : processors) {
        processor.setSampleRate(in.samplerate());
        processor.setValues(values);
    }
    const DenormalGuard guard; // filters that fade into silence stay fast
    std::vector<double> frames(4096 * processors.size());
    while (const sf_count_t count = in.readf(frames.data(), 4096)) {
        process(std::span(frames).first(static_cast<std::size_t>(count) * processors.size()),
                processors);
        if (out.writef(frames.data(), count) != count)
            return std::fprintf(stderr, "offline: %s: %s\n", argv[2], out.strError()), 1;
    }
    return 0;
}
