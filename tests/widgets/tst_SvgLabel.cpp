// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/TestObject.h"
#include "tests/widgets/SvgFiles.h"
#include "widgets/SvgLabel.h"

#include <QApplication>
#include <QPainter>
#include <QSvgRenderer>

namespace {

/// A label of 30 by 20 over a white ground that it does not paint itself.
QImage shown(QWidget& label)
{
    QImage image(label.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    label.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

/// Counts the paint events that reach a widget.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget& widget) { widget.installEventFilter(this); }

    /// The events since the last question.
    int take()
    {
        QCoreApplication::processEvents();
        return std::exchange(m_count, 0);
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        m_count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

private:
    int m_count = 0;
};

const QColor Red(255, 0, 0);
const QColor Blue(0, 0, 255);

} // namespace

class tst_SvgLabel : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void isEmptyAtFirst();
    void stretchesThePicture();
    void disabledWithoutADisabledImageKeepsTheNormalOne();
    void disabledShowsTheDisabledImage();
    void aDisabledImageAloneShowsNothing();
    void theSamePathLoadsOnce();
    void aBadPathLeavesTheLabelBlank();
    void opacity_data();
    void opacity();
    void textGoesOnTop();
    void repaintsWhenSomethingChanges();
    void animatedPicturesRepaint();

private:
    SvgFiles m_files;
    QString m_red;
    QString m_blue;
};

void tst_SvgLabel::initTestCase()
{
    m_red = m_files.plain("red.svg", 10, 10, "#ff0000");
    m_blue = m_files.plain("blue.svg", 10, 10, "#0000ff");
}

void tst_SvgLabel::isEmptyAtFirst()
{
    SvgLabel label;
    label.resize(30, 20);
    QCOMPARE(label.svg(), QString());
    QCOMPARE(label.disableSvg(), QString());
    QCOMPARE(label.opacity(), 1.0);
    QVERIFY(!label.windowFlags().testFlag(Qt::FramelessWindowHint));
    QCOMPARE(shown(label).pixelColor(15, 10), QColor(Qt::white));
}

void tst_SvgLabel::stretchesThePicture()
{
    const QString circle =
        m_files.picture("circle.svg", 10, 10, "<circle cx=\"5\" cy=\"5\" r=\"5\"/>");
    SvgLabel label;
    label.resize(30, 20);
    label.setSvg(circle);
    QImage wanted(30, 20, QImage::Format_ARGB32_Premultiplied);
    wanted.fill(Qt::white);
    QPainter painter(&wanted);
    QSvgRenderer(circle).render(&painter, QRectF(0, 0, 30, 20));
    painter.end();
    QCOMPARE(shown(label), wanted);
}

void tst_SvgLabel::disabledWithoutADisabledImageKeepsTheNormalOne()
{
    SvgLabel label;
    label.resize(30, 20);
    label.setSvg(m_red);
    label.setEnabled(false);
    QCOMPARE(shown(label).pixelColor(15, 10), Red);
    label.setDisableSvg(m_files.missing());
    QCOMPARE(shown(label).pixelColor(15, 10), Red);
}

void tst_SvgLabel::disabledShowsTheDisabledImage()
{
    SvgLabel label;
    label.resize(30, 20);
    label.setSvg(m_red);
    label.setDisableSvg(m_blue);
    QCOMPARE(shown(label).pixelColor(15, 10), Red);
    label.setEnabled(false);
    QCOMPARE(shown(label).pixelColor(15, 10), Blue);
    label.setEnabled(true);
    QCOMPARE(shown(label).pixelColor(15, 10), Red);
}

void tst_SvgLabel::aDisabledImageAloneShowsNothing()
{
    SvgLabel label;
    label.resize(30, 20);
    label.setDisableSvg(m_blue);
    label.setEnabled(false);
    QCOMPARE(shown(label).pixelColor(15, 10), QColor(Qt::white));
}

void tst_SvgLabel::theSamePathLoadsOnce()
{
    const QString path = m_files.plain("once.svg", 10, 10, "#ff0000");
    SvgLabel label;
    label.resize(30, 20);
    label.setSvg(path);
    m_files.plain("once.svg", 10, 10, "#0000ff");
    label.setSvg(path);
    QCOMPARE(shown(label).pixelColor(15, 10), Red);
    label.setSvg(QString());
    label.setSvg(path);
    QCOMPARE(shown(label).pixelColor(15, 10), Blue);
}

void tst_SvgLabel::aBadPathLeavesTheLabelBlank()
{
    SvgLabel label;
    label.resize(30, 20);
    label.setSvg(m_red);
    label.setSvg(m_files.file("broken.svg", "<svg"));
    QCOMPARE(shown(label).pixelColor(15, 10), QColor(Qt::white));
    QVERIFY(label.svg().endsWith(QStringLiteral("broken.svg")));
    label.setSvg(m_red);
    QCOMPARE(shown(label).pixelColor(15, 10), Red);
}

void tst_SvgLabel::opacity_data()
{
    QTest::addColumn<double>("opacity");
    QTest::addColumn<int>("green");
    QTest::newRow("none") << 0.0 << 255;
    QTest::newRow("quarter") << 0.25 << 191;
    QTest::newRow("all") << 1.0 << 0;
    QTest::newRow("below") << -3.0 << 255;
    QTest::newRow("above") << 2.0 << 0;
}

void tst_SvgLabel::opacity()
{
    QFETCH(double, opacity);
    QFETCH(int, green);
    SvgLabel label;
    label.resize(30, 20);
    label.setSvg(m_red);
    label.setOpacity(opacity);
    QCOMPARE(label.opacity(), opacity);
    const QColor seen = shown(label).pixelColor(15, 10);
    QCOMPARE(seen.red(), 255);
    QVERIFY(std::abs(seen.green() - green) <= 1);
}

void tst_SvgLabel::textGoesOnTop()
{
    SvgLabel label;
    label.resize(30, 20);
    label.setSvg(m_red);
    label.setOpacity(0.5);
    QPixmap mark(4, 4);
    mark.fill(Qt::black);
    label.setPixmap(mark);
    label.setAlignment(Qt::AlignLeft | Qt::AlignTop);
    const QImage image = shown(label);
    QCOMPARE(image.pixelColor(1, 1), QColor(Qt::black));
    QVERIFY(image.pixelColor(20, 10) != QColor(Qt::black));
}

void tst_SvgLabel::repaintsWhenSomethingChanges()
{
    SvgLabel label;
    label.resize(30, 20);
    label.show();
    QVERIFY(QTest::qWaitForWindowExposed(&label));
    PaintCounter paints(label);
    paints.take();

    label.setSvg(m_red);
    QCOMPARE(paints.take(), 1);
    label.setSvg(m_red);
    QCOMPARE(paints.take(), 0);
    label.setDisableSvg(m_blue);
    QCOMPARE(paints.take(), 1);
    label.setOpacity(0.5);
    QCOMPARE(paints.take(), 1);
    label.setOpacity(0.5);
    QCOMPARE(paints.take(), 0);
    label.setEnabled(false);
    QCOMPARE(paints.take(), 1);
}

void tst_SvgLabel::animatedPicturesRepaint()
{
    SvgLabel label;
    label.resize(30, 20);
    label.setSvg(m_files.picture(
        "animated.svg", 10, 10,
        "<rect width=\"10\" height=\"10\"><animateColor attributeName=\"fill\" from=\"#ff0000\" "
        "to=\"#0000ff\" dur=\"1s\" repeatCount=\"indefinite\"/></rect>"));
    label.show();
    QVERIFY(QTest::qWaitForWindowExposed(&label));
    PaintCounter paints(label);
    paints.take();
    int count = 0;
    QTRY_VERIFY((count += paints.take()) >= 2);
}

ZOLTA_TEST_MAIN(tst_SvgLabel)

#include "tst_SvgLabel.moc"
