// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/DataTable.h"
#include "tests/support/ImageDifference.h"
#include "tests/support/TestObject.h"
#include "tests/widgets/SvgFiles.h"
#include "widgets/SvgDocument.h"
#include "widgets/SvgImage.h"
#include "widgets/SvgRasters.h"

#include <QApplication>
#include <QGraphicsBlurEffect>
#include <QGraphicsOpacityEffect>
#include <QGraphicsPixmapItem>
#include <QGraphicsScene>
#include <QPainter>
#include <QSignalBlocker>
#include <QSignalSpy>
#include <QSvgRenderer>
#include <QWidget>

#include <cmath>
#include <functional>

namespace {

// A knob as the editor's are made: gradients, a shadow of stacked translucent shapes, lines.
constexpr char Knob[] =
    "<defs><linearGradient id=\"g\" x1=\"0\" y1=\"0\" x2=\"0\" y2=\"1\">"
    "<stop offset=\"0\" stop-color=\"#8a9199\"/><stop offset=\"1\" stop-color=\"#1b1e22\"/>"
    "</linearGradient><radialGradient id=\"r\" cx=\"0.5\" cy=\"0.5\" r=\"0.5\">"
    "<stop offset=\"0\" stop-color=\"#000\" stop-opacity=\"0.6\"/>"
    "<stop offset=\"1\" stop-color=\"#000\" stop-opacity=\"0\"/></radialGradient></defs>"
    "<circle cx=\"20\" cy=\"22\" r=\"18\" fill=\"url(#r)\"/>"
    "<circle cx=\"20\" cy=\"20\" r=\"14\" fill=\"url(#g)\" stroke=\"#3b4047\"/>"
    "<path d=\"M20 8 L20 16\" stroke=\"#0394D0\" stroke-width=\"2\" stroke-linecap=\"round\"/>"
    "<path d=\"M9 33 L31 33\" stroke=\"#fff\" stroke-opacity=\"0.4\" stroke-width=\"0.7\"/>";

// Draws over its own edges on all sides.
constexpr char Overflowing[] =
    "<rect x=\"0\" y=\"0\" width=\"40\" height=\"40\" fill=\"#ED6B1C\" stroke=\"#11B519\" "
    "stroke-width=\"9\"/><circle cx=\"44\" cy=\"20\" r=\"10\" fill=\"#14A8AD\"/>";

constexpr char Shapes[] =
    "<rect x=\"3\" y=\"3\" width=\"22.5\" height=\"30.2\" rx=\"4\" fill=\"#FEBA24\"/>"
    "<path d=\"M5 35 C 10 2, 30 60, 37 4\" fill=\"none\" stroke=\"#9519D0\" stroke-width=\"3\"/>";

// No two shapes share a pixel.
constexpr char Apart[] =
    "<path d=\"M2 2 L19 5 L8 30 Z\" fill=\"#FEBA24\"/>"
    "<circle cx=\"30\" cy=\"24\" r=\"8.3\" fill=\"#9519D0\" fill-opacity=\"0.6\"/>"
    "<path d=\"M4 37.5 L36 37.5\" stroke=\"#fff\" stroke-width=\"0.7\"/>";

constexpr char Animated[] =
    "<rect width=\"40\" height=\"40\" fill=\"#ff0000\">"
    "<animateColor attributeName=\"fill\" from=\"#ff0000\" to=\"#0000ff\" dur=\"1s\" "
    "repeatCount=\"indefinite\"/></rect>";

using Drawing = std::function<void(QPainter&)>;
/// What a painter is set up for before it draws.
using Stage = std::function<void(QPainter&, const Drawing&)>;

/// An image of a good file.
class Loaded : public SvgImage
{
public:
    explicit Loaded(const QString& file)
    {
        load(file);
        if (!isValid())
            qFatal("cannot load %s", qPrintable(file));
    }
};

QImage drawn(const QSize& size, double ratio, QColor ground, const Drawing& drawing)
{
    QImage image(size * ratio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(ground);
    QPainter painter(&image);
    drawing(painter);
    return image;
}

/// How many shapes of a picture lie over another one.
int overlaps(const QByteArray& name)
{
    return QHash<QByteArray, int>{{"shapes", 1}, {"overflowing", 2}, {"knob", 3}}.value(name);
}

/// Exchanges the picture under the loaded document, without a word: what is rendered from now on
/// shows \a other, what is drawn from memory does not.
void exchangeSilently(const QString& file, const QString& other)
{
    QSvgRenderer& renderer = SvgDocument::load(file)->renderer();
    const QSignalBlocker blocker(renderer);
    renderer.load(other);
}

using Look = std::function<void(SvgImage&, QPainter&)>;

/// The ways to draw a picture so that (20, 20) shows it.
QHash<QString, Look> looks()
{
    const QRectF rect(3.25, 4, 40, 40);
    const QRect canvas(0, 0, 60, 60);
    return {
        {QStringLiteral("plain"), [=](SvgImage& i, QPainter& p) { i.draw(p, rect); }},
        {QStringLiteral("turned"),
         [=](SvgImage& i, QPainter& p) { i.drawTurned(p, rect, 30.0, 1.0, canvas); }},
        {QStringLiteral("blurred"),
         [=](SvgImage& i, QPainter& p) { i.drawBlurred(p, rect, 2.0, canvas); }},
        {QStringLiteral("translucent"),
         [=](SvgImage& i, QPainter& p) { i.drawTranslucent(p, rect, 0.9, canvas); }},
    };
}

/// \a pixels as an effect shows them, whatever their ratio.
QImage throughEffect(QImage pixels, QGraphicsEffect* effect)
{
    pixels.setDevicePixelRatio(1.0);
    QGraphicsScene scene;
    scene.addPixmap(QPixmap::fromImage(pixels))->setGraphicsEffect(effect);
    return drawn(pixels.size(), 1.0, Qt::transparent,
                 [&](QPainter& painter) { scene.render(&painter, pixels.rect(), pixels.rect()); });
}

/// Makes a new effect for each scene.
using Effect = std::function<QGraphicsEffect*()>;

Effect blurEffect(double radius)
{
    return [radius] {
        auto* effect = new QGraphicsBlurEffect;
        effect->setBlurRadius(radius);
        return effect;
    };
}

Effect opacityEffect(double opacity)
{
    return [opacity] {
        auto* effect = new QGraphicsOpacityEffect;
        effect->setOpacity(opacity);
        return effect;
    };
}

/// Paints one image over itself.
class Canvas : public QWidget
{
public:
    explicit Canvas(SvgImage& image, QWidget* parent = nullptr)
        : QWidget(parent)
        , m_image(image)
    {}

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        m_image.draw(painter, rect());
    }

private:
    SvgImage& m_image;
};

} // namespace

