// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/MixerWindow.h"

#include "host/audio/AudioSession.h"
#include "host/window/ChannelCountMenu.h"
#include "host/window/DialogConnection.h"
#include "host/window/EditMenu.h"
#include "host/window/EditorStage.h"
#include "host/window/EditorWindow.h"
#include "host/window/FileDrop.h"
#include "host/window/FileMenu.h"
#include "host/window/HelpMenu.h"
#include "host/window/LanguageMenu.h"
#include "host/window/MessageDialog.h"
#include "host/window/Mixer.h"
#include "host/window/MixerDesk.h"
#include "host/window/MixerStrip.h"
#include "host/window/RenderDialog.h"
#include "host/window/TransportBar.h"
#include "host/window/TransportMenu.h"

#include <QApplication>
#include <QInputDialog>
#include <QMenuBar>
#include <QScreen>
#include <QStatusBar>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace {

constexpr int messageTime = 8000; // ms

// A new window is in front by itself.
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
    m_texts.add([this] { setSessionName(m_sessionName); });
    auto* content = new QWidget(this);
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    m_transport = new TransportBar(mixer.mixerModel, content);
    column->addWidget(m_transport);
    m_desk = new MixerDesk(mixer.mixerModel, content);
    connect(m_desk, &MixerDesk::editorWanted, this, &MixerWindow::editChannel);
    column->addWidget(m_desk, 1);
    setCentralWidget(content);
    buildMenus();
    connect(m_transport, &TransportBar::openWanted, m_file, &FileMenu::chooseSound, opensDialog);
    connect(new FileDrop(this), &FileDrop::dropped, m_file, &FileMenu::openSound);
    statusBar()->setSizeGripEnabled(false);
    connect(&mixer.mixerModel, &MixerModel::channelChanged, this, &MixerWindow::showPairs);
    const auto wakeMeters = [&mixer] { mixer.meters.wake(); };
    connect(&mixer.mixerModel, &MixerModel::channelChanged, this, wakeMeters);
    connect(&mixer.mixerModel, &MixerModel::soundingRateChanged, this, wakeMeters);
    connect(&mixer.mixerModel, &MixerModel::channelCountChanged, this, &MixerWindow::followCount);
    showPairs();
    resize(wholeSize().boundedTo(screen()->availableSize()));
    setFocus(); // Tab goes to the first control, which is not marked before
}

MixerWindow::~MixerWindow()
{
    for (const QPointer<EditorWindow>& editor : std::as_const(m_editors))
        delete editor;
    hide();
}

EditorWindow* MixerWindow::openEditor(int channel, bool stereo)
{
    const int shown = stereo ? m_mixer.mixerModel.leaderOf(channel) : channel;
    QPointer<EditorWindow>& editor = m_editors[shown];
    if (editor && !editor->isVisible())
        delete editor; // it has been closed, and goes anyway
    if (!editor)
        editor = createEditor(shown, stereo);
    if (!editor)
        return nullptr;
    editor->setStereo(stereo);
    bringToFront(editor);
    return editor;
}

QList<EditorWindow*> MixerWindow::editors() const
{
    QList<EditorWindow*> open;
    for (int ch = 0; ch < maxChannelCount; ++ch) {
        EditorWindow* editor = m_editors.value(ch);
        if (editor && editor->isVisible())
            open << editor;
    }
    return open;
}

void MixerWindow::quit()
{
    Q_EMIT ending();
    m_quitting = true;
    QApplication::closeAllWindows();
    m_quitting = false;
}

void MixerWindow::closeEditors()
{
    for (EditorWindow* editor : editors())
        editor->close();
}

QString MixerWindow::askForSound() { return m_file->askForSound(); }

void MixerWindow::setSessionName(const QString& name)
{
    m_sessionName = name;
    setWindowTitle(name.isEmpty() ? tr("Mixer") : name + QLatin1String(" - ") + tr("Mixer"));
}

void MixerWindow::render(const QString& file)
{
    const AudioSession* transport = m_mixer.mixerModel.transport();
    if (!transport)
        return;
    AudioRenderer::Job job;
    job.input = transport->file();
    job.output = file;
    job.values = m_mixer.mixerModel.soundingValues(selectedChannel());
    auto* dialog = new RenderDialog(job, this);
    connect(dialog, &RenderDialog::failed, this, [this](const QString& sentence) {
        MessageDialog::warn(this, windowTitle(), sentence);
    });
    connect(dialog, &RenderDialog::rendered, this,
            [this](const QString& report, const QString& warning) {
                statusBar()->showMessage(report, messageTime);
                if (!warning.isEmpty())
                    MessageDialog::warn(this, windowTitle(), warning);
            });
}

