// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "equalizer/MemArray.h"
#include "equalizer/ZPlane.h"

#include <array>
#include <cstdint>
#include <span>

/// A cascade of second-order sections that reproduces the outer bands of the hardware equalizer:
/// first- and second-order shelves, and Butterworth high-pass and low-pass filters, all by the
/// bilinear transform with a pre-warped corner.
///
/// Frequencies and sample rates are in Hz, gains in dB, phases in radians. A section is
///
///     H(z) = (b0 + b1 z^-1 + b2 z^-2) / (1 - a1 z^-1 - a2 z^-2)
///
/// and its five coefficients stand in the order b0, b1, b2, a1, a2. The feedback terms are stored
/// with the sign they are added with: y[n] = b0 x[n] + b1 x[n-1] + b2 x[n-2] + a1 y[n-1] + a2
/// y[n-2]. A first-order design leaves b2 and a2 at zero.
///
/// Every design writes section 0 only, and the per-sample path runs section 0 only; power() and
/// phase() cover the whole cascade. Arguments are not checked: a corner at or above half the
/// sample rate gives what the formulas give. A filter without storage (order 0) answers 0 dB and
/// must neither be designed nor run.
class VEQ_Filter
{
public:
    /// Order 2, a cross-fade of 441 samples.
    VEQ_Filter();

    /// As setOrder(), with a cross-fade so short that it truncates to no samples at all: a filter
    /// made this way never cross-fades. Deliberate.
    explicit VEQ_Filter(long order);

    VEQ_Filter(const VEQ_Filter&) = delete;
    VEQ_Filter& operator=(const VEQ_Filter&) = delete;
    ~VEQ_Filter() = default;

    /// Replaces all storage by zeros for order / 2 sections; an odd order counts as the even one
    /// next to it toward zero, and order 0 has no storage. Throws std::bad_alloc when there is no
    /// memory or the order is below -1; the filter is then of order 0.
    void setOrder(long order);
    /// Twice the number of sections.
    std::int64_t order() const { return m_order; }

    /// Makes the newest design take effect at once, from silence.
    void clear();
    /// Starts the cross-fade to the newest design at the next sample.
    void ChangeCoef();
    /// Forgets the samples heard so far.
    void clearDelay();

    /// Low shelves: gain g at DC, 0 dB at half the sample rate. In variant A the corner f is where
    /// the pole (or pole pair) lies, in variant B the zero. A cut is the exact reciprocal of the
    /// boost of the same size. `type` 1 is variant B, any other type variant A; without a type it
    /// is variant B.
    /// @{
    void setCoefLOWS(double f, double g, double fs);
    void setCoefLOWS(double f, double g, double fs, short type);
    void setCoefLOWS_A(double f, double g, double fs);
    void setCoefLOWS_B(double f, double g, double fs);
    void setCoefLOWS_2(double f, double g, double fs);
    void setCoefLOWS_2(double f, double g, double fs, short type);
    void setCoefLOWS_2A(double f, double g, double fs);
    void setCoefLOWS_2B(double f, double g, double fs);
    /// @}

    /// High shelves: 0 dB at DC, gain g at half the sample rate; otherwise as the low shelves.
    /// @{
    void setCoefHIGS(double f, double g, double fs);
    void setCoefHIGS(double f, double g, double fs, short type);
    void setCoefHIGS_A(double f, double g, double fs);
    void setCoefHIGS_B(double f, double g, double fs);
    void setCoefHIGS_2(double f, double g, double fs);
    void setCoefHIGS_2(double f, double g, double fs, short type);
    void setCoefHIGS_2A(double f, double g, double fs);
    void setCoefHIGS_2B(double f, double g, double fs);
    /// @}

    /// Butterworth pass filters, -3 dB at f: of second order if `order` is 2, otherwise of first
    /// order. Without an argument the stored order decides.
    /// @{
    void setCoefHPF(double f, double fs);
    void setCoefHPF(long order, double f, double fs);
    void setCoefLPF(double f, double fs);
    void setCoefLPF(long order, double f, double fs);
    /// @}

    /// The section of the analog s^2 / (s^2 + p s + q), written to five doubles.
    static void HpfCoefToZet(double p, double q, double* out);
    /// The section of the analog 1 / (s^2 + p s + q), written to five doubles. The numerator is
    /// deliberately not scaled by q, so the gain at DC is 1 / q.
    static void LpfCoefToZet(double p, double q, double* out);

