// SPDX-License-Identifier: GPL-3.0-or-later
#include "effect/EditModes.h"

#include "controls/FaderController.h"
#include "controls/KnobController.h"
#include "tests/effect/PlainEditor.h"
#include "tests/support/TestObject.h"

#include <QApplication>

#include <limits>

using CommonController_MemAPI::FaderController;
using CommonController_MemAPI::KnobController;

class tst_EditModes : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void translatesHostModes_data();
    void translatesHostModes();
    void dialModeReachesEveryKnob_data();
    void dialModeReachesEveryKnob();
    void sliderModeReachesEveryFader_data();
    void sliderModeReachesEveryFader();
    void modesGoThroughTheEditor();
};

void tst_EditModes::translatesHostModes_data()
{
    QTest::addColumn<int>("hostMode");
    QTest::addColumn<int>("knob");
    QTest::addColumn<int>("fader");
    QTest::newRow("0") << 0 << 0 << 3;
    QTest::newRow("1") << 1 << 2 << 1;
    QTest::newRow("2") << 2 << 1 << 0;
    QTest::newRow("3") << 3 << 0 << 2;
    QTest::newRow("beyond") << 4 << 0 << 0;
    QTest::newRow("negative") << -1 << 0 << 0;
    QTest::newRow("smallest") << std::numeric_limits<int>::min() << 0 << 0;
    QTest::newRow("largest") << std::numeric_limits<int>::max() << 0 << 0;
}

void tst_EditModes::translatesHostModes()
{
    QFETCH(int, hostMode);
    QTEST(knobEditMode(hostMode), "knob");
    QTEST(faderEditMode(hostMode), "fader");
}

void tst_EditModes::dialModeReachesEveryKnob_data()
{
    QTest::addColumn<int>("hostMode");
    QTest::addColumn<KnobController::OperationType>("type");
    QTest::newRow("0") << 0 << KnobController::Circular;
    QTest::newRow("1") << 1 << KnobController::RelativeCircular;
    QTest::newRow("2") << 2 << KnobController::Linear;
    QTest::newRow("3") << 3 << KnobController::Circular;
    QTest::newRow("negative") << -1 << KnobController::Circular;
}

void tst_EditModes::dialModeReachesEveryKnob()
{
    QFETCH(int, hostMode);
    QFETCH(KnobController::OperationType, type);
    KnobController outer;
    KnobController inner(new QWidget(&outer));
    KnobController beside;
    for (KnobController* knob : {&outer, &inner, &beside})
        knob->setOperationType(type == KnobController::Linear ? KnobController::Circular
                                                              : KnobController::Linear);
    const auto before = beside.operationType();
    setDialEditMode(&outer, hostMode);
    QCOMPARE(outer.operationType(), type);
    QCOMPARE(inner.operationType(), type);
    QCOMPARE(beside.operationType(), before);
    setSliderEditMode(&outer, 1);
    QCOMPARE(outer.operationType(), type);
}

void tst_EditModes::sliderModeReachesEveryFader_data()
{
    QTest::addColumn<int>("hostMode");
    QTest::addColumn<FaderController::OperationType>("type");
    QTest::newRow("0") << 0 << FaderController::Relative;
    QTest::newRow("1") << 1 << FaderController::Jump;
    QTest::newRow("2") << 2 << FaderController::Touch;
    QTest::newRow("3") << 3 << FaderController::Ramp;
    QTest::newRow("4") << 4 << FaderController::Touch;
    QTest::newRow("negative") << -1 << FaderController::Touch;
}

void tst_EditModes::sliderModeReachesEveryFader()
{
    QFETCH(int, hostMode);
    QFETCH(FaderController::OperationType, type);
    const auto other =
        type == FaderController::Touch ? FaderController::Ramp : FaderController::Touch;
    FaderController outer;
    FaderController inner(new QWidget(&outer));
    FaderController beside;
    for (FaderController* fader : {&outer, &inner, &beside})
        fader->setOperationType(other);
    setSliderEditMode(&outer, hostMode);
    QCOMPARE(outer.operationType(), type);
    QCOMPARE(inner.operationType(), type);
    QCOMPARE(beside.operationType(), other);
    setDialEditMode(&outer, 1);
    QCOMPARE(outer.operationType(), type);
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
