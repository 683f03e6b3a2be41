// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/GraphRange.h"

#include "equalizer/BandDesign.h"
#include "host/window/EditorSession.h"
#include "host/window/Mixer.h"
#include "host/window/Retranslator.h"

#include <QActionGroup>
#include <QMenu>

#include <algorithm>
#include <cmath>

namespace {

const QString automaticName = QStringLiteral("automaticGraphRange");
constexpr int heldInterval = 50; // ms between looks at a mouse button that is held
constexpr double atEdge = 0.05;  // dB
constexpr double pointRatio = 1.0594630943592953;
constexpr int wide = 1;
constexpr int widest = 0;

} // namespace

GraphRange::GraphRange(Mixer& mixer, EditorSession& session, QObject* parent)
    : QObject(parent)
    , m_mixer(mixer)
    , m_session(session)
{
    m_due.setSingleShot(true);
    m_due.callOnTimeout(this, &GraphRange::widen);
    connect(&mixer.mixerModel, &MixerModel::channelChanged, this, [this](int channel) {
        if (channel == m_session.settings().channel)
            m_due.start(0);
    });
    m_due.start(0);
}

void GraphRange::fill(QMenu* menu, Retranslator& texts)
{
    m_automatic = texts.action(menu, [] { return tr("&Automatic"); });
    m_automatic->setCheckable(true);
    connect(m_automatic, &QAction::triggered, this, [this](bool on) {
        m_mixer.settings.setPreference(automaticName, on);
        m_due.start(0);
    });
    menu->addSeparator();
    m_choices = new QActionGroup(menu);
    for (const int range : EditorSession::graphRanges) {
        QAction* action = menu->addAction(QStringLiteral(u"\u00b1%1 dB").arg(range));
        action->setCheckable(true);
        m_choices->addAction(action);
        const auto index = static_cast<int>(m_choices->actions().size()) - 1;
        connect(action, &QAction::triggered, this,
                [this, index] { m_session.setGraphRange(index); });
    }
    connect(menu, &QMenu::aboutToShow, this, &GraphRange::show);
    show();
}

double GraphRange::farthest(const ChannelValues& values, double sampleRate)
{
    EqualizerBands bands;
    bands.setSampleRate(sampleRate);
    setBands(bands, values);
    double level = 0.0;
    for (int band = 0; band < EqualizerBands::Count; ++band) {
        bands[band].on = bands[band].on && bands.hasGain(band);
        if (bands[band].on)
            level = std::max(level, std::abs(bands[band].gain));
    }
    const EqualizerResponse response = bands.response();
    for (double frequency = BandDesign::MinimumFrequency; frequency < BandDesign::MaximumFrequency;
         frequency *= pointRatio)
        level = std::max(level, std::abs(response.levels(frequency, sampleRate).total));
    return level;
}

bool GraphRange::isAutomatic() const
{
    return m_mixer.settings.preference(automaticName, true).toBool();
}

void GraphRange::widen()
{
    if (m_mixer.mixerModel.history().isDragging())
        return m_due.start(heldInterval);
    if (!isAutomatic())
        return;
    const EditorSettings& settings = m_session.settings();
    const double needed =
        farthest(m_mixer.memory.values(settings.channel), settings.sampleRate) - atEdge;
    const auto reach = [](int index) {
        return EditorSession::graphRanges[static_cast<std::size_t>(index)];
    };
    if (needed > reach(m_session.graphRange()))
        m_session.setGraphRange(needed > reach(wide) ? widest : wide);
}

// The editor's own keys change the range, too.
void GraphRange::show()
{
    m_automatic->setChecked(isAutomatic());
    m_choices->actions().at(m_session.graphRange())->setChecked(true);
}

#include "moc_GraphRange.cpp"
