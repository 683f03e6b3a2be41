// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/EditorWindow.h"

#include "host/audio/AudioSession.h"
#include "host/desktop/DesktopEqualizer.h"
#include "host/window/AnalyzerPanel.h"
#include "host/window/AnalyzerView.h"
#include "host/window/AuditionBar.h"
#include "host/window/DialogConnection.h"
#include "host/window/EditMenu.h"
#include "host/window/EditorPresets.h"
#include "host/window/EditorToolBar.h"
#include "host/window/FileDialogs.h"
#include "host/window/FileDrop.h"
#include "host/window/GraphRange.h"
#include "host/window/HelpMenu.h"
#include "host/window/LanguageMenu.h"
#include "host/window/MessageDialog.h"
#include "host/window/Mixer.h"
#include "host/window/ParameterListView.h"
#include "host/window/PresetBar.h"
#include "host/window/PresetMenu.h"
#include "host/window/ResponseView.h"
#include "host/window/TransportMenu.h"
#include "host/window/WindowPanels.h"

#include <QDockWidget>
#include <QFileInfo>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QScrollArea>
#include <QShowEvent>
#include <QStatusBar>

namespace {

constexpr int statusTime = 8000;

const QString stateKind = QStringLiteral("state");

QString stateFilter()
{
    return EditorWindow::tr("Presets (*.vstpreset);;Plain states (*.state);;All files (*)");
}

QString withSuffix(const QString& file, const QString& filter)
{
    if (!QFileInfo(file).suffix().isEmpty())
        return file;
    return file + (filter.contains(QLatin1String("vstpreset")) ? QLatin1String(".vstpreset")
                                                               : QLatin1String(".state"));
}

} // namespace

EditorWindow::EditorWindow(Mixer& mixer, std::unique_ptr<QWidget> stage,
                           std::unique_ptr<EditorSession> session)
    : m_mixer(mixer)
    , m_session(std::move(session))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setContextMenuPolicy(Qt::NoContextMenu);
    buildEditorArea(std::move(stage));
    buildPanels();
    buildToolBar();
    buildMenus();
    buildStatus();
    fitTo(settings().scale, screen()->availableSize());
    m_texts.add([this] { showTitle(); });
    connect(&mixer.mixerModel, &MixerModel::nameChanged, this, &EditorWindow::showTitle);
    connect(new FileDrop(this), &FileDrop::dropped, this, &EditorWindow::fileDropped);
}

// What is heard to compare ends while there are a bar and an editor.
EditorWindow::~EditorWindow() { delete m_audition; }

void EditorWindow::setStereo(bool stereo) { m_bar->setStereo(stereo); }

void EditorWindow::setScale(double scale) { m_bar->setScale(scale); }

void EditorWindow::fitTo(double scale, const QSize& room)
{
    setScale(scale);
    polish(*this);
    statusBar()->setMinimumHeight(statusBar()->sizeHint().height()); // else it grows when seen
    const int bars = sizeHint().height() - m_area->sizeHint().height();
    resize((m_stage->size() + QSize(0, bars)).boundedTo(room));
}

void EditorWindow::setMeasured(bool measured)
{
    if (measured)
        m_panels->setShown(m_analyzer, false);
    m_panels->setShown(m_measured, measured);
}

void EditorWindow::setAnalyzer(bool shown)
{
    if (shown)
        m_panels->setShown(m_measured, false);
    m_panels->setShown(m_analyzer, shown);
}

void EditorWindow::follow(const DesktopEqualizer& desktop)
{
    m_desktop = &desktop;
    m_toMixer->setVisible(false);
    connect(&desktop, &DesktopEqualizer::changed, this, &EditorWindow::showDesktop);
    m_bar->fixChannel();
    showDesktop();
    showTitle();
}

void EditorWindow::buildMenus()
{
    buildFileMenu(m_texts.menu(menuBar(), [] { return tr("&File"); }));
    buildEditMenu(m_texts.menu(menuBar(), [] { return tr("&Edit"); }));
    buildPresetMenu(m_texts.menu(menuBar(), [] { return tr("&Presets"); }));
    fillTransportMenu(m_texts.menu(menuBar(), [] { return tr("&Transport"); }), m_mixer.mixerModel,
                      m_texts);
    buildViewMenu(m_texts.menu(menuBar(), [] { return tr("&View"); }));
    fillHelpMenu(m_texts.menu(menuBar(), [] { return tr("&Help"); }), m_texts);
}