Q_DECLARE_METATYPE(Look)

class tst_SvgImage : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void isEmptyAtFirst();
    void loadsAFile();
    void badFilesAreBlankAndSilent_data();
    void badFilesAreBlankAndSilent();
    void equalsDirectRendering_data();
    void equalsDirectRendering();
    void equalsDirectRenderingByAnyPainter_data();
    void equalsDirectRenderingByAnyPainter();
    void equalsDirectRenderingInChildWidgets_data();
    void equalsDirectRenderingInChildWidgets();
    void leavesThePainterAsItWas();
    void drawsBeyondItsEdges();
    void drawsFromMemoryWhatWasDrawnBefore_data();
    void drawsFromMemoryWhatWasDrawnBefore();
    void rastersGoWithTheFile_data();
    void rastersGoWithTheFile();
    void memoryIsBounded();
    void hugePicturesAreRenderedDirectly();
    void turnsOnItsCanvasOnly();
    void looksAsThroughAnEffect_data();
    void looksAsThroughAnEffect();
    void blurIsCutAtTheCanvas();
    void translucencyLimits();
    void wildNumbersDrawNothingBad();
    void animationRunsInEveryLook_data();
    void animationRunsInEveryLook();

private:
    QString path(const QString& name) const;
    Drawing direct(const QString& name, const QRectF& rect) const;

    SvgFiles m_files;
};

QString tst_SvgImage::path(const QString& name) const
{
    return m_files.directory() + QLatin1Char('/') + name + QStringLiteral(".svg");
}

Drawing tst_SvgImage::direct(const QString& name, const QRectF& rect) const
{
    return
        [file = path(name), rect](QPainter& painter) { QSvgRenderer(file).render(&painter, rect); };
}

void tst_SvgImage::initTestCase()
{
    m_files.picture("knob.svg", 40, 40, Knob);
    m_files.picture("overflowing.svg", 40, 40, Overflowing);
    m_files.picture("shapes.svg", 40, 40, Shapes);
    m_files.picture("animated.svg", 40, 40, Animated);
    m_files.picture("apart.svg", 40, 40, Apart);
    m_files.plain("plain.svg", 40, 40, "#0394D0");
}

