// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/KnobController.h"

#include "tests/controls/ControlTesting.h"
#include "tests/support/Columns.h"
#include "tests/support/ImageDifference.h"
#include "tests/support/TestObject.h"
#include "tests/widgets/SvgFiles.h"

#include <QApplication>
#include <QPainter>
#include <QSvgRenderer>

#include <cmath>

using namespace ControlTesting;
using CommonController_MemAPI::KnobController;
using Knob = Ledgered<KnobController>;

namespace {

// On the rim of a knob of 100 by 100.
constexpr QPointF At12(50, 10);
constexpr QPointF At3(90, 50);
constexpr QPointF At6(50, 90);
constexpr QPointF At9(10, 50);

using Type = KnobController::OperationType;

/// A knob of 100 by 100 with values from 0.
struct Fixture
{
    explicit Fixture(Type type = KnobController::Circular, int maximum = 300, int value = 0)
    {
        knob.resize(100, 100);
        knob.setMaximumValue(maximum);
        knob.setOperationType(type);
        knob.setValue(value);
    }
    Ledger ledger;
    Knob knob{ledger};
};

constexpr char Dial[] = "<circle cx=\"20\" cy=\"20\" r=\"17.5\" fill=\"#8a9199\" stroke=\"#fff\"/>"
                        "<path d=\"M20 4 L20 15\" stroke=\"#0394D0\" stroke-width=\"3\"/>";
constexpr char Shade[] = "<circle cx=\"15\" cy=\"15\" r=\"12\" fill=\"#ff0000\"/>";

/// The point at \a clock degrees clockwise from 12 o'clock.
QPointF onClock(QPointF centre, double clock, double radius)
{
    const double angle = clock * std::acos(-1.0) / 180.0;
    return centre + QPointF(std::sin(angle), -std::cos(angle)) * radius;
}

/// What \a draw makes on black.
template <class Draw> QImage reference(QSize size, double ratio, Draw draw)
{
    QImage image(QSize(static_cast<int>(std::ceil(size.width() * ratio)),
                       static_cast<int>(std::ceil(size.height() * ratio))),
                 QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::black);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    draw(painter);
    return image;
}

QPen indexPen(QColor colour, double width)
{
    return {colour, width, Qt::SolidLine, Qt::FlatCap, Qt::BevelJoin};
}

} // namespace

class tst_KnobController : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void insideAndOutsideMoveEachOther();

    void pressPointsAtTheValue_data();
    void pressPointsAtTheValue();
    void drags_data();
    void drags();
    void doubleClickResetsWithControlOnly();

    void fineWheel();

    void keys_data();
    void keys();
    void keyReleases();

    void paintsTheMinimumAtSevenAndTheMaximumAtFive();
    void paintsTheIndexLineByTheColourGroup();
    void paintsThePicturesAtEveryRatio_data();
    void paintsThePicturesAtEveryRatio();
    void paintsADisabledKnobTranslucent_data();
    void paintsADisabledKnobTranslucent();
    void paintsABlurredShadow();

private:
    SvgFiles m_files;
    QString m_dial;
    QString m_shade;
    QString m_plain;
};

void tst_KnobController::initTestCase()
{
    m_dial = m_files.picture("dial.svg", 40, 40, Dial);
    m_shade = m_files.picture("shade.svg", 30, 30, Shade);
    m_plain = m_files.plain("plain.svg", 60, 60, "#204060");
}

void tst_KnobController::insideAndOutsideMoveEachOther()
{
    KnobController knob;
    knob.setInside(20.0);
    QCOMPARE(knob.inside(), 20.0);
    QCOMPARE(knob.outside(), 20.0);
    knob.setOutside(8.0);
    QCOMPARE(knob.inside(), 8.0);
    QCOMPARE(knob.outside(), 8.0);
    knob.setOutside(-3.0);
    QCOMPARE(knob.inside(), 0.0);
    QCOMPARE(knob.outside(), 0.0);
}

