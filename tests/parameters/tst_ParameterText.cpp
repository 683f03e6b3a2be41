// SPDX-License-Identifier: GPL-3.0-or-later
#include "parameters/ParameterText.h"
#include "tests/support/TestObject.h"

#include <QRegularExpression>

#include <clocale>
#include <cmath>
#include <limits>

class tst_ParameterText : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyTextNamesItsStep();
    void everyFrequencyIsTheRoundestOfItsStep();
    void everyQualityIsTheRoundestOfItsStep();
    void everyGainIsExact();
    void formats_data();
    void formats();
    void refusesValuesOutsideTheRange();
    void parses_data();
    void parses();
    void refuses_data();
    void refuses();
    void survivesAnyNumber();
    void describesValues();
};

namespace {

const Parameter& named(const char* name) { return parameterTable[findParameterByName(name)]; }

const Parameter& lowType() { return named("fx_rackfx_prm_1"); }
const Parameter& frequency() { return named("fx_rackfx_prm_2"); }
const Parameter& gain() { return named("fx_rackfx_prm_3"); }
const Parameter& onOff() { return named("fx_rackfx_prm_4"); }
const Parameter& quality() { return named("fx_rackfx_prm_5"); }
const Parameter& highType() { return named("fx_rackfx_prm_21"); }
const Parameter& level() { return named("fx_rackfx_prm_25"); }
const Parameter& drive() { return named("fx_rackfx_prm_27"); }

QString text(const Parameter& parameter, int value)
{
    return QString::fromStdString(formatParameter(parameter, value).value_or("none"));
}

// What a text with an optional "k" says, read by Qt instead of by the code under test.
double hertz(QString text)
{
    const bool kilo = text.endsWith(QLatin1Char('k'));
    if (kilo)
        text.chop(1);
    return text.toDouble() * (kilo ? 1000.0 : 1.0);
}

} // namespace

void tst_ParameterText::everyTextNamesItsStep()
{
    for (const Parameter& parameter : parameterTable) {
        for (int value = parameter.minimum; value <= parameter.maximum; ++value) {
            const std::optional<std::string> formatted = formatParameter(parameter, value);
            QVERIFY2(formatted, parameter.name);
            QCOMPARE(parseParameter(parameter, *formatted), std::optional<int>(value));
            const std::string withUnit = *formatted + ' ' + parameter.unit;
            QCOMPARE(parseParameter(parameter, withUnit), std::optional<int>(value));
        }
    }
}

void tst_ParameterText::everyFrequencyIsTheRoundestOfItsStep()
{
    for (int value = 0; value <= 1200; ++value) {
        const double exact = 20.0 * std::exp(value / 400.0 * std::log(10.0));
        const QString shown = text(frequency(), value);
        QCOMPARE(shown.endsWith(QLatin1Char('k')), hertz(shown) >= 1000.0);
        QVERIFY(!shown.contains(QLatin1Char('.')) ||
                !QString(shown).remove(QLatin1Char('k')).endsWith(QLatin1Char('0')));

        int digits = 1;
        double roundest = 0.0;
        do
            roundest = QString::number(exact, 'g', digits++).toDouble();
        while (std::lround(400.0 * std::log10(roundest / 20.0)) != value);
        QCOMPARE(hertz(shown), roundest);
    }
}

void tst_ParameterText::everyQualityIsTheRoundestOfItsStep()
{
    for (int value = 0; value <= 500; ++value) {
        const double exact = 0.5 * std::pow(32.0, value / 500.0);
        const QString shown = text(quality(), value);
        const int usual = exact < 9.995 ? 2 : 1;
        int decimals = usual - 1;
        double roundest = 0.0;
        do
            roundest = QString::number(exact, 'f', decimals++).toDouble();
        while (std::lround(500.0 * std::log(roundest / 0.5) / std::log(32.0)) != value);
        QCOMPARE(shown, QString::number(roundest, 'f', std::max(decimals - 1, usual)));
    }
}

