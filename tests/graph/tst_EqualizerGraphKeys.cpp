// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/graph/GraphFocus.h"
#include "tests/support/TestObject.h"

#include <QLineEdit>

#include <limits>

using Graph = ZoltaEqualizerGraph;
using Operation = TestHost::Operation;
using Writes = std::vector<TestHost::Write>;

namespace {

constexpr std::array<Qt::Key, 6> UsedKeys = {Qt::Key_Left, Qt::Key_Right,  Qt::Key_Up,
                                             Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown};

} // namespace

class tst_EqualizerGraphKeys : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void focusEachHandle();
    void noFocus_data();
    void noFocus();
    void otherWindowBorrowsTheFocus();
    void clickFocusesNothing();
    void handleThatGoesGivesTheMarkUp();
    void otherWidgetTakesTheFocus();
    void focusBeforeTheWindowIsShown();
    void keysStep_data();
    void keysStep();
    void keysThatPassOn_data();
    void keysThatPassOn();
    void stepStartsFromTheHostsValue();
    void noMemory();
    void failingHostCalls();
    void markOnlyWithTheKeyboardFocus();
};

void tst_EqualizerGraphKeys::focusEachHandle()
{
    ActiveGraph f;
    QCOMPARE(f.graph->focusedHandle(), Graph::EditTargetNone);
    QVERIFY(!f.graph->hasFocus());
    for (int band = 0; band < 6; ++band) {
        QVERIFY(f.focus(band));
        QCOMPARE(f.graph->focusedHandle(), targetOf(band));
        QVERIFY(f.graph->hasFocus());
    }
    QCOMPARE(f.graph->focusPolicy(), Qt::NoFocus);
    QCOMPARE(f.host.writes(), Writes());
    f.graph->setEnabled(false);
    QVERIFY(!f.graph->hasFocus());
    QCOMPARE(f.graph->focusedHandle(), Graph::EditTargetNone);
}

void tst_EqualizerGraphKeys::noFocus_data()
{
    QTest::addColumn<int>("target");
    QTest::addColumn<bool>("enabled");
    for (const int target : {0, -1, 7, 1000})
        QTest::addRow("target %d", target) << target << true;
    QTest::newRow("band that is off") << int(Graph::EditTargetMiddle3) << true;
    QTest::newRow("disabled") << int(Graph::EditTargetMiddle1) << false;
}

void tst_EqualizerGraphKeys::noFocus()
{
    QFETCH(int, target);
    QFETCH(bool, enabled);
    ActiveGraph f;
    f.set(onName(3), 0);
    f.editor.setEnabled(enabled);
    const auto refused = static_cast<Graph::EditTarget>(target);
    QVERIFY(!f.graph->focusHandle(refused));
    QCOMPARE(f.graph->handleRect(refused).isEmpty(), enabled);
    f.editor.setEnabled(true);
    QVERIFY(!f.graph->hasFocus());
    QVERIFY(f.focus(2));
    f.graph->focusHandle(enabled ? refused : Graph::EditTargetNone);
    QCOMPARE(f.graph->focusedHandle(), Graph::EditTargetMiddle2);
}

void tst_EqualizerGraphKeys::otherWindowBorrowsTheFocus()
{
    for (const bool stays : {true, false}) {
        ActiveGraph f;
        f.focus(2);
        QWidget window;
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QVERIFY(!f.graph->hasFocus());
        QCOMPARE(f.graph->focusedHandle(), Graph::EditTargetNone);
        f.set(onName(2), stays ? 1 : 0);
        f.activate();
        QVERIFY(f.graph->hasFocus());
        QCOMPARE(f.graph->focusedHandle(),
                 stays ? Graph::EditTargetMiddle2 : Graph::EditTargetNone);
    }
}

void tst_EqualizerGraphKeys::clickFocusesNothing()
{
    ActiveGraph f;
    const QPoint handle = f.graph->getTargetPoint(targetOf(2)).toPoint();
    QTest::mouseClick(f.graph, Qt::LeftButton, Qt::NoModifier, handle);
    QVERIFY(!f.graph->hasFocus());
    QCOMPARE(f.graph->focusedHandle(), Graph::EditTargetNone);

    f.focus(4);
    QTest::mouseClick(f.graph, Qt::LeftButton, Qt::NoModifier, handle);
    QCOMPARE(f.graph->focusedHandle(), Graph::EditTargetMiddle4);
}

