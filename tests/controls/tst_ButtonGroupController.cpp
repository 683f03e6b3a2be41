// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/ButtonGroupController.h"
#include "controls/PushButtonController.h"
#include "tests/controls/ButtonTesting.h"
#include "tests/support/Columns.h"
#include "tests/support/TestObject.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTimer>

#include <limits>
#include <memory>

using namespace ButtonTesting;
using CommonController_MemAPI::AbstractController;
using CommonController_MemAPI::ButtonGroupController;
using CommonController_MemAPI::PushButtonController;

namespace {

constexpr int Type = 1; // 0..3, default 3

using CountedGroup = Ledgered<ButtonGroupController>;

/// Lets the children join their group.
void join() { QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall); }

/// Lets the group's update of its buttons, which is due in 10 ms, happen now.
void updateNow(ButtonGroupController& group)
{
    QVERIFY(QMetaObject::invokeMethod(&group, "updateChild", Qt::DirectConnection));
}

/// A group of three switches.
template <typename Button = QPushButton> struct Group
{
    explicit Group(int count = 3)
    {
        for (int i = 0; i < count; ++i)
            add();
        join();
    }

    Button* add()
    {
        auto* button = new Button(group);
        button->setGeometry(static_cast<int>(buttons.size()) * 30, 0, 30, 20);
        button->setCheckable(true);
        buttons.append(button);
        return button;
    }

    void bindTo(int number)
    {
        host.setSilently(TestHost::name(number), 0, 0);
        bind(*group, host, number);
        host.resetLedger();
    }

    int checked() const
    {
        int index = -1;
        for (int i = 0; i < buttons.size(); ++i) {
            if (buttons.at(i)->isChecked())
                index = index < 0 ? i : 99;
        }
        return index;
    }

    int value() const { return host.value(TestHost::name(Type), 0); }

    TestHost host;
    Ledger ledger;
    QWidget window;
    QPointer<CountedGroup> group = new CountedGroup(ledger, &window);
    QList<Button*> buttons;
};

} // namespace

class tst_ButtonGroupController : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void paintsNothing();

    void threeButtonsHaveTheRangeZeroToThree();
    void valueThreeChecksNoButton();
    void childrenJoinWhenTheyAreWhole();
    void otherChildrenDoNotCount();
    void rangeStartsAtTheMinimum();
    void childThatLeavesBeforeItJoins();
    void removedButtonIsForgotten();
    void destroyedButtonIsForgotten();
    void orderIsThatOfAdding();

    void valueReachesTheButtonsLater();
    void rapidUpdatesCheckAtMostOnce();
    void updateWaitsForPendingChildren();
    void valueOutsideLeavesTheButtons();

    void buttonsWriteTheirIndex();
    void clicksOfEveryKindOfButton();
    void buttonBeyondTheRangeWritesNothing();
    void hostsUpdateIsNotWrittenBack();
    void buttonsAreExclusive();

    void controlClickResets();
    void controlClickNeedsItsConditions_data();
    void controlClickNeedsItsConditions();
    void controlDoubleClickResets();

    void destroyedWithAnUpdateScheduled();
    void wideRanges();
};

void tst_ButtonGroupController::paintsNothing()
{
    ButtonGroupController group;
    group.resize(80, 40);
    group.setTitle(QStringLiteral("Title"));
    QVERIFY(inkBounds(rendered(group)).isNull());
}

void tst_ButtonGroupController::threeButtonsHaveTheRangeZeroToThree()
{
    const Group group;
    QCOMPARE(group.group->minimumValue(), 0);
    QCOMPARE(group.group->maximumValue(), 3);
    QCOMPARE(group.group->buttons().size(), 3);
}

void tst_ButtonGroupController::valueThreeChecksNoButton()
{
    const Group group;
    updateNow(*group.group);
    QCOMPARE(group.checked(), 0);
    Group fresh;
    fresh.group->setValue(3);
    updateNow(*fresh.group);
    QCOMPARE(fresh.group->value(), 3);
    QCOMPARE(fresh.checked(), -1);
}

void tst_ButtonGroupController::childrenJoinWhenTheyAreWhole()
{
    ButtonGroupController group;
    QSignalSpy added(&group, &ButtonGroupController::childAdded);
    QPushButton first(&group);
    QCOMPARE(added.count(), 1);
    QCOMPARE(added.first().first().value<QObject*>(), &first);
    QVERIFY(group.buttons().isEmpty());
    QCOMPARE(group.maximumValue(), 1);
    QPushButton second(&group);
    QCOMPARE(group.maximumValue(), 2);
    join();
    QCOMPARE(group.buttons(), QList<QAbstractButton*>({&first, &second}));
}

