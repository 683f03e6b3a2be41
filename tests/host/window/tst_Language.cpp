// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/Language.h"
#include "tests/support/TestObject.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QMessageBox>
#include <QWidget>

class tst_Language : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void codesAreUnderstood_data();
    void codesAreUnderstood();
    void languagesNameThemselves();
    void speaks_data();
    void speaks();
    void whatIsTheSameEverywhereStays_data();
    void whatIsTheSameEverywhereStays();
    void switchesBackAndForth();
    void standardButtonsFollow();
    void widgetsAreTold();
    void theSameLanguageAgainTellsNobody();
    void editorTextsFitTheirLabels_data();
    void editorTextsFitTheirLabels();

private:
    static QString editorText(const QString& source);

    LanguageSwitch m_switch;
};

QString tst_Language::editorText(const QString& source)
{
    return QCoreApplication::translate("ZoltaEditor", source.toUtf8().constData());
}

void tst_Language::codesAreUnderstood_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<int>("expected"); // -1: none
    QTest::newRow("en") << "en" << int(Language::English);
    QTest::newRow("de") << "de" << int(Language::German);
    QTest::newRow("ja") << "ja" << int(Language::Japanese);
    for (const char* code : {"", "fr", "DE", "de_DE", "english"})
        QTest::addRow("no language \"%s\"", code) << code << -1;
}

void tst_Language::codesAreUnderstood()
{
    QFETCH(const QString, code);
    QFETCH(const int, expected);
    const std::optional<Language> language = languageOf(code);
    QCOMPARE(language ? int(*language) : -1, expected);
    if (language)
        QCOMPARE(codeOf(*language), code);
}

void tst_Language::languagesNameThemselves()
{
    m_switch.choose(Language::German);
    QCOMPARE(nameOf(Language::English), QStringLiteral("English"));
    QCOMPARE(nameOf(Language::German), QStringLiteral("Deutsch"));
    QCOMPARE(nameOf(Language::Japanese), QString::fromUtf8("日本語"));
    m_switch.choose(Language::English);
}

void tst_Language::speaks_data()
{
    QTest::addColumn<Language>("language");
    QTest::addColumn<QByteArray>("context");
    QTest::addColumn<QByteArray>("source");
    QTest::addColumn<QString>("expected");
    const auto row = [](Language language, const char* context, const char* source,
                        const char* expected) {
        QTest::addRow("%s %s", qPrintable(codeOf(language)), source)
            << language << QByteArray(context) << QByteArray(source) << QString::fromUtf8(expected);
    };
    row(Language::German, "ZoltaEditor", "INPUT", "EINGANG");
    row(Language::German, "ZoltaEditor", "FLAT", "LIN.");
    row(Language::German, "EditorWindow", "&File", "&Datei");
    row(Language::German, "Parameter", "Middle 2 quality", "Mitten 2: Güte");
    row(Language::Japanese, "ZoltaEditor", "INPUT", "入力");
    row(Language::Japanese, "ZoltaEditor", "PEAK", "ピーク");
    row(Language::Japanese, "MixerWindow", "Mixer", "ミキサー");
    row(Language::Japanese, "Parameter", "High gain", "ハイ ゲイン");
    row(Language::English, "ZoltaEditor", "INPUT", "INPUT");
}

void tst_Language::speaks()
{
    QFETCH(const Language, language);
    QFETCH(const QByteArray, context);
    QFETCH(const QByteArray, source);
    m_switch.choose(language);
    QTEST(QCoreApplication::translate(context.constData(), source.constData()), "expected");
    m_switch.choose(Language::English);
}

void tst_Language::whatIsTheSameEverywhereStays_data()
{
    QTest::addColumn<QString>("text");
    for (const char* text : {"0", "-3", "-60", "6", "30", "dB", "Hz",
                             ":/image/zolta/back_zolta.svg", ":/image/zolta/meter_0.svg"})
        QTest::newRow(text) << QString::fromLatin1(text);
}

void tst_Language::whatIsTheSameEverywhereStays()
{
    QFETCH(const QString, text);
    for (const Language language : languages) {
        m_switch.choose(language);
        QCOMPARE(editorText(text), text);
    }
    m_switch.choose(Language::English);
}