    /// One sample in, one sample out. A design set since the last call is cross-faded in over the
    /// fade length; a fade that is under way runs to its end first.
    double cal(double x);
    /// The same for a sample that is a whole number.
    double cal(long x);
    /// Each sample of a block in place, bit by bit as cal(double) gives them.
    void cal(std::span<double> block);

    /// Section 0 with its delay line, taken out of the filter so that a loop over several filters
    /// can keep it in registers: next() is what cal() does while the filter is settled. What the
    /// section has heard goes back with setDelay(). Sample is double, or a register of several
    /// doubles, each a signal with a section of its own.
    template <typename Sample> struct BasicRunner
    {
        /// Coefficients, and what was heard.
        /// @{
        Sample b0 = Sample{} + 1.0, b1{}, b2{}, a1{}, a2{};
        Sample x1{}, x2{}, y1{}, y2{};
        /// @}

        /// One sample in, one sample out.
        Sample next(Sample x)
        {
            const Sample y = b0 * x + b1 * x1 + b2 * x2 + a1 * y1 + a2 * y2;
            x2 = x1;
            x1 = x;
            y2 = y1;
            y1 = y;
            return y;
        }
    };
    /// Of one signal.
    using Runner = BasicRunner<double>;

    /// Whether neither a cross-fade runs nor a new design waits for one.
    bool isSettled() const { return !m_changed && m_fadeCounter >= fadeSamples(); }
    /// Section 0 as it is now.
    Runner runner() const;
    /// Takes back what a runner has heard.
    void setDelay(const Runner& runner);

    /// The level of the whole cascade at f in dB, -100 where it is exactly silent.
    double power(double f, double fs) const;
    /// The phase of the whole cascade at f.
    double phase(double f, double fs) const;
    /// The complex response of the whole cascade; power() and phase() are views of it. Callers
    /// with several filters compute the unit delay of a frequency once (ZPlane::unitDelay()).
    ZPlane::Complex response(ZPlane::Complex unitDelay) const;

    /// Copy at most `n` coefficients, section after section, in and out; the rest stays.
    /// @{
    void setCoefDirect(const double* c, long n);
    void getCoefDirect(double* c, long n) const;
    /// @}

    /// Takes over another filter's order number and first section. It does not count as a new
    /// design, so cal() does not cross-fade to it. Storage stays as it is: an order beyond it adds
    /// no sections to the response.
    void setCoefByCopy(const VEQ_Filter* other);

    /// Becomes as \a other is, with what it has heard and a cross-fade under way, as far as there
    /// is storage. Does not allocate.
    void copyFrom(const VEQ_Filter& other);

    /// Sets the fade length to 10 ms at this rate. The designs are given their rate themselves.
    void SetSampleRate(double fs);
    /// In Hz.
    double sampleRate() const { return m_sampleRate; }

private:
    void design(const std::array<double, 5>& section);
    void resetSamples();
    std::int64_t sections() const;
    std::int64_t coefficientsWithin(std::int64_t count) const;
    std::int64_t fadeSamples() const;

    MemArray m_state;
    MemArray m_coefficients;
    MemArray m_currentState;
    MemArray m_currentCoefficients;
    MemArray m_previousState;
    MemArray m_previousCoefficients;
    double m_sampleRate = 44100.0;
    bool m_changed = true;
    double m_fadeLength;
    std::int64_t m_fadeCounter = 0;
    std::int64_t m_order = 0;
};

inline void VEQ_Filter::copyFrom(const VEQ_Filter& other)
{
    m_state.copyFrom(other.m_state);
    m_coefficients.copyFrom(other.m_coefficients);
    m_currentState.copyFrom(other.m_currentState);
    m_currentCoefficients.copyFrom(other.m_currentCoefficients);
    m_previousState.copyFrom(other.m_previousState);
    m_previousCoefficients.copyFrom(other.m_previousCoefficients);
    m_sampleRate = other.m_sampleRate;
    m_changed = other.m_changed;
    m_fadeLength = other.m_fadeLength;
    m_fadeCounter = other.m_fadeCounter;
    m_order = other.m_order;
}
