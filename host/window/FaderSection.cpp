// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/FaderSection.h"

#include "controls/FaderController.h"
#include "controls/TextEditController.h"
#include "host/window/LevelFader.h"
#include "host/window/MixerStyle.h"
#include "host/window/StripMeters.h"

#include <QPainter>

using namespace CommonController_MemAPI;

namespace {

constexpr int levelMargin = 12;
constexpr int levelHeight = 22;
constexpr int levelGap = 8;
constexpr int overhang = 2; // of the meters beyond the fader
constexpr int metersLeft = 62;
constexpr int metersWidth = 38;
constexpr int levelFontSize = 12;
const QString unit = QStringLiteral("dB");

} // namespace

FaderSection::FaderSection(QWidget* parent)
    : QWidget(parent)
    , m_fader(new LevelFader(this))
    , m_level(new TextEditController(this))
    , m_meters(new StripMeters(this))
{
    m_level->setAlignment(Qt::AlignCenter);
    m_level->setPostfix(QLatin1Char(' ') + unit);
    m_level->setUnit(unit);
    fader().setUnit(unit);
    m_level->setFocusPolicy(Qt::StrongFocus);
    QFont digits = m_level->font();
    digits.setPixelSize(levelFontSize);
    m_level->setFont(digits);
}

FaderController& FaderSection::fader() const { return m_fader->fader(); }

void FaderSection::resizeEvent(QResizeEvent*)
{
    const int faderHeight = height() - levelHeight - levelGap - overhang;
    m_fader->setGeometry(overhang, overhang, LevelFader::faderWidth, faderHeight);
    m_meters->setGeometry(metersLeft, 0, metersWidth, faderHeight + 2 * overhang);
    m_level->setGeometry(levelMargin, height() - levelHeight, width() - 2 * levelMargin,
                         levelHeight);
}

void FaderSection::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    MixerStyle::drawWell(painter, m_level->geometry(), 3);
}

#include "moc_FaderSection.cpp"
