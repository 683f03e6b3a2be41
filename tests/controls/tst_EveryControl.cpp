// SPDX-License-Identifier: GPL-3.0-or-later
// What all controls do alike: their properties, their host, and assistive technology.
#include "controls/ButtonGroupController.h"
#include "controls/FaderController.h"
#include "controls/KnobController.h"
#include "controls/PeakMeterController.h"
#include "controls/PullDownButtonController.h"
#include "controls/RoundGainReductionMeterController.h"
#include "controls/RoundMeterController.h"
#include "controls/TextEditController.h"
#include "tests/controls/ControlTesting.h"
#include "tests/controls/MeterTesting.h"
#include "tests/support/Columns.h"
#include "tests/support/ImageDifference.h"
#include "tests/support/TestObject.h"
#include "tests/widgets/SvgFiles.h"

#include <QApplication>
#include <QMetaProperty>
#include <QSignalSpy>

#include <cmath>

using namespace CommonController_MemAPI;
using namespace ControlTesting;
using MeterTesting::PaintRecorder;

namespace {

struct Kind
{
    const char* name;
    QWidget* (*make)(Ledger& ledger, QWidget* parent);
    QAccessible::Role role;
    bool readsOnceForAPaint;
    /// Of its own properties, those that it does not show.
    QByteArrayList notShown;
};

template <class Control> QWidget* make(Ledger& ledger, QWidget* parent)
{
    return new Ledgered<Control>(ledger, parent);
}

const QList<Kind> kinds = {
    {"knob", make<KnobController>, QAccessible::Dial, true, {"operationType", "valueChangeStep"}},
    {"fader",
     make<FaderController>,
     QAccessible::Slider,
     true,
     {"enableDoubleClick", "operationType"}},
    {"text", make<TextEditController>, QAccessible::SpinBox, true, {"expandUnit", "textMaxLength"}},
    {"button", make<PushButtonController>, QAccessible::Button, false, {"checkTrigger"}},
    {"pull-down",
     make<PullDownButtonController>,
     QAccessible::ComboBox,
     false,
     {"autoPullDown", "indexWidth", "indexMargin", "indexOrigin"}},
    {"group", make<ButtonGroupController>, QAccessible::Grouping, false, {"enableDefaultSet"}},
    {"meter", make<MeterController>, QAccessible::ProgressBar, true, {}},
    {"peak meter", make<PeakMeterController>, QAccessible::ProgressBar, true, {}},
    {"round meter", make<RoundMeterController>, QAccessible::ProgressBar, true, {}},
    {"gain reduction",
     make<RoundGainReductionMeterController>,
     QAccessible::ProgressBar,
     true,
     {}}};

struct Fixture
{
    explicit Fixture(const Kind& kind)
        : widget(kind.make(ledger, &window))
        , control(dynamic_cast<AbstractController&>(*widget))
    {
        host.addParameter(Parameter, 0, 100, 30);
        window.resize(60, 60);
        widget->resize(40, 50);
    }
    void show()
    {
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
    }
    int value() const { return host.value(Parameter, 0); }

    TestHost host;
    Ledger ledger;
    QWidget window;
    QWidget* widget;
    AbstractController& control;
};

/// The properties of the class itself, pictures first.
QList<QMetaProperty> ownProperties(const QObject& object)
{
    QList<QMetaProperty> properties;
    const QMetaObject& type = *object.metaObject();
    for (int i = type.propertyOffset(); i < type.propertyCount(); ++i)
        properties << type.property(i);
    std::stable_partition(properties.begin(), properties.end(), [](const QMetaProperty& each) {
        return QByteArray(each.name()).endsWith("Svg");
    });
    return properties;
}

/// Another value than \a value, inside the bounds of every property.
QVariant otherValue(const QMetaProperty& property, const QVariant& value)
{
    if (property.isFlagType())
        return qstrcmp(property.name(), "checkTrigger") == 0 ? 1 | 32
                                                             : int(Qt::AlignRight | Qt::AlignTop);
    if (property.isEnumType()) {
        const QMetaEnum choices = property.enumerator();
        return choices.value(choices.value(0) == value.toInt() ? 1 : 0);
    }
    switch (value.typeId()) {
    case QMetaType::Bool:
        return !value.toBool();
    case QMetaType::Int:
        return value.toInt() + 3;
    case QMetaType::Double:
        return value.toDouble() * 0.75;
    case QMetaType::QStringList:
        return QStringList{QStringLiteral("one"), QStringLiteral("two")};
    default:
        return QStringLiteral("text");
    }
}

} // namespace

