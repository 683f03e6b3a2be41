// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/EditorWindow.h"

#include "host/HistoryMenu.h"
#include "host/HostTheme.h"
#include "host/LanguageMenu.h"
#include "host/Mixer.h"
#include "host/ParameterListModel.h"
#include "host/mixer/ResponseView.h"
#include "host/mixer/Transport.h"
#include "host/presets/FactoryPresets.h"
#include "host/presets/PresetMenu.h"

#include <QActionGroup>
#include <QComboBox>
#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QInputDialog>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QScreen>
#include <QScrollArea>
#include <QShowEvent>
#include <QSpinBox>
#include <QSplitter>
#include <QStatusBar>
#include <QTableView>
#include <QToolBar>
#include <QVBoxLayout>

#include <cmath>

namespace {

constexpr int smallestZoom = 50;
constexpr int largestZoom = 400;
constexpr int zoomStep = 25;
constexpr int tableWidth = 460;
constexpr int rowHeight = 20;
constexpr int barsHeight = 100; // menu, tool and status bar
constexpr int messageTime = 8000;
constexpr int stereoIndex = 0;
constexpr int monoIndex = 1;

int percentOf(double scale) { return static_cast<int>(std::lround(scale * 100.0)); }

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
    auto* splitter = new QSplitter(this);
    splitter->setChildrenCollapsible(false);
    splitter->setHandleWidth(1);
    splitter->addWidget(buildEditorArea(std::move(stage)));
    splitter->addWidget(buildTable());
    splitter->setStretchFactor(0, 1);
    splitter->setStretchFactor(1, 0);
    setCentralWidget(splitter);
    buildToolBar();
    buildMenus();
    buildStatus();
    chooseSize();
    m_texts.add([this] { showTitle(); });
    connect(&mixer.desk, &Desk::nameChanged, this, &EditorWindow::showTitle);
}

EditorWindow::~EditorWindow() = default;

void EditorWindow::setStereo(bool stereo)
{
    m_stereo->setCurrentIndex(stereo ? stereoIndex : monoIndex);
}

void EditorWindow::setScale(double scale) { m_zoom->setValue(percentOf(scale)); }

void EditorWindow::setMeasured(bool measured) { m_measured->setChecked(measured); }

bool EditorWindow::isMeasured() const { return m_measured->isChecked(); }

void EditorWindow::loadPreset(const QString& name)
{
    report(m_session->loadState(m_presets->folder().fileOf(name)), tr("Loaded %1.").arg(name));
}

void EditorWindow::savePreset(const QString& name)
{
    const PresetFolder& folder = m_presets->folder();
    QString fault = PresetFolder::faultOfName(name);
    if (fault.isEmpty())
        fault = folder.prepare();
    if (fault.isEmpty())
        fault = m_session->saveState(folder.fileOf(name));
    report(fault, tr("Saved %1.").arg(name));
}

void EditorWindow::deletePreset(const QString& name)
{
    report(m_presets->folder().remove(name), tr("Deleted %1.").arg(name));
}

void EditorWindow::applyFactoryPreset(int index)
{
    const FactoryPreset& preset = factoryPresets()[static_cast<std::size_t>(index)];
    const QString name = QCoreApplication::translate("FactoryPreset", preset.name);
    const EditHistory::Step step(m_mixer.desk.history(), name);
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
    ChannelCompare& compare = m_mixer.desk.compare();
    const int channel = settings().channel;
    addHistoryActions(menu, m_mixer.desk.history(), m_texts);
    menu->addSeparator();
    addItem(
        menu, [] { return tr("&Copy Settings"); }, QKeySequence::Copy,
        [this, channel] { m_mixer.desk.copyToClipboard(channel); });
    addItem(
        menu, [] { return tr("&Paste Settings"); }, QKeySequence::Paste, [this] { paste(); });
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
        menu, [] { return tr("Zoom &In"); }, QKeySequence::ZoomIn, [this] { zoomBy(zoomStep); });
    addItem(
        menu, [] { return tr("Zoom &Out"); }, QKeySequence::ZoomOut, [this] { zoomBy(-zoomStep); });
    addItem(
        menu, [] { return tr("&Actual Size"); }, QKeySequence(Qt::CTRL | Qt::Key_0),
        [this] { m_zoom->setValue(100); });
    menu->addSeparator();
    m_measured = addItem(
        menu, [] { return tr("Measured &Response"); }, QKeySequence(Qt::CTRL | Qt::Key_R), [] {});
    m_measured->setCheckable(true);
    connect(m_measured, &QAction::toggled, this, &EditorWindow::showMeasured);
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
    auto* bar = addToolBar(QString());
    m_texts.add([bar] { bar->setWindowTitle(tr("Editor")); });
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    applyHostSheet(bar);
    addCompare(bar);
    addZoom(bar);
    addStereo(bar);
    addSampleRate(bar);
    addModes(bar);
}

