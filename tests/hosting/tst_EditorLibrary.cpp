// SPDX-License-Identifier: GPL-3.0-or-later
#include "hosting/EditorLibrary.h"
#include "hosting/HostModel.h"
#include "interfaces/IVaskEffectEditor2.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QTemporaryDir>

class tst_EditorLibrary : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void loadsAnEqualizer();
    void loadsByARelativeName();
    void makesEditors();
    void makesNoneBeforeLoading();
    void makesNoneForUnknownChannels();
    void refuses_data();
    void refuses();
    void refusesATextFile();
    void refusesAShortenedLibrary_data();
    void refusesAShortenedLibrary();
    void refusesAFolder();
    void refusalLeavesItUnloaded();
    void looksBesideTheProgram();

private:
    static QString plugin(const char* name);
    static QString writeFile(const QString& name, const QByteArray& bytes);

    static inline QTemporaryDir s_folder;
};

QString tst_EditorLibrary::plugin(const char* name)
{
    return QStringLiteral(HOST_TEST_PLUGINS "/lib%1.so").arg(QLatin1String(name));
}

QString tst_EditorLibrary::writeFile(const QString& name, const QByteArray& bytes)
{
    QFile file(s_folder.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
    return file.fileName();
}

void tst_EditorLibrary::loadsAnEqualizer()
{
    EditorLibrary library;
    QCOMPARE(library.load(plugin("host_stand_in")).error(), QString());
}

void tst_EditorLibrary::loadsByARelativeName()
{
    const QString folder = QDir::currentPath();
    QVERIFY(QDir::setCurrent(QStringLiteral(HOST_TEST_PLUGINS)));
    EditorLibrary library;
    QCOMPARE(library.load(QStringLiteral("libhost_stand_in.so")).error(), QString());
    QVERIFY(QDir::setCurrent(folder));
}

void tst_EditorLibrary::makesEditors()
{
    EditorLibrary library;
    QCOMPARE(library.load(plugin("host_stand_in")).error(), QString());
    HostModel model;
    QWidget parent;
    IVaskEffectEditor2* editor = library.create(&parent, 7, &model);
    QVERIFY(editor);
    QCOMPARE(editor->parentWidget(), &parent);
    QCOMPARE(editor->size(), QSize(400, 240));
}

void tst_EditorLibrary::makesNoneBeforeLoading()
{
    HostModel model;
    QWidget parent;
    QVERIFY(!EditorLibrary().create(&parent, 0, &model));
}

void tst_EditorLibrary::makesNoneForUnknownChannels()
{
    EditorLibrary library;
    QCOMPARE(library.load(plugin("host_stand_in")).error(), QString());
    HostModel model;
    QWidget parent;
    QVERIFY(!library.create(&parent, 8, &model));
    QVERIFY(!library.create(&parent, 0, nullptr));
    QVERIFY(parent.children().isEmpty());
}

void tst_EditorLibrary::refuses_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("expected");
    QTest::newRow("missing") << plugin("nowhere") << "does not exist.";
    QTest::newRow("no plug-in") << plugin("host_no_plugin")
                                << "is a library, but not a Qt plug-in that this program can load.";
    QTest::newRow("another kind of plug-in")
        << plugin("host_stand_in_other")
        << "is a Qt plug-in of another kind (org.example.other, not org.zolta.fx.effect).";
    QTest::newRow("no effect") << plugin("host_bare_plugin")
                               << "does not provide a channel effect.";
    QTest::newRow("another effect")
        << plugin("host_stand_in_type7") << "is an effect of type 7; an equalizer is type 8.";
}

void tst_EditorLibrary::refuses()
{
    QFETCH(const QString, file);
    QFETCH(const QString, expected);
    EditorLibrary library;
    QCOMPARE(library.load(file).error(), QStringLiteral("The plug-in %1 %2").arg(file, expected));
}

void tst_EditorLibrary::refusesATextFile()
{
    for (const QByteArray& text : {QByteArray("#!/bin/sh\necho not a library\n"), QByteArray(),
                                   QByteArray("\177EL"), QByteArray(100000, 'x')}) {
        const QString file = writeFile(QStringLiteral("text.so"), text);
        EditorLibrary library;
        QCOMPARE(library.load(file).error(),
                 QStringLiteral("The plug-in %1 is not a library.").arg(file));
    }
}

void tst_EditorLibrary::refusesAShortenedLibrary_data()
{
    QTest::addColumn<double>("kept");
    for (const double kept : {0.0001, 0.001, 0.1, 0.3, 0.5, 0.7, 0.9, 0.99, 0.99999})
        QTest::addRow("%g of it", kept) << kept;
}

void tst_EditorLibrary::refusesAShortenedLibrary()
{
    QFETCH(const double, kept);
    QFile whole(plugin("host_stand_in"));
    QVERIFY(whole.open(QIODevice::ReadOnly));
    QByteArray bytes = whole.readAll();
    bytes.truncate(qMax(qsizetype(4), qsizetype(double(bytes.size()) * kept)));
    const QString file = writeFile(QStringLiteral("short.so"), bytes);
    EditorLibrary library;
    QCOMPARE(library.load(file).error(),
             QStringLiteral("The plug-in %1 is a library that was cut short.").arg(file));
}

void tst_EditorLibrary::refusesAFolder()
{
    EditorLibrary library;
    QCOMPARE(library.load(s_folder.path()).error(),
             QStringLiteral("The plug-in %1 is a folder, not a library.").arg(s_folder.path()));
    QCOMPARE(library.load(QStringLiteral("/dev/null")).error(),
             QStringLiteral("The plug-in /dev/null is not a regular file."));
}

void tst_EditorLibrary::refusalLeavesItUnloaded()
{
    EditorLibrary library;
    QVERIFY(!library.load(plugin("host_stand_in_type7")).isOk());
    HostModel model;
    QWidget parent;
    QVERIFY(!library.create(&parent, 0, &model));
    QCOMPARE(library.load(plugin("host_stand_in")).error(), QString());
    QVERIFY(library.create(&parent, 0, &model));
}

void tst_EditorLibrary::looksBesideTheProgram()
{
    QCOMPARE(EditorLibrary::fileBeside(QStringLiteral("/opt/zolta/bin")),
             QStringLiteral("/opt/zolta/lib/zolta/libZolta.so"));
}

ZOLTA_TEST_MAIN(tst_EditorLibrary)

#include "tst_EditorLibrary.moc"