void tst_SvgImage::isEmptyAtFirst()
{
    const SvgImage image;
    QVERIFY(!image.isValid());
    QCOMPARE(image.path(), QString());
    QCOMPARE(image.defaultSize(), QSize(0, 0));
}

void tst_SvgImage::loadsAFile()
{
    SvgImage image;
    QSignalSpy repaints(&image, &SvgImage::repaintNeeded);
    image.load(path(QStringLiteral("knob")));
    QVERIFY(image.isValid());
    QVERIFY(image.isValid());
    QCOMPARE(image.path(), path(QStringLiteral("knob")));
    QCOMPARE(image.defaultSize(), QSize(40, 40));
    QCOMPARE(repaints.count(), 1);
}

void tst_SvgImage::badFilesAreBlankAndSilent_data()
{
    QTest::addColumn<QString>("bad");
    const QByteArray start = "<svg xmlns=\"http://www.w3.org/2000/svg\">";
    QTest::newRow("empty path") << QString();
    QTest::newRow("missing file") << m_files.missing();
    QTest::newRow("missing resource") << ":/image/none.svg";
    QTest::newRow("directory") << m_files.directory();
    QTest::newRow("empty file") << m_files.file("empty.svg", {});
    QTest::newRow("not XML") << m_files.file("text.svg", "no picture at all");
    QTest::newRow("other XML") << m_files.file("other.svg", "<html><body/></html>");
    QTest::newRow("cut short") << m_files.file("cut.svg", start + "<rect");
    QTest::newRow("wrong end") << m_files.file("end.svg", start + "<g></svg>");
    QTest::newRow("zero bytes") << m_files.file("zero.svg", QByteArray(300, '\0'));
}

void tst_SvgImage::badFilesAreBlankAndSilent()
{
    QFETCH(QString, bad);
    Loaded image(path(QStringLiteral("knob")));
    image.load(bad);
    QVERIFY(!image.isValid());
    QVERIFY(!image.isValid());
    QCOMPARE(image.path(), bad);
    QCOMPARE(image.defaultSize(), QSize(0, 0));
    const QImage blank = drawn({20, 20}, 1.0, Qt::white, [](QPainter&) {});
    const auto all = [&](QPainter& painter) {
        for (const Look& look : looks())
            look(image, painter);
    };
    QCOMPARE(drawn({20, 20}, 1.0, Qt::white, all), blank);
    image.load(path(QStringLiteral("knob")));
    QVERIFY(image.isValid());
}

void tst_SvgImage::equalsDirectRendering_data()
{
    addColumns<QString, double, QRectF>("name", "ratio", "rect");
    // Every shape's edge blends with rounding. The raster blends the shapes with each other first
    // and with the ground last, so each shape over another's edge can round once differently.
    // Within a single pixel, all shapes meet.
    QTest::addColumn<int>("tolerance");
    const QRectF rects[] = {{10, 10, 40, 40},        {0, 0, 60, 60},
                            {7.3, 11.8, 33.3, 41.7}, {10.5, 10.25, 40, 40},
                            {-12, 20, 50, 44},       {1.0 / 3, 2.0 / 3, 20, 55},
                            {20, 20, 0.5, 0.5},      {-100, -100, 300, 300}};
    for (const double ratio : {1.0, 1.25, 1.5, 2.0}) {
        for (const char* name : {"plain", "apart", "shapes", "overflowing", "knob"}) {
            for (const QRectF& rect : rects)
                QTest::addRow("%s at %g, %g+%g", name, ratio, rect.x(), rect.width())
                    << QString::fromLatin1(name) << ratio << rect
                    << (rect.width() < 1.0 ? 3 : overlaps(name));
        }
    }
}

void tst_SvgImage::equalsDirectRendering()
{
    QFETCH(QString, name);
    QFETCH(double, ratio);
    QFETCH(QRectF, rect);
    QFETCH(int, tolerance);
    Loaded image(path(name));
    const QImage wanted = drawn({60, 60}, ratio, Qt::gray, direct(name, rect));
    const QImage onWhite = drawn({60, 60}, ratio, Qt::white, direct(name, rect));
    // The inside of an opaque shape, away from its edge, hides the ground and with it all rounding,
    // but for a gradient's.
    const int insideTolerance = name == QLatin1String("knob") ? 1 : 0;
    for (int pass = 0; pass < 2; ++pass) {
        const QImage seen =
            drawn({60, 60}, ratio, Qt::gray, [&](QPainter& painter) { image.draw(painter, rect); });
        QCOMPARE_LE(imageDifference(seen, wanted), tolerance);
        for (int y = 0; y < seen.height(); ++y) {
            for (int x = 0; x < seen.width(); ++x) {
                const QRect around(x - 1, y - 1, 3, 3);
                if (onWhite.copy(around) == wanted.copy(around))
                    QCOMPARE_LE(channelDifference(seen.pixel(x, y), wanted.pixel(x, y)),
                                insideTolerance);
            }
        }
    }
}

