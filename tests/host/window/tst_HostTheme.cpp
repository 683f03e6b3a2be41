// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/PushButtonController.h"
#include "host/window/AnalyzerPainting.h"
#include "host/window/HostGrounds.h"
#include "host/window/HostTheme.h"
#include "host/window/MixerStyle.h"
#include "tests/support/TestObject.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QIcon>
#include <QMessageBox>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <QSvgRenderer>

#include <algorithm>
#include <cmath>
#include <functional>

using namespace Qt::StringLiterals;
using CommonController_MemAPI::PushButtonController;

namespace {

constexpr double letters = 4.5; // what letters need, and lines that mean something
constexpr double lines = 3.0;

double linear(double part)
{
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color)
{
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

/// The contrast ratio of the Web Content Accessibility Guidelines, 1 to 21.
double contrast(const QColor& a, const QColor& b)
{
    const auto [dark, light] = std::minmax({luminance(a), luminance(b)});
    return (light + 0.05) / (dark + 0.05);
}

QColor over(const QColor& color, const QColor& ground)
{
    QImage image(1, 1, QImage::Format_RGB32);
    image.fill(ground);
    QPainter(&image).fillRect(image.rect(), color);
    return image.pixelColor(0, 0);
}

/// The colours that painting \a paint leaves behind letters: those of the rows in the middle.
QList<QColor> groundsOf(const QSize& size, const std::function<void(QPainter&)>& paint)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(HostGrounds::window);
    {
        QPainter painter(&image);
        paint(painter);
    }
    QList<QColor> colors;
    for (int y = size.height() / 4; y < size.height() * 3 / 4; ++y)
        colors << image.pixelColor(size.width() / 2, y);
    return colors;
}

} // namespace

class tst_HostTheme : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { applyHostTheme(); }
    void lettersOfThePaletteStandOut_data();
    void lettersOfThePaletteStandOut();
    void lettersAndLinesStandOutFromTheGrounds_data();
    void lettersAndLinesStandOutFromTheGrounds();
    void lettersOfKeysStandOut_data();
    void lettersOfKeysStandOut();
    void linesOfTheAnalyzerStandOut();
    void typeFaceIsTheEditors();
    void messagesBearTheMixersSigns_data();
    void messagesBearTheMixersSigns();
    void symbolsAreTheMixers_data();
    void symbolsAreTheMixers();
    void boxesOfSwitchesAreSeen();
    void focusIsALine();
    void longChoicesEndInDots();
};

void tst_HostTheme::lettersOfThePaletteStandOut_data()
{
    QTest::addColumn<QPalette::ColorRole>("letter");
    QTest::addColumn<QPalette::ColorRole>("ground");
    const auto row = [](const char* name, QPalette::ColorRole letter, QPalette::ColorRole ground) {
        QTest::newRow(name) << letter << ground;
    };
    row("window", QPalette::WindowText, QPalette::Window);
    row("field", QPalette::Text, QPalette::Base);
    row("stripe", QPalette::Text, QPalette::AlternateBase);
    row("button", QPalette::ButtonText, QPalette::Button);
    row("tool tip", QPalette::ToolTipText, QPalette::ToolTipBase);
    row("marked", QPalette::HighlightedText, QPalette::Highlight);
    row("hint", QPalette::PlaceholderText, QPalette::Base);
    row("link", QPalette::Link, QPalette::Window);
}

void tst_HostTheme::lettersOfThePaletteStandOut()
{
    QFETCH(const QPalette::ColorRole, letter);
    QFETCH(const QPalette::ColorRole, ground);
    const QPalette palette = QApplication::palette();
    for (const auto group : {QPalette::Active, QPalette::Inactive})
        QCOMPARE_GE(contrast(palette.color(group, letter), palette.color(group, ground)), letters);
    const double disabled = contrast(palette.color(QPalette::Disabled, letter),
                                     palette.color(QPalette::Disabled, ground));
    QCOMPARE_GE(disabled, lines);
    QCOMPARE_LE(disabled, contrast(palette.color(letter), palette.color(ground)));
}

