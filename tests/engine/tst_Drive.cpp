// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/Drive.h"
#include "tests/engine/EngineTesting.h"
#include "tests/support/TestObject.h"

#include <algorithm>
#include <complex>

using namespace EngineTesting;

class tst_Drive : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void keepsTheMatchedLevel_data();
    void keepsTheMatchedLevel();
    void compressesLoudSines();
    void ceilingIsFullScale();
    void hasItsLatency_data();
    void hasItsLatency();
    void passesTheAudibleRange_data();
    void passesTheAudibleRange();
    void makesOddHarmonicsOnly();
    void aliasesAreInaudible_data();
    void aliasesAreInaudible();
    void waitsForItsFilters();

private:
    static Block driven(Block block, int rate);
    static double level(const Block& block, std::size_t from);
    static double amplitude(const Block& block, double frequency, int rate);
};

Block tst_Drive::driven(Block block, int rate)
{
    Drive drive;
    drive.setSampleRate(rate);
    drive.set(true);
    drive.reset();
    drive.process(block);
    return block;
}

// Root mean square in dB, from a sample on.
double tst_Drive::level(const Block& block, std::size_t from)
{
    double sum = 0.0;
    for (std::size_t i = from; i < block.size(); ++i)
        sum += block[i] * block[i];
    return 10.0 * std::log10(sum / static_cast<double>(block.size() - from));
}

// Of one frequency in the last tenth of a second: a whole number of periods of multiples of 10 Hz.
double tst_Drive::amplitude(const Block& block, double frequency, int rate)
{
    const auto count = static_cast<std::size_t>(rate / 10);
    std::complex<double> sum;
    for (std::size_t i = block.size() - count; i < block.size(); ++i)
        sum += block[i] * std::polar(1.0, -2.0 * M_PI * frequency * double(i) / rate);
    return 2.0 * std::abs(sum) / double(count);
}

void tst_Drive::keepsTheMatchedLevel_data()
{
    QTest::addColumn<double>("frequency");
    QTest::addColumn<int>("rate");
    for (const int rate : {44100, 48000, 96000, 192000}) {
        for (const double frequency : {50.0, 1000.0, 5000.0})
            QTest::addRow("%g Hz at %d Hz", frequency, rate) << frequency << rate;
    }
}

void tst_Drive::keepsTheMatchedLevel()
{
    QFETCH(const double, frequency);
    QFETCH(const int, rate);
    const double peak = std::pow(10.0, -18.0 / 20.0);
    const auto tenth = static_cast<std::size_t>(rate / 10);
    const Block in = sine(frequency, rate, 2 * tenth, peak);
    const Block out = driven(in, rate);
    QVERIFY(out != in);
    QVERIFY(std::abs(level(out, tenth) - level(in, tenth)) < 0.1);
}

void tst_Drive::compressesLoudSines()
{
    double before = 0.0;
    for (const double peak : {0.25, 0.5, 1.0, 2.0, 4.0}) {
        const Block in = sine(1000.0, 48000, 9600, peak);
        const double loss = level(in, 4800) - level(driven(in, 48000), 4800);
        QVERIFY(loss > before);
        before = loss;
    }
    QVERIFY(before > 6.0);
    // Quiet ones it only raises by the make-up.
    const Block quiet = sine(1000.0, 48000, 9600, 1e-4);
    const double gain = level(driven(quiet, 48000), 4800) - level(quiet, 4800);
    QVERIFY2(gain > 0.0 && gain < 0.06, qPrintable(QString::number(gain)));
}

void tst_Drive::ceilingIsFullScale()
{
    QVERIFY(Drive::saturate(1e6) < 1.007);
    QVERIFY(Drive::saturate(1e6) > 1.0);
    for (double x = -4.0; x < 4.0; x += 0.01) {
        QVERIFY(Drive::saturate(x + 0.01) > Drive::saturate(x));
        COMPARE_NEAR(Drive::saturate(-x), -Drive::saturate(x), 0.0);
    }
}

void tst_Drive::hasItsLatency_data()
{
    QTest::addColumn<double>("frequency");
    for (const double frequency : {100.0, 1000.0, 7000.0, 15000.0})
        QTest::addRow("%g Hz", frequency) << frequency;
}

