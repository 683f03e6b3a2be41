// SPDX-License-Identifier: GPL-3.0-or-later
#include "hosting/StartUp.h"

#include "host/program/CommandLine.h"
#include "hosting/EditorLibrary.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtGlobal>

#include <filesystem>

namespace {

constexpr char platformVariable[] = "QT_QPA_PLATFORM";
constexpr std::chrono::seconds pluginPatience(20); // disks may have to start

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

LibraryTrial tryPlugin(const CommandLine& commandLine, const QString& folder, int argc,
                       char* argv[])
{
    const QString& file = commandLine.plugin;
    LibraryTrial trial(QFileInfo(file).absoluteFilePath(), pluginPatience);
    if (file.isEmpty() || QFileInfo(file) == QFileInfo(EditorLibrary::fileBeside(folder)))
        return trial;
    trial.run([&] {
        qputenv(platformVariable, "offscreen"); // plug-ins may ask for more than an application
        const QApplication application(argc, argv);
        LanguageSwitch language;
        language.choose(commandLine.language);
        return EditorLibrary().load(file);
    });
    return trial;
}
