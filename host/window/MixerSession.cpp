// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/MixerSession.h"

#include "host/audio/AudioSession.h"
#include "host/files/PresetFolder.h"
#include "host/files/PresetValues.h"
#include "host/window/EditorWindow.h"
#include "host/window/Mixer.h"
#include "host/window/MixerWindow.h"

#include <QEvent>
#include <QFileInfo>
#include <QGuiApplication>

#include <algorithm>
#include <array>
#include <utility>

namespace {

const QString lastFileName = QStringLiteral("lastSession");

} // namespace

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
    const Status opened = m_file->open(file, &m_data);
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
    connect(&m_mixer.mixerModel.presets(), &ChannelPresets::changed, this,
            &MixerSession::saveLater);
    connect(&m_mixer.analyzer, &AnalyzerStore::changed, this, &MixerSession::saveLater);
    qGuiApp->installEventFilter(this);
    connectMenu();
    return showWindows();
}

bool MixerSession::showWindows()
{
    const bool hasName = m_file->file() != SessionFile::standardFile();
    m_window->setSessionName(hasName ? QFileInfo(m_file->file()).completeBaseName() : QString());
    m_window->restoreGeometry(m_data.mixerGeometry);
    bool opened = false;
    for (const SessionData::Editor& editor : m_data.editors) {
        EditorWindow* shown = m_window->openEditor(editor.channel, editor.stereo);
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

void MixerSession::connectMenu()
{
    const auto act = [this](Status (MixerSession::*action)(const QString&)) {
        return [this, action](const QString& file) {
            const Status done = (this->*action)(file);
            if (!done.isOk() && m_reporter)
                m_reporter(done.error());
        };
    };
    connect(m_window, &MixerWindow::openSessionWanted, this, act(&MixerSession::change));
    connect(m_window, &MixerWindow::newSessionWanted, this, act(&MixerSession::begin));
    connect(m_window, &MixerWindow::saveSessionWanted, this, act(&MixerSession::saveAs));
}

// A damaged file stays what it is: nobody said that it should become a session.
Status MixerSession::change(const QString& file)
{
    const Status saved = write();
    if (!saved.isOk() || m_file->isSavedIn(file))
        return saved;
    const Status sound = SessionFile::read(file).status();
    if (!sound.isOk())
        return sound;
    SessionData data;
    auto next = std::make_unique<SessionFile>();
    const Status opened = next->open(file, &data);
    if (!opened.isOk())
        return opened;
    m_file = std::move(next);
    m_data = data;
    return moved();
}

Status MixerSession::begin(const QString& file)
{
    const Status saved = write();
    const Status kept = saved.isOk() ? keepIn(file) : saved;
    if (!kept.isOk())
        return kept;
    m_data = SessionData();
    return moved();
}

Status MixerSession::saveAs(const QString& file)
{
    const Status kept = keepIn(file);
    if (!kept.isOk())
        return kept;
    m_mixer.settings.setPreference(lastFileName, QFileInfo(file).absoluteFilePath());
    m_window->setSessionName(QFileInfo(file).completeBaseName());
    return kept;
}

// Where the file cannot be written, the session stays where it was.
Status MixerSession::keepIn(const QString& file)
{
    const QString before = m_file->file();
    const Status taken = m_file->moveTo(file);
    const Status written = taken.isOk() ? write() : taken;
    if (!written.isOk() && taken.isOk() && !before.isEmpty())
        static_cast<void>(m_file->moveTo(before)); // it was ours
    return written;
}

Status MixerSession::moved()
{
    m_mixer.settings.setPreference(lastFileName, QFileInfo(m_file->file()).absoluteFilePath());
    m_window->closeEditors();
    restore();
    showWindows();
    restoreSound();
    return write();
}

QString MixerSession::lastFile(const SettingsFile& settings)
{
    const QString last = settings.preference(lastFileName).toString();
    return QFileInfo::exists(last) ? last : SessionFile::standardFile();
}

void MixerSession::restoreSound()
{
    AudioSession* transport = m_mixer.mixerModel.transport();
    if (!transport)
        return;
    connect(transport, &AudioSession::changed, this, &MixerSession::saveLater,
            Qt::UniqueConnection);
    if (m_data.audio.file.isEmpty())
        return;
    if (QFileInfo::exists(m_data.audio.file))
        openSound(m_data.audio.file);
    else
        Q_EMIT soundMissing(m_data.audio.file);
}

void MixerSession::openSound(const QString& file)
{
    const SessionData::Audio before = m_data.audio;
    AudioSession* transport = m_mixer.mixerModel.transport();
    if (!transport->openFile(file).isOk())
        return; // failed() says what goes wrong
    transport->setPosition(before.position);
    transport->setLooping(before.loop);
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
    m_data.channelCount = m_mixer.mixerModel.channelCount();
    for (int ch = 0; ch < m_data.channelCount; ++ch)
        collect(ch);
    collectSound();
    for (std::size_t i = 0; i < masterParameterCount; ++i)
        m_data.master[i] = m_mixer.memory.master(static_cast<MasterParameter>(i));
    m_data.analyzer = m_mixer.analyzer.settings().toJson();
    const Status saved = m_file->save(m_data);
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
    for (int ch = 0; ch < maxChannelCount; ++ch)
        restore(ch);
    m_mixer.mixerModel.setChannelCount(m_data.channelCount);
    for (std::size_t i = 0; i < masterParameterCount; ++i)
        m_mixer.memory.setMaster(static_cast<MasterParameter>(i), m_data.master[i]);
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
    restorePreset(channel);
    if (!data.editor.isEmpty())
        m_mixer.settings.keep(channel, data.editor);
}

// A preset that has been deleted meanwhile is forgotten, as if it were deleted now.
void MixerSession::restorePreset(int channel)
{
    const auto& preset = m_data.channels[static_cast<std::size_t>(channel)].preset;
    const PresetFolder folder(PresetFolder::standardFolder());
    const auto values = preset ? presetValues(*preset, folder) : std::nullopt;
    if (values)
        m_mixer.mixerModel.presets().adopt(channel, *preset, *values);
    else
        m_mixer.mixerModel.presets().clear(channel);
}

void MixerSession::collect(int channel)
{
    SessionData::Channel& data = m_data.channels[static_cast<std::size_t>(channel)];
    data.name = m_mixer.mixerModel.name(channel);
    for (std::size_t i = 0; i < stripParameterCount; ++i)
        data.strip[i] = m_mixer.memory.strip(channel, static_cast<StripParameter>(i));
    data.equalizer = m_mixer.memory.values(channel);
    data.compare = m_mixer.mixerModel.compare().state(channel);
    data.preset = m_mixer.mixerModel.presets().preset(channel);
    data.editor = m_mixer.settings.map(channel);
}

// What has gone is remembered until there is another file.
void MixerSession::collectSound()
{
    const AudioSession* transport = m_mixer.mixerModel.transport();
    if (!transport || transport->file().isEmpty())
        return;
    m_data.audio.file = QFileInfo(transport->file()).absoluteFilePath();
    m_data.audio.position = transport->position();
    m_data.audio.loop = transport->isLooping();
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
