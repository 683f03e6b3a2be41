// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/monkey/MonkeyRun.h"

#include "tests/monkey/EventLog.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QThread>
#include <QTimerEvent>

#include <cstdio>
#include <random>

namespace {

// Much of what monkeys do is worth a warning.
void showErrors(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        std::fprintf(stderr, "%s\n", qPrintable(message));
}

} // namespace

void MonkeyRun::prepare()
{
    qputenv("QT_NO_GLIB", "1"); // whose loop takes timers in an order of its own
    qputenv("QT_HASH_SEED", "0");
    qInstallMessageHandler(showErrors);
}

MonkeyRun::Options MonkeyRun::options(const QString& plugin)
{
    QCommandLineParser parser;
    const QCommandLineOption seed(QStringLiteral("seed"), QStringLiteral("repeats a run"),
                                  QStringLiteral("S"), QString::number(std::random_device()()));
    const QCommandLineOption events(QStringLiteral("events"), QStringLiteral("how many"),
                                    QStringLiteral("N"), QStringLiteral("20000"));
    const QCommandLineOption library(QStringLiteral("library"), QStringLiteral("another one"),
                                     QStringLiteral("FILE"), plugin);
    const QCommandLineOption trace(QStringLiteral("trace"), QStringLiteral("print every event"));
    parser.addOptions({seed, events, library, trace});
    parser.addHelpOption();
    parser.process(*QCoreApplication::instance());
    const Options options{parser.value(seed).toUInt(), parser.value(events).toLong(),
                          parser.value(library)};
    std::printf("%ld events, seed %u\n", options.events, options.seed);
    std::fflush(stdout);
    EventLog::watch(options.seed);
    if (parser.isSet(trace))
        EventLog::trace();
    return options;
}

int MonkeyRun::depth() { return QThread::currentThread()->loopLevel(); }

int MonkeyRun::run(const std::function<QString()>& act)
{
    QGuiApplication::setQuitOnLastWindowClosed(false);
    m_act = act;
    startTimer(0);
    QCoreApplication::exec();
    if (m_error.isEmpty())
        return 0;
    EventLog::print();
    std::printf("%s\n", qPrintable(m_error));
    return 1;
}

// A timer is not called again while it is being handled, another one is.
void MonkeyRun::timerEvent(QTimerEvent* event)
{
    killTimer(event->timerId());
    if (m_left-- <= 0 || !m_error.isEmpty())
        return QCoreApplication::exit();
    startTimer(0);
    const QString error = m_act();
    if (m_error.isEmpty())
        m_error = error;
}
