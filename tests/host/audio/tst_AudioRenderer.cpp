// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/audio/AudioRenderer.h"
#include "host/program/ChannelSettings.h"
#include "tests/engine/EngineTesting.h"
#include "tests/host/audio/SoundFiles.h"
#include "tests/support/TestObject.h"

#include <QTemporaryDir>

#include <complex>
#include <numbers>

using SoundFiles::Sound;
using Settings = std::vector<std::pair<std::size_t, int>>;
Q_DECLARE_METATYPE(Settings)

class tst_AudioRenderer : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void everyChannelSoundsAsOneStrip();
    void defaultsKeepEveryBit_data();
    void defaultsKeepEveryBit();
    void keepsTheLength_data();
    void keepsTheLength();
    void ignoresWhereBlocksBegin();
    void boostsATone();
    void keepsTexts();
    void countsClipping();
    void tellsProgress();
    void endsOnRequest();
    void replacesAnOldFile();
    void keepsTheOldFileOnErrors();
    void refusesItsOwnInput();
    void takesTheDelayOut_data();
    void takesTheDelayOut();
    void everyBandSoundsAtAnyRate_data();
    void everyBandSoundsAtAnyRate();
    void keepsWhatIsSlowerThanSound();

private:
    QString path(const char* name) const { return m_folder->filePath(QLatin1String(name)); }
    QString render(const QString& input, const QString& output, const Settings& settings = {},
                   bool forceFloat = false);

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<AudioRenderer> m_renderer;
};

void tst_AudioRenderer::init()
{
    TestObject::init();
    m_folder = std::make_unique<QTemporaryDir>();
}

// The settings are parameters' numbers, as their names end, and raw values.
QString tst_AudioRenderer::render(const QString& input, const QString& output,
                                  const Settings& settings, bool forceFloat)
{
    AudioRenderer::Job job{input, output, defaultValues(), forceFloat};
    for (const auto& [number, value] : settings)
        job.values[number - 1] = value;
    m_renderer = std::make_unique<AudioRenderer>(job);
    return m_renderer->run({}).error();
}

void tst_AudioRenderer::everyChannelSoundsAsOneStrip()
{
    const Sound sound{SF_FORMAT_WAV | SF_FORMAT_DOUBLE, 44100, 3, SoundFiles::noise(90000)};
    SoundFiles::write(path("in.wav"), sound);
    QCOMPARE(render(path("in.wav"), path("out.wav"), {{3, 60}, {7, -45}, {25, -60}, {26, 30}}),
             QString());
    const Sound result = SoundFiles::read(path("out.wav"));
    QCOMPARE(result.frames(), 30000U);
    for (int channel = 0; channel < 3; ++channel) {
        ChannelProcessor strip;
        ChannelProcessor::Values values = defaultValues();
        values[2] = 60;
        values[6] = -45;
        values[24] = -60;
        values[25] = 30;
        strip.setSampleRate(44100);
        strip.setValues(values);
        std::vector<double> expected = sound.channel(channel);
        strip.applyInput(expected);
        strip.equalize(expected);
        const std::vector<double> actual = result.channel(channel);
        for (std::size_t i = 0; i < expected.size(); ++i)
            QVERIFY(std::abs(actual[i] - expected[i]) < 1e-12);
    }
}

void tst_AudioRenderer::defaultsKeepEveryBit_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<QString>("name");
    QTest::newRow("wav 8") << int(SF_FORMAT_WAV | SF_FORMAT_PCM_U8) << "o.wav";
    QTest::newRow("wav 16") << int(SF_FORMAT_WAV | SF_FORMAT_PCM_16) << "o.wav";
    QTest::newRow("wav 24") << int(SF_FORMAT_WAV | SF_FORMAT_PCM_24) << "o.wav";
    QTest::newRow("wav float") << int(SF_FORMAT_WAV | SF_FORMAT_FLOAT) << "o.wav";
    QTest::newRow("wav mu-law") << int(SF_FORMAT_WAV | SF_FORMAT_ULAW) << "o.wav";
    QTest::newRow("flac 16") << int(SF_FORMAT_FLAC | SF_FORMAT_PCM_16) << "o.flac";
    QTest::newRow("flac 24") << int(SF_FORMAT_FLAC | SF_FORMAT_PCM_24) << "o.flac";
    QTest::newRow("wav 16 to flac") << int(SF_FORMAT_WAV | SF_FORMAT_PCM_16) << "o.flac";
    QTest::newRow("flac 16 to wav") << int(SF_FORMAT_FLAC | SF_FORMAT_PCM_16) << "o.wav";
}

