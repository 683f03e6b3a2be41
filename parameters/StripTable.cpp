// SPDX-License-Identifier: GPL-3.0-or-later
#include "parameters/StripTable.h"

#include "parameters/ParameterText.h"
#include "parameters/TranslationMark.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <span>

namespace {

constexpr std::string_view silence = "-inf";
constexpr std::string_view sources[] = {
    "Test signal", "File",     "Input 1",  "Input 2",  "Input 3",  "Input 4",  "Input 5",
    "Input 6",     "Input 7",  "Input 8",  "Input 9",  "Input 10", "Input 11", "Input 12",
    "Input 13",    "Input 14", "Input 15", "Input 16", "Input 17", "Input 18", "Input 19",
    "Input 20",    "Input 21", "Input 22", "Input 23", "Input 24", "Input 25", "Input 26",
    "Input 27",    "Input 28", "Input 29", "Input 30", "Input 31", "Input 32", "Off"};
constexpr std::string_view widths[] = {"Mono", "Stereo"};
constexpr std::string_view switches[] = {"Off", "On"};
static_assert(std::size(sources) == SourceOff + 1);

std::span<const std::string_view> namesOf(StripParameter parameter)
{
    if (parameter == StripParameter::Source)
        return sources;
    if (parameter == StripParameter::Stereo)
        return widths;
    return switches;
}

// A stretch of the fader: from a position down, levels fall by so many tenths a step.
struct Stretch
{
    int top;
    int tenthsAtTop;
    int step;
};
constexpr Stretch stretches[] = {{400, 100, 1}, {200, -100, 2}, {100, -300, 5}, {40, -600, 10}};

std::string lowered(std::string_view text)
{
    const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), [](char c) {
        return static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    });
    return result;
}

std::string formatLevel(int position)
{
    return position == 0 ? std::string(silence) : formatTenths(stripLevelTenths(position));
}

int nearestPosition(double tenths)
{
    const auto distance = [tenths](int position) {
        return std::abs(stripLevelTenths(position) - tenths);
    };
    int best = 1;
    for (int position = 2; position <= highestLevel; ++position) {
        if (distance(position) < distance(best))
            best = position;
    }
    return tenths < stripLevelTenths(1) - 5 ? 0 : best;
}

std::string formatBalance(int balance)
{
    if (balance == 0)
        return "C";
    return std::string(1, balance < 0 ? 'L' : 'R') + std::to_string(std::abs(balance));
}

std::optional<int> parseBalance(std::string_view text)
{
    if (text == "c" || text == "0")
        return 0;
    if (!text.starts_with('l') && !text.starts_with('r'))
        return std::nullopt;
    const int sign = text.front() == 'l' ? -1 : 1;
    const std::string digits = lowered(text.substr(1));
    int share = 0;
    const char* last = digits.data() + digits.size();
    const auto result = std::from_chars(digits.data(), last, share);
    const bool valid = result.ec == std::errc() && result.ptr == last && share >= 0;
    return valid ? std::optional(sign * std::min(share, fullBalance)) : std::nullopt;
}

std::optional<int> parseLevel(std::string text)
{
    if (text.ends_with("db"))
        text = lowered(std::string_view(text).substr(0, text.size() - 2));
    if (text == silence || text == "off")
        return 0;
    std::replace(text.begin(), text.end(), ',', '.');
    const char* first = text.data() + (text.starts_with('+') ? 1 : 0);
    const char* last = text.data() + text.size();
    double decibels = 0.0;
    const auto result = std::from_chars(first, last, decibels, std::chars_format::fixed);
    if (result.ec != std::errc() || result.ptr != last || !std::isfinite(decibels))
        return std::nullopt;
    return nearestPosition(decibels * 10.0);
}

// Of a strip's parameters with the same values.
StripParameter kindOf(MasterParameter parameter)
{
    return parameter == MasterParameter::Level ? StripParameter::Level : StripParameter::Mute;
}

} // namespace

