// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/SvgPlacement.h"

#include <QPainter>

#include <cmath>

namespace {

constexpr double FixedOne = 4294967296.0;
constexpr double LargestCoordinate = 1 << 24;

qint64 toFixed(double number) { return std::llround(number * FixedOne); }

} // namespace

SvgPlacement::SvgPlacement(const QPainter& painter, const QRectF& pictureRect)
    : toDevice(painter.deviceTransform())
    , rect(pictureRect)
    , deviceRect(toDevice.mapRect(pictureRect))
{}

bool SvgPlacement::isUpright() const
{
    return toDevice.type() <= QTransform::TxScale && toDevice.m11() > 0.0 && toDevice.m22() > 0.0;
}

bool SvgPlacement::isSane() const
{
    return qIsFinite(deviceRect.x()) && qIsFinite(deviceRect.y()) &&
           qIsFinite(deviceRect.width()) && qIsFinite(deviceRect.height()) && !rect.isEmpty() &&
           !deviceRect.isEmpty() &&
           QRectF(-LargestCoordinate, -LargestCoordinate, 2 * LargestCoordinate,
                  2 * LargestCoordinate)
               .contains(deviceRect);
}

QPoint SvgPlacement::origin() const
{
    return {static_cast<int>(toFixed(deviceRect.x()) >> 32),
            static_cast<int>(toFixed(deviceRect.y()) >> 32)};
}

QRect SvgPlacement::pixels(const QRectF& area) const
{
    return toDevice.mapRect(area).toAlignedRect().translated(-origin());
}

QRect SvgPlacement::inkPixels(const QRectF& extent) const
{
    const QRectF box = extent.isEmpty() ? QRectF(0.0, 0.0, 1.0, 1.0) : extent;
    const QRectF ink(rect.x() + box.x() * rect.width(), rect.y() + box.y() * rect.height(),
                     extent.width() * rect.width(), extent.height() * rect.height());
    return pixels(ink).adjusted(-1, -1, 1, 1);
}

QTransform SvgPlacement::toPixels(const QRect& pixels) const
{
    const QPoint corner = origin() + pixels.topLeft();
    return toDevice * QTransform::fromTranslate(-corner.x(), -corner.y());
}

double SvgPlacement::pixelSize() const { return std::sqrt(std::abs(toDevice.determinant())); }

QSize SvgPlacement::wholePixels() const
{
    constexpr qint64 fraction = 0xffffffff;
    const SvgRasterKey fixed = key(0);
    if (fixed.x || fixed.y || (fixed.width & fraction) || (fixed.height & fraction))
        return {};
    return {static_cast<int>(fixed.width >> 32), static_cast<int>(fixed.height >> 32)};
}

SvgRasterKey SvgPlacement::key(quint64 document) const
{
    constexpr qint64 fraction = 0xffffffff;
    return {.document = document,
            .x = toFixed(deviceRect.x()) & fraction,
            .y = toFixed(deviceRect.y()) & fraction,
            .width = toFixed(deviceRect.width()),
            .height = toFixed(deviceRect.height())};
}

SvgRasterKey SvgPlacement::turnedKey(quint64 document, double degrees, const QRect& part) const
{
    SvgRasterKey turned = key(document);
    turned.degrees = toFixed(std::remainder(degrees, 360.0));
    turned.scaleX = toFixed(toDevice.m11());
    turned.scaleY = toFixed(toDevice.m22());
    turned.part = part;
    return turned;
}
