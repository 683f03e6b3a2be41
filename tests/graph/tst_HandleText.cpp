// SPDX-License-Identifier: GPL-3.0-or-later
#include "equalizer/EqualizerBands.h"
#include "graph/HandleText.h"
#include "tests/support/TestObject.h"

#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>

#include <array>

namespace {

/// Answers every text of one context with the text in brackets.
class Brackets : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* text, const char*, int) const override
    {
        if (QLatin1String(context) != QLatin1String("ZoltaEqualizerGraph"))
            return {};
        return QStringLiteral("[%1]").arg(QLatin1String(text));
    }
};

} // namespace

class tst_HandleText : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void frequencyAndGain_data();
    void frequencyAndGain();
    void value_data();
    void value();
    void names();
    void numbersAreTheSameInEveryLocale();
};

void tst_HandleText::frequencyAndGain_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    const auto hertz = [](double hz, const char* expected) {
        QTest::addRow("%.4f Hz", hz) << HandleText::frequency(hz) << QString::fromLatin1(expected);
    };
    hertz(20.0, "20.0 Hz");
    hertz(20.04, "20.0 Hz");
    hertz(20.06, "20.1 Hz");
    hertz(99.94, "99.9 Hz");
    hertz(99.96, "100 Hz");
    hertz(100.4, "100 Hz");
    hertz(440.0, "440 Hz");
    hertz(999.4, "999 Hz");
    hertz(999.6, "1.00 kHz");
    hertz(1000.0, "1.00 kHz");
    hertz(1250.0, "1.25 kHz");
    hertz(9994.0, "9.99 kHz");
    hertz(9996.0, "10.0 kHz");
    hertz(12500.0, "12.5 kHz");
    hertz(20000.0, "20.0 kHz");
    const auto decibels = [](double db, const char* expected) {
        QTest::addRow("%.4f dB", db) << HandleText::gain(db) << QString::fromLatin1(expected);
    };
    decibels(3.0, "+3.0 dB");
    decibels(-20.0, "-20.0 dB");
    decibels(0.0, "+0.0 dB");
    decibels(-0.0, "+0.0 dB");
    decibels(-0.04, "+0.0 dB");
    decibels(-0.06, "-0.1 dB");
    decibels(9.96, "+10.0 dB");
}

void tst_HandleText::frequencyAndGain()
{
    QFETCH(QString, text);
    QTEST(text, "expected");
}

void tst_HandleText::value_data()
{
    QTest::addColumn<int>("band");
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("text");
    const QString withGain = QStringLiteral("1.25 kHz, +3.0 dB");
    const QString withoutGain = QStringLiteral("1.25 kHz");
    for (const int band : {0, 5}) {
        for (const int type : {0, 1, 4, -1})
            QTest::addRow("band %d type %d", band, type) << band << type << withoutGain;
        for (const int type : {2, 3})
            QTest::addRow("band %d type %d", band, type) << band << type << withGain;
    }
    for (int band = 1; band < 5; ++band)
        QTest::addRow("band %d", band) << band << 0 << QStringLiteral("1.25 kHz, +3.0 dB, Q 1.4");
}

void tst_HandleText::value()
{
    QFETCH(int, band);
    QFETCH(int, type);
    QFETCH(QString, text);
    EqualizerBands bands;
    bands[band] = {true, type, 1.4, 1250.0, 3.0};
    QCOMPARE(HandleText::value(bands, band), text);
}

void tst_HandleText::names()
{
    const std::array names = {"Low band",      "Middle 1 band", "Middle 2 band",
                              "Middle 3 band", "Middle 4 band", "High band"};
    for (int band = 0; band < 6; ++band)
        QCOMPARE(HandleText::name(band), QLatin1String(names[std::size_t(band)]));
    QVERIFY(HandleText::name(-1).isEmpty() && HandleText::name(6).isEmpty());
    Brackets translator;
    QCoreApplication::installTranslator(&translator);
    QCOMPARE(HandleText::name(2), QStringLiteral("[Middle 2 band]"));
    QCoreApplication::removeTranslator(&translator);
}

void tst_HandleText::numbersAreTheSameInEveryLocale()
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German));
    EqualizerBands bands;
    bands[1] = {true, 3, 12.34, 12500.0, -7.5};
    const QString text = HandleText::value(bands, 1);
    QLocale::setDefault(before);
    QCOMPARE(text, QStringLiteral("12.5 kHz, -7.5 dB, Q 12.3"));
}

QTEST_GUILESS_MAIN(tst_HandleText)

#include "tst_HandleText.moc"