class tst_EveryControl : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void numbersAreClamped_data();
    void numbersAreClamped();
    void settersRepaintOnChangeOnly_data() { rows(); }
    void settersRepaintOnChangeOnly();
    void whatNoPictureNeedsIsNotRepainted();
    void brokenPicturesPaintNothing_data();
    void brokenPicturesPaintNothing();

    void binds_data() { rows(); }
    void binds();
    void paintingReadsTheHostOnce_data();
    void paintingReadsTheHostOnce();

    void isAccessible_data() { rows(); }
    void isAccessible();
    void accessibleChanges_data();
    void accessibleChanges();
    void valueIsAnnouncedOnce_data() { rows(); }
    void valueIsAnnouncedOnce();

private:
    /// Of all kinds, or of those that \a isRow.
    static void rows(bool (*isRow)(const Kind&) = [](const Kind&) { return true; });
    static const Kind& row();

    SvgFiles m_files;
};

void tst_EveryControl::rows(bool (*isRow)(const Kind&))
{
    QTest::addColumn<int>("kind");
    for (int i = 0; i < kinds.size(); ++i) {
        if (isRow(kinds[i]))
            QTest::newRow(kinds[i].name) << i;
    }
}

const Kind& tst_EveryControl::row()
{
    QFETCH(int, kind);
    return kinds[kind];
}

void tst_EveryControl::numbersAreClamped_data()
{
    addColumns<int, QByteArray, double, double>("kind", "property", "value", "stored");
    const auto row = [](int kind, const char* property, double value, double stored) {
        QTest::addRow("%s, %s %g", kinds[kind].name, property, value)
            << kind << QByteArray(property) << value << stored;
    };
    for (const char* angle : {"startAngle", "spanAngle"}) {
        row(0, angle, 360.5, 360.0);
        row(0, angle, -1.0, 0.0);
        row(0, angle, 359.5, 359.5);
        row(0, angle, std::nan(""), 0.0);
    }
    for (const char* length : {"inside", "outside", "thick"}) {
        row(0, length, -0.5, 0.0);
        row(0, length, 300.25, 300.25);
    }
    const std::pair<int, const char*> opacities[] = {{0, "knobDisableOpacity"},
                                                     {1, "knobDisableOpacity"},
                                                     {3, "buttonDisableOpacity"},
                                                     {3, "opacity"}};
    for (const auto& [kind, opacity] : opacities) {
        row(kind, opacity, -1.0, 0.0);
        row(kind, opacity, 1.5, 1.0);
        row(kind, opacity, 0.25, 0.25);
        row(kind, opacity, std::nan(""), 0.0);
    }
    for (const int kind : {0, 1, 3}) {
        row(kind, "shadowBlur", -1.0, 0.0);
        row(kind, "shadowBlur", 300.25, 300.25);
        row(kind, "shadowBlur", std::nan(""), 0.0);
    }
    row(2, "textMaxLength", -4, 0);
}

void tst_EveryControl::numbersAreClamped()
{
    QFETCH(QByteArray, property);
    QFETCH(double, value);
    const Fixture f(row());
    QVERIFY(f.widget->setProperty(property, value));
    QTEST(f.widget->property(property).toDouble(), "stored");
}

