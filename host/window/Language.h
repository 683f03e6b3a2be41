// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QTranslator>

#include <array>
#include <optional>

/// The languages of the program and its editors. The texts are written in English; the others come
/// from translations/.
enum class Language { English, German, Japanese };

inline constexpr std::array languages = {Language::English, Language::German, Language::Japanese};

/// "en", "de", "ja".
QString codeOf(Language language);
/// The language of a code; empty for any other text.
std::optional<Language> languageOf(const QString& code);
/// What the language calls itself.
QString nameOf(Language language);

/// Switches the whole program to a language. Every window, and so every editor, is sent a
/// QEvent::LanguageChange and sets its texts again. The texts that are Qt's own ("Cancel") follow
/// where Qt's translations are installed. Needs an application object; English at first.
class LanguageSwitch
{
public:
    Language current() const { return m_current; }
    void choose(Language language);

private:
    void change(QTranslator* translator, const QString& file);

    Language m_current = Language::English;
    QTranslator m_translator;
    QTranslator m_qtTranslator;
};
