// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/program/CommandLineParser.h"

#include "host/audio/AudioFormat.h"
#include "host/program/OptionTable.h"
#include "host/program/OptionValue.h"
#include "parameters/ParameterTable.h"

#include <QCommandLineParser>
#include <QTextBoundaryFinder>

#include <algorithm>
#include <string_view>

namespace {

constexpr int helpColumn = 25;
constexpr int helpWidth = 90;
constexpr QLatin1String renderName("render");
constexpr std::string_view audioName = "audio";

Status first(Status earlier, const Status& later) { return earlier.isOk() ? later : earlier; }

QString dashed(const char* option) { return QLatin1String("--") + QLatin1String(option); }

QStringList namesOf(const Option& option)
{
    QStringList names(QLatin1String(option.name));
    if (*option.letter)
        names << QLatin1String(option.letter);
    return names;
}

void addOptions(QCommandLineParser* parser)
{
    for (const OptionGroup& group : optionGroups()) {
        for (const Option& option : group.options)
            parser->addOption(
                QCommandLineOption(namesOf(option), QString(), QLatin1String(option.argument)));
    }
}

Status apply(const QCommandLineParser& parser, const Option& option, CommandLine* line)
{
    if (!*option.argument)
        return option.set(option, QString(), line);
    const QStringList values = parser.values(QLatin1String(option.name));
    if (!option.repeatable)
        return option.set(option, values.constLast(), line);
    Status status;
    for (const QString& value : values)
        status = first(status, option.set(option, value, line));
    return status;
}

// A file alone is one to play.
bool isGiven(const QCommandLineParser& parser, const char* name)
{
    const bool hasFile = !parser.positionalArguments().isEmpty() && !parser.isSet(renderName);
    return parser.isSet(QLatin1String(name)) || (hasFile && name == audioName);
}

Status checkCombination(const QCommandLineParser& parser, const Option& option)
{
    const auto isSet = [&parser](const char* name) { return isGiven(parser, name); };
    const auto excluded = std::find_if(option.excludes.begin(), option.excludes.end(), isSet);
    if (excluded != option.excludes.end())
        return Error{CommandLine::tr("%1 cannot be combined with %2.")
                         .arg(dashed(option.name), dashed(*excluded))};
    if (option.needs.empty() || std::any_of(option.needs.begin(), option.needs.end(), isSet))
        return Status();
    if (option.needs.size() == 1)
        return Error{CommandLine::tr("%1 can only be used with %2.")
                         .arg(dashed(option.name), dashed(option.needs[0]))};
    return Error{CommandLine::tr("%1 can only be used with %2 or %3.")
                     .arg(dashed(option.name), dashed(option.needs[0]), dashed(option.needs[1]))};
}

Status checkRender(const CommandLine& line, bool channelGiven)
{
    const CommandLine::Render& render = line.render;
    if (render.output.isEmpty())
        return Error{CommandLine::tr("--render must be followed by the names of two files, IN and "
                                     "OUT.")};
    if (!AudioFormat::canWrite(render.output))
        return Error{CommandLine::tr("The name of the file to render must end in .wav, .flac or "
                                     ".ogg; \"%1\" does not.")
                         .arg(render.output)};
    if (render.forceFloat && !render.output.endsWith(QLatin1String(".wav"), Qt::CaseInsensitive))
        return Error{CommandLine::tr("--float can only be used for a file whose name ends in "
                                     ".wav; \"%1\" does not.")
                         .arg(render.output)};
    if (channelGiven && line.session.isEmpty())
        return Error{CommandLine::tr("--render with --channel also needs --session; without one, "
                                     "all channels have the same settings.")};
    return Status();
}

// A session says how many channels there are, and whoever reads it checks then.
Status checkChannel(const CommandLine& line)
{
    if (line.channels > 0)
        return OptionValue::checkChannel(line, line.channels);
    const bool hasSession = !line.session.isEmpty() || !line.headless();
    return hasSession ? Status() : OptionValue::checkChannel(line, defaultChannelCount);
}

Status readFurther(const QCommandLineParser& parser, CommandLine* line)
{
    QStringList further = parser.positionalArguments();
    QString* file = line->renders() ? &line->render.output : &line->audio.file;
    if (!further.isEmpty() && file->isEmpty())
        *file = further.takeFirst();
    if (!further.isEmpty())
        return Error{CommandLine::tr("One file too many: \"%1\". One sound file can be played, and "
                                     "--render takes two.")
                         .arg(further.constFirst())};
    return line->renders() ? checkRender(*line, parser.isSet(QStringLiteral("channel"))) : Status();
}

Status readOptions(const QCommandLineParser& parser, CommandLine* line)
{
    Status values;
    Status combinations;
    for (const OptionGroup& group : optionGroups()) {
        for (const Option& option : group.options) {
            if (!isGiven(parser, option.name))
                continue;
            if (parser.isSet(QLatin1String(option.name)))
                values = first(values, apply(parser, option, line));
            combinations = first(combinations, checkCombination(parser, option));
        }
    }
    return first(values, combinations);
}

// Takes two columns of a terminal.
bool isWide(QChar letter)
{
    const char16_t code = letter.unicode();
    return (code >= 0x2e80 && code <= 0xd7a3) || (code >= 0xf900 && code <= 0xfaff) ||
           (code >= 0xfe30 && code <= 0xfe6f) || (code >= 0xff00 && code <= 0xff60);
}

qsizetype columnsOf(const QString& text)
{
    return text.size() + std::count_if(text.begin(), text.end(), isWide);
}

// What stays together in a line: words with the space behind them, and single wide letters with
// the punctuation that must not be parted from them.
QStringList piecesOf(const QString& text)
{
    QStringList pieces;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Line, text);
    qsizetype start = 0;
    for (qsizetype end = 1; end <= text.size(); ++end) {
        finder.setPosition(end);
        const QChar before = text[end - 1];
        const bool isBreak = before.isSpace() || (isWide(before) && finder.isAtBoundary());
        if (!isBreak && end < text.size())
            continue;
        pieces << text.mid(start, end - start);
        start = end;
    }
    return pieces;
}

