// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/Language.h"

#include <QCoreApplication>

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
    QCoreApplication::removeTranslator(&m_translator);
    const QString file = QStringLiteral(":/i18n/zolta_%1.qm").arg(codeOf(language));
    if (language != Language::English && m_translator.load(file))
        QCoreApplication::installTranslator(&m_translator);
}
