// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/program/PluginTrial.h"

#include "host/program/CommandLine.h"
#include "hosting/EditorLibrary.h"

#include <QApplication>
#include <QFileInfo>

namespace {

constexpr std::chrono::seconds pluginPatience(20); // disks may have to start

} // namespace

LibraryTrial tryPlugin(const CommandLine& commandLine, const QString& folder, int argc,
                       char* argv[])
{
    const QString& file = commandLine.plugin;
    LibraryTrial trial(QFileInfo(file).absoluteFilePath(), pluginPatience);
    if (file.isEmpty() || QFileInfo(file) == QFileInfo(EditorLibrary::fileBeside(folder)))
        return trial;
    trial.run([&] {
        qputenv("QT_QPA_PLATFORM", "offscreen"); // plug-ins may ask for more than an application
        const QApplication application(argc, argv);
        LanguageSwitch language;
        language.choose(commandLine.language);
        return EditorLibrary().load(file);
    });
    return trial;
}
