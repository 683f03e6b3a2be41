// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/controls/ControlTesting.h"
#include "tests/editor/EditorFixture.h"
#include "tests/support/DataTable.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QImage>

/// While a control of a band is dragged, the graph shows that band in full colour.
class tst_ZoltaEditorDrag : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void targetsLookDifferent();
    void dragsHighlightTheirBand_data();
    void dragsHighlightTheirBand();
    void gainTextSlotsShareTheFrequencyTextsFlag_data();
    void gainTextSlotsShareTheFrequencyTextsFlag();
    void middle4GainTextSlotIsConnectedToNothing();
    void theLowestDraggedBandIsHighlighted();
    void twoDragsOfABandEndOneByOne();
    void detachingAndDisablingEndADrag();
    void anEditorMayGoDuringADrag();

private:
    int shownTarget() const;
    void call(const QString& slot, bool drag) const;

    std::unique_ptr<EditorFixture> m_fixture;
    QList<QImage> m_pictures; // of the graph, by target
};

namespace {

QImage picture(QWidget* widget)
{
    QImage image(widget->size(), QImage::Format_RGB32);
    image.fill(Qt::black);
    widget->render(&image);
    return image;
}

const QStringList Bands = {QStringLiteral("low"),     QStringLiteral("middle1"),
                           QStringLiteral("middle2"), QStringLiteral("middle3"),
                           QStringLiteral("middle4"), QStringLiteral("high")};

/// An editor with six bands that do not hide each other, its knobs in linear mode: a press alone
/// changes nothing.
std::unique_ptr<EditorFixture> liveEditor()
{
    auto fixture = std::make_unique<EditorFixture>();
    for (int band = 0; band < 6; ++band) {
        fixture->host.set(TestHost::name(4 * band + 2), 0, 150 + 180 * band);
        fixture->host.set(TestHost::name(4 * band + 3), 0, 60);
    }
    fixture->bind();
    fixture->editor->setDialEditMode(2);
    return fixture;
}

QPointF middle(const QWidget* widget) { return QRectF(widget->rect()).center(); }

} // namespace

void tst_ZoltaEditorDrag::initTestCase()
{
    const auto fixture = liveEditor();
    for (int target = 0; target <= 6; ++target) {
        fixture->graph()->setEditTarget(static_cast<ZoltaEqualizerGraph::EditTarget>(target));
        m_pictures.append(picture(fixture->graph()));
    }
    cleanup();
}

void tst_ZoltaEditorDrag::cleanup() { m_fixture = liveEditor(); }

int tst_ZoltaEditorDrag::shownTarget() const
{
    return static_cast<int>(m_pictures.indexOf(picture(m_fixture->graph())));
}

void tst_ZoltaEditorDrag::call(const QString& slot, bool drag) const
{
    QVERIFY(QMetaObject::invokeMethod(m_fixture->editor.get(), slot.toLatin1().constData(),
                                      Q_ARG(bool, drag)));
}

void tst_ZoltaEditorDrag::targetsLookDifferent()
{
    for (int a = 0; a <= 6; ++a) {
        for (int b = 0; b < a; ++b)
            QVERIFY(m_pictures[a] != m_pictures[b]);
    }
    QCOMPARE(shownTarget(), 0);
}

void tst_ZoltaEditorDrag::dragsHighlightTheirBand_data()
{
    addColumns<QByteArray, int>("control", "target");
    const auto row = [](const QByteArray& control, int target) {
        QTest::newRow(control.constData()) << control << target;
    };
    for (const ParameterControls& parameter : AllParameters) {
        const QByteArray stem = parameter.stem;
        const int band = parameter.number <= 24 ? (parameter.number - 1) / 4 + 1 : 0;
        if (parameter.kind != ParameterControls::Button)
            row(stem + "Knob", band);
        // That of middle 4 is connected as that of middle 1, deliberately.
        if (parameter.kind == ParameterControls::KnobAndText)
            row(stem + "TextEdit", stem == "Middle4Gain" ? 2 : band);
    }
}

