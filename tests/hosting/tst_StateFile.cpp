// SPDX-License-Identifier: GPL-3.0-or-later
#include "hosting/StateFile.h"
#include "parameters/ParameterTable.h"
#include "tests/hosting/StateBytes.h"
#include "tests/support/TestObject.h"

#include <QDir>
#include <QTemporaryDir>

#include <csignal>
#include <limits>
#include <sys/resource.h>

using namespace StateBytes;

class tst_StateFile : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsAState();
    void readsAPreset();
    void formatIsToldByContentNotByName();
    void lastEntryMeansNothing();
    void endsOfTheRangeAreFine();
    void saysWhatIsWrong_data();
    void saysWhatIsWrong();
    void saysWhatCannotBeRead();
    void everyTruncationIsRefused_data();
    void everyTruncationIsRefused();
    void hostilePresetsAreRefused_data();
    void hostilePresetsAreRefused();
    void everyEntryIsChecked();
    void writesAState();
    void writesAPreset();
    void writtenFilesLoadBack_data();
    void writtenFilesLoadBack();
    void failedWritesSayWhy();
    void interruptedWriteKeepsTheOldFile();

private:
    static QString write(const QString& name, const QByteArray& bytes);
    static QByteArray contentOf(const QString& file);
    static Result<QByteArray> decode(const QByteArray& bytes);

    static inline QTemporaryDir s_folder;
};

