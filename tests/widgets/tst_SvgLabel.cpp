// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/DataTable.h"
#include "tests/support/TestObject.h"
#include "tests/widgets/SvgFiles.h"
#include "widgets/SvgLabel.h"

#include <QApplication>
#include <QGraphicsOpacityEffect>
#include <QPainter>
#include <QSvgRenderer>

#include <cmath>
#include <functional>

namespace {

/// A label of 30 by 20 over a white ground that it does not paint itself.
class Label : public SvgLabel
{
public:
    explicit Label(const QString& path = {})
    {
        resize(30, 20);
        setSvg(path);
    }

    QImage shown()
    {
        QImage image(size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
        return image;
    }
    QColor colour() { return shown().pixelColor(15, 10); }
};

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

/// A blue window that a label fills.
class Ground : public QWidget
{
public:
    explicit Ground(const QString& picture)
    {
        resize(31, 21);
        label.resize(size());
        label.setSvg(picture);
        label.setHidesGround(true);
        show();
        QCoreApplication::processEvents();
    }

    /// Whether anything of it is painted when the label is.
    bool isPainted()
    {
        m_isPainted = false;
        label.repaint();
        return m_isPainted;
    }
    QColor colour()
    {
        const QImage image = grab().toImage();
        return image.pixelColor(image.rect().center());
    }

    SvgLabel label{this};

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter(this).fillRect(rect(), Blue);
        m_isPainted = true;
    }

private:
    bool m_isPainted = false;
};

} // namespace

class tst_SvgLabel : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void isEmptyAtFirst();
    void stretchesThePicture();
    void showsOneOfItsPictures_data();
    void showsOneOfItsPictures();
    void theSamePathLoadsOnce();
    void aBadPathLeavesTheLabelBlank();
    void opacity_data();
    void opacity();
    void textGoesOnTop();
    void repaintsWhenSomethingChanges();
    void animatedPicturesRepaint();
    void theGroundIsNotPaintedWhileItIsHidden();
    void theGroundIsPaintedUnlessAskedNotTo();
    void theGroundComesBack_data();
    void theGroundComesBack();

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
    const SvgLabel label;
    QCOMPARE(label.svg(), QString());
    QCOMPARE(label.disableSvg(), QString());
    QCOMPARE(label.opacity(), 1.0);
    QVERIFY(!label.windowFlags().testFlag(Qt::FramelessWindowHint));
}

void tst_SvgLabel::stretchesThePicture()
{
    const QString circle =
        m_files.picture("circle.svg", 10, 10, "<circle cx=\"5\" cy=\"5\" r=\"5\"/>");
    Label label(circle);
    QImage wanted(30, 20, QImage::Format_ARGB32_Premultiplied);
    wanted.fill(Qt::white);
    QPainter painter(&wanted);
    QSvgRenderer(circle).render(&painter, QRectF(0, 0, 30, 20));
    painter.end();
    QCOMPARE(label.shown(), wanted);
}

void tst_SvgLabel::showsOneOfItsPictures_data()
{
    addColumns<QString, QString, QColor, QColor>("svg", "disableSvg", "enabled", "disabled");
    const QColor none = Qt::white;
    QTest::newRow("neither") << QString() << QString() << none << none;
    QTest::newRow("no disabled image") << m_red << QString() << Red << Red;
    QTest::newRow("a bad disabled image") << m_red << m_files.missing() << Red << Red;
    QTest::newRow("both") << m_red << m_blue << Red << Blue;
    QTest::newRow("a disabled image alone") << QString() << m_blue << none << none;
}

void tst_SvgLabel::showsOneOfItsPictures()
{
    QFETCH(QString, svg);
    QFETCH(QString, disableSvg);
    Label label;
    label.setSvg(svg);
    label.setDisableSvg(disableSvg);
    QTEST(label.colour(), "enabled");
    label.setEnabled(false);
    QTEST(label.colour(), "disabled");
    label.setEnabled(true);
    QTEST(label.colour(), "enabled");
}

void tst_SvgLabel::theSamePathLoadsOnce()
{
    const QString path = m_files.plain("once.svg", 10, 10, "#ff0000");
    Label label(path);
    m_files.plain("once.svg", 10, 10, "#0000ff");
    label.setSvg(path);
    QCOMPARE(label.colour(), Red);
    label.setSvg(QString());
    label.setSvg(path);
    QCOMPARE(label.colour(), Blue);
}

