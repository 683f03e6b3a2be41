// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/AbstractController.h"
#include "controls/TextEditController.h"
#include "gallery/GallerySection.h"
#include "gallery/GallerySheet.h"
#include "host/window/HostTheme.h"
#include "tests/support/CountingMemory.h"
#include "tests/support/ImageDifference.h"
#include "tests/support/TestObject.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QSet>

#include <memory>

using CommonController_MemAPI::AbstractController;

class tst_GallerySheet : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { m_sheet.reset(); }

    void showsEveryControl_data();
    void showsEveryControl();
    void leavesNoGestureBehind();
    void everyCellShowsSomething_data() { sectionRows(); }
    void everyCellShowsSomething();
    void nothingIsCutOff_data() { sectionRows(); }
    void nothingIsCutOff();
    void stagesAreWhatTheySay_data() { sectionRows(); }
    void stagesAreWhatTheySay();
    void disabledIsDarkerThanEnabled_data();
    void disabledIsDarkerThanEnabled();
    void focusIsFramed();
    void stagesAreInThePicture_data();
    void stagesAreInThePicture();
    void pictureIsTheSameEachTime();
    void picturesOfSectionsArePartsOfTheSheet();
    void ratioGivesMorePixels_data();
    void ratioGivesMorePixels();
    void boundControlsFollowTheHost();
    void unbindsWithTheSheet();

private:
    void sectionRows() const;
    GallerySection& section() const;
    static QImage pictureOf(QWidget& widget);
    struct Light
    {
        int highest = 0;
        double mean = 0.0;
    };
    static Light lightOf(const QImage& picture);
    static bool isBlank(const QWidget& control);

    HostMemory m_memory;
    std::unique_ptr<GallerySheet> m_sheet;
};

void tst_GallerySheet::initTestCase()
{
    applyHostTheme();
    m_sheet = std::make_unique<GallerySheet>(m_memory);
    m_sheet->picture();
}

void tst_GallerySheet::sectionRows() const
{
    QTest::addColumn<QString>("title");
    for (const GallerySection* each : m_sheet->sections())
        QTest::newRow(qPrintable(each->title())) << each->title();
}

GallerySection& tst_GallerySheet::section() const
{
    QFETCH(QString, title);
    return *m_sheet->section(title);
}

QImage tst_GallerySheet::pictureOf(QWidget& widget)
{
    QImage image(widget.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    widget.render(&image, {}, {}, QWidget::DrawChildren);
    return image;
}

tst_GallerySheet::Light tst_GallerySheet::lightOf(const QImage& picture)
{
    Light light;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const int gray = qGray(picture.pixel(x, y));
            light.highest = std::max(light.highest, gray);
            light.mean += double(gray) / (picture.width() * picture.height());
        }
    }
    return light;
}

void tst_GallerySheet::showsEveryControl_data()
{
    QTest::addColumn<bool>("isControl");
    for (const char* name :
         {"KnobController", "TextEditController", "PushButtonController",
          "PullDownButtonController", "ButtonGroupController", "FaderController", "MeterController",
          "PeakMeterController", "RoundMeterController", "RoundGainReductionMeterController"})
        QTest::newRow(name) << true;
    QTest::newRow("SvgLabel") << false;
    QTest::newRow("ChannelNameEdit") << false;
}

void tst_GallerySheet::showsEveryControl()
{
    QFETCH(bool, isControl);
    const QByteArray name =
        QByteArray(isControl ? "CommonController_MemAPI::" : "") + QTest::currentDataTag();
    QSet<QString> found;
    for (const QWidget* widget : m_sheet->findChildren<QWidget*>()) {
        if (widget->metaObject()->className() != name)
            continue;
        const auto* control = dynamic_cast<const AbstractController*>(widget);
        found << (widget->isEnabled() ? QStringLiteral("enabled") : QStringLiteral("disabled"));
        if (!isControl)
            continue;
        found << (control->isBound() ? QStringLiteral("bound") : QStringLiteral("unbound"));
        found << QStringLiteral("x%1").arg(control->scale());
    }
    QSet<QString> expected = {QStringLiteral("enabled"), QStringLiteral("disabled")};
    if (isControl)
        expected += {QStringLiteral("bound"), QStringLiteral("unbound"), QStringLiteral("x1")};
    // The group has no pictures of its own, and what it holds has its own scale.
    if (isControl && name != "CommonController_MemAPI::ButtonGroupController")
        expected += {QStringLiteral("x0.5"), QStringLiteral("x1.5"), QStringLiteral("x2")};
    QCOMPARE(found, expected);
}

