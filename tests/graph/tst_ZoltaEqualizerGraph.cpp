// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/graph/GraphFixture.h"
#include "tests/graph/GraphMouse.h"
#include "tests/support/TestObject.h"

#include <limits>
#include <memory>

using Graph = ZoltaEqualizerGraph;
using Operation = TestHost::Operation;

namespace {

bool isContinuous(int slot) { return slot % 4 >= 2 || (slot % 4 == 1 && slot > 3 && slot < 20); }

constexpr std::array<double, 6> InitialFrequencies = {80, 400, 800, 2500, 5600, 12500};

/// How often the graph is observing the host.
int registrations(const GraphFixture& f, unsigned short ch)
{
    int count = 0;
    for (const int number : SlotNumbers)
        count += f.host.observerCount(TestHost::name(number), ch);
    return count;
}

QPointF handle(const GraphFixture& f, int band) { return f.graph->getTargetPoint(targetOf(band)); }

/// Whether a band's handle stands at a frequency in Hz and a gain in dB.
bool isAt(const GraphFixture& f, int band, double hz, double db)
{
    return isNear(handle(f, band), {f.plot().x(hz), f.plot().y(db)});
}

double initialFrequency(int band) { return InitialFrequencies[static_cast<std::size_t>(band)]; }

/// A session that makes every kind of host call there is.
void runSession(GraphFixture& f)
{
    f.bind();
    f.graph->setCh(3);
    f.set(frequencyName(1), 300, 3);
    f.set(gainName(5), 55, 3);
    for (const Qt::KeyboardModifier modifier :
         {Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier}) {
        GraphMouse mouse(f.graph);
        mouse.press({350, 90}, modifier);
        mouse.move({360, 80}, modifier);
        mouse.release({360, 80}, modifier);
    }
    f.picture();
    f.graph->setMemAPI(nullptr);
}

} // namespace

class tst_ZoltaEqualizerGraph : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initialValues();
    void registersInOrder();
    void registersAgainOnChannelChange();
    void memoryChangeLeavesTheOldOneFirst();
    void nullMemoryUnbinds();
    void whatTheHostDoesNotTellStays_data();
    void whatTheHostDoesNotTellStays();
    void unknownName();
    void failingHostCalls();
    void valuesMoveTheHandle();
    void typesMoveTheHandle();
    void qualityChangesThePictureOnly();
    void rangeEndsAndBeyond();
    void degenerateRange();

    void updatesOfOthersChangeNothing();
    void zoom();

    void sampleRateRedesigns();
};

void tst_ZoltaEqualizerGraph::initialValues()
{
    GraphFixture f;
    QCOMPARE(f.graph->zoom(), 3);
    for (int band = 0; band < 6; ++band) {
        QVERIFY(isAt(f, band, initialFrequency(band), 0.0));
        QCOMPARE(f.graph->getPointTarget(handle(f, band).toPoint()), targetOf(band));
    }
    QCOMPARE(f.graph->getDragMode(Qt::NoModifier), Graph::DragModeNone);
    f.graph->setCh(2);
    f.graph->setFs(96000);
    f.picture();
    QCOMPARE(f.host.callCount(), 0);
}

void tst_ZoltaEqualizerGraph::registersInOrder()
{
    GraphFixture f;
    f.graph->setCh(5);
    f.bind();

    std::size_t next = 0;
    const auto& calls = f.host.calls();
    for (std::size_t slot = 0; slot < SlotNumbers.size(); ++slot) {
        const QByteArray name = TestHost::name(SlotNumbers[slot]);
        std::vector<Operation> expected = {Operation::FindParameter, Operation::GetParameterAddress,
                                           Operation::GetValue};
        if (isContinuous(static_cast<int>(slot)))
            expected.push_back(Operation::GetRange);
        expected.push_back(Operation::RegisterObserver);
        for (const Operation operation : expected) {
            QVERIFY(next < calls.size());
            const TestHost::Call& call = calls[next++];
            QCOMPARE(call.operation, operation);
            if (operation == Operation::FindParameter) {
                QCOMPARE(call.text, name);
                continue;
            }
            const bool model = operation == Operation::GetParameterAddress;
            QCOMPARE(call.parameter, model ? f.host.index(name) : f.host.id(name));
            QCOMPARE(call.ch, static_cast<unsigned short>(model ? 0 : 5));
            QCOMPARE(call.element, static_cast<unsigned short>(0));
            if (operation == Operation::RegisterObserver)
                QCOMPARE(call.observer,
                         static_cast<const void*>(static_cast<IPrmObserver*>(f.graph)));
        }
    }
    QCOMPARE(next, calls.size());
}

