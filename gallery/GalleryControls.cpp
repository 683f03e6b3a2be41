// SPDX-License-Identifier: GPL-3.0-or-later
#include "gallery/GalleryControls.h"

#include "controls/AbstractController.h"

#include <cmath>

namespace Gallery {

namespace {

constexpr QRgb letters = 0xFFFFFFFF;
constexpr QRgb restingLetters = 0xFFD7DCE1;
constexpr QRgb dimLetters = 0xFF6B737B;
constexpr QRgb accent = 0xFF0394D0;

unsigned short idOf(const char* name) { return parameterId(findParameterByName(name)); }

int valueAt(double position, int minimum, int maximum)
{
    return minimum + static_cast<int>(std::lround(position * (maximum - minimum)));
}

} // namespace

QString artwork(const char* file) { return QLatin1String(":/image/zolta/") + QLatin1String(file); }

QString image(const char* file) { return QLatin1String(":/gallery/images/") + QLatin1String(file); }

QFont font(double pixels)
{
    QFont result(QStringLiteral("M+ 1c"));
    result.setStyleName(QStringLiteral("Medium"));
    result.setPixelSize(static_cast<int>(std::lround(pixels)));
    return result;
}

QPalette textPalette()
{
    QPalette palette;
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Active, role, letters);
        palette.setColor(QPalette::Inactive, role, restingLetters);
        palette.setColor(QPalette::Disabled, role, dimLetters);
    }
    palette.setColor(QPalette::Highlight, accent);
    palette.setColor(QPalette::HighlightedText, letters);
    return palette;
}

QPalette meterPalette()
{
    QPalette palette;
    palette.setColor(QPalette::WindowText, 0xFF333333);
    palette.setColor(QPalette::Light, 0xFFFC6769);
    palette.setColor(QPalette::Mid, 0xFFF9E243);
    palette.setColor(QPalette::Dark, 0xFF39CA74);
    palette.setColor(QPalette::Disabled, QPalette::WindowText, 0xFF2A2E34);
    palette.setColor(QPalette::Disabled, QPalette::Light, 0xFF8A5A5B);
    palette.setColor(QPalette::Disabled, QPalette::Mid, 0xFF8A8248);
    palette.setColor(QPalette::Disabled, QPalette::Dark, 0xFF41674F);
    return palette;
}

void bind(AbstractController& control, HostMemory& memory, const char* name, int channel)
{
    control.setMemAPIValue(&memory, idOf(name), static_cast<unsigned short>(channel), 0);
}

void bindAt(AbstractController& control, HostMemory& memory, const char* name, int channel,
            double position)
{
    const Parameter& parameter = parameterTable[findParameterByName(name)];
    memory.setValue(idOf(name), static_cast<unsigned short>(channel),
                    valueAt(position, parameter.minimum, parameter.maximum), 0, 0, 1);
    bind(control, memory, name, channel);
}

void setPosition(AbstractController& control, double position)
{
    control.setValue(valueAt(position, control.minimumValue(), control.maximumValue()));
}

QString percent(double position)
{
    return QStringLiteral("%1 %").arg(std::lround(position * 100.0));
}

QString times(double scale) { return QStringLiteral("× %1").arg(scale); }

QString decibels(int tenths)
{
    return tenths > 0 ? QStringLiteral("over") : QStringLiteral("%1 dB").arg(tenths / 10);
}

} // namespace Gallery
