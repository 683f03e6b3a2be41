// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/graph/GraphFixture.h"
#include "tests/graph/GraphMouse.h"
#include "tests/support/TestObject.h"

#include <limits>

using Graph = ZoltaEqualizerGraph;
using Operation = TestHost::Operation;
using Writes = std::vector<TestHost::Write>;

namespace {

const QPointF Middle(350, 90);

struct DragFixture : GraphFixture
{
    explicit DragFixture(QSize size = DesignSize)
        : GraphFixture(size)
        , mouse(graph)
    {
        bind();
    }
    int frequency(int band) const { return host.value(frequencyName(band), 0); }
    int gain(int band) const { return host.value(gainName(band), 0); }
    int rawQuality(int band) const { return host.value(qualityName(band), 0); }

    GraphMouse mouse;
};

using Step = void (*)(DragFixture&);

} // namespace

Q_DECLARE_METATYPE(Step)

class tst_EqualizerGraphDrag : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void nearestHandle();
    void tieGoesToTheEarlierBand();
    void pressesThatGrabNothing_data();
    void pressesThatGrabNothing();
    void plotEdges();
    void farHandleIsOutOfReach();
    void unknownTypeIsGrabbedAtTheCorner();
    void dragModes_data();
    void dragModes();
    void dragFrequencyAndGain_data();
    void dragFrequencyAndGain();
    void dragIsClampedToTheRange();
    void positionsAreRounded();
    void setValueArguments();
    void qualityFollowsThePointer_data();
    void qualityFollowsThePointer();
    void qualityRoundsHalvesAwayFromZero();
    void qualityRangeIsTheHosts();

    void modifierChangeOnlyReanchors();
    void bandSwitchedOffDuringDrag();
    void modifierDuringQualityDrag();
    void grabOutlives_data();
    void grabOutlives();
    void grabEnds_data();
    void grabEnds();
    void graphWaitsForTheEcho();
    void rebindingInsideSetValue_data();
    void rebindingInsideSetValue();
    void whatTheHostDoesNotTellIsNotWritten_data();
    void whatTheHostDoesNotTellIsNotWritten();
    void oddRanges();
    void resizeDuringDrag();
};

void tst_EqualizerGraphDrag::nearestHandle()
{
    DragFixture f;
    std::array<QPointF, 6> handles;
    for (int band = 0; band < 6; ++band) {
        f.setBand(band, 100 + 200 * band, band % 2 ? 60 : -60);
        handles[std::size_t(band)] = {f.plot().x(hertz(100 + 200 * band)),
                                      f.plot().y(band % 2 ? 6 : -6)};
    }
    for (int x = 44; x <= 664; x += 5)
        for (int y = 10; y <= 163; y += 3) {
            // No point is in doubt: handles mirror each other in no row or column.
            const auto nearest =
                std::min_element(handles.begin(), handles.end(), [&](QPointF a, QPointF b) {
                    return QLineF(a, QPointF(x, y)).length() < QLineF(b, QPointF(x, y)).length();
                });
            QCOMPARE(f.graph->getPointTarget(QPoint(x, y)),
                     targetOf(static_cast<int>(nearest - handles.begin())));
        }
    for (const int target : {0, -1, 7, 1000})
        QCOMPARE(f.graph->getTargetPoint(static_cast<Graph::EditTarget>(target)), QPointF(0, 0));
}

void tst_EqualizerGraphDrag::tieGoesToTheEarlierBand()
{
    // All at one place, and two above and below a point on the 0 dB line at y = 173.
    for (const int gain : {0, 100})
        for (int first = 0; first < 6; ++first)
            for (int second = first + 1; second < 6; ++second) {
                DragFixture f(QSize(1358, 384));
                f.graph->setZoom(1);
                f.solo(first);
                f.set(onName(second), 1);
                f.setBand(first, 600, -gain);
                f.setBand(second, 600, gain);
                QCOMPARE(f.graph->getPointTarget(QPoint(300, 173)), targetOf(first));
                f.setBand(first, 600, -gain - 1);
                QCOMPARE(f.graph->getPointTarget(QPoint(300, 173)), targetOf(second));
            }
}

