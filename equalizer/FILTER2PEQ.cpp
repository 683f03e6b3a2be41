// SPDX-License-Identifier: GPL-3.0-or-later
#include "equalizer/FILTER2PEQ.h"

#include "equalizer/Decibels.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

constexpr double MinimumQuality = 0.1;
constexpr double TopMargin = 10.0;

// Applies to sample rates below `endRate` that no earlier row takes, and above the threshold.
struct QualityRow
{
    double endRate;
    double threshold;
    double c0, c1, c2;
};

// The last row is for rates that truncate to 384000; above them there is no compensation.
constexpr QualityRow QualityTable[] = {
    {48000.0, 2000.0, 1.25513, 0.0301, 4.817e-05},
    {88200.0, 2000.0, 1.25686, 0.02143, 4.103e-05},
    {96000.0, 4000.0, 1.29486, 0.0317, 2.462e-05},
    {176400.0, 4000.0, 1.21531, 0.02382, 2.004e-05},
    {192000.0, 4000.0, 1.00361995066, -0.00189199457524, 3.37063090936e-06},
    {352800.0, 4000.0, 1.00167207739, -0.00155627136929, 2.61028430333e-06},
    {384000.0, 4000.0, 1.00088954901, -0.000464497094809, 8.18066158909e-07},
    {384001.0, 4000.0, 1.00041829825, -0.000395429657653, 6.56655493056e-07},
};

double compensatedQuality(double f, double fs, double q)
{
    const auto row = std::find_if(std::begin(QualityTable), std::end(QualityTable),
                                  [fs](const QualityRow& r) { return fs < r.endRate; });
    if (row == std::end(QualityTable) || !(f > row->threshold))
        return q;
    const double ratio = row->c0 + std::log(q) / -std::numbers::ln2 * row->c1 - row->c2 * f;
    return ratio <= 1.0 ? std::max(q * ratio, MinimumQuality) : q;
}

} // namespace

FILTER2PEQ::FILTER2PEQ() { _setOrder(2); }

void FILTER2PEQ::_setOrder(long)
{
    m_coefficients = MemArray(1, 3);
    m_state = MemArray(2, 2);
    m_order = 2;
}

void FILTER2PEQ::clearDelay()
{
    if (m_order != 0)
        m_state.zero();
}

void FILTER2PEQ::setCoefBPF_C(double f, double fs, double q, double g, bool setGain)
{
    if (g < 0.0)
        m_mode = ModeCut;
    else if (g > 0.0)
        m_mode = ModeBoost;

    const double top = 0.5 * fs - TopMargin;
    if (f > top) {
        m_mode = ModeClamped;
        g = 0.0;
        f = top;
    }

    if (setGain)
        m_gainFactor = amplitudeRatio(std::abs(g)) - 1.0;
    designBandPass(f, fs, compensatedQuality(f, fs, q));
}

// The bilinear transform of (wa / q) s / (s^2 + (wa / q) s + wa^2), s = 2 fs (1 - z^-1)/(1 + z^-1).
void FILTER2PEQ::designBandPass(double f, double fs, double q)
{
    const double period = 1.0 / fs;
    const double wa = std::tan(std::numbers::pi * f * period) * 2.0 / period;
    const double p = 2.0 * wa * (1.0 / q) * period;
    const double q2 = wa * wa * period * period;
    const double d = p + 4.0 + q2;
    m_coefficients[0] = (2.0 * q2 - 8.0) / d;
    m_coefficients[1] = (4.0 - p + q2) / d;
    m_coefficients[2] = p / d;
    m_scaledGain = m_coefficients[2] * m_gainFactor;
}

void FILTER2PEQ::setCoefByCopy(const FILTER2PEQ* other)
{
    m_order = other->m_order;
    m_mode = other->m_mode;
    m_gainFactor = other->m_gainFactor;
    m_scaledGain = other->m_scaledGain;
    m_coefficients.copyFrom(other->m_coefficients);
}

ZPlane::Complex FILTER2PEQ::response_bpf(double f, double fs) const
{
    return response_bpf(ZPlane::unitDelay(f, fs));
}

ZPlane::Complex FILTER2PEQ::response_bpf(ZPlane::Complex unitDelay) const
{
    const ZPlane::Complex twoDelays = ZPlane::product(unitDelay, unitDelay);
    const double* c = m_coefficients.data();
    return ZPlane::quotient(c[2] * (1.0 - twoDelays), 1.0 + c[0] * unitDelay + c[1] * twoDelays);
}

ZPlane::Complex FILTER2PEQ::response_boost(ZPlane::Complex unitDelay, double k) const
{
    return m_order == 0 ? 0.0 : 1.0 + k * response_bpf(unitDelay);
}

ZPlane::Complex FILTER2PEQ::response_cut(ZPlane::Complex unitDelay, double k) const
{
    return m_order == 0 ? 0.0 : ZPlane::quotient(1.0, 1.0 + k * response_bpf(unitDelay));
}

double FILTER2PEQ::power_boost(double f, double fs, double k) const
{
    return ZPlane::level(response_boost(ZPlane::unitDelay(f, fs), k));
}

double FILTER2PEQ::power_cut(double f, double fs, double k) const
{
    return ZPlane::level(response_cut(ZPlane::unitDelay(f, fs), k));
}

void FILTER2PEQ::dlyupdate_bpf(double x)
{
    const double y = cal_boost(x);
    m_state[1] = m_state[0];
    m_state[0] = y;
    m_state[3] = m_state[2];
    m_state[2] = m_coefficients[2] * x;
}

double FILTER2PEQ::cal_boost(double x) const
{
    if (m_order == 0)
        return x;
    return m_coefficients[2] * x - m_state[3] - m_coefficients[0] * m_state[0] -
           m_coefficients[1] * m_state[1];
}

double FILTER2PEQ::cal_cut() const
{
    if (m_order == 0)
        return 0.0;
    return -m_coefficients[0] * m_state[0] - m_state[3] - m_coefficients[1] * m_state[1];
}

void FILTER2PEQ::boost(std::span<double> block, double k)
{
    Runner band = runner(k);
    for (double& sample : block)
        sample = band.boost(sample);
    setDelay(band);
}

void FILTER2PEQ::cut(std::span<double> block, double k)
{
    Runner band = runner(k);
    for (double& sample : block)
        sample = band.cut(sample);
    setDelay(band);
}

FILTER2PEQ::Runner FILTER2PEQ::runner(double k) const
{
    Runner band;
    band.c0 = m_coefficients[0];
    band.c1 = m_coefficients[1];
    band.c2 = m_coefficients[2];
    band.setGainFactor(k);
    band.y1 = m_state[0];
    band.y2 = m_state[1];
    band.u1 = m_state[2];
    band.u2 = m_state[3];
    return band;
}

void FILTER2PEQ::setDelay(const Runner& runner)
{
    m_state[0] = runner.y1;
    m_state[1] = runner.y2;
    m_state[2] = runner.u1;
    m_state[3] = runner.u2;
}

// The delay line holds the scaled input, and the scales differ.
void FILTER2PEQ::setDelayByCopy(const FILTER2PEQ* other)
{
    const double otherScale = other->m_coefficients[2];
    const double rescale = otherScale == 0.0 ? 0.0 : m_coefficients[2] / otherScale;
    m_state[0] = other->m_state[0];
    m_state[1] = other->m_state[1];
    m_state[2] = other->m_state[2] * rescale;
    m_state[3] = other->m_state[3] * rescale;
}
