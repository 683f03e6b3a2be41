// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/desktop/DesktopEqualizer.h"

#include <QDeadlineTimer>

namespace {

// What the audio thread does wakes nobody here.
constexpr std::chrono::milliseconds turn(5);

} // namespace

DesktopEqualizer::DesktopEqualizer(MixBus& bus, const DesktopTimes& times)
    : m_times(times)
    , m_processor(bus)
{
    connect(&m_connection, &PipeWireConnection::handled, this, &DesktopEqualizer::follow);
    m_retry.setInterval(m_times.retry);
    m_retry.callOnTimeout(this, &DesktopEqualizer::connectToServer);
    m_refresh.setSingleShot(true);
    m_refresh.setInterval(m_times.retry);
    m_refresh.callOnTimeout(this, &DesktopEqualizer::refresh);
    m_patience.setSingleShot(true);
    m_patience.setInterval(m_times.patience);
    m_patience.callOnTimeout(this, &DesktopEqualizer::reportMissingManager);
}

DesktopEqualizer::~DesktopEqualizer() { stop(); }

void DesktopEqualizer::start()
{
    m_stopping = false;
    m_processor.setAudible(true);
    connectToServer();
}

void DesktopEqualizer::connectToServer()
{
    if (!m_connection.open()) {
        m_retry.start();
        return report({tr("The desktop equalizer has no sound because PipeWire is not running. "
                          "Start it with \"systemctl --user start pipewire wireplumber\"; the "
                          "equalizer then plays by itself.")});
    }
    m_retry.stop();
    m_graph = std::make_unique<SoundGraph>(m_connection.graphCore());
    m_patience.start();
}

// Whatever PipeWire has told: the same questions after each time.
void DesktopEqualizer::follow()
{
    if (!m_graph || m_stopping)
        return;
    if (!m_connection.isOpen())
        return lose();
    m_graph->renewSinks();
    if (!m_graph->hasManager())
        return loseManager();
    m_patience.stop();
    m_reported.clear();
    if (m_isRefreshing && m_graph->isSynced())
        insist();
    enter();
    if (!m_refresh.isActive() && !m_isRefreshing && (m_graph->isDoubtful() || !isAsWanted()))
        m_refresh.start();
    showState();
}

// The server has gone, and all that was made there with it.
void DesktopEqualizer::lose()
{
    m_streams.reset();
    m_graph.reset();
    m_connection.close();
    m_patience.stop();
    m_isRefreshing = false;
    showState();
    m_retry.start();
}

void DesktopEqualizer::loseManager()
{
    m_isRefreshing = false;
    m_streams.reset();
    if (!m_patience.isActive() && m_reported.isEmpty())
        m_patience.start();
    showState();
}

// A session manager that has just started overlooks what comes before it is through with that.
void DesktopEqualizer::enter()
{
    if (!m_streams && !m_graph->isSettled())
        return;
    rememberChoice();
    if (m_streams && m_streams->isGone())
        m_streams.reset();
    if (!m_streams) {
        m_isDefault = false;
        m_streams =
            std::make_unique<SinkStreams>(m_connection.streamCore(), m_processor, *m_chosen);
    }
    const bool isThere = m_streams->sink() && m_streams->output();
    if (!isThere || m_isDefault || m_isRefreshing)
        return;
    m_isDefault = true;
    if (!m_chosen->isEmpty())
        m_graph->moveTo(*m_streams->output(), *m_chosen);
    m_graph->chooseSink(SinkStreams::sinkName);
}

bool DesktopEqualizer::isAsWanted() const
{
    return m_streams && m_graph->defaultSink() == SinkStreams::sinkName;
}

void DesktopEqualizer::refresh()
{
    if (!m_graph || !m_graph->hasManager())
        return;
    m_graph->refresh();
    m_isRefreshing = true;
}

// A session manager that has just started may miss what is chosen, and the same choice again is no
// news to it.
void DesktopEqualizer::insist()
{
    m_isRefreshing = false;
    if (!m_streams || isAsWanted() || m_graph->chosenSink() != SinkStreams::sinkName)
        return;
    m_isDefault = false;
    m_graph->chooseSink({});
}

// The equalizer itself is the choice where an earlier run did not end well: then what the session
// manager makes of that is taken for the user's.
void DesktopEqualizer::rememberChoice()
{
    const QString chosen = m_graph->chosenSink();
    const bool isOurs = chosen == SinkStreams::sinkName;
    if (!m_chosen)
        m_chosen = isOurs ? m_graph->defaultSink() : chosen;
    if (!m_isDefault || isOurs || chosen.isEmpty())
        return;
    m_chosen = chosen;
    m_isDefault = false;
}

void DesktopEqualizer::showState()
{
    const std::optional<std::uint32_t> node = m_streams ? m_streams->output() : std::nullopt;
    const SoundGraph::Sink output = node ? m_graph->sinkBehind(*node) : SoundGraph::Sink();
    if (!output.name.isEmpty())
        m_graph->keepSinks();
    const int rate = m_streams && m_streams->rate() > 0 ? m_streams->rate() : m_rate;
    if (output.name == m_output.name && rate == m_rate)
        return;
    m_output = output;
    m_rate = rate;
    Q_EMIT changed();
}

void DesktopEqualizer::report(const Error& error)
{
    if (m_reported == error.sentence)
        return;
    m_reported = error.sentence;
    Q_EMIT failed(error.sentence);
}

void DesktopEqualizer::reportMissingManager()
{
    report({tr("The desktop equalizer has no sound because PipeWire runs without a session "
               "manager. Start one with \"systemctl --user start wireplumber\"; the equalizer then "
               "plays by itself.")});
}

void DesktopEqualizer::stop()
{
    m_stopping = true;
    m_retry.stop();
    m_patience.stop();
    m_refresh.stop();
    m_isRefreshing = false;
    if (m_streams && m_connection.isOpen() && m_graph->hasManager())
        giveBack();
    m_chosen.reset();
    m_streams.reset();
    m_graph.reset();
    m_connection.close();
}

// Programs go back first; a sink that goes while they play to it would leave them to themselves for
// a moment. A choice that the user never made is taken back.
void DesktopEqualizer::giveBack()
{
    m_processor.setAudible(false);
    runUntil([this] { return m_processor.isFadedOut() || !m_streams->isRunning(); });
    const std::optional<std::uint32_t> output = m_streams->output();
    const std::optional<std::uint32_t> sink = m_streams->sink();
    const QString chosen = m_chosen.value_or(QString());
    const QString heir = !chosen.isEmpty() || !output ? chosen : m_graph->sinkBehind(*output).name;
    if (m_graph->chosenSink() != SinkStreams::sinkName)
        return;
    m_graph->chooseSink(heir);
    runUntil([&] { return m_graph->defaultSink() == heir; });
    runUntil([&] { return !sink || !m_graph->isPlayedTo(*sink); });
    m_graph->chooseSink(chosen);
    m_graph->sync();
    runUntil([this] { return m_graph->isSynced(); });
}

void DesktopEqualizer::runUntil(const std::function<bool()>& isDone)
{
    const QDeadlineTimer deadline(m_times.step);
    while (m_connection.isOpen() && !isDone() && !deadline.hasExpired())
        m_connection.run(turn);
}

#include "moc_DesktopEqualizer.cpp"
