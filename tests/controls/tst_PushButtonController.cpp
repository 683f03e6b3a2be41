// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/PushButtonController.h"
#include "tests/controls/ButtonTesting.h"
#include "tests/support/Columns.h"
#include "tests/support/TestObject.h"
#include "tests/widgets/SvgFiles.h"

#include <QLineEdit>
#include <QSignalSpy>

#include <QSvgRenderer>

#include <limits>
#include <memory>

using namespace ButtonTesting;
using CommonController_MemAPI::AbstractController;
using CommonController_MemAPI::PushButtonController;

namespace {

using Trigger = PushButtonController::CheckTrigger;

constexpr Trigger Press = PushButtonController::Press;
constexpr Trigger Release = PushButtonController::Release;
constexpr Trigger On = PushButtonController::On;
constexpr Trigger Off = PushButtonController::Off;

constexpr int Switch = 4; // 0..1, default 1
constexpr int Type = 1;   // 0..3, default 3

struct CountedButton : Ledgered<PushButtonController>
{
    using Ledgered::Ledgered;
    using PushButtonController::isHovered;
    using PushButtonController::isInside;
};

/// A button of 40 x 30 pixels on a parameter that is at its minimum, and the ledger of its edits.
struct Fixture
{
    explicit Fixture(bool checkable, int number = Switch)
    {
        host.setSilently(TestHost::name(number), 0, 0);
        button.resize(40, 30);
        button.setCheckable(checkable);
        bind(button, host, number);
        host.resetLedger();
    }
    int value(int number = Switch) const { return host.value(TestHost::name(number), 0); }
    void set(int value) { host.set(TestHost::name(Switch), 0, value); }
    /// Sets all of \a trigger, which setCheckTrigger() may take two steps for.
    void setTrigger(Trigger trigger)
    {
        button.setCheckTrigger(trigger);
        button.setCheckTrigger(trigger);
    }
    /// What was written since the last question.
    QList<int> take()
    {
        const QList<int> values = written(host);
        host.resetLedger();
        return values;
    }

    Ledger ledger;
    TestHost host;
    CountedButton button{ledger};
};

struct SwitchFixture : Fixture
{
    SwitchFixture()
        : Fixture(true)
    {}
};

struct MomentaryFixture : Fixture
{
    MomentaryFixture()
        : Fixture(false)
    {}
};

/// A direct rendering of the picture at \a path into \a rect of an empty canvas of 40 x 30.
QImage direct(const QString& path, const QRectF& rect, double opacity = 1.0)
{
    QImage image(40, 30, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(opacity);
    QSvgRenderer renderer(path);
    renderer.render(&painter, rect);
    return image;
}

} // namespace

class tst_PushButtonController : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void checkTriggerKeepsOneEdgeAndADirection_data();
    void checkTriggerKeepsOneEdgeAndADirection();
    void defaultTriggerTogglesOnReleaseBothWays();

    void pressTriggerWritesAtOnce();
    void forbiddenClickIsClickedWithoutAChange_data();
    void forbiddenClickIsClickedWithoutAChange();
    void onOnlyIsSwitchedOffByProgramAndHost();
    void clickByProgramObeysTheTrigger_data();
    void clickByProgramObeysTheTrigger();
    void anyValueButTheMinimumIsOn();
    void hostsUpdateIsNotWrittenBack();
    void setOnAndSetOffWriteOnce_data();
    void setOnAndSetOffWriteOnce();
    void checkedButtonOfAnExclusiveSetStaysOn();

    void momentaryLetsGoWhileDraggedOff();
    void momentaryLetsGo_data();
    void momentaryLetsGo();
    void momentaryLetsGoOfTheOldParameter();
    void momentaryStaysReleasedUntilTheNextPress();
    void momentaryLetsGoWhenItBecomesASwitch();
    void focusPolicyKeepsItHeld();

    void rightClickNeverChangesTheValue_data();
    void rightClickNeverChangesTheValue();
    void leftWhileRightIsHeldDoesNotGoDown();
    void disabledButtonIgnoresTheMouse();

    void modifiersAreReportedWithAChange();

    void pointerInsideAndOutside();

    void layers_data();
    void layers();
    void missingOnPicturesLeaveTheOffOnes();
    void placement_data();
    void placement();
    void scaleIsAtLeastAHalf();
    void disabledOpacityIsOneSheet();
    void opacityIsEverythings();
    void shadowIsBlurredByTheScaledRadius();
    void textLiesInItsMargins();
    void textHasThePalettesColourOfTheState();

    void accessibleSwitch();
    void accessibleMomentary();
};

