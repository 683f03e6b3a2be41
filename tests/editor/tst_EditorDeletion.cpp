// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/controls/ControlTesting.h"
#include "tests/editor/EditorFixture.h"
#include "tests/support/DataTable.h"
#include "tests/support/TestObject.h"
#include "tests/support/TestStream.h"

#include <QApplication>
#include <QLineEdit>
#include <QPointer>

#include <pluginterfaces/vst/ivstcomponent.h>

/// The editor is deleted in the middle of what it does, by the host that is told of a value or by a
/// listener of a control. What is left of the action is left out.
class tst_EditorDeletion : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void byTheHost_data();
    void byTheHost();
    void byTheHostAsTheFocusMoves_data();
    void byTheHostAsTheFocusMoves();
    void byAListenerOfADrag_data();
    void byAListenerOfADrag();
};

namespace {

/// Deletes the editor of a fixture, once it may, when a parameter gets a value.
class Deleter final : public IPrmObserver
{
public:
    Deleter(EditorFixture& fixture, int number)
        : m_fixture(fixture)
        , m_name(TestHost::name(number))
    {}

    void watch() { m_fixture.host.memory()->registerObserver(m_fixture.host.id(m_name), 0, this); }
    void arm() { m_armed = true; }
    int Update(unsigned short, unsigned short, int, const char*) override
    {
        if (m_armed)
            deleteEditor();
        return 0;
    }
    int UpdateProperty(unsigned short, unsigned short, int, int, int, bool, const char*) override
    {
        return 0;
    }
    void deleteEditor()
    {
        m_fixture.editor.reset();
        callsSoFar = m_fixture.host.callCount();
    }

    int callsSoFar = -1; ///< of the host, when the editor was gone

private:
    EditorFixture& m_fixture;
    QByteArray m_name;
    bool m_armed = false;
};

enum Action { PressFlat, HoldFlat, TurnWheelOnSwitch, RestoreState, TypeText };

/// Types a value for "fx_rackfx_prm_11" into the text field that a double click on its knob opens.
void beginText(EditorFixture& fixture, QLineEdit** line)
{
    fixture.editor->show();
    fixture.editor->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(fixture.editor.get()));
    QTest::mouseDClick(fixture.widget("Middle2GainKnob"), Qt::LeftButton);
    *line = fixture.widget("Middle2GainTextEdit")->findChild<QLineEdit*>();
    QVERIFY((*line)->hasFocus());
    fixture.host.resetLedger();
    (*line)->setText(QStringLiteral("37"));
}

void typeText(EditorFixture& fixture)
{
    QLineEdit* line = nullptr;
    beginText(fixture, &line);
    if (line)
        QTest::keyClick(line, Qt::Key_Return);
}

void perform(Action action, EditorFixture& fixture, Deleter& deleter)
{
    if (action == HoldFlat)
        fixture.pressFlat();
    fixture.host.resetLedger();
    deleter.arm();
    if (action == PressFlat) {
        fixture.pressFlat();
    } else if (action == HoldFlat) {
        fixture.holdFlat();
    } else if (action == TurnWheelOnSwitch) {
        ControlTesting::wheel(*fixture.widget("DriveCleanSwitch"), QPoint(0, 120));
    } else if (action == TypeText) {
        typeText(fixture);
    } else {
        TestStream state(QByteArray(116, '\0'));
        QCOMPARE(fixture.editor->getVstComponent()->setState(&state), Steinberg::kResultFalse);
    }
}

} // namespace

void tst_EditorDeletion::byTheHost_data()
{
    QTest::addColumn<int>("action");
    QTest::addColumn<QList<int>>("writes"); // until the editor is deleted
    QTest::newRow("flat, first gain") << int(PressFlat) << QList<int>{3};
    QTest::newRow("flat, last gain") << int(PressFlat) << QList<int>{3, 7, 11, 15, 19, 23};
    QTest::newRow("flat, first type") << int(PressFlat) << QList<int>{3, 7, 11, 15, 19, 23, 1};
    QTest::newRow("flat, last type") << int(PressFlat) << QList<int>{3, 7, 11, 15, 19, 23, 1, 21};
    QTest::newRow("held flat, first") << int(HoldFlat) << QList<int>{25};
    QTest::newRow("held flat, a switch") << int(HoldFlat) << QList<int>{25, 26, 4, 8, 12};
    QTest::newRow("held flat, last switch")
        << int(HoldFlat) << QList<int>{25, 26, 4, 8, 12, 16, 20, 24};
    QTest::newRow("wheel on the switch") << int(TurnWheelOnSwitch) << QList<int>{27};
    QTest::newRow("text entry") << int(TypeText) << QList<int>{11};
    QTest::newRow("state, first") << int(RestoreState) << QList<int>{4};
    QTest::newRow("state, ninth") << int(RestoreState) << QList<int>{4, 3, 2, 1, 8, 7, 6, 5, 12};
}