void EditorWindow::buildFileMenu(QMenu* menu)
{
    m_texts.action(
        menu, [] { return tr("&Open Audio..."); }, QKeySequence::Open, this,
        &EditorWindow::soundWanted, opensDialog);
    menu->addSeparator();
    m_texts.action(
        menu, [] { return tr("&Load State..."); }, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_O),
        this, [this] { openStateFile(); }, opensDialog);
    m_texts.action(
        menu, [] { return tr("&Save State..."); }, QKeySequence::Save, this,
        [this] { saveStateFile(); }, opensDialog);
    menu->addSeparator();
    m_texts.action(
        menu, [] { return tr("&Close"); }, QKeySequence::Close, this, [this] { close(); },
        opensDialog);
    m_texts.action(
        menu, [] { return tr("&Quit"); }, QKeySequence::Quit, this, [this] { Q_EMIT quitWanted(); },
        opensDialog);
}

void EditorWindow::buildEditMenu(QMenu* menu)
{
    ChannelCompare& compare = m_mixer.mixerModel.compare();
    const int channel = settings().channel;
    const EditMenu::Texts texts{[] { return tr("&Copy Settings"); },
                                [] { return tr("&Paste Settings"); },
                                [] { return tr("Reset to &Defaults"); }};
    const auto* edit = new EditMenu(
        menu, m_mixer.mixerModel, [channel] { return channel; }, texts, m_texts);
    connect(edit, &EditMenu::finished, this, &EditorWindow::showMessage);
    menu->addSeparator();
    m_texts.action(
        menu, [] { return tr("S&witch between A and B"); }, QKeySequence(Qt::CTRL | Qt::Key_B),
        this, [&compare, channel] { compare.choose(channel, !compare.isB(channel)); });
    m_texts.action(
        menu, [] { return tr("Copy A &to B"); }, QKeySequence(), this,
        [&compare, channel] { compare.copy(channel, true); });
    m_texts.action(
        menu, [] { return tr("Copy B t&o A"); }, QKeySequence(), this,
        [&compare, channel] { compare.copy(channel, false); });
    m_audition->fillMenu(menu, m_texts);
}

void EditorWindow::buildPresetMenu(QMenu* menu)
{
    m_presets = new EditorPresets(m_mixer, *m_session, this);
    connect(m_presets, &EditorPresets::finished, this, &EditorWindow::report);
    auto* entries = new PresetMenu(
        menu, *m_presets, [this] { return m_mixer.mixerModel.name(settings().channel); }, m_texts);
    auto* bar = new PresetBar(*m_presets, *entries, menu, this);
    m_audition->addTo(bar);
    insertToolBar(m_bar, bar);
    insertToolBarBreak(m_bar);
}

void EditorWindow::buildZoomMenu(QMenu* menu)
{
    m_texts.action(
        menu, [] { return tr("Zoom &In"); }, QKeySequence::ZoomIn, this,
        [this] { m_bar->zoomBy(1); });
    m_texts.action(
        menu, [] { return tr("Zoom &Out"); }, QKeySequence::ZoomOut, this,
        [this] { m_bar->zoomBy(-1); });
    m_texts.action(
        menu, [] { return tr("&Actual Size"); }, QKeySequence(Qt::CTRL | Qt::Key_0), this,
        [this] { setScale(1.0); });
}