// Whole numbers exactly; floats to within their own precision, because a gain of 0 dB comes from a
// position in single precision.
void tst_AudioRenderer::defaultsKeepEveryBit()
{
    QFETCH(const int, format);
    QFETCH(const QString, name);
    const Sound sound{format, 48000, 2, SoundFiles::noise(50000, 1.0)};
    SoundFiles::write(path("in"), sound);
    const QString output = m_folder->filePath(name);
    QCOMPARE(render(path("in"), output), QString());
    QCOMPARE(m_renderer->clipped(), 0);
    const std::vector<double> before = SoundFiles::read(path("in")).samples;
    const Sound after = SoundFiles::read(output);
    QCOMPARE(after.samples.size(), before.size());
    const bool exact = (after.format & SF_FORMAT_SUBMASK) != SF_FORMAT_FLOAT;
    for (std::size_t i = 0; i < before.size(); ++i)
        QVERIFY(std::abs(after.samples[i] - before[i]) <= (exact ? 0.0 : 1e-6));
}

void tst_AudioRenderer::keepsTheLength_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<int>("frames");
    QTest::addColumn<int>("rate");
    QTest::addColumn<QString>("output");
    const auto rows = [](const char* name, int format) {
        for (const int frames : {0, 1, 8191, 8192, 8193, 16384, 100000}) {
            for (const char* output : {"o.wav", "o.flac", "o.ogg"})
                QTest::addRow("%s %d %s", name, frames, output)
                    << format << frames << 44100 << QString::fromLatin1(output);
        }
    };
    rows("wav", SF_FORMAT_WAV | SF_FORMAT_PCM_16);
    rows("flac", SF_FORMAT_FLAC | SF_FORMAT_PCM_16);
    rows("vorbis", SF_FORMAT_OGG | SF_FORMAT_VORBIS);
    for (const int rate : {22050, 96000, 192000})
        QTest::addRow("%d Hz", rate)
            << int(SF_FORMAT_WAV | SF_FORMAT_PCM_16) << 5000 << rate << "o.flac";
    for (const int frames : {0, 1, 100, 8192, 8193, 100000})
        QTest::addRow("resampled %d", frames)
            << int(SF_FORMAT_WAV | SF_FORMAT_PCM_16) << frames << 8000 << "o.wav";
}

void tst_AudioRenderer::keepsTheLength()
{
    QFETCH(const int, format);
    QFETCH(const int, frames);
    QFETCH(const int, rate);
    QFETCH(const QString, output);
    const auto count = static_cast<std::size_t>(frames) * 2;
    SoundFiles::write(path("in"), Sound{format, rate, 2, SoundFiles::noise(count)});
    // A shelf at 15 kHz, so that the equalizers run at a multiple of the lower rates.
    QCOMPARE(render(path("in"), m_folder->filePath(output), {{22, 1150}, {23, 60}, {27, 1}}),
             QString());
    const Sound result = SoundFiles::read(m_folder->filePath(output));
    QCOMPARE(result.rate, rate);
    QCOMPARE(result.channels, 2);
    QCOMPARE(result.samples.size(), SoundFiles::read(path("in")).samples.size());
    QCOMPARE(result.samples.size(), count);
}

