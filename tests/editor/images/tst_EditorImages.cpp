// SPDX-License-Identifier: GPL-3.0-or-later
// What the editor looks like, against the pictures beside this file, which somebody has looked at.
//
// A picture passes if at most DifferingPixels of its pixels differ by more than Tolerance of 255 in
// a colour: fonts and rasteriser are those of Debian 12, so what is allowed for is the arithmetic
// of other processors and compilers. What a failing test has seen goes to the working directory.
//
// To renew the references after a wanted change, run this program with ZOLTA_RENEW_IMAGES=1, look
// at every picture that git says has changed, and commit it with the change:
//
//     ZOLTA_RENEW_IMAGES=1 ctest --preset dev -R tst_EditorImages
#include "controls/PushButtonController.h"
#include "editor/ZoltaEditor.h"
#include "hosting/HostMemory.h"
#include "hosting/HostModel.h"
#include "tests/support/DataTable.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QImage>
#include <QLabel>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <functional>
#include <vector>

using CommonController_MemAPI::PushButtonController;

namespace {

constexpr int Tolerance = 8;
constexpr int DifferingPixels = 8;
constexpr char RenewVariable[] = "ZOLTA_RENEW_IMAGES";

const QRect Whole(0, 0, 977, 559);
const QRect LeftSection(46, 238, 218, 308);
const QRect Bands(268, 12, 552, 536);
const QRect MeterBay(868, 96, 104, 380);

/// The parameter of the given number and its value.
struct Setting
{
    std::size_t number;
    int value;
};
using Settings = std::vector<Setting>;

/// A curve in which every band has its part.
const Settings Programme = {{1, 3},    {2, 200},   {3, -60},  {5, 200},   {6, 482},
                            {7, -40},  {9, 80},    {10, 720}, {11, 50},   {13, 300},
                            {14, 876}, {15, -30},  {16, 0},   {18, 1000}, {19, 25},
                            {21, 2},   {22, 1100}, {23, 45},  {25, 35},   {26, -20}};

/// An open editor of the pair 0 and 1 on the mixer's memory.
class Stage
{
public:
    explicit Stage(double scale, bool stereo = true)
        : m_scale(scale)
    {
        m_editor.setModelInfo(&m_model);
        m_editor.initialize();
        m_editor.setMemAPI(&m_memory);
        m_editor.setCh(0, stereo ? 1 : -1);
        m_editor.setScale(scale);
        m_editor.setAttribute(Qt::WA_ShowWithoutActivating);
        m_editor.show();
        set(Programme);
    }
    ~Stage() { m_editor.setMemAPI(nullptr); }

    void set(const Settings& settings)
    {
        for (const Setting& setting : settings)
            m_memory.setValue(parameterId(setting.number - 1), 0, setting.value, 0, 0, 1);
    }

    /// Tenths of a dB: the pair's inputs, then its outputs. The model gives every channel of a
    /// meter two words, of which the editor shows the first.
    void meter(const std::array<int, 4>& levels)
    {
        constexpr std::array<std::size_t, 4> places = {
            HostModel::sendMeter, HostModel::sendMeter + 2, HostModel::returnMeter,
            HostModel::returnMeter + 2};
        std::vector<int> words(HostModel::meterWordCount, -1270);
        for (std::size_t i = 0; i < places.size(); ++i)
            words[places[i]] = levels[i];
        m_memory.meters().notify(words);
    }

    template <class Widget> Widget* find(const char* name)
    {
        return m_editor.findChild<Widget*>(QLatin1String(name));
    }

    /// What of the editor lies in \a part, in pixels at scale 1.
    QImage picture(const QRect& part)
    {
        QImage image(m_editor.size(), QImage::Format_RGB32);
        m_editor.render(&image);
        return image.copy(QRect(part.topLeft() * m_scale, part.size() * m_scale));
    }

private:
    HostMemory m_memory;
    HostModel m_model{m_memory};
    ZoltaEditor m_editor;
    double m_scale;
};

/// What brings an editor into the state of a picture.
using Arrangement = std::function<void(Stage&)>;

bool differ(QRgb a, QRgb b)
{
    return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                     std::abs(qBlue(a) - qBlue(b))}) > Tolerance;
}

