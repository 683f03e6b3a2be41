// SPDX-License-Identifier: GPL-3.0-or-later
// Comparing by ear in an editor's window, down to what is heard.
#include "engine/MixBus.h"
#include "host/audio/AudioSession.h"
#include "host/model/SettingsPublisher.h"
#include "host/window/EditorWindow.h"
#include "host/window/HostTheme.h"
#include "host/window/MixerWindow.h"
#include "tests/host/audio/FakeDevice.h"
#include "tests/host/window/WindowTesting.h"
#include "tests/support/TestObject.h"

#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPointer>
#include <QStatusBar>
#include <QToolButton>

using namespace Qt::StringLiterals;
using namespace WindowTesting;

class tst_AuditionBar : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void bypassIsHeardAndShown_data();
    void bypassIsHeardAndShown();
    void bypassIsNoSetting();
    void bypassEndsWithTheWindow();
    void bandIsHeardWhileHeld_data();
    void bandIsHeardWhileHeld();
    void heldKeyCountsOnce();
    void textFieldsKeepTheKey();
    void listeningNeverSticks_data();
    void listeningNeverSticks();
    void bandFollowsTheControls_data();
    void bandFollowsTheControls();
    void bandFollowsTheHandles();
    void bandIsChosenInTheList();
    void choiceLooksLikeTheButtons();
    void nothingIsWantedOfOthers();

private:
    static constexpr int channel = 2;
    static constexpr std::size_t second = 48000;

    double play();
    void set(int number, int value)
    {
        m_mixer->memory.setValue(parameterId(static_cast<std::size_t>(number - 1)), channel, value,
                                 0, 0, 1);
    }
    QToolButton* bypass() const
    {
        return named<QToolButton>(m_window, u"Bypass at equal loudness"_s);
    }
    QToolButton* hold() const
    {
        return named<QToolButton>(m_window, u"Listen to the band while held"_s);
    }
    QComboBox* bands() const { return named<QComboBox>(m_window, u"Band to listen to"_s); }
    QWidget* control(const QString& name) const { return m_window->findChild<QWidget*>(name); }
    QWidget* graph() const;
    const AuditionModel& auditions() const { return m_mixer->mixerModel.auditions(); }
    void press(const QString& how);
    void release(const QString& how);

    std::unique_ptr<Mixer> m_mixer;
    std::unique_ptr<MixBus> m_bus;
    std::unique_ptr<SettingsPublisher> m_publisher;
    std::unique_ptr<AudioSession> m_session;
    std::unique_ptr<MixerWindow> m_mixerWindow;
    QPointer<EditorWindow> m_window;
    FakeDevice* m_device = nullptr; // the session's
};

void tst_AuditionBar::initTestCase() { applyHostTheme(); }

// What comes in at two inputs goes to the pair of the window.
void tst_AuditionBar::init()
{
    TestObject::init();
    m_mixer = std::make_unique<Mixer>();
    QVERIFY(m_mixer->library.load(QStringLiteral(HOST_REAL_PLUGIN)).isOk());
    m_bus = std::make_unique<MixBus>();
    m_publisher = std::make_unique<SettingsPublisher>(m_mixer->mixerModel, *m_bus);
    auto device = std::make_unique<FakeDevice>();
    m_device = device.get();
    m_session = std::make_unique<AudioSession>(*m_bus, std::move(device));
    AudioDeviceSettings live;
    live.live = true;
    m_session->setDevice(live);
    m_mixer->mixerModel.setTransport(m_session.get());
    m_mixer->mixerModel.feed(channel, true);
    m_mixerWindow = std::make_unique<MixerWindow>(*m_mixer, EditorSettings());
    m_window = m_mixerWindow->openEditor(channel, true);
    QVERIFY(QTest::qWaitForWindowActive(m_window));
    m_mixer->mixerModel.history().clear();
    QVERIFY(m_session->play().isOk());
}

void tst_AuditionBar::cleanup()
{
    m_session->stop();
    m_mixer->mixerModel.setTransport(nullptr);
    m_mixerWindow.reset();
    m_session.reset();
    m_publisher.reset();
    m_bus.reset();
    m_mixer.reset();
}

QWidget* tst_AuditionBar::graph() const
{
    for (QWidget* part : m_window->findChildren<QWidget*>()) {
        if (part->inherits("ZoltaEqualizerGraph"))
            return part;
    }
    qFatal("no graph");
}

// The level in dB of a second of a tone of 1000 Hz and -20 dB, as it comes out.
double tst_AuditionBar::play()
{
    m_publisher->publish();
    std::vector<float> tone(second);
    for (std::size_t i = 0; i < second; ++i)
        tone[i] = static_cast<float>(0.1 * std::sin(2.0 * M_PI * double(i) / 48.0));
    const std::vector<float> heard = m_device->call(second, {tone, tone})[0];
    double sum = 0.0;
    for (std::size_t i = second / 2; i < second; ++i)
        sum += double{heard[i]} * double{heard[i]};
    return sum > 0.0 ? 10.0 * std::log10(4.0 * sum / second) : -200.0;
}

