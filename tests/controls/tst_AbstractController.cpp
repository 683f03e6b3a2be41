// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/AbstractController.h"

#include "controls/KnobController.h"
#include "controls/TextEditController.h"
#include "tests/controls/ControlTesting.h"
#include "tests/support/Columns.h"
#include "tests/support/TestObject.h"

#include <QApplication>

#include <cmath>
#include <limits>
#include <memory>

using namespace ControlTesting;
using CommonController_MemAPI::KnobController;
using CommonController_MemAPI::TextEditController;

namespace {

using Operation = TestHost::Operation;

constexpr int Largest = std::numeric_limits<int>::max();
constexpr int Smallest = std::numeric_limits<int>::min();

/// A control without a widget, which notes its refreshes and edits.
class PlainControl : public AbstractController
{
public:
    ~PlainControl() override { closeEdits(); }

    void setScale(double scale) override { scaleChanges += storeScale(scale) ? 1 : 0; }
    void setMemAPIValue(IMemAPI* memAPI, unsigned short parameter, unsigned short ch,
                        unsigned short index) override
    {
        bind(memAPI, parameter, ch, index);
    }

    using AbstractController::closeEdit;
    using AbstractController::isEditing;
    using AbstractController::openEdit;

    QList<int> signalled;
    QByteArray trace; ///< c changed, r request, b begin, e end
    int scaleChanges = 0;
    std::function<void()> onRefresh;

protected:
    void valueChangedRequest() override
    {
        valueChanged();
        trace += 'r';
        signalled << value();
        if (onRefresh)
            onRefresh();
    }
    void valueChanged() override { trace += 'c'; }
    void beginEdit() override { trace += 'b'; }
    void endEdit() override { trace += 'e'; }
};

} // namespace

class tst_AbstractController : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsUnboundWithDefaults();
    void slotOrder();
    void slotOrderOfControls();

    void normalizedBecomesAValue_data();
    void normalizedBecomesAValue();
    void limitBeyondTheOtherTakesAllAlong_data();
    void limitBeyondTheOtherTakesAllAlong();
    void limitsTakeValueAndDefaultAlong();
    void limitsAreIgnoredAsSoonAsThereIsAMemory();
    void defaultIsClampedAndDoesNotRefresh();
    void textSetsTheValueIfItIsANumber_data();
    void textSetsTheValueIfItIsANumber();

    void bindingTwiceRegistersOnce();
    void rebindingMovesTheRegistration();
    void notificationsRefresh();
    void boundReadsAskTheHost();
    void boundWritesGoToTheHostOnly();
    void boundTextIsParsedByTheHost();
    void textOf256BytesIsCutSafely();
    void failingHostShowsZeroAndNoText();

    void oneValueRangeDoesNotCrash();
    void widestRangeDoesNotOverflow();
    void upsideDownRangeTakesTheMinimum();

    void scaleIsNeverBelowHalf_data();
    void scaleIsNeverBelowHalf();

    void editsComeInPairs();
    void rebindingEndsOpenEditsFirst();
    void rebindingFromWithinAnEditEndsItOnce();
};

void tst_AbstractController::startsUnboundWithDefaults()
{
    const PlainControl control;
    QVERIFY(!control.isBound());
    QCOMPARE(control.value(), 0);
    QCOMPARE(control.minimumValue(), 0);
    QCOMPARE(control.maximumValue(), 100);
    QCOMPARE(control.defaultValue(), 0);
    QCOMPARE(control.string(), QString());
    QCOMPARE(control.scale(), 1.0);
    QCOMPARE(control.memAPI(), nullptr);
    QCOMPARE(control.parameter(), 0);
    QCOMPARE(control.ch(), 0);
    QCOMPARE(control.index(), 0);
}

void tst_AbstractController::slotOrder()
{
    // Slots 2 and 3 are the destructor's two entries.
    TestHost host;
    PlainControl control;
    AbstractController* object = &control;
    QCOMPARE((callSlot<int, unsigned short, unsigned short, int, const char*>(object, 0, 1, 2, 3,
                                                                              nullptr)),
             0);
    QCOMPARE(control.trace, QByteArray("cr"));
    QCOMPARE((callSlot<int, unsigned short, unsigned short, int, int, int, bool, const char*>(
                 object, 1, 1, 2, 3, 4, 5, false, nullptr)),
             0);
    QCOMPARE(control.trace, QByteArray("crcr"));
    callSlot<void>(object, 4, 3.0);
    QCOMPARE(control.scale(), 3.0);
    const unsigned short id = host.id("fx_rackfx_prm_2");
    callSlot<void, IMemAPI*, unsigned short, unsigned short, unsigned short>(
        object, 5, host.memory(), id, 4, 0);
    QVERIFY(host.isObserving(&control, "fx_rackfx_prm_2", 4));
    control.trace.clear();
    callSlot<void>(object, 6);
    QCOMPARE(control.trace, QByteArray("cr"));
    callSlot<void>(object, 7);
    callSlot<void>(object, 8);
    callSlot<void>(object, 9);
    QCOMPARE(control.trace, QByteArray("crcbe"));

    auto* heap = new PlainControl;
    heap->setMemAPIValue(host.memory(), id, 5, 0);
    callSlot<void>(static_cast<AbstractController*>(heap), 3);
    QCOMPARE(host.observerCount("fx_rackfx_prm_2", 5), 0);
}

