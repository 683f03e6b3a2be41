// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/graph/GraphFixture.h"
#include "tests/support/TestObject.h"

#include <QFontMetrics>

#include <limits>

namespace {

/// A picture's ink as shares of 0 to 255, cut to what there is of it.
struct Ink
{
    QImage image; ///< Grayscale8
    QRect bounds; ///< in the picture it was cut from
};

int brightness(QRgb pixel) { return std::max({qRed(pixel), qGreen(pixel), qBlue(pixel)}); }

Ink inkOf(const QImage& picture, const QRect& region)
{
    QRect bounds;
    int most = 0;
    for (int y = region.top(); y <= region.bottom(); ++y)
        for (int x = region.left(); x <= region.right(); ++x)
            if (const int value = brightness(picture.pixel(x, y)); value > 40) {
                bounds |= QRect(x, y, 1, 1);
                most = std::max(most, value);
            }
    QImage image(bounds.size(), QImage::Format_Grayscale8);
    for (int y = 0; y < bounds.height(); ++y)
        for (int x = 0; x < bounds.width(); ++x)
            image.scanLine(y)[x] = static_cast<uchar>(
                255 * brightness(picture.pixel(bounds.topLeft() + QPoint(x, y))) / most);
    return {image, bounds};
}

Ink inkOfText(const QString& text, const QFont& font)
{
    QImage picture(600, 200, QImage::Format_RGB32);
    picture.fill(Qt::black);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::TextAntialiasing);
    painter.setPen(Qt::white);
    painter.setFont(font);
    painter.drawText(100, 120, text);
    painter.end();
    return inkOf(picture, picture.rect());
}

/// The mean difference of two pictures laid over one another as they match best, to 2 pixels.
double difference(const QImage& a, const QImage& b)
{
    if (std::abs(a.width() - b.width()) > 2 || std::abs(a.height() - b.height()) > 2)
        return std::numeric_limits<double>::max();
    const int width = std::max(a.width(), b.width());
    const int height = std::max(a.height(), b.height());
    const auto at = [](const QImage& image, int x, int y) {
        return image.valid(x, y) ? image.constScanLine(y)[x] : 0;
    };
    double best = std::numeric_limits<double>::max();
    for (int dy = -2; dy <= 2; ++dy)
        for (int dx = -2; dx <= 2; ++dx) {
            double sum = 0.0;
            for (int y = -2; y < height + 2; ++y)
                for (int x = -2; x < width + 2; ++x)
                    sum += std::abs(at(a, x, y) - at(b, x + dx, y + dy));
            best = std::min(best, sum / (width * height));
        }
    return best;
}

/// The texts that a label can show, as they look in a font.
class Reader
{
public:
    Reader(const QFont& font, const QStringList& texts)
    {
        for (const QString& text : texts)
            m_looks.emplace_back(text, inkOfText(text, font).image);
    }
    QString read(const Ink& ink) const
    {
        QString nearest = QStringLiteral("(nothing)");
        double best = 60.0;
        for (const auto& [text, look] : m_looks)
            if (const double d = difference(ink.image, look); d < best) {
                best = d;
                nearest = text;
            }
        return nearest;
    }

private:
    std::vector<std::pair<QString, QImage>> m_looks;
};

QStringList levelTexts()
{
    QStringList texts = {QStringLiteral("0dB"), QStringLiteral("0"), QStringLiteral("+0dB")};
    for (int level = 0; level <= 40; ++level)
        texts << QStringLiteral("+%1").arg(level) << QStringLiteral("-%1").arg(level)
              << QStringLiteral("%1").arg(level);
    for (const char* text : {"+1.5", "-1.5", "+0.5", "-0.5", "+40dB", "-40dB"})
        texts << QLatin1String(text);
    return texts;
}

QFont labelFont(const GraphFixture& f)
{
    QFont font = f.graph->font();
    font.setPixelSize(static_cast<int>(12.0 * f.plot().u + 0.5));
    return font;
}

QRect pixels(const QRectF& rect, const QImage& picture)
{
    return QRectF(rect.topLeft() * picture.devicePixelRatio(),
                  rect.size() * picture.devicePixelRatio())
               .toRect() &
           picture.rect();
}

} // namespace

class tst_EqualizerGraphLabels : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void levelLabels_data();
    void levelLabels();
    void frequencyLabels();
    void levelLabelsAreAligned();
    void labelSize_data();
    void labelSize();
    void readerTellsTextsApart();
};

void tst_EqualizerGraphLabels::levelLabels_data()
{
    QTest::addColumn<int>("zoom");
    QTest::addColumn<QStringList>("texts");
    const std::array<const char*, 7> rows = {
        "+40 +30 +20 +10 0dB -10 -20 -30 -40", "+20 +15 +10 +5 0dB -5 -10 -15 -20",
        "+16 +12 +8 +4 0dB -4 -8 -12 -16",     "+12 +9 +6 +3 0dB -3 -6 -9 -12",
        "+8 +6 +4 +2 0dB -2 -4 -6 -8",         "+4 +3 +2 +1 0dB -1 -2 -3 -4",
        "+2 +1 +1 +0 0dB -0 -1 -1 -2"};
    for (std::size_t zoom = 0; zoom < rows.size(); ++zoom)
        QTest::newRow(rows[zoom]) << static_cast<int>(zoom)
                                  << QString::fromLatin1(rows[zoom]).split(QLatin1Char(' '));
}

