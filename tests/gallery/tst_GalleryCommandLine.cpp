// SPDX-License-Identifier: GPL-3.0-or-later
#include "gallery/GalleryCommandLine.h"
#include "tests/support/TestObject.h"

class tst_GalleryCommandLine : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void opensAWindowByDefault();
    void readsEveryOption();
    void sheetAndHelpNeedNoWindow();
    void refuses_data();
    void refuses();
    void helpNamesEveryOption();

private:
    static GalleryCommandLine parse(const QString& arguments)
    {
        QStringList words = arguments.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        words.replaceInStrings(QStringLiteral("\"\""), QString());
        return GalleryCommandLine::parse(QStringList(QStringLiteral("zolta-gallery")) + words);
    }
};

void tst_GalleryCommandLine::opensAWindowByDefault()
{
    const GalleryCommandLine line = parse(QString());
    QCOMPARE(line.error, QString());
    QVERIFY(!line.headless());
    QVERIFY(!line.help);
    QCOMPARE(line.sheet, QString());
    QCOMPARE(line.scale, 1.0);
}

void tst_GalleryCommandLine::readsEveryOption()
{
    const GalleryCommandLine line = parse(QStringLiteral("--sheet a.png --scale 1.25 --help"));
    QCOMPARE(line.error, QString());
    QCOMPARE(line.sheet, QStringLiteral("a.png"));
    QCOMPARE(line.scale, 1.25);
    QVERIFY(line.help);
}

void tst_GalleryCommandLine::sheetAndHelpNeedNoWindow()
{
    QVERIFY(parse(QStringLiteral("--sheet a.png")).headless());
    QVERIFY(parse(QStringLiteral("--help")).headless());
    QVERIFY(!parse(QStringLiteral("--scale 2")).headless());
}

void tst_GalleryCommandLine::refuses_data()
{
    QTest::addColumn<QString>("error");
    const auto row = [](const char* arguments, const char* error) {
        QTest::newRow(arguments) << QString::fromLatin1(error);
    };
    row("--scale 0.49", "--scale takes a factor from 0.5 to 4, not \"0.49\".");
    row("--scale 4.1", "--scale takes a factor from 0.5 to 4, not \"4.1\".");
    row("--scale nan", "--scale takes a factor from 0.5 to 4, not \"nan\".");
    row("--scale two", "--scale takes a factor from 0.5 to 4, not \"two\".");
    row("--sheet \"\"", "--sheet takes the name of a file.");
    row("sheet.png", "Unknown option \"sheet.png\".");
}

void tst_GalleryCommandLine::refuses()
{
    QFETCH(QString, error);
    QCOMPARE(parse(QString::fromLatin1(QTest::currentDataTag())).error, error);
    QVERIFY(!parse(QStringLiteral("--colour")).error.isEmpty());
}

void tst_GalleryCommandLine::helpNamesEveryOption()
{
    for (const char* option : {"--sheet", "--scale", "--help"})
        QVERIFY(GalleryCommandLine::helpText().contains(QLatin1String(option)));
}

QTEST_APPLESS_MAIN(tst_GalleryCommandLine)
#include "tst_GalleryCommandLine.moc"
