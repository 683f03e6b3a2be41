// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/analysis/SpectrumAnalyzer.h"

#include <cstdint>
#include <span>
#include <vector>

class SignalTap;

/// Feeds an analyzer with what runs through a channel, or through both of a pair. It listens for as
/// long as it lives.
class SignalReader
{
public:
    /// The taps must outlive it.
    SignalReader(std::vector<SignalTap*> taps, SpectrumAnalyzer& analyzer);
    ~SignalReader();
    SignalReader(const SignalReader&) = delete;
    SignalReader& operator=(const SignalReader&) = delete;

    /// Hands on the newest samples; false where there are none, or not enough yet.
    bool update();

private:
    std::vector<SignalTap*> m_taps;
    SpectrumAnalyzer& m_analyzer;
    std::vector<SpectrumAnalyzer::Block> m_blocks;
    std::uint64_t m_count = 0; // of the samples at the last update
};
