// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/AudioEngine.h"
#include "engine/SignalTap.h"
#include "tests/engine/EngineTesting.h"
#include "tests/support/TestObject.h"

#include <memory>
#include <numeric>
#include <thread>

using namespace EngineTesting;

class tst_SignalTap : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothingIsKeptUntilSomebodyListens();
    void newestAreRead_data();
    void newestAreRead();
    void whoListensAnewFindsNothingOld();
    void samplesCrossThreadsWhole();
    void engineFillsBothPoints();
    void channelWithoutSignalIsSilent();

private:
    using Samples = std::vector<float>;

    static void write(SignalTap* tap, double first, std::size_t frames);
    static Samples rising(float first, std::size_t frames);
};

// Rising from a value, and as far below 0 behind the equalizer.
void tst_SignalTap::write(SignalTap* tap, double first, std::size_t frames)
{
    Block block(frames);
    std::iota(block.begin(), block.end(), first);
    tap->writeBefore(block);
    for (double& sample : block)
        sample = -sample;
    tap->writeAfter(block);
}

tst_SignalTap::Samples tst_SignalTap::rising(float first, std::size_t frames)
{
    Samples samples(frames);
    std::iota(samples.begin(), samples.end(), first);
    return samples;
}

void tst_SignalTap::nothingIsKeptUntilSomebodyListens()
{
    SignalTap tap;
    Samples before(10);
    Samples after(10);
    write(&tap, 1.0, 100);
    QVERIFY(!tap.read(before, after));
    tap.listen();
    tap.listen();
    tap.ignore();
    QVERIFY(!tap.read(before, after));
    write(&tap, 1.0, 9);
    QVERIFY(!tap.read(before, after));
    write(&tap, 10.0, 1);
    QVERIFY(tap.read(before, after));
    tap.ignore();
    write(&tap, 1.0, 100);
    QCOMPARE(tap.count(), std::uint64_t{10});
}

void tst_SignalTap::newestAreRead_data()
{
    QTest::addColumn<int>("block");
    QTest::addColumn<int>("blocks");
    QTest::addColumn<int>("read");
    QTest::addColumn<bool>("there");
    const int capacity = SignalTap::capacity;
    QTest::newRow("all of one block") << 256 << 1 << 256 << true;
    QTest::newRow("more than one block") << 7 << 5 << 30 << true;
    QTest::newRow("round the end") << 1000 << 70 << 20000 << true;
    QTest::newRow("as many as can be") << 1024 << capacity / 1024 << capacity / 2 << true;
    QTest::newRow("more than can be") << 1024 << capacity / 1024 << capacity / 2 + 1 << false;
    QTest::newRow("more than there were") << 100 << 1 << 101 << false;
}

void tst_SignalTap::newestAreRead()
{
    QFETCH(const int, block);
    QFETCH(const int, blocks);
    QFETCH(const int, read);
    SignalTap tap;
    tap.listen();
    for (int i = 0; i < blocks; ++i)
        write(&tap, double(i * block), std::size_t(block));
    Samples before(static_cast<std::size_t>(read));
    Samples after(before.size());
    QTEST(tap.read(before, after), "there");
    QCOMPARE(tap.count(), std::uint64_t(block) * std::uint64_t(blocks));
    const Samples expected = rising(float(block * blocks - read), before.size());
    const bool there = tap.read(before, after);
    QVERIFY(!there || before == expected);
    QVERIFY(!there || after.back() == -expected.back());
}

void tst_SignalTap::whoListensAnewFindsNothingOld()
{
    SignalTap tap;
    tap.listen();
    write(&tap, 0.0, 100);
    tap.ignore();
    tap.listen();
    QCOMPARE(tap.count(), std::uint64_t{0});
    write(&tap, 500.0, 3);
    Samples before(3);
    Samples after(3);
    QVERIFY(tap.read(before, after));
    QCOMPARE(before, rising(500.0F, 3));
}

// Whatever is read is one piece of what was written, the same of both points.
void tst_SignalTap::samplesCrossThreadsWhole()
{
    constexpr int blocks = 20000;
    constexpr int frames = 64;
    SignalTap tap;
    tap.listen();
    std::thread writer([&tap] {
        for (int i = 0; i < blocks; ++i)
            write(&tap, double(i * frames), frames);
    });
    Samples before(4096);
    Samples after(before.size());
    bool whole = true;
    while (whole && tap.count() < std::uint64_t{blocks} * frames) {
        if (!tap.read(before, after))
            continue;
        whole = before == rising(before.front(), before.size());
        for (std::size_t i = 0; i < after.size(); ++i)
            whole = whole && after[i] == -before[i];
    }
    writer.join();
    QVERIFY(whole);
    QVERIFY(tap.read(before, after));
    QCOMPARE(before.back(), float(blocks * frames - 1));
}

// Where the meters measure: behind the input level, and behind the output level.
void tst_SignalTap::engineFillsBothPoints()
{
    const Values values = valuesFrom(QStringLiteral("11=80 25=-60 26=30"));
    const auto engine = std::make_unique<AudioEngine>();
    engine->publish(1, values);
    engine->tap(1).listen();
    const Block given = noise(1000, 0.5);
    Samples samples(given.begin(), given.end());
    engine->process(std::array<float*, 2>{nullptr, samples.data()}, samples.size());

    ChannelProcessor processor;
    processor.setValues(values);
    Block expected;
    for (const double sample : given)
        expected.push_back(static_cast<float>(sample));
    processor.applyInput(expected);
    Samples before(given.size());
    Samples after(given.size());
    QVERIFY(engine->tap(1).read(before, after));
    QCOMPARE(before, Samples(expected.begin(), expected.end()));
    QCOMPARE(after, samples);
}

void tst_SignalTap::channelWithoutSignalIsSilent()
{
    const auto engine = std::make_unique<AudioEngine>();
    engine->tap(2).listen();
    engine->process(std::array<float*, 3>{}, 100);
    Samples before(100, 1.0F);
    Samples after(100, 1.0F);
    QVERIFY(engine->tap(2).read(before, after));
    QCOMPARE(before, Samples(100, 0.0F));
    QCOMPARE(after, before);
}

QTEST_APPLESS_MAIN(tst_SignalTap)
#include "tst_SignalTap.moc"
