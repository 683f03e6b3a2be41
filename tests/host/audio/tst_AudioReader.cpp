// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/audio/AudioReader.h"
#include "tests/host/audio/SoundFiles.h"
#include "tests/support/TestObject.h"

#include <QTemporaryDir>

#include <limits>

using SoundFiles::Sound;

namespace {

constexpr int wav = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
constexpr int rf64 = SF_FORMAT_RF64 | SF_FORMAT_PCM_16;
constexpr int aiff = SF_FORMAT_AIFF | SF_FORMAT_PCM_16;
constexpr int au = SF_FORMAT_AU | SF_FORMAT_PCM_16;
constexpr int w64 = SF_FORMAT_W64 | SF_FORMAT_PCM_16;
constexpr int caf = SF_FORMAT_CAF | SF_FORMAT_PCM_16;

// The first one whose position in the sound is beyond 0.
qsizetype firstPageOfSound(const QByteArray& ogg)
{
    qsizetype page = 0;
    while (ogg.mid(page + 6, 8) == QByteArray(8, '\0'))
        page = ogg.indexOf("OggS", page + 1);
    return page;
}

// Where the header of a file tells how long its sound is.
qsizetype lengthOffset(const QByteArray& bytes, int format)
{
    switch (format & SF_FORMAT_TYPEMASK) {
    case SF_FORMAT_RF64:
        return bytes.indexOf("ds64") + 16;
    case SF_FORMAT_AIFF:
        return bytes.indexOf("SSND") + 4;
    case SF_FORMAT_AU:
        return 8;
    case SF_FORMAT_W64:
        return bytes.indexOf("data\xf3\xac") + 16;
    default:
        return bytes.indexOf("data") + 4;
    }
}

// What the sound file library makes of a file alone: its frames, or -1 if it refuses it.
std::int64_t framesAlone(const QString& file)
{
    SF_INFO info = {};
    SNDFILE* sound = sf_open(QFile::encodeName(file).constData(), SFM_READ, &info);
    sf_close(sound);
    return sound ? info.frames : -1;
}

} // namespace

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
    void refusesDamagedPages_data();
    void refusesDamagedPages();
    void refusesWhatIsNoSoundFile();
    void noticesTheWrongEnd();
    void refusesWhatIsCutShort_data();
    void refusesWhatIsCutShort();
    void playsWhatAPipeLeftOpen_data();
    void playsWhatAPipeLeftOpen();
    void playsLongFilesThatAPipeLeftOpen();
    void emptyFilesStayEmpty_data();
    void emptyFilesStayEmpty();
    void oddLengthsAreWhole_data();
    void oddLengthsAreWhole();
    void missesNoPadding();
    void readsFilesThatAnotherChunkFollows();

private:
    QString path(const char* name) const { return m_folder.filePath(QLatin1String(name)); }
    QByteArray bytesOf(const Sound& sound) const;
    QString errorOf(const QByteArray& bytes) const;
    static std::vector<double> readAll(AudioReader* reader, std::size_t block);

    QTemporaryDir m_folder;
};

QByteArray tst_AudioReader::bytesOf(const Sound& sound) const
{
    return SoundFiles::bytesOf(SoundFiles::write(path("whole"), sound));
}

// Why a file of these bytes cannot be opened.
QString tst_AudioReader::errorOf(const QByteArray& bytes) const
{
    AudioReader reader;
    const QString file = SoundFiles::writeBytes(path("file"), bytes);
    return reader.open(file).error().remove(
        QStringLiteral("The sound file %1 cannot be read").arg(file));
}

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
    QVERIFY(reader.open(file).isOk());
    QCOMPARE(reader.info().samplerate, rate);
    QCOMPARE(reader.channels(), channels);
    QCOMPARE(reader.info().frames, 2345);
    const std::vector<double> expected = SoundFiles::read(file).samples;
    QCOMPARE(readAll(&reader, 1000), expected);
    QCOMPARE(reader.position(), 2345);
    reader.seek(0);
    std::vector<float> floats(count + static_cast<std::size_t>(channels));
    QCOMPARE(reader.read(floats), std::size_t{2345});
    for (std::size_t i = 0; i < count; ++i)
        QCOMPARE(floats[i], static_cast<float>(expected[i]));
    QCOMPARE(reader.status().error(), QString());
    QCOMPARE(reader.damage().count, 0);
}

