// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/model/ChannelText.h"
#include "host/model/MixerModel.h"
#include "hosting/HostMemory.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QClipboard>
#include <QJsonDocument>
#include <QSignalSpy>

namespace {

constexpr std::size_t lowGain = 2;
constexpr std::size_t middle2Gain = 10;

} // namespace

// What the mixer's model keeps: names, pairs, A and B, and the clipboard.
class tst_MixerModel : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void namesAreKept();
    void renamingIsAStep();
    void blankNamesCountAsNone();
    void leaderOfAPair();
    void audible_data();
    void audible();
    void chooseKeepsBoth();
    void chooseIsAStep();
    void editsBetweenChoicesAreUndoneInOrder();
    void copyToTheOther();
    void copyFromTheOther();
    void copyOfTheSameIsNoStep();
    void channelsAreApart();
    void pasteIsAStep();
    void clipboardIsReadable();
    void typedClipboardIsUnderstood();
    void wrongClipboard_data();
    void wrongClipboard();
    void everyValueComesBackFromText();
    void feedsOneStrip();
    void feedingIsNoStep();

private:
    HostMemory& memory() { return *m_memory; }
    EditHistory& history() { return m_mixerModel->history(); }
    ChannelCompare& compare() { return m_mixerModel->compare(); }
    void put(int channel, std::size_t parameter, int value);
    int gain(int channel = 0) { return m_memory->values(channel)[lowGain]; }

    std::unique_ptr<HostMemory> m_memory;
    std::unique_ptr<MixerModel> m_mixerModel;
};

void tst_MixerModel::init()
{
    TestObject::init();
    m_memory = std::make_unique<HostMemory>();
    m_mixerModel = std::make_unique<MixerModel>(*m_memory);
}

void tst_MixerModel::cleanup()
{
    m_mixerModel.reset();
    m_memory.reset();
}

void tst_MixerModel::put(int channel, std::size_t parameter, int value)
{
    m_memory->setValue(parameterId(parameter), static_cast<unsigned short>(channel), value, 0, 0,
                       1);
}

void tst_MixerModel::namesAreKept()
{
    QSignalSpy spy(m_mixerModel.get(), &MixerModel::nameChanged);
    QCOMPARE(m_mixerModel->shownName(3), QStringLiteral("Channel 3"));
    m_mixerModel->setName(3, QStringLiteral("Snare"));
    QCOMPARE(m_mixerModel->name(3), QStringLiteral("Snare"));
    QCOMPARE(m_mixerModel->shownName(3), QStringLiteral("Snare"));
    QCOMPARE(m_mixerModel->name(2), QString());
    QCOMPARE(spy, (QList<QList<QVariant>>{{3}}));
    QCOMPARE(history().stack().count(), 0);
}

void tst_MixerModel::renamingIsAStep()
{
    m_mixerModel->rename(1, QStringLiteral("Kick"));
    m_mixerModel->rename(1, QStringLiteral("Kick in"));
    m_mixerModel->rename(1, QStringLiteral("Kick in"));
    QCOMPARE(history().stack().count(), 2);
    history().stack().undo();
    QCOMPARE(m_mixerModel->name(1), QStringLiteral("Kick"));
    history().stack().undo();
    QCOMPARE(m_mixerModel->name(1), QString());
    history().stack().redo();
    QCOMPARE(m_mixerModel->name(1), QStringLiteral("Kick"));
}

void tst_MixerModel::blankNamesCountAsNone()
{
    m_mixerModel->rename(0, QStringLiteral("  \t "));
    QCOMPARE(m_mixerModel->name(0), QString());
    QCOMPARE(history().stack().count(), 0);
    m_mixerModel->rename(0, QStringLiteral("  Lead \n vocal "));
    QCOMPARE(m_mixerModel->name(0), QStringLiteral("Lead vocal"));
}

void tst_MixerModel::leaderOfAPair()
{
    QCOMPARE(m_mixerModel->leaderOf(5), 4);
    QCOMPARE(m_mixerModel->leaderOf(4), 4);
    memory().setStrip(4, StripParameter::Stereo, 0);
    QCOMPARE(m_mixerModel->leaderOf(5), 5);
    QVERIFY(!m_mixerModel->isPair(5));
    memory().setStrip(7, StripParameter::Stereo, 0); // the pair's first channel decides
    QVERIFY(m_mixerModel->isPair(7));
}

