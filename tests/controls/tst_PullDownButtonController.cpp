// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/PullDownButtonController.h"
#include "tests/controls/ButtonTesting.h"
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

using CountedPullDown = Counted<PullDownButtonController>;

/// A pull-down of four texts in a window away from the mouse pointer.
struct Fixture
{
    Fixture()
    {
        window.setGeometry(200, 150, 300, 200);
        button->setGeometry(20, 30, 90, 24);
        button->setTextList(Types);
        window.show();
    }

    int value() const { return host.value(TestHost::name(Type), 0); }

    TestHost host;
    Ledger ledger;
    QWidget window;
    qint64 elapsed = Menu::OpeningClick; ///< of a menu since it opened
    QPointer<CountedPullDown> button =
        new CountedPullDown(ledger, &window, [this] { return elapsed; });
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
    sendMouse(menu, QEvent::MouseButtonPress, position, Qt::LeftButton, Qt::LeftButton);
    sendMouse(menu, QEvent::MouseButtonRelease, position, Qt::LeftButton, {});
}

std::function<void(Menu&)> picking(int index)
{
    return [index](Menu& menu) { pick(menu, index); };
}

void nothing(Menu&) {}

/// Something else of the host's that hears of a change.
class Listener final : public IPrmObserver
{
public:
    explicit Listener(std::function<void()> action)
        : m_action(std::move(action))
    {}

    int Update(unsigned short, unsigned short, int, const char*) override
    {
        m_action();
        return 0;
    }
    int UpdateProperty(unsigned short, unsigned short, int, int, int, bool, const char*) override
    {
        return 0;
    }

private:
    std::function<void()> m_action;
};

/// Has \a listener hear of changes before the button does.
void putBefore(BoundFixture& fixture, Listener& listener)
{
    fixture.button->setMemAPIValue(nullptr, 0, 0, 0);
    fixture.host.memory()->registerObserver(fixture.host.id(TestHost::name(Type)), 0, &listener);
    bind(*fixture.button, fixture.host, Type);
}

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
    void menuLooksLikeItsButton();
    void menuKnowsItsOwner();
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
    void buttonIsUpAfterTheMenu();
    void pressOnTheButtonClosesWithoutOpeningAnew();

    void choosingWritesAndTells();
    void choosingTheCurrentItemIsSelectedButNotChanged();
    void dismissedMenuChoosesNothing();
    void keyboardChooses();
    void releaseOfTheOpeningClickNeverPicks();
    void menusOwnClockRuns();

    void closesMeanwhile_data();
    void closesMeanwhile();
    void destroyedWhileOpen_data();
    void destroyedWhileOpen();
    void menuDestroyedWhileOpen();
    void deletionInside_data();
    void deletionInside();
    void valuesBeyondTheListAndWideRanges();
    void everyFailureLeavesGesturesBalanced();

    void accessible();
    void accessibleMenu();
    void valueIsAnnouncedOnce();
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
        QCOMPARE(menu.pos(), fixture.window.mapToGlobal(QPoint(20, 30 + 24)));
        QVERIFY(fixture.button->isOpen());
    }));
    QVERIFY(!fixture.button->isOpen());
}

void tst_PullDownButtonController::menuLooksLikeItsButton()
{
    Fixture fixture;
    const std::unique_ptr<QStyle> style(QStyleFactory::create(QStringLiteral("Windows")));
    QFont font(QStringLiteral("M+ 1c"));
    font.setPixelSize(17);
    fixture.button->setFont(font);
    fixture.button->setStyle(style.get());
    QVERIFY(useMenu(*fixture.button, [&](const Menu& menu) {
        QCOMPARE(menu.style(), style.get());
        QCOMPARE(menu.font().family(), QStringLiteral("M+ 1c"));
        QCOMPARE(menu.font().pixelSize(), 17);
    }));
}

void tst_PullDownButtonController::menuKnowsItsOwner()
{
    Fixture fixture;
    QPointer<Menu> last;
    QVERIFY(useMenu(*fixture.button, [&](Menu& menu) {
        last = &menu;
        QCOMPARE(menu.owner(), fixture.button.data());
        QCOMPARE(menu.metaObject()->className(),
                 "CommonController_MemAPI::PullDownButtonControllerPrivate::Menu");
        QVERIFY(menu.isWindow());
    }));
    QVERIFY(last);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!last);
}