void tst_SvgImage::equalsDirectRenderingByAnyPainter_data()
{
    addColumns<QString, double, QColor, Stage, int>("name", "ratio", "ground", "stage",
                                                    "tolerance");
    for (const char* name : {"plain", "apart", "shapes", "overflowing", "knob"}) {
        for (const double opacity : {0.0, 0.1, 0.5, 0.73, 1.0, 2.0})
            QTest::addRow("%s at opacity %g", name, opacity)
                << name << 1.5 << QColor(Qt::gray)
                << Stage([opacity](QPainter& painter, const Drawing& drawing) {
                       painter.setOpacity(opacity);
                       drawing(painter);
                   })
                << std::max(overlaps(name), 1);
        QTest::addRow("%s on a transparent ground", name)
            << name << 1.0 << QColor(Qt::transparent)
            << Stage([](QPainter& painter, const Drawing& drawing) { drawing(painter); }) << 0;
    }
    const auto row = [](const QByteArray& title, const Stage& stage) {
        QTest::newRow(title.constData()) << "apart" << 1.25 << QColor(Qt::gray) << stage << 0;
    };
    row("under clips", [](QPainter& painter, const Drawing& drawing) {
        painter.setClipRect(QRectF(6.5, 7, 22, 40));
        drawing(painter);
        QPainterPath circle;
        circle.addEllipse(10, 8, 30, 25);
        painter.setClipPath(circle);
        painter.translate(1, 2);
        drawing(painter);
    });
    row("in another composition mode", [](QPainter& painter, const Drawing& drawing) {
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        drawing(painter);
    });
    const QTransform middle = QTransform::fromTranslate(30, 30);
    const std::pair<const char*, QTransform> transforms[] = {
        {"shift", QTransform::fromTranslate(3.7, -2.2)},
        {"scale", QTransform::fromScale(0.8, 1.3)},
        {"turn", QTransform(middle).rotate(33).translate(-30, -30)},
        {"quarter turn", QTransform(middle).rotate(90).translate(-30, -30)},
        {"half turn", QTransform(middle).rotate(180).translate(-30, -30)},
        {"mirror", QTransform(-1, 0, 0, 1, 60, 0)},
        {"shear", QTransform().shear(0.3, 0.1)},
        {"perspective", QTransform(1, 0, 0.001, 0, 1, 0.002, 0, 0, 1)},
        {"nothing left", QTransform::fromScale(0, 0)}};
    for (const auto& [title, transform] : transforms) {
        for (const bool isWindowed : {false, true})
            row(QByteArray(title) + (isWindowed ? " in a window" : ""),
                [=](QPainter& painter, const Drawing& drawing) {
                    if (isWindowed) {
                        painter.setWindow(0, 0, 100, 120);
                        painter.setViewport(5, 5, 50, 40);
                    }
                    painter.setTransform(transform);
                    drawing(painter);
                });
    }
}

void tst_SvgImage::equalsDirectRenderingByAnyPainter()
{
    QFETCH(QString, name);
    QFETCH(double, ratio);
    QFETCH(QColor, ground);
    QFETCH(Stage, stage);
    QFETCH(int, tolerance);
    Loaded image(path(name));
    const QRectF rect(5.5, 5, 40, 45);
    const auto staged = [&](const Drawing& drawing) {
        return drawn({60, 60}, ratio, ground, [&](QPainter& p) { stage(p, drawing); });
    };
    const QImage seen = staged([&](QPainter& painter) { image.draw(painter, rect); });
    QCOMPARE_LE(imageDifference(seen, staged(direct(name, rect))), tolerance);
}

void tst_SvgImage::equalsDirectRenderingInChildWidgets_data()
{
    QTest::addColumn<double>("ratio");
    for (const double ratio : {1.0, 1.25, 1.5, 2.0})
        QTest::addRow("%g", ratio) << ratio;
}

