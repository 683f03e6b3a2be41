// SPDX-License-Identifier: GPL-3.0-or-later
// The form, through what a user does and what a host writes.
#include "Panel.h"

#include <zolta/controls/FaderController.h>
#include <zolta/controls/KnobController.h>
#include <zolta/controls/MeterController.h>
#include <zolta/controls/PullDownButtonController.h>
#include <zolta/controls/PushButtonController.h>
#include <zolta/controls/TextEditController.h>

#include <QAccessible>
#include <QLineEdit>
#include <QTest>

using namespace CommonController_MemAPI;

class tst_Panel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void keysTurnTheKnob();
    void typedNumbersAreParsedByTheMemory();
    void buttonsChooseAValue();
    void hostMovesTheControls();
    void metersFollowGainAndLevel();
    void controlsHaveNamesAndValues();

private:
    template <class Control> Control* find(const char* name) const
    {
        return m_panel->findChild<Control*>(QLatin1String(name));
    }

    Memory m_memory;
    std::unique_ptr<Panel> m_panel;
};

void tst_Panel::init()
{
    m_memory = Memory();
    m_panel = std::make_unique<Panel>(m_memory);
    m_panel->show();
    QVERIFY(QTest::qWaitForWindowActive(m_panel.get()));
    QCoreApplication::processEvents(); // the buttons join their group
}

void tst_Panel::cleanup() { m_panel.reset(); }

void tst_Panel::keysTurnTheKnob()
{
    QTest::keyClick(find<KnobController>("gain"), Qt::Key_Up);
    QCOMPARE(m_memory.value(Gain), 1);
    QTest::keyClick(find<KnobController>("gain"), Qt::Key_PageDown);
    QCOMPARE(m_memory.value(Gain), -9);
}

void tst_Panel::typedNumbersAreParsedByTheMemory()
{
    auto* field = find<TextEditController>("gainText");
    QTest::mouseDClick(field, Qt::LeftButton);
    auto* line = field->findChild<QLineEdit*>();
    QTest::keyClicks(line, QStringLiteral("-3.5"));
    QTest::keyClick(line, Qt::Key_Return);
    QCOMPARE(m_memory.value(Gain), -35);
    QCOMPARE(field->string(), QStringLiteral("-3.5"));
}

void tst_Panel::buttonsChooseAValue()
{
    QTest::mouseClick(find<PushButtonController>("record"), Qt::LeftButton);
    QCOMPARE(m_memory.value(Mode), 2);
}

void tst_Panel::hostMovesTheControls()
{
    m_memory.setValue(Level, -200);
    m_memory.setValue(Input, 2);
    m_memory.setValue(Mode, 1);
    QCOMPARE(find<FaderController>("level")->value(), -200);
    QCOMPARE(find<PullDownButtonController>("input")->currentText(), QStringLiteral("Instrument"));
    QTRY_VERIFY(find<PushButtonController>("listen")->isChecked());
}

void tst_Panel::metersFollowGainAndLevel()
{
    m_panel->setTone(-200);
    m_memory.setValue(Gain, 50);
    m_memory.setValue(Level, -100);
    QCOMPARE(find<MeterController>("meterLeft")->value(), -250);
}

void tst_Panel::controlsHaveNamesAndValues()
{
    m_memory.setValue(Gain, 60);
    const auto* knob = QAccessible::queryAccessibleInterface(find<KnobController>("gain"));
    QCOMPARE(knob->text(QAccessible::Name), QStringLiteral("Gain"));
    QCOMPARE(knob->text(QAccessible::Value), QStringLiteral("6.0"));
}

QTEST_MAIN(tst_Panel)

#include "tst_Panel.moc"
