// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/files/PresetFolder.h"

#include <QCollator>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>

namespace {

constexpr QLatin1String suffix(".vstpreset");
constexpr qsizetype maxNameLength = 80;
constexpr QLatin1String forbidden("/\\:*?\"<>|");

// Half a letter reads as the replacement character.
bool isForbidden(char32_t letter)
{
    const QChar::Category kind = QChar::category(letter);
    return kind == QChar::Other_Control || kind == QChar::Separator_Line ||
           kind == QChar::Separator_Paragraph || letter == QChar::ReplacementCharacter ||
           (letter < 0x80 && forbidden.contains(QChar(letter)));
}

} // namespace

QString PresetFolder::standardFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
           QLatin1String("/presets");
}

PresetFolder::PresetFolder(QString folder)
    : m_folder(std::move(folder))
{}

QStringList PresetFolder::names() const
{
    QStringList names;
    const QStringList filter{QLatin1Char('*') + suffix};
    for (const QFileInfo& file : QDir(m_folder).entryInfoList(filter, QDir::Files))
        names << file.completeBaseName();
    QCollator collator{QLocale(QLocale::English)}; // the C locale knows no numbers
    collator.setNumericMode(true);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::sort(names.begin(), names.end(), collator);
    return names;
}

bool PresetFolder::contains(const QString& name) const { return QFileInfo::exists(fileOf(name)); }

QString PresetFolder::fileOf(const QString& name) const
{
    return m_folder + QLatin1Char('/') + name + suffix;
}

QString PresetFolder::errorOfName(const QString& name)
{
    if (name.trimmed().isEmpty())
        return QCoreApplication::translate("PresetFolder", "A preset needs a name.");
    if (name.size() > maxNameLength)
        return QCoreApplication::translate("PresetFolder",
                                           "A preset's name has at most %1 letters.")
            .arg(maxNameLength);
    const QList<uint> letters = name.toUcs4();
    if (name.startsWith(QLatin1Char('.')) ||
        std::any_of(letters.begin(), letters.end(), isForbidden))
        return QCoreApplication::translate(
                   "PresetFolder", "A preset's name does not begin with a full stop and holds "
                                   "none of these: %1")
            .arg(forbidden);
    return QString();
}

QString PresetFolder::prepare() const
{
    if (QDir().mkpath(m_folder))
        return QString();
    return QCoreApplication::translate("PresetFolder", "The presets' folder %1 cannot be made.")
        .arg(QDir::toNativeSeparators(m_folder));
}

QString PresetFolder::remove(const QString& name) const
{
    QFile file(fileOf(name));
    if (file.remove())
        return QString();
    return QCoreApplication::translate("PresetFolder", "The preset %1 cannot be deleted: %2.")
        .arg(name, file.errorString());
}