void tst_EqualizerGraphDrag::pressesThatGrabNothing_data()
{
    QTest::addColumn<Step>("press");
    QTest::newRow("none") << Step([](DragFixture&) {});
    QTest::newRow("released") << Step([](DragFixture& f) { f.mouse.release(Middle); });
    QTest::newRow("released before") << Step([](DragFixture& f) {
        f.mouse.press(Middle);
        f.mouse.release(Middle);
    });
    QTest::newRow("all bands off") << Step([](DragFixture& f) {
        f.solo(-1);
        f.mouse.press(Middle);
        f.set(onName(2), 1);
    });
    QTest::newRow("outside") << Step([](DragFixture& f) {
        for (const QPointF at : {QPointF(20, 90), {670, 90}, {350, 5}, {350, 180}, {-5, -5}})
            f.mouse.press(at);
    });
    QTest::newRow("other buttons") << Step([](DragFixture& f) {
        for (const auto button : {Qt::RightButton, Qt::MiddleButton, Qt::BackButton})
            f.mouse.press(Middle, Qt::NoModifier, button);
    });
    QTest::newRow("disabled") << Step([](DragFixture& f) {
        f.graph->setEnabled(false);
        f.mouse.press(Middle);
        f.graph->setEnabled(true);
    });
}

void tst_EqualizerGraphDrag::pressesThatGrabNothing()
{
    QFETCH(Step, press);
    DragFixture f;
    press(f);
    for (const auto modifier :
         {Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier})
        QCOMPARE(f.graph->getDragMode(modifier), Graph::DragModeNone);
    f.mouse.move(Middle);
    f.mouse.move(Middle + QPointF(50, 20));
    QCOMPARE(f.host.count(Operation::SetValue), 0);

    // The next press grabs what it hits.
    f.mouse.press(Middle);
    f.mouse.move(Middle + QPointF(20, 20));
    QCOMPARE(f.host.count(Operation::SetValue), 2);
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

    constexpr int none = 0, quality = 1, frequency = 2, gain = 3, both = 4;
    const auto add = [&](const char* name, Qt::KeyboardModifiers modifiers, int band, int type,
                         int mode) {
        for (const bool on : {true, false})
            QTest::addRow("band %d type %d %s %s", band, type, name, on ? "on" : "off")
                << band << type << on << static_cast<int>(modifiers) << (on ? mode : none);
    };
    const auto row = [&](const char* name, Qt::KeyboardModifiers modifiers, int shelf, int pass,
                         int bell) {
        for (const int band : {0, 5})
            for (const int type : {2, 3, 0, 1, 4, -1})
                add(name, modifiers, band, type, type == 2 || type == 3 ? shelf : pass);
        for (int band = 1; band < 5; ++band)
            add(name, modifiers, band, -1, bell);
    };
    const Qt::KeyboardModifiers shift = Qt::ShiftModifier;
    const Qt::KeyboardModifiers control = Qt::ControlModifier;
    row("none", Qt::NoModifier, both, frequency, both);
    row("shift", shift, none, none, quality);
    row("control", control, gain, none, gain);
    row("alt", Qt::AltModifier, frequency, frequency, frequency);
    row("meta", Qt::MetaModifier, both, frequency, both);
    row("keypad", Qt::KeypadModifier, both, frequency, both);
    row("shift control", shift | control, both, frequency, both);
    row("shift alt", shift | Qt::AltModifier, both, frequency, both);
    row("control alt", control | Qt::AltModifier, both, frequency, both);
    row("shift meta", shift | Qt::MetaModifier, both, frequency, both);
    row("shift control alt", shift | control | Qt::AltModifier, both, frequency, both);
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
    f.setBand(band, 431, 37);
    if (band == 0 || band == 5)
        f.set(typeName(band), type);
    const QPointF handle = f.graph->getTargetPoint(targetOf(band));
    const Qt::KeyboardModifiers held(modifiers);
    f.mouse.press({300, 60}, held);
    f.set(onName(band), on ? 1 : 0);
    QCOMPARE(static_cast<int>(f.graph->getDragMode(held)), mode);

    // It writes what the mode names.
    f.mouse.move({340, 73}, held);
    Writes expected;
    if (mode == Graph::DragModeQuality)
        expected.push_back({qualityName(band), 0, 250 - 12});
    if (mode == Graph::DragModeFrequency || mode == Graph::DragModeFrequencyGain)
        expected.push_back({frequencyName(band), 0, rawFrequencyAt(f.plot(), handle.x() + 40)});
    if (mode == Graph::DragModeGain || mode == Graph::DragModeFrequencyGain)
        expected.push_back({gainName(band), 0, rawGainAt(f.plot(), handle.y() + 13)});
    QCOMPARE(f.host.writes(), expected);
}

