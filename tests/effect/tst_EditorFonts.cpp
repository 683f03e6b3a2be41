// SPDX-License-Identifier: GPL-3.0-or-later
#include "effect/EditorFonts.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QLabel>
#include <QRawFont>

namespace {

QFont placeholder(const char* family, int points) { return QFont(QLatin1String(family), points); }

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
    void otherFamilyKeepsItsFont_data();
    void otherFamilyKeepsItsFont();
    void attributesAreKept_data();
    void attributesAreKept();
    void childrenAreStyledBeforeTheirParent();
    void wholeTreeIsStyled();

    void pointsBecomePixels_data();
    void pointsBecomePixels();
    void pixelSizesStay();
    void secondSizePassChangesNothing();
    void parentIsSizedBeforeItsChildren();
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
    QTest::addColumn<QString>("family");
    QTest::addColumn<bool>("recognised");
    QTest::newRow("the family") << QStringLiteral("M+ 1c") << true;
    QTest::newRow("placeholder") << QStringLiteral("M+ 1c medium") << true;
    QTest::newRow("longer word") << QStringLiteral("M+ 1cx") << true;
    QTest::newRow("letter case") << QStringLiteral("m+ 1c") << false;
    QTest::newRow("not at the start") << QStringLiteral("Rounded M+ 1c") << false;
    QTest::newRow("plus is no quantifier") << QStringLiteral("MM 1c") << false;
    QTest::newRow("shorter") << QStringLiteral("M+ 1") << false;
    QTest::newRow("empty") << QString() << false;
}

void tst_EditorFonts::recognisesTheFamily()
{
    QFETCH(QString, family);
    QTEST(isEditorFontFamily(family), "recognised");
}

void tst_EditorFonts::placeholderBecomesTheFamily_data()
{
    QTest::addColumn<QByteArray>("family");
    QTest::addColumn<QString>("style");
    QTest::addColumn<QString>("face");
    QTest::newRow("regular") << QByteArray("M+ 1c regular") << QStringLiteral("Normal")
                             << QStringLiteral("Regular");
    QTest::newRow("medium") << QByteArray("M+ 1c medium") << QStringLiteral("Medium")
                            << QStringLiteral("Medium");
    QTest::newRow("bold") << QByteArray("M+ 1c bold") << QStringLiteral("Bold")
                          << QStringLiteral("Bold");
}

void tst_EditorFonts::placeholderBecomesTheFamily()
{
    QFETCH(QByteArray, family);
    QLabel label;
    label.setFont(placeholder(family.constData(), 9));
    styleFonts(&label);
    QCOMPARE(label.font().family(), QLatin1String("M+ 1c"));
    QTEST(label.font().styleName(), "style");
    QCOMPARE(label.font().pointSize(), 9);
    QCOMPARE(label.font().styleStrategy(), QFont::PreferAntialias);
    const QRawFont shown = QRawFont::fromFont(label.font());
    QCOMPARE(shown.familyName(), QLatin1String("M+ 1c"));
    QTEST(shown.styleName(), "face");
}

void tst_EditorFonts::otherFamilyKeepsItsFont_data()
{
    QTest::addColumn<QString>("family");
    QTest::newRow("letter case differs") << QStringLiteral("M+ 1c Regular");
    QTest::newRow("the family itself") << QStringLiteral("M+ 1c");
    QTest::newRow("longer") << QStringLiteral("M+ 1c regular 2");
    QTest::newRow("another") << QStringLiteral("DejaVu Sans");
}

void tst_EditorFonts::otherFamilyKeepsItsFont()
{
    QFETCH(QString, family);
    QLabel label;
    QFont font(family, 9, QFont::DemiBold, true);
    font.setStyleStrategy(QFont::NoAntialias);
    label.setFont(font);
    styleFonts(&label);
    QCOMPARE(label.font(), font);
}

