// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/PullDownButtonController.h"
#include "tests/controls/ButtonTesting.h"
#include "tests/support/Columns.h"
#include "tests/support/TestObject.h"
#include "tests/widgets/SvgFiles.h"

#include <QSignalSpy>
#include <QStyle>
#include <QStyleFactory>
#include <QTimer>

#include <functional>
#include <limits>
#include <memory>
#include <utility>

using namespace ButtonTesting;
using CommonController_MemAPI::PullDownButtonController;
using CommonController_MemAPI::PullDownButtonControllerPrivate::Menu;

namespace {

constexpr int Type = 1; // 0..3, default 3

QStringList texts(std::initializer_list<const char*> list)
{
    QStringList strings;
    for (const char* text : list)
        strings.append(QString::fromLatin1(text));
    return strings;
}

const QStringList Types = texts({"Shelf", "Peak", "Pass", "Notch"});

using CountedPullDown = Ledgered<PullDownButtonController>;

/// A pull-down of four texts in a window away from the mouse pointer.
struct Fixture
{
    Fixture()
    {
        window->setGeometry(200, 150, 300, 200);
        button->setGeometry(20, 30, 90, 24);
        button->setTextList(Types);
        window->show();
    }

    int value() const { return host.value(TestHost::name(Type), 0); }

    TestHost host;
    Ledger ledger;
    std::unique_ptr<QWidget> window = std::make_unique<QWidget>();
    qint64 elapsed = Menu::OpeningClick; ///< of a menu since it opened
    QPointer<CountedPullDown> button =
        new CountedPullDown(ledger, window.get(), [this] { return elapsed; });
};

struct BoundFixture : Fixture
{
    BoundFixture()
    {
        host.setSilently(TestHost::name(Type), 0, 1);
        bind(*button, host, Type);
        host.resetLedger();
    }
};

/// Opens a menu by \a open and has it used as soon as it shows. A menu left open is closed. False
/// if no menu showed.
bool useMenu(const std::function<void()>& open, const std::function<void(Menu&)>& use)
{
    bool isUsed = false;
    QTimer timer;
    timer.setSingleShot(true);
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        const QPointer<Menu> menu = qobject_cast<Menu*>(QApplication::activePopupWidget());
        if (!menu)
            return;
        isUsed = true;
        use(*menu);
        if (menu)
            menu->close();
    });
    timer.start(0);
    open();
    return isUsed;
}

bool useMenu(PullDownButtonController& button, const std::function<void(Menu&)>& use)
{
    return useMenu([&] { button.openPullDown(); }, use);
}

QPoint itemPosition(const Menu& menu, int index)
{
    return menu.actionGeometry(menu.actions().at(index)).center();
}

void pick(Menu& menu, int index)
{
    const QPoint position = itemPosition(menu, index);
    sendMouse(menu, QEvent::MouseButtonPress, position, Qt::LeftButton, Qt::LeftButton, {});
    sendMouse(menu, QEvent::MouseButtonRelease, position, Qt::LeftButton, {});
}

std::function<void(Menu&)> picking(int index)
{
    return [index](Menu& menu) { pick(menu, index); };
}

void nothing(Menu&) {}

} // namespace

class tst_PullDownButtonController : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void emptyListHasOneValueAndShowsTheEmptyText();
    void rangeFollowsTheListFromTheMinimum();
    void currentTextFollowsValueAndVisibility();
    void textIsDrawnOverTheLayers();

    void opensAtTheLowerLeft();
    void menuBelongsToItsButton();
    void itemsAreNumberedByTheIndexColumn_data();
    void itemsAreNumberedByTheIndexColumn();
    void currentItemIsCheckedAndActive();
    void hiddenItemsAreNotOffered();
    void doesNotOpen_data();
    void doesNotOpen();
    void opensOnlyOnce();

    void pressOpensTheMenu();
    void pressWithoutAutoPullDownDoesNothing();
    void buttonNeverWritesOnItsOwn();
    void pressOnTheButtonClosesWithoutOpeningAnew();

    void choosingWritesAndTells();
    void choosingTheCurrentItemIsSelectedButNotChanged();
    void dismissedMenuChoosesNothing();
    void keyboardChooses();
    void releaseOfTheOpeningClickNeverPicks();
    void menusOwnClockRuns();

    void closesMeanwhile_data();
    void closesMeanwhile();
    void menuDestroyedWhileOpen();
    void valuesBeyondTheListAndWideRanges();

    void accessibleMenu();
};

