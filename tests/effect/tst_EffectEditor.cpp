// SPDX-License-Identifier: GPL-3.0-or-later
#include "effect/EffectEditor.h"

#include "controls/KnobController.h"
#include "controls/TextEditController.h"
#include "effect/WidgetScale.h"
#include "interfaces/IModelInfo.h"
#include "tests/effect/PlainEditor.h"
#include "tests/support/DataTable.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QScrollArea>
#include <QScrollBar>

#include <limits>

using CommonController_MemAPI::KnobController;
using CommonController_MemAPI::TextEditController;

namespace {

/// A model with one parameter, "gain", and one meter, "level". Every look-up writes its outputs
/// even when it fails, unless it is told to leave them.
class OneOfEach : public IModelInfo
{
public:
    void getChannelEntry(unsigned short*, unsigned short*, unsigned int) override {}
    unsigned short getChannelCount() override { return 0; }

    bool findParameter(unsigned short* index, const char* name) override
    {
        write(index, 5);
        return qstrcmp(name, "gain") == 0;
    }

    bool getParameterAddress(unsigned short* parameter, unsigned short* second,
                             unsigned short index) override
    {
        askedIndex = index;
        write(parameter, 1234);
        write(second, 56);
        return placeKnown;
    }

    bool findMeter(unsigned short* index, const char* name) override
    {
        write(index, 7);
        return qstrcmp(name, "level") == 0;
    }

    bool getMeterRange(unsigned short* first, unsigned short* channels,
                       unsigned short index) override
    {
        askedIndex = index;
        write(first, base);
        write(channels, count);
        return placeKnown;
    }

    unsigned short base = 10;
    unsigned short count = 2;
    bool placeKnown = true;
    bool writes = true;
    int askedIndex = -1;

private:
    void write(unsigned short* output, unsigned short value) const
    {
        if (writes)
            *output = value;
    }
};

/// A label that goes back to a font in points whenever it is given a style.
class PointLabel : public QLabel
{
public:
    using QLabel::QLabel;

protected:
    void changeEvent(QEvent* event) override
    {
        if (event->type() == QEvent::StyleChange)
            setFont(QFont(QStringLiteral("M+ 1c"), 13));
        QLabel::changeEvent(event);
    }
};

/// Notes the zoom factor that it sees while it is resized.
class ScaleWitness : public QWidget
{
public:
    using QWidget::QWidget;
    double seen = std::numeric_limits<double>::quiet_NaN();

protected:
    void resizeEvent(QResizeEvent*) override { seen = getWidgetScale(this); }
};

QFont pixelFont(int size)
{
    QFont font(QStringLiteral("M+ 1c"));
    font.setPixelSize(size);
    return font;
}

} // namespace

class tst_EffectEditor : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void answersNeutrally();
    void parameterIsResolved();
    void unknownLeavesTheOutputs_data();
    void unknownLeavesTheOutputs();
    void meterIndexIsResolved_data();
    void meterIndexIsResolved();
    void initializeAppliesFontsStyleAndPalette();
    void informationIsInPreOrder();
    void setScaleRoundsGeometryAndTruncatesFonts_data();
    void setScaleRoundsGeometryAndTruncatesFonts();
    void setScaleTruncatesPointSizes();
    void setScaleIsStoredAfterTheWidgets();
    void setScaleSurvivesExtremes_data();
    void setScaleSurvivesExtremes();
    void setScaleReachesTheControls();
    void childrenOutliveTheStyle();
};

void tst_EffectEditor::answersNeutrally()
{
    QWidget parent;
    PlainEditor editor(&parent);
    QLabel label(&editor);
    editor.initialize();
    const QRect geometry = label.geometry();
    IVaskEffectEditor2& host = editor;
    host.setStereo(true);
    host.setFs(96000);
    host.setOn(false);
    host.setEditorSettings({{QStringLiteral("GraphZoom"), 2}});
    QVERIFY(host.getEditorSettings().isEmpty());
    QCOMPARE(host.scale(), 1.0);
    QCOMPARE(label.geometry(), geometry);
    QCOMPARE(editor.parentWidget(), &parent);
    QVERIFY(!editor.isWindow());
    QCOMPARE(editor.metaObject()->className(), "EffectEditor");
}