void tst_EditorFonts::attributesAreKept_data()
{
    QTest::addColumn<int>("weight");
    QTest::addColumn<int>("mapped");
    QTest::addColumn<int>("style");
    QTest::addColumn<bool>("underline");
    QTest::addColumn<bool>("strikeOut");
    QTest::addColumn<bool>("kerning");
    const auto row = [](const char* name, int weight, int mapped, QFont::Style style,
                        bool underline = false, bool strikeOut = false, bool kerning = true) {
        QTest::newRow(name) << weight << mapped << int(style) << underline << strikeOut << kerning;
    };
    row("1", 1, 400, QFont::StyleNormal);
    row("400", 400, 400, QFont::StyleNormal);
    row("500", 500, 400, QFont::StyleNormal);
    row("501", 501, 700, QFont::StyleNormal);
    row("1000", 1000, 700, QFont::StyleNormal);
    row("italic", 400, 400, QFont::StyleItalic);
    row("oblique", 600, 700, QFont::StyleOblique);
    row("underline", 400, 400, QFont::StyleNormal, true);
    row("strike-out", 400, 400, QFont::StyleNormal, false, true);
    row("no kerning", 400, 400, QFont::StyleNormal, false, false, false);
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
        QFont font = placeholder(family, 9);
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

// A child that inherits a placeholder only finds it while its parent has not been converted.
void tst_EditorFonts::childrenAreStyledBeforeTheirParent()
{
    QWidget parent;
    QLabel child(&parent);
    parent.setFont(placeholder("M+ 1c bold", 9));
    QVERIFY(!child.testAttribute(Qt::WA_SetFont));
    styleFonts(&parent);
    QVERIFY(child.testAttribute(Qt::WA_SetFont));
    QCOMPARE(child.font().styleName(), QLatin1String("Bold"));
}

void tst_EditorFonts::wholeTreeIsStyled()
{
    QWidget top;
    new QObject(&top);
    auto* middle = new QWidget(&top);
    auto* deep = new QLabel(middle);
    auto* window = new QLabel(middle, Qt::Window);
    deep->setFont(placeholder("M+ 1c medium", 8));
    window->setFont(placeholder("M+ 1c bold", 7));
    styleFonts(&top);
    QCOMPARE(deep->font().styleName(), QLatin1String("Medium"));
    QCOMPARE(window->font().styleName(), QLatin1String("Bold"));
    QVERIFY(!top.testAttribute(Qt::WA_SetFont));
}

void tst_EditorFonts::pointsBecomePixels_data()
{
    QTest::addColumn<int>("points");
    QTest::addColumn<int>("pixels");
    QTest::newRow("1") << 1 << 1;
    QTest::newRow("8: 10.72") << 8 << 11;
    QTest::newRow("9: 12.06") << 9 << 12;
    QTest::newRow("10: 13.4") << 10 << 13;
    QTest::newRow("11: 14.74") << 11 << 15;
    QTest::newRow("50: 67") << 50 << 67;
    QTest::newRow("100: 134") << 100 << 134;
}

void tst_EditorFonts::pointsBecomePixels()
{
    QFETCH(int, points);
    QLabel label;
    label.setFont(placeholder("M+ 1c", points));
    initializeFontSize(&label);
    QTEST(label.font().pixelSize(), "pixels");
    QCOMPARE(label.font().pointSize(), -1);
}

void tst_EditorFonts::pixelSizesStay()
{
    QLabel label;
    QFont font = placeholder("M+ 1c", 9);
    font.setPixelSize(10);
    label.setFont(font);
    initializeFontSize(&label);
    QCOMPARE(label.font(), font);
}

void tst_EditorFonts::secondSizePassChangesNothing()
{
    QLabel label;
    label.setFont(placeholder("M+ 1c", 10));
    initializeFontSize(&label);
    initializeFontSize(&label);
    QCOMPARE(label.font().pixelSize(), 13);
}

// A child that inherits its size has it in pixels once its parent has, and needs no font of its
// own.
void tst_EditorFonts::parentIsSizedBeforeItsChildren()
{
    QWidget parent;
    QLabel child(&parent);
    parent.setFont(placeholder("M+ 1c", 10));
    initializeFontSize(&parent);
    QCOMPARE(child.font().pixelSize(), 13);
    QVERIFY(!child.testAttribute(Qt::WA_SetFont));
}

void tst_EditorFonts::wholeTreeIsSized()
{
    QWidget top;
    new QObject(&top);
    auto* middle = new QWidget(&top);
    auto* deep = new QLabel(middle);
    auto* window = new QLabel(middle, Qt::Window);
    deep->setFont(placeholder("M+ 1c", 20));
    window->setFont(placeholder("M+ 1c", 30));
    initializeFontSize(&top);
    QCOMPARE(deep->font().pixelSize(), 27);
    QCOMPARE(window->font().pixelSize(), 40);
}

ZOLTA_TEST_MAIN(tst_EditorFonts)

#include "tst_EditorFonts.moc"
