// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/graph/GraphFocus.h"
#include "tests/graph/GraphMouse.h"
#include "tests/graph/GraphPicture.h"
#include "tests/support/TestObject.h"

#include <QLineEdit>

#include <limits>

using Graph = ZoltaEqualizerGraph;
using Operation = TestHost::Operation;
using Writes = std::vector<TestHost::Write>;

namespace {

constexpr std::array<Qt::Key, 6> UsedKeys = {Qt::Key_Left, Qt::Key_Right,  Qt::Key_Up,
                                             Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown};

void bandRows()
{
    QTest::addColumn<int>("band");
    for (int band = 0; band < 6; ++band)
        QTest::addRow("%d", band) << band;
}

/// How far two pictures differ, within 0 to 255, around a point.
int difference(const QImage& a, const QImage& b, QPointF at)
{
    const QRgb p = colorAt(a, at);
    const QRgb q = colorAt(b, at);
    return std::max({std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)),
                     std::abs(qBlue(p) - qBlue(q))});
}

} // namespace

class tst_EqualizerGraphKeys : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothingIsFocusedAtFirst();
    void focusPolicyIsNone();
    void clickFocusesNothing();
    void focusEachHandle_data();
    void focusEachHandle();
    void noFocusForABandThatIsOff();
    void noFocusForWhatIsNoBand();
    void noFocusWhileDisabled();
    void focusMovesBetweenHandles();
    void switchingOffGivesTheMarkUp();
    void rebindingToABandThatIsOffGivesTheMarkUp();
    void otherWidgetTakesTheFocus();
    void otherWindowBorrowsTheFocus();
    void bandSwitchedOffBehindAnotherWindow();
    void disablingTakesTheFocus();
    void focusBeforeTheWindowIsShown();
    void tabIsTheEditors();

    void frequencyKeys_data();
    void frequencyKeys();
    void gainKeys_data();
    void gainKeys();
    void qualityKeys_data();
    void qualityKeys();
    void gainlessBandsPassGainKeysOn_data();
    void gainlessBandsPassGainKeysOn();
    void outerBandsPassQualityKeysOn();
    void keypadKeysCount();
    void otherModifiersPassOn_data();
    void otherModifiersPassOn();
    void otherKeysPassOn();
    void keysWithoutFocusedHandlePassOn();
    void usedKeysStayHere();
    void stepStartsFromTheHostsValue();
    void writesAsADragDoes();
    void stepsStopAtTheRange();
    void valueOutsideTheRangeComesBack();
    void rangeAsWideAsAnInt();
    void reversedRange();
    void noCopyOfItsOwn();
    void otherChannel();
    void noMemory();
    void unknownParameter();
    void failingHostCalls();

    void markIsARing_data();
    void markIsARing();
    void markOnlyWithTheKeyboardFocus();
    void markIsClipped();
    void markFollowsTheHandle();
    void mouseDragsAFocusedHandle();
};

void tst_EqualizerGraphKeys::nothingIsFocusedAtFirst()
{
    ActiveGraph f;
    QCOMPARE(f.graph->focusedHandle(), Graph::EditTargetNone);
    QVERIFY(!f.graph->hasFocus());
}

