// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/audio/SampleConversion.h"
#include "tests/support/TestObject.h"

#include <limits>

class tst_SampleConversion : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyShortComesBack();
    void everyChannelCountComesBack_data();
    void everyChannelCountComesBack();
    void roundsToTheNearest_data();
    void roundsToTheNearest();
    void countsWhatDoesNotFit();
    void integersKeepTheirUpperBits_data();
    void integersKeepTheirUpperBits();
    void floatsHaveLimits();
    void knowsWhatIsWithinALimit();

private:
    static AudioBlock blockOf(const std::vector<double>& samples);
};

AudioBlock tst_SampleConversion::blockOf(const std::vector<double>& samples)
{
    AudioBlock block(1, samples.size());
    block.setFrames(samples.size());
    std::copy(samples.begin(), samples.end(), block.channel(0).begin());
    return block;
}

void tst_SampleConversion::everyShortComesBack()
{
    std::vector<short> samples;
    for (int value = -32768; value <= 32767; ++value)
        samples.push_back(static_cast<short>(value));
    AudioBlock block(1, samples.size());
    block.setFrames(samples.size());
    SampleConversion::toBlock(samples.data(), &block);
    QCOMPARE(block.channel(0)[0], -1.0);
    QCOMPARE(block.channel(0)[32768 + 16384], 0.5);
    std::vector<short> back(samples.size());
    QCOMPARE(SampleConversion::fromBlock(block, back.data()), 0);
    QCOMPARE(back, samples);
}

void tst_SampleConversion::everyChannelCountComesBack_data()
{
    QTest::addColumn<int>("channels");
    for (const int channels : {1, 2, 3, 7})
        QTest::addRow("%d", channels) << channels;
}

void tst_SampleConversion::everyChannelCountComesBack()
{
    QFETCH(const int, channels);
    const auto count = static_cast<std::size_t>(channels);
    std::vector<int> samples;
    for (int i = 0; i < 37 * channels; ++i)
        samples.push_back(i * 7919 * 256 - 123456 * 256);
    AudioBlock block(count, 50);
    block.setFrames(37);
    SampleConversion::toBlock(samples.data(), &block);
    for (std::size_t c = 0; c < count; ++c)
        QCOMPARE(block.channel(c)[5], samples[5 * count + c] / 2147483648.0);
    std::vector<int> back(samples.size());
    QCOMPARE(SampleConversion::fromBlock(block, 24, back.data()), 0);
    QCOMPARE(back, samples);
}

void tst_SampleConversion::roundsToTheNearest_data()
{
    QTest::addColumn<double>("steps");
    QTest::addColumn<int>("expected");
    QTest::newRow("0.49") << 0.49 << 0;
    QTest::newRow("0.51") << 0.51 << 1;
    QTest::newRow("-0.51") << -0.51 << -1;
    QTest::newRow("tie down") << 2.5 << 2;
    QTest::newRow("tie up") << 3.5 << 4;
    QTest::newRow("-32768.4") << -32768.4 << -32768;
    QTest::newRow("32767.4") << 32767.4 << 32767;
}

void tst_SampleConversion::roundsToTheNearest()
{
    QFETCH(const double, steps);
    short result = 0;
    QCOMPARE(SampleConversion::fromBlock(blockOf({steps / 32768.0}), &result), 0);
    QTEST(int{result}, "expected");
}

void tst_SampleConversion::countsWhatDoesNotFit()
{
    const double infinity = std::numeric_limits<double>::infinity();
    const AudioBlock block =
        blockOf({1.0, 0.5, -1.0, -1.1, infinity, -infinity, std::nan(""), 1e300});
    std::vector<short> result(8);
    QCOMPARE(SampleConversion::fromBlock(block, result.data()), 6);
    QCOMPARE(result,
             (std::vector<short>{32767, 16384, -32768, -32768, 32767, -32768, -32768, 32767}));
}

void tst_SampleConversion::integersKeepTheirUpperBits_data()
{
    QTest::addColumn<int>("bits");
    QTest::addColumn<int>("largest");
    QTest::newRow("8") << 8 << 0x7F000000;
    QTest::newRow("24") << 24 << 0x7FFFFF00;
    QTest::newRow("32") << 32 << 0x7FFFFFFF;
}

void tst_SampleConversion::integersKeepTheirUpperBits()
{
    QFETCH(const int, bits);
    std::vector<int> result(4);
    QCOMPARE(SampleConversion::fromBlock(blockOf({2.0, -1.0, 0.25, 0.0}), bits, result.data()), 1);
    QTEST(result[0], "largest");
    QCOMPARE(result[1], std::numeric_limits<int>::min());
    QCOMPARE(result[2], 0x20000000);
    QCOMPARE(result[3], 0);
}

void tst_SampleConversion::floatsHaveLimits()
{
    std::vector<float> result(3);
    QCOMPARE(SampleConversion::fromBlock(blockOf({7.5, -1e39, 1e300}), result.data()), 2);
    QCOMPARE(result, (std::vector<float>{7.5F, -std::numeric_limits<float>::max(),
                                         std::numeric_limits<float>::max()}));
}

void tst_SampleConversion::knowsWhatIsWithinALimit()
{
    const double infinity = std::numeric_limits<double>::infinity();
    QVERIFY(SampleConversion::isWithin(blockOf({0.0, -3e8, 3e8}), 3e8));
    QVERIFY(!SampleConversion::isWithin(blockOf({0.0, std::nan(""), 1.0}), 3e8));
    QVERIFY(!SampleConversion::isWithin(blockOf({0.0, -infinity}), 3e8));
    QVERIFY(!SampleConversion::isWithin(blockOf({-3.1e8}), 3e8));
}

QTEST_APPLESS_MAIN(tst_SampleConversion)

#include "tst_SampleConversion.moc"