void tst_EqualizerGraphDrag::dragFrequencyAndGain_data()
{
    QTest::addColumn<int>("band");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("zoom");
    for (int band = 0; band < 6; ++band)
        for (const QSize size : {QSize(679, 192), {1358, 384}, {333, 97}, {977, 111}, {400, 600}})
            QTest::addRow("band %d in %dx%d", band, size.width(), size.height())
                << band << size << 3;
    for (int zoom = 0; zoom < 7; ++zoom)
        QTest::addRow("zoom %d", zoom) << 2 << GraphFixture::DesignSize << zoom;
}

void tst_EqualizerGraphDrag::dragFrequencyAndGain()
{
    QFETCH(int, band);
    QFETCH(QSize, size);
    QFETCH(int, zoom);
    DragFixture f(size);
    f.graph->setZoom(zoom);
    f.solo(band);
    f.setBand(band, 431, 37);
    const Plot plot = f.plot();
    const QPointF handle(plot.x(hertz(431)), plot.y(3.7));
    // Not on the handle: the distance stays.
    const QPoint from =
        QPointF(handle.x() + 3, std::clamp(handle.y() - 2, plot.top + 1, plot.bottom - 1))
            .toPoint();
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
        QVERIFY(std::abs(now.y() - to.y()) <= plot.height / 40.0 / plot.Z + 1e-3);
    }
}

