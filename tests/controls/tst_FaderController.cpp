// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/FaderController.h"
#include "tests/controls/ControlTesting.h"
#include "tests/controls/MeterTesting.h"
#include "tests/support/Columns.h"
#include "tests/support/TestObject.h"
#include "tests/widgets/SvgFiles.h"

#include <QApplication>
#include <QGraphicsBlurEffect>
#include <QGraphicsPixmapItem>
#include <QGraphicsScene>
#include <QPainter>
#include <QSignalSpy>
#include <QSvgRenderer>
#include <QTimer>

#include <cmath>
#include <memory>
#include <utility>

using namespace CommonController_MemAPI;
using namespace ControlTesting;
using MeterTesting::shown;

namespace {

using Fader = Ledgered<FaderController>;
using Type = FaderController::OperationType;

/// A fader that is shown, on a parameter of 0 to 100.
struct BoundFader
{
    BoundFader(std::unique_ptr<Fader> made, int value)
        : fader(std::move(made))
    {
        host.addParameter(Parameter, 0, 100, 30);
        host.setSilently(Parameter, 0, value);
        bind(*fader, host);
        fader->show();
    }
    int value() const { return host.value(Parameter, 0); }
    /// Takes a step of the ramp now, without its timer.
    void ramp() { QVERIFY(QMetaObject::invokeMethod(fader.get(), "ramp")); }
    /// Whether the next step of the ramp comes earlier than a timer of \a delay.
    bool rampsWithin(int delay)
    {
        host.resetLedger();
        QTimer timer;
        timer.setSingleShot(true);
        timer.start(delay);
        const auto hasStepped = [this] { return host.count(TestHost::Operation::SetValue) > 0; };
        while (timer.isActive() && !hasStepped())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        return hasStepped();
    }

    TestHost host;
    std::unique_ptr<Fader> fader;
};

} // namespace

/// The fader under test is 40 by 220 with a knob of 20 by 20, so that it travels 200 pixels, two
/// for each step of its range of 0 to 100; its knob's middle lies at y = 210 - 2 value. Lying, it
/// is 220 by 40, with the middle at x = 10 + 2 value.
class tst_FaderController : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void drags_data();
    void drags();
    void pressBesideTheKnob_data();
    void pressBesideTheKnob();
    void rampGoesStepByStep();
    void rampRunsOnItsTimers();
    void rampIsFineWithShift();
    void rampFollowsThePointer();
    void rampEndsWithTheDrag();
    void doubleClickResetsOnTheKnob();
    void doubleClickAfterAJumpIsIgnored();
    void wheelAndKeys_data();
    void wheelAndKeys();
    void otherKeysGoOn();
    void noTravel_data();
    void noTravel();
    void paintsKnobAtItsPlace_data();
    void paintsKnobAtItsPlace();
    void paintsShadowUnderTheKnob();
    void paintsBackgroundInTheMiddle();
    void paintsDisabledKnobTranslucent();
    void paintsAtEveryPixelRatio_data();
    void paintsAtEveryPixelRatio();

private:
    std::unique_ptr<Fader> fader(Type type, Qt::Orientation orientation = Qt::Vertical,
                                 bool reverse = false);

    Ledger m_ledger;

    SvgFiles m_files;
    QString m_knob;
    QString m_shadow;
    QString m_track;
};

void tst_FaderController::initTestCase()
{
    m_knob = m_files.plain("knob.svg", 20, 20, "#0000ff");
    m_shadow = m_files.plain("shadow.svg", 24, 24, "#000000");
    m_track = m_files.plain("track.svg", 4, 200, "#808080");
}

std::unique_ptr<Fader> tst_FaderController::fader(Type type, Qt::Orientation orientation,
                                                  bool reverse)
{
    m_ledger = {};
    auto made = std::make_unique<Fader>(m_ledger);
    made->resize(orientation == Qt::Vertical ? QSize(40, 220) : QSize(220, 40));
    made->setOrientation(orientation);
    made->setReverse(reverse);
    made->setKnobSvg(m_knob);
    made->setOperationType(type);
    return made;
}

