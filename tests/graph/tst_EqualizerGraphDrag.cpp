// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/graph/GraphFixture.h"
#include "tests/graph/GraphMouse.h"
#include "tests/support/TestObject.h"

#include <functional>
#include <limits>

using Graph = ZoltaEqualizerGraph;
using Operation = TestHost::Operation;
using Writes = std::vector<TestHost::Write>;

namespace {

const QPointF Middle(350, 90);

/// Calls a function on every notification of one parameter.
class Listener : public IPrmObserver
{
public:
    Listener(TestHost& host, const QByteArray& name, std::function<void()> action)
        : m_action(std::move(action))
    {
        host.memory()->registerObserver(host.id(name), 0, this);
    }
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

struct DragFixture : GraphFixture
{
    explicit DragFixture(QSize size = DesignSize)
        : GraphFixture(size)
        , mouse(graph)
    {
        bind();
    }
    /// The handle's distance from the press, once pressed at \a at.
    QPointF offset(int band, QPointF at) const
    {
        return at - graph->getTargetPoint(targetOf(band));
    }
    int frequency(int band) const { return host.value(frequencyName(band), 0); }
    int gain(int band) const { return host.value(gainName(band), 0); }
    int rawQuality(int band) const { return host.value(qualityName(band), 0); }

    GraphMouse mouse;
};

} // namespace

class tst_EqualizerGraphDrag : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void targetPointOfNoBand();
    void nearestHandle();
    void tieGoesToTheEarlierBand_data();
    void tieGoesToTheEarlierBand();
    void equalDistancesGoToTheEarlierBand();
    void clickWithAllBandsOffGrabsNothing();
    void plotEdges();
    void clickOutsideThePlotGrabsNothing();
    void farHandleIsOutOfReach();
    void unknownTypeIsGrabbedAtTheCorner();

    void dragModes_data();
    void dragModes();
    void noDragModeWithoutGrab();

    void dragFrequencyAndGain_data();
    void dragFrequencyAndGain();
    void dragFrequencyOnly();
    void dragGainOnly();
    void passFilterMovesAlongTheLine_data();
    void passFilterMovesAlongTheLine();
    void controlDragOfAPassFilterWritesNothing();
    void shiftDragOfAnOuterBandWritesNothing();
    void unknownTypeDragsFrequency();
    void dragAtEveryZoom_data();
    void dragAtEveryZoom();
    void dragIsClampedToTheRange();
    void foreignRanges();
    void positionsAreRounded();
    void setValueArguments();

    void qualityFollowsThePointer_data();
    void qualityFollowsThePointer();
    void qualityRoundsHalvesAwayFromZero_data();
    void qualityRoundsHalvesAwayFromZero();
    void qualityGoesBeyondTheRange();
    void qualityCannotOverflow();
    void qualityOfADisplayOfNoHeight();

    void modifierChangeOnlyReanchors();
    void modifierReleaseDuringQualityDrag();
    void bandSwitchedOffDuringDrag();

    void otherButtonsDoNotDrag_data();
    void otherButtonsDoNotDrag();
    void otherButtonsDoNotEndADrag();
    void releaseEndsTheDrag();
    void releaseWithoutDrag();
    void moveWithoutPress();
    void secondPressKeepsTheGrab();
    void doubleClickGrabs();
    void disabledWidgetGrabsNothing();
    void disablingEndsTheDrag();
    void disablingTheEditorEndsTheDrag();
    void hidingEndsTheDrag();

    void noMemoryNoWrites();
    void detachedDuringDrag();
    void graphWaitsForTheEcho();
    void clampingHost();
    void detachInsideSetValue();
    void channelChangeInsideSetValue();
    void missingParameterIsNotWritten_data();
    void missingParameterIsNotWritten();
    void failedCallsWriteNothing_data();
    void failedCallsWriteNothing();
    void degenerateRange();
    void widestRange();
    void resizeDuringDrag();
};

void tst_EqualizerGraphDrag::targetPointOfNoBand()
{
    GraphFixture f;
    for (const int target : {0, -1, 7, 1000})
        QCOMPARE(f.graph->getTargetPoint(static_cast<Graph::EditTarget>(target)), QPointF(0, 0));
}

void tst_EqualizerGraphDrag::nearestHandle()
{
    DragFixture f;
    for (int band = 0; band < 6; ++band)
        f.setBand(band, 100 + 200 * band, band % 2 ? 60 : -60);
    for (int x = 44; x <= 664; x += 5)
        for (int y = 10; y <= 163; y += 3) {
            int nearest = -1;
            double best = 1e9;
            for (int band = 0; band < 6; ++band) {
                const QPointF handle(f.plot().x(hertz(100 + 200 * band)),
                                     f.plot().y(band % 2 ? 6 : -6));
                const double distance = QLineF(handle, QPointF(x, y)).length();
                // No point is in doubt: handles mirror each other in no row or column.
                if (distance < best - 1e-9) {
                    best = distance;
                    nearest = band;
                }
            }
            QCOMPARE(f.graph->getPointTarget(QPoint(x, y)), targetOf(nearest));
        }
}

void tst_EqualizerGraphDrag::tieGoesToTheEarlierBand_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("second");
    for (int first = 0; first < 6; ++first)
        for (int second = first + 1; second < 6; ++second)
            QTest::addRow("%d before %d", first, second) << first << second;
}

