// SPDX-License-Identifier: GPL-3.0-or-later
// Runs the program itself.
#include "tests/support/ProgramRunner.h"
#include "tests/support/TestObject.h"

#include <QImage>
#include <QTemporaryDir>

class tst_zolta_gallery : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void writesTheSheetWithoutADisplay();
    void scaleGivesMorePixels();
    void saysThatThereIsNoDisplay();
    void opensAWindowOnAPlatform();
    void refusesArguments();
    void saysWhatCannotBeWritten();
    void helpGoesToStandardOutput();

private:
    ProgramResult run(const QStringList& arguments) const { return m_program.run(arguments); }
    QString path(const char* name) const { return m_folder.filePath(QLatin1String(name)); }
    QImage sheet(const QStringList& arguments) const;

    QTemporaryDir m_folder;
    ProgramRunner m_program{QStringLiteral(GALLERY_PROGRAM), m_folder.path()};
};

QImage tst_zolta_gallery::sheet(const QStringList& arguments) const
{
    const QString file = path("sheet.png");
    QFile::remove(file);
    const ProgramResult result = run(QStringList{QStringLiteral("--sheet"), file} + arguments);
    return result.code == 0 && result.errors.isEmpty() ? QImage(file) : QImage();
}

void tst_zolta_gallery::writesTheSheetWithoutADisplay()
{
    const QImage first = sheet({});
    QVERIFY(!first.isNull());
    QVERIFY(first.width() > 600 && first.height() > 1000);
    QCOMPARE(sheet({}), first);
}

void tst_zolta_gallery::scaleGivesMorePixels()
{
    const QImage single = sheet({});
    const QImage twofold = sheet({QStringLiteral("--scale"), QStringLiteral("2")});
    QCOMPARE(twofold.size(), single.size() * 2);
}

void tst_zolta_gallery::saysThatThereIsNoDisplay()
{
    const ProgramResult result = run({});
    QCOMPARE(result.code, 2);
    QCOMPARE(result.output, QString());
    QCOMPARE(result.errors,
             QStringLiteral("zolta-gallery: There is no display to open a window on (DISPLAY and "
                            "WAYLAND_DISPLAY are not set). Without one, use --sheet FILE.png or "
                            "--help.\n"));
}

void tst_zolta_gallery::opensAWindowOnAPlatform()
{
    QProcess process;
    m_program.prepare(&process);
    process.setProcessEnvironment(m_program.offscreen());
    process.start();
    QVERIFY(process.waitForStarted());
    // It runs on; a program that found an error ends at once.
    QVERIFY(!process.waitForFinished(2000));
    process.kill();
    QVERIFY(process.waitForFinished());
}

void tst_zolta_gallery::refusesArguments()
{
    const ProgramResult result = run({QStringLiteral("--scale"), QStringLiteral("9")});
    QCOMPARE(result.code, 2);
    QCOMPARE(result.errors, QStringLiteral("zolta-gallery: --scale takes a factor from 0.5 to 4, "
                                           "not \"9\".\n"));
}

void tst_zolta_gallery::saysWhatCannotBeWritten()
{
    const ProgramResult result = run({QStringLiteral("--sheet"), m_folder.path()});
    QCOMPARE(result.code, 1);
    QCOMPARE(result.errors,
             QStringLiteral("zolta-gallery: The file %1 cannot be written: it is a folder.\n")
                 .arg(m_folder.path()));
}

void tst_zolta_gallery::helpGoesToStandardOutput()
{
    const ProgramResult result = run({QStringLiteral("--help")});
    QCOMPARE(result.code, 0);
    QCOMPARE(result.errors, QString());
    QVERIFY(result.output.startsWith(QLatin1String("Usage: zolta-gallery [options]\n")));
}

QTEST_APPLESS_MAIN(tst_zolta_gallery)
#include "tst_zolta_gallery.moc"
