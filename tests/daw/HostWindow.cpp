// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/daw/HostWindow.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QScreen>
#include <QTest>

#include <unistd.h>

void HostWindow::open(int width, int height)
{
    setWindowFlags(Qt::X11BypassWindowManagerHint);
    setGeometry(0, 0, width, height);
    show();
}

QImage HostWindow::picture() const
{
    return screen()->grabWindow(0, 0, 0, width(), height()).toImage();
}

bool HostWindow::isCovered() const
{
    const QColor top = picture().pixelColor(width() / 2, 4);
    return top != ground && top != palette().window().color();
}

void settle(const HostWindow& window)
{
    QImage last;
    for (int alike = 0; alike < 3;) {
        QTest::qWait(50);
        const QImage now = window.picture();
        alike = now == last ? alike + 1 : 0;
        last = now;
    }
}

void xdotool(const QByteArrayList& arguments)
{
    QStringList texts;
    for (const QByteArray& argument : arguments)
        texts << QString::fromLatin1(argument);
    QCOMPARE(QProcess::execute(QStringLiteral("xdotool"), texts), 0);
}

QStringList childrenRunning(const char* program, qint64 parent)
{
    const qint64 process = parent > 0 ? parent : ::getpid();
    QFile children(QStringLiteral("/proc/%1/task/%1/children").arg(process));
    QStringList found;
    if (!children.open(QIODevice::ReadOnly))
        qFatal("The kernel does not list the children of a process.");
    for (const QByteArray& child : children.readAll().simplified().split(' ')) {
        const QFileInfo link(QLatin1String("/proc/%1/exe").arg(QLatin1String(child)));
        if (!child.isEmpty() && link.symLinkTarget() == QLatin1String(program))
            found << QString::fromLatin1(child);
    }
    return found;
}