void tst_AudioReader::goesToAFrame()
{
    const Sound sound{SF_FORMAT_FLAC | SF_FORMAT_PCM_16, 48000, 2, SoundFiles::noise(20000)};
    const QString file = SoundFiles::write(path("seek.flac"), sound);
    const std::vector<double> all = SoundFiles::read(file).samples;
    AudioReader reader;
    QVERIFY(reader.open(file).isOk());
    for (const std::int64_t frame : {7000, 0, 9999, 10000}) {
        reader.seek(frame);
        QCOMPARE(reader.position(), frame);
        QCOMPARE(readAll(&reader, 512), std::vector<double>(all.begin() + 2 * frame, all.end()));
        QCOMPARE(reader.status().error(), QString());
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
    QVERIFY(reader.open(SoundFiles::write(path("nan.wav"), sound)).isOk());
    const std::vector<double> read = readAll(&reader, 1000);
    QCOMPARE(reader.damage().count, 3);
    QCOMPARE(reader.damage().frame, 1501);
    QCOMPARE(reader.damage().channel, 1);
    QCOMPARE(read[2 * 1501 + 1], 0.0);
    QCOMPARE(read[2 * 1700], 0.0);
    QCOMPARE(read[2 * 1700 + 1], double(float(sound.samples[2 * 1700 + 1])));
    reader.seek(1000);
    std::vector<float> floats(2000);
    QCOMPARE(reader.read(floats), std::size_t{1000});
    QCOMPARE(reader.damage().count, 6);
    QCOMPARE(floats[2 * 501 + 1], 0.0F);
    QCOMPARE(floats[2 * 700 + 1], float(sound.samples[2 * 1700 + 1]));
}

void tst_AudioReader::countsSamplesThatTheEqualizerWouldDrop()
{
    Sound sound{SF_FORMAT_WAV | SF_FORMAT_DOUBLE, 48000, 1, std::vector<double>(100, 0.5)};
    sound.samples[20] = 1e15;
    sound.samples[30] = 1.001e15;
    sound.samples[40] = -1e30;
    AudioReader reader;
    QVERIFY(reader.open(SoundFiles::write(path("loud.wav"), sound)).isOk());
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
    QTest::newRow("missing") << path("nowhere.wav") << "No such file or directory";
    QTest::newRow("folder") << m_folder.path() << "it is a folder";
    QTest::newRow("device") << "/dev/null"
                            << "it is not a regular file";
}

void tst_AudioReader::refuses()
{
    QFETCH(const QString, file);
    QFETCH(const QString, expected);
    QCOMPARE(AudioReader().open(file).error(),
             QStringLiteral("The sound file %1 cannot be read: %2.").arg(file, expected));
}

void tst_AudioReader::refusesDamagedPages_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("expected");
    const Sound sound{SF_FORMAT_OGG | SF_FORMAT_VORBIS, 48000, 2, SoundFiles::noise(200000)};
    const QByteArray ogg = bytesOf(sound);
    QTest::newRow("cut short") << ogg.left(ogg.size() * 3 / 4)
                               << ". It is cut short: its last page is missing";
    QTest::newRow("chained") << ogg + ogg << ": it holds several streams one after the other";
    const qsizetype page = firstPageOfSound(ogg);
    QByteArray damaged = ogg;
    damaged[page + 1000] = static_cast<char>(damaged[page + 1000] ^ 1);
    QTest::newRow("damaged") << damaged << QStringLiteral(": it is damaged at byte %1").arg(page);
    damaged[page] = 'o';
    QTest::newRow("out of step") << damaged
                                 << QStringLiteral(": it is damaged at byte %1").arg(page);
}

// The library alone plays what it can of them.
void tst_AudioReader::refusesDamagedPages()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, expected);
    QCOMPARE(errorOf(bytes), expected + QLatin1Char('.'));
    QVERIFY(framesAlone(path("file")) > 0);
}

void tst_AudioReader::refusesWhatIsNoSoundFile()
{
    for (const char* content : {"", "some text"}) {
        const QString file = SoundFiles::writeBytes(path("text.wav"), content);
        QCOMPARE(AudioReader().open(file).error(),
                 QStringLiteral("The file %1 is not a sound file that can be read.").arg(file));
    }
}

void tst_AudioReader::noticesTheWrongEnd()
{
    const Sound sound{SF_FORMAT_FLAC | SF_FORMAT_PCM_16, 48000, 2, SoundFiles::noise(100000)};
    const QByteArray bytes = SoundFiles::bytesOf(SoundFiles::write(path("whole.flac"), sound));
    const QString file = SoundFiles::writeBytes(path("short.flac"), bytes.left(bytes.size() / 2));
    AudioReader reader;
    QVERIFY(reader.open(file).isOk());
    const std::vector<double> read = readAll(&reader, 1000);
    QVERIFY(!read.empty() && read.size() < sound.samples.size());
    QCOMPARE(
        reader.status().error(),
        QStringLiteral("The sound file %1 cannot be read. It is cut short: it ends after %2 of "
                       "50000 frames.")
            .arg(file)
            .arg(read.size() / 2));
}

