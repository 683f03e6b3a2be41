// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/desktop/SinkStreams.h"

#include "host/desktop/DesktopProcessor.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>

#include <pipewire/pipewire.h>
#include <spa/param/audio/format-utils.h>
#include <unistd.h>

namespace {

constexpr std::size_t sides = 2;
constexpr const char* name = "zolta-desktop";
constexpr const char* description = "Zolta Desktop Equalizer";

// What both streams are told. The session manager links nodes of the same link group neither to
// each other nor in a circle; those of the same group run in the same cycle.
pw_properties* commonProperties(const std::string& group)
{
    return pw_properties_new(PW_KEY_NODE_LINK_GROUP, group.c_str(), PW_KEY_NODE_GROUP,
                             group.c_str(), PW_KEY_NODE_VIRTUAL, "true", PW_KEY_MEDIA_TYPE, "Audio",
                             PW_KEY_MEDIA_NAME, description, PW_KEY_NODE_DESCRIPTION, description,
                             SPA_KEY_AUDIO_POSITION, "FL,FR", nullptr);
}

pw_properties* sinkProperties(const std::string& group)
{
    pw_properties* properties = commonProperties(group);
    pw_properties_set(properties, PW_KEY_NODE_NAME, name);
    pw_properties_set(properties, PW_KEY_MEDIA_CLASS, "Audio/Sink");
    return properties;
}

// Passive, so that sound devices may sleep while nothing plays. Where it played last time, and how
// loud, is no concern of the session manager's.
pw_properties* outputProperties(const std::string& group, const QByteArray& target)
{
    pw_properties* properties = commonProperties(group);
    pw_properties_set(properties, PW_KEY_NODE_NAME, "zolta-desktop-output");
    pw_properties_set(properties, PW_KEY_MEDIA_CATEGORY, "Playback");
    pw_properties_set(properties, PW_KEY_NODE_PASSIVE, "true");
    pw_properties_set(properties, PW_KEY_STREAM_DONT_REMIX, "true");
    pw_properties_set(properties, "state.restore-target", "false");
    pw_properties_set(properties, "state.restore-props", "false");
    if (!target.isEmpty())
        pw_properties_set(properties, PW_KEY_TARGET_OBJECT, target.constData());
    return properties;
}

std::size_t framesIn(const spa_data& data) { return data.chunk->size / sizeof(float); }

float* samplesOf(const spa_data& data)
{
    auto* bytes = static_cast<std::byte*>(data.data);
    return reinterpret_cast<float*>(bytes + data.chunk->offset);
}

bool hasSides(const pw_buffer* buffer)
{
    const spa_buffer* content = buffer ? buffer->buffer : nullptr;
    return content && content->n_datas >= sides && content->datas[0].data && content->datas[1].data;
}

} // namespace

const QString SinkStreams::sinkName = QString::fromLatin1(name);

/// The two streams.
class SinkStreams::Pair
{
public:
    Pair(pw_core* core, DesktopProcessor& processor, const QByteArray& target);
    ~Pair();
    Pair(const Pair&) = delete;
    Pair& operator=(const Pair&) = delete;

    static std::optional<std::uint32_t> idOf(pw_stream* stream);

    pw_stream* sink;
    pw_stream* output;
    int rate = 0;
    bool gone = false;

private:
    bool connect(pw_stream* stream, pw_direction direction, unsigned int flags);
    static void formatChanged(void* pair, std::uint32_t id, const spa_pod* format);
    static void stateChanged(void* pair, pw_stream_state, pw_stream_state state, const char*);
    static void soundCame(void* pair);
    static void soundWanted(void* pair);
    void pass(const spa_data* in, spa_data* out);

    DesktopProcessor& m_processor;
    pw_stream_events m_sinkEvents{};
    pw_stream_events m_outputEvents{};
    spa_hook m_sinkHook{};
    spa_hook m_outputHook{};
};

SinkStreams::Pair::Pair(pw_core* core, DesktopProcessor& processor, const QByteArray& target)
    : m_processor(processor)
{
    const std::string group = std::string(name) + '-' + std::to_string(::getpid());
    sink = pw_stream_new(core, description, sinkProperties(group));
    output = pw_stream_new(core, description, outputProperties(group, target));
    m_sinkEvents.version = m_outputEvents.version = PW_VERSION_STREAM_EVENTS;
    m_sinkEvents.state_changed = m_outputEvents.state_changed = &Pair::stateChanged;
    m_sinkEvents.param_changed = &Pair::formatChanged;
    m_sinkEvents.process = &Pair::soundCame;
    m_outputEvents.process = &Pair::soundWanted;
    pw_stream_add_listener(sink, &m_sinkHook, &m_sinkEvents, this);
    pw_stream_add_listener(output, &m_outputHook, &m_outputEvents, this);
    // Without a trigger, the stream behind the sink would be a cycle late.
    gone =
        !connect(sink, PW_DIRECTION_INPUT, 0) ||
        !connect(output, PW_DIRECTION_OUTPUT, PW_STREAM_FLAG_AUTOCONNECT | PW_STREAM_FLAG_TRIGGER);
}

