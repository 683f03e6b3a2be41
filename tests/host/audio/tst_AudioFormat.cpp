// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/audio/AudioFormat.h"
#include "tests/support/TestObject.h"

class tst_AudioFormat : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void namesDecideWhatCanBeWritten_data();
    void namesDecideWhatCanBeWritten();
    void choosesTheOutputsFormat_data();
    void choosesTheOutputsFormat();
    void keepsRateChannelsAndLength();
};

void tst_AudioFormat::namesDecideWhatCanBeWritten_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("expected");
    QTest::newRow("wav") << "a.wav" << true;
    QTest::newRow("capitals") << "a.FLAC" << true;
    QTest::newRow("ogg") << "/x.y/a.b.ogg" << true;
    QTest::newRow("mp3") << "a.mp3" << false;
    QTest::newRow("none") << "wav" << false;
    QTest::newRow("folder only") << "a.wav/b" << false;
}

void tst_AudioFormat::namesDecideWhatCanBeWritten()
{
    QFETCH(const QString, name);
    QTEST(AudioFormat::canWrite(name), "expected");
}

void tst_AudioFormat::choosesTheOutputsFormat_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("input");
    QTest::addColumn<qint64>("frames");
    QTest::addColumn<bool>("forceFloat");
    QTest::addColumn<int>("expected");
    const auto row = [](const char* title, const char* name, int input, int expected,
                        bool forceFloat = false, qint64 frames = 1000) {
        QTest::newRow(title) << QString::fromLatin1(name) << input << frames << forceFloat
                             << expected;
    };
    constexpr int wav = SF_FORMAT_WAV;
    constexpr int flac = SF_FORMAT_FLAC;
    constexpr int vorbis = SF_FORMAT_OGG | SF_FORMAT_VORBIS;
    row("wav 16", "a.wav", wav | SF_FORMAT_PCM_16, wav | SF_FORMAT_PCM_16);
    row("wav 8", "a.wav", wav | SF_FORMAT_PCM_U8, wav | SF_FORMAT_PCM_U8);
    row("wav 24", "a.wav", wav | SF_FORMAT_PCM_24, wav | SF_FORMAT_PCM_24);
    row("wav double", "a.wav", wav | SF_FORMAT_DOUBLE, wav | SF_FORMAT_DOUBLE);
    row("wav packed", "a.wav", wav | SF_FORMAT_MS_ADPCM, wav | SF_FORMAT_FLOAT);
    row("wav forced", "a.wav", wav | SF_FORMAT_PCM_16, wav | SF_FORMAT_FLOAT, true);
    row("extensible", "a.wav", SF_FORMAT_WAVEX | SF_FORMAT_PCM_24,
        SF_FORMAT_WAVEX | SF_FORMAT_PCM_24);
    row("rf64, small", "a.wav", SF_FORMAT_RF64 | SF_FORMAT_PCM_16, wav | SF_FORMAT_PCM_16);
    row("flac to wav", "a.wav", flac | SF_FORMAT_PCM_16, wav | SF_FORMAT_FLOAT);
    row("vorbis to wav", "a.wav", vorbis, wav | SF_FORMAT_FLOAT);
    row("flac 16", "a.flac", flac | SF_FORMAT_PCM_16, flac | SF_FORMAT_PCM_16);
    row("flac 24", "a.flac", flac | SF_FORMAT_PCM_24, flac | SF_FORMAT_PCM_24);
    row("wav 8 to flac", "a.flac", wav | SF_FORMAT_PCM_U8, flac | SF_FORMAT_PCM_S8);
    row("floats to flac", "a.flac", wav | SF_FORMAT_FLOAT, flac | SF_FORMAT_PCM_24);
    row("ogg", "a.ogg", wav | SF_FORMAT_PCM_16, vorbis);
    row("4 GB", "a.wav", wav | SF_FORMAT_PCM_16, SF_FORMAT_RF64 | SF_FORMAT_PCM_16, false,
        qint64{1} << 30);
    row("just below", "a.wav", wav | SF_FORMAT_PCM_16, wav | SF_FORMAT_PCM_16, false,
        (qint64{1} << 30) - 300000);
    row("4 GB by floats", "a.wav", wav | SF_FORMAT_PCM_16, SF_FORMAT_RF64 | SF_FORMAT_FLOAT, true,
        qint64{1} << 29);
    row("unknown length", "a.wav", flac | SF_FORMAT_PCM_16, wav | SF_FORMAT_FLOAT, false,
        SF_COUNT_MAX);
}

void tst_AudioFormat::choosesTheOutputsFormat()
{
    QFETCH(const QString, name);
    QFETCH(const int, input);
    QFETCH(const qint64, frames);
    QFETCH(const bool, forceFloat);
    SF_INFO info = {};
    info.format = input;
    info.frames = frames;
    info.channels = 2;
    info.samplerate = 48000;
    QTEST(AudioFormat::outputFor(name, info, forceFloat).format, "expected");
}

void tst_AudioFormat::keepsRateChannelsAndLength()
{
    SF_INFO info = {};
    info.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
    info.frames = 12345;
    info.channels = 5;
    info.samplerate = 44100;
    const SF_INFO output = AudioFormat::outputFor(QStringLiteral("a.flac"), info, false);
    QCOMPARE(output.frames, info.frames);
    QCOMPARE(output.channels, 5);
    QCOMPARE(output.samplerate, 44100);
}

QTEST_APPLESS_MAIN(tst_AudioFormat)

#include "tst_AudioFormat.moc"
