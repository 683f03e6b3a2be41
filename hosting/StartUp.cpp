// SPDX-License-Identifier: GPL-3.0-or-later
#include "hosting/StartUp.h"

#include <QDir>
#include <QFile>
#include <QtGlobal>

#include <filesystem>

namespace {

constexpr char platformVariable[] = "QT_QPA_PLATFORM";

} // namespace

QString programFolder()
{
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    return QFile::decodeName(program.parent_path().c_str());
}

void chooseFonts(const QString& folder)
{
    if (qEnvironmentVariableIsSet("FONTCONFIG_FILE") ||
        qEnvironmentVariableIsSet("FONTCONFIG_PATH"))
        return;
    const QString fonts = QDir::cleanPath(folder + QLatin1String("/../share/zolta/fonts"));
    if (QFile::exists(fonts + QLatin1String("/fonts.conf")))
        qputenv("FONTCONFIG_PATH", QFile::encodeName(fonts));
}

bool canShowWindows()
{
    return !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
           !qEnvironmentVariableIsEmpty(platformVariable);
}

void chooseNoDisplay()
{
    if (qEnvironmentVariableIsEmpty(platformVariable))
        qputenv(platformVariable, "offscreen");
}
