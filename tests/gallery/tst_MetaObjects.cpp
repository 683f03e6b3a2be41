// SPDX-License-Identifier: GPL-3.0-or-later
// What forms, the form designer and string-based connections know of each control.
#include "controls/ButtonGroupController.h"
#include "controls/FaderController.h"
#include "controls/KnobController.h"
#include "controls/MeterController.h"
#include "controls/PeakMeterController.h"
#include "controls/PullDownButtonController.h"
#include "controls/PushButtonController.h"
#include "controls/RoundGainReductionMeterController.h"
#include "controls/RoundMeterController.h"
#include "controls/TextEditController.h"
#include "tests/support/TestObject.h"
#include "widgets/ChannelNameEdit.h"
#include "widgets/SvgLabel.h"

#include <QApplication>
#include <QMetaEnum>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QWidget>

#include <memory>

using namespace CommonController_MemAPI;

namespace {

/// The default's type is the property's.
struct Property
{
    const char* name;
    QVariant value;
};

/// "signal", "public slot", "protected slot" or "private slot", then the declaration. A parameter
/// that has no name here may have any.
using Methods = QStringList;

struct Enumeration
{
    const char* name;     ///< as properties name it
    const char* enumName; ///< of the single values
    bool isFlag;
    QList<std::pair<const char*, int>> keys;
};

struct Start
{
    Qt::FocusPolicy focusPolicy = Qt::NoFocus;
    /// Of a control: its range and value while unbound.
    int minimum = 0;
    int maximum = 0;
    int value = 0;
};

struct Class
{
    const char* name;
    const char* base;
    QList<Property> properties;
    Methods methods;
    QList<Enumeration> enumerations;
    /// Properties of the base that start otherwise here.
    QList<Property> inherited;
    Start start;
    std::unique_ptr<QWidget> (*make)();
};

template <class Control> std::unique_ptr<QWidget> make()
{
    return std::make_unique<Control>(nullptr);
}

template <class Value> QVariant as(Value value) { return QVariant::fromValue(value); }

const QString noText;
const QVariant noSvg = noText;

const Methods common = {
    QStringLiteral("signal valueChanged(int value)"),
    QStringLiteral(
        "signal modifiersChange(AbstractController* pController,Qt::KeyboardModifiers modifiers)")};
const QString dragSignal = QStringLiteral("signal drag(bool)");
const QString request = QStringLiteral("private slot valueChangedRequest()");

Class knob()
{
    return {"CommonController_MemAPI::KnobController",
            "QWidget",
            {{"startAngle", 210.0},
             {"spanAngle", 300.0},
             {"inside", 4.0},
             {"outside", 14.0},
             {"thick", 2.0},
             {"shadowBlur", 2.0},
             {"knobDisableOpacity", 1.0},
             {"knobSvg", noSvg},
             {"shadowSvg", noSvg},
             {"backgroundSvg", noSvg},
             {"knobType", as(KnobController::LineIndex)},
             {"operationType", as(KnobController::Circular)},
             {"valueChangeStep", 1}},
            common + Methods{dragSignal, request},
            {{"KnobType", "KnobType", false, {{"LineIndex", 0}, {"RotateKnob", 1}}},
             {"OperationType",
              "OperationType",
              false,
              {{"Circular", 0}, {"Linear", 1}, {"RelativeCircular", 2}}}},
            {},
            {Qt::ClickFocus, 0, 100, 0},
            make<KnobController>};
}

Class textEdit()
{
    return {"CommonController_MemAPI::TextEditController",
            "QWidget",
            {{"string", noText},
             {"postfix", noText},
             {"expandUnit", false},
             {"alignment", as(Qt::Alignment(Qt::AlignLeft | Qt::AlignVCenter))},
             {"textTrim", false},
             {"textLeftMargin", 0},
             {"textRightMargin", 0},
             {"textMaxLength", 10}},
            common + Methods{dragSignal, QStringLiteral("signal textEdit(bool edit)"), request,
                             QStringLiteral("public slot edit()"),
                             QStringLiteral("public slot editFinish()"),
                             QStringLiteral("public slot editCancel()")},
            {},
            {},
            {Qt::ClickFocus, 0, 100, 0},
            make<TextEditController>};
}

Class pushButton()
{
    const auto trigger = PushButtonController::CheckTrigger(
        PushButtonController::Release | PushButtonController::On | PushButtonController::Off);
    return {"CommonController_MemAPI::PushButtonController",
            "QPushButton",
            {{"shadowBlur", 2.0},
             {"buttonDisableOpacity", 1.0},
             {"buttonSvg", noSvg},
             {"pushButtonSvg", noSvg},
             {"shadowSvg", noSvg},
             {"pushShadowSvg", noSvg},
             {"iconSvg", noSvg},
             {"onIconSvg", noSvg},
             {"onButtonSvg", noSvg},
             {"onPushButtonSvg", noSvg},
             {"textLeftMargin", 0},
             {"textRightMargin", 0},
             {"textTopMargin", 0},
             {"textBottomMargin", 0},
             {"svgAlignment", as(Qt::Alignment(Qt::AlignHCenter | Qt::AlignVCenter))},
             {"textAlignment", as(Qt::Alignment(Qt::AlignHCenter | Qt::AlignVCenter))},
             {"opacity", 1.0},
             {"checkTrigger", as(trigger)}},
            common + Methods{QStringLiteral("signal sideChanged()"), request,
                             QStringLiteral("private slot buttonPress()"),
                             QStringLiteral("private slot buttonRelease()"),
                             QStringLiteral("private slot buttonToggle(bool checked)"),
                             QStringLiteral("private slot focusChange()")},
            {{"CheckTrigger",
              "CheckTriggerFlag",
              true,
              {{"Press", 1}, {"Release", 2}, {"On", 16}, {"Off", 32}}}},
            {},
            {Qt::NoFocus, 0, 1, 0},
            make<PushButtonController>};
}

Class pullDown()
{
    return {"CommonController_MemAPI::PullDownButtonController",
            "CommonController_MemAPI::PushButtonController",
            {{"textList", QStringList()},
             {"emptyText", noText},
             {"invisibleText", noText},
             {"autoPullDown", true},
             {"indexWidth", 0},
             {"indexMargin", 0},
             {"indexOrigin", 1}},
            {QStringLiteral("signal selected()"), QStringLiteral("signal changed()")},
            {},
            {{"svgAlignment", as(Qt::Alignment(Qt::AlignRight | Qt::AlignVCenter))},
             {"textAlignment", as(Qt::Alignment(Qt::AlignLeft | Qt::AlignVCenter))}},
            {Qt::NoFocus, 0, 0, 0},
            make<PullDownButtonController>};
}

Class buttonGroup()
{
    return {"CommonController_MemAPI::ButtonGroupController",
            "QGroupBox",
            {{"enableDefaultSet", false}},
            common + Methods{QStringLiteral("signal childAdded(QObject*)"), request,
                             QStringLiteral("private slot addChild(QObject* pObject)"),
                             QStringLiteral("private slot updateChild()"),
                             QStringLiteral("private slot updateButton(bool)")},
            {},
            {},
            {QGroupBox().focusPolicy(), 0, 100, 0},
            make<ButtonGroupController>};
}

Class fader()
{
    return {"CommonController_MemAPI::FaderController",
            "QWidget",
            {{"orientation", as(Qt::Vertical)},
             {"shadowBlur", 2.0},
             {"knobDisableOpacity", 1.0},
             {"knobSvg", noSvg},
             {"shadowSvg", noSvg},
             {"backgroundSvg", noSvg},
             {"enableDoubleClick", false},
             {"reverse", false},
             {"operationType", as(FaderController::Touch)}},
            common + Methods{dragSignal, request,
                             QStringLiteral("protected slot doubleClickTimeout()"),
                             QStringLiteral("protected slot ramp(bool repeat)"),
                             QStringLiteral("protected slot ramp()")},
            {{"OperationType",
              "OperationType",
              false,
              {{"Touch", 0}, {"Jump", 1}, {"Ramp", 2}, {"Relative", 3}}}},
            {},
            {Qt::ClickFocus, 0, 100, 0},
            make<FaderController>};
}

Class meter()
{
    return {
        "CommonController_MemAPI::MeterController",
        "QWidget",
        {{"meterLeftMargin", 0},
         {"meterRightMargin", 0},
         {"meterTopMargin", 0},
         {"meterBottomMargin", 0},
         {"meterOverMargin", 3},
         {"meterOverHeight", 3},
         {"meterType", as(MeterController::Minus600)}},
        common + Methods{request},
        {{"MeterType", "MeterType", false, {{"Minus600", 0}, {"Minus480", 1}, {"Minus225", 2}}}},
        {},
        {Qt::NoFocus, -1270, 8191, -1270},
        make<MeterController>};
}

Class derivedMeter(const char* name, const QList<Property>& properties,
                   const QList<Property>& inherited, int value, std::unique_ptr<QWidget> (*maker)())
{
    return {name,      "CommonController_MemAPI::MeterController", properties, {}, {},
            inherited, {Qt::NoFocus, -1270, 8191, value},          maker};
}

Class peakMeter()
{
    return derivedMeter("CommonController_MemAPI::PeakMeterController", {{"meterPeakHeight", 2}},
                        {}, -1270, make<PeakMeterController>);
}

Class roundMeter()
{
    return derivedMeter("CommonController_MemAPI::RoundMeterController",
                        {{"meterWidth", 4},
                         {"meterOverWidth", 6},
                         {"meterOverBackgroundWidth", 4},
                         {"meterOverBackgroundHeight", 4}},
                        {{"meterOverMargin", 10}, {"meterOverHeight", 6}}, -1270,
                        make<RoundMeterController>);
}

Class gainReductionMeter()
{
    return derivedMeter("CommonController_MemAPI::RoundGainReductionMeterController",
                        {{"meterWidth", 4}}, {{"meterOverMargin", 0}, {"meterOverHeight", 0}}, 0,
                        make<RoundGainReductionMeterController>);
}

Class svgLabel()
{
    return {"SvgLabel",
            "QLabel",
            {{"svg", noSvg}, {"disableSvgRenderer", noSvg}, {"opacity", 1.0}},
            {},
            {},
            {},
            {Qt::NoFocus, 0, 0, 0},
            make<SvgLabel>};
}

Class channelNameEdit()
{
    return {"ChannelNameEdit",
            "QLineEdit",
            {{"defaultName", noText}, {"elideMargin", 0}},
            {QStringLiteral("signal channelNameChanged(QString text)"),
             QStringLiteral("public slot setChannelName(QString channelName)")},
            {},
            {},
            {Qt::NoFocus, 0, 0, 0},
            make<ChannelNameEdit>};
}

std::vector<Class> classes()
{
    std::vector<Class> all;
    for (const auto each : {knob, textEdit, pushButton, pullDown, buttonGroup, fader, meter,
                            peakMeter, roundMeter, gainReductionMeter, svgLabel, channelNameEdit})
        all.push_back(each());
    return all;
}

QString kindOf(const QMetaMethod& method)
{
    if (method.methodType() == QMetaMethod::Signal)
        return QStringLiteral("signal");
    static const QMap<QMetaMethod::Access, QString> access = {
        {QMetaMethod::Private, QStringLiteral("private ")},
        {QMetaMethod::Protected, QStringLiteral("protected ")},
        {QMetaMethod::Public, QStringLiteral("public ")}};
    const bool isSlot = method.methodType() == QMetaMethod::Slot;
    return access[method.access()] + (isSlot ? QStringLiteral("slot") : QStringLiteral("method"));
}

/// With the parameters' names, or without those that \a expected leaves out.
QString declarationOf(const QMetaMethod& method, const QString& expected)
{
    const QString plain =
        QStringLiteral("%1 %2").arg(kindOf(method), QString::fromLatin1(method.methodSignature()));
    if (plain == expected)
        return plain;
    QStringList parameters;
    for (int i = 0; i < method.parameterCount(); ++i)
        parameters << QString::fromLatin1(method.parameterTypes()[i] + ' ' +
                                          method.parameterNames()[i]);
    return QStringLiteral("%1 %2(%3)")
        .arg(kindOf(method), QString::fromLatin1(method.name()), parameters.join(QLatin1Char(',')));
}

} // namespace

