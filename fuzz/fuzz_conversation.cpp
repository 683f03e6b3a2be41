// SPDX-License-Identifier: GPL-3.0-or-later
// What the program of a workstation's editor says to its plug-in, and the other way round, over
// arbitrary bytes: packets of a length byte and as many bytes. What comes out is valid, goes
// through another line as it is, and whatever else came has ended the conversation.
#include "daw/window/Conversation.h"
#include "fuzz/Require.h"

#include <algorithm>
#include <array>
#include <sys/socket.h>
#include <unistd.h>
#include <vector>

namespace {

std::vector<Message> received(Conversation& conversation)
{
    std::vector<Message> messages;
    conversation.receive([&](const Message& message) { messages.push_back(message); });
    return messages;
}

void requireSameThroughAnotherLine(const Message& message)
{
    const auto [plugin, editor] = Conversation::makeEnds();
    Conversation near, far;
    near.begin(plugin);
    far.begin(editor);
    near.send(message);
    require(received(far) == std::vector{message});
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto [plugin, editor] = Conversation::makeEnds();
    Conversation conversation;
    conversation.begin(plugin);
    for (std::size_t at = 0; at < size && conversation.isOpen();) {
        const std::size_t length = std::min<std::size_t>(data[at], size - at - 1);
        require(::send(editor, data + at + 1, length, MSG_NOSIGNAL) == ssize_t(length));
        at += 1 + length;
        const std::vector<Message> messages = received(conversation);
        require(std::all_of(messages.begin(), messages.end(), isValid));
        require(conversation.isOpen() ==
                (length > 0 && messages.size() * sizeof(Message) == length));
        if (!messages.empty())
            requireSameThroughAnotherLine(messages.back());
    }
    ::close(editor);
    return 0;
}