void tst_PullDownButtonController::emptyListHasOneValueAndShowsTheEmptyText()
{
    PullDownButtonController button;
    button.setEmptyText(QStringLiteral("None"));
    QCOMPARE(button.minimumValue(), button.maximumValue());
    QCOMPARE(button.currentText(), QStringLiteral("None"));
    button.setTextList(Types);
    button.setMinimumValue(-2);
    button.setTextList({});
    QCOMPARE(button.minimumValue(), -2);
    QCOMPARE(button.maximumValue(), -2);
    QCOMPARE(button.currentText(), QStringLiteral("None"));
}

void tst_PullDownButtonController::rangeFollowsTheListFromTheMinimum()
{
    PullDownButtonController button;
    button.setTextList(Types);
    QCOMPARE(button.minimumValue(), 0);
    QCOMPARE(button.maximumValue(), 3);
    button.setMinimumValue(2);
    button.setTextList(texts({"A", "B", "C", "D", "E"}));
    QCOMPARE(button.maximumValue(), 6);
    button.setValue(3);
    QCOMPARE(button.currentText(), QStringLiteral("B"));
    BoundFixture bound;
    bound.button->setTextList(texts({"A"}));
    QCOMPARE(bound.button->maximumValue(), 3);
}

void tst_PullDownButtonController::currentTextFollowsValueAndVisibility()
{
    BoundFixture fixture;
    PullDownButtonController& button = *fixture.button;
    button.setInvisibleText(QStringLiteral("-"));
    QCOMPARE(button.currentText(), QStringLiteral("Peak"));
    fixture.host.set(TestHost::name(Type), 0, 3);
    QCOMPARE(button.currentText(), QStringLiteral("Notch"));
    button.setVisibleList({true, true, true, false});
    QCOMPARE(button.currentText(), QStringLiteral("-"));
    button.setVisibleList({false});
    QCOMPARE(button.currentText(), QStringLiteral("Notch"));
    fixture.host.set(TestHost::name(Type), 0, 17);
    QCOMPARE(button.currentText(), QString());
    fixture.host.set(TestHost::name(Type), 0, -1);
    QCOMPARE(button.currentText(), QString());
}

void tst_PullDownButtonController::textIsDrawnOverTheLayers()
{
    const SvgFiles files;
    PullDownButtonController button;
    button.resize(90, 24);
    button.setButtonSvg(files.plain("arrow.svg", 10, 8, "#c80000"));
    button.setTextList(texts({"One", "Two"}));
    button.setText(QStringLiteral("not shown"));
    const auto expected = [&](const QString& text) {
        QImage image(90, 24, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.fillRect(80, 8, 10, 8, QColor(200, 0, 0));
        painter.setFont(button.font());
        painter.setPen(button.palette().color(QPalette::Text));
        painter.drawText(QRect(0, 0, 90, 24), Qt::AlignLeft | Qt::AlignVCenter, text);
        return image;
    };
    QCOMPARE(rendered(button), expected(QStringLiteral("One")));
    button.setValue(1);
    QCOMPARE(rendered(button), expected(QStringLiteral("Two")));
    QVERIFY(expected(QStringLiteral("One")) != expected(QStringLiteral("Two")));
}

void tst_PullDownButtonController::opensAtTheLowerLeft()
{
    Fixture fixture;
    QVERIFY(useMenu(*fixture.button, [&](const Menu& menu) {
        QCOMPARE(menu.pos(), fixture.window->mapToGlobal(QPoint(20, 30 + 24)));
        QVERIFY(fixture.button->isOpen());
    }));
    QVERIFY(!fixture.button->isOpen());
}

void tst_PullDownButtonController::menuBelongsToItsButton()
{
    Fixture fixture;
    const std::unique_ptr<QStyle> style(QStyleFactory::create(QStringLiteral("Windows")));
    QFont font(QStringLiteral("M+ 1c"));
    font.setPixelSize(17);
    fixture.button->setFont(font);
    fixture.button->setStyle(style.get());
    QPointer<const Menu> last;
    QVERIFY(useMenu(*fixture.button, [&](const Menu& menu) {
        last = &menu;
        QCOMPARE(menu.owner(), fixture.button.data());
        QCOMPARE(menu.metaObject()->className(),
                 "CommonController_MemAPI::PullDownButtonControllerPrivate::Menu");
        QCOMPARE(menu.style(), style.get());
        QCOMPARE(menu.font().family(), QStringLiteral("M+ 1c"));
        QCOMPARE(menu.font().pixelSize(), 17);
    }));
    QVERIFY(last);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!last);
}

