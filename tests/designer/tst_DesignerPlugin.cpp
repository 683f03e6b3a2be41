// SPDX-License-Identifier: GPL-3.0-or-later
// The controls as Qt Designer and programs that load forms meet them: through the plug-in alone.
#include "tests/support/TestObject.h"

#include <QAbstractButton>
#include <QApplication>
#include <QBuffer>
#include <QDomDocument>
#include <QFileInfo>
#include <QFormBuilder>
#include <QGroupBox>
#include <QLibraryInfo>
#include <QMetaProperty>
#include <QPluginLoader>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QUiLoader>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

#include <memory>

class tst_DesignerPlugin : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void offersEveryControl();
    void describes_data() { rows(); }
    void describes();
    void formFragmentIsWhole_data() { rows(); }
    void formFragmentIsWhole();
    void createsWidgets_data() { rows(); }
    void createsWidgets();
    void uiLoaderBuildsAForm();
    void formBuilderBuildsAForm();
    void propertiesSurviveSavingAndLoading_data() { rows(); }
    void propertiesSurviveSavingAndLoading();
    void formsNameTheSetterThatIsThere();
    void groupHoldsButtonsOfAForm();
    void brokenFormBuildsNothing();
    void isInstalledWhereDesignerLooks();

private:
    using Plugin = QDesignerCustomWidgetInterface;

    void rows() const;
    Plugin& plugin() const;
    Plugin& plugin(const QString& className) const;
    static QByteArray formOf(const QString& content);
    QByteArray formOf(const Plugin& plugin) const;
    static std::unique_ptr<QWidget> load(const QByteArray& form);
    static QByteArray save(QWidget& widget);
    static QDomElement widgetOf(const QString& fragment, QDomDocument& document);

    QPluginLoader m_loader{QStringLiteral(DESIGNER_PLUGIN)};
    QList<Plugin*> m_plugins;
};

namespace {

const QString prefix = QStringLiteral("CommonController_MemAPI::");

/// The controls, in the widget box's order, with their headers.
const QList<std::pair<QString, QString>> controls = {
    {prefix + QStringLiteral("KnobController"), QStringLiteral("controls/KnobController.h")},
    {prefix + QStringLiteral("FaderController"), QStringLiteral("controls/FaderController.h")},
    {prefix + QStringLiteral("TextEditController"),
     QStringLiteral("controls/TextEditController.h")},
    {prefix + QStringLiteral("PushButtonController"),
     QStringLiteral("controls/PushButtonController.h")},
    {prefix + QStringLiteral("PullDownButtonController"),
     QStringLiteral("controls/PullDownButtonController.h")},
    {prefix + QStringLiteral("ButtonGroupController"),
     QStringLiteral("controls/ButtonGroupController.h")},
    {prefix + QStringLiteral("MeterController"), QStringLiteral("controls/MeterController.h")},
    {prefix + QStringLiteral("PeakMeterController"),
     QStringLiteral("controls/PeakMeterController.h")},
    {prefix + QStringLiteral("RoundMeterController"),
     QStringLiteral("controls/RoundMeterController.h")},
    {prefix + QStringLiteral("RoundGainReductionMeterController"),
     QStringLiteral("controls/RoundGainReductionMeterController.h")},
    {QStringLiteral("SvgLabel"), QStringLiteral("widgets/SvgLabel.h")},
    {QStringLiteral("ChannelNameEdit"), QStringLiteral("widgets/ChannelNameEdit.h")}};

/// Whether the property is the library's, not Qt's.
bool isOwn(const QWidget& widget, const QMetaProperty& property)
{
    for (const QMetaObject* type = widget.metaObject(); type; type = type->superClass()) {
        if (property.enclosingMetaObject() != type)
            continue;
        return type->className()[0] != 'Q';
    }
    return false;
}

QList<QMetaProperty> ownProperties(const QWidget& widget)
{
    QList<QMetaProperty> result;
    for (int i = 0; i < widget.metaObject()->propertyCount(); ++i) {
        const QMetaProperty property = widget.metaObject()->property(i);
        if (isOwn(widget, property))
            result << property;
    }
    return result;
}

/// The form builder writes properties in the order of a hash, which differs from run to run. A
/// frame's rectangle depends on that order when it is read, so it is left out.
QByteArrayList sortedLines(const QByteArray& form)
{
    static const QRegularExpression frame(
        QStringLiteral("<property name=\"frameRect\">.*?</property>"),
        QRegularExpression::DotMatchesEverythingOption);
    QByteArrayList lines = QString::fromUtf8(form).remove(frame).toUtf8().split('\n');
    std::sort(lines.begin(), lines.end());
    return lines;
}

/// What a person enters in the place of \a value, inside the bounds of every property.
QVariant entered(const QMetaProperty& property, const QVariant& value)
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
        return QStringList{QStringLiteral("one & two"), QStringLiteral("three")};
    default:
        return QStringLiteral(":/text/%1 <&>").arg(QLatin1String(property.name()));
    }
}

