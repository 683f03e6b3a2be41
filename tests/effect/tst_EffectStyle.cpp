// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/PullDownButtonController.h"
#include "effect/EffectStyle.h"
#include "tests/effect/PlainEditor.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QImage>
#include <QMenu>
#include <QPaintEngine>
#include <QPainter>
#include <QStyleFactory>
#include <QStyleOptionMenuItem>
#include <QTimer>

#include <memory>
#include <utility>

using CommonController_MemAPI::PullDownButtonController;
using CommonController_MemAPI::PullDownButtonControllerPrivate::Menu;

namespace {

const QColor Background(0x33, 0x33, 0x33);
const QColor White(0xff, 0xff, 0xff);
const QColor EnabledText(0x99, 0x99, 0x99);
const QColor DisabledText(0x20, 0x20, 0x20);
const QColor DisabledHighlight(0x48, 0x48, 0x48);
const QColor Blue(0x03, 0x94, 0xd0);
const QColor Untouched(0xff, 0x00, 0xff);

constexpr int TextFlags =
    Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextDontClip | Qt::TextShowMnemonic;

/// A menu of an editor that is zoomed by a factor.
struct Fixture
{
    explicit Fixture(double scale) { editor.setScale(scale); }

    EffectStyle style{nullptr};
    PlainEditor editor;
    QMenu menu{&editor};
};

/// A pull-down menu of an editor that is zoomed by a factor; the button is \a width wide.
struct PullDownFixture
{
    PullDownFixture(double scale, int indexWidth, int indexMargin, int width = 10)
    {
        editor.setScale(scale);
        button.resize(width, 20);
        button.setIndexWidth(indexWidth);
        button.setIndexMargin(indexMargin);
    }

    EffectStyle style{nullptr};
    PlainEditor editor;
    PullDownButtonController button{&editor};
    Menu menu{&button};
};

QFont sizedFont(const char* family, int pixels)
{
    QFont font{QLatin1String(family)};
    font.setPixelSize(pixels);
    return font;
}

QStyleOptionMenuItem itemOption(const QString& text, const QRect& rect)
{
    QStyleOptionMenuItem option;
    option.menuItemType = QStyleOptionMenuItem::Normal;
    option.state = QStyle::State_Enabled;
    option.text = text;
    option.rect = rect;
    return option;
}

QImage canvas(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Untouched);
    return image;
}

/// What the style draws of an item, on a canvas of 240 x 60 pixels.
template <typename Fixture>
QImage drawnItem(const Fixture& fixture, const QStyleOptionMenuItem& option)
{
    QImage image = canvas(240, 60);
    QPainter painter(&image);
    painter.setFont(fixture.menu.font());
    fixture.style.drawControl(QStyle::CE_MenuItem, &option, &painter, &fixture.menu);
    return image;
}

struct Text
{
    QRect rect;
    QString text;
    int flags = TextFlags;
};

/// An item as it should be drawn: its fill, and texts in rectangles worked out by hand.
QImage expectedItem(const QRect& rect, const QColor& fill, const QColor& ink, const QFont& font,
                    const QList<Text>& texts)
{
    QImage image = canvas(240, 60);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::TextAntialiasing, false);
    painter.fillRect(rect, fill);
    painter.setFont(font);
    painter.setPen(ink);
    for (const Text& text : texts)
        painter.drawText(text.rect, text.flags, text.text);
    return image;
}

template <typename Predicate> QRect boundsWhere(const QImage& image, Predicate matches)
{
    QRect bounds;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (matches(image.pixelColor(x, y)))
                bounds |= QRect(x, y, 1, 1);
        }
    }
    return bounds;
}

QRect boundsOf(const QImage& image, const QColor& color)
{
    return boundsWhere(image, [&](const QColor& pixel) { return pixel == color; });
}

/// Where text is, however thin, on an item that is not highlighted.
QRect inkBounds(const QImage& image)
{
    return boundsWhere(
        image, [](const QColor& pixel) { return pixel != Background && pixel != Untouched; });
}

/// Notes the render hints that text is drawn with.
class HintRecorder : public QPaintEngine
{
public:
    HintRecorder()
        : QPaintEngine(AllFeatures)
    {}
    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState&) override {}
    void drawPath(const QPainterPath&) override {}
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    void drawTextItem(const QPointF&, const QTextItem&) override
    {
        textHints.append(painter()->renderHints());
    }
    Type type() const override { return User; }

    QList<QPainter::RenderHints> textHints;
};

class HintRecorderDevice : public QPaintDevice
{
public:
    QPaintEngine* paintEngine() const override { return &recorder; }
    mutable HintRecorder recorder;

protected:
    int metric(PaintDeviceMetric which) const override
    {
        return which == PdmDevicePixelRatio ? 1 : 100;
    }
};

QRect cornersRect(int left, int top, int right, int bottom)
{
    return QRect(QPoint(left, top), QPoint(right, bottom));
}

} // namespace

class tst_EffectStyle : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void ownsItsBaseStyle();

    void panelFillsTheWidget();
    void panelWithoutAWidgetIsTheBaseStyles();
    void frameStrips_data();
    void frameStrips();
    void otherPrimitivesAreTheBaseStyles();

    void emptyAreaIsNotDrawn();
    void otherControlsAreTheBaseStyles();
    void itemNeedsItsArguments();
    void itemColours_data();
    void itemColours();
    void itemLeavesThePainterAsItWas();
    void textIsDrawnWithoutTheAntialiasingHint();

    void separatorLine_data();
    void separatorLine();
    void separatorHasTheItemsColour_data();
    void separatorHasTheItemsColour();
    void emptyTextDrawsTheBackground();

    void textRectangle_data();
    void textRectangle();
    void textIsMirrored();
    void mnemonicIsUnderlined();
    void textWithoutATabIgnoresTheShortcutWidth();
    void shortcutColumn_data();
    void shortcutColumn();
    void shortcutColumnIsMirrored();

    void itemSize_data();
    void itemSize();
    void itemSizeWithShortcut_data();
    void itemSizeWithShortcut();
    void itemSizeIgnoresAmpersands();
    void itemHeightIsAtLeastTheMargin();
    void separatorSize_data();
    void separatorSize();
    void otherSizesAreTheBaseStyles();

    void pullDownIndexColumn_data();
    void pullDownIndexColumn();
    void pullDownIndexWithoutMarginHasNoLine();
    void pullDownWithoutIndexIsTheWholeText();
    void pullDownItemIsMirrored();
    void pullDownItemKeepsThePaintersFont();
    void pullDownItemColours();
    void pullDownTextsAreTakenAsTheyStand();
    void pullDownSize_data();
    void pullDownSize();
    void pullDownIsNeverNarrowerThanItsButton();
    void pullDownMenuWithoutAButtonIsOrdinary();
    void realPullDown_data();
    void realPullDown();

    void pixelMetrics_data();
    void pixelMetrics();
    void panelWidthWithoutAnEditor();
    void styleHints();

    void realMenu_data();
    void realMenu();
    void sideMarginsAtOneAndAHalf();
    void menusSurviveExtremeScales_data();
    void menusSurviveExtremeScales();
};