void tst_EqualizerGraphDrag::tieGoesToTheEarlierBand()
{
    QFETCH(int, first);
    QFETCH(int, second);
    DragFixture f;
    for (int band = 0; band < 6; ++band) {
        f.set(onName(band), band == first || band == second ? 1 : 0);
        f.setBand(band, 600, 0);
    }
    QCOMPARE(f.graph->getPointTarget(Middle.toPoint()), targetOf(first));
    f.set(onName(first), 0);
    QCOMPARE(f.graph->getPointTarget(Middle.toPoint()), targetOf(second));
}

void tst_EqualizerGraphDrag::equalDistancesGoToTheEarlierBand()
{
    // Two bands at the same frequency, above and below a point on the 0 dB line at y = 173.
    DragFixture f(QSize(1358, 384));
    f.solo(4);
    f.set(onName(1), 1);
    f.graph->setZoom(1);
    f.setBand(4, 600, 100);
    f.setBand(1, 600, -100);
    QCOMPARE(f.graph->getPointTarget(QPoint(300, 173)), Graph::EditTargetMiddle1);
    f.setBand(1, 600, -101);
    QCOMPARE(f.graph->getPointTarget(QPoint(300, 173)), Graph::EditTargetMiddle4);
}

void tst_EqualizerGraphDrag::clickWithAllBandsOffGrabsNothing()
{
    DragFixture f;
    f.solo(-1);
    QCOMPARE(f.graph->getPointTarget(Middle.toPoint()), Graph::EditTargetNone);
    f.mouse.press(Middle);
    f.set(onName(2), 1);
    f.mouse.move(Middle + QPointF(50, 20));
    QCOMPARE(f.host.count(Operation::SetValue), 0);
}

void tst_EqualizerGraphDrag::plotEdges()
{
    // At twice the design size the plot's edges lie on whole pixels: 87, 19 to 1329, 327.
    DragFixture f(QSize(1358, 384));
    const auto grabs = [&](int x, int y) {
        return f.graph->getPointTarget(QPoint(x, y)) != Graph::EditTargetNone;
    };
    for (const int x : {87, 700, 1329})
        for (const int y : {19, 170, 327})
            QVERIFY(grabs(x, y));
    for (const int y : {19, 170, 327})
        QVERIFY(!grabs(86, y) && !grabs(1330, y));
    for (const int x : {87, 700, 1329})
        QVERIFY(!grabs(x, 18) && !grabs(x, 328));

    // At the design size they lie on halves.
    f.graph->resize(GraphFixture::DesignSize);
    QVERIFY(grabs(44, 10) && grabs(664, 163));
    QVERIFY(!grabs(43, 10) && !grabs(44, 9) && !grabs(665, 163) && !grabs(664, 164));
}

void tst_EqualizerGraphDrag::clickOutsideThePlotGrabsNothing()
{
    DragFixture f;
    for (const QPointF at : {QPointF(20, 90), {670, 90}, {350, 5}, {350, 180}, {-5, -5}}) {
        f.mouse.press(at);
        QCOMPARE(f.graph->getDragMode(Qt::NoModifier), Graph::DragModeNone);
        f.mouse.move(Middle);
        f.mouse.release(Middle);
    }
    QCOMPARE(f.host.count(Operation::SetValue), 0);
}

void tst_EqualizerGraphDrag::farHandleIsOutOfReach()
{
    // One handle at x = 43.5, in a plot so wide that most of it is 10000 units away.
    DragFixture f(QSize(20000, 192));
    f.solo(1);
    f.setBand(1, 0, 0);
    QCOMPARE(f.graph->getPointTarget(QPoint(10043, 86)), Graph::EditTargetMiddle1);
    QCOMPARE(f.graph->getPointTarget(QPoint(10044, 86)), Graph::EditTargetNone);
}

void tst_EqualizerGraphDrag::unknownTypeIsGrabbedAtTheCorner()
{
    DragFixture f;
    f.solo(0);
    f.set(typeName(0), 9);
    f.set(onName(3), 1);
    f.setBand(3, 600, 0);
    QCOMPARE(f.graph->getPointTarget(QPoint(50, 20)), Graph::EditTargetLow);
    QCOMPARE(f.graph->getPointTarget(QPoint(340, 80)), Graph::EditTargetMiddle3);
}

void tst_EqualizerGraphDrag::dragModes_data()
{
    QTest::addColumn<int>("band");
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("on");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<int>("mode");

    struct Row
    {
        const char* name;
        Qt::KeyboardModifiers modifiers;
        int shelf, pass, bell;
    };
    constexpr int none = 0, quality = 1, frequency = 2, gain = 3, both = 4;
    const std::vector<Row> rows = {
        {"none", Qt::NoModifier, both, frequency, both},
        {"shift", Qt::ShiftModifier, none, none, quality},
        {"control", Qt::ControlModifier, gain, none, gain},
        {"alt", Qt::AltModifier, frequency, frequency, frequency},
        {"meta", Qt::MetaModifier, both, frequency, both},
        {"keypad", Qt::KeypadModifier, both, frequency, both},
        {"shift control", Qt::ShiftModifier | Qt::ControlModifier, both, frequency, both},
        {"shift alt", Qt::ShiftModifier | Qt::AltModifier, both, frequency, both},
        {"control alt", Qt::ControlModifier | Qt::AltModifier, both, frequency, both},
        {"shift meta", Qt::ShiftModifier | Qt::MetaModifier, both, frequency, both},
        {"shift control alt", Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier, both,
         frequency, both},
    };
    const auto add = [&](const Row& row, int band, int type, int mode) {
        for (const bool on : {true, false})
            QTest::addRow("band %d type %d %s %s", band, type, row.name, on ? "on" : "off")
                << band << type << on << static_cast<int>(row.modifiers) << (on ? mode : none);
    };
    for (const Row& row : rows) {
        for (const int band : {0, 5}) {
            for (const int type : {2, 3})
                add(row, band, type, row.shelf);
            for (const int type : {0, 1, 4, -1})
                add(row, band, type, row.pass);
        }
        for (int band = 1; band < 5; ++band)
            add(row, band, -1, row.bell);
    }
}