void tst_PushButtonController::checkTriggerKeepsOneEdgeAndADirection_data()
{
    addColumns<Trigger, Trigger, Trigger>("old", "set", "kept");
    QTest::newRow("press joins release")
        << (Release | On | Off) << (Press | Release | On | Off) << (Press | On | Off);
    QTest::newRow("release joins press")
        << (Press | On | Off) << (Press | Release | On | Off) << (Release | On | Off);
    QTest::newRow("no edge after release") << (Release | On | Off) << On << (Press | On);
    QTest::newRow("no edge after press") << (Press | On | Off) << Off << (Release | Off);
    QTest::newRow("no direction after both") << (Release | On | Off) << Release << (Release | Off);
    QTest::newRow("no direction after on") << (Release | On) << Release << (Release | Off);
    QTest::newRow("no direction after off") << (Release | Off) << Release << (Release | On);
    QTest::newRow("both directions with the edge")
        << (Release | On | Off) << Trigger(49) << (Press | On | Off);
    QTest::newRow("default flags, then press") << (Release | On | Off) << Press << (Press | Off);
    QTest::newRow("default flags, then none") << (Release | On | Off) << Trigger() << (Press | Off);
    QTest::newRow("unknown bits go")
        << (Release | On | Off) << (Trigger(0xff00) | Release | On) << (Release | On);
}

void tst_PushButtonController::checkTriggerKeepsOneEdgeAndADirection()
{
    QFETCH(Trigger, old);
    QFETCH(Trigger, set);
    PushButtonController button;
    button.setCheckTrigger(old);
    QCOMPARE(button.checkTrigger(), old);
    button.setCheckTrigger(set);
    QTEST(button.checkTrigger(), "kept");
}

void tst_PushButtonController::defaultTriggerTogglesOnReleaseBothWays()
{
    SwitchFixture fixture;
    QCOMPARE(fixture.button.checkTrigger(), Release | On | Off);
    fixture.host.setRange(TestHost::name(Switch), -4, 9);
    fixture.set(-4);
    press(fixture.button);
    QCOMPARE(fixture.value(), -4);
    release(fixture.button);
    QCOMPARE(fixture.value(), 9);
    QVERIFY(fixture.button.isChecked());
    click(fixture.button);
    QCOMPARE(fixture.take(), (QList<int>{9, -4}));
    QVERIFY(!fixture.button.isChecked());
    QVERIFY(fixture.ledger.has(2));
    press(fixture.button);
    drag(fixture.button, Outside);
    sendMouse(fixture.button, QEvent::MouseButtonRelease, Outside, Qt::LeftButton, {});
    QVERIFY(!fixture.button.isChecked() && !fixture.button.isDown());
    QVERIFY(fixture.take().isEmpty());
}

void tst_PushButtonController::pressTriggerWritesAtOnce()
{
    SwitchFixture fixture;
    fixture.button.setCheckTrigger(Press | On | Off);
    QSignalSpy clicked(&fixture.button, &QAbstractButton::clicked);
    QSignalSpy released(&fixture.button, &QAbstractButton::released);
    press(fixture.button);
    QCOMPARE(fixture.value(), 1);
    QVERIFY(fixture.button.isChecked());
    QVERIFY(fixture.button.isDown());
    // Wherever the release is.
    sendMouse(fixture.button, QEvent::MouseButtonRelease, Outside, Qt::LeftButton, {});
    QCOMPARE(written(fixture.host), QList<int>({1}));
    QVERIFY(!fixture.button.isDown());
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(clicked.first().first().toBool(), true);
    QCOMPARE(released.count(), 1);
    QVERIFY(fixture.ledger.has(1));
}

void tst_PushButtonController::forbiddenClickIsClickedWithoutAChange_data()
{
    addColumns<Trigger, int>("trigger", "start");
    QTest::newRow("release, on only") << (Release | On) << 1;
    QTest::newRow("release, off only") << (Release | Off) << 0;
    QTest::newRow("press, on only") << (Press | On) << 1;
    QTest::newRow("press, off only") << (Press | Off) << 0;
}

void tst_PushButtonController::forbiddenClickIsClickedWithoutAChange()
{
    QFETCH(Trigger, trigger);
    QFETCH(int, start);
    SwitchFixture fixture;
    fixture.set(start);
    fixture.setTrigger(trigger);
    QSignalSpy clicked(&fixture.button, &QAbstractButton::clicked);
    QSignalSpy released(&fixture.button, &QAbstractButton::released);
    click(fixture.button);
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(clicked.first().first().toBool(), start == 1);
    QCOMPARE(released.count(), 1);
    QCOMPARE(fixture.button.isChecked(), start == 1);
    QVERIFY(!fixture.button.isDown());
    QVERIFY(written(fixture.host).isEmpty());
    QVERIFY(fixture.ledger.has(0));
}

