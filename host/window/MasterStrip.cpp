// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/MasterStrip.h"

#include "controls/FaderController.h"
#include "controls/PushButtonController.h"
#include "controls/TextEditController.h"
#include "host/model/MixerModel.h"
#include "host/window/FaderSection.h"
#include "host/window/MixerStrip.h"
#include "host/window/MixerStyle.h"
#include "host/window/PeakDisplay.h"
#include "host/window/StripMeters.h"

#include <QPainter>

using namespace CommonController_MemAPI;

namespace {

constexpr QRect titlePlace(MixerStrip::margin, 12, MixerStrip::innerWidth, 24);
constexpr int keysTop = 44;
constexpr int keyDistance = 28;
constexpr int masterSectionTop = 138;

struct KeyEntry
{
    MasterParameter parameter;
    const char* text;
    const char* name;
    const char* color;
};
constexpr KeyEntry masterKeys[] = {
    {MasterParameter::Mute, QT_TRANSLATE_NOOP("MasterStrip", "Mute"),
     QT_TRANSLATE_NOOP("MasterStrip", "Mute of the master"), "red"},
    {MasterParameter::Dim, QT_TRANSLATE_NOOP("MasterStrip", "Dim"),
     QT_TRANSLATE_NOOP("MasterStrip", "Plays 20 dB quieter"), "amber"},
    {MasterParameter::Mono, QT_TRANSLATE_NOOP("MasterStrip", "Mono"),
     QT_TRANSLATE_NOOP("MasterStrip", "Plays both sides as one"), "blue"},
};

} // namespace

MasterStrip::MasterStrip(MixerModel& mixerModel, QWidget* parent)
    : QWidget(parent)
    , m_mixerModel(mixerModel)
{
    setFixedWidth(MixerStrip::stripWidth);
    setMinimumHeight(MixerStrip::minStripHeight);
    buildKeys();
    buildSection();
    MixerStyle::followFocus(this);
}

void MasterStrip::showLevels(const MeterLevels& levels)
{
    m_section->meters().show(0, levels.send);
    m_section->meters().show(1, levels.returned);
}

void MasterStrip::retranslate()
{
    m_texts.retranslate();
    update();
}

void MasterStrip::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    m_section->setGeometry(0, masterSectionTop, width(),
                           height() - MixerStrip::footHeight - masterSectionTop);
}

void MasterStrip::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    MixerStyle::drawPanel(painter, rect());
    QFont bold = font();
    bold.setPixelSize(12);
    bold.setBold(true);
    painter.setFont(bold);
    painter.setPen(MixerStyle::letters);
    painter.drawText(titlePlace, Qt::AlignCenter, tr("Master"));
    MixerStyle::drawFocus(painter, *this);
}

void MasterStrip::buildKeys()
{
    int y = keysTop;
    for (const KeyEntry& entry : masterKeys) {
        auto* key = new PushButtonController(this);
        MixerStyle::styleKey(key, QStringLiteral("wide"), QLatin1String(entry.color));
        key->move(MixerStrip::margin, y);
        y += keyDistance;
        m_texts.add([key, entry] { key->setText(tr(entry.text)); });
        name(key, [entry] { return tr(entry.name); });
        bind(key, entry.parameter);
    }
}

void MasterStrip::buildSection()
{
    m_section = new FaderSection(this);
    name(&m_section->fader(), [] { return tr("Fader of the master"); });
    bind(&m_section->fader(), MasterParameter::Level);
    name(&m_section->level(), [] { return tr("Level of the master"); });
    bind(&m_section->level(), MasterParameter::Level);
    StripMeters& meters = m_section->meters();
    meters.setPair(true);
    name(&meters.display(), [] { return tr("Highest level of the master"); });
    m_texts.add([&meters] {
        meters.setNames(0, tr("Meter of the master, left"), tr("Peak of the master, left"));
        meters.setNames(1, tr("Meter of the master, right"), tr("Peak of the master, right"));
        meters.display().retranslate();
    });
}

void MasterStrip::bind(AbstractController* control, MasterParameter parameter)
{
    control->setMemAPIValue(&m_mixerModel.memory(), masterId(parameter), 0, 0);
}

void MasterStrip::name(QWidget* control, const Retranslator::Text& text)
{
    m_texts.add([control, text] {
        control->setAccessibleName(text());
        control->setToolTip(control->accessibleName());
    });
}

#include "moc_MasterStrip.cpp"
