// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/DataTable.h"
#include "tests/support/TestObject.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QRegion>
#include <QRegularExpression>
#include <QSet>
#include <QSvgRenderer>
#include <QXmlStreamReader>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <span>
#include <vector>

int qInitResources_Zolta();
int qCleanupResources_Zolta();

namespace {

struct Pictures
{
    QSize size;
    QStringList names;
};

/// Every picture under the size of the widget that shows it.
QList<Pictures> allPictures()
{
    const auto list = [](const char* names) {
        return QString::fromLatin1(names).split(QLatin1Char(' '));
    };
    return {
        {{977, 559}, list("back_zolta")},
        {{20, 326}, list("back_meter")},
        {{12, 326}, list("back_meter_mono")},
        {{26, 26},
         list("btn_plus_up btn_plus_dw btn_minus_up btn_minus_dw btn_flat_up btn_flat_dw "
              "btn_spectrum_off_up btn_spectrum_off_dw btn_spectrum_on_up btn_spectrum_on_dw")},
        {{28, 28},
         list("btn_off_up btn_red_up btn_red_dw btn_orange_up btn_orange_dw btn_yellow_up "
              "btn_yellow_dw btn_green_up btn_green_dw btn_blue_up btn_blue_dw btn_purple_up "
              "btn_purple_dw")},
        {{76, 76}, list("knob_level knob_level_back")},
        {{60, 60},
         list("knob_QLH knob_QLH_back knob_Q knob_Q_back knob_F knob_F_back knob_G knob_G_back "
              "knob_G_dis")},
        {{66, 18}, list("icon_Q_Low icon_Q_High")},
        {{70, 10}, list("icon_Q_Mid")},
        {{37, 48}, list("sw_crean sw_drive")},
        {{20, 20}, list("led_drive_on led_drive_off led_clean_on led_clean_off")},
        {{10, 94},
         list("meter_0 meter_1 meter_2 meter_3 meter_4 meter_5 meter_6 meter_7 meter_8 meter_9 "
              "meter_10 meter_11")},
        {{691, 88}, list("about_zolta_logo")},
        {{135, 29}, list("about_quenta_logo")},
    };
}

/// The bands in the order of their columns: the button's picture, the colour that the graph uses,
/// and the centre of the column.
struct Band
{
    const char* button;
    QRgb color;
    int centre;
};
constexpr Band Bands[] = {{"red", 0xFFED1C24, 307},    {"orange", 0xFFED6B1C, 398},
                          {"yellow", 0xFFFEBA24, 489}, {"green", 0xFF11B519, 580},
                          {"blue", 0xFF14A8AD, 671},   {"purple", 0xFF9519D0, 762}};

constexpr int Scale = 4;
constexpr QRgb Panel = 0xFF1A1D21;

QString pathOf(const QString& name) { return QStringLiteral(":/image/zolta/%1.svg").arg(name); }

/// A picture at four times its size, over the given colour.
QImage render(const QString& name, QColor under = Qt::transparent)
{
    QSvgRenderer renderer(pathOf(name));
    QImage image(renderer.defaultSize() * Scale, QImage::Format_ARGB32_Premultiplied);
    image.fill(under);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter, QRectF(image.rect()));
    return image;
}

QImage renderOnPanel(const QString& name) { return render(name, QColor::fromRgb(Panel)); }

/// The pixel in which a point of the picture, in its own units, lies.
QColor at(const QImage& image, double x, double y)
{
    return image.pixelColor(static_cast<int>(x * Scale), static_cast<int>(y * Scale));
}

/// That at an angle, clockwise from twelve, and a radius around the picture's centre.
QColor around(const QImage& image, int degrees, double radius)
{
    const double centre = image.width() / 2.0 / Scale;
    const double angle = degrees * M_PI / 180.0;
    return at(image, centre + radius * std::sin(angle), centre - radius * std::cos(angle));
}

