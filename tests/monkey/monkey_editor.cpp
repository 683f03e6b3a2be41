// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/monkey/EditorMonkey.h"

#include <QApplication>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <random>

namespace {

// Points outside a window and the like are meant.
void ignoreWarnings(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        std::fprintf(stderr, "%s\n", qPrintable(message));
}

} // namespace

// monkey_editor LIBRARY EVENTS [SEED]: does that many random things to the library's editor. The
// seed that it prints repeats a run.
int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    qInstallMessageHandler(ignoreWarnings);
    if (argc < 3) {
        std::fputs("Usage: monkey_editor LIBRARY EVENTS [SEED]\n", stderr);
        return 2;
    }
    const long events = std::atol(argv[2]);
    const auto seed =
        argc > 3 ? static_cast<std::uint32_t>(std::atol(argv[3])) : std::random_device()();
    std::printf("%ld events, seed %u\n", events, seed);
    std::fflush(stdout);

    EditorMonkey monkey(QString::fromLocal8Bit(argv[1]), seed);
    // A timer, so that a menu's own event loop goes on, too.
    QTimer timer;
    long count = 0;
    QString error;
    timer.callOnTimeout([&] {
        error = monkey.act();
        if (++count >= events || !error.isEmpty())
            QCoreApplication::quit();
    });
    timer.start(0);
    QCoreApplication::exec();
    if (!error.isEmpty())
        std::printf("After %ld events: %s\n", count, qPrintable(error));
    return error.isEmpty() ? 0 : 1;
}
