// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/base/EditModes.h"
#include "tests/support/TestObject.h"

#include <limits>

class tst_EditModes : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void translatesHostModes_data();
    void translatesHostModes();
};

void tst_EditModes::translatesHostModes_data()
{
    QTest::addColumn<int>("hostMode");
    QTest::addColumn<int>("knob");
    QTest::addColumn<int>("fader");
    QTest::newRow("0") << 0 << 0 << 3;
    QTest::newRow("1") << 1 << 2 << 1;
    QTest::newRow("2") << 2 << 1 << 0;
    QTest::newRow("3") << 3 << 0 << 2;
    QTest::newRow("beyond") << 4 << 0 << 0;
    QTest::newRow("negative") << -1 << 0 << 0;
    QTest::newRow("smallest") << std::numeric_limits<int>::min() << 0 << 0;
    QTest::newRow("largest") << std::numeric_limits<int>::max() << 0 << 0;
}

void tst_EditModes::translatesHostModes()
{
    QFETCH(int, hostMode);
    QTEST(knobEditMode(hostMode), "knob");
    QTEST(faderEditMode(hostMode), "fader");
}

QTEST_APPLESS_MAIN(tst_EditModes)

#include "tst_EditModes.moc"
