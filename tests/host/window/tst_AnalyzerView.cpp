// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/MixBus.h"
#include "host/audio/AudioSession.h"
#include "host/model/MixerModel.h"
#include "host/model/SettingsPublisher.h"
#include "host/window/AnalyzerBar.h"
#include "host/window/AnalyzerPanel.h"
#include "host/window/AnalyzerStore.h"
#include "host/window/AnalyzerView.h"
#include "host/window/HostTheme.h"
#include "hosting/HostMemory.h"
#include "tests/host/audio/FakeDevice.h"
#include "tests/support/TestObject.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QJsonDocument>
#include <QToolButton>

#include <memory>
#include <numbers>

using namespace Qt::StringLiterals;

class tst_AnalyzerView : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { applyHostTheme(); }
    void init();
    void cleanup();
    void listensOnlyWhileThereIsSomethingToSee();
    void cursorReadsLevels();
    void channelsOfAPairAreTakenTogether();
    void keysMoveTheCursor_data();
    void keysMoveTheCursor();
    void cursorFollowsThePointer();
    void narrowViewReadsAboveThePlot();
    void spectrumIsPaintedWhereItsLevelIs();
    void curveAndPointsArePainted();
    void curveSettlesItsRange_data();
    void curveSettlesItsRange();
    void standsBelowTheEditor();
    void pictureStaysWhileFrozen();
    void resetForgetsPeaks();
    void everyChoiceIsStored_data();
    void everyChoiceIsStored();
    void everySwitchIsStored();
    void barsOfAllWindowsFollow();

private:
    static constexpr int channel = 2;
    static constexpr int rate = 48000;

    AnalyzerView* view() const { return m_panel->view(); }
    void show(int width = 977);
    void play(double left, double right, double frequency = 1000.0, double seconds = 1.0);
    void set(const AnalyzerSettings& settings) { m_store->setSettings(settings); }
    void setValue(std::size_t number, int value);
    QString read(double frequency) const;
    QColor pixel(double frequency, double y) const;
    QAction* key(const QString& text) const;
    static AnalyzerSettings plain();

    std::unique_ptr<HostMemory> m_memory;
    std::unique_ptr<MixerModel> m_mixerModel;
    std::unique_ptr<MixBus> m_bus;
    std::unique_ptr<SettingsPublisher> m_publisher;
    std::unique_ptr<AudioSession> m_session;
    std::unique_ptr<AnalyzerStore> m_store;
    std::unique_ptr<AnalyzerPanel> m_panel;
    FakeDevice* m_device = nullptr; // the session's
    double m_phase = 0.0;
};

// What comes in at two inputs goes to a pair of channels.
void tst_AnalyzerView::init()
{
    TestObject::init();
    m_memory = std::make_unique<HostMemory>();
    m_mixerModel = std::make_unique<MixerModel>(*m_memory);
    m_bus = std::make_unique<MixBus>();
    m_publisher = std::make_unique<SettingsPublisher>(*m_mixerModel, *m_bus);
    auto device = std::make_unique<FakeDevice>();
    m_device = device.get();
    m_session = std::make_unique<AudioSession>(*m_bus, std::move(device), std::chrono::hours(1));
    m_session->setDevice({QString(), 0, 0, true});
    m_memory->setStrip(channel, StripParameter::Source, SourceInput1);
    m_memory->setStrip(channel, StripParameter::Stereo, 1);
    m_mixerModel->setTransport(m_session.get());
    m_store = std::make_unique<AnalyzerStore>();
    m_store->setSettings(plain());
    m_panel = std::make_unique<AnalyzerPanel>(*m_mixerModel, *m_store, channel);
}

void tst_AnalyzerView::cleanup()
{
    m_panel.reset();
    m_session.reset();
    m_publisher.reset();
    m_mixerModel.reset();
}