void tst_PushButtonController::onOnlyIsSwitchedOffByProgramAndHost()
{
    SwitchFixture fixture;
    fixture.button.setCheckTrigger(Release | On);
    click(fixture.button);
    QCOMPARE(fixture.value(), 1);
    click(fixture.button);
    QCOMPARE(fixture.value(), 1);
    QVERIFY(fixture.button.isChecked());
    fixture.button.setOff();
    QCOMPARE(fixture.value(), 0);
    QVERIFY(!fixture.button.isChecked());
    click(fixture.button);
    QVERIFY(fixture.button.isChecked());
    fixture.set(0);
    QVERIFY(!fixture.button.isChecked());
}

void tst_PushButtonController::clickByProgramObeysTheTrigger_data()
{
    addColumns<Trigger, QList<int>>("trigger", "writes");
    QTest::newRow("release") << (Release | On | Off) << QList<int>({1, 0});
    QTest::newRow("press") << (Press | On | Off) << QList<int>({1, 0});
    QTest::newRow("on only") << (Release | On) << QList<int>({1});
    QTest::newRow("press, on only") << (Press | On) << QList<int>({1});
}

void tst_PushButtonController::clickByProgramObeysTheTrigger()
{
    QFETCH(Trigger, trigger);
    SwitchFixture fixture;
    fixture.button.setCheckTrigger(trigger);
    fixture.button.click();
    fixture.button.click();
    QTEST(written(fixture.host), "writes");
    QCOMPARE(fixture.button.isChecked(), fixture.value() == 1);
    QCOMPARE(fixture.ledger.open(), 0);
}

void tst_PushButtonController::anyValueButTheMinimumIsOn()
{
    Fixture fixture(true, Type);
    for (int value = 0; value <= 3; ++value) {
        fixture.host.set(TestHost::name(Type), 0, value);
        QCOMPARE(fixture.button.isChecked(), value != 0);
    }
    fixture.host.set(TestHost::name(Type), 0, 2);
    click(fixture.button);
    QCOMPARE(fixture.value(Type), 0);
    click(fixture.button);
    QCOMPARE(fixture.value(Type), 3);
}

void tst_PushButtonController::hostsUpdateIsNotWrittenBack()
{
    SwitchFixture fixture;
    QSignalSpy toggled(&fixture.button, &QAbstractButton::toggled);
    QSignalSpy changed(&fixture.button, qOverload<int>(&PushButtonController::valueChanged));
    fixture.set(1);
    fixture.set(0);
    QCOMPARE(toggled.count(), 2);
    QCOMPARE(changed.count(), 2);
    QCOMPARE(changed.last().first().toInt(), 0);
    QVERIFY(written(fixture.host).isEmpty());
    QVERIFY(fixture.ledger.has(0));
}

void tst_PushButtonController::setOnAndSetOffWriteOnce_data()
{
    QTest::addColumn<Trigger>("trigger");
    QTest::newRow("release") << (Release | On | Off);
    QTest::newRow("press") << (Press | On | Off);
    QTest::newRow("on only") << (Release | On);
    QTest::newRow("off only") << (Release | Off);
}

void tst_PushButtonController::setOnAndSetOffWriteOnce()
{
    QFETCH(Trigger, trigger);
    SwitchFixture fixture;
    fixture.button.setCheckTrigger(trigger);
    fixture.button.setOff();
    fixture.button.setEnabled(false);
    fixture.button.setOn();
    fixture.button.setEnabled(true);
    fixture.button.setCheckable(false);
    fixture.button.setOn();
    fixture.button.setCheckable(true);
    QVERIFY(fixture.ledger.has(0));
    fixture.button.setOn();
    fixture.button.setOn();
    QCOMPARE(written(fixture.host), QList<int>({1}));
    QVERIFY(fixture.button.isChecked());
    fixture.button.setOff();
    fixture.button.setOff();
    QCOMPARE(written(fixture.host), QList<int>({1, 0}));
    QVERIFY(!fixture.button.isChecked());
    QVERIFY(fixture.ledger.has(2));
}

void tst_PushButtonController::checkedButtonOfAnExclusiveSetStaysOn()
{
    QWidget window;
    Ledger ledger;
    CountedButton first(ledger, &window);
    CountedButton second(ledger, &window);
    for (CountedButton* button : {&first, &second}) {
        button->resize(40, 30);
        button->setCheckable(true);
        button->setAutoExclusive(true);
        button->setCheckTrigger(Press | On | Off);
    }
    click(first);
    QCOMPARE(first.value(), 1);
    click(first);
    QVERIFY(first.isChecked());
    QCOMPARE(first.value(), 1);
    click(second);
    QVERIFY(!first.isChecked());
    QCOMPARE(second.value(), 1);
    QCOMPARE(ledger.open(), 0);
}

