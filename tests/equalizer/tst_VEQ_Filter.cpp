// SPDX-License-Identifier: GPL-3.0-or-later
#include "equalizer/VEQ_Filter.h"
#include "tests/equalizer/FilterTesting.h"
#include "tests/support/TestObject.h"

#include <array>
#include <functional>
#include <limits>

namespace {

constexpr double Fs = 44100.0;
constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinity = std::numeric_limits<double>::infinity();

// The two roots of 2, which are neighbours.
constexpr double ShelfRoot = 1.4142135623730951;
constexpr double PassRoot = 1.414213562373095;

using Section = std::array<double, 5>;
using Design = std::function<void(VEQ_Filter&)>;
using F = VEQ_Filter;
using ShelfDesign = void (F::*)(double f, double g, double fs);
using TypedShelfDesign = void (F::*)(double f, double g, double fs, short type);
using PassDesign = void (F::*)(double f, double fs);

Section sectionOf(const VEQ_Filter& filter)
{
    Section c{};
    filter.getCoefDirect(c.data(), 5);
    return c;
}

Section designed(const Design& design)
{
    VEQ_Filter filter;
    design(filter);
    return sectionOf(filter);
}

// A filter whose whole response is a factor.
void setFactor(VEQ_Filter& filter, double factor)
{
    const Section c = {factor, 0.0, 0.0, 0.0, 0.0};
    filter.setCoefDirect(c.data(), 5);
}

// The weight of the set that is faded in, n samples into a fade of N.
double fadeWeight(int n, int N) { return 1.0 / (1.0 + std::exp(5.0 - 10.0 * n / N)); }

// Runs through a fade of N samples from one factor to another, and on.
void compareFade(VEQ_Filter& filter, double from, double to, int N)
{
    for (int n = 0; n < N; ++n)
        COMPARE_WITHIN(filter.cal(1.0), from + (to - from) * fadeWeight(n, N), 1e-14);
    QCOMPARE(filter.cal(1.0), to);
}

} // namespace

Q_DECLARE_METATYPE(Design)
Q_DECLARE_METATYPE(ShelfDesign)
Q_DECLARE_METATYPE(TypedShelfDesign)

class tst_VEQ_Filter : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void orderIsRoundedTowardZeroToEven_data();
    void orderIsRoundedTowardZeroToEven();
    void withoutStorage();
    void setOrderStartsFromZero();

    void shelfReachesItsGain_data();
    void shelfReachesItsGain();
    void cutUndoesBoost_data() { shelfReachesItsGain_data(); }
    void cutUndoesBoost();
    void typeOneIsVariantB_data();
    void typeOneIsVariantB();
    void passOrderComesFromTheArgument();
    void onlyOrderTwoIsMeantForTheShortPassSetters();
    void passAndShelfRootsOfTwoDiffer();
    void analogCoefficientsToSection();
    void silenceIsMinusHundred();
    void cornerBeyondHalfTheRate_data();
    void cornerBeyondHalfTheRate();

    void cascadeMultipliesItsSections();
    void coefficientsInAndOut();
    void copyTakesOrderAndFirstSection();
    void copyOfALongerCascadeStaysWithinStorage();
    void copyDoesNotCrossFade();

    void impulseResponseHasThePower_data();
    void impulseResponseHasThePower();
    void onlyTheFirstSectionIsRun();

    void firstDesignFadesInAfterSilence();
    void clearTakesEffectAtOnce();
    void clearingForgetsTheSamples();
    void changeCoefStartsTheFade();
    void designDuringAFadeWaits();
    void fadedOutSetKeepsItsDelayLine();
    void sampleRateSetsTheFadeLength_data();
    void sampleRateSetsTheFadeLength();
    void orderConstructorNeverFades();
};

