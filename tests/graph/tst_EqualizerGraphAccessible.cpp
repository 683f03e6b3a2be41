// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph/HandleText.h"
#include "tests/graph/GraphFocus.h"
#include "tests/graph/GraphPicture.h"
#include "tests/support/TestObject.h"

#include <limits>
#include <set>

using Graph = ZoltaEqualizerGraph;
using Operation = TestHost::Operation;
using Writes = std::vector<TestHost::Write>;
using Items = std::vector<Announcements::Item>;
using Action = QAccessibleActionInterface;

namespace {

QAccessibleInterface* interfaceOf(const GraphFixture& f)
{
    return QAccessible::queryAccessibleInterface(f.graph);
}

QAccessibleInterface* handleOf(const GraphFixture& f, int band)
{
    return interfaceOf(f)->child(band);
}

QAccessibleValueInterface* numberOf(const GraphFixture& f, int band)
{
    return handleOf(f, band)->valueInterface();
}

QString valueOf(const GraphFixture& f, int band)
{
    return handleOf(f, band)->text(QAccessible::Value);
}

bool isNearTo(const QVariant& value, double expected)
{
    return std::abs(value.toDouble() - expected) <= 1e-5 * std::max(1.0, std::abs(expected));
}

} // namespace

class tst_EqualizerGraphAccessible : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void graphIsAGroup();
    void childrenAreTheBands();
    void bandThatIsOff();
    void focusStates();
    void rectangles();
    void handleOutsideThePlot();
    void handleAtAPoint();
    void numberWithGain();
    void numberWithoutGain();
    void operatesNothing_data();
    void operatesNothing();

    void setNumber_data();
    void setNumber();
    void setNonsense();
    void actions();
    void unboundGraph();

    void changesAreAnnounced();
    void switchingIsAnnounced();
    void otherUpdatesAreNotAnnounced();
    void focusIsAnnounced();

    void interfacesGoWithTheGraph();
};

void tst_EqualizerGraphAccessible::graphIsAGroup()
{
    GraphFixture f;
    QCOMPARE(interfaceOf(f)->role(), QAccessible::Grouping);
    QCOMPARE(interfaceOf(f)->text(QAccessible::Name), QStringLiteral("Equalizer curve"));
    QCOMPARE(interfaceOf(f)->object(), f.graph);
    const QAccessibleInterface* editor = QAccessible::queryAccessibleInterface(&f.editor);
    QCOMPARE(editor->indexOfChild(interfaceOf(f)), 0);
    QCOMPARE(editor->childCount(), 1);
    f.graph->setAccessibleName(QStringLiteral("Response"));
    QCOMPARE(interfaceOf(f)->text(QAccessible::Name), QStringLiteral("Response"));
}

void tst_EqualizerGraphAccessible::childrenAreTheBands()
{
    ActiveGraph f;
    QCOMPARE(interfaceOf(f)->childCount(), 6);
    std::set<QAccessibleInterface*> different;
    for (int band = 0; band < 6; ++band) {
        QAccessibleInterface* handle = handleOf(f, band);
        QVERIFY(handle && handle->isValid());
        QCOMPARE(handle->role(), QAccessible::Slider);
        QCOMPARE(handle->text(QAccessible::Name), HandleText::name(band));
        QVERIFY(handle->window() && handle->window() == f.editor.windowHandle());
        QCOMPARE(interfaceOf(f)->indexOfChild(handle), band);
        QCOMPARE(handle->parent(), interfaceOf(f));
        QCOMPARE(handle->childCount(), 0);
        QVERIFY(!handle->child(0) && !handle->childAt(0, 0));
        QCOMPARE(handle->indexOfChild(interfaceOf(f)), -1);
        QVERIFY(!handle->object() && !handle->textInterface());
        different.insert(handle);
    }
    QCOMPARE(different.size(), std::size_t(6));
    for (const int index : {-1, 6, 1000, std::numeric_limits<int>::min()})
        QVERIFY(!handleOf(f, index));
    QCOMPARE(interfaceOf(f)->indexOfChild(nullptr), -1);
    QCOMPARE(interfaceOf(f)->indexOfChild(interfaceOf(f)), -1);
}