void tst_AbstractController::slotOrderOfControls()
{
    TestHost host;
    KnobController knob;
    TextEditController text;
    const int first = firstSlotAfter<QWidget>();
    for (QWidget* control : {static_cast<QWidget*>(&knob), static_cast<QWidget*>(&text)}) {
        QSignalSpy changed(control, SIGNAL(valueChanged(int)));
        auto* controller = dynamic_cast<AbstractController*>(control);
        callSlot<void>(control, first, 2.5);
        QCOMPARE(controller->scale(), 2.5);
        callSlot<void, IMemAPI*, unsigned short, unsigned short, unsigned short>(
            control, first + 1, host.memory(), host.id("fx_rackfx_prm_3"), 1, 0);
        QVERIFY(controller->isBound());
        QCOMPARE(changed.count(), 1);
        callSlot<void>(control, first + 2);
        QCOMPARE(changed.count(), 1);
        callSlot<void>(control, first + 3);
        QCOMPARE(changed.count(), 2);
    }
}

void tst_AbstractController::normalizedBecomesAValue_data()
{
    addColumns<float, int, int>("normalized", "unbound", "bound");
    QTest::newRow("1") << 1.0f << 100 << 100;
    QTest::newRow("0.5") << 0.5f << 50 << 50;
    QTest::newRow("0.999") << 0.999f << 100 << 100;
    QTest::newRow("0.994") << 0.994f << 100 << 99;
    QTest::newRow("0.99, the last bin but one") << 0.99f << 99 << 99;
    QTest::newRow("0.01, the second bin") << 0.01f << 1 << 1;
    QTest::newRow("0.0099, still the first bin") << 0.0099f << 0 << 1;
    QTest::newRow("0.006") << 0.006f << 0 << 1;
    QTest::newRow("0.004") << 0.004f << 0 << 0;
    QTest::newRow("0") << 0.0f << 0 << 0;
    QTest::newRow("below") << -3.0f << 0 << 0;
    QTest::newRow("above") << 3.0f << 100 << 100;
    QTest::newRow("infinite") << std::numeric_limits<float>::infinity() << 100 << 100;
    QTest::newRow("no number") << std::nanf("") << 0 << 0;
}

// Unbound it falls into bins, bound it is rounded; so is a default.
void tst_AbstractController::normalizedBecomesAValue()
{
    QFETCH(float, normalized);
    QFETCH(int, unbound);
    QFETCH(int, bound);
    TestHost host;
    host.addParameter(Parameter, 0, 100, 30);
    PlainControl control;
    control.setValue(42);
    control.signalled.clear();
    control.setNormalized(normalized);
    QCOMPARE(control.value(), unbound);
    control.setNormalized(normalized);
    QCOMPARE(control.signalled, QList<int>{unbound});
    control.setDefaultNormalized(normalized);
    QCOMPARE(control.defaultValue(), bound);

    bind(control, host);
    control.setNormalized(normalized);
    QCOMPARE(host.writes(), (std::vector<TestHost::Write>{{Parameter, 0, bound}}));
}

void tst_AbstractController::limitBeyondTheOtherTakesAllAlong_data()
{
    QTest::addColumn<int>("limit");
    QTest::newRow("minimum above the maximum") << 150;
    QTest::newRow("maximum below the minimum") << -7;
}

void tst_AbstractController::limitBeyondTheOtherTakesAllAlong()
{
    QFETCH(int, limit);
    PlainControl control;
    if (limit > 0)
        control.setMinimumValue(limit);
    else
        control.setMaximumValue(limit);
    QCOMPARE(control.minimumValue(), limit);
    QCOMPARE(control.maximumValue(), limit);
    QCOMPARE(control.defaultValue(), limit);
    QCOMPARE(control.value(), limit);
    QCOMPARE(control.signalled, QList<int>{limit});
}

