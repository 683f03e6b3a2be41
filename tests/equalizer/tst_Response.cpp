// SPDX-License-Identifier: GPL-3.0-or-later
#include "equalizer/BandDesign.h"
#include "equalizer/Response.h"
#include "tests/equalizer/FilterTesting.h"
#include "tests/support/TestObject.h"

#include <array>

namespace {

constexpr double Fs = 44100.0;

struct MiddleSettings
{
    double frequency;
    double quality;
    double gain;
};

constexpr std::array<MiddleSettings, 4> Middles = {
    {{400.0, 1.5, 9.0}, {800.0, 4.0, -12.0}, {2500.0, 0.7, 0.0}, {5600.0, 16.0, -20.0}}};

// Six bands, of which the bits of `enabled` are on, in band order.
struct Equalizer
{
    explicit Equalizer(unsigned enabled)
    {
        BandDesign::designLow(low, BandDesign::SecondOrderShelf, 80.0, 6.0, Fs);
        BandDesign::designHigh(high, BandDesign::FirstOrderPass, 12500.0, 0.0, Fs);
        for (std::size_t i = 0; i < Middles.size(); ++i) {
            const MiddleSettings& m = Middles[i];
            BandDesign::designMiddle(middle[i], m.frequency, m.quality, m.gain, Fs);
            if (enabled >> (1 + i) & 1)
                response.middle[i].emplace(middle[i], m.gain);
        }
        response.low = enabled & 1 ? &low : nullptr;
        response.high = enabled >> 5 & 1 ? &high : nullptr;
    }

    VEQ_Filter low;
    std::array<FILTER2PEQ, 4> middle;
    VEQ_Filter high;
    EqualizerResponse response;
};

} // namespace

class tst_Response : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void bandLevelsAreTheFilters();
    void totalIsTheSumOfTheEnabledBands_data();
    void totalIsTheSumOfTheEnabledBands();
    void gainFactorIsTheBandsOwn();
    void clampedBandIsDrawnByItsGain();
    void silentHighPass();
    void silentMiddleProduct();
};

void tst_Response::bandLevelsAreTheFilters()
{
    const Equalizer equalizer(0x3f);
    for (double f = 15.0; f < 25000.0; f *= 1.1) {
        const EqualizerResponse::Levels levels = equalizer.response.levels(f, Fs);
        COMPARE_WITHIN(levels.band[0], equalizer.low.power(f, Fs), 0.0);
        COMPARE_WITHIN(levels.band[5], equalizer.high.power(f, Fs), 0.0);
        for (std::size_t i = 0; i < Middles.size(); ++i) {
            const double g = Middles[i].gain;
            const double k = std::pow(10.0, std::abs(g) / 20.0) - 1.0;
            const FILTER2PEQ& filter = equalizer.middle[i];
            const double expected =
                g < 0.0 ? filter.power_cut(f, Fs, k) : filter.power_boost(f, Fs, k);
            COMPARE_WITHIN(levels.band[1 + i], expected, 0.0);
            COMPARE_WITHIN(MiddleResponse(filter, g).level(f, Fs), expected, 0.0);
        }
    }
}

void tst_Response::totalIsTheSumOfTheEnabledBands_data()
{
    QTest::addColumn<unsigned>("enabled");
    for (unsigned enabled = 0; enabled < 64; ++enabled)
        QTest::addRow("%s%02x", enabled == 0 ? "all bands off " : "", enabled) << enabled;
}

void tst_Response::totalIsTheSumOfTheEnabledBands()
{
    QFETCH(const unsigned, enabled);
    const Equalizer all(0x3f);
    const Equalizer equalizer(enabled);
    for (double f = 15.0; f < 25000.0; f *= 1.3) {
        const EqualizerResponse::Levels every = all.response.levels(f, Fs);
        const EqualizerResponse::Levels levels = equalizer.response.levels(f, Fs);
        double sum = 0.0;
        for (std::size_t i = 0; i < levels.band.size(); ++i) {
            const double expected = enabled >> i & 1 ? every.band[i] : 0.0;
            COMPARE_WITHIN(levels.band[i], expected, 0.0);
            sum += expected;
        }
        COMPARE_WITHIN(levels.total, sum, enabled == 0 ? 0.0 : 1e-11);
    }
}

void tst_Response::gainFactorIsTheBandsOwn()
{
    FILTER2PEQ filter;
    filter.setCoefBPF_C(1000.0, Fs, 1.0, 3.0, true);
    COMPARE_WITHIN(MiddleResponse(filter, 12.0).level(1000.0, Fs), 12.0, 1e-9);
    COMPARE_WITHIN(MiddleResponse(filter, -12.0).level(1000.0, Fs), -12.0, 1e-9);
    QVERIFY(MiddleResponse(filter, 0.0).level(1000.0, Fs) == 0.0);
}

void tst_Response::clampedBandIsDrawnByItsGain()
{
    FILTER2PEQ filter;
    BandDesign::designMiddle(filter, 16000.0, 1.0, 12.0, 32000.0);
    QCOMPARE(filter.mode(), std::int64_t{FILTER2PEQ::ModeClamped});
    QCOMPARE(filter.gainFactor(), 0.0);
    COMPARE_WITHIN(MiddleResponse(filter, 12.0).level(15990.0, 32000.0), 12.0, 1e-6);
}

void tst_Response::silentHighPass()
{
    Equalizer equalizer(0);
    equalizer.low.setCoefHPF(2, 80.0, Fs);
    equalizer.response.low = &equalizer.low;
    const EqualizerResponse::Levels levels = equalizer.response.levels(0.0, Fs);
    QVERIFY(levels.band[0] == -100.0);
    QVERIFY(levels.total == -100.0);
}

// A cut without limit at the centre of a band-pass is exact silence; it counts once in the total,
// whatever the other middle bands do.
void tst_Response::silentMiddleProduct()
{
    Equalizer equalizer(0x1e);
    FILTER2PEQ& filter = equalizer.middle[1];
    equalizer.response.middle[1].emplace(filter, -6000.0);
    const EqualizerResponse::Levels levels = equalizer.response.levels(800.0, Fs);
    QVERIFY(levels.band[2] == -100.0);
    QVERIFY(levels.total == -100.0);
}

QTEST_APPLESS_MAIN(tst_Response)
#include "tst_Response.moc"
