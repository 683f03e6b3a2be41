// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/desktop/SoundGraph.h"

#include "host/desktop/SinkPorts.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <iterator>
#include <map>
#include <optional>
#include <set>
#include <string_view>
#include <utility>

#include <pipewire/extensions/metadata.h>
#include <pipewire/pipewire.h>

namespace {

constexpr std::string_view defaultKey = "default.audio.sink";
constexpr const char* chosenKey = "default.configured.audio.sink";
constexpr const char* textType = "Spa:String";
constexpr const char* jsonType = "Spa:String:JSON";

/// By the sinks' names.
struct Defaults
{
    QString sink;
    QString chosenSink;
};

struct Link
{
    std::uint32_t from;
    std::uint32_t to;
};

std::string_view valueOf(const spa_dict* properties, const char* key)
{
    const char* value = properties ? spa_dict_lookup(properties, key) : nullptr;
    return value ? value : "";
}

QString textOf(const spa_dict* properties, const char* key)
{
    const std::string_view value = valueOf(properties, key);
    return QString::fromUtf8(value.data(), static_cast<qsizetype>(value.size()));
}

QString nameIn(const char* value)
{
    return QJsonDocument::fromJson(value).object().value(QLatin1String("name")).toString();
}

QByteArray toValue(const QString& name)
{
    return QJsonDocument(QJsonObject{{QStringLiteral("name"), name}})
        .toJson(QJsonDocument::Compact);
}

} // namespace

/// What PipeWire tells about its graph, and what is known of it.
class SoundGraph::Watch
{
public:
    explicit Watch(pw_core* core);
    ~Watch();
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

    void sync();
    void refresh();
    void renewSinks();
    bool isLinked(std::uint32_t node) const;
    void set(std::uint32_t subject, const char* key, const char* type, const QByteArray& value);

    std::map<std::uint32_t, Sink> sinks;
    std::map<std::uint32_t, Link> links;
    std::set<std::uint32_t> old; // sinks of an earlier session manager's time
    Defaults defaults;
    bool ready = false; // all that the session manager keeps has come
    bool synced = false;
    bool doubtful = false;

private:
    static void appeared(void* watch, std::uint32_t id, std::uint32_t permissions, const char* type,
                         std::uint32_t version, const spa_dict* properties);
    static void vanished(void* watch, std::uint32_t id);
    static int changed(void* watch, std::uint32_t subject, const char* key, const char* type,
                       const char* value);
    static void done(void* watch, std::uint32_t id, int sequence);
    void bind(std::uint32_t id);
    void unbind();
    void forget();

    pw_core* m_core;
    pw_registry* m_registry;
    pw_proxy* m_metadata = nullptr;
    std::uint32_t m_metadataId = 0;
    std::optional<Defaults> m_answer;           // to bind(), until all of it has come
    std::map<std::uint32_t, SinkPorts> m_ports; // since the last session manager went
    int m_sequence = 0;
    pw_core_events m_coreEvents{};
    pw_registry_events m_registryEvents{};
    pw_metadata_events m_metadataEvents{};
    spa_hook m_coreHook{};
    spa_hook m_registryHook{};
    spa_hook m_metadataHook{};
};

SoundGraph::Watch::Watch(pw_core* core)
    : m_core(core)
    , m_registry(pw_core_get_registry(core, PW_VERSION_REGISTRY, 0))
{
    m_coreEvents.version = PW_VERSION_CORE_EVENTS;
    m_coreEvents.done = &Watch::done;
    m_registryEvents.version = PW_VERSION_REGISTRY_EVENTS;
    m_registryEvents.global = &Watch::appeared;
    m_registryEvents.global_remove = &Watch::vanished;
    m_metadataEvents.version = PW_VERSION_METADATA_EVENTS;
    m_metadataEvents.property = &Watch::changed;
    pw_core_add_listener(m_core, &m_coreHook, &m_coreEvents, this);
    pw_registry_add_listener(m_registry, &m_registryHook, &m_registryEvents, this);
}

SoundGraph::Watch::~Watch()
{
    m_ports.clear();
    unbind();
    spa_hook_remove(&m_registryHook);
    spa_hook_remove(&m_coreHook);
    pw_proxy_destroy(reinterpret_cast<pw_proxy*>(m_registry));
}

void SoundGraph::Watch::sync()
{
    synced = false;
    m_sequence = pw_core_sync(m_core, PW_ID_CORE, 0);
}

void SoundGraph::Watch::refresh()
{
    if (m_metadata)
        bind(m_metadataId);
    doubtful = false;
}

void SoundGraph::Watch::renewSinks()
{
    for (auto sink = old.begin(); sink != old.end();) {
        const bool isFree = !isLinked(*sink);
        if (isFree)
            m_ports.try_emplace(*sink, m_registry, *sink);
        sink = isFree ? old.erase(sink) : std::next(sink);
    }
}

bool SoundGraph::Watch::isLinked(std::uint32_t node) const
{
    return std::any_of(links.begin(), links.end(), [node](const auto& entry) {
        return entry.second.from == node || entry.second.to == node;
    });
}

void SoundGraph::Watch::set(std::uint32_t subject, const char* key, const char* type,
                            const QByteArray& value)
{
    auto* metadata = reinterpret_cast<pw_metadata*>(m_metadata);
    pw_metadata_set_property(metadata, subject, key, value.isEmpty() ? nullptr : type,
                             value.isEmpty() ? nullptr : value.constData());
}