AnalyzerSettings tst_AnalyzerView::plain()
{
    AnalyzerSettings settings;
    settings.order = AnalyzerSettings::smallestOrder;
    settings.smoothing = 0;
    settings.tilt = 0;
    settings.curve = false;
    return settings;
}

void tst_AnalyzerView::show(int width)
{
    m_panel->resize(width, 300);
    m_panel->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_panel.get()));
}

// A tone at both inputs, until the view has seen all of it.
void tst_AnalyzerView::play(double left, double right, double frequency, double seconds)
{
    m_publisher->publish();
    if (!m_device->isPlaying())
        QVERIFY(m_session->play().isOk());
    const QString before = read(frequency);
    for (int i = 0; i < int(seconds * 100.0); ++i) {
        std::vector<std::vector<float>> inputs(2, std::vector<float>(rate / 100));
        for (std::size_t k = 0; k < inputs[0].size(); ++k) {
            m_phase += 2.0 * std::numbers::pi * frequency / rate;
            inputs[0][k] = static_cast<float>(left * std::sin(m_phase));
            inputs[1][k] = static_cast<float>(right * std::sin(m_phase));
        }
        m_device->call(inputs[0].size(), inputs);
    }
    QTRY_VERIFY(read(frequency) != before || !view()->isListening());
}

void tst_AnalyzerView::setValue(std::size_t number, int value)
{
    HostMemory::Values values = m_memory->values(channel);
    values[number - 1] = value;
    m_memory->write(channel, values);
}

// What the pointer reads at a frequency.
QString tst_AnalyzerView::read(double frequency) const
{
    const AnalyzerPlot plot = view()->plot();
    QTest::mouseMove(view(), plot.area.center().toPoint());
    QTest::mouseMove(view(), QPoint(static_cast<int>(plot.x(frequency)),
                                    static_cast<int>(plot.area.center().y())));
    return view()->accessibleDescription();
}

QColor tst_AnalyzerView::pixel(double frequency, double y) const
{
    const QImage picture = view()->grab().toImage();
    return picture.pixelColor(static_cast<int>(view()->plot().x(frequency)), static_cast<int>(y));
}

QAction* tst_AnalyzerView::key(const QString& text) const
{
    for (QAction* action : m_panel->findChild<AnalyzerBar*>()->actions()) {
        if (action->text() == text)
            return action;
    }
    qFatal("no key %s", qPrintable(text));
}

// Nothing runs otherwise: the engine keeps no samples for it either.
void tst_AnalyzerView::listensOnlyWhileThereIsSomethingToSee()
{
    const auto isListening = [this] {
        const std::uint64_t before = m_bus->tap(channel).count();
        if (m_device->isPlaying())
            m_device->call(100, {std::vector<float>(100), std::vector<float>(100)});
        const bool fed = m_bus->tap(channel).count() != before;
        return view()->isListening() && fed == m_device->isPlaying() ? 1
               : view()->isListening() || fed                        ? 99
                                                                     : 0;
    };
    QVERIFY(m_session->play().isOk());
    QCOMPARE(isListening(), 0);
    show();
    QCOMPARE(isListening(), 1);
    key(u"Freeze"_s)->trigger();
    QCOMPARE(isListening(), 0);
    key(u"Freeze"_s)->trigger();
    QCOMPARE(isListening(), 1);
    m_session->stop();
    QCOMPARE(isListening(), 0);
    QVERIFY(m_session->play().isOk());
    QCOMPARE(isListening(), 1);
    m_panel->hide();
    QCOMPARE(isListening(), 0);
    show();
    QCOMPARE(isListening(), 1);
    m_mixerModel->setTransport(nullptr);
    QCOMPARE(isListening(), 0);
}