// A quiet sine comes out as it went in, so many samples later, and a little louder.
void tst_Drive::hasItsLatency()
{
    QFETCH(const double, frequency);
    const Block in = sine(frequency, 48000, 4800, 1e-4);
    const Block out = driven(in, 48000);
    const double factor = Drive::saturate(1e-6) / 1e-6;
    for (std::size_t i = 1000; i < in.size(); ++i)
        COMPARE_NEAR(out[i], factor * in[i - Drive::latency], 1e-8);
    ChannelProcessor processor;
    QCOMPARE(processor.latency(), 0.0);
    processor.setValues(valuesFrom(QStringLiteral("27=1")));
    QCOMPARE(processor.latency(), double{Drive::latency});
}

void tst_Drive::passesTheAudibleRange_data()
{
    QTest::addColumn<int>("rate");
    for (const int rate : {44100, 48000, 96000, 192000})
        QTest::addRow("%d Hz", rate) << rate;
}

void tst_Drive::passesTheAudibleRange()
{
    QFETCH(const int, rate);
    const double factor = Drive::saturate(1e-6) / 1e-6;
    for (const double frequency : {20.0, 100.0, 1000.0, 10000.0, 18000.0, 20000.0}) {
        const Block out = driven(sine(frequency, rate, std::size_t(rate / 5), 1e-4), rate);
        const double gain = 20.0 * std::log10(amplitude(out, frequency, rate) / (1e-4 * factor));
        QVERIFY2(std::abs(gain) < 0.01,
                 qPrintable(QStringLiteral("%1 dB at %2 Hz").arg(gain).arg(frequency)));
    }
}

void tst_Drive::makesOddHarmonicsOnly()
{
    const Block out = driven(sine(1000.0, 48000, 9600, 0.5), 48000);
    const double fundamental = amplitude(out, 1000.0, 48000);
    QVERIFY(amplitude(out, 3000.0, 48000) > 0.01 * fundamental);
    QVERIFY(amplitude(out, 5000.0, 48000) > 1e-4 * fundamental);
    QVERIFY(amplitude(out, 2000.0, 48000) < 1e-9 * fundamental);
    QVERIFY(amplitude(out, 0.0, 48000) < 1e-9 * fundamental);
}

void tst_Drive::aliasesAreInaudible_data()
{
    QTest::addColumn<double>("frequency");
    QTest::addColumn<double>("peak");
    QTest::addColumn<double>("most"); // dB below the fundamental
    QTest::newRow("1 kHz, full scale") << 1010.0 << 1.0 << -110.0;
    QTest::newRow("5 kHz, full scale") << 5030.0 << 1.0 << -100.0;
    QTest::newRow("10 kHz, full scale") << 10070.0 << 1.0 << -90.0;
    QTest::newRow("15 kHz, full scale") << 15010.0 << 1.0 << -80.0;
    QTest::newRow("5 kHz, 6 dB over") << 5030.0 << 2.0 << -90.0;
}

// What is left of a sine's spectrum up to 20 kHz without its harmonics.
void tst_Drive::aliasesAreInaudible()
{
    QFETCH(const double, frequency);
    QFETCH(const double, peak);
    QFETCH(const double, most);
    const int rate = 48000;
    const Block out = driven(sine(frequency, rate, 9600, peak), rate);
    const double fundamental = amplitude(out, frequency, rate);
    double worst = 0.0;
    double worstAt = 0.0;
    for (double f = 10.0; f <= 20000.0; f += 10.0) {
        const double found = amplitude(out, f, rate);
        if (std::fmod(f + 1.0, frequency) > 2.0 && found > worst) {
            worst = found;
            worstAt = f;
        }
    }
    const double level = 20.0 * std::log10(worst / fundamental);
    QVERIFY2(level < most, qPrintable(QStringLiteral("%1 dB at %2 Hz").arg(level).arg(worstAt)));
}

void tst_Drive::waitsForItsFilters()
{
    Drive drive;
    drive.setSampleRate(48000.0);
    const Block in(2000, 0.5);
    Block out = in;
    drive.set(true);
    drive.process(out);
    for (std::size_t i = 0; i < Drive::latency; ++i)
        QCOMPARE(out[i], in[i]);
    // Then a fade from one to the other, without a detour.
    for (std::size_t i = 1; i < out.size(); ++i)
        QVERIFY(out[i] < out[i - 1] + 1e-4 && out[i] > 0.44);
    COMPARE_NEAR(out.back(), Drive::saturate(0.5), 1e-4);
}

QTEST_APPLESS_MAIN(tst_Drive)

#include "tst_Drive.moc"
