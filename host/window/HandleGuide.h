// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>
#include <QObject>

class HostMemory;
class QAccessibleInterface;

/// What the mixer adds to the handles of an editor's curve: a hand and a ring show which one a
/// press would take, a bubble says what its band is set to while the pointer is there or drags it,
/// and a handle that was clicked keeps the keyboard, so that arrow keys go on from there.
///
/// The graph's class belongs to the library: its handles are the children of its accessible
/// interface, in the order of the bands.
class HandleGuide : public QObject
{
    Q_OBJECT

public:
    /// For \a graph, which owns this and shows \a channel of \a memory.
    HandleGuide(const HostMemory& memory, int channel, QWidget* graph);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QAccessibleInterface* handle(int band) const;
    int bandAt(QPoint position) const;
    void pointAt(int band);
    void press(int band);
    void release();
    void refresh();
    QString text() const;
    QPoint bubblePlace() const;

    const HostMemory& m_memory;
    int m_channel;
    QWidget* m_graph;
    QWidget* m_ring;
    QLabel* m_bubble; // a window of its own
    int m_band = -1;  // under the pointer, or held
    bool m_isHeld = false;
};
