// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/AlignmentDelay.h"

#include <utility>

void AlignmentDelay::setSampleRate(double hertz) { m_share.setLength(rampSamples(hertz)); }

void AlignmentDelay::reset()
{
    m_late.fill(0.0F);
    m_share.jumpTo(false);
}

void AlignmentDelay::process(std::span<float> block)
{
    for (float& sample : block) {
        const float late = std::exchange(m_late[m_oldest], sample);
        m_oldest = m_oldest + 1 < m_late.size() ? m_oldest + 1 : 0;
        if (m_share.isOut())
            continue;
        const double share = m_share.next();
        sample = static_cast<float>(share * double{late} + (1.0 - share) * double{sample});
    }
}
