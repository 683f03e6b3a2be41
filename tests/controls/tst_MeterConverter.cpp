// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/MeterConverter.h"
#include "tests/support/TestObject.h"

#include <QList>

#include <cmath>

namespace {

using Convert = bool (*)(unsigned short, unsigned int, unsigned short&);

/// So many thresholds that each lie so much above the one before.
struct Run
{
    int count;
    int step;
};

QList<int> thresholds(int first, std::initializer_list<Run> runs)
{
    QList<int> table = {first};
    for (const Run& run : runs) {
        for (int i = 0; i < run.count; ++i)
            table.append(table.last() + run.step);
    }
    return table;
}

const QList<QList<int>>& dBTables()
{
    static const QList<QList<int>> tables = {
        thresholds(-600, {{6, 40}, {6, 30}, {2, 20}, {14, 10}, {1, 8191}}),
        thresholds(-600, {{3, 40}, {4, 30}, {6, 20}, {4, 15}, {18, 10}, {1, 131071}}),
        thresholds(-480, {{3, 20}, {16, 15}, {8, 10}, {20, 5}, {1, 8191}}),
        thresholds(-600, {{2, 40}, {5, 20}, {16, 15}, {8, 10}, {20, 5}, {1, 8191}}),
    };
    return tables;
}

const QList<QList<int>>& levelTables()
{
    static const QList<QList<int>> tables = {
        thresholds(2026, {{1, 409}, {2, 410}, {2, 409}, {1, 410}, {1, 307}, {1, 308},  {1, 306},
                          {1, 308}, {2, 307}, {2, 205}, {1, 102}, {1, 103}, {3, 102},  {2, 103},
                          {2, 102}, {1, 103}, {1, 102}, {1, 103}, {2, 102}, {1, 24599}}),
        thresholds(2026,
                   {{1, 409}, {2, 410}, {4, 307}, {3, 205}, {1, 204}, {2, 205},  {1, 153}, {2, 154},
                    {1, 153}, {1, 103}, {2, 102}, {1, 103}, {1, 102}, {1, 103},  {3, 102}, {2, 103},
                    {2, 102}, {1, 103}, {1, 102}, {1, 103}, {2, 102}, {1, 24599}}),
        thresholds(3255,
                   {{1, 204}, {2, 205}, {1, 153}, {1, 154}, {1, 153},  {2, 154}, {1, 153}, {2, 154},
                    {2, 153}, {2, 154}, {1, 153}, {2, 154}, {1, 153},  {1, 103}, {2, 102}, {1, 103},
                    {1, 102}, {1, 103}, {2, 102}, {2, 51},  {1, 52},   {2, 51},  {1, 52},  {5, 51},
                    {1, 52},  {3, 51},  {1, 52},  {4, 51},  {1, 24599}}),
        thresholds(2026, {{1, 409}, {1, 410}, {2, 205}, {1, 204},  {2, 205}, {1, 153}, {1, 154},
                          {1, 153}, {2, 154}, {1, 153}, {2, 154},  {2, 153}, {2, 154}, {1, 153},
                          {2, 154}, {1, 153}, {1, 103}, {2, 102},  {1, 103}, {1, 102}, {1, 103},
                          {2, 102}, {2, 51},  {1, 52},  {2, 51},   {1, 52},  {5, 51},  {1, 52},
                          {3, 51},  {1, 52},  {4, 51},  {1, 24599}}),
    };
    return tables;
}

/// Counts one by one what the converter finds by halving.
int counted(const QList<int>& table, int value)
{
    int count = 0;
    for (const int threshold : table)
        count += threshold <= value ? 1 : 0;
    return count;
}

constexpr unsigned short Untouched = 4711;

int converted(Convert convert, int segmentCount, int value)
{
    unsigned short segments = Untouched;
    const bool isKnown = convert(static_cast<unsigned short>(segmentCount),
                                 static_cast<unsigned int>(value), segments);
    return isKnown ? segments : -1;
}

} // namespace

class tst_MeterConverter : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void zeroLightsAllButTheLast();
    void belowTheScaleLightsNothing();
    void anotherSegmentCountFails();
    void aThresholdCountsAsLit();
    void everyValueOfTheDBScales();
    void everyValueOfTheLevelScales();
    void onlyTheLowHalfCounts();
    void theScaleOf37NeverFills();
    void theScalesAgree();
};