void tst_EqualizerGraphKeys::focusPolicyIsNone()
{
    ActiveGraph f;
    QCOMPARE(f.graph->focusPolicy(), Qt::NoFocus);
    f.focus(1);
    QCOMPARE(f.graph->focusPolicy(), Qt::NoFocus);
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

void tst_EqualizerGraphKeys::focusEachHandle_data() { bandRows(); }

void tst_EqualizerGraphKeys::focusEachHandle()
{
    QFETCH(int, band);
    ActiveGraph f;
    QVERIFY(f.focus(band));
    QCOMPARE(f.graph->focusedHandle(), targetOf(band));
    QVERIFY(f.graph->hasFocus());
    QCOMPARE(f.host.writes(), Writes());
}

void tst_EqualizerGraphKeys::noFocusForABandThatIsOff()
{
    ActiveGraph f;
    f.set(onName(3), 0);
    QVERIFY(!f.focus(3));
    QVERIFY(!f.graph->hasFocus());
    QVERIFY(f.focus(2));
    QVERIFY(!f.focus(3));
    QCOMPARE(f.graph->focusedHandle(), Graph::EditTargetMiddle2);
}

void tst_EqualizerGraphKeys::noFocusForWhatIsNoBand()
{
    ActiveGraph f;
    for (const int target : {0, -1, 7, 1000})
        QVERIFY(!f.graph->focusHandle(static_cast<Graph::EditTarget>(target)));
    QVERIFY(!f.graph->hasFocus());
    QVERIFY(f.graph->handleRect(Graph::EditTargetNone).isEmpty());
}

void tst_EqualizerGraphKeys::noFocusWhileDisabled()
{
    ActiveGraph f;
    f.editor.setEnabled(false);
    QVERIFY(!f.focus(1));
    f.editor.setEnabled(true);
    QVERIFY(!f.graph->hasFocus());
    QCOMPARE(f.graph->focusedHandle(), Graph::EditTargetNone);
}

void tst_EqualizerGraphKeys::focusMovesBetweenHandles()
{
    ActiveGraph f;
    for (const int band : {0, 5, 2, 2, 1}) {
        QVERIFY(f.focus(band));
        QCOMPARE(f.graph->focusedHandle(), targetOf(band));
        f.host.resetLedger();
        f.key(Qt::Key_Right);
        QCOMPARE(f.host.writes().size(), std::size_t(1));
        QCOMPARE(f.host.writes().front().name, frequencyName(band));
    }
}

void tst_EqualizerGraphKeys::switchingOffGivesTheMarkUp()
{
    ActiveGraph f;
    f.focus(2);
    f.set(onName(1), 0);
    QCOMPARE(f.graph->focusedHandle(), Graph::EditTargetMiddle2);
    f.set(onName(2), 0);
    QCOMPARE(f.graph->focusedHandle(), Graph::EditTargetNone);
    f.set(onName(2), 1);
    QCOMPARE(f.graph->focusedHandle(), Graph::EditTargetNone);
    f.host.resetLedger();
    f.key(Qt::Key_Right);
    QCOMPARE(f.host.writes(), Writes());
}

void tst_EqualizerGraphKeys::rebindingToABandThatIsOffGivesTheMarkUp()
{
    ActiveGraph f;
    f.host.setSilently(onName(2), 3, 0);
    f.focus(2);
    f.graph->setCh(2);
    QCOMPARE(f.graph->focusedHandle(), Graph::EditTargetMiddle2);
    f.graph->setCh(3);
    QCOMPARE(f.graph->focusedHandle(), Graph::EditTargetNone);
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
}

void tst_EqualizerGraphKeys::otherWindowBorrowsTheFocus()
{
    ActiveGraph f;
    f.focus(2);
    QWidget window;
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QVERIFY(!f.graph->hasFocus());
    QCOMPARE(f.graph->focusedHandle(), Graph::EditTargetNone);

    f.activate();
    QVERIFY(f.graph->hasFocus());
    QCOMPARE(f.graph->focusedHandle(), Graph::EditTargetMiddle2);
}

void tst_EqualizerGraphKeys::bandSwitchedOffBehindAnotherWindow()
{
    ActiveGraph f;
    f.focus(2);
    QWidget window;
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    f.set(onName(2), 0);
    f.activate();
    QVERIFY(f.graph->hasFocus());
    QCOMPARE(f.graph->focusedHandle(), Graph::EditTargetNone);
}

void tst_EqualizerGraphKeys::disablingTakesTheFocus()
{
    ActiveGraph f;
    f.focus(2);
    f.graph->setEnabled(false);
    QVERIFY(!f.graph->hasFocus());
    QCOMPARE(f.graph->focusedHandle(), Graph::EditTargetNone);
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

void tst_EqualizerGraphKeys::tabIsTheEditors()
{
    ActiveGraph f;
    QLineEdit other(&f.editor);
    other.setFocusPolicy(Qt::StrongFocus);
    other.show();
    f.focus(0);
    f.key(Qt::Key_Tab);
    QVERIFY(other.hasFocus());
    QCOMPARE(f.graph->focusedHandle(), Graph::EditTargetNone);
    // It does not come back by itself.
    QTest::keyClick(&other, Qt::Key_Backtab);
    QVERIFY(!f.graph->hasFocus());
}

void tst_EqualizerGraphKeys::frequencyKeys_data() { bandRows(); }

void tst_EqualizerGraphKeys::frequencyKeys()
{
    QFETCH(int, band);
    ActiveGraph f;
    f.focus(band);
    f.host.resetLedger();
    f.key(Qt::Key_Right);
    f.key(Qt::Key_Right, Qt::ShiftModifier);
    f.key(Qt::Key_Left);
    f.key(Qt::Key_Left, Qt::ShiftModifier);
    const QByteArray name = frequencyName(band);
    QCOMPARE(f.host.writes(),
             Writes({{name, 0, 601}, {name, 0, 611}, {name, 0, 610}, {name, 0, 600}}));
}

void tst_EqualizerGraphKeys::gainKeys_data() { bandRows(); }

void tst_EqualizerGraphKeys::gainKeys()
{
    QFETCH(int, band);
    ActiveGraph f;
    f.focus(band);
    f.host.resetLedger();
    f.key(Qt::Key_Up);
    f.key(Qt::Key_Up, Qt::ShiftModifier);
    f.key(Qt::Key_Down);
    f.key(Qt::Key_Down, Qt::ShiftModifier);
    const QByteArray name = gainName(band);
    QCOMPARE(f.host.writes(), Writes({{name, 0, 1}, {name, 0, 11}, {name, 0, 10}, {name, 0, 0}}));
}

void tst_EqualizerGraphKeys::qualityKeys_data()
{
    QTest::addColumn<int>("band");
    for (int band = 1; band < 5; ++band)
        QTest::addRow("%d", band) << band;
}

void tst_EqualizerGraphKeys::qualityKeys()
{
    QFETCH(int, band);
    ActiveGraph f;
    f.focus(band);
    f.host.resetLedger();
    f.key(Qt::Key_PageUp);
    f.key(Qt::Key_PageUp, Qt::ShiftModifier);
    f.key(Qt::Key_PageDown);
    f.key(Qt::Key_PageDown, Qt::ShiftModifier);
    const QByteArray name = qualityName(band);
    QCOMPARE(f.host.writes(),
             Writes({{name, 0, 251}, {name, 0, 261}, {name, 0, 260}, {name, 0, 250}}));
}

void tst_EqualizerGraphKeys::gainlessBandsPassGainKeysOn_data()
{
    QTest::addColumn<int>("band");
    QTest::addColumn<int>("type");
    for (const int band : {0, 5})
        for (const int type : {0, 1, 4, -1})
            QTest::addRow("band %d type %d", band, type) << band << type;
}

void tst_EqualizerGraphKeys::gainlessBandsPassGainKeysOn()
{
    QFETCH(int, band);
    QFETCH(int, type);
    ActiveGraph f;
    f.set(typeName(band), type);
    QVERIFY(f.focus(band));
    f.host.resetLedger();
    KeyCounter editor(&f.editor);
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Down})
        f.key(key);
    QCOMPARE(editor.count, 2);
    QCOMPARE(f.host.callCount(), 0);
    f.key(Qt::Key_Left);
    QCOMPARE(editor.count, 2);
    QCOMPARE(f.host.writes(), Writes({{frequencyName(band), 0, 599}}));
}