void tst_HostTheme::lettersAndLinesStandOutFromTheGrounds_data()
{
    QTest::addColumn<QList<QColor>>("grounds");
    using namespace HostGrounds;
    QTest::newRow("window") << QList<QColor>{base, stripe, window, button, hovered};
    QTest::newRow("panel") << groundsOf({80, 600}, [](QPainter& painter) {
        MixerStyle::drawPanel(painter, QRectF(0, 0, 80, 600));
    });
    QTest::newRow("well") << groundsOf({60, 24}, [](QPainter& painter) {
        MixerStyle::drawWell(painter, QRectF(0, 0, 60, 24), 3);
    });
}

void tst_HostTheme::lettersAndLinesStandOutFromTheGrounds()
{
    QFETCH(const QList<QColor>, grounds);
    using namespace MixerStyle;
    for (const QColor& ground : grounds) {
        QCOMPARE_GE(contrast(MixerStyle::letters, ground), ::letters);
        QCOMPARE_GE(contrast(accent, ground), lines);
        if (ground == HostGrounds::hovered)
            continue; // under bright letters alone
        for (const QColor& color :
             {dimLetters, warning, MixerStyle::link, meterLow, meterHigh, meterClipped})
            QCOMPARE_GE(contrast(color, ground), ::letters);
    }
    QCOMPARE_GE(contrast(Qt::white, HostGrounds::chosen), ::letters);
}

void tst_HostTheme::lettersOfKeysStandOut_data()
{
    QTest::addColumn<QString>("shape");
    QTest::addColumn<QString>("color");
    for (const char* shape : {"key", "wide"}) {
        for (const char* color : {"", "red", "amber", "white", "blue"})
            QTest::addRow("%s %s", shape, color)
                << QString::fromLatin1(shape) << QString::fromLatin1(color);
    }
}

void tst_HostTheme::lettersOfKeysStandOut()
{
    QFETCH(const QString, shape);
    QFETCH(const QString, color);
    PushButtonController key;
    MixerStyle::styleKey(&key, shape, color);
    for (const bool on : {false, true}) {
        if (on && color.isEmpty())
            break;
        key.setChecked(on);
        for (const QString& file : {on ? key.onButtonSvg() : key.buttonSvg(),
                                    on ? key.onPushButtonSvg() : key.pushButtonSvg()}) {
            QSvgRenderer renderer(file);
            QVERIFY(renderer.isValid());
            for (const QColor& ground :
                 groundsOf(key.size(), [&](QPainter& painter) { renderer.render(&painter); }))
                QCOMPARE_GE(contrast(key.palette().color(QPalette::Text), ground), letters);
        }
    }
}

void tst_HostTheme::linesOfTheAnalyzerStandOut()
{
    const QList<QColor> grounds = groundsOf({60, 200}, [](QPainter& painter) {
        MixerStyle::drawWell(painter, QRectF(0, 0, 60, 200), 3);
    });
    using namespace AnalyzerPainting;
    for (const QColor& ground : grounds) {
        for (const QColor& color : {afterColor, beforeColor, peakColor, curveColor})
            QCOMPARE_GE(contrast(over(color, ground), ground), lines);
    }
}

void tst_HostTheme::typeFaceIsTheEditors()
{
    QCOMPARE(QApplication::font().family(), u"M+ 1c"_s);
    QCOMPARE(QApplication::font("QMenu").family(), u"M+ 1c"_s);
    QVERIFY(!QApplication::windowIcon().pixmap(64).isNull());
}

void tst_HostTheme::messagesBearTheMixersSigns_data()
{
    QTest::addColumn<QMessageBox::Icon>("icon");
    QTest::addColumn<QString>("picture");
    QTest::newRow("warning") << QMessageBox::Warning << u"notice_warning"_s;
    QTest::newRow("error") << QMessageBox::Critical << u"notice_error"_s;
    QTest::newRow("question") << QMessageBox::Question << u"notice_question"_s;
    QTest::newRow("information") << QMessageBox::Information << u"notice_information"_s;
}