void tst_VEQ_Filter::orderIsRoundedTowardZeroToEven_data()
{
    QTest::addColumn<long>("requested");
    QTest::addColumn<std::int64_t>("stored");
    QTest::addColumn<int>("coefficients");
    QTest::newRow("-1") << -1L << std::int64_t{0} << 0;
    for (int order = 0; order < 8; ++order)
        QTest::addRow("%d", order) << long{order} << std::int64_t{order / 2 * 2} << order / 2 * 5;
}

void tst_VEQ_Filter::orderIsRoundedTowardZeroToEven()
{
    QFETCH(const long, requested);
    QFETCH(const std::int64_t, stored);
    QFETCH(const int, coefficients);
    VEQ_Filter filter;
    filter.setOrder(requested);
    QCOMPARE(filter.order(), stored);

    std::vector<double> c(20, -1.0);
    filter.getCoefDirect(c.data(), 20);
    QCOMPARE(std::count(c.begin(), c.end(), 0.0), std::ptrdiff_t{coefficients});
    QCOMPARE(std::count(c.begin(), c.end(), -1.0), std::ptrdiff_t{20 - coefficients});
}

void tst_VEQ_Filter::withoutStorage()
{
    VEQ_Filter filter(1);
    Section c = {1.0, 2.0, 3.0, 4.0, 5.0};
    const Section before = c;
    filter.setCoefDirect(c.data(), 5);
    filter.getCoefDirect(c.data(), 5);
    filter.clearDelay();
    filter.clear();
    filter.ChangeCoef();
    QCOMPARE(c, before);
    QCOMPARE(filter.power(1000.0, Fs), 0.0);
    QCOMPARE(filter.phase(1000.0, Fs), 0.0);
}

void tst_VEQ_Filter::setOrderStartsFromZero()
{
    VEQ_Filter filter;
    filter.setCoefLPF(1000.0, Fs);
    filter.setOrder(2);
    QCOMPARE(sectionOf(filter), Section{});
    QVERIFY(filter.power(1000.0, Fs) == -100.0);
}

void tst_VEQ_Filter::shelfReachesItsGain_data()
{
    QTest::addColumn<ShelfDesign>("design");
    QTest::addColumn<bool>("low");
    const auto row = [](const char* name, ShelfDesign design) {
        QTest::newRow(name) << design << (*name == 'L');
    };
    row("LOWS", &F::setCoefLOWS);
    row("LOWS_A", &F::setCoefLOWS_A);
    row("LOWS_B", &F::setCoefLOWS_B);
    row("LOWS_2", &F::setCoefLOWS_2);
    row("LOWS_2A", &F::setCoefLOWS_2A);
    row("LOWS_2B", &F::setCoefLOWS_2B);
    row("HIGS", &F::setCoefHIGS);
    row("HIGS_A", &F::setCoefHIGS_A);
    row("HIGS_B", &F::setCoefHIGS_B);
    row("HIGS_2", &F::setCoefHIGS_2);
    row("HIGS_2A", &F::setCoefHIGS_2A);
    row("HIGS_2B", &F::setCoefHIGS_2B);
}

void tst_VEQ_Filter::shelfReachesItsGain()
{
    QFETCH(const ShelfDesign, design);
    QFETCH(const bool, low);
    for (const double gain : {6.0, -6.0, 20.0, -20.0}) {
        VEQ_Filter filter;
        (filter.*design)(1000.0, gain, Fs);
        COMPARE_WITHIN(filter.power(1.0, Fs), low ? gain : 0.0, 0.01);
        COMPARE_WITHIN(filter.power(Fs / 2.0 - 1.0, Fs), low ? 0.0 : gain, 0.01);
    }
}

void tst_VEQ_Filter::cutUndoesBoost()
{
    QFETCH(const ShelfDesign, design);
    VEQ_Filter boost;
    VEQ_Filter cut;
    VEQ_Filter flat;
    (boost.*design)(1000.0, 6.0, Fs);
    (cut.*design)(1000.0, -6.0, Fs);
    (flat.*design)(1000.0, 0.0, Fs);
    for (double f = 1.0; f < Fs / 2.0; f *= 1.3) {
        COMPARE_WITHIN(boost.power(f, Fs) + cut.power(f, Fs), 0.0, 1e-9);
        COMPARE_WITHIN(flat.power(f, Fs), 0.0, 0.0);
    }
}