void tst_EffectStyle::ownsItsBaseStyle()
{
    QPointer<QStyle> base = QStyleFactory::create(QStringLiteral("Fusion"));
    auto style = std::make_unique<EffectStyle>(base);
    QCOMPARE(style->baseStyle(), base);
    QCOMPARE(style->metaObject()->className(), "EffectStyle");
    style.reset();
    QVERIFY(!base);
}

void tst_EffectStyle::panelFillsTheWidget()
{
    Fixture fixture(1.0);
    fixture.menu.resize(30, 20);
    QStyleOption option;
    option.rect = QRect(3, 4, 5, 6);
    QImage image = canvas(50, 40);
    QPainter painter(&image);
    fixture.style.drawPrimitive(QStyle::PE_PanelMenu, &option, &painter, &fixture.menu);
    painter.end();
    QImage expected = canvas(50, 40);
    QPainter(&expected).fillRect(0, 0, 30, 20, Background);
    QCOMPARE(image, expected);
}

void tst_EffectStyle::panelWithoutAWidgetIsTheBaseStyles()
{
    EffectStyle style(QStyleFactory::create(QStringLiteral("Fusion")));
    QStyleOption option;
    option.rect = QRect(0, 0, 20, 10);
    QImage image = canvas(20, 10);
    QImage expected = image;
    QPainter painter(&image);
    style.drawPrimitive(QStyle::PE_PanelMenu, &option, &painter, nullptr);
    QPainter expectedPainter(&expected);
    style.baseStyle()->drawPrimitive(QStyle::PE_PanelMenu, &option, &expectedPainter, nullptr);
    QCOMPARE(image, expected);
}

void tst_EffectStyle::frameStrips_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<int>("thickness");
    QTest::newRow("1") << 1.0 << 1;
    QTest::newRow("1.5") << 1.5 << 2;
    QTest::newRow("2") << 2.0 << 2;
    QTest::newRow("3") << 3.0 << 3;
}

// The strips start at the origin, wherever the option's rectangle is.
void tst_EffectStyle::frameStrips()
{
    QFETCH(double, scale);
    QFETCH(int, thickness);
    Fixture fixture(scale);
    QStyleOption option;
    option.rect = QRect(5, 7, 40, 30);
    QImage image = canvas(60, 50);
    QPainter painter(&image);
    fixture.style.drawPrimitive(QStyle::PE_FrameMenu, &option, &painter, &fixture.menu);
    painter.end();
    QImage expected = canvas(60, 50);
    QPainter expectedPainter(&expected);
    expectedPainter.fillRect(0, 0, 40, 30, White);
    expectedPainter.fillRect(thickness, thickness, 40 - 2 * thickness, 30 - 2 * thickness,
                             Untouched);
    expectedPainter.end();
    QCOMPARE(image, expected);
}

void tst_EffectStyle::otherPrimitivesAreTheBaseStyles()
{
    EffectStyle style(QStyleFactory::create(QStringLiteral("Fusion")));
    QStyleOption option;
    option.rect = QRect(0, 0, 20, 20);
    option.state = QStyle::State_Enabled | QStyle::State_On;
    QImage image = canvas(20, 20);
    QImage expected = image;
    QPainter painter(&image);
    style.drawPrimitive(QStyle::PE_IndicatorArrowDown, &option, &painter, nullptr);
    QPainter expectedPainter(&expected);
    style.baseStyle()->drawPrimitive(QStyle::PE_IndicatorArrowDown, &option, &expectedPainter,
                                     nullptr);
    QCOMPARE(image, expected);
    QVERIFY(image != canvas(20, 20));
}

void tst_EffectStyle::emptyAreaIsNotDrawn()
{
    Fixture fixture(1.0);
    const QStyleOptionMenuItem option = itemOption(QString(), QRect(0, 0, 20, 20));
    QImage image = canvas(20, 20);
    QPainter painter(&image);
    fixture.style.drawControl(QStyle::CE_MenuEmptyArea, &option, &painter, &fixture.menu);
    QCOMPARE(image, canvas(20, 20));
}

void tst_EffectStyle::otherControlsAreTheBaseStyles()
{
    EffectStyle style(QStyleFactory::create(QStringLiteral("Fusion")));
    QStyleOptionButton option;
    option.rect = QRect(0, 0, 40, 20);
    option.state = QStyle::State_Enabled;
    QImage image = canvas(40, 20);
    QImage expected = image;
    QPainter painter(&image);
    style.drawControl(QStyle::CE_PushButton, &option, &painter, nullptr);
    QPainter expectedPainter(&expected);
    style.baseStyle()->drawControl(QStyle::CE_PushButton, &option, &expectedPainter, nullptr);
    QCOMPARE(image, expected);
    QVERIFY(image != canvas(40, 20));
}

void tst_EffectStyle::itemNeedsItsArguments()
{
    Fixture fixture(1.0);
    const QStyleOptionMenuItem option = itemOption(QStringLiteral("Text"), QRect(0, 0, 40, 20));
    QStyleOptionMenuItem oldVersion = option;
    oldVersion.version = 0;
    QStyleOption wrongType;
    wrongType.rect = option.rect;
    QImage image = canvas(40, 20);
    QPainter painter(&image);
    const EffectStyle& style = fixture.style;
    style.drawControl(QStyle::CE_MenuItem, &option, &painter, nullptr);
    style.drawControl(QStyle::CE_MenuItem, nullptr, &painter, &fixture.menu);
    style.drawControl(QStyle::CE_MenuItem, &wrongType, &painter, &fixture.menu);
    style.drawControl(QStyle::CE_MenuItem, &oldVersion, &painter, &fixture.menu);
    style.drawControl(QStyle::CE_MenuItem, &option, nullptr, &fixture.menu);
    QCOMPARE(image, canvas(40, 20));
    style.drawControl(QStyle::CE_MenuItem, &option, &painter, &fixture.menu);
    QVERIFY(image != canvas(40, 20));
}

