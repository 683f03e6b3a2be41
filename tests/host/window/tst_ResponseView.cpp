// SPDX-License-Identifier: GPL-3.0-or-later
#include "equalizer/PlotAxes.h"
#include "host/model/MixerModel.h"
#include "host/window/ResponseView.h"
#include "tests/engine/EngineTesting.h"
#include "tests/support/TestObject.h"

#include <QApplication>

using namespace EngineTesting;

class tst_ResponseView : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void pointsLieOnTheCurve_data();
    void pointsLieOnTheCurve();
    void pointsArePainted();
    void legendLeavesTheVerdictAlone();
    void boostsAreInThePicture();
    void writesAreFollowed();
    void otherChannelsAreNotMeasured();
    void measuresNothingWhileHidden();
    void equalizerOffIsHeard();
    void levelsAndDriveAreLeftOut();

private:
    void set(std::size_t number, int value)
    {
        HostMemory::Values values = m_memory->values(channel);
        values[number - 1] = value;
        m_memory->write(channel, values);
    }
    void show();
    bool isWhite(const QImage& picture, double frequency, double level) const;

    static constexpr int channel = 2;
    std::unique_ptr<HostMemory> m_memory;
    std::unique_ptr<MixerModel> m_mixerModel;
    std::unique_ptr<ResponseView> m_view;
};

void tst_ResponseView::init()
{
    TestObject::init();
    m_view.reset();
    m_mixerModel.reset();
    m_memory = std::make_unique<HostMemory>();
    m_mixerModel = std::make_unique<MixerModel>(*m_memory);
    m_view = std::make_unique<ResponseView>(*m_mixerModel, channel);
    m_view->resize(700, ResponseView::viewHeight);
}

void tst_ResponseView::show()
{
    m_view->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_view.get()));
}

// Below the legend the view is as the editors' plots are.
bool tst_ResponseView::isWhite(const QImage& picture, double frequency, double level) const
{
    constexpr int legend = 30;
    const PlotAxes axes(m_view->width(), m_view->height() - legend, 12.0);
    const QPoint point(static_cast<int>(axes.x(frequency)),
                       static_cast<int>(axes.y(level)) + legend);
    return qGray(picture.pixel(point)) > 240;
}

void tst_ResponseView::pointsLieOnTheCurve_data()
{
    QTest::addColumn<int>("rate");
    QTest::addColumn<double>("last");
    QTest::newRow("44100 Hz") << 44100 << 19845.0;
    QTest::newRow("48000 Hz") << 48000 << 20000.0;
    QTest::newRow("192000 Hz") << 192000 << 20000.0;
    QTest::newRow("8000 Hz") << 8000 << 3600.0;
}

void tst_ResponseView::pointsLieOnTheCurve()
{
    QFETCH(const int, rate);
    QFETCH(const double, last);
    for (const auto& [number, value] : {std::pair{3U, 90}, {7U, -150}, {11U, 60}, {6U, 500}})
        set(number, value);
    m_view->setSampleRate(rate);
    show();
    EqualizerBands bands;
    EngineTesting::setBands(&bands, m_memory->values(channel), rate);
    const std::vector<double>& frequencies = m_view->frequencies();
    QCOMPARE(frequencies.front(), 20.0);
    QCOMPARE(frequencies.back(), last);
    QCOMPARE(m_view->measured().size(), frequencies.size());
    for (std::size_t i = 0; i < frequencies.size(); ++i) {
        const double level = drawnLevel(bands, m_memory->values(channel), frequencies[i]);
        COMPARE_NEAR(m_view->drawn()[i], level, 1e-4);
        COMPARE_NEAR(m_view->measured()[i], level, 1e-3);
    }
    QVERIFY(m_view->largestDifference() < 0.001);
    QVERIFY2(m_view->verdict().startsWith(QLatin1String("Largest difference: ")) &&
                 m_view->verdict().contains(QLatin1String(" 0.000")),
             qPrintable(m_view->verdict()));
    QCOMPARE(m_view->accessibleDescription(), m_view->verdict());
}