void tst_AbstractController::limitsTakeValueAndDefaultAlong()
{
    PlainControl control;
    control.setMinimumValue(20);
    QCOMPARE(control.value(), 20);
    QCOMPARE(control.defaultValue(), 20);
    QCOMPARE(control.maximumValue(), 100);
    control.setValue(101);
    QCOMPARE(control.value(), 100);
    control.setValue(90);
    control.setValue(90);
    QCOMPARE(control.signalled, (QList<int>{20, 100, 90}));
    control.setDefaultValue(80);
    control.setMaximumValue(70);
    QCOMPARE(control.value(), 70);
    QCOMPARE(control.defaultValue(), 70);
    control.signalled.clear();
    control.setMaximumValue(70);
    control.setMinimumValue(20);
    QVERIFY(control.signalled.isEmpty());
    control.setMinimumValue(10);
    QCOMPARE(control.value(), 70);
    QCOMPARE(control.signalled, QList<int>{70});
}

void tst_AbstractController::limitsAreIgnoredAsSoonAsThereIsAMemory()
{
    TestHost host;
    PlainControl control;
    for (const quint16 ch : {quint16(0x8000), quint16(0xFFFF)}) {
        control.setMemAPIValue(host.memory(), host.id("fx_rackfx_prm_2"), ch, 0);
        QVERIFY(!control.isBound());
    }
    QCOMPARE(host.callCount(), 0);
    control.setMinimumValue(5);
    control.setMaximumValue(6);
    QCOMPARE(control.minimumValue(), 0);
    QCOMPARE(control.maximumValue(), 100);
    control.setDefaultValue(9);
    QCOMPARE(control.defaultValue(), 9);
}

void tst_AbstractController::defaultIsClampedAndDoesNotRefresh()
{
    PlainControl control;
    control.setDefaultValue(500);
    QCOMPARE(control.defaultValue(), 100);
    QCOMPARE(control.defaultNormalized(), 1.0f);
    control.setDefaultValue(-500);
    QCOMPARE(control.defaultValue(), 0);
    QVERIFY(control.trace.isEmpty());
}

void tst_AbstractController::textSetsTheValueIfItIsANumber_data()
{
    addColumns<QString, int>("text", "value");
    QTest::newRow("inside") << "77" << 77;
    QTest::newRow("above") << "101" << 100;
    QTest::newRow("below") << "-1" << 0;
    QTest::newRow("beyond 32 bits") << "4294967297" << 33;
    QTest::newRow("abc") << "abc" << 33;
    QTest::newRow("hexadecimal") << "0x10" << 33;
}

void tst_AbstractController::textSetsTheValueIfItIsANumber()
{
    QFETCH(QString, text);
    PlainControl control;
    control.setValue(33);
    control.signalled.clear();
    QCOMPARE(control.setString(text), 0);
    QCOMPARE(control.string(), text);
    QTEST(control.value(), "value");
    QCOMPARE(control.signalled, QList<int>{control.value()});
    control.setValue(60);
    QCOMPARE(control.setString(text), 0); // it is there already
    QCOMPARE(control.value(), 60);
    QCOMPARE(control.signalled.size(), 2);
}

void tst_AbstractController::bindingTwiceRegistersOnce()
{
    TestHost host;
    PlainControl control;
    bind(control, host, "fx_rackfx_prm_3");
    bind(control, host, "fx_rackfx_prm_3");
    QCOMPARE(host.observerCount(), 1);
    QCOMPARE(host.count(Operation::RegisterObserver), 1);
    QCOMPARE(control.signalled, QList<int>{0});
}

void tst_AbstractController::rebindingMovesTheRegistration()
{
    TestHost host;
    PlainControl control;
    bind(control, host, "fx_rackfx_prm_3", 1);
    bind(control, host, "fx_rackfx_prm_2", 6);
    QCOMPARE(host.observerCount(), 1);
    QVERIFY(host.isObserving(&control, "fx_rackfx_prm_2", 6));
    QCOMPARE(control.value(), 600);
    QCOMPARE(control.signalled, (QList<int>{0, 600}));

    host.resetLedger();
    control.setMemAPIValue(host.memory(), host.id("fx_rackfx_prm_2"), 6, 3);
    QCOMPARE(host.count(Operation::RegisterObserver), 1);
    QCOMPARE(host.calls(Operation::GetValue).back().element, 3);
}