void tst_ZoltaEqualizerGraph::registersAgainOnChannelChange()
{
    GraphFixture f;
    f.bind();
    f.host.setSilently(gainName(2), 4, 60);
    f.host.resetLedger();
    f.graph->setCh(4);

    QCOMPARE(registrations(f, 0), 0);
    QCOMPARE(registrations(f, 4), 24);
    QVERIFY(isAt(f, 2, hertz(600), 6.0));
    for (std::size_t slot = 0; slot < SlotNumbers.size(); ++slot) {
        const TestHost::Call& call = f.host.calls()[slot];
        QCOMPARE(call.operation, Operation::UnregisterObserver);
        QCOMPARE(call.parameter, f.host.id(TestHost::name(SlotNumbers[slot])));
        QCOMPARE(call.ch, static_cast<unsigned short>(0));
    }
    QVERIFY(!f.host.calls()[24].failed);
    QCOMPARE(f.host.count(Operation::UnregisterObserver), 24);
    f.host.resetLedger();
    f.graph->setCh(4);
    QCOMPARE(f.host.callCount(), 0);
    // Channels have sixteen bits.
    f.host.setChannels({0, 4, 65535});
    f.graph->setCh(65535);
    QCOMPARE(registrations(f, 65535), 24);
}

void tst_ZoltaEqualizerGraph::memoryChangeLeavesTheOldOneFirst()
{
    TestHost other;
    other.set(frequencyName(3), 0, 1000);
    GraphFixture f;
    f.bind();
    f.graph->setMemAPI(other.memory());
    QCOMPARE(f.host.observerCount(), 0);
    QCOMPARE(other.observerCount(), 24);
    QVERIFY(isAt(f, 3, hertz(1000), 0.0));

    f.set(frequencyName(3), 200);
    QVERIFY(isAt(f, 3, hertz(1000), 0.0));
    // The same memory is read anew.
    other.setSilently(frequencyName(1), 0, 90);
    f.graph->setMemAPI(other.memory());
    QCOMPARE(other.observerCount(), 24);
    QVERIFY(isAt(f, 1, hertz(90), 0.0));
    delete std::exchange(f.graph, nullptr);
    QCOMPARE(other.observerCount(), 0);
}

void tst_ZoltaEqualizerGraph::nullMemoryUnbinds()
{
    GraphFixture f;
    f.bind();
    f.setBand(2, 700, 50);
    f.graph->setMemAPI(nullptr);
    QCOMPARE(f.host.observerCount(), 0);
    // What it shows stays.
    QVERIFY(isAt(f, 2, hertz(700), 5.0));
    f.host.resetLedger();
    f.graph->setMemAPI(nullptr);
    f.graph->setCh(1);
    QCOMPARE(f.host.callCount(), 0);
}

void tst_ZoltaEqualizerGraph::whatTheHostDoesNotTellStays_data()
{
    QTest::addColumn<int>("operation");
    QTest::addColumn<int>("registered");
    const auto row = [](const char* tag, Operation operation, int registered) {
        QTest::newRow(tag) << static_cast<int>(operation) << registered;
    };
    row("findParameter", Operation::FindParameter, 0);
    row("getParameterAddress", Operation::GetParameterAddress, 0);
    row("getValue", Operation::GetValue, 24);
    row("getRange", Operation::GetRange, 24);
    row("no model", Operation::Reserved, 0);
}

void tst_ZoltaEqualizerGraph::whatTheHostDoesNotTellStays()
{
    QFETCH(int, operation);
    QFETCH(int, registered);
    GraphFixture f;
    for (int band = 0; band < 6; ++band)
        f.setBand(band, 1, 150);
    if (static_cast<Operation>(operation) == Operation::Reserved)
        f.editor.setModelInfo(nullptr);
    else
        f.host.failAll(static_cast<Operation>(operation));
    f.bind();
    QCOMPARE(f.host.observerCount(), registered);
    for (int band = 0; band < 6; ++band)
        QVERIFY(isAt(f, band, initialFrequency(band), 0.0));
}

void tst_ZoltaEqualizerGraph::unknownName()
{
    for (const int number : SlotNumbers) {
        GraphFixture f;
        for (int band = 0; band < 6; ++band) {
            f.set(typeName(band), 2);
            f.setBand(band, 100, 100);
        }
        f.host.removeParameter(TestHost::name(number));
        f.bind();
        QCOMPARE(f.host.observerCount(), 23);
        for (int band = 0; band < 6; ++band) {
            const double hz = number == 4 * band + 2 ? initialFrequency(band) : hertz(100);
            QVERIFY(isAt(f, band, hz, number == 4 * band + 3 ? 0.0 : 10.0));
        }
        f.graph->setMemAPI(nullptr);
        QCOMPARE(f.host.count(Operation::UnregisterObserver), 23);
    }
}