void tst_FaderController::drags_data()
{
    constexpr auto touch = FaderController::Touch;
    constexpr auto jump = FaderController::Jump;
    constexpr auto relative = FaderController::Relative;
    constexpr auto shift = Qt::ShiftModifier;
    addColumns<Type, Qt::Orientation, bool, int, Moves>("type", "orientation", "reverse", "start",
                                                        "moves");
    const auto row = [](const char* name, Type type, bool reverse, int start, const Moves& moves) {
        QTest::newRow(name) << type << Qt::Vertical << reverse << start << moves;
    };
    const auto lying = [](const char* name, Type type, bool reverse, int start,
                          const Moves& moves) {
        QTest::newRow(name) << type << Qt::Horizontal << reverse << start << moves;
    };
    row("Touch", touch, false, 50, {{{20, 118}, 50}, {{20, 97}, 61}, {{20, 118}, 50}});
    row("beyond the ends", touch, false, 50, {{{20, 118}, 50}, {{20, -500}, 100}, {{20, 900}, 0}});
    row("Jump", jump, false, 0, {{{20, 109}, 51}, {{20, 69}, 71}});
    row("Jump to the end", jump, false, 0, {{{20, 2}, 100}});
    row("Jump on the knob", jump, false, 50, {{{20, 101}, 50}});
    row("Relative", relative, false, 20, {{{2, 15}, 20}, {{30, -46}, 51}});
    row("Ramp on the knob", FaderController::Ramp, false, 50, {{{20, 110}, 50}});
    row("Touch, reversed", touch, true, 20, {{{20, 50}, 20}, {{20, 91}, 40}});
    row("Jump, reversed", jump, true, 0, {{{20, 161}, 76}});
    row("Ramp, reversed", FaderController::Ramp, true, 0, {{{20, 210}, 5}});
    lying("Touch, lying", touch, false, 50, {{{110, 20}, 50}, {{151, 60}, 71}});
    lying("Jump, lying", jump, false, 50, {{{61, 20}, 25}});
    lying("Jump, lying, reversed", jump, true, 50, {{{59, 20}, 76}});
    lying("Ramp, lying, reversed", FaderController::Ramp, true, 76, {{{50, 20}, 80}});
    row("fine is a quarter", relative, false, 20, {{{20, 100}, 20, shift}, {{20, 18}, 30, shift}});
    row("fine on the way", relative, false, 20,
        {{{20, 100}, 20},
         {{20, 59}, 40},
         {{20, 58}, 40, shift},
         {{20, 17}, 45, shift},
         {{20, 16}, 45},
         {{20, -25}, 66}});
}

void tst_FaderController::drags()
{
    QFETCH(Type, type);
    QFETCH(Qt::Orientation, orientation);
    QFETCH(bool, reverse);
    QFETCH(int, start);
    QFETCH(Moves, moves);
    const auto probe = fader(type, orientation, reverse);
    probe->setValue(start);
    QSignalSpy drags(probe.get(), &FaderController::drag);
    dragThrough(*probe, moves);
    QCOMPARE(drags, (QList<QVariantList>{{true}, {false}}));
    QVERIFY(m_ledger.has(1));
}

void tst_FaderController::pressBesideTheKnob_data()
{
    addColumns<Type, int, int, bool>("type", "value", "withControl", "drags");
    QTest::newRow("Touch") << FaderController::Touch << 50 << 50 << false;
    QTest::newRow("Jump") << FaderController::Jump << 95 << 30 << true;
    QTest::newRow("Ramp") << FaderController::Ramp << 55 << 55 << true;
    QTest::newRow("Relative") << FaderController::Relative << 50 << 50 << true;
}