/// Saves what Qt's own form builder does not: values of enumerations and flags, which it leaves out
/// since variants know their types. And it does not save the widgets that controls are made of.
class FormBuilder : public QFormBuilder
{
public:
    FormBuilder() { setPluginPath({QStringLiteral(DESIGNER_FOLDER)}); }

protected:
    DomProperty* createProperty(QObject* object, const QString& name,
                                const QVariant& value) override
    {
        const QMetaObject& type = *object->metaObject();
        const int index = type.indexOfProperty(qPrintable(name));
        const bool isChoice = index >= 0 && type.property(index).isEnumType();
        return QFormBuilder::createProperty(object, name, isChoice ? numberOf(value) : value);
    }

    DomWidget* createDom(QWidget* widget, DomWidget* parent, bool recursive) override
    {
        const QLatin1String name(widget->metaObject()->className());
        const bool isOpaque = name.startsWith(prefix) && !qobject_cast<QGroupBox*>(widget);
        return QFormBuilder::createDom(widget, parent, recursive && !isOpaque);
    }

private:
    static int numberOf(const QVariant& value)
    {
        int number = 0;
        std::memcpy(&number, value.constData(),
                    std::min<std::size_t>(sizeof number,
                                          static_cast<std::size_t>(value.metaType().sizeOf())));
        return number;
    }
};

} // namespace

void tst_DesignerPlugin::initTestCase()
{
    auto* collection = qobject_cast<QDesignerCustomWidgetCollectionInterface*>(m_loader.instance());
    QVERIFY2(collection, qPrintable(m_loader.errorString()));
    m_plugins = collection->customWidgets();
}

void tst_DesignerPlugin::rows() const
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < controls.size(); ++i)
        QTest::newRow(qPrintable(controls[i].first)) << i;
}

tst_DesignerPlugin::Plugin& tst_DesignerPlugin::plugin() const
{
    QFETCH(int, index);
    return *m_plugins[index];
}

tst_DesignerPlugin::Plugin& tst_DesignerPlugin::plugin(const QString& className) const
{
    const auto found = std::find_if(m_plugins.begin(), m_plugins.end(),
                                    [&](const Plugin* each) { return each->name() == className; });
    if (found == m_plugins.end())
        qFatal("no plug-in for %s", qPrintable(className));
    return **found;
}

QByteArray tst_DesignerPlugin::formOf(const QString& content)
{
    return QStringLiteral("<ui version=\"4.0\"><class>Form</class>"
                          "<widget class=\"QWidget\" name=\"Form\">%1</widget></ui>")
        .arg(content)
        .toUtf8();
}

// A form that the control was just dropped on.
QByteArray tst_DesignerPlugin::formOf(const Plugin& plugin) const
{
    QDomDocument document;
    const QDomElement widget = widgetOf(plugin.domXml(), document);
    QString content;
    QTextStream stream(&content);
    widget.save(stream, 0);
    return formOf(content);
}

QDomElement tst_DesignerPlugin::widgetOf(const QString& fragment, QDomDocument& document)
{
    document.setContent(fragment);
    return document.documentElement().firstChildElement(QStringLiteral("widget"));
}