void tst_ButtonGroupController::otherChildrenDoNotCount()
{
    ButtonGroupController group;
    new QHBoxLayout(&group);
    new QLabel(&group);
    new QPushButton(&group);
    QCOMPARE(group.maximumValue(), 3);
    join();
    QCOMPARE(group.maximumValue(), 1);
    QCOMPARE(group.buttons().size(), 1);
}

void tst_ButtonGroupController::rangeStartsAtTheMinimum()
{
    ButtonGroupController group;
    group.setMinimumValue(5);
    QPushButton first(&group);
    QPushButton second(&group);
    first.setCheckable(true);
    second.setCheckable(true);
    join();
    QCOMPARE(group.maximumValue(), 7);
    second.click();
    QCOMPARE(group.value(), 6);
}

void tst_ButtonGroupController::childThatLeavesBeforeItJoins()
{
    Group group(1);
    auto gone = std::make_unique<QPushButton>(group.group);
    auto moved = std::make_unique<QPushButton>(group.group);
    QCOMPARE(group.group->maximumValue(), 3);
    gone.reset();
    moved->setParent(&group.window);
    QCOMPARE(group.group->maximumValue(), 1);
    join();
    QCOMPARE(group.group->buttons().size(), 1);
    // Away and back again: it joins once.
    moved->setParent(group.group);
    moved->setParent(&group.window);
    moved->setParent(group.group);
    join();
    QCOMPARE(group.group->buttons().size(), 2);
    QCOMPARE(group.group->maximumValue(), 2);
}

void tst_ButtonGroupController::removedButtonIsForgotten()
{
    Group group;
    group.buttons.at(1)->setParent(&group.window);
    QCOMPARE(group.group->maximumValue(), 2);
    QCOMPARE(group.group->buttons().size(), 2);
    group.buttons.at(1)->click();
    QCOMPARE(group.group->value(), 0);
    group.group->setEnableDefaultSet(true);
    group.group->setDefaultValue(2);
    press(*group.buttons.at(1), Qt::ControlModifier);
    QCOMPARE(group.group->value(), 0);
    group.buttons.at(2)->click();
    QCOMPARE(group.group->value(), 1);
}

void tst_ButtonGroupController::destroyedButtonIsForgotten()
{
    Group group;
    delete group.buttons.takeFirst();
    QCOMPARE(group.group->maximumValue(), 2);
    group.buttons.at(1)->click();
    QCOMPARE(group.group->value(), 1);
}

void tst_ButtonGroupController::orderIsThatOfAdding()
{
    Group group;
    group.buttons.at(0)->raise();
    group.buttons.at(1)->lower();
    group.buttons.at(2)->click();
    QCOMPARE(group.group->value(), 2);
    QPushButton* last = group.add();
    join();
    last->click();
    QCOMPARE(group.group->value(), 3);
}

void tst_ButtonGroupController::valueReachesTheButtonsLater()
{
    Group group;
    group.bindTo(Type);
    group.host.set(TestHost::name(Type), 0, 2);
    QCOMPARE(group.checked(), -1);
    QTRY_COMPARE(group.checked(), 2);
    group.host.set(TestHost::name(Type), 0, 1);
    QCOMPARE(group.checked(), 2);
    QTRY_COMPARE(group.checked(), 1);
}

void tst_ButtonGroupController::rapidUpdatesCheckAtMostOnce()
{
    Group group;
    group.bindTo(Type);
    updateNow(*group.group);
    int toggles = 0;
    for (const QPushButton* button : group.buttons)
        connect(button, &QAbstractButton::toggled, this, [&] { ++toggles; });
    QSignalSpy changed(group.group, qOverload<int>(&ButtonGroupController::valueChanged));
    for (int i = 1; i <= 1000; ++i)
        group.host.set(TestHost::name(Type), 0, 1 + i % 2);
    QCOMPARE(changed.count(), 1000);
    QCOMPARE(toggles, 0);
    QTRY_COMPARE(toggles, 2); // one off, one on
    QCOMPARE(group.checked(), 1);
    QCOMPARE(ButtonGroupController::UpdateDelay, 10);
    // Updates that do not cease put nothing off.
    QTimer later;
    later.setSingleShot(true);
    later.start(10 * ButtonGroupController::UpdateDelay);
    for (int i = 0; later.isActive() && toggles == 2; ++i) {
        group.host.set(TestHost::name(Type), 0, i % 2);
        QCoreApplication::processEvents();
    }
    QVERIFY(toggles > 2);
}