class tst_MetaObjects : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_classes = classes(); }

    void base_data() { rows(); }
    void base();
    void properties_data() { rows(); }
    void properties();
    void propertiesAreForForms_data() { rows(); }
    void propertiesAreForForms();
    void inheritedDefaults_data() { rows(); }
    void inheritedDefaults();
    void methods_data() { rows(); }
    void methods();
    void enumerations_data() { rows(); }
    void enumerations();
    void start_data() { rows(); }
    void start();

private:
    void rows();
    const Class& row() const;

    std::vector<Class> m_classes;
};

void tst_MetaObjects::rows()
{
    QTest::addColumn<int>("index");
    for (std::size_t i = 0; i < m_classes.size(); ++i)
        QTest::newRow(m_classes[i].name) << static_cast<int>(i);
}

const Class& tst_MetaObjects::row() const
{
    QFETCH(int, index);
    return m_classes[static_cast<std::size_t>(index)];
}

void tst_MetaObjects::base()
{
    const std::unique_ptr<QWidget> widget = row().make();
    QCOMPARE(widget->metaObject()->className(), row().name);
    QCOMPARE(widget->metaObject()->superClass()->className(), row().base);
}

void tst_MetaObjects::properties()
{
    const std::unique_ptr<QWidget> widget = row().make();
    const QMetaObject& type = *widget->metaObject();
    QStringList names;
    for (int i = type.propertyOffset(); i < type.propertyCount(); ++i)
        names << QString::fromLatin1(type.property(i).name());
    QStringList expected;
    for (const Property& each : row().properties)
        expected << QString::fromLatin1(each.name);
    QCOMPARE(names, expected);
    for (const Property& each : row().properties) {
        const QVariant value = widget->property(each.name);
        QVERIFY2(value.metaType() == each.value.metaType(), each.name);
        QVERIFY2(value == each.value, each.name);
    }
}

