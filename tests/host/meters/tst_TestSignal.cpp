// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/meters/TestSignal.h"
#include "tests/support/TestObject.h"

#include <array>
#include <cmath>
#include <vector>

class tst_TestSignal : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void staysWithinFullScale();
    void sweepsTenOctavesInTenSeconds();
    void sweepIsHeard();
    void sweepIsSilentAboveHalfTheRate();
    void noiseIsPink();
    void burstsComeBack();
    void blocksDoNotMatter();
    void channelsDiffer();

private:
    using Block = std::vector<double>;
    static Block next(TestSignal* signal, std::size_t count, double rate = 48000.0);
    static double peak(const Block& block);
};

// In real time.
tst_TestSignal::Block tst_TestSignal::next(TestSignal* signal, std::size_t count, double rate)
{
    Block block(count);
    signal->fill(block, rate, static_cast<double>(count) / rate);
    return block;
}

double tst_TestSignal::peak(const Block& block)
{
    double peak = 0.0;
    for (const double sample : block)
        peak = std::max(peak, std::abs(sample));
    return peak;
}

void tst_TestSignal::staysWithinFullScale()
{
    for (const int channel : {0, 3, 7}) {
        for (const double rate : {1000.0, 44100.0, 192000.0}) {
            TestSignal signal(channel);
            double loudest = 0.0;
            for (int i = 0; i < 400; ++i) {
                const double level =
                    peak(next(&signal, static_cast<std::size_t>(rate / 33.0), rate));
                QVERIFY(std::isfinite(level));
                loudest = std::max(loudest, level);
            }
            QVERIFY2(loudest <= 1.0 && loudest > 0.25, qPrintable(QString::number(loudest)));
        }
    }
}

void tst_TestSignal::sweepsTenOctavesInTenSeconds()
{
    TestSignal signal(0);
    QCOMPARE(signal.frequency(), 20.0);
    for (int i = 0; i < 10; ++i)
        next(&signal, 24000);
    QVERIFY(std::abs(signal.frequency() - 632.455532) < 1e-5); // half-way: 20 sqrt(1000)
    for (int i = 0; i < 10; ++i)
        next(&signal, 23990);
    QVERIFY(signal.frequency() > 19900.0);
    next(&signal, 120);
    QVERIFY(signal.frequency() < 20.1);
    TestSignal ahead(0); // of its samples
    Block block(100);
    ahead.fill(block, 48000.0, 5.0);
    QVERIFY(std::abs(ahead.frequency() - 632.455532) < 1e-5);
}

// Counts zero crossings where a burst has all but died away, 6.57 to 6.6 seconds after the start.
void tst_TestSignal::sweepIsHeard()
{
    TestSignal signal(0);
    next(&signal, 48 * 6570);
    const Block block = next(&signal, 48 * 30);
    int crossings = 0;
    for (std::size_t i = 1; i < block.size(); ++i)
        crossings += (block[i - 1] < 0.0) != (block[i] < 0.0);
    const double growth = std::log(1000.0) / 10.0;
    const double periods =
        20.0 * (std::exp(growth * 6.6) - std::exp(growth * 6.57)) / growth; // the frequency, summed
    QVERIFY2(std::abs(crossings - 2.0 * periods) < 3.0, qPrintable(QString::number(crossings)));
    QVERIFY(peak(block) > 0.11 && peak(block) < 0.16);
}

void tst_TestSignal::sweepIsSilentAboveHalfTheRate()
{
    TestSignal signal(0);
    next(&signal, 6570, 1000.0); // the sweep is at 1870 Hz
    QVERIFY(peak(next(&signal, 30, 1000.0)) < 0.03);
}

// The mean power density of every octave, while sweep and burst stand still at their beginning.
void tst_TestSignal::noiseIsPink()
{
    constexpr std::size_t length = 8192;
    constexpr int octaves = 6;
    TestSignal signal(2);
    std::array<double, octaves> power{};
    for (int round = 0; round < 12; ++round) {
        Block block(length);
        signal.fill(block, 48000.0, 0.0);
        for (int octave = 0; octave < octaves; ++octave) {
            for (int step = 0; step < 16; ++step) {
                const double f = 250.0 * std::pow(2.0, octave + step / 16.0);
                const double w = 2.0 * M_PI * f / 48000.0;
                double re = 0.0;
                double im = 0.0;
                for (std::size_t i = 0; i < length; ++i) {
                    const double hann =
                        1.0 - std::cos(2.0 * M_PI * static_cast<double>(i) / length);
                    re += hann * block[i] * std::cos(w * static_cast<double>(i));
                    im += hann * block[i] * std::sin(w * static_cast<double>(i));
                }
                power[static_cast<std::size_t>(octave)] += re * re + im * im;
            }
        }
    }
    for (std::size_t octave = 1; octave < octaves; ++octave) {
        const double fall = 10.0 * std::log10(power[octave - 1] / power[octave]);
        QVERIFY2(fall > 1.0 && fall < 5.0, qPrintable(QString::number(fall)));
    }
    const double whole = 10.0 * std::log10(power.front() / power.back());
    QVERIFY2(std::abs(whole - 15.0) < 3.0, qPrintable(QString::number(whole)));
}

void tst_TestSignal::burstsComeBack()
{
    TestSignal signal(0);
    for (int beat = 0; beat < 4; ++beat) {
        const double begin = peak(next(&signal, 48 * 50));
        next(&signal, 48 * 500);
        const double end = peak(next(&signal, 48 * 50));
        QVERIFY2(begin > 2.0 * end, qPrintable(QStringLiteral("%1 %2").arg(begin).arg(end)));
    }
}

void tst_TestSignal::blocksDoNotMatter()
{
    TestSignal whole(1);
    TestSignal parts(1);
    const Block expected = next(&whole, 48000);
    Block actual;
    for (const std::size_t count : {1U, 999U, 20000U, 27000U}) {
        const Block part = next(&parts, count);
        actual.insert(actual.end(), part.begin(), part.end());
    }
    for (std::size_t i = 0; i < expected.size(); ++i)
        QVERIFY(std::abs(expected[i] - actual[i]) < 1e-9);
}

void tst_TestSignal::channelsDiffer()
{
    TestSignal left(0);
    TestSignal right(1);
    QVERIFY(left.frequency() != right.frequency());
    QVERIFY(next(&left, 64) != next(&right, 64));
}

QTEST_APPLESS_MAIN(tst_TestSignal)

#include "tst_TestSignal.moc"
