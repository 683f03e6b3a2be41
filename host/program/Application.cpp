// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/program/Application.h"

#include "host/desktop/DesktopEqualizer.h"
#include "host/meters/MixerMeters.h"
#include "host/program/EndingSignals.h"
#include "host/program/ExitGuard.h"
#include "host/program/OptionValue.h"
#include "host/program/WarningBox.h"
#include "host/window/EditorWindow.h"
#include "host/window/HostTheme.h"
#include "host/window/MixerSession.h"
#include "host/window/MixerWindow.h"
#include "host/window/WindowPlaces.h"
#include "hosting/OutputFile.h"
#include "parameters/ParameterText.h"

#include <QApplication>
#include <QBuffer>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>

#include <cerrno>
#include <cstdio>

namespace {

QByteArray listLine(std::size_t index, int value)
{
    const Parameter& parameter = parameterTable[index];
    const QByteArrayList fields = {
        parameter.name,
        QByteArray::number(parameterId(index)),
        QByteArray::number(parameter.minimum),
        QByteArray::number(parameter.maximum),
        QByteArray::number(parameter.defaultValue),
        QByteArray::number(value),
        QByteArray::fromStdString(formatParameter(parameter, value).value_or(""))};
    return fields.join('\t') + '\n';
}

Error noEditor(int channel)
{
    return {Application::tr("The plug-in has no editor for channel %1.").arg(channel)};
}

// Editors that come up later would cover them.
void bringMessagesToFront(QWidget& window)
{
    for (QMessageBox* box : window.findChildren<QMessageBox*>()) {
        box->raise();
        box->activateWindow();
        box->setFocus();
    }
}

// What can be done about it; the other button leaves everything as it is.
QPushButton* addAction(QMessageBox* box, const QString& action)
{
    box->setStandardButtons(QMessageBox::Cancel);
    box->setDefaultButton(QMessageBox::Cancel);
    box->setEscapeButton(QMessageBox::Cancel);
    return box->addButton(action, QMessageBox::YesRole);
}

void offerToFind(MixerWindow& window, MixerSession& session, const QString& file)
{
    QMessageBox* box = WarningBox::show(
        window, Application::tr("The session's sound file %1 is not there any more.").arg(file));
    if (!box)
        return;
    const auto* find = addAction(box, Application::tr("Find It..."));
    QObject::connect(find, &QPushButton::clicked, &session, [&window, &session] {
        const QString found = window.askForSound();
        if (!found.isEmpty())
            session.openSound(found);
    });
}

void offerToSaveAnyway(QMessageBox* box, MixerSession& session)
{
    const auto* save = addAction(box, Application::tr("Save Anyway"));
    QObject::connect(save, &QPushButton::clicked, &session, &MixerSession::saveAnyway);
}

} // namespace

Application::Application(CommandLine commandLine, const QString& programFolder)
    : m_commandLine(std::move(commandLine))
    , m_programFolder(programFolder)
{}

int Application::run()
{
    m_mixer.language.choose(m_commandLine.language);
    const QString file = m_commandLine.plugin.isEmpty() ? EditorLibrary::fileBeside(m_programFolder)
                                                        : m_commandLine.plugin;
    const Status loaded = m_mixer.library.load(file);
    if (!loaded.isOk())
        return exitCodeOf(loaded);
    applyHostTheme();
    m_mixer.meters.setEnabled(m_commandLine.showsMeters());
    if (m_commandLine.headless())
        return exitCodeOf(runHeadless());
    return m_commandLine.desktop ? runDesktop() : runWindows();
}

Status Application::runHeadless()
{
    MixerSession mixerSession(m_mixer);
    if (!m_commandLine.session.isEmpty()) {
        const Status read = mixerSession.read(m_commandLine.session);
        if (!read.isOk())
            return read;
    }
    const Status chosen = chooseChannel();
    if (!chosen.isOk())
        return chosen;
    QWidget stage;
    stage.setAttribute(Qt::WA_DontShowOnScreen);
    const EditorSettings& settings = m_commandLine.editor;
    const auto session = EditorSession::open(m_mixer, settings, &stage);
    if (!session)
        return noEditor(settings.channel);
    stage.show();
    return runCommands(*session);
}

Status Application::runCommands(EditorSession& session)
{
    Status status = applyArguments(session);
    if (status.isOk())
        playMeters();
    if (status.isOk() && m_commandLine.list)
        status = printList();
    if (status.isOk() && !m_commandLine.saveState.isEmpty())
        status = session.saveState(m_commandLine.saveState);
    if (status.isOk() && !m_commandLine.screenshot.isEmpty())
        status = saveScreenshot(session);
    return status;
}

