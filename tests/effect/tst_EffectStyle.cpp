// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/PullDownButtonController.h"
#include "effect/EffectStyle.h"
#include "tests/effect/PlainEditor.h"
#include "tests/support/DataTable.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QImage>
#include <QMenu>
#include <QPaintEngine>
#include <QPainter>
#include <QStyleFactory>
#include <QStyleOptionMenuItem>
#include <QTimer>

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
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

/// A menu of an editor that is zoomed by a factor: that of a pull-down button of a width, if it has
/// an index \a column (its width and margin), or an ordinary one.
struct Fixture
{
    explicit Fixture(double scale, std::optional<QSize> column = {}, int width = 10)
        : menu(column ? static_cast<QMenu&>(pullDown) : ordinary)
    {
        editor.setScale(scale);
        button.resize(width, 20);
        button.setIndexWidth(column.value_or(QSize()).width());
        button.setIndexMargin(column.value_or(QSize()).height());
    }

    QSize sizeOf(const QStyleOptionMenuItem& option) const
    {
        return style.sizeFromContents(QStyle::CT_MenuItem, &option, QSize(500, 45), &menu);
    }

    EffectStyle style{nullptr};
    PlainEditor editor;
    QMenu ordinary{&editor};
    PullDownButtonController button{&editor};
    Menu pullDown{&button};
    QMenu& menu;
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

/// What the style draws of a menu's panel or frame, on a canvas of 60 x 50 pixels.
QImage drawnPrimitive(const Fixture& fixture, QStyle::PrimitiveElement element, const QRect& rect)
{
    QStyleOption option;
    option.rect = rect;
    QImage image = canvas(60, 50);
    QPainter painter(&image);
    fixture.style.drawPrimitive(element, &option, &painter, &fixture.menu);
    return image;
}

/// What the style draws of an item, on a canvas of 240 x 60 pixels.
QImage drawnItem(const Fixture& fixture, const QStyleOptionMenuItem& option)
{
    QImage image = canvas(240, 60);
    QPainter painter(&image);
    painter.setFont(fixture.menu.font());
    fixture.style.drawControl(QStyle::CE_MenuItem, &option, &painter, &fixture.menu);
    return image;
}

/// A text that \a style draws, as a widget of 60 x 20 pixels does.
QImage drawnText(const QStyle& style, bool isEnabled, QPalette::ColorRole role)
{
    QPalette palette(Blue);
    palette.setColor(QPalette::BrightText, White);
    palette.setBrush(QPalette::Link, QBrush(White, Qt::Dense4Pattern));
    QImage image = canvas(60, 20);
    image.paintEngine()->setSystemClip(image.rect());
    QPainter painter(&image);
    style.drawItemText(&painter, image.rect(), Qt::AlignCenter, palette, isEnabled,
                       QStringLiteral("-12"), role);
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

QRect boundsOf(const QImage& image, const QColor& color)
{
    QRect bounds;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == color)
                bounds |= QRect(x, y, 1, 1);
        }
    }
    return bounds;
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

constexpr int LabelFlags = Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine;
constexpr int IndexFlags = Qt::AlignCenter | Qt::TextSingleLine;

/// One item and its picture.
struct Drawn
{
    const char* name;
    double scale = 1.0;
    std::optional<QSize> column = {};
    QFont menuFont = sizedFont("DejaVu Sans", 30);
    QString text = QStringLiteral("Hill");
    QRect rect = cornersRect(20, 10, 219, 49);
    QStyle::State state = QStyle::State_Enabled;
    QStyleOptionMenuItem::CheckType checkType = QStyleOptionMenuItem::NotCheckable;
    bool checked = false;
    bool isSeparator = false;
    Qt::LayoutDirection direction = Qt::LeftToRight;
    int reserved = 0;
    // What is drawn, in the menu's font if it is of a pull-down button.
    QColor fill = Background;
    QColor ink = EnabledText;
    QFont font = sizedFont("M+ 1c", 11);
    QList<Text> texts = {{cornersRect(30, 11, 209, 48), QStringLiteral("Hill")}};
    QRect line = {};
};