double brightness(const QColor& color)
{
    return 0.299 * color.red() + 0.587 * color.green() + 0.114 * color.blue();
}

/// All pixels of an image that outlives the answer, premultiplied.
std::span<const QRgb> pixelsOf(const QImage& image)
{
    return {reinterpret_cast<const QRgb*>(image.constBits()),
            static_cast<std::size_t>(image.width()) * static_cast<std::size_t>(image.height())};
}

double meanBrightness(const QImage& image)
{
    double sum = 0.0;
    for (const QRgb pixel : pixelsOf(image))
        sum += brightness(pixel);
    return sum / (image.width() * image.height());
}

/// The height, in units of the picture, at which its brightest row lies.
double brightestRow(const QImage& image)
{
    double brightest = -1.0;
    int row = 0;
    for (int y = 0; y < image.height(); ++y) {
        const double value = meanBrightness(image.copy(0, y, image.width(), 1));
        if (value > brightest) {
            brightest = value;
            row = y;
        }
    }
    return (row + 0.5) / Scale;
}

/// How many columns of pixels lie between the first and the last one that is drawn on.
int inkedColumns(const QImage& image)
{
    int first = image.width();
    int last = -1;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) == 0)
                continue;
            first = std::min(first, x);
            last = std::max(last, x);
        }
    }
    return std::max(0, last - first + 1);
}

/// How far down a drawn curve runs, 0 at its top and 1 at its bottom, pixel by pixel.
std::vector<double> curveIn(const QImage& image)
{
    std::vector<double> rows;
    for (int x = 0; x < image.width(); ++x) {
        double sum = 0.0;
        double moment = 0.0;
        for (int y = 0; y < image.height(); ++y) {
            const double ink = std::max(0.0, brightness(image.pixelColor(x, y)) - 60.0);
            sum += ink;
            moment += ink * y;
        }
        if (sum > 0.0)
            rows.push_back(moment / sum);
    }
    const auto [top, bottom] = std::ranges::minmax(rows);
    std::ranges::transform(rows, rows.begin(),
                           [&](double row) { return (row - top) / (bottom - top); });
    return rows;
}

void addPictures()
{
    addColumns<QString, QSize>("name", "size");
    for (const Pictures& group : allPictures()) {
        for (const QString& name : group.names)
            QTest::newRow(qPrintable(name)) << name << group.size;
    }
}

void addBands()
{
    addColumns<QString, QColor, int>("button", "color", "centre");
    for (const Band& band : Bands)
        QTest::newRow(band.button) << band.button << QColor::fromRgb(band.color) << band.centre;
}

int hueDistance(const QColor& a, const QColor& b)
{
    const int distance = std::abs(a.hsvHue() - b.hsvHue());
    return std::min(distance, 360 - distance);
}

} // namespace

class tst_Pictures : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void theCollectionHoldsTheTablesNames();
    void theCollectionComesAndGoes();
    void pictureShowsSomething_data() { addPictures(); }
    void pictureShowsSomething();
    void fileIsWhatTheRendererDraws_data() { addPictures(); }
    void fileIsWhatTheRendererDraws();
    void backgroundIsOpaque();
    void columnCarriesItsBandsColor_data() { addBands(); }
    void columnCarriesItsBandsColor();
    void nothingIsEngravedUnderALabel_data();
    void nothingIsEngravedUnderALabel();
    void pointerStandsAtTwelve_data();
    void pointerStandsAtTwelve();
    void ringHasItsTicks_data();
    void ringHasItsTicks();
    void knobStaysWithinItsPicture_data();
    void knobStaysWithinItsPicture();
    void disabledGainKnobIsDark();
    void capsDiffer();
    void pressedButtonIsDarker_data();
    void pressedButtonIsDarker();
    void lampOfABandGlows_data() { addBands(); }
    void lampOfABandGlows();
    void lampOfABandStandsUnderItsKnobs_data() { addBands(); }
    void lampOfABandStandsUnderItsKnobs();
    void spectrumButtonShowsItsState();
    void leverShowsItsPosition();
    void lampShowsItsState_data();
    void lampShowsItsState();
    void meterLightsItsCount_data();
    void meterLightsItsCount();
    void typeCurveLooksLikeItsType_data();
    void typeCurveLooksLikeItsType();
    void typeCurveHasItsSlopeBelow();
    void logosAreWhite();
};

