// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/MeterController.h"
#include "controls/PeakMeterController.h"
#include "controls/RoundGainReductionMeterController.h"
#include "controls/RoundMeterController.h"
#include "tests/controls/MeterTesting.h"
#include "tests/support/Columns.h"
#include "tests/support/TestHost.h"
#include "tests/support/TestObject.h"

#include <QAccessible>
#include <QApplication>
#include <QMetaProperty>
#include <QPointer>
#include <QSignalSpy>

#include <cmath>
#include <limits>
#include <memory>
#include <utility>

using namespace CommonController_MemAPI;
using namespace MeterTesting;

namespace {

const QColor Over(0xfc, 0x67, 0x69);
const QColor Upper(0xf9, 0xe2, 0x43);
const QColor Lower(0x39, 0xca, 0x74);
const QColor Ground(Qt::white);

const QByteArray Parameter = TestHost::name(25);

/// A meter whose bar is 102 pixels high, two for each segment, below 6 pixels for overs.
template <typename Meter> class Probe : public Meter
{
public:
    Probe()
    {
        this->resize(10, 108);
        this->setPalette(meterPalette());
    }

    using Meter::convertNormalized;
    using Meter::scaledMeterRect;
    using Meter::scaledOverRect;
};

/// From the top, where the bar of a Probe begins that shows so many segments.
int topOf(int segments) { return 108 - 2 * segments; }

template <typename Meter> std::unique_ptr<MeterController> make()
{
    return std::make_unique<Probe<Meter>>();
}

/// Every class of meters.
struct Kind
{
    const char* name;
    std::unique_ptr<MeterController> (*make)();
};
constexpr Kind kinds[] = {{"bar", make<MeterController>},
                          {"peak", make<PeakMeterController>},
                          {"round", make<RoundMeterController>},
                          {"gain reduction", make<RoundGainReductionMeterController>}};

void addKinds()
{
    QTest::addColumn<int>("kind");
    for (int kind = 0; kind < int(std::size(kinds)); ++kind)
        QTest::newRow(kinds[kind].name) << kind;
}

/// The names of the properties that decide a meter's geometry.
QList<QByteArray> geometry(const MeterController& meter)
{
    QList<QByteArray> names;
    const QMetaObject& meta = *meter.metaObject();
    for (int i = MeterController::staticMetaObject.propertyOffset(); i < meta.propertyCount(); ++i)
        names.append(meta.property(i).name());
    return names;
}

} // namespace

class tst_MeterController : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void aNewMeterShowsNothing();
    void anyPositiveValueLightsTheOver_data();
    void anyPositiveValueLightsTheOver();
    void fractions_data();
    void fractions();
    void minus225IsEmptyTo20AndFullFrom51();
    void rectangles();
    void paintsTheLitPart_data();
    void paintsTheLitPart();
    void coloursFollowTheState();
    void peakShowsAThinSegment();
    void peakAtAPositiveValueShowsOnlyTheOver();
    void peakHeightIsScaled();
    void sharpAtEveryPixelRatio_data();
    void sharpAtEveryPixelRatio();
    void aTickRepaintsItsStripOnly();
    void peakRepaintsItsSegmentsOnly();
    void repaintsCoverEveryDifference_data();
    void repaintsCoverEveryDifference();
    void followsTheHost();
    void theScreenFollowsUnbinding_data();
    void theScreenFollowsUnbinding();
    void neverEdits();
    void clampsLevels();
    void strangeGeometry_data();
    void strangeGeometry();
    void accessibility();
};

void tst_MeterController::aNewMeterShowsNothing()
{
    Probe<MeterController> meter;
    QImage blank(10, 108, QImage::Format_ARGB32_Premultiplied);
    blank.fill(Qt::white);
    QCOMPARE(shown(meter), blank);
    Probe<PeakMeterController> peak;
    QCOMPARE(shown(peak), blank);
}

