// SPDX-License-Identifier: GPL-3.0-or-later
#include "parameters/ParameterText.h"

#include "parameters/ParameterScale.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <limits>
#include <span>
#include <system_error>

namespace {

constexpr int maxDigits = 9;
constexpr std::size_t maxNumberLength = 64; // so that only an exponent can leave a double's range

constexpr std::string_view lowTypes[] = {"HPF 12", "HPF 6", "Shelf 6", "Shelf 12"};
constexpr std::string_view highTypes[] = {"LPF 12", "LPF 6", "Shelf 6", "Shelf 12"};
constexpr std::string_view switchTexts[] = {"Off", "On"};
constexpr std::string_view driveTexts[] = {"Clean", "Drive"};
constexpr std::string_view digitTexts[] = {"0", "1"};

std::span<const std::string_view> choicesOf(ParameterKind kind)
{
    switch (kind) {
    case ParameterKind::LowType:
        return lowTypes;
    case ParameterKind::HighType:
        return highTypes;
    case ParameterKind::Switch:
        return switchTexts;
    case ParameterKind::Drive:
        return driveTexts;
    default:
        return {};
    }
}

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool isBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

std::string folded(std::string_view text)
{
    std::string result;
    for (const char c : text) {
        if (!isBlank(c))
            result += lower(c);
    }
    return result;
}

std::string printed(double value, std::chars_format format, int precision)
{
    char buffer[64];
    const auto end = std::to_chars(std::begin(buffer), std::end(buffer), value, format, precision);
    return {buffer, end.ptr};
}

// A number and what stands behind it.
struct Quantity
{
    double number;
    std::string unit;
};

// The magnitude that a number too large or too small for a double stands for.
double beyondDouble(std::string_view digits)
{
    const bool tiny = digits.find("e-") != std::string_view::npos;
    return tiny ? 0.0 : std::numeric_limits<double>::max();
}

bool startsNumber(std::string_view digits)
{
    if (digits.empty() || digits.size() > maxNumberLength)
        return false;
    return digits.front() == '.' || (digits.front() >= '0' && digits.front() <= '9');
}

std::optional<Quantity> quantityOf(std::string_view text)
{
    std::string plain(trimmed(text));
    std::transform(plain.begin(), plain.end(), plain.begin(), lower);
    if (plain.find('.') == std::string::npos && std::count(plain.begin(), plain.end(), ',') == 1)
        plain[plain.find(',')] = '.';

    std::string_view digits(plain);
    const bool negative = digits.starts_with('-');
    if (negative || digits.starts_with('+'))
        digits.remove_prefix(1);
    if (!startsNumber(digits))
        return std::nullopt;

    double number = 0.0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error == std::errc::invalid_argument)
        return std::nullopt;
    if (error == std::errc::result_out_of_range)
        number = beyondDouble(digits);
    return Quantity{negative ? -number : number, folded({end, digits.data() + digits.size()})};
}

std::optional<int> parseFrequency(std::string_view text)
{
    const std::optional<Quantity> quantity = quantityOf(text);
    if (!quantity)
        return std::nullopt;
    if (quantity->unit.empty() || quantity->unit == "hz")
        return stepOf(ParameterKind::Frequency, quantity->number);
    if (quantity->unit == "k" || quantity->unit == "khz")
        return stepOf(ParameterKind::Frequency, quantity->number * 1000.0);
    return std::nullopt;
}

std::optional<int> parseQuality(std::string_view text)
{
    const std::optional<Quantity> quantity = quantityOf(text);
    if (!quantity || !quantity->unit.empty())
        return std::nullopt;
    return stepOf(ParameterKind::Quality, quantity->number);
}

std::optional<int> parseDecibels(std::string_view text)
{
    const std::optional<Quantity> quantity = quantityOf(text);
    if (!quantity || !(quantity->unit.empty() || quantity->unit == "db"))
        return std::nullopt;
    return stepOf(ParameterKind::Decibels, quantity->number);
}