QStyleOptionMenuItem optionOf(const Drawn& item)
{
    QStyleOptionMenuItem option = itemOption(item.text, item.rect);
    option.state = item.state;
    option.checkType = item.checkType;
    option.checked = item.checked;
    option.direction = item.direction;
    option.reservedShortcutWidth = item.reserved;
    if (item.isSeparator)
        option.menuItemType = QStyleOptionMenuItem::Separator;
    return option;
}

// Tables are easier to read with one item on a line or two.
// clang-format off

QList<Drawn> colouredItems()
{
    using Option = QStyleOptionMenuItem;
    const QStyle::State enabled = QStyle::State_Enabled;
    const QStyle::State selected = QStyle::State_Selected;
    const QStyle::State sunken = QStyle::State_Sunken;
    return {
        {.name = "enabled"},
        {.name = "selected", .state = enabled | selected, .fill = Blue, .ink = White},
        {.name = "sunken", .state = enabled | sunken, .fill = Blue, .ink = White},
        {.name = "both", .state = enabled | selected | sunken, .fill = Blue, .ink = White},
        {.name = "checked", .checkType = Option::NonExclusive, .checked = true, .ink = White},
        {.name = "checked radio", .checkType = Option::Exclusive, .checked = true, .ink = White},
        {.name = "unchecked", .checkType = Option::NonExclusive},
        {.name = "checked, not checkable", .checked = true},
        {.name = "checked and selected", .state = enabled | selected,
         .checkType = Option::Exclusive, .checked = true, .fill = Blue, .ink = White},
        {.name = "disabled", .state = {}, .ink = DisabledText},
        {.name = "disabled, selected", .state = selected, .fill = DisabledHighlight,
         .ink = DisabledText},
        {.name = "disabled, sunken", .state = sunken, .fill = DisabledHighlight,
         .ink = DisabledText},
        {.name = "disabled, checked", .state = {}, .checkType = Option::Exclusive, .checked = true,
         .ink = DisabledText},
        {.name = "no text", .text = {}, .texts = {}},
    };
}

// A separator's line ends one pixel right of the rectangle, and a pen wider than a pixel has square
// ends.
QList<Drawn> separators()
{
    const QRect flat(20, 10, 100, 5);
    const QRect line(20, 12, 101, 1);
    return {
        {.name = "separator", .rect = flat, .isSeparator = true, .texts = {}, .line = line},
        {.name = "separator of even height", .rect = QRect(20, 10, 100, 6), .isSeparator = true,
         .texts = {}, .line = QRect(20, 13, 101, 1)},
        {.name = "separator of a wide pen", .scale = 3.0, .rect = QRect(20, 10, 100, 15),
         .isSeparator = true, .texts = {}, .line = QRect(19, 16, 103, 3)},
        {.name = "selected separator", .rect = flat,
         .state = QStyle::State_Enabled | QStyle::State_Selected, .isSeparator = true, .fill = Blue,
         .ink = White, .texts = {}, .line = line},
        {.name = "disabled separator", .rect = flat, .state = {}, .isSeparator = true,
         .ink = DisabledText, .texts = {}, .line = line},
    };
}