void tst_FaderController::pressBesideTheKnob()
{
    QFETCH(Type, type);
    QFETCH(int, withControl);
    QFETCH(bool, drags);
    const bool resets = withControl == 30;
    for (const Qt::KeyboardModifiers modifiers : {Qt::NoModifier, Qt::ControlModifier}) {
        const auto probe = fader(type);
        probe->setDefaultValue(30);
        probe->setValue(50);
        QSignalSpy spy(probe.get(), &FaderController::drag);
        press(*probe, {20, 20}, modifiers);
        if (modifiers)
            QCOMPARE(probe->value(), withControl);
        else
            QTEST(probe->value(), "value");
        QCOMPARE(!spy.isEmpty(), drags && !(modifiers && resets));
        release(*probe, {20, 20});
        QCOMPARE(m_ledger.open(), 0);
    }
    if (drags)
        return;
    const auto probe = fader(type);
    probe->setValue(50); // the knob covers x 10 to 30 and y 100 to 120
    for (const QPoint point : {QPoint(20, 98), QPoint(20, 122), QPoint(8, 110), QPoint(32, 110)}) {
        press(*probe, point);
        moveTo(*probe, point + QPoint(0, 30));
        release(*probe, point);
    }
    QVERIFY(m_ledger.has(0));
}

void tst_FaderController::rampGoesStepByStep()
{
    BoundFader f(fader(FaderController::Ramp), 0);
    press(*f.fader, {20, 210 - 2 * 37});
    QCOMPARE(f.value(), 5);
    for (const int wanted : {10, 15, 20, 25, 30, 35, 37, 37}) {
        f.ramp();
        QCOMPARE(f.value(), wanted);
    }
    QCOMPARE(m_ledger.open(), 1);
    release(*f.fader, {});
    QVERIFY(m_ledger.has(1));
}

void tst_FaderController::rampRunsOnItsTimers()
{
    BoundFader f(fader(FaderController::Ramp), 0);
    press(*f.fader, {20, 210 - 2 * 12});
    QCOMPARE(f.value(), 5);
    QVERIFY(!f.rampsWithin(FaderController::FirstRampDelay - 100));
    QVERIFY(f.rampsWithin(FaderController::FirstRampDelay - 100));
    QCOMPARE(f.value(), 10);
    QVERIFY(!f.rampsWithin(FaderController::RampDelay - 50));
    QVERIFY(f.rampsWithin(FaderController::RampDelay));
    QCOMPARE(f.value(), 12);
    QVERIFY(f.rampsWithin(2 * FaderController::RampDelay)); // finds that it is there
    QVERIFY(!f.rampsWithin(2 * FaderController::RampDelay));
    QCOMPARE(FaderController::FirstRampDelay, 300);
    QCOMPARE(FaderController::RampDelay, 100);
}

void tst_FaderController::rampIsFineWithShift()
{
    BoundFader f(fader(FaderController::Ramp), 100);
    QVERIFY(QTest::qWaitForWindowExposed(f.fader.get()));
    press(*f.fader, {20, 210 - 2 * 92});
    QCOMPARE(f.value(), 95);
    QSignalSpy reports(f.fader.get(), &FaderController::modifiersChange);
    QTest::keyPress(f.fader->windowHandle(), Qt::Key_Shift, Qt::ShiftModifier);
    f.ramp();
    QCOMPARE(f.value(), 94);
    QCOMPARE(reports.count(), 1);
    QCOMPARE(reports[0][1].value<Qt::KeyboardModifiers>(), Qt::ShiftModifier);
    QTest::keyRelease(f.fader->windowHandle(), Qt::Key_Shift);
    f.ramp();
    QCOMPARE(f.value(), 92);
    QCOMPARE(reports.count(), 1);
}

void tst_FaderController::rampFollowsThePointer()
{
    BoundFader f(fader(FaderController::Ramp), 0);
    press(*f.fader, {20, 10});
    moveTo(*f.fader, {20, 210 - 2 * 8});
    QCOMPARE(f.value(), 5);
    f.ramp();
    QCOMPARE(f.value(), 8);
    moveTo(*f.fader, {20, 900}); // beyond the travel, as far as the range
    f.ramp();
    f.ramp();
    QCOMPARE(f.value(), 0);
}

