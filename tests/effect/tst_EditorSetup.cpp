// SPDX-License-Identifier: GPL-3.0-or-later
#include "effect/EditorSetup.h"
#include "tests/support/DataTable.h"
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

    void disabledRoleIsInherited_data();
    void disabledRoleIsInherited();
    void disabledColourOfItsOwnStays();
    void otherGroupsAreNotInherited();
};

void tst_EditorSetup::styleReachesTheWholeTree()
{
    QProxyStyle style;
    QWidget top;
    new QObject(&top);
    auto* middle = new QWidget(&top);
    auto* deep = new QWidget(middle);
    auto* menu = new QMenu(middle);
    initializeStyle(nullptr, &style);
    initializeStyle(&top, &style);
    for (const QWidget* widget : {&top, middle, deep, static_cast<QWidget*>(menu)})
        QCOMPARE(widget->style(), &style);
}

void tst_EditorSetup::disabledRoleIsInherited_data()
{
    addColumns<int, bool>("role", "inherited");
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

// And goes on down, as the colours that are inherited do.
void tst_EditorSetup::disabledColourOfItsOwnStays()
{
    QWidget parent;
    QWidget window(&parent, Qt::Window);
    QWidget inner(&window, Qt::Window);
    QPalette own;
    own.setColor(QPalette::Disabled, QPalette::Text, Qt::cyan);
    parent.setPalette(own);
    own.setColor(QPalette::Disabled, QPalette::Text, Qt::green);
    inner.setPalette(own);
    initializePalette(&parent, probePalette());
    QCOMPARE(window.palette().color(QPalette::Disabled, QPalette::Text), QColor(Qt::cyan));
    QCOMPARE(inner.palette().color(QPalette::Disabled, QPalette::Text), QColor(Qt::green));
    QCOMPARE(inner.palette().color(QPalette::Disabled, QPalette::Button), probe(QPalette::Button));
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

ZOLTA_TEST_MAIN(tst_EditorSetup)

#include "tst_EditorSetup.moc"