int Application::runWindows()
{
    const EndingSignals endingSignals;
    const Status opened = openAudio();
    if (!opened.isOk())
        return exitCodeOf(opened);
    MixerWindow mixerWindow(m_mixer, m_commandLine.editor);
    const auto report = [&](const QString& text) { WarningBox::show(mixerWindow, text); };
    m_mixer.settings.setReporter(report);
    MixerSession session(m_mixer, report);
    session.setAsker(
        [&](const QString& text) { return WarningBox::endsUnsaved(mixerWindow, text); });
    const Status settings = m_mixer.settings.open(SettingsFile::standardFile());
    const Status restored = session.open(sessionFile());
    const Status chosen = chooseChannel();
    if (!chosen.isOk())
        return exitCodeOf(chosen);
    mixerWindow.show();
    WarningBox::show(mixerWindow, settings);
    QMessageBox* box = WarningBox::show(mixerWindow, restored);
    if (box && session.isTaken())
        offerToSaveAnyway(box, session);
    session.restoreWindows(mixerWindow);
    const bool opensEditor = session.isNew() || m_commandLine.wantsEditor;
    const Status editor = opensEditor ? openEditor(mixerWindow) : Status();
    if (!editor.isOk())
        return exitCodeOf(editor);
    if (session.isNew())
        placeWindows(mixerWindow);
    m_mixer.mixerModel.history().clear();
    connectAudio(mixerWindow);
    QObject::connect(&session, &MixerSession::soundMissing, &mixerWindow,
                     [&](const QString& file) { offerToFind(mixerWindow, session, file); });
    if (!m_commandLine.plays())
        session.restoreSound();
    bringMessagesToFront(mixerWindow);
    return loop(mixerWindow, session, endingSignals);
}

// The mixer's window stays hidden; its first pair is what the desktop's sound goes through.
int Application::runDesktop()
{
    const EndingSignals endingSignals;
    MixerWindow mixerWindow(m_mixer, m_commandLine.editor);
    MixerSession session(m_mixer,
                         [&](const QString& text) { WarningBox::show(mixerWindow, text); });
    session.setAsker(
        [&](const QString& text) { return WarningBox::endsUnsaved(mixerWindow, text); });
    const Status restored = session.open(SessionFile::desktopFile());
    if (session.isTaken())
        return exitCodeOf(Error{Application::tr("The desktop equalizer is already running.")});
    session.restoreWindows(mixerWindow);
    chooseDesktopStrip();
    const Status opened = openEditor(mixerWindow);
    if (!opened.isOk())
        return exitCodeOf(opened);
    m_mixer.mixerModel.history().clear();
    EditorWindow& editor = *mixerWindow.editors().constFirst();
    WarningBox::show(editor, restored);
    DesktopEqualizer equalizer(m_bus);
    connectDesktop(equalizer, editor);
    return loop(mixerWindow, session, endingSignals, [&equalizer] { equalizer.stop(); });
}

// Whatever a mixer's session says of its strips, there is nothing here to see it by.
void Application::chooseDesktopStrip()
{
    const EditHistory::Pause pause(m_mixer.mixerModel.history());
    for (int channel = 0; channel < maxChannelCount; ++channel) {
        for (std::size_t i = 0; i < stripParameterCount; ++i)
            m_mixer.memory.setStrip(channel, StripParameter(i), stripTable[i].defaultValue);
        m_mixer.mixerModel.setName(channel, QString());
    }
    m_mixer.memory.setStrip(0, StripParameter::Source, SourceInput1);
}

void Application::connectDesktop(DesktopEqualizer& equalizer, EditorWindow& editor)
{
    editor.follow(equalizer);
    QObject::connect(&equalizer, &DesktopEqualizer::failed, &editor,
                     [&editor](const QString& text) { WarningBox::show(editor, text); });
    m_mixer.meters.setProducer(std::make_unique<MixerMeters>(m_mixer.mixerModel, m_bus.engine()));
    m_publisher.publish();
    equalizer.start();
}

// Until the windows are closed, a signal arrives, or the display is gone.
int Application::loop(MixerWindow& mixerWindow, MixerSession& session,
                      const EndingSignals& endingSignals, const std::function<void()>& lastWork)
{
    QObject::connect(&endingSignals, &EndingSignals::arrived, &mixerWindow, [&] {
        session.setAsker({}); // nobody might be there any more
        mixerWindow.quit();
        QApplication::exit(ExitDone);
    });
    const ExitGuard guard([&] {
        m_mixer.settings.setReporter(&printError); // nothing can be shown any more
        exitCodeOf(session.saveAtOnce());
        lastWork();
    });
    const int code = QApplication::exec();
    lastWork();
    return session.isSaved() ? code : ExitError;
}

