// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/program/ExitGuard.h"
#include "tests/support/TestObject.h"

#include <cstdio>
#include <cstdlib>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

class tst_ExitGuard : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void worksBeforeTheProgramEnds_data();
    void worksBeforeTheProgramEnds();
};

namespace {

using Ending = void (*)(const std::function<void()>& work);

void exitUnderGuard(const std::function<void()>& work)
{
    const ExitGuard guard(work);
    std::exit(7);
}

void exitAfterGuard(const std::function<void()>& work)
{
    {
        const ExitGuard guard(work);
    }
    std::exit(7);
}

void exitUnderSecondGuard(const std::function<void()>& work)
{
    {
        const ExitGuard guard([] { std::_Exit(1); });
    }
    exitUnderGuard(work);
}

void exitElsewhere(const std::function<void()>& work)
{
    const ExitGuard guard(work);
    std::thread([] { std::exit(7); }).join();
}

} // namespace

Q_DECLARE_METATYPE(Ending)

void tst_ExitGuard::worksBeforeTheProgramEnds_data()
{
    QTest::addColumn<Ending>("ending");
    QTest::addColumn<QByteArray>("done");
    QTest::newRow("under a guard") << &exitUnderGuard << QByteArray("!");
    QTest::newRow("after it") << &exitAfterGuard << QByteArray();
    QTest::newRow("under another one") << &exitUnderSecondGuard << QByteArray("!");
    QTest::newRow("on another thread") << &exitElsewhere << QByteArray();
}

void tst_ExitGuard::worksBeforeTheProgramEnds()
{
    QFETCH(const Ending, ending);
    int pipe[2] = {};
    QCOMPARE(::pipe2(pipe, O_NONBLOCK), 0);
    std::fflush(nullptr);
    const pid_t process = ::fork();
    if (process == 0)
        ending([&pipe] { static_cast<void>(!::write(pipe[1], "!", 1)); });
    int status = 0;
    QCOMPARE(::waitpid(process, &status, 0), process);
    char bytes[8] = {};
    const ssize_t size = ::read(pipe[0], bytes, sizeof bytes);
    QTEST(QByteArray(bytes, std::max<ssize_t>(size, 0)), "done");
    QVERIFY(WIFEXITED(status));
    QCOMPARE(WEXITSTATUS(status), 7);
    ::close(pipe[0]);
    ::close(pipe[1]);
}

QTEST_APPLESS_MAIN(tst_ExitGuard)

#include "tst_ExitGuard.moc"