void tst_PushButtonController::momentaryLetsGoWhileDraggedOff()
{
    MomentaryFixture fixture;
    press(fixture.button);
    drag(fixture.button, Outside);
    QCOMPARE(fixture.value(), 0);
    drag(fixture.button, QPoint(3, 3));
    QCOMPARE(fixture.value(), 1);
    release(fixture.button);
    QCOMPARE(fixture.take(), (QList<int>{1, 0, 1, 0}));
    QVERIFY(fixture.ledger.has(4));
}

void tst_PushButtonController::momentaryLetsGo_data()
{
    QTest::addColumn<QString>("how");
    for (const char* how : {"disabled", "parent disabled", "hidden", "window hidden", "unbound",
                            "channel changed", "focus moved", "destroyed"})
        QTest::newRow(how) << how;
}

void tst_PushButtonController::momentaryLetsGo()
{
    QFETCH(QString, how);
    TestHost host;
    Ledger ledger;
    QWidget window;
    QLineEdit first(&window);
    QLineEdit second(&window);
    auto* button = new CountedButton(ledger, &window);
    button->setGeometry(0, 40, 40, 30);
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    first.setFocus();
    host.setSilently(TestHost::name(Switch), 0, 0);
    bind(*button, host, Switch);
    press(*button);
    QCOMPARE(host.value(TestHost::name(Switch), 0), 1);

    if (how == QLatin1String("disabled"))
        button->setEnabled(false);
    else if (how == QLatin1String("parent disabled"))
        window.setEnabled(false);
    else if (how == QLatin1String("hidden"))
        button->hide();
    else if (how == QLatin1String("window hidden"))
        window.hide();
    else if (how == QLatin1String("unbound"))
        button->setMemAPIValue(nullptr, 0, 0, 0);
    else if (how == QLatin1String("channel changed"))
        bind(*button, host, Switch, 1);
    else if (how == QLatin1String("focus moved"))
        second.setFocus();
    else
        delete button;

    QCOMPARE(host.value(TestHost::name(Switch), 0), 0);
    QCOMPARE(written(host), QList<int>({1, 0}));
    QCOMPARE(ledger.open(), 0);
    if (how == QLatin1String("destroyed")) {
        QCOMPARE(host.observerCount(), 0);
        return;
    }
    QVERIFY(!button->isDown());
    if (button->isEnabled())
        release(*button);
    QCOMPARE(written(host), QList<int>({1, 0}));
}

void tst_PushButtonController::momentaryLetsGoOfTheOldParameter()
{
    MomentaryFixture fixture;
    press(fixture.button);
    bind(fixture.button, fixture.host, Type);
    const std::vector<TestHost::Write> writes = fixture.host.writes();
    QCOMPARE(writes.size(), std::size_t(2));
    QVERIFY(writes[1] == (TestHost::Write{TestHost::name(Switch), 0, 0}));
    // Bound to what it is bound to already, it goes on being held.
    press(fixture.button);
    bind(fixture.button, fixture.host, Type);
    QCOMPARE(fixture.value(Type), 3);
    release(fixture.button);
    QCOMPARE(fixture.value(Type), 0);
}

void tst_PushButtonController::momentaryStaysReleasedUntilTheNextPress()
{
    MomentaryFixture fixture;
    press(fixture.button);
    bind(fixture.button, fixture.host, Type);
    fixture.host.resetLedger();
    drag(fixture.button, QPoint(3, 3));
    drag(fixture.button, Outside);
    drag(fixture.button, QPoint(3, 3));
    release(fixture.button);
    QVERIFY(written(fixture.host).isEmpty());
    click(fixture.button);
    QCOMPARE(written(fixture.host), QList<int>({3, 0}));
}

void tst_PushButtonController::momentaryLetsGoWhenItBecomesASwitch()
{
    MomentaryFixture fixture;
    press(fixture.button);
    fixture.button.setCheckable(true);
    fixture.button.setMemAPIValue(nullptr, 0, 0, 0);
    QCOMPARE(fixture.value(), 0);
    QCOMPARE(fixture.ledger.open(), 0);
}

void tst_PushButtonController::focusPolicyKeepsItHeld()
{
    MomentaryFixture fixture;
    fixture.button.setFocusPolicy(Qt::TabFocus);
    press(fixture.button);
    Q_EMIT qApp->focusChanged(nullptr, nullptr);
    QCOMPARE(fixture.value(), 1);
    fixture.button.setFocusPolicy(Qt::NoFocus);
    Q_EMIT qApp->focusChanged(nullptr, nullptr);
    QCOMPARE(fixture.value(), 0);
}

void tst_PushButtonController::rightClickNeverChangesTheValue_data()
{
    addColumns<bool, Trigger>("checkable", "trigger");
    QTest::newRow("momentary") << false << (Release | On | Off);
    QTest::newRow("release") << true << (Release | On | Off);
    QTest::newRow("press") << true << (Press | On | Off);
}

