// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/engine/EngineTesting.h"
#include "tests/support/TestObject.h"

#include <algorithm>

using namespace EngineTesting;

/// A setting that jumps must not click. What is heard of a low tone above 6 kHz is nothing while
/// settings rest; a jump without care would splice two signals, which is heard there.
class tst_Clicks : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void jumpsDoNotClick_data();
    void jumpsDoNotClick();
    void everyParameterMovesQuietly();

private:
    static constexpr int rate = 48000;
    static constexpr std::size_t before = 9600;
    static constexpr std::size_t after = 4800;

    static Block run(const Values& first, const Values& second, std::size_t jump);
};

// A tone of 150 Hz, and the jump from one to the other setting.
Block tst_Clicks::run(const Values& first, const Values& second, std::size_t jump)
{
    ChannelProcessor processor;
    processor.setValues(first);
    Block block = sine(150.0, rate, jump + after, 0.1);
    processor.process(std::span(block).first(jump));
    processor.setValues(second);
    processor.process(std::span(block).subspan(jump));
    return block;
}

void tst_Clicks::jumpsDoNotClick_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::addColumn<double>("most"); // of what a splice gives
    const auto row = [](const char* name, const char* first, const char* second, double most) {
        QTest::newRow(name) << QString::fromLatin1(first) << QString::fromLatin1(second) << most;
    };
    // A thousandth, 60 dB below the splice; the outer filters' own cross-fade begins and ends with
    // a hundred and fiftieth of the difference.
    constexpr double most = 0.001;
    constexpr double outer = 0.01;
    row("input level", "25=-200", "25=200", most);
    row("output level", "26=200", "26=-200", most);
    row("low type", "1=0 2=400", "1=3 2=400 3=200", outer);
    row("low frequency", "2=100 3=200", "2=900 3=200", outer);
    row("low gain", "2=500 3=-200", "2=500 3=200", outer);
    row("low on", "2=500 3=200 4=0", "2=500 3=200 4=1", most);
    row("low off", "2=500 3=-200 4=1", "2=500 3=-200 4=0", most);
    row("middle quality", "5=0 6=400 7=200", "5=500 6=400 7=200", most);
    row("middle frequency, near", "5=100 6=300 7=200", "5=100 6=350 7=200", most);
    row("middle frequency, far", "5=100 6=350 7=200", "5=100 6=1100 7=200", most);
    row("middle frequency, far down", "5=100 6=1100 7=200", "5=100 6=350 7=200", most);
    row("middle frequency of a cut", "5=100 6=350 7=-200", "5=100 6=500 7=-200", most);
    row("middle gain up", "6=350 7=0", "6=350 7=200", most);
    row("middle gain through 0", "6=350 7=200", "6=350 7=-200", most);
    row("middle on", "6=350 7=200 8=0", "6=350 7=200 8=1", most);
    row("middle off", "6=350 7=-200 8=1", "6=350 7=-200 8=0", most);
    row("high type", "21=0 22=500", "21=3 22=500 23=200", outer);
    row("high frequency", "22=1100 23=200", "22=300 23=200", outer);
    row("high gain", "22=300 23=-200", "22=300 23=200", outer);
    row("high off", "22=300 23=200 24=1", "22=300 23=200 24=0", most);
    row("drive on", "25=200", "25=200 27=1", most);
    row("drive off", "25=200 27=1", "25=200", most);
}

void tst_Clicks::jumpsDoNotClick()
{
    QFETCH(const QString, first);
    QFETCH(const QString, second);
    QFETCH(const double, most);
    const Values from = valuesFrom(first);
    const Values to = valuesFrom(second);
    double worst = 0.0;
    double splice = 0.0;
    // At eight phases of the tone.
    for (std::size_t phase = 0; phase < 8; ++phase) {
        const std::size_t jump = before + 40 * phase;
        const Block jumping = run(from, to, jump);
        Block spliced = run(from, from, jump);
        const Block settled = run(to, to, jump);
        // What the drive's own harmonics have up there is no click.
        const double steady = std::max(click(spliced, before, rate), click(settled, before, rate));
        std::copy(settled.begin() + std::ptrdiff_t(jump), settled.end(),
                  spliced.begin() + std::ptrdiff_t(jump));
        worst = std::max(worst, click(jumping, before, rate) - steady);
        splice = std::max(splice, click(spliced, before, rate) - steady);
    }
    QVERIFY(splice > 0.001);
    QVERIFY2(worst < most * splice, qPrintable(QStringLiteral("%1 of %2").arg(worst).arg(splice)));
}

// A tone of -20 dB. A knob that is turned: small steps, a hundred a second, on every parameter that
// has steps.
void tst_Clicks::everyParameterMovesQuietly()
{
    for (std::size_t p = 0; p < parameterCount; ++p) {
        if (parameterTable[p].maximum <= 3)
            continue;
        Values values = valuesFrom(
            QStringLiteral("2=400 3=100 6=300 7=150 10=400 11=-150 14=500 15=100 18=600 19=-100 "
                           "22=600 23=-100"));
        ChannelProcessor processor;
        processor.setValues(values);
        Block tone = sine(150.0, rate, 2 * before, 0.1);
        processor.process(std::span(tone).first(before));
        for (std::size_t done = before; done < tone.size(); done += 480) {
            ++values[p];
            processor.setValues(values);
            processor.process(std::span(tone).subspan(done, 480));
        }
        const double peak = click(tone, before / 2, rate);
        QVERIFY2(
            peak < 1e-5,
            qPrintable(
                QStringLiteral("%1: %2").arg(QLatin1String(parameterTable[p].title)).arg(peak)));
    }
}

QTEST_APPLESS_MAIN(tst_Clicks)

#include "tst_Clicks.moc"
