// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/MixerDesk.h"

#include "host/audio/AudioSession.h"
#include "host/model/MixerModel.h"
#include "host/window/MasterStrip.h"
#include "host/window/MixerStrip.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace {

constexpr int stripGap = 2;     // between strips and around them
constexpr int fewestStrips = 6; // narrower, what is above them would be cut short

// Scrolls to whole strips, as the desk says, instead of to what has the focus, and sideways by any
// wheel while there is nothing to scroll up or down.
class StripArea final : public QScrollArea
{
public:
    using QScrollArea::QScrollArea;

protected:
    bool focusNextPrevChild(bool next) override
    {
        return QAbstractScrollArea::focusNextPrevChild(next);
    }

    void wheelEvent(QWheelEvent* event) override
    {
        if (verticalScrollBar()->maximum() > 0)
            return QScrollArea::wheelEvent(event);
        QCoreApplication::sendEvent(horizontalScrollBar(), event);
    }
};

void fill(QScrollArea* area, QWidget* content)
{
    area->setFrameShape(QFrame::NoFrame);
    area->setBackgroundRole(QPalette::Base);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidgetResizable(true);
    area->setWidget(content);
}

QHBoxLayout* rowIn(QWidget* widget, int margin)
{
    auto* row = new QHBoxLayout(widget);
    row->setContentsMargins(margin, margin, margin, margin);
    row->setSpacing(margin);
    return row;
}

// What Tab stops at in a strip, in its order.
QWidgetList stopsOf(MixerStrip* strip)
{
    QWidgetList stops;
    for (QWidget* part : strip->findChildren<QWidget*>()) {
        const bool isProxy = part->parentWidget()->focusProxy() == part;
        if (part->focusPolicy() & Qt::TabFocus && !isProxy)
            stops << part;
    }
    return stops;
}

// Otherwise the walk comes to what is new in the end.
void walkAfter(MixerStrip* before, MixerStrip* strip)
{
    QWidget* last = stopsOf(before).constLast();
    for (QWidget* next : stopsOf(strip)) {
        QWidget::setTabOrder(last, next);
        last = next;
    }
}

} // namespace

MixerDesk::MixerDesk(MixerModel& mixerModel, QWidget* parent)
    : QWidget(parent)
    , m_mixerModel(mixerModel)
    , m_row(new QWidget(this))
    , m_area(new StripArea(this))
{
    rowIn(m_row, stripGap)->addStretch(1);
    fill(m_area, m_row);
    followCount();
    m_master = new MasterStrip(mixerModel, this);
    auto* masterArea = new QScrollArea(this); // in a low window, too
    fill(masterArea, m_master);
    masterArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    masterArea->setFixedWidth(MixerStrip::stripWidth + stripGap);
    QHBoxLayout* layout = rowIn(this, 0);
    layout->addWidget(m_area, 1);
    auto* masterColumn = new QVBoxLayout;
    masterColumn->addWidget(masterArea);
    layout->addLayout(masterColumn);
    // As high as the strips, so that what stands in one line stays in one.
    const QScrollBar* bar = m_area->horizontalScrollBar();
    connect(bar, &QScrollBar::rangeChanged, masterColumn, [bar, masterColumn](int, int last) {
        masterColumn->setContentsMargins(0, 0, 0, last > 0 ? bar->sizeHint().height() : 0);
    });
}

void MixerDesk::followCount()
{
    const int count = m_mixerModel.channelCount();
    while (m_strips.size() > count)
        delete m_strips.takeLast();
    while (m_strips.size() < count)
        addStrip();
    select(std::min(m_selected, count - 1));
    showPairs();
}

void MixerDesk::addStrip()
{
    const int channel = static_cast<int>(m_strips.size());
    auto* strip = new MixerStrip(m_mixerModel, channel, m_row);
    strip->setVisible(isShown(channel)); // the layout would show what nobody hides
    connect(strip, &MixerStrip::editorWanted, this, &MixerDesk::editorWanted);
    connect(strip, &MixerStrip::selected, this, &MixerDesk::select);
    connect(strip, &MixerStrip::walkedTo, this,
            [this, strip](QWidget* control) { scrollTo(*strip, control); });
    static_cast<QHBoxLayout*>(m_row->layout())->insertWidget(channel, strip);
    if (m_master)
        walkAfter(m_strips.constLast(), strip);
    m_strips << strip;
}

bool MixerDesk::isShown(int channel) const { return m_mixerModel.leaderOf(channel) == channel; }

void MixerDesk::showPairs()
{
    for (MixerStrip* strip : std::as_const(m_strips)) {
        const bool shown = isShown(strip->channel());
        if (strip->isVisibleTo(m_row) != shown)
            strip->setVisible(shown);
    }
    if (!isShown(m_selected))
        select(m_mixerModel.leaderOf(m_selected));
}

void MixerDesk::select(int channel)
{
    m_selected = channel;
    for (MixerStrip* strip : std::as_const(m_strips))
        strip->setSelected(strip->channel() == channel);
}

void MixerDesk::showMeters(const unsigned int* words, unsigned int count)
{
    for (MixerStrip* strip : std::as_const(m_strips))
        strip->showMeters(words, count);
    const AudioSession* transport = m_mixerModel.transport();
    m_master->showLevels(transport ? transport->outputLevels() : MeterLevels{});
}

void MixerDesk::retranslate()
{
    m_master->retranslate();
    for (MixerStrip* strip : std::as_const(m_strips))
        strip->retranslate();
}

QSize MixerDesk::wholeSize() const
{
    const int strip = MixerStrip::stripWidth + stripGap;
    const int count = std::max(static_cast<int>(m_strips.size()), fewestStrips);
    return {count * strip + stripGap + strip + stripGap, MixerStrip::stripHeight + 2 * stripGap};
}

// Only as far as it takes.
void MixerDesk::scrollTo(const MixerStrip& strip, QWidget* control)
{
    m_area->ensureWidgetVisible(control, 0, stripGap);
    const int first = strip.x() - stripGap;
    const int last = strip.x() + strip.width() + stripGap;
    QScrollBar* bar = m_area->horizontalScrollBar();
    bar->setValue(std::min(std::max(bar->value(), last - m_area->viewport()->width()), first));
}

#include "moc_MixerDesk.cpp"