void SoundGraph::Watch::appeared(void* watch, std::uint32_t id, std::uint32_t, const char* type,
                                 std::uint32_t, const spa_dict* properties)
{
    auto* self = static_cast<Watch*>(watch);
    self->doubtful = true;
    const std::string_view kind = type;
    if (kind == PW_TYPE_INTERFACE_Node && valueOf(properties, PW_KEY_MEDIA_CLASS) == "Audio/Sink")
        self->sinks[id] = {textOf(properties, PW_KEY_NODE_NAME),
                           textOf(properties, PW_KEY_NODE_DESCRIPTION)};
    else if (kind == PW_TYPE_INTERFACE_Link)
        self->links[id] = {textOf(properties, PW_KEY_LINK_OUTPUT_NODE).toUInt(),
                           textOf(properties, PW_KEY_LINK_INPUT_NODE).toUInt()};
    else if (kind == PW_TYPE_INTERFACE_Metadata &&
             valueOf(properties, PW_KEY_METADATA_NAME) == "default")
        self->bind(id);
}

void SoundGraph::Watch::vanished(void* watch, std::uint32_t id)
{
    auto* self = static_cast<Watch*>(watch);
    self->doubtful = true;
    self->sinks.erase(id);
    self->links.erase(id);
    self->old.erase(id);
    self->m_ports.erase(id);
    if (self->m_metadata && id == self->m_metadataId)
        self->forget();
}

// Without a key, everything about the subject is gone.
int SoundGraph::Watch::changed(void* watch, std::uint32_t subject, const char* key, const char*,
                               const char* value)
{
    auto* self = static_cast<Watch*>(watch);
    if (subject != PW_ID_CORE)
        return 0;
    Defaults& known = self->m_answer ? *self->m_answer : self->defaults;
    if (!key || key == defaultKey)
        known.sink = nameIn(value);
    if (!key || key == std::string_view(chosenKey))
        known.chosenSink = nameIn(value);
    return 0;
}

void SoundGraph::Watch::done(void* watch, std::uint32_t id, int sequence)
{
    auto* self = static_cast<Watch*>(watch);
    if (id != PW_ID_CORE || sequence != self->m_sequence)
        return;
    self->synced = true;
    self->ready = self->m_metadata != nullptr;
    if (self->m_answer)
        self->defaults = *std::exchange(self->m_answer, std::nullopt);
}

// What is known stands until all of the answer has come.
void SoundGraph::Watch::bind(std::uint32_t id)
{
    unbind();
    m_metadata = static_cast<pw_proxy*>(
        pw_registry_bind(m_registry, id, PW_TYPE_INTERFACE_Metadata, PW_VERSION_METADATA, 0));
    m_metadataId = id;
    m_answer = Defaults();
    auto* metadata = reinterpret_cast<pw_metadata*>(m_metadata);
    pw_metadata_add_listener(metadata, &m_metadataHook, &m_metadataEvents, this);
    sync();
}

void SoundGraph::Watch::unbind()
{
    m_answer.reset();
    if (!m_metadata)
        return;
    spa_hook_remove(&m_metadataHook);
    pw_proxy_destroy(m_metadata);
    m_metadata = nullptr;
}

void SoundGraph::Watch::forget()
{
    unbind();
    ready = false;
    defaults = {};
    m_ports.clear();
    for (const auto& [id, sink] : sinks)
        old.insert(id);
}

SoundGraph::SoundGraph(pw_core* core)
    : m_watch(std::make_unique<Watch>(core))
{}

SoundGraph::~SoundGraph() = default;

bool SoundGraph::hasManager() const { return m_watch->ready; }

bool SoundGraph::isSettled() const
{
    return m_watch->sinks.empty() || !m_watch->defaults.sink.isEmpty();
}

QString SoundGraph::defaultSink() const { return m_watch->defaults.sink; }

QString SoundGraph::chosenSink() const { return m_watch->defaults.chosenSink; }

void SoundGraph::chooseSink(const QString& name)
{
    m_watch->defaults.chosenSink = name;
    m_watch->set(PW_ID_CORE, chosenKey, jsonType, name.isEmpty() ? QByteArray() : toValue(name));
}

void SoundGraph::moveTo(std::uint32_t node, const QString& name)
{
    m_watch->set(node, PW_KEY_TARGET_OBJECT, textType, name.toUtf8());
}

void SoundGraph::sync() { m_watch->sync(); }

bool SoundGraph::isSynced() const { return m_watch->synced; }

void SoundGraph::refresh() { m_watch->refresh(); }

bool SoundGraph::isDoubtful() const { return m_watch->doubtful; }

void SoundGraph::renewSinks() { m_watch->renewSinks(); }

void SoundGraph::keepSinks() { m_watch->old.clear(); }

SoundGraph::Sink SoundGraph::sinkBehind(std::uint32_t node) const
{
    for (const auto& [id, link] : m_watch->links) {
        const auto sink = m_watch->sinks.find(link.to);
        if (link.from == node && sink != m_watch->sinks.end())
            return sink->second;
    }
    return {};
}

bool SoundGraph::isPlayedTo(std::uint32_t node) const
{
    return std::any_of(m_watch->links.begin(), m_watch->links.end(),
                       [node](const auto& entry) { return entry.second.to == node; });
}