void tst_EqualizerGraphAccessible::bandThatIsOff()
{
    ActiveGraph f;
    QAccessibleInterface* const before = handleOf(f, 3);
    f.set(onName(3), 0);
    QCOMPARE(handleOf(f, 3), before);
    for (int band = 0; band < 6; ++band) {
        const QAccessible::State state = handleOf(f, band)->state();
        QCOMPARE(bool(state.invisible), band == 3);
        QCOMPARE(bool(state.disabled), band == 3);
        QCOMPARE(bool(state.focusable), band != 3);
        QVERIFY(!state.focused && !state.invalid);
        QCOMPARE(handleOf(f, band)->rect().isEmpty(), band == 3);
    }
    QCOMPARE(interfaceOf(f)->childCount(), 6);
    f.editor.setEnabled(false);
    const QAccessible::State state = handleOf(f, 1)->state();
    QVERIFY(state.disabled && !state.focusable && !state.invisible);
    f.editor.hide();
    QVERIFY(handleOf(f, 1)->state().invisible);
}

void tst_EqualizerGraphAccessible::focusStates()
{
    ActiveGraph f;
    const auto focused = [&] {
        std::vector<int> bands;
        for (int band = 0; band < 6; ++band)
            if (handleOf(f, band)->state().focused)
                bands.push_back(band);
        return bands;
    };
    QCOMPARE(focused(), std::vector<int>());
    QVERIFY(!interfaceOf(f)->focusChild());
    f.focus(4);
    QCOMPARE(focused(), std::vector<int>({4}));
    QCOMPARE(interfaceOf(f)->focusChild(), handleOf(f, 4));
    QVERIFY(!interfaceOf(f)->state().focused);
    f.focus(0);
    QCOMPARE(focused(), std::vector<int>({0}));
    f.set(onName(0), 0);
    QCOMPARE(focused(), std::vector<int>());
    QVERIFY(interfaceOf(f)->state().focused);
    QVERIFY(!interfaceOf(f)->focusChild());
}

void tst_EqualizerGraphAccessible::rectangles()
{
    ActiveGraph f(GraphFixture::DesignSize * 2);
    f.graph->move(7, 5);
    // Cut off where the plot ends.
    f.setBand(2, 1200, 0);
    const int right = f.graph->mapToGlobal(QPoint()).x() + int(std::ceil(f.plot().right));
    QCOMPARE(handleOf(f, 2)->rect().right() + 1, right);
    for (int band = 0; band < 6; ++band) {
        f.setBand(band, 200 + 150 * band, 20 * band);
        const QRect rect = handleOf(f, band)->rect();
        const QPointF point = f.graph->mapToGlobal(f.graph->getTargetPoint(targetOf(band)));
        // The mark reaches 6.25 units to each side; the rectangle is in whole pixels around it.
        const QRectF mark(point - QPointF(12.5, 12.5), QSizeF(25, 25));
        QVERIFY(QRectF(rect).contains(mark));
        QVERIFY(mark.adjusted(-1, -1, 1, 1).contains(QRectF(rect)));
    }
}

void tst_EqualizerGraphAccessible::handleOutsideThePlot()
{
    ActiveGraph f;
    f.setBand(2, 600, 200);
    QVERIFY(handleOf(f, 2)->state().offscreen);
    QVERIFY(handleOf(f, 2)->rect().isEmpty());
    QVERIFY(!handleOf(f, 2)->state().invisible);
    QVERIFY(f.focus(2));
    f.graph->setZoom(0);
    QVERIFY(!handleOf(f, 2)->state().offscreen);
    QVERIFY(!handleOf(f, 2)->rect().isEmpty());
}

