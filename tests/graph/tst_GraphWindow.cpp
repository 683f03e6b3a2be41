// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/graph/GraphFixture.h"
#include "tests/support/TestObject.h"

#include <QMouseEvent>
#include <QProcess>
#include <QStandardPaths>

using Graph = ZoltaEqualizerGraph;
using Operation = TestHost::Operation;

namespace {

/// Where the editor's window is on the screen, and the graph in it.
constexpr QPoint WindowPlace(60, 40);
constexpr QPoint GraphPlace(31, 17);

/// The X server's own pointer and keyboard.
class MixerModel
{
public:
    explicit MixerModel(const QWidget* graph)
        : m_graph(graph)
    {}
    ~MixerModel()
    {
        xdotool(
            {"mouseup", "1", "mouseup", "3", "keyup", "shift", "keyup", "ctrl", "keyup", "alt"});
    }

    void moveTo(QPoint place)
    {
        const QPoint screen = m_graph->mapToGlobal(place);
        xdotool({"mousemove", QByteArray::number(screen.x()), QByteArray::number(screen.y())});
    }
    void press(const QByteArray& button = "1") { xdotool({"mousedown", button}); }
    void release(const QByteArray& button = "1") { xdotool({"mouseup", button}); }
    void keyDown(const QByteArray& key) { xdotool({"keydown", key}); }
    void keyUp(const QByteArray& key) { xdotool({"keyup", key}); }

private:
    static void xdotool(const QByteArrayList& arguments)
    {
        QStringList texts;
        for (const QByteArray& argument : arguments)
            texts << QString::fromLatin1(argument);
        if (QProcess::execute(QStringLiteral("xdotool"), texts) != 0)
            qWarning("xdotool failed: %s", qPrintable(texts.join(QLatin1Char(' '))));
    }

    const QWidget* m_graph;
};

/// Where the widget was last told that the pointer is.
class MoveWatch : public QObject
{
public:
    explicit MoveWatch(QWidget* widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::MouseMove)
            last = static_cast<QMouseEvent*>(event)->position().toPoint();
        return false;
    }
    QPoint last;
};

struct WindowFixture : GraphFixture
{
    WindowFixture()
        : mixerModel(graph)
    {
        graph->move(GraphPlace);
        editor.setWindowFlags(Qt::X11BypassWindowManagerHint);
        editor.setGeometry(QRect(WindowPlace, QSize(760, 240)));
        bind();
        editor.show();
    }
    bool isExposed() { return QTest::qWaitForWindowExposed(&editor); }

    /// The raw values with the handle of \a band at a place of the graph.
    int frequencyAt(QPointF place) const { return rawFrequencyAt(plot(), place.x()); }
    int gainAt(QPointF place) const { return rawGainAt(plot(), place.y()); }
    int frequency(int band) const { return host.value(frequencyName(band), 0); }
    int gain(int band) const { return host.value(gainName(band), 0); }
    int rawQuality(int band) const { return host.value(qualityName(band), 0); }

    MixerModel mixerModel;
};

/// The grabbed band shows in what a drag would change.
bool isGrabbed(const Graph* graph) { return graph->getDragMode(Qt::NoModifier) != 0; }

} // namespace

class tst_GraphWindow : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void dragMovesABand_data();
    void dragMovesABand();
    void dragGoesOnOutsideTheWindow();
    void dragInSeveralMoves();
    void modifiers_data();
    void modifiers();
    void shiftDragChangesTheQuality();
    void modifierPressedDuringADrag();
    void rightButtonDoesNotDrag();
    void clickOutsideThePlot();
    void disabledGraph();
    void disabledDuringADrag();
};

void tst_GraphWindow::initTestCase()
{
    QCOMPARE(QGuiApplication::platformName(), QStringLiteral("xcb"));
    QVERIFY(!QStandardPaths::findExecutable(QStringLiteral("xdotool")).isEmpty());
}

void tst_GraphWindow::dragMovesABand_data()
{
    QTest::addColumn<int>("band");
    for (int band = 0; band < 6; ++band)
        QTest::addRow("%d", band) << band;
}