void tst_VEQ_Filter::typeOneIsVariantB_data()
{
    QTest::addColumn<TypedShelfDesign>("typed");
    QTest::addColumn<ShelfDesign>("untyped");
    QTest::addColumn<ShelfDesign>("variantA");
    QTest::addColumn<ShelfDesign>("variantB");
    const auto row = [](const char* name, TypedShelfDesign typed, ShelfDesign untyped,
                        ShelfDesign a,
                        ShelfDesign b) { QTest::newRow(name) << typed << untyped << a << b; };
    row("LOWS", &F::setCoefLOWS, &F::setCoefLOWS, &F::setCoefLOWS_A, &F::setCoefLOWS_B);
    row("LOWS_2", &F::setCoefLOWS_2, &F::setCoefLOWS_2, &F::setCoefLOWS_2A, &F::setCoefLOWS_2B);
    row("HIGS", &F::setCoefHIGS, &F::setCoefHIGS, &F::setCoefHIGS_A, &F::setCoefHIGS_B);
    row("HIGS_2", &F::setCoefHIGS_2, &F::setCoefHIGS_2, &F::setCoefHIGS_2A, &F::setCoefHIGS_2B);
}

void tst_VEQ_Filter::typeOneIsVariantB()
{
    QFETCH(const TypedShelfDesign, typed);
    QFETCH(const ShelfDesign, untyped);
    QFETCH(const ShelfDesign, variantA);
    QFETCH(const ShelfDesign, variantB);
    const Section a = designed([&](VEQ_Filter& v) { (v.*variantA)(300.0, 9.0, Fs); });
    const Section b = designed([&](VEQ_Filter& v) { (v.*variantB)(300.0, 9.0, Fs); });
    QVERIFY(a != b);
    QCOMPARE(designed([&](VEQ_Filter& v) { (v.*untyped)(300.0, 9.0, Fs); }), b);
    for (const short type : std::initializer_list<short>{-1, 0, 1, 2, 257})
        QCOMPARE(designed([&](VEQ_Filter& v) { (v.*typed)(300.0, 9.0, Fs, type); }),
                 type == 1 ? b : a);
}

void tst_VEQ_Filter::passOrderComesFromTheArgument()
{
    for (const long stored : {2L, 4L}) {
        for (const long order : {-1L, 0L, 1L, 2L, 3L, 4L}) {
            VEQ_Filter filter(stored);
            filter.setCoefHPF(order, 1000.0, Fs);
            QCOMPARE(sectionOf(filter)[2] != 0.0, order == 2);
            filter.setCoefLPF(order, 1000.0, Fs);
            QCOMPARE(sectionOf(filter)[2] != 0.0, order == 2);
        }
    }
}

void tst_VEQ_Filter::onlyOrderTwoIsMeantForTheShortPassSetters()
{
    for (const long stored : {2L, 4L}) {
        for (const PassDesign design : {PassDesign(&F::setCoefHPF), PassDesign(&F::setCoefLPF)}) {
            VEQ_Filter filter(stored);
            (filter.*design)(1000.0, Fs);
            std::array<double, 10> c{};
            filter.getCoefDirect(c.data(), 10);
            QVERIFY(c[0] != 0.0 && c[1] != 0.0 && c[3] != 0.0);
            QCOMPARE(c[4] != 0.0, stored == 2);
            QVERIFY(std::all_of(c.begin() + 5, c.end(), [](double x) { return x == 0.0; }));
            QCOMPARE(filter.power(5000.0, Fs) == -100.0, stored == 4);
        }
    }
}