QList<Drawn> ordinaryItems()
{
    const QString hill = QStringLiteral("Hill");
    const QString both = QStringLiteral("Hill\tK\t2");
    const QString shortcut = QStringLiteral("K\t2");
    const QFont small = sizedFont("M+ 1c", 11);
    const QFont own = sizedFont("M+ 1c", 18);
    const QRect plain = cornersRect(30, 11, 209, 48);
    // 11 of 22 pixels: half of 41 is 20.5, which rounds to 21.
    const QList<Text> halved = {{cornersRect(30, 11, 178, 48), hill},
                                {cornersRect(189, 11, 209, 48), shortcut}};
    return {
        {.name = "at 1.5", .scale = 1.5, .font = sizedFont("M+ 1c", 17),
         .texts = {{cornersRect(35, 12, 204, 47), hill}}},
        {.name = "at 2", .scale = 2.0, .font = sizedFont("M+ 1c", 22),
         .texts = {{cornersRect(40, 12, 199, 47), hill}}},
        {.name = "at 0.5", .scale = 0.5, .font = sizedFont("M+ 1c", 6),
         .texts = {{cornersRect(25, 11, 214, 48), hill}}},
        {.name = "the editor's font stays", .menuFont = own, .font = own, .texts = {{plain, hill}}},
        {.name = "mirrored", .rect = cornersRect(20, 10, 239, 49), .direction = Qt::RightToLeft,
         .texts = {{cornersRect(30, 11, 229, 48), hill}}},
        {.name = "reserved width without a shortcut", .reserved = 170},
        {.name = "shortcut, other font", .menuFont = sizedFont("DejaVu Sans", 22), .text = both,
         .reserved = 41, .texts = halved},
        {.name = "shortcut, other font in points",
         .menuFont = QFont(QStringLiteral("DejaVu Sans"), 22), .text = both, .reserved = 41,
         .texts = halved},
        {.name = "shortcut, other font, zoomed", .scale = 1.5,
         .menuFont = sizedFont("DejaVu Sans", 11), .text = both, .reserved = 40,
         .font = sizedFont("M+ 1c", 17),
         .texts = {{cornersRect(35, 12, 129, 47), hill},
                   {cornersRect(145, 12, 204, 47), shortcut}}},
        {.name = "shortcut, the editor's font", .menuFont = own, .text = both, .reserved = 41,
         .font = own,
         .texts = {{cornersRect(30, 11, 158, 48), hill},
                   {cornersRect(169, 11, 209, 48), shortcut}}},
        {.name = "shortcut, mirrored", .menuFont = small, .text = both,
         .direction = Qt::RightToLeft, .reserved = 40,
         .texts = {{cornersRect(80, 11, 209, 48), hill}, {cornersRect(30, 11, 69, 48), shortcut}}},
    };
}

QList<Drawn> pullDownItems()
{
    const QString text = QStringLiteral("7 Low shelf");
    const QString label = QStringLiteral("Low shelf");
    const Text index = {cornersRect(24, 11, 35, 48), QStringLiteral("7"), IndexFlags};
    const Text whole = {cornersRect(24, 11, 215, 48), text, LabelFlags};
    const QString ampersand = QStringLiteral("R&B  one");
    return {
        {.name = "index", .column = QSize(12, 6), .text = text,
         .texts = {index, {cornersRect(42, 11, 215, 48), label, LabelFlags}},
         .line = QRect(39, 10, 1, 41)},
        {.name = "index, odd margin", .column = QSize(12, 7), .text = text,
         .texts = {index, {cornersRect(43, 11, 215, 48), label, LabelFlags}},
         .line = QRect(39, 10, 1, 41)},
        {.name = "index without margin has no line", .column = QSize(12, 0), .text = text,
         .texts = {index, {cornersRect(36, 11, 215, 48), label, LabelFlags}}},
        {.name = "no index", .column = QSize(0, 6), .text = text, .texts = {whole}},
        {.name = "negative index", .column = QSize(-5, 6), .text = text, .texts = {whole}},
        {.name = "texts as they stand", .column = QSize(0, 0), .text = ampersand,
         .texts = {{cornersRect(24, 11, 215, 48), ampersand, LabelFlags}}},
        {.name = "pull-down at 2", .scale = 2.0, .column = QSize(0, 0), .text = label,
         .texts = {{cornersRect(28, 12, 211, 47), label, LabelFlags}}},
    };
}

// clang-format on

using Drawing = std::function<void(const QStyle&, QPainter&)>;

/// An item and its size: that of some texts side by side, and margins, or a whole size.
struct Sized
{
    const char* name;
    double scale = 1.0;
    std::optional<QSize> column = {};
    int buttonWidth = 10;
    QFont menuFont = sizedFont("DejaVu Sans", 30);
    QString text = QStringLiteral("Low shelf");
    bool isSeparator = false;
    // What is measured, and in which font.
    QStringList texts = {QStringLiteral("Low shelf")};
    int fontSize = 11;
    QSize margins = {};
    int width = 0; ///< instead of the measured one, unless 0
    int height = 0;
};

