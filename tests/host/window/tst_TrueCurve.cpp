// SPDX-License-Identifier: GPL-3.0-or-later
// Whatever the sound device runs at and whatever was chosen before, what is drawn is what is heard.
#include "engine/MixBus.h"
#include "equalizer/EqualizerBands.h"
#include "host/audio/AudioSession.h"
#include "host/audio/SystemAudioDevice.h"
#include "host/model/SettingsPublisher.h"
#include "host/window/EditorWindow.h"
#include "host/window/MixerWindow.h"
#include "parameters/ParameterScale.h"
#include "tests/host/audio/JackServer.h"
#include "tests/host/audio/SoundFiles.h"
#include "tests/host/window/WindowTesting.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QComboBox>
#include <QTemporaryDir>

#include <complex>

using namespace Qt::StringLiterals;

class tst_TrueCurve : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void drawnIsHeard_data();
    void drawnIsHeard();

private:
    static QComboBox* rateBox(const EditorWindow* window);
    static int rateOf(const EditorWindow* window);
    static double drawn(const ChannelValues& values, double frequency, int rate);
    static double heard(const std::vector<float>& response, double frequency, int rate);

    QTemporaryDir m_folder;
};

namespace {

constexpr std::size_t responseLength = 4096;
constexpr float impulse = 0.25F;

} // namespace

QComboBox* tst_TrueCurve::rateBox(const EditorWindow* window)
{
    for (QComboBox* box : window->findChildren<QComboBox*>()) {
        if (box->findText(u"192000 Hz"_s) >= 0)
            return box;
    }
    qFatal("no rates");
}

// That the editor was told last.
int tst_TrueCurve::rateOf(const EditorWindow* window)
{
    for (const QWidget* widget : window->findChildren<QWidget*>()) {
        const QStringList calls =
            widget->property("calls").toStringList().filter(QLatin1String("setFs "));
        if (!calls.isEmpty())
            return calls.constLast().section(QLatin1Char(' '), 1).toInt();
    }
    return 0;
}

double tst_TrueCurve::drawn(const ChannelValues& values, double frequency, int rate)
{
    EqualizerBands bands;
    bands.setSampleRate(rate);
    setBands(bands, values);
    return bands.response().levels(frequency, rate).total;
}

double tst_TrueCurve::heard(const std::vector<float>& response, double frequency, int rate)
{
    std::complex<double> sum;
    for (std::size_t i = 0; i < responseLength; ++i)
        sum += double(response[i] / impulse) *
               std::polar(1.0, -2.0 * M_PI * frequency * static_cast<double>(i) / rate);
    return 20.0 * std::log10(std::abs(sum));
}

void tst_TrueCurve::drawnIsHeard_data()
{
    QTest::addColumn<int>("deviceRate");
    for (const int rate : {44100, 48000, 96000, 192000})
        QTest::addRow("%d Hz", rate) << rate;
}

void tst_TrueCurve::drawnIsHeard()
{
    QFETCH(const int, deviceRate);
    constexpr double frequency = 5500.0;
    JackServer server(JackServer::Role::Default, deviceRate);
    QVERIFY2(server.isRunning(), qPrintable(server.errorText()));
    Mixer mixer;
    WindowTesting::loadStandIn(mixer);
    MixBus bus;
    SettingsPublisher publisher(mixer.mixerModel, bus);
    AudioSession session(bus, std::make_unique<SystemAudioDevice>());
    connect(&session, &AudioSession::starting, &publisher, &SettingsPublisher::publish);
    mixer.mixerModel.setTransport(&session);
    mixer.mixerModel.feed(0, false);
    ChannelValues values = mixer.memory.values(0);
    values[parameterIndex(5, EqualizerField::Frequency)] = stepOf(ParameterKind::Frequency, 5500.0);
    values[parameterIndex(5, EqualizerField::Gain)] = 120;
    mixer.memory.write(0, values);
    SoundFiles::Sound sound{SF_FORMAT_WAV | SF_FORMAT_FLOAT, deviceRate, 1, {}};
    sound.samples.assign(static_cast<std::size_t>(deviceRate), 0.0);
    // Not in the first block, which a server that is busy connecting may drop.
    sound.samples[sound.samples.size() / 4] = double(impulse);
    QVERIFY(session.openFile(SoundFiles::write(m_folder.filePath(u"impulse.wav"_s), sound)).isOk());
    session.setDevice({u"ears"_s});
    MixerWindow window(mixer, EditorSettings());
    EditorWindow* editor = window.openEditor(0, true);
    QComboBox* box = rateBox(editor);
    for (int choice = 0; choice < box->count(); ++choice) {
        JackEars ears("ears");
        box->setCurrentIndex(choice);
        QVERIFY(box->isEnabled());
        session.setPosition(0.0);
        QVERIFY2(session.play().isOk(), qPrintable(session.error()));
        QVERIFY(!box->isEnabled());
        QVERIFY(box->toolTip().contains("device"_L1));
        QCOMPARE(box->currentText(), u"%1 Hz"_s.arg(deviceRate));
        QTRY_VERIFY_WITH_TIMEOUT(ears.heard() >= responseLength, 30000);
        session.stop();
        QVERIFY(box->isEnabled());
        QCOMPARE(rateOf(editor), deviceRate); // what was heard last
        const double difference = heard(ears.channel(0), frequency, deviceRate) -
                                  drawn(values, frequency, rateOf(editor));
        QVERIFY2(std::abs(difference) < 0.01, qPrintable(QString::number(difference)));
    }
}

ZOLTA_TEST_MAIN(tst_TrueCurve)

#include "tst_TrueCurve.moc"