void tst_SvgLabel::aBadPathLeavesTheLabelBlank()
{
    Label label(m_red);
    label.setSvg(m_files.file("broken.svg", "<svg"));
    QCOMPARE(label.colour(), QColor(Qt::white));
    QVERIFY(label.svg().endsWith(QStringLiteral("broken.svg")));
    label.setSvg(m_red);
    QCOMPARE(label.colour(), Red);
}

void tst_SvgLabel::opacity_data()
{
    addColumns<double, int>("opacity", "green");
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
    Label label(m_red);
    label.setOpacity(opacity);
    QCOMPARE(label.opacity(), opacity);
    const QColor seen = label.colour();
    QCOMPARE(seen.red(), 255);
    QVERIFY(std::abs(seen.green() - green) <= 1);
}

void tst_SvgLabel::textGoesOnTop()
{
    Label label(m_red);
    label.setOpacity(0.5);
    QPixmap mark(4, 4);
    mark.fill(Qt::black);
    label.setPixmap(mark);
    label.setAlignment(Qt::AlignLeft | Qt::AlignTop);
    const QImage image = label.shown();
    QCOMPARE(image.pixelColor(1, 1), QColor(Qt::black));
    QVERIFY(image.pixelColor(20, 10) != QColor(Qt::black));
}

void tst_SvgLabel::repaintsWhenSomethingChanges()
{
    Label label;
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
    Label label;
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

void tst_SvgLabel::theGroundIsNotPaintedWhileItIsHidden()
{
    Ground ground(m_red);
    const double ratio = ground.devicePixelRatioF();
    const bool isCutThrough = ratio != std::floor(ratio); // a pixel at its edge shows both
    QCOMPARE(ground.isPainted(), isCutThrough);
    QCOMPARE(ground.colour(), Red);

    ground.resize(60, 40);
    ground.label.resize(60, 40);
    QVERIFY(ground.isPainted()); // the picture at this size has not been seen yet
    QCOMPARE(ground.isPainted(), isCutThrough);
    QCOMPARE(ground.colour(), Red);
}

void tst_SvgLabel::theGroundIsPaintedUnlessAskedNotTo()
{
    Ground ground(m_red);
    ground.label.setHidesGround(false);
    QVERIFY(ground.isPainted());
    QVERIFY(ground.isPainted());
}

void tst_SvgLabel::theGroundComesBack_data()
{
    using Change = std::function<void(SvgLabel&)>;
    const QString glass = m_files.picture(
        "glass.svg", 10, 10, R"(<rect width="10" height="10" fill="red" fill-opacity="0.5"/>)");
    const QString half =
        m_files.picture("half.svg", 10, 10, R"(<rect width="4" height="10" fill="red"/>)");

    QTest::addColumn<Change>("change");
    QTest::newRow("opacity") << Change([](SvgLabel& label) { label.setOpacity(0.5); });
    QTest::newRow("a translucent picture") << Change([=](SvgLabel& label) { label.setSvg(glass); });
    QTest::newRow("a picture with a hole") << Change([=](SvgLabel& label) { label.setSvg(half); });
    QTest::newRow("no picture") << Change([](SvgLabel& label) { label.setSvg({}); });
    QTest::newRow("disabled, translucent") << Change([=](SvgLabel& label) {
        label.setDisableSvg(glass);
        label.setEnabled(false);
    });
    QTest::newRow("hidden") << Change([](SvgLabel& label) { label.hide(); });
    QTest::newRow("effect") << Change([](SvgLabel& label) {
        auto* effect = new QGraphicsOpacityEffect(&label);
        effect->setOpacity(0.5);
        label.setGraphicsEffect(effect);
    });
}

void tst_SvgLabel::theGroundComesBack()
{
    QFETCH(std::function<void(SvgLabel&)>, change);
    Ground ground(m_red);
    ground.isPainted();

    change(ground.label);
    QVERIFY2(ground.colour().blue() > 100, qPrintable(ground.colour().name()));
    QCoreApplication::processEvents();
    if (ground.label.isVisible())
        QVERIFY(ground.isPainted());
}

ZOLTA_TEST_MAIN(tst_SvgLabel)

#include "tst_SvgLabel.moc"