void tst_PushButtonController::rightClickNeverChangesTheValue()
{
    QFETCH(bool, checkable);
    QFETCH(Trigger, trigger);
    MomentaryFixture fixture;
    fixture.button.setCheckable(checkable);
    fixture.button.setCheckTrigger(trigger);
    QSignalSpy clicked(&fixture.button, &QAbstractButton::clicked);
    const QPoint center = fixture.button.rect().center();
    QVERIFY(!sendMouse(fixture.button, QEvent::MouseButtonPress, center, Qt::RightButton,
                       Qt::RightButton, {}));
    QVERIFY(!fixture.button.isDown());
    QVERIFY(!sendMouse(fixture.button, QEvent::MouseButtonRelease, center, Qt::RightButton, {}));
    QVERIFY(written(fixture.host).isEmpty());
    QCOMPARE(clicked.count(), 0);
}

void tst_PushButtonController::leftWhileRightIsHeldDoesNotGoDown()
{
    MomentaryFixture fixture;
    const QPoint center = fixture.button.rect().center();
    sendMouse(fixture.button, QEvent::MouseButtonPress, center, Qt::RightButton, Qt::RightButton,
              {});
    sendMouse(fixture.button, QEvent::MouseButtonPress, center, Qt::LeftButton,
              Qt::LeftButton | Qt::RightButton, {});
    QVERIFY(!fixture.button.isDown());
    sendMouse(fixture.button, QEvent::MouseButtonRelease, center, Qt::LeftButton, Qt::RightButton,
              {});
    sendMouse(fixture.button, QEvent::MouseButtonRelease, center, Qt::RightButton, {});
    QVERIFY(written(fixture.host).isEmpty());
}

void tst_PushButtonController::disabledButtonIgnoresTheMouse()
{
    SwitchFixture fixture;
    fixture.button.setEnabled(false);
    click(fixture.button);
    fixture.button.setCheckTrigger(Press | On | Off);
    click(fixture.button);
    fixture.button.click();
    QVERIFY(!fixture.button.isChecked());
    QVERIFY(written(fixture.host).isEmpty());
}

void tst_PushButtonController::modifiersAreReportedWithAChange()
{
    SwitchFixture fixture;
    QSignalSpy spy(&fixture.button, &PushButtonController::modifiersChange);
    click(fixture.button);
    QCOMPARE(spy.count(), 0);
    click(fixture.button, Qt::ShiftModifier | Qt::AltModifier);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.first().at(0).value<AbstractController*>(),
             static_cast<AbstractController*>(&fixture.button));
    QCOMPARE(spy.first().at(1).value<Qt::KeyboardModifiers>(), Qt::ShiftModifier | Qt::AltModifier);
    fixture.button.setOn(); // those of the last click count
    QCOMPARE(spy.count(), 2);
    // A host that does not take the value: nothing changed.
    fixture.host.failAll(TestHost::Operation::SetValue);
    click(fixture.button, Qt::ShiftModifier);
    QCOMPARE(spy.count(), 2);
}

void tst_PushButtonController::pointerInsideAndOutside()
{
    MomentaryFixture fixture;
    CountedButton& button = fixture.button;
    QSignalSpy spy(&button, &PushButtonController::sideChanged);
    QEnterEvent enter(QPointF(3, 3), QPointF(3, 3), QPointF(3, 3));
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&button, &enter);
    QVERIFY(button.isHovered() && button.isInside());
    QCOMPARE(spy.count(), 1);
    press(button);
    QCOMPARE(spy.count(), 1);
    drag(button, Outside);
    QVERIFY(button.isHovered() && !button.isInside());
    QCOMPARE(spy.count(), 2);
    drag(button, Outside * 2);
    QCOMPARE(spy.count(), 2);
    drag(button, QPoint(0, 0));
    QVERIFY(button.isInside());
    QCOMPARE(spy.count(), 3);
    drag(button, Outside);
    QApplication::sendEvent(&button, &leave);
    QVERIFY(!button.isHovered());
    QCOMPARE(spy.count(), 4);
    // A press without an enter before, as from a touch screen.
    press(button);
    QVERIFY(!button.isHovered() && button.isInside());
    QApplication::sendEvent(&button, &leave);
    QVERIFY(!button.isInside());
    QCOMPARE(spy.count(), 6);
}

