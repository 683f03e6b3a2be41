// SPDX-License-Identifier: GPL-3.0-or-later
#include "effect/EditorFonts.h"

#include "effect/PixelRounding.h"
#include "effect/WidgetTree.h"

#include <QFont>
#include <QFontDatabase>

namespace {

constexpr double PixelsPerPoint = 1.34;
constexpr int HeaviestNormalWeight = 500;

/// The database style that stands for a placeholder family; null for any other family.
const QString* placeholderStyle(const QString& family)
{
    if (family == EditorFontFamilyRegular)
        return &EditorFontStyleRegular;
    if (family == EditorFontFamilyMedium)
        return &EditorFontStyleMedium;
    if (family == EditorFontFamilyBold)
        return &EditorFontStyleBold;
    return nullptr;
}

QFont editorFont(const QString& style, const QFont& old)
{
    QFont font = QFontDatabase::font(EditorFontFamilyMac, style, old.pointSize());
    font.setWeight(old.weight() <= HeaviestNormalWeight ? QFont::Normal : QFont::Bold);
    font.setItalic(old.style() != QFont::StyleNormal);
    font.setUnderline(old.underline());
    font.setStrikeOut(old.strikeOut());
    font.setKerning(old.kerning());
    font.setStyleStrategy(QFont::PreferAntialias);
    return font;
}

} // namespace

bool isEditorFontFamily(const QString& family)
{
    return EditorFontFamilyRegExp
        .match(family, 0, QRegularExpression::NormalMatch,
               QRegularExpression::AnchorAtOffsetMatchOption)
        .hasMatch();
}

void initializeFontStyle(QWidget* widget, const QFontDatabase& database)
{
    forEachChildWidget(widget, [&](QWidget* child) { initializeFontStyle(child, database); });
    if (const QString* style = placeholderStyle(widget->font().family()))
        widget->setFont(editorFont(*style, widget->font()));
}

void initializeFontSize(QWidget* widget)
{
    QFont font = widget->font();
    if (font.pointSize() > 0) {
        font.setPixelSize(roundToPixel(font.pointSize() * PixelsPerPoint));
        widget->setFont(font);
    }
    forEachChildWidget(widget, initializeFontSize);
}