void tst_Pictures::theCollectionHoldsTheTablesNames()
{
    QStringList expected;
    for (const Pictures& group : allPictures()) {
        for (const QString& name : group.names)
            expected += name + QLatin1String(".svg");
    }
    QStringList found = QDir(QStringLiteral(":/image/zolta")).entryList();
    expected.sort();
    found.sort();
    QCOMPARE(found, expected);
    QCOMPARE(found.size(), 60);
}

void tst_Pictures::theCollectionComesAndGoes()
{
    QVERIFY(QFile::exists(pathOf(QStringLiteral("knob_G"))));
    QCOMPARE(qCleanupResources_Zolta(), 1);
    QVERIFY(!QFile::exists(pathOf(QStringLiteral("knob_G"))));
    QCOMPARE(qInitResources_Zolta(), 1);
    QVERIFY(QFile::exists(pathOf(QStringLiteral("knob_G"))));
}

void tst_Pictures::pictureShowsSomething()
{
    QFETCH(QString, name);
    QFETCH(QSize, size);
    QSvgRenderer renderer(pathOf(name));
    QVERIFY(renderer.isValid());
    QCOMPARE(renderer.defaultSize(), size);
    QCOMPARE(renderer.viewBoxF(), QRectF(QPointF(), QSizeF(size)));
    const QImage image = render(name);
    QSet<QRgb> visible;
    for (const QRgb pixel : pixelsOf(image)) {
        if (qAlpha(pixel) > 128)
            visible.insert(pixel);
    }
    QVERIFY(!visible.isEmpty());
    if (!name.contains(QLatin1String("logo")) && !name.startsWith(QLatin1String("icon")) &&
        !name.startsWith(QLatin1String("back_meter")))
        QVERIFY2(visible.size() > 8, "one flat shape");
}

void tst_Pictures::fileIsWhatTheRendererDraws()
{
    QFETCH(QString, name);
    QFile file(pathOf(name));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray text = file.readAll();
    QVERIFY(text.size() <= (name == QLatin1String("back_zolta") ? 60 : 6) * 1024);
    const QSet<QByteArray> elements = {"svg",  "defs",           "linearGradient", "stop",
                                       "rect", "radialGradient", "path",           "circle"};
    const QSet<QByteArray> refused = {"class", "style", "filter", "clip-path", "mask", "href"};
    QSet<QString> gradients;
    QXmlStreamReader xml(text);
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        const QByteArray element = xml.name().toLatin1();
        QVERIFY2(elements.contains(element), element);
        const QXmlStreamAttributes attributes = xml.attributes();
        for (const QXmlStreamAttribute& attribute : attributes)
            QVERIFY2(!refused.contains(attribute.name().toLatin1()), element);
        const QString id = attributes.value(QLatin1String("id")).toString();
        QVERIFY2(id.isEmpty() || !gradients.contains(id), qPrintable(id));
        gradients.insert(id);
        for (const char* attribute : {"cx", "cy", "r"})
            QVERIFY(element != "radialGradient" ||
                    attributes.hasAttribute(QLatin1String(attribute)));
    }
    QVERIFY2(!xml.hasError(), qPrintable(xml.errorString()));
    static const QRegularExpression use(QStringLiteral("url\\(#(\\w+)\\)"));
    for (auto i = use.globalMatch(QString::fromUtf8(text)); i.hasNext();)
        QVERIFY(gradients.contains(i.next().captured(1)));
}

