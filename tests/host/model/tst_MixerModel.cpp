// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/model/ChannelText.h"
#include "host/model/MixerModel.h"
#include "hosting/HostMemory.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QClipboard>
#include <QJsonDocument>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

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
    void namesAreKept();
    void renamingIsAStep();
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
    void clipboardIsReadable();
    void typedClipboardIsUnderstood();
    void wrongClipboard_data();
    void wrongClipboard();
    void everyValueComesBackFromText();
    void feedsOneStrip();
    void numberOfChannelsIsAStep();
    void channelsThatAreGoneSilenceNobody();
    void undoFindsTheChannelsOfItsStep();

private:
    HostMemory& memory() { return *m_memory; }
    EditHistory& history() { return m_mixerModel->history(); }
    QUndoStack& stack() { return history().stack(); }
    ChannelCompare& compare() { return m_mixerModel->compare(); }
    void put(int channel, std::size_t parameter, int value);
    int gain(int channel = 0) { return m_memory->values(channel)[lowGain]; }

    std::unique_ptr<HostMemory> m_memory;
    std::unique_ptr<MixerModel> m_mixerModel;
};

void tst_MixerModel::init()
{
    TestObject::init();
    m_mixerModel.reset();
    m_memory = std::make_unique<HostMemory>();
    m_mixerModel = std::make_unique<MixerModel>(*m_memory);
}

void tst_MixerModel::put(int channel, std::size_t parameter, int value)
{
    m_memory->setValue(parameterId(parameter), static_cast<unsigned short>(channel), value, 0, 0,
                       1);
}

void tst_MixerModel::namesAreKept()
{
    QSignalSpy spy(m_mixerModel.get(), &MixerModel::nameChanged);
    QCOMPARE(m_mixerModel->shownName(3), u"Channel 4"_s);
    m_mixerModel->setName(3, u"Snare"_s);
    QCOMPARE(m_mixerModel->name(3), u"Snare"_s);
    QCOMPARE(m_mixerModel->shownName(3), u"Snare"_s);
    QCOMPARE(m_mixerModel->name(2), QString());
    QCOMPARE(spy, (QList<QList<QVariant>>{{3}}));
    QCOMPARE(stack().count(), 0);
}

void tst_MixerModel::renamingIsAStep()
{
    m_mixerModel->rename(1, u"  \t "_s); // blanks do not count
    m_mixerModel->rename(1, u"Kick"_s);
    m_mixerModel->rename(1, u"Kick in"_s);
    m_mixerModel->rename(1, u"  Kick \n in "_s);
    QCOMPARE(stack().count(), 2);
    stack().undo();
    QCOMPARE(m_mixerModel->name(1), u"Kick"_s);
    stack().undo();
    QCOMPARE(m_mixerModel->name(1), QString());
    stack().redo();
    QCOMPARE(m_mixerModel->name(1), u"Kick"_s);
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
    using Channels = QList<int>;
    const auto row = [](const char* name, const Channels& muted, const Channels& soloed,
                        const Channels& heard) { QTest::newRow(name) << muted << soloed << heard; };
    row("all", {}, {}, {0, 1, 2, 3, 4, 5, 6, 7});
    row("pair muted", {2}, {}, {0, 1, 4, 5, 6, 7});
    row("hidden mute", {3}, {}, {0, 1, 2, 3, 4, 5, 6, 7});
    row("solo", {}, {6}, {6, 7});
    row("two solos", {}, {0, 4}, {0, 1, 4, 5});
    row("mute beats solo", {6}, {6}, {});
    row("hidden solo", {}, {7}, {0, 1, 2, 3, 4, 5, 6, 7});
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
    for (int ch = 0; ch < defaultChannelCount; ++ch) {
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
    QCOMPARE(stack().undoText(), u"Choose B"_s);
    stack().undo();
    QVERIFY(!compare().isB(0));
    QCOMPARE(gain(), 30);
    stack().redo();
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
        stack().undo();
    QVERIFY(!stack().canUndo());
    QCOMPARE(gain(), 0);
    for (int i = 0; i < 5; ++i)
        stack().redo();
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
    stack().undo();
    stack().undo();
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
    QCOMPARE(stack().undoText(), u"Copy A to B"_s);
    stack().undo();
    QCOMPARE(gain(), 0);
}

void tst_MixerModel::copyOfTheSameIsNoStep()
{
    put(0, lowGain, 30);
    compare().copy(0, true);
    history().clear();
    for (const bool toB : {true, false})
        compare().copy(0, toB);
    QCOMPARE(stack().count(), 0);
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

void tst_MixerModel::clipboardIsReadable()
{
    put(0, lowGain, 35);
    m_mixerModel->copyToClipboard(0);
    const QString text = QApplication::clipboard()->text();
    QVERIFY2(text.contains(u"\"Low gain\": \"+3.5\""_s), qPrintable(text));
    QVERIFY(text.contains(u"\"Low type\": \"Shelf 12\""_s));
}

void tst_MixerModel::typedClipboardIsUnderstood()
{
    put(0, middle2Gain, 12);
    QApplication::clipboard()->setText(
        u"{\"zolta-equalizer\": {\"Low gain\": \"4 dB\", \"Flux\": 3, \"Low frequency\": \"1k\"}}"_s);
    QCOMPARE(m_mixerModel->pasteFromClipboard(0).error(), QString());
    QCOMPARE(gain(), 40);
    QCOMPARE(memory().values(0)[1], 680); // 20 Hz times 10^(680 / 400) is 1002 Hz
    QCOMPARE(memory().values(0)[middle2Gain], 12);
}

void tst_MixerModel::wrongClipboard_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char* name, const char* text, const char* reason) {
        QTest::newRow(name) << QString::fromLatin1(text) << QString::fromLatin1(reason);
    };
    row("empty", "", "The clipboard holds no equalizer settings");
    row("prose", "zolta-equalizer", "The clipboard holds no equalizer settings");
    row("other object", R"({"a": 1})", "The clipboard holds no equalizer settings");
    row("list", "[1]", "The clipboard holds no equalizer settings");
    row("wrong type", R"({"zolta-equalizer": {"Low gain": 3}})",
        R"(The value of "Low gain" must be text)");
    row("wrong text", R"({"zolta-equalizer": {"Low gain": "x"}})",
        R"("x" is not a value of "Low gain")");
}

