// SPDX-License-Identifier: GPL-3.0-or-later
#include "daw/window/EditorProcess.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <dlfcn.h>
#include <fcntl.h>
#include <filesystem>
#include <poll.h>
#include <spawn.h>
#include <string_view>
#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

constexpr int patience = 200;       // ms for a program whose conversation was closed
constexpr int signalPatience = 100; // ms for one that was sent SIGTERM
constexpr int tick = 2;             // ms

// Ardour and others start with their own libraries and settings in the environment.
constexpr std::array hostVariables = {std::string_view("LD_LIBRARY_PATH="),
                                      std::string_view("GTK_"), std::string_view("GDK_"),
                                      std::string_view("QT_"), std::string_view("QML")};

bool isHostVariable(std::string_view entry)
{
    return std::any_of(hostVariables.begin(), hostVariables.end(),
                       [entry](std::string_view name) { return entry.starts_with(name); });
}

std::vector<std::string> cleanEnvironment(double scale)
{
    std::vector<std::string> entries;
    for (char** entry = environ; *entry; ++entry) {
        if (!isHostVariable(*entry))
            entries.emplace_back(*entry);
    }
    entries.emplace_back("QT_QPA_PLATFORM=xcb");
    entries.emplace_back("QT_SCALE_FACTOR=" + std::to_string(scale));
    return entries;
}

std::vector<char*> pointersTo(std::vector<std::string>& texts)
{
    std::vector<char*> pointers;
    std::transform(texts.begin(), texts.end(), std::back_inserter(pointers),
                   [](std::string& text) { return text.data(); });
    pointers.push_back(nullptr);
    return pointers;
}

// Descriptors, signals and their blocking are not handed on.
class SpawnSettings
{
public:
    explicit SpawnSettings(int socket)
    {
        ::posix_spawn_file_actions_init(&actions);
        ::posix_spawn_file_actions_adddup2(&actions, socket, EditorProcess::conversationDescriptor);
        ::posix_spawn_file_actions_addclosefrom_np(&actions,
                                                   EditorProcess::conversationDescriptor + 1);
        sigset_t none, all;
        ::sigemptyset(&none);
        ::sigfillset(&all);
        ::posix_spawnattr_init(&attributes);
        ::posix_spawnattr_setsigmask(&attributes, &none);
        ::posix_spawnattr_setsigdefault(&attributes, &all);
        ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    }
    ~SpawnSettings()
    {
        ::posix_spawn_file_actions_destroy(&actions);
        ::posix_spawnattr_destroy(&attributes);
    }
    SpawnSettings(const SpawnSettings&) = delete;
    SpawnSettings& operator=(const SpawnSettings&) = delete;

    posix_spawn_file_actions_t actions;
    posix_spawnattr_t attributes;
};

fs::path folderOfThisLibrary()
{
    Dl_info info{};
    ::dladdr(reinterpret_cast<const void*>(&EditorProcess::findProgram), &info);
    std::error_code error;
    return info.dli_fname ? fs::canonical(info.dli_fname, error).parent_path() : fs::path();
}

bool canRun(const fs::path& file) { return ::access(file.c_str(), X_OK) == 0; }

} // namespace

std::string EditorProcess::findProgram()
{
    std::vector<fs::path> libraries = {"/usr/lib", "/usr/local/lib"};
    // A bundle lies in lib/lv2 or lib/vst3, in the installed tree as in the build tree.
    for (fs::path at = folderOfThisLibrary(); at.has_relative_path(); at = at.parent_path()) {
        if (at.filename() == "lib")
            libraries.insert(libraries.begin(), at);
    }
    for (const fs::path& library : libraries) {
        const fs::path program = library / "zolta" / "zolta-editor";
        if (canRun(program))
            return program;
    }
    return {};
}

EditorProcess::~EditorProcess() { stop(); }

bool EditorProcess::start(const std::string& program, const std::vector<std::string>& arguments,
                          int socket, double scale)
{
    stop();
    std::vector<std::string> words = arguments;
    words.insert(words.begin(), program);
    std::vector<std::string> environment = cleanEnvironment(scale);
    // dup2 onto itself would leave the descriptor close-on-exec.
    const int free = ::fcntl(socket, F_DUPFD_CLOEXEC, conversationDescriptor + 1);
    if (free < 0)
        return false;
    const SpawnSettings settings(free);
    const int error =
        ::posix_spawn(&m_pid, program.c_str(), &settings.actions, &settings.attributes,
                      pointersTo(words).data(), pointersTo(environment).data());
    ::close(free);
    if (error != 0)
        m_pid = -1;
    return error == 0;
}

// A workstation may have reaped the process itself: then nobody knows it any more.
bool EditorProcess::isRunning()
{
    if (m_pid < 0)
        return false;
    const pid_t ended = ::waitpid(m_pid, nullptr, WNOHANG);
    if (ended == m_pid || (ended < 0 && errno == ECHILD))
        m_pid = -1;
    return m_pid >= 0;
}

void EditorProcess::stop()
{
    if (!isRunning() || waitFor(patience))
        return;
    ::kill(m_pid, SIGTERM);
    if (waitFor(signalPatience))
        return;
    ::kill(m_pid, SIGKILL);
    ::waitpid(m_pid, nullptr, 0);
    m_pid = -1;
}

bool EditorProcess::waitFor(int milliseconds)
{
    for (int waited = 0; waited < milliseconds && isRunning(); waited += tick)
        ::poll(nullptr, 0, tick);
    return !isRunning();
}