std::unique_ptr<QWidget> tst_DesignerPlugin::load(const QByteArray& form)
{
    FormBuilder builder;
    QBuffer buffer;
    buffer.setData(form);
    buffer.open(QIODevice::ReadOnly);
    return std::unique_ptr<QWidget>(builder.load(&buffer));
}

QByteArray tst_DesignerPlugin::save(QWidget& widget)
{
    FormBuilder builder;
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    builder.save(&buffer, &widget);
    return buffer.data();
}

void tst_DesignerPlugin::offersEveryControl()
{
    QStringList names;
    for (const Plugin* each : m_plugins)
        names << each->name();
    QStringList expected;
    for (const auto& each : controls)
        expected << each.first;
    QCOMPARE(names, expected);
}

void tst_DesignerPlugin::describes()
{
    QFETCH(int, index);
    Plugin& shown = plugin();
    QCOMPARE(shown.group(), QStringLiteral("Zolta"));
    QCOMPARE(shown.includeFile(), controls[index].second);
    QVERIFY(QFileInfo::exists(QStringLiteral(INCLUDE_ROOT "/") + shown.includeFile()));
    QVERIFY(!shown.toolTip().isEmpty());
    QVERIFY(!shown.whatsThis().isEmpty());
    QVERIFY(!shown.icon().pixmap(22, 22).isNull());
    QCOMPARE(shown.isContainer(), shown.name().endsWith(QLatin1String("ButtonGroupController")));
    QVERIFY(!shown.isInitialized());
    shown.initialize(nullptr);
    QVERIFY(shown.isInitialized());
}

void tst_DesignerPlugin::formFragmentIsWhole()
{
    QDomDocument document;
    const QDomElement widget = widgetOf(plugin().domXml(), document);
    QCOMPARE(widget.attribute(QStringLiteral("class")), plugin().name());
    const QString objectName = widget.attribute(QStringLiteral("name"));
    QVERIFY(!objectName.isEmpty());
    QVERIFY(objectName[0].isLower());
    const QDomElement custom = document.documentElement()
                                   .firstChildElement(QStringLiteral("customwidgets"))
                                   .firstChildElement(QStringLiteral("customwidget"));
    QCOMPARE(custom.firstChildElement(QStringLiteral("class")).text(), plugin().name());
    const std::unique_ptr<QWidget> made(plugin().createWidget(nullptr));
    QCOMPARE(custom.firstChildElement(QStringLiteral("extends")).text(),
             QString::fromLatin1(made->metaObject()->superClass()->className()));
    const std::unique_ptr<QWidget> form = load(formOf(plugin()));
    QVERIFY(form);
    QVERIFY(form->findChild<QWidget*>(objectName)->size().width() >= 12);
    QVERIFY(form->findChild<QWidget*>(objectName)->size().height() >= 12);
}

void tst_DesignerPlugin::createsWidgets()
{
    QWidget parent;
    const QWidget* widget = plugin().createWidget(&parent);
    QCOMPARE(QString::fromLatin1(widget->metaObject()->className()), plugin().name());
    QCOMPARE(widget->parentWidget(), &parent);
}

void tst_DesignerPlugin::uiLoaderBuildsAForm()
{
    QString content;
    for (const auto& each : controls)
        content += QStringLiteral("<widget class=\"%1\" name=\"%2\"/>")
                       .arg(each.first, each.first.section(QStringLiteral("::"), -1));
    QUiLoader loader;
    loader.addPluginPath(QStringLiteral(DESIGNER_FOLDER));
    QBuffer buffer;
    buffer.setData(formOf(content));
    buffer.open(QIODevice::ReadOnly);
    const std::unique_ptr<QWidget> form(loader.load(&buffer));
    QVERIFY2(form, qPrintable(loader.errorString()));
    for (const auto& each : controls) {
        const auto* widget =
            form->findChild<QWidget*>(each.first.section(QStringLiteral("::"), -1));
        QVERIFY2(widget, qPrintable(each.first));
        QVERIFY2(widget->inherits(qPrintable(each.first)), qPrintable(each.first));
        QVERIFY(loader.availableWidgets().contains(each.first));
    }
}

