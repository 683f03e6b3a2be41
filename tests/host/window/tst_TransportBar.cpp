// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/MixBus.h"
#include "host/audio/AudioSession.h"
#include "host/model/MixerModel.h"
#include "host/window/HostTheme.h"
#include "host/window/TransportBar.h"
#include "hosting/HostMemory.h"
#include "tests/host/audio/FakeDevice.h"
#include "tests/host/audio/SoundFiles.h"
#include "tests/support/TestObject.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QSignalSpy>
#include <QSlider>
#include <QTemporaryDir>
#include <QTextDocument>

#include <memory>

using namespace Qt::StringLiterals;

class tst_TransportBar : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { applyHostTheme(); }
    void init();
    void cleanup();
    void withoutTransportThereIsNoAudio();
    void drivesTheSession();
    void showsTheState();
    void disabledKeysAreDim();
    void longFileNameIsElided();

private:
    void openFile(const QString& name = u"song.wav"_s);
    bool says(const char* text) const;
    template <typename Widget> Widget* named(const char* name) const;

    QTemporaryDir m_folder;
    HostMemory m_memory;
    std::unique_ptr<MixerModel> m_mixerModel;
    std::unique_ptr<MixBus> m_bus;
    std::unique_ptr<AudioSession> m_session;
    std::unique_ptr<TransportBar> m_bar;
    FakeDevice* m_device = nullptr; // the session's
};

void tst_TransportBar::init()
{
    TestObject::init();
    m_mixerModel = std::make_unique<MixerModel>(m_memory);
    m_bus = std::make_unique<MixBus>();
    auto device = std::make_unique<FakeDevice>();
    m_device = device.get();
    m_session =
        std::make_unique<AudioSession>(*m_bus, std::move(device), std::chrono::milliseconds(0));
    m_bar = std::make_unique<TransportBar>(*m_mixerModel);
    m_bar->resize(900, m_bar->height());
    m_bar->show();
}

void tst_TransportBar::cleanup()
{
    m_bar.reset();
    m_session.reset();
    m_mixerModel.reset();
}

// 2:05 long.
void tst_TransportBar::openFile(const QString& name)
{
    const SoundFiles::Sound sound{SF_FORMAT_WAV | SF_FORMAT_PCM_U8, 1000, 1,
                                  std::vector<double>(125000, 0.0)};
    m_mixerModel->setTransport(m_session.get());
    QVERIFY(m_session->openFile(SoundFiles::write(m_folder.filePath(name), sound)).isOk());
}

bool tst_TransportBar::says(const char* text) const
{
    const auto labels = m_bar->findChildren<QLabel*>();
    return std::any_of(labels.begin(), labels.end(),
                       [text](QLabel* label) { return label->text() == QLatin1String(text); });
}

template <typename Widget> Widget* tst_TransportBar::named(const char* name) const
{
    for (Widget* widget : m_bar->findChildren<Widget*>()) {
        if (widget->accessibleName() == QLatin1String(name))
            return widget;
    }
    return nullptr;
}

void tst_TransportBar::withoutTransportThereIsNoAudio()
{
    QVERIFY(says("No audio"));
    for (const char* name : {"Open sound file", "Return to the start", "Play", "Stop", "Loop",
                             "Position", "Output device"})
        QVERIFY2(!named<QWidget>(name)->isEnabled(), name);
}