void tst_AnalyzerView::cursorReadsLevels()
{
    setValue(6, 680); // 1002 Hz
    setValue(7, 100);
    setValue(26, 20);
    AnalyzerSettings settings = plain();
    settings.curve = true;
    settings.peaks = true;
    set(settings);
    show();
    QVERIFY(!read(1000.0).contains(u"Before"_s));
    play(0.1, 0.1);
    QTRY_VERIFY2(read(1000.0).contains(u", Note B5"_s) &&
                     read(1000.0).contains(u", Before -20.0 dB, After -8.0 dB, "
                                           "Difference +12.0 dB, Peak -8.0 dB, Curve +10.0 dB"_s),
                 qPrintable(read(1000.0)));
}

void tst_AnalyzerView::channelsOfAPairAreTakenTogether()
{
    show();
    play(1.0, 0.0);
    QTRY_VERIFY2(read(1000.0).contains(u"After -3.0 dB"_s), qPrintable(read(1000.0)));
    m_memory->setStrip(channel, StripParameter::Stereo, 0);
    play(1.0, 0.0, 1000.0, 3.0);
    QTRY_VERIFY2(read(1000.0).contains(u"After 0.0 dB"_s), qPrintable(read(1000.0)));
}

void tst_AnalyzerView::keysMoveTheCursor_data()
{
    QTest::addColumn<QList<Qt::Key>>("keys");
    QTest::addColumn<QString>("frequency");
    using Keys = QList<Qt::Key>;
    QTest::newRow("begins in the middle") << Keys{Qt::Key_Right} << u"Frequency 1.00 kHz"_s;
    QTest::newRow("semitone up") << Keys{Qt::Key_Right, Qt::Key_Right} << u"Frequency 1.06 kHz"_s;
    QTest::newRow("semitone down") << Keys{Qt::Key_Left, Qt::Key_Left} << u"Frequency 943.9 Hz"_s;
    QTest::newRow("octave up") << Keys{Qt::Key_PageUp} << u"Frequency 2.00 kHz"_s;
    QTest::newRow("octave down") << Keys{Qt::Key_PageDown} << u"Frequency 500.0 Hz"_s;
    QTest::newRow("first") << Keys{Qt::Key_Home, Qt::Key_Left} << u"Frequency 20.0 Hz"_s;
    QTest::newRow("last") << Keys{Qt::Key_End, Qt::Key_Right} << u"Frequency 20.00 kHz"_s;
    QTest::newRow("gone") << Keys{Qt::Key_End, Qt::Key_Escape} << QString();
    QTest::newRow("another key") << Keys{Qt::Key_F12} << QString();
}

void tst_AnalyzerView::keysMoveTheCursor()
{
    QFETCH(const QList<Qt::Key>, keys);
    QFETCH(const QString, frequency);
    show();
    for (const Qt::Key each : keys)
        QTest::keyClick(view(), each);
    const QString said = view()->accessibleDescription();
    QVERIFY2(frequency.isEmpty() ? said.isEmpty() : said.startsWith(frequency + u", Note "_s),
             qPrintable(said));
}

void tst_AnalyzerView::cursorFollowsThePointer()
{
    show();
    const AnalyzerPlot plot = view()->plot();
    const QImage before = view()->grab().toImage();
    QVERIFY(read(200.0).startsWith(u"Frequency 2"_s) || read(200.0).startsWith(u"Frequency 19"_s));
    QVERIFY(view()->grab().toImage() != before);
    QTest::mouseMove(view(), QPoint(int(plot.area.left()) - 5, int(plot.area.center().y())));
    QCOMPARE(view()->accessibleDescription(), QString());
    read(200.0);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(view(), &leave);
    QCOMPARE(view()->accessibleDescription(), QString());
    QCOMPARE(view()->grab().toImage(), before);
}

void tst_AnalyzerView::narrowViewReadsAboveThePlot()
{
    show(500);
    const QRect above(200, 4, 240, 20);
    const QImage before = view()->grab(above).toImage();
    read(300.0);
    QVERIFY(view()->grab(above).toImage() != before);
}

