// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/window/EditorSession.h"
#include "host/window/Retranslator.h"
#include "interfaces/IMeterObserver.h"
#include "parameters/ParameterTable.h"

#include <QHash>
#include <QList>
#include <QMainWindow>
#include <QPointer>

#include <array>

class EditorWindow;
class FileMenu;
class MixerDesk;
struct Mixer;
class TransportBar;

/// The mixer: a strip for each channel, of which a stereo pair shows one, and the transport bar.
/// Editors are opened from the strips. The menus act on the strip that is marked.
class MixerWindow : public QMainWindow, private IMeterObserver
{
    Q_OBJECT

public:
    /// \a mixer must outlive the window and every editor opened from it; \a settings is what new
    /// editors start with, apart from their channel.
    MixerWindow(Mixer& mixer, const EditorSettings& settings);
    ~MixerWindow() override;

    /// Shows the editor of a channel, a new one or the one that is open already. Of a pair it is
    /// the first channel's, which both of them sound like. Null if the plug-in makes none.
    EditorWindow* openEditor(int channel, bool stereo);
    /// Those that are open, by channel.
    QList<EditorWindow*> editors() const;
    /// The channel that the menus act on.
    int selectedChannel() const;
    /// Closes every window.
    void quit();
    void closeEditors();
    /// Asks for a sound file; empty if the user gives up.
    QString askForSound();
    /// What the session is called; empty for the one that needs no name.
    void setSessionName(const QString& name);
    /// Sends the sound file that is open through the equalizer of the marked strip into \a file,
    /// while a dialog shows how far that is.
    void render(const QString& file);

Q_SIGNALS:
    /// The last window that is open is about to close, or all are: the time to save what is open.
    void ending();
    /// As FileMenu says.
    void newSessionWanted(const QString& file);
    void openSessionWanted(const QString& file);
    void saveSessionWanted(const QString& file);

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void notifyMeterLvlUpdated(unsigned int*, unsigned int) override {}
    void notifyMeterDbUpdated(unsigned int* values, unsigned int count) override;

    EditorWindow* createEditor(int channel, bool stereo);
    void editChannel(int channel, bool stereo);
    void chooseWidth(int channel, bool stereo);
    void showPairs();
    void showMeters();
    void hideMeters();
    void followCount(int count);
    void leaveEditors(int count);
    void fitStrips(int before);
    void followPair(int first);
    void joinEditors(int first);
    void windowCloses();
    void rename();
    void buildMenus();
    void buildFileMenu();
    void buildEditMenu();
    void buildChannelMenu();
    QSize wholeSize() const;

    Mixer& m_mixer;
    EditorSettings m_settings;
    Retranslator m_texts;
    QHash<int, QPointer<EditorWindow>> m_editors;
    std::array<bool, maxChannelCount / 2> m_pairs{};
    MixerDesk* m_desk = nullptr;
    TransportBar* m_transport = nullptr;
    FileMenu* m_file = nullptr;
    QString m_sessionName;
    bool m_quitting = false;
};
