// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/EditorWindow.h"

#include "host/audio/Transport.h"
#include "host/files/FactoryPresets.h"
#include "host/window/EditorToolBar.h"
#include "host/window/HistoryMenu.h"
#include "host/window/LanguageMenu.h"
#include "host/window/Mixer.h"
#include "host/window/ParameterListView.h"
#include "host/window/PresetMenu.h"
#include "host/window/ResponseView.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QInputDialog>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QScreen>
#include <QScrollArea>
#include <QShowEvent>
#include <QSplitter>
#include <QStatusBar>
#include <QVBoxLayout>

namespace {

constexpr int barsHeight = 100; // menu, tool and status bar
constexpr int messageTime = 8000;

QString stateFilter()
{
    return EditorWindow::tr("Presets (*.vstpreset);;Plain states (*.state);;All files (*)");
}

} // namespace

EditorWindow::EditorWindow(Mixer& mixer, std::unique_ptr<QWidget> stage,
                           std::unique_ptr<EditorSession> session)
    : m_mixer(mixer)
    , m_session(std::move(session))
{
    setAttribute(Qt::WA_DeleteOnClose);
    m_splitter = new QSplitter(this);
    m_splitter->setChildrenCollapsible(false);
    m_splitter->setHandleWidth(1);
    m_splitter->addWidget(buildEditorArea(std::move(stage)));
    m_splitter->addWidget(buildTable());
    m_splitter->setStretchFactor(0, 1);
    m_splitter->setStretchFactor(1, 0);
    setCentralWidget(m_splitter);
    buildToolBar();
    buildMenus();
    buildStatus();
    chooseSize();
    m_texts.add([this] { showTitle(); });
    connect(&mixer.mixerModel, &MixerModel::nameChanged, this, &EditorWindow::showTitle);
}

EditorWindow::~EditorWindow() = default;

void EditorWindow::setStereo(bool stereo) { m_bar->setStereo(stereo); }

void EditorWindow::setScale(double scale) { m_bar->setScale(scale); }

void EditorWindow::setMeasured(bool measured) { m_measured->setChecked(measured); }

bool EditorWindow::isMeasured() const { return m_measured->isChecked(); }

void EditorWindow::loadPreset(const QString& name)
{
    report(m_session->loadState(m_presets->folder().fileOf(name)), tr("Loaded %1.").arg(name));
}

void EditorWindow::savePreset(const QString& name)
{
    const PresetFolder& folder = m_presets->folder();
    QString error = PresetFolder::checkName(name).error();
    if (error.isEmpty())
        error = folder.prepare().error();
    if (error.isEmpty())
        error = m_session->saveState(folder.fileOf(name));
    report(error, tr("Saved %1.").arg(name));
}

void EditorWindow::deletePreset(const QString& name)
{
    report(m_presets->folder().remove(name).error(), tr("Deleted %1.").arg(name));
}

void EditorWindow::applyFactoryPreset(int index)
{
    const FactoryPreset& preset = factoryPresets()[static_cast<std::size_t>(index)];
    const QString name = QCoreApplication::translate("FactoryPreset", preset.name);
    const EditHistory::Step step(m_mixer.mixerModel.history(), name);
    m_mixer.memory.write(settings().channel, valuesOf(preset));
    report(QString(), tr("Loaded %1.").arg(name));
}

void EditorWindow::buildMenus()
{
    buildFileMenu(m_texts.menu(menuBar(), [] { return tr("&File"); }));
    buildEditMenu(m_texts.menu(menuBar(), [] { return tr("&Edit"); }));
    buildPresetMenu(m_texts.menu(menuBar(), [] { return tr("&Presets"); }));
    buildViewMenu(m_texts.menu(menuBar(), [] { return tr("&View"); }));
}

void EditorWindow::buildFileMenu(QMenu* menu)
{
    addItem(
        menu, [] { return tr("&Load State..."); }, QKeySequence::Open, [this] { loadState(); });
    addItem(
        menu, [] { return tr("&Save State..."); }, QKeySequence::Save, [this] { saveState(); });
    menu->addSeparator();
    addItem(
        menu, [] { return tr("&Close"); }, QKeySequence::Close, [this] { close(); });
    addItem(
        menu, [] { return tr("&Quit"); }, QKeySequence::Quit, [this] { Q_EMIT quitWanted(); });
}