void tst_Language::switchesBackAndForth()
{
    QCOMPARE(m_switch.current(), Language::English);
    for (const Language language : {Language::German, Language::Japanese, Language::German}) {
        m_switch.choose(language);
        QCOMPARE(m_switch.current(), language);
        QCOMPARE(editorText(QStringLiteral("OUTPUT")), language == Language::German
                                                           ? QStringLiteral("AUSGANG")
                                                           : QString::fromUtf8("出力"));
    }
    m_switch.choose(Language::English);
    QCOMPARE(editorText(QStringLiteral("OUTPUT")), QStringLiteral("OUTPUT"));
}

namespace {

class Listener : public QWidget
{
public:
    using QWidget::QWidget;
    int changes = 0;

protected:
    void changeEvent(QEvent* event) override { changes += event->type() == QEvent::LanguageChange; }
};

} // namespace

void tst_Language::standardButtonsFollow()
{
    const QMessageBox box(QMessageBox::Question, QString(), QString(), QMessageBox::Cancel);
    const auto cancel = [&box] {
        QCoreApplication::sendPostedEvents();
        return box.button(QMessageBox::Cancel)->text().remove(QLatin1Char('&'));
    };
    m_switch.choose(Language::German);
    QCOMPARE(cancel(), QStringLiteral("Abbrechen"));
    m_switch.choose(Language::Japanese);
    QCOMPARE(cancel(), QString::fromUtf8("キャンセル"));
    m_switch.choose(Language::English);
    QCOMPARE(cancel(), QStringLiteral("Cancel"));
}

void tst_Language::widgetsAreTold()
{
    QWidget window;
    QWidget middle(&window);
    Listener listener(&middle);
    for (const Language language : {Language::German, Language::Japanese, Language::English}) {
        listener.changes = 0;
        m_switch.choose(language);
        QCoreApplication::sendPostedEvents();
        QVERIFY(listener.changes >= 1);
    }
}

void tst_Language::theSameLanguageAgainTellsNobody()
{
    Listener listener;
    m_switch.choose(Language::English);
    QCoreApplication::sendPostedEvents();
    QCOMPARE(listener.changes, 0);
}

// The labels of the editor, which were laid out for the English texts: text, width in pixels, font
// size in points.
void tst_Language::editorTextsFitTheirLabels_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("points");
    const auto row = [](const char* text, int width, int points) {
        QTest::newRow(text) << QString::fromLatin1(text) << width << points;
    };
    row("ZOOM", 40, 9);
    row("DRIVE", 40, 9);
    row("CLEAN", 40, 9);
    row("INPUT", 76, 9);
    row("OUTPUT", 76, 9);
    row("PEAK", 34, 8);
    row("FLAT", 32, 9);
    row("Q", 20, 13);
    row("F", 20, 13);
    row("G", 20, 13);
    row("IN", 40, 11);
    row("OUT", 40, 11);
}

void tst_Language::editorTextsFitTheirLabels()
{
    QFETCH(const QString, text);
    QFETCH(const int, width);
    QFETCH(const int, points);
    QFont font = QFontDatabase::font(QStringLiteral("M+ 1c"), QStringLiteral("Medium"), points);
    font.setPixelSize(qRound(points * 1.34));
    const QFontMetricsF metrics(font);
    for (const Language language : {Language::German, Language::Japanese}) {
        m_switch.choose(language);
        const QString translated = editorText(text);
        QVERIFY(!translated.isEmpty());
        for (const char32_t letter : translated.toStdU32String())
            QVERIFY(metrics.inFontUcs4(letter));
        // What stays as on the hardware has the place that it has in English.
        const double room = std::max<double>(width, metrics.horizontalAdvance(text));
        QVERIFY2(metrics.horizontalAdvance(translated) <= room,
                 qPrintable(QStringLiteral("%1 takes %2 pixels")
                                .arg(translated)
                                .arg(metrics.horizontalAdvance(translated))));
    }
    m_switch.choose(Language::English);
}

ZOLTA_TEST_MAIN(tst_Language)

#include "tst_Language.moc"
