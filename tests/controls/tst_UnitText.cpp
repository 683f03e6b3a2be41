// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/UnitText.h"
#include "tests/support/Columns.h"
#include "tests/support/TestObject.h"

using CommonController_MemAPI::unitExpanded;

class tst_UnitText : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void multipliesTheLetterOut_data();
    void multipliesTheLetterOut();
};

void tst_UnitText::multipliesTheLetterOut_data()
{
    addColumns<QString, QString>("text", "expanded");
    const auto row = [](const char* text, const char* expanded) {
        QTest::newRow(*text ? text : "empty") << text << expanded;
    };
    row("1.5k", "1500");
    row("1.5K", "1500");
    row("2M", "2e+06");
    row("2m", "2e+06");
    row("3G", "3e+09");
    row("3g", "3e+09");
    row("-4k", "-4000");
    row("12.3456789k", "12345.7");
    row("999.9999k", "1e+06");
    row("1e3k", "1e+06");
    row("1 k", "1000");
    row("k", "k");
    row("Gk", "Gk");
    row("1,5k", "1,5k");
    row("", "");
    row("1500", "1500");
    row("1.5 kHz", "1.5 kHz");
    row("1.5k ", "1.5k ");
    QTest::newRow("Kelvin sign") << "1\u212A"
                                 << "1\u212A";
}

void tst_UnitText::multipliesTheLetterOut()
{
    QFETCH(QString, text);
    QTEST(unitExpanded(text), "expanded");
}

QTEST_APPLESS_MAIN(tst_UnitText)

#include "tst_UnitText.moc"