void tst_KnobController::pressPointsAtTheValue_data()
{
    addColumns<QPointF, double, double, int, int>("point", "start", "span", "maximum", "value");
    QTest::newRow("9 o'clock") << At9 << 210.0 << 300.0 << 300 << 60;
    QTest::newRow("12 o'clock") << At12 << 210.0 << 300.0 << 300 << 150;
    QTest::newRow("3 o'clock") << At3 << 210.0 << 300.0 << 300 << 240;
    QTest::newRow("rounded") << QPointF(50.4, 9.6) << 210.0 << 300.0 << 300 << 150;
    QTest::newRow("far outside") << QPointF(50, -5000) << 210.0 << 300.0 << 300 << 150;
    QTest::newRow("dead zone, between 5 and 6") << QPointF(57, 90) << 210.0 << 300.0 << 100 << 100;
    QTest::newRow("dead zone, between 6 and 7") << QPointF(43, 90) << 210.0 << 300.0 << 100 << 0;
    QTest::newRow("upper half") << At12 << 270.0 << 180.0 << 180 << 90;
    QTest::newRow("below the upper half") << At9 + QPointF(0, 1) << 270.0 << 180.0 << 180 << 0;
    QTest::newRow("whole circle") << At9 << 0.0 << 360.0 << 180 << 135;
}

void tst_KnobController::pressPointsAtTheValue()
{
    QFETCH(QPointF, point);
    QFETCH(double, start);
    QFETCH(double, span);
    QFETCH(int, maximum);
    Fixture f(KnobController::Circular, maximum, maximum / 3);
    f.knob.setStartAngle(start);
    f.knob.setSpanAngle(span);
    press(f.knob, point);
    QTEST(f.knob.value(), "value");
}

void tst_KnobController::drags_data()
{
    constexpr auto circular = KnobController::Circular;
    constexpr auto relative = KnobController::RelativeCircular;
    constexpr auto linear = KnobController::Linear;
    constexpr auto shift = Qt::ShiftModifier;
    constexpr auto alt = Qt::AltModifier;
    const auto control = Qt::ControlModifier | alt;
    addColumns<Type, int, Moves>("type", "start", "moves");
    QTest::newRow("turns") << circular << 0
                           << Moves{{At12, 150}, {At3, 240}, {At6, 300}, {At3, 240}, {At12, 150}};
    QTest::newRow("turns back") << circular << 0 << Moves{{At12, 150}, {At9, 60}};
    QTest::newRow("crosses the left side")
        << relative << 150 << Moves{{{10, 45}, 150}, {{10, 55}, 136}, {{10, 45}, 150}};
    QTest::newRow("does not jump") << relative << 30 << Moves{{At3, 30}, {At6, 120}};
    QTest::newRow("fine is a quarter")
        << circular << 100 << Moves{{At12, 100, shift}, {At3, 122, shift}};
    QTest::newRow("fine on the way, relative")
        << relative << 0 << Moves{{At9, 0}, {At12, 90}, {At3, 112, shift}, {At6, 202}};
    // Turning on from where the pointer was last, after pointing at where it is: on purpose.
    QTest::newRow("fine no longer, circular")
        << circular << 0 << Moves{{At9, 0, shift}, {At12, 240}};
    QTest::newRow("Control among others does not point")
        << circular << 7 << Moves{{At12, 7, control}};
    QTest::newRow("Shift among others points") << circular << 7 << Moves{{At12, 150, shift | alt}};
    QTest::newRow("right") << linear << 50 << Moves{{At12, 50}, {{80, 10}, 170}};
    QTest::newRow("up") << linear << 50 << Moves{{At12, 50}, {{50, -20}, 170}};
    QTest::newRow("fine takes single steps")
        << linear << 50 << Moves{{At12, 50, shift}, {{80, 10}, 57, shift}};
    QTest::newRow("fine on the way, linear")
        << linear << 50 << Moves{{At12, 50}, {{55, 10}, 70}, {{75, 10}, 75, shift}, {{80, 10}, 95}};
}

void tst_KnobController::drags()
{
    QFETCH(Type, type);
    QFETCH(int, start);
    QFETCH(Moves, moves);
    Fixture f(type, 300, start);
    f.knob.setValueChangeStep(4);
    dragThrough(f.knob, moves);
    QVERIFY(f.ledger.has(1));
}

void tst_KnobController::doubleClickResetsWithControlOnly()
{
    Fixture f;
    f.knob.setDefaultValue(70);
    const auto doubleClicked = [&f](Qt::KeyboardModifiers modifiers) {
        sendMouse(f.knob, QEvent::MouseButtonDblClick, At12, Qt::LeftButton, Qt::LeftButton,
                  modifiers);
        moveTo(f.knob, At3);
        return f.knob.value();
    };
    QCOMPARE(doubleClicked({}), 0);
    QVERIFY(f.ledger.has(0));
    QCOMPARE(doubleClicked(Qt::ControlModifier | Qt::ShiftModifier), 70);
    QVERIFY(f.ledger.has(1));
}