void tst_ResponseView::pointsArePainted()
{
    set(7, 100); // +10 dB at the middle band's 20 Hz * 10^(raw / 400)
    set(6, 800);
    show();
    const QImage picture = m_view->grab().toImage();
    const double peak = 20.0 * std::pow(2.0, 6.6); // the point next to 2 kHz
    QVERIFY(isWhite(picture, peak, 9.98));
    QVERIFY(!isWhite(picture, peak, 5.0));
    QVERIFY(isWhite(picture, 20.0 * 4.0, 0.02));
}

// Beside the verdict there is always some bare panel, of one colour in each line.
void tst_ResponseView::legendLeavesTheVerdictAlone()
{
    for (int width = m_view->minimumWidth(); width < 700; width += 10) {
        m_view->resize(width, ResponseView::viewHeight);
        show();
        QFont font = m_view->font();
        font.setPixelSize(11);
        const int verdict = QFontMetrics(font).horizontalAdvance(m_view->verdict());
        const QImage picture = m_view->grab().toImage();
        for (int y = 4; y < 26; ++y) {
            for (int x = width - 16 - verdict - 12; x < width - 16 - verdict - 2; ++x)
                QCOMPARE(picture.pixel(x, y), picture.pixel(2, y));
        }
    }
}

void tst_ResponseView::boostsAreInThePicture()
{
    set(7, 100);
    show();
    const QImage small = m_view->grab().toImage();
    set(7, 200);
    QTRY_VERIFY(m_view->measured() != std::vector<double>());
    QTRY_VERIFY(*std::max_element(m_view->measured().begin(), m_view->measured().end()) > 19.0);
    QVERIFY(m_view->grab().toImage() != small);
    for (const std::size_t gain : {7, 11, 15, 19})
        set(gain, 200);
    QTRY_VERIFY(*std::max_element(m_view->measured().begin(), m_view->measured().end()) > 24.0);
    QVERIFY(!m_view->grab().isNull());
}

void tst_ResponseView::writesAreFollowed()
{
    show();
    QCOMPARE(m_view->largestDifference() < 0.001, true);
    const std::vector<double> flat = m_view->measured();
    set(7, 60);
    QTRY_VERIFY(m_view->measured() != flat);
    const std::vector<double> drawn = m_view->drawn();
    COMPARE_NEAR(*std::max_element(drawn.begin(), drawn.end()), 6.0, 0.05);
    QVERIFY(m_view->largestDifference() < 0.001);
}

void tst_ResponseView::otherChannelsAreNotMeasured()
{
    show();
    const std::vector<double> flat = m_view->measured();
    HostMemory::Values values = m_memory->values(5);
    values[6] = 100;
    m_memory->write(5, values);
    QTest::qWait(100);
    QCOMPARE(m_view->measured(), flat);
}

void tst_ResponseView::measuresNothingWhileHidden()
{
    set(7, 60);
    QTest::qWait(100);
    QVERIFY(m_view->measured().empty());
    QCOMPARE(m_view->largestDifference(), 0.0);
    show();
    QVERIFY(m_view->measured().size() > 90);
    m_view->hide();
    const std::vector<double> before = m_view->measured();
    set(7, -60);
    QTest::qWait(100);
    QCOMPARE(m_view->measured(), before);
}

// The pair's first channel has the switch. The curve stays, the sound is flat.
void tst_ResponseView::equalizerOffIsHeard()
{
    set(7, 120);
    show();
    m_memory->setStrip(channel, StripParameter::EqualizerOn, 0);
    QTRY_COMPARE(m_view->measured(), std::vector<double>(m_view->frequencies().size(), 0.0));
    QVERIFY(m_view->largestDifference() > 11.0);
    QCOMPARE(m_view->verdict(), QStringLiteral("The equalizer is off"));
}

void tst_ResponseView::levelsAndDriveAreLeftOut()
{
    show();
    const std::vector<double> flat = m_view->measured();
    set(25, 60);
    set(26, -100);
    set(27, 1);
    QTest::qWait(100);
    QCOMPARE(m_view->measured(), flat);
}

ZOLTA_TEST_MAIN(tst_ResponseView)
#include "tst_ResponseView.moc"