void EditorWindow::buildEditMenu(QMenu* menu)
{
    ChannelCompare& compare = m_mixer.mixerModel.compare();
    const int channel = settings().channel;
    addHistoryActions(menu, m_mixer.mixerModel.history(), m_texts);
    menu->addSeparator();
    addItem(
        menu, [] { return tr("&Copy Settings"); }, QKeySequence::Copy,
        [this, channel] { m_mixer.mixerModel.copyToClipboard(channel); });
    QAction* pasting = addItem(
        menu, [] { return tr("&Paste Settings"); }, QKeySequence::Paste, [this] { paste(); });
    const auto follow = [this, pasting] { pasting->setEnabled(m_mixer.mixerModel.canPaste()); };
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, pasting, follow);
    follow();
    addItem(
        menu, [] { return tr("&Reset to Defaults"); }, QKeySequence(),
        [this] { resetToDefaults(); });
    menu->addSeparator();
    addItem(
        menu, [] { return tr("S&witch between A and B"); }, QKeySequence(Qt::CTRL | Qt::Key_B),
        [&compare, channel] { compare.choose(channel, !compare.isB(channel)); });
    addItem(
        menu, [] { return tr("Copy A &to B"); }, QKeySequence(),
        [&compare, channel] { compare.copy(channel, true); });
    addItem(
        menu, [] { return tr("Copy B t&o A"); }, QKeySequence(),
        [&compare, channel] { compare.copy(channel, false); });
}

void EditorWindow::buildPresetMenu(QMenu* menu)
{
    m_presets = new PresetMenu(menu, PresetFolder(PresetFolder::standardFolder()), m_texts);
    connect(m_presets, &PresetMenu::factoryChosen, this, &EditorWindow::applyFactoryPreset);
    connect(m_presets, &PresetMenu::userChosen, this, &EditorWindow::loadPreset);
    connect(m_presets, &PresetMenu::saveWanted, this, &EditorWindow::askForPresetName);
    connect(m_presets, &PresetMenu::deleteWanted, this, &EditorWindow::askToDelete);
}

void EditorWindow::buildViewMenu(QMenu* menu)
{
    addItem(
        menu, [] { return tr("Zoom &In"); }, QKeySequence::ZoomIn, [this] { m_bar->zoomBy(1); });
    addItem(
        menu, [] { return tr("Zoom &Out"); }, QKeySequence::ZoomOut, [this] { m_bar->zoomBy(-1); });
    addItem(
        menu, [] { return tr("&Actual Size"); }, QKeySequence(Qt::CTRL | Qt::Key_0),
        [this] { setScale(1.0); });
    menu->addSeparator();
    m_measured = addItem(
        menu, [] { return tr("Measured &Response"); }, QKeySequence(Qt::CTRL | Qt::Key_R), [] {});
    m_measured->setCheckable(true);
    connect(m_measured, &QAction::toggled, this, &EditorWindow::showMeasured);
    m_parameters = addItem(
        menu, [] { return tr("&Parameters"); }, QKeySequence(Qt::CTRL | Qt::Key_L), [] {});
    m_parameters->setCheckable(true);
    addLanguageMenu(menu, m_mixer.language, m_texts);
    addItem(
        menu, [] { return tr("&Mixer"); }, QKeySequence(Qt::CTRL | Qt::Key_M),
        [this] { Q_EMIT mixerWanted(); });
}

template <typename Slot>
QAction* EditorWindow::addItem(QMenu* menu, const LiveTexts::Text& text, const QKeySequence& keys,
                               Slot slot)
{
    QAction* action = m_texts.action(menu, text);
    action->setShortcut(keys);
    connect(action, &QAction::triggered, this, slot);
    return action;
}

void EditorWindow::buildToolBar()
{
    m_bar = new EditorToolBar(*m_session, m_mixer.mixerModel.compare(), this);
    connect(m_bar, &EditorToolBar::stereoChanged, this, &EditorWindow::showTitle);
    connect(m_bar, &EditorToolBar::stereoChosen, this, &EditorWindow::stereoChosen);
    connect(m_bar, &EditorToolBar::scaleChanged, this, &EditorWindow::followZoom);
    connect(m_bar, &EditorToolBar::sampleRateChanged, m_response, &ResponseView::setSampleRate);
    addToolBar(m_bar);
}

