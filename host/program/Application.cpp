// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/program/Application.h"

#include "host/meters/MixerMeters.h"
#include "host/program/QuitSignals.h"
#include "host/window/EditorWindow.h"
#include "host/window/HostTheme.h"
#include "host/window/MixerSession.h"
#include "host/window/MixerWindow.h"
#include "hosting/OutputFile.h"
#include "parameters/ParameterText.h"

#include <QApplication>
#include <QBuffer>
#include <QMessageBox>
#include <QPushButton>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

namespace {

// The result of a step that says what went wrong: the exit code, after the complaint.
int finished(const QString& error)
{
    if (error.isEmpty())
        return ExitDone;
    printError(error);
    return ExitError;
}

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

QString noEditor(int channel)
{
    return QStringLiteral("The plug-in makes no editor for channel %1.").arg(channel);
}

bool isShown(const QWidget& window, const QString& sentence)
{
    const QList<QMessageBox*> boxes = window.findChildren<QMessageBox*>();
    return std::any_of(boxes.begin(), boxes.end(), [&sentence](const QMessageBox* box) {
        return box->isVisible() && box->text() == sentence;
    });
}

// Programs that a desktop starts have no standard error stream that anybody reads.
void warn(QWidget& window, const QString& sentence)
{
    if (sentence.isEmpty())
        return;
    printError(sentence);
    if (isShown(window, sentence))
        return;
    auto* box = new QMessageBox(QMessageBox::Warning, window.windowTitle(), sentence,
                                QMessageBox::Ok, &window);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setModal(false);
    box->show();
}

bool endsUnsaved(QWidget& window, const QString& error)
{
    printError(error);
    QMessageBox box(QMessageBox::Warning, window.windowTitle(), error, QMessageBox::Cancel,
                    &window);
    const auto* quit =
        box.addButton(QCoreApplication::translate("Application", "Quit Without Saving"),
                      QMessageBox::DestructiveRole);
    box.exec();
    return box.clickedButton() == quit;
}

} // namespace

void printError(const QString& sentence)
{
    std::fprintf(stderr, "zolta-host: %s\n", sentence.toLocal8Bit().constData());
}

Application::Application(CommandLine commandLine, const QString& programFolder)
    : m_commandLine(std::move(commandLine))
    , m_programFolder(programFolder)
{}

int Application::run()
{
    const QString file = m_commandLine.plugin.isEmpty() ? EditorLibrary::fileBeside(m_programFolder)
                                                        : m_commandLine.plugin;
    if (const Status loaded = m_mixer.library.load(file); !loaded.isOk())
        return finished(loaded.error());
    applyHostTheme();
    m_mixer.language.choose(m_commandLine.language);
    m_mixer.meters.setEnabled(m_commandLine.showsMeters());
    return m_commandLine.headless() ? runHeadless() : runWindows();
}

int Application::runHeadless()
{
    MixerSession mixerSession(m_mixer);
    if (!m_commandLine.session.isEmpty()) {
        const QString damage = mixerSession.read(m_commandLine.session);
        if (!damage.isEmpty())
            return finished(damage);
    }
    chooseChannel();
    QWidget stage;
    stage.setAttribute(Qt::WA_DontShowOnScreen);
    const EditorSettings& settings = m_commandLine.editor;
    const auto session = EditorSession::open(m_mixer, settings, &stage);
    if (!session)
        return finished(noEditor(settings.channel));
    stage.show();

    QString error = loadState(*session);
    if (error.isEmpty()) {
        applySettings();
        playMeters();
        if (m_commandLine.list)
            error = printList();
    }
    if (error.isEmpty() && !m_commandLine.saveState.isEmpty())
        error = session->saveState(m_commandLine.saveState).error();
    if (error.isEmpty() && !m_commandLine.screenshot.isEmpty())
        error = saveScreenshot(*session);
    return finished(error);
}

int Application::runWindows()
{
    const QuitSignals quitSignals;
    QString error = openAudio();
    if (!error.isEmpty())
        return finished(error);
    MixerWindow mixerWindow(m_mixer, m_commandLine.editor);
    const auto warning = [&mixerWindow](const QString& text) { warn(mixerWindow, text); };
    m_mixer.settings.setReporter(warning);
    MixerSession session(m_mixer, warning);
    session.setAsker(
        [&mixerWindow](const QString& text) { return endsUnsaved(mixerWindow, text); });
    const QStringList damages = {m_mixer.settings.open(SettingsFile::standardFile()),
                                 session.open(sessionFile())};
    chooseChannel();
    mixerWindow.show();
    for (const QString& damage : damages)
        warn(mixerWindow, damage);
    session.restoreWindows(mixerWindow);
    if (session.isNew() || m_commandLine.wantsEditor) {
        error = openEditor(mixerWindow);
        if (!error.isEmpty())
            return finished(error);
    }
    m_mixer.mixerModel.history().clear();
    connectAudio(mixerWindow);
    QObject::connect(&quitSignals, &QuitSignals::arrived, &mixerWindow, [&] {
        session.setAsker({}); // nobody might be there any more
        mixerWindow.quit();
        QApplication::exit(ExitDone);
    });
    return QApplication::exec();
}

