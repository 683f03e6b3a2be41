// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/BypassPath.h"

#include "engine/ChannelProcessor.h"

#include <algorithm>
#include <cmath>

void BypassPath::setSampleRate(double hertz)
{
    m_share.setLength(rampSamples(hertz));
    m_lateShare.setLength(rampSamples(hertz));
    m_gainLength = std::max<std::int64_t>(1, std::llround(hertz * gainSeconds));
    reset();
}

void BypassPath::reset()
{
    clear();
    m_isFresh = true;
}

void BypassPath::set(bool on) { m_isFresh ? m_share.jumpTo(on) : m_share.moveTo(on); }

void BypassPath::setLate(bool late)
{
    m_isFresh || !isUsed() ? m_lateShare.jumpTo(late) : m_lateShare.moveTo(late);
}

void BypassPath::setGain(double factor)
{
    isUsed() ? m_gain.moveTo(factor, m_gainLength) : m_gain.jumpTo(factor);
}

void BypassPath::addInput(std::span<const double> block)
{
    m_isFresh = false;
    for (std::size_t i = 0; isUsed() && i < block.size(); ++i) {
        const double late = i < m_past.size() ? m_past[i] : block[i - m_past.size()];
        m_block[i] = nextOf(ChannelProcessor::heard(block[i]), ChannelProcessor::heard(late));
    }
    const std::size_t kept = std::min(block.size(), m_past.size());
    std::copy(m_past.begin() + static_cast<std::ptrdiff_t>(kept), m_past.end(), m_past.begin());
    std::copy(block.end() - static_cast<std::ptrdiff_t>(kept), block.end(),
              m_past.end() - static_cast<std::ptrdiff_t>(kept));
}

void BypassPath::process(std::span<double> block)
{
    for (std::size_t i = 0; isUsed() && i < block.size(); ++i) {
        const double around = m_gain.next() * m_block[i];
        if (m_share.isMoving())
            block[i] += m_share.next() * (around - block[i]);
        else
            block[i] = around;
    }
}

double BypassPath::nextOf(double now, double late)
{
    if (m_lateShare.isOut())
        return now;
    if (!m_lateShare.isMoving())
        return late;
    return now + m_lateShare.next() * (late - now);
}