void tst_ZoltaEqualizerGraph::failingHostCalls()
{
    int n = 0;
    for (int calls = 1; calls >= n;) {
        GraphFixture f;
        f.host.failAnyCall(++n);
        runSession(f);
        calls = f.host.callCount();
        const auto& ledger = f.host.calls();
        const bool planted = n <= calls;
        const TestHost::Call* failed = planted ? &ledger[static_cast<std::size_t>(n - 1)] : nullptr;
        QCOMPARE(failed != nullptr && failed->failed, planted);
        // Only an unregistration that the host itself refuses may leave an observer behind.
        const bool refused = failed && failed->operation == Operation::UnregisterObserver;
        QCOMPARE(f.host.observerCount(), refused ? 1 : 0);
        // The graph goes on: a channel that was not touched by the error binds as ever.
        f.graph->setCh(7);
        f.bind();
        f.set(frequencyName(4), 333, 7);
        QVERIFY(isNear(handle(f, 4), {f.plot().x(hertz(333)), handle(f, 4).y()}));
        if (refused) {
            f.graph->setMemAPI(nullptr);
            QCOMPARE(f.host.observerCount(), 1);
        }
    }
    QVERIFY(n > 200);
}

void tst_ZoltaEqualizerGraph::valuesMoveTheHandle()
{
    for (int band = 0; band < 6; ++band) {
        GraphFixture f;
        f.bind();
        for (const auto& [frequency, gain] :
             {std::pair(0, -200), {1, -199}, {137, -37}, {600, 0}, {1199, 120}, {1200, 200}}) {
            f.setBand(band, frequency, gain);
            QVERIFY(isAt(f, band, hertz(frequency), decibels(gain)));
            for (int other = 0; other < 6; ++other)
                QVERIFY(other == band || isAt(f, other, hertz(600), 0.0));
        }
        // Anything but 0 is on.
        f.solo(band);
        for (const int on : {1, 0, -1, 2, 256, std::numeric_limits<int>::min()}) {
            f.set(onName(band), on);
            QCOMPARE(f.graph->getPointTarget(QPoint(100, 60)),
                     on ? targetOf(band) : Graph::EditTargetNone);
        }
    }
}

void tst_ZoltaEqualizerGraph::typesMoveTheHandle()
{
    // On its gain, on 0 dB, or at (0, 0).
    for (const int band : {0, 5})
        for (const int type : {0, 1, 2, 3, 4, -1, 1000, 65536}) {
            GraphFixture f;
            f.bind();
            f.setBand(band, 250, -70);
            f.set(typeName(band), type);
            const bool isShelf = type == 2 || type == 3;
            const QPointF expected(f.plot().x(hertz(250)),
                                   isShelf ? f.plot().y(-7.0) : f.plot().centre);
            const bool isKnown = type >= 0 && type <= 3;
            QVERIFY(isNear(handle(f, band), isKnown ? expected : QPointF()));
            // The other outer band has kept its own type.
            f.setBand(5 - band, 250, -70);
            QVERIFY(isNear(handle(f, 5 - band), {expected.x(), f.plot().y(-7.0)}));
        }
}

void tst_ZoltaEqualizerGraph::qualityChangesThePictureOnly()
{
    for (int band = 1; band < 5; ++band) {
        GraphFixture f;
        f.bind();
        f.setBand(band, 600, 100);
        const QPointF place = handle(f, band);
        const QImage before = f.picture();
        f.set(qualityName(band), 400);
        QVERIFY(f.picture() != before);
        QCOMPARE(handle(f, band), place);
        f.set(qualityName(band), 250);
        QCOMPARE(f.picture(), before);
    }
}

void tst_ZoltaEqualizerGraph::rangeEndsAndBeyond()
{
    constexpr int lowest = std::numeric_limits<int>::min();
    constexpr int highest = std::numeric_limits<int>::max();
    GraphFixture f;
    f.bind();
    const double middle = 20 * std::sqrt(1000.0);
    const auto check = [&](int frequency, int gain, double hz, double db) {
        f.setBand(2, frequency, gain);
        return isAt(f, 2, hz, db);
    };
    f.host.setRange(frequencyName(2), lowest, highest);
    f.host.setRange(gainName(2), lowest, highest);
    QVERIFY(check(lowest, highest, 20, 20));
    QVERIFY(check(highest, lowest, 20000, -20));
    QVERIFY(check(0, 0, middle, 0));
    f.host.setRange(frequencyName(2), -5, 11);
    f.host.setRange(gainName(2), 1000, 3000);
    QVERIFY(check(-5, 1000, 20, -20));
    QVERIFY(check(11, 3000, 20000, 20));
    QVERIFY(check(-6, 999, 20, -20));
    QVERIFY(check(12, 3001, 20000, 20));
    QVERIFY(check(lowest, lowest, 20, -20));
    QVERIFY(check(highest, highest, 20000, 20));
    QVERIFY(check(3, 2000, middle, 0));

    f.host.setRange(qualityName(2), 10, 20);
    f.setBand(2, 3, 2500);
    const auto picture = [&](int raw) {
        f.set(qualityName(2), raw);
        return f.picture();
    };
    QCOMPARE(picture(5), picture(10));
    QCOMPARE(picture(25), picture(20));
    QVERIFY(picture(10) != picture(20));
}