void tst_EffectStyle::itemColours_data()
{
    using Option = QStyleOptionMenuItem;
    constexpr int enabled = QStyle::State_Enabled;
    constexpr int selected = QStyle::State_Selected;
    constexpr int sunken = QStyle::State_Sunken;
    QTest::addColumn<int>("state");
    QTest::addColumn<int>("checkType");
    QTest::addColumn<bool>("checked");
    QTest::addColumn<QColor>("fill");
    QTest::addColumn<QColor>("ink");
    const auto row = [](const char* name, int state, Option::CheckType type, bool checked,
                        const QColor& fill, const QColor& ink) {
        QTest::newRow(name) << state << int(type) << checked << fill << ink;
    };
    row("enabled", enabled, Option::NotCheckable, false, Background, EnabledText);
    row("selected", enabled | selected, Option::NotCheckable, false, Blue, White);
    row("sunken", enabled | sunken, Option::NotCheckable, false, Blue, White);
    row("both", enabled | selected | sunken, Option::NotCheckable, false, Blue, White);
    row("checked", enabled, Option::NonExclusive, true, Background, White);
    row("checked radio", enabled, Option::Exclusive, true, Background, White);
    row("unchecked", enabled, Option::NonExclusive, false, Background, EnabledText);
    row("checked, not checkable", enabled, Option::NotCheckable, true, Background, EnabledText);
    row("checked and selected", enabled | selected, Option::Exclusive, true, Blue, White);
    row("disabled", 0, Option::NotCheckable, false, Background, DisabledText);
    row("disabled, selected", selected, Option::NotCheckable, false, DisabledHighlight,
        DisabledText);
    row("disabled, sunken", sunken, Option::NotCheckable, false, DisabledHighlight, DisabledText);
    row("disabled, checked", 0, Option::Exclusive, true, Background, DisabledText);
}

void tst_EffectStyle::itemColours()
{
    QFETCH(int, state);
    QFETCH(int, checkType);
    QFETCH(bool, checked);
    QFETCH(QColor, fill);
    QFETCH(QColor, ink);
    Fixture fixture(1.0);
    const QRect rect(20, 10, 100, 24);
    QStyleOptionMenuItem option = itemOption(QStringLiteral("Hill"), rect);
    option.state = QStyle::State(state);
    option.checkType = QStyleOptionMenuItem::CheckType(checkType);
    option.checked = checked;
    const QImage expected = expectedItem(rect, fill, ink, sizedFont("M+ 1c", 11),
                                         {{QRect(30, 11, 80, 22), option.text}});
    QVERIFY(boundsOf(expected, ink).isValid());
    QCOMPARE(drawnItem(fixture, option), expected);
}

void tst_EffectStyle::itemLeavesThePainterAsItWas()
{
    Fixture fixture(1.0);
    const QStyleOptionMenuItem option = itemOption(QStringLiteral("Text"), QRect(0, 0, 40, 20));
    QImage image = canvas(40, 20);
    QPainter painter(&image);
    const QFont font = sizedFont("DejaVu Sans", 20);
    painter.setFont(font);
    painter.setPen(Qt::cyan);
    painter.setBrush(Qt::yellow);
    painter.setRenderHint(QPainter::TextAntialiasing);
    fixture.style.drawControl(QStyle::CE_MenuItem, &option, &painter, &fixture.menu);
    QCOMPARE(painter.font(), font);
    QCOMPARE(painter.pen(), QPen(Qt::cyan));
    QCOMPARE(painter.brush(), QBrush(Qt::yellow));
    QVERIFY(painter.testRenderHint(QPainter::TextAntialiasing));
}

void tst_EffectStyle::textIsDrawnWithoutTheAntialiasingHint()
{
    Fixture fixture(1.0);
    const QStyleOptionMenuItem option = itemOption(QStringLiteral("Hill\tK"), QRect(0, 0, 100, 20));
    HintRecorderDevice device;
    QPainter painter(&device);
    painter.setRenderHint(QPainter::TextAntialiasing);
    fixture.style.drawControl(QStyle::CE_MenuItem, &option, &painter, &fixture.menu);
    painter.end();
    QCOMPARE(device.recorder.textHints.size(), 2);
    for (QPainter::RenderHints hints : std::as_const(device.recorder.textHints))
        QVERIFY(!hints.testFlag(QPainter::TextAntialiasing));
}

void tst_EffectStyle::separatorLine_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<QRect>("line");
    QTest::newRow("odd height") << 1.0 << QRect(20, 10, 100, 5) << QRect(20, 12, 101, 1);
    QTest::newRow("even height") << 1.0 << QRect(20, 10, 100, 6) << QRect(20, 13, 101, 1);
    QTest::newRow("wide pen") << 3.0 << QRect(20, 10, 100, 15) << QRect(19, 16, 103, 3);
}

// The line ends one pixel right of the rectangle, and a pen wider than a pixel has square ends.
void tst_EffectStyle::separatorLine()
{
    QFETCH(double, scale);
    QFETCH(QRect, rect);
    QFETCH(QRect, line);
    Fixture fixture(scale);
    QStyleOptionMenuItem option = itemOption(QStringLiteral("Title"), rect);
    option.menuItemType = QStyleOptionMenuItem::Separator;
    QImage expected = canvas(240, 60);
    QPainter painter(&expected);
    painter.fillRect(rect, Background);
    painter.fillRect(line, EnabledText);
    painter.end();
    QCOMPARE(drawnItem(fixture, option), expected);
}

void tst_EffectStyle::separatorHasTheItemsColour_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<QColor>("ink");
    QTest::newRow("enabled") << int(QStyle::State_Enabled) << EnabledText;
    QTest::newRow("selected") << int(QStyle::State_Enabled | QStyle::State_Selected) << White;
    QTest::newRow("disabled") << 0 << DisabledText;
}

