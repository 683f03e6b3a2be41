// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "daw/window/Conversation.h"
#include "hosting/ChangeListener.h"
#include "hosting/GestureWatch.h"
#include "hosting/HostMemory.h"

#include <QObject>
#include <QSize>
#include <QSocketNotifier>
#include <QTimer>

#include <bitset>
#include <vector>

/// Carries values, gestures and meters between the memory that an editor works on and the plug-in
/// at the other end of the conversation.
///
/// What the user does on a parameter of channel 0 becomes a gesture: it begins with the first
/// change and ends with the user's movement. What the plug-in says meanwhile about a parameter
/// under a gesture is left out, and what it says at any time does not go back to it.
class EditorRelay : public QObject, private ChangeListener
{
    Q_OBJECT

public:
    /// Owns \a socket. \a memory must outlive it.
    EditorRelay(HostMemory& memory, int socket);
    ~EditorRelay() override;

    /// Tells the plug-in that the editor is shown.
    void reportReady();

Q_SIGNALS:
    void sizeChosen(QSize pixels);
    void sampleRateChanged(int hertz);
    /// The conversation has ended: so should the program.
    void ended();

private:
    void changed(unsigned short parameter, unsigned short ch, int before, int after) override;
    void receive();
    void handle(const Message& message);
    void setValue(std::size_t parameter, int value);
    void send(MessageKind kind, std::size_t parameter, int value = 0);
    void endGestures();
    void noticeEnd();

    HostMemory& m_memory;
    Conversation m_conversation;
    QSocketNotifier m_readable;
    GestureWatch m_gestures;
    QTimer m_gestureEnd;
    QTimer m_flush;
    std::bitset<parameterCount> m_held;
    quint64 m_gesture = 0;
    bool m_receiving = false;
    std::vector<int> m_meters;
    bool m_metersChanged = false;
};