// And black where the graph is.
void tst_Pictures::backgroundIsOpaque()
{
    const QImage image = render(QStringLiteral("back_zolta"));
    for (const QRgb pixel : pixelsOf(image))
        QCOMPARE(qAlpha(pixel), 255);
    const QImage graph = image.copy(94 * Scale, 22 * Scale, 679 * Scale, 192 * Scale);
    for (const QRgb pixel : pixelsOf(graph))
        QVERIFY(brightness(pixel) < 20.0);
}

void tst_Pictures::columnCarriesItsBandsColor()
{
    QFETCH(QColor, color);
    QFETCH(int, centre);
    const QImage image = render(QStringLiteral("back_zolta"));
    const QImage strip = image.copy((centre - 20) * Scale, 238 * Scale, 40 * Scale, 14 * Scale);
    int rows = 0;
    for (int y = 0; y < strip.height(); ++y) {
        int same = 0;
        for (int x = 0; x < strip.width(); ++x)
            same += strip.pixelColor(x, y) == color ? 1 : 0;
        rows += same == strip.width() ? 1 : 0;
    }
    QCOMPARE(rows, 2 * Scale);
}

void tst_Pictures::nothingIsEngravedUnderALabel_data()
{
    QTest::addColumn<QRect>("label");
    QTest::newRow("ZOOM") << QRect(813, 63, 40, 16);
    QTest::newRow("DRIVE") << QRect(119, 315, 40, 16);
    QTest::newRow("CLEAN") << QRect(119, 338, 40, 16);
    QTest::newRow("INPUT") << QRect(51, 388, 76, 16);
    QTest::newRow("OUTPUT") << QRect(186, 388, 76, 16);
    QTest::newRow("PEAK") << QRect(147, 388, 34, 14);
    QTest::newRow("LED scale") << QRect(132, 420, 14, 79);
    QTest::newRow("FLAT") << QRect(196, 519, 32, 16);
    QTest::newRow("Q") << QRect(799, 284, 17, 20);
    QTest::newRow("F") << QRect(799, 360, 17, 20);
    QTest::newRow("G") << QRect(799, 444, 17, 20);
    QTest::newRow("IN") << QRect(877, 111, 40, 14);
    QTest::newRow("OUT") << QRect(922, 111, 40, 14);
    QTest::newRow("meter scale") << QRect(907, 145, 24, 308);
    for (const Band& band : Bands) {
        const QByteArray name(band.button);
        QTest::newRow(name + " frequency") << QRect(band.centre - 28, 399, 56, 14);
        QTest::newRow(name + " gain") << QRect(band.centre - 28, 484, 56, 14);
    }
}

void tst_Pictures::nothingIsEngravedUnderALabel()
{
    QFETCH(QRect, label);
    const QImage image = render(QStringLiteral("back_zolta"))
                             .copy(QRect(label.topLeft() * Scale, label.size() * Scale));
    const auto [darkest, lightest] =
        std::ranges::minmax(pixelsOf(image), {}, [](QRgb pixel) { return brightness(pixel); });
    QCOMPARE_LT(brightness(lightest) - brightness(darkest), 16.0);
}

void tst_Pictures::pointerStandsAtTwelve_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name : {"knob_level", "knob_QLH", "knob_Q", "knob_F", "knob_G"})
        QTest::newRow(name) << name;
}

void tst_Pictures::pointerStandsAtTwelve()
{
    QFETCH(QString, name);
    const QImage image = renderOnPanel(name);
    const double radius = 0.45 * image.width() / 2.0 / Scale;
    const double top = brightness(around(image, 0, radius));
    for (int degrees = 30; degrees < 360; degrees += 30)
        QCOMPARE_LT(brightness(around(image, degrees, radius)), top - 60.0);
}