void tst_PullDownButtonController::itemsAreNumberedByTheIndexColumn_data()
{
    addColumns<int, int, QString>("width", "origin", "second");
    QTest::newRow("no column") << 0 << 1 << "Peak";
    QTest::newRow("negative width") << -3 << 1 << "Peak";
    QTest::newRow("column") << 12 << 1 << "2 Peak";
    QTest::newRow("column from 0") << 1 << 0 << "1 Peak";
    QTest::newRow("largest origin") << 12 << std::numeric_limits<int>::max() << "2147483648 Peak";
}

void tst_PullDownButtonController::itemsAreNumberedByTheIndexColumn()
{
    QFETCH(int, width);
    QFETCH(int, origin);
    Fixture fixture;
    fixture.button->setIndexWidth(width);
    fixture.button->setIndexOrigin(origin);
    QVERIFY(useMenu(*fixture.button, [](const Menu& menu) {
        QCOMPARE(menu.actions().size(), 4);
        QTEST(menu.actions().at(1)->text(), "second");
    }));
}

void tst_PullDownButtonController::currentItemIsCheckedAndActive()
{
    BoundFixture fixture;
    QVERIFY(useMenu(*fixture.button, [](const Menu& menu) {
        for (int i = 0; i < 4; ++i) {
            QCOMPARE(menu.actions().at(i)->isCheckable(), i == 1);
            QCOMPARE(menu.actions().at(i)->isChecked(), i == 1);
        }
        QCOMPARE(menu.activeAction(), menu.actions().at(1));
    }));
}

void tst_PullDownButtonController::hiddenItemsAreNotOffered()
{
    Fixture fixture;
    fixture.button->setVisibleList({true, false});
    QVERIFY(useMenu(*fixture.button, [](Menu& menu) {
        QVERIFY(menu.actions().at(0)->isVisible());
        QVERIFY(!menu.actions().at(1)->isVisible());
        QVERIFY(menu.actions().at(2)->isVisible());
        pick(menu, 2);
    }));
    QCOMPARE(fixture.button->value(), 2);
}

void tst_PullDownButtonController::doesNotOpen_data()
{
    QTest::addColumn<QString>("why");
    QTest::newRow("no texts") << "no texts";
    QTest::newRow("all hidden") << "all hidden";
    QTest::newRow("disabled") << "disabled";
}

void tst_PullDownButtonController::doesNotOpen()
{
    QFETCH(QString, why);
    Fixture fixture;
    if (why == QLatin1String("no texts"))
        fixture.button->setTextList({});
    else if (why == QLatin1String("all hidden"))
        fixture.button->setVisibleList({false, false, false, false});
    else
        fixture.button->setEnabled(false);
    QVERIFY(!useMenu(*fixture.button, nothing));
    press(*fixture.button);
    release(*fixture.button);
    QVERIFY(!fixture.button->isDown());
}

void tst_PullDownButtonController::opensOnlyOnce()
{
    Fixture fixture;
    QVERIFY(useMenu(*fixture.button, [&](const Menu& menu) {
        fixture.button->openPullDown();
        QCOMPARE(QApplication::activePopupWidget(), static_cast<const QWidget*>(&menu));
    }));
}

void tst_PullDownButtonController::pressOpensTheMenu()
{
    BoundFixture fixture;
    QVERIFY(useMenu([&] { press(*fixture.button); },
                    [&](Menu& menu) {
                        QVERIFY(fixture.button->isDown());
                        pick(menu, 2);
                    }));
    QCOMPARE(fixture.value(), 2);
    QVERIFY(useMenu([&] { press(*fixture.button); }, nothing));
    QVERIFY(!fixture.button->isDown());
}

void tst_PullDownButtonController::pressWithoutAutoPullDownDoesNothing()
{
    BoundFixture fixture;
    fixture.button->setAutoPullDown(false);
    QVERIFY(!useMenu([&] { click(*fixture.button); }, nothing));
    QCOMPARE(fixture.host.count(TestHost::Operation::SetValue), 0);
}

void tst_PullDownButtonController::buttonNeverWritesOnItsOwn()
{
    BoundFixture fixture;
    PullDownButtonController& button = *fixture.button;
    button.setAutoPullDown(false);
    for (const bool checkable : {false, true}) {
        button.setCheckable(checkable);
        for (const int trigger : {49, 50}) {
            button.setCheckTrigger(PullDownButtonController::CheckTrigger(trigger));
            click(button);
            button.click();
            button.toggle();
            button.setOn();
            button.setOff();
            press(button);
            button.hide();
            button.show();
        }
    }
    QCOMPARE(fixture.host.count(TestHost::Operation::SetValue), 0);
    QCOMPARE(fixture.ledger.begun, 0);
}

