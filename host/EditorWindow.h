// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/EditorSession.h"
#include "host/LiveTexts.h"

#include <QMainWindow>

#include <memory>

struct Mixer;
class ParameterListModel;
class QComboBox;
class QMenu;
class QSpinBox;
class QTableView;
class QToolBar;

/// The window of one open editor: the editor, what it can be switched between, and a list of the
/// channel's parameters that can be edited beside it.
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

Q_SIGNALS:
    /// The user wants to see the window with all channels.
    void mixerWanted();

protected:
    void changeEvent(QEvent* event) override;

private:
    void buildMenus();
    void buildFileMenu(QMenu* menu);
    void buildViewMenu(QMenu* menu);
    template <typename Slot>
    void addItem(QMenu* menu, const LiveTexts::Text& text, const QKeySequence& keys, Slot slot);
    void buildToolBar();
    void addZoom(QToolBar* bar);
    void addStereo(QToolBar* bar);
    void addSampleRate(QToolBar* bar);
    void addModes(QToolBar* bar);
    QWidget* buildEditorArea(std::unique_ptr<QWidget> stage);
    QWidget* buildTable();
    void chooseSize();
    void showTitle();
    void zoomBy(int percent);
    void loadState();
    void saveState();
    void resetToDefaults();
    void report(const QString& fault, const QString& success);

    Mixer& m_mixer;
    LiveTexts m_texts;
    std::unique_ptr<EditorSession> m_session;
    ParameterListModel* m_parameters = nullptr;
    QWidget* m_stage = nullptr;
    QTableView* m_table = nullptr;
    QSpinBox* m_zoom = nullptr;
    QComboBox* m_stereo = nullptr;
};
