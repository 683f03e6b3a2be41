// SPDX-License-Identifier: GPL-3.0-or-later
#include "effect/EditorSetup.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QMenu>
#include <QMetaEnum>
#include <QProxyStyle>

namespace {

QColor probe(int role) { return QColor(200, 10 * role, 17); }

/// Every disabled colour is its own, and so is every active one.
QPalette probePalette()
{
    QPalette palette;
    for (int index = 0; index < QPalette::NColorRoles; ++index) {
        const auto role = static_cast<QPalette::ColorRole>(index);
        palette.setColor(QPalette::Disabled, role, probe(index));
        palette.setColor(QPalette::Active, role, QColor(1, 2, 3));
    }
    return palette;
}

} // namespace

class tst_EditorSetup : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void styleReachesTheWholeTree();
    void styleOfNoWidgetIsNothing();

    void disabledRoleIsInherited_data();
    void disabledRoleIsInherited();
    void disabledColourOfItsOwnStays();
    void otherGroupsAreNotInherited();
    void mergedPaletteGoesOnDown();
    void parentsOwnDisabledColourGoesOnDown();
};

void tst_EditorSetup::styleReachesTheWholeTree()
{
    QProxyStyle style;
    QWidget top;
    new QObject(&top);
    auto* middle = new QWidget(&top);
    auto* deep = new QWidget(middle);
    auto* menu = new QMenu(middle);
    initializeStyle(&top, &style);
    for (const QWidget* widget : {&top, middle, deep, static_cast<QWidget*>(menu)})
        QCOMPARE(widget->style(), &style);
}

void tst_EditorSetup::styleOfNoWidgetIsNothing()
{
    QProxyStyle style;
    initializeStyle(nullptr, &style);
}

void tst_EditorSetup::disabledRoleIsInherited_data()
{
    QTest::addColumn<int>("role");
    QTest::addColumn<bool>("inherited");
    const QMetaEnum roles = QMetaEnum::fromType<QPalette::ColorRole>();
    for (int role = 0; role <= 18; ++role)
        QTest::newRow(roles.valueToKey(role)) << role << true;
    QTest::newRow("ToolTipText") << 19 << false;
    QTest::newRow("PlaceholderText") << 20 << false;
}

// A window inherits nothing from its parent by itself.
void tst_EditorSetup::disabledRoleIsInherited()
{
    QFETCH(int, role);
    QWidget parent;
    QWidget window(&parent, Qt::Window);
    initializePalette(&parent, probePalette());
    for (const QWidget* widget : {&parent, &window}) {
        const QPalette palette = widget->palette();
        const auto colorRole = static_cast<QPalette::ColorRole>(role);
        QTEST(palette.color(QPalette::Disabled, colorRole) == probe(role), "inherited");
        QTEST(palette.isBrushSet(QPalette::Disabled, colorRole), "inherited");
    }
}

void tst_EditorSetup::disabledColourOfItsOwnStays()
{
    QWidget parent;
    QWidget window(&parent, Qt::Window);
    QPalette own;
    own.setColor(QPalette::Disabled, QPalette::Text, Qt::cyan);
    window.setPalette(own);
    initializePalette(&parent, probePalette());
    QCOMPARE(window.palette().color(QPalette::Disabled, QPalette::Text), QColor(Qt::cyan));
    QCOMPARE(window.palette().color(QPalette::Disabled, QPalette::Button), probe(QPalette::Button));
}

void tst_EditorSetup::otherGroupsAreNotInherited()
{
    QWidget parent;
    QWidget window(&parent, Qt::Window);
    const QPalette before = window.palette();
    initializePalette(&parent, probePalette());
    for (int index = 0; index < QPalette::NColorRoles; ++index) {
        const auto role = static_cast<QPalette::ColorRole>(index);
        for (QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
            QCOMPARE(window.palette().brush(group, role), before.brush(group, role));
            QVERIFY(!window.palette().isBrushSet(group, role));
        }
    }
}

void tst_EditorSetup::mergedPaletteGoesOnDown()
{
    QWidget parent;
    QWidget window(&parent, Qt::Window);
    QWidget inner(&window, Qt::Window);
    initializePalette(&parent, probePalette());
    QCOMPARE(inner.palette().color(QPalette::Disabled, QPalette::Base), probe(QPalette::Base));
}

void tst_EditorSetup::parentsOwnDisabledColourGoesOnDown()
{
    QWidget parent;
    QWidget window(&parent, Qt::Window);
    QPalette own;
    own.setColor(QPalette::Disabled, QPalette::Text, Qt::cyan);
    parent.setPalette(own);
    initializePalette(&parent, probePalette());
    QCOMPARE(window.palette().color(QPalette::Disabled, QPalette::Text), QColor(Qt::cyan));
}

ZOLTA_TEST_MAIN(tst_EditorSetup)

#include "tst_EditorSetup.moc"