void tst_ButtonGroupController::updateWaitsForPendingChildren()
{
    Group group;
    group.bindTo(Type);
    group.host.set(TestHost::name(Type), 0, 3);
    group.add();
    updateNow(*group.group);
    QCOMPARE(group.checked(), -1);
    QTRY_COMPARE(group.checked(), 3);
    QPushButton* late = group.add();
    group.host.set(TestHost::name(Type), 0, 1);
    updateNow(*group.group);
    group.buttons.removeLast();
    delete late; // the last pending child goes without joining
    QTRY_COMPARE(group.checked(), 1);
}

void tst_ButtonGroupController::valueOutsideLeavesTheButtons()
{
    Group group;
    group.bindTo(Type);
    group.host.set(TestHost::name(Type), 0, 1);
    updateNow(*group.group);
    for (const int value : {3, -1, 99}) {
        group.host.set(TestHost::name(Type), 0, value);
        updateNow(*group.group);
        QCOMPARE(group.checked(), 1);
    }
    QCOMPARE(group.host.count(TestHost::Operation::SetValue), 0);
}

void tst_ButtonGroupController::buttonsWriteTheirIndex()
{
    Group group;
    group.bindTo(Type);
    group.host.setRange(TestHost::name(Type), 10, 13);
    group.host.set(TestHost::name(Type), 0, 10);
    updateNow(*group.group);
    group.buttons.at(2)->click();
    QCOMPARE(group.value(), 12);
    group.buttons.at(2)->click();
    group.buttons.at(1)->click();
    QCOMPARE(group.value(), 11);
    QCOMPARE(group.host.writes().size(), std::size_t(2));
    QVERIFY(group.ledger.has(2));
}

template <typename Button> void clickThrough()
{
    Group<Button> group;
    group.bindTo(Type);
    updateNow(*group.group);
    for (const int index : {1, 2, 0, 0, 2}) {
        Button& button = *group.buttons.at(index);
        // A radio button is clicked at its indicator, at the left.
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease})
            sendMouse(button, type, QPoint(6, 10), Qt::LeftButton,
                      type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, {});
        QCOMPARE(group.value(), index);
        QCOMPARE(group.checked(), index);
        updateNow(*group.group);
        QCOMPARE(group.checked(), index);
    }
    group.host.set(TestHost::name(Type), 0, 1);
    updateNow(*group.group);
    QCOMPARE(group.checked(), 1);
    QCOMPARE(group.ledger.open(), 0);
}

void tst_ButtonGroupController::clicksOfEveryKindOfButton()
{
    clickThrough<QPushButton>();
    clickThrough<QRadioButton>();
    clickThrough<PushButtonController>();
}

void tst_ButtonGroupController::buttonBeyondTheRangeWritesNothing()
{
    Group group;
    group.bindTo(Type);
    group.host.setRange(TestHost::name(Type), 0, 1);
    group.buttons.at(2)->click();
    QCOMPARE(group.host.count(TestHost::Operation::SetValue), 0);
    QCOMPARE(group.ledger.begun, 0);
    group.buttons.at(1)->click(); // the last of the range
    QCOMPARE(group.value(), 1);
}

void tst_ButtonGroupController::hostsUpdateIsNotWrittenBack()
{
    Group group;
    group.bindTo(Type);
    for (const int value : {1, 2, 0, 3}) {
        group.host.set(TestHost::name(Type), 0, value);
        updateNow(*group.group);
    }
    QCOMPARE(group.host.count(TestHost::Operation::SetValue), 0);
    QCOMPARE(group.ledger.begun, 0);
}

void tst_ButtonGroupController::buttonsAreExclusive()
{
    Group group;
    group.buttons.at(0)->setChecked(true);
    group.buttons.at(2)->setChecked(true);
    QCOMPARE(group.checked(), 2);
    QCOMPARE(group.group->value(), 2);
}

