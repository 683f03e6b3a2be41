// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/controls/ControlTesting.h"
#include "tests/editor/EditorFixture.h"
#include "tests/support/DataTable.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QScreen>
#include <QSignalSpy>

#include <functional>

class tst_ZoltaEditor : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void slotsInOrder();
    void basesInOrder();
    void asConstructed();
    void everyParameterReachesItsControls_data();
    void everyParameterReachesItsControls();
    void parametersAreBoundInOrder();
    void missingParametersHideTheirArea_data();
    void missingParametersHideTheirArea();
    void missingParametersKeepTheirBinding();
    void replacedMemoryIsLeftEvenByHiddenRows();
    void modelWithoutDriveLeavesTheLampsAlone();
    void detachingUnbindsEverything();
    void theSameMemoryChangesNothing();
    void naming4AsSecondOf3And3DoesNotRebind();
    void channelsMakeStereoOrMono_data();
    void channelsMakeStereoOrMono();
    void lampsFollowTheSwitch();
    void typeDecidesWhetherThereIsAGain_data();
    void typeDecidesWhetherThereIsAGain();
    void pressingFlatResetsGainsAndTypesOfBandsThatAreOn_data();
    void pressingFlatResetsGainsAndTypesOfBandsThatAreOn();
    void holdingFlatResetsEverythingButDrive();
    void releasingFlatInTimeLeavesTheRest();
    void pressingFlatAgainRestartsTheTimer();
    void flatWithoutMemoryOnlyRunsItsTimer();
    void flatSkipsWhatTheHostRefuses();
    void doubleClickOpensTheTextEntry_data();
    void doubleClickOpensTheTextEntry();
    void doubleClickWithControlDoesNot();
    void wheelOnTheSwitch_data();
    void wheelOnTheSwitch();
    void wheelElsewhereIsTheControls();
    void zoomButtonsZoomTheGraph();
    void settingsHoldTheZoom_data();
    void settingsHoldTheZoom();
    void sampleRateReachesTheGraph();
    void theScreenShowsWhatIsRendered_data();
    void theScreenShowsWhatIsRendered();
    void theBackgroundIsNotFilledBeneathItsPicture();
};

namespace {

using Operation = TestHost::Operation;

QStringList slotNames()
{
    QStringList names = {QStringLiteral("cleanDriveChange(bool)"),
                         QStringLiteral("lowTypeChange(int)"),
                         QStringLiteral("highTypeChange(int)"), QStringLiteral("beginFlat()"),
                         QStringLiteral("endFlat()")};
    const auto add = [&names](const char* band, std::initializer_list<const char*> fields) {
        for (const char* field : fields)
            names.append(QLatin1String(band) + QLatin1String(field) + QLatin1String("Drag(bool)"));
    };
    const auto outer = {"TypeKnob", "FrequencyKnob", "FrequencyText", "GainKnob", "GainText"};
    const auto inner = {"QualityKnob",   "QualityText", "FrequencyKnob",
                        "FrequencyText", "GainKnob",    "GainText"};
    add("low", outer);
    for (const char* band : {"middle1", "middle2", "middle3", "middle4"})
        add(band, inner);
    add("high", outer);
    return names;
}

/// Which of the lamps are lit: drive, clean, or something in between.
QByteArray lamps(const EditorFixture& fixture)
{
    return fixture.shown({"DriveOffLed", "DriveOnLed", "CleanOffLed", "CleanOnLed"});
}

const QByteArray DriveLamps = "0110";
const QByteArray CleanLamps = "1001";

/// Whether the gain of "Low" or "High" can be set, as its three widgets say.
QByteArray gain(const EditorFixture& fixture, const QByteArray& band)
{
    return fixture.shown({band + "GainKnob", band + "GainKnobDisable", band + "GainTextEdit"});
}

const QByteArray WithGain = "101";
const QByteArray WithoutGain = "010";

QByteArray meterPlaces(const EditorFixture& fixture)
{
    return fixture.shown({"LedStereoMeterArea", "InputStereoMeterBackground",
                          "OutputStereoMeterBackground", "LedMonoMeterArea",
                          "InputMonoMeterBackground", "OutputMonoMeterBackground"});
}

const QByteArray StereoMeters = "111000";
const QByteArray MonoMeters = "000111";
const QByteArray NoMeters = "000000";

/// Gives every parameter of channel 4 a value other than its default, and binds it.
void unflatten(EditorFixture& fixture)
{
    for (const ParameterControls& parameter : AllParameters) {
        const QByteArray name = TestHost::name(parameter.number);
        const bool isSwitch = parameter.kind == ParameterControls::Button;
        fixture.host.setDefault(name, isSwitch ? 0 : 7 + parameter.number % 3);
        fixture.host.set(name, 4, isSwitch ? 1 : 50);
    }
    fixture.bind(4, 5);
    fixture.host.resetLedger();
}

bool show(QWidget& window)
{
    window.show();
    return QTest::qWaitForWindowActive(&window);
}

} // namespace

