// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/controls/ControlTesting.h"
#include "tests/editor/EditorFixture.h"
#include "tests/support/DataTable.h"
#include "tests/support/TestObject.h"

#include <QApplication>

#include <malloc.h>

#include <climits>

/// Hosts that refuse, lack or garble things: the editor stays usable and leaves nothing behind.
class tst_ZoltaEditorErrors : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void anyCallMayFailOnce();
    void anOperationMayAlwaysFail_data();
    void anOperationMayAlwaysFail();
    void detachingLeavesTheMetersThoughTheQueryFails();
    void aModelOfNothing_data();
    void aModelOfNothing();
    void channelsTheModelDoesNotHave_data();
    void channelsTheModelDoesNotHave();
    void rangesOfOneValue();
    void garbledTexts();
    void aThousandEditorsComeAndGo();

private:
    /// But for what the host itself refused to take back.
    static void nothingStaysBehind(const TestHost& host);
};

namespace {

using Operation = TestHost::Operation;

/// A short life of an editor that uses everything that calls the host.
void session(EditorFixture& fixture)
{
    fixture.bind(2, 3);
    fixture.pressFlat();
    fixture.holdFlat();
    QTest::mouseRelease(fixture.widget("FlatButton"), Qt::LeftButton);
    ControlTesting::wheel(*fixture.widget("DriveCleanSwitch"), QPoint(0, 120));
    ControlTesting::press(*fixture.widget("Middle1GainKnob"), QPointF(30, 10));
    ControlTesting::moveTo(*fixture.widget("Middle1GainKnob"), QPointF(50, 30));
    ControlTesting::release(*fixture.widget("Middle1GainKnob"), QPointF(50, 30));
    ControlTesting::doubleClick(*fixture.widget("LowFrequencyKnob"), QPointF(30, 30));
    fixture.host.set("fx_rackfx_prm_1", 2, 1);
    fixture.host.setMeterDb("meter_oxa_rtn", 2, -100);
    fixture.host.pushMetersDb();
    fixture.editor->setMemAPI(nullptr);
    fixture.bind();
    fixture.host.pushMetersDb();
    fixture.editor.reset();
}

/// The \a number-th editor on a host whose meters run and whose parameters change.
void life(TestHost& host, int number)
{
    ZoltaEditor editor;
    editor.setModelInfo(host.model());
    editor.initialize();
    editor.setMemAPI(host.memory());
    const auto ch = static_cast<unsigned short>(number % 8);
    editor.setCh(ch, number % 3 - 1);
    host.setMeterDb("meter_oxa_rtn", ch, -number);
    host.pushMetersDb();
    host.set(TestHost::name(1 + number % 27), ch, number % 2);
    if (number % 2)
        editor.setMemAPI(nullptr);
}

int failed(const TestHost& host, Operation operation)
{
    const auto calls = host.calls(operation);
    return int(std::count_if(calls.begin(), calls.end(),
                             [](const TestHost::Call& call) { return call.failed; }));
}

} // namespace

void tst_ZoltaEditorErrors::nothingStaysBehind(const TestHost& host)
{
    QVERIFY(host.observerCount() <= failed(host, Operation::UnregisterObserver));
    QVERIFY(host.meterObserverCount() <= failed(host, Operation::RemoveMeterObserver));
}

void tst_ZoltaEditorErrors::anyCallMayFailOnce()
{
    EditorFixture flawless;
    session(flawless);
    QVERIFY(flawless.host.callCount() > 500);
    for (int n = 1; n <= flawless.host.callCount(); ++n) {
        EditorFixture fixture;
        fixture.host.failAnyCall(n);
        session(fixture);
        nothingStaysBehind(fixture.host);
    }
}

void tst_ZoltaEditorErrors::anOperationMayAlwaysFail_data()
{
    QTest::addColumn<int>("operation");
    for (int operation = 0; operation < int(Operation::Reserved); ++operation)
        QTest::newRow(qPrintable(QString::number(operation))) << operation;
}

void tst_ZoltaEditorErrors::anOperationMayAlwaysFail()
{
    QFETCH(int, operation);
    EditorFixture fixture;
    fixture.host.failAll(Operation(operation));
    session(fixture);
    nothingStaysBehind(fixture.host);
}

void tst_ZoltaEditorErrors::detachingLeavesTheMetersThoughTheQueryFails()
{
    EditorFixture fixture;
    fixture.bind();
    fixture.host.failAll(Operation::QueryMeterNotifier);
    fixture.editor->setMemAPI(nullptr);
    QCOMPARE(fixture.host.meterObserverCount(), 0);
    fixture.bind();
    QCOMPARE(fixture.host.meterObserverCount(), 0);
    fixture.host.clearErrors();
    fixture.editor->setMemAPI(nullptr);
    fixture.bind();
    QCOMPARE(fixture.host.meterObserverCount(), 1);
    fixture.host.failAll(Operation::QueryMeterNotifier);
    fixture.editor.reset();
    QCOMPARE(fixture.host.meterObserverCount(), 0);
}

