// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/model/MixerModel.h"

#include "host/audio/AudioSession.h"
#include "host/model/ChannelText.h"

#include <QClipboard>
#include <QGuiApplication>

#include <utility>

MixerModel::MixerModel(HostMemory& memory)
    : m_memory(memory)
    , m_history(memory)
    , m_compare(memory, m_history)
    , m_presets(memory)
{
    m_memory.addChangeListener(this);
}

MixerModel::~MixerModel() { m_memory.removeChangeListener(this); }

void MixerModel::chooseChannelCount(int count)
{
    const int before = channelCount();
    if (before == count)
        return;
    EditHistory::Step step(m_history, tr("Number of Channels"));
    step.setEffect(
        [this, before, count](bool forward) { setChannelCount(forward ? count : before); });
    setChannelCount(count);
}

void MixerModel::setChannelCount(int count) { m_memory.setChannelCount(count); }

QString MixerModel::shownName(int channel) const
{
    const QString given = name(channel);
    return given.isEmpty() ? tr("Channel %1").arg(shownNumber(channel)) : given;
}

void MixerModel::rename(int channel, const QString& name)
{
    const QString before = this->name(channel);
    const QString after = name.simplified();
    if (before == after)
        return;
    EditHistory::Step step(m_history, tr("Rename"));
    step.setEffect([this, channel, before, after](bool forward) {
        setName(channel, forward ? after : before);
    });
    setName(channel, after);
}

void MixerModel::setName(int channel, const QString& name)
{
    m_names[static_cast<std::size_t>(channel)] = name;
    Q_EMIT nameChanged(channel);
}

bool MixerModel::isPair(int channel) const
{
    return m_memory.strip(channel & ~1, StripParameter::Stereo) != 0;
}

ChannelValues MixerModel::soundingValues(int channel) const
{
    const int leader = leaderOf(channel);
    const ChannelValues& values = m_memory.values(leader);
    const bool on = m_memory.strip(leader, StripParameter::EqualizerOn) != 0;
    return on ? values : bypassed(values);
}

bool MixerModel::isAudible(int channel) const
{
    const int leader = leaderOf(channel);
    bool someSolo = false;
    for (int ch = 0; ch < channelCount(); ++ch)
        someSolo =
            someSolo || (leaderOf(ch) == ch && m_memory.strip(ch, StripParameter::Solo) != 0);
    return m_memory.strip(leader, StripParameter::Mute) == 0 &&
           (!someSolo || m_memory.strip(leader, StripParameter::Solo) != 0);
}

void MixerModel::copyToClipboard(int channel) const
{
    QGuiApplication::clipboard()->setMimeData(
        ChannelText::toMime(m_memory.values(channel)).release());
}

bool MixerModel::canPaste() const
{
    return ChannelText::canPaste(QGuiApplication::clipboard()->mimeData());
}

Status MixerModel::pasteFromClipboard(int channel)
{
    const Result<HostMemory::Values> values =
        ChannelText::fromMime(QGuiApplication::clipboard()->mimeData(), m_memory.values(channel));
    if (!values.isOk())
        return values.status();
    const EditHistory::Step step(m_history, tr("Paste"));
    m_memory.write(channel, values.value());
    return {};
}

void MixerModel::feed(int channel, bool live)
{
    const int first = live ? int{SourceInput1} : int{SourceFile};
    const int last = live ? SourceOff - 1 : int{SourceFile};
    for (int each = 0; each < channelCount(); ++each) {
        const int source = m_memory.strip(leaderOf(each), StripParameter::Source);
        if (source >= first && source <= last)
            return;
    }
    const EditHistory::Pause pause(m_history);
    m_memory.setStrip(leaderOf(channel), StripParameter::Source, first);
}

AudioSession* MixerModel::transport() const { return m_transport; }

void MixerModel::setTransport(AudioSession* transport)
{
    m_transport = transport;
    if (transport)
        connect(transport, &AudioSession::changed, this, &MixerModel::followRate);
    followRate();
    Q_EMIT transportChanged();
}

void MixerModel::followRate()
{
    const int rate = m_transport ? m_transport->runningRate() : 0;
    if (std::exchange(m_soundingRate, rate) != rate)
        Q_EMIT soundingRateChanged(rate);
}

void MixerModel::changed(unsigned short, unsigned short ch, int, int) { Q_EMIT channelChanged(ch); }

void MixerModel::countChanged(int channels) { Q_EMIT channelCountChanged(channels); }

#include "moc_MixerModel.cpp"
