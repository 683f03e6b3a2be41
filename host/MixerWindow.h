// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/EditorSession.h"
#include "host/LiveTexts.h"

#include <QHash>
#include <QMainWindow>
#include <QPointer>

class EditorWindow;
struct Mixer;
class QTreeWidgetItem;

/// The list of the mixer's pairs and channels, from which editors are opened.
class MixerWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// \a mixer must outlive the window and every editor opened from it; \a settings is what new
    /// editors start with, apart from their channel.
    MixerWindow(Mixer& mixer, const EditorSettings& settings);
    ~MixerWindow() override;

    /// Shows the editor of a channel, a new one or the one that is open already. Null if the
    /// plug-in makes none.
    EditorWindow* openEditor(int channel, bool stereo);

protected:
    void changeEvent(QEvent* event) override;

private:
    EditorWindow* createEditor(int channel, bool stereo);
    void openItem(const QTreeWidgetItem* item);
    void buildMenus();
    QWidget* buildList();
    QTreeWidgetItem* newPair(int first);

    Mixer& m_mixer;
    EditorSettings m_settings;
    LiveTexts m_texts;
    QHash<int, QPointer<EditorWindow>> m_editors;
};