void tst_Pictures::ringHasItsTicks_data()
{
    addColumns<QString, double, QList<int>>("name", "radius", "angles");
    const QList<int> full = {210, 240, 270, 300, 330, 0, 30, 60, 90, 120, 150};
    QTest::newRow("level") << "knob_level_back" << 35.5 << full;
    QTest::newRow("Q") << "knob_Q_back" << 28.0 << full;
    QTest::newRow("F") << "knob_F_back" << 28.0 << full;
    QTest::newRow("G") << "knob_G_back" << 28.0 << full;
    QTest::newRow("type") << "knob_QLH_back" << 25.0 << QList<int>{300, 340, 20, 60};
}

void tst_Pictures::ringHasItsTicks()
{
    QFETCH(QString, name);
    QFETCH(double, radius);
    QFETCH(QList<int>, angles);
    const QImage image = renderOnPanel(name);
    for (int degrees = 0; degrees < 360; degrees += 10)
        QCOMPARE(brightness(around(image, degrees, radius)) > 60.0, angles.contains(degrees));
}

void tst_Pictures::knobStaysWithinItsPicture_data()
{
    QTest::addColumn<QString>("name");
    for (const Pictures& group : allPictures()) {
        for (const QString& name : group.names) {
            if (name.startsWith(QLatin1String("knob")) || name.startsWith(QLatin1String("led")) ||
                name.startsWith(QLatin1String("btn")))
                QTest::newRow(qPrintable(name)) << name;
        }
    }
}

void tst_Pictures::knobStaysWithinItsPicture()
{
    QFETCH(QString, name);
    const QImage image = render(name);
    const int last = image.width() - 1;
    for (int i = 0; i <= last; ++i)
        for (const QPoint edge : {QPoint(i, 0), QPoint(i, last), QPoint(0, i), QPoint(last, i)})
            QVERIFY2(qAlpha(image.pixel(edge)) < 8, qPrintable(QString::number(i)));
}

void tst_Pictures::disabledGainKnobIsDark()
{
    const QImage disabled = renderOnPanel(QStringLiteral("knob_G_dis"));
    const QImage cap = renderOnPanel(QStringLiteral("knob_G"));
    const QImage ring = renderOnPanel(QStringLiteral("knob_G_back"));
    QVERIFY(brightness(at(disabled, 30, 17)) < 0.4 * brightness(at(cap, 30, 17)));
    const double panel = brightness(QColor::fromRgb(Panel));
    for (const QPoint tick : {QPoint(30, 2), QPoint(2, 30), QPoint(58, 30)}) {
        const double contrast = brightness(at(ring, tick.x(), tick.y())) - panel;
        const double dimmed = brightness(at(disabled, tick.x(), tick.y())) - panel;
        QVERIFY(dimmed > 0.3 * contrast);
        QVERIFY(dimmed < 0.7 * contrast);
    }
}

void tst_Pictures::capsDiffer()
{
    const QColor quality = at(renderOnPanel(QStringLiteral("knob_Q")), 30, 17);
    const QColor frequency = at(renderOnPanel(QStringLiteral("knob_F_back")), 30, 30);
    const QColor gain = at(renderOnPanel(QStringLiteral("knob_G_back")), 30, 30);
    QVERIFY(quality.hsvSaturation() > 100);
    QVERIFY(at(renderOnPanel(QStringLiteral("knob_G")), 30, 17).hsvSaturation() < 30);
    QVERIFY(brightness(frequency) > brightness(gain) + 60.0);
}

void tst_Pictures::pressedButtonIsDarker_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name : {"plus", "minus", "flat", "spectrum_off", "spectrum_on", "red",
                             "orange", "yellow", "green", "blue", "purple"})
        QTest::newRow(name) << name;
}

void tst_Pictures::pressedButtonIsDarker()
{
    QFETCH(QString, name);
    const QImage up = renderOnPanel(QStringLiteral("btn_%1_up").arg(name));
    const QImage down = renderOnPanel(QStringLiteral("btn_%1_dw").arg(name));
    QVERIFY(meanBrightness(down) < 0.85 * meanBrightness(up));
}

