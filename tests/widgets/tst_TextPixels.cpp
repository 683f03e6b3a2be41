// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/DataTable.h"
#include "tests/support/TestObject.h"
#include "widgets/TextPixels.h"

#include <QImage>
#include <QPaintEngine>
#include <QPainter>

#include <functional>

namespace {

constexpr QRect Clip(10, 10, 80, 30);

/// Everything that decides what is seen of a text, and what may change from one drawing to the
/// next.
struct Scene
{
    QString text = QStringLiteral("Gain");
    QRect rect = QRect(10, 10, 80, 30);
    int flags = Qt::AlignCenter;
    QBrush brush = Qt::white;
    QColor ground = Qt::darkBlue;
    QImage::Format format = QImage::Format_RGB32;
    QRegion clip = Clip;
    QFont font;
    int dotsPerMeter = 4000;
    double pixelRatio = 1.0;
    std::function<void(QPainter&)> setUp = [](QPainter&) {};
};

using Change = std::function<void(Scene&)>;

struct Drawn
{
    QImage image;
    bool isCopied = true;
};

/// The scene, its text drawn by \a drawText.
QImage painted(const Scene& scene, const std::function<void(QPainter&)>& drawText)
{
    QImage image(100, 50, scene.format);
    image.fill(scene.ground);
    image.setDotsPerMeterY(scene.dotsPerMeter);
    image.setDevicePixelRatio(scene.pixelRatio);
    image.paintEngine()->setSystemClip(scene.clip); // as a widget does
    QPainter painter(&image);
    painter.setFont(scene.font);
    painter.setPen(QPen(scene.brush, 1.0));
    scene.setUp(painter);
    drawText(painter);
    return image;
}

QImage direct(const Scene& scene)
{
    return painted(
        scene, [&](QPainter& painter) { painter.drawText(scene.rect, scene.flags, scene.text); });
}

Drawn remembered(const Scene& scene)
{
    Drawn drawn;
    drawn.image = painted(scene, [&](QPainter& painter) {
        TextPixels::draw(painter, {scene.text, scene.rect, scene.flags, scene.brush}, [&] {
            painter.drawText(scene.rect, scene.flags, scene.text);
            drawn.isCopied = false;
        });
    });
    return drawn;
}

Change painting(const std::function<void(QPainter&)>& setUp)
{
    return [setUp](Scene& scene) { scene.setUp = setUp; };
}

} // namespace

Q_DECLARE_METATYPE(Change)

class tst_TextPixels : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void copiesWhatIsDrawnAgain_data();
    void copiesWhatIsDrawnAgain();
    void drawsWhatChanged_data();
    void drawsWhatChanged();
    void drawsWhereACopyDoesNotServe_data();
    void drawsWhereACopyDoesNotServe();
    void drawsAfreshWithNewFonts();
};

void tst_TextPixels::copiesWhatIsDrawnAgain_data()
{
    QTest::addColumn<Change>("change");
    QTest::newRow("plain") << Change([](Scene&) {});
    QTest::newRow("beyond its rectangle") << Change([](Scene& s) {
        s.rect = {20, 12, 10, 5};
        s.flags = Qt::TextDontClip;
    });
    QTest::newRow("an opaque picture with alpha")
        << Change([](Scene& s) { s.format = QImage::Format_ARGB32_Premultiplied; });
    QTest::newRow("translucent") << Change([](Scene& s) { s.brush = QColor(255, 0, 0, 90); });
    QTest::newRow("cut") << Change([](Scene& s) { s.clip = QRect(40, 20, 13, 7); });
    QTest::newRow("scaled") << painting([](QPainter& p) { p.scale(1.5, 1.25); });
    QTest::newRow("moved by a fraction") << painting([](QPainter& p) { p.translate(0.3, 0.6); });
    QTest::newRow("two pixels a unit") << Change([](Scene& s) {
        s.pixelRatio = 2.0;
        s.rect = {0, 0, 40, 20};
    });
    QTest::newRow("turned") << painting([](QPainter& p) { p.rotate(5.0); });
}