void tst_ZoltaEditor::slotsInOrder()
{
    const QMetaObject& type = ZoltaEditor::staticMetaObject;
    QStringList names;
    for (int i = type.methodOffset(); i < type.methodCount(); ++i) {
        QCOMPARE(type.method(i).methodType(), QMetaMethod::Slot);
        names.append(QString::fromLatin1(type.method(i).methodSignature()));
    }
    QCOMPARE(names.size(), 39);
    QCOMPARE(names, slotNames());
}

void tst_ZoltaEditor::basesInOrder()
{
    const EditorFixture fixture;
    ZoltaEditor* editor = fixture.editor.get();
    const auto address = [](const auto* base) { return reinterpret_cast<const char*>(base); };
    IPrmObserver* parameters = editor;
    QCOMPARE(address(static_cast<EffectEditor*>(editor)), address(editor));
    QVERIFY(address(parameters) > address(editor));
    QVERIFY(address(static_cast<IMeterObserver*>(editor)) > address(parameters));
    // It observes no parameter itself.
    QCOMPARE(parameters->Update(3000, 0, 5, "5"), 0);
    QCOMPARE(parameters->UpdateProperty(3000, 0, 1, 2, 3, true, nullptr), 0);
    QCOMPARE(fixture.host.callCount(), 0);
}

void tst_ZoltaEditor::asConstructed()
{
    const EditorFixture fixture;
    for (const ParameterControls& parameter : AllParameters) {
        QVERIFY(!fixture.area(parameter)->isHidden());
        for (QWidget* control : fixture.controls(parameter))
            QVERIFY(!controller(control)->isBound());
    }
    QVERIFY(!fixture.isShown("EqualizerSpectrumButton"));
    QCOMPARE(lamps(fixture), DriveLamps);
    QCOMPARE(gain(fixture, "Low"), WithGain);
    QCOMPARE(gain(fixture, "High"), WithGain);
    QCOMPARE(meterPlaces(fixture), StereoMeters);
}

void tst_ZoltaEditor::everyParameterReachesItsControls_data()
{
    QTest::addColumn<ParameterControls>("parameter");
    for (const ParameterControls& parameter : AllParameters)
        QTest::newRow(parameter.stem) << parameter;
}

void tst_ZoltaEditor::everyParameterReachesItsControls()
{
    QFETCH(ParameterControls, parameter);
    const QByteArray name = TestHost::name(parameter.number);
    EditorFixture fixture;
    fixture.bind(6, 7);
    QVERIFY(!fixture.area(parameter)->isHidden());

    const auto controls = fixture.controls(parameter);
    // The graph watches the parameters of the bands.
    QCOMPARE(fixture.host.observerCount(name, 6),
             int(controls.size()) + (parameter.number <= 24 ? 1 : 0));
    QCOMPARE(fixture.host.observerCount(name, 0), 0);
    for (QWidget* widget : controls) {
        const AbstractController* control = controller(widget);
        QCOMPARE(control->memAPI(), fixture.host.memory());
        QCOMPARE(control->parameter(), fixture.host.id(name));
        QCOMPARE(control->ch(), static_cast<unsigned short>(6));
        QCOMPARE(control->index(), static_cast<unsigned short>(0));
        fixture.host.set(name, 6, 1);
        QCOMPARE(control->value(), 1);
    }
}

void tst_ZoltaEditor::parametersAreBoundInOrder()
{
    EditorFixture fixture;
    fixture.bind();
    QList<int> order;
    for (const TestHost::Call& call : fixture.host.calls(Operation::RegisterObserver)) {
        if (call.observer != static_cast<const IPrmObserver*>(fixture.graph()))
            order.append((call.parameter - 3000) / 13);
    }
    order.erase(std::unique(order.begin(), order.end()), order.end());
    QCOMPARE(order, QList<int>({27, 25, 26, 1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11,
                                12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24}));
}