// clang-format off
QList<Sized> sizedItems()
{
    const QString both = QStringLiteral("Low shelf\tCtrl+L");
    const QStringList parts = {QStringLiteral("Low shelf"), QStringLiteral("Ctrl+L")};
    const QString numbered = QStringLiteral("12 Low shelf");
    const QSize column(12, 6);
    return {
        {.name = "1", .margins = QSize(20, 2)},
        {.name = "1.5", .scale = 1.5, .fontSize = 17, .margins = QSize(30, 4)},
        {.name = "2", .scale = 2.0, .fontSize = 22, .margins = QSize(40, 4)},
        {.name = "the editor's font", .scale = 2.0, .menuFont = sizedFont("M+ 1c", 18),
         .fontSize = 18, .margins = QSize(40, 4)},
        {.name = "at least the margin's height", .scale = 3.0, .menuFont = sizedFont("M+ 1c", 4),
         .fontSize = 4, .margins = QSize(60, 6), .height = 30},
        {.name = "shortcut, 1", .text = both, .texts = parts, .margins = QSize(30, 2)},
        {.name = "shortcut, 1.5", .scale = 1.5, .text = both, .texts = parts, .fontSize = 17,
         .margins = QSize(45, 4)},
        {.name = "shortcut, 2", .scale = 2.0, .text = both, .texts = parts, .fontSize = 22,
         .margins = QSize(60, 4)},
        {.name = "shortcut, at least the margin's height", .scale = 3.0,
         .menuFont = sizedFont("M+ 1c", 4), .text = both, .texts = parts, .fontSize = 4,
         .margins = QSize(90, 6), .height = 30},
        {.name = "separator", .isSeparator = true, .width = 500, .height = 5},
        {.name = "separator, 1.5: 7.5", .scale = 1.5, .isSeparator = true, .width = 500,
         .height = 8},
        {.name = "separator, 2", .scale = 2.0, .isSeparator = true, .width = 500, .height = 10},
        {.name = "separator, 0.25: 1.25", .scale = 0.25, .isSeparator = true, .width = 500,
         .height = 1},
        {.name = "no index", .column = QSize(0, 6), .text = numbered, .texts = {numbered},
         .margins = QSize(8, 2)},
        {.name = "no index, 1.5", .scale = 1.5, .column = QSize(-1, 6), .text = numbered,
         .texts = {numbered}, .margins = QSize(12, 4)},
        {.name = "index", .column = column, .text = numbered, .margins = QSize(12 + 6 + 8, 2)},
        {.name = "index, no margin", .column = QSize(12, 0), .text = numbered,
         .margins = QSize(12 + 8, 2)},
        // 12 * 1.25 is 15, 6 * 1.25 is 7.5, which rounds to 8.
        {.name = "index, 1.25", .scale = 1.25, .column = column, .text = numbered,
         .margins = QSize(15 + 8 + 10, 2)},
        {.name = "index, 2", .scale = 2.0, .column = column, .text = numbered,
         .margins = QSize(24 + 12 + 16, 4)},
        {.name = "never narrower than the button", .scale = 1.5, .column = column,
         .buttonWidth = 300, .margins = QSize(0, 4), .width = 296},
        {.name = "nor without index", .scale = 1.5, .column = QSize(0, 6), .buttonWidth = 300,
         .margins = QSize(0, 4), .width = 296},
    };
}
// clang-format on

} // namespace

class tst_EffectStyle : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void ownsItsBaseStyle();
    void panelFillsTheWidget();
    void frame_data();
    void frame();
    void allElseIsTheBaseStyles_data();
    void allElseIsTheBaseStyles();
    void itemNeedsItsArguments();
    void items_data();
    void items();
    void itemLeavesThePainterAsItWas();
    void textIsDrawnWithoutTheAntialiasingHint();
    void mnemonicIsUnderlined();
    void pullDownIndexColumnIsZoomed_data();
    void pullDownIndexColumnIsZoomed();
    void pullDownItemIsMirrored();
    void pullDownItemColours();
    void pullDownMenuWithoutAButtonIsOrdinary();
    void sizes_data();
    void sizes();
    void itemSizeIgnoresAmpersands();
    void otherSizesAreTheBaseStyles();
    void pixelMetrics();
    void styleHints();
    void realPullDown_data();
    void realPullDown();
    void realMenu_data();
    void realMenu();
    void menusSurviveExtremeScales();
    void textsAreThoseOfTheBaseStyle();
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
    const Fixture fixture(1.0);
    fixture.menu.resize(30, 20);
    QImage expected = canvas(60, 50);
    QPainter(&expected).fillRect(0, 0, 30, 20, Background);
    QCOMPARE(drawnPrimitive(fixture, QStyle::PE_PanelMenu, QRect(3, 4, 5, 6)), expected);
}

