// SPDX-License-Identifier: GPL-3.0-or-later
#include "hosting/LibraryTrial.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstring>
#include <utility>

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

// What the copy says once loading has ended: this, and the error if there is one.
constexpr char finished = '.';
// As much as a pipe takes at once.
constexpr qsizetype maxMessage = 4096;

void silence()
{
    const int nothing = ::open("/dev/null", O_RDWR | O_CLOEXEC);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        ::dup2(nothing, stream);
}

// A crash ends the copy at once, whatever this process does about its own.
void forgetHandlers()
{
    for (const int number : {SIGSEGV, SIGBUS, SIGABRT, SIGILL, SIGFPE, SIGTRAP, SIGSYS})
        ::signal(number, SIG_DFL);
}

[[noreturn]] void loadHere(int output, const LibraryTrial::Load& load)
{
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    const rlimit noDump = {0, 0};
    ::setrlimit(RLIMIT_CORE, &noDump);
    forgetHandlers();
    silence();
    const QByteArray message = (finished + load().error().toUtf8()).left(maxMessage);
    static_cast<void>(!::write(output, message.constData(), static_cast<size_t>(message.size())));
    ::_exit(0);
}

// Whether there is something to read, or nobody is left to write it.
bool isReady(int input, std::chrono::milliseconds patience)
{
    using Clock = std::chrono::steady_clock;
    const Clock::time_point end = Clock::now() + patience;
    pollfd watched = {input, POLLIN, 0};
    int ready = -1;
    do {
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now()).count();
        ready = ::poll(&watched, 1, static_cast<int>(std::clamp<qint64>(left, 0, INT_MAX)));
    } while (ready < 0 && errno == EINTR);
    return ready > 0;
}

QByteArray messageIn(int input)
{
    QByteArray message(maxMessage, '\0');
    const ssize_t size = ::read(input, message.data(), static_cast<size_t>(message.size()));
    message.truncate(std::max<ssize_t>(size, 0));
    return message;
}

} // namespace

LibraryTrial::LibraryTrial(QString file, std::chrono::milliseconds patience)
    : m_file(std::move(file))
    , m_patience(patience)
{}

void LibraryTrial::run(const Load& load)
{
    std::array<int, 2> pipe = {};
    m_end = End::NotTried;
    if (::pipe2(pipe.data(), O_CLOEXEC) != 0) {
        m_number = errno;
        return;
    }
    const pid_t process = ::fork();
    m_number = errno;
    if (process == 0)
        loadHere(pipe[1], load);
    ::close(pipe[1]);
    if (process > 0)
        m_end = runIn(process, pipe[0]);
    ::close(pipe[0]);
}

LibraryTrial::End LibraryTrial::runIn(int process, int input)
{
    const bool ready = isReady(input, m_patience);
    m_message = ready ? messageIn(input) : QByteArray();
    ::kill(process, SIGKILL); // changes nothing where it has ended by itself
    int status = 0;
    while (::waitpid(process, &status, 0) < 0 && errno == EINTR)
        ;
    if (!ready)
        return End::TooSlow;
    if (m_message.startsWith(finished))
        return m_message.size() == 1 ? End::Loaded : End::Failed;
    m_number = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    return WIFSIGNALED(status) ? End::Crashed : End::Ended;
}

Status LibraryTrial::status() const
{
    switch (m_end) {
    case End::Loaded:
        break;
    case End::Failed:
        return Error{QString::fromUtf8(m_message.mid(1))};
    case End::Crashed:
        return Error{
            tr("The plug-in %1 cannot be loaded: it crashes (%2). Its file may be damaged.")
                .arg(m_file, QString::fromLocal8Bit(::strsignal(m_number)))};
    case End::Ended:
        return Error{
            tr("The plug-in %1 cannot be loaded: it ends the program that loads it.").arg(m_file)};
    case End::TooSlow:
        return Error{tr("The plug-in %1 cannot be loaded: it takes longer than %2 seconds.")
                         .arg(m_file, QString::number(double(m_patience.count()) / 1000.0))};
    case End::NotTried:
        return Error{tr("The plug-in %1 cannot be tried in a process of its own: %2.")
                         .arg(m_file, qt_error_string(m_number))};
    }
    return {};
}