// No cycle may find one of them without the other.
SinkStreams::Pair::~Pair()
{
    pw_stream_disconnect(sink);
    pw_stream_disconnect(output);
    pw_stream_destroy(sink);
    pw_stream_destroy(output);
}

std::optional<std::uint32_t> SinkStreams::Pair::idOf(pw_stream* stream)
{
    const std::uint32_t id = pw_stream_get_node_id(stream);
    return id == SPA_ID_INVALID ? std::nullopt : std::optional(id);
}

// A rate of 0 follows that of the graph.
bool SinkStreams::Pair::connect(pw_stream* stream, pw_direction direction, unsigned int flags)
{
    spa_audio_info_raw info{};
    info.format = SPA_AUDIO_FORMAT_F32P;
    info.channels = sides;
    info.position[0] = SPA_AUDIO_CHANNEL_FL;
    info.position[1] = SPA_AUDIO_CHANNEL_FR;
    std::array<std::uint8_t, 1024> bytes;
    spa_pod_builder builder{};
    builder.data = bytes.data();
    builder.size = bytes.size();
    const spa_pod* format = spa_format_audio_raw_build(&builder, SPA_PARAM_EnumFormat, &info);
    flags |= PW_STREAM_FLAG_MAP_BUFFERS | PW_STREAM_FLAG_RT_PROCESS;
    return pw_stream_connect(stream, direction, PW_ID_ANY, static_cast<pw_stream_flags>(flags),
                             &format, 1) == 0;
}

void SinkStreams::Pair::formatChanged(void* pair, std::uint32_t id, const spa_pod* format)
{
    spa_audio_info_raw info{};
    if (id != SPA_PARAM_Format || !format || spa_format_audio_raw_parse(format, &info) < 0)
        return;
    auto* self = static_cast<Pair*>(pair);
    self->rate = static_cast<int>(info.rate);
    self->m_processor.setSampleRate(self->rate);
}

void SinkStreams::Pair::stateChanged(void* pair, pw_stream_state, pw_stream_state state,
                                     const char*)
{
    if (state == PW_STREAM_STATE_UNCONNECTED)
        static_cast<Pair*>(pair)->gone = true;
}

void SinkStreams::Pair::soundCame(void* pair)
{
    pw_stream_trigger_process(static_cast<Pair*>(pair)->output);
}

void SinkStreams::Pair::soundWanted(void* pair)
{
    auto* self = static_cast<Pair*>(pair);
    pw_buffer* in = pw_stream_dequeue_buffer(self->sink);
    pw_buffer* out = pw_stream_dequeue_buffer(self->output);
    if (hasSides(out))
        self->pass(hasSides(in) ? in->buffer->datas : nullptr, out->buffer->datas);
    if (in)
        pw_stream_queue_buffer(self->sink, in);
    if (out)
        pw_stream_queue_buffer(self->output, out);
}

void SinkStreams::Pair::pass(const spa_data* in, spa_data* out)
{
    std::size_t frames = in ? std::min(framesIn(in[0]), framesIn(in[1])) : 0;
    for (std::size_t i = 0; i < sides; ++i)
        frames = std::min<std::size_t>(frames, out[i].maxsize / sizeof(float));
    for (std::size_t i = 0; i < sides; ++i) {
        out[i].chunk->offset = 0;
        out[i].chunk->stride = sizeof(float);
        out[i].chunk->size = static_cast<std::uint32_t>(frames * sizeof(float));
    }
    if (frames == 0)
        return;
    const std::array<const float*, sides> inputs = {samplesOf(in[0]), samplesOf(in[1])};
    const std::array<float*, sides> outputs = {samplesOf(out[0]), samplesOf(out[1])};
    m_processor.process(inputs, outputs, frames);
}

SinkStreams::SinkStreams(pw_core* core, DesktopProcessor& processor, const QString& output)
    : m_pair(std::make_unique<Pair>(core, processor, output.toUtf8()))
{}

SinkStreams::~SinkStreams() = default;

std::optional<std::uint32_t> SinkStreams::sink() const { return Pair::idOf(m_pair->sink); }

std::optional<std::uint32_t> SinkStreams::output() const { return Pair::idOf(m_pair->output); }

bool SinkStreams::isRunning() const
{
    return pw_stream_get_state(m_pair->sink, nullptr) == PW_STREAM_STATE_STREAMING;
}

int SinkStreams::rate() const { return m_pair->rate; }

bool SinkStreams::isGone() const { return m_pair->gone; }