void tst_EffectStyle::frame_data()
{
    addColumns<double, int, int>("scale", "panelWidth", "thickness");
    QTest::newRow("0.4") << 0.4 << 0 << 0;
    QTest::newRow("0.5") << 0.5 << 1 << 1;
    QTest::newRow("1") << 1.0 << 1 << 1;
    QTest::newRow("1.4") << 1.4 << 1 << 1;
    QTest::newRow("1.5") << 1.5 << 2 << 2;
    QTest::newRow("2") << 2.0 << 2 << 2;
    QTest::newRow("3") << 3.0 << 3 << 3;
}

// The strips start at the origin, wherever the option's rectangle is.
void tst_EffectStyle::frame()
{
    QFETCH(double, scale);
    QFETCH(int, thickness);
    const Fixture fixture(scale);
    QTEST(fixture.style.pixelMetric(QStyle::PM_MenuPanelWidth, nullptr, &fixture.menu),
          "panelWidth");
    const QRect inside(thickness, thickness, 40 - 2 * thickness, 30 - 2 * thickness);
    QImage expected = canvas(60, 50);
    QPainter(&expected).fillRect(0, 0, 40, 30, White);
    QPainter(&expected).fillRect(inside, Untouched);
    QCOMPARE(drawnPrimitive(fixture, QStyle::PE_FrameMenu, QRect(5, 7, 40, 30)), expected);
}

void tst_EffectStyle::allElseIsTheBaseStyles_data()
{
    QTest::addColumn<Drawing>("drawing");
    QTest::newRow("panel without a widget") << Drawing([](const QStyle& style, QPainter& painter) {
        QStyleOption option;
        option.rect = QRect(0, 0, 20, 10);
        style.drawPrimitive(QStyle::PE_PanelMenu, &option, &painter, nullptr);
    });
    QTest::newRow("other primitive") << Drawing([](const QStyle& style, QPainter& painter) {
        QStyleOption option;
        option.rect = QRect(0, 0, 20, 20);
        option.state = QStyle::State_Enabled | QStyle::State_On;
        style.drawPrimitive(QStyle::PE_IndicatorArrowDown, &option, &painter, nullptr);
    });
    QTest::newRow("other control") << Drawing([](const QStyle& style, QPainter& painter) {
        QStyleOptionButton option;
        option.rect = QRect(0, 0, 40, 20);
        option.state = QStyle::State_Enabled;
        style.drawControl(QStyle::CE_PushButton, &option, &painter, nullptr);
    });
}

void tst_EffectStyle::allElseIsTheBaseStyles()
{
    QFETCH(Drawing, drawing);
    EffectStyle style(QStyleFactory::create(QStringLiteral("Fusion")));
    const auto drawnBy = [&](const QStyle& which) {
        QImage image = canvas(40, 20);
        QPainter painter(&image);
        drawing(which, painter);
        return image;
    };
    QCOMPARE(drawnBy(style), drawnBy(*style.baseStyle()));
    QVERIFY(drawnBy(style) != canvas(40, 20));
}

