// SPDX-License-Identifier: GPL-3.0-or-later
// What the editor and an instance of the LV2 plug-in cost a workstation, printed as a table in
// Markdown beside the limits. Needs an X server.
//
// Usage: bench_workstation [TURNS]   how often the editor is opened and closed, 20 unless told
#include "daw/window/EmbeddedEditor.h"

#include <lv2/core/lv2.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <filesystem>
#include <fstream>
#include <malloc.h>
#include <memory>
#include <poll.h>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr std::uint32_t ground = 0x1e1e1e; // of the window that waits for the editor
constexpr double patience = 20.0;          // seconds
constexpr int restSeconds = 5;
constexpr int instanceCount = 200;

class NoListener : public EditorListener
{
public:
    void beginEdit(std::size_t) override {}
    void edit(std::size_t, int) override {}
    void endEdit(std::size_t) override {}
};

/// A workstation's window on a connection of its own.
class Window
{
public:
    Window()
        : m_connection(xcb_connect(nullptr, nullptr))
    {
        if (xcb_connection_has_error(m_connection)) {
            std::fputs("bench_workstation: there is no X display.\n", stderr);
            std::exit(1);
        }
        const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
        m_window = xcb_generate_id(m_connection);
        const std::uint32_t override = 1;
        xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, m_window, screen->root, 0, 0,
                          EmbeddedEditor::naturalWidth, EmbeddedEditor::naturalHeight, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                          XCB_CW_OVERRIDE_REDIRECT, &override);
        xcb_map_window(m_connection, m_window);
        m_root = screen->root;
        xcb_flush(m_connection);
    }
    ~Window() { xcb_disconnect(m_connection); }
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    std::uint32_t id() const { return m_window; }
    /// Whether an editor has painted where its window's upper edge is.
    bool isCovered() const
    {
        const auto cookie = xcb_get_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, m_root,
                                          EmbeddedEditor::naturalWidth / 2, 4, 1, 1, ~0U);
        const std::unique_ptr<xcb_get_image_reply_t, decltype(&std::free)> reply(
            xcb_get_image_reply(m_connection, cookie, nullptr), &std::free);
        std::uint32_t pixel = ground;
        if (reply && xcb_get_image_data_length(reply.get()) >= 4)
            std::memcpy(&pixel, xcb_get_image_data(reply.get()), sizeof pixel);
        return (pixel & 0xffffff) != ground && (pixel & 0xffffff) != 0;
    }
    int windowCount() const
    {
        const std::unique_ptr<xcb_query_tree_reply_t, decltype(&std::free)> reply(
            xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, m_root), nullptr),
            &std::free);
        return reply ? reply->children_len : -1;
    }

private:
    xcb_connection_t* m_connection;
    xcb_window_t m_window = 0;
    xcb_window_t m_root = 0;
};

double secondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

std::vector<std::string> childProcesses()
{
    std::ifstream list("/proc/self/task/" + std::to_string(getpid()) + "/children");
    std::vector<std::string> children;
    for (std::string child; list >> child;)
        children.push_back(child);
    return children;
}

long openDescriptors()
{
    return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator());
}

/// How often a process has gone to sleep by itself.
long sleepsOf(const std::string& process)
{
    std::ifstream status("/proc/" + process + "/status");
    const std::string field = "voluntary_ctxt_switches:";
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with(field))
            return std::stol(line.substr(field.size()));
    }
    return -1;
}

class OpenEditor
{
public:
    explicit OpenEditor(const Window& window)
        : m_start(Clock::now())
        , m_editor(m_listener, optionsFor(window))
    {
        while (!window.isCovered() && secondsSince(m_start) < patience) {
            relay();
            poll(nullptr, 0, 1);
        }
        m_seconds = secondsSince(m_start);
    }

    void relay() { m_editor.relay(); }
    double secondsToShow() const { return m_seconds; }

private:
    static EmbeddedEditor::Options optionsFor(const Window& window)
    {
        EmbeddedEditor::Options options;
        options.parent = window.id();
        options.findProgram = [] { return ZOLTA_EDITOR; };
        return options;
    }

    NoListener m_listener;
    Clock::time_point m_start;
    EmbeddedEditor m_editor;
    double m_seconds = 0.0;
};

void row(const char* what, double value, const char* unit, const char* limit)
{
    std::printf("| %s | %.4g %s | %s |\n", what, value, unit, limit);
}

void measureOpening(const Window& window, int turns)
{
    std::vector<double> seconds;
    const long descriptors = openDescriptors();
    const int windows = window.windowCount();
    const Clock::time_point start = Clock::now();
    for (int turn = 0; turn < turns; ++turn)
        seconds.push_back(OpenEditor(window).secondsToShow());
    const double all = secondsSince(start);
    poll(nullptr, 0, 200); // until the server has noticed the end of the last one
    row("first editor, from request to painted", 1000 * seconds.front(), "ms", "250 ms");
    std::sort(seconds.begin(), seconds.end());
    row("median editor", 1000 * seconds[seconds.size() / 2], "ms", "250 ms");
    row("slowest editor", 1000 * seconds.back(), "ms", "250 ms");
    row("opening and closing once", 1000 * all / turns, "ms", "");
    row("descriptors left", static_cast<double>(openDescriptors() - descriptors), "", "0");
    row("windows left", window.windowCount() - windows, "", "0");
    row("processes left", static_cast<double>(childProcesses().size()), "", "0");
}

void measureRest(const Window& window)
{
    OpenEditor editor(window);
    poll(nullptr, 0, 1000);
    editor.relay();
    poll(nullptr, 0, 1000);
    const std::string process = childProcesses().at(0);
    const long before = sleepsOf(process);
    poll(nullptr, 0, restSeconds * 1000);
    row("wake-ups of an editor at rest",
        static_cast<double>(sleepsOf(process) - before) / restSeconds, "a second", "0");
}

void measureInstances()
{
    void* const library = dlopen(ZOLTA_LV2_LIBRARY, RTLD_NOW | RTLD_LOCAL);
    const auto find = reinterpret_cast<LV2_Descriptor_Function>(
        library ? dlsym(library, "lv2_descriptor") : nullptr);
    if (!find)
        return;
    const LV2_Descriptor* descriptor = find(0);
    std::vector<LV2_Handle> instances;
    const auto used = [] { return mallinfo2().uordblks + mallinfo2().hblkhd; };
    instances.reserve(instanceCount);
    const std::size_t before = used();
    for (int i = 0; i < instanceCount; ++i)
        instances.push_back(descriptor->instantiate(descriptor, 48000.0, "", nullptr));
    row("memory of an instance without editor",
        static_cast<double>(used() - before) / instanceCount / 1024.0, "KiB", "1024 KiB");
    for (LV2_Handle instance : instances)
        descriptor->cleanup(instance);
}

} // namespace

int main(int argc, char* argv[])
{
    const Window window;
    std::puts("| what | figure | limit |\n|---|---|---|");
    measureOpening(window, argc > 1 ? std::max(std::atoi(argv[1]), 1) : 20);
    measureRest(window);
    measureInstances();
    return 0;
}
