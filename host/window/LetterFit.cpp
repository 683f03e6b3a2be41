// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/LetterFit.h"

#include <QFontMetricsF>
#include <QLabel>

#include <cmath>

void fitLetters(QLabel* label)
{
    QFont font = label->font();
    const double room = label->contentsRect().width();
    const double needed = QFontMetricsF(font).horizontalAdvance(label->text());
    if (needed <= room)
        return;
    font.setLetterSpacing(QFont::PercentageSpacing, std::floor(100.0 * room / needed));
    label->setFont(font);
}