void tst_PullDownButtonController::itemsAreNumberedByTheIndexColumn_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("origin");
    QTest::addColumn<QString>("second");
    QTest::newRow("no column") << 0 << 1 << QStringLiteral("Peak");
    QTest::newRow("negative width") << -3 << 1 << QStringLiteral("Peak");
    QTest::newRow("column") << 12 << 1 << QStringLiteral("2 Peak");
    QTest::newRow("column from 0") << 1 << 0 << QStringLiteral("1 Peak");
    QTest::newRow("largest origin")
        << 12 << std::numeric_limits<int>::max() << QStringLiteral("2147483648 Peak");
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
    QTest::newRow("no texts") << QStringLiteral("no texts");
    QTest::newRow("all hidden") << QStringLiteral("all hidden");
    QTest::newRow("disabled") << QStringLiteral("disabled");
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

void tst_PullDownButtonController::buttonIsUpAfterTheMenu()
{
    Fixture fixture;
    QVERIFY(useMenu([&] { press(*fixture.button); }, nothing));
    QVERIFY(!fixture.button->isDown());
}

void tst_PullDownButtonController::pressOnTheButtonClosesWithoutOpeningAnew()
{
    Fixture fixture;
    QVERIFY(useMenu(*fixture.button, [&](Menu& menu) {
        const QPoint onButton = fixture.button->mapToGlobal(QPoint(5, 5));
        sendMouse(menu, QEvent::MouseButtonPress, menu.mapFromGlobal(onButton), Qt::LeftButton,
                  Qt::LeftButton);
        QVERIFY(menu.testAttribute(Qt::WA_NoMouseReplay));
        QVERIFY(!menu.isVisible());
    }));
    QVERIFY(useMenu(*fixture.button, [&](Menu& menu) {
        const QPoint elsewhere = fixture.button->mapToGlobal(QPoint(5, -5));
        sendMouse(menu, QEvent::MouseButtonPress, menu.mapFromGlobal(elsewhere), Qt::LeftButton,
                  Qt::LeftButton);
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
    QCOMPARE(fixture.ledger.begun, 1);
    QVERIFY(fixture.ledger.isBalanced());
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
        sendMouse(menu, QEvent::MouseMove, position, Qt::NoButton, Qt::LeftButton);
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
    for (const char* why : {"disabled", "hidden", "unbound", "texts changed", "visibility changed"})
        QTest::newRow(why) << QString::fromLatin1(why);
}

void tst_PullDownButtonController::closesMeanwhile()
{
    QFETCH(QString, why);
    BoundFixture fixture;
    QSignalSpy selected(fixture.button, &PullDownButtonController::selected);
    QVERIFY(useMenu([&] { press(*fixture.button); },
                    [&](const Menu& menu) {
                        if (why == QLatin1String("disabled"))
                            fixture.button->setEnabled(false);
                        else if (why == QLatin1String("hidden"))
                            fixture.button->hide();
                        else if (why == QLatin1String("unbound"))
                            fixture.button->setMemAPIValue(nullptr, 0, 0, 0);
                        else if (why == QLatin1String("texts changed"))
                            fixture.button->setTextList(texts({"A"}));
                        else
                            fixture.button->setVisibleList({false});
                        QVERIFY(!menu.isVisible());
                    }));
    QCOMPARE(selected.count(), 0);
    QVERIFY(!fixture.button->isOpen());
    QCOMPARE(fixture.host.count(TestHost::Operation::SetValue), 0);
}

void tst_PullDownButtonController::destroyedWhileOpen_data()
{
    QTest::addColumn<bool>("byPress");
    QTest::newRow("opened by a call") << false;
    QTest::newRow("opened by a press") << true;
}

void tst_PullDownButtonController::destroyedWhileOpen()
{
    QFETCH(bool, byPress);
    TestHost host;
    Ledger ledger;
    auto* window = new QWidget;
    window->setGeometry(200, 150, 300, 200);
    auto* button = new CountedPullDown(ledger, window);
    button->setGeometry(20, 30, 90, 24);
    button->setTextList(Types);
    bind(*button, host, Type);
    window->show();
    QPointer<Menu> seen;
    const auto open = [&] {
        if (byPress)
            press(*button);
        else
            button->openPullDown();
    };
    QVERIFY(useMenu(open, [&](Menu& menu) {
        seen = &menu;
        delete window;
    }));
    QVERIFY(!seen);
    QVERIFY(!QApplication::activePopupWidget());
    QCOMPARE(host.observerCount(), 0);
    QCOMPARE(host.count(TestHost::Operation::SetValue), 0);
}

void tst_PullDownButtonController::menuDestroyedWhileOpen()
{
    BoundFixture fixture;
    QVERIFY(useMenu(*fixture.button, [](Menu& menu) { delete &menu; }));
    QVERIFY(!fixture.button->isOpen());
    QVERIFY(useMenu(*fixture.button, picking(2)));
    QCOMPARE(fixture.value(), 2);
}

void tst_PullDownButtonController::deletionInside_data()
{
    QTest::addColumn<QString>("where");
    for (const char* where :
         {"host", "beginEdit", "valueChanged", "endEdit", "changed", "selected"})
        QTest::newRow(where) << QString::fromLatin1(where);
}

void tst_PullDownButtonController::deletionInside()
{
    QFETCH(QString, where);
    BoundFixture fixture;
    CountedPullDown* button = fixture.button;
    const auto destroy = [button] { delete button; };
    Listener listener(destroy);
    if (where == QLatin1String("changed"))
        connect(button, &PullDownButtonController::changed, this, destroy);
    else if (where == QLatin1String("selected"))
        connect(button, &PullDownButtonController::selected, this, destroy);
    else if (where == QLatin1String("valueChanged"))
        connect(button, qOverload<int>(&PullDownButtonController::valueChanged), this, destroy);
    else if (where == QLatin1String("beginEdit"))
        fixture.ledger.atBegin = destroy;
    else if (where == QLatin1String("endEdit"))
        fixture.ledger.atEnd = destroy;
    else
        putBefore(fixture, listener);
    QVERIFY(useMenu([&] { press(*button); }, picking(2)));
    QVERIFY(!fixture.button);
    QCOMPARE(fixture.value(), where == QLatin1String("beginEdit") ? 1 : 2);
    QVERIFY(fixture.ledger.isBalanced());
    QCOMPARE(fixture.host.observerCount(), where == QLatin1String("host") ? 1 : 0);
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

void tst_PullDownButtonController::everyFailureLeavesGesturesBalanced()
{
    int failures = 0;
    for (int n = 1;; ++n) {
        Fixture fixture;
        fixture.host.failAnyCall(n);
        bind(*fixture.button, fixture.host, Type);
        useMenu(*fixture.button, picking(2));
        fixture.host.set(TestHost::name(Type), 0, 1);
        rendered(*fixture.button);
        useMenu(*fixture.button, picking(0));
        fixture.button->setMemAPIValue(nullptr, 0, 0, 0);
        delete fixture.button;
        QVERIFY2(fixture.ledger.isBalanced(), qPrintable(QString::number(n)));
        QCOMPARE(fixture.ledger.begun, 2);
        if (fixture.host.callCount() < n)
            break;
        ++failures;
    }
    QVERIFY(failures > 20);
}

void tst_PullDownButtonController::accessible()
{
    BoundFixture fixture;
    fixture.host.setFormatter([](const QByteArray&, unsigned short, int value) {
        return "Filter " + QByteArray::number(value);
    });
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(fixture.button);
    QCOMPARE(interface->role(), QAccessible::ComboBox);
    QVERIFY(interface->state().hasPopup);
    QVERIFY(interface->state().collapsed);
    QVERIFY(!interface->textInterface());
    QCOMPARE(interface->text(QAccessible::Value), QStringLiteral("Filter 1"));
    QCOMPARE(interface->valueInterface()->currentValue().toInt(), 1);
    QCOMPARE(interface->valueInterface()->maximumValue().toInt(), 3);
    fixture.button->setAccessibleName(QStringLiteral("Low type"));
    QCOMPARE(interface->text(QAccessible::Name), QStringLiteral("Low type"));
    interface->actionInterface()->doAction(QAccessibleActionInterface::increaseAction());
    QCOMPARE(fixture.value(), 2);
    interface->valueInterface()->setCurrentValue(0);
    QCOMPARE(fixture.value(), 0);
    QVERIFY(fixture.ledger.isBalanced());
    fixture.button->setMemAPIValue(nullptr, 0, 0, 0);
    fixture.button->setValue(2);
    QCOMPARE(interface->text(QAccessible::Value), QStringLiteral("Pass"));
}

void tst_PullDownButtonController::accessibleMenu()
{
    BoundFixture fixture;
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(fixture.button);
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
    interface->actionInterface()->doAction(showMenu);
    delete fixture.button;
    QCoreApplication::processEvents();
}

void tst_PullDownButtonController::valueIsAnnouncedOnce()
{
    BoundFixture fixture;
    const Announcements announcements;
    QVERIFY(useMenu(*fixture.button, picking(2)));
    QCOMPARE(announcements.values(*fixture.button), QList<QVariant>({2}));
}

ZOLTA_TEST_MAIN(tst_PullDownButtonController)

#include "tst_PullDownButtonController.moc"
