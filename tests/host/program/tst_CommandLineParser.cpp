// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/program/CommandLineParser.h"
#include "host/program/OptionTable.h"
#include "tests/support/TestObject.h"

#include <algorithm>

using namespace Qt::StringLiterals;

class tst_CommandLineParser : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsWithDefaults();
    void readsEveryOption();
    void settingsKeepTheirOrder();
    void knowsWhatIsHeadless_data();
    void knowsWhatIsHeadless();
    void acceptsTheEndsOfRanges();
    void refuses_data();
    void refuses();
    void helpCountsBeforeErrors();
    void helpNamesEveryOption();
    void helpFitsIntoTerminals();
    void findsTheLanguageAmongErrors();

private:
    static Result<CommandLine> parse(const QString& words);
};

// Words separated by "|".
Result<CommandLine> tst_CommandLineParser::parse(const QString& words)
{
    QStringList arguments(u"zolta-host"_s);
    if (!words.isEmpty())
        arguments += words.split(QLatin1Char('|'));
    return CommandLineParser::parse(arguments);
}

void tst_CommandLineParser::startsWithDefaults()
{
    const CommandLine line = parse(QString()).value();
    QCOMPARE(line.plugin, QString());
    QCOMPARE(line.editor.channel, 0);
    QCOMPARE(line.channels, 0);
    QVERIFY(line.editor.stereo);
    QCOMPARE(line.editor.scale, 1.0);
    QCOMPARE(line.editor.sampleRate, 48000);
    QVERIFY(!line.sampleRateGiven && !line.wantsEditor && !line.plays());
    QVERIFY(line.settings.empty());
    QCOMPARE(line.language, Language::English);
}

void tst_CommandLineParser::readsEveryOption()
{
    const Result<CommandLine> parsed =
        parse(u"--plugin|p.so|--channels|16|--channel=15|--mono|--scale|1.5|--sample-rate|96000|--"
              u"session|s.json|"
              "--state|in.state|--set|fx_rackfx_prm_3=+3 dB|--meters|off|--language|ja|--list|"
              "--save-state|out.vstpreset|--screenshot|a.png"_s);
    QCOMPARE(parsed.error(), QString());
    const CommandLine& line = parsed.value();
    QCOMPARE(line.plugin, u"p.so"_s);
    QCOMPARE(line.channels, 16);
    QCOMPARE(line.editor.channel, 15);
    QVERIFY(!line.editor.stereo && line.wantsEditor && line.list && !line.help);
    QCOMPARE(line.editor.scale, 1.5);
    QCOMPARE(line.editor.sampleRate, 96000);
    QVERIFY(line.sampleRateGiven);
    QCOMPARE(line.session, u"s.json"_s);
    QCOMPARE(line.state, u"in.state"_s);
    QCOMPARE(line.settings.size(), 1U);
    QCOMPARE(line.settings[0].parameter, 2U);
    QCOMPARE(line.settings[0].value, 30);
    QCOMPARE(line.saveState, u"out.vstpreset"_s);
    QCOMPARE(line.screenshot, u"a.png"_s);
    QCOMPARE(line.meters, std::optional(false));
    QCOMPARE(line.language, Language::Japanese);

    const CommandLine playing =
        parse(u"--audio|in.wav|--loop|--device|ears|--rate|96000|--block|64"_s).value();
    QCOMPARE(playing.audio.file, u"in.wav"_s);
    QVERIFY(playing.audio.loop && playing.plays() && !playing.audio.device.live);
    QCOMPARE(playing.audio.device.device, u"ears"_s);
    QCOMPARE(playing.audio.device.rate, 96000);
    QCOMPARE(playing.audio.device.block, 64);
    const CommandLine alone = parse(u"in.wav|--loop|--device|ears"_s).value();
    QCOMPARE(alone.audio.file, u"in.wav"_s);
    QVERIFY(alone.audio.loop && alone.plays());
    QVERIFY(parse(u"--live"_s).value().audio.device.live);

    const CommandLine rendering = parse(u"--render|in.ogg|out.wav|--float|--overwrite"_s).value();
    QCOMPARE(rendering.render.input, u"in.ogg"_s);
    QCOMPARE(rendering.render.output, u"out.wav"_s);
    QVERIFY(rendering.render.forceFloat && rendering.render.overwrite);
}