void tst_EffectStyle::separatorHasTheItemsColour()
{
    QFETCH(int, state);
    QFETCH(QColor, ink);
    Fixture fixture(1.0);
    QStyleOptionMenuItem option = itemOption(QString(), QRect(20, 10, 100, 5));
    option.menuItemType = QStyleOptionMenuItem::Separator;
    option.state = QStyle::State(state);
    QCOMPARE(boundsOf(drawnItem(fixture, option), ink), QRect(20, 12, 101, 1));
}

void tst_EffectStyle::emptyTextDrawsTheBackground()
{
    Fixture fixture(1.0);
    const QRect rect(20, 10, 100, 24);
    const QImage expected = expectedItem(rect, Background, White, QFont(), {});
    QCOMPARE(drawnItem(fixture, itemOption(QString(), rect)), expected);
}

void tst_EffectStyle::textRectangle_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<QFont>("menuFont");
    QTest::addColumn<QFont>("drawnFont");
    QTest::addColumn<QRect>("textRect");
    const QFont other = sizedFont("DejaVu Sans", 30);
    QTest::newRow("1") << 1.0 << other << sizedFont("M+ 1c", 11) << cornersRect(30, 11, 209, 48);
    QTest::newRow("1.5") << 1.5 << other << sizedFont("M+ 1c", 17) << cornersRect(35, 12, 204, 47);
    QTest::newRow("2") << 2.0 << other << sizedFont("M+ 1c", 22) << cornersRect(40, 12, 199, 47);
    QTest::newRow("0.5") << 0.5 << other << sizedFont("M+ 1c", 6) << cornersRect(25, 11, 214, 48);
    QTest::newRow("the editor's font stays")
        << 1.0 << sizedFont("M+ 1c", 18) << sizedFont("M+ 1c", 18) << cornersRect(30, 11, 209, 48);
}

void tst_EffectStyle::textRectangle()
{
    QFETCH(double, scale);
    QFETCH(QFont, menuFont);
    QFETCH(QFont, drawnFont);
    QFETCH(QRect, textRect);
    Fixture fixture(scale);
    fixture.menu.setFont(menuFont);
    const QRect rect = cornersRect(20, 10, 219, 49);
    const QStyleOptionMenuItem option = itemOption(QStringLiteral("Hill"), rect);
    const QImage expected =
        expectedItem(rect, Background, EnabledText, drawnFont, {{textRect, option.text}});
    const QImage drawn = drawnItem(fixture, option);
    QCOMPARE(drawn, expected);
    const QRect ink = inkBounds(drawn);
    QVERIFY(textRect.contains(ink));
    QVERIFY(ink.left() <= textRect.left() + drawnFont.pixelSize() / 4);
}

void tst_EffectStyle::textIsMirrored()
{
    Fixture fixture(1.0);
    QStyleOptionMenuItem option = itemOption(QStringLiteral("Hill"), cornersRect(20, 10, 239, 49));
    option.direction = Qt::RightToLeft;
    const QImage expected =
        expectedItem(option.rect, Background, EnabledText, sizedFont("M+ 1c", 11),
                     {{cornersRect(30, 11, 229, 48), option.text}});
    QCOMPARE(drawnItem(fixture, option), expected);
}

void tst_EffectStyle::mnemonicIsUnderlined()
{
    Fixture fixture(1.0);
    const QRect rect(20, 10, 100, 24);
    const QImage plain = drawnItem(fixture, itemOption(QStringLiteral("Hill"), rect));
    const QImage marked = drawnItem(fixture, itemOption(QStringLiteral("&Hill"), rect));
    const QRect plainInk = boundsOf(plain, EnabledText);
    const QRect markedInk = boundsOf(marked, EnabledText);
    QVERIFY(markedInk.bottom() > plainInk.bottom());
    QCOMPARE(marked.copy(plainInk), plain.copy(plainInk));
}

void tst_EffectStyle::textWithoutATabIgnoresTheShortcutWidth()
{
    Fixture fixture(1.0);
    QStyleOptionMenuItem option = itemOption(QStringLiteral("Hill"), cornersRect(20, 10, 219, 49));
    const QImage without = drawnItem(fixture, option);
    option.reservedShortcutWidth = 170;
    QCOMPARE(drawnItem(fixture, option), without);
}

void tst_EffectStyle::shortcutColumn_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<QFont>("menuFont");
    QTest::addColumn<int>("reserved");
    QTest::addColumn<QFont>("drawnFont");
    QTest::addColumn<QRect>("textRect");
    QTest::addColumn<QRect>("shortcutRect");
    const QFont inPoints(QStringLiteral("DejaVu Sans"), 22);
    // 11 of 22 pixels: half of 41 is 20.5, which rounds to 21.
    QTest::newRow("other font") << 1.0 << sizedFont("DejaVu Sans", 22) << 41
                                << sizedFont("M+ 1c", 11) << cornersRect(30, 11, 178, 48)
                                << cornersRect(189, 11, 209, 48);
    QTest::newRow("other font in points")
        << 1.0 << inPoints << 41 << sizedFont("M+ 1c", 11) << cornersRect(30, 11, 178, 48)
        << cornersRect(189, 11, 209, 48);
    QTest::newRow("other font, zoomed")
        << 1.5 << sizedFont("DejaVu Sans", 11) << 40 << sizedFont("M+ 1c", 17)
        << cornersRect(35, 12, 129, 47) << cornersRect(145, 12, 204, 47);
    QTest::newRow("the editor's font")
        << 1.0 << sizedFont("M+ 1c", 18) << 41 << sizedFont("M+ 1c", 18)
        << cornersRect(30, 11, 158, 48) << cornersRect(169, 11, 209, 48);
}

