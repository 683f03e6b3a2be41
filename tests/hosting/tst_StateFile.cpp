// SPDX-License-Identifier: GPL-3.0-or-later
#include "hosting/StateFile.h"
#include "parameters/ParameterTable.h"
#include "tests/hosting/StateBytes.h"
#include "tests/support/TestFiles.h"
#include "tests/support/TestObject.h"

#include <QTemporaryDir>

#include <csignal>
#include <limits>
#include <sys/resource.h>

using namespace Qt::StringLiterals;
using namespace StateBytes;

class tst_StateFile : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void reads_data();
    void reads();
    void formatIsToldByContentNotByName();
    void saysWhatIsWrong_data();
    void saysWhatIsWrong();
    void saysWhatCannotBeRead();
    void everyTruncationIsRefused();
    void hostilePresetsAreRefused_data();
    void hostilePresetsAreRefused();
    void everyEntryIsChecked();
    void writesWhatItReads_data();
    void writesWhatItReads();
    void failedWritesSayWhy();
    void interruptedWriteKeepsTheOldFile();

private:
    static QString path(const char* name) { return s_folder.filePath(QLatin1String(name)); }
    static Result<QByteArray> decode(const QByteArray& bytes);

    static inline QTemporaryDir s_folder;
};

Result<QByteArray> tst_StateFile::decode(const QByteArray& bytes)
{
    return StateFile::decode(bytes, ZoltaComponent::classId(), u"a file"_s);
}

void tst_StateFile::reads_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("expected");
    const auto row = [](const char* name, const QByteArray& bytes, const QByteArray& expected) {
        QTest::newRow(name) << bytes << expected;
    };
    const float smallest = std::numeric_limits<float>::denorm_min();
    for (const float value : {0.0F, -0.0F, 0.25F, 1.0F, smallest})
        row("state", state(value), state(value));
    row("preset", presetOf(state(0.75F)), state(0.75F));
    row("class id in small letters", presetOf(state(), classId.toLower()), state());
    const QByteArray body = "<?xml?>" + state() + "end";
    row("other chunks around it",
        preset(body, {{"Info", 48, 7}, {"Comp", 55, 116}, {"Cont", 171, 3}}, 48 + body.size(), 3),
        state());
    for (const float value : {1.0F, -3.0F, std::numeric_limits<float>::quiet_NaN()}) {
        const QByteArray bytes = stateWith(27, bigEndianFloat(value));
        row("last entry, which means nothing", bytes, bytes);
    }
}

void tst_StateFile::reads()
{
    QFETCH(const QByteArray, bytes);
    const Result<QByteArray> result = decode(bytes);
    QCOMPARE(result.error(), QString());
    QTEST(result.value(), "expected");
}

void tst_StateFile::formatIsToldByContentNotByName()
{
    for (const QByteArray& bytes : {state(), presetOf(state())}) {
        for (const char* name : {"any.vstpreset", "any.state"})
            QCOMPARE(StateFile(TestFiles::write(path(name), bytes)).read().value(), state());
    }
}

