// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/controls/ControlTesting.h"
#include "tests/editor/EditorFixture.h"
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
    void anEmptyModel();
    void noModel();
    void channelsTheModelDoesNotHave_data();
    void channelsTheModelDoesNotHave();
    void rangesOfOneValue();
    void garbledTexts();
    void aThousandEditorsComeAndGo();
};

namespace {

using Operation = TestHost::Operation;

/// A short life of an editor that uses everything that calls the host.
void session(TestHost& host)
{
    auto editor = std::make_unique<ZoltaEditor>();
    editor->setModelInfo(host.model());
    editor->initialize();
    editor->setMemAPI(host.memory());
    editor->setCh(2, 3);
    const auto find = [&](const char* name) {
        return editor->findChild<QWidget*>(QLatin1String(name));
    };
    QTest::mousePress(find("m_pFlatButton"), Qt::LeftButton);
    fire(editor.get(), timersOf(editor.get()).first().timerId);
    QTest::mouseRelease(find("m_pFlatButton"), Qt::LeftButton);
    ControlTesting::wheel(*find("m_pDriveCleanSwitch"), QPoint(0, 120));
    ControlTesting::press(*find("m_pMiddle1GainKnob"), QPointF(30, 10));
    ControlTesting::moveTo(*find("m_pMiddle1GainKnob"), QPointF(50, 30));
    ControlTesting::release(*find("m_pMiddle1GainKnob"), QPointF(50, 30));
    ControlTesting::doubleClick(*find("m_pLowFrequencyKnob"), QPointF(30, 30));
    host.set("fx_rackfx_prm_1", 2, 1);
    host.setMeterDb("meter_oxa_rtn", 2, -100);
    host.pushMetersDb();
    editor->setMemAPI(nullptr);
    editor->setMemAPI(host.memory());
    host.pushMetersDb();
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

void tst_ZoltaEditorErrors::anyCallMayFailOnce()
{
    TestHost flawless;
    session(flawless);
    QVERIFY(flawless.callCount() > 500);
    for (int n = 1; n <= flawless.callCount(); ++n) {
        TestHost host;
        host.failAnyCall(n);
        session(host);
        // What the host itself refused to take back stays behind; nothing else may.
        QVERIFY(host.observerCount() <= failed(host, Operation::UnregisterObserver));
        QVERIFY(host.meterObserverCount() <= failed(host, Operation::RemoveMeterObserver));
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
    TestHost host;
    host.failAll(Operation(operation));
    session(host);
    QVERIFY(host.observerCount() <= failed(host, Operation::UnregisterObserver));
    QVERIFY(host.meterObserverCount() <= failed(host, Operation::RemoveMeterObserver));
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

void tst_ZoltaEditorErrors::anEmptyModel()
{
    EditorFixture fixture;
    for (const ParameterControls& parameter : AllParameters)
        fixture.host.removeParameter(TestHost::name(parameter.number));
    fixture.bind();
    for (const ParameterControls& parameter : AllParameters)
        QVERIFY(fixture.area(parameter)->isHidden());
    QTest::mousePress(fixture.widget("FlatButton"), Qt::LeftButton);
    fire(fixture.editor.get(), timersOf(fixture.editor.get()).first().timerId);
    QCOMPARE(fixture.host.observerCount(), 0);
    QVERIFY(!fixture.editor->grab().isNull());
}

void tst_ZoltaEditorErrors::noModel()
{
    TestHost host;
    ZoltaEditor editor;
    editor.initialize();
    editor.setMemAPI(host.memory());
    editor.setCh(1, 2);
    host.pushMetersDb();
    QCOMPARE(host.observerCount(), 0);
    QCOMPARE(host.meterObserverCount(), 1);
    QVERIFY(editor.findChild<QWidget*>(QStringLiteral("m_pDriveCleanSwitch"))->isHidden());
}

void tst_ZoltaEditorErrors::channelsTheModelDoesNotHave_data()
{
    QTest::addColumn<int>("ch");
    QTest::addColumn<int>("ch2");
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
    fixture.bind();
    fixture.editor->setCh(ch, ch2);
    fixture.host.pushMetersDb();
    QVERIFY(!fixture.editor->grab().isNull());
    // The host knows channels by their low 16 bits.
    if ((ch & 0xFFFF) != 0) {
        QCOMPARE(fixture.host.observerCount(), 0);
        QCOMPARE(controller(fixture.widget("LowGainTextEdit"))->string(), QString());
    }
    QTest::mousePress(fixture.widget("FlatButton"), Qt::LeftButton);
    fixture.editor->setCh(0, 1);
    QVERIFY(!controller(fixture.widget("LowGainTextEdit"))->string().isEmpty());
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
    QVERIFY(controller(fixture.widget("InputTextEdit"))->string().size() <= 256);
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
