// SPDX-License-Identifier: GPL-3.0-or-later
#include "daw/window/Conversation.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr std::size_t maxPacket = 64; // messages
constexpr int maxPacketsAtOnce = 64;  // so that a chatty peer does not hold up the caller

bool isGesture(MessageKind kind) { return kind == MessageKind::Begin || kind == MessageKind::End; }

// A window has one size, whatever its numbers.
bool isSameThing(const Message& a, const Message& b)
{
    return a.kind == b.kind && (a.kind == MessageKind::Size || a.index == b.index);
}

} // namespace

Conversation::Ends Conversation::makeEnds()
{
    int ends[2];
    if (::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends) != 0)
        return {-1, -1};
    return {ends[0], ends[1]};
}

Conversation::~Conversation() { end(); }

void Conversation::begin(int socket)
{
    end();
    m_socket = socket;
}

void Conversation::end()
{
    if (isOpen())
        ::close(m_socket);
    m_socket = -1;
    m_waiting.clear();
}

void Conversation::send(const Message& message)
{
    if (!isOpen())
        return;
    if (!replaces(message))
        m_waiting.push_back(message);
    if (m_waiting.size() > maxWaiting)
        end();
    flush();
}

// A value must stay between the beginning and the end of its gesture.
bool Conversation::replaces(const Message& message)
{
    if (isGesture(message.kind))
        return false;
    const auto found = std::find_if(m_waiting.rbegin(), m_waiting.rend(), [&](const Message& m) {
        return isSameThing(m, message) || (isGesture(m.kind) && m.index == message.index);
    });
    if (found == m_waiting.rend() || isGesture(found->kind))
        return false;
    *found = message;
    return true;
}

void Conversation::flush()
{
    while (isOpen() && hasWaiting()) {
        std::array<Message, maxPacket> packet;
        const std::size_t count = std::min(m_waiting.size(), packet.size());
        std::copy_n(m_waiting.begin(), count, packet.begin());
        if (::send(m_socket, packet.data(), count * sizeof(Message), MSG_DONTWAIT | MSG_NOSIGNAL) <
            0) {
            if (errno == EINTR)
                continue;
            return errno == EAGAIN ? void() : end();
        }
        m_waiting.erase(m_waiting.begin(), m_waiting.begin() + static_cast<std::ptrdiff_t>(count));
    }
}

void Conversation::receive(const std::function<void(const Message&)>& handle)
{
    std::array<std::byte, maxPacket * sizeof(Message)> packet;
    for (int i = 0; i < maxPacketsAtOnce && isOpen(); ++i) {
        const ssize_t size =
            ::recv(m_socket, packet.data(), packet.size(), MSG_DONTWAIT | MSG_TRUNC);
        if (size < 0 && errno == EINTR)
            continue;
        if (size < 0 && errno == EAGAIN)
            return;
        if (size <= 0 || static_cast<std::size_t>(size) > packet.size())
            return end();
        handlePacket(packet.data(), static_cast<std::size_t>(size), handle);
    }
}

void Conversation::handlePacket(const std::byte* bytes, std::size_t size,
                                const std::function<void(const Message&)>& handle)
{
    if (size % sizeof(Message) != 0)
        return end();
    for (std::size_t at = 0; at < size && isOpen(); at += sizeof(Message)) {
        Message message;
        std::memcpy(&message, bytes + at, sizeof message);
        if (!isValid(message))
            return end();
        handle(message);
    }
}