void tst_HostTheme::messagesBearTheMixersSigns()
{
    QFETCH(const QMessageBox::Icon, icon);
    QFETCH(const QString, picture);
    const QMessageBox box(icon, QString(), u"Text"_s, QMessageBox::Yes | QMessageBox::No);
    const QPixmap shown = box.iconPixmap();
    QVERIFY(!shown.isNull());
    QCOMPARE(shown.toImage(), QIcon(MixerStyle::image(picture)).pixmap(shown.size()).toImage());
    for (const QAbstractButton* button : box.buttons())
        QVERIFY(button->icon().isNull());
}

void tst_HostTheme::symbolsAreTheMixers_data()
{
    QTest::addColumn<QStyle::StandardPixmap>("symbol");
    QTest::addColumn<QString>("picture");
    QTest::newRow("back") << QStyle::SP_ArrowBack << u"symbol_back"_s;
    QTest::newRow("parent") << QStyle::SP_FileDialogToParent << u"symbol_up"_s;
    QTest::newRow("folder") << QStyle::SP_DirIcon << u"symbol_folder"_s;
    QTest::newRow("file") << QStyle::SP_FileIcon << u"symbol_file"_s;
    QTest::newRow("list") << QStyle::SP_FileDialogListView << u"symbol_list"_s;
}

// Of file dialogs, where the desktop has none of its own.
void tst_HostTheme::symbolsAreTheMixers()
{
    QFETCH(const QStyle::StandardPixmap, symbol);
    QFETCH(const QString, picture);
    const QImage shown = QApplication::style()->standardIcon(symbol).pixmap(16).toImage();
    QCOMPARE(shown, QIcon(MixerStyle::image(picture)).pixmap(16).toImage());
    QVERIFY(!shown.isNull());
}

void tst_HostTheme::boxesOfSwitchesAreSeen()
{
    for (const auto box : {QStyle::PE_IndicatorCheckBox, QStyle::PE_IndicatorItemViewItemCheck}) {
        QList<QImage> images;
        for (const auto state : {QStyle::State_Off, QStyle::State_On}) {
            QImage image(16, 16, QImage::Format_RGB32);
            image.fill(HostGrounds::base);
            QPainter painter(&image);
            QStyleOptionButton option;
            option.rect = image.rect();
            option.state = QStyle::State_Enabled | state;
            QApplication::style()->drawPrimitive(box, &option, &painter);
            painter.end();
            QCOMPARE_GE(contrast(image.pixelColor(8, 2), HostGrounds::base), lines);
            images << image;
        }
        QVERIFY(images[0] != images[1]);
    }
}

void tst_HostTheme::focusIsALine()
{
    QImage image(40, 20, QImage::Format_RGB32);
    image.fill(HostGrounds::window);
    {
        QPainter painter(&image);
        QStyleOptionFocusRect option;
        option.rect = image.rect();
        QApplication::style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter);
    }
    for (const QPoint& edge : {QPoint(20, 0), QPoint(20, 19), QPoint(0, 10), QPoint(39, 10)})
        QCOMPARE_GE(contrast(image.pixelColor(edge), HostGrounds::window), lines);
    QCOMPARE(image.pixelColor(20, 10), HostGrounds::window);
}

void tst_HostTheme::longChoicesEndInDots()
{
    constexpr int width = 90;
    constexpr int arrow = 20;
    const auto picture = [](const QString& text) {
        QComboBox box;
        box.setFixedSize(width, 24);
        box.addItem(text);
        return box.grab().toImage();
    };
    const QString name = u"The second sound card's output"_s;
    const QImage shown = picture(name);
    const QFontMetrics metrics(QApplication::font("QComboBox"));
    bool isCut = false;
    for (qsizetype letters = 1; letters < name.size(); ++letters) {
        const QString text = name.left(letters) + QChar(0x2026);
        const bool fits = metrics.horizontalAdvance(text) <= width - arrow;
        isCut = isCut || (fits && picture(text) == shown);
    }
    QVERIFY(isCut);
}

ZOLTA_TEST_MAIN(tst_HostTheme)

#include "tst_HostTheme.moc"