void tst_EqualizerGraphKeys::handleThatGoesGivesTheMarkUp()
{
    ActiveGraph f;
    f.host.setSilently(onName(2), 3, 0);
    f.focus(2);
    f.set(onName(1), 0);
    f.graph->setCh(2);
    QCOMPARE(f.graph->focusedHandle(), Graph::EditTargetMiddle2);
    f.graph->setCh(3);
    QCOMPARE(f.graph->focusedHandle(), Graph::EditTargetNone);
    f.graph->setCh(0);
    f.focus(2);
    for (const int on : {0, 1}) {
        f.set(onName(2), on);
        QCOMPARE(f.graph->focusedHandle(), Graph::EditTargetNone);
    }
    f.host.resetLedger();
    f.key(Qt::Key_Right);
    QCOMPARE(f.host.writes(), Writes());
}

void tst_EqualizerGraphKeys::otherWidgetTakesTheFocus()
{
    ActiveGraph f;
    QLineEdit other(&f.editor);
    other.show();
    f.focus(2);
    other.setFocus();
    QCOMPARE(f.graph->focusedHandle(), Graph::EditTargetNone);
    QVERIFY(!f.graph->hasFocus());
    f.graph->setFocus();
    QCOMPARE(f.graph->focusedHandle(), Graph::EditTargetNone);
    // Tab is the editor's, and the focus does not come back by itself.
    other.setFocusPolicy(Qt::StrongFocus);
    f.focus(0);
    f.key(Qt::Key_Tab);
    QVERIFY(other.hasFocus());
    QCOMPARE(f.graph->focusedHandle(), Graph::EditTargetNone);
    QTest::keyClick(&other, Qt::Key_Backtab);
    QVERIFY(!f.graph->hasFocus());
}

void tst_EqualizerGraphKeys::focusBeforeTheWindowIsShown()
{
    GraphFixture f;
    f.bind();
    QLineEdit other(&f.editor);
    QVERIFY(f.graph->focusHandle(Graph::EditTargetLow));
    QCOMPARE(f.graph->focusedHandle(), Graph::EditTargetLow);
    other.setFocus();
    QCOMPARE(f.graph->focusedHandle(), Graph::EditTargetNone);
    QVERIFY(f.graph->focusHandle(Graph::EditTargetHigh));
    f.editor.show();
    f.editor.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&f.editor));
    QVERIFY(f.graph->hasFocus());
    QCOMPARE(f.graph->focusedHandle(), Graph::EditTargetHigh);
}

void tst_EqualizerGraphKeys::keysStep_data()
{
    QTest::addColumn<int>("up");
    QTest::addColumn<int>("down");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("band");
    const auto add = [](const char* tag, int up, int down, const QByteArray& name, int band) {
        QTest::addRow("%s %d", tag, band) << up << down << name << band;
    };
    for (int band = 0; band < 6; ++band) {
        add("frequency", Qt::Key_Right, Qt::Key_Left, frequencyName(band), band);
        add("gain", Qt::Key_Up, Qt::Key_Down, gainName(band), band);
        if (band > 0 && band < 5)
            add("quality", Qt::Key_PageUp, Qt::Key_PageDown, qualityName(band), band);
    }
}