void tst_StateFile::saysWhatIsWrong_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* tag, const QByteArray& bytes, const char* expected) {
        QTest::newRow(tag) << bytes << QString::fromLatin1(expected);
    };
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const float infinity = std::numeric_limits<float>::infinity();
    row("empty", "", "is empty.");
    row("one byte", "2", "is cut short: it holds 1 of the 116 bytes of a state.");
    row("only the version", "2620", "is cut short: it holds 4 of the 116 bytes of a state.");
    row("one byte less", state().chopped(1),
        "is cut short: it holds 115 of the 116 bytes of a state.");
    row("one byte more", state() + 'x', "is too long: it holds 117 bytes, where a state has 116.");
    row("enormous", QByteArray((1 << 20) + 1, '2'),
        "is too long: it holds more than a megabyte, where a state has 116 bytes.");
    row("another version", "2621" + state().mid(4),
        "is neither an equalizer state nor a preset: it begins with the bytes 32 36 32 31.");
    row("text", "hello, this is not a state",
        "is neither an equalizer state nor a preset: it begins with the bytes 68 65 6c 6c.");
    row("a foreign byte", "x",
        "is neither an equalizer state nor a preset: it begins with the bytes 78.");
    row("nan", stateWith(1, bigEndianFloat(nan)),
        "holds nan for fx_rackfx_prm_3 (Low gain), but values must lie between 0 and 1.");
    row("above 1", stateWith(26, bigEndianFloat(1.5F)),
        "holds 1.5 for fx_rackfx_prm_27 (Clean/drive), but values must lie between 0 and 1.");
    row("below 0", stateWith(0, bigEndianFloat(-1.0F)),
        "holds -1 for fx_rackfx_prm_4 (Low on), but values must lie between 0 and 1.");
    row("infinity", stateWith(23, bigEndianFloat(infinity)),
        "holds inf for fx_rackfx_prm_24 (High on), but values must lie between 0 and 1.");
    row("preset: mark only", "VST3", "is a preset cut short: it ends inside its header.");
    row("preset: part of the mark", "VS", "is a preset cut short: it ends inside its header.");
    row("preset: another format", preset(state(), {{"Comp", 48, 116}}, 164, 1, classId, 2),
        "is a preset of the unknown format version 2.");
    row("preset: another plug-in", presetOf(state(), "00000000000000000000000000000001"),
        "is a preset of another plug-in (class 00000000000000000000000000000001, not "
        "56535464787042657175616C697A6572).");
    row("preset: no list", presetOf(state()).left(164),
        "is a preset cut short: its list of chunks is missing.");
    row("preset: list elsewhere", preset(state(), {{"Comp", 48, 116}}, 160, 1),
        "is a damaged preset: its list of chunks is not where it should be.");
    row("preset: list cut", presetOf(state()).chopped(1),
        "is a preset cut short: it ends inside its list of chunks.");
    row("preset: no state", presetOf(state(), classId, "Cont"), "is a preset without a state.");
    row("preset: no chunks", preset(state(), {}, 164, 0), "is a preset without a state.");
    row("preset: short state", presetOf(state().chopped(1)),
        "is a preset whose state has 115 bytes instead of 116.");
    row("preset: long state", presetOf(state() + 'x'),
        "is a preset whose state has 117 bytes instead of 116.");
    row("preset: foreign state", presetOf("0000" + state().mid(4)),
        "is a preset whose state is not an equalizer state: it begins with the bytes 30 30 30 30.");
    row("preset: nan", presetOf(stateWith(2, bigEndianFloat(nan))),
        "holds nan for fx_rackfx_prm_2 (Low frequency), but values must lie between 0 and 1.");
}

void tst_StateFile::saysWhatIsWrong()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, expected);
    const QString file = TestFiles::write(path("wrong.state"), bytes);
    QCOMPARE(StateFile(file).read().error(), u"The state file %1 %2"_s.arg(file, expected));
}

void tst_StateFile::saysWhatCannotBeRead()
{
    const QString missing = path("missing.state");
    QCOMPARE(StateFile(missing).read().error(),
             u"The state file %1 cannot be read: No such file or directory."_s.arg(missing));
    QCOMPARE(StateFile(s_folder.path()).read().error(),
             u"The state file %1 is a folder."_s.arg(s_folder.path()));
}

void tst_StateFile::everyTruncationIsRefused()
{
    for (const QByteArray& whole : {state(), presetOf(state())}) {
        for (qsizetype length = 0; length < whole.size(); ++length)
            QVERIFY(!decode(whole.left(length)).isOk());
    }
}

