// SPDX-License-Identifier: GPL-3.0-or-later
#include "effect/EditorFonts.h"
#include "tests/support/DataTable.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QLabel>
#include <QRawFont>

namespace {

void styleFonts(QWidget* widget)
{
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    initializeFontStyle(widget, QFontDatabase());
    QT_WARNING_POP
}

} // namespace

class tst_EditorFonts : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void constants();
    void recognisesTheFamily_data();
    void recognisesTheFamily();
    void placeholderBecomesTheFamily_data();
    void placeholderBecomesTheFamily();
    void otherFamilyKeepsItsFont();
    void attributesAreKept_data();
    void attributesAreKept();
    void wholeTreeIsStyled();
    void pointsBecomePixels_data();
    void pointsBecomePixels();
    void wholeTreeIsSized();
};

void tst_EditorFonts::constants()
{
    QCOMPARE(EditorDefaultFontFamily, QLatin1String("M+ 1c"));
    QCOMPARE(EditorFontFamilyRegExp.pattern(), QLatin1String("M\\+ 1c.*"));
    QCOMPARE(EditorFontFamilyRegExp.patternOptions(), QRegularExpression::NoPatternOption);
    QCOMPARE(EditorFontFamilyRegular, QLatin1String("M+ 1c regular"));
    QCOMPARE(EditorFontFamilyMedium, QLatin1String("M+ 1c medium"));
    QCOMPARE(EditorFontFamilyBold, QLatin1String("M+ 1c bold"));
    QCOMPARE(EditorFontFamilyMac, QLatin1String("M+ 1c"));
    QCOMPARE(EditorFontStyleRegular, QLatin1String("Normal"));
    QCOMPARE(EditorFontStyleMedium, QLatin1String("Medium"));
    QCOMPARE(EditorFontStyleBold, QLatin1String("Bold"));
}

void tst_EditorFonts::recognisesTheFamily_data()
{
    addColumns<QString, bool>("family", "recognised");
    QTest::newRow("the family") << "M+ 1c" << true;
    QTest::newRow("placeholder") << "M+ 1c medium" << true;
    QTest::newRow("longer word") << "M+ 1cx" << true;
    QTest::newRow("letter case") << "m+ 1c" << false;
    QTest::newRow("not at the start") << "Rounded M+ 1c" << false;
    QTest::newRow("plus is no quantifier") << "MM 1c" << false;
    QTest::newRow("shorter") << "M+ 1" << false;
    QTest::newRow("empty") << "" << false;
}

void tst_EditorFonts::recognisesTheFamily()
{
    QFETCH(QString, family);
    QTEST(isEditorFontFamily(family), "recognised");
}

void tst_EditorFonts::placeholderBecomesTheFamily_data()
{
    addColumns<QString, QString, QString>("family", "style", "face");
    QTest::newRow("regular") << "M+ 1c regular"
                             << "Normal"
                             << "Regular";
    QTest::newRow("medium") << "M+ 1c medium"
                            << "Medium"
                            << "Medium";
    QTest::newRow("bold") << "M+ 1c bold"
                          << "Bold"
                          << "Bold";
}

void tst_EditorFonts::placeholderBecomesTheFamily()
{
    QFETCH(QString, family);
    QLabel label;
    label.setFont(QFont(family, 9));
    styleFonts(&label);
    QCOMPARE(label.font().family(), QLatin1String("M+ 1c"));
    QTEST(label.font().styleName(), "style");
    QCOMPARE(label.font().pointSize(), 9);
    QCOMPARE(label.font().styleStrategy(), QFont::PreferAntialias);
    const QRawFont shown = QRawFont::fromFont(label.font());
    QCOMPARE(shown.familyName(), QLatin1String("M+ 1c"));
    QTEST(shown.styleName(), "face");
}

void tst_EditorFonts::otherFamilyKeepsItsFont()
{
    for (const char* family : {"M+ 1c Regular", "M+ 1c", "M+ 1c regular 2", "DejaVu Sans"}) {
        QLabel label;
        QFont font(QLatin1String(family), 9, QFont::DemiBold, true);
        font.setStyleStrategy(QFont::NoAntialias);
        label.setFont(font);
        styleFonts(&label);
        QCOMPARE(label.font(), font);
    }
}

