// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "equalizer/MemArray.h"
#include "equalizer/ZPlane.h"

#include <cstdint>
#include <span>

/// One peaking (bell) band of the hardware equalizer, built around a second-order band-pass with
/// unity gain at its centre,
///
///     B(z) = c2 (1 - z^-2) / (1 + c0 z^-1 + c1 z^-2),
///
/// whose feedback terms are subtracted (the opposite sign of VEQ_Filter's). A boost of g dB is
/// 1 + k B and a cut of g dB 1 / (1 + k B), with k = 10^(|g| / 20) - 1, so that each undoes the
/// other exactly.
///
/// Frequencies and sample rates are in Hz, gains in dB. Arguments are not checked, except that a
/// centre too near half the sample rate gives a flat band.
///
/// To process samples: a boost is y = x + k cal_boost(x), then dlyupdate_bpf(x). A cut is
/// y = (x - k cal_cut()) r with r = 1 / (1 + c2 k), then dlyupdate_bpf(y); the factor r resolves
/// the loop around the band-pass that has no delay in it. boost() and cut() do so for blocks. What
/// the band-pass has heard means the same to both, and with k = 0 both let x through as it is, so a
/// k that moves through 0 may change from one to the other.
class FILTER2PEQ
{
public:
    /// The direction of the newest design.
    enum Mode : std::int64_t {
        ModeNone = 0,    ///< not designed yet
        ModeCut = 1,     ///< negative gain
        ModeBoost = 2,   ///< positive gain
        ModeClamped = 3, ///< the frequency was clamped to the top of the range: a flat band
    };

    /// Storage for one band-pass, all zero, mode ModeNone. Throws std::bad_alloc.
    FILTER2PEQ();

    FILTER2PEQ(const FILTER2PEQ&) = delete;
    FILTER2PEQ& operator=(const FILTER2PEQ&) = delete;
    ~FILTER2PEQ() = default;

    /// Takes new storage for the only order there is, 2; the argument is ignored. The constructor
    /// has called it already.
    void _setOrder(long);

    /// Forgets the samples heard so far.
    void clearDelay();

    /// Designs the band for centre f, sample rate fs, quality q and gain g.
    ///
    /// - A gain of exactly 0 keeps the mode: a band set to 0 dB deliberately goes on reporting its
    ///   last direction.
    /// - A centre above fs / 2 - 10 is clamped to that, with gain 0 and ModeClamped.
    /// - Above 2 or 4 kHz, by sample rate, the quality is lowered by an empirical table that makes
    ///   the digital bell match the hardware's near half the sample rate, down to 0.1 at least.
    /// - `setGain` false keeps the gain factor k of the design before.
    void setCoefBPF_C(double f, double fs, double q, double g, bool setGain);

    /// Takes over another band's order, mode, gain factor and coefficients, not what it has heard.
    void setCoefByCopy(const FILTER2PEQ* other);

    /// The complex response B of the band-pass alone.
    ZPlane::Complex response_bpf(double f, double fs) const;
    /// The same by the unit delay of a frequency.
    ZPlane::Complex response_bpf(ZPlane::Complex unitDelay) const;

    /// The complex response of the band for a gain factor k: 1 + k B and 1 / (1 + k B).
    /// @{
    ZPlane::Complex response_boost(ZPlane::Complex unitDelay, double k) const;
    ZPlane::Complex response_cut(ZPlane::Complex unitDelay, double k) const;
    /// @}

    /// The same as levels in dB, -100 where they are exactly silent. k is a factor, not dB.
    /// @{
    double power_boost(double f, double fs, double k) const;
    double power_cut(double f, double fs, double k) const;
    /// @}

    /// Advances the band-pass by one input sample.
    void dlyupdate_bpf(double x);
    /// What the band-pass answers to x, without advancing it.
    double cal_boost(double x) const;
    /// What cal_boost() answers without its direct term c2 x.
    double cal_cut() const;

    /// The band-pass with its delay line and a gain factor, taken out of the band so that a loop
    /// over several bands can keep it in registers: boost() and cut() are the two structures for
    /// one sample. What the band-pass has heard goes back with setDelay(). Sample is double, or a
    /// register of several doubles, each a signal with a band of its own.
    template <typename Sample> struct BasicRunner
    {
        /// Coefficients, gain factors, and what was heard.
        /// @{
        Sample c0{}, c1{}, c2{};
        Sample k{}, r = Sample{} + 1.0;
        Sample y1{}, y2{}, u1{}, u2{};
        /// @}

        /// Changes k, and r with it.
        void setGainFactor(Sample factor)
        {
            k = factor;
            r = 1.0 / (1.0 + c2 * factor);
        }
        /// One sample through the structure of a boost.
        Sample boost(Sample x) { return x + k * advance(x); }
        /// One sample through the structure of a cut.
        Sample cut(Sample x)
        {
            const Sample y = (x - k * (-c0 * y1 - u2 - c1 * y2)) * r;
            advance(y);
            return y;
        }

    private:
        Sample advance(Sample x)
        {
            const Sample u = c2 * x;
            const Sample y = u - u2 - c0 * y1 - c1 * y2;
            y2 = y1;
            y1 = y;
            u2 = u1;
            u1 = u;
            return y;
        }
    };
    /// Of one signal.
    using Runner = BasicRunner<double>;

    /// Each sample of a block in place with the gain factor k, bit by bit as the operations on one
    /// sample give them. The band must have storage.
    void boost(std::span<double> block, double k);
    /// The same with the structure of a cut.
    void cut(std::span<double> block, double k);

    /// The band-pass as it is now, with the gain factor \a k.
    Runner runner(double k) const;
    /// Takes back what a runner has heard.
    void setDelay(const Runner& runner);
    /// Takes over what another band has heard, as if this one's input had been the other's.
    void setDelayByCopy(const FILTER2PEQ* other);

    /// Becomes as \a other is, with what it has heard. Does not allocate.
    void copyFrom(const FILTER2PEQ& other)
    {
        setCoefByCopy(&other);
        m_state.copyFrom(other.m_state);
    }

    /// 2, or 0 without storage.
    std::int64_t order() const { return m_order; }
    /// A value of Mode.
    std::int64_t mode() const { return m_mode; }
    /// k
    double gainFactor() const { return m_gainFactor; }
    /// c2 k
    double scaledGain() const { return m_scaledGain; }
    /// c0, c1 and c2
    const double* coefficients() const { return m_coefficients.data(); }

private:
    void designBandPass(double f, double fs, double q);

    MemArray m_state; // y[n-1], y[n-2] of the band-pass, and u[n-1], u[n-2] of u = c2 x
    MemArray m_coefficients;
    std::int64_t m_order = 0;
    std::int64_t m_mode = ModeNone;
    double m_gainFactor = 0.0;
    double m_scaledGain = 0.0;
};