void tst_CommandLineParser::settingsKeepTheirOrder()
{
    const CommandLine line = parse(u"--set|fx_rackfx_prm_27=Drive|--set|fx_rackfx_prm_1=@0|"
                                   "--set|fx_rackfx_prm_27=@0|--channel|3|--channel|4"_s)
                                 .value();
    const auto is = [&line](std::size_t i, std::size_t parameter, int value) {
        return line.settings[i].parameter == parameter && line.settings[i].value == value;
    };
    QCOMPARE(line.settings.size(), 3U);
    QVERIFY(is(0, 26, 1) && is(1, 0, 0) && is(2, 26, 0));
    QCOMPARE(line.editor.channel, 4); // of an option that counts once, the last value
}

void tst_CommandLineParser::knowsWhatIsHeadless_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<bool>("headless");
    QTest::addColumn<bool>("meters");
    const auto row = [](const char* words, bool headless, bool meters) {
        QTest::newRow(words) << QString::fromLatin1(words) << headless << meters;
    };
    row("", false, true);
    row("--meters|off", false, false);
    row("--meters|on", false, true);
    row("--state|a", false, true);
    row("--set|fx_rackfx_prm_3=1", false, true);
    row("--list", true, false);
    row("--list|--meters|off", true, false);
    row("--save-state|a", true, false);
    row("--screenshot|a.png", true, false);
    row("--screenshot|a.png|--meters|on", true, true);
    row("--help", true, false);
    row("-h", true, false);
    row("--version", true, false);
    row("--devices", true, false);
    row("--render|a.wav|b.wav", true, false);
}

void tst_CommandLineParser::knowsWhatIsHeadless()
{
    QFETCH(const QString, words);
    const Result<CommandLine> line = parse(words);
    QCOMPARE(line.error(), QString());
    QTEST(line.value().headless(), "headless");
    QTEST(line.value().showsMeters(), "meters");
}

void tst_CommandLineParser::acceptsTheEndsOfRanges()
{
    for (const char* words :
         {"--channel|0", "--channel|31", "--channel|31|--list|--session|s", "--channel|7|--list",
          "--channels|2", "--channels|32|--channel|31", "--channels|10|--channel|9|--list",
          "--scale|0.5", "--scale|4", "--sample-rate|1000", "--sample-rate|768000",
          "--set|fx_rackfx_prm_3=@-200", "--set|fx_rackfx_prm_3=@200",
          "--set|fx_rackfx_prm_2=@1200", "--set|fx_rackfx_prm_2=99k", "--live|--block|16",
          "--live|--block|8192", "--live|--rate|1000", "--live|--rate|768000"})
        QCOMPARE(parse(QString::fromLatin1(words)).error(), QString());
}

