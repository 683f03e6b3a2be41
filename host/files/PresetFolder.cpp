// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/files/PresetFolder.h"

#include <QCollator>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace {

constexpr QLatin1String suffix(".vstpreset");
constexpr qsizetype maxPresetNameLength = 80;
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

Status PresetFolder::checkName(const QString& name)
{
    if (name.trimmed().isEmpty())
        return Error{tr("A preset needs a name.")};
    if (name.size() > maxPresetNameLength)
        return Error{tr("A preset's name can have up to %1 characters.").arg(maxPresetNameLength)};
    const QList<uint> letters = name.toUcs4();
    if (name.startsWith(QLatin1Char('.')) ||
        std::any_of(letters.begin(), letters.end(), isForbidden))
        return Error{tr("A preset's name cannot begin with a full stop or contain any of these: %1")
                         .arg(forbidden)};
    return Status();
}

Status PresetFolder::prepare() const
{
    if (QDir().mkpath(m_folder))
        return Status();
    return Error{
        tr("The presets' folder %1 cannot be created. Check whether its parent folder can be "
           "written.")
            .arg(QDir::toNativeSeparators(m_folder))};
}

Status PresetFolder::remove(const QString& name) const
{
    QFile file(fileOf(name));
    if (file.remove())
        return Status();
    return Error{tr("The preset %1 cannot be deleted: %2.").arg(name, file.errorString())};
}

Status PresetFolder::rename(const QString& from, const QString& to) const
{
    const Status named = checkName(to);
    if (!named.isOk())
        return named;
    const auto pathOf = [this](const QString& name) {
        return std::filesystem::path(QFile::encodeName(fileOf(name)).toStdString());
    };
    std::error_code error;
    std::filesystem::rename(pathOf(from), pathOf(to), error);
    if (!error)
        return Status();
    return Error{
        tr("The preset %1 cannot be renamed: %2.").arg(from, qt_error_string(error.value()))};
}
