// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/files/SessionFile.h"
#include "tests/support/TestFiles.h"
#include "tests/support/TestObject.h"

#include <QJsonArray>
#include <QTemporaryDir>

#include <memory>

using namespace Qt::StringLiterals;

class tst_SessionFile : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void lockThatNobodyHoldsDoesNotCount_data();
    void lockThatNobodyHoldsDoesNotCount();
    void takenSessionIsSavedOnDemand();
    void damageOfATakenSessionIsNeverSaved();
    void linkToATakenSessionIsTaken();
    void masterAndBalanceComeBack();
    void olderSessionsHaveNoMaster();
    void badMasterIsNamed();
    void presetComesBack();
    void badPresetIsNamed_data();
    void badPresetIsNamed();

private:
    QString lock() const { return m_file + ".lock"_L1; }

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_file;
};

void tst_SessionFile::init()
{
    TestObject::init();
    m_folder = std::make_unique<QTemporaryDir>();
    m_file = m_folder->filePath(u"session.json"_s);
}

void tst_SessionFile::lockThatNobodyHoldsDoesNotCount_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << ""_ba;
    QTest::newRow("noise") << QByteArray("noise\0", 6);
    QTest::newRow("another machine's") << "4711\nprogram\nmachine\n"_ba;
    QTest::newRow("folder") << QByteArray();
}

void tst_SessionFile::lockThatNobodyHoldsDoesNotCount()
{
    QFETCH(const QByteArray, bytes);
    if (bytes.isNull())
        QVERIFY(QDir().mkdir(lock()));
    else
        TestFiles::write(lock(), bytes);
    SessionData data;
    SessionFile session;
    QCOMPARE(session.open(m_file, &data).error(), QString());
    QVERIFY(!session.isTaken());
    QVERIFY(session.save(data).isOk());
    QVERIFY(QFile::exists(m_file));
}

void tst_SessionFile::takenSessionIsSavedOnDemand()
{
    auto first = std::make_unique<SessionFile>();
    SessionData data;
    QVERIFY(first->open(m_file, &data).isOk());
    SessionFile second;
    QVERIFY(second.open(m_file, &data).error().contains(lock()));
    QVERIFY(second.isTaken());
    QVERIFY(second.save(data).isOk());
    QVERIFY(!QFile::exists(m_file));
    second.saveAnyway();
    QVERIFY(!second.isTaken());
    QVERIFY(second.save(data).isOk());
    QVERIFY(QFile::exists(m_file));
    QVERIFY(QFile::exists(lock()));
    first.reset();
    QVERIFY(!QFile::exists(lock()));
}

void tst_SessionFile::damageOfATakenSessionIsNeverSaved()
{
    SessionData data;
    SessionFile first;
    QVERIFY(first.open(m_file, &data).isOk());
    TestFiles::write(m_file, "damaged");
    SessionFile second;
    QVERIFY(!second.open(m_file, &data).isOk());
    second.saveAnyway();
    QVERIFY(second.save(data).isOk());
    QCOMPARE(TestFiles::read(m_file), "damaged"_ba);
}

void tst_SessionFile::linkToATakenSessionIsTaken()
{
    SessionData data;
    SessionFile first;
    QVERIFY(first.open(m_file, &data).isOk());
    QVERIFY(first.save(data).isOk());
    const QString link = m_folder->filePath(QStringLiteral("link.json"));
    QVERIFY(QFile::link(m_file, link));
    SessionFile second;
    QVERIFY(second.open(link, &data).error().contains(lock()));
    QVERIFY(second.isTaken());
}

void tst_SessionFile::masterAndBalanceComeBack()
{
    SessionData data;
    data.master = {123, 1, 0, 1};
    data.channels[3].strip[static_cast<std::size_t>(StripParameter::Balance)] = -42;
    SessionData back;
    QVERIFY(back.read(data.toJson({})).isOk());
    QCOMPARE(back.master, data.master);
    QCOMPARE(back.channels[3].strip, data.channels[3].strip);
}

void tst_SessionFile::olderSessionsHaveNoMaster()
{
    const QJsonObject strip{{u"level"_s, u"-6.0"_s}};
    const QJsonObject root{{u"zolta-session"_s, 1},
                           {u"channels"_s, QJsonArray{QJsonObject{{u"strip"_s, strip}}}}};
    SessionData data;
    QCOMPARE(data.read(root).error(), QString());
    QCOMPARE(data.master, SessionData().master);
    const HostMemory::StripValues& values = data.channels[0].strip;
    QCOMPARE(values[static_cast<std::size_t>(StripParameter::Level)], 240);
    QCOMPARE(values[static_cast<std::size_t>(StripParameter::Balance)], 0);
}

void tst_SessionFile::badMasterIsNamed()
{
    QJsonObject root = SessionData().toJson({});
    root[u"master"_s] = QJsonObject{{u"dim"_s, u"perhaps"_s}};
    SessionData data;
    QVERIFY(data.read(root).error().contains(u"master.dim"_s));
}

void tst_SessionFile::presetComesBack()
{
    for (const std::optional<PresetName>& preset :
         {std::optional(PresetName{u"Rock & roll \u97f3"_s, false}),
          std::optional(PresetName{u"Kick"_s, true}), std::optional<PresetName>()}) {
        SessionData data;
        data.channels[3].preset = PresetName{u"Before"_s, false};
        const QJsonObject before = data.toJson({});
        data.channels[3].preset = preset;
        SessionData back;
        QVERIFY(back.read(data.toJson(before)).isOk());
        QCOMPARE(back.channels[3].preset, preset);
    }
}

void tst_SessionFile::badPresetIsNamed_data()
{
    QTest::addColumn<QJsonValue>("preset");
    QTest::addColumn<QString>("error");
    const QString name = u"channels[0].preset.name cannot be set to \"%1\"."_s;
    QTest::newRow("text") << QJsonValue(u"Kick"_s) << u"channels[0].preset must be an object."_s;
    QTest::newRow("number") << QJsonValue(QJsonObject{{u"name"_s, 3}})
                            << u"channels[0].preset.name must be text."_s;
    QTest::newRow("factory") << QJsonValue(
                                    QJsonObject{{u"name"_s, u"Kick"_s}, {u"factory"_s, u"yes"_s}})
                             << u"channels[0].preset.factory must be true or false."_s;
    QTest::newRow("no name") << QJsonValue(QJsonObject()) << name.arg(QString());
    QTest::newRow("path") << QJsonValue(QJsonObject{{u"name"_s, u"../Kick"_s}})
                          << name.arg(u"../Kick"_s);
}

void tst_SessionFile::badPresetIsNamed()
{
    QFETCH(const QJsonValue, preset);
    const QJsonObject root{{u"zolta-session"_s, 1},
                           {u"channels"_s, QJsonArray{QJsonObject{{u"preset"_s, preset}}}}};
    QTEST(SessionData().read(root).error(), "error");
}

QTEST_GUILESS_MAIN(tst_SessionFile)

#include "tst_SessionFile.moc"
