// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/program/CommandLine.h"
#include "parameters/ParameterTable.h"
#include "tests/support/TestObject.h"

class tst_CommandLine : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsWithDefaults();
    void readsEveryOption();
    void takesValuesAfterEquals();
    void settingsKeepTheirOrder();
    void settingTextMayHoldAnEqualsSign();
    void knowsWhatIsHeadless_data();
    void knowsWhatIsHeadless();
    void metersAreForWindows_data();
    void metersAreForWindows();
    void acceptsTheEndsOfRanges_data();
    void acceptsTheEndsOfRanges();
    void refuses_data();
    void refuses();
    void helpNamesEveryOption();

private:
    static CommandLine parse(const QString& words);
};

// Words separated by "|".
CommandLine tst_CommandLine::parse(const QString& words)
{
    QStringList arguments(QStringLiteral("zolta-host"));
    if (!words.isEmpty())
        arguments += words.split(QLatin1Char('|'));
    return CommandLine::parse(arguments);
}

void tst_CommandLine::startsWithDefaults()
{
    const CommandLine line = parse(QString());
    QCOMPARE(line.error, QString());
    QCOMPARE(line.plugin, QString());
    QCOMPARE(line.editor.channel, 0);
    QVERIFY(line.editor.stereo);
    QCOMPARE(line.editor.scale, 1.0);
    QCOMPARE(line.editor.sampleRate, 48000);
    QVERIFY(line.settings.empty());
    QVERIFY(!line.headless());
    QVERIFY(!line.meters);
    QCOMPARE(line.language, Language::English);
}

void tst_CommandLine::readsEveryOption()
{
    const CommandLine line = parse(QStringLiteral(
        "--plugin|p.so|--channel|5|--mono|--scale|1.5|--sample-rate|96000|--state|in.state|"
        "--set|fx_rackfx_prm_3=+3 "
        "dB|--meters|off|--language|ja|--list|--save-state|out.vstpreset|--screenshot|a.png"));
    QCOMPARE(line.error, QString());
    QCOMPARE(line.plugin, QStringLiteral("p.so"));
    QCOMPARE(line.editor.channel, 5);
    QVERIFY(!line.editor.stereo);
    QCOMPARE(line.editor.scale, 1.5);
    QCOMPARE(line.editor.sampleRate, 96000);
    QCOMPARE(line.state, QStringLiteral("in.state"));
    QCOMPARE(line.settings.size(), 1U);
    QCOMPARE(line.settings[0].parameter, 2U);
    QCOMPARE(line.settings[0].value, 30);
    QVERIFY(line.list);
    QCOMPARE(line.saveState, QStringLiteral("out.vstpreset"));
    QCOMPARE(line.screenshot, QStringLiteral("a.png"));
    QCOMPARE(line.meters, std::optional(false));
    QCOMPARE(line.language, Language::Japanese);
    QVERIFY(!line.help);
}

void tst_CommandLine::takesValuesAfterEquals()
{
    const CommandLine line = parse(QStringLiteral("--channel=7|--set=fx_rackfx_prm_2=@100"));
    QCOMPARE(line.error, QString());
    QCOMPARE(line.editor.channel, 7);
    QCOMPARE(line.settings[0].parameter, 1U);
    QCOMPARE(line.settings[0].value, 100);
}

void tst_CommandLine::settingsKeepTheirOrder()
{
    const CommandLine line = parse(QStringLiteral(
        "--set|fx_rackfx_prm_27=Drive|--set|fx_rackfx_prm_1=@0|--set|fx_rackfx_prm_27=@0"));
    QCOMPARE(line.error, QString());
    QCOMPARE(line.settings.size(), 3U);
    QCOMPARE(line.settings[0].parameter, 26U);
    QCOMPARE(line.settings[0].value, 1);
    QCOMPARE(line.settings[1].parameter, 0U);
    QCOMPARE(line.settings[1].value, 0);
    QCOMPARE(line.settings[2].parameter, 26U);
    QCOMPARE(line.settings[2].value, 0);
}

void tst_CommandLine::settingTextMayHoldAnEqualsSign()
{
    QCOMPARE(parse(QStringLiteral("--set|fx_rackfx_prm_3==3")).error,
             QStringLiteral("--set fx_rackfx_prm_3: \"=3\" is no value of Low gain "
                            "(-20.0 to +20.0 dB)."));
}

void tst_CommandLine::knowsWhatIsHeadless_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<bool>("expected");
    QTest::newRow("nothing") << "" << false;
    QTest::newRow("state") << "--state|a" << false;
    QTest::newRow("set") << "--set|fx_rackfx_prm_3=1" << false;
    QTest::newRow("list") << "--list" << true;
    QTest::newRow("save-state") << "--save-state|a" << true;
    QTest::newRow("screenshot") << "--screenshot|a.png" << true;
    QTest::newRow("help") << "--help" << true;
}

void tst_CommandLine::knowsWhatIsHeadless()
{
    QFETCH(const QString, words);
    QTEST(parse(words).headless(), "expected");
}

void tst_CommandLine::metersAreForWindows_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<bool>("expected");
    QTest::newRow("window") << "" << true;
    QTest::newRow("window off") << "--meters|off" << false;
    QTest::newRow("window on") << "--meters|on" << true;
    QTest::newRow("picture") << "--screenshot|a.png" << false;
    QTest::newRow("picture on") << "--screenshot|a.png|--meters|on" << true;
    QTest::newRow("list off") << "--list|--meters|off" << false;
}

