// SPDX-License-Identifier: GPL-3.0-or-later
// Forms in Qt Designer itself, without its windows: what it reads from a form, and saves again.
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QDesignerComponents>
#include <QDesignerFormEditorInterface>
#include <QDesignerFormWindowCursorInterface>
#include <QDesignerFormWindowInterface>
#include <QDesignerFormWindowManagerInterface>
#include <QDesignerIntegration>
#include <QDesignerPropertyEditorInterface>
#include <QDesignerPropertySheetExtension>
#include <QDesignerWidgetBoxInterface>
#include <QExtensionManager>
#include <QFile>

#include <memory>

class tst_DesignerForms : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void savesAFormToTheLetter();
    void offersEveryPropertyForEditing_data();
    void offersEveryPropertyForEditing();
    void savesEdits();
    void widgetBoxHasTheGroup();

private:
    std::unique_ptr<QDesignerFormWindowInterface> openForm();

    QWidget m_mixerModel;
    QDesignerFormEditorInterface* m_designer = nullptr;
    QString m_form;
};

void tst_DesignerForms::initTestCase()
{
    QApplication::addLibraryPath(QStringLiteral(DESIGNER_PLUGINS));
    QDesignerComponents::initializeResources();
    m_designer = QDesignerComponents::createFormEditor(&m_mixerModel);
    m_designer->setTopLevel(&m_mixerModel);
    m_designer->setWidgetBox(QDesignerComponents::createWidgetBox(m_designer, &m_mixerModel));
    m_designer->setPropertyEditor(
        QDesignerComponents::createPropertyEditor(m_designer, &m_mixerModel));
    new QDesignerIntegration(m_designer, &m_mixerModel);
    QDesignerComponents::initializePlugins(m_designer);
    QFile file(QStringLiteral(FORM));
    QVERIFY(file.open(QIODevice::ReadOnly));
    m_form = QString::fromUtf8(file.readAll());
}

// The parts still ask the whole while they go.
void tst_DesignerForms::cleanupTestCase()
{
    delete m_designer->propertyEditor();
    delete m_designer->widgetBox();
}

std::unique_ptr<QDesignerFormWindowInterface> tst_DesignerForms::openForm()
{
    std::unique_ptr<QDesignerFormWindowInterface> window(
        m_designer->formWindowManager()->createFormWindow(&m_mixerModel));
    return window->setContents(m_form) ? std::move(window) : nullptr;
}

void tst_DesignerForms::savesAFormToTheLetter()
{
    const auto window = openForm();
    QVERIFY(window);
    QCOMPARE(window->contents(), m_form);
}

void tst_DesignerForms::offersEveryPropertyForEditing_data()
{
    QTest::addColumn<QStringList>("properties");
    const auto row = [](const char* name, const char* properties) {
        QTest::newRow(name) << QString::fromLatin1(properties).split(QLatin1Char(' '));
    };
    row("knob", "startAngle spanAngle inside outside thick shadowBlur knobDisableOpacity knobSvg "
                "shadowSvg backgroundSvg knobType operationType valueChangeStep");
    row("fader", "orientation shadowBlur knobDisableOpacity knobSvg shadowSvg backgroundSvg "
                 "enableDoubleClick reverse operationType");
    row("textEdit", "string postfix expandUnit alignment textTrim textLeftMargin textRightMargin "
                    "textMaxLength");
    row("pushButton", "shadowBlur buttonDisableOpacity buttonSvg pushButtonSvg shadowSvg "
                      "pushShadowSvg iconSvg onIconSvg onButtonSvg onPushButtonSvg textLeftMargin "
                      "textRightMargin textTopMargin textBottomMargin svgAlignment textAlignment "
                      "opacity checkTrigger");
    row("pullDownButton", "buttonSvg checkTrigger textList emptyText invisibleText autoPullDown "
                          "indexWidth indexMargin indexOrigin");
    row("buttonGroup", "enableDefaultSet");
    row("meter", "meterLeftMargin meterRightMargin meterTopMargin meterBottomMargin "
                 "meterOverMargin meterOverHeight meterType");
    row("peakMeter", "meterType meterPeakHeight");
    row("roundMeter", "meterType meterWidth meterOverWidth meterOverBackgroundWidth "
                      "meterOverBackgroundHeight");
    row("gainReductionMeter", "meterType meterWidth");
    row("svgLabel", "svg disableSvgRenderer opacity");
    row("channelNameEdit", "defaultName elideMargin");
}

void tst_DesignerForms::offersEveryPropertyForEditing()
{
    QFETCH(QStringList, properties);
    const auto window = openForm();
    QObject* widget = window->findChild<QWidget*>(QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY(widget);
    const auto* sheet =
        qt_extension<QDesignerPropertySheetExtension*>(m_designer->extensionManager(), widget);
    QVERIFY(sheet);
    for (const QString& property : properties) {
        const int index = sheet->indexOf(property);
        QVERIFY2(index >= 0, qPrintable(property));
        QVERIFY2(sheet->isVisible(index) && sheet->isEnabled(index), qPrintable(property));
    }
}

void tst_DesignerForms::savesEdits()
{
    const auto window = openForm();
    auto* knob = window->findChild<QWidget*>(QStringLiteral("knob"));
    window->cursor()->setWidgetProperty(knob, QStringLiteral("valueChangeStep"), 7);
    window->cursor()->setWidgetProperty(knob, QStringLiteral("shadowBlur"), 3.5);
    QCOMPARE(knob->property("valueChangeStep").toInt(), 7);
    QCOMPARE(knob->property("shadowBlur").toDouble(), 3.5);
    const QString saved = window->contents().remove(QRegularExpression(QStringLiteral("\\s")));
    QVERIFY(saved.contains(QLatin1String("<propertyname=\"valueChangeStep\"><number>7</number>")));
    QVERIFY(saved.contains(QLatin1String("<propertyname=\"shadowBlur\"><double>3.5")));
}

void tst_DesignerForms::widgetBoxHasTheGroup()
{
    QDesignerWidgetBoxInterface& box = *m_designer->widgetBox();
    box.setFileName(QStringLiteral(":/qt-project.org/widgetbox/widgetbox.xml"));
    QVERIFY(box.load());
    for (int i = 0; i < box.categoryCount(); ++i) {
        if (box.category(i).name() != QLatin1String("Zolta"))
            continue;
        QCOMPARE(box.category(i).widgetCount(), 12);
        return;
    }
    QFAIL("there is no group \"Zolta\"");
}

ZOLTA_TEST_MAIN(tst_DesignerForms)
#include "tst_DesignerForms.moc"