void tst_SvgImage::equalsDirectRenderingInChildWidgets()
{
    QFETCH(double, ratio);
    Loaded image(path(QStringLiteral("apart")));
    QWidget window;
    window.resize(80, 80);
    Canvas outer(image, &window);
    outer.setGeometry(7, 9, 61, 55);
    Canvas inner(image, &outer);
    inner.setGeometry(11, 13, 23, 29);

    const QImage seen = drawn({80, 80}, ratio, Qt::gray, [&](QPainter& painter) {
        window.render(&painter, QPoint(), QRegion(), QWidget::DrawChildren);
    });
    const QImage wanted = drawn({80, 80}, ratio, Qt::gray, [&](QPainter& painter) {
        painter.setClipRect(7, 9, 61, 55);
        direct(QStringLiteral("apart"), QRectF(7, 9, 61, 55))(painter);
        painter.setClipRect(18, 22, 23, 29);
        direct(QStringLiteral("apart"), QRectF(18, 22, 23, 29))(painter);
    });
    QCOMPARE(imageDifference(seen, wanted), 0);
}

void tst_SvgImage::leavesThePainterAsItWas()
{
    Loaded image(path(QStringLiteral("knob")));
    drawn({60, 60}, 1.25, Qt::gray, [&](QPainter& painter) {
        painter.setOpacity(0.4);
        painter.translate(3, 4);
        painter.setPen(Qt::red);
        const QTransform before = painter.worldTransform();
        for (const Look& look : looks())
            look(image, painter);
        QCOMPARE(painter.worldTransform(), before);
        QCOMPARE(painter.opacity(), 0.4);
        QCOMPARE(painter.pen().color(), QColor(Qt::red));
    });
}

void tst_SvgImage::drawsBeyondItsEdges()
{
    Loaded image(path(QStringLiteral("overflowing")));
    const QImage seen = drawn({80, 80}, 1.0, Qt::white, [&](QPainter& painter) {
        image.draw(painter, {20, 20, 40, 40});
    });
    QCOMPARE(seen.pixelColor(17, 40), QColor(0x11, 0xb5, 0x19));
    QCOMPARE(seen.pixelColor(72, 40), QColor(0x14, 0xa8, 0xad));
}

void tst_SvgImage::drawsFromMemoryWhatWasDrawnBefore_data()
{
    addColumns<QString, double, Look, bool>("look", "ratio", "again", "isKnown");
    const QRectF rect(3.25, 4, 40, 40);
    const QRect canvas(0, 0, 60, 60);
    const auto row = [](const char* look, const char* variant, bool isKnown, const Look& again,
                        double ratio = 1.0) {
        QTest::addRow("%s, %s", look, variant)
            << QString::fromLatin1(look) << ratio << again << isKnown;
    };
    for (const char* look : {"plain", "turned", "blurred", "translucent"}) {
        const Look same = looks().value(QString::fromLatin1(look));
        row(look, "the same", true, same);
        row(look, "other pixels", false, same, 2.0);
        row(look, "moved by pixels", true, [same](SvgImage& i, QPainter& p) {
            p.setWindow(-6, -8, 60, 60);
            same(i, p);
        });
    }
    row("plain", "within the pixel", false,
        [=](SvgImage& i, QPainter& p) { i.draw(p, rect.translated(0.5, 0)); });
    row("plain", "wider", false,
        [=](SvgImage& i, QPainter& p) { i.draw(p, rect.adjusted(0, 0, 1, 0)); });
    row("plain", "fainter", false, [=](SvgImage& i, QPainter& p) {
        p.setOpacity(0.5);
        i.draw(p, rect);
    });
    row("plain", "turned", false,
        [=](SvgImage& i, QPainter& p) { i.drawTurned(p, rect, 30.0, 1.0, canvas); });
    row("turned", "a whole turn more", true,
        [=](SvgImage& i, QPainter& p) { i.drawTurned(p, rect, 390.0, 1.0, canvas); });
    row("turned", "fainter", true,
        [=](SvgImage& i, QPainter& p) { i.drawTurned(p, rect, 30.0, 0.9, canvas); });
    row("turned", "further", false,
        [=](SvgImage& i, QPainter& p) { i.drawTurned(p, rect, 31.0, 1.0, canvas); });
    row("turned", "on a larger canvas", false, [=](SvgImage& i, QPainter& p) {
        i.drawTurned(p, rect, 30.0, 1.0, {0, 0, 61, 60});
    });
    row("turned", "blurred", false,
        [=](SvgImage& i, QPainter& p) { i.drawBlurred(p, rect, 0.0, canvas); });
    row("blurred", "a little less", false,
        [=](SvgImage& i, QPainter& p) { i.drawBlurred(p, rect, 1.9, canvas); });
    row("blurred", "wider", false,
        [=](SvgImage& i, QPainter& p) { i.drawBlurred(p, rect, 3.0, canvas); });
    row("translucent", "fainter", true,
        [=](SvgImage& i, QPainter& p) { i.drawTranslucent(p, rect, 0.8, canvas); });
}