void tst_FaderController::rampEndsWithTheDrag()
{
    BoundFader f(fader(FaderController::Ramp), 0);
    press(*f.fader, {20, 10});
    release(*f.fader, {});
    f.ramp();
    press(*f.fader, {20, 200}); // where the knob is, which starts no ramp
    moveTo(*f.fader, {20, 10});
    QVERIFY(!f.rampsWithin(2 * FaderController::FirstRampDelay));
    QCOMPARE(f.value(), 5);
    release(*f.fader, {});
    press(*f.fader, {20, 10});
    QCOMPARE(f.value(), 10);
    f.fader->setOperationType(FaderController::Touch);
    f.ramp();
    QCOMPARE(f.value(), 10);
    f.host.setRange(Parameter, 10, 10);
    f.fader->setOperationType(FaderController::Ramp);
    f.ramp();
    QVERIFY(!f.rampsWithin(2 * FaderController::RampDelay)); // a range of one value is at its end
    QCOMPARE(shown(*f.fader).pixelColor(20, 210), QColor(0, 0, 255));
}

void tst_FaderController::doubleClickResetsOnTheKnob()
{
    const auto probe = fader(FaderController::Touch);
    probe->setDefaultValue(30);
    probe->setValue(50);
    const auto doubleClicked = [&probe](QPoint point, Qt::MouseButton button = Qt::LeftButton) {
        doubleClick(*probe, point, {}, button);
        return probe->value();
    };
    QCOMPARE(doubleClicked({20, 110}), 50); // not enabled
    probe->setEnableDoubleClick(true);
    QCOMPARE(doubleClicked({20, 60}), 50);
    QCOMPARE(doubleClicked({20, 110}, Qt::RightButton), 50);
    QCOMPARE(doubleClicked({20, 110}), 30);
    QCOMPARE(m_ledger.open(), 0);
}

void tst_FaderController::doubleClickAfterAJumpIsIgnored()
{
    const auto probe = fader(FaderController::Jump);
    probe->setEnableDoubleClick(true);
    probe->setDefaultValue(30);
    doubleClick(*probe, {20, 109}); // jumps to 51: now the knob lies under the pointer
    QCOMPARE(probe->value(), 51);
    QVERIFY(QMetaObject::invokeMethod(probe.get(), "doubleClickTimeout"));
    doubleClick(*probe, {20, 109});
    QCOMPARE(probe->value(), 30);

    const int interval = QApplication::doubleClickInterval();
    QApplication::setDoubleClickInterval(1);
    doubleClick(*probe, {20, 109});
    QCOMPARE(probe->value(), 51);
    const auto clickAgain = [&probe] {
        sendMouse(*probe, QEvent::MouseButtonDblClick, {20, 109}, Qt::LeftButton, Qt::LeftButton,
                  {});
        return probe->value();
    };
    QTRY_COMPARE(clickAgain(), 30);
    QApplication::setDoubleClickInterval(interval);
}

void tst_FaderController::wheelAndKeys_data()
{
    addColumns<int, int, int>("which", "standing", "lying");
    QTest::newRow("wheel") << 0 << 51 << 51;
    QTest::newRow("Up") << int(Qt::Key_Up) << 51 << 50;
    QTest::newRow("Down") << int(Qt::Key_Down) << 49 << 50;
    QTest::newRow("Right") << int(Qt::Key_Right) << 50 << 51;
    QTest::newRow("Left") << int(Qt::Key_Left) << 50 << 49;
    QTest::newRow("Page Up") << int(Qt::Key_PageUp) << 60 << 60;
    QTest::newRow("Page Down") << int(Qt::Key_PageDown) << 40 << 40;
}

void tst_FaderController::wheelAndKeys()
{
    QFETCH(int, which);
    QFETCH(int, standing);
    QFETCH(int, lying);
    for (const Qt::Orientation orientation : {Qt::Vertical, Qt::Horizontal}) {
        const int wanted = orientation == Qt::Vertical ? standing : lying;
        for (const bool reverse : {false, true}) {
            const auto probe = fader(FaderController::Touch, orientation, reverse);
            probe->setValue(50);
            QVERIFY(which == 0 ? wheel(*probe, {0, 120}) : key(*probe, Qt::Key(which)));
            QCOMPARE(probe->value(), reverse ? 100 - wanted : wanted);
            QVERIFY(m_ledger.has(wanted == 50 ? 0 : 1));
            if (which == 0)
                continue;
            QVERIFY(key(*probe, Qt::Key(which), {}, QEvent::KeyRelease));
            probe->setEnabled(false);
            QVERIFY(!key(*probe, Qt::Key(which)));
            QVERIFY(!key(*probe, Qt::Key(which), {}, QEvent::KeyRelease));
        }
    }
}