// Disabled, because some are shown in that state only.
void tst_EveryControl::settersRepaintOnChangeOnly()
{
    Fixture f(row());
    f.show();
    PaintRecorder paints(*f.widget);
    f.widget->setEnabled(false);
    QCOMPARE(paints.take(), QRegion(f.widget->rect()));
    const QString picture = m_files.plain("plain.svg", 20, 20, "#204060");
    for (const QMetaProperty& property : ownProperties(*f.widget)) {
        const QByteArray name = property.name();
        const QVariant before = property.read(f.widget);
        const QVariant other = name.endsWith("Svg") ? picture : otherValue(property, before);
        QVERIFY2(property.write(f.widget, other), name);
        QVERIFY2(property.read(f.widget) != before, name);
        const bool isShown = !row().notShown.contains(name);
        QVERIFY2(paints.take() == (isShown ? QRegion(f.widget->rect()) : QRegion()), name);
        QVERIFY2(property.write(f.widget, property.read(f.widget)), name);
        QVERIFY2(paints.take().isEmpty(), name);
    }
    f.control.setScale(2.0);
    QCOMPARE(paints.take(), QRegion(f.widget->rect()));
    f.control.setScale(2.0);
    QVERIFY(paints.take().isEmpty());
    f.widget->setEnabled(true);
    QCOMPARE(paints.take(), QRegion(f.widget->rect()));
}

void tst_EveryControl::whatNoPictureNeedsIsNotRepainted()
{
    for (const Kind& kind : {kinds[0], kinds[1]}) {
        Fixture f(kind);
        f.show();
        PaintRecorder paints(*f.widget);
        paints.take();
        f.widget->setProperty("shadowBlur", 3.0);
        f.widget->setProperty("knobDisableOpacity", 0.5);
        QVERIFY(paints.take().isEmpty());
        f.widget->setProperty("knobSvg", m_files.plain("plain.svg", 20, 20, "#204060"));
        QCOMPARE(paints.take(), QRegion(f.widget->rect()));
        f.widget->setProperty("knobDisableOpacity", 0.25); // it is enabled
        QVERIFY(paints.take().isEmpty());
        f.control.setValue(5);
        QCOMPARE(paints.take(), QRegion(f.widget->rect()));
        f.control.setValue(5);
        QVERIFY(paints.take().isEmpty());
    }
}

void tst_EveryControl::brokenPicturesPaintNothing_data()
{
    rows([](const Kind& kind) {
        return QByteArrayList{"knob", "fader", "button"}.contains(kind.name);
    });
}

void tst_EveryControl::brokenPicturesPaintNothing()
{
    const Fixture f(row());
    const QImage blank = painted(*f.widget);
    const QString broken = m_files.file("broken.svg", "<svg><rect");
    for (const QString& path : {m_files.missing(), broken, m_files.directory()}) {
        for (const QMetaProperty& property : ownProperties(*f.widget)) {
            if (!QByteArray(property.name()).endsWith("Svg"))
                continue;
            QVERIFY(property.write(f.widget, path));
            QCOMPARE(property.read(f.widget).toString(), path);
        }
        QCOMPARE(imageDifference(painted(*f.widget), blank), 0);
    }
}

void tst_EveryControl::binds()
{
    Fixture f(row());
    const int unbound = f.control.value();
    QSignalSpy changes(f.widget, SIGNAL(valueChanged(int)));
    for (int i = 0; i < 2; ++i) {
        bind(f.control, f.host, Parameter, 1);
        QCOMPARE(f.host.observerCount(Parameter, 1), 1);
        QCOMPARE(changes, QList<QVariantList>{{30}});
    }
    f.host.set(Parameter, 1, 40);
    QCOMPARE(changes.last(), QVariantList{40});
    bind(f.control, f.host, Parameter, 2);
    QCOMPARE(f.host.observerCount(Parameter, 1), 0);
    QCOMPARE(f.host.observerCount(Parameter, 2), 1);
    unbind(f.control);
    QCOMPARE(f.host.observerCount(), 0);
    QCOMPARE(f.control.value(), unbound);
    QCOMPARE(changes.count(), 4);
    bind(f.control, f.host);
    delete f.widget;
    QCOMPARE(f.host.observerCount(), 0);
    QCOMPARE(f.host.count(TestHost::Operation::SetValue), 0);
}

void tst_EveryControl::paintingReadsTheHostOnce_data()
{
    rows([](const Kind& kind) { return kind.readsOnceForAPaint; });
}

void tst_EveryControl::paintingReadsTheHostOnce()
{
    Fixture f(row());
    bind(f.control, f.host);
    for (const int value : {-100, 50}) {
        f.host.set(Parameter, 0, value);
        f.host.resetLedger();
        painted(*f.widget);
        QCOMPARE(f.host.count(TestHost::Operation::GetValue), 1);
        QCOMPARE_LE(f.host.callCount(), row().role == QAccessible::ProgressBar ? 1 : 4);
    }
}

