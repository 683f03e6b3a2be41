// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/program/CommandLine.h"

#include "host/audio/AudioFormat.h"
#include "parameters/ParameterTable.h"
#include "parameters/ParameterText.h"

#include <QCommandLineParser>

#include <initializer_list>
#include <string>

namespace {

constexpr double smallestScale = 0.5;
constexpr double largestScale = 4.0;
constexpr int lowestSampleRate = 1000;
constexpr int highestSampleRate = 768000;
constexpr int smallestBlock = 16;
constexpr int largestBlock = 8192;

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
    for (const char* name :
         {"plugin", "channel", "scale", "sample-rate", "set", "state", "save-state", "screenshot",
          "meters", "language", "render", "audio", "device", "rate", "block", "session"})
        parser.addOption(withValue(name));
    for (const char* name : {"mono", "list", "help", "float", "live", "loop", "devices"})
        parser.addOption(withoutValue(name));
}

QString wrongValue(const char* option, const QString& text, const char* range)
{
    return QStringLiteral("--%1 takes %2, not \"%3\".")
        .arg(QLatin1String(option), QLatin1String(range), text);
}

// Turns the words of the command line into values; the first error stays.
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
        m_result.sampleRateGiven = m_parser.isSet(QStringLiteral("sample-rate"));
        readScale();
        readMeters();
        readLanguage();
        for (const QString& text : m_parser.values(QStringLiteral("set")))
            readSetting(text);
        QStringList further = m_parser.positionalArguments();
        readRender(&further);
        readAudio();
        if (!further.isEmpty())
            fail(QStringLiteral("\"%1\" is no option.").arg(further.constFirst()));
    }

private:
    void fail(const QString& error)
    {
        if (m_result.error.isEmpty())
            m_result.error = error;
    }

    void readFile(const char* option, QString* file)
    {
        const QString name = QLatin1String(option);
        *file = m_parser.value(name);
        if (m_parser.isSet(name) && file->isEmpty())
            fail(QStringLiteral("--%1 takes the name of a file.").arg(name));
    }

    // The second of the two files stands alone.
    void readRender(QStringList* further)
    {
        CommandLine::Render& render = m_result.render;
        render.forceFloat = m_parser.isSet(QStringLiteral("float"));
        if (!m_parser.isSet(QStringLiteral("render"))) {
            refuseWithout("--render", {"float"});
            return;
        }
        render.input = m_parser.value(QStringLiteral("render"));
        if (!further->isEmpty())
            render.output = further->takeFirst();
        if (render.input.isEmpty() || render.output.isEmpty())
            fail(QStringLiteral("--render takes the names of two files, IN and OUT."));
        else if (!AudioFormat::canWrite(render.output))
            fail(
                QStringLiteral("--render writes files that end in .wav, .flac or .ogg, not \"%1\".")
                    .arg(render.output));
        else if (render.forceFloat && !isWav(render.output))
            fail(QStringLiteral("--float is for files that end in .wav, not \"%1\".")
                     .arg(render.output));
        refuseTogether("render", {"list", "save-state", "screenshot", "devices", "plugin",
                                  "sample-rate", "meters", "scale", "mono"});
        if (m_parser.isSet(QStringLiteral("channel")) && m_result.session.isEmpty())
            fail(QStringLiteral("--render takes --channel together with --session only: every "
                                "channel of the file gets the same settings."));
    }

    void readAudio()
    {
        CommandLine::Audio& audio = m_result.audio;
        readFile("audio", &audio.file);
        audio.device.live = m_parser.isSet(QStringLiteral("live"));
        audio.loop = m_parser.isSet(QStringLiteral("loop"));
        audio.device.device = m_parser.value(QStringLiteral("device"));
        readInteger("rate", lowestSampleRate, highestSampleRate,
                    "a sampling rate from 1000 to 768000 Hz", &audio.device.rate);
        readInteger("block", smallestBlock, largestBlock, "a number of frames from 16 to 8192",
                    &audio.device.block);
        m_result.devices = m_parser.isSet(QStringLiteral("devices"));
        if (!m_result.plays())
            return refuseWithout("--audio or --live", {"device", "rate", "block", "loop"});
        if (audio.file.isEmpty())
            refuseWithout("--audio", {"loop"});
        else
            refuseTogether("audio", {"live"});
        refuseTogether(audio.file.isEmpty() ? "live" : "audio",
                       {"list", "save-state", "screenshot", "render", "devices"});
    }

    void refuseTogether(const char* option, std::initializer_list<const char*> others)
    {
        for (const char* other : others) {
            if (m_parser.isSet(QLatin1String(other)))
                fail(QStringLiteral("--%1 and --%2 do not go together.")
                         .arg(QLatin1String(option), QLatin1String(other)));
        }
    }

    void refuseWithout(const char* needed, std::initializer_list<const char*> options)
    {
        for (const char* option : options) {
            if (m_parser.isSet(QLatin1String(option)))
                fail(QStringLiteral("--%1 is for %2 only.")
                         .arg(QLatin1String(option), QLatin1String(needed)));
        }
    }

    static bool isWav(const QString& file)
    {
        return file.endsWith(QLatin1String(".wav"), Qt::CaseInsensitive);
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
    return help || list || devices || renders() || !saveState.isEmpty() || !screenshot.isEmpty();
}

CommandLine CommandLine::parse(const QStringList& arguments)
{
    QCommandLineParser parser;
    addOptions(parser);
    CommandLine result;
    if (parser.parse(arguments))
        Reader(parser, result).read();
    else
        result.error = parser.errorText();
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
        "  --audio FILE           play a WAV, FLAC or OGG file through the channel's equalizer\n"
        "  --loop                 play it over and over\n"
        "  --live                 play what the sound device takes in instead\n"
        "  --device NAME          the sound device, or a part of its name (the default one)\n"
        "  --rate HZ              the device's sampling rate (the file's, if the device has it)\n"
        "  --block FRAMES         the device's block, 16 to 8192 (as the device likes)\n"
        "\n"
        "These do their work without a window and end, in this order:\n"
        "  --help                 show this\n"
        "  --list                 print the channel's parameters: name, id, minimum, maximum,\n"
        "                         default, raw value and text, separated by tabs\n"
        "  --save-state FILE      write the channel's settings, as a preset if FILE ends in\n"
        "                         .vstpreset\n"
        "  --screenshot FILE.png  write a picture of the editor\n"
        "\n"
        "These do their work alone, without an editor:\n"
        "  --devices              print the sound devices: name, outputs, inputs, preferred rate "
        "in\n"
        "                         Hz and remarks, separated by tabs\n"
        "  --render IN OUT        send a WAV, FLAC or OGG file through the channel's equalizer "
        "into\n"
        "                         a new one whose name ends in .wav, .flac or .ogg; the settings\n"
        "                         are those of --channel in --session, then --state, then --set\n"
        "  --float                write 32-bit floats into a .wav file, whatever IN has\n"
        "\n"
        "Exit codes: 0 done, 1 a file or the plug-in is at error, 2 the command line is.\n");
}
