// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/controls/ControlTesting.h"
#include "tests/editor/EditorFixture.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QImage>
#include <QSignalSpy>

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
    void draggingAKnobWritesItsParameter();
    void anEditorMayGoDuringADrag();

private:
    int shownTarget() const;

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

const QStringList Bands = {QStringLiteral("Low"),     QStringLiteral("Middle1"),
                           QStringLiteral("Middle2"), QStringLiteral("Middle3"),
                           QStringLiteral("Middle4"), QStringLiteral("High")};

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

void call(QObject* object, const QString& slot, bool drag)
{
    if (!QMetaObject::invokeMethod(object, slot.toLatin1().constData(), Q_ARG(bool, drag)))
        qFatal("no slot %s", qPrintable(slot));
}

QString lowerFirst(const QString& name) { return name.left(1).toLower() + name.mid(1); }

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
    QTest::addColumn<QString>("control");
    QTest::addColumn<int>("target");
    for (int band = 0; band < 6; ++band) {
        const bool isOuter = band == 0 || band == 5;
        QStringList controls = {QStringLiteral("FrequencyKnob"),
                                QStringLiteral("FrequencyTextEdit"), QStringLiteral("GainKnob")};
        controls +=
            isOuter ? QStringList{QStringLiteral("TypeKnob")}
                    : QStringList{QStringLiteral("QualityKnob"), QStringLiteral("QualityTextEdit")};
        if (band != 4)
            controls.append(QStringLiteral("GainTextEdit"));
        for (const QString& control : controls)
            QTest::newRow(qPrintable(Bands[band] + control)) << Bands[band] + control << band + 1;
    }
    QTest::newRow("the wrong band, deliberately") << QStringLiteral("Middle4GainTextEdit") << 2;
    for (const char* level : {"InputKnob", "InputTextEdit", "OutputKnob", "OutputTextEdit"})
        QTest::newRow(level) << QString::fromLatin1(level) << 0;
}

void tst_ZoltaEditorDrag::dragsHighlightTheirBand()
{
    QFETCH(QString, control);
    QFETCH(int, target);
    QWidget* widget = m_fixture->find(QStringLiteral("m_p") + control);
    ControlTesting::press(*widget, middle(widget));
    QCOMPARE(shownTarget(), target);
    ControlTesting::release(*widget, middle(widget));
    QCOMPARE(shownTarget(), 0);
    QCOMPARE(m_fixture->host.writes().size(), std::size_t(0));
}

void tst_ZoltaEditorDrag::gainTextSlotsShareTheFrequencyTextsFlag_data()
{
    QTest::addColumn<QString>("band");
    QTest::addColumn<int>("target");
    for (int band = 0; band < 6; ++band)
        QTest::newRow(qPrintable(Bands[band])) << lowerFirst(Bands[band]) << band + 1;
}

void tst_ZoltaEditorDrag::gainTextSlotsShareTheFrequencyTextsFlag()
{
    QFETCH(QString, band);
    QFETCH(int, target);
    ZoltaEditor* editor = m_fixture->editor.get();
    const QString gain = band + QStringLiteral("GainTextDrag");
    const QString frequency = band + QStringLiteral("FrequencyTextDrag");

    call(editor, gain, true);
    QCOMPARE(shownTarget(), target);
    call(editor, frequency, false);
    QCOMPARE(shownTarget(), 0);
    call(editor, frequency, true);
    QCOMPARE(shownTarget(), target);
    call(editor, gain, false);
    QCOMPARE(shownTarget(), 0);
}

void tst_ZoltaEditorDrag::middle4GainTextSlotIsConnectedToNothing()
{
    QSignalSpy drags(m_fixture->widget("Middle4GainTextEdit"), SIGNAL(drag(bool)));
    QWidget* text = m_fixture->widget("Middle4GainTextEdit");
    ControlTesting::press(*text, middle(text));
    QCOMPARE(drags.count(), 1);
    // With middle 1 out of the way nothing is left to show.
    call(m_fixture->editor.get(), QStringLiteral("middle1FrequencyTextDrag"), false);
    QCOMPARE(shownTarget(), 0);
    ControlTesting::release(*text, middle(text));
}

void tst_ZoltaEditorDrag::theLowestDraggedBandIsHighlighted()
{
    ZoltaEditor* editor = m_fixture->editor.get();
    for (int band = 5; band >= 0; --band) {
        call(editor, lowerFirst(Bands[band]) + QStringLiteral("GainKnobDrag"), true);
        QCOMPARE(shownTarget(), band + 1);
    }
    for (int band = 0; band < 6; ++band) {
        call(editor, lowerFirst(Bands[band]) + QStringLiteral("GainKnobDrag"), false);
        QCOMPARE(shownTarget(), band == 5 ? 0 : band + 2);
    }
}

void tst_ZoltaEditorDrag::twoDragsOfABandEndOneByOne()
{
    ZoltaEditor* editor = m_fixture->editor.get();
    call(editor, QStringLiteral("highTypeKnobDrag"), true);
    call(editor, QStringLiteral("highFrequencyTextDrag"), true);
    call(editor, QStringLiteral("highTypeKnobDrag"), false);
    QCOMPARE(shownTarget(), 6);
    call(editor, QStringLiteral("highFrequencyTextDrag"), false);
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

void tst_ZoltaEditorDrag::draggingAKnobWritesItsParameter()
{
    QWidget* knob = m_fixture->widget("Middle2GainKnob");
    ControlTesting::press(*knob, middle(knob));
    ControlTesting::moveTo(*knob, middle(knob) - QPointF(0, 10));
    ControlTesting::release(*knob, middle(knob) - QPointF(0, 10));
    const auto writes = m_fixture->host.writes();
    QVERIFY(!writes.empty());
    for (const TestHost::Write& write : writes)
        QCOMPARE(write.name, QByteArray("fx_rackfx_prm_11"));
    QVERIFY(m_fixture->host.value("fx_rackfx_prm_11", 0) > 60);
    QCOMPARE(controller(m_fixture->widget("Middle2GainTextEdit"))->value(),
             m_fixture->host.value("fx_rackfx_prm_11", 0));
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
