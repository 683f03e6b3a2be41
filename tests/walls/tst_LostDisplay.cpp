// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the display away from under the running program.
#include "tests/support/ProgramRunner.h"
#include "tests/support/TestObject.h"

#include <QTemporaryDir>

class tst_LostDisplay : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void sessionIsSaved();

private:
    static QString start(QProcess* server);
    static bool isShown(const QString& display, const QString& window);
};

namespace {

constexpr int patience = 60000; // ms

}

// A new display; its name.
QString tst_LostDisplay::start(QProcess* server)
{
    server->start(QStringLiteral("Xvfb"),
                  {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-nolisten"),
                   QStringLiteral("tcp"), QStringLiteral("-noreset")});
    QByteArray number;
    while (!number.endsWith('\n') && server->waitForReadyRead(patience))
        number += server->readAllStandardOutput();
    return QLatin1Char(':') + QString::fromLatin1(number.trimmed());
}

bool tst_LostDisplay::isShown(const QString& display, const QString& window)
{
    QProcess search;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DISPLAY"), display);
    search.setProcessEnvironment(environment);
    search.start(QStringLiteral("xdotool"),
                 {QStringLiteral("search"), QStringLiteral("--sync"),
                  QStringLiteral("--onlyvisible"), QStringLiteral("--name"), window});
    return search.waitForFinished(patience) && search.exitCode() == 0;
}

void tst_LostDisplay::sessionIsSaved()
{
    QProcess server;
    const QString display = start(&server);
    QVERIFY2(display.size() > 1, qPrintable(server.errorString()));
    const QTemporaryDir folder;
    const ProgramRunner program(QStringLiteral(HOST_PROGRAM), folder.path());
    QProcessEnvironment environment = program.environment();
    environment.insert(QStringLiteral("DISPLAY"), display);
    const QStringList session = {QStringLiteral("--session"), QStringLiteral("session.json")};
    QProcess host;
    program.prepare(&host);
    host.setProcessEnvironment(environment);
    host.setArguments(session +
                      QStringList{QStringLiteral("--set"), QStringLiteral("fx_rackfx_prm_3=+6")});
    host.start();
    QVERIFY2(isShown(display, QStringLiteral("Equalizer")),
             host.readAllStandardError().constData());

    server.kill();
    QVERIFY(server.waitForFinished(patience));
    QVERIFY(host.waitForFinished(patience));
    const QByteArray said = host.readAllStandardError();
    QVERIFY2(host.exitStatus() == QProcess::NormalExit && host.exitCode() == 1, said.constData());
    const ProgramResult listed = program.run(session + QStringList(QStringLiteral("--list")));
    QVERIFY2(listed.output.contains(QLatin1String("\t60\t+6.0\n")),
             qPrintable(listed.output + listed.errors + QString::fromUtf8(said)));
}

QTEST_GUILESS_MAIN(tst_LostDisplay)

#include "tst_LostDisplay.moc"