void tst_MeterController::anyPositiveValueLightsTheOver_data()
{
    addColumns<int, bool>("value", "lit");
    QTest::newRow("silence") << -1270 << false;
    QTest::newRow("just below 0") << -1 << false;
    QTest::newRow("0") << 0 << false;
    QTest::newRow("0.1 dB") << 1 << true;
    QTest::newRow("largest") << 8191 << true;
}

void tst_MeterController::anyPositiveValueLightsTheOver()
{
    QFETCH(int, value);
    QFETCH(bool, lit);
    Probe<MeterController> meter;
    meter.setValue(value);
    const QImage image = shown(meter);
    for (int y = 0; y < 3; ++y)
        QCOMPARE(image.pixelColor(5, y), lit ? Over : Ground);
    QCOMPARE(image.pixelColor(5, 3), Ground);
    QCOMPARE(image.pixelColor(5, 5), Ground);
}

void tst_MeterController::fractions_data()
{
    addColumns<int, int>("value", "segments");
    QTest::newRow("silence") << -1270 << 0;
    QTest::newRow("below the scale") << -601 << 0;
    QTest::newRow("-60.0") << -600 << 1;
    QTest::newRow("-48.0") << -480 << 5;
    QTest::newRow("-30.0") << -300 << 16;
    QTest::newRow("-22.6") << -226 << 20;
    QTest::newRow("-22.5") << -225 << 21;
    QTest::newRow("-18.0") << -180 << 24;
    QTest::newRow("-10.0") << -100 << 32;
    QTest::newRow("-5.0") << -50 << 42;
    QTest::newRow("-0.6") << -6 << 50;
    QTest::newRow("-0.5") << -5 << 51;
    QTest::newRow("0") << 0 << 51;
    QTest::newRow("over") << 8191 << 51;
}

void tst_MeterController::fractions()
{
    QFETCH(int, value);
    QFETCH(int, segments);
    Probe<MeterController> meter;
    QCOMPARE(meter.convertNormalized(value), segments / 51.0);
    meter.setMeterType(MeterController::Minus480);
    QCOMPARE(meter.convertNormalized(value), std::max(0, segments - 4) / 47.0);
    meter.setMeterType(MeterController::Minus225);
    QCOMPARE(meter.convertNormalized(value), std::max(0, segments - 20) / 31.0);
}

void tst_MeterController::minus225IsEmptyTo20AndFullFrom51()
{
    Probe<MeterController> meter;
    meter.setMeterType(MeterController::Minus225);
    meter.setValue(-226); // the last value of segment 20
    QCOMPARE(shown(meter).pixelColor(5, 107), Ground);
    meter.setValue(-225);
    QCOMPARE(shown(meter).pixelColor(5, 107), Lower);
    meter.setValue(-6);
    QCOMPARE(shown(meter).pixelColor(5, 6), Ground);
    meter.setValue(-5); // segment 51
    QCOMPARE(shown(meter).pixelColor(5, 6), Upper);
}

void tst_MeterController::rectangles()
{
    Probe<MeterController> meter;
    meter.resize(40, 300);
    meter.setMeterLeftMargin(3);
    meter.setMeterRightMargin(5);
    meter.setMeterTopMargin(7);
    meter.setMeterBottomMargin(11);
    meter.setMeterOverMargin(13);
    meter.setMeterOverHeight(17);
    QCOMPARE(meter.scaledOverRect(), QRectF(3, 7, 32, 17));
    QCOMPARE(meter.scaledMeterRect(), QRectF(3, 37, 32, 252));
    meter.setScale(1.5);
    QCOMPARE(meter.scaledOverRect(), QRectF(4.5, 10.5, 28, 25.5));
    QCOMPARE(meter.scaledMeterRect(), QRectF(4.5, 55.5, 28, 228));
    meter.setScale(0.1);
    QCOMPARE(meter.scaledOverRect(), QRectF(1.5, 3.5, 36, 8.5));
    meter.setScale(1.0);
    meter.setValue(100);
    for (const int y : {10, 50, 280}) { // over, upper and lower zone
        const QImage image = shown(meter);
        QCOMPARE(image.pixelColor(2, y), Ground);
        QVERIFY(image.pixelColor(3, y) != Ground && image.pixelColor(34, y) != Ground);
        QCOMPARE(image.pixelColor(35, y), Ground);
    }
}

