// SPDX-License-Identifier: GPL-3.0-or-later
#include "equalizer/PlotAxes.h"
#include "host/model/MixerModel.h"
#include "host/window/ResponseView.h"
#include "tests/support/TestObject.h"

#include <QApplication>

using namespace Qt::StringLiterals;

class tst_ResponseView : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void pointsArePainted();
    void legendLeavesTheVerdictAlone();
    void boostsAreInThePicture();
    void writesAreFollowed();
    void otherChannelsAreNotMeasured();
    void measuresNothingWhileHidden();
    void equalizerOffIsHeard();
    void sampleRateIsFollowed();

private:
    void set(std::size_t number, int value)
    {
        HostMemory::Values values = m_memory->values(channel);
        values[number - 1] = value;
        m_memory->write(channel, values);
    }
    void show();
    QImage picture() const { return m_view->grab().toImage(); }
    QString verdict() const { return m_view->accessibleDescription(); }
    bool isWhite(const QImage& picture, double frequency, double level, double range = 12.0) const;

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
    m_view = std::make_unique<ResponseView>(*m_mixerModel, channel, nullptr, 0);
    m_view->resize(700, ResponseView::viewHeight);
}

void tst_ResponseView::show()
{
    m_view->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_view.get()));
}

// Below the legend the view is as the editors' plots are.
bool tst_ResponseView::isWhite(const QImage& picture, double frequency, double level,
                               double range) const
{
    constexpr int legend = 30;
    const PlotAxes axes(m_view->width(), m_view->height() - legend, range);
    const QPoint point(static_cast<int>(axes.x(frequency)),
                       static_cast<int>(axes.y(level)) + legend);
    return qGray(picture.pixel(point)) > 240;
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
        const int advance = QFontMetrics(font).horizontalAdvance(verdict());
        const QImage picture = m_view->grab().toImage();
        for (int y = 4; y < 26; ++y) {
            for (int x = width - 16 - advance - 12; x < width - 16 - advance - 2; ++x)
                QCOMPARE(picture.pixel(x, y), picture.pixel(2, y));
        }
    }
}

void tst_ResponseView::boostsAreInThePicture()
{
    set(6, 800);
    show();
    const double peak = 20.0 * std::pow(2.0, 6.6);
    for (const auto& [gain, range] : {std::pair{100, 12.0}, {200, 24.0}}) {
        set(7, gain);
        QTRY_VERIFY(isWhite(picture(), peak, gain / 10.0 - 0.02, range));
    }
    for (const std::size_t frequency : {10, 14, 18})
        set(frequency, 800);
    for (const std::size_t gain : {11, 15, 19})
        set(gain, 100);
    QTRY_VERIFY(isWhite(picture(), 40.0, 0.1, 48.0));
}

void tst_ResponseView::writesAreFollowed()
{
    set(6, 800);
    show();
    const double peak = 20.0 * std::pow(2.0, 6.6);
    QVERIFY(isWhite(picture(), peak, 0.0));
    set(7, 60);
    QTRY_VERIFY(isWhite(picture(), peak, 5.98));
    QVERIFY2(verdict().startsWith("Largest difference: "_L1) && verdict().contains(" 0.000"_L1),
             qPrintable(verdict()));
}

void tst_ResponseView::otherChannelsAreNotMeasured()
{
    show();
    const QImage flat = picture();
    HostMemory::Values values = m_memory->values(5);
    values[6] = 100;
    m_memory->write(5, values);
    QCoreApplication::processEvents();
    QCOMPARE(picture(), flat);
}

void tst_ResponseView::measuresNothingWhileHidden()
{
    set(7, 60);
    QCoreApplication::processEvents();
    QCOMPARE(verdict(), QString());
    show();
    QVERIFY(!verdict().isEmpty());
    const QImage before = picture();
    m_view->hide();
    set(7, -60);
    QCoreApplication::processEvents();
    QCOMPARE(picture(), before);
    show();
    QVERIFY(picture() != before);
}

// The pair's first channel has the switch. The curve stays, the sound is flat.
void tst_ResponseView::equalizerOffIsHeard()
{
    set(6, 800);
    set(7, 100);
    show();
    m_memory->setStrip(channel, StripParameter::EqualizerOn, 0);
    QTRY_COMPARE(verdict(), u"The equalizer is off"_s);
    QVERIFY(isWhite(picture(), 20.0 * std::pow(2.0, 6.6), 0.0));
}

void tst_ResponseView::sampleRateIsFollowed()
{
    set(7, 100);
    show();
    const QImage before = picture();
    m_view->setSampleRate(8000);
    QVERIFY(picture() != before);
}

ZOLTA_TEST_MAIN(tst_ResponseView)
#include "tst_ResponseView.moc"