void tst_TextPixels::copiesWhatIsDrawnAgain()
{
    QFETCH(Change, change);
    Scene scene;
    scene.text = QLatin1String(QTest::currentDataTag());
    change(scene);
    const QImage wanted = direct(scene);
    Scene blank = scene;
    blank.text.clear();
    QVERIFY(wanted != direct(blank));
    for (const bool isAgain : {false, true, true}) {
        const Drawn drawn = remembered(scene);
        QCOMPARE(drawn.image, wanted);
        QCOMPARE(drawn.isCopied, isAgain);
    }
}

void tst_TextPixels::drawsWhatChanged_data()
{
    QTest::addColumn<Change>("change");
    QTest::newRow("text") << Change([](Scene& s) { s.text += u'!'; });
    QTest::newRow("rectangle") << Change([](Scene& s) { s.rect.setLeft(30); });
    QTest::newRow("alignment") << Change([](Scene& s) { s.flags = Qt::AlignLeft; });
    QTest::newRow("colour") << Change([](Scene& s) { s.brush = Qt::yellow; });
    QTest::newRow("ground") << Change([](Scene& s) { s.ground = Qt::darkRed; });
    QTest::newRow("clip") << Change([](Scene& s) { s.clip = QRect(40, 10, 20, 30); });
    QTest::newRow("font") << Change([](Scene& s) { s.font.setPixelSize(20); });
    QTest::newRow("resolution") << Change([](Scene& s) { s.dotsPerMeter = 8000; });
    QTest::newRow("hints") << painting(
        [](QPainter& p) { p.setRenderHint(QPainter::TextAntialiasing, false); });
    QTest::newRow("direction") << painting(
        [](QPainter& p) { p.setLayoutDirection(Qt::RightToLeft); });
    QTest::newRow("place") << painting([](QPainter& p) { p.translate(4, 3); });
    QTest::newRow("scale") << painting([](QPainter& p) { p.scale(1.2, 1.2); });
    QTest::newRow("one pixel beneath")
        << painting([](QPainter& p) { p.fillRect(50, 20, 1, 1, Qt::green); });
}

void tst_TextPixels::drawsWhatChanged()
{
    QFETCH(Change, change);
    Scene scene;
    remembered(scene);
    QVERIFY(remembered(scene).isCopied);
    change(scene);
    const Drawn drawn = remembered(scene);
    QVERIFY(!drawn.isCopied);
    QCOMPARE(drawn.image, direct(scene));
}

void tst_TextPixels::drawsWhereACopyDoesNotServe_data()
{
    QTest::addColumn<Change>("change");
    QTest::newRow("clipped") << painting([](QPainter& p) { p.setClipRect(20, 20, 30, 9); });
    QTest::newRow("faded") << painting([](QPainter& p) { p.setOpacity(0.5); });
    QTest::newRow("composed") << painting(
        [](QPainter& p) { p.setCompositionMode(QPainter::CompositionMode_Xor); });
    QTest::newRow("with a ground of its own")
        << painting([](QPainter& p) { p.setBackgroundMode(Qt::OpaqueMode); });
    QTest::newRow("on translucent ground") << Change([](Scene& s) {
        s.ground = QColor(0, 0, 0, 100);
        s.format = QImage::Format_ARGB32_Premultiplied;
    });
    QTest::newRow("in a pattern") << Change(
        [](Scene& s) { s.brush = QBrush(Qt::white, Qt::Dense4Pattern); });
    QTest::newRow("on another format") << Change([](Scene& s) { s.format = QImage::Format_RGB16; });
    QTest::newRow("in several places")
        << Change([](Scene& s) { s.clip = QRegion(10, 10, 9, 9) | QRect(30, 20, 9, 9); });
    QTest::newRow("without a clip") << Change([](Scene& s) { s.clip = {}; });
}

void tst_TextPixels::drawsWhereACopyDoesNotServe()
{
    QFETCH(Change, change);
    Scene scene;
    change(scene);
    for (int pass = 0; pass < 2; ++pass) {
        const Drawn drawn = remembered(scene);
        QVERIFY(!drawn.isCopied);
        QCOMPARE(drawn.image, direct(scene));
    }
}

void tst_TextPixels::drawsAfreshWithNewFonts()
{
    const Scene scene;
    remembered(scene);
    QVERIFY(remembered(scene).isCopied);
    Q_EMIT qGuiApp->fontDatabaseChanged();
    QVERIFY(!remembered(scene).isCopied);
}

ZOLTA_TEST_MAIN(tst_TextPixels)
#include "tst_TextPixels.moc"