void tst_ParameterText::everyGainIsExact()
{
    for (const Parameter* parameter : {&gain(), &level()}) {
        for (int value = -200; value <= 200; ++value) {
            const QString sign = value > 0 ? QStringLiteral("+") : QString();
            QCOMPARE(text(*parameter, value), sign + QString::number(value / 10.0, 'f', 1));
        }
    }
}

void tst_ParameterText::formats_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* tag, const Parameter& parameter, int value,
                        const char* expected) {
        QTest::newRow(tag) << QString::fromLatin1(parameter.name) << value
                           << QString::fromLatin1(expected);
    };
    row("default low frequency", frequency(), 241, "80");
    row("1 kHz", frequency(), 680, "1k");
    row("between two short texts", frequency(), 684, "1.026k");
    row("20 kHz", frequency(), 1200, "20k");
    row("narrowest step of quality", quality(), 1, "0.503");
    row("lowest quality", quality(), 0, "0.50");
    row("highest quality", quality(), 500, "16.0");
    row("cut", gain(), -200, "-20.0");
    row("no gain", gain(), 0, "0.0");
    row("full boost", gain(), 200, "+20.0");
    row("steep high-pass", lowType(), 0, "HPF 12");
    row("gentle high-pass", lowType(), 1, "HPF 6");
    row("gentle low shelf", lowType(), 2, "Shelf 6");
    row("steep low shelf", lowType(), 3, "Shelf 12");
    row("steep low-pass", highType(), 0, "LPF 12");
    row("gentle low-pass", highType(), 1, "LPF 6");
    row("gentle high shelf", highType(), 2, "Shelf 6");
    row("steep high shelf", highType(), 3, "Shelf 12");
    row("off", onOff(), 0, "Off");
    row("on", onOff(), 1, "On");
    row("clean", drive(), 0, "Clean");
    row("drive", drive(), 1, "Drive");
}

void tst_ParameterText::formats()
{
    QFETCH(const QString, name);
    QFETCH(const int, value);
    QTEST(text(named(name.toLatin1().constData()), value), "expected");
}

void tst_ParameterText::refusesValuesOutsideTheRange()
{
    for (const Parameter& parameter : parameterTable) {
        QVERIFY(!formatParameter(parameter, parameter.minimum - 1));
        QVERIFY(!formatParameter(parameter, parameter.maximum + 1));
        QVERIFY(!formatParameter(parameter, std::numeric_limits<int>::min()));
        QVERIFY(!formatParameter(parameter, std::numeric_limits<int>::max()));
    }
}

void tst_ParameterText::parses_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("expected");
    const auto row = [](const Parameter& parameter, const char* typed, int expected) {
        QTest::addRow("%s \"%s\"", parameter.title, typed)
            << QString::fromLatin1(parameter.name) << QString::fromUtf8(typed) << expected;
    };
    for (const char* typed : {"1.25k", "1.25 kHz", "1250Hz", "1250", " 1,25 K ", "+1250 hz",
                              "1.25e3", "\t1250.0 HZ\n", "1.25k Hz"})
        row(frequency(), typed, 718);
    row(frequency(), "2K", 800);
    row(frequency(), "80", 241);
    row(frequency(), ".5k", 559);
    row(frequency(), "5", 0);
    row(frequency(), "0", 0);
    row(frequency(), "-100", 0);
    row(frequency(), "22k", 1200);
    row(frequency(), "2e+06", 1200);
    row(frequency(), "1e999", 1200);
    row(frequency(), "1e-999", 0);
    for (const char* typed : {"+6 dB", "6", "6,0", "6.0DB", "+6.04", "5.96 db"})
        row(gain(), typed, 60);
    row(gain(), "-0.0", 0);
    row(gain(), "-99", -200);
    row(gain(), "99", 200);
    row(gain(), "-3.5dB", -35);
    row(level(), "-12", -120);
    row(quality(), "0.5", 0);
    row(quality(), "1", 100);
    row(quality(), "0,71", 51);
    row(quality(), "-1", 0);
    row(quality(), "100", 500);
    for (const char* typed : {"HPF 12", "hpf12", " Hpf  12 "})
        row(lowType(), typed, 0);
    row(lowType(), "shelf 6", 2);
    row(highType(), "lpf 6", 1);
    for (const char* typed : {"On", "on", " ON ", "1"})
        row(onOff(), typed, 1);
    for (const char* typed : {"Off", "0"})
        row(onOff(), typed, 0);
    for (const char* typed : {"drive", "On", "1"})
        row(drive(), typed, 1);
    for (const char* typed : {"CLEAN", "off", "0"})
        row(drive(), typed, 0);
}

