// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayList>
#include <QImage>
#include <QStringList>
#include <QWidget>

/// A workstation's window in the corner of an X display, for a plug-in's editor to be in.
class HostWindow : public QWidget
{
public:
    /// What a plug-in's window shows where no editor covers it.
    static constexpr QColor ground{0x1e, 0x1e, 0x1e};

    void open(int width, int height);
    std::uint32_t id() const { return static_cast<std::uint32_t>(winId()); }
    /// What the display shows where the window is.
    QImage picture() const;
    /// Whether an editor is painted.
    bool isCovered() const;
};

/// Waits until the picture of \a window rests.
void settle(const HostWindow& window);

/// The X server's own pointer and keyboard; fails the test if it cannot be moved.
void xdotool(const QByteArrayList& arguments);

/// The processes that this one, or the one of the number \a parent, started and that still run
/// \a program.
QStringList childrenRunning(const char* program, qint64 parent = 0);
