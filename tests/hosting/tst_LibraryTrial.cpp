// SPDX-License-Identifier: GPL-3.0-or-later
#include "hosting/EditorLibrary.h"
#include "hosting/LibraryTrial.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QTemporaryDir>

#include <cerrno>
#include <random>

#include <elf.h>
#include <link.h>
#include <sys/wait.h>

using namespace std::chrono_literals;

class tst_LibraryTrial : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void gives_data();
    void gives();
    void survivesDamage_data();
    void survivesDamage();

private:
    static QString plugin(const char* name);
    static QString errorOf(const QString& file, std::chrono::milliseconds patience);
};

namespace {

// A part of a library that its loader reads.
struct Part
{
    qint64 start;
    qint64 size;
};

Part headers(const QByteArray&) { return {0, 64 + 10 * 56}; }

Part segment(const QByteArray& bytes, unsigned type)
{
    const auto* header = reinterpret_cast<const ElfW(Ehdr)*>(bytes.constData());
    const auto* each = reinterpret_cast<const ElfW(Phdr)*>(bytes.constData() + header->e_phoff);
    while (each->p_type != type)
        ++each;
    return {static_cast<qint64>(each->p_offset), static_cast<qint64>(each->p_filesz)};
}

Part tables(const QByteArray& bytes) { return segment(bytes, PT_LOAD); }

Part dynamicSection(const QByteArray& bytes) { return segment(bytes, PT_DYNAMIC); }

Part sectionHeaders(const QByteArray& bytes)
{
    const auto* header = reinterpret_cast<const ElfW(Ehdr)*>(bytes.constData());
    return {static_cast<qint64>(header->e_shoff), header->e_shnum * qint64(header->e_shentsize)};
}

} // namespace

Q_DECLARE_METATYPE(Part (*)(const QByteArray&))

QString tst_LibraryTrial::plugin(const char* name)
{
    return QStringLiteral(HOST_TEST_PLUGINS "/lib%1.so").arg(QLatin1String(name));
}

QString tst_LibraryTrial::errorOf(const QString& file, std::chrono::milliseconds patience)
{
    LibraryTrial trial(file, patience);
    trial.run([&file] { return EditorLibrary().load(file); });
    return trial.status().error();
}

void tst_LibraryTrial::gives_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<std::chrono::milliseconds>("patience");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* name, std::chrono::milliseconds patience, const char* end) {
        const QString file = plugin(name);
        const QString sentence = QStringLiteral("The plug-in %1 %2").arg(file, QLatin1String(end));
        QTest::newRow(name) << file << patience << (*end ? sentence : QString());
    };
    row("host_stand_in", 60s, "");
    row("host_stand_in_type7", 60s, "is an effect of type 7; an equalizer is type 8.");
    row("nowhere", 60s, "does not exist.");
    row("host_trap_abort", 60s, "cannot be loaded: it crashes (Aborted). Its file may be damaged.");
    row("host_trap_exit", 60s, "cannot be loaded: it ends the program that loads it.");
    row("host_trap_hang", 250ms, "cannot be loaded: it takes longer than 0.25 seconds.");
}

// Nobody is left to wait for afterwards.
void tst_LibraryTrial::gives()
{
    QFETCH(const QString, file);
    QFETCH(const std::chrono::milliseconds, patience);
    QTEST(errorOf(file, patience), "expected");
    QCOMPARE(::waitpid(-1, nullptr, WNOHANG), -1);
    QCOMPARE(errno, ECHILD);
}

void tst_LibraryTrial::survivesDamage_data()
{
    QTest::addColumn<Part (*)(const QByteArray&)>("part");
    QTest::addColumn<bool>("isDeadly"); // in some places of it
    QTest::newRow("headers") << &headers << false;
    QTest::newRow("dynamic section") << &dynamicSection << true;
    QTest::newRow("symbols and relocations") << &tables << true;
    QTest::newRow("section headers") << &sectionHeaders << false;
}

void tst_LibraryTrial::survivesDamage()
{
    using FindPart = Part (*)(const QByteArray&);
    QFETCH(const FindPart, part);
    QFETCH(const bool, isDeadly);
    const QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("libDamaged.so"));
    QVERIFY(QFile::copy(QStringLiteral(ZOLTA_PLUGIN_FILE), name));
    QFile file(name);
    QVERIFY(file.open(QIODevice::ReadWrite | QIODevice::Unbuffered));
    const QByteArray bytes = file.readAll();
    const Part damaged = part(bytes);
    std::mt19937 generator(1);
    int crashes = 0;
    for (int i = 0; i < 40 || (isDeadly && crashes == 0 && i < 1000); ++i) {
        const qint64 place = damaged.start + static_cast<qint64>(generator()) % damaged.size;
        const char flipped = static_cast<char>(bytes[place] ^ (1 << generator() % 8));
        QVERIFY(file.seek(place) && file.write(&flipped, 1) == 1);
        crashes += errorOf(name, 2s).contains(QLatin1String("it crashes (")) ? 1 : 0;
        QVERIFY(file.seek(place) && file.write(bytes.constData() + place, 1) == 1);
    }
    QVERIFY2(!isDeadly || crashes > 0, "no crash to survive");
    QCOMPARE(errorOf(name, 60s), QString());
}

ZOLTA_TEST_MAIN(tst_LibraryTrial)

#include "tst_LibraryTrial.moc"