// Text in lines that fit into the help's second column.
QString wrapped(const QString& text)
{
    QString lines;
    QString line;
    for (const QString& piece : piecesOf(text)) {
        if (!line.isEmpty() && helpColumn + columnsOf((line + piece).trimmed()) > helpWidth) {
            lines += line.trimmed() + QLatin1Char('\n') + QString(helpColumn, QLatin1Char(' '));
            line.clear();
        }
        line += piece;
    }
    return lines + line;
}

QString helpLine(const Option& option)
{
    QString left = QLatin1String("  ") + dashed(option.name);
    if (*option.argument)
        left += QLatin1Char(' ') + QLatin1String(option.argument);
    return left.leftJustified(helpColumn) + wrapped(CommandLine::tr(option.help)) +
           QLatin1Char('\n');
}

} // namespace

Result<QStringList> CommandLineParser::decode(int argc, const char* const argv[])
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i) {
        arguments << QString::fromUtf8(argv[i]);
        if (i > 0 && arguments.constLast().toUtf8() != argv[i])
            return Error{CommandLine::tr("The argument \"%1\" is not valid UTF-8. Rename the file, "
                                         "or use another one.")
                             .arg(arguments.constLast())};
    }
    return arguments;
}

Result<CommandLine> CommandLineParser::parse(const QStringList& arguments)
{
    QCommandLineParser parser;
    addOptions(&parser);
    if (!parser.parse(arguments))
        return Error{parser.errorText()};
    CommandLine line;
    Status status = readOptions(parser, &line);
    status = first(status, checkChannel(line));
    status = first(status, readFurther(parser, &line));
    if (!status.isOk() && !line.help)
        return Error{status.error()};
    return line;
}

Language CommandLineParser::languageIn(const QStringList& arguments)
{
    QCommandLineParser parser;
    addOptions(&parser);
    static_cast<void>(parser.parse(arguments)); // the rest of them does not matter here
    return languageOf(parser.value(QStringLiteral("language"))).value_or(Language::English);
}

QString CommandLineParser::helpText()
{
    QString text =
        CommandLine::tr("Usage: zolta-host [options] [SOUND]\n"
                        "A mixer with 2 to 32 channels that opens the channel equalizer's "
                        "editor.\n");
    for (const OptionGroup& group : optionGroups()) {
        text += QLatin1Char('\n');
        if (*group.title)
            text += CommandLine::tr(group.title) + QLatin1Char('\n');
        for (const Option& option : group.options)
            text += helpLine(option);
    }
    return text + QLatin1Char('\n') +
           CommandLine::tr("Exit codes: 0 done, 1 a file or the plug-in has an error, 2 usage "
                           "error.\n");
}