void tst_MixerModel::audible_data()
{
    QTest::addColumn<QList<int>>("muted");
    QTest::addColumn<QList<int>>("soloed");
    QTest::addColumn<QList<int>>("heard");
    const QList<int> all{0, 1, 2, 3, 4, 5, 6, 7};
    QTest::newRow("all") << QList<int>{} << QList<int>{} << all;
    QTest::newRow("pair muted") << QList<int>{2} << QList<int>{} << QList<int>{0, 1, 4, 5, 6, 7};
    QTest::newRow("hidden mute") << QList<int>{3} << QList<int>{} << all;
    QTest::newRow("solo") << QList<int>{} << QList<int>{6} << QList<int>{6, 7};
    QTest::newRow("two solos") << QList<int>{} << QList<int>{0, 4} << QList<int>{0, 1, 4, 5};
    QTest::newRow("mute beats solo") << QList<int>{6} << QList<int>{6} << QList<int>{};
    QTest::newRow("hidden solo") << QList<int>{} << QList<int>{7} << all;
}

void tst_MixerModel::audible()
{
    QFETCH(const QList<int>, muted);
    QFETCH(const QList<int>, soloed);
    QFETCH(const QList<int>, heard);
    for (const int ch : muted)
        memory().setStrip(ch, StripParameter::Mute, 1);
    for (const int ch : soloed)
        memory().setStrip(ch, StripParameter::Solo, 1);
    QList<int> found;
    for (int ch = 0; ch < channelCount; ++ch) {
        if (m_mixerModel->isAudible(ch))
            found << ch;
    }
    QCOMPARE(found, heard);
}

void tst_MixerModel::chooseKeepsBoth()
{
    QSignalSpy spy(&compare(), &ChannelCompare::chosen);
    put(0, lowGain, 30);
    compare().choose(0, true);
    QVERIFY(compare().isB(0));
    QCOMPARE(gain(), 0);
    put(0, lowGain, -50);
    compare().choose(0, false);
    QCOMPARE(gain(), 30);
    compare().choose(0, true);
    QCOMPARE(gain(), -50);
    compare().choose(0, true);
    QCOMPARE(gain(), -50);
    QCOMPARE(spy.count(), 3);
}

void tst_MixerModel::chooseIsAStep()
{
    put(0, lowGain, 30);
    put(0, middle2Gain, 20);
    compare().choose(0, true);
    QCOMPARE(history().stack().undoText(), QStringLiteral("Choose B"));
    history().stack().undo();
    QVERIFY(!compare().isB(0));
    QCOMPARE(gain(), 30);
    history().stack().redo();
    QVERIFY(compare().isB(0));
    QCOMPARE(gain(), 0);
    compare().choose(0, false);
    QCOMPARE(gain(), 30);
}

void tst_MixerModel::editsBetweenChoicesAreUndoneInOrder()
{
    put(0, lowGain, 30);
    compare().choose(0, true);
    put(0, lowGain, -50);
    compare().choose(0, false);
    put(0, lowGain, 40);
    for (int i = 0; i < 5; ++i)
        history().stack().undo();
    QVERIFY(!history().stack().canUndo());
    QCOMPARE(gain(), 0);
    for (int i = 0; i < 5; ++i)
        history().stack().redo();
    QCOMPARE(gain(), 40);
    compare().choose(0, true);
    QCOMPARE(gain(), -50);
}

void tst_MixerModel::copyToTheOther()
{
    put(0, lowGain, 30);
    compare().copy(0, true);
    QCOMPARE(gain(), 30);
    QVERIFY(!compare().isB(0));
    compare().choose(0, true);
    QCOMPARE(gain(), 30);
    history().stack().undo();
    history().stack().undo();
    compare().choose(0, true);
    QCOMPARE(gain(), 0);
}

void tst_MixerModel::copyFromTheOther()
{
    put(0, lowGain, 30);
    compare().choose(0, true);
    compare().copy(0, true); // A to B, while B is chosen
    QCOMPARE(gain(), 30);
    QVERIFY(compare().isB(0));
    QCOMPARE(history().stack().undoText(), QStringLiteral("Copy A to B"));
    history().stack().undo();
    QCOMPARE(gain(), 0);
}

void tst_MixerModel::copyOfTheSameIsNoStep()
{
    put(0, lowGain, 30);
    compare().copy(0, true);
    history().clear();
    for (const bool toB : {true, false})
        compare().copy(0, toB);
    QCOMPARE(history().stack().count(), 0);
    compare().choose(0, true);
    QCOMPARE(gain(), 30);
}

void tst_MixerModel::channelsAreApart()
{
    put(0, lowGain, 30);
    put(1, lowGain, 31);
    compare().choose(0, true);
    QVERIFY(!compare().isB(1));
    QCOMPARE(gain(1), 31);
}

