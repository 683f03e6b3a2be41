// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/audio/AudioReader.h"
#include "tests/host/audio/SoundFiles.h"
#include "tests/support/TestObject.h"

#include <QTemporaryDir>

#include <limits>

using SoundFiles::Sound;

class tst_AudioReader : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsEveryFormat_data();
    void readsEveryFormat();
    void goesToAFrame();
    void countsSamplesThatAreNotFinite();
    void countsSamplesThatTheEqualizerWouldDrop();
    void refuses_data();
    void refuses();
    void noticesTheWrongEnd();
    void playsWhatAPipeLeftOpen();
    void readsFilesThatAnotherChunkFollows();

private:
    QString path(const char* name) const { return m_folder.filePath(QLatin1String(name)); }
    static std::vector<double> readAll(AudioReader* reader, std::size_t block);

    QTemporaryDir m_folder;
};

// Interleaved again.
std::vector<double> tst_AudioReader::readAll(AudioReader* reader, std::size_t capacity)
{
    std::vector<double> samples;
    AudioBlock block(static_cast<std::size_t>(reader->channels()), capacity);
    do {
        reader->read(&block);
        for (std::size_t i = 0; i < block.frames(); ++i) {
            for (std::size_t c = 0; c < block.channels(); ++c)
                samples.push_back(block.channel(c)[i]);
        }
    } while (block.frames() > 0);
    return samples;
}

void tst_AudioReader::readsEveryFormat_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<int>("channels");
    QTest::addColumn<int>("rate");
    const auto row = [](const char* name, int format, int channels, int rate) {
        QTest::newRow(name) << format << channels << rate;
    };
    row("wav 8", SF_FORMAT_WAV | SF_FORMAT_PCM_U8, 1, 8000);
    row("wav 16", SF_FORMAT_WAV | SF_FORMAT_PCM_16, 2, 44100);
    row("wav 24", SF_FORMAT_WAV | SF_FORMAT_PCM_24, 3, 96000);
    row("wav 32", SF_FORMAT_WAV | SF_FORMAT_PCM_32, 2, 11025);
    row("wav float", SF_FORMAT_WAV | SF_FORMAT_FLOAT, 6, 48000);
    row("wav double", SF_FORMAT_WAV | SF_FORMAT_DOUBLE, 2, 192000);
    row("wav mu-law", SF_FORMAT_WAV | SF_FORMAT_ULAW, 1, 8000);
    row("extensible", SF_FORMAT_WAVEX | SF_FORMAT_PCM_24, 2, 48000);
    row("rf64", SF_FORMAT_RF64 | SF_FORMAT_PCM_16, 2, 48000);
    row("flac 16", SF_FORMAT_FLAC | SF_FORMAT_PCM_16, 2, 44100);
    row("flac 24", SF_FORMAT_FLAC | SF_FORMAT_PCM_24, 8, 96000);
    row("vorbis", SF_FORMAT_OGG | SF_FORMAT_VORBIS, 2, 48000);
    row("many channels", SF_FORMAT_WAV | SF_FORMAT_PCM_16, 100, 48000);
}

void tst_AudioReader::readsEveryFormat()
{
    QFETCH(const int, format);
    QFETCH(const int, channels);
    QFETCH(const int, rate);
    const auto count = static_cast<std::size_t>(channels) * 2345;
    const QString file =
        SoundFiles::write(path("sound"), Sound{format, rate, channels, SoundFiles::noise(count)});
    AudioReader reader;
    QCOMPARE(reader.open(file), QString());
    QCOMPARE(reader.info().samplerate, rate);
    QCOMPARE(reader.channels(), channels);
    QCOMPARE(reader.info().frames, 2345);
    QCOMPARE(readAll(&reader, 1000), SoundFiles::read(file).samples);
    QCOMPARE(reader.position(), 2345);
    QCOMPARE(reader.fault(), QString());
    QCOMPARE(reader.damage().count, 0);
}

void tst_AudioReader::goesToAFrame()
{
    const Sound sound{SF_FORMAT_FLAC | SF_FORMAT_PCM_16, 48000, 2, SoundFiles::noise(20000)};
    const QString file = SoundFiles::write(path("seek.flac"), sound);
    const std::vector<double> all = SoundFiles::read(file).samples;
    AudioReader reader;
    QCOMPARE(reader.open(file), QString());
    for (const std::int64_t frame : {7000, 0, 9999, 10000}) {
        reader.seek(frame);
        QCOMPARE(reader.position(), frame);
        QCOMPARE(readAll(&reader, 512), std::vector<double>(all.begin() + 2 * frame, all.end()));
        QCOMPARE(reader.fault(), QString());
    }
    reader.seek(123456);
    QCOMPARE(reader.position(), 10000);
}

void tst_AudioReader::countsSamplesThatAreNotFinite()
{
    Sound sound{SF_FORMAT_WAV | SF_FORMAT_FLOAT, 48000, 2, SoundFiles::noise(4000)};
    sound.samples[2 * 1501 + 1] = std::nan("");
    sound.samples[2 * 1700] = std::numeric_limits<double>::infinity();
    sound.samples[2 * 1999 + 1] = -std::numeric_limits<double>::infinity();
    AudioReader reader;
    QCOMPARE(reader.open(SoundFiles::write(path("nan.wav"), sound)), QString());
    const std::vector<double> read = readAll(&reader, 1000);
    QCOMPARE(reader.damage().count, 3);
    QCOMPARE(reader.damage().frame, 1501);
    QCOMPARE(reader.damage().channel, 1);
    QCOMPARE(read[2 * 1501 + 1], 0.0);
    QCOMPARE(read[2 * 1700], 0.0);
    QCOMPARE(read[2 * 1700 + 1], double(float(sound.samples[2 * 1700 + 1])));
}