void tst_GallerySheet::leavesNoGestureBehind()
{
    m_sheet->picture();
    const QWidget* focus = QApplication::focusWidget();
    QVERIFY(focus == nullptr || focus == m_sheet.get());
    for (const QLineEdit* edit : m_sheet->findChildren<QLineEdit*>()) {
        const bool isInline =
            qobject_cast<CommonController_MemAPI::TextEditController*>(edit->parentWidget());
        QVERIFY(!isInline || edit->isHidden());
    }
}

// A meter without a track shows nothing at silence, and a peak meter nothing but the level.
bool tst_GallerySheet::isBlank(const QWidget& control)
{
    const auto* caption = control.parentWidget()->findChild<QLabel*>();
    const bool isBar = control.inherits("CommonController_MemAPI::MeterController");
    return isBar && caption && caption->text() == QLatin1String("-127 dB");
}

void tst_GallerySheet::everyCellShowsSomething()
{
    for (QWidget* control : section().controls()) {
        const QImage picture = pictureOf(*control);
        QSet<QRgb> colors;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x)
                colors << picture.pixel(x, y);
        }
        QVERIFY2(colors.size() > 1 || isBlank(*control),
                 qPrintable(QStringLiteral("%1 at %2, %3")
                                .arg(QLatin1String(control->metaObject()->className()))
                                .arg(control->x())
                                .arg(control->parentWidget()->x())));
    }
}

void tst_GallerySheet::nothingIsCutOff()
{
    GallerySection& shown = section();
    QVERIFY(!shown.controls().empty());
    QVERIFY(m_sheet->rect().contains(shown.geometry()));
    QRegion taken;
    for (const QWidget* control : shown.controls()) {
        const QRect place(control->mapTo(&shown, QPoint()), control->size());
        QVERIFY(control->parentWidget()->rect().contains(control->geometry()));
        QVERIFY(shown.rect().contains(place));
        QVERIFY(!taken.intersects(place));
        taken += place;
    }
}

void tst_GallerySheet::stagesAreWhatTheySay()
{
    for (const GalleryStage& stage : section().stages()) {
        const QString caption = stage.cell->findChild<QLabel*>()->text();
        const auto isFocused = [&stage] {
            return QApplication::focusWidget() &&
                   stage.cell->isAncestorOf(QApplication::focusWidget());
        };
        const auto isDown = [&stage] {
            const auto* button = stage.cell->findChild<QAbstractButton*>();
            return button && button->isDown();
        };
        stage.enter();
        QCOMPARE(isDown(), caption.endsWith(QLatin1String("held")));
        QCOMPARE(isFocused(), !isDown());
        stage.leave();
        QVERIFY(!isDown() && !isFocused());
    }
}

void tst_GallerySheet::disabledIsDarkerThanEnabled_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("enabled");
    QTest::addColumn<QString>("disabled");
    const auto row = [](const char* title, const char* enabled, const char* disabled) {
        QTest::addRow("%s, %s", title, disabled)
            << QString::fromLatin1(title) << QString::fromLatin1(enabled)
            << QString::fromLatin1(disabled);
    };
    for (const char* title : {"KnobController", "FaderController", "TextEditController"})
        row(title, "25 %", "disabled");
    for (const char* title : {"MeterController, PeakMeterController",
                              "RoundMeterController, RoundGainReductionMeterController"})
        row(title, "-6 dB", "disabled");
    row("PushButtonController", "off", "disabled");
    row("PushButtonController", "on", "disabled, on");
    row("PullDownButtonController", "value 2", "disabled");
    row("ButtonGroupController", "value 2", "disabled");
    row("SvgLabel", "enabled", "disabled");
    row("ChannelNameEdit", "short", "disabled");
}

// On the whole, and so are its lights: pointer, letters, cap.
void tst_GallerySheet::disabledIsDarkerThanEnabled()
{
    QFETCH(const QString, enabled);
    QFETCH(const QString, disabled);
    QImage before;
    int compared = 0;
    for (QWidget* control : section().controls()) {
        const QString caption =
            control->parentWidget()->findChildren<QLabel*>().constLast()->text();
        if (caption == enabled)
            before = pictureOf(*control);
        if (caption != disabled || before.isNull())
            continue;
        const Light was = lightOf(before);
        const Light is = lightOf(pictureOf(*control));
        QVERIFY2(is.highest < was.highest && is.mean < was.mean,
                 qPrintable(QStringLiteral("%1, %2").arg(is.mean).arg(was.mean)));
        ++compared;
    }
    QVERIFY(compared > 0);
}