void tst_ZoltaEditor::missingParametersHideTheirArea_data()
{
    everyParameterReachesItsControls_data();
}

void tst_ZoltaEditor::missingParametersHideTheirArea()
{
    QFETCH(ParameterControls, parameter);
    EditorFixture fixture;
    fixture.host.removeParameter(TestHost::name(parameter.number));
    fixture.bind();
    for (const ParameterControls& each : AllParameters)
        QCOMPARE(fixture.area(each)->isHidden(), each.number == parameter.number);
    for (QWidget* control : fixture.controls(parameter))
        QVERIFY(!controller(control)->isBound());
}

void tst_ZoltaEditor::missingParametersKeepTheirBinding()
{
    EditorFixture fixture;
    TestHost lesser;
    lesser.removeParameter("fx_rackfx_prm_10");
    const auto channelOf = [&](const char* name) { return int(fixture.control(name)->ch()); };
    fixture.bind();
    fixture.editor->setModelInfo(lesser.model());
    fixture.editor->setCh(2, 3);
    QVERIFY(!fixture.isShown("Middle2FrequencyArea"));
    for (const char* name : {"Middle2FrequencyKnob", "Middle2FrequencyTextEdit"}) {
        QCOMPARE(fixture.control(name)->memAPI(), fixture.host.memory());
        QCOMPARE(channelOf(name), 0);
    }
    QCOMPARE(channelOf("Middle2GainKnob"), 2);

    fixture.editor->setModelInfo(fixture.host.model());
    fixture.editor->setCh(3, 4);
    QVERIFY(fixture.isShown("Middle2FrequencyArea"));
    QCOMPARE(channelOf("Middle2FrequencyKnob"), 3);
}

void tst_ZoltaEditor::replacedMemoryIsLeftEvenByHiddenRows()
{
    EditorFixture fixture;
    fixture.bind();
    TestHost lesser;
    lesser.removeParameter("fx_rackfx_prm_10");
    fixture.editor->setModelInfo(lesser.model());
    fixture.editor->setMemAPI(lesser.memory());
    QCOMPARE(fixture.host.observerCount(), 0);
    QCOMPARE(fixture.host.meterObserverCount(), 0);
    QCOMPARE(lesser.meterObserverCount(), 1);
    QVERIFY(!fixture.control("Middle2FrequencyKnob")->isBound());
    fixture.editor.reset();
}

void tst_ZoltaEditor::modelWithoutDriveLeavesTheLampsAlone()
{
    EditorFixture drive, clean;
    TestHost lesser;
    lesser.removeParameter("fx_rackfx_prm_27");
    drive.editor->setModelInfo(lesser.model());
    drive.bind();
    QVERIFY(!drive.isShown("DriveCleanSwitch"));
    QCOMPARE(lamps(drive), DriveLamps);

    clean.bind();
    clean.editor->setModelInfo(lesser.model());
    clean.editor->setCh(1, 2);
    QVERIFY(!clean.isShown("DriveCleanSwitch"));
    QCOMPARE(lamps(clean), CleanLamps);
}

void tst_ZoltaEditor::detachingUnbindsEverything()
{
    EditorFixture fixture;
    fixture.bind(2, 2);
    fixture.editor->setMemAPI(nullptr);
    QCOMPARE(fixture.host.observerCount(), 0);
    QCOMPARE(fixture.host.meterObserverCount(), 0);
    for (const ParameterControls& parameter : AllParameters) {
        QVERIFY(fixture.area(parameter)->isHidden());
        for (QWidget* control : fixture.controls(parameter))
            QVERIFY(!controller(control)->memAPI());
    }
    fixture.host.resetLedger();
    fixture.editor->grab();
    fixture.editor->setCh(4, 5);
    QCOMPARE(fixture.host.count(Operation::GetValue), 0);

    fixture.bind();
    QCOMPARE(fixture.host.meterObserverCount(), 1);
    for (const ParameterControls& parameter : AllParameters)
        QVERIFY(!fixture.area(parameter)->isHidden());
}

