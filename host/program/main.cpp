// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/audio/SystemAudioDevice.h"
#include "host/program/Application.h"
#include "host/program/CommandLineParser.h"
#include "host/program/PluginTrial.h"
#include "host/program/RenderCommand.h"
#include "host/window/Language.h"
#include "hosting/StartUp.h"

#include <QApplication>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <optional>

namespace {

// The application object that translators need.
class TranslatedApplication
{
public:
    TranslatedApplication(Language language, int* argc, char* argv[])
        : m_application(*argc, argv)
    {
        m_language.choose(language);
    }

private:
    QCoreApplication m_application;
    LanguageSwitch m_language;
};

int usageError(const QString& sentence)
{
    printError(sentence);
    return ExitUsage;
}

int argumentError(const QStringList& arguments, int* argc, char* argv[])
{
    const TranslatedApplication application(CommandLineParser::languageIn(arguments), argc, argv);
    return usageError(CommandLineParser::parse(arguments).error());
}

int displayError(const CommandLine& commandLine, int* argc, char* argv[])
{
    const TranslatedApplication application(commandLine.language, argc, argv);
    return usageError(CommandLine::tr(
        "There is no display to open a window on (DISPLAY and WAYLAND_DISPLAY are not set). "
        "Without one, use --list, --save-state FILE, --screenshot FILE.png, --render IN OUT or "
        "--help."));
}

// Without an application object nothing can be translated, and with a display that does not answer
// none comes about: Qt ends the program instead.
class DisplayTrial
{
public:
    DisplayTrial(const CommandLine& commandLine, int* argc, char* argv[])
    {
        const TranslatedApplication application(commandLine.language, argc, argv);
        message = CommandLine::tr("No window can be opened: the display (DISPLAY or "
                                  "WAYLAND_DISPLAY) does not answer. Log in to a desktop, or set "
                                  "them to its display. Without one, use --list, --save-state "
                                  "FILE, --screenshot FILE.png, --render IN OUT or --help.");
        previous = qInstallMessageHandler(&DisplayTrial::handle);
    }
    ~DisplayTrial() { qInstallMessageHandler(previous); }
    DisplayTrial(const DisplayTrial&) = delete;
    DisplayTrial& operator=(const DisplayTrial&) = delete;

private:
    static void handle(QtMsgType type, const QMessageLogContext& context, const QString& text)
    {
        if (type == QtFatalMsg) {
            printError(message);
            std::_Exit(ExitUsage);
        }
        const bool isReason = text.contains(QLatin1String("could not connect to display")) ||
                              text.contains(QLatin1String("platform plugin"));
        if (!isReason && previous)
            previous(type, context, text);
    }

    static inline QString message;
    static inline QtMessageHandler previous = nullptr;
};

int pluginError(const CommandLine& commandLine, const LibraryTrial& trial, int* argc, char* argv[])
{
    const TranslatedApplication application(commandLine.language, argc, argv);
    return exitCodeOf(trial.status());
}

int printed(const QByteArray& text)
{
    if (std::fputs(text.constData(), stdout) >= 0 && std::fflush(stdout) == 0)
        return ExitDone;
    printError(CommandLine::tr("The text cannot be printed: %1.").arg(qt_error_string(errno)));
    return ExitError;
}

int devicesCommand()
{
    const std::vector<AudioDeviceInfo> devices = SystemAudioDevice().list();
    if (devices.empty())
        printError(CommandLine::tr("There is no sound device. Connect one, or start a sound "
                                   "server (PipeWire, PulseAudio or JACK)."));
    return printed(AudioDevices::table(devices));
}

// What needs neither a display nor the editor.
int runCommand(const CommandLine& commandLine, int* argc, char* argv[])
{
    const TranslatedApplication application(commandLine.language, argc, argv);
    if (commandLine.help)
        return printed(CommandLineParser::helpText().toUtf8());
    if (commandLine.version)
        return printed("zolta-host " ZOLTA_VERSION "\n");
    return commandLine.devices ? devicesCommand() : renderCommand(commandLine);
}

int runEditor(const CommandLine& commandLine, int* argc, char* argv[])
{
    if (commandLine.headless())
        chooseNoDisplay();
    if (!canShowWindows())
        return displayError(commandLine, argc, argv);
    const QString folder = programFolder();
    chooseFonts(folder);
    const LibraryTrial trial = tryPlugin(commandLine, folder, *argc, argv);
    if (!trial.status().isOk())
        return pluginError(commandLine, trial, argc, argv);
    std::optional<DisplayTrial> trialOfDisplay(std::in_place, commandLine, argc, argv);
    const QApplication application(*argc, argv);
    trialOfDisplay.reset();
    return Application(commandLine, folder).run();
}

} // namespace

int main(int argc, char* argv[])
{
    const Result<QStringList> arguments = CommandLineParser::decode(argc, argv);
    if (!arguments.isOk())
        return usageError(arguments.error());
    int applicationArgc = 1;
    const Result<CommandLine> parsed = CommandLineParser::parse(arguments.value());
    if (!parsed.isOk())
        return argumentError(arguments.value(), &applicationArgc, argv);
    const CommandLine& commandLine = parsed.value();
    const bool alone =
        commandLine.help || commandLine.version || commandLine.devices || commandLine.renders();
    return alone ? runCommand(commandLine, &applicationArgc, argv)
                 : runEditor(commandLine, &applicationArgc, argv);
}
