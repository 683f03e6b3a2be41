// SPDX-License-Identifier: GPL-3.0-or-later
#include "equalizer/FILTER2PEQ.h"
#include "equalizer/Memory.h"
#include "equalizer/VEQ_Filter.h"
#include "tests/support/TestObject.h"

#include <cstdlib>
#include <limits>
#include <memory>
#include <new>
#include <set>
#include <utility>
#include <vector>

namespace {

// What the filters hold at the moment, what they have asked for, and the request that fails.
struct Heap
{
    std::set<void*> held;
    std::vector<std::size_t> asked;
    std::size_t failing = std::numeric_limits<std::size_t>::max();
    bool releasedForeign = false;
};

Heap heap;

} // namespace

// This program's own allocation hooks, in place of the library's.
void* GetMem(std::size_t size)
{
    heap.asked.push_back(size);
    if (heap.asked.size() - 1 == heap.failing)
        return nullptr;
    void* const memory = std::malloc(size);
    heap.held.insert(memory);
    return memory;
}

void ReleaseMem(void* pointer)
{
    if (pointer && heap.held.erase(pointer) == 0)
        heap.releasedForeign = true;
    std::free(pointer);
}

/// All memory of the filters comes from the hooks, goes back to them, and its lack is reported.
class tst_FilterMemory : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void arraysComeFromTheHooks();
    void setOrderReleasesWhatItReplaces();
    void noStorageBelowOrderTwo();
    void failureReleasesWhatWasAllocated();
    void failureInAConstructor();
    void impossibleOrdersAreNotAskedFor_data();
    void impossibleOrdersAreNotAskedFor();
    void peakTakesTwoArrays();
};

void tst_FilterMemory::cleanup()
{
    const Heap left = std::exchange(heap, Heap());
    QVERIFY(left.held.empty());
    QVERIFY(!left.releasedForeign);
}

void tst_FilterMemory::arraysComeFromTheHooks()
{
    const VEQ_Filter filter(6);
    QCOMPARE(heap.held.size(), std::size_t{6});
    const std::multiset<std::size_t> sizes(heap.asked.begin(), heap.asked.end());
    QCOMPARE(sizes.count(3 * 5 * sizeof(double)), std::size_t{3});
    QCOMPARE(sizes.count(6 * 2 * sizeof(double)), std::size_t{3});
}

void tst_FilterMemory::setOrderReleasesWhatItReplaces()
{
    VEQ_Filter filter;
    filter.setOrder(4);
    QCOMPARE(heap.asked.size(), std::size_t{12});
    QCOMPARE(heap.held.size(), std::size_t{6});
    filter.setOrder(0);
    QVERIFY(heap.held.empty());
}

void tst_FilterMemory::noStorageBelowOrderTwo()
{
    for (const long order : {-1L, 0L, 1L}) {
        const VEQ_Filter filter(order);
        QCOMPARE(filter.order(), std::int64_t{0});
        QVERIFY(heap.asked.empty());
    }
}

void tst_FilterMemory::failureReleasesWhatWasAllocated()
{
    for (std::size_t successes = 0; successes < 6; ++successes) {
        VEQ_Filter filter;
        heap.failing = heap.asked.size() + successes;
        QVERIFY_EXCEPTION_THROWN(filter.setOrder(4), std::bad_alloc);
        QVERIFY(heap.held.empty());
        QCOMPARE(filter.order(), std::int64_t{0});
        QCOMPARE(filter.power(1000.0, 44100.0), 0.0);
        filter.setOrder(2);
        QCOMPARE(heap.held.size(), std::size_t{6});
    }
}

void tst_FilterMemory::failureInAConstructor()
{
    for (std::size_t successes = 0; successes < 6; ++successes) {
        heap.failing = heap.asked.size() + successes;
        QVERIFY_EXCEPTION_THROWN(VEQ_Filter(), std::bad_alloc);
        QVERIFY(heap.held.empty());
    }
    for (std::size_t successes = 0; successes < 2; ++successes) {
        heap.failing = heap.asked.size() + successes;
        QVERIFY_EXCEPTION_THROWN(FILTER2PEQ(), std::bad_alloc);
        QVERIFY(heap.held.empty());
    }
}

void tst_FilterMemory::impossibleOrdersAreNotAskedFor_data()
{
    QTest::addColumn<long>("order");
    QTest::newRow("below -1") << -2L;
    QTest::newRow("most negative") << std::numeric_limits<long>::min();
    QTest::newRow("most positive") << std::numeric_limits<long>::max();
    QTest::newRow("bytes overflow") << (1L << 60);
}

void tst_FilterMemory::impossibleOrdersAreNotAskedFor()
{
    QFETCH(const long, order);
    QVERIFY_EXCEPTION_THROWN(VEQ_Filter{order}, std::bad_alloc);
    QVERIFY(heap.asked.empty());
}

void tst_FilterMemory::peakTakesTwoArrays()
{
    const FILTER2PEQ filter;
    const std::multiset<std::size_t> sizes(heap.asked.begin(), heap.asked.end());
    QVERIFY(sizes == (std::multiset<std::size_t>{3 * sizeof(double), 4 * sizeof(double)}));
    QCOMPARE(heap.held.size(), std::size_t{2});
}

QTEST_APPLESS_MAIN(tst_FilterMemory)
#include "tst_FilterMemory.moc"
