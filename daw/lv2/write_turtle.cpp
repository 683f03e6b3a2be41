// SPDX-License-Identifier: GPL-3.0-or-later
// Writes what the bundle says about its plug-ins, and a configuration of PipeWire's with one of
// them; the build runs it.
//
// Usage: write_turtle FOLDER LIBRARY UI_LIBRARY VERSION CONFIGURATION
#include "daw/lv2/FilterChain.h"
#include "daw/lv2/Turtle.h"

#include <fstream>
#include <iostream>

namespace {

bool writeFile(const std::string& file, const std::string& text)
{
    std::ofstream stream(file, std::ios::binary);
    stream << text << std::flush;
    if (!stream)
        std::cerr << "The file " << file << " cannot be written.\n";
    return stream.good();
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc != 6) {
        std::cerr << "Usage: write_turtle FOLDER LIBRARY UI_LIBRARY VERSION CONFIGURATION\n";
        return 2;
    }
    const std::string folder = std::string(argv[1]) + '/';
    const bool written = writeFile(folder + "manifest.ttl", manifestTurtle(argv[2], argv[3])) &&
                         writeFile(folder + "equalizer.ttl", pluginsTurtle(argv[4])) &&
                         writeFile(folder + "presets.ttl", presetsTurtle()) &&
                         writeFile(argv[5], filterChainText());
    return written ? 0 : 1;
}