void tst_EqualizerGraphDrag::dragModes()
{
    QFETCH(int, band);
    QFETCH(int, type);
    QFETCH(bool, on);
    QFETCH(int, modifiers);
    QFETCH(int, mode);
    DragFixture f;
    f.solo(band);
    if (band == 0 || band == 5)
        f.set(typeName(band), type);
    f.mouse.press(Middle);
    f.set(onName(band), on ? 1 : 0);
    QCOMPARE(static_cast<int>(f.graph->getDragMode(Qt::KeyboardModifiers(modifiers))), mode);
}

void tst_EqualizerGraphDrag::noDragModeWithoutGrab()
{
    DragFixture f;
    const std::initializer_list<Qt::KeyboardModifier> all = {Qt::NoModifier, Qt::ShiftModifier,
                                                             Qt::ControlModifier, Qt::AltModifier};
    for (const Qt::KeyboardModifier modifier : all)
        QCOMPARE(f.graph->getDragMode(modifier), Graph::DragModeNone);
    f.mouse.press(Middle);
    f.mouse.release(Middle);
    for (const Qt::KeyboardModifier modifier : all)
        QCOMPARE(f.graph->getDragMode(modifier), Graph::DragModeNone);
}

void tst_EqualizerGraphDrag::dragFrequencyAndGain_data()
{
    QTest::addColumn<int>("band");
    QTest::addColumn<QSize>("size");
    for (int band = 0; band < 6; ++band)
        for (const QSize size : {QSize(679, 192),
                                 {1358, 384},
                                 {1019, 288},
                                 {340, 96},
                                 {500, 150},
                                 {333, 97},
                                 {977, 111},
                                 {400, 600}})
            QTest::addRow("band %d in %dx%d", band, size.width(), size.height()) << band << size;
}

void tst_EqualizerGraphDrag::dragFrequencyAndGain()
{
    QFETCH(int, band);
    QFETCH(QSize, size);
    DragFixture f(size);
    f.solo(band);
    f.setBand(band, 431, 37);
    const Plot plot = f.plot();
    const QPointF handle(plot.x(hertz(431)), plot.y(3.7));
    // Not on the handle: the distance stays.
    const QPoint from(handle.toPoint() + QPoint(3, -2));
    f.mouse.press(from);
    for (const QPoint by : {QPoint(7, 5), {19, -11}, {-23, 13}, {1, 0}, {0, 1}}) {
        f.host.resetLedger();
        f.mouse.move(from + by);
        const QPointF to = handle + by;
        QCOMPARE(f.host.writes(), (Writes{{frequencyName(band), 0, rawFrequencyAt(plot, to.x())},
                                          {gainName(band), 0, rawGainAt(plot, to.y())}}));
        // The host's echo has brought the handle to the pointer, to half a raw step.
        const QPointF now = f.graph->getTargetPoint(targetOf(band));
        QVERIFY(std::abs(now.x() - to.x()) <= plot.width / 2400.0 + 1e-3);
        QVERIFY(std::abs(now.y() - to.y()) <= plot.height / 480.0 + 1e-3);
    }
}

void tst_EqualizerGraphDrag::dragFrequencyOnly()
{
    for (int band = 0; band < 6; ++band) {
        DragFixture f;
        f.solo(band);
        f.setBand(band, 431, 37);
        const double x = f.plot().x(hertz(431));
        f.mouse.press({300, 60}, Qt::AltModifier);
        f.mouse.move({340, 20}, Qt::AltModifier);
        QCOMPARE(f.host.writes(),
                 (Writes{{frequencyName(band), 0, rawFrequencyAt(f.plot(), x + 40)}}));
    }
}

void tst_EqualizerGraphDrag::dragGainOnly()
{
    for (int band = 0; band < 6; ++band) {
        DragFixture f;
        f.solo(band);
        f.setBand(band, 431, 37);
        const double y = f.plot().y(3.7);
        f.mouse.press({300, 60}, Qt::ControlModifier);
        f.mouse.move({340, 73}, Qt::ControlModifier);
        QCOMPARE(f.host.writes(), (Writes{{gainName(band), 0, rawGainAt(f.plot(), y + 13)}}));
    }
}

void tst_EqualizerGraphDrag::passFilterMovesAlongTheLine_data()
{
    QTest::addColumn<int>("band");
    QTest::addColumn<int>("type");
    for (const int band : {0, 5})
        for (const int type : {0, 1})
            QTest::addRow("band %d type %d", band, type) << band << type;
}

void tst_EqualizerGraphDrag::passFilterMovesAlongTheLine()
{
    QFETCH(int, band);
    QFETCH(int, type);
    DragFixture f;
    f.solo(band);
    f.setBand(band, 500, 77);
    f.set(typeName(band), type);
    const QPointF handle(f.plot().x(hertz(500)), 86.5);
    QVERIFY(isNear(f.graph->getTargetPoint(targetOf(band)), handle));
    f.mouse.press({300, 60});
    f.mouse.move({311, 30});
    QCOMPARE(f.host.writes(),
             (Writes{{frequencyName(band), 0, rawFrequencyAt(f.plot(), handle.x() + 11)}}));
    QCOMPARE(f.graph->getTargetPoint(targetOf(band)).y(), 86.5);
}

