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
    void isOneOutsideAnyEditor();
    void isTheEditorsForTheWholeTree();
    void isTheNearestEditors();
    void followsTheEditor();
    void pullDownMenuHasItsButtons();
    void pullDownMenuWithoutAButtonHasItsParents();
};

void tst_WidgetScale::isOneOutsideAnyEditor()
{
    QCOMPARE(getWidgetScale(nullptr), 1.0);
    QWidget window;
    QWidget child(&window);
    PlainEditor sibling(&window);
    sibling.setScale(2.0);
    QCOMPARE(getWidgetScale(&window), 1.0);
    QCOMPARE(getWidgetScale(&child), 1.0);
}

void tst_WidgetScale::isTheEditorsForTheWholeTree()
{
    QWidget window;
    PlainEditor editor(&window);
    QScrollArea area(&editor);
    auto* content = new QWidget;
    area.setWidget(content);
    QMenu menu(content);
    editor.setScale(1.25);
    QCOMPARE(getWidgetScale(&editor), 1.25);
    QCOMPARE(getWidgetScale(content), 1.25);
    QVERIFY(menu.isWindow());
    QCOMPARE(getWidgetScale(&menu), 1.25);
}

void tst_WidgetScale::isTheNearestEditors()
{
    PlainEditor outer;
    PlainEditor inner(&outer);
    QWidget child(&inner);
    outer.setScale(2.0);
    inner.setScale(0.5);
    QCOMPARE(getWidgetScale(&child), 0.5);
}

void tst_WidgetScale::followsTheEditor()
{
    PlainEditor editor;
    QWidget child(&editor);
    QCOMPARE(getWidgetScale(&child), 1.0);
    editor.setScale(0.25);
    QCOMPARE(getWidgetScale(&child), 0.25);
    editor.setScale(3.0);
    QCOMPARE(getWidgetScale(&child), 3.0);
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