void EditorWindow::buildStatus()
{
    statusBar()->setSizeGripEnabled(false);
    m_audio = new QLabel(this);
    m_audio->setContentsMargins(0, 0, 8, 0);
    statusBar()->addPermanentWidget(m_audio);
    m_texts.add([this] { showAudio(); });
    const auto listen = [this] {
        if (const Transport* transport = m_mixer.mixerModel.transport())
            connect(transport, &Transport::changed, this, &EditorWindow::showAudio);
        showAudio();
    };
    connect(&m_mixer.mixerModel, &MixerModel::transportChanged, this, listen);
    listen();
}

void EditorWindow::showAudio()
{
    const Transport* transport = m_mixer.mixerModel.transport();
    const bool playing = transport && transport->state() == Transport::State::Playing;
    m_audio->setText(playing ? QString() : tr("No audio"));
}

QWidget* EditorWindow::buildEditorArea(std::unique_ptr<QWidget> stage)
{
    m_area = new QScrollArea(this);
    m_area->setFrameShape(QFrame::NoFrame);
    m_area->setAlignment(Qt::AlignCenter);
    m_area->setBackgroundRole(QPalette::Base);
    m_stage = stage.release();
    m_area->setWidget(m_stage);
    m_response = new ResponseView(m_mixer.mixerModel, settings().channel, this);
    m_response->setSampleRate(settings().sampleRate);
    m_response->hide();
    m_texts.add([this] { m_response->setAccessibleName(tr("Measured response")); });
    auto* both = new QWidget(this);
    auto* layout = new QVBoxLayout(both);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_area);
    layout->addWidget(m_response);
    return both;
}

void EditorWindow::showMeasured(bool measured)
{
    m_response->setVisible(measured);
    m_measuredRoom = grow({0, measured ? ResponseView::viewHeight : -m_measuredRoom}).height();
}

void EditorWindow::showParameters(bool shown)
{
    m_table->setVisible(shown);
    if (shown) {
        m_parametersRoom =
            grow({m_splitter->handleWidth() + m_table->sizeHint().width(), 0}).width();
        shareWidth();
    } else {
        const int spare = qMax(0, m_splitter->width() - m_stage->width());
        grow({-qMin(spare, m_parametersRoom), 0});
    }
}

// The list gets what the editor leaves.
void EditorWindow::shareWidth()
{
    const int both = width() - m_splitter->handleWidth();
    const int table =
        qBound(m_table->minimumWidth(), both - m_stage->width(), m_table->sizeHint().width());
    m_splitter->setSizes({both - table, table});
}

void EditorWindow::followZoom()
{
    const QSize missing = m_stage->size() - m_area->maximumViewportSize();
    m_zoomRoom += grow(missing.expandedTo(-1 * m_zoomRoom));
}

// As far as the screen allows; returns how far it was.
QSize EditorWindow::grow(const QSize& by)
{
    if (isMaximized() || isFullScreen())
        return {0, 0};
    const QSize before = size();
    const QSize room = screen()->availableSize() - (frameSize() - before);
    resize((before + by).boundedTo(room.expandedTo(before)));
    keepOnScreen();
    return size() - before;
}

void EditorWindow::keepOnScreen()
{
    const QRect room = screen()->availableGeometry();
    const QRect frame = frameGeometry();
    const QPoint last = room.bottomRight() - QPoint(frame.width() - 1, frame.height() - 1);
    const QPoint place(qMax(room.left(), qMin(frame.left(), last.x())),
                       qMax(room.top(), qMin(frame.top(), last.y())));
    if (place != frame.topLeft())
        move(place);
}

QWidget* EditorWindow::buildTable()
{
    m_table = new ParameterListView(m_mixer.memory, settings().channel, this);
    connect(m_table, &ParameterListView::refused, this,
            [this](const QString& reason) { statusBar()->showMessage(reason, messageTime); });
    return m_table;
}

void EditorWindow::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        m_texts.retranslate();
}

void EditorWindow::closeEvent(QCloseEvent* event)
{
    Q_EMIT closing();
    QMainWindow::closeEvent(event);
}