void tst_PushButtonController::layers_data()
{
    addColumns<bool, bool, bool, bool, QString, QString, QString>(
        "checkable", "on", "down", "inside", "buttonLayer", "iconLayer", "shadowLayer");
    const auto row = [](const char* name, bool checkable, bool on, bool down, bool inside,
                        const char* button, const char* icon, const char* shadow) {
        QTest::newRow(name) << checkable << on << down << inside << button << icon << shadow;
    };
    row("up", false, false, false, false, "buttonSvg", "iconSvg", "shadowSvg");
    row("held", false, false, true, true, "pushButtonSvg", "onIconSvg", "pushShadowSvg");
    row("held, outside", false, false, true, false, "buttonSvg", "onIconSvg", "shadowSvg");
    row("off", true, false, false, false, "buttonSvg", "iconSvg", "shadowSvg");
    row("off, held", true, false, true, true, "pushButtonSvg", "iconSvg", "pushShadowSvg");
    row("on", true, true, false, false, "onButtonSvg", "onIconSvg", "shadowSvg");
    row("on, held", true, true, true, true, "onPushButtonSvg", "onIconSvg", "pushShadowSvg");
    row("on, held, outside", true, true, true, false, "onButtonSvg", "onIconSvg", "shadowSvg");
}

// Each picture has its own colour; the icon lies in the middle, the shadow shows at the edge.
void tst_PushButtonController::layers()
{
    const QHash<QString, QColor> colours = {
        {QStringLiteral("buttonSvg"), QColor(200, 0, 0)},
        {QStringLiteral("pushButtonSvg"), QColor(0, 200, 0)},
        {QStringLiteral("onButtonSvg"), QColor(0, 0, 200)},
        {QStringLiteral("onPushButtonSvg"), QColor(200, 200, 0)},
        {QStringLiteral("iconSvg"), QColor(0, 200, 200)},
        {QStringLiteral("onIconSvg"), QColor(200, 0, 200)},
        {QStringLiteral("shadowSvg"), QColor(40, 80, 120)},
        {QStringLiteral("pushShadowSvg"), QColor(120, 80, 40)}};
    QFETCH(bool, checkable);
    QFETCH(bool, on);
    QFETCH(bool, down);
    QFETCH(bool, inside);
    const SvgFiles files;
    PushButtonController button;
    button.resize(40, 30);
    button.setShadowBlur(0.0);
    for (auto it = colours.begin(); it != colours.end(); ++it) {
        const QByteArray name = it.key().toLatin1();
        const QSize size = name.endsWith("hadowSvg") ? QSize(40, 30)
                           : name.endsWith("conSvg") ? QSize(10, 10)
                                                     : QSize(20, 30);
        button.setProperty(
            name, files.plain(name, size.width(), size.height(), it.value().name().toLatin1()));
    }
    button.setCheckable(checkable);
    button.setChecked(on);
    button.setDown(down);
    if (inside) {
        QEnterEvent enter(QPointF(3, 3), QPointF(3, 3), QPointF(3, 3));
        QApplication::sendEvent(&button, &enter);
    }
    const QImage image = rendered(button);
    const auto nameAt = [&](int x, int y) { return colours.key(image.pixelColor(x, y)); };
    QTEST(nameAt(20, 15), "iconLayer");
    QTEST(nameAt(12, 2), "buttonLayer");
    QTEST(nameAt(2, 2), "shadowLayer");
}

void tst_PushButtonController::missingOnPicturesLeaveTheOffOnes()
{
    const SvgFiles files;
    PushButtonController button;
    button.resize(40, 30);
    button.setCheckable(true);
    button.setChecked(true);
    button.setButtonSvg(files.plain("button", 20, 20, "#c80000"));
    button.setPushButtonSvg(files.plain("push", 20, 20, "#00c800"));
    button.setIconSvg(files.plain("icon", 4, 4, "#0000c8"));
    button.setOnButtonSvg(files.missing());
    button.setOnPushButtonSvg(files.file("broken.svg", "no picture"));
    button.setOnIconSvg(files.missing());
    QCOMPARE(rendered(button).pixelColor(12, 7), QColor(200, 0, 0));
    QCOMPARE(rendered(button).pixelColor(20, 15), QColor(0, 0, 200));
    press(button);
    QCOMPARE(rendered(button).pixelColor(12, 7), QColor(0, 200, 0));
}

void tst_PushButtonController::placement_data()
{
    addColumns<Qt::Alignment, double, bool, QRectF>("alignment", "scale", "rightToLeft", "rect");
    QTest::newRow("centre") << Qt::Alignment(Qt::AlignCenter) << 1.0 << false
                            << QRectF(15, 12, 10, 6);
    QTest::newRow("centre, 2") << Qt::Alignment(Qt::AlignCenter) << 2.0 << false
                               << QRectF(10, 9, 20, 12);
    QTest::newRow("centre, 1.25") << Qt::Alignment(Qt::AlignCenter) << 1.25 << false
                                  << QRectF(13.75, 11.25, 12.5, 7.5);
    QTest::newRow("left, top") << (Qt::AlignLeft | Qt::AlignTop) << 1.0 << false
                               << QRectF(0, 0, 10, 6);
    QTest::newRow("right, bottom")
        << (Qt::AlignRight | Qt::AlignBottom) << 2.0 << false << QRectF(20, 18, 20, 12);
    QTest::newRow("right, mirrored")
        << (Qt::AlignRight | Qt::AlignVCenter) << 1.0 << true << QRectF(0, 12, 10, 6);
    QTest::newRow("larger than the widget")
        << Qt::Alignment(Qt::AlignCenter) << 5.0 << false << QRectF(-5, 0, 50, 30);
}

