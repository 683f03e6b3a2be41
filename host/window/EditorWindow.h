// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/window/EditorSession.h"
#include "host/window/LiveTexts.h"

#include <QMainWindow>

#include <memory>

struct Mixer;
class EditorToolBar;
class ParameterListView;
class PresetMenu;
class QAction;
class QLabel;
class QMenu;
class QScrollArea;
class QSplitter;
class ResponseView;

/// The window of one open editor: the editor, what it can be switched between, presets, the
/// channel's A and B settings, and a list of the channel's parameters that can be edited beside it.
/// What is shown besides makes the window larger where the screen has room, and smaller again when
/// it goes.
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
    bool isMeasured() const;

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
    void buildToolBar();
    void buildStatus();
    void showAudio();
    QWidget* buildEditorArea(std::unique_ptr<QWidget> stage);
    QWidget* buildTable();
    void showMeasured(bool measured);
    void showParameters(bool shown);
    void shareWidth();
    void followZoom();
    QSize grow(const QSize& by);
    void keepOnScreen();
    void chooseSize();
    void showTitle();
    void loadState();
    void saveState();
    void resetToDefaults();
    void paste();
    void askForPresetName();
    QString typedPresetName();
    void askToDelete(const QString& name);
    void report(const QString& error, const QString& success);

    Mixer& m_mixer;
    LiveTexts m_texts;
    std::unique_ptr<EditorSession> m_session;
    QSplitter* m_splitter = nullptr;
    QScrollArea* m_area = nullptr;
    QWidget* m_stage = nullptr;
    ResponseView* m_response = nullptr;
    QAction* m_measured = nullptr;
    QAction* m_parameters = nullptr;
    ParameterListView* m_table = nullptr;
    EditorToolBar* m_bar = nullptr;
    PresetMenu* m_presets = nullptr;
    QLabel* m_audio = nullptr;
    int m_measuredRoom = 0; // what the window has grown by for each
    int m_parametersRoom = 0;
    QSize m_zoomRoom{0, 0};
};