void tst_AbstractController::notificationsRefresh()
{
    TestHost host;
    PlainControl control;
    bind(control, host, "fx_rackfx_prm_2");
    control.signalled.clear();
    control.trace.clear();
    host.set("fx_rackfx_prm_2", 0, 700);
    QCOMPARE(control.signalled, QList<int>{700});
    host.notifyProperty("fx_rackfx_prm_2", 0);
    QCOMPARE(control.signalled, (QList<int>{700, 700}));
    QCOMPARE(control.trace, QByteArray("crcr"));
    QCOMPARE(control.Update(9, 9, 9, nullptr), 0);
    QCOMPARE(control.signalled.size(), 3);
}

void tst_AbstractController::boundReadsAskTheHost()
{
    TestHost host;
    host.addParameter(Parameter, -20, 60, 10);
    host.setFormatter([](const QByteArray&, unsigned short ch, int value) {
        return QByteArray::number(value) + " at " + QByteArray::number(ch);
    });
    PlainControl control;
    bind(control, host, Parameter, 2);
    host.setSilently(Parameter, 2, 40);
    QCOMPARE(control.value(), 40);
    QCOMPARE(control.minimumValue(), -20);
    QCOMPARE(control.maximumValue(), 60);
    QCOMPARE(control.defaultValue(), 10);
    QCOMPARE(control.normalized(), 0.75f);
    QCOMPARE(control.defaultNormalized(), 0.375f);
    QCOMPARE(control.string(), QStringLiteral("40 at 2"));
    QCOMPARE(host.calls(Operation::ValueToString).back().trailing1, 256);
}

void tst_AbstractController::boundWritesGoToTheHostOnly()
{
    TestHost host;
    host.setNotifying(false);
    PlainControl control;
    bind(control, host, "fx_rackfx_prm_2");
    control.signalled.clear();
    control.setValue(5000);
    QCOMPARE(host.value("fx_rackfx_prm_2", 0), host.range("fx_rackfx_prm_2").second);
    control.setValue(5);
    control.setDefaultValue(7);
    control.setDefaultNormalized(1.0f);
    QCOMPARE(host.value("fx_rackfx_prm_2", 0), 5);
    QVERIFY(control.signalled.isEmpty());
    const TestHost::Call write = host.calls(Operation::SetValue).back();
    QCOMPARE(write.trailing1, 0);
    QCOMPARE(write.trailing2, 1);
    unbind(control);
    QCOMPARE(control.value(), 0);
    QCOMPARE(control.defaultValue(), 0);
}

void tst_AbstractController::boundTextIsParsedByTheHost()
{
    TestHost host;
    PlainControl control;
    bind(control, host, "fx_rackfx_prm_3");
    QCOMPARE(control.setString(QStringLiteral("44")), 0);
    QCOMPARE(host.value("fx_rackfx_prm_3", 0), 44);
    QVERIFY(control.setString(QStringLiteral("loud")) < 0);
    QCOMPARE(host.value("fx_rackfx_prm_3", 0), 44);
    host.failAll(Operation::SetValue);
    QVERIFY(control.setString(QStringLiteral("45")) < 0);
    host.clearErrors();
    unbind(control);
    QCOMPARE(control.string(), QString());
}

void tst_AbstractController::textOf256BytesIsCutSafely()
{
    TestHost host;
    host.setTerminating(false);
    host.setFormatter([](const QByteArray&, unsigned short, int) { return QByteArray(300, 'x'); });
    PlainControl control;
    bind(control, host, "fx_rackfx_prm_3");
    QCOMPARE(control.string(), QString(256, QLatin1Char('x')));
}

void tst_AbstractController::failingHostShowsZeroAndNoText()
{
    TestHost host;
    host.setSilently("fx_rackfx_prm_2", 0, 50);
    PlainControl control;
    bind(control, host, "fx_rackfx_prm_2");
    for (const Operation operation : {Operation::GetValue, Operation::GetRange,
                                      Operation::GetDefault, Operation::ValueToString})
        host.failAll(operation);
    QCOMPARE(control.value(), 0);
    QCOMPARE(control.minimumValue(), 0);
    QCOMPARE(control.maximumValue(), 0);
    QCOMPARE(control.defaultValue(), 0);
    QCOMPARE(control.string(), QString());
    host.clearErrors();
    host.failAll(Operation::ValueToString);
    QCOMPARE(control.string(), QString());
}

void tst_AbstractController::oneValueRangeDoesNotCrash()
{
    TestHost host;
    host.addParameter(Parameter, 4, 4, 4);
    PlainControl control;
    control.setMinimumValue(100);
    QVERIFY(!std::isfinite(control.normalized()));
    QVERIFY(!std::isfinite(control.defaultNormalized()));
    control.editToDefault();
    QCOMPARE(control.value(), 100);
    bind(control, host);
    control.editToDefault();
    control.setNormalized(control.normalized());
    QCOMPARE(host.value(Parameter, 0), 4);
}