void tst_AudioReader::refusesWhatIsCutShort_data()
{
    QTest::addColumn<int>("format");
    QTest::newRow("wav") << wav;
    QTest::newRow("big-endian wav") << (wav | SF_ENDIAN_BIG);
    QTest::newRow("extensible") << (SF_FORMAT_WAVEX | SF_FORMAT_PCM_16);
    QTest::newRow("rf64") << rf64;
    QTest::newRow("w64") << w64;
    QTest::newRow("aiff") << aiff;
    QTest::newRow("aifc") << (aiff | SF_ENDIAN_LITTLE);
    QTest::newRow("au") << au;
    QTest::newRow("little-endian au") << (au | SF_ENDIAN_LITTLE);
    QTest::newRow("caf") << caf;
}

// The library alone plays what is there, but for a CAF file that lacks more than a byte.
void tst_AudioReader::refusesWhatIsCutShort()
{
    QFETCH(const int, format);
    const QByteArray bytes = bytesOf(Sound{format, 48000, 2, SoundFiles::noise(20000)});
    const qsizetype header = bytes.size() - 40000;
    QCOMPARE(errorOf(bytes), QString());
    for (const qsizetype present : {39999, 24000, 1}) {
        QCOMPARE(errorOf(bytes.left(header + present)),
                 QStringLiteral(". It is cut short: its header promises 40000 bytes of samples, "
                                "but it holds %1.")
                     .arg(present));
        QCOMPARE(framesAlone(path("file")), format == caf && present < 39999 ? -1 : present / 4);
    }
}

void tst_AudioReader::playsWhatAPipeLeftOpen_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<QByteArray>("length");
    QTest::addColumn<int>("alone"); // what the library alone makes of it
    const auto row = [](const char* name, int format, const char* length, int alone = 3000) {
        QTest::newRow(name) << format << QByteArray::fromHex(length) << alone;
    };
    row("wav, 4 GB", wav, "ffffffff");
    row("wav, 4 GB without the header", wav, "dbffffff");
    row("wav, 2 GB", wav, "00000080");
    row("wav, 1 byte less", wav, "ffffff7f");
    row("wav, 1 page less", wav, "00f0ff7f");
    row("wav, whole blocks", SF_FORMAT_WAV | SF_FORMAT_PCM_24, "fcefff7f");
    row("wav, nothing", wav, "00000000", 0);
    row("big-endian wav", wav | SF_ENDIAN_BIG, "00000000", 0);
    row("extensible", SF_FORMAT_WAVEX | SF_FORMAT_FLOAT, "00000000", 0);
    row("rf64", rf64, "0000000000000000", 0);
    row("rf64, most", rf64, "ffffffffffffffff", -1);
    row("w64", w64, "ffffffffffffff7f");
    row("w64, nothing", w64, "1800000000000000");
    row("w64, least", w64, "0000000000000080");
    row("aiff", aiff, "7f000008");
    row("aiff, nothing", aiff, "00000000");
    row("aiff, no samples", aiff, "00000008", 0);
    row("au", au, "ffffffff");
    row("au, nothing", au, "00000000", 0);
    row("little-endian au", au | SF_ENDIAN_LITTLE, "00000000", 0);
    row("caf", caf, "ffffffffffffffff", -1);
    row("caf, no samples", caf, "0000000000000004", 0);
}

// A program that cannot go back to the header leaves a number there that says nothing.
void tst_AudioReader::playsWhatAPipeLeftOpen()
{
    QFETCH(const int, format);
    QFETCH(const QByteArray, length);
    QByteArray bytes = bytesOf(Sound{format, 48000, 1, SoundFiles::noise(3000)});
    bytes.replace(lengthOffset(bytes, format), length.size(), length);
    AudioReader reader;
    QVERIFY(reader.open(SoundFiles::writeBytes(path("open"), bytes)).isOk());
    QCOMPARE(reader.info().frames, 3000);
    QTEST(int(framesAlone(path("open"))), "alone");
    QCOMPARE(readAll(&reader, 1000), SoundFiles::read(path("whole")).samples);
    QCOMPARE(reader.status().error(), QString());
}