void tst_EqualizerGraphKeys::keysStep()
{
    QFETCH(int, up);
    QFETCH(int, down);
    QFETCH(QByteArray, name);
    QFETCH(int, band);
    ActiveGraph f;
    f.focus(band);
    const int start = f.host.value(name, 0);
    KeyCounter editor(&f.editor);
    const auto expect = [&](int key, Qt::KeyboardModifiers modifiers, int value) {
        f.host.resetLedger();
        f.key(static_cast<Qt::Key>(key), modifiers);
        return f.host.writes() == Writes{{name, 0, value}};
    };
    QVERIFY(expect(up, Qt::NoModifier, start + 1));
    QVERIFY(expect(up, Qt::ShiftModifier, start + 11));
    QVERIFY(expect(down, Qt::NoModifier, start + 10));
    QVERIFY(expect(down, Qt::KeypadModifier | Qt::ShiftModifier, start));
    QVERIFY(expect(up, Qt::KeypadModifier, start + 1));

    // Steps stop at the range, and a value outside it comes back.
    const auto [minimum, maximum] = f.host.range(name);
    for (const int value : {maximum - 5, maximum, 5000}) {
        f.set(name, value);
        QVERIFY(expect(up, Qt::ShiftModifier, maximum));
    }
    for (const int value : {minimum + 5, minimum, -5000}) {
        f.set(name, value);
        QVERIFY(expect(down, Qt::ShiftModifier, minimum));
    }
    constexpr int lowest = std::numeric_limits<int>::min();
    constexpr int highest = std::numeric_limits<int>::max();
    f.host.setRange(name, lowest, highest);
    f.set(name, highest);
    QVERIFY(expect(up, Qt::ShiftModifier, highest));
    f.set(name, lowest);
    QVERIFY(expect(down, Qt::ShiftModifier, lowest));
    QVERIFY(expect(up, Qt::NoModifier, lowest + 1));
    f.host.failAll(Operation::SetValue);
    f.key(static_cast<Qt::Key>(up));
    f.host.clearErrors();
    // A key that is used stays here, even where nothing can be changed.
    QCOMPARE(editor.count, 0);
    f.host.setRange(name, 10, -10);
    f.host.resetLedger();
    f.key(static_cast<Qt::Key>(up));
    QCOMPARE(f.host.writes(), Writes());
}

void tst_EqualizerGraphKeys::keysThatPassOn_data()
{
    QTest::addColumn<int>("band"); // negative: no handle is focused
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QList<int>>("keys");
    const QList<int> used(UsedKeys.begin(), UsedKeys.end());
    QTest::newRow("no handle") << -1 << 3 << 0 << used;
    QTest::newRow("unused keys") << 1 << 3 << 0
                                 << QList<int>{Qt::Key_Home,   Qt::Key_End,    Qt::Key_Space,
                                               Qt::Key_Return, Qt::Key_Escape, Qt::Key_A,
                                               Qt::Key_Plus,   Qt::Key_Delete};
    for (const auto& [tag, modifiers] : std::initializer_list<std::pair<const char*, int>>{
             {"Control", Qt::ControlModifier},
             {"Alt", Qt::AltModifier},
             {"Meta", Qt::MetaModifier},
             {"Control, Shift", Qt::ControlModifier | Qt::ShiftModifier},
             {"Alt, keypad", Qt::AltModifier | Qt::KeypadModifier}})
        QTest::newRow(tag) << 1 << 3 << modifiers << used;
    for (const int band : {0, 5}) {
        for (const int type : {0, 1, 4, -1})
            QTest::addRow("band %d type %d", band, type)
                << band << type << 0 << QList<int>{Qt::Key_Up, Qt::Key_Down};
        QTest::addRow("quality of %d", band)
            << band << 3 << 0 << QList<int>{Qt::Key_PageUp, Qt::Key_PageDown};
    }
}

void tst_EqualizerGraphKeys::keysThatPassOn()
{
    QFETCH(int, band);
    QFETCH(int, type);
    QFETCH(int, modifiers);
    QFETCH(QList<int>, keys);
    ActiveGraph f;
    if (band == 0 || band == 5)
        f.set(typeName(band), type);
    f.graph->setFocus();
    f.focus(band);
    QVERIFY(f.graph->hasFocus());
    f.host.resetLedger();
    KeyCounter editor(&f.editor);
    for (const int key : keys)
        f.key(static_cast<Qt::Key>(key), Qt::KeyboardModifiers(modifiers));
    QCOMPARE(editor.count, keys.size());
    QCOMPARE(f.host.callCount(), 0);
}