/// How many pixels of two pictures of one size differ.
int differences(const QImage& a, const QImage& b)
{
    int count = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            count += differ(a.pixel(x, y), b.pixel(x, y)) ? 1 : 0;
    return count;
}

QString reference(const QString& name)
{
    return QStringLiteral(ZOLTA_REFERENCE_IMAGES "/%1.png").arg(name);
}

bool save(const QImage& image, const QString& file)
{
    constexpr int smallest = 0;
    return image.save(file, "PNG", smallest);
}

void compare(const QImage& image, const QString& name)
{
    if (qEnvironmentVariableIsSet(RenewVariable)) {
        QVERIFY(save(image, reference(name)));
        QSKIP("The reference is renewed.");
    }
    const QImage expected = QImage(reference(name)).convertToFormat(QImage::Format_RGB32);
    QVERIFY2(!expected.isNull(), "There is no reference.");
    QCOMPARE(image.size(), expected.size());
    const int count = differences(image, expected);
    if (count > DifferingPixels)
        save(image, name + QLatin1String(".actual.png"));
    QVERIFY2(count <= DifferingPixels, qPrintable(QStringLiteral("%1 pixels differ.").arg(count)));
}

} // namespace

class TestEditorImages : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void looksAsInItsPictures_data();
    void looksAsInItsPictures();
    void seesOneDigit();
    void seesALabelMovedByAPixel();
};

void TestEditorImages::looksAsInItsPictures_data()
{
    addColumns<double, QRect, bool, Arrangement>("scale", "part", "stereo", "arrange");
    const auto row = [](const char* state, const QRect& part, const Arrangement& arrange,
                        bool stereo = true) {
        for (const double scale : {1.0, 2.0})
            QTest::addRow("%s@%g", state, scale) << scale << part << stereo << arrange;
    };
    const auto set = [](const Settings& settings) {
        return [=](Stage& stage) { stage.set(settings); };
    };
    const auto meter = [](const std::array<int, 4>& levels) {
        return [=](Stage& stage) { stage.meter(levels); };
    };
    row("editor", Whole, set({}));
    row("drive", LeftSection, set({{27, 1}}));
    row("passes", Bands, set({{1, 0}, {21, 1}}));
    row("off", Bands, set({{4, 0}, {8, 0}, {12, 0}, {16, 0}, {20, 0}, {24, 0}}));
    row("led", LeftSection, meter({-400, -150, -95, 25}));
    row("meters", MeterBay, meter({-400, -150, -95, 25}));
    row("mono-led", LeftSection, meter({-70, -1270, 1, -1270}), false);
    row("mono-meters", MeterBay, meter({-70, -1270, 1, -1270}), false);
    row("about", Whole, [](Stage& stage) {
        QTest::mouseClick(stage.find<PushButtonController>("m_pAboutButton"), Qt::LeftButton);
        const auto* version = stage.find<QLabel>("m_pVersionLabel");
        QTRY_COMPARE(version->palette().color(QPalette::WindowText), QColor(Qt::white));
    });
}

void TestEditorImages::looksAsInItsPictures()
{
    QFETCH(double, scale);
    QFETCH(QRect, part);
    QFETCH(bool, stereo);
    QFETCH(Arrangement, arrange);
    Stage stage(scale, stereo);
    arrange(stage);
    compare(stage.picture(part), QLatin1String(QTest::currentDataTag()));
}

// The tolerance hides nothing that somebody could see: these differences are among the smallest.
void TestEditorImages::seesOneDigit()
{
    Stage stage(1.0);
    const QImage before = stage.picture(LeftSection);
    stage.set({{26, -21}});
    QVERIFY(differences(stage.picture(LeftSection), before) > 2 * DifferingPixels);
}

void TestEditorImages::seesALabelMovedByAPixel()
{
    Stage stage(1.0);
    const QImage before = stage.picture(Whole);
    auto* label = stage.find<QLabel>("m_pMeterMinus60Label");
    label->move(label->pos() + QPoint(1, 0));
    QVERIFY(differences(stage.picture(Whole), before) > 2 * DifferingPixels);
}

ZOLTA_TEST_MAIN(TestEditorImages)

#include "tst_EditorImages.moc"