void EditorWindow::addZoom(QToolBar* bar)
{
    m_zoom = new QSpinBox(bar);
    m_zoom->setRange(smallestZoom, largestZoom);
    m_zoom->setSingleStep(zoomStep);
    m_texts.add([this] { m_zoom->setSuffix(tr(" %")); });
    m_zoom->setKeyboardTracking(false);
    m_zoom->setValue(percentOf(settings().scale));
    connect(m_zoom, &QSpinBox::valueChanged, this,
            [this](int percent) { m_session->setScale(percent / 100.0); });
    bar->addWidget(m_texts.label(bar, [] { return tr("Zoom"); }));
    bar->addWidget(m_zoom);
}

void EditorWindow::addStereo(QToolBar* bar)
{
    m_stereo = m_texts.choice(bar, [] { return QStringList{tr("Stereo"), tr("Mono")}; });
    m_stereo->setCurrentIndex(settings().stereo ? stereoIndex : monoIndex);
    connect(m_stereo, &QComboBox::currentIndexChanged, this, [this](int index) {
        m_session->setStereo(index == stereoIndex);
        showTitle();
    });
    connect(m_stereo, &QComboBox::activated, this,
            [this](int index) { Q_EMIT stereoChosen(index == stereoIndex); });
    bar->addWidget(m_texts.label(bar, [] { return tr("Channel"); }));
    bar->addWidget(m_stereo);
}

void EditorWindow::addSampleRate(QToolBar* bar)
{
    auto* rates = new QComboBox(bar);
    for (const int rate : {44100, 48000, 88200, 96000, 176400, 192000})
        rates->addItem(QStringLiteral("%1 Hz").arg(rate), rate);
    const int current = settings().sampleRate;
    if (rates->findData(current) < 0)
        rates->addItem(QStringLiteral("%1 Hz").arg(current), current);
    rates->setCurrentIndex(rates->findData(current));
    connect(rates, &QComboBox::currentIndexChanged, this,
            [this, rates] { setSampleRate(rates->currentData().toInt()); });
    bar->addWidget(m_texts.label(bar, [] { return tr("Sampling rate"); }));
    bar->addWidget(rates);
}

void EditorWindow::addModes(QToolBar* bar)
{
    auto* dials = m_texts.choice(bar, [] {
        return QStringList{tr("Circular"), tr("Relative circular"), tr("Linear")};
    });
    dials->setCurrentIndex(settings().dialMode);
    connect(dials, &QComboBox::currentIndexChanged, this,
            [this](int mode) { m_session->setDialMode(mode); });
    auto* sliders = m_texts.choice(bar, [] {
        return QStringList{tr("Relative"), tr("Jump"), tr("Touch"), tr("Ramp")};
    });
    sliders->setCurrentIndex(settings().sliderMode);
    connect(sliders, &QComboBox::currentIndexChanged, this,
            [this](int mode) { m_session->setSliderMode(mode); });
    bar->addWidget(m_texts.label(bar, [] { return tr("Dials"); }));
    bar->addWidget(dials);
    bar->addWidget(m_texts.label(bar, [] { return tr("Sliders"); }));
    bar->addWidget(sliders);
}

void EditorWindow::addCompare(QToolBar* bar)
{
    auto* group = new QActionGroup(this);
    const auto addChoice = [this, bar, group](const QString& letter, bool isB) {
        QAction* action = bar->addAction(letter);
        action->setCheckable(true);
        group->addAction(action);
        m_texts.add([action, letter] { action->setToolTip(tr("Settings %1").arg(letter)); });
        connect(action, &QAction::triggered, this,
                [this, isB] { m_mixer.desk.compare().choose(settings().channel, isB); });
        return action;
    };
    m_chooseA = addChoice(QStringLiteral("A"), false);
    m_chooseB = addChoice(QStringLiteral("B"), true);
    connect(&m_mixer.desk.compare(), &ChannelCompare::chosen, this, &EditorWindow::showCompare);
    showCompare();
}

void EditorWindow::showCompare()
{
    const bool isB = m_mixer.desk.compare().isB(settings().channel);
    (isB ? m_chooseB : m_chooseA)->setChecked(true);
}

void EditorWindow::buildStatus()
{
    statusBar()->setSizeGripEnabled(false);
    m_audio = new QLabel(this);
    m_audio->setContentsMargins(0, 0, 8, 0);
    statusBar()->addPermanentWidget(m_audio);
    m_texts.add([this] { showAudio(); });
    const auto listen = [this] {
        if (const Transport* transport = m_mixer.desk.transport())
            connect(transport, &Transport::changed, this, &EditorWindow::showAudio);
        showAudio();
    };
    connect(&m_mixer.desk, &Desk::transportChanged, this, listen);
    listen();
}

void EditorWindow::showAudio()
{
    const Transport* transport = m_mixer.desk.transport();
    const bool playing = transport && transport->state() == Transport::State::Playing;
    m_audio->setText(playing ? QString() : tr("No audio"));
}