void tst_AbstractController::widestRangeDoesNotOverflow()
{
    TestHost host;
    host.addParameter(Parameter, Smallest, Largest, Largest);
    PlainControl control;
    control.setMaximumValue(Largest);
    control.setMinimumValue(Smallest);
    for (const bool bound : {false, true}) {
        if (bound)
            bind(control, host);
        control.setNormalized(1.0f);
        QCOMPARE(control.value(), Largest);
        QCOMPARE(control.normalized(), 1.0f);
        control.setNormalized(0.5f);
        QCOMPARE(control.value(), 0);
        QCOMPARE(control.normalized(), 0.5f);
        control.setNormalized(0.25f);
        QCOMPARE(control.value(), Smallest / 2);
        control.setNormalized(0.0f);
        QCOMPARE(control.value(), Smallest);
        QCOMPARE(control.normalized(), 0.0f);
    }
    QCOMPARE(control.defaultNormalized(), 1.0f);
    unbind(control);
    control.setDefaultNormalized(1.0f);
    QCOMPARE(control.defaultValue(), Largest);
    control.setDefaultNormalized(0.5f);
    QCOMPARE(control.defaultValue(), 0);
}

void tst_AbstractController::upsideDownRangeTakesTheMinimum()
{
    TestHost host;
    host.addParameter(Parameter, 10, -10, 0);
    PlainControl control;
    bind(control, host);
    control.setValue(0);
    QCOMPARE(host.value(Parameter, 0), 10);
    control.setNormalized(0.5f);
    QCOMPARE(host.value(Parameter, 0), 10);
}

void tst_AbstractController::scaleIsNeverBelowHalf_data()
{
    addColumns<double, double, int>("scale", "stored", "changes");
    QTest::newRow("same") << 1.0 << 1.0 << 0;
    QTest::newRow("larger") << 2.25 << 2.25 << 1;
    QTest::newRow("half") << 0.5 << 0.5 << 1;
    QTest::newRow("below") << 0.3 << 0.5 << 1;
    QTest::newRow("negative") << -4.0 << 0.5 << 1;
    QTest::newRow("no number") << std::nan("") << 0.5 << 1;
    QTest::newRow("infinite, ignored") << HUGE_VAL << 1.0 << 0;
}

void tst_AbstractController::scaleIsNeverBelowHalf()
{
    QFETCH(double, scale);
    PlainControl control;
    control.setScale(scale);
    QTEST(control.scale(), "stored");
    QTEST(control.scaleChanges, "changes");
}

void tst_AbstractController::editsComeInPairs()
{
    PlainControl control;
    control.editValue(5);
    QCOMPARE(control.trace, QByteArray("bcre"));
    control.trace.clear();
    control.editNormalized(0.5f);
    QCOMPARE(control.trace, QByteArray("bcre"));
    control.trace.clear();
    QCOMPARE(control.editString(QStringLiteral("9")), 0);
    QCOMPARE(control.trace, QByteArray("bcre"));
    control.trace.clear();
    control.editToDefault();
    QCOMPARE(control.trace, QByteArray("bcre"));
    control.closeEdit();
    QCOMPARE(control.trace, QByteArray("bcre"));
}

void tst_AbstractController::rebindingEndsOpenEditsFirst()
{
    TestHost host;
    PlainControl control;
    bind(control, host, "fx_rackfx_prm_3");
    control.trace.clear();
    control.openEdit();
    control.openEdit();
    bind(control, host, "fx_rackfx_prm_3");
    QCOMPARE(control.trace, QByteArray("bb"));
    bind(control, host, "fx_rackfx_prm_2");
    QCOMPARE(control.trace, QByteArray("bbeecr"));
    control.openEdit();
    unbind(control);
    QCOMPARE(control.trace, QByteArray("bbeecrbecr"));
    QVERIFY(!control.isEditing());
}

void tst_AbstractController::rebindingFromWithinAnEditEndsItOnce()
{
    TestHost host;
    PlainControl control;
    bind(control, host, "fx_rackfx_prm_3");
    control.onRefresh = [&control] {
        control.onRefresh = nullptr;
        unbind(control);
    };
    control.trace.clear();
    control.editValue(50);
    QCOMPARE(control.trace.count('b'), 1);
    QCOMPARE(control.trace.count('e'), 1);
    QCOMPARE(host.observerCount(), 0);
}

ZOLTA_TEST_MAIN(tst_AbstractController)

#include "tst_AbstractController.moc"
