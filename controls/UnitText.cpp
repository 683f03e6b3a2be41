// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/UnitText.h"

namespace CommonController_MemAPI {

namespace {

/// 0 for no unit.
double factorOf(QChar letter)
{
    switch (letter.unicode()) {
    case u'k':
    case u'K':
        return 1e3;
    case u'm':
    case u'M':
        return 1e6;
    case u'g':
    case u'G':
        return 1e9;
    default:
        return 0.0;
    }
}

} // namespace

QString unitExpanded(const QString& text)
{
    const double factor = text.isEmpty() ? 0.0 : factorOf(text.back());
    if (factor == 0.0)
        return text;
    bool isNumber = false;
    const double number = text.chopped(1).toDouble(&isNumber);
    return isNumber ? QString::number(number * factor, 'g', 6) : text;
}

} // namespace CommonController_MemAPI