void tst_VEQ_Filter::passAndShelfRootsOfTwoDiffer()
{
    QVERIFY(std::nextafter(ShelfRoot, 0.0) == PassRoot);
    int told = 0;
    for (double f = 100.0; f < 10000.0; f += 100.0) {
        const double k = std::tan(M_PI * f / Fs);
        const auto first = [k](double root) { return 1.0 / (1.0 + root * k + k * k); };
        if (first(ShelfRoot) == first(PassRoot))
            continue;
        ++told;
        const Section high = designed([f](VEQ_Filter& v) { v.setCoefHPF(2, f, Fs); });
        COMPARE_WITHIN(high[0], first(PassRoot), 0.0);
        // The poles of a shelf of variant A are those of a pass filter, but for the root.
        const Section shelf = designed([f](VEQ_Filter& v) { v.setCoefHIGS_2A(f, 20.0, Fs); });
        const double d = 1.0 + ShelfRoot * k + k * k;
        COMPARE_WITHIN(shelf[0], (10.0 + std::sqrt(10.0) * ShelfRoot * k + k * k) / d, 0.0);
    }
    QVERIFY(told > 5);
}

void tst_VEQ_Filter::analogCoefficientsToSection()
{
    const double k = std::tan(M_PI * 700.0 / Fs);
    Section high{};
    VEQ_Filter::HpfCoefToZet(PassRoot * k, k * k, high.data());
    const Section designedHigh = designed([](VEQ_Filter& v) { v.setCoefHPF(2, 700.0, Fs); });
    for (std::size_t i = 0; i < high.size(); ++i)
        COMPARE_WITHIN(high[i], designedHigh[i], 1e-15);

    Section low{};
    VEQ_Filter::LpfCoefToZet(PassRoot * k, k * k, low.data());
    COMPARE_WITHIN(low[1], 2.0 * low[0], 0.0);
    COMPARE_WITHIN(low[2], low[0], 0.0);
    COMPARE_WITHIN(low[3], high[3], 0.0);
    COMPARE_WITHIN(low[4], high[4], 0.0);
    VEQ_Filter filter;
    filter.setCoefDirect(low.data(), 5);
    COMPARE_WITHIN(filter.power(0.0, Fs), 20.0 * std::log10(1.0 / (k * k)), 1e-9);
}

void tst_VEQ_Filter::silenceIsMinusHundred()
{
    VEQ_Filter filter;
    for (const long order : {1L, 2L}) {
        for (const double corner : {20.0, 80.0, 1000.0, 20000.0}) {
            filter.setCoefHPF(order, corner, Fs);
            QVERIFY(filter.power(0.0, Fs) == -100.0);
        }
    }
}

void tst_VEQ_Filter::cornerBeyondHalfTheRate_data()
{
    QTest::addColumn<double>("f");
    QTest::newRow("half the rate") << Fs / 2.0;
    QTest::newRow("above half the rate") << 30000.0;
    QTest::newRow("the rate") << Fs;
    QTest::newRow("far above") << 1e300;
    QTest::newRow("infinite") << Infinity;
    QTest::newRow("undefined") << NaN;
}

void tst_VEQ_Filter::cornerBeyondHalfTheRate()
{
    QFETCH(const double, f);
    const double k = std::tan(M_PI * f / Fs);
    const Section low = designed([f](VEQ_Filter& v) { v.setCoefLPF(1, f, Fs); });
    const Section high = designed([f](VEQ_Filter& v) { v.setCoefHIGS_2(f, 12.0, Fs); });
    if (std::isfinite(k)) {
        COMPARE_WITHIN(low[0], k / (1.0 + k), 1e-15 * std::abs(low[0]));
        QVERIFY(std::isfinite(high[0]));
    } else {
        QVERIFY(std::isnan(low[0]) && std::isnan(high[0]));
    }
}