// A picture that was exchanged behind the images' back shows what they render and what not. The
// second image is another one, which showed another file before.
void tst_SvgImage::drawsFromMemoryWhatWasDrawnBefore()
{
    QFETCH(QString, look);
    QFETCH(double, ratio);
    QFETCH(Look, again);
    QFETCH(bool, isKnown);
    const QByteArray name = QByteArray(QTest::currentDataTag()) + ".svg";
    const QString file = m_files.plain(name, 40, 40, "#ff0000");
    Loaded first(file);
    drawn({60, 60}, 1.0, Qt::white, [&](QPainter& p) { looks().value(look)(first, p); });
    exchangeSilently(file, path(QStringLiteral("plain")));
    Loaded second(path(QStringLiteral("knob")));
    drawn({60, 60}, 1.0, Qt::white, [&](QPainter& p) { looks().value(look)(second, p); });
    second.load(file);
    QVERIFY(second.isValid());
    const QImage seen = drawn({60, 60}, ratio, Qt::white, [&](QPainter& p) { again(second, p); });
    const QColor middle = seen.pixelColor(QPoint(24, 24) * ratio);
    QCOMPARE(middle.red() > middle.blue(), isKnown);
    QVERIFY(middle != QColor(Qt::white));
}

void tst_SvgImage::rastersGoWithTheFile_data()
{
    QTest::addColumn<QString>("look");
    for (const QString& look : looks().keys())
        QTest::newRow(qPrintable(look)) << look;
}

// An image that still shows the file as it was keeps its picture, and so does one that loads it
// after it was written anew, whichever of them draws last.
void tst_SvgImage::rastersGoWithTheFile()
{
    QFETCH(QString, look);
    const QByteArray name = look.toLatin1() + " changing.svg";
    const QString file = m_files.plain(name, 40, 40, "#ff0000");
    const auto isRed = [&](SvgImage& image) {
        const QColor middle = drawn({60, 60}, 1.0, Qt::white, [&](QPainter& p) {
                                  looks().value(look)(image, p);
                              }).pixelColor(24, 24);
        return middle.red() > middle.green();
    };
    Loaded old(file);
    QVERIFY(isRed(old));
    m_files.plain(name, 40, 40, "#00ff00");
    Loaded renewed(file);
    QVERIFY(isRed(old));
    QVERIFY(!isRed(renewed));
    QVERIFY(isRed(old));
    old.load(file);
    QVERIFY(old.isValid());
    QVERIFY(!isRed(old));
}

void tst_SvgImage::memoryIsBounded()
{
    const QString file = m_files.plain("sizes.svg", 40, 40, "#ff0000");
    Loaded image(file);
    QImage ground(8, 8, QImage::Format_ARGB32_Premultiplied);
    const auto isRed = [&](int size) {
        QPainter painter(&ground);
        image.draw(painter, QRectF(0, 0, size, size));
        painter.end();
        return ground.pixelColor(4, 4) == QColor(255, 0, 0);
    };
    for (int size = 1000; size < 1100; ++size)
        QVERIFY(isRed(size));
    exchangeSilently(file, path(QStringLiteral("plain")));
    qsizetype bytes = 0;
    for (int size = 1099; isRed(size); --size)
        bytes += qsizetype{4} * size * size;
    QCOMPARE_GT(bytes, SvgRasters::MaximumBytes / 2);
    QCOMPARE_LE(bytes, SvgRasters::MaximumBytes);
}

void tst_SvgImage::hugePicturesAreRenderedDirectly()
{
    const QString file = m_files.plain("huge.svg", 40, 40, "#ff0000");
    Loaded image(file);
    const auto middle = [&] {
        return drawn({20, 20}, 1.0, Qt::white,
                     [&](QPainter& painter) {
                         image.draw(painter, QRectF(-10000, -10000, 30000, 30000));
                     })
            .pixelColor(10, 10);
    };
    QCOMPARE(middle(), QColor(255, 0, 0));
    exchangeSilently(file, path(QStringLiteral("plain")));
    QCOMPARE(middle(), QColor(0x03, 0x94, 0xd0));
}