void tst_EqualizerGraphDrag::controlDragOfAPassFilterWritesNothing()
{
    for (const int band : {0, 5})
        for (const int type : {0, 1, 4}) {
            DragFixture f;
            f.solo(band);
            f.set(typeName(band), type);
            f.mouse.press(Middle, Qt::ControlModifier);
            f.mouse.move(Middle + QPointF(30, 30), Qt::ControlModifier);
            f.mouse.move(Middle + QPointF(60, 60), Qt::ControlModifier);
            QCOMPARE(f.host.count(Operation::SetValue), 0);
        }
}

void tst_EqualizerGraphDrag::shiftDragOfAnOuterBandWritesNothing()
{
    for (const int band : {0, 5}) {
        DragFixture f;
        f.solo(band);
        f.mouse.press(Middle, Qt::ShiftModifier);
        f.mouse.move(Middle + QPointF(30, 30), Qt::ShiftModifier);
        QCOMPARE(f.host.count(Operation::SetValue), 0);
        QCOMPARE(f.host.value(typeName(band), 0), 3);
    }
}

void tst_EqualizerGraphDrag::unknownTypeDragsFrequency()
{
    DragFixture f;
    f.solo(5);
    f.set(typeName(5), 17);
    f.mouse.press({100, 50});
    f.mouse.move({200, 50});
    // Its handle is at (0, 0): the pointer is 100 pixels to the right of it.
    QCOMPARE(f.host.writes(), (Writes{{frequencyName(5), 0, rawFrequencyAt(f.plot(), 100)}}));
}

void tst_EqualizerGraphDrag::dragAtEveryZoom_data()
{
    QTest::addColumn<int>("zoom");
    for (int zoom = 0; zoom < 7; ++zoom)
        QTest::addRow("%d", zoom) << zoom;
}

void tst_EqualizerGraphDrag::dragAtEveryZoom()
{
    QFETCH(int, zoom);
    DragFixture f;
    f.solo(2);
    f.setBand(2, 431, 11);
    f.graph->setZoom(zoom);
    const double y = f.plot().y(1.1);
    f.mouse.press({300, 60}, Qt::ControlModifier);
    for (const int by : {13, -7, 31}) {
        f.mouse.move({300.0, 60.0 + by}, Qt::ControlModifier);
        QCOMPARE(f.gain(2), rawGainAt(f.plot(), y + by));
    }
}

void tst_EqualizerGraphDrag::dragIsClampedToTheRange()
{
    for (int band = 0; band < 6; ++band) {
        DragFixture f;
        f.solo(band);
        f.mouse.press(Middle);
        f.mouse.move({-2000, 2000});
        QCOMPARE(f.frequency(band), 0);
        QCOMPARE(f.gain(band), -200);
        f.mouse.move({3000, -3000});
        QCOMPARE(f.frequency(band), 1200);
        QCOMPARE(f.gain(band), 200);
        f.mouse.move({1e9, 1e9});
        QCOMPARE(f.frequency(band), 1200);
        QCOMPARE(f.gain(band), -200);
    }
}

void tst_EqualizerGraphDrag::foreignRanges()
{
    GraphFixture f;
    f.host.setRange(frequencyName(3), -50, -40);
    f.host.setRange(gainName(3), 100, 1100);
    f.bind();
    f.solo(3);
    f.setBand(3, -45, 600);
    GraphMouse mouse(f.graph);
    const Plot plot = f.plot();
    const QPointF handle(plot.x(20 * std::sqrt(1000.0)), plot.centre);
    mouse.press({350, 90});
    mouse.move({390, 100});
    const double position = (handle.x() + 40 - plot.left) / plot.width;
    const double gain = -10 * plot.Z / (plot.height / 2);
    QCOMPARE(f.host.writes(), (Writes{{frequencyName(3), 0, raw(position, -50, -40)},
                                      {gainName(3), 0, raw((gain + 20) / 40, 100, 1100)}}));
}

void tst_EqualizerGraphDrag::positionsAreRounded()
{
    DragFixture f;
    f.solo(2);
    f.setBand(2, 431, 37);
    const QPointF handle(f.plot().x(hertz(431)), f.plot().y(3.7));
    f.mouse.press({300.4, 59.6});
    f.mouse.move({340.6, 73.3});
    // 300, 60 to 341, 73.
    QCOMPARE(f.frequency(2), rawFrequencyAt(f.plot(), handle.x() + 41));
    QCOMPARE(f.gain(2), rawGainAt(f.plot(), handle.y() + 13));

    // The plot begins at x = 43.5: 43.6 rounds into it and 43.4 out of it.
    f.mouse.release({340, 73});
    f.mouse.press({43.4, 60});
    QCOMPARE(f.graph->getDragMode(Qt::NoModifier), Graph::DragModeNone);
    f.mouse.release({43.4, 60});
    f.mouse.press({43.6, 60});
    QCOMPARE(f.graph->getDragMode(Qt::NoModifier), Graph::DragModeFrequencyGain);
}

