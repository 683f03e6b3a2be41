// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/window/EditorSession.h"
#include "host/window/LiveTexts.h"

#include <QMainWindow>

#include <memory>

struct Mixer;
class EditorToolBar;
class PresetMenu;
class QAction;
class QDockWidget;
class QLabel;
class QMenu;
class QScrollArea;
class ResponseView;
class WindowPanels;

/// The window of one open editor: the editor, what it can be switched between, presets, the
/// channel's A and B settings, and in panels around it a list of the channel's parameters, which
/// can be edited, and the measured response. The window's geometry and state say where everything
/// is.
class EditorWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// Takes over the session and the stage that it plays on.
    EditorWindow(Mixer& mixer, std::unique_ptr<QWidget> stage,
                 std::unique_ptr<EditorSession> session);
    ~EditorWindow() override;

    EditorSession& session() { return *m_session; }
    const EditorSettings& settings() const { return m_session->settings(); }
    void setStereo(bool stereo);
    void setScale(double scale);
    /// Shows, below the editor, the response as an impulse measures it.
    void setMeasured(bool measured);

    /// Presets. What goes wrong is said in a message.
    void loadPreset(const QString& name);
    void savePreset(const QString& name);
    void deletePreset(const QString& name);
    void applyFactoryPreset(int index);

Q_SIGNALS:
    /// The user wants to see the window with all channels.
    void mixerWanted();
    /// The window is about to close; the editor is still open.
    void closing();
    /// The user wants to end the program.
    void quitWanted();
    /// The user switched between the pair and the channel alone.
    void stereoChosen(bool stereo);

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
    template <typename Slot>
    QAction* addItem(QMenu* menu, const LiveTexts::Text& text, const QKeySequence& keys, Slot slot);
    void addPanelItem(QMenu* menu, const LiveTexts::Text& text, const QKeySequence& keys,
                      QDockWidget* panel);
    void buildToolBar();
    void buildStatus();
    void showAudio();
    void buildEditorArea(std::unique_ptr<QWidget> stage);
    void buildPanels();
    void followZoom();
    void chooseSize();
    void showTitle();
    void openStateFile();
    void saveStateFile();
    void resetToDefaults();
    void paste();
    void askForPresetName();
    QString typedPresetName();
    void askToDelete(const QString& name);
    void report(const QString& error, const QString& success);

    Mixer& m_mixer;
    LiveTexts m_texts;
    std::unique_ptr<EditorSession> m_session;
    QScrollArea* m_area = nullptr;
    QWidget* m_stage = nullptr;
    std::unique_ptr<WindowPanels> m_panels;
    QDockWidget* m_parameters = nullptr;
    QDockWidget* m_measured = nullptr;
    ResponseView* m_response = nullptr;
    EditorToolBar* m_bar = nullptr;
    PresetMenu* m_presets = nullptr;
    QLabel* m_audio = nullptr;
    QSize m_zoomRoom{0, 0}; // what the window has grown by for the editor's zoom
};
