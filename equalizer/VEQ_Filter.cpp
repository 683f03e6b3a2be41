// SPDX-License-Identifier: GPL-3.0-or-later
#include "equalizer/VEQ_Filter.h"

#include "equalizer/Decibels.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>

namespace {

constexpr std::size_t CoefficientsPerSection = 5;
constexpr std::size_t StatesPerSection = 4;

// The square roots of 2 of the shelves and of the pass filters differ in the last place.
// Deliberate: both are kept as they are.
constexpr double ShelfSqrt2 = std::numbers::sqrt2;
constexpr double PassSqrt2 = 1.414213562373095;

constexpr double DefaultFadeLength = 441.0;
constexpr double NoFadeLength = 0.002265004693079553;

using Section = std::array<double, CoefficientsPerSection>;

// (m1 s + m0) / (d1 s + d0)
struct FirstOrder
{
    double m1, m0;
    double d1, d0;
};

// (m2 s^2 + m1 s + m0) / (d2 s^2 + d1 s + d0)
struct SecondOrder
{
    double m2, m1, m0;
    double d2, d1, d0;
};

FirstOrder reciprocal(const FirstOrder& h) { return {h.d1, h.d0, h.m1, h.m0}; }

SecondOrder reciprocal(const SecondOrder& h) { return {h.d2, h.d1, h.d0, h.m2, h.m1, h.m0}; }

// s = (1 - z^-1) / (1 + z^-1)
Section bilinear(const FirstOrder& h)
{
    const double d = h.d1 + h.d0;
    return {(h.m1 + h.m0) / d, (h.m0 - h.m1) / d, 0.0, (h.d1 - h.d0) / d, 0.0};
}

Section bilinear(const SecondOrder& h)
{
    const double d = h.d2 + h.d1 + h.d0;
    return {(h.m2 + h.m1 + h.m0) / d, 2.0 * (h.m0 - h.m2) / d, (h.m2 - h.m1 + h.m0) / d,
            2.0 * (h.d2 - h.d0) / d, -(h.d2 - h.d1 + h.d0) / d};
}

template <typename Prototype> Section shelf(const Prototype& boost, double gain)
{
    return bilinear(gain < 0.0 ? reciprocal(boost) : boost);
}

double corner(double f, double fs) { return std::tan(std::numbers::pi * f / fs); }

double gainRatio(double gain) { return amplitudeRatio(std::abs(gain)); }

void write(const Section& section, double* out) { std::copy(section.begin(), section.end(), out); }

ZPlane::Complex sectionResponse(const double* c, ZPlane::Complex z1, ZPlane::Complex z2)
{
    return ZPlane::quotient(c[0] + c[1] * z1 + c[2] * z2, 1.0 - c[3] * z1 - c[4] * z2);
}

// The delay line is x[n-1], x[n-2], y[n-1], y[n-2].
double runSection(const MemArray& c, MemArray& state, double x)
{
    const double y =
        c[0] * x + c[1] * state[0] + c[2] * state[1] + c[3] * state[2] + c[4] * state[3];
    state[1] = state[0];
    state[0] = x;
    state[3] = state[2];
    state[2] = y;
    return y;
}

} // namespace

VEQ_Filter::VEQ_Filter()
    : m_fadeLength(DefaultFadeLength)
{
    setOrder(2);
}

VEQ_Filter::VEQ_Filter(long order)
    : m_fadeLength(NoFadeLength)
{
    setOrder(order);
}

void VEQ_Filter::setOrder(long order)
{
    m_order = 0;
    for (MemArray* array : {&m_state, &m_coefficients, &m_currentState, &m_currentCoefficients,
                            &m_previousState, &m_previousCoefficients})
        *array = MemArray();

    const std::int64_t count = order / 2;
    if (count == 0)
        return;

    // Locals first: a failure half-way then gives back what it had got.
    MemArray coefficients(count, CoefficientsPerSection);
    MemArray currentCoefficients(count, CoefficientsPerSection);
    MemArray previousCoefficients(count, CoefficientsPerSection);
    MemArray state(count, StatesPerSection);
    MemArray currentState(count, StatesPerSection);
    MemArray previousState(count, StatesPerSection);

    m_coefficients = std::move(coefficients);
    m_currentCoefficients = std::move(currentCoefficients);
    m_previousCoefficients = std::move(previousCoefficients);
    m_state = std::move(state);
    m_currentState = std::move(currentState);
    m_previousState = std::move(previousState);
    m_order = 2 * count;
}

void VEQ_Filter::clear()
{
    resetSamples();
    m_previousCoefficients.zero();
    m_currentCoefficients.copyFrom(m_coefficients);
    m_changed = false;
    m_fadeCounter = fadeSamples();
}

