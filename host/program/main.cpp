// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/audio/AudioDevices.h"
#include "host/program/Application.h"
#include "host/program/CommandLine.h"
#include "host/program/RenderCommand.h"
#include "host/program/StartUp.h"

#include <QApplication>

#include <cstdio>

namespace {

QStringList textsOf(int argc, char* argv[])
{
    QStringList texts;
    for (int i = 0; i < argc; ++i)
        texts << QString::fromLocal8Bit(argv[i]);
    return texts;
}

int refuse(const QString& sentence)
{
    printError(sentence);
    return ExitUsage;
}

int devicesCommand()
{
    const std::vector<AudioDeviceInfo> devices = AudioDevices::list();
    if (devices.empty())
        printError(QStringLiteral("There is no sound device."));
    std::fputs(AudioDevices::table(devices).constData(), stdout);
    return ExitDone;
}

} // namespace

int main(int argc, char* argv[])
{
    const CommandLine commandLine = CommandLine::parse(textsOf(argc, argv));
    if (commandLine.help) {
        std::fputs(CommandLine::helpText().toUtf8().constData(), stdout);
        return ExitDone;
    }
    if (!commandLine.error.isEmpty())
        return refuse(commandLine.error);
    if (commandLine.devices)
        return devicesCommand();
    if (commandLine.renders())
        return renderCommand(commandLine);
    if (commandLine.headless())
        chooseNoDisplay();
    if (!canShowWindows())
        return refuse(QStringLiteral(
            "There is no display to open a window on (DISPLAY and WAYLAND_DISPLAY are not set). "
            "Without one, use --list, --save-state FILE, --screenshot FILE.png, --render IN OUT or "
            "--help."));

    const QString folder = programFolder();
    chooseFonts(folder);
    int applicationArgc = 1;
    QApplication application(applicationArgc, argv);
    return Application(commandLine, folder).run();
}
