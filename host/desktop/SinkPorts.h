// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

#include <pipewire/pipewire.h>

/// Lets a sink make its ports anew, for a session manager that waits for that. WirePlumber asks
/// each sink for ports and waits until they change, in vain with a sink that has run already and
/// keeps its rate. The new ports are as the ones before, but for a rate that no sound has: so they
/// change now, for one that has asked, and again for one that is still to ask.
class SinkPorts
{
public:
    /// Of the node with the number \a sink; one that never had ports is left alone. \a registry
    /// must outlive it, and its connection must be handled.
    SinkPorts(pw_registry* registry, std::uint32_t sink);
    ~SinkPorts();
    SinkPorts(const SinkPorts&) = delete;
    SinkPorts& operator=(const SinkPorts&) = delete;

private:
    static void told(void* ports, int sequence, std::uint32_t id, std::uint32_t index,
                     std::uint32_t next, const spa_pod* configuration);
    void renew(const spa_pod* format);

    pw_proxy* m_proxy;
    bool m_isRenewed = false;
    pw_node_events m_events{};
    spa_hook m_hook{};
};
