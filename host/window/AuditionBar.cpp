// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/AuditionBar.h"

#include "host/model/MixerModel.h"
#include "host/window/BandFocus.h"
#include "host/window/BandListen.h"
#include "host/window/ToolBarExtension.h"

#include <QActionGroup>
#include <QComboBox>
#include <QMenu>
#include <QStyle>
#include <QToolBar>
#include <QToolButton>

namespace {

constexpr int refreshInterval = 200; // ms
constexpr double widestGain = -20.0; // as wide as any
constexpr int buttonPadding = 24;    // of the host's sheet, both sides with the frame

QString signedText(double decibels)
{
    const QString number = QString::number(decibels, 'f', 1);
    if (number == QLatin1String("-0.0"))
        return QStringLiteral("0.0");
    return decibels > 0.0 && number != QLatin1String("0.0") ? QLatin1Char('+') + number : number;
}

} // namespace

AuditionBar::AuditionBar(MixerModel& mixerModel, int channel, const QWidget* stage, QWidget* window)
    : QObject(window)
    , m_mixerModel(mixerModel)
    , m_channel(channel)
    , m_focus(new BandFocus(stage, this))
    , m_listen(new BandListen(mixerModel, channel, *m_focus, window))
    , m_window(window)
{
    buildCompare();
    buildBypass();
    buildListen();
    mixerModel.auditions().watch(channel);
    connect(&mixerModel.auditions(), &AuditionModel::changed, this, &AuditionBar::show);
    m_refresh.setInterval(refreshInterval);
    m_refresh.callOnTimeout(this, &AuditionBar::showBypass);
    show();
}

AuditionBar::~AuditionBar()
{
    m_mixerModel.auditions().disconnect(this);
    m_listen->disconnect(this);
    delete m_listen;
    m_mixerModel.auditions().unwatch(m_channel);
}

void AuditionBar::addTo(QToolBar* bar)
{
    bar->addActions({m_chooseA, m_chooseB});
    for (QWidget* each : std::initializer_list<QWidget*>{m_bypass, m_hold, m_bands})
        bar->addWidget(each);
    fitChoices(*bar);
}

void AuditionBar::fillMenu(QMenu* menu, Retranslator& texts)
{
    m_bypassItem = texts.action(
        menu, [] { return tr("Bypass at &Equal Loudness"); },
        QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_B), this,
        [this](bool on) { m_mixerModel.auditions().setBypassed(m_channel, on); });
    m_bypassItem->setCheckable(true);
    show();
}

void AuditionBar::retranslate()
{
    m_texts.retranslate();
    showBypass();
}

void AuditionBar::buildCompare()
{
    m_chooseA = buildCompareChoice(QStringLiteral("A"), false);
    m_chooseB = buildCompareChoice(QStringLiteral("B"), true);
    auto* group = new QActionGroup(this);
    group->addAction(m_chooseA);
    group->addAction(m_chooseB);
    connect(&m_mixerModel.compare(), &ChannelCompare::chosen, this, &AuditionBar::showCompare);
    showCompare();
}

QAction* AuditionBar::buildCompareChoice(const QString& letter, bool isB)
{
    auto* action = new QAction(letter, this);
    action->setCheckable(true);
    m_texts.add([action, letter] { action->setToolTip(tr("Settings %1").arg(letter)); });
    connect(action, &QAction::triggered, this,
            [this, isB] { m_mixerModel.compare().choose(m_channel, isB); });
    return action;
}

void AuditionBar::showCompare()
{
    const bool isB = m_mixerModel.compare().isB(m_channel);
    (isB ? m_chooseB : m_chooseA)->setChecked(true);
}

// As wide as it ever gets, so that nothing beside it moves.
void AuditionBar::buildBypass()
{
    m_bypass = new QToolButton(m_window);
    m_bypass->setCheckable(true);
    connect(m_bypass, &QToolButton::clicked, this,
            [this](bool on) { m_mixerModel.auditions().setBypassed(m_channel, on); });
    m_texts.add([this] {
        m_bypass->setAccessibleName(tr("Bypass at equal loudness"));
        m_bypass->setToolTip(tr("Hear the sound without the equalizer, as loud as with it "
                                "(Ctrl+Shift+B). The loudness is measured while it plays."));
        const QFontMetrics metrics = m_bypass->fontMetrics();
        m_bypass->setMinimumWidth(metrics.horizontalAdvance(bypassText(widestGain)) +
                                  buttonPadding);
    });
}

void AuditionBar::buildListen()
{
    m_hold = new QToolButton(m_window);
    m_bands = m_texts.choice(m_window, [] {
        return QStringList{tr("Low"),      tr("Middle 1"), tr("Middle 2"),
                           tr("Middle 3"), tr("Middle 4"), tr("High")};
    });
    m_texts.add([this] {
        m_hold->setText(tr("Listen"));
        m_hold->setAccessibleName(tr("Listen to the band while held"));
        m_hold->setToolTip(tr("Hold this or the key L to hear only what the band changes."));
        m_bands->setAccessibleName(tr("Band to listen to"));
        m_bands->setToolTip(tr("The band that Listen lets you hear. It follows the control or "
                               "handle that you touched last."));
    });
    connect(m_hold, &QToolButton::pressed, m_listen, &BandListen::hold);
    connect(m_hold, &QToolButton::released, m_listen, &BandListen::release);
    connect(m_listen, &BandListen::changed, this, &AuditionBar::sayListening);
    connect(m_bands, &QComboBox::currentIndexChanged, m_focus, &BandFocus::setBand);
    connect(m_focus, &BandFocus::changed, m_bands, &QComboBox::setCurrentIndex);
}

void AuditionBar::show()
{
    const bool on = m_mixerModel.auditions().isBypassed(m_channel);
    m_bypass->setChecked(on);
    if (m_bypassItem)
        m_bypassItem->setChecked(on);
    on ? m_refresh.start() : m_refresh.stop();
    showBypass();
}

void AuditionBar::showBypass()
{
    const AuditionModel& auditions = m_mixerModel.auditions();
    m_bypass->setText(auditions.isBypassed(m_channel) ? bypassText(auditions.matchedGain(m_channel))
                                                      : tr("Bypass"));
}

void AuditionBar::sayListening()
{
    m_hold->setDown(m_listen->isHeld());
    Q_EMIT said(m_listen->isHeld()
                    ? tr("You hear only what this band changes: %1.").arg(m_bands->currentText())
                    : QString());
}

QString AuditionBar::bypassText(double gain) const
{
    return tr("Bypass %1 dB").arg(signedText(gain));
}

#include "moc_AuditionBar.cpp"