void tst_MetaObjects::propertiesAreForForms()
{
    const QMetaObject& type = *row().make()->metaObject();
    for (int i = type.propertyOffset(); i < type.propertyCount(); ++i) {
        const QMetaProperty property = type.property(i);
        QVERIFY2(property.isReadable() && property.isWritable(), property.name());
        QVERIFY2(property.isDesignable() && property.isStored(), property.name());
        QVERIFY2(!property.hasNotifySignal() && !property.isConstant(), property.name());
    }
}

void tst_MetaObjects::inheritedDefaults()
{
    const std::unique_ptr<QWidget> widget = row().make();
    const QMetaObject& type = *widget->metaObject();
    const auto superClass =
        std::find_if(m_classes.begin(), m_classes.end(),
                     [this](const Class& each) { return std::strcmp(each.name, row().base) == 0; });
    if (superClass == m_classes.end()) {
        QVERIFY(row().inherited.isEmpty());
        return;
    }
    for (const Property& each : superClass->properties) {
        const auto other =
            std::find_if(row().inherited.begin(), row().inherited.end(),
                         [&](const Property& p) { return std::strcmp(p.name, each.name) == 0; });
        const QVariant expected = other == row().inherited.end() ? each.value : other->value;
        QVERIFY2(type.indexOfProperty(each.name) >= 0, each.name);
        QVERIFY2(widget->property(each.name) == expected, each.name);
    }
}