void tst_MeterController::paintsTheLitPart_data() { fractions_data(); }

void tst_MeterController::paintsTheLitPart()
{
    QFETCH(int, value);
    QFETCH(int, segments);
    Probe<MeterController> meter;
    meter.setValue(value);
    const QImage image = shown(meter);
    for (int y = 6; y < 108; ++y) {
        const QColor lit = y < topOf(24) ? Upper : Lower;
        const QColor wanted = y < topOf(segments) ? Ground : lit;
        QCOMPARE(image.pixelColor(0, y), wanted);
        QCOMPARE(image.pixelColor(9, y), wanted);
    }
}

void tst_MeterController::coloursFollowTheState()
{
    QPalette palette;
    const QPalette::ColorRole roles[] = {QPalette::Light, QPalette::Mid, QPalette::Dark};
    const QPalette::ColorGroup groups[] = {QPalette::Active, QPalette::Inactive,
                                           QPalette::Disabled};
    for (int group = 0; group < 3; ++group) {
        for (int role = 0; role < 3; ++role)
            palette.setColor(groups[group], roles[role], QColor(50 * group, 80 * role, 200));
    }
    QWidget window;
    window.resize(50, 150);
    auto* meter = new Probe<MeterController>;
    meter->setParent(&window);
    meter->setPalette(palette);
    meter->setFocusPolicy(Qt::StrongFocus);
    meter->setValue(1);
    const auto compare = [&](int group) {
        const QImage image = shown(*meter);
        QCOMPARE(image.pixelColor(5, 1), QColor(50 * group, 0, 200));
        QCOMPARE(image.pixelColor(5, 10), QColor(50 * group, 80, 200));
        QCOMPARE(image.pixelColor(5, 100), QColor(50 * group, 160, 200));
    };
    window.show();
    window.activateWindow();
    window.setFocus();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    meter->clearFocus();
    compare(1);
    meter->setFocus();
    QVERIFY(meter->hasFocus());
    compare(0);
    meter->setEnabled(false);
    compare(2);
}

void tst_MeterController::peakShowsAThinSegment()
{
    Probe<PeakMeterController> meter;
    for (const auto& [value, segments] : {std::pair(-600, 1), {-300, 16}, {-50, 42}, {0, 51}}) {
        meter.setValue(value);
        const QImage image = shown(meter);
        const int top = topOf(segments);
        for (int y = 0; y < 108; ++y) {
            const QColor lit = y < topOf(24) ? Upper : Lower;
            QCOMPARE(image.pixelColor(5, y), y >= top && y < top + 2 ? lit : Ground);
        }
    }
}

void tst_MeterController::peakAtAPositiveValueShowsOnlyTheOver()
{
    Probe<PeakMeterController> meter;
    meter.setValue(1);
    const QImage image = shown(meter);
    for (int y = 0; y < 108; ++y)
        QCOMPARE(image.pixelColor(5, y), y < 3 ? Over : Ground);
}

void tst_MeterController::peakHeightIsScaled()
{
    Probe<PeakMeterController> meter;
    meter.setMeterOverHeight(0);
    meter.setMeterOverMargin(0);
    meter.resize(10, 102);
    meter.setMeterPeakHeight(3);
    meter.setScale(2.0);
    meter.setValue(-50);
    const QImage image = shown(meter);
    for (int y = 0; y < 102; ++y)
        QCOMPARE(image.pixelColor(5, y) != Ground, y >= 18 && y < 24);
}

void tst_MeterController::sharpAtEveryPixelRatio_data()
{
    QTest::addColumn<double>("ratio");
    for (const double ratio : {1.0, 1.25, 1.5, 2.0})
        QTest::addRow("%g", ratio) << ratio;
}

