// SPDX-License-Identifier: GPL-3.0-or-later
// An editor's window as that of the desktop equalizer.
#include "engine/MixBus.h"
#include "host/desktop/DesktopEqualizer.h"
#include "host/window/EditorWindow.h"
#include "host/window/MixerWindow.h"
#include "tests/host/window/WindowTesting.h"
#include "tests/support/TestObject.h"

#include <QComboBox>
#include <QLabel>
#include <QStatusBar>

using namespace Qt::StringLiterals;
using namespace WindowTesting;

class tst_DesktopWindow : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void isCalledByItsName();
    void leadsToNoMixer();
    void channelAndRateAreNoChoice_data();
    void channelAndRateAreNoChoice();
    void saysThatThereIsNoSound();

private:
    Mixer m_mixer;
    MixBus m_bus;
    std::unique_ptr<DesktopEqualizer> m_equalizer;
    std::unique_ptr<MixerWindow> m_mixerWindow;
    EditorWindow* m_window = nullptr;
};

void tst_DesktopWindow::initTestCase() { loadStandIn(m_mixer); }

void tst_DesktopWindow::init()
{
    TestObject::init();
    m_equalizer = std::make_unique<DesktopEqualizer>(m_bus);
    m_mixerWindow = std::make_unique<MixerWindow>(m_mixer, EditorSettings());
    m_window = m_mixerWindow->openEditor(0, true);
    QVERIFY(m_window);
    m_window->follow(*m_equalizer);
}

void tst_DesktopWindow::cleanup()
{
    m_mixerWindow.reset();
    m_mixer.language.choose(Language::English);
}

void tst_DesktopWindow::isCalledByItsName()
{
    QCOMPARE(m_window->windowTitle(), u"Desktop Equalizer"_s);
    m_mixer.mixerModel.setName(0, u"Drums"_s);
    QCOMPARE(m_window->windowTitle(), u"Desktop Equalizer"_s);
    m_mixer.language.choose(Language::German);
    QCoreApplication::sendPostedEvents();
    QCOMPARE(m_window->windowTitle(), u"Desktop-Equalizer"_s);
}

void tst_DesktopWindow::leadsToNoMixer()
{
    QVERIFY(!actionOf(m_window, "Mixer"_L1)->isVisible());
    QTest::keyClick(m_window, Qt::Key_M, Qt::ControlModifier);
    QVERIFY(m_mixerWindow->isHidden());
}

void tst_DesktopWindow::channelAndRateAreNoChoice_data()
{
    QTest::addColumn<QString>("item");
    QTest::addColumn<bool>("isChoice");
    QTest::newRow("stereo") << u"Stereo"_s << false;
    QTest::newRow("rate") << u"48000 Hz"_s << false;
    QTest::newRow("dials") << u"Circular"_s << true;
}

void tst_DesktopWindow::channelAndRateAreNoChoice()
{
    QFETCH(QString, item);
    QFETCH(bool, isChoice);
    for (const QComboBox* box : m_window->findChildren<QComboBox*>()) {
        if (box->findText(item) >= 0)
            QCOMPARE(box->isEnabled(), isChoice);
    }
}

void tst_DesktopWindow::saysThatThereIsNoSound()
{
    QStringList texts;
    for (const QLabel* label : m_window->statusBar()->findChildren<QLabel*>())
        texts << label->text();
    QVERIFY2(texts.contains(u"No audio"_s), qPrintable(texts.join(u'\n')));
}

ZOLTA_TEST_MAIN(tst_DesktopWindow)

#include "tst_DesktopWindow.moc"
