// SPDX-License-Identifier: GPL-3.0-or-later
#include "effect/EditModes.h"

#include "controls/FaderController.h"
#include "controls/KnobController.h"
#include "tests/effect/PlainEditor.h"
#include "tests/support/DataTable.h"
#include "tests/support/TestObject.h"

#include <QApplication>

#include <limits>

using CommonController_MemAPI::FaderController;
using CommonController_MemAPI::KnobController;

class tst_EditModes : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void modesReachEveryControl_data();
    void modesReachEveryControl();
    void modesGoThroughTheEditor();
};

void tst_EditModes::modesReachEveryControl_data()
{
    addColumns<int, int, int>("hostMode", "knob", "fader");
    QTest::newRow("0") << 0 << 0 << 3;
    QTest::newRow("1") << 1 << 2 << 1;
    QTest::newRow("2") << 2 << 1 << 0;
    QTest::newRow("3") << 3 << 0 << 2;
    QTest::newRow("beyond") << 4 << 0 << 0;
    QTest::newRow("negative") << -1 << 0 << 0;
    QTest::newRow("smallest") << std::numeric_limits<int>::min() << 0 << 0;
    QTest::newRow("largest") << std::numeric_limits<int>::max() << 0 << 0;
}

// The controls of the tree only, and each by its own mode.
void tst_EditModes::modesReachEveryControl()
{
    QFETCH(int, hostMode);
    QFETCH(int, knob);
    QFETCH(int, fader);
    const auto otherKnob = KnobController::OperationType((knob + 1) % 3);
    const auto otherFader = FaderController::OperationType((fader + 1) % 4);
    KnobController outerKnob;
    KnobController innerKnob(new QWidget(&outerKnob));
    KnobController knobBeside;
    FaderController outerFader(&outerKnob);
    FaderController innerFader(new QWidget(&outerFader));
    FaderController faderBeside;
    for (KnobController* each : {&outerKnob, &innerKnob, &knobBeside})
        each->setOperationType(otherKnob);
    for (FaderController* each : {&outerFader, &innerFader, &faderBeside})
        each->setOperationType(otherFader);
    setDialEditMode(&outerKnob, hostMode);
    QCOMPARE(int(outerKnob.operationType()), knob);
    QCOMPARE(int(innerKnob.operationType()), knob);
    QCOMPARE(knobBeside.operationType(), otherKnob);
    QCOMPARE(innerFader.operationType(), otherFader);
    setSliderEditMode(&outerKnob, hostMode);
    QCOMPARE(int(outerFader.operationType()), fader);
    QCOMPARE(int(innerFader.operationType()), fader);
    QCOMPARE(faderBeside.operationType(), otherFader);
    QCOMPARE(int(outerKnob.operationType()), knob);
}

void tst_EditModes::modesGoThroughTheEditor()
{
    PlainEditor editor;
    KnobController knob(new QWidget(&editor));
    FaderController fader(new QWidget(&editor));
    editor.setDialEditMode(2);
    editor.setSliderEditMode(1);
    QCOMPARE(knob.operationType(), KnobController::Linear);
    QCOMPARE(fader.operationType(), FaderController::Jump);
}

ZOLTA_TEST_MAIN(tst_EditModes)

#include "tst_EditModes.moc"