void tst_TransportBar::drivesTheSession()
{
    openFile();
    QTest::mouseClick(named<QAbstractButton>("Play"), Qt::LeftButton);
    QVERIFY(m_device->isPlaying());
    QTest::mouseClick(named<QAbstractButton>("Stop"), Qt::LeftButton);
    QVERIFY(!m_device->isPlaying());
    auto* position = named<QSlider>("Position");
    QCOMPARE(position->maximum(), 1250);
    position->setSliderDown(true);
    position->setSliderPosition(300);
    position->setSliderDown(false);
    QCOMPARE(m_session->position(), 30.0);
    m_session->setPosition(61.5);
    QCOMPARE(position->value(), 615);
    QVERIFY(says("1:01 / 2:05"));
    QTest::mouseClick(position, Qt::LeftButton, {}, position->rect().center());
    QVERIFY(std::abs(m_session->position() - 62.5) < 1.0); // where it was clicked
    QTest::mouseClick(named<QAbstractButton>("Return to the start"), Qt::LeftButton);
    QCOMPARE(m_session->position(), 0.0);
    QTest::mouseClick(named<QAbstractButton>("Loop"), Qt::LeftButton);
    QVERIFY(m_session->isLooping());
    auto* devices = named<QComboBox>("Output device");
    QCOMPARE(devices->currentText(), u"fake:Speakers"_s);
    m_bar->activateWindow();
    devices->setFocus();
    QTest::keyClick(devices, Qt::Key_Down);
    QCOMPARE(m_session->output(), 1);
    QCOMPARE(devices->currentText(), u"fake:Phones"_s);
}

void tst_TransportBar::showsTheState()
{
    openFile();
    QVERIFY(says("song.wav"));
    QVERIFY(says("No audio"));
    QVERIFY(!named<QAbstractButton>("Stop")->isEnabled());
    QVERIFY(m_session->play().isOk());
    QVERIFY(says("Playing"));
    QVERIFY(!named<QAbstractButton>("Play")->isEnabled());
    QSignalSpy changes(m_session.get(), &AudioSession::changed);
    QVERIFY(changes.wait(30000)); // the device asks for nothing
    QVERIFY(says("Audio error"));
    QVERIFY(!named<QAbstractButton>("Play")->isEnabled());
    QVERIFY(named<QAbstractButton>("Stop")->isEnabled());
    m_device->setGone(true);
    QVERIFY(changes.wait(30000));
    QVERIFY(says("Waiting for device"));
    QVERIFY(!named<QAbstractButton>("Play")->isEnabled());
    m_device->setGone(false);
    QTRY_VERIFY_WITH_TIMEOUT(says("Playing"), 30000);
    m_device->setError(u"The device was disconnected."_s);
    QVERIFY(changes.wait(30000));
    QVERIFY(says("Audio error"));
    QVERIFY(named<QAbstractButton>("Play")->isEnabled());
    const auto labels = m_bar->findChildren<QLabel*>();
    QVERIFY(std::any_of(labels.begin(), labels.end(), [](QLabel* label) {
        return label->toolTip() == "The device was disconnected."_L1;
    }));
}

void tst_TransportBar::disabledKeysAreDim()
{
    openFile();
    auto* play = named<QAbstractButton>("Play");
    const auto brightness = [play] {
        const QImage picture = play->grab().toImage();
        int brightest = 0;
        for (int x = 8; x < 30; ++x)
            brightest = std::max(brightest, qGray(picture.pixel(x, 11)));
        return brightest;
    };
    QVERIFY(brightness() > 180);
    QVERIFY(m_session->play().isOk());
    QVERIFY(brightness() < 140);
    m_session->stop();
    QVERIFY(brightness() > 180);
}

// The beginning and the end of the name are painted as they are, and nothing is cut at the edge.
void tst_TransportBar::longFileNameIsElided()
{
    const QString name = u"<b>%1 & take 27.wav"_s.arg(QString(90, QLatin1Char('m')));
    openFile(name);
    QCoreApplication::processEvents();
    QLabel* label = nullptr;
    for (QLabel* found : m_bar->findChildren<QLabel*>()) {
        if (found->text() == name)
            label = found;
    }
    QVERIFY(label);
    QVERIFY(label->fontMetrics().horizontalAdvance(name) > label->width());
    QTextDocument tip;
    tip.setHtml(label->toolTip());
    QCOMPARE(tip.toPlainText(), m_folder.filePath(name));
    const QImage cut = label->grab().toImage();
    label->setText(label->fontMetrics().elidedText(name, Qt::ElideMiddle, label->width()));
    QVERIFY(label->text().endsWith(u"27.wav"_s));
    QCOMPARE(label->grab().toImage(), cut);
}

ZOLTA_TEST_MAIN(tst_TransportBar)

#include "tst_TransportBar.moc"