void EditorWindow::buildViewMenu(QMenu* menu)
{
    buildZoomMenu(m_texts.menu(menu, [] { return tr("&UI Zoom"); }));
    auto* range = new GraphRange(m_mixer, *m_session, this);
    range->fill(m_texts.menu(menu, [] { return tr("&Graph Range"); }), m_texts);
    menu->addSeparator();
    addPanelItem(
        menu, [] { return tr("Measured &Response"); }, QKeySequence(Qt::CTRL | Qt::Key_R),
        m_measured, [this](bool shown) { setMeasured(shown); });
    addPanelItem(
        menu, [] { return tr("A&nalyzer"); }, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_R),
        m_analyzer, [this](bool shown) { setAnalyzer(shown); });
    addPanelItem(
        menu, [] { return tr("&Parameters"); }, QKeySequence(Qt::CTRL | Qt::Key_L), m_parameters,
        [this](bool shown) { m_panels->setShown(m_parameters, shown); });
    addLanguageMenu(menu, m_mixer.language, m_texts);
    m_toMixer = m_texts.action(
        menu, [] { return tr("&Mixer"); }, QKeySequence(Qt::CTRL | Qt::Key_M), this,
        [this] { Q_EMIT mixerWanted(); });
}

// The panel's own action follows it, but shows it without making room for it.
void EditorWindow::addPanelItem(QMenu* menu, const Retranslator::Text& text,
                                const QKeySequence& keys, QDockWidget* panel,
                                const std::function<void(bool)>& show)
{
    QAction* action = m_texts.action(menu, text, keys, this, show);
    action->setCheckable(true);
    connect(panel->toggleViewAction(), &QAction::toggled, action, &QAction::setChecked);
}

void EditorWindow::buildToolBar()
{
    m_bar = new EditorToolBar(*m_session, this);
    connect(m_bar, &EditorToolBar::stereoChanged, this, &EditorWindow::showTitle);
    connect(m_bar, &EditorToolBar::stereoChosen, this, &EditorWindow::stereoChosen);
    connect(m_bar, &EditorToolBar::scaleChanged, this, [this] { m_panels->fitWindow(); });
    connect(m_bar, &EditorToolBar::sampleRateChanged, m_response, &ResponseView::setSampleRate);
    connect(m_bar, &EditorToolBar::sampleRateChanged, m_spectrum->view(),
            &AnalyzerView::setSampleRate);
    connect(m_bar, &EditorToolBar::modesChanged, this,
            [this] { settings().keepModes(&m_mixer.settings); });
    addToolBar(m_bar);
    m_audition = new AuditionBar(m_mixer.mixerModel, settings().channel, m_stage, this);
    connect(m_audition, &AuditionBar::said, this,
            [this](const QString& sentence) { statusBar()->showMessage(sentence); });
    const MixerModel& mixerModel = m_mixer.mixerModel;
    connect(&mixerModel, &MixerModel::soundingRateChanged, m_bar, &EditorToolBar::followRate);
    m_bar->followRate(mixerModel.soundingRate());
}

void EditorWindow::buildStatus()
{
    statusBar()->setSizeGripEnabled(false);
    m_audio = new QLabel(this);
    m_audio->setContentsMargins(0, 0, 8, 0);
    statusBar()->addPermanentWidget(m_audio);
    m_texts.add([this] { showAudio(); });
    const auto listen = [this] {
        if (const AudioSession* transport = m_mixer.mixerModel.transport())
            connect(transport, &AudioSession::changed, this, &EditorWindow::showAudio);
        showAudio();
    };
    connect(&m_mixer.mixerModel, &MixerModel::transportChanged, this, listen);
    listen();
}

void EditorWindow::showDesktop()
{
    m_bar->followRate(m_desktop->rate() > 0 ? m_desktop->rate() : settings().sampleRate);
    showAudio();
}

void EditorWindow::showAudio()
{
    if (m_desktop && !m_desktop->output().isEmpty())
        return m_audio->setText(tr("Plays to %1").arg(m_desktop->output()));
    const AudioSession* transport = m_mixer.mixerModel.transport();
    const bool playing = transport && transport->state() == AudioSession::State::Playing;
    m_audio->setText(playing ? QString() : tr("No audio"));
}

void EditorWindow::buildEditorArea(std::unique_ptr<QWidget> stage)
{
    m_area = new QScrollArea(this);
    m_area->setFrameShape(QFrame::NoFrame);
    m_area->setAlignment(Qt::AlignCenter);
    m_area->setBackgroundRole(QPalette::Base);
    m_area->setFocusPolicy(Qt::NoFocus);
    m_stage = stage.release();
    m_area->setWidget(m_stage);
    setCentralWidget(m_area);
}