EditorWindow* MixerWindow::createEditor(int channel, bool stereo)
{
    EditorSettings settings = m_settings;
    settings.channel = channel;
    settings.stereo = stereo;
    settings.takeModes(m_mixer.settings);
    auto stage = std::make_unique<EditorStage>();
    auto session = EditorSession::open(m_mixer, settings, stage.get());
    if (!session)
        return nullptr;
    auto* window = new EditorWindow(m_mixer, std::move(stage), std::move(session));
    connect(window, &EditorWindow::mixerWanted, this, [this] { bringToFront(this); });
    connect(window, &EditorWindow::closing, this, &MixerWindow::windowCloses);
    connect(window, &EditorWindow::soundWanted, m_file, &FileMenu::chooseSound);
    connect(window, &EditorWindow::fileDropped, m_file, &FileMenu::openSound);
    connect(window, &EditorWindow::quitWanted, this, &MixerWindow::quit);
    connect(window, &EditorWindow::stereoChosen, this,
            [this, channel](bool chosen) { chooseWidth(channel, chosen); });
    return window;
}

void MixerWindow::editChannel(int channel, bool stereo)
{
    m_desk->select(channel);
    if (!openEditor(channel, stereo))
        MessageDialog::warn(
            this, windowTitle(),
            tr("The plug-in makes no editor for %1.").arg(m_mixer.mixerModel.shownName(channel)));
}

void MixerWindow::chooseWidth(int channel, bool stereo)
{
    m_mixer.memory.setStrip(channel & ~1, StripParameter::Stereo, stereo ? 1 : 0);
}

int MixerWindow::selectedChannel() const { return m_desk->selectedChannel(); }

// Of a pair only the first strip is seen, and an open editor shows the pair.
void MixerWindow::showPairs()
{
    m_desk->showPairs();
    for (int first = 0; first < m_mixer.mixerModel.channelCount(); first += 2)
        followPair(first);
}

void MixerWindow::followPair(int first)
{
    bool& known = m_pairs[static_cast<std::size_t>(first) / 2];
    const bool pair = m_mixer.mixerModel.isPair(first);
    if (std::exchange(known, pair) == pair)
        return;
    if (EditorWindow* editor = m_editors.value(first))
        editor->setStereo(pair);
    if (pair)
        joinEditors(first);
}

// The second channel's editor would edit what is not heard: the first one's takes its place.
void MixerWindow::joinEditors(int first)
{
    EditorWindow* second = m_editors.value(partnerOf(first));
    if (!second || !second->isVisible())
        return;
    const EditorWindow* known = m_editors.value(first);
    if (!known || !known->isVisible()) {
        EditorWindow* editor = openEditor(first, true);
        if (!editor)
            return;
        editor->setScale(second->settings().scale);
        editor->setGeometry(second->geometry());
    }
    second->close();
}

void MixerWindow::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    m_texts.retranslate();
    m_transport->retranslate();
    m_desk->retranslate();
}

void MixerWindow::showEvent(QShowEvent* event)
{
    QMainWindow::showEvent(event);
    m_mixer.memory.meters().addMeterObserver(this);
    showMeters();
}

void MixerWindow::hideEvent(QHideEvent* event)
{
    hideMeters();
    m_mixer.memory.meters().removeMeterObserver(this);
    QMainWindow::hideEvent(event);
}

void MixerWindow::closeEvent(QCloseEvent* event)
{
    windowCloses();
    QMainWindow::closeEvent(event);
}

void MixerWindow::notifyMeterDbUpdated(unsigned int* values, unsigned int count)
{
    m_desk->showMeters(values, count);
}

void MixerWindow::showMeters()
{
    for (const MixerStrip* strip : m_desk->strips())
        m_mixer.meters.show(strip, {strip->channel(), -1, m_settings.sampleRate});
}

void MixerWindow::hideMeters()
{
    for (const MixerStrip* strip : m_desk->strips())
        m_mixer.meters.hide(strip);
}

void MixerWindow::followCount(int count)
{
    leaveEditors(count);
    const int before = wholeSize().width();
    hideMeters();
    m_desk->followCount();
    if (isVisible())
        showMeters();
    showPairs();
    fitStrips(before);
}

// Nobody asked for the end of the program, which comes with its last window.
void MixerWindow::leaveEditors(int count)
{
    const QList<EditorWindow*> open = editors();
    const auto leaves = [count](EditorWindow* editor) {
        return editor->settings().channel >= count;
    };
    if (!open.isEmpty() && !isVisible() && std::all_of(open.begin(), open.end(), leaves))
        bringToFront(this);
    for (EditorWindow* editor : open) {
        if (leaves(editor))
            editor->close();
    }
}