void tst_KnobController::fineWheel()
{
    KnobController knob;
    knob.setValue(50);
    for (int i = 0; i < 3; ++i)
        wheel(knob, {0, 120}, Qt::ShiftModifier);
    QCOMPARE(knob.value(), 51);
    knob.setValueChangeStep(2);
    for (int i = 0; i < 3; ++i)
        wheel(knob, {0, 120}, Qt::ShiftModifier);
    QCOMPARE(knob.value(), 54);
    wheel(knob, {0, 120});
    QCOMPARE(knob.value(), 56);
}

void tst_KnobController::keys_data()
{
    addColumns<int, int>("key", "value");
    QTest::newRow("Home") << int(Qt::Key_Home) << -200;
    QTest::newRow("End") << int(Qt::Key_End) << 200;
    QTest::newRow("Left") << int(Qt::Key_Left) << 49;
    QTest::newRow("Down") << int(Qt::Key_Down) << 49;
    QTest::newRow("Right") << int(Qt::Key_Right) << 51;
    QTest::newRow("Up") << int(Qt::Key_Up) << 51;
    QTest::newRow("Page Up") << int(Qt::Key_PageUp) << 80;
    QTest::newRow("Page Down") << int(Qt::Key_PageDown) << 20;
}

void tst_KnobController::keys()
{
    QFETCH(int, key);
    TestHost host;
    host.addParameter(Parameter, -200, 200, 50);
    Ledger ledger;
    Knob knob(ledger);
    bind(knob, host);
    knob.setValueChangeStep(3);
    QVERIFY(ControlTesting::key(knob, Qt::Key(key)));
    QTEST(host.value(Parameter, 0), "value");
    QVERIFY(ledger.has(1));
}

void tst_KnobController::keyReleases()
{
    Window window;
    KnobController knob(&window);
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Up, Qt::Key_Home, Qt::Key_Right, Qt::Key_Down,
                              Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_End, Qt::Key_A})
        ControlTesting::key(knob, key, {}, QEvent::KeyRelease);
    knob.setEnabled(false);
    ControlTesting::key(knob, Qt::Key_Up, {}, QEvent::KeyRelease);
    QCOMPARE(window.keys, (QList<int>{Qt::Key_Home, Qt::Key_End, Qt::Key_A, Qt::Key_Up}));
}

void tst_KnobController::paintsTheMinimumAtSevenAndTheMaximumAtFive()
{
    KnobController knob;
    knob.resize(100, 80);
    QPalette palette;
    palette.setColor(QPalette::Inactive, QPalette::WindowText, Qt::white);
    knob.setPalette(palette);
    knob.setScale(2.0);
    for (const auto& [value, clock] : {std::pair(0, 210.0), {50, 0.0}, {75, 75.0}, {100, 150.0}}) {
        knob.setValue(value);
        const QImage expected = reference(knob.size(), 2.0, [clock = clock](QPainter& painter) {
            painter.setPen(indexPen(Qt::white, 4.0));
            painter.drawLine(QLineF(onClock({50, 40}, clock, 8.0), onClock({50, 40}, clock, 28.0)));
        });
        QVERIFY(imageDifference(painted(knob, 2.0), expected) <= 8);
    }
}

void tst_KnobController::paintsTheIndexLineByTheColourGroup()
{
    QWidget window;
    KnobController knob(&window);
    knob.setGeometry(0, 0, 100, 100);
    QPalette palette;
    palette.setColor(QPalette::Inactive, QPalette::WindowText, Qt::red);
    palette.setColor(QPalette::Active, QPalette::WindowText, Qt::green);
    palette.setColor(QPalette::Disabled, QPalette::WindowText, Qt::blue);
    knob.setPalette(palette);
    knob.setThick(6.0);
    knob.setValue(50);
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    const QPoint onLine(50, 41);
    knob.clearFocus();
    QCOMPARE(painted(knob).pixelColor(onLine), QColor(Qt::red));
    knob.setFocus();
    QCOMPARE(painted(knob).pixelColor(onLine), QColor(Qt::green));
    knob.setEnabled(false);
    QCOMPARE(painted(knob).pixelColor(onLine), QColor(Qt::blue));
    knob.setEnabled(true);
    knob.setKnobType(KnobController::RotateKnob);
    QCOMPARE(painted(knob).pixelColor(onLine), QColor(Qt::black));
}