void tst_EditorDeletion::byTheHost()
{
    QFETCH(int, action);
    QFETCH(QList<int>, writes);
    // Before the control of the parameter is told of the value, and after it.
    for (const bool first : {true, false}) {
        EditorFixture fixture;
        Deleter deleter(fixture, writes.last());
        if (first)
            deleter.watch();
        fixture.bind();
        if (!first)
            deleter.watch();
        perform(Action(action), fixture, deleter);
        QVERIFY(!fixture.editor);
        QCOMPARE(numbers(fixture.host.writes()), writes);
        QCOMPARE(fixture.host.callCount(), deleter.callsSoFar);
        QCOMPARE(fixture.host.observerCount(), 1);
        QCOMPARE(fixture.host.meterObserverCount(), 0);
    }
}

void tst_EditorDeletion::byTheHostAsTheFocusMoves_data()
{
    addColumns<QByteArray, QString>("target", "by");
    for (const char* target : {"LowGainKnob", "LowGainTextEdit", "Middle2Button", "FlatButton"})
        QTest::addRow("to %s", target) << QByteArray(target) << QStringLiteral("call");
    QTest::newRow("to the curve") << QByteArray() << QStringLiteral("call");
    for (const char* target : {"Middle4GainKnob", "LowGainTextEdit"})
        QTest::addRow("press on %s", target) << QByteArray(target) << QStringLiteral("press");
    QTest::newRow("another field opens")
        << QByteArray("LowGainKnob") << QStringLiteral("double click");
    QTest::newRow("Tab") << QByteArray() << QStringLiteral("tab");
    QTest::newRow("Shift+Tab") << QByteArray() << QStringLiteral("back");
}

// Typing ends when the focus leaves the field, and Qt goes on with the widget that it moves to.
void tst_EditorDeletion::byTheHostAsTheFocusMoves()
{
    QFETCH(QByteArray, target);
    QFETCH(QString, by);
    EditorFixture fixture;
    Deleter deleter(fixture, 11);
    fixture.bind();
    deleter.watch();
    QLineEdit* line = nullptr;
    beginText(fixture, &line);
    QVERIFY(line);
    deleter.arm();
    const QPointer<QWidget> next = target.isEmpty()
                                       ? fixture.editor->findChild<ZoltaEqualizerGraph*>()
                                       : fixture.widget(target);
    if (by == QLatin1String("call"))
        next->setFocus();
    else if (by == QLatin1String("press"))
        QTest::mousePress(fixture.editor->windowHandle(), Qt::LeftButton, {},
                          next->mapTo(fixture.editor.get(), next->rect().center()));
    else if (by == QLatin1String("double click"))
        QTest::mouseDClick(next, Qt::LeftButton);
    else
        QTest::keyClick(line, Qt::Key_Tab,
                        by == QLatin1String("back") ? Qt::ShiftModifier : Qt::NoModifier);
    QVERIFY(!fixture.editor);
    QCOMPARE(numbers(fixture.host.writes()), QList<int>{11});
    QCOMPARE(fixture.host.callCount(), deleter.callsSoFar);
    QCOMPARE(fixture.host.observerCount(), 1);
    QCOMPARE(fixture.host.meterObserverCount(), 0);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!next);
}

void tst_EditorDeletion::byAListenerOfADrag_data()
{
    addColumns<QByteArray, bool>("control", "drag");
    for (const char* control : {"LowTypeKnob", "Middle2GainKnob", "Middle4GainTextEdit"}) {
        QTest::addRow("%s begins", control) << QByteArray(control) << true;
        QTest::addRow("%s ends", control) << QByteArray(control) << false;
    }
}

void tst_EditorDeletion::byAListenerOfADrag()
{
    QFETCH(QByteArray, control);
    QFETCH(bool, drag);
    EditorFixture fixture;
    fixture.bind();
    fixture.editor->setDialEditMode(2);
    const QPointer<QWidget> widget = fixture.widget(control);
    Deleter deleter(fixture, 1);
    const auto listen = [&](bool dragged) {
        if (dragged == drag)
            deleter.deleteEditor();
    };
    if (auto* knob = qobject_cast<KnobController*>(widget))
        connect(knob, &KnobController::drag, this, listen);
    else
        connect(fixture.widget<TextEditController>(control), &TextEditController::drag, this,
                listen);
    QTest::mousePress(widget, Qt::LeftButton);
    if (widget)
        fixture.editor->setCh(2, 3);
    QVERIFY(!fixture.editor);
    QCOMPARE(fixture.host.callCount(), deleter.callsSoFar);
    QCOMPARE(fixture.host.observerCount(), 0);
}

ZOLTA_TEST_MAIN(tst_EditorDeletion)
#include "tst_EditorDeletion.moc"