void VEQ_Filter::ChangeCoef()
{
    m_previousCoefficients.copyFrom(m_currentCoefficients, CoefficientsPerSection);
    m_currentCoefficients.copyFrom(m_coefficients, CoefficientsPerSection);
    m_previousState.copyFrom(m_state, StatesPerSection);
    std::fill_n(m_state.data(), std::min(m_state.size(), StatesPerSection), 0.0);
    m_changed = false;
    m_fadeCounter = 0;
}

void VEQ_Filter::clearDelay()
{
    if (m_order != 0)
        resetSamples();
}

void VEQ_Filter::resetSamples()
{
    m_state.zero();
    m_currentState.zero();
    m_previousState.zero();
}

void VEQ_Filter::design(const std::array<double, 5>& section)
{
    std::copy(section.begin(), section.end(), m_coefficients.data());
    m_changed = true;
}

void VEQ_Filter::setCoefLOWS(double f, double g, double fs) { setCoefLOWS_B(f, g, fs); }

void VEQ_Filter::setCoefLOWS(double f, double g, double fs, short type)
{
    type == 1 ? setCoefLOWS_B(f, g, fs) : setCoefLOWS_A(f, g, fs);
}

void VEQ_Filter::setCoefLOWS_A(double f, double g, double fs)
{
    const double k = corner(f, fs);
    const double a = gainRatio(g);
    design(shelf(FirstOrder{1.0, a * k, 1.0, k}, g));
}

void VEQ_Filter::setCoefLOWS_B(double f, double g, double fs)
{
    const double k = corner(f, fs);
    const double a = gainRatio(g);
    design(shelf(FirstOrder{1.0, k, 1.0, k / a}, g));
}

void VEQ_Filter::setCoefLOWS_2(double f, double g, double fs) { setCoefLOWS_2B(f, g, fs); }

void VEQ_Filter::setCoefLOWS_2(double f, double g, double fs, short type)
{
    type == 1 ? setCoefLOWS_2B(f, g, fs) : setCoefLOWS_2A(f, g, fs);
}

void VEQ_Filter::setCoefLOWS_2A(double f, double g, double fs)
{
    const double k = corner(f, fs);
    const double a = gainRatio(g);
    const double sqrt2A = std::sqrt(a) * ShelfSqrt2;
    design(shelf(SecondOrder{1.0, sqrt2A * k, a * k * k, 1.0, ShelfSqrt2 * k, k * k}, g));
}

void VEQ_Filter::setCoefLOWS_2B(double f, double g, double fs)
{
    const double k = corner(f, fs);
    const double a = gainRatio(g);
    const double damping = ShelfSqrt2 * (k / std::sqrt(a));
    design(shelf(SecondOrder{1.0, ShelfSqrt2 * k, k * k, 1.0, damping, k * k / a}, g));
}

void VEQ_Filter::setCoefHIGS(double f, double g, double fs) { setCoefHIGS_B(f, g, fs); }

void VEQ_Filter::setCoefHIGS(double f, double g, double fs, short type)
{
    type == 1 ? setCoefHIGS_B(f, g, fs) : setCoefHIGS_A(f, g, fs);
}

void VEQ_Filter::setCoefHIGS_A(double f, double g, double fs)
{
    const double k = corner(f, fs);
    const double a = gainRatio(g);
    design(shelf(FirstOrder{a, k, 1.0, k}, g));
}

void VEQ_Filter::setCoefHIGS_B(double f, double g, double fs)
{
    const double k = corner(f, fs);
    const double a = gainRatio(g);
    design(shelf(FirstOrder{a, a * k, 1.0, a * k}, g));
}

void VEQ_Filter::setCoefHIGS_2(double f, double g, double fs) { setCoefHIGS_2B(f, g, fs); }

void VEQ_Filter::setCoefHIGS_2(double f, double g, double fs, short type)
{
    type == 1 ? setCoefHIGS_2B(f, g, fs) : setCoefHIGS_2A(f, g, fs);
}

void VEQ_Filter::setCoefHIGS_2A(double f, double g, double fs)
{
    const double k = corner(f, fs);
    const double a = gainRatio(g);
    const double sqrt2A = std::sqrt(a) * ShelfSqrt2;
    design(shelf(SecondOrder{a, sqrt2A * k, k * k, 1.0, ShelfSqrt2 * k, k * k}, g));
}

void VEQ_Filter::setCoefHIGS_2B(double f, double g, double fs)
{
    const double k = corner(f, fs);
    const double a = gainRatio(g);
    const double sqrt2A = std::sqrt(a) * ShelfSqrt2;
    design(
        shelf(SecondOrder{a, a * (ShelfSqrt2 * k), a * (k * k), 1.0, sqrt2A * k, a * (k * k)}, g));
}

void VEQ_Filter::setCoefHPF(double f, double fs) { setCoefHPF(static_cast<long>(m_order), f, fs); }

void VEQ_Filter::setCoefHPF(long order, double f, double fs)
{
    const double k = corner(f, fs);
    if (order == 2)
        design(bilinear(SecondOrder{1.0, 0.0, 0.0, 1.0, PassSqrt2 * k, k * k}));
    else
        design(bilinear(FirstOrder{1.0, 0.0, 1.0, k}));
}