void tst_PushButtonController::placement()
{
    QFETCH(Qt::Alignment, alignment);
    QFETCH(double, scale);
    QFETCH(bool, rightToLeft);
    QFETCH(QRectF, rect);
    const SvgFiles files;
    const QString path =
        files.picture("mark.svg", 10, 6,
                      "<rect width='10' height='6' fill='#204060'/><circle cx='3' cy='3' r='2'/>");
    PushButtonController button;
    button.resize(40, 30);
    button.setLayoutDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    button.setSvgAlignment(alignment);
    button.setScale(scale);
    button.setButtonSvg(path);
    QCOMPARE(rendered(button), direct(path, rect));
}

void tst_PushButtonController::scaleIsAtLeastAHalf()
{
    const SvgFiles files;
    PushButtonController button;
    button.resize(40, 30);
    button.setButtonSvg(files.plain("plain", 20, 12, "#204060"));
    button.setScale(0.1);
    QCOMPARE(inkBounds(rendered(button)), QRect(15, 12, 10, 6));
    button.setScale(-3.0);
    QCOMPARE(inkBounds(rendered(button)), QRect(15, 12, 10, 6));
}

// Two shapes one over the other: as one sheet the lower one does not shine through.
void tst_PushButtonController::disabledOpacityIsOneSheet()
{
    const SvgFiles files;
    const QString path = files.picture("two.svg", 20, 20,
                                       "<rect width='20' height='20' fill='#ff0000'/><rect "
                                       "width='20' height='20' fill='#0000ff'/>");
    PushButtonController button;
    button.resize(40, 30);
    button.setButtonSvg(path);
    button.setIconSvg(files.plain("icon", 4, 4, "#00ff00"));
    button.setButtonDisableOpacity(0.5);
    QCOMPARE(rendered(button).pixelColor(12, 7), QColor(0, 0, 255));
    button.setEnabled(false);
    const QColor faded = rendered(button).pixelColor(12, 7);
    QVERIFY(faded.red() == 0 && faded.blue() >= 253);
    QVERIFY(qAbs(faded.alpha() - 128) <= 1);
    QCOMPARE(rendered(button).pixelColor(20, 15).green(), 255);
    button.setButtonDisableOpacity(1.0);
    QCOMPARE(rendered(button).pixelColor(12, 7), QColor(0, 0, 255));
}

void tst_PushButtonController::opacityIsEverythings()
{
    const SvgFiles files;
    PushButtonController button;
    button.resize(40, 30);
    const QString path = files.plain("plain", 20, 12, "#204060");
    button.setButtonSvg(path);
    button.setOpacity(0.25);
    QCOMPARE(rendered(button), direct(path, QRectF(10, 9, 20, 12), 0.25));
    button.setButtonSvg(QString());
    button.setText(QStringLiteral("Solo"));
    const QImage faint = rendered(button);
    button.setOpacity(0.0);
    QVERIFY(inkBounds(faint).isValid());
    QVERIFY(inkBounds(rendered(button)).isNull());
}

void tst_PushButtonController::shadowIsBlurredByTheScaledRadius()
{
    const SvgFiles files;
    PushButtonController button;
    button.resize(40, 30);
    button.setShadowSvg(files.plain("shadow", 10, 6, "#000000"));
    button.setShadowBlur(0.0);
    QCOMPARE(inkBounds(rendered(button)), QRect(15, 12, 10, 6));
    button.setShadowBlur(4.0);
    const QRect once = inkBounds(rendered(button));
    QVERIFY(once.width() > 10 && once.height() > 6);
    button.setShadowBlur(2.0);
    const QRect half = inkBounds(rendered(button));
    QVERIFY(half.width() < once.width());
    button.setScale(2.0);
    const QRect twice = inkBounds(rendered(button));
    QVERIFY(twice.width() >= 20 + (once.width() - 10) - 2);
}