void tst_MeterConverter::zeroLightsAllButTheLast()
{
    QCOMPARE(converted(MeterConverter::convertDB2SegNum, 30, 0), 29);
    QCOMPARE(converted(MeterConverter::convertDB2SegNum, 37, 0), 36);
    QCOMPARE(converted(MeterConverter::convertDB2SegNum, 49, 0), 48);
    QCOMPARE(converted(MeterConverter::convertDB2SegNum, 53, 0), 52);
}

void tst_MeterConverter::belowTheScaleLightsNothing()
{
    QCOMPARE(converted(MeterConverter::convertDB2SegNum, 30, -601), 0);
    QCOMPARE(converted(MeterConverter::convertDB2SegNum, 53, -1270), 0);
}

void tst_MeterConverter::anotherSegmentCountFails()
{
    for (const Convert convert :
         {&MeterConverter::convertDB2SegNum, &MeterConverter::convertLevel2SegNum}) {
        for (const unsigned count : {0u, 1u, 29u, 31u, 36u, 38u, 48u, 50u, 52u, 54u, 65535u}) {
            unsigned short segments = Untouched;
            QVERIFY(!convert(static_cast<unsigned short>(count), 0, segments));
            QCOMPARE(segments, Untouched);
        }
    }
}

void tst_MeterConverter::aThresholdCountsAsLit()
{
    for (const QList<int>& table : dBTables()) {
        for (int i = 0; i + 1 < table.size(); ++i) {
            const int count = static_cast<int>(table.size());
            QCOMPARE(converted(MeterConverter::convertDB2SegNum, count, table[i]), i + 1);
            QCOMPARE(converted(MeterConverter::convertDB2SegNum, count, table[i] - 1), i);
        }
    }
}

void tst_MeterConverter::everyValueOfTheDBScales()
{
    for (const QList<int>& table : dBTables()) {
        for (int value = -32768; value <= 32767; ++value) {
            const int wanted = counted(table, value);
            const int seen =
                converted(MeterConverter::convertDB2SegNum, static_cast<int>(table.size()), value);
            if (seen != wanted)
                QCOMPARE(std::pair(value, seen), std::pair(value, wanted));
        }
    }
}

void tst_MeterConverter::everyValueOfTheLevelScales()
{
    for (const QList<int>& table : levelTables()) {
        for (int value = 0; value <= 65535; ++value) {
            const int wanted = counted(table, value);
            const int seen = converted(MeterConverter::convertLevel2SegNum,
                                       static_cast<int>(table.size()), value);
            if (seen != wanted)
                QCOMPARE(std::pair(value, seen), std::pair(value, wanted));
        }
    }
}

void tst_MeterConverter::onlyTheLowHalfCounts()
{
    unsigned short segments = 0;
    QVERIFY(MeterConverter::convertDB2SegNum(53, 0x1234fda8u, segments));
    QCOMPARE(segments, 1); // 0xfda8 is -600
    QVERIFY(MeterConverter::convertLevel2SegNum(53, 0xffff07eau, segments));
    QCOMPARE(segments, 1); // 0x07ea is 2026
}

void tst_MeterConverter::theScaleOf37NeverFills()
{
    QCOMPARE(converted(MeterConverter::convertDB2SegNum, 37, 32767), 36);
    QCOMPARE(converted(MeterConverter::convertDB2SegNum, 30, 8191), 30);
    QCOMPARE(converted(MeterConverter::convertDB2SegNum, 49, 8190), 48);
    QCOMPARE(converted(MeterConverter::convertLevel2SegNum, 37, 32768), 37);
}

// A linear level is a straight line over the decibels: 8169 at 0 dB, 2026 at -60.0 dB.
void tst_MeterConverter::theScalesAgree()
{
    for (int k = 0; k < dBTables().size(); ++k) {
        const QList<int>& tenths = dBTables()[k];
        for (int i = 0; i + 1 < tenths.size(); ++i) {
            const double level = 8169.0 + (8169.0 - 2026.0) / 600.0 * tenths[i];
            QVERIFY(std::abs(levelTables()[k][i] - level) < 1.0);
        }
    }
}

QTEST_APPLESS_MAIN(tst_MeterConverter)

#include "tst_MeterConverter.moc"
