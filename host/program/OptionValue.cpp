// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/program/OptionValue.h"

#include "parameters/ParameterTable.h"
#include "parameters/ParameterText.h"

#include <string>

namespace {

using Settings = std::vector<CommandLine::Setting>;

Error wrongChoice(const char* option, const QString& text, const QString& choices)
{
    return {CommandLine::tr("--%1 must be one of these: %2. It cannot be \"%3\".")
                .arg(QLatin1String(option), choices, text)};
}

QString titleOf(const Parameter& parameter)
{
    return QCoreApplication::translate("Parameter", parameter.title);
}

Status readRaw(std::size_t parameter, const QString& text, Settings* settings)
{
    const Parameter& entry = parameterTable[parameter];
    bool understood = false;
    const int value = text.toInt(&understood);
    if (!understood || !entry.allows(value))
        return Error{CommandLine::tr("--set %1: \"@%2\" is not a raw value of %3 (@%4 to @%5).")
                         .arg(QLatin1String(entry.name), text, titleOf(entry),
                              QString::number(entry.minimum), QString::number(entry.maximum))};
    settings->push_back({parameter, value});
    return Status();
}

Status readText(std::size_t parameter, const QString& text, Settings* settings)
{
    const Parameter& entry = parameterTable[parameter];
    const std::optional<int> value = parseParameter(entry, text.toStdString());
    if (!value)
        return Error{CommandLine::tr("--set %1: \"%2\" is not a value of %3 (%4).")
                         .arg(QLatin1String(entry.name), text, titleOf(entry),
                              QString::fromStdString(describeValues(entry)))};
    settings->push_back({parameter, *value});
    return Status();
}

} // namespace

Status OptionValue::readFile(const char* option, const QString& text, QString* file)
{
    if (text.isEmpty())
        return Error{
            CommandLine::tr("--%1 must be the name of a file.").arg(QLatin1String(option))};
    *file = text;
    return Status();
}

Status OptionValue::readInteger(const char* option, const QString& text, int minimum, int maximum,
                                int* value)
{
    bool understood = false;
    const int number = text.toInt(&understood);
    if (!understood || number < minimum || number > maximum)
        return Error{CommandLine::tr("--%1 must be a whole number from %2 to %3, not \"%4\".")
                         .arg(QLatin1String(option), QString::number(minimum),
                              QString::number(maximum), text)};
    *value = number;
    return Status();
}

Status OptionValue::readNumber(const char* option, const QString& text, double minimum,
                               double maximum, double* value)
{
    bool understood = false;
    const double number = text.toDouble(&understood);
    if (!understood || !(number >= minimum && number <= maximum)) // NaN, too
        return Error{CommandLine::tr("--%1 must be a number from %2 to %3, not \"%4\".")
                         .arg(QLatin1String(option), QString::number(minimum),
                              QString::number(maximum), text)};
    *value = number;
    return Status();
}

Status OptionValue::readChannelCount(const char* option, const QString& text, int* count)
{
    bool understood = false;
    const int number = text.toInt(&understood);
    if (!understood || !isChannelCount(number))
        return Error{CommandLine::tr("--%1 must be an even number from %2 to %3, not \"%4\".")
                         .arg(QLatin1String(option), QString::number(minChannelCount),
                              QString::number(maxChannelCount), text)};
    *count = number;
    return Status();
}

Status OptionValue::checkChannel(const CommandLine& line, int count)
{
    if (line.editor.channel < count)
        return Status();
    return Error{CommandLine::tr("--channel must be a whole number from 0 to %1, not \"%2\": the "
                                 "mixer has %3 channels.")
                     .arg(QString::number(count - 1), QString::number(line.editor.channel),
                          QString::number(count))};
}

Status OptionValue::readSwitch(const char* option, const QString& text, std::optional<bool>* on)
{
    if (text != QLatin1String("on") && text != QLatin1String("off"))
        return wrongChoice(option, text, QStringLiteral("on, off"));
    *on = text == QLatin1String("on");
    return Status();
}

Status OptionValue::readLanguage(const char* option, const QString& text, Language* language)
{
    const std::optional<Language> known = languageOf(text);
    if (!known) {
        QStringList codes;
        for (const Language each : languages)
            codes << codeOf(each);
        return wrongChoice(option, text, codes.join(QLatin1String(", ")));
    }
    *language = *known;
    return Status();
}

Status OptionValue::readSetting(const QString& text, Settings* settings)
{
    const qsizetype equals = text.indexOf(QLatin1Char('='));
    if (equals < 1)
        return Error{CommandLine::tr("--set must be NAME=TEXT or NAME=@N, not \"%1\".").arg(text)};
    const QString name = text.left(equals);
    const std::size_t parameter = findParameterByName(name.toStdString());
    if (parameter == parameterCount)
        return Error{CommandLine::tr("--set: there is no parameter \"%1\". See --list for all of "
                                     "them.")
                         .arg(name)};
    const QString value = text.mid(equals + 1);
    return value.startsWith(QLatin1Char('@')) ? readRaw(parameter, value.mid(1), settings)
                                              : readText(parameter, value, settings);
}