void tst_EffectEditor::parameterIsResolved()
{
    PlainEditor editor;
    OneOfEach model;
    editor.setModelInfo(&model);
    unsigned short parameter = 1, second = 2;
    QVERIFY(editor.getParameter("gain", nullptr, nullptr));
    QVERIFY(editor.getParameter("gain", &parameter, nullptr));
    QVERIFY(editor.getParameter("gain", nullptr, &second));
    QCOMPARE(parameter, 1234);
    QCOMPARE(second, 56);
    QCOMPARE(model.askedIndex, 5);
    // What the model leaves unanswered is 0.
    model.writes = false;
    QVERIFY(editor.getParameter("gain", &parameter, &second));
    QCOMPARE(model.askedIndex, 0);
    QCOMPARE(parameter, 0);
    QCOMPARE(second, 0);
}

void tst_EffectEditor::unknownLeavesTheOutputs_data()
{
    addColumns<bool, bool, bool, int, int>("hasModel", "nameKnown", "placeKnown", "count", "ch");
    QTest::newRow("no model") << false << true << true << 2 << 1;
    QTest::newRow("no such name") << true << false << true << 2 << 1;
    QTest::newRow("no address or range") << true << true << false << 2 << 1;
    QTest::newRow("channel beyond") << true << true << true << 1 << 1;
    QTest::newRow("no channels") << true << true << true << 0 << 0;
    QTest::newRow("channel -1") << true << true << true << 65535 << -1;
}

// Channels are a matter of meters alone.
void tst_EffectEditor::unknownLeavesTheOutputs()
{
    QFETCH(bool, hasModel);
    QFETCH(bool, nameKnown);
    QFETCH(bool, placeKnown);
    QFETCH(int, count);
    QFETCH(int, ch);
    PlainEditor editor;
    OneOfEach model;
    model.placeKnown = placeKnown;
    model.count = static_cast<unsigned short>(count);
    editor.setModelInfo(hasModel ? &model : nullptr);
    unsigned short parameter = 1, second = 2, index = 99;
    const bool isKnown = hasModel && nameKnown && placeKnown;
    QCOMPARE(editor.getParameter(nameKnown ? "gain" : "Gain", &parameter, &second), isKnown);
    QCOMPARE(parameter, isKnown ? 1234 : 1);
    QCOMPARE(second, isKnown ? 56 : 2);
    QVERIFY(!editor.getMeterIndex(nameKnown ? "level" : "x", static_cast<unsigned short>(ch), true,
                                  &index));
    QCOMPARE(index, 99);
}

void tst_EffectEditor::meterIndexIsResolved_data()
{
    addColumns<int, int, int, bool, int>("base", "count", "ch", "second", "index");
    QTest::newRow("first of the first") << 10 << 2 << 0 << false << 10;
    QTest::newRow("second of the first") << 10 << 2 << 0 << true << 11;
    QTest::newRow("second of the second") << 10 << 2 << 1 << true << 13;
    QTest::newRow("wraps at 16 bits") << 65535 << 2 << 1 << true << 2;
    QTest::newRow("wraps by the channel") << 0 << 65535 << 65534 << true << 65533;
}

void tst_EffectEditor::meterIndexIsResolved()
{
    QFETCH(int, base);
    QFETCH(int, count);
    QFETCH(int, ch);
    QFETCH(bool, second);
    PlainEditor editor;
    OneOfEach model;
    model.base = static_cast<unsigned short>(base);
    model.count = static_cast<unsigned short>(count);
    editor.setModelInfo(&model);
    const auto channel = static_cast<unsigned short>(ch);
    unsigned short index = 99;
    QVERIFY(editor.getMeterIndex("level", channel, second, nullptr));
    QVERIFY(editor.getMeterIndex("level", channel, second, &index));
    QTEST(int(index), "index");
    QCOMPARE(model.askedIndex, 7);
}