QWidget* EditorWindow::buildEditorArea(std::unique_ptr<QWidget> stage)
{
    auto* area = new QScrollArea(this);
    area->setFrameShape(QFrame::NoFrame);
    area->setAlignment(Qt::AlignCenter);
    area->setBackgroundRole(QPalette::Base);
    m_stage = stage.release();
    area->setWidget(m_stage);
    m_response = new ResponseView(m_mixer.desk, settings().channel, this);
    m_response->setSampleRate(settings().sampleRate);
    m_response->hide();
    m_texts.add([this] { m_response->setAccessibleName(tr("Measured response")); });
    auto* both = new QWidget(this);
    auto* layout = new QVBoxLayout(both);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(area);
    layout->addWidget(m_response);
    return both;
}

// The window makes room where it can.
void EditorWindow::showMeasured(bool measured)
{
    m_response->setVisible(measured);
    if (isMaximized() || isFullScreen())
        return;
    const int change = measured ? ResponseView::viewHeight : -ResponseView::viewHeight;
    resize(QSize(width(), height() + change).boundedTo(screen()->availableSize()));
}

void EditorWindow::setSampleRate(int hertz)
{
    m_session->setSampleRate(hertz);
    m_response->setSampleRate(hertz);
}

QWidget* EditorWindow::buildTable()
{
    m_parameters = new ParameterListModel(m_mixer.memory, settings().channel, this);
    connect(m_parameters, &ParameterListModel::refused, this,
            [this](const QString& reason) { statusBar()->showMessage(reason, messageTime); });
    m_table = new QTableView(this);
    applyHostSheet(m_table);
    m_table->setModel(m_parameters);
    m_table->setAlternatingRowColors(true);
    m_table->setShowGrid(false);
    m_table->setWordWrap(false);
    m_table->setIconSize(QSize(6, 14));
    m_table->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                             QAbstractItemView::AnyKeyPressed);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setMinimumSectionSize(rowHeight);
    m_table->verticalHeader()->setDefaultSectionSize(rowHeight);
    m_table->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_table->horizontalHeader()->setSectionResizeMode(ParameterListModel::ValueColumn,
                                                      QHeaderView::Stretch);
    m_table->setMinimumWidth(tableWidth);
    return m_table;
}

void EditorWindow::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    m_texts.sayAgain();
    m_parameters->sayAgain();
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

void EditorWindow::chooseSize()
{
    const int tableHeight =
        m_table->horizontalHeader()->sizeHint().height() + m_parameters->rowCount() * rowHeight;
    const QSize wanted(m_stage->width() + 1 + tableWidth,
                       qMax(m_stage->height(), tableHeight) + barsHeight);
    resize(wanted.boundedTo(screen()->availableSize()));
}

void EditorWindow::showTitle()
{
    const int channel = settings().channel;
    const QString title =
        settings().stereo ? tr("Channels %1 + %2 - Equalizer").arg(channel).arg(partnerOf(channel))
                          : tr("Channel %1 - Equalizer").arg(channel);
    const QString name = m_mixer.desk.name(channel);
    setWindowTitle(name.isEmpty() ? title : name + QLatin1String(" - ") + title);
}

void EditorWindow::zoomBy(int percent) { m_zoom->setValue(m_zoom->value() + percent); }

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
    const EditHistory::Step step(m_mixer.desk.history(), tr("Reset"));
    m_mixer.memory.reset(settings().channel);
    statusBar()->showMessage(tr("Every parameter is at its default."), messageTime);
}

void EditorWindow::paste()
{
    const QString fault = m_mixer.desk.pasteFromClipboard(settings().channel);
    statusBar()->showMessage(fault.isEmpty() ? tr("Pasted.") : fault, messageTime);
}

void EditorWindow::askForPresetName()
{
    bool accepted = false;
    const QString name =
        QInputDialog::getText(this, tr("Save as Preset"), tr("Name of the preset"),
                              QLineEdit::Normal, m_mixer.desk.name(settings().channel), &accepted)
            .simplified();
    if (!accepted)
        return;
    const bool free = name.isEmpty() || !m_presets->folder().contains(name);
    if (free || QMessageBox::question(this, windowTitle(),
                                      tr("There is a preset %1. Replace it?").arg(name)) ==
                    QMessageBox::Yes)
        savePreset(name);
}

void EditorWindow::askToDelete(const QString& name)
{
    if (QMessageBox::question(this, windowTitle(), tr("Delete the preset %1?").arg(name)) ==
        QMessageBox::Yes)
        deletePreset(name);
}

void EditorWindow::report(const QString& fault, const QString& success)
{
    if (fault.isEmpty())
        statusBar()->showMessage(success, messageTime);
    else
        QMessageBox::warning(this, windowTitle(), fault);
}

#include "moc_EditorWindow.cpp"