void tst_VEQ_Filter::cascadeMultipliesItsSections()
{
    VEQ_Filter first;
    VEQ_Filter second;
    first.setCoefLOWS_2A(200.0, 9.0, Fs);
    second.setCoefLPF(5000.0, Fs);
    const Section a = sectionOf(first);
    const Section b = sectionOf(second);
    std::array<double, 10> both{};
    std::copy(a.begin(), a.end(), both.begin());
    std::copy(b.begin(), b.end(), both.begin() + 5);
    VEQ_Filter cascade(4);
    cascade.setCoefDirect(both.data(), 10);
    for (double f = 20.0; f < 20000.0; f *= 1.7) {
        COMPARE_WITHIN(cascade.power(f, Fs), first.power(f, Fs) + second.power(f, Fs), 1e-10);
        const double phases = first.phase(f, Fs) + second.phase(f, Fs);
        COMPARE_WITHIN(cascade.phase(f, Fs), std::remainder(phases, 2.0 * M_PI), 1e-10);
    }
}

void tst_VEQ_Filter::coefficientsInAndOut()
{
    VEQ_Filter filter;
    const std::array<double, 8> in = {1.0, 2.0, 3.0, 4.0, 5.0, 6.0, 7.0, 8.0};
    filter.setCoefDirect(in.data(), 8);
    std::array<double, 8> out{};
    filter.getCoefDirect(out.data(), 8);
    QCOMPARE(out, (std::array<double, 8>{1.0, 2.0, 3.0, 4.0, 5.0, 0.0, 0.0, 0.0}));

    const std::array<double, 2> two = {-1.0, -2.0};
    filter.setCoefDirect(two.data(), 2);
    filter.setCoefDirect(in.data(), 0);
    filter.setCoefDirect(in.data(), -3);
    QCOMPARE(sectionOf(filter), (Section{-1.0, -2.0, 3.0, 4.0, 5.0}));

    out.fill(0.0);
    filter.getCoefDirect(out.data(), 3);
    filter.getCoefDirect(out.data() + 3, -1);
    QCOMPARE(out, (std::array<double, 8>{-1.0, -2.0, 3.0, 0.0, 0.0, 0.0, 0.0, 0.0}));
}

void tst_VEQ_Filter::copyTakesOrderAndFirstSection()
{
    VEQ_Filter source;
    source.setCoefLPF(900.0, Fs);
    VEQ_Filter copy(4);
    copy.setCoefByCopy(&source);
    QCOMPARE(copy.order(), std::int64_t{2});
    QCOMPARE(sectionOf(copy), sectionOf(source));
    QCOMPARE(copy.power(500.0, Fs), source.power(500.0, Fs));
}

void tst_VEQ_Filter::copyOfALongerCascadeStaysWithinStorage()
{
    VEQ_Filter source(6);
    source.setCoefLPF(2, 900.0, Fs);
    VEQ_Filter copy;
    copy.setCoefByCopy(&source);
    QCOMPARE(copy.order(), std::int64_t{6});
    QCOMPARE(sectionOf(copy), sectionOf(source));
    copy.clearDelay();
    VEQ_Filter same;
    same.setCoefLPF(2, 900.0, Fs);
    QCOMPARE(copy.power(500.0, Fs), same.power(500.0, Fs));

    VEQ_Filter empty(0);
    empty.setCoefByCopy(&source);
    QCOMPARE(empty.power(500.0, Fs), 0.0);
}

void tst_VEQ_Filter::copyDoesNotCrossFade()
{
    VEQ_Filter source;
    setFactor(source, 3.0);
    VEQ_Filter filter;
    setFactor(filter, 1.0);
    filter.clear();
    QCOMPARE(filter.cal(1.0), 1.0);
    filter.setCoefByCopy(&source);
    QCOMPARE(filter.cal(1.0), 3.0);
}