void tst_EffectEditor::initializeAppliesFontsStyleAndPalette()
{
    PlainEditor editor;
    QLabel label(&editor);
    QMenu menu(&label);
    label.setFont(QFont(QStringLiteral("M+ 1c medium"), 10));
    QPalette palette;
    palette.setColor(QPalette::Disabled, QPalette::Text, Qt::cyan);
    editor.setPalette(palette);
    editor.initialize();
    QCOMPARE(label.font().family(), QLatin1String("M+ 1c"));
    QCOMPARE(label.font().styleName(), QLatin1String("Medium"));
    QCOMPARE(label.font().pixelSize(), 13);
    QVERIFY(qobject_cast<EffectStyle*>(editor.style()));
    QCOMPARE(label.style(), editor.style());
    QCOMPARE(menu.style(), editor.style());
    QCOMPARE(menu.palette().color(QPalette::Disabled, QPalette::Text), QColor(Qt::cyan));
}

void tst_EffectEditor::informationIsInPreOrder()
{
    QWidget top;
    QWidget first(&top);
    QObject notAWidget(&top);
    QWidget firstOfFirst(&first);
    QScrollArea area(&top);
    area.setWidget(new QWidget);
    QWidget inArea(area.widget());
    QScrollArea empty(&top);
    QWidget secondOfFirst(&first);
    first.setGeometry(1, 2, 30, 40);
    first.setFont(pixelFont(9));
    firstOfFirst.setGeometry(-5, 6, 70, 80);
    firstOfFirst.setFont(QFont(QStringLiteral("M+ 1c"), 8));
    // Of a scroll area nothing but its content.
    QVERIFY(area.findChild<QScrollBar*>());
    QList<EffectEditor::WidgetInformation> list;
    getWidgetInformationList(&top, &list);
    QList<QWidget*> widgets;
    for (const EffectEditor::WidgetInformation& information : list)
        widgets.append(information.widget);
    QCOMPARE(widgets, (QList<QWidget*>{&top, &first, &firstOfFirst, &secondOfFirst, &area,
                                       area.widget(), &inArea, &empty}));
    QCOMPARE(list[1].geometry, QRect(1, 2, 30, 40));
    QCOMPARE(list[1].pointSize, -1);
    QCOMPARE(list[1].pixelSize, 9);
    QCOMPARE(list[2].geometry, QRect(-5, 6, 70, 80));
    QCOMPARE(list[2].pointSize, 8);
    QCOMPARE(list[2].pixelSize, -1);
}

void tst_EffectEditor::setScaleRoundsGeometryAndTruncatesFonts_data()
{
    addColumns<double, QRect, QRect, int>("scale", "editorRect", "labelRect", "pixelSize");
    QTest::newRow("0.5") << 0.5 << QRect(4, 5, 51, 28) << QRect(-4, 5, 11, 7) << 6;
    // Negative places round towards zero, so that scale 1 moves them.
    QTest::newRow("1") << 1.0 << QRect(7, 9, 101, 55) << QRect(-9, 10, 21, 13) << 13;
    QTest::newRow("1.5") << 1.5 << QRect(11, 14, 152, 83) << QRect(-14, 15, 32, 20) << 19;
}

// Widgets are scaled from what they were when the editor was initialized.
void tst_EffectEditor::setScaleRoundsGeometryAndTruncatesFonts()
{
    QFETCH(double, scale);
    QWidget parent;
    PlainEditor editor(&parent);
    editor.setGeometry(7, 9, 101, 55);
    QLabel label(&editor);
    label.setGeometry(-10, 10, 21, 13);
    label.setFont(QFont(QStringLiteral("M+ 1c bold"), 10)); // 13 pixels
    editor.setScale(3.0);
    QCOMPARE(editor.geometry(), QRect(7, 9, 101, 55));
    editor.initialize();
    editor.setScale(1.7);
    label.setFont(pixelFont(50));
    editor.setScale(scale);
    QCOMPARE(editor.scale(), scale);
    QTEST(editor.geometry(), "editorRect");
    QTEST(label.geometry(), "labelRect");
    QTEST(label.font().pixelSize(), "pixelSize");
}

void tst_EffectEditor::setScaleTruncatesPointSizes()
{
    PlainEditor editor;
    PointLabel label(&editor);
    editor.initialize();
    QCOMPARE(label.font().pointSize(), 13);
    editor.setScale(1.5);
    QCOMPARE(label.font().pointSize(), 19);
    editor.setScale(0.01);
    QCOMPARE(label.font().pointSize(), 1);
}

