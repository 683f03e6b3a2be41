// SPDX-License-Identifier: GPL-3.0-or-later
// The program's command line: each line of the input is one argument. Arguments that are taken ask
// for something that can be done.
#include "fuzz/Require.h"
#include "host/program/CommandLineParser.h"

#include <sstream>
#include <string>
#include <vector>

namespace {

std::vector<std::string> linesOf(const std::uint8_t* data, std::size_t size)
{
    std::vector<std::string> lines{"zolta-host"};
    std::istringstream input(std::string(data, data + size));
    for (std::string line; std::getline(input, line);)
        lines.push_back(line.c_str()); // an argument ends at the first zero
    return lines;
}

void check(const CommandLine& line)
{
    require(line.channels == 0 || isChannelCount(line.channels));
    const int channelCount = line.channels > 0 ? line.channels : maxChannelCount;
    require(line.editor.channel >= 0 && line.editor.channel < channelCount);
    require(line.editor.scale >= 0.5 && line.editor.scale <= 4.0);
    require(line.editor.sampleRate >= 1000 && line.editor.sampleRate <= 768000);
    require(line.audio.file.isEmpty() || !line.audio.device.live);
    require(!line.renders() || !line.render.output.isEmpty());
    for (const CommandLine::Setting& setting : line.settings)
        require(parameterTable[setting.parameter].allows(setting.value));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::vector<std::string> lines = linesOf(data, size);
    std::vector<const char*> arguments;
    for (const std::string& line : lines)
        arguments.push_back(line.c_str());
    const auto count = static_cast<int>(arguments.size());
    const Result<QStringList> decoded = CommandLineParser::decode(count, arguments.data());
    require(decoded.isOk() == decoded.error().isEmpty());
    if (!decoded.isOk())
        return 0;
    static_cast<void>(CommandLineParser::languageIn(decoded.value()));
    const Result<CommandLine> line = CommandLineParser::parse(decoded.value());
    require(line.isOk() == line.error().isEmpty());
    if (line.isOk() && !line.value().help)
        check(line.value());
    return 0;
}
