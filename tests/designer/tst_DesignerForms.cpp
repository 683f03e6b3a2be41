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
#include <QMetaProperty>

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
    QTest::addColumn<QString>("name");
    for (const char* name :
         {"knob", "fader", "textEdit", "pushButton", "pullDownButton", "buttonGroup", "meter",
          "peakMeter", "roundMeter", "gainReductionMeter", "svgLabel", "channelNameEdit"})
        QTest::newRow(name) << name;
}

void tst_DesignerForms::offersEveryPropertyForEditing()
{
    QFETCH(QString, name);
    const auto window = openForm();
    QObject* widget = window->findChild<QWidget*>(name);
    QVERIFY(widget);
    const auto* sheet =
        qt_extension<QDesignerPropertySheetExtension*>(m_designer->extensionManager(), widget);
    QVERIFY(sheet);
    int ownProperties = 0;
    const QMetaObject* type = widget->metaObject();
    for (; type->className()[0] != 'Q'; type = type->superClass()) {
        for (int i = type->propertyOffset(); i < type->propertyCount(); ++i, ++ownProperties) {
            const char* property = type->property(i).name();
            const int index = sheet->indexOf(QString::fromLatin1(property));
            QVERIFY2(index >= 0, property);
            QVERIFY2(sheet->isVisible(index) && sheet->isEnabled(index), property);
        }
    }
    QVERIFY(ownProperties > 0);
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