void tst_MeterController::sharpAtEveryPixelRatio()
{
    QFETCH(double, ratio);
    Probe<MeterController> meter;
    meter.resize(12, 108);
    for (int value = -600; value <= 0; value += 10) {
        meter.setValue(value);
        const QImage image = shown(meter, ratio);
        // Each row is lit or not, in one of the two colours.
        for (int y = static_cast<int>(7 * ratio); y < image.height(); ++y) {
            const QColor row = image.pixelColor(5, y);
            QVERIFY(row == Ground || row == Lower || row == Upper);
        }
    }
}

void tst_MeterController::aTickRepaintsItsStripOnly()
{
    Probe<MeterController> meter;
    meter.setValue(-300);
    meter.show();
    QVERIFY(QTest::qWaitForWindowExposed(&meter));
    PaintRecorder paints(meter);
    paints.take();
    meter.setValue(-285); // one segment, two pixels
    const QRegion painted = paints.take();
    QVERIFY(painted.intersects(QRect(0, topOf(17), 10, 2)));
    QCOMPARE_LE(area(painted), 10 * 4);
    meter.setValue(5);
    QCOMPARE_LE(area(paints.take()), 10 * (2 * (51 - 17) + 2 + 5));
    QSignalSpy changes(&meter, qOverload<int>(&MeterController::valueChanged));
    for (int i = 0; i < 2; ++i)
        meter.setValue(6);
    QVERIFY(paints.take().isEmpty());
    QCOMPARE(changes.count(), 1);
}

void tst_MeterController::peakRepaintsItsSegmentsOnly()
{
    Probe<PeakMeterController> meter;
    meter.setValue(-600);
    meter.show();
    QVERIFY(QTest::qWaitForWindowExposed(&meter));
    PaintRecorder paints(meter);
    paints.take();
    meter.setValue(0);
    const QRegion painted = paints.take();
    QVERIFY(!painted.isEmpty());
    QCOMPARE_LE(area(painted), 10 * 2 * 4);
}

void tst_MeterController::repaintsCoverEveryDifference_data()
{
    addColumns<int, double, int>("kind", "scale", "height");
    for (int kind = 0; kind < int(std::size(kinds)); ++kind) {
        for (const double scale : {0.5, 1.0, 1.3, 2.0}) {
            for (const int height : {25, 60, 108, 318})
                QTest::addRow("%s at %g, %d", kinds[kind].name, scale, height)
                    << kind << scale << height;
        }
    }
}

void tst_MeterController::repaintsCoverEveryDifference()
{
    QFETCH(int, kind);
    QFETCH(double, scale);
    QFETCH(int, height);
    const auto meter = kinds[kind].make();
    meter->resize(13, height);
    meter->setScale(scale);
    meter->show();
    QVERIFY(QTest::qWaitForWindowExposed(meter.get()));
    ScreenWatch screen(*meter);
    for (int i = 0; i < 200; ++i) {
        meter->setValue((i * 7919) % 700 - 650);
        screen.compare();
        QVERIFY(screen.isRepainted());
    }
}

void tst_MeterController::followsTheHost()
{
    TestHost host;
    host.setRange(Parameter, -1270, 8191);
    host.set(Parameter, 2, -300);
    Probe<MeterController> meter;
    QSignalSpy changes(&meter, qOverload<int>(&MeterController::valueChanged));
    meter.setMemAPIValue(host.memory(), host.id(Parameter), 2, 0);
    QCOMPARE(changes.count(), 1);
    QCOMPARE(changes[0][0].toInt(), -300);
    QCOMPARE(meter.value(), -300);
    QCOMPARE(shown(meter).pixelColor(5, topOf(16)), Lower);
    QCOMPARE(shown(meter).pixelColor(5, topOf(16) - 1), Ground);

    meter.show();
    QVERIFY(QTest::qWaitForWindowExposed(&meter));
    PaintRecorder paints(meter);
    paints.take();
    host.set(Parameter, 2, 0);
    QCOMPARE(paints.take(), QRegion(meter.rect()));
    QCOMPARE(changes.count(), 2);
    QCOMPARE(shown(meter).pixelColor(5, 6), Upper);
    host.notifyProperty(Parameter, 2);
    QCOMPARE(paints.take(), QRegion(meter.rect()));
    host.failAll(TestHost::Operation::GetValue); // reads as 0
    QCOMPARE(shown(meter).pixelColor(5, 6), Upper);
}

