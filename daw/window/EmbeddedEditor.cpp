// SPDX-License-Identifier: GPL-3.0-or-later
#include "daw/window/EmbeddedEditor.h"

#include <algorithm>
#include <sys/epoll.h>
#include <unistd.h>

namespace {

constexpr char opening[] = "Opening the editor...";
constexpr char ended[] = "The editor has ended; the sound goes on. Click here to open it again.";
constexpr char missing[] =
    "The program zolta-editor was not found. Install the package zolta again, then click here.";
constexpr char failed[] = "The editor cannot be started. Click here to try again.";

Message valueMessage(std::size_t parameter, int value)
{
    return {MessageKind::Value, static_cast<std::uint16_t>(parameter), value};
}

} // namespace

EmbeddedEditor::EmbeddedEditor(EditorListener& listener, const Options& options)
    : m_listener(listener)
    , m_options(options)
    , m_window(options.parent, options.width, options.height)
    , m_poll(::epoll_create1(EPOLL_CLOEXEC))
{
    if (!isOpen())
        return;
    watch(m_window.descriptor());
    startProgram();
}

EmbeddedEditor::~EmbeddedEditor()
{
    m_conversation.end();
    endGestures();
    m_process.stop();
    ::close(m_poll);
}

void EmbeddedEditor::startProgram()
{
    const std::string program = m_options.findProgram();
    if (program.empty())
        return m_window.setText(missing);
    const auto [plugin, editor] = Conversation::makeEnds();
    const std::vector<std::string> arguments = {std::to_string(id()),
                                                m_options.stereo ? "stereo" : "mono"};
    const bool started = m_process.start(program, arguments, editor, m_options.pixelRatio);
    ::close(editor);
    m_conversation.begin(plugin);
    if (!started)
        m_conversation.end();
    m_window.setText(started ? opening : failed);
    watch(m_conversation.descriptor());
    sendEverything();
}

void EmbeddedEditor::sendEverything()
{
    sendSize();
    for (const auto& message : m_values)
        send(message);
    for (const auto& message : m_meters)
        send(message);
    send(m_sampleRate);
}

void EmbeddedEditor::resize(int width, int height)
{
    m_window.resize(width, height);
    sendSize();
}

void EmbeddedEditor::setValue(std::size_t parameter, int value)
{
    const Message message = valueMessage(parameter, value);
    if (m_values[parameter] == message)
        return;
    m_values[parameter] = message;
    m_conversation.send(message);
}

void EmbeddedEditor::setMeter(MeterPlace place, int tenths)
{
    const Message message{MessageKind::Meter, place, std::clamp(tenths, INT16_MIN, INT16_MAX)};
    if (m_meters[place] == message)
        return;
    m_meters[place] = message;
    m_conversation.send(message);
}

void EmbeddedEditor::setSampleRate(int hertz)
{
    const Message message{MessageKind::SampleRate, 0, hertz};
    if (!isValid(message) || m_sampleRate == message)
        return;
    m_sampleRate = message;
    m_conversation.send(message);
}

void EmbeddedEditor::sendSize()
{
    m_conversation.send({MessageKind::Size, static_cast<std::uint16_t>(width()), height()});
}

void EmbeddedEditor::send(const std::optional<Message>& message)
{
    if (message)
        m_conversation.send(*message);
}

void EmbeddedEditor::relay()
{
    const bool wasOpen = m_conversation.isOpen();
    m_conversation.flush();
    m_conversation.receive([this](const Message& message) { handle(message); });
    if (wasOpen && !m_conversation.isOpen())
        showEnd();
    const MessageWindow::Changes changes = m_window.handleEvents();
    if (changes.resized)
        sendSize();
    if (changes.clicked && !m_conversation.isOpen())
        startProgram();
}

// Messages that the editor's program never sends end the conversation.
void EmbeddedEditor::handle(const Message& message)
{
    const bool isExpected = [&] {
        switch (message.kind) {
        case MessageKind::Begin:
            return !m_held[message.index];
        case MessageKind::Value:
        case MessageKind::End:
            return bool(m_held[message.index]);
        case MessageKind::Ready:
            return true;
        default:
            return false;
        }
    }();
    isExpected ? apply(message) : m_conversation.end();
}

void EmbeddedEditor::apply(const Message& message)
{
    const std::size_t parameter = message.index;
    if (message.kind == MessageKind::Begin) {
        m_held.set(parameter);
        m_listener.beginEdit(parameter);
    } else if (message.kind == MessageKind::Value) {
        m_values[parameter] = message;
        m_listener.edit(parameter, message.value);
    } else if (message.kind == MessageKind::End) {
        m_held.reset(parameter);
        m_listener.endEdit(parameter);
    } else {
        m_window.setText(ended); // covered by the editor as long as it lives
    }
}

void EmbeddedEditor::showEnd()
{
    endGestures();
    m_process.stop();
    m_window.setText(ended);
}

void EmbeddedEditor::endGestures()
{
    for (std::size_t parameter = 0; parameter < parameterCount; ++parameter) {
        if (m_held[parameter])
            m_listener.endEdit(parameter);
    }
    m_held.reset();
}

void EmbeddedEditor::watch(int descriptor) const
{
    epoll_event event{};
    event.events = EPOLLIN;
    ::epoll_ctl(m_poll, EPOLL_CTL_ADD, descriptor, &event);
}