// A file of many channels is cut into shorter blocks.
void tst_AudioRenderer::ignoresWhereBlocksBegin()
{
    const std::vector<double> mono = SoundFiles::noise(30000);
    Sound many{SF_FORMAT_WAV | SF_FORMAT_DOUBLE, 48000, 64, {}};
    for (const double sample : mono)
        many.samples.insert(many.samples.end(), 64, sample);
    SoundFiles::write(path("one"), Sound{SF_FORMAT_WAV | SF_FORMAT_DOUBLE, 48000, 1, mono});
    SoundFiles::write(path("many"), many);
    const std::vector<std::pair<std::size_t, int>> settings = {{3, 80}, {11, -70}, {21, 0}};
    QCOMPARE(render(path("one"), path("one.wav"), settings), QString());
    QCOMPARE(render(path("many"), path("many.wav"), settings), QString());
    QCOMPARE(SoundFiles::read(path("many.wav")).channel(63),
             SoundFiles::read(path("one.wav")).samples);
}

// Middle 2 at its own frequency and +6 dB doubles a tone there, very nearly.
void tst_AudioRenderer::boostsATone()
{
    const double frequency = 20.0 * std::pow(10.0, 680.0 / 400.0);
    SoundFiles::write(path("in.wav"), Sound{SF_FORMAT_WAV | SF_FORMAT_FLOAT, 48000, 1,
                                            SoundFiles::sine(frequency, 48000, 96000)});
    QCOMPARE(render(path("in.wav"), path("out.wav"), {{10, 680}, {11, 60}}), QString());
    const std::vector<double> out = SoundFiles::read(path("out.wav")).samples;
    double power = 0.0;
    for (std::size_t i = 48000; i < 96000; ++i)
        power += out[i] * out[i];
    const double level = 10.0 * std::log10(power / 48000.0 / (0.25 * 0.25 / 2.0));
    QVERIFY2(std::abs(level - 6.0) < 0.01, qPrintable(QString::number(level)));
}

void tst_AudioRenderer::keepsTexts()
{
    SF_INFO info = {};
    info.format = SF_FORMAT_FLAC | SF_FORMAT_PCM_16;
    info.samplerate = 48000;
    info.channels = 1;
    SNDFILE* file = sf_open(QFile::encodeName(path("in.flac")).constData(), SFM_WRITE, &info);
    QVERIFY(file);
    sf_set_string(file, SF_STR_TITLE, "A title");
    sf_set_string(file, SF_STR_ARTIST, "Somebody");
    const std::vector<short> samples(1000);
    sf_write_short(file, samples.data(), 1000);
    sf_close(file);
    QCOMPARE(render(path("in.flac"), path("out.flac")), QString());
    AudioReader reader;
    QVERIFY(reader.open(path("out.flac")).isOk());
    QCOMPARE(reader.text(SF_STR_TITLE), "A title");
    QCOMPARE(reader.text(SF_STR_ARTIST), "Somebody");
    QVERIFY(!reader.text(SF_STR_ALBUM));
}

void tst_AudioRenderer::countsClipping()
{
    const Sound sound{
        SF_FORMAT_WAV | SF_FORMAT_PCM_16, 48000, 1, {0.25, 0.75, -0.75, 0.1, 0.9, -0.25}};
    SoundFiles::write(path("in.wav"), sound);
    QCOMPARE(render(path("in.wav"), path("out.wav"), {{26, 60}}), QString());
    QCOMPARE(m_renderer->clipped(), 3);
    const std::vector<double> clipped = SoundFiles::read(path("out.wav")).samples;
    QCOMPARE(clipped[1], 32767.0 / 32768.0);
    QCOMPARE(clipped[2], -1.0);
    QCOMPARE(render(path("in.wav"), path("float.wav"), {{26, 60}}, true), QString());
    QCOMPARE(m_renderer->clipped(), 0);
    const Sound whole = SoundFiles::read(path("float.wav"));
    QCOMPARE(whole.format, int(SF_FORMAT_WAV | SF_FORMAT_FLOAT));
    QVERIFY(std::abs(whole.samples[1] - 0.75 * 1.9952623) < 1e-4);
}

