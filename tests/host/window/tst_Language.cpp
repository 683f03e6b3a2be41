// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/Language.h"
#include "tests/support/TestObject.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QWidget>

using namespace Qt::StringLiterals;

class tst_Language : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void codesAreUnderstood();
    void whatIsTheSameEverywhereStays();
    void switchesBackAndForth_data();
    void switchesBackAndForth();
    void standardButtonsFollow();
    void widgetsAreTold();
    void theSameLanguageAgainTellsNobody();
    void panelStaysAsOnTheHardware();

private:
    static QString editorText(const QString& source);

    LanguageSwitch m_switch;
};

QString tst_Language::editorText(const QString& source)
{
    return QCoreApplication::translate("ZoltaEditor", source.toUtf8().constData());
}

void tst_Language::codesAreUnderstood()
{
    m_switch.choose(Language::German);
    const std::map<QString, Language> codes = {
        {u"en"_s, Language::English}, {u"de"_s, Language::German}, {u"ja"_s, Language::Japanese}};
    for (const auto& [code, language] : codes) {
        QCOMPARE(languageOf(code), std::optional(language));
        QCOMPARE(codeOf(language), code);
    }
    for (const QString& code : {u""_s, u"fr"_s, u"DE"_s, u"de_DE"_s, u"english"_s})
        QCOMPARE(languageOf(code), std::optional<Language>());
    QCOMPARE(nameOf(Language::English), u"English"_s); // whatever is spoken
    QCOMPARE(nameOf(Language::German), u"Deutsch"_s);
    QCOMPARE(nameOf(Language::Japanese), u"日本語"_s);
    m_switch.choose(Language::English);
}

void tst_Language::whatIsTheSameEverywhereStays()
{
    for (const Language language : languages) {
        m_switch.choose(language);
        for (const QString& text : {u"0"_s, u"-3"_s, u"-60"_s, u"6"_s, u"30"_s, u"dB"_s, u"Hz"_s,
                                    u":/image/zolta/back_zolta.svg"_s})
            QCOMPARE(editorText(text), text);
    }
    m_switch.choose(Language::English);
}

void tst_Language::switchesBackAndForth_data()
{
    QTest::addColumn<QByteArray>("context");
    QTest::addColumn<QByteArray>("source");
    QTest::addColumn<QString>("german");
    QTest::addColumn<QString>("japanese");
    const auto row = [](const char* context, const char* source, const char* german,
                        const char* japanese) {
        QTest::newRow(source) << QByteArray(context) << QByteArray(source)
                              << QString::fromUtf8(german) << QString::fromUtf8(japanese);
    };
    row("ZoltaEditor", "Output level", "Ausgangspegel", "出力レベル");
    row("MixerWindow", "Mixer", "Mischpult", "ミキサー");
    row("Parameter", "High gain", "Höhen: Gain", "ハイ ゲイン");
}

void tst_Language::switchesBackAndForth()
{
    QFETCH(const QByteArray, context);
    QFETCH(const QByteArray, source);
    const auto spoken = [&] {
        return QCoreApplication::translate(context.constData(), source.constData());
    };
    for (const char* language : {"german", "japanese", "german"}) {
        m_switch.choose(*language == 'g' ? Language::German : Language::Japanese);
        QTEST(spoken(), language);
    }
    m_switch.choose(Language::English);
    QCOMPARE(spoken(), QString::fromLatin1(source));
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
    QCOMPARE(cancel(), u"Abbrechen"_s);
    m_switch.choose(Language::Japanese);
    QCOMPARE(cancel(), u"キャンセル"_s);
    m_switch.choose(Language::English);
    QCOMPARE(cancel(), u"Cancel"_s);
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
    m_switch.choose(Language::German);
    QCoreApplication::sendPostedEvents();
    Listener listener;
    m_switch.choose(Language::German);
    QCoreApplication::sendPostedEvents();
    QCOMPARE(listener.changes, 0);
    m_switch.choose(Language::English);
}

// What is engraved on the hardware and painted on the panel reads the same everywhere.
void tst_Language::panelStaysAsOnTheHardware()
{
    for (const Language language : languages) {
        m_switch.choose(language);
        for (const char* text : {"ZOOM", "DRIVE", "CLEAN", "INPUT", "OUTPUT", "PEAK", "FLAT", "Q",
                                 "F", "G", "IN", "OUT"})
            QCOMPARE(editorText(QLatin1String(text)), QLatin1String(text));
    }
    m_switch.choose(Language::English);
}

ZOLTA_TEST_MAIN(tst_Language)

#include "tst_Language.moc"