void tst_EqualizerGraphDrag::setValueArguments()
{
    GraphFixture f;
    f.graph->setCh(6);
    f.bind();
    GraphMouse mouse(f.graph);
    for (const auto modifier : {Qt::NoModifier, Qt::ShiftModifier}) {
        for (int band = 0; band < 6; ++band)
            f.set(onName(band), band == 4 ? 1 : 0, 6);
        mouse.press(Middle, modifier);
        mouse.move(Middle + QPointF(9, 9), modifier);
        mouse.release(Middle, modifier);
    }
    const auto calls = f.host.calls(Operation::SetValue);
    QCOMPARE(calls.size(), std::size_t(3));
    const std::array names = {frequencyName(4), gainName(4), qualityName(4)};
    for (std::size_t i = 0; i < calls.size(); ++i) {
        QCOMPARE(calls[i].parameter, f.host.id(names[i]));
        QCOMPARE(calls[i].ch, static_cast<unsigned short>(6));
        QCOMPARE(calls[i].element, static_cast<unsigned short>(0));
        QCOMPARE(calls[i].trailing1, 0);
        QCOMPARE(calls[i].trailing2, 1);
    }
}

void tst_EqualizerGraphDrag::qualityFollowsThePointer_data()
{
    QTest::addColumn<int>("band");
    QTest::addColumn<int>("height");
    for (int band = 1; band < 5; ++band)
        for (const int height : {192, 384, 288, 96, 181, 97, 603})
            QTest::addRow("band %d height %d", band, height) << band << height;
}

void tst_EqualizerGraphDrag::qualityFollowsThePointer()
{
    QFETCH(int, band);
    QFETCH(int, height);
    DragFixture f(QSize(679, height));
    f.solo(band);
    f.set(qualityName(band), 200);
    int expected = 200;
    int y = height / 2;
    f.mouse.press({300.0, double(y)}, Qt::ShiftModifier);
    for (const int to :
         {height / 2 - 1, height / 2 - 8, height / 2 + 10, height / 2 + 10, height / 2 - 20}) {
        f.host.resetLedger();
        f.mouse.move({250.0, double(to)}, Qt::ShiftModifier);
        // From the raw value that the host holds, by the way since the last move.
        expected += static_cast<int>(std::lround((y - to) * 181.0 / height));
        y = to;
        QCOMPARE(f.host.writes(), (Writes{{qualityName(band), 0, expected}}));
    }
}

void tst_EqualizerGraphDrag::qualityRoundsHalvesAwayFromZero_data()
{
    QTest::addColumn<int>("up");
    QTest::addColumn<int>("change");
    // A step of two pixels.
    QTest::newRow("up 1") << 1 << 1;
    QTest::newRow("down 1") << -1 << -1;
    QTest::newRow("up 2") << 2 << 1;
    QTest::newRow("up 3") << 3 << 2;
    QTest::newRow("down 3") << -3 << -2;
    QTest::newRow("up 5") << 5 << 3;
    QTest::newRow("down 5") << -5 << -3;
    QTest::newRow("still") << 0 << 0;
}

void tst_EqualizerGraphDrag::qualityRoundsHalvesAwayFromZero()
{
    QFETCH(int, up);
    QFETCH(int, change);
    DragFixture f(QSize(1280, 362));
    f.solo(2);
    f.mouse.press({600, 150}, Qt::ShiftModifier);
    f.mouse.move({600.0, 150.0 - up}, Qt::ShiftModifier);
    QCOMPARE(f.host.writes(), (Writes{{qualityName(2), 0, 250 + change}}));
}

void tst_EqualizerGraphDrag::qualityGoesBeyondTheRange()
{
    // Keeping the range is the host's business.
    DragFixture f(QSize(679, 181));
    f.solo(2);
    f.mouse.press({300, 90}, Qt::ShiftModifier);
    f.mouse.move({300, -310}, Qt::ShiftModifier);
    QCOMPARE(f.rawQuality(2), 650);
    f.mouse.move({300, 790}, Qt::ShiftModifier);
    QCOMPARE(f.rawQuality(2), -450);
}

void tst_EqualizerGraphDrag::qualityCannotOverflow()
{
    DragFixture f(QSize(679, 181));
    f.solo(2);
    f.set(qualityName(2), std::numeric_limits<int>::max());
    f.mouse.press({300, 90}, Qt::ShiftModifier);
    f.mouse.move({300, 80}, Qt::ShiftModifier);
    QCOMPARE(f.rawQuality(2), std::numeric_limits<int>::max());
    f.set(qualityName(2), std::numeric_limits<int>::min());
    f.mouse.move({300, 95}, Qt::ShiftModifier);
    QCOMPARE(f.rawQuality(2), std::numeric_limits<int>::min());
}

void tst_EqualizerGraphDrag::qualityOfADisplayOfNoHeight()
{
    DragFixture f;
    f.solo(2);
    f.mouse.press({300, 90}, Qt::ShiftModifier);
    f.graph->resize(679, 0);
    f.mouse.move({300, 90}, Qt::ShiftModifier);
    f.mouse.move({300, 80}, Qt::ShiftModifier);
    QCOMPARE(f.host.count(Operation::SetValue), 0);
}