// The files have holes and take no room on the disk.
void tst_AudioReader::playsLongFilesThatAPipeLeftOpen()
{
    QByteArray bytes = bytesOf(Sound{wav, 48000, 2, SoundFiles::noise(2000)});
    bytes.replace(lengthOffset(bytes, wav), 4, QByteArray::fromHex("00f0ff7f"));
    QFile file(SoundFiles::writeBytes(path("long.wav"), bytes));
    const qint64 header = bytes.size() - 4000;
    QVERIFY(file.resize(header + 3'000'000'000));
    AudioReader reader;
    QVERIFY(reader.open(file.fileName()).isOk());
    QCOMPARE(reader.info().frames, 750'000'000);
    QVERIFY(file.resize(header + 5'000'000'000));
    QCOMPARE(AudioReader().open(file.fileName()).error(),
             QStringLiteral("The sound file %1 cannot be read: it is longer than its header can "
                            "state.")
                 .arg(file.fileName()));
}

void tst_AudioReader::emptyFilesStayEmpty_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<QByteArray>("behind");
    const QByteArray silentNote = QByteArray("note\4\0\0\0\0\0\0\0", 12);
    QTest::newRow("wav") << wav << QByteArray();
    QTest::newRow("wav with chunks") << wav << silentNote + silentNote;
    QTest::newRow("wav with an odd chunk") << wav << QByteArray("note\3\0\0\0abc", 11);
    QTest::newRow("rf64") << rf64 << QByteArray();
    QTest::newRow("rf64 with a chunk") << rf64 << silentNote;
    QTest::newRow("w64") << w64 << QByteArray();
    QTest::newRow("aiff") << aiff << QByteArray();
    QTest::newRow("aiff with a chunk") << aiff << QByteArray("ANNO\0\0\0\4text", 12);
    QTest::newRow("au") << au << QByteArray();
    QTest::newRow("caf") << caf << QByteArray();
}

void tst_AudioReader::emptyFilesStayEmpty()
{
    QFETCH(const int, format);
    QFETCH(const QByteArray, behind);
    const QByteArray bytes = bytesOf(Sound{format, 48000, 1, {}}) + behind;
    AudioReader reader;
    QVERIFY(reader.open(SoundFiles::writeBytes(path("empty"), bytes)).isOk());
    QCOMPARE(reader.info().frames, 0);
    QCOMPARE(readAll(&reader, 1000).size(), 0U);
    QCOMPARE(reader.status().error(), QString());
}

void tst_AudioReader::oddLengthsAreWhole_data()
{
    QTest::addColumn<int>("format");
    QTest::newRow("wav") << (SF_FORMAT_WAV | SF_FORMAT_PCM_24);
    QTest::newRow("rf64") << (SF_FORMAT_RF64 | SF_FORMAT_PCM_24);
    QTest::newRow("w64") << (SF_FORMAT_W64 | SF_FORMAT_PCM_24);
    QTest::newRow("aiff") << (SF_FORMAT_AIFF | SF_FORMAT_PCM_24);
    QTest::newRow("au") << (SF_FORMAT_AU | SF_FORMAT_PCM_24);
    QTest::newRow("caf") << (SF_FORMAT_CAF | SF_FORMAT_PCM_24);
}

void tst_AudioReader::oddLengthsAreWhole()
{
    QFETCH(const int, format);
    const QByteArray bytes = bytesOf(Sound{format, 48000, 1, SoundFiles::noise(3001)});
    AudioReader reader;
    QVERIFY(reader.open(SoundFiles::writeBytes(path("odd"), bytes)).isOk());
    QCOMPARE(reader.info().frames, 3001);
}

// The byte that makes the last chunk even belongs to no sample.
void tst_AudioReader::missesNoPadding()
{
    const Sound sound{SF_FORMAT_WAV | SF_FORMAT_PCM_U8, 48000, 1, std::vector<double>(3001, 0.25)};
    QByteArray bytes = bytesOf(sound);
    while (bytes.endsWith('\0'))
        bytes.chop(1);
    QCOMPARE(errorOf(bytes + '\0'), QString());
    QCOMPARE(errorOf(bytes), QString());
    QCOMPARE(
        errorOf(bytes.chopped(1)),
        QStringLiteral(". It is cut short: its header promises 3001 bytes of samples, but it holds "
                       "3000."));
}

void tst_AudioReader::readsFilesThatAnotherChunkFollows()
{
    const Sound sound{SF_FORMAT_WAV | SF_FORMAT_PCM_U8, 48000, 1, SoundFiles::noise(3001)};
    QByteArray bytes = SoundFiles::bytesOf(SoundFiles::write(path("alone.wav"), sound));
    if (bytes.size() % 2)
        bytes += '\0';
    bytes += QByteArray("more\x04\0\0\0", 8) + "1234";
    AudioReader reader;
    QVERIFY(reader.open(SoundFiles::writeBytes(path("followed.wav"), bytes)).isOk());
    QCOMPARE(readAll(&reader, 1000).size(), 3001U);
}

QTEST_APPLESS_MAIN(tst_AudioReader)

#include "tst_AudioReader.moc"