void tst_FaderController::otherKeysGoOn()
{
    const auto probe = fader(FaderController::Touch);
    for (const Qt::Key which : {Qt::Key_Home, Qt::Key_End, Qt::Key_Space, Qt::Key_A}) {
        QVERIFY(!key(*probe, which));
        QVERIFY(!key(*probe, which, {}, QEvent::KeyRelease));
    }
    QVERIFY(m_ledger.has(0));
}

void tst_FaderController::noTravel_data()
{
    addColumns<Type>("type");
    QTest::newRow("Touch") << FaderController::Touch;
    QTest::newRow("Jump") << FaderController::Jump;
    QTest::newRow("Ramp") << FaderController::Ramp;
    QTest::newRow("Relative") << FaderController::Relative;
}

void tst_FaderController::noTravel()
{
    QFETCH(Type, type);
    for (const int height : {20, 10, 1}) {
        const auto probe = fader(type);
        probe->resize(40, height);
        probe->setValue(50);
        dragThrough(*probe, {{{20.0, height / 2.0}, 50}, {{20, 100}, 50}});
        dragThrough(*probe, {{{1, 1}, 50}});
        QCOMPARE(m_ledger.open(), 0);
        shown(*probe);
    }
    FaderController withoutPicture; // has no knob to touch either
    withoutPicture.resize(40, 220);
    withoutPicture.setOperationType(type);
    QSignalSpy drags(&withoutPicture, &FaderController::drag);
    press(withoutPicture, {20, 219});
    QCOMPARE(drags.isEmpty(), type == FaderController::Touch);
}

void tst_FaderController::paintsKnobAtItsPlace_data()
{
    addColumns<Qt::Orientation, bool, int, double>("orientation", "reverse", "value", "scale");
    for (const Qt::Orientation orientation : {Qt::Vertical, Qt::Horizontal}) {
        for (const bool reverse : {false, true}) {
            for (const int value : {0, 25, 50, 100}) {
                for (const double scale : {1.0, 2.0})
                    QTest::addRow("%d, %d, %d at %g", orientation, reverse, value, scale)
                        << orientation << reverse << value << scale;
            }
        }
    }
}

void tst_FaderController::paintsKnobAtItsPlace()
{
    QFETCH(Qt::Orientation, orientation);
    QFETCH(bool, reverse);
    QFETCH(int, value);
    QFETCH(double, scale);
    const auto probe = fader(FaderController::Touch, orientation, reverse);
    probe->setValue(value);
    probe->setScale(scale);
    probe->resize(probe->size() * scale);

    const int fromMinimum = qRound(2 * value * scale);
    const int length = qRound(220 * scale);
    const int side = qRound(20 * scale);
    const int across = qRound(10 * scale);
    const bool fromStart = (orientation == Qt::Horizontal) != reverse;
    const int along = fromStart ? fromMinimum : length - side - fromMinimum;
    const QRect wanted = orientation == Qt::Vertical ? QRect(across, along, side, side)
                                                     : QRect(along, across, side, side);
    const QImage image = shown(*probe);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor colour = wanted.contains(x, y) ? QColor(0, 0, 255) : QColor(Qt::white);
            if (image.pixelColor(x, y) != colour)
                QCOMPARE(std::pair(QPoint(x, y), image.pixelColor(x, y)),
                         std::pair(QPoint(x, y), colour));
        }
    }
}

