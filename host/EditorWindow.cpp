// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/EditorWindow.h"

#include "host/HostMemory.h"
#include "host/HostTheme.h"
#include "host/ParameterListModel.h"

#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QScreen>
#include <QScrollArea>
#include <QSpinBox>
#include <QSplitter>
#include <QStatusBar>
#include <QTableView>
#include <QToolBar>

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

EditorWindow::EditorWindow(HostMemory& memory, std::unique_ptr<QWidget> stage,
                           std::unique_ptr<EditorSession> session)
    : m_memory(memory)
    , m_session(std::move(session))
{
    setAttribute(Qt::WA_DeleteOnClose);
    auto* splitter = new QSplitter(this);
    splitter->setChildrenCollapsible(false);
    splitter->setHandleWidth(1);
    splitter->addWidget(buildEditorArea(std::move(stage)));
    splitter->addWidget(buildTable(memory));
    splitter->setStretchFactor(0, 1);
    splitter->setStretchFactor(1, 0);
    setCentralWidget(splitter);
    buildToolBar();
    buildMenus();
    statusBar()->setSizeGripEnabled(false);
    chooseSize();
    showTitle();
}

EditorWindow::~EditorWindow() = default;

void EditorWindow::setStereo(bool stereo)
{
    m_stereo->setCurrentIndex(stereo ? stereoIndex : monoIndex);
}

void EditorWindow::buildMenus()
{
    buildFileMenu(menuBar()->addMenu(tr("&File")));
    buildViewMenu(menuBar()->addMenu(tr("&View")));
}

void EditorWindow::buildFileMenu(QMenu* menu)
{
    menu->addAction(tr("&Load State..."), QKeySequence::Open, this, &EditorWindow::loadState);
    menu->addAction(tr("&Save State..."), QKeySequence::Save, this, &EditorWindow::saveState);
    menu->addSeparator();
    menu->addAction(tr("&Reset to Defaults"), this, &EditorWindow::resetToDefaults);
    menu->addSeparator();
    menu->addAction(tr("&Close"), QKeySequence::Close, this, &QWidget::close);
    menu->addAction(tr("&Quit"), QKeySequence::Quit, qApp, &QApplication::closeAllWindows);
}

void EditorWindow::buildViewMenu(QMenu* menu)
{
    menu->addAction(tr("Zoom &In"), QKeySequence::ZoomIn, this, [this] { zoomBy(zoomStep); });
    menu->addAction(tr("Zoom &Out"), QKeySequence::ZoomOut, this, [this] { zoomBy(-zoomStep); });
    menu->addAction(tr("&Actual Size"), QKeySequence(Qt::CTRL | Qt::Key_0), this,
                    [this] { m_zoom->setValue(100); });
    menu->addSeparator();
    menu->addAction(tr("&Mixer"), QKeySequence(Qt::CTRL | Qt::Key_M), this,
                    &EditorWindow::mixerWanted);
}

void EditorWindow::buildToolBar()
{
    auto* bar = addToolBar(tr("Editor"));
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    applyHostSheet(bar);
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
    m_zoom->setSuffix(tr(" %"));
    m_zoom->setKeyboardTracking(false);
    m_zoom->setValue(percentOf(settings().scale));
    connect(m_zoom, &QSpinBox::valueChanged, this,
            [this](int percent) { m_session->setScale(percent / 100.0); });
    bar->addWidget(new QLabel(tr("Zoom"), bar));
    bar->addWidget(m_zoom);
}

void EditorWindow::addStereo(QToolBar* bar)
{
    m_stereo = new QComboBox(bar);
    m_stereo->addItems({tr("Stereo"), tr("Mono")});
    m_stereo->setCurrentIndex(settings().stereo ? stereoIndex : monoIndex);
    connect(m_stereo, &QComboBox::currentIndexChanged, this, [this](int index) {
        m_session->setStereo(index == stereoIndex);
        showTitle();
    });
    bar->addWidget(new QLabel(tr("Channel"), bar));
    bar->addWidget(m_stereo);
}

void EditorWindow::addSampleRate(QToolBar* bar)
{
    auto* rates = new QComboBox(bar);
    for (const int rate : {44100, 48000, 88200, 96000, 176400, 192000})
        rates->addItem(tr("%1 Hz").arg(rate), rate);
    const int current = settings().sampleRate;
    if (rates->findData(current) < 0)
        rates->addItem(tr("%1 Hz").arg(current), current);
    rates->setCurrentIndex(rates->findData(current));
    connect(rates, &QComboBox::currentIndexChanged, this,
            [this, rates] { m_session->setSampleRate(rates->currentData().toInt()); });
    bar->addWidget(new QLabel(tr("Sampling rate"), bar));
    bar->addWidget(rates);
}

void EditorWindow::addModes(QToolBar* bar)
{
    auto* dials = new QComboBox(bar);
    dials->addItems({tr("Circular"), tr("Relative circular"), tr("Linear")});
    dials->setCurrentIndex(settings().dialMode);
    connect(dials, &QComboBox::currentIndexChanged, this,
            [this](int mode) { m_session->setDialMode(mode); });
    auto* sliders = new QComboBox(bar);
    sliders->addItems({tr("Relative"), tr("Jump"), tr("Touch"), tr("Ramp")});
    sliders->setCurrentIndex(settings().sliderMode);
    connect(sliders, &QComboBox::currentIndexChanged, this,
            [this](int mode) { m_session->setSliderMode(mode); });
    bar->addWidget(new QLabel(tr("Dials"), bar));
    bar->addWidget(dials);
    bar->addWidget(new QLabel(tr("Sliders"), bar));
    bar->addWidget(sliders);
}

QWidget* EditorWindow::buildEditorArea(std::unique_ptr<QWidget> stage)
{
    auto* area = new QScrollArea(this);
    area->setFrameShape(QFrame::NoFrame);
    area->setAlignment(Qt::AlignCenter);
    area->setBackgroundRole(QPalette::Base);
    m_stage = stage.release();
    area->setWidget(m_stage);
    return area;
}

QWidget* EditorWindow::buildTable(HostMemory& memory)
{
    m_parameters = new ParameterListModel(memory, settings().channel, this);
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
    setWindowTitle(settings().stereo
                       ? tr("Channels %1 + %2 - Equalizer").arg(channel).arg(partnerOf(channel))
                       : tr("Channel %1 - Equalizer").arg(channel));
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
    m_memory.reset(settings().channel);
    statusBar()->showMessage(tr("Every parameter is at its default."), messageTime);
}

void EditorWindow::report(const QString& fault, const QString& success)
{
    if (fault.isEmpty())
        statusBar()->showMessage(success, messageTime);
    else
        QMessageBox::warning(this, windowTitle(), fault);
}

#include "moc_EditorWindow.cpp"