void tst_EditorFonts::attributesAreKept_data()
{
    addColumns<int, int, int, bool, bool, bool>("weight", "mapped", "style", "underline",
                                                "strikeOut", "kerning");
    const int normal = QFont::StyleNormal;
    QTest::newRow("1") << 1 << 400 << normal << false << false << true;
    QTest::newRow("400") << 400 << 400 << normal << false << false << true;
    QTest::newRow("500") << 500 << 400 << normal << false << false << true;
    QTest::newRow("501") << 501 << 700 << normal << false << false << true;
    QTest::newRow("1000") << 1000 << 700 << normal << false << false << true;
    QTest::newRow("italic") << 400 << 400 << int(QFont::StyleItalic) << false << false << true;
    QTest::newRow("oblique") << 600 << 700 << int(QFont::StyleOblique) << false << false << true;
    QTest::newRow("underline") << 400 << 400 << normal << true << false << true;
    QTest::newRow("strike-out") << 400 << 400 << normal << false << true << true;
    QTest::newRow("no kerning") << 400 << 400 << normal << false << false << false;
}

// All but the weight, of which there are two.
void tst_EditorFonts::attributesAreKept()
{
    QFETCH(int, weight);
    QFETCH(int, style);
    QFETCH(bool, underline);
    QFETCH(bool, strikeOut);
    QFETCH(bool, kerning);
    for (const char* family : {"M+ 1c regular", "M+ 1c medium", "M+ 1c bold"}) {
        QLabel label;
        QFont font(QLatin1String(family), 9);
        font.setWeight(QFont::Weight(weight));
        font.setStyle(QFont::Style(style));
        font.setUnderline(underline);
        font.setStrikeOut(strikeOut);
        font.setKerning(kerning);
        label.setFont(font);
        styleFonts(&label);
        QCOMPARE(label.font().family(), QLatin1String("M+ 1c"));
        QTEST(int(label.font().weight()), "mapped");
        QCOMPARE(label.font().italic(), style != QFont::StyleNormal);
        QCOMPARE(label.font().underline(), underline);
        QCOMPARE(label.font().strikeOut(), strikeOut);
        QCOMPARE(label.font().kerning(), kerning);
    }
}

// Children before their parent: one that inherits a placeholder only finds it while its parent has
// not been converted.
void tst_EditorFonts::wholeTreeIsStyled()
{
    QWidget top;
    new QObject(&top);
    auto* middle = new QWidget(&top);
    auto* heir = new QLabel(middle);
    auto* window = new QLabel(middle, Qt::Window);
    middle->setFont(QFont(QStringLiteral("M+ 1c medium"), 8));
    window->setFont(QFont(QStringLiteral("M+ 1c bold"), 7));
    styleFonts(&top);
    QVERIFY(heir->testAttribute(Qt::WA_SetFont));
    QCOMPARE(heir->font().styleName(), QLatin1String("Medium"));
    QCOMPARE(window->font().styleName(), QLatin1String("Bold"));
    QVERIFY(!top.testAttribute(Qt::WA_SetFont));
}

void tst_EditorFonts::pointsBecomePixels_data()
{
    addColumns<int, int>("points", "pixels");
    QTest::newRow("1") << 1 << 1;
    QTest::newRow("8: 10.72") << 8 << 11;
    QTest::newRow("9: 12.06") << 9 << 12;
    QTest::newRow("10: 13.4") << 10 << 13;
    QTest::newRow("11: 14.74") << 11 << 15;
    QTest::newRow("50: 67") << 50 << 67;
    QTest::newRow("100: 134") << 100 << 134;
}

// A second pass changes nothing.
void tst_EditorFonts::pointsBecomePixels()
{
    QFETCH(int, points);
    QLabel label;
    label.setFont(QFont(QStringLiteral("M+ 1c"), points));
    for (int pass = 0; pass < 2; ++pass) {
        initializeFontSize(&label);
        QTEST(label.font().pixelSize(), "pixels");
        QCOMPARE(label.font().pointSize(), -1);
    }
}

// Parents before their children: one that inherits its size needs no font of its own.
void tst_EditorFonts::wholeTreeIsSized()
{
    QWidget top;
    new QObject(&top);
    auto* middle = new QWidget(&top);
    auto* heir = new QLabel(middle);
    auto* window = new QLabel(middle, Qt::Window);
    middle->setFont(QFont(QStringLiteral("M+ 1c"), 20));
    window->setFont(QFont(QStringLiteral("M+ 1c"), 30));
    initializeFontSize(&top);
    QCOMPARE(heir->font().pixelSize(), 27);
    QVERIFY(!heir->testAttribute(Qt::WA_SetFont));
    QCOMPARE(window->font().pixelSize(), 40);
}

ZOLTA_TEST_MAIN(tst_EditorFonts)

#include "tst_EditorFonts.moc"