void tst_ZoltaEditor::theSameMemoryChangesNothing()
{
    EditorFixture fixture;
    fixture.editor->setMemAPI(nullptr);
    QVERIFY(!fixture.area(AllParameters[0])->isHidden());
    fixture.bind();
    fixture.host.resetLedger();
    fixture.bind();
    QCOMPARE(fixture.host.callCount(), 0);
    QCOMPARE(fixture.host.meterObserverCount(), 1);
}

void tst_ZoltaEditor::naming4AsSecondOf3And3DoesNotRebind()
{
    EditorFixture fixture;
    fixture.bind(3, 3);
    QCOMPARE(fixture.host.observerCount("fx_rackfx_prm_25", 3), 2);
    fixture.host.resetLedger();
    fixture.editor->setCh(3, 4);
    QCOMPARE(fixture.host.callCount(), 0);
    fixture.editor->setCh(3, 5);
    QVERIFY(fixture.host.callCount() > 0);
}

void tst_ZoltaEditor::channelsMakeStereoOrMono_data()
{
    addColumns<int, int, bool>("ch", "ch2", "stereo");

    QTest::newRow("pair") << 2 << 3 << true;
    QTest::newRow("equal") << 4 << 4 << true;
    QTest::newRow("first two") << 0 << 0 << true;
    QTest::newRow("mono") << 4 << -1 << false;
    QTest::newRow("very mono") << 4 << -32768 << false;
    QTest::newRow("no channel at all") << -1 << -1 << false;
    QTest::newRow("second is the first of all") << 4 << 0 << true;
}

void tst_ZoltaEditor::channelsMakeStereoOrMono()
{
    QFETCH(int, ch);
    QFETCH(int, ch2);
    QFETCH(bool, stereo);
    EditorFixture fixture;
    fixture.editor->setCh(ch, ch2);
    QCOMPARE(meterPlaces(fixture), NoMeters);
    fixture.bind();
    QCOMPARE(meterPlaces(fixture), stereo ? StereoMeters : MonoMeters);
    fixture.editor->setMemAPI(nullptr);
    QCOMPARE(meterPlaces(fixture), NoMeters);
}

void tst_ZoltaEditor::lampsFollowTheSwitch()
{
    EditorFixture fixture;
    fixture.host.set("fx_rackfx_prm_27", 3, 1);
    fixture.bind();
    QCOMPARE(lamps(fixture), CleanLamps);
    fixture.editor->setCh(3, 4);
    QCOMPARE(lamps(fixture), DriveLamps);
    fixture.host.set("fx_rackfx_prm_27", 3, 0);
    QCOMPARE(lamps(fixture), CleanLamps);
    // The switch is thrown as the mouse goes down.
    ControlTesting::press(*fixture.widget("DriveCleanSwitch"), QPointF(10, 10));
    QCOMPARE(fixture.host.value("fx_rackfx_prm_27", 3), 1);
    QCOMPARE(lamps(fixture), DriveLamps);
    ControlTesting::release(*fixture.widget("DriveCleanSwitch"), QPointF(10, 10));
    QCOMPARE(lamps(fixture), DriveLamps);
    fixture.editor->setCh(4, 5);
    QCOMPARE(lamps(fixture), CleanLamps);
}

void tst_ZoltaEditor::typeDecidesWhetherThereIsAGain_data()
{
    addColumns<int, bool>("type", "hasGain");
    for (const int type : {-2, -1, 0, 1, 2, 3, 4, 5, 6, 100})
        QTest::addRow("%d", type) << type << (type == 2 || type == 3);
}

// Of both bands, as the type changes and as it is when the channel changes.
void tst_ZoltaEditor::typeDecidesWhetherThereIsAGain()
{
    QFETCH(int, type);
    QFETCH(bool, hasGain);
    const QByteArray seen = hasGain ? WithGain : WithoutGain;
    for (const auto& [name, band] :
         {std::pair("fx_rackfx_prm_1", "Low"), std::pair("fx_rackfx_prm_21", "High")}) {
        EditorFixture fixture;
        fixture.bind();
        fixture.host.set(name, 0, hasGain ? 0 : 3);
        fixture.host.set(name, 5, type);
        QCOMPARE(gain(fixture, band), hasGain ? WithoutGain : WithGain);
        fixture.editor->setCh(5, 6);
        QCOMPARE(gain(fixture, band), seen);
        fixture.editor->setCh(0, 1);
        fixture.host.set(name, 0, type);
        QCOMPARE(gain(fixture, band), seen);
        QCOMPARE(gain(fixture, qstrcmp(band, "Low") == 0 ? "High" : "Low"), WithGain);
    }
}