void tst_KnobController::paintsThePicturesAtEveryRatio_data()
{
    addColumns<double, double, int>("ratio", "scale", "turned");
    for (const double ratio : {1.0, 1.25, 1.5, 2.0}) {
        for (const double scale : {1.0, 1.5}) {
            for (const int value : {-1, 0, 25, 50})
                QTest::addRow("%g at scale %g, %d", ratio, scale, value) << ratio << scale << value;
        }
    }
}

void tst_KnobController::paintsThePicturesAtEveryRatio()
{
    QFETCH(double, ratio);
    QFETCH(double, scale);
    QFETCH(int, turned); // the value that a picture is turned by, -1 for one that is not
    KnobController knob;
    knob.resize(101, 90);
    knob.setBackgroundSvg(m_plain);
    knob.setKnobSvg(m_dial);
    knob.setKnobType(turned < 0 ? KnobController::LineIndex : KnobController::RotateKnob);
    knob.setValue(turned);
    knob.setThick(0.0);
    QPalette palette;
    palette.setColor(QPalette::WindowText, Qt::transparent);
    knob.setPalette(palette);
    knob.setScale(scale);
    const QImage expected = reference(knob.size(), ratio, [&](QPainter& painter) {
        painter.translate(50.5, 45.0);
        for (const auto& [file, side] : {std::pair(m_plain, 60.0), {m_dial, 40.0}}) {
            const double length = side * scale;
            if (file == m_dial && turned >= 0)
                painter.rotate(210.0 + 3.0 * turned);
            QSvgRenderer(file).render(&painter, QRectF(-length / 2, -length / 2, length, length));
        }
    });
    for (int i = 0; i < 2; ++i)
        QVERIFY(imageDifference(painted(knob, ratio), expected) <= 1);
}

void tst_KnobController::paintsADisabledKnobTranslucent_data()
{
    QTest::addColumn<KnobController::KnobType>("type");
    QTest::newRow("line") << KnobController::LineIndex;
    QTest::newRow("turned") << KnobController::RotateKnob;
}

void tst_KnobController::paintsADisabledKnobTranslucent()
{
    QFETCH(KnobController::KnobType, type);
    KnobController knob;
    knob.resize(60, 60);
    knob.setKnobType(type);
    // Two layers, of which the lower must not shine through.
    knob.setKnobSvg(m_files.picture("two.svg", 40, 40,
                                    "<rect width=\"40\" height=\"40\" fill=\"#ff0000\"/>"
                                    "<rect width=\"40\" height=\"40\" fill=\"#00ff00\"/>"));
    knob.setKnobDisableOpacity(0.5);
    const QPoint spot(30, 20);
    QCOMPARE(painted(knob).pixelColor(spot), QColor(0, 255, 0));
    knob.setEnabled(false);
    const QColor faded = painted(knob).pixelColor(spot);
    QCOMPARE(faded.red(), 0);
    QVERIFY(std::abs(faded.green() - 128) <= 1);
}

void tst_KnobController::paintsABlurredShadow()
{
    KnobController knob;
    knob.resize(60, 60);
    knob.setThick(0.0);
    knob.setShadowBlur(0.0);
    knob.setShadowSvg(m_shade);
    const QPoint inside(30, 30);
    const QPoint beside(30, 15);
    QCOMPARE(painted(knob).pixelColor(inside), QColor(Qt::red));
    QCOMPARE(painted(knob).pixelColor(beside), QColor(Qt::black));
    knob.setShadowBlur(6.0);
    QVERIFY(painted(knob).pixelColor(beside).red() > 20);
    QVERIFY(painted(knob).pixelColor(inside).red() > 200);
    const int narrow = painted(knob).pixelColor(30, 8).red();
    knob.setScale(2.0);
    knob.setShadowBlur(3.0);
    knob.setScale(1.0);
    QVERIFY(painted(knob).pixelColor(30, 8).red() <= narrow);
}

ZOLTA_TEST_MAIN(tst_KnobController)

#include "tst_KnobController.moc"