void tst_MixerModel::pasteIsAStep()
{
    put(2, lowGain, 77);
    put(2, middle2Gain, -33);
    history().clear();
    m_mixerModel->copyToClipboard(2);
    QVERIFY(m_mixerModel->canPaste());
    QCOMPARE(m_mixerModel->pasteFromClipboard(6).error(), QString());
    QCOMPARE(memory().values(6), memory().values(2));
    QCOMPARE(history().stack().count(), 1);
    QCOMPARE(history().stack().undoText(), QStringLiteral("Paste"));
    history().stack().undo();
    QCOMPARE(memory().values(6), HostMemory().values(6));
}

void tst_MixerModel::clipboardIsReadable()
{
    put(0, lowGain, 35);
    m_mixerModel->copyToClipboard(0);
    const QString text = QApplication::clipboard()->text();
    QVERIFY2(text.contains(QStringLiteral("\"Low gain\": \"+3.5\"")), qPrintable(text));
    QVERIFY(text.contains(QStringLiteral("\"Low type\": \"Shelf 12\"")));
}

void tst_MixerModel::typedClipboardIsUnderstood()
{
    put(0, middle2Gain, 12);
    QApplication::clipboard()->setText(QStringLiteral(
        "{\"zolta-equalizer\": {\"Low gain\": \"4 dB\", \"Flux\": 3, \"Low frequency\": \"1k\"}}"));
    QCOMPARE(m_mixerModel->pasteFromClipboard(0).error(), QString());
    QCOMPARE(gain(), 40);
    QCOMPARE(memory().values(0)[1], 680); // 20 Hz times 10^(680 / 400) is 1002 Hz
    QCOMPARE(memory().values(0)[middle2Gain], 12);
}

void tst_MixerModel::wrongClipboard_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("reason");
    const QString none = QStringLiteral("The clipboard holds no equalizer settings");
    QTest::newRow("empty") << QString() << none;
    QTest::newRow("prose") << QStringLiteral("zolta-equalizer") << none;
    QTest::newRow("other object") << QStringLiteral("{\"a\": 1}") << none;
    QTest::newRow("list") << QStringLiteral("[1]") << none;
    QTest::newRow("wrong type") << QStringLiteral("{\"zolta-equalizer\": {\"Low gain\": 3}}")
                                << QStringLiteral("The value of \"Low gain\" must be text");
    QTest::newRow("wrong text") << QStringLiteral("{\"zolta-equalizer\": {\"Low gain\": \"x\"}}")
                                << QStringLiteral("\"x\" is not a value of \"Low gain\"");
}

void tst_MixerModel::wrongClipboard()
{
    QFETCH(const QString, text);
    QFETCH(const QString, reason);
    QApplication::clipboard()->setText(text);
    QCOMPARE(m_mixerModel->pasteFromClipboard(0).error(),
             QStringLiteral("Cannot paste. %1.").arg(reason));
    QCOMPARE(memory().values(0), HostMemory().values(0));
    QCOMPARE(history().stack().count(), 0);
}

void tst_MixerModel::everyValueComesBackFromText()
{
    const HostMemory::Values start = HostMemory().values(0);
    for (std::size_t i = 0; i < parameterCount; ++i) {
        const Parameter& parameter = parameterTable[i];
        for (int value = parameter.minimum; value <= parameter.maximum; value += 1) {
            HostMemory::Values values = start;
            values[i] = value;
            const auto content = ChannelText::fromJson(ChannelText::toJson(values), start);
            QCOMPARE(content.error(), QString());
            QCOMPARE(content.value(), values);
        }
    }
}

void tst_MixerModel::feedsOneStrip()
{
    m_mixerModel->feed(5, false);
    QCOMPARE(memory().strip(4, StripParameter::Source), int(SourceFile));
    m_mixerModel->feed(0, false);
    QCOMPARE(memory().strip(0, StripParameter::Source), int(SourceTestSignal));
    m_mixerModel->feed(0, true);
    QCOMPARE(memory().strip(0, StripParameter::Source), int(SourceInput1));
    memory().setStrip(0, StripParameter::Source, SourceInput1 + 7);
    m_mixerModel->feed(2, true);
    QCOMPARE(memory().strip(2, StripParameter::Source), int(SourceTestSignal));
}

void tst_MixerModel::feedingIsNoStep()
{
    m_mixerModel->feed(0, false);
    QVERIFY(!history().stack().canUndo());
}

ZOLTA_TEST_MAIN(tst_MixerModel)

#include "tst_MixerModel.moc"