void tst_EffectStyle::shortcutColumn()
{
    QFETCH(double, scale);
    QFETCH(QFont, menuFont);
    QFETCH(int, reserved);
    QFETCH(QFont, drawnFont);
    QFETCH(QRect, textRect);
    QFETCH(QRect, shortcutRect);
    Fixture fixture(scale);
    fixture.menu.setFont(menuFont);
    QStyleOptionMenuItem option =
        itemOption(QStringLiteral("Hill\tK\t2"), cornersRect(20, 10, 219, 49));
    option.reservedShortcutWidth = reserved;
    const QImage expected =
        expectedItem(option.rect, Background, EnabledText, drawnFont,
                     {{textRect, QStringLiteral("Hill")}, {shortcutRect, QStringLiteral("K\t2")}});
    QCOMPARE(drawnItem(fixture, option), expected);
}

void tst_EffectStyle::shortcutColumnIsMirrored()
{
    Fixture fixture(1.0);
    fixture.menu.setFont(sizedFont("M+ 1c", 11));
    QStyleOptionMenuItem option =
        itemOption(QStringLiteral("Hill\tK"), cornersRect(20, 10, 219, 49));
    option.direction = Qt::RightToLeft;
    option.reservedShortcutWidth = 40;
    const QImage expected =
        expectedItem(option.rect, Background, EnabledText, sizedFont("M+ 1c", 11),
                     {{cornersRect(80, 11, 209, 48), QStringLiteral("Hill")},
                      {cornersRect(30, 11, 69, 48), QStringLiteral("K")}});
    QCOMPARE(drawnItem(fixture, option), expected);
}

void tst_EffectStyle::itemSize_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<QFont>("menuFont");
    QTest::addColumn<QFont>("measuredFont");
    QTest::addColumn<QSize>("margins");
    const QFont other = sizedFont("DejaVu Sans", 30);
    QTest::newRow("1") << 1.0 << other << sizedFont("M+ 1c", 11) << QSize(20, 2);
    QTest::newRow("1.5") << 1.5 << other << sizedFont("M+ 1c", 17) << QSize(30, 4);
    QTest::newRow("2") << 2.0 << other << sizedFont("M+ 1c", 22) << QSize(40, 4);
    QTest::newRow("the editor's font")
        << 2.0 << sizedFont("M+ 1c", 18) << sizedFont("M+ 1c", 18) << QSize(40, 4);
}

void tst_EffectStyle::itemSize()
{
    QFETCH(double, scale);
    QFETCH(QFont, menuFont);
    QFETCH(QFont, measuredFont);
    QFETCH(QSize, margins);
    Fixture fixture(scale);
    fixture.menu.setFont(menuFont);
    QStyleOptionMenuItem option = itemOption(QStringLiteral("Low shelf"), QRect());
    option.reservedShortcutWidth = 100;
    const QFontMetrics metrics(measuredFont);
    const QSize expected = metrics.size(Qt::TextSingleLine, option.text) + margins;
    QCOMPARE(fixture.style.sizeFromContents(QStyle::CT_MenuItem, &option, QSize(500, 500),
                                            &fixture.menu),
             expected);
}

void tst_EffectStyle::itemSizeWithShortcut_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<int>("fontSize");
    QTest::addColumn<QSize>("margins");
    QTest::newRow("1") << 1.0 << 11 << QSize(30, 2);
    QTest::newRow("1.5") << 1.5 << 17 << QSize(45, 4);
    QTest::newRow("2") << 2.0 << 22 << QSize(60, 4);
}

void tst_EffectStyle::itemSizeWithShortcut()
{
    QFETCH(double, scale);
    QFETCH(int, fontSize);
    QFETCH(QSize, margins);
    Fixture fixture(scale);
    fixture.menu.setFont(sizedFont("DejaVu Sans", 30));
    const QStyleOptionMenuItem option = itemOption(QStringLiteral("Low shelf\tCtrl+L"), QRect());
    const QFontMetrics metrics(sizedFont("M+ 1c", fontSize));
    const QSize text = metrics.size(Qt::TextSingleLine, QStringLiteral("Low shelf"));
    const QSize shortcut = metrics.size(Qt::TextSingleLine, QStringLiteral("Ctrl+L"));
    QCOMPARE(fixture.style.sizeFromContents(QStyle::CT_MenuItem, &option, QSize(), &fixture.menu),
             QSize(text.width() + shortcut.width(), text.height()) + margins);
}

void tst_EffectStyle::itemSizeIgnoresAmpersands()
{
    Fixture fixture(1.0);
    const auto width = [&](const QString& text) {
        const QStyleOptionMenuItem option = itemOption(text, QRect());
        return fixture.style.sizeFromContents(QStyle::CT_MenuItem, &option, QSize(), &fixture.menu)
            .width();
    };
    QCOMPARE(width(QStringLiteral("&Flat\t&F")), width(QStringLiteral("Flat\tF")));
    QVERIFY(width(QStringLiteral("Fl&&at")) > width(QStringLiteral("Flat")));
}

void tst_EffectStyle::itemHeightIsAtLeastTheMargin()
{
    Fixture fixture(3.0);
    fixture.menu.setFont(sizedFont("M+ 1c", 4));
    for (const char* text : {"Flat", "Flat\tF"}) {
        const QStyleOptionMenuItem option = itemOption(QLatin1String(text), QRect());
        const QSize size =
            fixture.style.sizeFromContents(QStyle::CT_MenuItem, &option, QSize(), &fixture.menu);
        QCOMPARE(size.height(), 30);
    }
}

void tst_EffectStyle::separatorSize_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<int>("height");
    QTest::newRow("1") << 1.0 << 5;
    QTest::newRow("1.5: 7.5") << 1.5 << 8;
    QTest::newRow("2") << 2.0 << 10;
    QTest::newRow("0.25: 1.25") << 0.25 << 1;
}

void tst_EffectStyle::separatorSize()
{
    QFETCH(double, scale);
    QFETCH(int, height);
    Fixture fixture(scale);
    QStyleOptionMenuItem option = itemOption(QStringLiteral("Title"), QRect());
    option.menuItemType = QStyleOptionMenuItem::Separator;
    QCOMPARE(
        fixture.style.sizeFromContents(QStyle::CT_MenuItem, &option, QSize(123, 45), &fixture.menu),
        QSize(123, height));
}