// A button that Tab led to has Space for itself.
void tst_AuditionBar::press(const QString& how)
{
    if (how == "Space on the button"_L1)
        hold()->setFocus(Qt::TabFocusReason);
    if (how == "button"_L1)
        QTest::mousePress(hold(), Qt::LeftButton);
    else if (how == "Space on the button"_L1)
        QTest::keyPress(hold(), Qt::Key_Space);
    else
        QTest::keyPress(m_window, Qt::Key_L);
}

void tst_AuditionBar::release(const QString& how)
{
    if (how == "button"_L1)
        QTest::mouseRelease(hold(), Qt::LeftButton);
    else if (how == "Space on the button"_L1)
        QTest::keyRelease(hold(), Qt::Key_Space);
    else
        QTest::keyRelease(m_window, Qt::Key_L);
}

void tst_AuditionBar::bypassIsHeardAndShown_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<int>("gain");
    QTest::addColumn<QString>("text");
    QTest::newRow("louder") << 35 << 100 << u"Bypass +13.5 dB"_s;
    QTest::newRow("quieter") << -20 << -40 << u"Bypass -6.0 dB"_s;
    QTest::newRow("the same") << 0 << 0 << u"Bypass 0.0 dB"_s;
}

void tst_AuditionBar::bypassIsHeardAndShown()
{
    QFETCH(const int, level);
    QFETCH(const int, gain);
    QFETCH(const QString, text);
    set(26, level);
    set(10, 679); // 1000 Hz
    set(11, gain);
    QCOMPARE(bypass()->text(), u"Bypass"_s);
    play();
    const double equalized = play();
    QTest::mouseClick(bypass(), Qt::LeftButton);
    const double bypassed = play();
    QVERIFY(std::abs(equalized + 20.0 - (level + gain) / 10.0) < 0.1);
    QVERIFY2(std::abs(bypassed - equalized) < 0.1, qPrintable(QString::number(bypassed)));
    QTRY_COMPARE(bypass()->text(), text);
    QVERIFY(actionOf(m_window, u"Bypass at Equal Loudness"_s)->isChecked());
    const int width = bypass()->width();
    QTest::keyClick(m_window, Qt::Key_B, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(!bypass()->isChecked());
    QCOMPARE(bypass()->text(), u"Bypass"_s);
    QCOMPARE(bypass()->width(), width);
}

void tst_AuditionBar::bypassIsNoSetting()
{
    const HostMemory::Values values = m_mixer->memory.values(channel);
    QTest::mouseClick(bypass(), Qt::LeftButton);
    press(u"button"_s);
    release(u"button"_s);
    QCOMPARE(m_mixer->memory.values(channel), values);
    QCOMPARE(m_mixer->mixerModel.history().stack().count(), 0);
    actionOf(m_window, u"Switch between A and B"_s)->trigger();
    QVERIFY(auditions().isBypassed(channel)); // of whatever is compared
}

void tst_AuditionBar::bypassEndsWithTheWindow()
{
    QTest::mouseClick(bypass(), Qt::LeftButton);
    m_window->close();
    QTRY_VERIFY(!m_window);
    QCOMPARE(auditions().of(channel), Audition());
    m_window = m_mixerWindow->openEditor(channel, true);
    QVERIFY(!bypass()->isChecked());
}

void tst_AuditionBar::bandIsHeardWhileHeld_data()
{
    QTest::addColumn<QString>("how");
    for (const char* how : {"button", "Space on the button", "key"})
        QTest::newRow(how) << QString::fromLatin1(how);
}

// Of 20 dB at the tone's place, nine tenths are the band's; of another one's nothing.
void tst_AuditionBar::bandIsHeardWhileHeld()
{
    QFETCH(const QString, how);
    set(10, 679); // 1000 Hz
    set(11, 200);
    const double equalized = play();
    bands()->setCurrentIndex(2);
    press(how);
    QVERIFY(hold()->isDown());
    QCOMPARE(m_window->statusBar()->currentMessage(),
             u"You hear only what this band changes: Middle 2."_s);
    const double difference = play();
    QVERIFY2(std::abs(difference - equalized + 0.915) < 0.1,
             qPrintable(QString::number(difference)));
    bands()->setCurrentIndex(3);
    QVERIFY(play() < -100.0);
    release(how);
    QVERIFY(!hold()->isDown());
    QCOMPARE(m_window->statusBar()->currentMessage(), QString());
    QVERIFY(std::abs(play() - equalized) < 0.01);
}

void tst_AuditionBar::heldKeyCountsOnce()
{
    press(u"key"_s);
    QKeyEvent again(QEvent::KeyRelease, Qt::Key_L, Qt::NoModifier, u"l"_s, true);
    QApplication::sendEvent(m_window, &again);
    QCOMPARE(auditions().band(channel), 0);
    QTest::keyRelease(m_window, Qt::Key_M);
    QCOMPARE(auditions().band(channel), 0);
    release(u"key"_s);
    QCOMPARE(auditions().band(channel), noBand);
}

void tst_AuditionBar::textFieldsKeepTheKey()
{
    auto* field = m_window->findChild<QLineEdit*>();
    field->setFocus();
    field->selectAll();
    QTest::keyPress(field, Qt::Key_L);
    QCOMPARE(auditions().band(channel), noBand);
    QTest::keyRelease(field, Qt::Key_L);
}

void tst_AuditionBar::listeningNeverSticks_data()
{
    QTest::addColumn<QString>("how");
    QTest::addColumn<QString>("end");
    for (const char* how : {"button", "Space on the button", "key"}) {
        for (const char* end : {"other window", "dialog", "hidden", "closed", "transport stops",
                                "other transport", "strip becomes mono"})
            QTest::addRow("%s, %s", how, end)
                << QString::fromLatin1(how) << QString::fromLatin1(end);
    }
}

// What is held is not let go of.
void tst_AuditionBar::listeningNeverSticks()
{
    QFETCH(const QString, how);
    QFETCH(const QString, end);
    press(how);
    QCOMPARE(auditions().band(channel), 0);
    QDialog dialog(m_window);
    if (end == "other window"_L1) {
        m_mixerWindow->show();
        m_mixerWindow->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_mixerWindow.get()));
    } else if (end == "dialog"_L1) {
        dialog.open();
    } else if (end == "hidden"_L1) {
        m_window->hide();
    } else if (end == "closed"_L1) {
        m_window->close();
    } else if (end == "transport stops"_L1) {
        m_session->stop();
    } else if (end == "other transport"_L1) {
        m_mixer->mixerModel.setTransport(nullptr);
    } else {
        m_mixer->memory.setStrip(channel, StripParameter::Stereo, 0);
        release(how);
    }
    QTRY_COMPARE(auditions().band(channel), noBand);
    if (m_window)
        release(how);
    QCOMPARE(auditions().band(channel), noBand);
}

