// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/meters/TestSignal.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace {

constexpr double twoPi = 6.283185307179586;
constexpr double sweepRatio = TestSignal::highestFrequency / TestSignal::lowestFrequency;
constexpr double burstDecay = 1.5; // decades that a burst has lost when the next one comes
constexpr double firstBeat = 0.6;  // seconds
constexpr double beatStep = 0.07;

} // namespace

TestSignal::TestSignal(int channel)
    : m_position(std::fmod(channel * 0.13, 1.0))
    , m_beatSeconds(firstBeat + beatStep * channel)
    , m_generator(static_cast<unsigned int>(channel) * 7919U + 1U)
{
    for (double& row : m_rows)
        m_rowSum += row = random();
}

void TestSignal::fill(std::span<double> block, double sampleRate, double seconds)
{
    std::fill(block.begin(), block.end(), 0.0);
    addSweep(block, sampleRate, seconds);
    addBursts(block, seconds);
}

double TestSignal::frequency() const { return lowestFrequency * std::pow(sweepRatio, m_position); }

// What lies above half the sampling rate is left out rather than folded back.
void TestSignal::addSweep(std::span<double> block, double sampleRate, double seconds)
{
    const double step = seconds / sweepSeconds;
    const double ratio = std::pow(sweepRatio, step / static_cast<double>(block.size()));
    double f = frequency();
    for (double& sample : block) {
        if (2.0 * f < sampleRate)
            sample += sweepAmplitude * std::sin(m_phase);
        m_phase += twoPi * f / sampleRate;
        f = f * ratio > highestFrequency ? lowestFrequency : f * ratio;
    }
    m_phase = std::fmod(m_phase, twoPi);
    m_position = std::fmod(m_position + step, 1.0);
}

void TestSignal::addBursts(std::span<double> block, double seconds)
{
    const double step = seconds / static_cast<double>(block.size());
    const double ratio = std::pow(10.0, -burstDecay * step / m_beatSeconds);
    double level = std::pow(10.0, -burstDecay * m_beatTime / m_beatSeconds);
    for (double& sample : block) {
        sample += noiseAmplitude * level * noise();
        level *= ratio;
        m_beatTime += step;
        if (m_beatTime >= m_beatSeconds) {
            m_beatTime = std::fmod(m_beatTime, m_beatSeconds);
            level = 1.0;
        }
    }
}

// Random numbers that are held for 1, 2, 4, 8 ... samples, added up: the power falls by about 3 dB
// an octave (R. F. Voss and J. Clarke, "1/f noise in music").
double TestSignal::noise()
{
    const auto row = static_cast<std::size_t>(std::countr_zero(++m_count));
    if (row < noiseRows) {
        m_rowSum -= m_rows[row];
        m_rowSum += m_rows[row] = random();
    }
    return (m_rowSum + random()) / (noiseRows + 1.0);
}

double TestSignal::random()
{
    constexpr double middle = std::minstd_rand::max() / 2.0;
    return static_cast<double>(m_generator()) / middle - 1.0;
}
