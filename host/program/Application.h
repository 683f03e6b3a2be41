// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/MixBus.h"
#include "host/audio/AudioSession.h"
#include "host/audio/RtAudioDevice.h"
#include "host/model/SettingsPublisher.h"
#include "host/program/CommandLine.h"
#include "host/window/Mixer.h"

#include <QWidget>

#include <memory>

class MixerWindow;

/// Exit codes of the program.
enum ExitCode { ExitDone = 0, ExitError = 1, ExitUsage = 2 };

/// Writes "zolta-host: " and \a sentence to the standard error stream.
void printError(const QString& sentence);

/// The program once its arguments are understood. Needs a QApplication.
class Application
{
public:
    Application(CommandLine commandLine, const QString& programFolder);

    /// Does what the arguments ask for; the program's exit code.
    int run();

private:
    int runHeadless();
    int runWindows();
    QString openAudio();
    void connectAudio(MixerWindow& mixerWindow);
    void chooseChannel();
    QString openEditor(MixerWindow& mixerWindow);
    QString sessionFile() const;
    void playMeters();
    QString loadState(EditorSession& session);
    void applySettings();
    QString printList() const;
    QString saveScreenshot(const EditorSession& session) const;

    CommandLine m_commandLine;
    QString m_programFolder;
    MixBus m_bus; // the mixer's meters read it
    Mixer m_mixer;
    SettingsPublisher m_publisher{m_mixer.mixerModel, m_bus};
    AudioSession m_audio{m_bus, std::make_unique<RtAudioDevice>()};
};