void tst_AudioReader::countsSamplesThatTheEqualizerWouldDrop()
{
    Sound sound{SF_FORMAT_WAV | SF_FORMAT_DOUBLE, 48000, 1, std::vector<double>(100, 0.5)};
    sound.samples[20] = 1e15;
    sound.samples[30] = 1.001e15;
    sound.samples[40] = -1e30;
    AudioReader reader;
    QCOMPARE(reader.open(SoundFiles::write(path("loud.wav"), sound)), QString());
    const std::vector<double> read = readAll(&reader, 64);
    QCOMPARE(reader.damage().count, 2);
    QCOMPARE(reader.damage().frame, 30);
    QCOMPARE(read[20], 1e15);
    QCOMPARE(read[30], 0.0);
    QCOMPARE(read[40], 0.0);
}

void tst_AudioReader::refuses_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("expected");
    const Sound sound{SF_FORMAT_WAV | SF_FORMAT_PCM_16, 48000, 2, SoundFiles::noise(20000)};
    const QByteArray wav = SoundFiles::bytesOf(SoundFiles::write(path("whole.wav"), sound));
    const auto made = [this](const char* name, const QByteArray& bytes) {
        return SoundFiles::writeBytes(path(name), bytes);
    };
    QTest::newRow("missing") << path("nowhere.wav") << "No such file or directory";
    QTest::newRow("folder") << m_folder.path() << "it is a folder";
    QTest::newRow("device") << "/dev/null"
                            << "it is no ordinary file";
    QTest::newRow("empty") << made("empty.wav", "") << "it is empty (0 bytes)";
    QTest::newRow("text") << made("text.wav", "some text")
                          << "it is no sound file that this program knows (Format not recognised)";
    QTest::newRow("wav cut short")
        << made("short.wav", wav.chopped(1))
        << "it is cut short: its header promises 40000 bytes of samples, it holds 39999";
    Sound longOne = sound;
    longOne.format = SF_FORMAT_RF64 | SF_FORMAT_PCM_16;
    const QByteArray rf64 = SoundFiles::bytesOf(SoundFiles::write(path("long.wav"), longOne));
    QTest::newRow("rf64 cut short")
        << made("shortlong.wav", rf64.chopped(1000))
        << "it is cut short: its header promises 40000 bytes of samples, it holds 39000";
    Sound ogg = sound;
    ogg.format = SF_FORMAT_OGG | SF_FORMAT_VORBIS;
    const QByteArray pages = SoundFiles::bytesOf(SoundFiles::write(path("whole.ogg"), ogg));
    QTest::newRow("ogg cut short") << made("short.ogg", pages.left(pages.size() * 3 / 4))
                                   << "it is cut short: its last page is missing";
}

void tst_AudioReader::refuses()
{
    QFETCH(const QString, file);
    QFETCH(const QString, expected);
    QCOMPARE(AudioReader().open(file),
             QStringLiteral("The sound file %1 cannot be read: %2.").arg(file, expected));
}

void tst_AudioReader::noticesTheWrongEnd()
{
    const Sound sound{SF_FORMAT_FLAC | SF_FORMAT_PCM_16, 48000, 2, SoundFiles::noise(100000)};
    const QByteArray bytes = SoundFiles::bytesOf(SoundFiles::write(path("whole.flac"), sound));
    const QString file = SoundFiles::writeBytes(path("short.flac"), bytes.left(bytes.size() / 2));
    AudioReader reader;
    QCOMPARE(reader.open(file), QString());
    const std::vector<double> read = readAll(&reader, 1000);
    QVERIFY(!read.empty() && read.size() < sound.samples.size());
    QCOMPARE(
        reader.fault(),
        QStringLiteral("The sound file %1 cannot be read: it is cut short: it ends after %2 of "
                       "50000 frames.")
            .arg(file)
            .arg(read.size() / 2));
}

// A program that cannot go back to the header writes the largest length there.
void tst_AudioReader::playsWhatAPipeLeftOpen()
{
    const Sound sound{SF_FORMAT_WAV | SF_FORMAT_PCM_16, 48000, 1, SoundFiles::noise(3000)};
    QByteArray bytes = SoundFiles::bytesOf(SoundFiles::write(path("closed.wav"), sound));
    const qsizetype data = bytes.indexOf("data");
    bytes.replace(4, 4, QByteArray(4, '\xff')).replace(data + 4, 4, QByteArray(4, '\xff'));
    AudioReader reader;
    QCOMPARE(reader.open(SoundFiles::writeBytes(path("open.wav"), bytes)), QString());
    QCOMPARE(readAll(&reader, 1000), SoundFiles::read(path("closed.wav")).samples);
    QCOMPARE(reader.fault(), QString());
}

void tst_AudioReader::readsFilesThatAnotherChunkFollows()
{
    const Sound sound{SF_FORMAT_WAV | SF_FORMAT_PCM_U8, 48000, 1, SoundFiles::noise(3001)};
    QByteArray bytes = SoundFiles::bytesOf(SoundFiles::write(path("alone.wav"), sound));
    if (bytes.size() % 2)
        bytes += '\0';
    bytes += QByteArray("more\x04\0\0\0", 8) + "1234";
    AudioReader reader;
    QCOMPARE(reader.open(SoundFiles::writeBytes(path("followed.wav"), bytes)), QString());
    QCOMPARE(readAll(&reader, 1000).size(), 3001U);
}

QTEST_APPLESS_MAIN(tst_AudioReader)

#include "tst_AudioReader.moc"