std::optional<int> indexIn(std::span<const std::string_view> choices, std::string_view text)
{
    const std::string wanted = folded(text);
    for (std::size_t i = 0; i < choices.size(); ++i) {
        if (folded(choices[i]) == wanted)
            return static_cast<int>(i);
    }
    return std::nullopt;
}

std::optional<int> parseChoice(ParameterKind kind, std::string_view text)
{
    if (const std::optional<int> index = indexIn(choicesOf(kind), text))
        return index;
    if (kind != ParameterKind::Switch && kind != ParameterKind::Drive)
        return std::nullopt;
    const std::optional<int> index = indexIn(switchTexts, text);
    return index ? index : indexIn(digitTexts, text);
}

double valueOf(const std::string& digits)
{
    double value = 0.0;
    std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return value;
}

std::string frequencyText(double hertz)
{
    const bool kilo = hertz >= 1000.0;
    char buffer[64];
    const auto end = std::to_chars(std::begin(buffer), std::end(buffer),
                                   kilo ? hertz / 1000.0 : hertz, std::chars_format::fixed);
    std::string text(buffer, end.ptr);
    if (kilo)
        text += 'k';
    return text;
}

std::string formatFrequency(int value)
{
    const double hertz = numberOf(ParameterKind::Frequency, value);
    std::string text;
    for (int digits = 1; digits <= maxDigits; ++digits) {
        text = frequencyText(valueOf(printed(hertz, std::chars_format::scientific, digits - 1)));
        if (parseFrequency(text) == value)
            break;
    }
    return text;
}

std::string formatQuality(int value)
{
    const double quality = numberOf(ParameterKind::Quality, value);
    const int shown = quality < 9.995 ? 2 : 1;
    std::string text;
    for (int decimals = shown - 1; decimals <= maxDigits; ++decimals) {
        text = printed(quality, std::chars_format::fixed, decimals);
        if (parseQuality(text) == value)
            return decimals < shown ? printed(valueOf(text), std::chars_format::fixed, shown)
                                    : text;
    }
    return text;
}

std::string joined(std::span<const std::string_view> choices)
{
    std::string result(choices.front());
    for (std::size_t i = 1; i < choices.size(); ++i) {
        result += i + 1 < choices.size() ? ", " : " or ";
        result += choices[i];
    }
    return result;
}

} // namespace

std::optional<std::string> formatParameter(const Parameter& parameter, int value)
{
    if (!parameter.allows(value))
        return std::nullopt;
    switch (parameter.kind) {
    case ParameterKind::Frequency:
        return formatFrequency(value);
    case ParameterKind::Quality:
        return formatQuality(value);
    case ParameterKind::Decibels:
        return formatTenths(value);
    default:
        return std::string(choicesOf(parameter.kind)[static_cast<std::size_t>(value)]);
    }
}

std::optional<int> parseParameter(const Parameter& parameter, std::string_view text)
{
    switch (parameter.kind) {
    case ParameterKind::Frequency:
        return parseFrequency(text);
    case ParameterKind::Quality:
        return parseQuality(text);
    case ParameterKind::Decibels:
        return parseDecibels(text);
    default:
        return parseChoice(parameter.kind, text);
    }
}

std::string formatTenths(int tenths)
{
    const int size = std::abs(tenths);
    std::string text(tenths > 0 ? "+" : tenths < 0 ? "-" : "");
    text += std::to_string(size / 10);
    text += '.';
    text += std::to_string(size % 10);
    return text;
}

std::string describeValues(const Parameter& parameter)
{
    const std::span<const std::string_view> choices = choicesOf(parameter.kind);
    if (!choices.empty())
        return joined(choices);
    const std::string range = *formatParameter(parameter, parameter.minimum) + " to " +
                              *formatParameter(parameter, parameter.maximum);
    return *parameter.unit ? range + ' ' + parameter.unit : range;
}