void tst_CommandLineParser::refuses_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<QString>("expected");
    const auto row = [](const QByteArray& words, const QByteArray& expected) {
        QTest::newRow(words.constData())
            << QString::fromLatin1(words) << QString::fromLatin1(expected);
    };
    const auto value = [&row](const char* option, const char* range,
                              std::initializer_list<const char*> values) {
        for (const char* text : values)
            row(QByteArray(option) + '|' + text,
                QByteArray(option) + " must be " + range + ", not \"" + text + "\".");
    };
    value("--channel", "a whole number from 0 to 31",
          {"32", "-1", "two", "1.0", "", "99999999999"});
    value("--channels", "an even number from 2 to 32",
          {"7", "0", "-2", "33", "34", "two", "8.0", "", "99999999999"});
    row("--channels|4|--channel|4",
        "--channel must be a whole number from 0 to 3, not \"4\": the mixer has 4 channels.");
    row("--channel|8|--list",
        "--channel must be a whole number from 0 to 7, not \"8\": the mixer has 8 channels.");
    row("--desktop|--channels|4", "--desktop cannot be combined with --channels.");
    row("--render|a.wav|b.wav|--channels|4", "--render cannot be combined with --channels.");
    value("--scale", "a number from 0.5 to 4", {"0.49", "4.01", "nan", "inf", "150%"});
    value("--sample-rate", "a whole number from 1000 to 768000", {"999", "768001", "44.1k"});
    row("--live|--rate|44.1k", "--rate must be a whole number from 1000 to 768000, not \"44.1k\".");
    row("--live|--block|15", "--block must be a whole number from 16 to 8192, not \"15\".");
    value("--set", "NAME=TEXT or NAME=@N", {"fx_rackfx_prm_3", "=3"});
    row("--set|gain=3", "--set: there is no parameter \"gain\". See --list for all of them.");
    for (const char* text : {"loud", ""})
        row("--set|fx_rackfx_prm_2="_ba + text,
            "--set fx_rackfx_prm_2: \""_ba + text +
                "\" is not a value of Low frequency (20 to 20k Hz).");
    row("--set|fx_rackfx_prm_3==3",
        "--set fx_rackfx_prm_3: \"=3\" is not a value of Low gain (-20.0 to +20.0 dB).");
    row("--set|fx_rackfx_prm_2=@1201",
        "--set fx_rackfx_prm_2: \"@1201\" is not a raw value of Low frequency (@0 to @1200).");
    row("--set|fx_rackfx_prm_3=@x",
        "--set fx_rackfx_prm_3: \"@x\" is not a raw value of Low gain (@-200 to @200).");
    for (const char* text : {"fr", ""})
        row("--language|"_ba + text,
            "--language must be one of these: en, de, ja. It cannot be \""_ba + text + "\".");
    for (const char* text : {"yes", ""})
        row("--meters|"_ba + text,
            "--meters must be one of these: on, off. It cannot be \""_ba + text + "\".");
    for (const QByteArray option :
         {"plugin", "state", "save-state", "screenshot", "session", "audio", "render"})
        row("--" + option + "|", "--" + option + " must be the name of a file.");
    row("--channel", "Missing value after '--channel'.");
    row("--loud", "Unknown option 'loud'.");
    row("song.wav|other.wav", "One file too many: \"other.wav\". One sound file can be played, and "
                              "--render takes two.");
    row("--audio|song.wav|other.wav", "One file too many: \"other.wav\". One sound file can be "
                                      "played, and --render takes two.");
    row("song.wav|--live", "--audio cannot be combined with --live.");
    row("song.wav|--list", "--audio cannot be combined with --list.");
    row("--overwrite", "--overwrite can only be used with --render.");
    row("--list=yes", "Unexpected value after '--list'.");
    for (const QByteArray option : {"device|x", "rate|48000", "block|64"})
        row("--" + option,
            "--" + option.split('|')[0] + " can only be used with --audio or --live.");
    row("--loop", "--loop can only be used with --audio.");
    row("--live|--loop", "--loop can only be used with --audio.");
    row("--float", "--float can only be used with --render.");
    row("--audio|in.wav|--live", "--audio cannot be combined with --live.");
    for (const QByteArray option : {"list", "devices", "save-state|a", "screenshot|a.png"}) {
        const QByteArray name = option.split('|')[0];
        row("--audio|in.wav|--" + option, "--audio cannot be combined with --" + name + ".");
        row("--live|--" + option, "--live cannot be combined with --" + name + ".");
    }
    row("--live|--render|in.wav|out.wav", "--live cannot be combined with --render.");
    for (const QByteArray option : {"list", "devices", "mono", "save-state|a", "screenshot|a.png",
                                    "plugin|a.so", "sample-rate|48000", "meters|on", "scale|2"})
        row("--render|in.wav|out.wav|--" + option,
            "--render cannot be combined with --" + option.split('|')[0] + ".");
    for (const QByteArray option :
         {"channel|1", "mono", "sample-rate|48000", "session|a", "audio|a.wav", "live", "list",
          "save-state|a", "screenshot|a.png", "devices"})
        row("--desktop|--" + option,
            "--desktop cannot be combined with --" + option.split('|')[0] + ".");
    row("--render|in.wav", "--render must be followed by the names of two files, IN and OUT.");
    row("--render|in.wav|out.wav|more", "One file too many: \"more\". One sound file can be "
                                        "played, and --render takes two.");
    row("--render|in.wav|out.mp3", "The name of the file to render must end in .wav, .flac or "
                                   ".ogg; \"out.mp3\" does not.");
    row("--render|in.wav|out.flac|--float", "--float can only be used for a file whose name ends "
                                            "in .wav; \"out.flac\" does not.");
    row("--render|in.wav|out.wav|--channel|1",
        "--render with --channel also needs --session; without one, all channels have the same "
        "settings.");
}