void tst_ZoltaEqualizerGraph::degenerateRange()
{
    GraphFixture f;
    for (const int number : SlotNumbers)
        f.host.setRange(TestHost::name(number), 7, 7);
    f.bind();
    for (const int value : {6, 7, 8}) {
        for (const int number : SlotNumbers)
            f.set(TestHost::name(number), value);
        f.picture();
    }
    runSession(f);
    for (int band = 1; band < 5; ++band)
        QVERIFY(std::isfinite(handle(f, band).x()) && std::isfinite(handle(f, band).y()));
}

void tst_ZoltaEqualizerGraph::updatesOfOthersChangeNothing()
{
    GraphFixture f;
    f.graph->setCh(1);
    f.bind();
    f.set(gainName(2), 80, 1);
    const QImage before = f.picture();
    f.host.setRange(frequencyName(1), 0, 10);
    f.host.resetLedger();
    // Another channel, no parameter of a band, and a property.
    for (const int number : SlotNumbers)
        QCOMPARE(f.graph->Update(f.host.id(TestHost::name(number)), 0, 0, "text"), 0);
    for (const int number : {25, 26, 27})
        QCOMPARE(f.graph->Update(f.host.id(TestHost::name(number)), 1, 1, nullptr), 0);
    for (const unsigned short id :
         std::initializer_list<unsigned short>{0, 1, 904, 102, 3000, 65535})
        QCOMPARE(f.graph->Update(id, 1, 0, nullptr), 0);
    QCOMPARE(f.graph->UpdateProperty(f.host.id(frequencyName(1)), 1, 1, 2, 3, true, "x"), 0);
    QCOMPARE(f.host.callCount(), 0);
    QCOMPARE(f.picture(), before);
    // Nor does a value whose range the host does not tell.
    f.host.failAll(Operation::GetRange);
    for (const QByteArray& name : {qualityName(2), frequencyName(2), gainName(2)})
        f.set(name, 10, 1);
    QCOMPARE(f.picture(), before);
    f.host.clearErrors();
    QCOMPARE(f.graph->Update(f.host.id(gainName(2)), 1, 1, "text"), 0);
    QVERIFY(f.picture() != before);
}

void tst_ZoltaEqualizerGraph::zoom()
{
    const std::array<double, 7> ranges = {40, 20, 16, 12, 8, 4, 2};
    GraphFixture f;
    f.bind();
    f.set(gainName(2), 13);
    for (int zoom = 0; zoom < 7; ++zoom) {
        f.graph->setZoom(zoom);
        QCOMPARE(f.graph->zoom(), zoom);
        // H = 192: the plot runs from 9.5 to 163.5 with 0 dB at 86.5.
        const double range = ranges[static_cast<std::size_t>(zoom)];
        QVERIFY(std::abs(handle(f, 2).y() - (86.5 - 77.0 * 1.3 / range)) < 1e-3);
        for (const int index :
             {7, -1, 8, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
            f.graph->setZoom(index);
            QCOMPARE(f.graph->zoom(), zoom);
        }
        QVERIFY(QMetaObject::invokeMethod(f.graph, "zoomUp"));
        QCOMPARE(f.graph->zoom(), std::min(zoom + 1, 6));
        f.graph->setZoom(zoom);
        QVERIFY(QMetaObject::invokeMethod(f.graph, "zoomDown"));
        QCOMPARE(f.graph->zoom(), std::max(zoom - 1, 0));
    }
}

void tst_ZoltaEqualizerGraph::sampleRateRedesigns()
{
    GraphFixture f;
    f.bind();
    for (int band = 0; band < 6; ++band)
        f.setBand(band, 1100, 100);
    for (int band = 0; band < 6; ++band) {
        f.solo(band);
        f.graph->setFs(44100);
        const QImage before = f.picture();
        f.graph->setFs(48000);
        QVERIFY(f.picture() != before);
        f.graph->setFs(44100);
        QCOMPARE(f.picture(), before);
    }
    // A parameter that changes later is designed at the new rate.
    GraphFixture late;
    late.graph->setFs(96000);
    late.bind();
    late.setBand(3, 1150, 120);
    GraphFixture early;
    early.bind();
    early.setBand(3, 1150, 120);
    early.graph->setFs(96000);
    QCOMPARE(late.picture(), early.picture());
}

ZOLTA_TEST_MAIN(tst_ZoltaEqualizerGraph)

#include "tst_ZoltaEqualizerGraph.moc"