void tst_FaderController::paintsShadowUnderTheKnob()
{
    const auto probe = fader(FaderController::Touch);
    probe->setShadowSvg(m_shadow);
    probe->setShadowBlur(3.0);
    for (const int value : {0, 50, 53, 100}) {
        probe->setValue(value);
        const QPoint knob(10, 200 - 2 * value);
        // The shadow in a pixmap of the fader's size, blurred as a whole.
        QPixmap sheet(probe->size());
        sheet.fill(Qt::transparent);
        QPainter painter(&sheet);
        QSvgRenderer(m_shadow).render(&painter, QRectF(knob - QPoint(2, 2), QSizeF(24, 24)));
        painter.end();
        QGraphicsScene scene;
        auto* effect = new QGraphicsBlurEffect;
        effect->setBlurRadius(3.0);
        scene.addPixmap(sheet)->setGraphicsEffect(effect);
        QImage wanted(probe->size(), QImage::Format_ARGB32_Premultiplied);
        wanted.fill(Qt::white);
        painter.begin(&wanted);
        scene.render(&painter, wanted.rect(), wanted.rect());
        QSvgRenderer(m_knob).render(&painter, QRectF(knob, QSizeF(20, 20)));
        painter.end();

        const QImage seen = shown(*probe);
        for (int y = 0; y < seen.height(); ++y) {
            for (int x = 0; x < seen.width(); ++x)
                QVERIFY(std::abs(seen.pixelColor(x, y).red() - wanted.pixelColor(x, y).red()) <= 1);
        }
    }
}

void tst_FaderController::paintsBackgroundInTheMiddle()
{
    FaderController probe;
    probe.resize(40, 220);
    probe.setBackgroundSvg(m_track);
    const QImage image = shown(probe);
    QCOMPARE(image.pixelColor(18, 10), QColor(0x80, 0x80, 0x80));
    QCOMPARE(image.pixelColor(21, 209), QColor(0x80, 0x80, 0x80));
    QCOMPARE(image.pixelColor(17, 100), QColor(Qt::white));
    QCOMPARE(image.pixelColor(22, 100), QColor(Qt::white));
    QCOMPARE(image.pixelColor(20, 9), QColor(Qt::white));
    QCOMPARE(image.pixelColor(20, 210), QColor(Qt::white));
}

void tst_FaderController::paintsDisabledKnobTranslucent()
{
    const auto probe = fader(FaderController::Touch);
    probe->setBackgroundSvg(m_track);
    probe->setKnobDisableOpacity(0.5);
    QCOMPARE(shown(*probe).pixelColor(12, 210), QColor(0, 0, 255));
    probe->setEnabled(false);
    const QColor seen = shown(*probe).pixelColor(12, 210);
    QVERIFY(std::abs(seen.red() - 127) <= 1);
    QCOMPARE(seen.blue(), 255);
    QCOMPARE(shown(*probe).pixelColor(20, 50), QColor(0x80, 0x80, 0x80));
    probe->setKnobDisableOpacity(1.0);
    QCOMPARE(shown(*probe).pixelColor(12, 210), QColor(0, 0, 255));
    probe->setKnobDisableOpacity(0.0);
    QCOMPARE(shown(*probe).pixelColor(12, 210), QColor(Qt::white));
}

void tst_FaderController::paintsAtEveryPixelRatio_data()
{
    QTest::addColumn<double>("ratio");
    for (const double ratio : {1.0, 1.25, 1.5, 2.0})
        QTest::addRow("%g", ratio) << ratio;
}

void tst_FaderController::paintsAtEveryPixelRatio()
{
    QFETCH(double, ratio);
    const auto probe = fader(FaderController::Touch);
    for (int value = 0; value <= 100; ++value) {
        probe->setValue(value);
        const QImage image = shown(*probe, ratio);
        // The upper and lower edges of the knob are sharp, wherever it stands.
        for (int y = 0; y < image.height(); ++y) {
            const QColor row = image.pixelColor(image.width() / 2, y);
            QVERIFY(row == QColor(Qt::white) || row == QColor(0, 0, 255));
        }
    }
}

ZOLTA_TEST_MAIN(tst_FaderController)

#include "tst_FaderController.moc"