void tst_PullDownButtonController::pressOnTheButtonClosesWithoutOpeningAnew()
{
    Fixture fixture;
    QVERIFY(useMenu(*fixture.button, [&](Menu& menu) {
        const QPoint onButton = fixture.button->mapToGlobal(QPoint(5, 5));
        sendMouse(menu, QEvent::MouseButtonPress, menu.mapFromGlobal(onButton), Qt::LeftButton,
                  Qt::LeftButton, {});
        QVERIFY(menu.testAttribute(Qt::WA_NoMouseReplay));
        QVERIFY(!menu.isVisible());
    }));
    QVERIFY(useMenu(*fixture.button, [&](Menu& menu) {
        const QPoint elsewhere = fixture.button->mapToGlobal(QPoint(5, -5));
        sendMouse(menu, QEvent::MouseButtonPress, menu.mapFromGlobal(elsewhere), Qt::LeftButton,
                  Qt::LeftButton, {});
        QVERIFY(!menu.testAttribute(Qt::WA_NoMouseReplay));
    }));
}

void tst_PullDownButtonController::choosingWritesAndTells()
{
    BoundFixture fixture;
    fixture.host.setRange(TestHost::name(Type), 10, 13);
    fixture.host.set(TestHost::name(Type), 0, 10);
    QStringList order;
    connect(fixture.button, &PullDownButtonController::changed, this,
            [&] { order.append(QStringLiteral("changed")); });
    connect(fixture.button, &PullDownButtonController::selected, this,
            [&] { order.append(QStringLiteral("selected")); });
    QVERIFY(useMenu(*fixture.button, picking(3)));
    QCOMPARE(fixture.value(), 13);
    QCOMPARE(order, texts({"changed", "selected"}));
    QVERIFY(fixture.ledger.has(1));
}

void tst_PullDownButtonController::choosingTheCurrentItemIsSelectedButNotChanged()
{
    BoundFixture fixture;
    QSignalSpy changed(fixture.button, &PullDownButtonController::changed);
    QSignalSpy selected(fixture.button, &PullDownButtonController::selected);
    QVERIFY(useMenu(*fixture.button, picking(1)));
    QCOMPARE(selected.count(), 1);
    QCOMPARE(changed.count(), 0);
    QCOMPARE(fixture.value(), 1);
}

void tst_PullDownButtonController::dismissedMenuChoosesNothing()
{
    BoundFixture fixture;
    QSignalSpy selected(fixture.button, &PullDownButtonController::selected);
    QVERIFY(useMenu(*fixture.button, [](Menu& menu) { QTest::keyClick(&menu, Qt::Key_Escape); }));
    QCOMPARE(selected.count(), 0);
    QCOMPARE(fixture.host.count(TestHost::Operation::SetValue), 0);
    QCOMPARE(fixture.ledger.begun, 0);
}

void tst_PullDownButtonController::keyboardChooses()
{
    BoundFixture fixture;
    fixture.button->setVisibleList({true, true, false});
    QVERIFY(useMenu(*fixture.button, [](Menu& menu) {
        QTest::keyClick(&menu, Qt::Key_Down);
        QCOMPARE(menu.activeAction(), menu.actions().at(3));
        QTest::keyClick(&menu, Qt::Key_Return);
    }));
    QCOMPARE(fixture.value(), 3);
}

void tst_PullDownButtonController::releaseOfTheOpeningClickNeverPicks()
{
    BoundFixture fixture;
    const auto drag = [&](Menu& menu, qint64 elapsed) {
        fixture.elapsed = elapsed;
        const QPoint position = itemPosition(menu, 3);
        sendMouse(menu, QEvent::MouseMove, position, Qt::NoButton, Qt::LeftButton, {});
        sendMouse(menu, QEvent::MouseButtonRelease, position, Qt::LeftButton, {});
    };
    QVERIFY(useMenu([&] { press(*fixture.button); },
                    [&](Menu& menu) {
                        for (const qint64 elapsed : {0, 50, 99}) {
                            drag(menu, elapsed);
                            QVERIFY(menu.isVisible());
                        }
                        drag(menu, 100);
                        QVERIFY(!menu.isVisible());
                    }));
    QCOMPARE(fixture.value(), 3);
}

void tst_PullDownButtonController::menusOwnClockRuns()
{
    Fixture fixture;
    Menu menu(fixture.button);
    menu.addAction(QStringLiteral("One"));
    QSignalSpy triggered(&menu, &QMenu::triggered);
    menu.popup(QPoint(300, 300));
    QTRY_VERIFY((pick(menu, 0), !triggered.isEmpty()));
}

