// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/walls/TracedRun.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdint>
#include <cstring>

#include <elf.h>
#include <fcntl.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace TracedRun;

constexpr int noArgument = -1;
constexpr int refused = 125; // as an exit code

// Which arguments of a system call are names of files, and which one is a descriptor.
struct Kind
{
    long number;
    const char* name;
    int firstName;
    int secondName = noArgument;
    int descriptor = noArgument;
    int size = noArgument; // of what it writes
};

constexpr Kind named(long number, const char* name, int first, int second = noArgument)
{
    return {number, name, first, second};
}

constexpr Kind described(long number, const char* name, int size = noArgument)
{
    return {number, name, noArgument, noArgument, 0, size};
}

constexpr std::array kinds = {
#ifdef SYS_open
    named(SYS_open, "open", 0),
    named(SYS_rename, "rename", 0, 1),
    named(SYS_link, "link", 0, 1),
    named(SYS_unlink, "unlink", 0),
    named(SYS_mkdir, "mkdir", 0),
    named(SYS_access, "access", 0),
    named(SYS_chmod, "chmod", 0),
#endif
    named(SYS_openat, "openat", 1),
    named(SYS_renameat2, "renameat2", 1, 3),
    named(SYS_renameat, "renameat", 1, 3),
    named(SYS_linkat, "linkat", 3),
    named(SYS_unlinkat, "unlinkat", 1),
    named(SYS_mkdirat, "mkdirat", 1),
    named(SYS_newfstatat, "newfstatat", 1),
    named(SYS_statx, "statx", 1),
    named(SYS_faccessat, "faccessat", 1),
    named(SYS_fchmodat, "fchmodat", 1),
    described(SYS_write, "write", 2),
    described(SYS_pwrite64, "pwrite64", 2),
    described(SYS_read, "read"),
    described(SYS_fsync, "fsync"),
    described(SYS_fdatasync, "fdatasync"),
    described(SYS_ftruncate, "ftruncate"),
    described(SYS_fchmod, "fchmod"),
    described(SYS_fchown, "fchown"),
    described(SYS_flock, "flock"),
    described(SYS_sync_file_range, "sync_file_range"),
    described(SYS_close, "close")};

const Kind* kindOf(std::uint64_t number)
{
    const auto* found = std::find_if(kinds.begin(), kinds.end(), [number](const Kind& kind) {
        return static_cast<std::uint64_t>(kind.number) == number;
    });
    return found == kinds.end() ? nullptr : found;
}

std::string textAt(pid_t process, std::uint64_t address)
{
    constexpr std::uint64_t pageSize = 4096; // reading beyond a page that is missing fails
    std::string text;
    while (text.size() < PATH_MAX) {
        std::array<char, pageSize> bytes = {};
        const std::uint64_t start = address + text.size();
        iovec local = {bytes.data(), pageSize - start % pageSize};
        iovec remote = {reinterpret_cast<void*>(start), local.iov_len};
        const ssize_t count = ::process_vm_readv(process, &local, 1, &remote, 1, 0);
        if (count <= 0)
            return text;
        const std::size_t length = ::strnlen(bytes.data(), static_cast<std::size_t>(count));
        text.append(bytes.data(), length);
        if (length < static_cast<std::size_t>(count))
            return text;
    }
    return text;
}

std::string fileOf(pid_t process, std::uint64_t descriptor)
{
    const std::string link =
        "/proc/" + std::to_string(process) + "/fd/" + std::to_string(static_cast<int>(descriptor));
    std::array<char, PATH_MAX> name = {};
    const ssize_t length = ::readlink(link.c_str(), name.data(), name.size());
    return {name.data(), static_cast<std::size_t>(std::max<ssize_t>(length, 0))};
}

// What the processor holds while a system call begins or ends.
class Registers
{
public:
    explicit Registers(pid_t thread)
        : m_thread(thread)
    {
        iovec place = {&m_values, sizeof m_values};
        ::ptrace(PTRACE_GETREGSET, m_thread, NT_PRSTATUS, &place);
    }

    void setArgument(int index, std::uint64_t value)
    {
#ifdef __x86_64__
        const std::array arguments = {&m_values.rdi, &m_values.rsi, &m_values.rdx,
                                      &m_values.r10, &m_values.r8,  &m_values.r9};
        *arguments.at(static_cast<std::size_t>(index)) = value;
#else
        m_values.regs[index] = value;
#endif
        store();
    }

    void setResult(std::int64_t value)
    {
#ifdef __x86_64__
        m_values.rax = static_cast<std::uint64_t>(value);
#else
        m_values.regs[0] = static_cast<std::uint64_t>(value);
#endif
        store();
    }

    void skipCall()
    {
#ifdef __x86_64__
        m_values.orig_rax = ~0ULL;
        store();
#else
        int number = -1;
        iovec place = {&number, sizeof number};
        ::ptrace(PTRACE_SETREGSET, m_thread, NT_ARM_SYSTEM_CALL, &place);
#endif
    }

private:
    void store()
    {
        iovec place = {&m_values, sizeof m_values};
        ::ptrace(PTRACE_SETREGSET, m_thread, NT_PRSTATUS, &place);
    }

    pid_t m_thread;
    user_regs_struct m_values = {};
};

class Tracer
{
public:
    Tracer(const Plan& plan, pid_t process)
        : m_plan(plan)
        , m_process(process)
    {}

