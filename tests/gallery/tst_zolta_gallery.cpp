// SPDX-License-Identifier: GPL-3.0-or-later
// Runs the program itself.
#include "tests/support/TestObject.h"

#include <QImage>
#include <QProcess>
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
    struct Result
    {
        int code;
        QString output;
        QString errors;
    };

    QProcessEnvironment environment() const;
    Result run(const QStringList& arguments) const;
    QString path(const char* name) const { return m_folder.filePath(QLatin1String(name)); }
    QImage sheet(const QStringList& arguments) const;

    QTemporaryDir m_folder;
};

// No display and no platform; what sanitizers need stays, and a place for the fonts' cache.
QProcessEnvironment tst_zolta_gallery::environment() const
{
    QProcessEnvironment bare;
    const QProcessEnvironment system = QProcessEnvironment::systemEnvironment();
    for (const char* name :
         {"ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS", "HOME", "XDG_CACHE_HOME"}) {
        if (system.contains(QLatin1String(name)))
            bare.insert(QLatin1String(name), system.value(QLatin1String(name)));
    }
    if (!bare.contains(QStringLiteral("HOME")))
        bare.insert(QStringLiteral("HOME"), m_folder.path());
    bare.insert(QStringLiteral("XDG_RUNTIME_DIR"), m_folder.path());
    return bare;
}

tst_zolta_gallery::Result tst_zolta_gallery::run(const QStringList& arguments) const
{
    QProcess process;
    process.setProcessEnvironment(environment());
    process.setWorkingDirectory(m_folder.path());
    process.start(QStringLiteral(GALLERY_PROGRAM), arguments);
    if (!process.waitForFinished(120000) || process.exitStatus() != QProcess::NormalExit)
        return {-1, QString(), process.errorString()};
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

QImage tst_zolta_gallery::sheet(const QStringList& arguments) const
{
    const QString file = path("sheet.png");
    QFile::remove(file);
    const Result result = run(QStringList{QStringLiteral("--sheet"), file} + arguments);
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
    const Result result = run({});
    QCOMPARE(result.code, 2);
    QCOMPARE(result.output, QString());
    QCOMPARE(result.errors,
             QStringLiteral("zolta-gallery: There is no display to open a window on (DISPLAY and "
                            "WAYLAND_DISPLAY are not set). Without one, use --sheet FILE.png or "
                            "--help.\n"));
}

void tst_zolta_gallery::opensAWindowOnAPlatform()
{
    QProcessEnvironment withPlatform = environment();
    withPlatform.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    QProcess process;
    process.setProcessEnvironment(withPlatform);
    process.start(QStringLiteral(GALLERY_PROGRAM), {});
    QVERIFY(process.waitForStarted());
    // It runs on; a program that found a fault ends at once.
    QVERIFY(!process.waitForFinished(2000));
    process.kill();
    QVERIFY(process.waitForFinished());
}

void tst_zolta_gallery::refusesArguments()
{
    const Result result = run({QStringLiteral("--scale"), QStringLiteral("9")});
    QCOMPARE(result.code, 2);
    QCOMPARE(result.errors, QStringLiteral("zolta-gallery: --scale takes a factor from 0.5 to 4, "
                                           "not \"9\".\n"));
}

void tst_zolta_gallery::saysWhatCannotBeWritten()
{
    const Result result = run({QStringLiteral("--sheet"), m_folder.path()});
    QCOMPARE(result.code, 1);
    QCOMPARE(result.errors, QStringLiteral("zolta-gallery: The picture %1 cannot be written: it is "
                                           "a folder.\n")
                                .arg(m_folder.path()));
}

void tst_zolta_gallery::helpGoesToStandardOutput()
{
    const Result result = run({QStringLiteral("--help")});
    QCOMPARE(result.code, 0);
    QCOMPARE(result.errors, QString());
    QVERIFY(result.output.startsWith(QLatin1String("Usage: zolta-gallery [options]\n")));
}

QTEST_APPLESS_MAIN(tst_zolta_gallery)
#include "tst_zolta_gallery.moc"
