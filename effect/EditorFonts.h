// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRegularExpression>
#include <QString>

class QFontDatabase;
class QWidget;

inline const QString EditorDefaultFontFamily = QStringLiteral("M+ 1c");
/// Families that begin with the default one; ask through isEditorFontFamily(), which anchors it.
inline const QRegularExpression EditorFontFamilyRegExp{QStringLiteral("M\\+ 1c.*")};

/// Placeholders that forms give their widgets as a font family; initializeFontStyle() replaces
/// them by the editor's family in the style of the same weight.
inline const QString EditorFontFamilyRegular = QStringLiteral("M+ 1c regular");
inline const QString EditorFontFamilyMedium = QStringLiteral("M+ 1c medium");
inline const QString EditorFontFamilyBold = QStringLiteral("M+ 1c bold");

/// The family and the styles that the font database is asked for.
inline const QString EditorFontFamilyMac = QStringLiteral("M+ 1c");
inline const QString EditorFontStyleRegular = QStringLiteral("Normal");
inline const QString EditorFontStyleMedium = QStringLiteral("Medium");
inline const QString EditorFontStyleBold = QStringLiteral("Bold");

/// Whether \a family begins with the editor's family name. Case matters.
bool isEditorFontFamily(const QString& family);

/// Replaces the placeholder families in the tree of \a widget, children before their parent, by
/// fonts of the database at the same point size. Weight (bold above 500, normal otherwise), italic,
/// underline, strike-out and kerning are kept, and antialiasing is preferred. Other fonts stay.
/// Without the family installed the widget gets the database's fallback. The database argument is
/// not used: the look-up is static.
void initializeFontStyle(QWidget* widget, const QFontDatabase& database);

/// Turns every font size of the tree of \a widget from points into pixels, 1.34 a point, rounded;
/// parent before children. Fonts that are sized in pixels stay. Comes after initializeFontStyle(),
/// which reads point sizes.
void initializeFontSize(QWidget* widget);