    Outcome run();

private:
    void stopped(pid_t thread, int status);
    void atCall(pid_t thread);
    void entered(pid_t thread, const __ptrace_syscall_info& info);
    std::string watchedFile(pid_t thread, const Kind& kind, const std::uint64_t* arguments) const;
    void interfere(pid_t thread, const Kind& kind, const std::uint64_t* arguments);
    void left(pid_t thread);
    void ended(int status);

    const Plan& m_plan;
    pid_t m_process;
    pid_t m_affected = 0; // the thread that is inside the call that is interfered with
    Outcome m_outcome;
};

Outcome Tracer::run()
{
    int status = 0;
    if (::waitpid(m_process, &status, __WALL) != m_process || !WIFSTOPPED(status)) {
        m_outcome.refusal = "ptrace is refused here, without which nothing can be checked";
        return m_outcome;
    }
    constexpr unsigned long options =
        PTRACE_O_EXITKILL | PTRACE_O_TRACESYSGOOD | PTRACE_O_TRACECLONE | PTRACE_O_TRACEEXEC;
    ::ptrace(PTRACE_SETOPTIONS, m_process, nullptr, options);
    ::ptrace(PTRACE_SYSCALL, m_process, nullptr, 0);
    for (;;) {
        const pid_t thread = ::waitpid(-m_process, &status, __WALL);
        if (thread < 0 && errno == EINTR)
            continue;
        if (thread > 0 && WIFSTOPPED(status))
            stopped(thread, status);
        else if (thread < 0 || thread == m_process)
            break;
    }
    ended(status);
    return m_outcome;
}

void Tracer::stopped(pid_t thread, int status)
{
    const int number = WSTOPSIG(status);
    const bool isCall = number == (SIGTRAP | 0x80);
    if (isCall)
        atCall(thread);
    const bool isEvent = status >> 16 != 0 || number == SIGSTOP; // a new thread begins with one
    ::ptrace(PTRACE_SYSCALL, thread, nullptr, isCall || isEvent ? 0 : number);
}

void Tracer::atCall(pid_t thread)
{
    __ptrace_syscall_info info = {};
    if (::ptrace(PTRACE_GET_SYSCALL_INFO, thread, sizeof info, &info) <= 0)
        return;
    if (info.op == PTRACE_SYSCALL_INFO_ENTRY)
        entered(thread, info);
    else if (thread == m_affected)
        left(thread);
}

void Tracer::entered(pid_t thread, const __ptrace_syscall_info& info)
{
    const Kind* kind = kindOf(info.entry.nr);
    if (!kind)
        return;
    std::array<std::uint64_t, 6> arguments = {};
    std::copy_n(info.entry.args, arguments.size(), arguments.begin());
    const std::string file = watchedFile(thread, *kind, arguments.data());
    if (file.empty())
        return;
    m_outcome.calls.push_back({kind->name, file});
    if (m_outcome.calls.size() == 1 && m_plan.signalAtFirst != 0)
        ::kill(m_process, m_plan.signalAtFirst);
    if (m_outcome.calls.size() == m_plan.call + 1)
        interfere(thread, *kind, arguments.data());
}

// Empty where the call does not count.
std::string Tracer::watchedFile(pid_t thread, const Kind& kind,
                                const std::uint64_t* arguments) const
{
    std::string watched;
    const auto see = [&](const std::string& file) {
        if (file.starts_with(m_plan.folder))
            watched = file;
    };
    if (kind.descriptor != noArgument)
        see(fileOf(thread, arguments[kind.descriptor]));
    for (const int name : {kind.firstName, kind.secondName}) {
        if (name != noArgument)
            see(textAt(thread, arguments[name]));
    }
    return watched;
}

void Tracer::interfere(pid_t thread, const Kind& kind, const std::uint64_t* arguments)
{
    switch (m_plan.act) {
    case Act::Watch:
        return;
    case Act::KillBefore:
        Registers(thread).skipCall();
        ::kill(m_process, SIGKILL);
        return;
    case Act::KillAmid:
        if (kind.size != noArgument)
            Registers(thread).setArgument(kind.size, arguments[kind.size] / 2);
        break;
    case Act::Fail:
        Registers(thread).skipCall();
        break;
    }
    m_affected = thread;
}

void Tracer::left(pid_t thread)
{
    m_affected = 0;
    if (m_plan.act == Act::Fail)
        Registers(thread).setResult(-m_plan.error);
    else
        ::kill(m_process, SIGKILL);
}

void Tracer::ended(int status)
{
    m_outcome.wasKilled = WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
    m_outcome.code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

[[noreturn]] void runTraced(int output, const std::function<int()>& work)
{
    ::setpgid(0, 0); // so that its threads can be waited for
    ::dup2(output, STDOUT_FILENO);
    ::dup2(output, STDERR_FILENO);
    if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0)
        ::_exit(refused);
    ::raise(SIGSTOP);
    ::_exit(work());
}

std::string readAll(int input)
{
    std::string text;
    std::array<char, 4096> bytes = {};
    ssize_t count = 0;
    while ((count = ::read(input, bytes.data(), bytes.size())) > 0)
        text.append(bytes.data(), static_cast<std::size_t>(count));
    return text;
}

} // namespace

Outcome TracedRun::run(const Plan& plan, const std::function<int()>& work)
{
    std::array<int, 2> pipe = {};
    if (::pipe2(pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return {"no pipe can be made", {}, false, -1, {}};
    const pid_t process = ::fork();
    if (process == 0)
        runTraced(pipe[1], work);
    Outcome outcome = Tracer(plan, process).run();
    outcome.output = readAll(pipe[0]);
    ::close(pipe[0]);
    ::close(pipe[1]);
    return outcome;
}