void tst_AuditionBar::bandFollowsTheControls_data()
{
    QTest::addColumn<QString>("control");
    QTest::addColumn<int>("band");
    QTest::newRow("low knob") << u"m_pLowFrequencyKnob"_s << 0;
    QTest::newRow("quality") << u"m_pMiddle1QualityKnob"_s << 1;
    QTest::newRow("gain") << u"m_pMiddle2GainKnob"_s << 2;
    QTest::newRow("number") << u"m_pMiddle3FrequencyTextEdit"_s << 3;
    QTest::newRow("switch") << u"m_pMiddle4Button"_s << 4;
    QTest::newRow("high type") << u"m_pHighTypeKnob"_s << 5;
    QTest::newRow("level, of no band") << u"m_pOutputKnob"_s << 1;
}

void tst_AuditionBar::bandFollowsTheControls()
{
    QFETCH(const QString, control);
    QFETCH(const int, band);
    bands()->setCurrentIndex(1);
    QTest::mouseClick(this->control(control), Qt::LeftButton);
    QCOMPARE(bands()->currentIndex(), band);
    bands()->setCurrentIndex(1);
    this->control(u"m_pOutputKnob"_s)->setFocus();
    this->control(control)->setFocus();
    QTRY_COMPARE(bands()->currentIndex(), band);
}

void tst_AuditionBar::bandFollowsTheHandles()
{
    const QAccessibleInterface* handles = QAccessible::queryAccessibleInterface(graph());
    for (int band = 0; band < EqualizerBands::Count; ++band) {
        bands()->setCurrentIndex((band + 1) % EqualizerBands::Count);
        const QPoint place = handles->child(band)->rect().center();
        QTest::mouseClick(graph(), Qt::LeftButton, {}, graph()->mapFromGlobal(place));
        QCOMPARE(bands()->currentIndex(), band);
        bands()->setCurrentIndex((band + 1) % EqualizerBands::Count);
        control(u"m_pOutputKnob"_s)->setFocus();
        handles->child(band)->actionInterface()->doAction(
            QAccessibleActionInterface::setFocusAction());
        QTRY_COMPARE(bands()->currentIndex(), band);
    }
}

void tst_AuditionBar::bandIsChosenInTheList()
{
    QCOMPARE(bands()->currentText(), u"Low"_s);
    bands()->setFocus();
    QTest::keyClick(bands(), Qt::Key_Down);
    press(u"key"_s);
    QCOMPARE(auditions().band(channel), 1);
    release(u"key"_s);
}

void tst_AuditionBar::choiceLooksLikeTheButtons()
{
    const auto groundOf = [](QWidget* widget) { return widget->grab().toImage().pixelColor(4, 4); };
    QCOMPARE(bands()->height(), hold()->height());
    QCOMPARE(groundOf(bands()), groundOf(hold()));
}

void tst_AuditionBar::nothingIsWantedOfOthers()
{
    QTest::mouseClick(bypass(), Qt::LeftButton);
    press(u"button"_s);
    for (int other = 0; other < defaultChannelCount; ++other)
        QCOMPARE(auditions().of(other), other == channel ? (Audition{true, true, 0}) : Audition());
    release(u"button"_s);
}

ZOLTA_TEST_MAIN(tst_AuditionBar)

#include "tst_AuditionBar.moc"