void tst_EqualizerGraphKeys::stepStartsFromTheHostsValue()
{
    ActiveGraph f;
    f.focus(3);
    f.host.setSilently(gainName(3), 0, 77);
    f.host.setSilently(frequencyName(3), 0, 100);
    f.host.setSilently(qualityName(3), 0, 30);
    f.host.resetLedger();
    f.host.setNotifying(false);
    const QPointF before = f.graph->getTargetPoint(targetOf(3));
    f.key(Qt::Key_Up);
    f.key(Qt::Key_Left);
    f.key(Qt::Key_PageUp);
    // What is shown waits for the host.
    QVERIFY(isNear(f.graph->getTargetPoint(targetOf(3)), before));
    QCOMPARE(f.host.writes(),
             Writes({{gainName(3), 0, 78}, {frequencyName(3), 0, 99}, {qualityName(3), 0, 31}}));
}

void tst_EqualizerGraphKeys::noMemory()
{
    ActiveGraph f;
    f.graph->setMemAPI(nullptr);
    f.host.resetLedger();
    QVERIFY(f.focus(2));
    for (const Qt::Key key : UsedKeys)
        f.key(key);
    f.graph->setHandle(targetOf(2), Graph::Field::Gain, 3.0);
    QVERIFY(!f.graph->stepSize(targetOf(2), Graph::Field::Gain));
    QCOMPARE(f.host.callCount(), 0);
}

void tst_EqualizerGraphKeys::failingHostCalls()
{
    int n = 0;
    for (int calls = 1; calls >= n;) {
        ActiveGraph f;
        f.focus(2);
        f.host.resetLedger();
        f.host.failAnyCall(++n);
        for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Up, Qt::Key_PageUp})
            f.key(key);
        calls = f.host.callCount();

        // The key whose call failed writes nothing; the others are as ever.
        const auto& ledger = f.host.calls();
        const TestHost::Call* failed =
            n <= calls ? &ledger[static_cast<std::size_t>(n - 1)] : nullptr;
        const auto expected = [&](const QByteArray& name, int before) {
            // A range that is refused to the notification leaves what is shown; the host has it.
            const bool refused =
                failed && failed->parameter == f.host.id(name) &&
                std::none_of(ledger.begin(), ledger.begin() + (n - 1), [&](auto& c) {
                    return c.operation == Operation::SetValue && c.parameter == failed->parameter;
                });
            return refused ? before : before + 1;
        };
        QCOMPARE(f.host.value(frequencyName(2), 0), expected(frequencyName(2), 600));
        QCOMPARE(f.host.value(gainName(2), 0), expected(gainName(2), 0));
        QCOMPARE(f.host.value(qualityName(2), 0), expected(qualityName(2), 250));
        QCOMPARE(f.graph->focusedHandle(), targetOf(2));
        f.host.clearErrors();
        f.key(Qt::Key_Down);
        QCOMPARE(f.host.value(gainName(2), 0), expected(gainName(2), 0) - 1);
    }
    QVERIFY(n > 9);
}

void tst_EqualizerGraphKeys::markOnlyWithTheKeyboardFocus()
{
    ActiveGraph f;
    QLineEdit other(&f.editor);
    other.show();
    f.setBand(2, 500, 50);
    const QImage before = f.picture();
    f.focus(2);
    QVERIFY(f.picture() != before);
    other.setFocus();
    QCOMPARE(f.picture(), before);
    f.focus(2);
    f.set(onName(2), 0);
    const QImage off = f.picture();
    other.setFocus();
    QCOMPARE(f.picture(), off);
    f.graph->setFocus();
    QCOMPARE(f.picture(), off);

    // A window in the background shows no mark, not even that of a handle focused there.
    f.set(onName(2), 1);
    f.focus(2);
    QWidget window;
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QCOMPARE(f.picture(), before);
    QVERIFY(f.focus(2));
    QVERIFY(!f.graph->hasFocus());
    QCOMPARE(f.picture(), before);
    f.activate();
    QVERIFY(f.picture() != before);
}

ZOLTA_TEST_MAIN(tst_EqualizerGraphKeys)

#include "tst_EqualizerGraphKeys.moc"
