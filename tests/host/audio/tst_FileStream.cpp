// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/audio/FileStream.h"
#include "tests/engine/RealtimeTrap.h"
#include "tests/host/audio/SoundFiles.h"
#include "tests/support/TestObject.h"

#include <QTemporaryDir>

#include <cstdlib>
#include <new>
#include <thread>

using SoundFiles::Sound;

class tst_FileStream : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void ringKeepsOrderAcrossItsEnd();
    void ringKeepsOrderBetweenThreads();
    void streamGivesTheFile();
    void givesSilenceForWhatComesTooLate();
    void convertsWithoutLoss_data();
    void convertsWithoutLoss();
    void emptyFilesDoNotLoopForEver();
    void readingNeitherAllocatesNorLocks();

private:
    QString path(const char* name) const { return m_folder.filePath(QLatin1String(name)); }

    QTemporaryDir m_folder;
};

void tst_FileStream::ringKeepsOrderAcrossItsEnd()
{
    RingBuffer ring(5);
    QCOMPARE(ring.capacity(), 8U);
    const std::vector<float> six = {1, 2, 3, 4, 5, 6};
    std::vector<float> out(4);
    QCOMPARE(ring.write(six), 6U);
    QCOMPARE(ring.read(out), 4U);
    QCOMPARE(out, (std::vector<float>{1, 2, 3, 4}));
    QCOMPARE(ring.write(six), 6U);
    QCOMPARE(ring.write(six), 0U);
    QCOMPARE(ring.readable(), 8U);
    out.resize(10);
    QCOMPARE(ring.read(out), 8U);
    out.resize(8);
    QCOMPARE(out, (std::vector<float>{5, 6, 1, 2, 3, 4, 5, 6}));
}

void tst_FileStream::ringKeepsOrderBetweenThreads()
{
    constexpr int count = 300000;
    RingBuffer ring(64);
    std::thread writer([&ring] {
        for (int i = 0; i < count;) {
            const float value = static_cast<float>(i);
            i += static_cast<int>(ring.write({&value, 1}));
        }
    });
    int wrong = 0;
    std::vector<float> out(7);
    for (int i = 0; i < count;) {
        const std::size_t got = ring.read(out);
        for (std::size_t k = 0; k < got; ++k, ++i)
            wrong += out[k] != static_cast<float>(i) ? 1 : 0;
    }
    writer.join();
    QCOMPARE(wrong, 0);
}

// Of more than two channels the first two, interleaved.
void tst_FileStream::streamGivesTheFile()
{
    const Sound sound{SF_FORMAT_WAV | SF_FORMAT_FLOAT, 48000, 3, SoundFiles::noise(3 * 10000)};
    FileStream stream;
    QVERIFY(stream.open(SoundFiles::write(path("in.wav"), sound)).isOk());
    QCOMPARE(stream.channels(), 2);
    QCOMPARE(stream.length(), 10000);
    stream.start(1000, 48000, false);
    std::vector<float> samples(1024);
    const Sound file = SoundFiles::read(path("in.wav"));
    const std::array<std::vector<double>, 2> expected = {file.channel(0), file.channel(1)};
    for (std::size_t at = 1000; at < 10000; at += 512) {
        QCOMPARE(stream.position(), static_cast<std::int64_t>(at));
        QCOMPARE(stream.read(samples), std::min<std::size_t>(512, 10000 - at));
        for (std::size_t i = 0; i < 1024; ++i)
            QCOMPARE(double(samples[i]), at + i / 2 < 10000 ? expected[i % 2][at + i / 2] : 0.0);
    }
    QVERIFY(stream.hasEnded());
    QVERIFY(stream.status().isOk());
}

// All at once is more than a second that is read ahead.
void tst_FileStream::givesSilenceForWhatComesTooLate()
{
    const Sound sound{SF_FORMAT_WAV | SF_FORMAT_PCM_16, 48000, 1, std::vector<double>(480000, 0.5)};
    FileStream stream;
    QVERIFY(stream.open(SoundFiles::write(path("long.wav"), sound)).isOk());
    stream.start(0, 48000, false);
    std::vector<float> samples(480000);
    const std::size_t got = stream.read(samples);
    QVERIFY(got >= 48000 && got < 480000);
    QCOMPARE(samples[got - 1], 0.5F);
    QCOMPARE(samples[got], 0.0F);
    QCOMPARE(samples.back(), 0.0F);
    QVERIFY(!stream.hasEnded());
    QCOMPARE(stream.position(), static_cast<std::int64_t>(got));
    QTRY_COMPARE(stream.read(std::span(samples).first(256)), std::size_t{256});
    QCOMPARE(samples[0], 0.5F);
}

void tst_FileStream::convertsWithoutLoss_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    for (const auto& [from, to] : std::vector<std::pair<int, int>>{
             {44100, 48000}, {48000, 44100}, {8000, 48000}, {192000, 44100}})
        QTest::addRow("%d to %d", from, to) << from << to;
}

void tst_FileStream::convertsWithoutLoss()
{
    QFETCH(const int, from);
    QFETCH(const int, to);
    const std::vector<double> sine =
        SoundFiles::sine(500.0, from, static_cast<std::size_t>(from), 0.5);
    const std::vector<float> in(sine.begin(), sine.end());
    Resampler resampler(1, from, to);
    std::vector<float> out;
    for (std::size_t at = 0; at < in.size(); at += 1000) {
        const std::size_t count = std::min<std::size_t>(1000, in.size() - at);
        const std::span<const float> piece = resampler.process(
            std::span<const float>(in).subspan(at, count), at + count == in.size());
        out.insert(out.end(), piece.begin(), piece.end());
    }
    QVERIFY2(std::abs(static_cast<int>(out.size()) - to) <= 2,
             qPrintable(QString::number(out.size())));
    const std::vector<double> expected =
        SoundFiles::sine(500.0, to, static_cast<std::size_t>(to), 0.5);
    for (std::size_t i = expected.size() / 4; i < expected.size() / 2; ++i)
        QVERIFY(std::abs(double(out[i]) - expected[i]) < 1e-3);
}

// A file without frames whose length is not known, and one that has them.
void tst_FileStream::emptyFilesDoNotLoopForEver()
{
    const QString empty =
        SoundFiles::write(path("empty.wav"), Sound{SF_FORMAT_WAV | SF_FORMAT_FLOAT, 48000, 1, {}});
    FileStream stream;
    QVERIFY(stream.open(empty).isOk());
    stream.start(0, 48000, true);
    std::vector<float> heard(64, 1.0F);
    QCOMPARE(stream.read(heard), std::size_t{0});
    QCOMPARE(heard, std::vector<float>(64, 0.0F));
    QVERIFY(stream.hasEnded());
}

void tst_FileStream::readingNeitherAllocatesNorLocks()
{
    const Sound sound{SF_FORMAT_WAV | SF_FORMAT_FLOAT, 44100, 2, SoundFiles::noise(88200)};
    FileStream stream;
    QVERIFY(stream.open(SoundFiles::write(path("in.wav"), sound)).isOk());
    stream.start(0, 48000, true);
    std::vector<float> samples(8192);
    for (int round = 0; round < 40; ++round) {
        for (const std::size_t frames : {16U, 256U, 1000U, 4096U}) {
            const RealtimeTrap trap;
            stream.read(std::span(samples).first(2 * frames));
            QCOMPARE(std::pair(trap.allocations(), trap.locks()), std::pair(0, 0));
        }
    }
}

QTEST_GUILESS_MAIN(tst_FileStream)

#include "tst_FileStream.moc"