// Filled below it, and nothing above it.
void tst_AnalyzerView::spectrumIsPaintedWhereItsLevelIs()
{
    show();
    const AnalyzerPlot plot = view()->plot();
    const QColor above = pixel(1010.0, plot.y(-17.0));
    const QColor below = pixel(1010.0, plot.y(-26.0));
    const QColor beside = pixel(3000.0, plot.y(-26.0));
    play(0.1, 0.1);
    QTRY_VERIFY(read(1000.0).contains(u"After -20.0 dB"_s));
    QCOMPARE(pixel(1010.0, plot.y(-17.0)), above);
    QVERIFY(pixel(1010.0, plot.y(-26.0)).blue() > below.blue() + 40);
    QCOMPARE(pixel(3000.0, plot.y(-26.0)), beside);
}

void tst_AnalyzerView::curveAndPointsArePainted()
{
    setValue(7, 60);
    setValue(6, 680);
    AnalyzerSettings settings = plain();
    show();
    const AnalyzerPlot plot = view()->plot();
    QVERIFY(pixel(1000.0, plot.curveY(6.0)).red() < 100);
    settings.curve = true;
    set(settings);
    QVERIFY(pixel(1000.0, plot.curveY(6.0)).red() > 150);
    QVERIFY(pixel(1000.0, plot.curveY(0.5)).red() < 100);
    setValue(7, -60);
    QTRY_VERIFY(pixel(1000.0, plot.curveY(-6.0)).red() > 150);
    const QImage before = view()->grab().toImage();
    view()->setSampleRate(8000);
    QVERIFY(view()->grab().toImage() != before);
}

void tst_AnalyzerView::curveSettlesItsRange_data()
{
    QTest::addColumn<int>("gain");
    QTest::addColumn<double>("range");
    QTest::newRow("flat") << 0 << 12.0;
    QTest::newRow("at the edge") << 119 << 12.0;
    QTest::newRow("beyond") << 160 << 24.0;
    QTest::newRow("cuts may leave it") << -200 << 12.0;
}

void tst_AnalyzerView::curveSettlesItsRange()
{
    QFETCH(const int, gain);
    setValue(6, 680);
    setValue(7, gain);
    show();
    QTEST(view()->plot().curveRange, "range");
}

// The editors' plots go from 137.5 to 758.5 of 977 pixels.
void tst_AnalyzerView::standsBelowTheEditor()
{
    QWidget window;
    QWidget stage(&window);
    stage.setGeometry(40, 0, 977, 100);
    m_panel->setParent(&window);
    m_panel->setGeometry(0, 100, 1100, 300);
    window.resize(1100, 400);
    window.show();
    const double alone = view()->plot().area.left();
    view()->alignWith(&stage);
    QVERIFY(std::abs(view()->plot().area.left() - 177.5) <= 0.5);
    QVERIFY(std::abs(view()->plot().area.right() - 798.5) <= 1.0);
    const QImage before = view()->grab().toImage();
    stage.setGeometry(0, 0, 1090, 100);
    QVERIFY(view()->grab().toImage() != before);
    for (const QRect& place :
         {QRect(-200, 0, 977, 100), QRect(40, 0, 1954, 100), QRect(40, 0, 300, 100)}) {
        stage.setGeometry(place);
        QCOMPARE(view()->plot().area.left(), alone);
    }
    m_panel->setParent(nullptr);
}

void tst_AnalyzerView::pictureStaysWhileFrozen()
{
    show();
    play(0.1, 0.1);
    QTRY_VERIFY(read(1000.0).contains(u"After -20.0 dB"_s));
    key(u"Freeze"_s)->trigger();
    const QImage before = view()->grab().toImage();
    play(0.5, 0.5, 5000.0);
    QCOMPARE(read(1000.0).contains(u"After -20.0 dB"_s), true);
    QCOMPARE(view()->grab().toImage(), before);
}

