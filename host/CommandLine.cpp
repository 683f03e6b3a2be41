// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/CommandLine.h"

#include "host/ParameterTable.h"
#include "host/ParameterText.h"

#include <QCommandLineParser>

#include <string>

namespace {

constexpr double smallestScale = 0.5;
constexpr double largestScale = 4.0;
constexpr int lowestSampleRate = 1000;
constexpr int highestSampleRate = 768000;

QCommandLineOption withValue(const char* name)
{
    return QCommandLineOption(QLatin1String(name), QString(), QStringLiteral("value"));
}

QCommandLineOption withoutValue(const char* name)
{
    return QCommandLineOption(QLatin1String(name));
}

void addOptions(QCommandLineParser& parser)
{
    for (const char* name : {"plugin", "channel", "scale", "sample-rate", "set", "state",
                             "save-state", "screenshot", "meters", "language", "session"})
        parser.addOption(withValue(name));
    for (const char* name : {"mono", "list", "help"})
        parser.addOption(withoutValue(name));
}

QString wrongValue(const char* option, const QString& text, const char* range)
{
    return QStringLiteral("--%1 takes %2, not \"%3\".")
        .arg(QLatin1String(option), QLatin1String(range), text);
}

// Turns the words of the command line into values; the first fault stays.
class Reader
{
public:
    Reader(const QCommandLineParser& parser, CommandLine& result)
        : m_parser(parser)
        , m_result(result)
    {}

    void read()
    {
        m_result.help = m_parser.isSet(QStringLiteral("help"));
        m_result.list = m_parser.isSet(QStringLiteral("list"));
        m_result.editor.stereo = !m_parser.isSet(QStringLiteral("mono"));
        readFile("plugin", &m_result.plugin);
        readFile("session", &m_result.session);
        for (const char* option : {"channel", "mono", "state", "set"})
            m_result.wantsEditor |= m_parser.isSet(QLatin1String(option));
        readFile("state", &m_result.state);
        readFile("save-state", &m_result.saveState);
        readFile("screenshot", &m_result.screenshot);
        readInteger("channel", 0, channelCount - 1, "a channel from 0 to 7",
                    &m_result.editor.channel);
        readInteger("sample-rate", lowestSampleRate, highestSampleRate,
                    "a sampling rate from 1000 to 768000 Hz", &m_result.editor.sampleRate);
        readScale();
        readMeters();
        readLanguage();
        for (const QString& text : m_parser.values(QStringLiteral("set")))
            readSetting(text);
        if (!m_parser.positionalArguments().isEmpty())
            fail(QStringLiteral("\"%1\" is no option.")
                     .arg(m_parser.positionalArguments().constFirst()));
    }

private:
    void fail(const QString& fault)
    {
        if (m_result.fault.isEmpty())
            m_result.fault = fault;
    }

    void readFile(const char* option, QString* file)
    {
        const QString name = QLatin1String(option);
        *file = m_parser.value(name);
        if (m_parser.isSet(name) && file->isEmpty())
            fail(QStringLiteral("--%1 takes the name of a file.").arg(name));
    }

    void readInteger(const char* option, int minimum, int maximum, const char* range, int* value)
    {
        const QString name = QLatin1String(option);
        if (!m_parser.isSet(name))
            return;
        bool understood = false;
        *value = m_parser.value(name).toInt(&understood);
        if (!understood || *value < minimum || *value > maximum)
            fail(wrongValue(option, m_parser.value(name), range));
    }

    void readScale()
    {
        const QString name = QStringLiteral("scale");
        if (!m_parser.isSet(name))
            return;
        bool understood = false;
        const double scale = m_parser.value(name).toDouble(&understood);
        if (!understood || !(scale >= smallestScale && scale <= largestScale))
            fail(wrongValue("scale", m_parser.value(name), "a factor from 0.5 to 4"));
        m_result.editor.scale = scale;
    }

    void readMeters()
    {
        const QString name = QStringLiteral("meters");
        if (!m_parser.isSet(name))
            return;
        const QString text = m_parser.value(name);
        if (text != QLatin1String("on") && text != QLatin1String("off"))
            fail(wrongValue("meters", text, "on or off"));
        m_result.meters = text == QLatin1String("on");
    }