// An editor is for a strip of the mixer: a channel alone, or the pair that its first channel rules.
void Application::chooseChannel()
{
    EditorSettings& editor = m_commandLine.editor;
    if (!editor.stereo)
        m_mixer.memory.setStrip(editor.channel & ~1, StripParameter::Stereo, 0);
    editor.stereo = m_mixer.mixerModel.isPair(editor.channel);
    editor.channel = m_mixer.mixerModel.leaderOf(editor.channel);
}

QString Application::openEditor(MixerWindow& mixerWindow)
{
    const EditorSettings& settings = m_commandLine.editor;
    EditorWindow* editor = mixerWindow.openEditor(settings.channel, settings.stereo);
    if (!editor)
        return noEditor(settings.channel);
    const QString error = loadState(editor->session());
    if (error.isEmpty())
        applySettings();
    return error;
}

// The editor draws the curve for the rate that is heard, unless it was given another one.
QString Application::openAudio()
{
    if (!m_commandLine.plays())
        return QString();
    const CommandLine::Audio& audio = m_commandLine.audio;
    m_audio.setDevice(audio.device);
    m_audio.setLooping(audio.loop);
    if (!audio.file.isEmpty()) {
        const Status opened = m_audio.openFile(audio.file);
        if (!opened.isOk())
            return opened.error();
    }
    const int rate = m_audio.expectedRate();
    if (!m_commandLine.sampleRateGiven && rate > 0)
        m_commandLine.editor.sampleRate = rate;
    return QString();
}

// Without a device everything but the sound works on.
void Application::connectAudio(MixerWindow& mixerWindow)
{
    QObject::connect(&m_audio, &AudioSession::failed, &mixerWindow,
                     [&mixerWindow](const QString& sentence) { warn(mixerWindow, sentence); });
    QObject::connect(&m_audio, &AudioSession::starting, &m_publisher, &SettingsPublisher::publish);
    QObject::connect(&m_audio, &AudioSession::fileOpened, &mixerWindow, [this, &mixerWindow] {
        m_mixer.mixerModel.feed(mixerWindow.selectedChannel(), false);
    });
    m_mixer.mixerModel.setTransport(&m_audio);
    m_mixer.meters.setProducer(std::make_unique<MixerMeters>(m_mixer.mixerModel, m_bus.engine()));
    if (!m_commandLine.plays())
        return;
    m_mixer.mixerModel.feed(m_commandLine.editor.channel, m_commandLine.audio.device.live);
    static_cast<void>(m_audio.play()); // failed() says what goes wrong
}

QString Application::sessionFile() const
{
    return m_commandLine.session.isEmpty() ? SessionFile::standardFile() : m_commandLine.session;
}

// A run without windows ends before the timer's first tick: its picture shows one second later.
void Application::playMeters()
{
    constexpr int ticks = 30;
    for (int i = 0; i < ticks; ++i)
        m_mixer.meters.advance(1.0 / ticks);
}

QString Application::loadState(EditorSession& session)
{
    return m_commandLine.state.isEmpty() ? QString()
                                         : session.loadState(m_commandLine.state).error();
}

void Application::applySettings()
{
    const auto channel = static_cast<unsigned short>(m_commandLine.editor.channel);
    for (const CommandLine::Setting& setting : m_commandLine.settings)
        m_mixer.memory.setValue(parameterId(setting.parameter), channel, setting.value, 0, 0, 1);
}

QString Application::printList() const
{
    const HostMemory::Values& values = m_mixer.memory.values(m_commandLine.editor.channel);
    QByteArray lines;
    for (std::size_t i = 0; i < parameterCount; ++i)
        lines += listLine(i, values[i]);
    const auto size = static_cast<std::size_t>(lines.size());
    if (std::fwrite(lines.constData(), 1, size, stdout) == size && std::fflush(stdout) == 0)
        return QString();
    return QStringLiteral("The list cannot be printed: %1.")
        .arg(QString::fromLocal8Bit(std::strerror(errno)));
}

QString Application::saveScreenshot(const EditorSession& session) const
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    session.picture().save(&buffer, "PNG");
    return writeFile(m_commandLine.screenshot, buffer.data()).error();
}