void EditorWindow::showEvent(QShowEvent* event)
{
    QMainWindow::showEvent(event);
    if (!event->spontaneous())
        m_session->takeFocus();
}

// Where the screen is too narrow for both, the editor comes alone.
void EditorWindow::chooseSize()
{
    const QSize room = screen()->availableSize();
    const QSize table = m_table->sizeHint();
    const int handle = m_splitter->handleWidth();
    const bool both = m_stage->width() + handle + m_table->minimumWidth() <= room.width();
    m_parameters->setChecked(both);
    m_table->setVisible(both);
    connect(m_parameters, &QAction::toggled, this, &EditorWindow::showParameters);
    const QSize wanted(m_stage->width() + (both ? handle + table.width() : 0),
                       qMax(m_stage->height(), table.height()) + barsHeight);
    resize(wanted.boundedTo(room));
    m_parametersRoom = both ? width() - m_stage->width() : 0;
    shareWidth();
}

void EditorWindow::showTitle()
{
    const int channel = settings().channel;
    const QString title =
        settings().stereo ? tr("Channels %1 + %2 - Equalizer").arg(channel).arg(partnerOf(channel))
                          : tr("Channel %1 - Equalizer").arg(channel);
    const QString name = m_mixer.mixerModel.name(channel);
    setWindowTitle(name.isEmpty() ? title : name + QLatin1String(" - ") + title);
}

void EditorWindow::loadState()
{
    const QString file =
        QFileDialog::getOpenFileName(this, tr("Load State"), QString(),
                                     tr("States and presets (*.state *.vstpreset);;All files (*)"));
    if (!file.isEmpty())
        report(m_session->loadState(file), tr("Loaded %1.").arg(file));
}

void EditorWindow::saveState()
{
    QString filter;
    QString file =
        QFileDialog::getSaveFileName(this, tr("Save State"), QString(), stateFilter(), &filter);
    if (file.isEmpty())
        return;
    if (QFileInfo(file).suffix().isEmpty())
        file += filter.contains(QLatin1String("vstpreset")) ? QLatin1String(".vstpreset")
                                                            : QLatin1String(".state");
    report(m_session->saveState(file), tr("Saved %1.").arg(file));
}

void EditorWindow::resetToDefaults()
{
    const EditHistory::Step step(m_mixer.mixerModel.history(), tr("Reset"));
    m_mixer.memory.reset(settings().channel);
    statusBar()->showMessage(tr("Every parameter is at its default."), messageTime);
}

void EditorWindow::paste()
{
    const QString error = m_mixer.mixerModel.pasteFromClipboard(settings().channel);
    statusBar()->showMessage(error.isEmpty() ? tr("Pasted.") : error, messageTime);
}

void EditorWindow::askForPresetName()
{
    const QString name = typedPresetName();
    if (name.isEmpty())
        return;
    if (!m_presets->folder().contains(name) ||
        QMessageBox::question(this, windowTitle(),
                              tr("There is a preset %1. Replace it?").arg(name)) ==
            QMessageBox::Yes)
        savePreset(name);
}

// Asks until the name is a good one; empty if the user gives up.
QString EditorWindow::typedPresetName()
{
    QString typed = m_mixer.mixerModel.name(settings().channel);
    for (;;) {
        bool accepted = false;
        typed = QInputDialog::getText(this, tr("Save as Preset"), tr("Name of the preset"),
                                      QLineEdit::Normal, typed, &accepted);
        const QString error = PresetFolder::checkName(typed.simplified()).error();
        if (!accepted)
            return QString();
        if (error.isEmpty())
            return typed.simplified();
        QMessageBox::warning(this, windowTitle(), error);
    }
}

void EditorWindow::askToDelete(const QString& name)
{
    if (QMessageBox::question(this, windowTitle(), tr("Delete the preset %1?").arg(name)) ==
        QMessageBox::Yes)
        deletePreset(name);
}

void EditorWindow::report(const QString& error, const QString& success)
{
    if (error.isEmpty())
        statusBar()->showMessage(success, messageTime);
    else
        QMessageBox::warning(this, windowTitle(), error);
}

#include "moc_EditorWindow.cpp"
