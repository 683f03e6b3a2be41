// SPDX-License-Identifier: GPL-3.0-or-later
#include "daw/editor/EditorRelay.h"

#include "hosting/HostModel.h"
#include "parameters/ParameterTable.h"

#include <QScopedValueRollback>

#include <array>

namespace {

constexpr int gestureInterval = 20; // ms between looks at whether a gesture is over
constexpr int flushInterval = 10;   // ms until a plug-in that did not read is tried again
constexpr int silence = -1270;      // tenths of a dB

// The words of the meters as HostModel lays them out: two of each channel, which are alike.
constexpr std::array<std::size_t, MeterPlaceCount> meterWords = {
    HostModel::sendMeter, HostModel::sendMeter + 2, HostModel::returnMeter,
    HostModel::returnMeter + 2};

} // namespace

EditorRelay::EditorRelay(HostMemory& memory, int socket)
    : m_memory(memory)
    , m_readable(socket, QSocketNotifier::Read)
    , m_meters(HostModel::meterWordCount, silence)
{
    m_conversation.begin(socket);
    m_gestureEnd.setInterval(gestureInterval);
    m_flush.setInterval(flushInterval);
    connect(&m_readable, &QSocketNotifier::activated, this, &EditorRelay::receive);
    connect(&m_gestureEnd, &QTimer::timeout, this, [this] {
        if (m_gestures.kind() == GestureWatch::None || m_gestures.number() != m_gesture)
            endGestures();
    });
    connect(&m_flush, &QTimer::timeout, this, [this] {
        m_conversation.flush();
        if (!m_conversation.hasWaiting())
            m_flush.stop();
        noticeEnd();
    });
    m_memory.addChangeListener(this);
}

EditorRelay::~EditorRelay() { m_memory.removeChangeListener(this); }

void EditorRelay::reportReady() { send(MessageKind::Ready, 0); }

void EditorRelay::changed(unsigned short id, unsigned short ch, int, int after)
{
    const std::size_t parameter = findParameterById(id);
    if (m_receiving || ch != 0 || parameter == parameterCount)
        return;
    if (m_gestures.number() != m_gesture)
        endGestures();
    m_gesture = m_gestures.number();
    if (!m_held[parameter])
        send(MessageKind::Begin, parameter);
    m_held.set(parameter);
    send(MessageKind::Value, parameter, after);
    m_gestureEnd.start();
}

void EditorRelay::endGestures()
{
    m_gestureEnd.stop();
    for (std::size_t parameter = 0; parameter < parameterCount; ++parameter) {
        if (m_held[parameter])
            send(MessageKind::End, parameter);
    }
    m_held.reset();
}

void EditorRelay::send(MessageKind kind, std::size_t parameter, int value)
{
    m_conversation.send({kind, static_cast<std::uint16_t>(parameter), value});
    if (m_conversation.hasWaiting())
        m_flush.start();
    noticeEnd();
}

void EditorRelay::receive()
{
    m_metersChanged = false;
    m_conversation.receive([this](const Message& message) { handle(message); });
    if (m_metersChanged)
        m_memory.meters().notify(m_meters);
    noticeEnd();
}

void EditorRelay::noticeEnd()
{
    if (m_conversation.isOpen() || !m_readable.isEnabled())
        return;
    m_readable.setEnabled(false);
    Q_EMIT ended();
}

void EditorRelay::handle(const Message& message)
{
    switch (message.kind) {
    case MessageKind::Value:
        return setValue(message.index, message.value);
    case MessageKind::Meter: {
        const std::size_t word = meterWords[message.index];
        m_meters[word] = m_meters[word + 1] = message.value;
        m_metersChanged = true;
        return;
    }
    case MessageKind::SampleRate:
        return Q_EMIT sampleRateChanged(message.value);
    case MessageKind::Size:
        return Q_EMIT sizeChosen({message.index, message.value});
    case MessageKind::Begin:
    case MessageKind::End:
    case MessageKind::Ready:
        return m_conversation.end();
    }
}

void EditorRelay::setValue(std::size_t parameter, int value)
{
    if (m_held[parameter])
        return;
    const QScopedValueRollback receiving(m_receiving, true);
    m_memory.setValue(parameterId(parameter), 0, value, 0, 0, 1);
}

#include "moc_EditorRelay.cpp"
