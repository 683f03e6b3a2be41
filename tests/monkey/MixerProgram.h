// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/MixBus.h"
#include "host/audio/AudioSession.h"
#include "host/model/SettingsPublisher.h"
#include "host/window/Mixer.h"
#include "host/window/MixerSession.h"
#include "host/window/MixerWindow.h"

#include <QUrl>

/// Stands for the desktop, which would start programs to show folders.
class NoFileManager : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void open(const QUrl&) {}
};

/// The mixer from its start to its end, as the program puts it together, on a machine without sound
/// devices and with a session and settings in one folder.
class MixerProgram
{
public:
    /// Starts with the library \a plugin. A start that fails says why in error().
    MixerProgram(const QString& plugin, const QString& folder);

    QString error() const { return m_loaded.error(); }
    Mixer& mixer() { return m_mixer; }
    AudioSession& audio() { return m_audio; }
    MixerWindow& window() { return m_window; }
    MixerSession& session() { return m_session; }
    /// Whether anything of it can still be seen.
    bool isOpen() const { return m_window.isVisible() || !m_window.editors().isEmpty(); }

    static QString sessionFile(const QString& folder);

private:
    void connectAudio();
    void report(const QString& sentence);
    bool endsUnsaved(const QString& sentence);

    NoFileManager m_fileManager;
    MixBus m_bus;
    Mixer m_mixer;
    Status m_loaded;
    SettingsPublisher m_publisher{m_mixer.mixerModel, m_bus};
    AudioSession m_audio;
    MixerWindow m_window;
    MixerSession m_session;
};