void tst_MetaObjects::methods()
{
    const QMetaObject& type = *row().make()->metaObject();
    QStringList found;
    for (int i = type.methodOffset(); i < type.methodCount(); ++i)
        found << declarationOf(type.method(i), row().methods.value(found.size()));
    QCOMPARE(found, row().methods);
}

void tst_MetaObjects::enumerations()
{
    const QMetaObject& type = *row().make()->metaObject();
    QCOMPARE(type.enumeratorCount() - type.enumeratorOffset(), row().enumerations.size());
    for (int i = 0; i < row().enumerations.size(); ++i) {
        const Enumeration& expected = row().enumerations[i];
        const QMetaEnum found = type.enumerator(type.enumeratorOffset() + i);
        QCOMPARE(found.name(), expected.name);
        QCOMPARE(found.enumName(), expected.enumName);
        QCOMPARE(found.isFlag(), expected.isFlag);
        QCOMPARE(found.keyCount(), static_cast<int>(expected.keys.size()));
        for (int k = 0; k < found.keyCount(); ++k) {
            QCOMPARE(found.key(k), expected.keys[k].first);
            QCOMPARE(found.value(k), expected.keys[k].second);
        }
    }
}

void tst_MetaObjects::start()
{
    const std::unique_ptr<QWidget> widget = row().make();
    QCOMPARE(widget->focusPolicy(), row().start.focusPolicy);
    if (const auto* control = dynamic_cast<AbstractController*>(widget.get())) {
        QVERIFY(!control->isBound());
        QCOMPARE(control->minimumValue(), row().start.minimum);
        QCOMPARE(control->maximumValue(), row().start.maximum);
        QCOMPARE(control->value(), row().start.value);
        QCOMPARE(control->scale(), 1.0);
    }
}

ZOLTA_TEST_MAIN(tst_MetaObjects)
#include "tst_MetaObjects.moc"
