// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/desktop/PipeWireConnection.h"

#include <cerrno>

#include <pipewire/pipewire.h>

/// The objects of PipeWire's library behind a connection.
class PipeWireConnection::Line
{
public:
    Line();
    ~Line();
    Line(const Line&) = delete;
    Line& operator=(const Line&) = delete;

    bool open();
    void close();
    bool isOpen() const { return m_streams.core && m_graph.core && !m_lost; }
    pw_core* streamCore() const { return m_streams.core; }
    pw_core* graphCore() const { return m_graph.core; }
    int descriptor() const { return pw_loop_get_fd(m_loop); }
    void run(int limit);

private:
    struct Client
    {
        pw_core* core = nullptr;
        spa_hook hook{};
    };

    bool open(Client* client);
    static void close(Client* client);
    static void failed(void* line, std::uint32_t id, int sequence, int result, const char* text);

    pw_loop* m_loop;
    pw_context* m_context;
    Client m_streams;
    Client m_graph;
    pw_core_events m_events{};
    bool m_lost = false;
};

PipeWireConnection::Line::Line()
{
    pw_init(nullptr, nullptr);
    m_loop = pw_loop_new(nullptr);
    // With this configuration the thread of the sound is a realtime one.
    m_context =
        pw_context_new(m_loop, pw_properties_new(PW_KEY_CONFIG_NAME, "client-rt.conf", nullptr), 0);
    m_events.version = PW_VERSION_CORE_EVENTS;
    m_events.error = &Line::failed;
}

PipeWireConnection::Line::~Line()
{
    close();
    if (m_context)
        pw_context_destroy(m_context);
    pw_loop_destroy(m_loop);
    pw_deinit();
}

bool PipeWireConnection::Line::open()
{
    close();
    m_lost = false;
    const bool opened = open(&m_streams) && open(&m_graph);
    if (!opened)
        close();
    return opened;
}

bool PipeWireConnection::Line::open(Client* client)
{
    if (!m_context)
        return false;
    client->core = pw_context_connect(
        m_context,
        pw_properties_new(PW_KEY_APP_NAME, "Zolta", PW_KEY_APP_ICON_NAME, "zolta-host", nullptr),
        0);
    if (!client->core)
        return false;
    pw_core_add_listener(client->core, &client->hook, &m_events, this);
    return true;
}

void PipeWireConnection::Line::close()
{
    close(&m_graph);
    close(&m_streams);
}

void PipeWireConnection::Line::close(Client* client)
{
    if (!client->core)
        return;
    spa_hook_remove(&client->hook);
    pw_core_disconnect(client->core);
    client->core = nullptr;
}

void PipeWireConnection::Line::run(int limit)
{
    pw_loop_enter(m_loop);
    pw_loop_iterate(m_loop, limit);
    pw_loop_leave(m_loop);
}

// Other errors are about single objects, which say so themselves.
void PipeWireConnection::Line::failed(void* line, std::uint32_t id, int, int result, const char*)
{
    if (id == PW_ID_CORE && result == -EPIPE)
        static_cast<Line*>(line)->m_lost = true;
}

PipeWireConnection::PipeWireConnection()
    : m_line(std::make_unique<Line>())
    , m_notifier(std::make_unique<QSocketNotifier>(m_line->descriptor(), QSocketNotifier::Read))
{
    connect(m_notifier.get(), &QSocketNotifier::activated, this,
            [this] { run(std::chrono::milliseconds(0)); });
}

PipeWireConnection::~PipeWireConnection() = default;

bool PipeWireConnection::open() { return m_line->open(); }

void PipeWireConnection::close() { m_line->close(); }

bool PipeWireConnection::isOpen() const { return m_line->isOpen(); }

pw_core* PipeWireConnection::streamCore() const { return m_line->streamCore(); }

pw_core* PipeWireConnection::graphCore() const { return m_line->graphCore(); }

void PipeWireConnection::run(std::chrono::milliseconds limit)
{
    m_line->run(static_cast<int>(limit.count()));
    Q_EMIT handled();
}

#include "moc_PipeWireConnection.cpp"