void tst_EqualizerGraphKeys::outerBandsPassQualityKeysOn()
{
    ActiveGraph f;
    KeyCounter editor(&f.editor);
    for (const int band : {0, 5}) {
        f.focus(band);
        f.host.resetLedger();
        editor.count = 0;
        f.key(Qt::Key_PageUp);
        f.key(Qt::Key_PageDown, Qt::ShiftModifier);
        QCOMPARE(editor.count, 2);
        QCOMPARE(f.host.callCount(), 0);
    }
}

void tst_EqualizerGraphKeys::keypadKeysCount()
{
    ActiveGraph f;
    f.focus(1);
    f.host.resetLedger();
    f.key(Qt::Key_Up, Qt::KeypadModifier);
    f.key(Qt::Key_Up, Qt::KeypadModifier | Qt::ShiftModifier);
    QCOMPARE(f.host.writes(), Writes({{gainName(1), 0, 1}, {gainName(1), 0, 11}}));
}

void tst_EqualizerGraphKeys::otherModifiersPassOn_data()
{
    QTest::addColumn<int>("modifiers");
    QTest::newRow("Control") << int(Qt::ControlModifier);
    QTest::newRow("Alt") << int(Qt::AltModifier);
    QTest::newRow("Meta") << int(Qt::MetaModifier);
    QTest::newRow("Control, Shift") << int(Qt::ControlModifier | Qt::ShiftModifier);
    QTest::newRow("Alt, keypad") << int(Qt::AltModifier | Qt::KeypadModifier);
}