// As wide as the strips if it was so before, and never wider than they or the screen are.
void MixerWindow::fitStrips(int before)
{
    if (isMaximized() || isFullScreen())
        return;
    const QRect room = screen()->availableGeometry();
    const int frame = frameGeometry().width() - width();
    const int whole = std::min(wholeSize().width(), room.width() - frame);
    resize(width() >= before ? whole : std::min(width(), whole), height());
    const int beyond = frameGeometry().right() - room.right();
    if (isVisible() && beyond > 0)
        move(std::max(x() - beyond, room.left()), y());
}

void MixerWindow::windowCloses()
{
    const qsizetype open = editors().size() + (isVisible() ? 1 : 0);
    if (open <= 1 && !m_quitting)
        Q_EMIT ending();
}

void MixerWindow::rename()
{
    const MixerModel& mixerModel = m_mixer.mixerModel;
    bool accepted = false;
    const QString name = QInputDialog::getText(
        this, tr("Rename"), tr("Name of %1").arg(mixerModel.shownName(selectedChannel())),
        QLineEdit::Normal, mixerModel.name(selectedChannel()), &accepted);
    if (accepted)
        m_mixer.mixerModel.rename(selectedChannel(), name);
}

void MixerWindow::buildMenus()
{
    buildFileMenu();
    buildEditMenu();
    buildChannelMenu();
    fillTransportMenu(m_texts.menu(menuBar(), [] { return tr("&Transport"); }), m_mixer.mixerModel,
                      m_texts);
    addLanguageMenu(m_texts.menu(menuBar(), [] { return tr("&View"); }), m_mixer.language, m_texts);
    fillHelpMenu(m_texts.menu(menuBar(), [] { return tr("&Help"); }), m_texts);
}

void MixerWindow::buildFileMenu()
{
    QMenu* menu = m_texts.menu(menuBar(), [] { return tr("&File"); });
    m_file = new FileMenu(menu, m_mixer, m_texts);
    connect(m_file, &FileMenu::newSessionWanted, this, &MixerWindow::newSessionWanted);
    connect(m_file, &FileMenu::openSessionWanted, this, &MixerWindow::openSessionWanted);
    connect(m_file, &FileMenu::saveSessionWanted, this, &MixerWindow::saveSessionWanted);
    connect(m_file, &FileMenu::soundOpened, this,
            [this] { m_mixer.mixerModel.feed(selectedChannel(), false); });
    connect(m_file, &FileMenu::renderWanted, this, [this] {
        const QString file = m_file->askForTarget(selectedChannel());
        if (!file.isEmpty())
            render(file);
    });
    m_texts.action(
        menu, [] { return tr("&Close"); }, QKeySequence::Close, this, [this] { close(); },
        opensDialog);
    m_texts.action(
        menu, [] { return tr("&Quit"); }, QKeySequence::Quit, this, [this] { quit(); },
        opensDialog);
}

void MixerWindow::buildEditMenu()
{
    QMenu* menu = m_texts.menu(menuBar(), [] { return tr("&Edit"); });
    const EditMenu::Texts texts{[] { return tr("&Copy Equalizer"); },
                                [] { return tr("&Paste Equalizer"); },
                                [] { return tr("R&eset Equalizer"); }};
    const auto* edit = new EditMenu(
        menu, m_mixer.mixerModel, [this] { return selectedChannel(); }, texts, m_texts);
    connect(edit, &EditMenu::finished, this,
            [this](const QString& message) { statusBar()->showMessage(message, messageTime); });
}

void MixerWindow::buildChannelMenu()
{
    QMenu* menu = m_texts.menu(menuBar(), [] { return tr("&Channel"); });
    m_texts.action(
        menu, [] { return tr("&Open Editor"); }, QKeySequence(Qt::CTRL | Qt::Key_E), this,
        [this] { editChannel(selectedChannel(), m_mixer.mixerModel.isPair(selectedChannel())); },
        opensDialog);
    m_texts.action(
        menu, [] { return tr("&Rename..."); }, QKeySequence(Qt::Key_F2), this, [this] { rename(); },
        opensDialog);
    menu->addSeparator();
    addChannelCountMenu(menu, m_mixer.mixerModel, m_texts);
}

// With room for every strip, were they all mono.
QSize MixerWindow::wholeSize() const
{
    const int bars =
        m_transport->height() + menuBar()->sizeHint().height() + statusBar()->sizeHint().height();
    return m_desk->wholeSize() + QSize(0, bars);
}

#include "moc_MixerWindow.cpp"
