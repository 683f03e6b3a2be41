// SPDX-License-Identifier: GPL-3.0-or-later
// The installed configuration with which PipeWire runs the equalizer by itself.
#include "engine/ChannelProcessor.h"
#include "parameters/ParameterText.h"
#include "tests/host/audio/SoundFiles.h"
#include "tests/host/desktop/PipeWireServer.h"
#include "tests/support/TestFiles.h"
#include "tests/support/TestObject.h"

using namespace Qt::StringLiterals;
using SoundFiles::Sound;

namespace {

constexpr int patience = 30000; // ms
const QString sinkName = u"zolta-equalizer"_s;

constexpr std::size_t lowGain = 2; // in the table

std::vector<double> equalized(const Sound& sound)
{
    ChannelValues values = defaultValues();
    values[lowGain] = *parseParameter(parameterTable[lowGain], "6");
    ChannelProcessor processor;
    processor.setSampleRate(sound.rate);
    processor.setValues(values);
    std::vector<double> samples = sound.channel(0);
    processor.process(samples);
    return samples;
}

} // namespace

class tst_FilterChain : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void playsWhatTheEngineGives();

private:
    bool isHeard(const Sound& sound) const;

    std::unique_ptr<PipeWireServer> m_server;
    QProcess m_chain;
};

void tst_FilterChain::initTestCase()
{
    qputenv("LV2_PATH", LV2_FOLDER);
    m_server = std::make_unique<PipeWireServer>();
    QVERIFY2(m_server->start(), qPrintable(m_server->errorText()));
    QByteArray text = TestFiles::read(QStringLiteral(FILTER_CHAIN));
    QVERIFY2(text.contains("low_gain = 0 "), text.constData());
    text.replace("low_gain = 0 ", "low_gain = 6 ");
    PipeWireServer::prepare(&m_chain);
    m_chain.start(u"pipewire"_s,
                  {u"-c"_s, TestFiles::write(m_server->folder() + "/chain.conf"_L1, text)});
    QTRY_VERIFY_WITH_TIMEOUT(m_server->sinks().contains(sinkName), patience);
    m_server->chooseSink(sinkName);
    QTRY_COMPARE_WITH_TIMEOUT(m_server->defaultSink(), sinkName, patience);
}

bool tst_FilterChain::isHeard(const Sound& sound) const
{
    SoundRecorder recorder(*m_server, u"speakers"_s, sound.rate);
    const SoundPlayer player(SoundFiles::write(m_server->folder() + "/played.wav"_L1, sound));
    if (!QTest::qWaitFor([&] { return player.hasEnded(); }, patience))
        return false;
    const std::vector<double> heard = SoundFiles::read(recorder.finish()).channel(0);
    const std::vector<double> expected = equalized(sound);
    const auto first = expected.begin() + 20000;
    return std::search(heard.begin(), heard.end(), first, first + 10000,
                       [](double a, double b) { return std::abs(a - b) < 1e-6; }) != heard.end();
}

// A cycle that a busy machine misses is a gap: then it is played once more.
void tst_FilterChain::playsWhatTheEngineGives()
{
    const Sound sound{SF_FORMAT_WAV | SF_FORMAT_FLOAT, 48000, 2, SoundFiles::noise(200000)};
    bool heard = false;
    for (int attempt = 0; attempt < 5 && !heard; ++attempt)
        heard = isHeard(sound);
    QVERIFY(heard);
    m_chain.terminate();
    QVERIFY(m_chain.waitForFinished());
}

QTEST_GUILESS_MAIN(tst_FilterChain)

#include "tst_FilterChain.moc"
