// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/analysis/AnalyzerSettings.h"

#include <algorithm>
#include <cstddef>

namespace {

struct Number
{
    const char* key;
    int AnalyzerSettings::*member;
    int minimum;
    int maximum;
};
constexpr std::array numbers = {
    Number{"order", &AnalyzerSettings::order, AnalyzerSettings::smallestOrder,
           AnalyzerSettings::largestOrder},
    Number{"window", &AnalyzerSettings::window, 0, AnalyzerSettings::FlatTop},
    Number{"smoothing", &AnalyzerSettings::smoothing, 0,
           int{AnalyzerSettings::smoothings.size()} - 1},
    Number{"tilt", &AnalyzerSettings::tilt, 0, int{AnalyzerSettings::tilts.size()} - 1},
    Number{"speed", &AnalyzerSettings::speed, 0, AnalyzerSettings::Infinite}};

struct Switch
{
    const char* key;
    bool AnalyzerSettings::*member;
};
constexpr std::array switches = {Switch{"peaks", &AnalyzerSettings::peaks},
                                 Switch{"curve", &AnalyzerSettings::curve}};

} // namespace

QJsonObject AnalyzerSettings::toJson() const
{
    QJsonObject object;
    for (const Number& number : numbers)
        object[QLatin1String(number.key)] = this->*number.member;
    for (const Switch& each : switches)
        object[QLatin1String(each.key)] = this->*each.member;
    return object;
}

AnalyzerSettings AnalyzerSettings::fromJson(const QJsonObject& object)
{
    AnalyzerSettings settings;
    for (const Number& number : numbers) {
        const int value = object[QLatin1String(number.key)].toInt(-1);
        if (value >= number.minimum && value <= number.maximum)
            settings.*number.member = value;
    }
    for (const Switch& each : switches)
        settings.*each.member = object[QLatin1String(each.key)].toBool(settings.*each.member);
    return settings;
}