void tst_Pictures::lampOfABandGlows()
{
    QFETCH(QString, button);
    QFETCH(QColor, color);
    const QImage on = render(QStringLiteral("btn_%1_up").arg(button));
    const QImage off = render(QStringLiteral("btn_off_up"));
    for (const QPointF halo : {QPointF(13, 3.5), QPointF(2.5, 14), QPointF(23.5, 14)}) {
        QVERIFY(at(on, halo.x(), halo.y()).alpha() > 40);
        QVERIFY(hueDistance(at(on, halo.x(), halo.y()), color) < 12);
        QCOMPARE(at(off, halo.x(), halo.y()).alpha(), 0);
    }
    QVERIFY(hueDistance(at(on, 13, 17), color) < 12);
    QVERIFY(at(off, 13, 17).hsvSaturation() < 60);
}

void tst_Pictures::lampOfABandStandsUnderItsKnobs()
{
    QFETCH(QString, button);
    QFETCH(int, centre);
    const QImage image = render(QStringLiteral("btn_%1_up").arg(button));
    double sum = 0.0;
    double moment = 0.0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            sum += qAlpha(image.pixel(x, y));
            moment += qAlpha(image.pixel(x, y)) * (x + 0.5) / Scale;
        }
    const int buttonLeft = centre - 13;
    QVERIFY(std::abs(buttonLeft + moment / sum - centre) < 0.05);
}

void tst_Pictures::spectrumButtonShowsItsState()
{
    QVERIFY(at(render(QStringLiteral("btn_spectrum_on_up")), 11, 14).hsvSaturation() > 120);
    QVERIFY(at(render(QStringLiteral("btn_spectrum_off_up")), 11, 14).hsvSaturation() < 30);
}

void tst_Pictures::leverShowsItsPosition()
{
    const double driveLabel = 323.0 - 310.0;
    const double cleanLabel = 346.0 - 310.0;
    const double up = brightestRow(renderOnPanel(QStringLiteral("sw_drive")));
    const double down = brightestRow(renderOnPanel(QStringLiteral("sw_crean")));
    QVERIFY(std::abs(up - driveLabel) < 2.0);
    QVERIFY(std::abs(down - cleanLabel) < 2.0);
}

void tst_Pictures::lampShowsItsState_data()
{
    addColumns<QString, int>("name", "hue");
    QTest::newRow("drive is amber") << "drive" << 35;
    QTest::newRow("clean is green") << "clean" << 138;
}

void tst_Pictures::lampShowsItsState()
{
    QFETCH(QString, name);
    QFETCH(int, hue);
    const QImage on = render(QStringLiteral("led_%1_on").arg(name));
    const QImage off = render(QStringLiteral("led_%1_off").arg(name));
    QVERIFY(std::abs(at(on, 10, 12).hsvHue() - hue) < 15);
    QVERIFY(brightness(at(on, 10, 10)) > 150.0);
    QVERIFY(brightness(at(off, 10, 10)) < 60.0);
    QVERIFY(at(on, 10, 2.5).alpha() > 30);
    QCOMPARE(at(off, 10, 2.5).alpha(), 0);
}

void tst_Pictures::meterLightsItsCount_data()
{
    QTest::addColumn<int>("lit");
    for (int lit = 0; lit <= 11; ++lit)
        QTest::addRow("%d", lit) << lit;
}

void tst_Pictures::meterLightsItsCount()
{
    QFETCH(int, lit);
    const QImage image = render(QStringLiteral("meter_%1").arg(lit), Qt::black);
    for (int k = 1; k <= 11; ++k) {
        const QColor lamp = at(image, 5.0, 89.0 - 8.125 * (k - 1));
        const int hue = at(image, 1.5, 89.0 - 8.125 * (k - 1)).hsvHue();
        QCOMPARE(lamp.value() > 200, k <= lit);
        QVERIFY(lamp.value() > 20);
        if (k == 11)
            QVERIFY(hue < 20 || hue > 340);
        else if (k >= 9)
            QVERIFY(hue > 40 && hue < 65);
        else
            QVERIFY(hue > 110 && hue < 160);
        if (k > 1)
            QVERIFY(at(image, 5.0, 89.0 - 8.125 * (k - 1.5)).value() < 120);
    }
}