void tst_EffectStyle::itemNeedsItsArguments()
{
    const Fixture fixture(1.0);
    const QStyleOptionMenuItem option = itemOption(QStringLiteral("Text"), QRect(0, 0, 40, 20));
    QStyleOptionMenuItem oldVersion = option;
    oldVersion.version = 0;
    QStyleOption wrongType;
    wrongType.rect = option.rect;
    QImage image = canvas(40, 20);
    QPainter painter(&image);
    const auto draw = [&](QStyle::ControlElement element, const QStyleOption* what, QPainter* with,
                          const QWidget* menu) {
        fixture.style.drawControl(element, what, with, menu);
        return image != canvas(40, 20);
    };
    QVERIFY(!draw(QStyle::CE_MenuEmptyArea, &option, &painter, &fixture.menu));
    QVERIFY(!draw(QStyle::CE_MenuItem, &option, &painter, nullptr));
    QVERIFY(!draw(QStyle::CE_MenuItem, nullptr, &painter, &fixture.menu));
    QVERIFY(!draw(QStyle::CE_MenuItem, &wrongType, &painter, &fixture.menu));
    QVERIFY(!draw(QStyle::CE_MenuItem, &oldVersion, &painter, &fixture.menu));
    QVERIFY(!draw(QStyle::CE_MenuItem, &option, nullptr, &fixture.menu));
    QVERIFY(draw(QStyle::CE_MenuItem, &option, &painter, &fixture.menu));
}

void tst_EffectStyle::items_data()
{
    QTest::addColumn<Drawn>("item");
    for (const Drawn& item : colouredItems() + separators() + ordinaryItems() + pullDownItems())
        QTest::newRow(item.name) << item;
}

