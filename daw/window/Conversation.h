// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "daw/window/Message.h"

#include <cstddef>
#include <deque>
#include <functional>

/// One end of the line between a plug-in and the program that shows its editor: messages over a
/// socket that keeps packets apart. Never waits.
///
/// The other side is not trusted: what is not a packet of valid messages ends the conversation, and
/// so does a peer that lets more than \c maxWaiting messages pile up. Once it has ended, everything
/// is silently left undone.
class Conversation
{
public:
    static constexpr std::size_t maxWaiting = 1024;

    /// The two ends of a new line, close-on-exec; {-1, -1} where the system gives none.
    struct Ends
    {
        int plugin;
        int editor;
    };
    static Ends makeEnds();

    /// Ended.
    Conversation() = default;
    ~Conversation();
    Conversation(const Conversation&) = delete;
    Conversation& operator=(const Conversation&) = delete;

    /// Begins anew over \a socket, which it owns from now on.
    void begin(int socket);
    void end();

    bool isOpen() const { return m_socket >= 0; }
    /// To be waited on for what the peer says; -1 once the conversation has ended.
    int descriptor() const { return m_socket; }

    /// Sends \a message, or keeps it until flush() where the peer is not reading. Of what waits,
    /// only the newest value of a parameter and gesture, of a meter, rate or size is kept.
    void send(const Message& message);
    /// Sends what waits, as far as the peer reads.
    void flush();
    bool hasWaiting() const { return !m_waiting.empty(); }

    /// Hands every message that has come to \a handle, which may send and end.
    void receive(const std::function<void(const Message&)>& handle);

private:
    bool replaces(const Message& message);
    void handlePacket(const std::byte* bytes, std::size_t size,
                      const std::function<void(const Message&)>& handle);

    int m_socket = -1;
    std::deque<Message> m_waiting;
};
