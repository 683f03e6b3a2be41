// SPDX-License-Identifier: GPL-3.0-or-later
#include "gallery/GalleryCommandLine.h"
#include "gallery/GallerySheet.h"
#include "host/window/HostTheme.h"
#include "hosting/OutputFile.h"
#include "hosting/StartUp.h"

#include <QApplication>
#include <QBuffer>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>

#include <cstdio>

namespace {

enum ExitCode { ExitDone = 0, ExitError = 1, ExitUsage = 2 };

int refuse(ExitCode code, const QString& sentence)
{
    std::fprintf(stderr, "zolta-gallery: %s\n", sentence.toLocal8Bit().constData());
    return code;
}

QStringList textsOf(int argc, char* argv[])
{
    QStringList texts;
    for (int i = 0; i < argc; ++i)
        texts << QString::fromLocal8Bit(argv[i]);
    return texts;
}

int writeSheet(const GalleryCommandLine& commandLine)
{
    HostMemory memory;
    GallerySheet sheet(memory);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    sheet.picture(commandLine.scale).save(&buffer, "PNG");
    const Status written = writeFile(commandLine.sheet, buffer.data());
    return written.isOk() ? ExitDone : refuse(ExitError, written.error());
}

int showSheet()
{
    HostMemory memory;
    QScrollArea window;
    window.setWindowTitle(QStringLiteral("Zolta gallery"));
    window.setFrameShape(QFrame::NoFrame);
    window.setWidgetResizable(true);
    window.setWidget(new GallerySheet(memory));
    window.resize(window.widget()->width() + window.verticalScrollBar()->sizeHint().width(), 900);
    const QShortcut quit(QKeySequence::Quit, &window, &QApplication::quit);
    window.show();
    return QApplication::exec();
}

} // namespace

int main(int argc, char* argv[])
{
    const GalleryCommandLine commandLine = GalleryCommandLine::parse(textsOf(argc, argv));
    if (!commandLine.error.isEmpty())
        return refuse(ExitUsage, commandLine.error);
    if (commandLine.help) {
        std::fputs(GalleryCommandLine::helpText().toUtf8().constData(), stdout);
        return ExitDone;
    }
    if (commandLine.headless())
        chooseNoDisplay();
    if (!canShowWindows())
        return refuse(ExitUsage,
                      QStringLiteral("There is no display to open a window on (DISPLAY and "
                                     "WAYLAND_DISPLAY are not set). Without one, use --sheet "
                                     "FILE.png or --help."));
    if (!commandLine.headless() && !qEnvironmentVariableIsSet("QT_SCALE_FACTOR"))
        qputenv("QT_SCALE_FACTOR", QByteArray::number(commandLine.scale));

    chooseFonts(programFolder());
    int applicationArgc = 1;
    QApplication application(applicationArgc, argv);
    applyHostTheme();
    return commandLine.headless() ? writeSheet(commandLine) : showSheet();
}
