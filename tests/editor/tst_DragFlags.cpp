// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/DragFlags.h"
#include "tests/support/TestObject.h"

class tst_DragFlags : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void everySourceStandsForItsBand();
};

namespace {

/// Five sources for the outer bands, six for the middle ones.
constexpr std::array Sources = {5, 6, 6, 6, 6, 5};

} // namespace

void tst_DragFlags::everySourceStandsForItsBand()
{
    int source = 0;
    for (int band = 0; band < 6; ++band) {
        for (int i = 0; i < Sources[static_cast<std::size_t>(band)]; ++i, ++source) {
            DragFlags flags;
            QCOMPARE(int(flags.target()), 0);
            flags.set(DragFlags::Source(source), true);
            QCOMPARE(int(flags.target()), band + 1);
            flags.set(DragFlags::Source(source), false);
            QCOMPARE(int(flags.target()), 0);
        }
    }
    QCOMPARE(source, 34);
}

QTEST_APPLESS_MAIN(tst_DragFlags)
#include "tst_DragFlags.moc"