void tst_AnalyzerView::resetForgetsPeaks()
{
    AnalyzerSettings settings = plain();
    settings.peaks = true;
    set(settings);
    show();
    for (int way = 0; way < 2; ++way) {
        play(0.1, 0.1);
        play(0.0, 0.0);
        QTRY_VERIFY(read(1000.0).contains(u"Peak -20.0 dB"_s));
        if (way == 0)
            key(u"Reset"_s)->trigger();
        else
            QTest::mouseDClick(view(), Qt::LeftButton, {}, view()->rect().center());
        QVERIFY(!read(1000.0).contains(u"Peak"_s));
    }
}

void tst_AnalyzerView::everyChoiceIsStored_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("items");
    QTest::newRow("size") << u"Samples of a transform"_s
                          << QStringList{u"4096 samples"_s, u"8192 samples"_s, u"16384 samples"_s,
                                         u"32768 samples"_s};
    QTest::newRow("window") << u"Window"_s
                            << QStringList{u"Hann"_s, u"Blackman-Harris"_s, u"Flat top"_s};
    QTest::newRow("smoothing") << u"Smoothing"_s
                               << QStringList{u"No smoothing"_s, u"1/24 octave"_s, u"1/12 octave"_s,
                                              u"1/6 octave"_s,   u"1/3 octave"_s,  u"1 octave"_s};
    QTest::newRow("tilt") << u"Tilt"_s
                          << QStringList{u"No tilt"_s, u"3 dB/octave"_s, u"4.5 dB/octave"_s,
                                         u"6 dB/octave"_s};
    QTest::newRow("speed") << u"Speed"_s
                           << QStringList{u"Fast"_s, u"Medium"_s, u"Slow"_s, u"Infinite"_s};
}

void tst_AnalyzerView::everyChoiceIsStored()
{
    QFETCH(const QString, name);
    QFETCH(const QStringList, items);
    const auto boxes = m_panel->findChildren<QComboBox*>();
    const auto box = std::find_if(boxes.begin(), boxes.end(),
                                  [&](QComboBox* each) { return each->accessibleName() == name; });
    QVERIFY(box != boxes.end());
    QCOMPARE((*box)->count(), items.size());
    QSet<QByteArray> stored;
    for (int i = 0; i < items.size(); ++i) {
        QCOMPARE((*box)->itemText(i), items[i]);
        (*box)->setCurrentIndex(i);
        Q_EMIT(*box)->activated(i);
        QCOMPARE((*box)->currentIndex(), i);
        stored << QJsonDocument(m_store->settings().toJson()).toJson();
    }
    QCOMPARE(stored.size(), items.size());
}

void tst_AnalyzerView::everySwitchIsStored()
{
    key(u"Peak hold"_s)->trigger();
    QVERIFY(m_store->settings().peaks);
    key(u"Curve"_s)->trigger();
    QVERIFY(m_store->settings().curve);
    key(u"Curve"_s)->trigger();
    QCOMPARE(m_store->settings().curve, false);
}

void tst_AnalyzerView::barsOfAllWindowsFollow()
{
    AnalyzerPanel other(*m_mixerModel, *m_store, 0);
    key(u"Peak hold"_s)->trigger();
    AnalyzerSettings settings = m_store->settings();
    settings.speed = AnalyzerSettings::Slow;
    set(settings);
    for (const AnalyzerPanel* panel : {m_panel.get(), &other}) {
        QCOMPARE(panel->findChildren<QComboBox*>().last()->currentText(), u"Slow"_s);
        const auto keys = panel->findChild<AnalyzerBar*>()->actions();
        const auto peaks = std::find_if(keys.begin(), keys.end(), [](const QAction* each) {
            return each->text() == u"Peak hold"_s;
        });
        QVERIFY((*peaks)->isChecked());
    }
}

ZOLTA_TEST_MAIN(tst_AnalyzerView)
#include "tst_AnalyzerView.moc"
