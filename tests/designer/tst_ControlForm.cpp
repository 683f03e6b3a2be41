// SPDX-License-Identifier: GPL-3.0-or-later
// A form that Qt's form compiler turned into code: the headers that it names exist, and its values
// of enumerations and flags compile.
#include "tests/support/TestObject.h"
#include "ui_Controls.h"

#include <QApplication>

using namespace CommonController_MemAPI;

class tst_ControlForm : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_form.setupUi(&m_window); }

    void setsNumbersAndTexts();
    void setsEnumerations();
    void setsFlags();
    void makesEveryControl();

private:
    QWidget m_window;
    Ui::Controls m_form;
};

void tst_ControlForm::setsNumbersAndTexts()
{
    QCOMPARE(m_form.knob->startAngle(), 300.0);
    QCOMPARE(m_form.knob->spanAngle(), 120.0);
    QCOMPARE(m_form.knob->knobSvg(), QStringLiteral(":/image/zolta/knob_F.svg"));
    QCOMPARE(m_form.textEdit->postfix(), QStringLiteral("Hz"));
    QVERIFY(m_form.textEdit->textTrim());
    QCOMPARE(m_form.pullDownButton->textList(),
             QStringList({QStringLiteral("Low"), QStringLiteral("High")}));
    QCOMPARE(m_form.meter->meterOverMargin(), 5);
    QCOMPARE(m_form.svgLabel->disableSvg(), QStringLiteral(":/image/zolta/led_drive_off.svg"));
    QCOMPARE(m_form.channelNameEdit->defaultName(), QStringLiteral("CH 1"));
}

void tst_ControlForm::setsEnumerations()
{
    QCOMPARE(m_form.knob->knobType(), KnobController::RotateKnob);
    QCOMPARE(m_form.knob->operationType(), KnobController::RelativeCircular);
    QCOMPARE(m_form.fader->orientation(), Qt::Horizontal);
    QCOMPARE(m_form.fader->operationType(), FaderController::Ramp);
    QCOMPARE(m_form.meter->meterType(), MeterController::Minus225);
}

void tst_ControlForm::setsFlags()
{
    QCOMPARE(m_form.textEdit->alignment(), Qt::Alignment(Qt::AlignCenter));
    QCOMPARE(m_form.pushButton->svgAlignment(), Qt::AlignRight | Qt::AlignVCenter);
    QCOMPARE(m_form.pushButton->checkTrigger(),
             PushButtonController::CheckTrigger(PushButtonController::Press |
                                                PushButtonController::On |
                                                PushButtonController::Off));
}

void tst_ControlForm::makesEveryControl()
{
    QCOMPARE(m_form.buttonGroup->children().size(), 1);
    QCOMPARE(m_form.peakMeter->meterPeakHeight(), 3);
    QCOMPARE(m_form.roundMeter->meterWidth(), 5);
    QCOMPARE(m_form.gainReductionMeter->meterWidth(), 6);
}

ZOLTA_TEST_MAIN(tst_ControlForm)
#include "tst_ControlForm.moc"