void tst_GraphWindow::dragMovesABand()
{
    QFETCH(int, band);
    WindowFixture f;
    for (int i = 0; i < 6; ++i)
        f.setBand(i, 100 + 200 * i, i % 2 ? 40 : -40);
    QVERIFY(f.isExposed());
    const QPointF handle = f.graph->getTargetPoint(targetOf(band));
    const QPoint from = handle.toPoint();
    const QPoint by(17, band % 2 ? 21 : -21);
    f.mixerModel.moveTo(from);
    f.mixerModel.press();
    QTRY_VERIFY(isGrabbed(f.graph));
    f.mixerModel.moveTo(from + by);
    QTRY_COMPARE(f.frequency(band), f.frequencyAt(handle + by));
    QTRY_COMPARE(f.gain(band), f.gainAt(handle + by));
    f.mixerModel.release();
    QTRY_VERIFY(!isGrabbed(f.graph));

    // Of the others none has moved.
    for (const TestHost::Write& write : f.host.writes())
        QVERIFY(write.name == frequencyName(band) || write.name == gainName(band));
    f.host.resetLedger();
    f.mixerModel.moveTo(from);
    f.mixerModel.press();
    QTRY_VERIFY(isGrabbed(f.graph));
    QCOMPARE(f.host.count(Operation::SetValue), 0);
}

void tst_GraphWindow::dragGoesOnOutsideTheWindow()
{
    WindowFixture f;
    f.solo(2);
    QVERIFY(f.isExposed());
    f.mixerModel.moveTo({300, 80});
    f.mixerModel.press();
    QTRY_VERIFY(isGrabbed(f.graph));
    f.mixerModel.moveTo(f.graph->mapFromGlobal(QPoint(0, 0)));
    QTRY_COMPARE(f.frequency(2), 0);
    QTRY_COMPARE(f.gain(2), 200);
    f.mixerModel.moveTo(f.graph->mapFromGlobal(QPoint(1200, 900)));
    QTRY_COMPARE(f.frequency(2), 1200);
    QTRY_COMPARE(f.gain(2), -200);
}

void tst_GraphWindow::dragInSeveralMoves()
{
    WindowFixture f;
    f.solo(3);
    QVERIFY(f.isExposed());
    const QPointF handle = f.graph->getTargetPoint(targetOf(3));
    const QPoint from(200, 60);
    f.mixerModel.moveTo(from);
    f.mixerModel.press();
    QTRY_VERIFY(isGrabbed(f.graph));
    for (const QPoint by : {QPoint(5, 3), {40, -20}, {-60, 33}, {1, 1}}) {
        f.mixerModel.moveTo(from + by);
        QTRY_COMPARE(f.frequency(3), f.frequencyAt(handle + by));
        QTRY_COMPARE(f.gain(3), f.gainAt(handle + by));
    }
}

void tst_GraphWindow::modifiers_data()
{
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<bool>("frequency");
    QTest::addColumn<bool>("gain");
    QTest::newRow("control") << QByteArray("ctrl") << false << true;
    QTest::newRow("alt") << QByteArray("alt") << true << false;
}

void tst_GraphWindow::modifiers()
{
    QFETCH(QByteArray, key);
    QFETCH(bool, frequency);
    QFETCH(bool, gain);
    WindowFixture f;
    f.solo(1);
    QVERIFY(f.isExposed());
    const QPointF handle = f.graph->getTargetPoint(targetOf(1));
    const QPointF moved = handle + QPointF(31, -19);
    f.mixerModel.keyDown(key);
    f.mixerModel.moveTo({300, 80});
    f.mixerModel.press();
    QTRY_VERIFY(isGrabbed(f.graph));
    f.mixerModel.moveTo({331, 61});
    QTRY_COMPARE(f.frequency(1), frequency ? f.frequencyAt(moved) : 600);
    QTRY_COMPARE(f.gain(1), gain ? f.gainAt(moved) : 0);
    QTRY_VERIFY(f.host.count(Operation::SetValue) > 0);
}

void tst_GraphWindow::shiftDragChangesTheQuality()
{
    WindowFixture f;
    f.solo(4);
    QVERIFY(f.isExposed());
    f.mixerModel.keyDown("shift");
    f.mixerModel.moveTo({300, 100});
    f.mixerModel.press();
    QTRY_VERIFY(isGrabbed(f.graph));
    // One raw step is 192 / 181 pixels.
    f.mixerModel.moveTo({340, 70});
    QTRY_COMPARE(f.rawQuality(4), 250 + 28);
    f.mixerModel.moveTo({340, 120});
    QTRY_COMPARE(f.rawQuality(4), 250 + 28 - 47);
    for (const TestHost::Write& write : f.host.writes())
        QCOMPARE(write.name, qualityName(4));
}