// The list is as high as the window, the response as wide as the editor.
void EditorWindow::buildPanels()
{
    for (const Qt::Corner corner : {Qt::TopLeftCorner, Qt::BottomLeftCorner})
        setCorner(corner, Qt::LeftDockWidgetArea);
    for (const Qt::Corner corner : {Qt::TopRightCorner, Qt::BottomRightCorner})
        setCorner(corner, Qt::RightDockWidgetArea);
    m_panels = std::make_unique<WindowPanels>(*this, *m_area, *m_stage);

    auto* table = new ParameterListView(m_mixer.memory, settings().channel, this);
    connect(table, &ParameterListView::refused, this, &EditorWindow::showMessage);
    m_parameters = m_panels->add(QStringLiteral("parameters"), table, Qt::RightDockWidgetArea);
    m_texts.add([this, table] {
        m_parameters->setWindowTitle(tr("Parameters"));
        table->setAccessibleName(m_parameters->windowTitle());
    });

    m_response = new ResponseView(m_mixer.mixerModel, settings().channel, this);
    m_response->setSampleRate(settings().sampleRate);
    m_measured =
        m_panels->add(QStringLiteral("measuredResponse"), m_response, Qt::BottomDockWidgetArea);
    m_texts.add([this] {
        m_response->setAccessibleName(tr("Measured response"));
        m_measured->setWindowTitle(tr("Measured response"));
    });
    buildAnalyzer();
}

void EditorWindow::buildAnalyzer()
{
    m_spectrum = new AnalyzerPanel(m_mixer.mixerModel, m_mixer.analyzer, settings().channel, this);
    m_spectrum->view()->setSampleRate(settings().sampleRate);
    m_analyzer = m_panels->add(QStringLiteral("analyzer"), m_spectrum, Qt::BottomDockWidgetArea);
    m_spectrum->view()->alignWith(m_stage);
    m_texts.add([this] {
        m_spectrum->view()->setAccessibleName(tr("Analyzer"));
        m_analyzer->setWindowTitle(tr("Analyzer"));
    });
}

void EditorWindow::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    m_texts.retranslate();
    m_audition->retranslate();
}

void EditorWindow::closeEvent(QCloseEvent* event)
{
    Q_EMIT closing();
    QMainWindow::closeEvent(event);
}

void EditorWindow::showEvent(QShowEvent* event)
{
    QMainWindow::showEvent(event);
    if (event->spontaneous())
        return;
    m_session->takeFocus();
}

void EditorWindow::showTitle()
{
    if (m_desktop)
        return setWindowTitle(tr("Desktop Equalizer"));
    const int channel = settings().channel;
    const int number = shownNumber(channel);
    const int partner = shownNumber(partnerOf(channel));
    const QString title = settings().stereo
                              ? tr("Channels %1 + %2 - Equalizer").arg(number).arg(partner)
                              : tr("Channel %1 - Equalizer").arg(number);
    const QString name = m_mixer.mixerModel.name(channel);
    setWindowTitle(name.isEmpty() ? title : name + QLatin1String(" - ") + title);
}

void EditorWindow::openStateFile()
{
    const QString file =
        FileDialogs::open(this, m_mixer.settings,
                          {stateKind, tr("Load State"),
                           tr("States and presets (*.state *.vstpreset);;All files (*)")});
    if (!file.isEmpty())
        report(m_session->loadState(file).error(), tr("Loaded %1.").arg(file));
}

void EditorWindow::saveStateFile()
{
    const QString file =
        FileDialogs::save(this, m_mixer.settings,
                          {stateKind, tr("Save State"), stateFilter(), QString(), &withSuffix});
    if (!file.isEmpty())
        report(m_session->saveState(file).error(), tr("Saved %1.").arg(file));
}

void EditorWindow::showMessage(const QString& message)
{
    statusBar()->showMessage(message, statusTime);
}

void EditorWindow::report(const QString& error, const QString& success)
{
    if (error.isEmpty())
        showMessage(success);
    else
        MessageDialog::warn(this, windowTitle(), error);
}

#include "moc_EditorWindow.cpp"