void tst_ZoltaEditor::pressingFlatResetsGainsAndTypesOfBandsThatAreOn_data()
{
    addColumns<int, int, QList<int>>("low", "high", "types");
    QTest::newRow("both on") << 1 << 1 << QList<int>({1, 21});
    QTest::newRow("high off") << 1 << 0 << QList<int>{1};
    QTest::newRow("low off") << 0 << 1 << QList<int>{21};
    QTest::newRow("both off") << 0 << 0 << QList<int>();
    QTest::newRow("on in an odd way") << -3 << 9 << QList<int>({1, 21});
}

void tst_ZoltaEditor::pressingFlatResetsGainsAndTypesOfBandsThatAreOn()
{
    QFETCH(int, low);
    QFETCH(int, high);
    QFETCH(QList<int>, types);
    EditorFixture fixture;
    unflatten(fixture);
    fixture.host.set("fx_rackfx_prm_4", 4, low);
    fixture.host.set("fx_rackfx_prm_24", 4, high);
    QTest::mouseClick(fixture.widget("FlatButton"), Qt::LeftButton);
    QCOMPARE(numbers(fixture.host.writes()), QList<int>({3, 7, 11, 15, 19, 23}) + types);
    for (const TestHost::Call& call : fixture.host.calls(Operation::SetValue)) {
        QCOMPARE(call.ch, static_cast<unsigned short>(4));
        QCOMPARE(call.element, static_cast<unsigned short>(0));
        QCOMPARE(call.trailing1, 0);
        QCOMPARE(call.trailing2, 1);
    }
    for (const TestHost::Write& write : fixture.host.writes())
        QCOMPARE(write.value, fixture.host.defaultValue(write.name, 4));
}

void tst_ZoltaEditor::holdingFlatResetsEverythingButDrive()
{
    EditorFixture fixture;
    unflatten(fixture);
    fixture.pressFlat();
    const Timers timers = timersOf(fixture.editor.get());
    QCOMPARE(timers.size(), 1);
    QCOMPARE(timers.first().interval, 1000);
    QCOMPARE(timers.first().timerType, Qt::CoarseTimer);

    fixture.host.resetLedger();
    fixture.holdFlat();
    QVERIFY(timersOf(fixture.editor.get()).isEmpty());
    for (const ParameterControls& parameter : AllParameters) {
        const QByteArray name = TestHost::name(parameter.number);
        QCOMPARE(fixture.host.value(name, 4) == fixture.host.defaultValue(name, 4),
                 parameter.number != 27);
    }
    QTest::mouseRelease(fixture.widget("FlatButton"), Qt::LeftButton);
    QCOMPARE(numbers(fixture.host.writes()),
             QList<int>({25, 26, 4, 8,  12, 16, 20, 24, 3, 7, 11, 15, 19,
                         23, 2,  6, 10, 14, 18, 22, 1,  5, 9, 13, 17, 21}));
}

// Ticks of other timers, and of its own when it is no longer waited for, change nothing.
void tst_ZoltaEditor::releasingFlatInTimeLeavesTheRest()
{
    EditorFixture fixture;
    unflatten(fixture);
    fixture.pressFlat();
    const int timerId = timersOf(fixture.editor.get()).first().timerId;
    QTest::mouseRelease(fixture.widget("FlatButton"), Qt::LeftButton);
    QVERIFY(timersOf(fixture.editor.get()).isEmpty());
    fixture.host.resetLedger();
    for (const int each : {timerId, 0, 999})
        fire(fixture.editor.get(), each);
    QCOMPARE(fixture.host.callCount(), 0);
    QCOMPARE(fixture.host.value("fx_rackfx_prm_25", 4), 50);
    QCOMPARE(fixture.host.value("fx_rackfx_prm_26", 4), 50);
}

void tst_ZoltaEditor::pressingFlatAgainRestartsTheTimer()
{
    const EditorFixture fixture;
    QVERIFY(QMetaObject::invokeMethod(fixture.editor.get(), "beginFlat"));
    QVERIFY(QMetaObject::invokeMethod(fixture.editor.get(), "beginFlat"));
    QCOMPARE(timersOf(fixture.editor.get()).size(), 1);
    fixture.holdFlat();
    QVERIFY(timersOf(fixture.editor.get()).isEmpty());
    QVERIFY(QMetaObject::invokeMethod(fixture.editor.get(), "endFlat"));
}

