// SPDX-License-Identifier: GPL-3.0-or-later
// Kills what saves a file at every system call by which it touches files.
#include "tests/support/TestObject.h"
#include "tests/walls/Writers.h"

#include <QTemporaryFile>

#include <cstdio>
#include <set>
#include <string>

using TracedRun::Act;

namespace {

struct Point
{
    Act act;
    std::size_t call;
};

// Between two calls that change nothing, a kill is like one before them.
std::vector<Point> pointsIn(const std::vector<TracedRun::Call>& calls)
{
    static const std::set<std::string> looks = {"read", "newfstatat", "statx", "access",
                                                "faccessat"};
    std::vector<Point> points;
    for (std::size_t i = 0; i < calls.size(); ++i) {
        const bool writes = calls[i].name.find("write") != std::string::npos;
        if (!looks.contains(calls[i].name))
            points.push_back({Act::KillBefore, i});
        if (writes || i + 1 == calls.size())
            points.push_back({Act::KillAmid, i});
    }
    return points;
}

} // namespace

class tst_KilledWriters : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void leaveAWholeFile_data();
    void leaveAWholeFile();
    void carelessWriterIsNoticed();

private:
    static QString problemOf(const Writer& writer);
    static QString problemAt(const WriterFolder& folder, Act act, std::size_t call);
};

void tst_KilledWriters::leaveAWholeFile_data()
{
    QTest::addColumn<std::size_t>("index");
    const std::vector<Writer> all = writers();
    for (std::size_t i = 0; i < all.size(); ++i)
        QTest::newRow(all[i].name) << i;
}

void tst_KilledWriters::leaveAWholeFile()
{
    QFETCH(const std::size_t, index);
    QCOMPARE(problemOf(writers()[index]), QString());
}

// What this test is worth: it finds half a file, and a draft that nobody removes.
void tst_KilledWriters::carelessWriterIsNoticed()
{
    const auto overwrite = [](const QString& name, Writer::Version version) {
        QFile file(name);
        const QByteArray bytes(100, version == Writer::Version::New ? 'n' : 'o');
        return file.open(QIODevice::WriteOnly) && file.write(bytes) == 100 ? 0 : 1;
    };
    const auto leaveDrafts = [](const QString& name, Writer::Version version) {
        QTemporaryFile draft(name);
        draft.setAutoRemove(false);
        const bool written = draft.open() && draft.write(QByteArray(1 + int(version), 'b')) > 0;
        return written && std::rename(QFile::encodeName(draft.fileName()).constData(),
                                      QFile::encodeName(name).constData()) == 0
                   ? 0
                   : 1;
    };
    QVERIFY(problemOf({"overwriting", "file", overwrite}).endsWith(QLatin1String("half a file")));
    QVERIFY(problemOf({"littering", "file", leaveDrafts}).endsWith(QLatin1String("is litter")));
}

QString tst_KilledWriters::problemOf(const Writer& writer)
{
    const WriterFolder folder(writer);
    if (!folder.problem().isEmpty())
        return folder.problem();
    const std::size_t step = writer.isProgram ? 2 : 1;
    const std::vector<Point> points = pointsIn(folder.calls());
    for (std::size_t i = 0; i < points.size(); i += step) {
        const auto& [act, call] = points[i];
        const QString problem = problemAt(folder, act, call);
        if (!problem.isEmpty())
            return QStringLiteral("Killed at call %1, %2: %3")
                .arg(QString::number(call), QString::fromStdString(folder.calls()[call].name),
                     problem);
    }
    return QString();
}

QString tst_KilledWriters::problemAt(const WriterFolder& folder, Act act, std::size_t call)
{
    folder.reset();
    if (!folder.save(act, call).wasKilled)
        return QStringLiteral("not killed");
    if (folder.bytes() != folder.oldBytes() && folder.bytes() != folder.newBytes())
        return QStringLiteral("half a file");
    if (!folder.isTidy() && folder.save().code != 0)
        return QStringLiteral("nothing can be saved afterwards");
    return folder.isTidy() ? QString()
                           : folder.names().join(QLatin1Char(' ')) + QLatin1String(" is litter");
}

QTEST_GUILESS_MAIN(tst_KilledWriters)

#include "tst_KilledWriters.moc"