void tst_EqualizerGraphAccessible::handleAtAPoint()
{
    ActiveGraph f;
    for (int band = 0; band < 6; ++band)
        f.setBand(band, 200 + 150 * band, 20 * band);
    for (int band = 0; band < 6; ++band) {
        const QPoint point =
            f.graph->mapToGlobal(f.graph->getTargetPoint(targetOf(band)).toPoint());
        QCOMPARE(interfaceOf(f)->childAt(point.x(), point.y()), handleOf(f, band));
        QVERIFY(!interfaceOf(f)->childAt(point.x(), point.y() + 8));
    }
    // Of two at the same place the one that a press grabs.
    f.setBand(4, 500, 0);
    f.setBand(2, 500, 0);
    const QPoint point = f.graph->mapToGlobal(f.graph->getTargetPoint(targetOf(4)).toPoint());
    QCOMPARE(interfaceOf(f)->childAt(point.x(), point.y()), handleOf(f, 2));
    f.set(onName(2), 0);
    QCOMPARE(interfaceOf(f)->childAt(point.x(), point.y()), handleOf(f, 4));
    const QPoint corner = f.graph->mapToGlobal(QPoint());
    QVERIFY(!interfaceOf(f)->childAt(corner.x(), corner.y()));
}

void tst_EqualizerGraphAccessible::numberWithGain()
{
    GraphFixture f;
    f.bind();
    f.setBand(2, 700, -35);
    QCOMPARE(valueOf(f, 2), QStringLiteral("1.12 kHz, -3.5 dB, Q 2.8"));
    QVERIFY(isNearTo(numberOf(f, 2)->currentValue(), -3.5));
    QCOMPARE(numberOf(f, 2)->minimumValue().toDouble(), -20.0);
    QCOMPARE(numberOf(f, 2)->maximumValue().toDouble(), 20.0);
    QVERIFY(isNearTo(numberOf(f, 2)->minimumStepSize(), 0.1));
    f.host.setRange(gainName(2), 0, 80);
    QVERIFY(isNearTo(numberOf(f, 2)->minimumStepSize(), 0.5));
    for (const auto& [minimum, maximum] : {std::pair(7, 7), {10, -10}}) {
        f.host.setRange(gainName(2), minimum, maximum);
        QVERIFY(!numberOf(f, 2)->minimumStepSize().isValid());
    }
}

void tst_EqualizerGraphAccessible::numberWithoutGain()
{
    for (const int band : {0, 5})
        for (const int type : {0, 1, 4}) {
            GraphFixture f;
            f.bind();
            f.setBand(band, 400, 50);
            f.set(typeName(band), type);
            QCOMPARE(valueOf(f, band), QStringLiteral("200 Hz"));
            QVERIFY(isNearTo(numberOf(f, band)->currentValue(), 200.0));
            QVERIFY(isNearTo(numberOf(f, band)->minimumValue(), 20.0));
            QVERIFY(isNearTo(numberOf(f, band)->maximumValue(), 20000.0));
            QVERIFY(isNearTo(numberOf(f, band)->minimumStepSize(), hertz(401) - hertz(400)));
            f.host.resetLedger();
            handleOf(f, band)->actionInterface()->doAction(Action::increaseAction());
            handleOf(f, band)->actionInterface()->doAction(Action::decreaseAction());
            QCOMPARE(f.host.writes(),
                     Writes({{frequencyName(band), 0, 401}, {frequencyName(band), 0, 400}}));
        }
}

void tst_EqualizerGraphAccessible::operatesNothing_data()
{
    QTest::addColumn<bool>("on");
    QTest::newRow("disabled") << true;
    QTest::newRow("band that is off") << false;
}