void tst_CommandLine::metersAreForWindows()
{
    QFETCH(const QString, words);
    QCOMPARE(parse(words).error, QString());
    QTEST(parse(words).showsMeters(), "expected");
}

void tst_CommandLine::acceptsTheEndsOfRanges_data()
{
    QTest::addColumn<QString>("words");
    for (const char* words :
         {"--channel|0", "--channel|7", "--scale|0.5", "--scale|4", "--sample-rate|1000",
          "--sample-rate|768000", "--set|fx_rackfx_prm_3=@-200", "--set|fx_rackfx_prm_3=@200",
          "--set|fx_rackfx_prm_2=@1200", "--set|fx_rackfx_prm_2=99k"})
        QTest::newRow(words) << QString::fromLatin1(words);
}

void tst_CommandLine::acceptsTheEndsOfRanges()
{
    QFETCH(const QString, words);
    QCOMPARE(parse(words).error, QString());
}

void tst_CommandLine::refuses_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* words, const char* expected) {
        QTest::newRow(words) << QString::fromLatin1(words) << QString::fromLatin1(expected);
    };
    row("--channel|8", "--channel takes a channel from 0 to 7, not \"8\".");
    row("--channel|-1", "--channel takes a channel from 0 to 7, not \"-1\".");
    row("--channel|two", "--channel takes a channel from 0 to 7, not \"two\".");
    row("--channel|1.0", "--channel takes a channel from 0 to 7, not \"1.0\".");
    row("--channel|", "--channel takes a channel from 0 to 7, not \"\".");
    row("--channel|99999999999", "--channel takes a channel from 0 to 7, not \"99999999999\".");
    row("--scale|0.49", "--scale takes a factor from 0.5 to 4, not \"0.49\".");
    row("--scale|4.01", "--scale takes a factor from 0.5 to 4, not \"4.01\".");
    row("--scale|nan", "--scale takes a factor from 0.5 to 4, not \"nan\".");
    row("--scale|inf", "--scale takes a factor from 0.5 to 4, not \"inf\".");
    row("--scale|150%", "--scale takes a factor from 0.5 to 4, not \"150%\".");
    row("--sample-rate|999",
        "--sample-rate takes a sampling rate from 1000 to 768000 Hz, not \"999\".");
    row("--sample-rate|768001",
        "--sample-rate takes a sampling rate from 1000 to 768000 Hz, not \"768001\".");
    row("--sample-rate|44.1k",
        "--sample-rate takes a sampling rate from 1000 to 768000 Hz, not \"44.1k\".");
    row("--set|fx_rackfx_prm_3", "--set takes NAME=TEXT or NAME=@N, not \"fx_rackfx_prm_3\".");
    row("--set|=3", "--set takes NAME=TEXT or NAME=@N, not \"=3\".");
    row("--set|gain=3", "--set gain: there is no parameter of that name; --list shows them all.");
    row("--set|fx_rackfx_prm_2=loud",
        "--set fx_rackfx_prm_2: \"loud\" is no value of Low frequency (20 to 20k Hz).");
    row("--set|fx_rackfx_prm_2=",
        "--set fx_rackfx_prm_2: \"\" is no value of Low frequency (20 to 20k Hz).");
    row("--set|fx_rackfx_prm_2=@1201",
        "--set fx_rackfx_prm_2: \"@1201\" is no raw value of Low frequency (@0 to @1200).");
    row("--set|fx_rackfx_prm_3=@x",
        "--set fx_rackfx_prm_3: \"@x\" is no raw value of Low gain (@-200 to @200).");
    row("--language|fr", "--language takes en, de or ja, not \"fr\".");
    row("--language|", "--language takes en, de or ja, not \"\".");
    row("--meters|yes", "--meters takes on or off, not \"yes\".");
    row("--meters|", "--meters takes on or off, not \"\".");
    row("--plugin|", "--plugin takes the name of a file.");
    row("--state|", "--state takes the name of a file.");
    row("--save-state|", "--save-state takes the name of a file.");
    row("--screenshot|", "--screenshot takes the name of a file.");
    row("--channel", "Missing value after '--channel'.");
    row("--loud", "Unknown option 'loud'.");
    row("something", "\"something\" is no option.");
    row("--list=yes", "Unexpected value after '--list'.");
}

void tst_CommandLine::refuses()
{
    QFETCH(const QString, words);
    QTEST(parse(words).error, "expected");
}

void tst_CommandLine::helpNamesEveryOption()
{
    const QString help = CommandLine::helpText();
    for (const char* option : {"--plugin FILE",
                               "--channel N",
                               "--mono",
                               "--scale F",
                               "--sample-rate HZ",
                               "--set NAME=TEXT",
                               "--set NAME=@N",
                               "--list",
                               "--state FILE",
                               "--save-state FILE",
                               "--screenshot FILE.png",
                               "--help",
                               "--meters on|off",
                               "--language en|de|ja",
                               "--render IN OUT",
                               "--float",
                               "--audio FILE",
                               "--loop",
                               "--live",
                               "--device NAME",
                               "--rate HZ",
                               "--block FRAMES",
                               "--devices",
                               "--session FILE"})
        QVERIFY2(help.contains(QLatin1String(option)), option);
    for (const QString& line : help.split(QLatin1Char('\n')))
        QVERIFY2(line.size() <= 100, qPrintable(line));
}

QTEST_APPLESS_MAIN(tst_CommandLine)

#include "tst_CommandLine.moc"
