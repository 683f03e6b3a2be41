// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/graph/GraphFixture.h"
#include "tests/support/TestObject.h"

#include <QProcess>
#include <QStandardPaths>

using Graph = ZoltaEqualizerGraph;

namespace {

/// Where the editor's window is on the screen, and the graph in it.
constexpr QPoint WindowPlace(60, 40);
constexpr QPoint GraphPlace(31, 17);

/// The X server's own pointer and keyboard.
class ServerInput
{
public:
    explicit ServerInput(const QWidget* graph)
        : m_graph(graph)
    {}
    ~ServerInput()
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

struct WindowFixture : GraphFixture
{
    WindowFixture()
        : input(graph)
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

    ServerInput input;
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
    void disabledDuringADrag();

    void dragGoesOnOutsideTheWindow();
};

void tst_GraphWindow::initTestCase()
{
    QCOMPARE(QGuiApplication::platformName(), QStringLiteral("xcb"));
    QVERIFY(!QStandardPaths::findExecutable(QStringLiteral("xdotool")).isEmpty());
}

void tst_GraphWindow::dragMovesABand_data()
{
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<bool>("frequency");
    QTest::addColumn<bool>("gain");
    QTest::addColumn<int>("quality");
    QTest::newRow("no key") << QByteArray() << true << true << 0;
    QTest::newRow("control") << QByteArray("ctrl") << false << true << 0;
    QTest::newRow("alt") << QByteArray("alt") << true << false << 0;
    // One raw step is 192 / 181 pixels.
    QTest::newRow("shift") << QByteArray("shift") << false << false << 18;
}

void tst_GraphWindow::dragMovesABand()
{
    QFETCH(QByteArray, key);
    QFETCH(bool, frequency);
    QFETCH(bool, gain);
    QFETCH(int, quality);
    WindowFixture f;
    for (int band = 0; band < 6; ++band)
        f.setBand(band, 100 + 200 * band, band % 2 ? 40 : -40);
    QVERIFY(f.isExposed());
    const QPointF handle = f.graph->getTargetPoint(targetOf(3));
    const QPointF moved = handle + QPointF(31, -19);
    if (!key.isEmpty())
        f.input.keyDown(key);
    f.input.moveTo(handle.toPoint());
    f.input.press();
    QTRY_VERIFY(isGrabbed(f.graph));
    f.input.moveTo(handle.toPoint() + QPoint(31, -19));
    QTRY_COMPARE(f.frequency(3), frequency ? f.frequencyAt(moved) : 700);
    QTRY_COMPARE(f.gain(3), gain ? f.gainAt(moved) : 40);
    QTRY_COMPARE(f.rawQuality(3), 250 + quality);
    f.input.release();
    QTRY_VERIFY(!isGrabbed(f.graph));
}

void tst_GraphWindow::disabledDuringADrag()
{
    WindowFixture f;
    f.setBand(1, 200, 0);
    f.setBand(4, 1000, 0);
    QVERIFY(f.isExposed());
    f.input.moveTo(f.graph->getTargetPoint(targetOf(1)).toPoint());
    f.input.press();
    QTRY_VERIFY(isGrabbed(f.graph));
    f.graph->setEnabled(false);
    f.input.moveTo({200, 60});
    f.input.release();
    QTRY_COMPARE(QGuiApplication::mouseButtons(), Qt::NoButton);
    f.graph->setEnabled(true);

    // The next click grabs the band it hits.
    f.input.moveTo(f.graph->getTargetPoint(targetOf(4)).toPoint());
    f.input.press();
    QTRY_VERIFY(isGrabbed(f.graph));
    f.input.moveTo({580, 70});
    QTRY_VERIFY(f.gain(4) > 0);
    QCOMPARE(f.frequency(1), 200);
    QCOMPARE(f.gain(1), 0);
}

void tst_GraphWindow::dragGoesOnOutsideTheWindow()
{
    WindowFixture f;
    f.solo(2);
    QVERIFY(f.isExposed());
    f.input.moveTo({300, 80});
    f.input.press();
    QTRY_VERIFY(isGrabbed(f.graph));
    f.input.moveTo(f.graph->mapFromGlobal(QPoint(0, 0)));
    QTRY_COMPARE(f.frequency(2), 0);
    QTRY_COMPARE(f.gain(2), 200);
    f.input.moveTo(f.graph->mapFromGlobal(QPoint(1200, 900)));
    QTRY_COMPARE(f.frequency(2), 1200);
    QTRY_COMPARE(f.gain(2), -200);
}

ZOLTA_TEST_MAIN(tst_GraphWindow)

#include "tst_GraphWindow.moc"