void tst_VEQ_Filter::impulseResponseHasThePower_data()
{
    QTest::addColumn<Design>("design");
    QTest::newRow("LOWS_A") << Design([](VEQ_Filter& v) { v.setCoefLOWS_A(500.0, 9.0, Fs); });
    QTest::newRow("LOWS_2B") << Design([](VEQ_Filter& v) { v.setCoefLOWS_2B(500.0, -9.0, Fs); });
    QTest::newRow("HIGS_B") << Design([](VEQ_Filter& v) { v.setCoefHIGS_B(2000.0, -9.0, Fs); });
    QTest::newRow("HIGS_2A") << Design([](VEQ_Filter& v) { v.setCoefHIGS_2A(2000.0, 9.0, Fs); });
    QTest::newRow("HPF1") << Design([](VEQ_Filter& v) { v.setCoefHPF(1, 800.0, Fs); });
    QTest::newRow("HPF2") << Design([](VEQ_Filter& v) { v.setCoefHPF(2, 800.0, Fs); });
    QTest::newRow("LPF1") << Design([](VEQ_Filter& v) { v.setCoefLPF(1, 3000.0, Fs); });
    QTest::newRow("LPF2") << Design([](VEQ_Filter& v) { v.setCoefLPF(2, 3000.0, Fs); });
}

void tst_VEQ_Filter::impulseResponseHasThePower()
{
    QFETCH(const Design, design);
    VEQ_Filter filter;
    design(filter);
    filter.clear();
    std::vector<double> response;
    for (int n = 0; n < 4000; ++n)
        response.push_back(filter.cal(n == 0 ? 1.0 : 0.0));
    for (const double f : {50.0, 500.0, 5000.0, 20000.0}) {
        const std::complex<double> h = spectrumAt(response, f, Fs);
        COMPARE_WITHIN(filter.power(f, Fs), decibels(h), 1e-9);
        COMPARE_WITHIN(std::remainder(filter.phase(f, Fs) - std::arg(h), 2 * M_PI), 0.0, 1e-9);
    }
}

void tst_VEQ_Filter::onlyTheFirstSectionIsRun()
{
    const std::array<double, 10> c = {2.0, 0.0, 0.0, 0.0, 0.0, 5.0, 0.0, 0.0, 0.0, 0.0};
    VEQ_Filter filter(4);
    filter.setCoefDirect(c.data(), 10);
    QCOMPARE(filter.cal(1.0), 2.0);
    QCOMPARE(filter.cal(7L), 14.0);
    COMPARE_WITHIN(filter.power(100.0, Fs), 20.0, 1e-12);
}

void tst_VEQ_Filter::firstDesignFadesInAfterSilence()
{
    VEQ_Filter filter;
    setFactor(filter, 2.0);
    for (int n = 0; n < 441; ++n)
        QCOMPARE(filter.cal(1.0), 0.0);
    compareFade(filter, 0.0, 2.0, 441);
    COMPARE_WITHIN(fadeWeight(0, 441), 0.0066928509242848554, 1e-17);
}

void tst_VEQ_Filter::clearTakesEffectAtOnce()
{
    VEQ_Filter filter;
    setFactor(filter, 2.0);
    filter.clear();
    QCOMPARE(filter.cal(1.0), 2.0);
    setFactor(filter, 3.0);
    compareFade(filter, 2.0, 3.0, 441);
}

void tst_VEQ_Filter::clearingForgetsTheSamples()
{
    const Section echo = {1.0, 0.5, 0.25, 0.5, 0.25};
    for (const auto clear : {&VEQ_Filter::clear, &VEQ_Filter::clearDelay}) {
        VEQ_Filter filter;
        filter.setCoefDirect(echo.data(), 5);
        filter.clear();
        filter.cal(1.0);
        QCOMPARE(filter.cal(1.0), 2.0);
        (filter.*clear)();
        QCOMPARE(filter.cal(0.0), 0.0);
        // The coefficients stay.
        QCOMPARE(filter.cal(1.0), 1.0);
        QCOMPARE(filter.cal(0.0), 1.0);
    }
}