void tst_EffectStyle::otherSizesAreTheBaseStyles()
{
    EffectStyle style(QStyleFactory::create(QStringLiteral("Fusion")));
    QMenu menu;
    const QSize contents(50, 20);
    const QStyleOptionMenuItem item = itemOption(QStringLiteral("Text"), QRect());
    QCOMPARE(style.sizeFromContents(QStyle::CT_MenuItem, &item, contents, nullptr),
             style.baseStyle()->sizeFromContents(QStyle::CT_MenuItem, &item, contents, nullptr));
    QStyleOption wrongType;
    QCOMPARE(style.sizeFromContents(QStyle::CT_MenuItem, &wrongType, contents, &menu),
             style.baseStyle()->sizeFromContents(QStyle::CT_MenuItem, &wrongType, contents, &menu));
    QCOMPARE(style.sizeFromContents(QStyle::CT_MenuBarItem, &item, contents, &menu),
             style.baseStyle()->sizeFromContents(QStyle::CT_MenuBarItem, &item, contents, &menu));
}

void tst_EffectStyle::pullDownIndexColumn_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<int>("indexMargin");
    QTest::addColumn<QRect>("indexRect");
    QTest::addColumn<QRect>("line");
    QTest::addColumn<QRect>("labelRect");
    // The item spans x 20 to 219 and y 10 to 49.
    QTest::newRow("1") << 1.0 << 6 << cornersRect(24, 11, 35, 48) << QRect(39, 10, 1, 41)
                       << cornersRect(42, 11, 215, 48);
    QTest::newRow("1, odd margin") << 1.0 << 7 << cornersRect(24, 11, 35, 48)
                                   << QRect(39, 10, 1, 41) << cornersRect(43, 11, 215, 48);
    QTest::newRow("1.5") << 1.5 << 6 << cornersRect(26, 12, 43, 47) << QRect()
                         << cornersRect(53, 12, 213, 47);
    QTest::newRow("2") << 2.0 << 6 << cornersRect(28, 12, 51, 47) << QRect()
                       << cornersRect(64, 12, 211, 47);
}

// The line is compared only where it is one pixel wide; its middle is the same at every scale.
void tst_EffectStyle::pullDownIndexColumn()
{
    QFETCH(double, scale);
    QFETCH(int, indexMargin);
    QFETCH(QRect, indexRect);
    QFETCH(QRect, line);
    QFETCH(QRect, labelRect);
    const PullDownFixture fixture(scale, 12, indexMargin);
    const QStyleOptionMenuItem option =
        itemOption(QStringLiteral("7 Low shelf"), cornersRect(20, 10, 219, 49));
    QImage drawn = drawnItem(fixture, option);
    const QRect gap(indexRect.right() + 1, 0, labelRect.left() - indexRect.right() - 1, 60);
    QImage expected =
        expectedItem(option.rect, Background, EnabledText, fixture.menu.font(),
                     {{indexRect, QStringLiteral("7"), Qt::AlignCenter | Qt::TextSingleLine},
                      {labelRect, QStringLiteral("Low shelf"),
                       Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine}});
    if (line.isValid()) {
        QPainter(&expected).fillRect(line, EnabledText);
    } else {
        const QRect found = boundsOf(drawn.copy(gap), EnabledText);
        QVERIFY(found.isValid() && found.width() <= qRound(scale) + 1);
        QVERIFY(qAbs(found.center().x() - gap.width() / 2) <= 1);
        for (QImage* image : {&drawn, &expected})
            QPainter(image).fillRect(gap, Untouched);
    }
    QCOMPARE(drawn, expected);
}

void tst_EffectStyle::pullDownIndexWithoutMarginHasNoLine()
{
    const PullDownFixture fixture(1.0, 12, 0);
    const QRect rect = cornersRect(20, 10, 219, 49);
    const QImage expected = expectedItem(
        rect, Background, EnabledText, fixture.menu.font(),
        {{QRect(24, 11, 12, 38), QStringLiteral("7"), Qt::AlignCenter | Qt::TextSingleLine},
         {cornersRect(36, 11, 215, 48), QStringLiteral("Low shelf"),
          Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine}});
    QCOMPARE(drawnItem(fixture, itemOption(QStringLiteral("7 Low shelf"), rect)), expected);
}

void tst_EffectStyle::pullDownWithoutIndexIsTheWholeText()
{
    const QRect rect = cornersRect(20, 10, 219, 49);
    for (const int indexWidth : {0, -5}) {
        const PullDownFixture fixture(1.0, indexWidth, 6);
        const QImage expected =
            expectedItem(rect, Background, EnabledText, fixture.menu.font(),
                         {{cornersRect(24, 11, 215, 48), QStringLiteral("7 Low shelf"),
                           Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine}});
        QCOMPARE(drawnItem(fixture, itemOption(QStringLiteral("7 Low shelf"), rect)), expected);
    }
}

void tst_EffectStyle::pullDownItemIsMirrored()
{
    const PullDownFixture fixture(1.0, 12, 6);
    QStyleOptionMenuItem option =
        itemOption(QStringLiteral("7 Hill"), cornersRect(20, 10, 219, 49));
    const QImage leftToRight = drawnItem(fixture, option);
    option.direction = Qt::RightToLeft;
    const QImage drawn = drawnItem(fixture, option);
    // The index lies in the 12 pixels left of the margin at the right, the line left of it.
    const QRect indexRect = cornersRect(204, 11, 215, 48);
    QVERIFY(boundsOf(drawn.copy(indexRect), EnabledText).isValid());
    QVERIFY(!boundsOf(drawn.copy(cornersRect(216, 10, 219, 49)), EnabledText).isValid());
    QCOMPARE(boundsOf(drawn.copy(cornersRect(198, 10, 203, 50)), EnabledText), QRect(2, 0, 1, 41));
    QVERIFY(inkBounds(leftToRight.copy(indexRect)).isNull());
}

void tst_EffectStyle::pullDownItemKeepsThePaintersFont()
{
    PullDownFixture fixture(2.0, 0, 0);
    fixture.menu.setFont(sizedFont("DejaVu Sans", 30));
    const QRect rect = cornersRect(20, 10, 219, 49);
    const QImage expected = expectedItem(rect, Background, EnabledText, fixture.menu.font(),
                                         {{cornersRect(28, 12, 211, 47), QStringLiteral("Hill"),
                                           Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine}});
    QCOMPARE(drawnItem(fixture, itemOption(QStringLiteral("Hill"), rect)), expected);
}

