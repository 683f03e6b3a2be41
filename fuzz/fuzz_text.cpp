// SPDX-License-Identifier: GPL-3.0-or-later
// The texts that people type for values, over arbitrary bytes: the first chooses the parameter, the
// rest is typed. A text either says nothing or names a value that the parameter allows, whose own
// text names it again.
#include "fuzz/Require.h"
#include "parameters/ParameterText.h"
#include "parameters/StripTable.h"

#include <cstdint>

namespace {

template <typename Parse, typename Format>
void check(const std::string& text, const Parse& parse, const Format& format)
{
    const std::optional<int> value = parse(text);
    require(parse(' ' + text + ' ') == value);
    if (!value)
        return;
    const std::optional<std::string> own = format(*value);
    require(own && parse(*own) == value);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    const std::size_t choice = data[0] % (parameterCount + stripParameterCount);
    const std::string text(data + 1, data + size);
    if (choice < parameterCount) {
        const Parameter& parameter = parameterTable[choice];
        check(
            text, [&](const std::string& typed) { return parseParameter(parameter, typed); },
            [&](int value) { return formatParameter(parameter, value); });
    } else {
        const auto parameter = static_cast<StripParameter>(choice - parameterCount);
        check(
            text, [&](const std::string& typed) { return parseStrip(parameter, typed); },
            [&](int value) { return formatStrip(parameter, value); });
    }
    return 0;
}