void tst_EqualizerGraphDrag::dragIsClampedToTheRange()
{
    for (int band = 0; band < 6; ++band) {
        DragFixture f;
        f.solo(band);
        f.mouse.press(Middle);
        for (const auto& [to, frequency, gain] : {std::tuple(QPointF(-2000, 2000), 0, -200),
                                                  {{3000, -3000}, 1200, 200},
                                                  {{1e9, 1e9}, 1200, -200}}) {
            f.mouse.move(to);
            QCOMPARE(f.frequency(band), frequency);
            QCOMPARE(f.gain(band), gain);
        }
    }
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

void tst_EqualizerGraphDrag::qualityRoundsHalvesAwayFromZero()
{
    // A step of two pixels.
    for (const auto& [up, change] :
         {std::pair(1, 1), {-1, -1}, {2, 1}, {3, 2}, {-3, -2}, {5, 3}, {-5, -3}, {0, 0}}) {
        DragFixture f(QSize(1280, 362));
        f.solo(2);
        f.mouse.press({600, 150}, Qt::ShiftModifier);
        f.mouse.move({600.0, 150.0 - up}, Qt::ShiftModifier);
        QCOMPARE(f.host.writes(), (Writes{{qualityName(2), 0, 250 + change}}));
    }
}

void tst_EqualizerGraphDrag::qualityRangeIsTheHosts()
{
    DragFixture f(QSize(679, 181));
    f.solo(2);
    f.mouse.press({300, 90}, Qt::ShiftModifier);
    const auto moved = [&](int y) {
        f.mouse.move({300.0, double(y)}, Qt::ShiftModifier);
        return f.rawQuality(2);
    };
    QCOMPARE(moved(-310), 650);
    QCOMPARE(moved(790), -450);
    // Only an int bounds it.
    f.set(qualityName(2), std::numeric_limits<int>::max());
    QCOMPARE(moved(780), std::numeric_limits<int>::max());
    f.set(qualityName(2), std::numeric_limits<int>::min());
    QCOMPARE(moved(795), std::numeric_limits<int>::min());

    // The way beyond the end does not have to be gone back.
    f.host.setClamping(true);
    f.set(qualityName(2), 250);
    QCOMPARE(moved(95), 500);
    QCOMPARE(moved(105), 490);
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

void tst_EqualizerGraphDrag::modifierDuringQualityDrag()
{
    DragFixture f(QSize(679, 181));
    f.solo(3);
    f.mouse.press({300, 90}, Qt::ShiftModifier);
    f.mouse.move({300, 80}, Qt::ShiftModifier);
    QCOMPARE(f.rawQuality(3), 260);
    // Neither of two moves that change the mode moves the anchor.
    f.mouse.move({300, 60});
    f.mouse.move({300, 40}, Qt::ShiftModifier);
    QCOMPARE(f.rawQuality(3), 260);
    f.mouse.move({300, 70}, Qt::ShiftModifier);
    QCOMPARE(f.host.writes(), (Writes{{qualityName(3), 0, 260}, {qualityName(3), 0, 270}}));
}

void tst_EqualizerGraphDrag::grabOutlives_data()
{
    QTest::addColumn<Step>("step");
    QTest::newRow("other button") << Step([](DragFixture& f) {
        f.mouse.press(Middle, Qt::NoModifier, Qt::RightButton);
        f.mouse.release(Middle, Qt::NoModifier, Qt::RightButton);
    });
    QTest::newRow("second press") << Step(
        [](DragFixture& f) { f.mouse.press(f.graph->getTargetPoint(targetOf(4))); });
    QTest::newRow("detached and bound again") << Step([](DragFixture& f) {
        f.graph->setMemAPI(nullptr);
        f.mouse.move(Middle + QPointF(20, 20));
        QCOMPARE(f.host.count(Operation::SetValue), 0);
        f.bind();
    });
    QTest::newRow("double click") << Step([](DragFixture& f) {
        f.mouse.release(Middle);
        f.mouse.doubleClick(f.graph->getTargetPoint(targetOf(1)));
    });
}

void tst_EqualizerGraphDrag::grabOutlives()
{
    QFETCH(Step, step);
    DragFixture f;
    f.setBand(1, 100, 0);
    f.setBand(4, 1100, 0);
    f.mouse.press(f.graph->getTargetPoint(targetOf(1)));
    step(f);
    f.mouse.move(Middle);
    QCOMPARE(f.host.count(Operation::SetValue), 2);
    QCOMPARE(f.host.writes()[0].name, frequencyName(1));
    QCOMPARE(f.host.writes()[1].name, gainName(1));
}

void tst_EqualizerGraphDrag::grabEnds_data()
{
    QTest::addColumn<Step>("step");
    // The release itself moves nothing.
    QTest::newRow("released") << Step(
        [](DragFixture& f) { f.mouse.release(Middle + QPointF(200, 50)); });
    QTest::newRow("disabled") << Step([](DragFixture& f) {
        f.graph->setEnabled(false);
        f.mouse.move(Middle);
        f.mouse.release(Middle);
        f.graph->setEnabled(true);
    });
    QTest::newRow("editor disabled") << Step([](DragFixture& f) {
        f.editor.setEnabled(false);
        f.editor.setEnabled(true);
    });
    QTest::newRow("hidden") << Step([](DragFixture& f) {
        f.editor.hide();
        f.editor.show();
    });
}

void tst_EqualizerGraphDrag::grabEnds()
{
    QFETCH(Step, step);
    DragFixture f;
    f.setBand(1, 100, 0);
    f.setBand(4, 1100, 0);
    f.editor.show();
    f.mouse.press(f.graph->getTargetPoint(targetOf(1)));
    step(f);
    QCOMPARE(f.graph->getDragMode(Qt::NoModifier), Graph::DragModeNone);
    f.mouse.move(Middle);
    QCOMPARE(f.host.count(Operation::SetValue), 0);

    // The next press grabs what it hits.
    f.mouse.press(f.graph->getTargetPoint(targetOf(4)));
    f.mouse.move(Middle);
    QCOMPARE(f.host.writes().at(0).name, frequencyName(4));
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

void tst_EqualizerGraphDrag::rebindingInsideSetValue_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("modifier");
    QTest::addColumn<Step>("rebind");
    QTest::addColumn<int>("writes");
    const Step detach = [](DragFixture& f) { f.graph->setMemAPI(nullptr); };
    // After the write of a frequency the gain is not written any more.
    QTest::newRow("frequency") << frequencyName(2) << int(Qt::NoModifier) << detach << 1;
    QTest::newRow("gain") << gainName(2) << int(Qt::NoModifier) << detach << 2;
    QTest::newRow("quality") << qualityName(2) << int(Qt::ShiftModifier) << detach << 1;
    QTest::newRow("channel") << gainName(2) << int(Qt::NoModifier)
                             << Step([](DragFixture& f) { f.graph->setCh(3); }) << 4;
}

void tst_EqualizerGraphDrag::rebindingInsideSetValue()
{
    QFETCH(QByteArray, name);
    QFETCH(int, modifier);
    QFETCH(Step, rebind);
    QFETCH(int, writes);
    DragFixture f;
    f.solo(2);
    Listener listener(f.host, name, [&] { rebind(f); });
    const Qt::KeyboardModifiers modifiers(modifier);
    f.mouse.press(Middle, modifiers);
    f.mouse.move(Middle + QPointF(20, 20), modifiers);
    f.mouse.move(Middle + QPointF(40, 40), modifiers);
    f.mouse.release(Middle, modifiers);
    QCOMPARE(f.host.count(Operation::SetValue), writes);
    QCOMPARE(f.host.observerCount(gainName(2), 0), name == gainName(2) ? 1 : 0);
    QCOMPARE(f.host.observerCount(gainName(2), 3), writes == 4 ? 1 : 0);
}

void tst_EqualizerGraphDrag::whatTheHostDoesNotTellIsNotWritten_data()
{
    QTest::addColumn<Step>("arrange");
    QTest::addColumn<QByteArray>("missing");
    QTest::addColumn<QByteArrayList>("written");
    const QByteArray frequency = frequencyName(2);
    const QByteArray gain = gainName(2);
    const QByteArray quality = qualityName(2);
    const auto row = [](const char* tag, Step arrange, const QByteArray& missing,
                        const QByteArrayList& written) {
        QTest::newRow(tag) << arrange << missing << written;
    };
    const Step nothing = [](DragFixture&) {};
    row("everything", nothing, {}, {frequency, gain, quality});
    row("frequency", nothing, frequency, {gain, quality});
    row("gain", nothing, gain, {frequency, quality});
    row("quality", nothing, quality, {frequency, gain});
    row("memory", [](DragFixture& f) { f.graph->setMemAPI(nullptr); }, {}, {});
    row("ranges", [](DragFixture& f) { f.host.failAll(Operation::GetRange); }, {}, {quality});
    row("values", [](DragFixture& f) { f.host.failAll(Operation::GetValue); }, {},
        {frequency, gain});
}

void tst_EqualizerGraphDrag::whatTheHostDoesNotTellIsNotWritten()
{
    QFETCH(Step, arrange);
    QFETCH(QByteArray, missing);
    QFETCH(QByteArrayList, written);
    DragFixture f;
    f.solo(2);
    if (!missing.isEmpty())
        f.host.removeParameter(missing);
    f.bind();
    arrange(f);
    for (const auto modifier : {Qt::NoModifier, Qt::ShiftModifier}) {
        f.mouse.press(Middle, modifier);
        f.mouse.move(Middle + QPointF(9, 9), modifier);
        f.mouse.release(Middle, modifier);
    }
    QByteArrayList names;
    for (const TestHost::Write& write : f.host.writes())
        names << write.name;
    QCOMPARE(names, written);
}

void tst_EqualizerGraphDrag::oddRanges()
{
    constexpr int lowest = std::numeric_limits<int>::min();
    constexpr int highest = std::numeric_limits<int>::max();
    for (const auto& [frequency, gain] : {std::pair(std::pair(-50, -40), std::pair(100, 1100)),
                                          {{7, 7}, {-3, -3}},
                                          {{lowest, highest}, {lowest, highest}}}) {
        GraphFixture f;
        f.host.setRange(frequencyName(3), frequency.first, frequency.second);
        f.host.setRange(gainName(3), gain.first, gain.second);
        f.bind();
        f.solo(3);
        GraphMouse mouse(f.graph);
        mouse.press(Middle);
        mouse.move({-3000, -3000});
        QCOMPARE(f.host.writes(),
                 (Writes{{frequencyName(3), 0, frequency.first}, {gainName(3), 0, gain.second}}));
        mouse.move({5000, 5000});
        QCOMPARE(f.host.value(frequencyName(3), 0), frequency.second);
        QCOMPARE(f.host.value(gainName(3), 0), gain.first);
    }
}

void tst_EqualizerGraphDrag::resizeDuringDrag()
{
    for (const auto modifier : {Qt::NoModifier, Qt::ShiftModifier})
        for (const QSize size : {QSize(0, 0), {1, 1}, {58, 192}, {679, 0}, {0, 192}, {2, 1000}}) {
            DragFixture f;
            f.solo(2);
            f.mouse.press(Middle, modifier);
            f.graph->resize(size);
            f.mouse.move(Middle + QPointF(20, 20), modifier);
            f.mouse.move(Middle, modifier);
            // Without a height there is no way of a quality.
            QVERIFY(size.height() > 0 || modifier == Qt::NoModifier ||
                    f.host.count(Operation::SetValue) == 0);
            for (const TestHost::Write& write : f.host.writes()) {
                const auto [minimum, maximum] = f.host.range(write.name);
                QVERIFY(modifier == Qt::ShiftModifier ||
                        (write.value >= minimum && write.value <= maximum));
            }
        }
}

ZOLTA_TEST_MAIN(tst_EqualizerGraphDrag)

#include "tst_EqualizerGraphDrag.moc"