void tst_EqualizerGraphDrag::modifierChangeOnlyReanchors()
{
    DragFixture f;
    f.solo(3);
    f.setBand(3, 431, 37);
    f.mouse.press({300, 60});
    f.mouse.move({320, 70});
    const QPointF before = f.graph->getTargetPoint(targetOf(3));

    // The first move with another modifier writes nothing, and the way it made counts from the
    // place of the move before.
    f.host.resetLedger();
    f.mouse.move({350, 80}, Qt::ControlModifier);
    QCOMPARE(f.host.count(Operation::SetValue), 0);
    QCOMPARE(f.graph->getTargetPoint(targetOf(3)), before);
    f.mouse.move({350, 81}, Qt::ControlModifier);
    QCOMPARE(f.host.writes(), (Writes{{gainName(3), 0, rawGainAt(f.plot(), before.y() + 11)}}));

    // Back again: anchored at the last position that wrote.
    const QPointF later = f.graph->getTargetPoint(targetOf(3));
    f.host.resetLedger();
    f.mouse.move({500, 20});
    QCOMPARE(f.host.count(Operation::SetValue), 0);
    f.mouse.move({355, 83});
    QCOMPARE(f.host.writes(),
             (Writes{{frequencyName(3), 0, rawFrequencyAt(f.plot(), later.x() + 5)},
                     {gainName(3), 0, rawGainAt(f.plot(), later.y() + 2)}}));

    // Two modifiers are no modifier: the same mode, no stop.
    f.host.resetLedger();
    f.mouse.move({356, 83}, Qt::ControlModifier | Qt::AltModifier);
    QCOMPARE(f.host.count(Operation::SetValue), 2);
}

void tst_EqualizerGraphDrag::modifierReleaseDuringQualityDrag()
{
    DragFixture f(QSize(679, 181));
    f.solo(3);
    f.mouse.press({300, 90}, Qt::ShiftModifier);
    f.mouse.move({300, 80}, Qt::ShiftModifier);
    QCOMPARE(f.rawQuality(3), 260);
    f.mouse.move({300, 60});
    f.mouse.move({300, 40}, Qt::ShiftModifier);
    QCOMPARE(f.rawQuality(3), 260);
    // Neither of the two moves that changed the mode moved the anchor.
    f.mouse.move({300, 70}, Qt::ShiftModifier);
    QCOMPARE(f.rawQuality(3), 270);
    QCOMPARE(f.frequency(3), 600);
    QCOMPARE(f.gain(3), 0);
}

void tst_EqualizerGraphDrag::bandSwitchedOffDuringDrag()
{
    for (const auto modifier :
         {Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier}) {
        DragFixture f;
        f.solo(3);
        f.mouse.press(Middle, modifier);
        f.set(onName(3), 0);
        f.mouse.move(Middle + QPointF(20, 20), modifier);
        f.mouse.move(Middle + QPointF(40, 40), modifier);
        QCOMPARE(f.host.count(Operation::SetValue), 0);
        f.set(onName(3), 1);
        f.mouse.move(Middle + QPointF(60, 60), modifier);
        QCOMPARE(f.host.count(Operation::SetValue), 0);
        f.mouse.move(Middle + QPointF(80, 80), modifier);
        QVERIFY(f.host.count(Operation::SetValue) > 0);
    }
}

void tst_EqualizerGraphDrag::otherButtonsDoNotDrag_data()
{
    QTest::addColumn<int>("button");
    for (const auto button : {Qt::RightButton, Qt::MiddleButton, Qt::BackButton})
        QTest::addRow("%d", static_cast<int>(button)) << static_cast<int>(button);
}

void tst_EqualizerGraphDrag::otherButtonsDoNotDrag()
{
    QFETCH(int, button);
    DragFixture f;
    f.mouse.press(Middle, Qt::NoModifier, static_cast<Qt::MouseButton>(button));
    QCOMPARE(f.graph->getDragMode(Qt::NoModifier), Graph::DragModeNone);
    f.mouse.move(Middle + QPointF(20, 20));
    QCOMPARE(f.host.count(Operation::SetValue), 0);
}

void tst_EqualizerGraphDrag::otherButtonsDoNotEndADrag()
{
    DragFixture f;
    f.mouse.press(Middle);
    f.mouse.press(Middle, Qt::NoModifier, Qt::RightButton);
    f.mouse.release(Middle, Qt::NoModifier, Qt::RightButton);
    f.mouse.move(Middle + QPointF(20, 20));
    QCOMPARE(f.host.count(Operation::SetValue), 2);
}

void tst_EqualizerGraphDrag::releaseEndsTheDrag()
{
    DragFixture f;
    f.mouse.press(Middle);
    f.mouse.move(Middle + QPointF(20, 20));
    f.mouse.release(Middle + QPointF(200, 50));
    // The release itself moves nothing.
    QCOMPARE(f.host.count(Operation::SetValue), 2);
    QCOMPARE(f.graph->getDragMode(Qt::NoModifier), Graph::DragModeNone);
    f.mouse.move(Middle + QPointF(40, 40));
    QCOMPARE(f.host.count(Operation::SetValue), 2);
}

void tst_EqualizerGraphDrag::releaseWithoutDrag()
{
    DragFixture f;
    f.mouse.release(Middle);
    f.mouse.press({5, 5});
    f.mouse.release(Middle);
    f.mouse.press(Middle);
    f.mouse.move(Middle + QPointF(20, 20));
    QCOMPARE(f.host.count(Operation::SetValue), 2);
}

void tst_EqualizerGraphDrag::moveWithoutPress()
{
    DragFixture f;
    f.mouse.move(Middle);
    f.mouse.move(Middle + QPointF(20, 20));
    QCOMPARE(f.host.count(Operation::SetValue), 0);
}