void tst_PullDownButtonController::closesMeanwhile_data()
{
    QTest::addColumn<QString>("why");
    for (const char* why : {"disabled", "hidden", "unbound", "texts changed", "visibility changed",
                            "destroyed", "destroyed with its window"})
        QTest::newRow(why) << why;
}

void tst_PullDownButtonController::closesMeanwhile()
{
    QFETCH(QString, why);
    BoundFixture fixture;
    QSignalSpy selected(fixture.button, &PullDownButtonController::selected);
    QVERIFY(useMenu([&] { press(*fixture.button); },
                    [&](const Menu& menu) {
                        const QPointer<const Menu> seen = &menu;
                        if (why == QLatin1String("disabled"))
                            fixture.button->setEnabled(false);
                        else if (why == QLatin1String("hidden"))
                            fixture.button->hide();
                        else if (why == QLatin1String("unbound"))
                            fixture.button->setMemAPIValue(nullptr, 0, 0, 0);
                        else if (why == QLatin1String("texts changed"))
                            fixture.button->setTextList(texts({"A"}));
                        else if (why == QLatin1String("visibility changed"))
                            fixture.button->setVisibleList({false});
                        else if (why == QLatin1String("destroyed"))
                            delete fixture.button;
                        else
                            fixture.window.reset();
                        QVERIFY(!seen || !seen->isVisible());
                    }));
    QCOMPARE(selected.count(), 0);
    QVERIFY(!fixture.button || !fixture.button->isOpen());
    QVERIFY(fixture.button || fixture.host.observerCount() == 0);
    QCOMPARE(fixture.host.count(TestHost::Operation::SetValue), 0);
}

void tst_PullDownButtonController::menuDestroyedWhileOpen()
{
    BoundFixture fixture;
    QVERIFY(useMenu(*fixture.button, [](Menu& menu) { delete &menu; }));
    QVERIFY(!fixture.button->isOpen());
    QVERIFY(useMenu(*fixture.button, picking(2)));
    QCOMPARE(fixture.value(), 2);
}

void tst_PullDownButtonController::valuesBeyondTheListAndWideRanges()
{
    BoundFixture fixture;
    constexpr int lowest = std::numeric_limits<int>::min();
    constexpr int highest = std::numeric_limits<int>::max();
    fixture.host.setRange(TestHost::name(Type), lowest, highest);
    fixture.host.set(TestHost::name(Type), 0, highest);
    QCOMPARE(fixture.button->currentText(), QString());
    QVERIFY(useMenu(*fixture.button, [](Menu& menu) {
        QVERIFY(!menu.activeAction());
        pick(menu, 2);
    }));
    QCOMPARE(fixture.value(), lowest + 2);
    QCOMPARE(fixture.button->currentText(), QStringLiteral("Pass"));
    fixture.host.setRange(TestHost::name(Type), highest - 1, highest);
    fixture.host.set(TestHost::name(Type), 0, highest - 1);
    QVERIFY(useMenu(*fixture.button, picking(3)));
    QCOMPARE(fixture.value(), highest);

    PullDownButtonController unbound;
    unbound.setMaximumValue(highest);
    unbound.setMinimumValue(highest - 1);
    unbound.setTextList(Types);
    QCOMPARE(unbound.maximumValue(), highest);
}

void tst_PullDownButtonController::accessibleMenu()
{
    BoundFixture fixture;
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(fixture.button);
    QVERIFY(interface->state().hasPopup && interface->state().collapsed);
    const QString showMenu = QAccessibleActionInterface::showMenuAction();
    QVERIFY(interface->actionInterface()->actionNames().contains(showMenu));
    interface->actionInterface()->doAction(showMenu);
    QVERIFY(!fixture.button->isOpen());
    QVERIFY(useMenu([] { QCoreApplication::processEvents(); },
                    [&](Menu& menu) {
                        QVERIFY(interface->state().expanded);
                        pick(menu, 3);
                    }));
    QCOMPARE(fixture.value(), 3);
    fixture.button->setMemAPIValue(nullptr, 0, 0, 0);
    fixture.button->setValue(2);
    for (const auto text : {QAccessible::Value, QAccessible::Description})
        QCOMPARE(interface->text(text), QStringLiteral("Pass"));
    interface->actionInterface()->doAction(showMenu);
    delete fixture.button;
    QCoreApplication::processEvents();
}

ZOLTA_TEST_MAIN(tst_PullDownButtonController)

#include "tst_PullDownButtonController.moc"