void tst_GraphWindow::modifierPressedDuringADrag()
{
    WindowFixture f;
    f.solo(2);
    QVERIFY(f.isExposed());
    const QPointF handle = f.graph->getTargetPoint(targetOf(2));
    f.mixerModel.moveTo({300, 80});
    f.mixerModel.press();
    QTRY_VERIFY(isGrabbed(f.graph));
    f.mixerModel.moveTo({320, 70});
    QTRY_COMPARE(f.gain(2), f.gainAt(handle - QPointF(0, 10)));
    const int frequency = f.frequency(2);

    // The move that brings the modifier writes nothing, and the way it made counts after all.
    f.mixerModel.keyDown("ctrl");
    const QPointF before = f.graph->getTargetPoint(targetOf(2));
    const MoveWatch watch(f.graph);
    f.host.resetLedger();
    f.mixerModel.moveTo({350, 60});
    QTRY_COMPARE(watch.last, QPoint(350, 60));
    QCOMPARE(f.host.count(Operation::SetValue), 0);
    f.mixerModel.moveTo({350, 50});
    QTRY_COMPARE(f.gain(2), f.gainAt(before - QPointF(0, 20)));
    QCOMPARE(f.frequency(2), frequency);
    for (const TestHost::Write& write : f.host.writes())
        QCOMPARE(write.name, gainName(2));
}

void tst_GraphWindow::rightButtonDoesNotDrag()
{
    WindowFixture f;
    f.solo(2);
    QVERIFY(f.isExposed());
    f.mixerModel.moveTo({300, 80});
    f.mixerModel.press("3");
    f.mixerModel.moveTo({340, 60});
    f.mixerModel.release("3");
    // Once the next press has been taken in, these have been.
    f.mixerModel.press();
    QTRY_VERIFY(isGrabbed(f.graph));
    QCOMPARE(f.host.count(Operation::SetValue), 0);
}

void tst_GraphWindow::clickOutsideThePlot()
{
    WindowFixture f;
    f.solo(2);
    QVERIFY(f.isExposed());
    for (const QPoint place : {QPoint(20, 90), {300, 4}, {300, 180}, {672, 90}}) {
        f.mixerModel.moveTo(place);
        f.mixerModel.press();
        f.mixerModel.moveTo({300, 80});
        f.mixerModel.release();
    }
    f.mixerModel.press();
    QTRY_VERIFY(isGrabbed(f.graph));
    QCOMPARE(f.host.count(Operation::SetValue), 0);
}

void tst_GraphWindow::disabledGraph()
{
    WindowFixture f;
    f.solo(2);
    f.graph->setEnabled(false);
    // The editor takes what the graph does not, and tells when the click is over.
    QVERIFY(f.isExposed());
    f.mixerModel.moveTo({300, 80});
    f.mixerModel.press();
    f.mixerModel.moveTo({340, 60});
    QTRY_COMPARE(QGuiApplication::mouseButtons(), Qt::LeftButton);
    f.mixerModel.release();
    QTRY_COMPARE(QGuiApplication::mouseButtons(), Qt::NoButton);
    f.graph->setEnabled(true);
    QCOMPARE(f.host.count(Operation::SetValue), 0);
    f.mixerModel.press();
    QTRY_VERIFY(isGrabbed(f.graph));
}

void tst_GraphWindow::disabledDuringADrag()
{
    WindowFixture f;
    f.setBand(1, 200, 0);
    f.setBand(4, 1000, 0);
    for (const int band : {0, 2, 3, 5})
        f.set(onName(band), 0);
    QVERIFY(f.isExposed());
    f.mixerModel.moveTo({150, 86});
    f.mixerModel.press();
    QTRY_VERIFY(isGrabbed(f.graph));
    f.graph->setEnabled(false);
    f.mixerModel.moveTo({200, 60});
    f.mixerModel.release();
    QTRY_COMPARE(QGuiApplication::mouseButtons(), Qt::NoButton);
    f.graph->setEnabled(true);

    // The next click grabs the band it hits.
    f.mixerModel.moveTo({560, 86});
    f.mixerModel.press();
    QTRY_VERIFY(isGrabbed(f.graph));
    f.mixerModel.moveTo({580, 70});
    QTRY_VERIFY(f.gain(4) > 0);
    QCOMPARE(f.frequency(1), 200);
    QCOMPARE(f.gain(1), 0);
}

ZOLTA_TEST_MAIN(tst_GraphWindow)

#include "tst_GraphWindow.moc"
