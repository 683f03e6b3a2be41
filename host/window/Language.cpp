// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/Language.h"

#include <QCoreApplication>
#include <QLibraryInfo>

#include <algorithm>

QString codeOf(Language language)
{
    switch (language) {
    case Language::German:
        return QStringLiteral("de");
    case Language::Japanese:
        return QStringLiteral("ja");
    default:
        return QStringLiteral("en");
    }
}

std::optional<Language> languageOf(const QString& code)
{
    const auto found = std::find_if(languages.begin(), languages.end(),
                                    [&code](Language l) { return codeOf(l) == code; });
    return found == languages.end() ? std::nullopt : std::optional(*found);
}

QString nameOf(Language language)
{
    switch (language) {
    case Language::German:
        return QStringLiteral("Deutsch");
    case Language::Japanese:
        return QStringLiteral(u"\u65e5\u672c\u8a9e");
    default:
        return QStringLiteral("English");
    }
}

void LanguageSwitch::choose(Language language)
{
    if (language == m_current)
        return;
    m_current = language;
    change(&m_qtTranslator,
           QLibraryInfo::path(QLibraryInfo::TranslationsPath) + QLatin1String("/qtbase_%1.qm"));
    change(&m_translator, QStringLiteral(":/i18n/zolta_%1.qm"));
}

void LanguageSwitch::change(QTranslator* translator, const QString& file)
{
    QCoreApplication::removeTranslator(translator);
    if (m_current != Language::English && translator->load(file.arg(codeOf(m_current))))
        QCoreApplication::installTranslator(translator);
}