void tst_Pictures::typeCurveLooksLikeItsType_data()
{
    addColumns<QPoint, double, double, bool>("place", "start", "end", "steep");
    const QPoint places[] = {{0, 261}, {15, 253}, {37, 253}, {52, 261}};
    for (const bool high : {false, true}) {
        for (int type = 0; type < 4; ++type) {
            const bool shelf = type >= 2;
            const bool rises = shelf == high;
            QTest::addRow("%s type %d", high ? "high" : "low", type)
                << places[type] + QPoint(high ? 730 : 275, 0) << (rises ? 1.0 : 0.0)
                << (rises ? 0.0 : 1.0) << (type == 0 || type == 3);
        }
    }
}

// A pass filter falls to the ground, a shelf has a floor at either end.
void tst_Pictures::typeCurveLooksLikeItsType()
{
    QFETCH(QPoint, place);
    QFETCH(double, start);
    QFETCH(double, end);
    QFETCH(bool, steep);
    const QImage image =
        render(QStringLiteral("back_zolta")).copy(QRect(place * Scale, QSize(13, 8) * Scale));
    const std::vector<double> heights = curveIn(image);
    QCOMPARE_GT(heights.size(), std::size_t(10 * Scale));
    QCOMPARE_LT(std::abs(heights.front() - start), 0.12);
    QCOMPARE_LT(std::abs(heights.back() - end), 0.12);
    const double slope = static_cast<double>(std::ranges::count_if(
                             heights, [](double h) { return h > 0.15 && h < 0.85; })) /
                         Scale;
    QVERIFY2(steep ? slope < 3.5 : slope > 4.0, QByteArray::number(slope));
    const bool shelf = place.x() % 455 > 300;
    const auto level = [](double from, double to) { return std::abs(from - to) < 0.1; };
    QCOMPARE(level(heights.front(), heights[Scale * 2]) &&
                 level(heights.back(), heights[heights.size() - 1 - Scale * 2]),
             shelf);
}

// 12 or 6 dB an octave, the same numbers for both columns.
void tst_Pictures::typeCurveHasItsSlopeBelow()
{
    const QImage low = render(QStringLiteral("icon_Q_Low"));
    QCOMPARE(low, render(QStringLiteral("icon_Q_High")));
    const struct
    {
        QRect place;
        int width;
    } numbers[] = {
        {{0, 11, 12, 7}, 8}, {{16, 4, 12, 8}, 4}, {{38, 4, 12, 8}, 4}, {{54, 11, 12, 7}, 8}};
    QRegion places;
    for (const auto& [place, width] : numbers) {
        places += place;
        const QRect scaled(place.topLeft() * Scale, place.size() * Scale);
        QCOMPARE_LT(std::abs(inkedColumns(low.copy(scaled)) - width * Scale), Scale);
    }
    for (const QRect& other : QRegion(0, 0, 66, 18) - places)
        QCOMPARE(inkedColumns(low.copy(QRect(other.topLeft() * Scale, other.size() * Scale))), 0);
}

void tst_Pictures::logosAreWhite()
{
    for (const char* name : {"about_zolta_logo", "about_quenta_logo"}) {
        const QImage image = render(QLatin1String(name));
        for (const QRgb pixel : pixelsOf(image))
            QVERIFY2(qAlpha(pixel) < 255 || QColor(pixel) == QColor(Qt::white), name);
    }
}

QTEST_APPLESS_MAIN(tst_Pictures)
#include "tst_Pictures.moc"