void tst_CommandLineParser::refuses()
{
    QFETCH(const QString, words);
    QTEST(parse(words).error(), "expected");
}

void tst_CommandLineParser::helpCountsBeforeErrors()
{
    const Result<CommandLine> line = parse(u"--help|--channel|8|more"_s);
    QVERIFY(line.isOk() && line.value().help);
}

void tst_CommandLineParser::helpNamesEveryOption()
{
    const QStringList lines = CommandLineParser::helpText().split(QLatin1Char('\n'));
    const auto hasLine = [&lines](const QString& start) {
        return std::any_of(lines.begin(), lines.end(),
                           [&](const QString& line) { return line.startsWith(start); });
    };
    int count = 0;
    for (const OptionGroup& group : optionGroups()) {
        for (const Option& option : group.options) {
            QVERIFY2(hasLine(u"  --%1 %2"_s.arg(QLatin1String(option.name),
                                                QLatin1String(option.argument))),
                     option.name);
            ++count;
        }
    }
    QCOMPARE(count, 27);
}

// Letters of Japanese take two columns of a terminal, and no line begins with a full stop.
void tst_CommandLineParser::helpFitsIntoTerminals()
{
    LanguageSwitch languageSwitch;
    for (const Language language : {Language::German, Language::Japanese, Language::English}) {
        languageSwitch.choose(language);
        const QString help = CommandLineParser::helpText();
        QCOMPARE(help.contains(QChar(0x3001)), language == Language::Japanese);
        for (const QString& line : help.split(u'\n')) {
            const auto wide = std::count_if(
                line.begin(), line.end(), [](QChar letter) { return letter.unicode() >= 0x3000; });
            QVERIFY2(line.size() + wide <= 90, qPrintable(line));
            QVERIFY2(!line.trimmed().startsWith(QChar(0x3001)), qPrintable(line));
            QVERIFY2(!line.trimmed().startsWith(QChar(0x3002)), qPrintable(line));
            QVERIFY2(!line.endsWith(u' '), qPrintable(line));
        }
    }
}

void tst_CommandLineParser::findsTheLanguageAmongErrors()
{
    const auto languageIn = [](const char* words) {
        return CommandLineParser::languageIn(QString::fromLatin1(words).split(QLatin1Char('|')));
    };
    QCOMPARE(languageIn("zolta-host|--loud|--channel|9|--language|ja|more"), Language::Japanese);
    QCOMPARE(languageIn("zolta-host|--language|fr"), Language::English);
    QCOMPARE(languageIn("zolta-host|--language"), Language::English);
    QCOMPARE(languageIn("zolta-host|--loud"), Language::English);
}

QTEST_GUILESS_MAIN(tst_CommandLineParser)

#include "tst_CommandLineParser.moc"