void tst_MixerModel::wrongClipboard()
{
    QFETCH(const QString, text);
    QFETCH(const QString, reason);
    QApplication::clipboard()->setText(text);
    QCOMPARE(m_mixerModel->pasteFromClipboard(0).error(), u"Cannot paste. %1."_s.arg(reason));
    QCOMPARE(memory().values(0), HostMemory().values(0));
    QCOMPARE(stack().count(), 0);
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
    QCOMPARE(memory().strip(0, StripParameter::Source), int(SourceOff));
    m_mixerModel->feed(0, true);
    QCOMPARE(memory().strip(0, StripParameter::Source), int(SourceInput1));
    QVERIFY(!stack().canUndo()); // is no step
    memory().setStrip(0, StripParameter::Source, SourceInput1 + 7);
    m_mixerModel->feed(2, true);
    QCOMPARE(memory().strip(2, StripParameter::Source), int(SourceOff));
}

void tst_MixerModel::numberOfChannelsIsAStep()
{
    QSignalSpy spy(m_mixerModel.get(), &MixerModel::channelCountChanged);
    for (const int count : {8, 32, 32, 2})
        m_mixerModel->chooseChannelCount(count);
    QCOMPARE(stack().count(), 2);
    QCOMPARE(stack().undoText(), u"Number of Channels"_s);
    stack().undo();
    stack().undo();
    stack().redo();
    QCOMPARE(spy, (QList<QList<QVariant>>{{32}, {2}, {32}, {8}, {32}}));
    m_mixerModel->setChannelCount(16); // as of a session
    QCOMPARE(m_mixerModel->channelCount(), 16);
    QCOMPARE(stack().count(), 2);
}

void tst_MixerModel::channelsThatAreGoneSilenceNobody()
{
    m_mixerModel->setChannelCount(16);
    memory().setStrip(14, StripParameter::Solo, 1);
    memory().setStrip(14, StripParameter::Source, SourceFile);
    QVERIFY(!m_mixerModel->isAudible(0));
    m_mixerModel->setChannelCount(14);
    QVERIFY(m_mixerModel->isAudible(0));
    m_mixerModel->feed(13, false); // there is no strip any more that plays the file
    QCOMPARE(memory().strip(12, StripParameter::Source), int(SourceFile));
    m_mixerModel->setChannelCount(16);
    QVERIFY(!m_mixerModel->isAudible(0) && m_mixerModel->isAudible(15));
}

// An edit in a channel that is gone is undone after its channel has come back.
void tst_MixerModel::undoFindsTheChannelsOfItsStep()
{
    m_mixerModel->chooseChannelCount(32);
    put(31, lowGain, 30);
    m_mixerModel->rename(31, u"Last"_s);
    m_mixerModel->chooseChannelCount(8);
    put(7, lowGain, -30);
    stack().undo();
    stack().undo();
    QCOMPARE(m_mixerModel->channelCount(), 32);
    QCOMPARE(gain(31), 30);
    QCOMPARE(m_mixerModel->name(31), u"Last"_s);
    stack().setIndex(0);
    QCOMPARE(m_mixerModel->channelCount(), 8);
    QCOMPARE(gain(31), 0);
    stack().setIndex(5);
    QCOMPARE(m_mixerModel->channelCount(), 8);
    QCOMPARE(gain(31), 30);
    QCOMPARE(gain(7), -30);
}

ZOLTA_TEST_MAIN(tst_MixerModel)

#include "tst_MixerModel.moc"