void tst_DesignerPlugin::formBuilderBuildsAForm()
{
    for (const Plugin* each : m_plugins) {
        const std::unique_ptr<QWidget> form = load(formOf(*each));
        QVERIFY2(form, qPrintable(each->name()));
        QCOMPARE(form->children().size(), 1);
        QCOMPARE(QString::fromLatin1(form->children().constFirst()->metaObject()->className()),
                 each->name());
    }
}

void tst_DesignerPlugin::propertiesSurviveSavingAndLoading()
{
    const std::unique_ptr<QWidget> form = load(formOf(plugin()));
    auto* widget = qobject_cast<QWidget*>(form->children().constFirst());
    const QList<QMetaProperty> properties = ownProperties(*widget);
    QVERIFY(!properties.isEmpty());
    QVariantMap values;
    for (const QMetaProperty& property : properties) {
        const QVariant before = property.read(widget);
        property.write(widget, entered(property, before));
        values[QLatin1String(property.name())] = property.read(widget);
        QVERIFY2(property.read(widget) != before, property.name());
    }
    const QByteArray saved = save(*form);
    const std::unique_ptr<QWidget> loaded = load(saved);
    QVERIFY(loaded);
    const QObject* again = loaded->children().constFirst();
    QCOMPARE(again->objectName(), widget->objectName());
    for (const QMetaProperty& property : properties)
        QVERIFY2(again->property(property.name()) == values[QLatin1String(property.name())],
                 property.name());
    QCOMPARE(sortedLines(save(*loaded)), sortedLines(saved));
}

// The form compiler would call setDisableSvgRenderer() without this mark.
void tst_DesignerPlugin::formsNameTheSetterThatIsThere()
{
    const std::unique_ptr<QWidget> form = load(formOf(plugin(QStringLiteral("SvgLabel"))));
    const QByteArray saved = save(*form);
    QVERIFY(saved.contains("<property name=\"disableSvgRenderer\" stdset=\"0\">"));
    QVERIFY(saved.contains("<property name=\"svg\">"));
}

void tst_DesignerPlugin::groupHoldsButtonsOfAForm()
{
    const QString button = QStringLiteral("<widget class=\"%1PushButtonController\" name=\"%2\">"
                                          "<property name=\"checkable\"><bool>true</bool>"
                                          "</property></widget>");
    const std::unique_ptr<QWidget> form = load(formOf(
        QStringLiteral("<widget class=\"%1ButtonGroupController\" name=\"group\">").arg(prefix) +
        button.arg(prefix, QStringLiteral("first")) + button.arg(prefix, QStringLiteral("second")) +
        QStringLiteral("</widget>")));
    auto* first = form->findChild<QAbstractButton*>(QStringLiteral("first"));
    auto* second = form->findChild<QAbstractButton*>(QStringLiteral("second"));
    QCOMPARE(first->parentWidget()->objectName(), QStringLiteral("group"));
    QTRY_VERIFY(first->isChecked());
    second->click();
    QTRY_VERIFY(second->isChecked() && !first->isChecked());
}

void tst_DesignerPlugin::brokenFormBuildsNothing()
{
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral(".*")));
    QVERIFY(!load("<ui version=\"4.0\"><widget class=\"QWidget\""));
}

void tst_DesignerPlugin::isInstalledWhereDesignerLooks()
{
    const QString file = QStringLiteral(INSTALLED_PLUGIN);
    QCOMPARE(QFileInfo(file).path(),
             QLibraryInfo::path(QLibraryInfo::PluginsPath) + QStringLiteral("/designer"));

    const QTemporaryDir root;
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DESTDIR"), root.path());
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(CMAKE_PROGRAM),
                  {QStringLiteral("--install"), QStringLiteral(BUILD_FOLDER),
                   QStringLiteral("--component"), QStringLiteral("designer")});
    QVERIFY(process.waitForFinished(60000));
    QCOMPARE(process.exitCode(), 0);
    QPluginLoader installed(root.path() + file);
    QVERIFY2(installed.metaData().contains(QStringLiteral("IID")),
             qPrintable(installed.errorString()));
}

ZOLTA_TEST_MAIN(tst_DesignerPlugin)
#include "tst_DesignerPlugin.moc"