void tst_ZoltaEditorDrag::dragsHighlightTheirBand()
{
    QFETCH(QByteArray, control);
    QFETCH(int, target);
    QWidget* widget = m_fixture->widget(control.constData());
    ControlTesting::press(*widget, middle(widget));
    QCOMPARE(shownTarget(), target);
    ControlTesting::release(*widget, middle(widget));
    QCOMPARE(shownTarget(), 0);
    QCOMPARE(m_fixture->host.writes().size(), std::size_t(0));
}

void tst_ZoltaEditorDrag::gainTextSlotsShareTheFrequencyTextsFlag_data()
{
    addColumns<QString, int>("band", "target");
    for (int band = 0; band < 6; ++band)
        QTest::newRow(qPrintable(Bands[band])) << Bands[band] << band + 1;
}

void tst_ZoltaEditorDrag::gainTextSlotsShareTheFrequencyTextsFlag()
{
    QFETCH(QString, band);
    QFETCH(int, target);
    const QString gain = band + QStringLiteral("GainTextDrag");
    const QString frequency = band + QStringLiteral("FrequencyTextDrag");
    for (const auto& [begins, ends] : {std::pair(gain, frequency), std::pair(frequency, gain)}) {
        call(begins, true);
        QCOMPARE(shownTarget(), target);
        call(ends, false);
        QCOMPARE(shownTarget(), 0);
    }
}

void tst_ZoltaEditorDrag::middle4GainTextSlotIsConnectedToNothing()
{
    QWidget* text = m_fixture->widget("Middle4GainTextEdit");
    ControlTesting::press(*text, middle(text));
    // With middle 1 out of the way nothing is left to show.
    call(QStringLiteral("middle1FrequencyTextDrag"), false);
    QCOMPARE(shownTarget(), 0);
    ControlTesting::release(*text, middle(text));
}

void tst_ZoltaEditorDrag::theLowestDraggedBandIsHighlighted()
{
    for (int band = 5; band >= 0; --band) {
        call(Bands[band] + QStringLiteral("GainKnobDrag"), true);
        QCOMPARE(shownTarget(), band + 1);
    }
    for (int band = 0; band < 6; ++band) {
        call(Bands[band] + QStringLiteral("GainKnobDrag"), false);
        QCOMPARE(shownTarget(), band == 5 ? 0 : band + 2);
    }
}

void tst_ZoltaEditorDrag::twoDragsOfABandEndOneByOne()
{
    call(QStringLiteral("highTypeKnobDrag"), true);
    call(QStringLiteral("highFrequencyTextDrag"), true);
    call(QStringLiteral("highTypeKnobDrag"), false);
    QCOMPARE(shownTarget(), 6);
    call(QStringLiteral("highFrequencyTextDrag"), false);
    QCOMPARE(shownTarget(), 0);
}

void tst_ZoltaEditorDrag::detachingAndDisablingEndADrag()
{
    QWidget* knob = m_fixture->widget("Middle2GainKnob");
    ControlTesting::press(*knob, middle(knob));
    QCOMPARE(shownTarget(), 3);
    m_fixture->editor->setMemAPI(nullptr);
    m_fixture->bind();
    QCOMPARE(shownTarget(), 0);
    ControlTesting::press(*knob, middle(knob));
    QCOMPARE(shownTarget(), 3);
    knob->setEnabled(false);
    QCOMPARE(shownTarget(), 0);
}

void tst_ZoltaEditorDrag::anEditorMayGoDuringADrag()
{
    for (const char* name : {"LowTypeKnob", "Middle3GainKnob", "HighGainTextEdit"}) {
        auto fixture = liveEditor();
        QWidget* control = fixture->widget(name);
        ControlTesting::press(*control, middle(control));
        fixture->editor.reset();
        QCOMPARE(fixture->host.observerCount(), 0);
    }
}

ZOLTA_TEST_MAIN(tst_ZoltaEditorDrag)
#include "tst_ZoltaEditorDrag.moc"
