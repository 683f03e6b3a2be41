// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/analysis/ReadoutText.h"
#include "tests/support/TestObject.h"

class tst_ReadoutText : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void names_data();
    void names();
    void frequencies();
    void levels();
};

void tst_ReadoutText::names_data()
{
    QTest::addColumn<double>("frequency");
    QTest::addColumn<QString>("name");
    QTest::newRow("concert pitch") << 440.0 << QStringLiteral("A4");
    QTest::newRow("middle C") << 261.6256 << QStringLiteral("C4");
    QTest::newRow("lowest of a piano") << 27.5 << QStringLiteral("A0");
    QTest::newRow("sharp") << 1000.0 << QStringLiteral("B5 +21 ct");
    QTest::newRow("flat") << 100.0 << QStringLiteral("G2 +35 ct");
    QTest::newRow("below") << 430.0 << QStringLiteral("A4 -40 ct");
    QTest::newRow("lowest") << 20.0 << QStringLiteral("D#0 +49 ct");
    QTest::newRow("highest") << 20000.0 << QStringLiteral("D#10 +8 ct");
}

void tst_ReadoutText::names()
{
    QFETCH(const double, frequency);
    QTEST(noteName(frequency), "name");
}

void tst_ReadoutText::frequencies()
{
    QCOMPARE(frequencyText(20.0), QStringLiteral("20.0 Hz"));
    QCOMPARE(frequencyText(999.94), QStringLiteral("999.9 Hz"));
    QCOMPARE(frequencyText(1254.0), QStringLiteral("1.25 kHz"));
}

void tst_ReadoutText::levels()
{
    QCOMPARE(levelText(3.04), QStringLiteral("+3.0 dB"));
    QCOMPARE(levelText(0.04), QStringLiteral("0.0 dB"));
    QCOMPARE(levelText(-0.04), QStringLiteral("0.0 dB"));
    QCOMPARE(levelText(-20.06), QStringLiteral("-20.1 dB"));
    QCOMPARE(levelText(-200.0), QStringLiteral("-\u221e dB"));
}

QTEST_APPLESS_MAIN(tst_ReadoutText)
#include "tst_ReadoutText.moc"