void tst_ZoltaEditor::flatWithoutMemoryOnlyRunsItsTimer()
{
    EditorFixture fixture;
    fixture.pressFlat();
    fixture.holdFlat();
    QVERIFY(timersOf(fixture.editor.get()).isEmpty());
    QCOMPARE(fixture.host.callCount(), 0);

    // Memory that goes while the button is held.
    fixture.bind();
    QVERIFY(QMetaObject::invokeMethod(fixture.editor.get(), "beginFlat"));
    fixture.editor->setMemAPI(nullptr);
    fixture.host.resetLedger();
    fixture.holdFlat();
    QCOMPARE(fixture.host.callCount(), 0);
}

void tst_ZoltaEditor::flatSkipsWhatTheHostRefuses()
{
    EditorFixture fixture;
    unflatten(fixture);
    fixture.host.failCall(Operation::GetDefault, 2);
    fixture.host.failCall(Operation::FindParameter, 4);
    fixture.host.failCall(Operation::SetValue, 3);
    fixture.pressFlat();
    // 7 had no default, 15 was not found, 19 was not taken.
    QCOMPARE(numbers(fixture.host.writes()), QList<int>({3, 11, 23, 1, 21}));
    QCOMPARE(fixture.host.value("fx_rackfx_prm_19", 4), 50);
}

void tst_ZoltaEditor::doubleClickOpensTheTextEntry_data()
{
    everyParameterReachesItsControls_data();
}

// The fields that are opened by a double click on a parameter's knob: its own, if it has one.
void tst_ZoltaEditor::doubleClickOpensTheTextEntry()
{
    QFETCH(ParameterControls, parameter);
    if (parameter.kind == ParameterControls::Button)
        return;
    QStringList opened; // a field says so, too, when it goes with the editor
    EditorFixture fixture;
    fixture.bind();
    fixture.editor->setDialEditMode(2);
    QVERIFY(show(*fixture.editor));
    for (auto* text : fixture.editor->findChildren<TextEditController*>())
        connect(text, &TextEditController::textEdit, text,
                [&opened, text] { opened.append(text->objectName()); });
    const QByteArray stem = parameter.stem;
    ControlTesting::doubleClick(*fixture.widget(stem + "Knob"), QPointF(30, 30), Qt::ShiftModifier);
    const QString own = QLatin1String("m_p" + stem + "TextEdit");
    QCOMPARE(opened,
             parameter.kind == ParameterControls::KnobOnly ? QStringList() : QStringList{own});
}

// It is the knob's own reset.
void tst_ZoltaEditor::doubleClickWithControlDoesNot()
{
    EditorFixture fixture;
    fixture.host.set("fx_rackfx_prm_3", 0, 77);
    fixture.bind();
    QVERIFY(show(*fixture.editor));
    QSignalSpy edits(fixture.widget("LowGainTextEdit"), SIGNAL(textEdit(bool)));
    for (const auto more : {Qt::ShiftModifier, Qt::NoModifier})
        ControlTesting::doubleClick(*fixture.widget("LowGainKnob"), QPointF(30, 30),
                                    Qt::ControlModifier | more);
    QCOMPARE(edits.count(), 0);
    QCOMPARE(fixture.host.value("fx_rackfx_prm_3", 0), 0);
}

void tst_ZoltaEditor::wheelOnTheSwitch_data()
{
    addColumns<QPoint, bool>("angle", "inverted");
    QTest::addColumn<int>("on"); // 1 on, 0 off, -1 as it was

    QTest::newRow("notch up") << QPoint(0, 120) << false << 1;
    QTest::newRow("notch down") << QPoint(0, -120) << false << 0;
    QTest::newRow("many up") << QPoint(0, 960) << false << 1;
    QTest::newRow("less than a notch up") << QPoint(0, 119) << false << -1;
    QTest::newRow("less than a notch down") << QPoint(0, -119) << false << -1;
    QTest::newRow("sideways") << QPoint(120, 0) << false << 1;
    QTest::newRow("the larger counts, x") << QPoint(-240, 120) << false << 0;
    QTest::newRow("the larger counts, y") << QPoint(-120, 240) << false << 1;
    QTest::newRow("y when equal") << QPoint(-120, 120) << false << 1;
    QTest::newRow("inverted up") << QPoint(0, 120) << true << 0;
    QTest::newRow("inverted down") << QPoint(0, -120) << true << 1;
    QTest::newRow("inverted little") << QPoint(0, -119) << true << -1;
    QTest::newRow("nothing") << QPoint(0, 0) << false << -1;
}

