// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/window/EditorSession.h"
#include "host/window/Retranslator.h"

#include <QMainWindow>

#include <functional>
#include <memory>

struct Mixer;
class AnalyzerPanel;
class AuditionBar;
class DesktopEqualizer;
class EditorPresets;
class EditorToolBar;
class QAction;
class QDockWidget;
class QLabel;
class QMenu;
class QScrollArea;
class ResponseView;
class WindowPanels;

/// The window of one open editor: the editor, what it can be switched between, presets, the
/// channel's A and B settings, and in panels around it a list of the channel's parameters, which
/// can be edited, and the measured response or the analyzer. The window's geometry and state hold
/// where everything is.
class EditorWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// Owns the session and the stage that shows its editor.
    EditorWindow(Mixer& mixer, std::unique_ptr<QWidget> stage,
                 std::unique_ptr<EditorSession> session);
    ~EditorWindow() override;

    EditorSession& session() { return *m_session; }
    const EditorSettings& settings() const { return m_session->settings(); }
    void setStereo(bool stereo);
    /// The window takes the size that shows all of the editor, as far as the screen allows.
    void setScale(double scale);
    /// Gives the editor a zoom, and the window the size that shows all of it, within \a room.
    void fitTo(double scale, const QSize& room);
    /// Shows, below the editor, the response as an impulse measures it.
    void setMeasured(bool measured);
    /// Shows, in its place, the analyzer.
    void setAnalyzer(bool shown);

    /// Makes it the window of \a desktop, which must outlive it: its pair alone, at the rate that
    /// is heard, and no way to the mixer.
    void follow(const DesktopEqualizer& desktop);

    /// Its presets. Errors are shown in a message box.
    EditorPresets& presets() { return *m_presets; }

Q_SIGNALS:
    /// The user wants to see the window with all channels.
    void mixerWanted();
    /// The window is about to close; the editor is still open.
    void closing();
    /// The user wants to end the program.
    void quitWanted();
    /// The user switched between the pair and the channel alone.
    void stereoChosen(bool stereo);
    /// The user wants to choose a sound file, or dropped one on the window.
    void soundWanted();
    void fileDropped(const QString& file);

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void buildMenus();
    void buildFileMenu(QMenu* menu);
    void buildEditMenu(QMenu* menu);
    void buildPresetMenu(QMenu* menu);
    void buildViewMenu(QMenu* menu);
    void addPanelItem(QMenu* menu, const Retranslator::Text& text, const QKeySequence& keys,
                      QDockWidget* panel, const std::function<void(bool)>& show);
    void buildToolBar();
    void buildStatus();
    void showAudio();
    void showDesktop();
    void buildEditorArea(std::unique_ptr<QWidget> stage);
    void buildPanels();
    void buildAnalyzer();
    void buildZoomMenu(QMenu* menu);
    void showTitle();
    void openStateFile();
    void saveStateFile();
    void showMessage(const QString& message);
    void report(const QString& error, const QString& success);

    Mixer& m_mixer;
    Retranslator m_texts;
    std::unique_ptr<EditorSession> m_session;
    QScrollArea* m_area = nullptr;
    QWidget* m_stage = nullptr;
    std::unique_ptr<WindowPanels> m_panels;
    QDockWidget* m_parameters = nullptr;
    QDockWidget* m_measured = nullptr;
    ResponseView* m_response = nullptr;
    QDockWidget* m_analyzer = nullptr;
    AnalyzerPanel* m_spectrum = nullptr;
    EditorToolBar* m_bar = nullptr;
    AuditionBar* m_audition = nullptr;
    EditorPresets* m_presets = nullptr;
    QLabel* m_audio = nullptr;
    QAction* m_toMixer = nullptr;
    const DesktopEqualizer* m_desktop = nullptr; // whose window this is; null: the mixer's
};