void VEQ_Filter::setCoefLPF(double f, double fs) { setCoefLPF(static_cast<long>(m_order), f, fs); }

void VEQ_Filter::setCoefLPF(long order, double f, double fs)
{
    const double k = corner(f, fs);
    if (order == 2)
        design(bilinear(SecondOrder{0.0, 0.0, k * k, 1.0, PassSqrt2 * k, k * k}));
    else
        design(bilinear(FirstOrder{0.0, k, 1.0, k}));
}

void VEQ_Filter::HpfCoefToZet(double p, double q, double* out)
{
    write(bilinear(SecondOrder{1.0, 0.0, 0.0, 1.0, p, q}), out);
}

void VEQ_Filter::LpfCoefToZet(double p, double q, double* out)
{
    write(bilinear(SecondOrder{0.0, 0.0, 1.0, 1.0, p, q}), out);
}

double VEQ_Filter::cal(double x)
{
    const std::int64_t length = fadeSamples();
    if (m_fadeCounter >= length && m_changed)
        ChangeCoef();
    if (m_fadeCounter >= length)
        return runSection(m_coefficients, m_state, x);

    const double n = static_cast<double>(m_fadeCounter);
    const double total = static_cast<double>(length);
    const double weight = 1.0 / (std::exp(-10.0 * (n - 0.5 * total) / total) + 1.0);
    const double current = runSection(m_currentCoefficients, m_state, x);
    const double previous = runSection(m_previousCoefficients, m_previousState, x);
    ++m_fadeCounter;
    return weight * current + (1.0 - weight) * previous;
}

double VEQ_Filter::cal(long x) { return cal(static_cast<double>(x)); }

void VEQ_Filter::cal(std::span<double> block)
{
    auto sample = block.begin();
    while (sample != block.end() && !isSettled()) {
        *sample = cal(*sample);
        ++sample;
    }
    Runner section = runner();
    for (; sample != block.end(); ++sample)
        *sample = section.next(*sample);
    setDelay(section);
}

VEQ_Filter::Runner VEQ_Filter::runner() const
{
    const double* c = m_coefficients.data();
    const double* s = m_state.data();
    return {c[0], c[1], c[2], c[3], c[4], s[0], s[1], s[2], s[3]};
}

void VEQ_Filter::setDelay(const Runner& runner)
{
    m_state[0] = runner.x1;
    m_state[1] = runner.x2;
    m_state[2] = runner.y1;
    m_state[3] = runner.y2;
}

double VEQ_Filter::power(double f, double fs) const
{
    return ZPlane::level(response(ZPlane::unitDelay(f, fs)));
}

double VEQ_Filter::phase(double f, double fs) const
{
    return std::arg(response(ZPlane::unitDelay(f, fs)));
}

ZPlane::Complex VEQ_Filter::response(ZPlane::Complex unitDelay) const
{
    const ZPlane::Complex twoDelays = ZPlane::product(unitDelay, unitDelay);
    const double* c = m_coefficients.data();
    ZPlane::Complex h = 1.0;
    for (std::int64_t k = sections(); k > 0; --k, c += CoefficientsPerSection)
        h = ZPlane::product(h, sectionResponse(c, unitDelay, twoDelays));
    return h;
}

void VEQ_Filter::setCoefDirect(const double* c, long n)
{
    if (m_coefficients.size() == 0)
        return;
    std::copy_n(c, coefficientsWithin(n), m_coefficients.data());
    m_changed = true;
}

void VEQ_Filter::getCoefDirect(double* c, long n) const
{
    std::copy_n(m_coefficients.data(), coefficientsWithin(n), c);
}

void VEQ_Filter::setCoefByCopy(const VEQ_Filter* other)
{
    m_order = other->m_order;
    m_coefficients.copyFrom(other->m_coefficients, CoefficientsPerSection);
}

void VEQ_Filter::SetSampleRate(double fs)
{
    m_sampleRate = fs;
    m_fadeLength = fs * 10.0 / 1000.0;
}

// The order can be another filter's (setCoefByCopy()); the storage is always this one's.
std::int64_t VEQ_Filter::sections() const
{
    const auto stored = static_cast<std::int64_t>(m_coefficients.size() / CoefficientsPerSection);
    return std::min(m_order / 2, stored);
}

std::int64_t VEQ_Filter::coefficientsWithin(std::int64_t count) const
{
    const auto all = sections() * static_cast<std::int64_t>(CoefficientsPerSection);
    return std::clamp<std::int64_t>(count, 0, all);
}

std::int64_t VEQ_Filter::fadeSamples() const
{
    constexpr double limit = 0x1p63;
    if (m_fadeLength >= limit)
        return std::numeric_limits<std::int64_t>::max();
    return m_fadeLength > 0.0 ? static_cast<std::int64_t>(m_fadeLength) : 0;
}