void tst_StateFile::hostilePresetsAreRefused_data()
{
    QTest::addColumn<QByteArray>("bytes");
    constexpr qint64 huge = std::numeric_limits<qint64>::max();
    constexpr qint64 least = std::numeric_limits<qint64>::min();
    const QByteArray body = state();
    for (const qint64 list : {huge, least, qint64(-1), qint64(0), qint64(47), qint64(184)})
        QTest::addRow("list at %lld", list) << preset(body, {{"Comp", 48, 116}}, list, 1);
    for (const qint32 count :
         {std::numeric_limits<qint32>::max(), std::numeric_limits<qint32>::min(), -1, 2, 128, 129})
        QTest::addRow("%d chunks", count) << preset(body, {{"Comp", 48, 116}}, 164, count);
    for (const qint64 offset : {huge, least, qint64(-1), qint64(0), qint64(47), huge - 115})
        QTest::addRow("chunk at %lld", offset) << preset(body, {{"Comp", offset, 116}}, 164, 1);
    for (const qint64 size : {huge, least, qint64(-1), qint64(145), huge - 48})
        QTest::addRow("chunk of %lld", size) << preset(body, {{"Comp", 48, size}}, 164, 1);
    QTest::newRow("another chunk outside")
        << preset(body, {{"Comp", 48, 116}, {"Cont", 48, huge}}, 164, 2);
    QTest::newRow("class id with a zero")
        << presetOf(body, "5653546478704265"_ba.leftJustified(32, '\0'));
}

void tst_StateFile::hostilePresetsAreRefused()
{
    QFETCH(const QByteArray, bytes);
    QVERIFY(!decode(bytes).isOk());
}

void tst_StateFile::everyEntryIsChecked()
{
    for (int entry = 0; entry < 27; ++entry) {
        const QByteArray bytes = stateWith(entry, bigEndianFloat(2.0F));
        const Parameter& parameter = parameterTable[stateOrder[static_cast<std::size_t>(entry)]];
        QCOMPARE(decode(bytes).error(),
                 u"The state file a file holds 2 for %1 (%2), but values must "
                 "lie between 0 and 1."_s.arg(QLatin1String(parameter.name),
                                              QLatin1String(parameter.title)));
    }
}

void tst_StateFile::writesWhatItReads_data()
{
    QTest::addColumn<bool>("isPreset");
    for (const char* name : {"written.state", "written"})
        QTest::newRow(name) << false;
    for (const char* name : {"written.vstpreset", "written.VSTPreset"})
        QTest::newRow(name) << true;
}

void tst_StateFile::writesWhatItReads()
{
    QFETCH(const bool, isPreset);
    const StateFile file(path(QTest::currentDataTag()));
    for (const float value : {0.125F, 0.1F}) {
        const QByteArray bytes = stateWith(5, bigEndianFloat(value));
        QCOMPARE(file.write(bytes).error(), QString());
        QCOMPARE(TestFiles::read(path(QTest::currentDataTag())),
                 isPreset ? presetOf(bytes) : bytes);
        QCOMPARE(file.read().value(), bytes);
    }
}

void tst_StateFile::failedWritesSayWhy()
{
    const QString nowhere = path("no/such/folder/a.state");
    QCOMPARE(StateFile(nowhere).write(state()).error(),
             u"The file %1 cannot be written: No such file or directory."_s.arg(nowhere));
    QCOMPARE(StateFile(s_folder.path()).write(state()).error(),
             u"The file %1 cannot be written: it is a folder."_s.arg(s_folder.path()));
    QCOMPARE(StateFile(u"/dev/full"_s).write(state()).error(),
             u"The file /dev/full cannot be written: it is not a regular file."_s);
}

// A limit on the size of files stands in for a disk that is full after some bytes.
void tst_StateFile::interruptedWriteKeepsTheOldFile()
{
    const QString file = TestFiles::write(path("precious.vstpreset"), presetOf(state(0.5F)));
    const QStringList files = TestFiles::namesIn(s_folder.path());
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before = {};
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &before), 0);
    for (const rlim_t bytes : {0U, 1U, 47U, 48U, 100U, 191U}) {
        const rlimit limited = {bytes, before.rlim_max};
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &limited), 0);
        const QString error = StateFile(file).write(state(1.0F)).error();
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &before), 0);
        QCOMPARE(error, u"The file %1 cannot be written: File too large."_s.arg(file));
        QCOMPARE(TestFiles::read(file), presetOf(state(0.5F)));
        QCOMPARE(TestFiles::namesIn(s_folder.path()), files);
    }
    QCOMPARE(StateFile(file).write(state(1.0F)).error(), QString());
    QCOMPARE(TestFiles::read(file), presetOf(state(1.0F)));
}

QTEST_APPLESS_MAIN(tst_StateFile)

#include "tst_StateFile.moc"
