// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Memory.h"

#include <QWidget>

#include <memory>

namespace Ui {
class Panel;
}

/// The form over one memory. The meters show what a steady tone is turned into by gain and level.
class Panel : public QWidget
{
public:
    /// \a memory must outlive it.
    explicit Panel(Memory& memory, QWidget* parent = nullptr);
    ~Panel() override;

    /// The level of the tone in tenths of a dB.
    void setTone(int tenths);

private:
    void bindControls();
    void showMeters();

    Memory& m_memory;
    std::unique_ptr<Ui::Panel> m_ui;
    int m_tone = -1270;
};