void tst_AudioRenderer::tellsProgress()
{
    SoundFiles::write(path("in.wav"),
                      Sound{SF_FORMAT_WAV | SF_FORMAT_PCM_16, 48000, 2, SoundFiles::noise(100000)});
    std::vector<double> told;
    AudioRenderer renderer({path("in.wav"), path("out.wav"), defaultValues(), false});
    const Status result = renderer.run([&told](double done) {
        told.push_back(done);
        return true;
    });
    QVERIFY(result.isOk());
    QVERIFY(told.size() > 3);
    QVERIFY(std::is_sorted(told.begin(), told.end()));
    QVERIFY(told.front() > 0.0);
    QCOMPARE(told.back(), 1.0);
}

void tst_AudioRenderer::endsOnRequest()
{
    SoundFiles::write(path("in.wav"),
                      Sound{SF_FORMAT_WAV | SF_FORMAT_PCM_16, 48000, 2, SoundFiles::noise(100000)});
    {
        AudioRenderer renderer({path("in.wav"), path("out.wav"), defaultValues(), false});
        QVERIFY(renderer.run([](double done) { return done < 0.5; }).isOk());
        QVERIFY(renderer.wasEnded());
    }
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), QStringList(QStringLiteral("in.wav")));
}

void tst_AudioRenderer::replacesAnOldFile()
{
    SoundFiles::write(path("in.wav"),
                      Sound{SF_FORMAT_WAV | SF_FORMAT_PCM_16, 48000, 2, SoundFiles::noise(1000)});
    SoundFiles::writeBytes(path("out.wav"), QByteArray(100000, 'x'));
    QCOMPARE(render(path("in.wav"), path("out.wav")), QString());
    QCOMPARE(SoundFiles::read(path("out.wav")).samples.size(), 1000U);
}

void tst_AudioRenderer::keepsTheOldFileOnErrors()
{
    const Sound sound{SF_FORMAT_FLAC | SF_FORMAT_PCM_16, 48000, 2, SoundFiles::noise(100000)};
    const QByteArray bytes = SoundFiles::bytesOf(SoundFiles::write(path("in.flac"), sound));
    SoundFiles::writeBytes(path("short.flac"), bytes.left(bytes.size() / 2));
    SoundFiles::writeBytes(path("out.wav"), "old");
    QVERIFY(render(path("short.flac"), path("out.wav")).contains(QLatin1String("cut short")));
    m_renderer.reset();
    QCOMPARE(SoundFiles::bytesOf(path("out.wav")), QByteArray("old"));
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files).size(), 3);
}

void tst_AudioRenderer::refusesItsOwnInput()
{
    const QString file = SoundFiles::write(
        path("in.wav"), Sound{SF_FORMAT_WAV | SF_FORMAT_PCM_16, 48000, 1, SoundFiles::noise(100)});
    const QByteArray before = SoundFiles::bytesOf(file);
    QVERIFY(QFile::link(file, path("link.wav")));
    for (const char* name : {"in.wav", "link.wav"}) {
        const QString other = path(name);
        QCOMPARE(render(file, other),
                 QStringLiteral("The sound file %1 cannot be written: it is also the input file.")
                     .arg(other));
    }
    QCOMPARE(SoundFiles::bytesOf(file), before);
}

// Drive delays the sound; the first sample still comes first, and the last one last.
void tst_AudioRenderer::takesTheDelayOut_data()
{
    QTest::addColumn<int>("frames");
    for (const int frames : {1, 50, 78, 200, 8192, 8200, 20000})
        QTest::addRow("%d", frames) << frames;
}

void tst_AudioRenderer::takesTheDelayOut()
{
    QFETCH(const int, frames);
    std::vector<double> samples(static_cast<std::size_t>(frames));
    samples.front() = samples.back() = 0.01;
    SoundFiles::write(path("in.wav"), Sound{SF_FORMAT_WAV | SF_FORMAT_FLOAT, 48000, 1, samples});
    QCOMPARE(render(path("in.wav"), path("out.wav"), {{27, 1}}), QString());
    const std::vector<double> out = SoundFiles::read(path("out.wav")).samples;
    QCOMPARE(out.size(), samples.size());
    const auto middle = out.begin() + (frames + 1) / 2;
    QCOMPARE(std::max_element(out.begin(), middle) - out.begin(), 0);
    QCOMPARE(std::max_element(out.begin() + frames / 2, out.end()) - out.begin(), frames - 1);
}