void tst_EffectEditor::setScaleIsStoredAfterTheWidgets()
{
    PlainEditor editor;
    editor.resize(100, 100);
    ScaleWitness witness(&editor);
    witness.resize(50, 50);
    editor.initialize();
    editor.show();
    witness.seen = 0.0;
    editor.setScale(2.0);
    QCOMPARE(witness.size(), QSize(100, 100));
    QCOMPARE(witness.seen, 1.0);
    QCOMPARE(getWidgetScale(&witness), 2.0);
}

void tst_EffectEditor::setScaleSurvivesExtremes_data()
{
    using Limits = std::numeric_limits<double>;
    addColumns<double, bool>("scale", "taken");
    QTest::newRow("0") << 0.0 << true;
    QTest::newRow("smallest") << Limits::denorm_min() << true;
    QTest::newRow("tiny") << 0.01 << true;
    QTest::newRow("negative") << -1.5 << true;
    QTest::newRow("int overflow") << 1e9 << true;
    QTest::newRow("largest") << Limits::max() << true;
    QTest::newRow("most negative") << Limits::lowest() << true;
    QTest::newRow("NaN") << Limits::quiet_NaN() << false;
    QTest::newRow("infinity") << Limits::infinity() << false;
    QTest::newRow("-infinity") << -Limits::infinity() << false;
}

void tst_EffectEditor::setScaleSurvivesExtremes()
{
    QFETCH(double, scale);
    QFETCH(bool, taken);
    QWidget parent;
    PlainEditor editor(&parent);
    editor.setGeometry(3, 5, 333, 222);
    QLabel label(QStringLiteral("text"), &editor);
    label.setGeometry(11, 13, 17, 19);
    label.setFont(pixelFont(13));
    editor.initialize();
    editor.setScale(2.0);
    editor.setScale(scale);
    QCOMPARE(editor.scale(), taken ? scale : 2.0);
    QCOMPARE(label.geometry() == QRect(22, 26, 34, 38), !taken);
    QVERIFY(label.font().pixelSize() >= 1);
    QVERIFY(label.width() >= 0 && label.height() >= 0);
    editor.setScale(1.0);
    QCOMPARE(editor.geometry(), QRect(3, 5, 333, 222));
    QCOMPARE(label.geometry(), QRect(11, 13, 17, 19));
    QCOMPARE(label.font().pixelSize(), 13);
}

// A widget that came after initialize() is left alone.
void tst_EffectEditor::setScaleReachesTheControls()
{
    PlainEditor editor;
    KnobController knob(new QWidget(&editor));
    TextEditController text(&editor);
    text.setGeometry(10, 10, 60, 20);
    editor.initialize();
    KnobController late(&editor);
    late.setGeometry(10, 20, 30, 40);
    editor.show();
    editor.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&editor));
    text.edit();
    editor.setScale(1.5);
    QCOMPARE(knob.scale(), 1.5);
    QCOMPARE(text.scale(), 1.5);
    QCOMPARE(text.geometry(), QRect(15, 15, 90, 30));
    QCOMPARE(late.scale(), 1.0);
    QCOMPARE(late.geometry(), QRect(10, 20, 30, 40));
    const auto* inlineEditor = text.findChild<QLineEdit*>();
    QCOMPARE(inlineEditor->geometry(), text.rect());
    QVERIFY(inlineEditor->isVisible());
    editor.setScale(0.25);
    QCOMPARE(knob.scale(), 0.5);
}

// The style goes with the editor, before the widgets that Qt deletes after it; a widget that moved
// elsewhere in time goes on with the application's style.
void tst_EffectEditor::childrenOutliveTheStyle()
{
    auto* label = new QLabel(QStringLiteral("text"));
    auto* editor = new PlainEditor;
    label->setParent(editor);
    new QMenu(editor);
    editor->initialize();
    editor->show();
    label->setParent(nullptr);
    delete editor;
    QCOMPARE(label->style(), QApplication::style());
    QVERIFY(!label->grab().isNull());
    delete label;
}

ZOLTA_TEST_MAIN(tst_EffectEditor)

#include "tst_EffectEditor.moc"