void tst_ButtonGroupController::controlClickResets()
{
    Group group;
    group.bindTo(Type);
    group.host.setDefault(TestHost::name(Type), 2);
    group.group->setEnableDefaultSet(true);
    updateNow(*group.group);
    QSignalSpy modifiers(group.group, &ButtonGroupController::modifiersChange);
    QSignalSpy pressed(group.buttons.at(1), &QAbstractButton::pressed);
    QVERIFY(press(*group.buttons.at(1), Qt::ControlModifier));
    release(*group.buttons.at(1), Qt::ControlModifier);
    QCOMPARE(group.value(), 2);
    QCOMPARE(pressed.count(), 0);
    QCOMPARE(modifiers.count(), 1);
    QCOMPARE(modifiers.first().at(0).value<AbstractController*>(),
             static_cast<AbstractController*>(group.group));
    QCOMPARE(modifiers.first().at(1).value<Qt::KeyboardModifiers>(), Qt::ControlModifier);
    updateNow(*group.group);
    QCOMPARE(group.checked(), 2);
    click(*group.buttons.at(0), Qt::ControlModifier);
    QCOMPARE(modifiers.count(), 1);
    QVERIFY(group.ledger.has(2));
}

void tst_ButtonGroupController::controlClickNeedsItsConditions_data()
{
    addColumns<bool, int, bool, int>("enableDefaultSet", "modifiers", "right", "disabled");
    QTest::newRow("not set") << false << int(Qt::ControlModifier) << false << 0;
    QTest::newRow("no modifier") << true << 0 << false << 0;
    QTest::newRow("more modifiers")
        << true << int(Qt::ControlModifier) + int(Qt::ShiftModifier) << false << 0;
    QTest::newRow("right button") << true << int(Qt::ControlModifier) << true << 0;
    QTest::newRow("button disabled") << true << int(Qt::ControlModifier) << false << 1;
    QTest::newRow("group disabled") << true << int(Qt::ControlModifier) << false << 2;
}

void tst_ButtonGroupController::controlClickNeedsItsConditions()
{
    QFETCH(bool, enableDefaultSet);
    QFETCH(int, modifiers);
    QFETCH(bool, right);
    QFETCH(int, disabled);
    Group group;
    group.bindTo(Type);
    group.group->setEnableDefaultSet(enableDefaultSet);
    QPushButton& button = *group.buttons.at(1);
    if (disabled == 1)
        button.setEnabled(false);
    if (disabled == 2)
        group.group->setEnabled(false);
    const Qt::MouseButton mouse = right ? Qt::RightButton : Qt::LeftButton;
    sendMouse(button, QEvent::MouseButtonPress, QPoint(5, 5), mouse, mouse,
              Qt::KeyboardModifiers(modifiers));
    QCOMPARE(group.host.count(TestHost::Operation::SetValue), 0);
    QCOMPARE(button.isDown(), !right && disabled == 0);
}

void tst_ButtonGroupController::controlDoubleClickResets()
{
    Group group;
    group.bindTo(Type);
    group.host.setDefault(TestHost::name(Type), 2);
    group.group->setEnableDefaultSet(true);
    sendMouse(*group.buttons.at(0), QEvent::MouseButtonDblClick, QPoint(5, 5), Qt::LeftButton,
              Qt::LeftButton, Qt::ControlModifier);
    QVERIFY(!group.buttons.at(0)->isDown());
    QCOMPARE(group.value(), 2);
}

void tst_ButtonGroupController::destroyedWithAnUpdateScheduled()
{
    Group group;
    group.bindTo(Type);
    group.host.set(TestHost::name(Type), 0, 2);
    group.add();
    delete group.group;
    QCOMPARE(group.host.observerCount(), 0);
    QCoreApplication::processEvents();
}

void tst_ButtonGroupController::wideRanges()
{
    constexpr int lowest = std::numeric_limits<int>::min();
    constexpr int highest = std::numeric_limits<int>::max();
    Group group;
    group.bindTo(Type);
    group.host.setRange(TestHost::name(Type), lowest, highest);
    group.host.set(TestHost::name(Type), 0, highest);
    updateNow(*group.group);
    QCOMPARE(group.checked(), -1);
    group.buttons.at(2)->click();
    QCOMPARE(group.value(), lowest + 2);
    group.host.setRange(TestHost::name(Type), highest - 1, highest);
    group.host.set(TestHost::name(Type), 0, highest);
    group.buttons.at(0)->click();
    QCOMPARE(group.value(), highest - 1);
    group.buttons.at(2)->click();
    QCOMPARE(group.value(), highest - 1);
}

ZOLTA_TEST_MAIN(tst_ButtonGroupController)

#include "tst_ButtonGroupController.moc"
