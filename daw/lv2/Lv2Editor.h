// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "daw/lv2/Ports.h"
#include "daw/window/EmbeddedEditor.h"

#include <array>
#include <cstdint>
#include <functional>
#include <vector>

/// The editor of an LV2 plug-in: what the host says about ports goes to the editor as raw values,
/// and what the user does there goes to the host's ports. For the host's GUI thread.
class Lv2Editor final : private EditorListener
{
public:
    /// What the host offers.
    struct Host
    {
        std::function<void(std::uint32_t port, float value)> write;
        std::function<void(std::uint32_t port, bool held)> touch; ///< may do nothing
    };

    /// For the plug-in with 1 or 2 channels; \a options says where to show it.
    Lv2Editor(std::size_t channels, Host host, const EmbeddedEditor::Options& options);

    EmbeddedEditor& window() { return m_window; }
    /// The host's value of a port, or a reading. An index that no port has is ignored.
    void setPort(std::uint32_t index, float value);

private:
    void beginEdit(std::size_t parameter) override;
    void edit(std::size_t parameter, int value) override;
    void endEdit(std::size_t parameter) override;
    std::uint32_t portOf(std::size_t parameter) const;

    std::vector<Port> m_ports;
    Host m_host;
    EmbeddedEditor m_window;
};