// An editor is for a strip of the mixer: a channel alone, or the pair that its first channel rules.
Status Application::chooseChannel()
{
    if (m_commandLine.channels > 0)
        m_mixer.mixerModel.setChannelCount(m_commandLine.channels);
    const Status exists =
        OptionValue::checkChannel(m_commandLine, m_mixer.mixerModel.channelCount());
    if (!exists.isOk())
        return exists;
    EditorSettings& editor = m_commandLine.editor;
    if (!editor.stereo)
        m_mixer.memory.setStrip(editor.channel & ~1, StripParameter::Stereo, 0);
    editor.stereo = m_mixer.mixerModel.isPair(editor.channel);
    editor.channel = m_mixer.mixerModel.leaderOf(editor.channel);
    return Status();
}

void Application::placeWindows(MixerWindow& mixerWindow)
{
    for (EditorWindow* editor : mixerWindow.editors())
        placeSideBySide(mixerWindow, *editor, mixerWindow.screen()->availableGeometry());
}

Status Application::openEditor(MixerWindow& mixerWindow)
{
    const EditorSettings& settings = m_commandLine.editor;
    EditorWindow* editor = mixerWindow.openEditor(settings.channel, settings.stereo);
    if (!editor)
        return noEditor(settings.channel);
    return applyArguments(editor->session());
}

// The editor draws the curve for the rate that is heard, unless it was given another one.
Status Application::openAudio()
{
    if (!m_commandLine.plays())
        return Status();
    const CommandLine::Audio& audio = m_commandLine.audio;
    m_audio.setDevice(audio.device);
    m_audio.setLooping(audio.loop);
    if (!audio.file.isEmpty()) {
        const Status opened = m_audio.openFile(audio.file);
        if (!opened.isOk())
            return opened;
    }
    const int rate = m_audio.expectedRate();
    if (!m_commandLine.sampleRateGiven && rate > 0)
        m_commandLine.editor.sampleRate = rate;
    return Status();
}

// Without a device everything but the sound works on.
void Application::connectAudio(MixerWindow& mixerWindow)
{
    QObject::connect(&m_audio, &AudioSession::failed, &mixerWindow,
                     [&mixerWindow](const QString& text) { WarningBox::show(mixerWindow, text); });
    QObject::connect(&m_audio, &AudioSession::starting, &m_publisher, &SettingsPublisher::publish);
    m_mixer.mixerModel.setTransport(&m_audio);
    m_mixer.meters.setProducer(std::make_unique<MixerMeters>(m_mixer.mixerModel, m_bus.engine()));
    if (!m_commandLine.plays())
        return;
    m_mixer.mixerModel.feed(m_commandLine.editor.channel, m_commandLine.audio.device.live);
    static_cast<void>(m_audio.play()); // failed() says what goes wrong
}

QString Application::sessionFile() const
{
    return m_commandLine.session.isEmpty() ? MixerSession::lastFile(m_mixer.settings)
                                           : m_commandLine.session;
}

// A run without windows ends before the timer's first tick: its picture shows one second later.
void Application::playMeters()
{
    constexpr int ticks = 30;
    for (int i = 0; i < ticks; ++i)
        m_mixer.meters.advance(1.0 / ticks);
}

Status Application::applyArguments(EditorSession& session)
{
    if (!m_commandLine.state.isEmpty()) {
        const Status loaded = session.loadState(m_commandLine.state);
        if (!loaded.isOk())
            return loaded;
    }
    const auto channel = static_cast<unsigned short>(m_commandLine.editor.channel);
    for (const CommandLine::Setting& setting : m_commandLine.settings)
        m_mixer.memory.setValue(parameterId(setting.parameter), channel, setting.value, 0, 0, 1);
    return Status();
}

Status Application::printList() const
{
    const HostMemory::Values& values = m_mixer.memory.values(m_commandLine.editor.channel);
    QByteArray lines;
    for (std::size_t i = 0; i < parameterCount; ++i)
        lines += listLine(i, values[i]);
    const auto size = static_cast<std::size_t>(lines.size());
    if (std::fwrite(lines.constData(), 1, size, stdout) == size && std::fflush(stdout) == 0)
        return Status();
    return Error{Application::tr("The list cannot be printed: %1.").arg(qt_error_string(errno))};
}

Status Application::saveScreenshot(const EditorSession& session) const
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    session.picture().save(&buffer, "PNG");
    return writeFile(m_commandLine.screenshot, buffer.data());
}
