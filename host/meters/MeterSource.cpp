// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/meters/MeterSource.h"

#include "hosting/HostMemory.h"
#include "hosting/HostModel.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace {

constexpr double nanosecond = 1e-9;

// A channel has one level at each point; both words of its pair hold it.
void put(std::vector<int>* words, std::size_t base, int channel, int level)
{
    const std::size_t first = base + 2 * static_cast<std::size_t>(channel);
    (*words)[first] = (*words)[first + 1] = level;
}

} // namespace

MeterSource::MeterSource(HostMemory& memory, std::unique_ptr<MeterProducer> producer)
    : m_memory(memory)
    , m_producer(std::move(producer))
{
    m_timer.setInterval(interval);
    m_timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] {
        const auto elapsed = static_cast<double>(m_clock.nsecsElapsed());
        m_clock.start();
        advance(elapsed * nanosecond);
    });
}

void MeterSource::setProducer(std::unique_ptr<MeterProducer> producer)
{
    m_producer = std::move(producer);
    wake();
}

void MeterSource::setEnabled(bool enabled)
{
    m_enabled = enabled;
    startOrStop();
}

void MeterSource::show(const void* viewer, const View& view)
{
    std::erase_if(m_viewers, [viewer](const Viewer& v) { return v.key == viewer; });
    m_viewers.push_back({viewer, view});
    wake();
}

void MeterSource::hide(const void* viewer)
{
    std::erase_if(m_viewers, [viewer](const Viewer& v) { return v.key == viewer; });
    startOrStop();
}

void MeterSource::wake()
{
    m_silence = 0.0;
    startOrStop();
}

void MeterSource::advance(double seconds)
{
    if (!isWanted())
        return startOrStop();
    std::array<const View*, maxChannelCount> views{};
    for (const Viewer& viewer : m_viewers) {
        for (const int channel : {viewer.view.channel, viewer.view.partner}) {
            if (channel >= 0)
                views[static_cast<std::size_t>(channel)] = &viewer.view;
        }
    }
    std::vector<int> words(HostModel::meterWordCount, MeterLevels::lowest);
    for (int channel = 0; channel < m_memory.channelCount(); ++channel) {
        if (const View* view = views[static_cast<std::size_t>(channel)])
            read(*view, channel, seconds, &words);
    }
    const bool silent = std::all_of(words.begin(), words.end(),
                                    [](int word) { return word == MeterLevels::lowest; });
    m_silence = silent ? m_silence + seconds : 0.0;
    m_memory.meters().notify(words);
    if (isAtRest())
        startOrStop();
}

bool MeterSource::isWanted() const
{
    return m_enabled && !m_viewers.empty() && m_memory.meters().hasObservers();
}

bool MeterSource::isAtRest() const { return m_silence >= restsAfter && m_producer->isResting(); }

void MeterSource::startOrStop()
{
    if ((isWanted() && !isAtRest()) == m_timer.isActive())
        return;
    if (m_timer.isActive())
        return m_timer.stop();
    m_clock.start();
    m_timer.start();
}

void MeterSource::read(const View& view, int channel, double seconds, std::vector<int>* words)
{
    const MeterLevels levels =
        m_producer->read(channel, m_memory.values(channel), view.sampleRate, seconds);
    put(words, HostModel::sendMeter, channel, levels.send);
    put(words, HostModel::returnMeter, channel, levels.returned);
}
