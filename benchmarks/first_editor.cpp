// SPDX-License-Identifier: GPL-3.0-or-later
// Loads the plug-in into a process that has not seen it, opens one editor at the scale given, and
// prints how many nanoseconds three steps took: loading the library, making the editor and
// attaching it to the host, and showing it until its first picture is painted.
//
// The clock starts in a host as it is when a user asks for an editor: a window with text is up.
#include "host/window/EditorSession.h"
#include "host/window/HostTheme.h"
#include "host/window/Mixer.h"
#include "hosting/StartUp.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>

#include <cstdio>
#include <cstdlib>

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    applyHostTheme();
    QLabel window(QStringLiteral("Mixer"));
    window.show();
    QApplication::processEvents();
    EditorSettings settings;
    settings.scale = argc > 1 ? std::atof(argv[1]) : 1.0;
    Mixer mixer;

    QElapsedTimer timer;
    timer.start();
    const Status library = mixer.library.load(EditorLibrary::fileBeside(programFolder()));
    const qint64 loaded = timer.nsecsElapsed();
    QWidget stage;
    const auto session = EditorSession::open(mixer, settings, &stage);
    if (!library.isOk() || !session)
        return EXIT_FAILURE;
    const qint64 made = timer.nsecsElapsed();
    stage.show();
    QApplication::processEvents();
    const qint64 painted = timer.nsecsElapsed();
    std::printf("%lld %lld %lld\n", loaded, made - loaded, painted - made);
    return EXIT_SUCCESS;
}
