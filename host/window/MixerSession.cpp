// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/MixerSession.h"

#include "host/window/EditorWindow.h"
#include "host/window/Mixer.h"
#include "host/window/MixerWindow.h"

#include <QEvent>
#include <QGuiApplication>

#include <algorithm>
#include <array>
#include <utility>

MixerSession::MixerSession(Mixer& mixer, Reporter reporter, int saveDelay)
    : m_mixer(mixer)
    , m_reporter(std::move(reporter))
    , m_timer(this)
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(saveDelay);
    connect(&m_timer, &QTimer::timeout, this, &MixerSession::save);
}

Status MixerSession::open(const QString& file)
{
    const Status opened = m_file.open(file, &m_data);
    restore();
    return opened;
}

Status MixerSession::read(const QString& file)
{
    Result<SessionData> data = SessionFile::read(file);
    if (data.isOk())
        m_data = std::move(data.value());
    restore();
    return data.status();
}

bool MixerSession::restoreWindows(MixerWindow& window)
{
    m_window = &window;
    connect(&window, &MixerWindow::ending, this, &MixerSession::end);
    connect(qGuiApp, &QGuiApplication::commitDataRequest, this, &MixerSession::save);
    connect(&m_mixer.mixerModel.history().stack(), &QUndoStack::indexChanged, this,
            &MixerSession::saveLater);
    connect(&m_mixer.mixerModel, &MixerModel::channelChanged, this, &MixerSession::saveLater);
    connect(&m_mixer.analyzer, &AnalyzerStore::changed, this, &MixerSession::saveLater);
    qGuiApp->installEventFilter(this);
    window.restoreGeometry(m_data.mixerGeometry);
    bool opened = false;
    for (const SessionData::Editor& editor : m_data.editors) {
        EditorWindow* shown = window.openEditor(editor.channel, editor.stereo);
        if (!shown)
            continue;
        shown->setScale(editor.scale);
        shown->setMeasured(editor.measured);
        shown->restoreGeometry(editor.geometry);
        shown->restoreState(editor.state);
        opened = true;
    }
    return opened;
}

bool MixerSession::save()
{
    const Status written = write();
    if (!written.isOk() && m_reporter)
        m_reporter(written.error());
    return written.isOk();
}

// The windows come second: whoever asks them may not return.
Status MixerSession::saveAtOnce()
{
    const Status saved = writeChannels();
    return saved.isOk() ? write() : saved;
}

bool MixerSession::eventFilter(QObject* watched, QEvent* event)
{
    static constexpr std::array types = {QEvent::Show, QEvent::Move, QEvent::Resize, QEvent::Close};
    const bool places = std::find(types.begin(), types.end(), event->type()) != types.end();
    if (!places || (watched != m_window && !qobject_cast<EditorWindow*>(watched)))
        return QObject::eventFilter(watched, event);
    if (event->type() == QEvent::Show)
        m_ended = false;
    if (!m_ended)
        saveLater();
    const bool refused = event->type() == QEvent::Close && staysOpen();
    event->setAccepted(!refused);
    return refused;
}

// A timer that is running is not started again: further changes would put saving off for ever.
void MixerSession::saveLater()
{
    if (!m_timer.isActive())
        m_timer.start();
}

Status MixerSession::write()
{
    collectWindows();
    return writeChannels();
}

// With what is known of the windows.
Status MixerSession::writeChannels()
{
    m_timer.stop();
    for (int ch = 0; ch < channelCount; ++ch)
        collect(ch);
    m_data.analyzer = m_mixer.analyzer.settings().toJson();
    const Status saved = m_file.save(m_data);
    m_saved = saved.isOk();
    return saved;
}

bool MixerSession::saveAtEnd()
{
    const Asker asker = m_asker; // may be replaced while it asks
    if (!asker)
        save();
    const Status written = asker ? write() : Status();
    return written.isOk() || asker(written.error());
}

// The program is ending, of which the last window already told where it was it that closed.
void MixerSession::end()
{
    if (m_ended)
        return;
    m_ended = saveAtEnd();
    m_staying = !m_ended;
}

// Whether a window that is about to close does not; the first refusal ends the closing of all.
bool MixerSession::staysOpen()
{
    if (std::exchange(m_staying, false))
        return true;
    const qsizetype open = m_window->editors().size() + (m_window->isVisible() ? 1 : 0);
    if (!m_ended && open <= 1)
        m_ended = saveAtEnd();
    return !m_ended && open <= 1;
}

void MixerSession::restore()
{
    const EditHistory::Pause pause(m_mixer.mixerModel.history());
    for (int ch = 0; ch < channelCount; ++ch)
        restore(ch);
    m_mixer.analyzer.setSettings(AnalyzerSettings::fromJson(m_data.analyzer));
    m_mixer.mixerModel.history().clear();
}

void MixerSession::restore(int channel)
{
    const SessionData::Channel& data = m_data.channels[static_cast<std::size_t>(channel)];
    m_mixer.mixerModel.setName(channel, data.name);
    for (std::size_t i = 0; i < stripParameterCount; ++i)
        m_mixer.memory.setStrip(channel, static_cast<StripParameter>(i), data.strip[i]);
    m_mixer.memory.write(channel, data.equalizer);
    m_mixer.mixerModel.compare().setState(channel, data.compare);
    if (!data.editor.isEmpty())
        m_mixer.settings.keep(channel, data.editor);
}

void MixerSession::collect(int channel)
{
    SessionData::Channel& data = m_data.channels[static_cast<std::size_t>(channel)];
    data.name = m_mixer.mixerModel.name(channel);
    for (std::size_t i = 0; i < stripParameterCount; ++i)
        data.strip[i] = m_mixer.memory.strip(channel, static_cast<StripParameter>(i));
    data.equalizer = m_mixer.memory.values(channel);
    data.compare = m_mixer.mixerModel.compare().state(channel);
    data.editor = m_mixer.settings.map(channel);
}

void MixerSession::collectWindows()
{
    if (!m_window)
        return;
    m_data.mixerGeometry = m_window->saveGeometry();
    m_data.editors.clear();
    for (EditorWindow* editor : m_window->editors()) {
        editor->session().saveMap();
        const EditorSettings& settings = editor->settings();
        m_data.editors.push_back({settings.channel, settings.stereo, settings.scale, false,
                                  editor->saveGeometry(), editor->saveState()});
    }
}

#include "moc_MixerSession.cpp"