void tst_EqualizerGraphDrag::secondPressKeepsTheGrab()
{
    DragFixture f;
    f.setBand(1, 100, 0);
    f.setBand(4, 1100, 0);
    f.mouse.press(f.graph->getTargetPoint(targetOf(1)));
    f.mouse.press(f.graph->getTargetPoint(targetOf(4)));
    f.mouse.move(Middle);
    for (const TestHost::Write& write : f.host.writes())
        QVERIFY(write.name == frequencyName(1) || write.name == gainName(1));
    QCOMPARE(f.host.count(Operation::SetValue), 2);
}

void tst_EqualizerGraphDrag::doubleClickGrabs()
{
    DragFixture f;
    f.mouse.press(Middle);
    f.mouse.release(Middle);
    f.mouse.doubleClick(Middle);
    f.mouse.move(Middle + QPointF(20, 20));
    QCOMPARE(f.host.count(Operation::SetValue), 2);
}

void tst_EqualizerGraphDrag::disabledWidgetGrabsNothing()
{
    DragFixture f;
    f.graph->setEnabled(false);
    f.mouse.press(Middle);
    f.graph->setEnabled(true);
    QCOMPARE(f.graph->getDragMode(Qt::NoModifier), Graph::DragModeNone);
    f.mouse.move(Middle + QPointF(20, 20));
    QCOMPARE(f.host.count(Operation::SetValue), 0);
}

void tst_EqualizerGraphDrag::disablingEndsTheDrag()
{
    DragFixture f;
    f.setBand(1, 100, 0);
    f.setBand(4, 1100, 0);
    f.mouse.press(f.graph->getTargetPoint(targetOf(1)));
    f.graph->setEnabled(false);
    QCOMPARE(f.graph->getDragMode(Qt::NoModifier), Graph::DragModeNone);
    f.mouse.move(Middle);
    f.mouse.release(Middle);
    f.graph->setEnabled(true);
    f.mouse.move(Middle);
    QCOMPARE(f.host.count(Operation::SetValue), 0);

    // The next press grabs what it hits.
    f.mouse.press(f.graph->getTargetPoint(targetOf(4)));
    f.mouse.move(Middle, Qt::NoModifier);
    QCOMPARE(f.host.writes().at(0).name, frequencyName(4));
}

void tst_EqualizerGraphDrag::disablingTheEditorEndsTheDrag()
{
    DragFixture f;
    f.mouse.press(Middle);
    f.editor.setEnabled(false);
    f.editor.setEnabled(true);
    f.mouse.move(Middle + QPointF(20, 20));
    QCOMPARE(f.host.count(Operation::SetValue), 0);
}

void tst_EqualizerGraphDrag::hidingEndsTheDrag()
{
    DragFixture f;
    f.editor.show();
    f.mouse.press(Middle);
    f.editor.hide();
    f.editor.show();
    f.mouse.move(Middle + QPointF(20, 20));
    QCOMPARE(f.host.count(Operation::SetValue), 0);
}

void tst_EqualizerGraphDrag::noMemoryNoWrites()
{
    GraphFixture f;
    GraphMouse mouse(f.graph);
    mouse.press(Middle);
    QCOMPARE(f.graph->getDragMode(Qt::AltModifier), Graph::DragModeFrequency);
    mouse.move(Middle + QPointF(20, 20));
    mouse.release(Middle);
    QCOMPARE(f.host.callCount(), 0);
}

void tst_EqualizerGraphDrag::detachedDuringDrag()
{
    DragFixture f;
    f.mouse.press(Middle);
    f.graph->setMemAPI(nullptr);
    f.mouse.move(Middle + QPointF(20, 20));
    QCOMPARE(f.host.count(Operation::SetValue), 0);
    f.bind();
    f.mouse.move(Middle + QPointF(40, 40));
    QCOMPARE(f.host.count(Operation::SetValue), 2);
}

void tst_EqualizerGraphDrag::graphWaitsForTheEcho()
{
    DragFixture f;
    f.solo(2);
    f.setBand(2, 431, 37);
    f.host.setNotifying(false);
    const QPointF handle = f.graph->getTargetPoint(targetOf(2));
    f.mouse.press({300, 60});
    const QImage before = f.picture();
    for (const QPointF to : {QPointF(320, 70), {340, 90}}) {
        f.mouse.move(to);
        QCOMPARE(f.graph->getTargetPoint(targetOf(2)), handle);
        QCOMPARE(f.picture(), before);
        const QPointF by = to - QPointF(300, 60);
        QCOMPARE(f.frequency(2), rawFrequencyAt(f.plot(), handle.x() + by.x()));
        QCOMPARE(f.gain(2), rawGainAt(f.plot(), handle.y() + by.y()));
    }
    // Quality counts from what the host holds.
    f.mouse.release({340, 90});
    f.mouse.press({300, 60}, Qt::ShiftModifier);
    f.mouse.move({300, 50}, Qt::ShiftModifier);
    f.mouse.move({300, 40}, Qt::ShiftModifier);
    QCOMPARE(f.rawQuality(2), 250 + 2 * 9);
    QCOMPARE(f.picture(), before);
}

void tst_EqualizerGraphDrag::clampingHost()
{
    DragFixture f(QSize(679, 181));
    f.host.setClamping(true);
    f.solo(2);
    f.mouse.press({300, 90}, Qt::ShiftModifier);
    f.mouse.move({300, -310}, Qt::ShiftModifier);
    QCOMPARE(f.rawQuality(2), 500);
    // The way beyond the end does not have to be gone back.
    f.mouse.move({300, -300}, Qt::ShiftModifier);
    QCOMPARE(f.rawQuality(2), 490);
}

