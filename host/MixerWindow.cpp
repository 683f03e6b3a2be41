// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/MixerWindow.h"

#include "host/EditorWindow.h"
#include "host/HostTheme.h"
#include "host/LanguageMenu.h"
#include "host/Mixer.h"

#include <QApplication>
#include <QMenuBar>
#include <QMessageBox>
#include <QTreeWidget>

namespace {

constexpr int channelRole = Qt::UserRole;
constexpr int stereoRole = Qt::UserRole + 1;

QTreeWidgetItem* newItem(int channel, bool stereo)
{
    auto* item = new QTreeWidgetItem;
    item->setData(0, channelRole, channel);
    item->setData(0, stereoRole, stereo);
    return item;
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
    m_texts.add([this] { setWindowTitle(tr("Mixer")); });
    setCentralWidget(buildList());
    buildMenus();
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
    auto* window = new EditorWindow(m_mixer, std::move(stage), std::move(session));
    connect(window, &EditorWindow::mixerWanted, this, [this] { bringToFront(this); });
    return window;
}

void MixerWindow::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        m_texts.sayAgain();
}

void MixerWindow::openItem(const QTreeWidgetItem* item)
{
    if (!openEditor(item->data(0, channelRole).toInt(), item->data(0, stereoRole).toBool()))
        QMessageBox::warning(this, windowTitle(),
                             tr("The plug-in makes no editor for %1.").arg(item->text(0)));
}

void MixerWindow::buildMenus()
{
    QMenu* file = m_texts.menu(menuBar(), [] { return tr("&File"); });
    QAction* close = m_texts.action(file, [] { return tr("&Close"); });
    close->setShortcut(QKeySequence::Close);
    connect(close, &QAction::triggered, this, &QWidget::close);
    QAction* quit = m_texts.action(file, [] { return tr("&Quit"); });
    quit->setShortcut(QKeySequence::Quit);
    connect(quit, &QAction::triggered, qApp, &QApplication::closeAllWindows);
    addLanguageMenu(m_texts.menu(menuBar(), [] { return tr("&View"); }), m_mixer.language, m_texts);
}

QWidget* MixerWindow::buildList()
{
    auto* list = new QTreeWidget(this);
    list->setHeaderHidden(true);
    applyHostSheet(list);
    list->setRootIsDecorated(false);
    list->setItemsExpandable(false);
    list->setExpandsOnDoubleClick(false);
    m_texts.add([list] { list->setToolTip(tr("A double click opens the editor")); });
    for (int first = 0; first < channelCount; first += 2)
        list->addTopLevelItem(newPair(first));
    list->expandAll();
    connect(list, &QTreeWidget::itemActivated, this,
            [this](const QTreeWidgetItem* item) { openItem(item); });
    return list;
}

QTreeWidgetItem* MixerWindow::newPair(int first)
{
    const int second = partnerOf(first);
    QTreeWidgetItem* pair = newItem(first, true);
    m_texts.add(
        [pair, first, second] { pair->setText(0, tr("Channels %1 + %2").arg(first).arg(second)); });
    for (const int channel : {first, second}) {
        QTreeWidgetItem* item = newItem(channel, false);
        m_texts.add([item, channel] { item->setText(0, tr("Channel %1").arg(channel)); });
        pair->addChild(item);
    }
    return pair;
}

#include "moc_MixerWindow.cpp"