    void readLanguage()
    {
        const QString name = QStringLiteral("language");
        if (!m_parser.isSet(name))
            return;
        const std::optional<Language> language = languageOf(m_parser.value(name));
        if (!language)
            fail(wrongValue("language", m_parser.value(name), "en, de or ja"));
        m_result.language = language.value_or(Language::English);
    }

    void readSetting(const QString& text)
    {
        const qsizetype equals = text.indexOf(QLatin1Char('='));
        if (equals < 1)
            return fail(QStringLiteral("--set takes NAME=TEXT or NAME=@N, not \"%1\".").arg(text));
        const QString name = text.left(equals);
        const std::size_t parameter = findParameterByName(name.toStdString());
        if (parameter == parameterCount)
            return fail(QStringLiteral("--set %1: there is no parameter of that name; --list "
                                       "shows them all.")
                            .arg(name));
        const QString value = text.mid(equals + 1);
        if (value.startsWith(QLatin1Char('@')))
            readRaw(parameter, value.mid(1));
        else
            readText(parameter, value);
    }

    void readRaw(std::size_t parameter, const QString& text)
    {
        const Parameter& entry = parameterTable[parameter];
        bool understood = false;
        const int value = text.toInt(&understood);
        if (!understood || !entry.allows(value))
            return fail(QStringLiteral("--set %1: \"@%2\" is no raw value of %3 (@%4 to @%5).")
                            .arg(QLatin1String(entry.name), text, QLatin1String(entry.title))
                            .arg(entry.minimum)
                            .arg(entry.maximum));
        m_result.settings.push_back({parameter, value});
    }

    void readText(std::size_t parameter, const QString& text)
    {
        const Parameter& entry = parameterTable[parameter];
        const std::optional<int> value = parseParameter(entry, text.toStdString());
        if (!value)
            return fail(QStringLiteral("--set %1: \"%2\" is no value of %3 (%4).")
                            .arg(QLatin1String(entry.name), text, QLatin1String(entry.title),
                                 QString::fromStdString(describeValues(entry))));
        m_result.settings.push_back({parameter, *value});
    }

    const QCommandLineParser& m_parser;
    CommandLine& m_result;
};

} // namespace

bool CommandLine::headless() const
{
    return help || list || !saveState.isEmpty() || !screenshot.isEmpty();
}

CommandLine CommandLine::parse(const QStringList& arguments)
{
    QCommandLineParser parser;
    addOptions(parser);
    CommandLine result;
    if (parser.parse(arguments))
        Reader(parser, result).read();
    else
        result.fault = parser.errorText();
    return result;
}

QString CommandLine::helpText()
{
    return QStringLiteral(
        "Usage: zolta-host [options]\n"
        "A mixer with 8 channels that opens the channel equalizer's editor.\n"
        "\n"
        "  --plugin FILE          the editor's library (otherwise ../lib/zolta/libZolta.so,\n"
        "                         seen from this program)\n"
        "  --channel N            the channel to open, 0 to 7 (0)\n"
        "  --mono                 the channel alone instead of its stereo pair\n"
        "  --scale F              zoom, 0.5 to 4 (1)\n"
        "  --sample-rate HZ       1000 to 768000 (48000)\n"
        "  --session FILE         the session to restore and to save at the end (in windows\n"
        "                         otherwise the one in the user's data; without a window it is\n"
        "                         only read, and only when it is given)\n"
        "  --state FILE           load the channel's settings: a state of 116 bytes or a\n"
        "                         .vstpreset\n"
        "  --set NAME=TEXT        set a parameter as if TEXT were typed; repeatable, after "
        "--state\n"
        "  --set NAME=@N          set a parameter to the raw integer N\n"
        "  --language en|de|ja    English, German or Japanese (en)\n"
        "  --meters on|off        whether a built-in signal runs through the equalizer and moves\n"
        "                         the meters (on in windows, otherwise off; a picture then shows\n"
        "                         them after one second)\n"
        "\n"
        "These do their work without a window and end, in this order:\n"
        "  --help                 show this\n"
        "  --list                 print the channel's parameters: name, id, minimum, maximum,\n"
        "                         default, raw value and text, separated by tabs\n"
        "  --save-state FILE      write the channel's settings, as a preset if FILE ends in\n"
        "                         .vstpreset\n"
        "  --screenshot FILE.png  write a picture of the editor\n"
        "\n"
        "Exit codes: 0 done, 1 a file or the plug-in is at fault, 2 the command line is.\n");
}
