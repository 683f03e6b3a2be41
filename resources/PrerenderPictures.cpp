// SPDX-License-Identifier: GPL-3.0-or-later
// Writes what the library keeps of its pictures in their prerendered form.
//
// Usage: prerender-pictures FOLDER PICTURE.svg...
//
// For every picture FOLDER gets a file of the same name, and all of them a collection file,
// "Prerendered.qrc". They are drawn at once and twice their size, the usual scales of an editor.
#include "widgets/PrerenderedSvg.h"
#include "widgets/SvgDocument.h"
#include "widgets/SvgImage.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPainter>

#include <cstdlib>

namespace {

/// The raster that \a image draws when it is stretched to \a size at a whole pixel.
SvgRaster rasterOf(SvgImage& image, const QSize& size)
{
    const QPoint corner(size.width(), size.height());
    QImage field(size * 3, QImage::Format_ARGB32_Premultiplied);
    field.fill(Qt::transparent);
    QPainter painter(&field);
    image.draw(painter, QRect(corner, size));
    painter.end();
    return simplified(trimmed({field, -corner}));
}

QByteArray prerendered(const QString& path)
{
    SvgImage image;
    image.load(path);
    if (!image.isValid())
        qFatal("\"%s\" is not an SVG picture.", qPrintable(path));
    PrerenderedSvg svg(image.defaultSize(), SvgDocument::load(path)->extent());
    for (const int scale : {1, 2})
        svg.add(image.defaultSize() * scale, rasterOf(image, image.defaultSize() * scale));
    return svg.bytes();
}

void write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("\"%s\" cannot be written: %s", qPrintable(path), qPrintable(file.errorString()));
}

} // namespace

int main(int argc, char* argv[])
{
    const QDir folder(argc > 1 ? QFile::decodeName(argv[1]) : QString());
    QByteArray collection = "<RCC><qresource prefix=\"/prerendered/image/zolta\">\n";
    for (int i = 2; i < argc; ++i) {
        const QString path = QFile::decodeName(argv[i]);
        const QString name = QFileInfo(path).fileName();
        write(folder.filePath(name), prerendered(path));
        collection += "<file>" + name.toUtf8() + "</file>\n";
    }
    write(folder.filePath(QStringLiteral("Prerendered.qrc")), collection + "</qresource></RCC>\n");
    return EXIT_SUCCESS;
}
