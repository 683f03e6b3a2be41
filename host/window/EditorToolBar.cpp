// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/EditorToolBar.h"

#include "host/window/EditorSession.h"
#include "host/window/HostTheme.h"
#include "host/window/ToolBarExtension.h"

#include <QComboBox>
#include <QEvent>
#include <QLabel>
#include <QSpinBox>

#include <cmath>

namespace {

constexpr int smallestZoom = 50;
constexpr int largestZoom = 400;
constexpr int zoomStep = 25;
constexpr int stereoIndex = 0;
constexpr int monoIndex = 1;

int percentOf(double scale) { return static_cast<int>(std::lround(scale * 100.0)); }

} // namespace

EditorToolBar::EditorToolBar(EditorSession& session, QWidget* parent)
    : QToolBar(parent)
    , m_session(session)
{
    setObjectName(QStringLiteral("editorToolBar")); // for the window's state
    m_texts.add([this] { setWindowTitle(tr("Editor")); });
    setMovable(false);
    setContextMenuPolicy(Qt::PreventContextMenu);
    applyHostSheet(this);
    addZoom();
    addStereo();
    addSampleRate();
    addModes();
    completeToolBar(*this, m_texts);
}

void EditorToolBar::setStereo(bool stereo)
{
    m_stereo->setCurrentIndex(stereo ? stereoIndex : monoIndex);
}

void EditorToolBar::setScale(double scale) { m_zoom->setValue(percentOf(scale)); }

void EditorToolBar::zoomBy(int steps) { m_zoom->stepBy(steps); }

void EditorToolBar::followRate(int hertz)
{
    m_rates->setEnabled(hertz == 0);
    if (hertz > 0)
        chooseRate(hertz);
    m_texts.retranslate();
}

void EditorToolBar::fixChannel() { m_stereo->setEnabled(false); }

void EditorToolBar::changeEvent(QEvent* event)
{
    QToolBar::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        m_texts.retranslate();
}

void EditorToolBar::addZoom()
{
    m_zoom = new QSpinBox(this);
    m_zoom->setRange(smallestZoom, largestZoom);
    m_zoom->setSingleStep(zoomStep);
    m_texts.add([this] { m_zoom->setSuffix(tr(" %")); });
    m_texts.add([this] { m_zoom->setAccessibleName(tr("UI zoom")); });
    m_zoom->setKeyboardTracking(false);
    setScale(m_session.settings().scale);
    connect(m_zoom, &QSpinBox::valueChanged, this, [this](int percent) {
        m_session.setScale(percent / 100.0);
        Q_EMIT scaleChanged();
    });
    addNamed(m_zoom, [] { return tr("UI zoom"); });
}

void EditorToolBar::addStereo()
{
    m_stereo = m_texts.choice(this, [] { return QStringList{tr("Stereo"), tr("Mono")}; });
    setStereo(m_session.settings().stereo);
    connect(m_stereo, &QComboBox::currentIndexChanged, this, [this](int index) {
        m_session.setStereo(index == stereoIndex);
        Q_EMIT stereoChanged();
    });
    connect(m_stereo, &QComboBox::activated, this,
            [this](int index) { Q_EMIT stereoChosen(index == stereoIndex); });
    addNamed(m_stereo, [] { return tr("Channel"); });
}

void EditorToolBar::addSampleRate()
{
    m_rates = new QComboBox(this);
    for (const int rate : {44100, 48000, 88200, 96000, 176400, 192000})
        m_rates->addItem(QStringLiteral("%1 Hz").arg(rate), rate);
    chooseRate(m_session.settings().sampleRate);
    connect(m_rates, &QComboBox::currentIndexChanged, this, [this] {
        m_session.setSampleRate(m_rates->currentData().toInt());
        Q_EMIT sampleRateChanged(m_session.settings().sampleRate);
    });
    m_texts.add([this] {
        m_rates->setToolTip(m_rates->isEnabled() ? tr("The rate that the curve is drawn for")
                                                 : tr("The curve is drawn for the rate that the "
                                                      "sound device runs at. It can be chosen "
                                                      "while nothing plays."));
    });
    addNamed(m_rates, [] { return tr("Sampling rate"); });
}

void EditorToolBar::chooseRate(int hertz)
{
    if (m_rates->findData(hertz) < 0)
        m_rates->addItem(QStringLiteral("%1 Hz").arg(hertz), hertz);
    m_rates->setCurrentIndex(m_rates->findData(hertz));
}

void EditorToolBar::addModes()
{
    auto* dials = m_texts.choice(this, [] {
        return QStringList{tr("Circular"), tr("Relative circular"), tr("Linear")};
    });
    dials->setCurrentIndex(m_session.settings().dialMode);
    connect(dials, &QComboBox::currentIndexChanged, this, [this](int mode) {
        m_session.setDialMode(mode);
        Q_EMIT modesChanged();
    });
    auto* sliders = m_texts.choice(this, [] {
        return QStringList{tr("Relative"), tr("Jump"), tr("Touch"), tr("Ramp")};
    });
    sliders->setCurrentIndex(m_session.settings().sliderMode);
    connect(sliders, &QComboBox::currentIndexChanged, this, [this](int mode) {
        m_session.setSliderMode(mode);
        Q_EMIT modesChanged();
    });
    addNamed(dials, [] { return tr("Dials"); });
    addNamed(sliders, [] { return tr("Sliders"); });
}

// Assistive technology reads the name of a choice from the label beside it.
void EditorToolBar::addNamed(QWidget* control, const Retranslator::Text& name)
{
    QLabel* label = m_texts.label(this, name);
    label->setBuddy(control);
    addWidget(label);
    addWidget(control);
}

#include "moc_EditorToolBar.cpp"