namespace {

QRect levelRegion(const Plot& plot, int row, const QImage& picture)
{
    const double y = plot.top + plot.height * row / 8.0;
    return pixels({0.0, y - 7.0 * plot.u, plot.left - 2.0 * plot.u, 14.0 * plot.u}, picture);
}

QRect frequencyRegion(const Plot& plot, double hz, const QImage& picture)
{
    return pixels({plot.x(hz) - 30.0 * plot.u, plot.bottom + 6.0 * plot.u, 60.0 * plot.u,
                   plot.H - plot.bottom - 6.0 * plot.u},
                  picture);
}

const std::vector<std::pair<double, QString>> Frequencies = {
    {20, QStringLiteral("20")},    {50, QStringLiteral("50")},   {100, QStringLiteral("100")},
    {200, QStringLiteral("200")},  {500, QStringLiteral("500")}, {1000, QStringLiteral("1k")},
    {2000, QStringLiteral("2k")},  {5000, QStringLiteral("5k")}, {10000, QStringLiteral("10k")},
    {20000, QStringLiteral("20k")}};

} // namespace

void tst_EqualizerGraphLabels::levelLabels()
{
    QFETCH(int, zoom);
    QFETCH(QStringList, texts);
    GraphFixture f(GraphFixture::DesignSize * 3);
    f.graph->setZoom(zoom);
    const QImage picture = f.picture();
    const Reader reader(labelFont(f), levelTexts());
    for (int row = 0; row < 9; ++row)
        QCOMPARE(reader.read(inkOf(picture, levelRegion(f.plot(), row, picture))), texts[row]);
}

void tst_EqualizerGraphLabels::frequencyLabels()
{
    GraphFixture f(GraphFixture::DesignSize * 3);
    const QImage picture = f.picture();
    QStringList texts = {QStringLiteral("2"),    QStringLiteral("30"), QStringLiteral("1000"),
                         QStringLiteral("2kHz"), QStringLiteral("k"),  QStringLiteral("50k")};
    for (const auto& [hz, text] : Frequencies)
        texts << text;
    const Reader reader(labelFont(f), texts);
    for (const auto& [hz, text] : Frequencies) {
        const Ink ink = inkOf(picture, frequencyRegion(f.plot(), hz, picture));
        QCOMPARE(reader.read(ink), text);
        const QRect& bounds = ink.bounds;
        QVERIFY(std::abs(bounds.left() + bounds.width() / 2.0 - f.plot().x(hz)) < f.plot().u);
        QVERIFY(bounds.top() > f.plot().bottom + 7.0 * f.plot().u);
        QVERIFY(bounds.bottom() < f.graph->height() - 1);
    }
}

void tst_EqualizerGraphLabels::levelLabelsAreAligned()
{
    GraphFixture f(GraphFixture::DesignSize * 3);
    f.graph->setZoom(2);
    const QImage picture = f.picture();
    const double u = f.plot().u;
    std::vector<int> ends;
    for (int row = 0; row < 9; ++row) {
        const QRect bounds = inkOf(picture, levelRegion(f.plot(), row, picture)).bounds;
        ends.push_back(bounds.right());
        QVERIFY(bounds.right() < f.plot().left - 3.0 * u);
        // Digits stand a little above or below the middle of their line, as the font has it.
        const double y = f.plot().top + f.plot().height * row / 8.0;
        QVERIFY(std::abs(bounds.top() + bounds.height() / 2.0 - y) < 1.5 * u);
    }
    // To the right: what differs is the space that a digit has at its side.
    const auto [least, most] = std::minmax_element(ends.begin(), ends.end());
    QVERIFY(*most - *least < 1.5 * u);
}

void tst_EqualizerGraphLabels::labelSize_data()
{
    QTest::addColumn<int>("height");
    for (const int height : {192, 200, 288, 384, 768})
        QTest::addRow("%d", height) << height;
}

void tst_EqualizerGraphLabels::labelSize()
{
    QFETCH(int, height);
    GraphFixture f(QSize(height * 679 / 192, height));
    const QImage picture = f.picture();
    const QRect found = inkOf(picture, frequencyRegion(f.plot(), 500, picture)).bounds;
    const QRect expected = inkOfText(QStringLiteral("500"), labelFont(f)).bounds;
    QVERIFY(std::abs(found.height() - expected.height()) <= 1);
    QVERIFY(std::abs(found.width() - expected.width()) <= 1);

    // The longest labels stay in the widget.
    f.graph->setZoom(0);
    const QImage widest = f.picture();
    const auto isClear = [&](const QRect& edge) { return inkOf(widest, edge).bounds.isEmpty(); };
    QVERIFY(isClear({0, 0, widest.width(), 1}));
    QVERIFY(isClear({0, widest.height() - 1, widest.width(), 1}));
    QVERIFY(isClear({0, 0, 1, widest.height()}));
    QVERIFY(isClear({widest.width() - 1, 0, 1, widest.height()}));
}

void tst_EqualizerGraphLabels::readerTellsTextsApart()
{
    GraphFixture f(GraphFixture::DesignSize * 3);
    const QStringList texts = levelTexts();
    const Reader reader(labelFont(f), texts);
    for (const QString& text : texts)
        QCOMPARE(reader.read(inkOfText(text, labelFont(f))), text);
}

ZOLTA_TEST_MAIN(tst_EqualizerGraphLabels)

#include "tst_EqualizerGraphLabels.moc"