void tst_EqualizerGraphAccessible::operatesNothing()
{
    QFETCH(bool, on);
    ActiveGraph f;
    f.set(onName(2), on ? 1 : 0);
    f.graph->setEnabled(!on);
    f.host.resetLedger();
    Action* action = handleOf(f, 2)->actionInterface();
    QVERIFY(action->actionNames().isEmpty());
    for (const QString& name :
         {Action::increaseAction(), Action::decreaseAction(), Action::setFocusAction()})
        action->doAction(name);
    numberOf(f, 2)->setCurrentValue(1.0);
    QCOMPARE(f.host.callCount(), 0);
    QVERIFY(!f.graph->hasFocus());
}

void tst_EqualizerGraphAccessible::setNumber_data()
{
    QTest::addColumn<QVariant>("number");
    QTest::addColumn<int>("gain");
    QTest::addColumn<int>("frequency");
    QTest::newRow("low") << QVariant(20.0) << 200 << 0;
    QTest::newRow("below") << QVariant(-100.0) << -200 << 0;
    QTest::newRow("middle") << QVariant(3.04) << 30 << 0;
    QTest::newRow("text") << QVariant(QStringLiteral("-7.5")) << -75 << 0;
    QTest::newRow("whole") << QVariant(2000) << 200 << 800;
    QTest::newRow("above") << QVariant(1e9) << 200 << 1200;
}

void tst_EqualizerGraphAccessible::setNumber()
{
    QFETCH(QVariant, number);
    QFETCH(int, gain);
    QFETCH(int, frequency);
    GraphFixture f;
    f.bind();
    f.set(typeName(0), 1);
    f.host.resetLedger();
    numberOf(f, 2)->setCurrentValue(number);
    numberOf(f, 0)->setCurrentValue(number);
    QCOMPARE(f.host.writes(), Writes({{gainName(2), 0, gain}, {frequencyName(0), 0, frequency}}));
}

void tst_EqualizerGraphAccessible::setNonsense()
{
    GraphFixture f;
    f.bind();
    f.host.resetLedger();
    for (const QVariant& value :
         {QVariant(), QVariant(QStringLiteral("loud")), QVariant(std::nan("")),
          QVariant(std::numeric_limits<double>::infinity()), QVariant(QPoint(1, 2))})
        numberOf(f, 2)->setCurrentValue(value);
    QCOMPARE(f.host.callCount(), 0);
}

void tst_EqualizerGraphAccessible::actions()
{
    ActiveGraph f;
    Action* action = handleOf(f, 2)->actionInterface();
    QCOMPARE(action->actionNames(), QStringList({Action::setFocusAction(), Action::increaseAction(),
                                                 Action::decreaseAction()}));
    QVERIFY(action->keyBindingsForAction(Action::setFocusAction()).isEmpty());
    f.host.resetLedger();
    action->doAction(Action::increaseAction());
    action->doAction(Action::decreaseAction());
    action->doAction(Action::pressAction());
    action->doAction(QString());
    QCOMPARE(f.host.writes(), Writes({{gainName(2), 0, 1}, {gainName(2), 0, 0}}));
    QVERIFY(!f.graph->hasFocus());
    action->doAction(Action::setFocusAction());
    QCOMPARE(f.graph->focusedHandle(), targetOf(2));
    QVERIFY(f.graph->hasFocus());
}

void tst_EqualizerGraphAccessible::unboundGraph()
{
    ActiveGraph f;
    f.graph->setMemAPI(nullptr);
    f.host.resetLedger();
    handleOf(f, 2)->actionInterface()->doAction(Action::increaseAction());
    numberOf(f, 2)->setCurrentValue(1.0);
    QVERIFY(!numberOf(f, 2)->minimumStepSize().isValid());
    QVERIFY(numberOf(f, 2)->currentValue().isValid());
    QVERIFY(!valueOf(f, 2).isEmpty());
    QCOMPARE(f.host.callCount(), 0);
}