void tst_EffectStyle::pullDownItemColours()
{
    const PullDownFixture fixture(1.0, 12, 6);
    QStyleOptionMenuItem option =
        itemOption(QStringLiteral("\u2588 \u2588\u2588"), cornersRect(20, 10, 219, 49));
    option.state = QStyle::State_Enabled | QStyle::State_Selected;
    const QImage drawn = drawnItem(fixture, option);
    QCOMPARE(drawn.pixelColor(21, 11), Blue);
    QVERIFY(boundsOf(drawn.copy(QRect(24, 11, 12, 38)), White).isValid());
    QVERIFY(boundsOf(drawn.copy(cornersRect(42, 11, 215, 48)), White).isValid());
    // The line keeps its colour.
    QCOMPARE(boundsOf(drawn, EnabledText), QRect(39, 10, 1, 41));
    option.text.clear();
    QVERIFY(!boundsOf(drawnItem(fixture, option), White).isValid());
}

void tst_EffectStyle::pullDownTextsAreTakenAsTheyStand()
{
    const PullDownFixture fixture(1.0, 0, 0);
    const QRect rect = cornersRect(20, 10, 219, 49);
    const QString text = QStringLiteral("R&B  one");
    const QImage expected = expectedItem(rect, Background, EnabledText, fixture.menu.font(),
                                         {{cornersRect(24, 11, 215, 48), text,
                                           Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine}});
    QCOMPARE(drawnItem(fixture, itemOption(text, rect)), expected);
}

void tst_EffectStyle::pullDownSize_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<int>("indexWidth");
    QTest::addColumn<int>("indexMargin");
    QTest::addColumn<QString>("widthText");
    QTest::addColumn<QSize>("margins");
    const QString whole = QStringLiteral("12 Low shelf");
    const QString label = QStringLiteral("Low shelf");
    QTest::newRow("no index, 1") << 1.0 << 0 << 6 << whole << QSize(8, 2);
    QTest::newRow("no index, 1.5") << 1.5 << -1 << 6 << whole << QSize(12, 4);
    QTest::newRow("index, 1") << 1.0 << 12 << 6 << label << QSize(12 + 6 + 8, 2);
    QTest::newRow("index, no margin") << 1.0 << 12 << 0 << label << QSize(12 + 8, 2);
    // 12 * 1.25 is 15, 6 * 1.25 is 7.5, which rounds to 8.
    QTest::newRow("index, 1.25") << 1.25 << 12 << 6 << label << QSize(15 + 8 + 10, 2);
    QTest::newRow("index, 2") << 2.0 << 12 << 6 << label << QSize(24 + 12 + 16, 4);
}

void tst_EffectStyle::pullDownSize()
{
    QFETCH(double, scale);
    QFETCH(int, indexWidth);
    QFETCH(int, indexMargin);
    QFETCH(QString, widthText);
    QFETCH(QSize, margins);
    const PullDownFixture fixture(scale, indexWidth, indexMargin);
    QStyleOptionMenuItem option = itemOption(QStringLiteral("12 Low shelf"), QRect());
    option.fontMetrics = QFontMetrics(sizedFont("M+ 1c", 19));
    const int width = option.fontMetrics.size(Qt::TextSingleLine, widthText).width();
    const int height = option.fontMetrics.size(Qt::TextSingleLine, option.text).height();
    QCOMPARE(fixture.style.sizeFromContents(QStyle::CT_MenuItem, &option, QSize(500, 500),
                                            &fixture.menu),
             QSize(width, height) + margins);
}

void tst_EffectStyle::pullDownIsNeverNarrowerThanItsButton()
{
    for (const int indexWidth : {0, 12}) {
        const PullDownFixture fixture(1.5, indexWidth, 6, 300);
        const QStyleOptionMenuItem option = itemOption(QStringLiteral("1 Hill"), QRect());
        QCOMPARE(
            fixture.style.sizeFromContents(QStyle::CT_MenuItem, &option, QSize(), &fixture.menu)
                .width(),
            300 - 2 * 2);
    }
}

void tst_EffectStyle::pullDownMenuWithoutAButtonIsOrdinary()
{
    Fixture ordinary(1.0);
    ordinary.menu.setFont(sizedFont("M+ 1c", 11));
    auto button = std::make_unique<PullDownButtonController>();
    button->setIndexWidth(12);
    Menu menu(button.get());
    menu.setParent(nullptr);
    button.reset();
    menu.setFont(sizedFont("M+ 1c", 11));
    const QStyleOptionMenuItem option = itemOption(QStringLiteral("1 Hill"), QRect(0, 0, 90, 20));
    QImage image = canvas(240, 60);
    QPainter painter(&image);
    painter.setFont(menu.font());
    ordinary.style.drawControl(QStyle::CE_MenuItem, &option, &painter, &menu);
    painter.end();
    QCOMPARE(image, drawnItem(ordinary, option));
    QCOMPARE(
        ordinary.style.sizeFromContents(QStyle::CT_MenuItem, &option, QSize(), &menu),
        ordinary.style.sizeFromContents(QStyle::CT_MenuItem, &option, QSize(), &ordinary.menu));
}

void tst_EffectStyle::realPullDown_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<int>("frame");
    QTest::newRow("1") << 1.0 << 1;
    QTest::newRow("2") << 2.0 << 2;
}

void tst_EffectStyle::realPullDown()
{
    QFETCH(double, scale);
    QFETCH(int, frame);
    PlainEditor editor;
    PullDownButtonController button(&editor);
    button.setGeometry(10, 10, 120, 20);
    button.setTextList({QStringLiteral("Low shelf"), QStringLiteral("Peaking")});
    editor.initialize();
    editor.setScale(scale);
    button.setValue(1);
    editor.show();
    bool isSeen = false;
    QTimer::singleShot(0, &editor, [&] {
        auto* menu = qobject_cast<Menu*>(QApplication::activePopupWidget());
        QVERIFY(menu);
        isSeen = true;
        QCOMPARE(menu->width(), qRound(120 * scale));
        QCOMPARE(menu->pos(), editor.mapToGlobal(QPoint(10, 30) * scale));
        const QImage image = menu->grab().toImage();
        const QRect current = menu->actionGeometry(menu->actions().at(1));
        QCOMPARE(image.pixelColor(frame - 1, frame - 1), White);
        QCOMPARE(image.pixelColor(frame, frame), Background);
        QCOMPARE(image.pixelColor(current.topLeft()), Blue);
        menu->close();
    });
    button.openPullDown();
    QVERIFY(isSeen);
}