void tst_EffectStyle::items()
{
    QFETCH(Drawn, item);
    Fixture fixture(item.scale, item.column);
    fixture.menu.setFont(item.menuFont);
    const QFont& font = item.column ? item.menuFont : item.font;
    QImage expected = expectedItem(item.rect, item.fill, item.ink, font, item.texts);
    QCOMPARE(expected == expectedItem(item.rect, item.fill, item.ink, font, {}),
             item.texts.isEmpty());
    QPainter(&expected).fillRect(item.line, item.ink);
    QCOMPARE(drawnItem(fixture, optionOf(item)), expected);
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

void tst_EffectStyle::mnemonicIsUnderlined()
{
    const Fixture fixture(1.0);
    const QRect rect(20, 10, 100, 24);
    const QImage plain = drawnItem(fixture, itemOption(QStringLiteral("Hill"), rect));
    const QImage marked = drawnItem(fixture, itemOption(QStringLiteral("&Hill"), rect));
    const QRect ink = boundsOf(plain, EnabledText);
    QVERIFY(boundsOf(marked, EnabledText).bottom() > ink.bottom());
    QCOMPARE(marked.copy(ink), plain.copy(ink));
}

void tst_EffectStyle::pullDownIndexColumnIsZoomed_data()
{
    addColumns<double, QRect, QRect>("scale", "indexRect", "labelRect");
    QTest::newRow("1.5") << 1.5 << cornersRect(26, 12, 43, 47) << cornersRect(53, 12, 213, 47);
    QTest::newRow("2") << 2.0 << cornersRect(28, 12, 51, 47) << cornersRect(64, 12, 211, 47);
}

// Of a line wider than a pixel only the middle is fixed.
void tst_EffectStyle::pullDownIndexColumnIsZoomed()
{
    QFETCH(double, scale);
    QFETCH(QRect, indexRect);
    QFETCH(QRect, labelRect);
    const Fixture fixture(scale, QSize(12, 6));
    const QStyleOptionMenuItem option =
        itemOption(QStringLiteral("7 Low shelf"), cornersRect(20, 10, 219, 49));
    QImage drawn = drawnItem(fixture, option);
    QImage expected = expectedItem(option.rect, Background, EnabledText, fixture.menu.font(),
                                   {{indexRect, QStringLiteral("7"), IndexFlags},
                                    {labelRect, QStringLiteral("Low shelf"), LabelFlags}});
    const QRect gap(indexRect.right() + 1, 0, labelRect.left() - indexRect.right() - 1, 60);
    const QRect found = boundsOf(drawn.copy(gap), EnabledText);
    QVERIFY(found.isValid() && found.width() <= qRound(scale) + 1);
    QVERIFY(qAbs(found.center().x() - gap.width() / 2) <= 1);
    for (QImage* image : {&drawn, &expected})
        QPainter(image).fillRect(gap, Untouched);
    QCOMPARE(drawn, expected);
}

// The index lies in the 12 pixels left of the margin at the right, the line left of it.
void tst_EffectStyle::pullDownItemIsMirrored()
{
    const Fixture fixture(1.0, QSize(12, 6));
    QStyleOptionMenuItem option =
        itemOption(QStringLiteral("7 Hill"), cornersRect(20, 10, 219, 49));
    const QRect indexRect = cornersRect(204, 11, 215, 48);
    QVERIFY(!boundsOf(drawnItem(fixture, option).copy(indexRect), EnabledText).isValid());
    option.direction = Qt::RightToLeft;
    const QImage drawn = drawnItem(fixture, option);
    QVERIFY(boundsOf(drawn.copy(indexRect), EnabledText).isValid());
    QVERIFY(!boundsOf(drawn.copy(cornersRect(216, 10, 219, 49)), EnabledText).isValid());
    QCOMPARE(boundsOf(drawn.copy(cornersRect(198, 10, 203, 50)), EnabledText), QRect(2, 0, 1, 41));
}

void tst_EffectStyle::pullDownItemColours()
{
    const Fixture fixture(1.0, QSize(12, 6));
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

void tst_EffectStyle::sizes_data()
{
    QTest::addColumn<Sized>("item");
    for (const Sized& item : sizedItems())
        QTest::newRow(item.name) << item;
}

void tst_EffectStyle::sizes()
{
    QFETCH(Sized, item);
    Fixture fixture(item.scale, item.column, item.buttonWidth);
    fixture.menu.setFont(item.menuFont);
    QStyleOptionMenuItem option = itemOption(item.text, QRect());
    option.reservedShortcutWidth = 100;
    const QFontMetrics metrics(sizedFont("M+ 1c", item.fontSize));
    option.fontMetrics = metrics;
    if (item.isSeparator)
        option.menuItemType = QStyleOptionMenuItem::Separator;
    QSize expected(0, 0);
    for (const QString& text : item.texts) {
        const QSize size = metrics.size(Qt::TextSingleLine, text);
        expected =
            QSize(expected.width() + size.width(), std::max(expected.height(), size.height()));
    }
    expected += item.margins;
    if (item.width > 0)
        expected.setWidth(item.width);
    if (item.height > 0)
        expected.setHeight(item.height);
    QCOMPARE(fixture.sizeOf(option), expected);
}

void tst_EffectStyle::itemSizeIgnoresAmpersands()
{
    const Fixture fixture(1.0);
    const auto width = [&](const QString& text) {
        return fixture.sizeOf(itemOption(text, QRect())).width();
    };
    QCOMPARE(width(QStringLiteral("&Flat\t&F")), width(QStringLiteral("Flat\tF")));
    QVERIFY(width(QStringLiteral("Fl&&at")) > width(QStringLiteral("Flat")));
}

void tst_EffectStyle::otherSizesAreTheBaseStyles()
{
    const EffectStyle style(QStyleFactory::create(QStringLiteral("Fusion")));
    const QMenu menu;
    const QStyleOptionMenuItem item = itemOption(QStringLiteral("Text"), QRect());
    const QStyleOption wrongType;
    const auto isTheBaseStyles = [&](QStyle::ContentsType type, const QStyleOption& option,
                                     const QWidget* widget) {
        const QSize contents(50, 20);
        return style.sizeFromContents(type, &option, contents, widget) ==
               style.baseStyle()->sizeFromContents(type, &option, contents, widget);
    };
    QVERIFY(isTheBaseStyles(QStyle::CT_MenuItem, item, nullptr));
    QVERIFY(isTheBaseStyles(QStyle::CT_MenuItem, wrongType, &menu));
    QVERIFY(isTheBaseStyles(QStyle::CT_MenuBarItem, item, &menu));
}

void tst_EffectStyle::pixelMetrics()
{
    const Fixture fixture(1.0);
    for (const auto metric : {QStyle::PM_MenuScrollerHeight, QStyle::PM_MenuHMargin,
                              QStyle::PM_MenuVMargin, QStyle::PM_MenuTearoffHeight})
        QCOMPARE(fixture.style.pixelMetric(metric, nullptr, &fixture.menu), 0);
    QCOMPARE(fixture.style.pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &fixture.menu),
             fixture.style.baseStyle()->pixelMetric(QStyle::PM_ScrollBarExtent));
    const QMenu outside;
    QCOMPARE(fixture.style.pixelMetric(QStyle::PM_MenuPanelWidth, nullptr, &outside), 1);
    QCOMPARE(fixture.style.pixelMetric(QStyle::PM_MenuPanelWidth), 1);
}

void tst_EffectStyle::styleHints()
{
    const EffectStyle style(QStyleFactory::create(QStringLiteral("Fusion")));
    QCOMPARE(int(QStyle::SH_Menu_Mask), 80);
    QCOMPARE(style.styleHint(QStyle::SH_Menu_Mask), 0);
    QCOMPARE(style.styleHint(QStyle::SH_Menu_MouseTracking), 1);
}

void tst_EffectStyle::realPullDown_data()
{
    QTest::addColumn<int>("scale");
    QTest::newRow("1") << 1;
    QTest::newRow("2") << 2;
}

void tst_EffectStyle::realPullDown()
{
    QFETCH(int, scale);
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
        QCOMPARE(menu->width(), 120 * scale);
        QCOMPARE(menu->pos(), editor.mapToGlobal(QPoint(10, 30) * scale));
        const QImage image = menu->grab().toImage();
        const QRect current = menu->actionGeometry(menu->actions().at(1));
        QCOMPARE(image.pixelColor(scale - 1, scale - 1), White);
        QCOMPARE(image.pixelColor(scale, scale), Background);
        QCOMPARE(image.pixelColor(current.topLeft()), Blue);
        menu->close();
    });
    button.openPullDown();
    QVERIFY(isSeen);
}