void tst_ZoltaEditor::wheelOnTheSwitch()
{
    QFETCH(QPoint, angle);
    QFETCH(bool, inverted);
    QFETCH(int, on);
    EditorFixture fixture;
    fixture.bind();
    QWidget* button = fixture.widget("DriveCleanSwitch");
    for (const int before : {0, 1}) {
        fixture.host.set("fx_rackfx_prm_27", 0, before);
        fixture.host.resetLedger();
        QVERIFY(ControlTesting::wheel(*button, angle, Qt::NoModifier, inverted));
        const int after = on < 0 ? before : on;
        QCOMPARE(fixture.host.value("fx_rackfx_prm_27", 0), after);
        QCOMPARE(fixture.host.writes().size(), std::size_t(after == before ? 0 : 1));
        QCOMPARE(lamps(fixture), after ? DriveLamps : CleanLamps);
    }
}

void tst_ZoltaEditor::wheelElsewhereIsTheControls()
{
    EditorFixture fixture;
    fixture.bind();
    ControlTesting::wheel(*fixture.widget("LowGainKnob"), QPoint(0, 120));
    ControlTesting::wheel(*fixture.widget("LowButton"), QPoint(0, -120));
    QVERIFY(fixture.host.value("fx_rackfx_prm_3", 0) > 0);
    QCOMPARE(fixture.host.value("fx_rackfx_prm_4", 0), 1);
    QCOMPARE(fixture.host.value("fx_rackfx_prm_27", 0), 0);
}

void tst_ZoltaEditor::zoomButtonsZoomTheGraph()
{
    EditorFixture fixture;
    QTest::mouseClick(fixture.widget("ZoomPlusButton"), Qt::LeftButton);
    QCOMPARE(fixture.graph()->zoom(), 4);
    QTest::mouseClick(fixture.widget("ZoomMinusButton"), Qt::LeftButton);
    QTest::mouseClick(fixture.widget("ZoomMinusButton"), Qt::LeftButton);
    QCOMPARE(fixture.graph()->zoom(), 2);
}

void tst_ZoltaEditor::settingsHoldTheZoom_data()
{
    addColumns<QString, QVariant, int>("key", "value", "zoom"); // 5 before
    const QString key = QStringLiteral("GraphZoom");
    QTest::newRow("other case") << "graphzoom" << QVariant(1) << 5;
    QTest::newRow("number") << key << QVariant(6) << 6;
    QTest::newRow("number as text") << key << QVariant(QStringLiteral("2")) << 2;
    QTest::newRow("null") << key << QVariant() << 5;
    QTest::newRow("null integer") << key << QVariant(QMetaType::fromType<int>()) << 5;
    QTest::newRow("word") << key << QVariant(QStringLiteral("far")) << 0;
    QTest::newRow("list") << key << QVariant(QVariantList{1, 2}) << 0;
    QTest::newRow("negative") << key << QVariant(-1) << 5;
    QTest::newRow("too large") << key << QVariant(7) << 5;
    QTest::newRow("huge") << key << QVariant(Q_INT64_C(1) << 62) << 0;
    QTest::newRow("fraction") << key << QVariant(2.4) << 2;
    QTest::newRow("bytes") << key << QVariant(QByteArray("\0\1\2", 3)) << 0;
    QTest::newRow("rectangle") << key << QVariant(QRect(1, 2, 3, 4)) << 0;
}

void tst_ZoltaEditor::settingsHoldTheZoom()
{
    using Settings = QMap<QString, QVariant>;
    QFETCH(QString, key);
    QFETCH(QVariant, value);
    QFETCH(int, zoom);
    const QString zoomKey = QStringLiteral("GraphZoom");
    const EditorFixture fixture;
    QCOMPARE(fixture.editor->getEditorSettings(), (Settings{{zoomKey, 3}}));
    fixture.editor->setEditorSettings({{zoomKey, 5}});
    fixture.editor->setEditorSettings({});
    fixture.editor->setEditorSettings({{key, value}, {QStringLiteral("Spectrum"), true}});
    QCOMPARE(fixture.editor->getEditorSettings(), (Settings{{zoomKey, zoom}}));
    QCOMPARE(fixture.graph()->zoom(), zoom);
}

