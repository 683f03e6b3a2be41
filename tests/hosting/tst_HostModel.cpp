// SPDX-License-Identifier: GPL-3.0-or-later
#include "hosting/HostModel.h"
#include "tests/support/TestObject.h"

#include <set>

class tst_HostModel : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void listsEightChannels();
    void leavesUnknownChannelAlone();
    void findsAllParameters();
    void refusesUnknownParameters_data();
    void refusesUnknownParameters();
    void describesMeters_data();
    void describesMeters();
    void metersDoNotOverlap();
    void refusesUnknownMeters();
    void toleratesNullPointers();
};

void tst_HostModel::listsEightChannels()
{
    HostModel model;
    QCOMPARE(model.getChannelCount(), 8);
    for (unsigned int position = 0; position < 8; ++position) {
        unsigned short attribute = 0;
        unsigned short channel = 99;
        model.getChannelEntry(&attribute, &channel, position);
        QCOMPARE(channel, position);
    }
}

void tst_HostModel::leavesUnknownChannelAlone()
{
    HostModel model;
    unsigned short attribute = 77;
    unsigned short channel = 88;
    model.getChannelEntry(&attribute, &channel, 8);
    QCOMPARE(attribute, 77);
    QCOMPARE(channel, 88);
}

void tst_HostModel::findsAllParameters()
{
    HostModel model;
    std::set<unsigned short> ids;
    for (int number = 1; number <= 27; ++number) {
        unsigned short index = 999;
        unsigned short id = 0;
        unsigned short second = 0;
        QVERIFY(
            model.findParameter(&index, QByteArray("fx_rackfx_prm_" + QByteArray::number(number))));
        QVERIFY(model.getParameterAddress(&id, &second, index));
        QCOMPARE(id, 0x0100 + number);
        QVERIFY(second != 0 && second != id);
        ids.insert(id);
    }
    QCOMPARE(ids.size(), 27U);
}

void tst_HostModel::refusesUnknownParameters_data()
{
    QTest::addColumn<QByteArray>("name");
    for (const char* name : {"", "fx_rackfx_prm_0", "fx_rackfx_prm_28", "fx_rackfx_prm_",
                             "FX_RACKFX_PRM_1", "fx_rackfx_prm_1 ", "meter_oxa_snd"})
        QTest::addRow("\"%s\"", name) << QByteArray(name);
}

void tst_HostModel::refusesUnknownParameters()
{
    QFETCH(const QByteArray, name);
    HostModel model;
    unsigned short index = 123;
    QVERIFY(!model.findParameter(&index, name.constData()));
    QCOMPARE(index, 123);
}

void tst_HostModel::describesMeters_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("expectedBase");
    QTest::newRow("input") << QByteArray("meter_oxa_snd") << 0;
    QTest::newRow("output") << QByteArray("meter_oxa_rtn") << 16;
}

void tst_HostModel::describesMeters()
{
    QFETCH(const QByteArray, name);
    QFETCH(const int, expectedBase);
    HostModel model;
    unsigned short index = 999;
    unsigned short base = 999;
    unsigned short count = 0;
    QVERIFY(model.findMeter(&index, name.constData()));
    QVERIFY(model.getMeterRange(&base, &count, index));
    QCOMPARE(base, expectedBase);
    QCOMPARE(count, 8);
    QVERIFY(base + 2 * (count - 1) + 1 < static_cast<int>(HostModel::meterWordCount));
}

void tst_HostModel::metersDoNotOverlap()
{
    HostModel model;
    std::set<int> positions;
    for (unsigned short meter = 0; meter < 2; ++meter) {
        unsigned short base = 0;
        unsigned short count = 0;
        QVERIFY(model.getMeterRange(&base, &count, meter));
        for (int i = 0; i < 2 * count; ++i)
            QVERIFY(positions.insert(base + i).second);
    }
}

void tst_HostModel::refusesUnknownMeters()
{
    HostModel model;
    unsigned short index = 5;
    QVERIFY(!model.findMeter(&index, "meter_oxa"));
    QVERIFY(!model.findMeter(&index, ""));
    QCOMPARE(index, 5);
    unsigned short base = 6;
    unsigned short count = 7;
    QVERIFY(!model.getMeterRange(&base, &count, 2));
    QCOMPARE(base, 6);
    QCOMPARE(count, 7);
    QVERIFY(!model.getParameterAddress(&base, &count, 27));
    QCOMPARE(base, 6);
}

void tst_HostModel::toleratesNullPointers()
{
    HostModel model;
    unsigned short index = 0;
    QVERIFY(!model.findParameter(nullptr, "fx_rackfx_prm_1"));
    QVERIFY(!model.findParameter(&index, nullptr));
    QVERIFY(!model.findMeter(nullptr, "meter_oxa_snd"));
    QVERIFY(!model.findMeter(&index, nullptr));
    QVERIFY(model.getParameterAddress(nullptr, nullptr, 0));
    QVERIFY(model.getMeterRange(nullptr, nullptr, 0));
    model.getChannelEntry(nullptr, nullptr, 0);
}

QTEST_APPLESS_MAIN(tst_HostModel)

#include "tst_HostModel.moc"