void tst_EffectStyle::realMenu_data() { realPullDown_data(); }

void tst_EffectStyle::realMenu()
{
    QFETCH(int, scale);
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
    QCOMPARE(lowRect.topLeft(), QPoint(scale, scale));
    QCOMPARE(menu.actionGeometry(separator).height(), 5 * scale);
    QCOMPARE(menu.height(), menu.actionGeometry(disabled).bottom() + 1 + scale);
    QCOMPARE(image.pixelColor(scale - 1, scale - 1), White);
    QCOMPARE(image.pixelColor(menu.width() - scale, menu.height() - scale), White);
    QCOMPARE(image.pixelColor(lowRect.topLeft()), Blue);
    QVERIFY(boundsOf(image.copy(lowRect), White).isValid());
    QCOMPARE(image.pixelColor(menu.actionGeometry(checked).topLeft()), Background);
    QVERIFY(boundsOf(image.copy(menu.actionGeometry(checked)), White).isValid());
    QVERIFY(boundsOf(image.copy(menu.actionGeometry(disabled)), DisabledText).isValid());
    QVERIFY(boundsOf(image.copy(menu.actionGeometry(separator)), EnabledText).isValid());
}

void tst_EffectStyle::menusSurviveExtremeScales()
{
    for (const double scale : {0.0, 0.01, -2.0}) {
        const Fixture fixture(scale);
        fixture.menu.setFont(sizedFont("DejaVu Sans", 11));
        for (const char* text : {"Flat", "Flat\tF"}) {
            QStyleOptionMenuItem option = itemOption(QLatin1String(text), QRect(20, 10, 100, 24));
            option.reservedShortcutWidth = 10;
            QCOMPARE(drawnItem(fixture, option).pixelColor(119, 33), Background);
            fixture.sizeOf(option);
        }
    }
}

void tst_EffectStyle::textsAreThoseOfTheBaseStyle()
{
    const EffectStyle style(QStyleFactory::create(QStringLiteral("Fusion")));
    for (const bool isEnabled : {true, false, true}) {
        for (const auto role : {QPalette::NoRole, QPalette::WindowText, QPalette::BrightText,
                                QPalette::Link, QPalette::WindowText}) {
            const QImage wanted = drawnText(*style.baseStyle(), isEnabled, role);
            for (int pass = 0; pass < 2; ++pass)
                QCOMPARE(drawnText(style, isEnabled, role), wanted);
        }
    }
}

ZOLTA_TEST_MAIN(tst_EffectStyle)

#include "tst_EffectStyle.moc"