constinit const std::array<StripEntry, stripParameterCount> stripTable = {{
    {"source", QT_TRANSLATE_NOOP("Parameter", "Source"), 0, SourceOff, SourceOff},
    {"stereo", QT_TRANSLATE_NOOP("Parameter", "Mono/stereo"), 0, 1, 1},
    {"equalizer", QT_TRANSLATE_NOOP("Parameter", "Equalizer on"), 0, 1, 1},
    {"mute", QT_TRANSLATE_NOOP("Parameter", "Mute"), 0, 1, 0},
    {"solo", QT_TRANSLATE_NOOP("Parameter", "Solo"), 0, 1, 0},
    {"level", QT_TRANSLATE_NOOP("Parameter", "Level"), 0, highestLevel, unityLevel},
    {"balance", QT_TRANSLATE_NOOP("Parameter", "Balance"), -fullBalance, fullBalance, 0},
}};

constinit const std::array<StripEntry, masterParameterCount> masterTable = {{
    {"level", QT_TRANSLATE_NOOP("Parameter", "Master level"), 0, highestLevel, unityLevel},
    {"mute", QT_TRANSLATE_NOOP("Parameter", "Master mute"), 0, 1, 0},
    {"dim", QT_TRANSLATE_NOOP("Parameter", "Dim"), 0, 1, 0},
    {"mono", QT_TRANSLATE_NOOP("Parameter", "Mono"), 0, 1, 0},
}};

std::optional<StripParameter> findStripParameter(unsigned short id)
{
    const int index = id - stripId(StripParameter{});
    if (index < 0 || index >= static_cast<int>(stripParameterCount))
        return std::nullopt;
    return static_cast<StripParameter>(index);
}

std::optional<StripParameter> findStripParameter(std::string_view key)
{
    for (std::size_t i = 0; i < stripParameterCount; ++i) {
        if (key == stripTable[i].key)
            return static_cast<StripParameter>(i);
    }
    return std::nullopt;
}

std::optional<std::string> formatStrip(StripParameter parameter, int value)
{
    if (value < stripEntry(parameter).minimum || value > stripEntry(parameter).maximum)
        return std::nullopt;
    if (parameter == StripParameter::Level)
        return formatLevel(value);
    if (parameter == StripParameter::Balance)
        return formatBalance(value);
    return std::string(namesOf(parameter)[static_cast<std::size_t>(value)]);
}

std::optional<int> parseStrip(StripParameter parameter, std::string_view text)
{
    const std::string wanted = lowered(text);
    if (parameter == StripParameter::Level)
        return parseLevel(wanted);
    if (parameter == StripParameter::Balance)
        return parseBalance(wanted);
    const auto names = namesOf(parameter);
    const auto found = std::find_if(names.begin(), names.end(),
                                    [&](std::string_view name) { return lowered(name) == wanted; });
    if (found == names.end())
        return std::nullopt;
    return static_cast<int>(found - names.begin());
}

std::optional<MasterParameter> findMasterParameter(unsigned short id)
{
    const int index = id - masterId(MasterParameter{});
    if (index < 0 || index >= static_cast<int>(masterParameterCount))
        return std::nullopt;
    return static_cast<MasterParameter>(index);
}

std::optional<std::string> formatMaster(MasterParameter parameter, int value)
{
    return formatStrip(kindOf(parameter), value);
}

std::optional<int> parseMaster(MasterParameter parameter, std::string_view text)
{
    return parseStrip(kindOf(parameter), text);
}

int stripLevelTenths(int position)
{
    Stretch stretch = stretches[0];
    for (const Stretch& candidate : stretches) {
        if (position <= candidate.top)
            stretch = candidate;
    }
    return stretch.tenthsAtTop - (stretch.top - position) * stretch.step;
}

double stripGain(int position)
{
    return position <= 0 ? 0.0 : std::pow(10.0, stripLevelTenths(position) / 200.0);
}

BalanceGains balanceGains(int balance)
{
    const double share = static_cast<double>(balance) / fullBalance;
    return {std::min(1.0, 1.0 - share), std::min(1.0, 1.0 + share)};
}