void tst_AudioRenderer::everyBandSoundsAtAnyRate_data()
{
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("stripRate");
    QTest::addColumn<Settings>("settings");
    const Settings shelf = {{22, 1118}, {23, 60}};
    const Settings all = {{18, 1050}, {19, -90}, {1, 0}, {2, 100}, {22, 1200}, {23, 120}, {27, 1}};
    QTest::newRow("8 kHz, high shelf") << 8000 << 48000 << shelf;
    QTest::newRow("16 kHz, high shelf") << 16000 << 48000 << shelf;
    QTest::newRow("11025 Hz, several bands") << 11025 << 44100 << all;
    QTest::newRow("32 kHz, high shelf") << 32000 << 64000 << Settings{{22, 1200}, {23, 60}};
    QTest::newRow("8 kHz, low pass") << 8000 << 48000 << Settings{{21, 0}, {22, 1000}};
}

// As drawn at the rate that the equalizer runs at; in the middle of the file, so that the
// converters see both sides of it.
void tst_AudioRenderer::everyBandSoundsAtAnyRate()
{
    QFETCH(const int, rate);
    QFETCH(const int, stripRate);
    QFETCH(const Settings, settings);
    constexpr std::size_t frames = 20000;
    constexpr std::size_t place = 10000;
    std::vector<double> impulse(frames);
    impulse[place] = 0.001;
    SoundFiles::write(path("in.wav"), Sound{SF_FORMAT_WAV | SF_FORMAT_FLOAT, rate, 1, impulse});
    QCOMPARE(render(path("in.wav"), path("out.wav"), settings), QString());
    const Sound sound = SoundFiles::read(path("out.wav"));
    QCOMPARE(sound.rate, rate);
    QCOMPARE(sound.frames(), frames);
    ChannelProcessor::Values values = defaultValues();
    for (const auto& [number, value] : settings)
        values[number - 1] = value;
    EqualizerBands bands;
    EngineTesting::setBands(&bands, values, stripRate);
    const double drive = values[26] != 0 ? 20.0 * std::log10(Drive::saturate(0.001) / 0.001) : 0.0;
    for (const double share : {0.01, 0.05, 0.1, 0.2, 0.3, 0.4, 0.45}) {
        const double frequency = share * rate;
        std::complex<double> sum;
        for (std::size_t i = 0; i < frames; ++i)
            sum += sound.samples[i] *
                   std::polar(1.0, -2.0 * std::numbers::pi * share * (double(i) - double(place)));
        const double level = 20.0 * std::log10(std::abs(sum) / 0.001) - drive;
        COMPARE_NEAR(level, EngineTesting::drawnLevel(bands, values, frequency), 0.05);
    }
}

// Resampling does not reach the rate that every band needs.
void tst_AudioRenderer::keepsWhatIsSlowerThanSound()
{
    const std::vector<double> samples = SoundFiles::sine(10.0, 100, 9000);
    SoundFiles::write(path("in.wav"), Sound{SF_FORMAT_WAV | SF_FORMAT_FLOAT, 100, 1, samples});
    QCOMPARE(render(path("in.wav"), path("out.wav"), {{22, 1118}, {23, 60}}), QString());
    const Sound result = SoundFiles::read(path("out.wav"));
    QCOMPARE(result.rate, 100);
    QCOMPARE(result.frames(), samples.size());
    for (std::size_t i = 1000; i < 8000; ++i)
        QVERIFY(std::abs(result.samples[i] - samples[i]) < 1e-3);
}

QTEST_APPLESS_MAIN(tst_AudioRenderer)

#include "tst_AudioRenderer.moc"