void tst_EqualizerGraphKeys::otherModifiersPassOn()
{
    QFETCH(int, modifiers);
    ActiveGraph f;
    f.focus(1);
    f.host.resetLedger();
    KeyCounter editor(&f.editor);
    for (const Qt::Key key : UsedKeys)
        f.key(key, Qt::KeyboardModifiers(modifiers));
    QCOMPARE(editor.count, 6);
    QCOMPARE(f.host.callCount(), 0);
}

void tst_EqualizerGraphKeys::otherKeysPassOn()
{
    ActiveGraph f;
    f.focus(1);
    f.host.resetLedger();
    KeyCounter editor(&f.editor);
    for (const Qt::Key key : {Qt::Key_Home, Qt::Key_End, Qt::Key_Space, Qt::Key_Return,
                              Qt::Key_Escape, Qt::Key_A, Qt::Key_Plus, Qt::Key_Delete})
        f.key(key);
    QCOMPARE(editor.count, 8);
    QCOMPARE(f.host.callCount(), 0);
}

void tst_EqualizerGraphKeys::keysWithoutFocusedHandlePassOn()
{
    ActiveGraph f;
    f.graph->setFocus();
    QVERIFY(f.graph->hasFocus());
    f.host.resetLedger();
    KeyCounter editor(&f.editor);
    for (const Qt::Key key : UsedKeys)
        f.key(key);
    QCOMPARE(editor.count, 6);
    QCOMPARE(f.host.callCount(), 0);
}

void tst_EqualizerGraphKeys::usedKeysStayHere()
{
    ActiveGraph f;
    f.focus(1);
    KeyCounter editor(&f.editor);
    for (const Qt::Key key : UsedKeys)
        f.key(key);
    // Also where there is nothing left to change, or nothing can be.
    f.set(gainName(1), 200);
    f.key(Qt::Key_Up);
    f.host.failAll(Operation::SetValue);
    f.key(Qt::Key_Down);
    QCOMPARE(editor.count, 0);
}

void tst_EqualizerGraphKeys::stepStartsFromTheHostsValue()
{
    ActiveGraph f;
    f.focus(3);
    f.host.setSilently(gainName(3), 0, 77);
    f.host.setSilently(frequencyName(3), 0, 100);
    f.host.setSilently(qualityName(3), 0, 30);
    f.host.resetLedger();
    f.key(Qt::Key_Up);
    f.key(Qt::Key_Left);
    f.key(Qt::Key_PageUp);
    QCOMPARE(f.host.writes(),
             Writes({{gainName(3), 0, 78}, {frequencyName(3), 0, 99}, {qualityName(3), 0, 31}}));
}

void tst_EqualizerGraphKeys::writesAsADragDoes()
{
    ActiveGraph f;
    f.focus(3);
    f.host.resetLedger();
    f.key(Qt::Key_Down);
    const auto writes = f.host.calls(Operation::SetValue);
    QCOMPARE(writes.size(), std::size_t(1));
    QCOMPARE(writes[0].parameter, f.host.id(gainName(3)));
    QCOMPARE(writes[0].element, static_cast<unsigned short>(0));
    QCOMPARE(writes[0].trailing1, 0);
    QCOMPARE(writes[0].trailing2, 1);
    QCOMPARE(f.host.calls(Operation::GetValue)[0].element, static_cast<unsigned short>(0));
}