void tst_EffectStyle::pixelMetrics_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<int>("panelWidth");
    QTest::newRow("0.4") << 0.4 << 0;
    QTest::newRow("0.5") << 0.5 << 1;
    QTest::newRow("1") << 1.0 << 1;
    QTest::newRow("1.4") << 1.4 << 1;
    QTest::newRow("1.5") << 1.5 << 2;
    QTest::newRow("2") << 2.0 << 2;
}

void tst_EffectStyle::pixelMetrics()
{
    QFETCH(double, scale);
    Fixture fixture(scale);
    const auto metric = [&](QStyle::PixelMetric which) {
        return fixture.style.pixelMetric(which, nullptr, &fixture.menu);
    };
    QTEST(metric(QStyle::PM_MenuPanelWidth), "panelWidth");
    QCOMPARE(metric(QStyle::PM_MenuScrollerHeight), 0);
    QCOMPARE(metric(QStyle::PM_MenuHMargin), 0);
    QCOMPARE(metric(QStyle::PM_MenuVMargin), 0);
    QCOMPARE(metric(QStyle::PM_MenuTearoffHeight), 0);
    QCOMPARE(metric(QStyle::PM_ScrollBarExtent),
             fixture.style.baseStyle()->pixelMetric(QStyle::PM_ScrollBarExtent));
}

void tst_EffectStyle::panelWidthWithoutAnEditor()
{
    EffectStyle style(nullptr);
    QMenu menu;
    QCOMPARE(style.pixelMetric(QStyle::PM_MenuPanelWidth, nullptr, &menu), 1);
    QCOMPARE(style.pixelMetric(QStyle::PM_MenuPanelWidth), 1);
}

void tst_EffectStyle::styleHints()
{
    QCOMPARE(int(QStyle::SH_Menu_Mask), 80);
    EffectStyle style(QStyleFactory::create(QStringLiteral("Fusion")));
    QCOMPARE(style.styleHint(QStyle::SH_Menu_Mask), 0);
    QCOMPARE(style.styleHint(QStyle::SH_Menu_MouseTracking),
             style.baseStyle()->styleHint(QStyle::SH_Menu_MouseTracking));
    QCOMPARE(style.styleHint(QStyle::SH_Menu_MouseTracking), 1);
}

void tst_EffectStyle::realMenu_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<int>("frame");
    QTest::addColumn<int>("separatorHeight");
    QTest::newRow("1") << 1.0 << 1 << 5;
    QTest::newRow("2") << 2.0 << 2 << 10;
}

void tst_EffectStyle::realMenu()
{
    QFETCH(double, scale);
    QFETCH(int, frame);
    QFETCH(int, separatorHeight);
    PlainEditor editor;
    QMenu menu(&editor);
    QAction* low = menu.addAction(QStringLiteral("Low shelf"));
    QAction* checked = menu.addAction(QStringLiteral("Peaking"));
    checked->setCheckable(true);
    checked->setChecked(true);
    QAction* separator = menu.addSeparator();
    QAction* disabled = menu.addAction(QStringLiteral("Notch"));
    disabled->setEnabled(false);
    editor.initialize();
    editor.setScale(scale);
    menu.resize(menu.sizeHint());
    menu.setActiveAction(low);
    const QImage image = menu.grab().toImage();

    const QRect lowRect = menu.actionGeometry(low);
    QCOMPARE(lowRect.topLeft(), QPoint(frame, frame));
    QCOMPARE(menu.actionGeometry(separator).height(), separatorHeight);
    QCOMPARE(menu.height(), menu.actionGeometry(disabled).bottom() + 1 + frame);
    QCOMPARE(image.pixelColor(frame - 1, frame - 1), White);
    QCOMPARE(image.pixelColor(menu.width() - frame, menu.height() - frame), White);
    QCOMPARE(image.pixelColor(lowRect.topLeft()), Blue);
    QVERIFY(boundsOf(image.copy(lowRect), White).isValid());
    QCOMPARE(image.pixelColor(menu.actionGeometry(checked).topLeft()), Background);
    QVERIFY(boundsOf(image.copy(menu.actionGeometry(checked)), White).isValid());
    QVERIFY(boundsOf(image.copy(menu.actionGeometry(disabled)), DisabledText).isValid());
    QVERIFY(boundsOf(image.copy(menu.actionGeometry(separator)), EnabledText).isValid());
}

void tst_EffectStyle::sideMarginsAtOneAndAHalf()
{
    Fixture fixture(1.5);
    fixture.menu.setFont(sizedFont("M+ 1c", 17));
    const QStyleOptionMenuItem option = itemOption(QStringLiteral("Flat"), QRect());
    QCOMPARE(fixture.style.pixelMetric(QStyle::PM_MenuPanelWidth, nullptr, &fixture.menu), 2);
    QCOMPARE(fixture.style.sizeFromContents(QStyle::CT_MenuItem, &option, QSize(), &fixture.menu)
                 .width(),
             QFontMetrics(fixture.menu.font()).size(Qt::TextSingleLine, option.text).width() + 30);
}

void tst_EffectStyle::menusSurviveExtremeScales_data()
{
    QTest::addColumn<double>("scale");
    QTest::newRow("0") << 0.0;
    QTest::newRow("tiny") << 0.01;
    QTest::newRow("negative") << -2.0;
}

void tst_EffectStyle::menusSurviveExtremeScales()
{
    QFETCH(double, scale);
    Fixture fixture(scale);
    fixture.menu.setFont(sizedFont("DejaVu Sans", 11));
    for (const char* text : {"Flat", "Flat\tF"}) {
        QStyleOptionMenuItem option = itemOption(QLatin1String(text), QRect(20, 10, 100, 24));
        option.reservedShortcutWidth = 10;
        QVERIFY(drawnItem(fixture, option).pixelColor(119, 33) == Background);
        fixture.style.sizeFromContents(QStyle::CT_MenuItem, &option, QSize(), &fixture.menu);
    }
}

ZOLTA_TEST_MAIN(tst_EffectStyle)

#include "tst_EffectStyle.moc"