void tst_VEQ_Filter::changeCoefStartsTheFade()
{
    VEQ_Filter filter;
    filter.SetSampleRate(2000.0);
    setFactor(filter, 1.0);
    filter.clear();
    setFactor(filter, 3.0);
    filter.cal(1.0);
    filter.cal(1.0);
    // In the middle of the fade from 1 to 3, a fade from 3 to 5 starts at once.
    setFactor(filter, 5.0);
    filter.ChangeCoef();
    compareFade(filter, 3.0, 5.0, 20);
}

void tst_VEQ_Filter::designDuringAFadeWaits()
{
    VEQ_Filter filter;
    filter.SetSampleRate(1000.0);
    setFactor(filter, 1.0);
    filter.clear();
    setFactor(filter, 3.0);
    for (int n = 0; n < 10; ++n) {
        if (n == 4)
            setFactor(filter, 7.0);
        COMPARE_WITHIN(filter.cal(1.0), 1.0 + 2.0 * fadeWeight(n, 10), 1e-14);
    }
    compareFade(filter, 3.0, 7.0, 10);
}

void tst_VEQ_Filter::fadedOutSetKeepsItsDelayLine()
{
    const Section delay = {0.0, 1.0, 0.0, 0.0, 0.0};
    VEQ_Filter filter;
    filter.SetSampleRate(1000.0);
    filter.setCoefDirect(delay.data(), 5);
    filter.clear();
    filter.cal(8.0);
    setFactor(filter, 0.0);
    // The old set still answers with the sample before the change, the new one starts from zero.
    COMPARE_WITHIN(filter.cal(0.0), 8.0 * (1.0 - fadeWeight(0, 10)), 1e-14);
    QCOMPARE(filter.cal(0.0), 0.0);

    setFactor(filter, 0.0);
    filter.clear();
    filter.cal(8.0);
    filter.setCoefDirect(delay.data(), 5);
    QCOMPARE(filter.cal(6.0), 0.0);
    COMPARE_WITHIN(filter.cal(0.0), 6.0 * fadeWeight(1, 10), 1e-14);
}

void tst_VEQ_Filter::sampleRateSetsTheFadeLength_data()
{
    QTest::addColumn<double>("fs");
    QTest::addColumn<int>("samples");
    QTest::newRow("44100") << 44100.0 << 441;
    QTest::newRow("48000") << 48000.0 << 480;
    QTest::newRow("truncated") << 11025.0 << 110;
    QTest::newRow("less than a sample") << 99.0 << 0;
    QTest::newRow("zero") << 0.0 << 0;
    QTest::newRow("negative") << -44100.0 << 0;
    QTest::newRow("undefined") << NaN << 0;
    QTest::newRow("most negative") << -Infinity << 0;
    QTest::newRow("endless") << 1e300 << -1;
    QTest::newRow("infinite") << Infinity << -1;
}

void tst_VEQ_Filter::sampleRateSetsTheFadeLength()
{
    QFETCH(const double, fs);
    QFETCH(const int, samples);
    VEQ_Filter filter;
    filter.SetSampleRate(fs);
    setFactor(filter, 1.0);
    filter.clear();
    setFactor(filter, 3.0);
    const int watched = samples < 0 ? 10000 : samples;
    // A fade without end starts where every fade does, and a filter that has just been cleared is
    // past its fade's end, whatever its length.
    for (int n = 0; n < watched; ++n)
        QVERIFY(filter.cal(1.0) < 3.0);
    if (samples >= 0)
        QCOMPARE(filter.cal(1.0), 3.0);
}

void tst_VEQ_Filter::orderConstructorNeverFades()
{
    VEQ_Filter filter(2);
    setFactor(filter, 2.0);
    QCOMPARE(filter.cal(1.0), 2.0);
    setFactor(filter, 5.0);
    QCOMPARE(filter.cal(1.0), 5.0);
}

QTEST_APPLESS_MAIN(tst_VEQ_Filter)
#include "tst_VEQ_Filter.moc"
