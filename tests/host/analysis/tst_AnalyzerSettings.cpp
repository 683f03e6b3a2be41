// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/analysis/AnalyzerSettings.h"
#include "tests/support/TestObject.h"

#include <QJsonDocument>

class tst_AnalyzerSettings : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void everySettingIsKept();
    void unknownIsDefault_data();
    void unknownIsDefault();
};

void tst_AnalyzerSettings::everySettingIsKept()
{
    const AnalyzerSettings settings{
        12, AnalyzerSettings::FlatTop, 5, 0, AnalyzerSettings::Slow, true, false};
    QCOMPARE(AnalyzerSettings::fromJson(settings.toJson()), settings);
    QCOMPARE(AnalyzerSettings::fromJson({}), AnalyzerSettings());
}

void tst_AnalyzerSettings::unknownIsDefault_data()
{
    QTest::addColumn<QByteArray>("json");
    for (const char* json :
         {R"({"order": 11})", R"({"order": 16})", R"({"order": "14"})", R"({"order": 12.5})",
          R"({"window": 3})", R"({"window": -1})", R"({"smoothing": 6})", R"({"tilt": 4})",
          R"({"speed": 4})", R"({"peaks": 1})", R"({"curve": "no"})", R"({"later": true})"})
        QTest::newRow(json) << QByteArray(json);
}

void tst_AnalyzerSettings::unknownIsDefault()
{
    QFETCH(const QByteArray, json);
    const QJsonObject object = QJsonDocument::fromJson(json).object();
    QVERIFY(!object.isEmpty());
    QCOMPARE(AnalyzerSettings::fromJson(object), AnalyzerSettings());
}

QTEST_APPLESS_MAIN(tst_AnalyzerSettings)
#include "tst_AnalyzerSettings.moc"