void tst_EqualizerGraphAccessible::changesAreAnnounced()
{
    GraphFixture f;
    f.bind();
    Announcements announced;
    f.set(gainName(2), 35);
    Items items = announced.take();
    QCOMPARE(items.size(), std::size_t(2)); // the number, and that the text is another
    QCOMPARE(items[0].type, QAccessible::ValueChanged);
    QCOMPARE(items[0].child, 2);
    QVERIFY(isNearTo(items[0].value, 3.5));
    QCOMPARE(items[1].type, QAccessible::DescriptionChanged);
    QCOMPARE(items[1].child, 2);
    // What moves beside the gain is told with the gain; the text has it all.
    for (const QByteArray& name : {frequencyName(2), qualityName(2)}) {
        f.set(name, 111);
        items = announced.take();
        QCOMPARE(items.size(), std::size_t(2));
        QCOMPARE(items[0].child, 2);
        QVERIFY(isNearTo(items[0].value, 3.5));
    }
    f.set(frequencyName(5), 400);
    f.set(typeName(5), 0);
    items = announced.take();
    QCOMPARE(items.size(), std::size_t(4));
    QCOMPARE(items[2].child, 5);
    QVERIFY(isNearTo(items[2].value, 200.0));
}

void tst_EqualizerGraphAccessible::switchingIsAnnounced()
{
    GraphFixture f;
    f.bind();
    Announcements announced;
    f.set(onName(4), 0);
    f.set(onName(4), 0);
    QCOMPARE(announced.take(), Items({{QAccessible::StateChanged, 4, 0.0}}));
    f.set(gainName(4), 10);
    QCOMPARE(announced.take(), Items());
    f.set(onName(4), 1);
    QCOMPARE(announced.take(), Items({{QAccessible::StateChanged, 4, 0.0}}));
}

void tst_EqualizerGraphAccessible::otherUpdatesAreNotAnnounced()
{
    GraphFixture f;
    f.bind();
    f.set(gainName(1), 20);
    Announcements announced;
    f.set(gainName(1), 20);              // no change
    f.set(gainName(1), 30, 1);           // another channel
    f.graph->Update(1, 0, 1, nullptr);   // no parameter of the bands
    f.host.failAll(Operation::GetRange); // nothing to be known
    f.set(gainName(1), 40);
    QCOMPARE(announced.take(), Items());
}

void tst_EqualizerGraphAccessible::focusIsAnnounced()
{
    ActiveGraph f;
    Announcements announced;
    f.focus(3);
    QCOMPARE(announced.take(), Items({{QAccessible::Focus, 3, 0.0}}));
    f.focus(5);
    QCOMPARE(announced.take(), Items({{QAccessible::Focus, 5, 0.0}}));
    // Without its handle the graph itself has the focus.
    f.set(onName(5), 0);
    QCOMPARE(announced.take(),
             Items({{QAccessible::StateChanged, 5, 0.0}, {QAccessible::Focus, -1, 0.0}}));

    f.focus(1);
    announced.take();
    QWidget window;
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QCOMPARE(announced.take(), Items());
    f.activate();
    QCOMPARE(announced.take(), Items({{QAccessible::Focus, 1, 0.0}}));
}

void tst_EqualizerGraphAccessible::interfacesGoWithTheGraph()
{
    for (int round = 0; round < 100; ++round) {
        ActiveGraph f;
        f.focus(2);
        std::vector<QAccessible::Id> ids{QAccessible::uniqueId(interfaceOf(f))};
        for (int band = 0; band < 6; ++band)
            ids.push_back(QAccessible::uniqueId(handleOf(f, band)));
        Announcements announced;
        delete std::exchange(f.graph, nullptr);
        for (const QAccessible::Id id : ids)
            QVERIFY(!QAccessible::accessibleInterface(id));
        QCOMPARE(announced.take(), Items());
    }
}

ZOLTA_TEST_MAIN(tst_EqualizerGraphAccessible)

#include "tst_EqualizerGraphAccessible.moc"