void tst_GallerySheet::focusIsFramed()
{
    GallerySection& knobs = *m_sheet->section(QStringLiteral("KnobController"));
    m_sheet->picture(knobs); // shows the window
    QWidget* knob = knobs.controls().front();
    QVERIFY(knob->focusPolicy() & Qt::TabFocus);
    const QImage before = knobs.grab().toImage();
    knob->setFocus(Qt::TabFocusReason);
    QVERIFY(knobs.grab().toImage() != before);
    knob->clearFocus();
}

void tst_GallerySheet::stagesAreInThePicture_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("caption");
    QTest::newRow("knob") << QStringLiteral("KnobController") << QStringLiteral("keyboard focus");
    QTest::newRow("lamp") << QStringLiteral("PushButtonController") << QStringLiteral("on, held");
    QTest::newRow("button") << QStringLiteral("PushButtonController")
                            << QStringLiteral("keyboard focus");
    QTest::newRow("pull-down") << QStringLiteral("PullDownButtonController")
                               << QStringLiteral("held");
    QTest::newRow("value") << QStringLiteral("TextEditController")
                           << QStringLiteral("edit: double click");
    QTest::newRow("name") << QStringLiteral("ChannelNameEdit")
                          << QStringLiteral("edit: double click");
}

void tst_GallerySheet::stagesAreInThePicture()
{
    QFETCH(QString, caption);
    GallerySection& shown = section();
    const QImage picture = m_sheet->picture(shown);
    QImage plain(shown.size(), QImage::Format_RGB32);
    shown.render(&plain);
    bool found = false;
    for (const GalleryStage& stage : shown.stages()) {
        if (stage.cell->findChild<QLabel*>()->text() != caption)
            continue;
        const QRect place(stage.cell->mapTo(&shown, QPoint()), stage.cell->size());
        QVERIFY(picture.copy(place) != plain.copy(place));
        found = true;
    }
    QVERIFY(found);
}

void tst_GallerySheet::pictureIsTheSameEachTime()
{
    const QImage first = m_sheet->picture();
    QCOMPARE(m_sheet->picture(), first);
    HostMemory memory;
    GallerySheet other(memory);
    QCOMPARE(other.picture(), first);
}

void tst_GallerySheet::picturesOfSectionsArePartsOfTheSheet()
{
    const QImage whole = m_sheet->picture();
    for (GallerySection* each : m_sheet->sections()) {
        const QImage part = m_sheet->picture(*each);
        // The rounded corners show the sheet behind the section.
        const QRect inner = each->rect().adjusted(6, 6, -6, -6);
        // Where a shape's edge cuts through a pixel, its share is rounded by its place.
        QVERIFY(imageDifference(part.copy(inner), whole.copy(inner.translated(each->pos()))) <= 1);
    }
}

void tst_GallerySheet::ratioGivesMorePixels_data()
{
    QTest::addColumn<double>("ratio");
    for (const double ratio : {0.5, 1.25, 1.5, 2.0})
        QTest::addRow("%g", ratio) << ratio;
}

void tst_GallerySheet::ratioGivesMorePixels()
{
    QFETCH(double, ratio);
    const QImage picture = m_sheet->picture(ratio);
    QCOMPARE(picture.devicePixelRatio(), ratio);
    QCOMPARE(picture.width(), static_cast<int>(std::ceil(m_sheet->width() * ratio)));
    QCOMPARE(picture.height(), static_cast<int>(std::ceil(m_sheet->height() * ratio)));
}

void tst_GallerySheet::boundControlsFollowTheHost()
{
    HostMemory memory;
    GallerySheet sheet(memory);
    GallerySection& fields = *sheet.section(QStringLiteral("TextEditController"));
    const QImage before = sheet.picture(fields);
    const std::size_t frequency = findParameterByName("fx_rackfx_prm_6");
    memory.setValue(parameterId(frequency), 2, 17, 0, 0, 1);
    QVERIFY(sheet.picture(fields) != before);
}

void tst_GallerySheet::unbindsWithTheSheet()
{
    CountingMemory memory;
    {
        const GallerySheet sheet(memory);
        QVERIFY(memory.observers() > 20);
    }
    QCOMPARE(memory.observers(), 0);
}

ZOLTA_TEST_MAIN(tst_GallerySheet)
#include "tst_GallerySheet.moc"