void tst_EqualizerGraphDrag::detachInsideSetValue()
{
    for (const auto& name : {frequencyName(2), gainName(2), qualityName(2)})
        for (const auto modifier : {Qt::NoModifier, Qt::ShiftModifier}) {
            DragFixture f;
            f.solo(2);
            Listener listener(f.host, name, [&] { f.graph->setMemAPI(nullptr); });
            f.mouse.press(Middle, modifier);
            f.mouse.move(Middle + QPointF(20, 20), modifier);
            f.mouse.move(Middle + QPointF(40, 40), modifier);
            f.mouse.release(Middle, modifier);
            QCOMPARE(f.host.observerCount(),
                     1 + (f.host.count(Operation::UnregisterObserver) == 0 ? 24 : 0));
            // After the write of a frequency the gain is not written any more.
            if (modifier == Qt::NoModifier && name == frequencyName(2))
                QCOMPARE(f.host.count(Operation::SetValue), 1);
        }
}

void tst_EqualizerGraphDrag::channelChangeInsideSetValue()
{
    DragFixture f;
    f.solo(2);
    Listener listener(f.host, frequencyName(2), [&] { f.graph->setCh(3); });
    f.mouse.press(Middle);
    f.mouse.move(Middle + QPointF(20, 20));
    f.mouse.move(Middle + QPointF(40, 40));
    f.mouse.release(Middle);
    QCOMPARE(f.host.observerCount(gainName(2), 3), 1);
    QCOMPARE(f.host.observerCount(gainName(2), 0), 0);
}

void tst_EqualizerGraphDrag::missingParameterIsNotWritten_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("writes");
    QTest::newRow("quality") << 9 << 4;
    QTest::newRow("frequency") << 10 << 3;
    QTest::newRow("gain") << 11 << 3;
}

void tst_EqualizerGraphDrag::missingParameterIsNotWritten()
{
    QFETCH(int, number);
    QFETCH(int, writes);
    GraphFixture f;
    f.host.removeParameter(TestHost::name(number));
    f.bind();
    f.graph->setFs(48000);
    GraphMouse mouse(f.graph);
    for (int band = 0; band < 6; ++band)
        f.set(onName(band), band == 2 ? 1 : 0);
    for (const auto modifier :
         {Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier}) {
        mouse.press(Middle, modifier);
        mouse.move(Middle + QPointF(9, 9), modifier);
        mouse.release(Middle, modifier);
    }
    QCOMPARE(f.host.count(Operation::SetValue), writes);
    for (const TestHost::Write& write : f.host.writes())
        QVERIFY(write.name != TestHost::name(number));
}

void tst_EqualizerGraphDrag::failedCallsWriteNothing_data()
{
    QTest::addColumn<int>("operation");
    QTest::addColumn<int>("modifiers");
    QTest::newRow("getRange") << static_cast<int>(Operation::GetRange) << 0;
    QTest::newRow("getValue") << static_cast<int>(Operation::GetValue)
                              << static_cast<int>(Qt::ShiftModifier);
}

void tst_EqualizerGraphDrag::failedCallsWriteNothing()
{
    QFETCH(int, operation);
    QFETCH(int, modifiers);
    DragFixture f;
    f.solo(2);
    f.host.failAll(static_cast<Operation>(operation));
    f.mouse.press(Middle, Qt::KeyboardModifiers(modifiers));
    f.mouse.move(Middle + QPointF(20, 20), Qt::KeyboardModifiers(modifiers));
    QCOMPARE(f.host.count(Operation::SetValue), 0);
}

void tst_EqualizerGraphDrag::degenerateRange()
{
    GraphFixture f;
    f.host.setRange(frequencyName(2), 7, 7);
    f.host.setRange(gainName(2), -3, -3);
    f.bind();
    f.solo(2);
    GraphMouse mouse(f.graph);
    mouse.press(Middle);
    mouse.move(Middle + QPointF(20, 20));
    QCOMPARE(f.host.writes(), (Writes{{frequencyName(2), 0, 7}, {gainName(2), 0, -3}}));
}

void tst_EqualizerGraphDrag::widestRange()
{
    constexpr int lowest = std::numeric_limits<int>::min();
    constexpr int highest = std::numeric_limits<int>::max();
    GraphFixture f;
    f.host.setRange(frequencyName(2), lowest, highest);
    f.host.setRange(gainName(2), lowest, highest);
    f.bind();
    f.solo(2);
    GraphMouse mouse(f.graph);
    mouse.press(Middle);
    mouse.move({-3000, -3000});
    QCOMPARE(f.host.writes(), (Writes{{frequencyName(2), 0, lowest}, {gainName(2), 0, highest}}));
    mouse.move({5000, 5000});
    QCOMPARE(f.host.value(frequencyName(2), 0), highest);
    QCOMPARE(f.host.value(gainName(2), 0), lowest);
}

void tst_EqualizerGraphDrag::resizeDuringDrag()
{
    for (const QSize size : {QSize(0, 0), {1, 1}, {58, 192}, {679, 0}, {0, 192}, {2, 1000}}) {
        DragFixture f;
        f.solo(2);
        f.mouse.press(Middle);
        f.graph->resize(size);
        f.mouse.move(Middle + QPointF(20, 20));
        f.mouse.move(Middle);
        for (const TestHost::Write& write : f.host.writes()) {
            const auto [minimum, maximum] = f.host.range(write.name);
            QVERIFY(write.value >= minimum && write.value <= maximum);
        }
    }
}

ZOLTA_TEST_MAIN(tst_EqualizerGraphDrag)

#include "tst_EqualizerGraphDrag.moc"
