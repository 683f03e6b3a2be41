// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/engine/EngineTesting.h"
#include "tests/support/TestObject.h"

#include <algorithm>
#include <cmath>

using namespace EngineTesting;

namespace {

double peakOf(const Block& samples)
{
    double peak = 0.0;
    for (const double sample : samples)
        peak = std::max(peak, std::abs(sample));
    return peak;
}

/// The spectrum in dB at a share of the sampling rate.
double heardLevel(const Block& response, double share)
{
    const double stepReal = std::cos(-2.0 * M_PI * share);
    const double stepImaginary = std::sin(-2.0 * M_PI * share);
    double real = 0.0;
    double imaginary = 0.0;
    // Horner's rule, from the last sample on.
    for (const double* sample = response.data() + response.size(); sample != response.data();) {
        const double before = real;
        real = before * stepReal - imaginary * stepImaginary + *--sample;
        imaginary = before * stepImaginary + imaginary * stepReal;
    }
    return 20.0 * std::log10(std::hypot(real, imaginary));
}

} // namespace

/// What is drawn is what is heard: the spectrum of the impulse response against the curve. Below
/// -140 dB it is of rounding errors, and there the two only have to agree on that.
class tst_EngineResponse : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void soundsAsTheCurveIsDrawn_data();
    void soundsAsTheCurveIsDrawn();

private:
    static Values randomValues(std::minstd_rand* generator);
    static Block impulseResponse(const Values& values, int rate);
    static std::vector<double> frequencies(const Values& values, int rate);
    static void compare(const Values& values, int rate);
};

// Every third value is one of the ends of its range.
Values tst_EngineResponse::randomValues(std::minstd_rand* generator)
{
    const auto below = [generator](int count) {
        return std::uniform_int_distribution<int>(0, count - 1)(*generator);
    };
    Values values{};
    for (std::size_t i = 0; i < values.size(); ++i) {
        const Parameter& p = parameterTable[i];
        const bool extreme = p.maximum > 3 && below(3) == 0;
        values[i] = extreme ? (below(2) == 0 ? p.minimum : p.maximum)
                            : p.minimum + below(p.maximum - p.minimum + 1);
    }
    for (std::size_t band = 0; band < 6; ++band)
        values[4 * band + 3] = below(5) != 0;
    values[26] = 0;
    return values;
}

// As long as it takes to fall below a part in 10^14 of its peak for a tenth of a second.
Block tst_EngineResponse::impulseResponse(const Values& values, int rate)
{
    ChannelProcessor processor;
    processor.setSampleRate(rate);
    processor.setValues(values);
    const auto part = static_cast<std::size_t>(rate / 10);
    Block response = {1.0};
    response.resize(part);
    processor.process(response);
    double last = peakOf(response);
    for (double peak = last; last > 1e-14 * peak && response.size() < 100 * part;
         peak = std::max(peak, last)) {
        Block next(part);
        processor.process(next);
        last = peakOf(next);
        response.insert(response.end(), next.begin(), next.end());
    }
    return response;
}

// Evenly over the whole range, and where the bands are.
std::vector<double> tst_EngineResponse::frequencies(const Values& values, int rate)
{
    const double top = std::min(20000.0, 0.45 * rate);
    std::vector<double> result;
    for (int i = 0; i <= 20; ++i)
        result.push_back(20.0 * std::pow(top / 20.0, i / 20.0));
    for (std::size_t band = 0; band < 6; ++band)
        result.push_back(std::min(top, 20.0 * std::pow(10.0, values[4 * band + 1] / 400.0)));
    return result;
}

void tst_EngineResponse::soundsAsTheCurveIsDrawn_data()
{
    QTest::addColumn<int>("rate");
    for (const int rate : {44100, 48000, 96000, 192000})
        QTest::addRow("%d Hz", rate) << rate;
}

void tst_EngineResponse::soundsAsTheCurveIsDrawn()
{
    QFETCH(const int, rate);
    std::minstd_rand generator(static_cast<unsigned int>(rate));
    for (int i = 0; i < 200 && !QTest::currentTestFailed(); ++i)
        compare(randomValues(&generator), rate);
}

void tst_EngineResponse::compare(const Values& values, int rate)
{
    const Block response = impulseResponse(values, rate);
    EqualizerBands bands;
    setBands(&bands, values, rate);
    for (const double frequency : frequencies(values, rate)) {
        const double drawn = drawnLevel(bands, values, frequency);
        const double heard = heardLevel(response, frequency / rate);
        const bool silent = drawn < -140.0 && heard < -139.0;
        QVERIFY2(silent || std::abs(heard - drawn) < 0.01,
                 qPrintable(QStringLiteral("%1 dB instead of %2 dB at %3 Hz, %4 samples")
                                .arg(heard)
                                .arg(drawn)
                                .arg(frequency)
                                .arg(response.size())));
    }
}

QTEST_APPLESS_MAIN(tst_EngineResponse)

#include "tst_EngineResponse.moc"