void tst_EveryControl::isAccessible()
{
    Fixture f(row());
    f.host.setFormatter([](const QByteArray&, unsigned short, int value) {
        return QByteArray::number(value) + " dB";
    });
    f.widget->setObjectName(QStringLiteral("m_pGain"));
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(f.widget);
    QVERIFY(interface);
    QCOMPARE(interface->role(), row().role);
    QVERIFY(!interface->textInterface());
    QVERIFY(!interface->editableTextInterface());
    QCOMPARE(interface->text(QAccessible::Name), QStringLiteral("m_pGain"));
    bind(f.control, f.host);
    QCOMPARE(interface->text(QAccessible::Name),
             QStringLiteral("Parameter %1").arg(f.host.id(Parameter)));
    f.widget->setAccessibleName(QStringLiteral("Gain"));
    QCOMPARE(interface->text(QAccessible::Name), QStringLiteral("Gain"));
    QCOMPARE(interface->text(QAccessible::Value), QStringLiteral("30 dB"));
    f.control.setUnit(QStringLiteral("Hz"));
    QCOMPARE(interface->text(QAccessible::Value), QStringLiteral("30 dB")); // has one
    const std::pair<const char*, const char*> texts[] = {{"80", "80 Hz"}, {"1.25k", "1.25 kHz"}};
    for (const auto& [text, spoken] : texts) {
        f.host.setFormatter([text](const QByteArray&, unsigned short, int) { return text; });
        QCOMPARE(interface->text(QAccessible::Value), QString::fromLatin1(spoken));
    }

    const QAccessibleValueInterface* number = interface->valueInterface();
    QVERIFY(number);
    QCOMPARE(number->currentValue(), QVariant(30));
    QCOMPARE(number->minimumValue(), QVariant(0));
    QCOMPARE(number->maximumValue(), QVariant(100));
    QCOMPARE(number->minimumStepSize(), QVariant(1));
}

void tst_EveryControl::accessibleChanges_data()
{
    rows([](const Kind& kind) {
        return kind.role != QAccessible::ProgressBar && kind.role != QAccessible::Button;
    });
}

void tst_EveryControl::accessibleChanges()
{
    Fixture f(row());
    bind(f.control, f.host);
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(f.widget);
    QAccessibleValueInterface* number = interface->valueInterface();
    number->setCurrentValue(25.6);
    QCOMPARE(f.value(), 26);
    number->setCurrentValue(1e300);
    QCOMPARE(f.value(), 100);
    number->setCurrentValue(QStringLiteral("loud"));
    QCOMPARE(f.value(), 100);

    QAccessibleActionInterface* action = interface->actionInterface();
    const QString increase = QAccessibleActionInterface::increaseAction();
    const QString decrease = QAccessibleActionInterface::decreaseAction();
    QVERIFY(action->actionNames().contains(increase) && action->actionNames().contains(decrease));
    action->doAction(decrease);
    QCOMPARE(f.value(), 99);
    action->doAction(increase);
    QCOMPARE(f.value(), 100);
    QVERIFY(f.ledger.has(4));

    f.widget->setEnabled(false);
    QVERIFY(!action->actionNames().contains(increase));
    action->doAction(decrease);
    number->setCurrentValue(0);
    QCOMPARE(f.value(), 100);
}

void tst_EveryControl::valueIsAnnouncedOnce()
{
    Fixture f(row());
    bind(f.control, f.host);
    const Announcements announcements;
    const bool isButton = qobject_cast<QAbstractButton*>(f.widget);
    const bool isGroup = row().role == QAccessible::Grouping;
    f.host.set(Parameter, 0, 33);
    QCOMPARE(announcements.values(*f.widget),
             isButton || isGroup ? QList<QVariant>() : QList<QVariant>{33}); // nobody sees it
    f.show();
    f.host.set(Parameter, 0, 34);
    f.control.setValue(35);
    QCOMPARE(announcements.values(*f.widget).mid(isButton || isGroup ? 0 : 1),
             (QList<QVariant>{34, 35}));
}

ZOLTA_TEST_MAIN(tst_EveryControl)

#include "tst_EveryControl.moc"
