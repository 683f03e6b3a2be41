// SPDX-License-Identifier: GPL-3.0-or-later
// Writes the bundle's moduleinfo.json, from which workstations know the classes without loading the
// library; the build runs it.
//
// Usage: write_module_info FILE
#include "daw/vst3/Vst3Factory.h"

#include <fstream>
#include <iostream>
#include <string>

using namespace Steinberg;

namespace {

std::string quoted(const std::string& text) { return '"' + text + '"'; }

std::string identifier(const TUID classId)
{
    char8 text[33] = {};
    FUID::fromTUID(classId).toString(text);
    return quoted(text);
}

// "Fx|EQ" as "Fx", "EQ".
std::string list(std::string categories)
{
    if (categories.empty())
        return "[]";
    for (std::size_t at = categories.find('|'); at != std::string::npos;
         at = categories.find('|', at))
        categories.replace(at, 1, "\", \"");
    return quoted(categories).insert(0, 1, '[') + ']';
}

std::string classInfo(const PClassInfo2& info)
{
    return "    {\n      \"CID\": " + identifier(info.cid) +
           ",\n      \"Category\": " + quoted(info.category) +
           ",\n      \"Name\": " + quoted(info.name) +
           ",\n      \"Vendor\": " + quoted(info.vendor) +
           ",\n      \"Version\": " + quoted(info.version) +
           ",\n      \"SDKVersion\": " + quoted(info.sdkVersion) +
           ",\n      \"Sub Categories\": " + list(info.subCategories) +
           ",\n      \"Class Flags\": " + std::to_string(info.classFlags) +
           ",\n      \"Cardinality\": " + std::to_string(info.cardinality) +
           ",\n      \"Snapshots\": []\n    }";
}

std::string moduleInfo(Vst3Factory* factory)
{
    PFactoryInfo factoryInfo;
    factory->getFactoryInfo(&factoryInfo);
    std::string text = "{\n  \"Name\": \"zolta\",\n  \"Version\": " + quoted(ZOLTA_VERSION) +
                       ",\n  \"Factory Info\": {\n    \"Vendor\": " + quoted(factoryInfo.vendor) +
                       ",\n    \"URL\": " + quoted(factoryInfo.url) +
                       ",\n    \"E-Mail\": " + quoted(factoryInfo.email) +
                       ",\n    \"Flags\": {\n      \"Unicode\": true,\n"
                       "      \"Classes Discardable\": false,\n"
                       "      \"Component Non Discardable\": false\n    }\n  },\n"
                       "  \"Compatibility\": [],\n  \"Classes\": [\n";
    for (int32 i = 0; i < factory->countClasses(); ++i) {
        PClassInfo2 info;
        factory->getClassInfo2(i, &info);
        text += (i == 0 ? "" : ",\n") + classInfo(info);
    }
    return text + "\n  ]\n}\n";
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc != 2) {
        std::cerr << "Usage: write_module_info FILE\n";
        return 2;
    }
    std::ofstream stream(argv[1], std::ios::binary);
    stream << moduleInfo(Vst3Factory::instance()) << std::flush;
    if (!stream)
        std::cerr << "The file " << argv[1] << " cannot be written.\n";
    return stream ? 0 : 1;
}