void tst_MeterController::theScreenFollowsUnbinding_data() { addKinds(); }

// What was bound must not stay on the screen, nor what lies between it and a later level.
void tst_MeterController::theScreenFollowsUnbinding()
{
    QFETCH(int, kind);
    TestHost host;
    host.setRange(Parameter, -1270, 8191);
    host.set(Parameter, 0, 300);
    const auto meter = kinds[kind].make();
    meter->setValue(-500);
    meter->show();
    QVERIFY(QTest::qWaitForWindowExposed(meter.get()));
    meter->setMemAPIValue(host.memory(), host.id(Parameter), 0, 0);
    host.set(Parameter, 0, -200);
    ScreenWatch screen(*meter);
    meter->setMemAPIValue(nullptr, 0, 0, 0);
    screen.compare();
    QVERIFY(screen.isRepainted() && screen.isChanged());
    for (const int value : {-100, 300, -700}) {
        meter->setValue(value);
        screen.compare();
        QVERIFY(screen.isRepainted() && screen.isChanged());
    }
}

void tst_MeterController::neverEdits()
{
    TestHost host;
    Probe<MeterController> meter;
    meter.setMemAPIValue(host.memory(), host.id(Parameter), 0, 0);
    host.resetLedger();
    QTest::mouseClick(&meter, Qt::LeftButton);
    QTest::mouseDClick(&meter, Qt::LeftButton);
    QTest::keyClick(&meter, Qt::Key_Up);
    QTest::keyClick(&meter, Qt::Key_Home);
    QCOMPARE(host.count(TestHost::Operation::SetValue), 0);
}

void tst_MeterController::clampsLevels()
{
    Probe<MeterController> meter;
    meter.setValue(std::numeric_limits<int>::min());
    QCOMPARE(meter.value(), -1270);
    meter.setValue(std::numeric_limits<int>::max());
    QCOMPARE(meter.value(), 8191);
    meter.setMinimumValue(std::numeric_limits<int>::min());
    meter.setMaximumValue(std::numeric_limits<int>::max());
    for (const int value :
         {std::numeric_limits<int>::min(), -70000, 70000, std::numeric_limits<int>::max()}) {
        meter.setValue(value);
        QCOMPARE(meter.value(), value);
        const double fraction = meter.convertNormalized(value);
        QVERIFY(fraction >= 0.0 && fraction <= 1.0);
        shown(meter);
    }
}

void tst_MeterController::strangeGeometry_data() { addKinds(); }

void tst_MeterController::strangeGeometry()
{
    QFETCH(int, kind);
    const auto meter = kinds[kind].make();
    const int extremes[] = {std::numeric_limits<int>::min(), -50, 0, 5000,
                            std::numeric_limits<int>::max()};
    for (const QByteArray& name : geometry(*meter)) {
        const QVariant before = meter->property(name);
        for (const int extreme : extremes) {
            meter->setProperty(name, extreme);
            for (const int value : {-300, 10, -50}) {
                meter->setValue(value);
                shown(*meter);
            }
        }
        meter->setProperty(name, before);
    }
}

void tst_MeterController::accessibility()
{
    QAccessible::setActive(true);
    Probe<MeterController> meter;
    meter.setValue(-123);
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&meter);
    QVERIFY(interface);
    QVERIFY(interface->state().readOnly);
    QCOMPARE(interface->text(QAccessible::Value), QStringLiteral("-12.3 dB"));
    QAccessibleValueInterface* value = interface->valueInterface();
    value->setCurrentValue(-50);
    QCOMPARE(meter.value(), -123);
    QAccessibleActionInterface* actions = interface->actionInterface();
    QVERIFY(!actions ||
            !actions->actionNames().contains(QAccessibleActionInterface::increaseAction()));
    if (actions)
        actions->doAction(QAccessibleActionInterface::increaseAction());
    QCOMPARE(meter.value(), -123);
}

ZOLTA_TEST_MAIN(tst_MeterController)

#include "tst_MeterController.moc"
