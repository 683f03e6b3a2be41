// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/PullDownButtonController.h"
#include "effect/WidgetScale.h"
#include "tests/effect/PlainEditor.h"
#include "tests/support/TestObject.h"

#include <QMenu>
#include <QScrollArea>

using CommonController_MemAPI::PullDownButtonController;
using CommonController_MemAPI::PullDownButtonControllerPrivate::Menu;

class tst_WidgetScale : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void isTheNearestEditors();
    void pullDownMenuHasItsButtons();
    void pullDownMenuWithoutAButtonHasItsParents();
};

void tst_WidgetScale::isTheNearestEditors()
{
    QWidget window;
    QWidget child(&window);
    PlainEditor outer(&window);
    PlainEditor inner(&outer);
    QScrollArea area(&inner);
    area.setWidget(new QWidget);
    QMenu menu(area.widget());
    QCOMPARE(getWidgetScale(&menu), 1.0);
    outer.setScale(2.0);
    inner.setScale(1.25);
    QCOMPARE(getWidgetScale(nullptr), 1.0);
    QCOMPARE(getWidgetScale(&window), 1.0);
    QCOMPARE(getWidgetScale(&child), 1.0);
    QCOMPARE(getWidgetScale(&outer), 2.0);
    QCOMPARE(getWidgetScale(area.widget()), 1.25);
    QVERIFY(menu.isWindow());
    QCOMPARE(getWidgetScale(&menu), 1.25);
}

void tst_WidgetScale::pullDownMenuHasItsButtons()
{
    PlainEditor editor;
    PlainEditor other;
    editor.setScale(1.5);
    other.setScale(3.0);
    QWidget area(&editor);
    PullDownButtonController button(&area);
    Menu menu(&button);
    QMenu submenu(&menu);
    QCOMPARE(getWidgetScale(&menu), 1.5);
    QCOMPARE(getWidgetScale(&submenu), 1.5);
    menu.setParent(nullptr);
    QCOMPARE(getWidgetScale(&menu), 1.5);
    menu.setParent(&other);
    QCOMPARE(getWidgetScale(&menu), 1.5);
}

void tst_WidgetScale::pullDownMenuWithoutAButtonHasItsParents()
{
    PlainEditor editor;
    editor.setScale(1.5);
    auto* button = new PullDownButtonController;
    Menu menu(button);
    QCOMPARE(getWidgetScale(&menu), 1.0);
    menu.setParent(&editor);
    QCOMPARE(getWidgetScale(&menu), 1.0);
    delete button;
    QCOMPARE(getWidgetScale(&menu), 1.5);
    menu.setParent(nullptr);
    QCOMPARE(getWidgetScale(&menu), 1.0);
}

ZOLTA_TEST_MAIN(tst_WidgetScale)

#include "tst_WidgetScale.moc"
