// SPDX-License-Identifier: GPL-3.0-or-later
#include "hosting/HostModel.h"

#include "hosting/HostMemory.h"
#include "parameters/StripTable.h"
#include "tests/support/TestObject.h"

#include <set>

class tst_HostModel : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void listsTheMemorysChannels_data();
    void listsTheMemorysChannels();
    void findsAllParameters();
    void refusesUnknownNames_data();
    void refusesUnknownNames();
    void describesMeters();
    void refusesUnknownIndices();
    void toleratesNullPointers();

private:
    HostMemory m_memory;
    HostModel m_model{m_memory};
};

void tst_HostModel::listsTheMemorysChannels_data()
{
    QTest::addColumn<int>("count");
    for (const int count : {8, 2, 14, 32})
        QTest::addRow("%d", count) << count;
}

// The meters' places stay where they are.
void tst_HostModel::listsTheMemorysChannels()
{
    QFETCH(const int, count);
    QCOMPARE(m_memory.setChannelCount(count), 0);
    QCOMPARE(m_model.getChannelCount(), count);
    unsigned short attribute = 0;
    unsigned short channel = 99;
    for (int position = 0; position < count; ++position) {
        m_model.getChannelEntry(&attribute, &channel, static_cast<unsigned int>(position));
        QCOMPARE(channel, position);
    }
    attribute = 77;
    m_model.getChannelEntry(&attribute, &channel, static_cast<unsigned int>(count));
    QCOMPARE(attribute, 77);
    QCOMPARE(channel, count - 1);
    for (unsigned short meter = 0; meter < 2; ++meter) {
        unsigned short base = 999;
        unsigned short channels = 0;
        QVERIFY(m_model.getMeterRange(&base, &channels, meter));
        QCOMPARE(base, 64 * meter);
        QCOMPARE(channels, count);
    }
}

void tst_HostModel::findsAllParameters()
{
    std::set<unsigned short> ids;
    for (int number = 1; number <= 27; ++number) {
        unsigned short index = 999;
        unsigned short id = 0;
        unsigned short second = 0;
        const QByteArray name = "fx_rackfx_prm_" + QByteArray::number(number);
        QVERIFY(m_model.findParameter(&index, name.constData()));
        QVERIFY(m_model.getParameterAddress(&id, &second, index));
        QCOMPARE(id, 0x0100 + number);
        QVERIFY(second != 0 && second != id);
        ids.insert(id);
    }
    QCOMPARE(ids.size(), 27U);
}

void tst_HostModel::refusesUnknownNames_data()
{
    QTest::addColumn<QByteArray>("name");
    const auto row = [](const char* name) { QTest::addRow("\"%s\"", name) << QByteArray(name); };
    for (const char* name : {"", "fx_rackfx_prm_0", "fx_rackfx_prm_28", "fx_rackfx_prm_",
                             "FX_RACKFX_PRM_1", "fx_rackfx_prm_1 ", "meter_oxa"})
        row(name);
    for (const StripEntry& entry : stripTable)
        row(entry.key);
}

void tst_HostModel::refusesUnknownNames()
{
    QFETCH(const QByteArray, name);
    unsigned short index = 123;
    QVERIFY(!m_model.findParameter(&index, name.constData()));
    QVERIFY(!m_model.findMeter(&index, name.constData()));
    QCOMPARE(index, 123);
}

void tst_HostModel::describesMeters()
{
    unsigned short expected = 0;
    for (const char* name : {"meter_oxa_snd", "meter_oxa_rtn"}) {
        unsigned short index = 999;
        QVERIFY(!m_model.findParameter(&index, name));
        QVERIFY(m_model.findMeter(&index, name));
        QCOMPARE(index, expected++);
    }
    QCOMPARE(HostModel::meterWordCount, 128U);
}

void tst_HostModel::refusesUnknownIndices()
{
    unsigned short first = 6;
    unsigned short second = 7;
    QVERIFY(!m_model.getMeterRange(&first, &second, 2));
    QVERIFY(!m_model.getParameterAddress(&first, &second, 27));
    QCOMPARE(first, 6);
    QCOMPARE(second, 7);
}

void tst_HostModel::toleratesNullPointers()
{
    unsigned short index = 0;
    QVERIFY(!m_model.findParameter(nullptr, "fx_rackfx_prm_1"));
    QVERIFY(!m_model.findParameter(&index, nullptr));
    QVERIFY(!m_model.findMeter(nullptr, "meter_oxa_snd"));
    QVERIFY(!m_model.findMeter(&index, nullptr));
    QVERIFY(m_model.getParameterAddress(nullptr, nullptr, 0));
    QVERIFY(m_model.getMeterRange(nullptr, nullptr, 0));
    m_model.getChannelEntry(nullptr, nullptr, 0);
}

QTEST_APPLESS_MAIN(tst_HostModel)

#include "tst_HostModel.moc"
