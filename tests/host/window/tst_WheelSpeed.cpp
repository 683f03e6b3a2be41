// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/EditorWindow.h"
#include "host/window/MixerWindow.h"
#include "tests/host/window/WindowTesting.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QWheelEvent>

#include <limits>

using namespace Qt::StringLiterals;

class tst_WheelSpeed : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup() { m_mixer.memory.reset(0); }
    void notchMovesAHandful_data();
    void notchMovesAHandful();
    void trackpadIsSmooth();
    void anyDeltaStaysInTheRange();
    void turningIsOneStepOfTheHistory();

private:
    void turn(const QString& knob, int delta, Qt::KeyboardModifiers modifiers = {});
    int value(int number) const
    {
        return m_mixer.memory.values(0)[static_cast<std::size_t>(number - 1)];
    }

    Mixer m_mixer;
    std::unique_ptr<MixerWindow> m_window;
    EditorWindow* m_editor = nullptr;
};

void tst_WheelSpeed::initTestCase()
{
    QVERIFY(m_mixer.library.load(QStringLiteral(HOST_REAL_PLUGIN)).isOk());
    m_window = std::make_unique<MixerWindow>(m_mixer, EditorSettings());
    m_editor = m_window->openEditor(0, true);
    QVERIFY(QTest::qWaitForWindowExposed(m_editor));
}

void tst_WheelSpeed::turn(const QString& knob, int delta, Qt::KeyboardModifiers modifiers)
{
    auto* widget = m_editor->findChild<QWidget*>(knob);
    QVERIFY2(widget, qPrintable(knob));
    const QPointF place = widget->rect().center();
    QWheelEvent event(place, widget->mapToGlobal(place), QPoint(), QPoint(0, delta), Qt::NoButton,
                      modifiers, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(widget, &event);
    QVERIFY(event.isAccepted());
}

void tst_WheelSpeed::notchMovesAHandful_data()
{
    QTest::addColumn<QString>("knob");
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("steps");
    QTest::newRow("a twelfth of an octave") << u"m_pMiddle2FrequencyKnob"_s << 10 << 10;
    QTest::newRow("half a dB") << u"m_pMiddle2GainKnob"_s << 11 << 5;
    QTest::newRow("a twelfth of an octave of quality") << u"m_pMiddle2QualityKnob"_s << 9 << 8;
}

void tst_WheelSpeed::notchMovesAHandful()
{
    QFETCH(const QString, knob);
    QFETCH(const int, number);
    QFETCH(const int, steps);
    const int before = value(number);
    turn(knob, 120);
    QCOMPARE(value(number), before + steps);
    turn(knob, -240);
    QCOMPARE(value(number), before - steps);
    turn(knob, 120, Qt::ShiftModifier);
    QCOMPARE(value(number), before - steps + 1);
    turn(knob, -120, Qt::ShiftModifier);
    QCOMPARE(value(number), before - steps);
}

// Twelve small movements are a notch, and most of them move something.
void tst_WheelSpeed::trackpadIsSmooth()
{
    const int before = value(10);
    int last = before;
    int moves = 0;
    for (int i = 0; i < 12; ++i) {
        turn(u"m_pMiddle2FrequencyKnob"_s, 10);
        moves += value(10) != last ? 1 : 0;
        last = value(10);
    }
    QCOMPARE(last, before + 10);
    QVERIFY(moves >= 9);
}

void tst_WheelSpeed::anyDeltaStaysInTheRange()
{
    turn(u"m_pMiddle2GainKnob"_s, std::numeric_limits<int>::max());
    QCOMPARE(value(11), 200);
    turn(u"m_pMiddle2GainKnob"_s, std::numeric_limits<int>::min());
    QCOMPARE(value(11), -200);
}

void tst_WheelSpeed::turningIsOneStepOfTheHistory()
{
    QCoreApplication::processEvents();
    m_mixer.mixerModel.history().clear();
    for (int i = 0; i < 3; ++i)
        turn(u"m_pMiddle2GainKnob"_s, 120);
    QCOMPARE(m_mixer.mixerModel.history().stack().count(), 1);
    QCOMPARE(value(11), 15);
}

ZOLTA_TEST_MAIN(tst_WheelSpeed)

#include "tst_WheelSpeed.moc"
