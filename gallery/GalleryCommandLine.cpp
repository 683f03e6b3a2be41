// SPDX-License-Identifier: GPL-3.0-or-later
#include "gallery/GalleryCommandLine.h"

#include <QCommandLineParser>

namespace {

constexpr double smallestScale = 0.5;
constexpr double largestScale = 4.0;

const QString sheetOption = QStringLiteral("sheet");
const QString scaleOption = QStringLiteral("scale");
const QString helpOption = QStringLiteral("help");

QString scaleError(const QString& text, double* scale)
{
    bool understood = false;
    *scale = text.toDouble(&understood);
    if (understood && *scale >= smallestScale && *scale <= largestScale)
        return QString();
    return QStringLiteral("--scale takes a factor from 0.5 to 4, not \"%1\".").arg(text);
}

QString readErrors(const QCommandLineParser& parser, GalleryCommandLine& result)
{
    result.help = parser.isSet(helpOption);
    result.sheet = parser.value(sheetOption);
    if (parser.isSet(sheetOption) && result.sheet.isEmpty())
        return QStringLiteral("--sheet takes the name of a file.");
    if (!parser.positionalArguments().isEmpty())
        return QStringLiteral("Unknown option \"%1\".")
            .arg(parser.positionalArguments().constFirst());
    return parser.isSet(scaleOption) ? scaleError(parser.value(scaleOption), &result.scale)
                                     : QString();
}

} // namespace

GalleryCommandLine GalleryCommandLine::parse(const QStringList& arguments)
{
    QCommandLineParser parser;
    const QString value = QStringLiteral("value");
    parser.addOptions({{sheetOption, QString(), value},
                       {scaleOption, QString(), value},
                       QCommandLineOption(helpOption)});
    GalleryCommandLine result;
    result.error = parser.parse(arguments) ? readErrors(parser, result) : parser.errorText();
    return result;
}

QString GalleryCommandLine::helpText()
{
    return QStringLiteral(
        "Usage: zolta-gallery [options]\n"
        "Shows every control of the library in every state.\n"
        "\n"
        "  --sheet FILE.png       write the whole sheet to a picture, without a window\n"
        "  --scale F              pixels of the screen, or of the picture, per pixel of the "
        "sheet,\n"
        "                         0.5 to 4 (1)\n"
        "  --help                 show this\n"
        "\n"
        "Exit codes: 0 done, 1 the picture cannot be written, 2 usage error.\n");
}
