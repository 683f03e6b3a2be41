// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>

#include <algorithm>
#include <cstdlib>

/// The largest difference of any channel.
inline int channelDifference(QRgb a, QRgb b)
{
    return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                     std::abs(qBlue(a) - qBlue(b)), std::abs(qAlpha(a) - qAlpha(b))});
}

/// The largest difference of any channel of any pixel; 256 for pictures of different sizes.
inline int imageDifference(const QImage& a, const QImage& b)
{
    if (a.size() != b.size())
        return 256;
    int largest = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x)
            largest = std::max(largest, channelDifference(a.pixel(x, y), b.pixel(x, y)));
    }
    return largest;
}