void tst_PushButtonController::textLiesInItsMargins()
{
    PushButtonController button;
    button.resize(60, 40);
    QFont font(QStringLiteral("M+ 1c"));
    font.setPixelSize(12);
    button.setFont(font);
    button.setText(QStringLiteral("Hi"));
    button.setTextLeftMargin(3);
    button.setTextTopMargin(5);
    button.setTextRightMargin(7);
    button.setTextBottomMargin(9);
    button.setScale(1.5); // 4.5 is 5, 7.5 is 8, 10.5 is 11, 13.5 is 14
    button.setTextAlignment(Qt::AlignRight | Qt::AlignBottom);
    QImage expected(60, 40, QImage::Format_ARGB32_Premultiplied);
    expected.fill(Qt::transparent);
    QPainter painter(&expected);
    painter.setFont(font);
    painter.setPen(button.palette().color(QPalette::Text));
    painter.drawText(QRect(5, 8, 60 - 5 - 11, 40 - 8 - 14), Qt::AlignRight | Qt::AlignBottom,
                     QStringLiteral("Hi"));
    painter.end();
    QVERIFY(inkBounds(expected).isValid());
    QCOMPARE(rendered(button), expected);
    button.setTextLeftMargin(std::numeric_limits<int>::max());
    button.setTextRightMargin(std::numeric_limits<int>::min());
    rendered(button);
}

void tst_PushButtonController::textHasThePalettesColourOfTheState()
{
    PushButtonController button;
    button.resize(60, 40);
    button.setText(QStringLiteral("\u2588\u2588"));
    QPalette palette;
    palette.setColor(QPalette::Text, QColor(10, 20, 30));
    palette.setColor(QPalette::Disabled, QPalette::Text, QColor(60, 50, 40));
    button.setPalette(palette);
    QCOMPARE(rendered(button).pixelColor(30, 20), QColor(10, 20, 30));
    button.setEnabled(false);
    QCOMPARE(rendered(button).pixelColor(30, 20), QColor(60, 50, 40));
}

void tst_PushButtonController::accessibleSwitch()
{
    SwitchFixture fixture;
    fixture.host.setFormatter([](const QByteArray&, unsigned short, int value) {
        return QByteArray(value != 0 ? "Drive" : "Clean");
    });
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&fixture.button);
    QVERIFY(interface);
    QCOMPARE(interface->role(), QAccessible::CheckBox);
    QVERIFY(interface->state().checkable);
    QVERIFY(!interface->state().checked);
    QVERIFY(!interface->textInterface());
    QCOMPARE(interface->text(QAccessible::Value), QStringLiteral("Clean"));

    QAccessibleActionInterface* actions = interface->actionInterface();
    QCOMPARE(actions->actionNames(), QStringList({QAccessibleActionInterface::toggleAction(),
                                                  QAccessibleActionInterface::pressAction()}));
    actions->doAction(QAccessibleActionInterface::toggleAction());
    QCOMPARE(fixture.value(), 1);
    QVERIFY(interface->state().checked);
    QCOMPARE(interface->text(QAccessible::Value), QStringLiteral("Drive"));
    actions->doAction(QAccessibleActionInterface::pressAction());
    QCOMPARE(fixture.value(), 0);
    interface->valueInterface()->setCurrentValue(1);
    QCOMPARE(fixture.value(), 1);
    QCOMPARE(fixture.ledger.open(), 0);

    fixture.button.setText(QStringLiteral("Low"));
    QCOMPARE(interface->text(QAccessible::Name), QStringLiteral("Low"));
    fixture.button.setAccessibleName(QStringLiteral("Low band"));
    QCOMPARE(interface->text(QAccessible::Name), QStringLiteral("Low band"));

    fixture.button.setEnabled(false);
    QVERIFY(interface->state().disabled);
    QVERIFY(!actions->actionNames().contains(QAccessibleActionInterface::pressAction()));
    actions->doAction(QAccessibleActionInterface::pressAction());
    interface->valueInterface()->setCurrentValue(0);
    QCOMPARE(fixture.value(), 1);
}

void tst_PushButtonController::accessibleMomentary()
{
    MomentaryFixture fixture;
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&fixture.button);
    QCOMPARE(interface->role(), QAccessible::Button);
    QVERIFY(!interface->state().checkable);
    QAccessibleActionInterface* actions = interface->actionInterface();
    QCOMPARE(actions->actionNames(), QStringList({QAccessibleActionInterface::pressAction()}));
    actions->doAction(QAccessibleActionInterface::pressAction());
    QCOMPARE(written(fixture.host), QList<int>({1, 0}));
    interface->valueInterface()->setCurrentValue(1);
    actions->doAction(QAccessibleActionInterface::increaseAction());
    actions->doAction(QAccessibleActionInterface::toggleAction());
    QCOMPARE(written(fixture.host), QList<int>({1, 0}));
    press(fixture.button);
    QVERIFY(interface->state().pressed);
}

ZOLTA_TEST_MAIN(tst_PushButtonController)

#include "tst_PushButtonController.moc"