void tst_SvgImage::turnsOnItsCanvasOnly()
{
    Loaded image(path(QStringLiteral("plain")));
    const QImage seen = drawn({60, 60}, 1.0, Qt::white, [&](QPainter& painter) {
        image.drawTurned(painter, {10, 10, 40, 40}, 90.0, 1.0, {20, 0, 60, 60});
    });
    QCOMPARE(seen.pixelColor(19, 30), QColor(Qt::white));
    QCOMPARE(seen.pixelColor(20, 30), QColor(0x03, 0x94, 0xd0));
}

void tst_SvgImage::looksAsThroughAnEffect_data()
{
    addColumns<QString, double, Drawing, Effect, Look>("name", "ratio", "untouched", "effect",
                                                       "look");
    const QRect canvas(0, 0, 100, 100);
    const QRectF place(10.5, 12, 40, 33);
    const QRectF centred(-20, -20, 40, 40);
    const QString knob = QStringLiteral("knob");
    const QString shapes = QStringLiteral("shapes");
    for (const double ratio : {1.0, 1.25, 1.5, 2.0}) {
        for (const double degrees : {-400.0, 0.0, 33.3, 90.0, 180.0, 275.0})
            QTest::addRow("turned by %g at %g", degrees, ratio)
                << knob << ratio << Drawing([=, this](QPainter& painter) {
                       painter.translate(place.center());
                       painter.rotate(degrees);
                       direct(knob, place.translated(-place.center()))(painter);
                   })
                << opacityEffect(0.6) << Look([=](SvgImage& image, QPainter& painter) {
                       image.drawTurned(painter, place, degrees, 0.6, canvas);
                   });
        for (const double opacity : {0.1, 0.5, 0.9, 1.0})
            QTest::addRow("translucent by %g at %g", opacity, ratio)
                << knob << ratio << direct(knob, place) << opacityEffect(opacity)
                << Look([=](SvgImage& image, QPainter& painter) {
                       image.drawTranslucent(painter, place, opacity, canvas);
                   });
        for (const double radius : {0.0, 0.5, 1.0, 2.0, 3.3, 5.0, 12.0}) {
            for (const QPointF& position : {QPointF(30, 30), QPointF(31, 32), QPointF(-10, 3.5)}) {
                const QRectF rect(position, QSizeF(40, 40));
                QTest::addRow("blurred by %g at %g, %g", radius, ratio, position.x())
                    << shapes << ratio << direct(shapes, rect) << blurEffect(radius * ratio)
                    << Look([=](SvgImage& image, QPainter& painter) {
                           image.drawBlurred(painter, rect, radius, canvas);
                       });
            }
        }
    }
    // Nothing of these is kept: a turning painter draws something else at every angle.
    for (const double degrees : {40.0, -130.0}) {
        const auto turn = [degrees](QPainter& painter) {
            painter.translate(50, 50);
            painter.rotate(degrees);
        };
        const auto turned = [=, this](const QString& name) {
            return Drawing([=, this](QPainter& painter) {
                turn(painter);
                direct(name, centred)(painter);
            });
        };
        QTest::addRow("blurred by a painter turned by %g", degrees)
            << shapes << 1.0 << turned(shapes) << blurEffect(3.0)
            << Look([=](SvgImage& image, QPainter& painter) {
                   turn(painter);
                   image.drawBlurred(painter, centred, 3.0, canvas);
               });
        QTest::addRow("translucent by a painter turned by %g", degrees)
            << knob << 1.0 << turned(knob) << opacityEffect(0.4)
            << Look([=](SvgImage& image, QPainter& painter) {
                   turn(painter);
                   image.drawTranslucent(painter, centred, 0.4, canvas);
               });
    }
}

void tst_SvgImage::looksAsThroughAnEffect()
{
    QFETCH(QString, name);
    QFETCH(double, ratio);
    QFETCH(Drawing, untouched);
    QFETCH(Effect, effect);
    QFETCH(Look, look);
    const QImage wanted =
        throughEffect(drawn({100, 100}, ratio, Qt::transparent, untouched), effect());
    Loaded image(path(name));
    for (int pass = 0; pass < 2; ++pass) {
        const QImage seen = drawn({100, 100}, ratio, Qt::transparent,
                                  [&](QPainter& painter) { look(image, painter); });
        QCOMPARE_LE(imageDifference(seen, wanted), 1);
    }
}

