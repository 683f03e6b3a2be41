// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/MixerWindow.h"

#include "host/EditorWindow.h"
#include "host/HostTheme.h"
#include "host/Mixer.h"

#include <QApplication>
#include <QMenuBar>
#include <QMessageBox>
#include <QTreeWidget>

namespace {

constexpr int channelRole = Qt::UserRole;
constexpr int stereoRole = Qt::UserRole + 1;

QTreeWidgetItem* newItem(const QString& text, int channel, bool stereo)
{
    auto* item = new QTreeWidgetItem({text});
    item->setData(0, channelRole, channel);
    item->setData(0, stereoRole, stereo);
    return item;
}

QTreeWidgetItem* newPair(int first)
{
    const int second = partnerOf(first);
    auto* pair = newItem(MixerWindow::tr("Channels %1 + %2").arg(first).arg(second), first, true);
    for (const int channel : {first, second})
        pair->addChild(newItem(MixerWindow::tr("Channel %1").arg(channel), channel, false));
    return pair;
}

// A new window comes up in front by itself.
void bringToFront(QWidget* window)
{
    const bool hidden = window->isHidden();
    window->show();
    if (!hidden)
        window->raise();
    window->activateWindow();
}

} // namespace

MixerWindow::MixerWindow(Mixer& mixer, const EditorSettings& settings)
    : m_mixer(mixer)
    , m_settings(settings)
{
    setWindowTitle(tr("Mixer"));
    setCentralWidget(buildList());
    QMenu* menu = menuBar()->addMenu(tr("&File"));
    menu->addAction(tr("&Close"), QKeySequence::Close, this, &QWidget::close);
    menu->addAction(tr("&Quit"), QKeySequence::Quit, qApp, &QApplication::closeAllWindows);
    resize(240, 380);
}

MixerWindow::~MixerWindow()
{
    for (const QPointer<EditorWindow>& editor : std::as_const(m_editors))
        delete editor;
}

EditorWindow* MixerWindow::openEditor(int channel, bool stereo)
{
    QPointer<EditorWindow>& editor = m_editors[channel];
    if (!editor)
        editor = createEditor(channel, stereo);
    if (!editor)
        return nullptr;
    editor->setStereo(stereo);
    bringToFront(editor);
    return editor;
}

EditorWindow* MixerWindow::createEditor(int channel, bool stereo)
{
    EditorSettings settings = m_settings;
    settings.channel = channel;
    settings.stereo = stereo;
    auto stage = std::make_unique<QWidget>();
    auto session = EditorSession::open(m_mixer, settings, stage.get());
    if (!session)
        return nullptr;
    auto* window = new EditorWindow(m_mixer.memory, std::move(stage), std::move(session));
    connect(window, &EditorWindow::mixerWanted, this, [this] { bringToFront(this); });
    return window;
}

void MixerWindow::openItem(const QTreeWidgetItem* item)
{
    if (!openEditor(item->data(0, channelRole).toInt(), item->data(0, stereoRole).toBool()))
        QMessageBox::warning(this, windowTitle(),
                             tr("The plug-in makes no editor for %1.").arg(item->text(0)));
}

QWidget* MixerWindow::buildList()
{
    auto* list = new QTreeWidget(this);
    list->setHeaderHidden(true);
    applyHostSheet(list);
    list->setRootIsDecorated(false);
    list->setItemsExpandable(false);
    list->setExpandsOnDoubleClick(false);
    list->setToolTip(tr("A double click opens the editor"));
    for (int first = 0; first < channelCount; first += 2)
        list->addTopLevelItem(newPair(first));
    list->expandAll();
    connect(list, &QTreeWidget::itemActivated, this,
            [this](const QTreeWidgetItem* item) { openItem(item); });
    return list;
}

#include "moc_MixerWindow.cpp"