void tst_ZoltaEditorErrors::aModelOfNothing_data()
{
    QTest::addColumn<bool>("isMissing");
    QTest::newRow("empty") << false;
    QTest::newRow("missing") << true;
}

void tst_ZoltaEditorErrors::aModelOfNothing()
{
    QFETCH(bool, isMissing);
    EditorFixture fixture;
    for (const ParameterControls& parameter : AllParameters)
        fixture.host.removeParameter(TestHost::name(parameter.number));
    if (isMissing)
        fixture.editor->setModelInfo(nullptr);
    fixture.bind(1, 2);
    for (const ParameterControls& parameter : AllParameters)
        QVERIFY(fixture.area(parameter)->isHidden());
    fixture.pressFlat();
    fixture.holdFlat();
    fixture.host.pushMetersDb();
    QCOMPARE(fixture.host.observerCount(), 0);
    QCOMPARE(fixture.host.meterObserverCount(), 1);
    QVERIFY(!fixture.editor->grab().isNull());
}

void tst_ZoltaEditorErrors::channelsTheModelDoesNotHave_data()
{
    addColumns<int, int>("ch", "ch2");
    for (const int ch : {8, 1000, 32767, 32768, 65535, 65536, INT_MAX, -1, INT_MIN}) {
        QTest::addRow("%d alone", ch) << ch << -1;
        QTest::addRow("%d twice", ch) << ch << ch;
    }
}

void tst_ZoltaEditorErrors::channelsTheModelDoesNotHave()
{
    QFETCH(int, ch);
    QFETCH(int, ch2);
    EditorFixture fixture;
    fixture.bind(ch, ch2);
    fixture.host.pushMetersDb();
    QVERIFY(!fixture.editor->grab().isNull());
    // The host knows channels by their low 16 bits.
    if ((ch & 0xFFFF) != 0) {
        QCOMPARE(fixture.host.observerCount(), 0);
        QCOMPARE(fixture.control("LowGainTextEdit")->string(), QString());
    }
    fixture.pressFlat();
    fixture.editor->setCh(0, 1);
    QVERIFY(!fixture.control("LowGainTextEdit")->string().isEmpty());
}

void tst_ZoltaEditorErrors::rangesOfOneValue()
{
    EditorFixture fixture;
    for (const ParameterControls& parameter : AllParameters)
        fixture.host.setRange(TestHost::name(parameter.number), 1, 1);
    fixture.bind();
    QVERIFY(!fixture.editor->grab().isNull());
    for (const ParameterControls& parameter : AllParameters) {
        for (QWidget* control : fixture.controls(parameter)) {
            ControlTesting::press(*control, QPointF(20, 5));
            ControlTesting::moveTo(*control, QPointF(25, 15));
            ControlTesting::release(*control, QPointF(25, 15));
            ControlTesting::wheel(*control, QPoint(0, -120));
        }
    }
    for (const TestHost::Write& write : fixture.host.writes())
        QCOMPARE(write.value, 1);
    QVERIFY(!fixture.editor->grab().isNull());
}

void tst_ZoltaEditorErrors::garbledTexts()
{
    EditorFixture fixture;
    fixture.host.setTerminating(false);
    fixture.host.setFormatter(
        [](const QByteArray&, unsigned short, int) { return QByteArray(1000, '\xFE'); });
    fixture.bind();
    QVERIFY(!fixture.editor->grab().isNull());
    QVERIFY(fixture.control("InputTextEdit")->string().size() <= 256);
}

void tst_ZoltaEditorErrors::aThousandEditorsComeAndGo()
{
    constexpr int Lives = 1000;
    constexpr int Habituation = 500; // of the caches of fonts and pictures
    TestHost host;
    std::size_t used = 0;
    for (int number = 0; number < Lives; ++number) {
        if (number == Habituation)
            used = mallinfo2().uordblks;
        life(host, number);
        host.resetLedger();
    }
    QCOMPARE(host.observerCount(), 0);
    QCOMPARE(host.meterObserverCount(), 0);
    // Less than the smallest object a life.
    const std::size_t now = mallinfo2().uordblks;
    QVERIFY2(now < used + 100 * (Lives - Habituation), qPrintable(QString::number(now - used)));
}

ZOLTA_TEST_MAIN(tst_ZoltaEditorErrors)
#include "tst_ZoltaEditorErrors.moc"