void tst_EqualizerGraphKeys::stepsStopAtTheRange()
{
    ActiveGraph f;
    f.setBand(2, 1195, -195);
    f.set(qualityName(2), 3);
    f.focus(2);
    f.host.resetLedger();
    f.key(Qt::Key_Right, Qt::ShiftModifier);
    f.key(Qt::Key_Down, Qt::ShiftModifier);
    f.key(Qt::Key_PageDown, Qt::ShiftModifier);
    QCOMPARE(f.host.writes(),
             Writes({{frequencyName(2), 0, 1200}, {gainName(2), 0, -200}, {qualityName(2), 0, 0}}));
    f.key(Qt::Key_Right);
    QCOMPARE(f.host.value(frequencyName(2), 0), 1200);
}

void tst_EqualizerGraphKeys::valueOutsideTheRangeComesBack()
{
    ActiveGraph f;
    f.focus(2);
    f.set(gainName(2), 5000);
    f.key(Qt::Key_Down);
    QCOMPARE(f.host.value(gainName(2), 0), 200);
    f.set(gainName(2), -5000);
    f.key(Qt::Key_Down);
    QCOMPARE(f.host.value(gainName(2), 0), -200);
}

void tst_EqualizerGraphKeys::rangeAsWideAsAnInt()
{
    constexpr int lowest = std::numeric_limits<int>::min();
    constexpr int highest = std::numeric_limits<int>::max();
    ActiveGraph f;
    f.host.setRange(gainName(2), lowest, highest);
    f.focus(2);
    f.set(gainName(2), highest);
    f.key(Qt::Key_Up, Qt::ShiftModifier);
    QCOMPARE(f.host.value(gainName(2), 0), highest);
    f.set(gainName(2), lowest);
    f.key(Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(f.host.value(gainName(2), 0), lowest);
    f.key(Qt::Key_Up);
    QCOMPARE(f.host.value(gainName(2), 0), lowest + 1);
}

void tst_EqualizerGraphKeys::reversedRange()
{
    ActiveGraph f;
    f.host.setRange(gainName(2), 10, -10);
    f.focus(2);
    f.host.resetLedger();
    f.key(Qt::Key_Up);
    QCOMPARE(f.host.writes(), Writes());
    QVERIFY(!f.graph->stepSize(targetOf(2), Graph::Field::Gain));
}

void tst_EqualizerGraphKeys::noCopyOfItsOwn()
{
    ActiveGraph f;
    f.focus(2);
    f.host.setNotifying(false);
    const QPointF before = f.graph->getTargetPoint(targetOf(2));
    f.key(Qt::Key_Up, Qt::ShiftModifier);
    QCOMPARE(f.host.value(gainName(2), 0), 10);
    QVERIFY(isNear(f.graph->getTargetPoint(targetOf(2)), before));
}

void tst_EqualizerGraphKeys::otherChannel()
{
    ActiveGraph f;
    f.graph->setCh(5);
    f.focus(2);
    f.host.resetLedger();
    f.key(Qt::Key_Up);
    QCOMPARE(f.host.writes(), Writes({{gainName(2), 5, 1}}));
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

void tst_EqualizerGraphKeys::unknownParameter()
{
    GraphFixture f;
    f.host.removeParameter(gainName(2));
    f.bind();
    f.editor.show();
    QVERIFY(f.graph->focusHandle(targetOf(2)));
    f.host.resetLedger();
    QTest::keyClick(f.graph, Qt::Key_Up);
    QCOMPARE(f.host.callCount(), 0);
    QTest::keyClick(f.graph, Qt::Key_Right);
    QCOMPARE(f.host.writes(), Writes({{frequencyName(2), 0, 601}}));
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

void tst_EqualizerGraphKeys::markIsARing_data()
{
    QTest::addColumn<int>("band");
    QTest::addColumn<double>("scale");
    for (int band = 0; band < 6; ++band)
        for (const double scale : {1.0, 2.0})
            QTest::addRow("band %d at %g", band, scale) << band << scale;
}

void tst_EqualizerGraphKeys::markIsARing()
{
    QFETCH(int, band);
    QFETCH(double, scale);
    ActiveGraph f((QSizeF(GraphFixture::DesignSize) * scale).toSize());
    f.graph->setZoom(1);
    f.solo(band);
    f.setBand(band, 500, 130);
    const QImage before = f.picture();
    QVERIFY(f.focus(band));
    const QImage after = f.picture();
    const QPointF centre = f.graph->getTargetPoint(targetOf(band));
    const double u = f.plot().u;

    int full = 0;
    for (int y = 0; y < f.graph->height(); ++y)
        for (int x = 0; x < f.graph->width(); ++x) {
            const QPointF pixel(x + 0.5, y + 0.5);
            const double distance = QLineF(centre, pixel).length();
            // The ring is 1.5 u wide at 5.5 u; a pixel's corner is 0.71 pixels from its middle, and
            // the circle is drawn in straight pieces, true to a tenth of a pixel.
            const double away = std::abs(distance - 5.5 * u) - 0.75 * u;
            if (away > 0.81)
                QCOMPARE(difference(before, after, pixel), 0);
            if (away < -0.81) {
                QCOMPARE(colorAt(after, pixel), fullColor(band).rgb());
                ++full;
            }
        }
    QVERIFY(full > 0 || scale < 2.0);

    // At any scale each direction shows the band's colour.
    for (int degrees = 0; degrees < 360; degrees += 15) {
        int most = 0;
        for (const double radius : {5.1, 5.3, 5.5, 5.7, 5.9}) {
            const QLineF ray = QLineF::fromPolar(radius * u, degrees).translated(centre);
            most = std::max(most, difference(before, after, ray.p2()));
        }
        QVERIFY2(most > 60, qPrintable(QStringLiteral("%1: %2").arg(degrees).arg(most)));
    }
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

void tst_EqualizerGraphKeys::markIsClipped()
{
    ActiveGraph f(GraphFixture::DesignSize * 2);
    f.graph->setZoom(5);
    f.solo(2);
    const auto changes = [&](int frequency, int gain) {
        f.setBand(2, frequency, gain);
        f.graph->clearFocus();
        const QImage before = f.picture();
        f.focus(2);
        const QImage after = f.picture();
        int inside = 0;
        const QRectF plot = f.plot().rect().toAlignedRect();
        for (int y = 0; y < f.graph->height(); ++y)
            for (int x = 0; x < f.graph->width(); ++x) {
                const bool differs = difference(before, after, QPointF(x + 0.5, y + 0.5)) > 0;
                if (differs && !plot.contains(QPointF(x + 0.5, y + 0.5)))
                    return -1;
                inside += differs;
            }
        return inside;
    };
    QVERIFY(changes(1200, 0) > 0);
    QVERIFY(changes(0, 40) > 0);
    QCOMPARE(changes(600, 200), 0);
}

void tst_EqualizerGraphKeys::markFollowsTheHandle()
{
    ActiveGraph f;
    f.focus(2);
    f.key(Qt::Key_Right, Qt::ShiftModifier);
    const QImage moved = f.picture();
    ActiveGraph other;
    other.set(frequencyName(2), 610);
    other.focus(2);
    QCOMPARE(moved, other.picture());
}

void tst_EqualizerGraphKeys::mouseDragsAFocusedHandle()
{
    const auto drag = [](ActiveGraph& f) {
        f.setBand(2, 300, 50);
        f.host.resetLedger();
        GraphMouse mouse(f.graph);
        const QPointF handle = f.graph->getTargetPoint(targetOf(2));
        mouse.press(handle);
        mouse.move(handle + QPointF(31, 12));
        mouse.release(handle + QPointF(31, 12));
        return f.host.writes();
    };
    ActiveGraph plain;
    const Writes expected = drag(plain);
    QCOMPARE(expected.size(), std::size_t(2));
    ActiveGraph focused;
    focused.focus(4);
    QCOMPARE(drag(focused), expected);
    QCOMPARE(focused.graph->focusedHandle(), Graph::EditTargetMiddle4);
}

ZOLTA_TEST_MAIN(tst_EqualizerGraphKeys)

#include "tst_EqualizerGraphKeys.moc"
