// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/DataTable.h"
#include "tests/support/TestObject.h"
#include "widgets/PrerenderedSvg.h"
#include "widgets/SvgImage.h"

#include <QDir>
#include <QPainter>
#include <QTemporaryDir>

namespace {

QStringList pictures() { return QDir(QStringLiteral(":/image/zolta")).entryList(); }

QString resourceOf(const QString& name) { return QStringLiteral(":/image/zolta/") + name; }

/// What \a image draws on an empty ground at \a scale, straight and turned.
QImage drawn(SvgImage& image, double scale, QPointF place, double opacity)
{
    const QSizeF size = QSizeF(image.defaultSize()) * scale;
    const QPointF margin(12.0, 12.0);
    QImage field((size * 2.0).toSize() + QSize(60, 60), QImage::Format_ARGB32_Premultiplied);
    field.fill(Qt::transparent);
    QPainter painter(&field);
    painter.setOpacity(opacity);
    image.draw(painter, QRectF(margin + place, size));
    image.drawTurned(painter, QRectF(margin + place + QPointF(size.width(), size.height()), size),
                     30.0, 1.0, field.rect());
    return field;
}

} // namespace

/// A copy of a picture in a file has no prerendered form: it is always rendered.
class tst_PrerenderedPictures : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyPictureHasTheUsualScales_data();
    void everyPictureHasTheUsualScales();
    void lookAsTheirFiles_data();
    void lookAsTheirFiles();
    void goWithTheirPicture();

private:
    QString fileOf(const QString& name) const;

    QTemporaryDir m_folder;
};

int qInitResources_Zolta();
int qCleanupResources_Zolta();

QString tst_PrerenderedPictures::fileOf(const QString& name) const
{
    const QString file = m_folder.filePath(name);
    if (!QFile::exists(file) && !QFile::copy(resourceOf(name), file))
        qFatal("cannot copy %s", qPrintable(name));
    return file;
}

void tst_PrerenderedPictures::everyPictureHasTheUsualScales_data()
{
    QTest::addColumn<QString>("name");
    const QStringList names = pictures();
    QCOMPARE(names.size(), 60);
    for (const QString& name : names)
        QTest::newRow(qPrintable(name)) << name;
}

void tst_PrerenderedPictures::everyPictureHasTheUsualScales()
{
    QFETCH(QString, name);
    const auto svg = PrerenderedSvg::find(resourceOf(name));
    QVERIFY(svg);
    for (const int scale : {1, 2})
        QVERIFY(svg->raster(svg->defaultSize() * scale));
    QVERIFY(!svg->raster(svg->defaultSize() * 3));
    QVERIFY(!PrerenderedSvg::find(fileOf(name)));
}

void tst_PrerenderedPictures::lookAsTheirFiles_data()
{
    addColumns<QString, double, QPointF, double>("name", "scale", "place", "opacity");
    const QStringList names = pictures();
    for (const QString& name : names) {
        const auto row = [&](double scale, QPointF place, double opacity) {
            QTest::addRow("%s at %g + %g, %g", qPrintable(name), scale, place.x(), opacity)
                << name << scale << place << opacity;
        };
        row(1.0, {}, 1.0);
        row(2.0, {}, 1.0);
        row(1.0, {0.5, 0.25}, 1.0);
        row(2.0, {}, 0.4);
        row(1.5, {}, 1.0);
    }
}

void tst_PrerenderedPictures::lookAsTheirFiles()
{
    QFETCH(QString, name);
    QFETCH(double, scale);
    QFETCH(QPointF, place);
    QFETCH(double, opacity);
    SvgImage resource;
    resource.load(resourceOf(name));
    SvgImage file;
    file.load(fileOf(name));
    QVERIFY(resource.isValid() && file.isValid());
    QCOMPARE(resource.defaultSize(), file.defaultSize());
    QCOMPARE(drawn(resource, scale, place, opacity), drawn(file, scale, place, opacity));
}

void tst_PrerenderedPictures::goWithTheirPicture()
{
    const QString path = resourceOf(pictures().first());
    qCleanupResources_Zolta();
    SvgImage image;
    image.load(path);
    QVERIFY(!image.isValid());
    QCOMPARE(image.defaultSize(), QSize(0, 0));
    qInitResources_Zolta();
    image.load(path);
    QVERIFY(image.isValid());
}

QTEST_APPLESS_MAIN(tst_PrerenderedPictures)
#include "tst_PrerenderedPictures.moc"
