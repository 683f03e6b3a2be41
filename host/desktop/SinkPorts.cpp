// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/desktop/SinkPorts.h"

#include <array>

#include <spa/param/audio/format-utils.h>
#include <spa/pod/builder.h>
#include <spa/pod/parser.h>

SinkPorts::SinkPorts(pw_registry* registry, std::uint32_t sink)
    : m_proxy(static_cast<pw_proxy*>(
          pw_registry_bind(registry, sink, PW_TYPE_INTERFACE_Node, PW_VERSION_NODE, 0)))
{
    if (!m_proxy)
        return;
    m_events.version = PW_VERSION_NODE_EVENTS;
    m_events.param = &SinkPorts::told;
    auto* node = reinterpret_cast<pw_node*>(m_proxy);
    pw_node_add_listener(node, &m_hook, &m_events, this);
    pw_node_enum_params(node, 0, SPA_PARAM_PortConfig, 0, UINT32_MAX, nullptr);
}

SinkPorts::~SinkPorts()
{
    if (!m_proxy)
        return;
    spa_hook_remove(&m_hook);
    pw_proxy_destroy(m_proxy);
}

void SinkPorts::told(void* ports, int, std::uint32_t id, std::uint32_t, std::uint32_t,
                     const spa_pod* configuration)
{
    auto* self = static_cast<SinkPorts*>(ports);
    std::uint32_t direction = 0;
    std::uint32_t mode = 0;
    const spa_pod* format = nullptr;
    if (id != SPA_PARAM_PortConfig || self->m_isRenewed ||
        spa_pod_parse_object(configuration, SPA_TYPE_OBJECT_ParamPortConfig, nullptr,
                             SPA_PARAM_PORT_CONFIG_direction, SPA_POD_Id(&direction),
                             SPA_PARAM_PORT_CONFIG_mode, SPA_POD_Id(&mode),
                             SPA_PARAM_PORT_CONFIG_format, SPA_POD_OPT_Pod(&format)) < 0)
        return;
    if (direction == SPA_DIRECTION_INPUT && mode == SPA_PARAM_PORT_CONFIG_MODE_dsp && format)
        self->renew(format);
}

void SinkPorts::renew(const spa_pod* format)
{
    spa_audio_info_raw info{};
    if (spa_format_audio_raw_parse(format, &info) < 0)
        return;
    ++info.rate;
    std::array<std::uint8_t, 1024> bytes;
    spa_pod_builder builder{};
    builder.data = bytes.data();
    builder.size = bytes.size();
    spa_pod_frame frame;
    spa_pod_builder_push_object(&builder, &frame, SPA_TYPE_OBJECT_ParamPortConfig,
                                SPA_PARAM_PortConfig);
    spa_pod_builder_add(&builder, SPA_PARAM_PORT_CONFIG_direction, SPA_POD_Id(SPA_DIRECTION_INPUT),
                        SPA_PARAM_PORT_CONFIG_mode, SPA_POD_Id(SPA_PARAM_PORT_CONFIG_MODE_dsp),
                        SPA_PARAM_PORT_CONFIG_monitor, SPA_POD_Bool(true), nullptr);
    spa_pod_builder_prop(&builder, SPA_PARAM_PORT_CONFIG_format, 0);
    spa_format_audio_raw_build(&builder, SPA_PARAM_Format, &info);
    const auto* ports = static_cast<const spa_pod*>(spa_pod_builder_pop(&builder, &frame));
    const spa_command suspend = SPA_NODE_COMMAND_INIT(SPA_NODE_COMMAND_Suspend);
    auto* node = reinterpret_cast<pw_node*>(m_proxy);
    pw_node_send_command(node, &suspend);
    pw_node_set_param(node, SPA_PARAM_PortConfig, 0, ports);
    m_isRenewed = true;
}