QString tst_StateFile::write(const QString& name, const QByteArray& bytes)
{
    QFile file(s_folder.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
    return file.fileName();
}

QByteArray tst_StateFile::contentOf(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

Result<QByteArray> tst_StateFile::decode(const QByteArray& bytes)
{
    return StateFile::decode(bytes, ZoltaComponent::classId(), QStringLiteral("a file"));
}

void tst_StateFile::readsAState()
{
    const QString file = write(QStringLiteral("plain.state"), state(0.25F));
    const Result<QByteArray> result = StateFile(file).read();
    QCOMPARE(result.error(), QString());
    QCOMPARE(result.value(), state(0.25F));
}

void tst_StateFile::readsAPreset()
{
    const Result<QByteArray> result = decode(presetOf(state(0.75F)));
    QCOMPARE(result.error(), QString());
    QCOMPARE(result.value(), state(0.75F));
    QCOMPARE(decode(presetOf(state(), classId.toLower())).value(), state());

    // Other chunks around it do not matter.
    const QByteArray body = "<?xml?>" + state() + "end";
    const QByteArray several =
        preset(body, {{"Info", 48, 7}, {"Comp", 55, 116}, {"Cont", 171, 3}}, 48 + body.size(), 3);
    QCOMPARE(decode(several).value(), state());
}

void tst_StateFile::formatIsToldByContentNotByName()
{
    const QString plain = write(QStringLiteral("really-plain.vstpreset"), state());
    const QString wrapped = write(QStringLiteral("really-preset.state"), presetOf(state()));
    QCOMPARE(StateFile(plain).read().value(), state());
    QCOMPARE(StateFile(wrapped).read().value(), state());
}

void tst_StateFile::lastEntryMeansNothing()
{
    const float nan = std::numeric_limits<float>::quiet_NaN();
    for (const float value : {1.0F, -3.0F, nan}) {
        const QByteArray bytes = stateWith(27, bigEndianFloat(value));
        QCOMPARE(decode(bytes).value(), bytes);
    }
}

void tst_StateFile::endsOfTheRangeAreFine()
{
    for (const float value : {0.0F, -0.0F, 1.0F, std::numeric_limits<float>::denorm_min()})
        QCOMPARE(decode(state(value)).value(), state(value));
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
    const QString file = write(QStringLiteral("wrong.state"), bytes);
    const Result<QByteArray> result = StateFile(file).read();
    QCOMPARE(result.error(), QStringLiteral("The state file %1 %2").arg(file, expected));
}

void tst_StateFile::saysWhatCannotBeRead()
{
    const QString missing = s_folder.filePath(QStringLiteral("missing.state"));
    QCOMPARE(StateFile(missing).read().error(),
             QStringLiteral("The state file %1 cannot be read: No such file or directory.")
                 .arg(missing));
    QCOMPARE(StateFile(s_folder.path()).read().error(),
             QStringLiteral("The state file %1 is a folder.").arg(s_folder.path()));
}

void tst_StateFile::everyTruncationIsRefused_data()
{
    QTest::addColumn<QByteArray>("whole");
    QTest::newRow("state") << state();
    QTest::newRow("preset") << presetOf(state());
}

void tst_StateFile::everyTruncationIsRefused()
{
    QFETCH(const QByteArray, whole);
    for (qsizetype length = 0; length < whole.size(); ++length) {
        const Result<QByteArray> result = decode(whole.left(length));
        QVERIFY(!result.isOk());
    }
    QCOMPARE(decode(whole).value(), state());
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
        << presetOf(body, QByteArray("5653546478704265").leftJustified(32, '\0'));
}

void tst_StateFile::hostilePresetsAreRefused()
{
    QFETCH(const QByteArray, bytes);
    const Result<QByteArray> result = decode(bytes);
    QVERIFY(!result.isOk());
}

void tst_StateFile::everyEntryIsChecked()
{
    for (int entry = 0; entry < 27; ++entry) {
        const QByteArray bytes = stateWith(entry, bigEndianFloat(2.0F));
        const Parameter& parameter = parameterTable[stateOrder[static_cast<std::size_t>(entry)]];
        QCOMPARE(decode(bytes).error(),
                 QStringLiteral("The state file a file holds 2 for %1 (%2), but values must "
                                "lie between 0 and 1.")
                     .arg(QLatin1String(parameter.name), QLatin1String(parameter.title)));
    }
}

void tst_StateFile::writesAState()
{
    const QString file = s_folder.filePath(QStringLiteral("written.state"));
    QCOMPARE(StateFile(file).write(state(0.125F)).error(), QString());
    QCOMPARE(contentOf(file), state(0.125F));
    QCOMPARE(StateFile(file).write(state(0.25F)).error(), QString());
    QCOMPARE(contentOf(file), state(0.25F));
}

void tst_StateFile::writesAPreset()
{
    for (const char* name : {"written.vstpreset", "written.VSTPreset"}) {
        const QString file = s_folder.filePath(QLatin1String(name));
        QCOMPARE(StateFile(file).write(state(0.125F)).error(), QString());
        QCOMPARE(contentOf(file), presetOf(state(0.125F)));
    }
}

void tst_StateFile::writtenFilesLoadBack_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << "back.state";
    QTest::newRow("no suffix") << "back";
    QTest::newRow("preset") << "back.vstpreset";
}

void tst_StateFile::writtenFilesLoadBack()
{
    QFETCH(const QString, name);
    const StateFile file(s_folder.filePath(name));
    const QByteArray bytes = stateWith(5, bigEndianFloat(0.1F));
    QCOMPARE(file.write(bytes).error(), QString());
    QCOMPARE(file.read().error(), QString());
    QCOMPARE(file.read().value(), bytes);
}

void tst_StateFile::failedWritesSayWhy()
{
    const QString nowhere = s_folder.filePath(QStringLiteral("no/such/folder/a.state"));
    QCOMPARE(
        StateFile(nowhere).write(state()).error(),
        QStringLiteral("The file %1 cannot be written: No such file or directory.").arg(nowhere));
    QCOMPARE(StateFile(s_folder.path()).write(state()).error(),
             QStringLiteral("The file %1 cannot be written: it is a folder.").arg(s_folder.path()));
    QCOMPARE(StateFile(QStringLiteral("/dev/full")).write(state()).error(),
             QStringLiteral("The file /dev/full cannot be written: it is not a regular file."));
}

// A limit on the size of files stands in for a disk that is full after some bytes.
void tst_StateFile::interruptedWriteKeepsTheOldFile()
{
    const QString file = write(QStringLiteral("precious.vstpreset"), presetOf(state(0.5F)));
    const qsizetype files = QDir(s_folder.path()).count();
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before = {};
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &before), 0);
    for (const rlim_t bytes : {0U, 1U, 47U, 48U, 100U, 191U}) {
        const rlimit limited = {bytes, before.rlim_max};
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &limited), 0);
        const QString error = StateFile(file).write(state(1.0F)).error();
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &before), 0);
        QCOMPARE(error, QStringLiteral("The file %1 cannot be written: File too large.").arg(file));
        QCOMPARE(contentOf(file), presetOf(state(0.5F)));
        QCOMPARE(QDir(s_folder.path()).count(), files);
    }
    QCOMPARE(StateFile(file).write(state(1.0F)).error(), QString());
    QCOMPARE(contentOf(file), presetOf(state(1.0F)));
}

QTEST_APPLESS_MAIN(tst_StateFile)

#include "tst_StateFile.moc"