void tst_ZoltaEditor::sampleRateReachesTheGraph()
{
    EditorFixture fixture;
    fixture.host.set("fx_rackfx_prm_22", 0, 1190);
    fixture.host.set("fx_rackfx_prm_23", 0, 100);
    fixture.bind();
    const auto picture = [&fixture] {
        QImage image(fixture.graph()->size(), QImage::Format_RGB32);
        image.fill(Qt::black);
        fixture.graph()->render(&image);
        return image;
    };
    fixture.editor->setFs(44100);
    const QImage low = picture();
    fixture.editor->setFs(192000);
    QVERIFY(picture() != low);
    fixture.editor->setFs(44100);
    QCOMPARE(picture(), low);
}

void tst_ZoltaEditor::theScreenShowsWhatIsRendered_data()
{
    QTest::addColumn<double>("scale");
    for (const double scale : {0.5, 1.0, 1.5, 2.0})
        QTest::addRow("%g", scale) << scale;
}

void tst_ZoltaEditor::theBackgroundIsNotFilledBeneathItsPicture()
{
    class Paints : public QObject
    {
    public:
        int count = 0;

    protected:
        bool eventFilter(QObject*, QEvent* event) override
        {
            count += event->type() == QEvent::Paint ? 1 : 0;
            return false;
        }
    } paints;
    EditorFixture fixture;
    fixture.bind(0, 1);
    fixture.editor->show();
    QVERIFY(QTest::qWaitForWindowExposed(fixture.editor.get()));
    fixture.editor->installEventFilter(&paints);

    fixture.graph()->repaint();
    fixture.editor->repaint();
    QCOMPARE(paints.count, 0);
    fixture.widget<SvgLabel>("Background")->setOpacity(0.5);
    fixture.editor->repaint();
    QCOMPARE(paints.count, 1);
}

// On the screen the graph is painted as one with the picture beneath, and only where it changed.
void tst_ZoltaEditor::theScreenShowsWhatIsRendered()
{
    QFETCH(double, scale);
    EditorFixture fixture;
    fixture.bind(0, 1);
    fixture.editor->setScale(scale);
    fixture.editor->show();
    QVERIFY(QTest::qWaitForWindowExposed(fixture.editor.get()));
    auto* ground = fixture.widget<SvgLabel>("Background");
    auto* between = new QLabel(QStringLiteral("between"), ground);
    between->setGeometry(fixture.graph()->geometry().adjusted(40, 40, -40, -40));
    const auto set = [&](int number, int value) {
        fixture.host.set(TestHost::name(number), 0, value);
    };
    const std::function<void()> changes[] = {
        [] {},
        [&] { set(7, 90); },
        [&] { set(11, -70); },
        [&] { set(12, 0); },
        [&] { fixture.graph()->setEditTarget(ZoltaEqualizerGraph::EditTargetMiddle1); },
        [&] { fixture.graph()->zoomUp(); },
        [&] { between->show(); },
        [&] { set(7, -30); },
        [&] { between->hide(); },
        [&] { ground->setOpacity(0.5); },
        [&] { set(15, 60); },
        [&] { ground->hide(); },
        [&] { ground->show(); },
        [&] { ground->setOpacity(1.0); },
        [&] { ground->setSvg(QStringLiteral(":/image/zolta/back_meter.svg")); },
        [&] { fixture.editor->setScale(1.25 * scale); },
    };
    const auto isSame = [&] {
        const QImage seen = fixture.editor->screen()->grabWindow(fixture.editor->winId()).toImage();
        QImage rendered(fixture.editor->size(), QImage::Format_RGB32);
        fixture.editor->render(&rendered);
        return seen.convertToFormat(QImage::Format_RGB32) == rendered;
    };
    for (std::size_t i = 0; i < std::size(changes); ++i) {
        changes[i]();
        QVERIFY2(QTest::qWaitFor(isSame), qPrintable(QString::number(i)));
    }
}

ZOLTA_TEST_MAIN(tst_ZoltaEditor)
#include "tst_ZoltaEditor.moc"
