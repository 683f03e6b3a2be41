// SPDX-License-Identifier: GPL-3.0-or-later
#include "hosting/EditorLibrary.h"
#include "hosting/HostMemory.h"
#include "hosting/HostModel.h"
#include "interfaces/IVaskEffectEditor2.h"
#include "tests/support/TestFiles.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

class tst_EditorLibrary : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void loadsByARelativeName();
    void makesEditors();
    void makesNoneWithoutALibrary();
    void refuses_data();
    void refuses();
    void refusesAShortenedLibrary_data();
    void refusesAShortenedLibrary();
    void looksBesideTheProgram();

private:
    static QString plugin(const char* name)
    {
        return QStringLiteral(HOST_TEST_PLUGINS "/lib%1.so").arg(QLatin1String(name));
    }

    HostMemory m_memory;
    HostModel m_model{m_memory};
    static inline QTemporaryDir s_folder;
};

void tst_EditorLibrary::loadsByARelativeName()
{
    const QString folder = QDir::currentPath();
    QVERIFY(QDir::setCurrent(QStringLiteral(HOST_TEST_PLUGINS)));
    QCOMPARE(EditorLibrary().load(u"libhost_stand_in.so"_s).error(), QString());
    QVERIFY(QDir::setCurrent(folder));
}

void tst_EditorLibrary::makesEditors()
{
    EditorLibrary library;
    QCOMPARE(library.load(plugin("host_stand_in")).error(), QString());
    QWidget parent;
    QVERIFY(!library.create(&parent, 8, &m_model));
    QVERIFY(!library.create(&parent, 0, nullptr));
    QVERIFY(parent.children().isEmpty());
    IVaskEffectEditor2* editor = library.create(&parent, 7, &m_model);
    QVERIFY(editor);
    QCOMPARE(editor->parentWidget(), &parent);
    QCOMPARE(editor->size(), QSize(400, 240));
}

void tst_EditorLibrary::makesNoneWithoutALibrary()
{
    EditorLibrary library;
    QWidget parent;
    QVERIFY(!library.create(&parent, 0, &m_model));
    QVERIFY(!library.load(plugin("host_stand_in_type7")).isOk());
    QVERIFY(!library.create(&parent, 0, &m_model));
    QCOMPARE(library.load(plugin("host_stand_in")).error(), QString());
    QVERIFY(library.create(&parent, 0, &m_model));
}

void tst_EditorLibrary::refuses_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* name, const QString& file, const char* expected) {
        QTest::newRow(name) << file << QString::fromLatin1(expected);
    };
    row("missing", plugin("nowhere"), "does not exist.");
    row("no plug-in", plugin("host_no_plugin"),
        "is a library, but not a Qt plug-in that this program can load.");
    row("another kind of plug-in", plugin("host_stand_in_other"),
        "is a Qt plug-in of another kind (org.example.other, not org.zolta.fx.effect).");
    row("no effect", plugin("host_bare_plugin"), "does not provide a channel effect.");
    row("another effect", plugin("host_stand_in_type7"),
        "is an effect of type 7; an equalizer is type 8.");
    row("folder", s_folder.path(), "is a folder, not a library.");
    row("device", u"/dev/null"_s, "is not a regular file.");
    const auto file = [&row](const char* name, const QByteArray& bytes) {
        row(name, TestFiles::write(s_folder.filePath(QLatin1String(name)), bytes),
            "is not a library.");
    };
    file("script", "#!/bin/sh\necho not a library\n");
    file("empty", "");
    file("part of the mark", "\177EL");
    file("letters", QByteArray(100000, 'x'));
}

void tst_EditorLibrary::refuses()
{
    QFETCH(const QString, file);
    QFETCH(const QString, expected);
    QCOMPARE(EditorLibrary().load(file).error(), u"The plug-in %1 %2"_s.arg(file, expected));
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
    QByteArray bytes = TestFiles::read(plugin("host_stand_in"));
    bytes.truncate(qMax(qsizetype(4), qsizetype(double(bytes.size()) * kept)));
    const QString file = TestFiles::write(s_folder.filePath(u"short.so"_s), bytes);
    QCOMPARE(EditorLibrary().load(file).error(),
             u"The plug-in %1 is a library that was cut short."_s.arg(file));
}

void tst_EditorLibrary::looksBesideTheProgram()
{
    QCOMPARE(EditorLibrary::fileBeside(u"/opt/zolta/bin"_s), u"/opt/zolta/lib/zolta/libZolta.so"_s);
}

ZOLTA_TEST_MAIN(tst_EditorLibrary)

#include "tst_EditorLibrary.moc"