void tst_SvgImage::blurIsCutAtTheCanvas()
{
    Loaded image(path(QStringLiteral("plain")));
    const QImage seen = drawn({100, 100}, 1.0, Qt::white, [&](QPainter& painter) {
        image.drawBlurred(painter, {30, 30, 40, 40}, 4.0, {40, 28, 20, 60});
    });
    QCOMPARE(seen.pixelColor(39, 50), QColor(Qt::white));
    QCOMPARE(seen.pixelColor(60, 50), QColor(Qt::white));
    QCOMPARE(seen.pixelColor(50, 27), QColor(Qt::white));
    QVERIFY(seen.pixelColor(50, 28) != QColor(Qt::white));
    // The cut edge is as soft as any other.
    QVERIFY(seen.pixelColor(40, 50) != seen.pixelColor(50, 50));
}

void tst_SvgImage::translucencyLimits()
{
    Loaded image(path(QStringLiteral("plain")));
    const auto at = [&](double opacity) {
        return drawn({60, 60}, 1.0, Qt::white, [&](QPainter& painter) {
            image.drawTranslucent(painter, {10, 10, 40, 40}, opacity, {20, 0, 60, 60});
        });
    };
    QCOMPARE(at(0.0).pixelColor(30, 30), QColor(Qt::white));
    QCOMPARE(at(-1.0).pixelColor(30, 30), QColor(Qt::white));
    QCOMPARE(at(qQNaN()).pixelColor(30, 30), QColor(Qt::white));
    QCOMPARE(at(7.0).pixelColor(30, 30), QColor(0x03, 0x94, 0xd0));
    QCOMPARE(at(1.0).pixelColor(15, 30), QColor(Qt::white));
}

void tst_SvgImage::wildNumbersDrawNothingBad()
{
    Loaded image(path(QStringLiteral("shapes")));
    const double wild[] = {0.0, -5.0, 1e-9, 1e9, 1e18, 1e300, qInf(), qQNaN()};
    drawn({40, 40}, 1.0, Qt::white, [&](QPainter& painter) {
        for (const double size : wild) {
            const QRectF rect(3, 3, size, size);
            image.drawBlurred(painter, rect, 2.0, {0, 0, 40, 40});
            image.drawTranslucent(painter, rect, 0.5, {0, 0, 40, 40});
            image.drawTurned(painter, rect, 30.0, 1.0, {0, 0, 40, 40});
            image.drawTurned(painter, {3, 3, 20, 20}, size, 1.0, {0, 0, 40, 40});
            image.drawBlurred(painter, {3, 3, 20, 20}, size, {0, 0, 40, 40});
            image.drawBlurred(painter, {size, size, 20, 20}, 2.0, {0, 0, 40, 40});
        }
        image.drawBlurred(painter, {3, 3, 20, 20}, 2.0, {});
        image.drawTranslucent(painter, {3, 3, 20, 20}, 0.5, {});
        image.drawTurned(painter, {3, 3, 20, 20}, 30.0, 1.0, {});
    });
    QPainter idle;
    for (const Look& look : looks())
        look(image, idle);
}

void tst_SvgImage::animationRunsInEveryLook_data() { rastersGoWithTheFile_data(); }

void tst_SvgImage::animationRunsInEveryLook()
{
    QFETCH(QString, look);
    Loaded image(path(QStringLiteral("animated")));
    QSignalSpy repaints(&image, &SvgImage::repaintNeeded);
    const auto now = [&] {
        return drawn({60, 60}, 1.0, Qt::white, [&](QPainter& p) { looks().value(look)(image, p); })
            .pixelColor(24, 24);
    };
    const QColor first = now();
    QVERIFY(first != QColor(Qt::white));
    QTRY_VERIFY(repaints.count() > 0);
    QTRY_VERIFY(now() != first);

    // An image that shows something else is no longer told.
    Loaded other(path(QStringLiteral("animated")));
    QSignalSpy others(&other, &SvgImage::repaintNeeded);
    image.load(path(QStringLiteral("plain")));
    QVERIFY(image.isValid());
    repaints.clear();
    QTRY_VERIFY(others.count() > 1);
    QCOMPARE(repaints.count(), 0);
}

ZOLTA_TEST_MAIN(tst_SvgImage)

#include "tst_SvgImage.moc"
