// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/analysis/SignalReader.h"

#include "engine/SignalTap.h"

#include <utility>

SignalReader::SignalReader(std::vector<SignalTap*> taps, SpectrumAnalyzer& analyzer)
    : m_taps(std::move(taps))
    , m_analyzer(analyzer)
    , m_blocks(m_taps.size())
{
    for (SignalTap* tap : m_taps)
        tap->listen();
}

SignalReader::~SignalReader()
{
    for (SignalTap* tap : m_taps)
        tap->ignore();
}

bool SignalReader::update()
{
    const std::size_t size = m_analyzer.settings().size();
    const std::uint64_t count = m_taps.front()->count();
    if (count == m_count)
        return false;
    for (std::size_t i = 0; i < m_taps.size(); ++i) {
        m_blocks[i].before.resize(size);
        m_blocks[i].after.resize(size);
        if (!m_taps[i]->read(m_blocks[i].before, m_blocks[i].after))
            return false;
    }
    const auto samples = static_cast<double>(count - std::exchange(m_count, count));
    m_analyzer.update(m_blocks, samples / m_analyzer.sampleRate());
    return true;
}
