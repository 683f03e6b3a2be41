// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/MixBus.h"
#include "host/audio/AudioSession.h"
#include "host/audio/SystemAudioDevice.h"
#include "host/model/SettingsPublisher.h"
#include "host/program/CommandLine.h"
#include "host/program/ProgramError.h"
#include "host/window/Mixer.h"
#include "hosting/Result.h"

#include <QCoreApplication>
#include <QWidget>

#include <functional>
#include <memory>

class DesktopEqualizer;
class EditorWindow;
class EndingSignals;
class MixerSession;
class MixerWindow;

/// The program once its arguments are understood. Needs a QApplication.
class Application
{
    Q_DECLARE_TR_FUNCTIONS(Application)

public:
    Application(CommandLine commandLine, const QString& programFolder);

    /// Does what the arguments ask for; the program's exit code.
    int run();

private:
    Status runHeadless();
    Status runCommands(EditorSession& session);
    int runWindows();
    int runDesktop();
    int loop(
        MixerWindow& mixerWindow, MixerSession& session, const EndingSignals& endingSignals,
        const std::function<void()>& lastWork = [] {});
    void chooseDesktopStrip();
    void connectDesktop(DesktopEqualizer& equalizer, EditorWindow& editor);
    Status openAudio();
    void connectAudio(MixerWindow& mixerWindow);
    Status chooseChannel();
    Status openEditor(MixerWindow& mixerWindow);
    static void placeWindows(MixerWindow& mixerWindow);
    QString sessionFile() const;
    void playMeters();
    Status applyArguments(EditorSession& session);
    Status printList() const;
    Status saveScreenshot(const EditorSession& session) const;

    CommandLine m_commandLine;
    QString m_programFolder;
    MixBus m_bus; // the mixer's meters read it
    Mixer m_mixer;
    SettingsPublisher m_publisher{m_mixer.mixerModel, m_bus};
    AudioSession m_audio{m_bus, std::make_unique<SystemAudioDevice>()};
};