void tst_ParameterText::parses()
{
    QFETCH(const QString, name);
    QFETCH(const QString, typed);
    QFETCH(const int, expected);
    const Parameter& parameter = named(name.toLatin1().constData());
    QCOMPARE(parseParameter(parameter, typed.toStdString()), std::optional<int>(expected));
    // The same in a locale that writes numbers with a comma, where the system has one.
    if (std::setlocale(LC_NUMERIC, "de_DE.UTF-8"))
        QCOMPARE(parseParameter(parameter, typed.toStdString()), std::optional<int>(expected));
    std::setlocale(LC_NUMERIC, "C");
}

void tst_ParameterText::refuses_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("typed");
    const auto row = [](const Parameter& parameter, const char* typed) {
        QTest::addRow("%s \"%s\"", parameter.title, typed)
            << QString::fromLatin1(parameter.name) << QString::fromUtf8(typed);
    };
    for (const Parameter* parameter :
         {&frequency(), &gain(), &quality(), &lowType(), &highType(), &onOff(), &drive()}) {
        for (const char* typed :
             {"",  "   ", "abc",  "nan", "-nan",  "inf",   "+inf", "infinity", "+",  "-",
              ".", ",",   "0x10", "1 2", "1.2.3", "1,2,3", "--1",  "+-1",      "1e", "\xff\xfe"})
            row(*parameter, typed);
    }
    row(frequency(), "100 dB");
    row(frequency(), "100 Hzz");
    row(frequency(), "k");
    row(frequency(), "1.25k 5");
    row(gain(), "3 Hz");
    row(gain(), "3k");
    row(quality(), "1 dB");
    row(lowType(), "LPF 12");
    row(lowType(), "2");
    row(highType(), "HPF 12");
    row(highType(), "Shelf");
    row(onOff(), "2");
    row(onOff(), "drive");
    row(onOff(), "on!");
}

void tst_ParameterText::refuses()
{
    QFETCH(const QString, name);
    QFETCH(const QString, typed);
    QVERIFY(!parseParameter(named(name.toLatin1().constData()), typed.toStdString()));
}

void tst_ParameterText::survivesAnyNumber()
{
    const std::string nines(60, '9');
    const std::string zeros(57, '0');
    QCOMPARE(parseParameter(frequency(), nines), std::optional<int>(1200));
    QCOMPARE(parseParameter(gain(), '-' + nines), std::optional<int>(-200));
    QCOMPARE(parseParameter(frequency(), nines + "e99"), std::optional<int>(1200));
    QCOMPARE(parseParameter(gain(), "0." + zeros + '1'), std::optional<int>(0));
    QVERIFY(!parseParameter(frequency(), std::string(65, '9')));
    QVERIFY(!parseParameter(frequency(), std::string(1000000, '9')));
}

void tst_ParameterText::describesValues()
{
    QCOMPARE(describeValues(frequency()), "20 to 20k Hz");
    QCOMPARE(describeValues(gain()), "-20.0 to +20.0 dB");
    QCOMPARE(describeValues(quality()), "0.50 to 16.0");
    QCOMPARE(describeValues(lowType()), "HPF 12, HPF 6, Shelf 6 or Shelf 12");
    QCOMPARE(describeValues(onOff()), "Off or On");
}

QTEST_APPLESS_MAIN(tst_ParameterText)

#include "tst_ParameterText.moc"
