// SPDX-License-Identifier: GPL-3.0-or-later
#include "daw/editor/EditorRelay.h"
#include "daw/editor/EditorStage.h"
#include "daw/editor/KeyboardFocus.h"
#include "daw/window/EditorProcess.h"
#include "hosting/EditorLibrary.h"
#include "hosting/StartUp.h"

#include <QApplication>
#include <QDir>
#include <QWindow>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string_view>
#include <sys/socket.h>

namespace {

struct Arguments
{
    WId parent;
    bool stereo;
};

std::optional<Arguments> parse(int argc, char* argv[])
{
    if (argc != 3)
        return {};
    const std::string_view channels = argv[2];
    bool ok = false;
    const WId parent = QByteArray(argv[1]).toULongLong(&ok);
    if (!ok || (channels != "mono" && channels != "stereo"))
        return {};
    return Arguments{parent, channels == "stereo"};
}

bool isSocket(int descriptor)
{
    int type = 0;
    socklen_t size = sizeof type;
    return ::getsockopt(descriptor, SOL_SOCKET, SO_TYPE, &type, &size) == 0;
}

int usageError()
{
    std::fputs("zolta-editor: the equalizer's plug-ins start this program inside a workstation; "
               "to see the equalizer by itself, start zolta-host\n",
               stderr);
    return 2;
}

int error(const QString& sentence)
{
    std::fprintf(stderr, "zolta-editor: %s\n", sentence.toLocal8Bit().constData());
    return 1;
}

void embed(QWidget& stage, WId parent)
{
    stage.winId();
    stage.windowHandle()->setParent(QWindow::fromWinId(parent));
    stage.move(0, 0);
    stage.show();
}

void connectAll(EditorRelay& relay, EditorStage& stage)
{
    QObject::connect(&relay, &EditorRelay::sizeChosen, &stage,
                     [&stage](QSize pixels) { stage.resize(pixels / stage.devicePixelRatioF()); });
    QObject::connect(&relay, &EditorRelay::sampleRateChanged, &stage, &EditorStage::setSampleRate);
    // After the window around it is gone, quit() would wait for windows that never close.
    QObject::connect(&relay, &EditorRelay::ended, &stage, [] { QCoreApplication::exit(0); });
}

int run(const Arguments& arguments, const QString& programs)
{
    EditorLibrary library;
    if (const Status loaded = library.load(EditorLibrary::fileBeside(programs)); !loaded.isOk())
        return error(loaded.error());
    HostMemory memory;
    EditorStage stage(library, memory, arguments.stereo);
    EditorRelay relay(memory, EditorProcess::conversationDescriptor);
    connectAll(relay, stage);
    embed(stage, arguments.parent);
    const KeyboardFocus focus(stage.windowHandle());
    relay.reportReady();
    return QCoreApplication::exec();
}

} // namespace

int main(int argc, char* argv[])
{
    const auto arguments = parse(argc, argv);
    if (!arguments || !isSocket(EditorProcess::conversationDescriptor))
        return usageError();
    std::signal(SIGPIPE, SIG_IGN);
    const QString programs = QDir::cleanPath(programFolder() + QLatin1String("/../../bin"));
    chooseFonts(programs);
    int applicationArgc = 1;
    const QApplication application(applicationArgc, argv);
    return run(*arguments, programs);
}
