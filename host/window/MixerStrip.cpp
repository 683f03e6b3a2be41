// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/MixerStrip.h"

#include "controls/ButtonGroupController.h"
#include "controls/FaderController.h"
#include "controls/PullDownButtonController.h"
#include "controls/TextEditController.h"
#include "host/model/MixerModel.h"
#include "host/window/EqualizerThumbnail.h"
#include "host/window/FaderSection.h"
#include "host/window/MixerStyle.h"
#include "host/window/PeakDisplay.h"
#include "host/window/StripMeters.h"
#include "hosting/HostModel.h"
#include "widgets/ChannelNameEdit.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <initializer_list>
#include <utility>

using namespace CommonController_MemAPI;

namespace {

constexpr int rightColumn = MixerStrip::margin + 42;
constexpr QRect namePlace(MixerStrip::margin, 12, MixerStrip::innerWidth, 24);
constexpr QRect sourcePlace(MixerStrip::margin, 44, MixerStrip::innerWidth, 22);
constexpr QRect widthPlace(MixerStrip::margin, 72, MixerStrip::innerWidth, 22);
constexpr QRect curvePlace(MixerStrip::margin, 102, MixerStrip::innerWidth, 54);
constexpr QPoint equalizerPlace(MixerStrip::margin, 162);
constexpr QPoint editPlace(rightColumn, 162);
constexpr QPoint mutePlace(MixerStrip::margin, 190);
constexpr QPoint soloPlace(rightColumn, 190);
constexpr QRect balancePlace(MixerStrip::margin, 218, MixerStrip::innerWidth, 18);
constexpr int sectionTop = 244;
constexpr int elideMargin = 5; // of the name
constexpr int silent = -1270;

QStringList sourceNames()
{
    QStringList names{MixerStrip::tr("Test signal"), MixerStrip::tr("File")};
    for (int input = SourceInput1; input < SourceOff; ++input)
        names << MixerStrip::tr("Input %1").arg(input - SourceInput1 + 1);
    return names << MixerStrip::tr("Off");
}

int wordAt(const unsigned int* words, unsigned short base, int channel)
{
    return static_cast<short>(words[base + 2 * channel] & 0xFFFFU);
}

bool comesBy(const QEvent* event, std::initializer_list<Qt::FocusReason> reasons)
{
    return event->type() == QEvent::FocusIn &&
           std::ranges::count(reasons, static_cast<const QFocusEvent*>(event)->reason()) > 0;
}

// Whether the user turned to a control. One that has the focus again after a menu or another window
// is not meant.
bool turnsTo(const QEvent* event)
{
    const bool returns =
        comesBy(event, {Qt::ActiveWindowFocusReason, Qt::PopupFocusReason, Qt::MenuBarFocusReason});
    const QEvent::Type type = event->type();
    return type == QEvent::MouseButtonPress || (type == QEvent::FocusIn && !returns);
}

} // namespace

MixerStrip::MixerStrip(MixerModel& mixerModel, int channel, QWidget* parent)
    : QWidget(parent)
    , m_mixerModel(mixerModel)
    , m_channel(channel)
    , m_shownAsPair(mixerModel.isPair(channel))
{
    setFixedWidth(stripWidth);
    setMinimumHeight(minStripHeight);
    buildName();
    buildSource();
    buildWidth();
    auto* curve = new EqualizerThumbnail(mixerModel, channel, this);
    curve->setGeometry(curvePlace);
    m_texts.add([this, curve] {
        curve->setAccessibleName(tr("Curve of %1").arg(m_mixerModel.shownName(m_channel)));
        curve->setToolTip(tr("Opens the editor"));
    });
    connect(curve, &EqualizerThumbnail::clicked, this,
            [this] { Q_EMIT editorWanted(m_channel, isPair()); });
    buildKeys();
    buildBalance();
    buildFader();
    buildMeters();
    m_silenced = isSilenced();
    connect(&mixerModel, &MixerModel::channelChanged, this, &MixerStrip::follow);
    connect(&mixerModel, &MixerModel::channelCountChanged, this, [this] { follow(m_channel); });
    connect(&mixerModel, &MixerModel::nameChanged, this, [this](int changed) {
        if (changed == m_channel)
            retranslate();
    });
    MixerStyle::followFocus(this);
    for (QWidget* control : findChildren<QWidget*>())
        control->installEventFilter(this);
}

bool MixerStrip::isPair() const { return m_mixerModel.isPair(m_channel); }

void MixerStrip::setSelected(bool selected)
{
    m_selected = selected;
    update();
}

void MixerStrip::showMeters(const unsigned int* words, unsigned int count)
{
    if (count < HostModel::meterWordCount)
        return;
    m_section->meters().show(0, levelOf(words, m_channel));
    if (isPair())
        m_section->meters().show(1, levelOf(words, partnerOf(m_channel)));
}

void MixerStrip::retranslate()
{
    m_texts.retranslate();
    update();
}

bool MixerStrip::eventFilter(QObject* control, QEvent* event)
{
    if (turnsTo(event))
        Q_EMIT selected(m_channel);
    if (comesBy(event, {Qt::TabFocusReason, Qt::BacktabFocusReason}))
        Q_EMIT walkedTo(static_cast<QWidget*>(control));
    return QWidget::eventFilter(control, event);
}

void MixerStrip::mousePressEvent(QMouseEvent* event)
{
    Q_EMIT selected(m_channel);
    QWidget::mousePressEvent(event);
}

void MixerStrip::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    m_section->setGeometry(0, sectionTop, width(), height() - footHeight - sectionTop);
}

// Resizing the field resets the margin that its name needs.
void MixerStrip::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    showName();
}

void MixerStrip::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    MixerStyle::drawPanel(painter, rect());
    painter.fillRect(QRectF(1, 1, width() - 2, 3),
                     m_selected ? MixerStyle::accent : QColor(0x10, 0x12, 0x14));
    MixerStyle::drawWell(painter, namePlace, 3);
    drawBalance(painter);
    QFont font = painter.font();
    font.setPixelSize(11);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(m_silenced   ? MixerStyle::warning
                   : m_selected ? MixerStyle::letters
                                : MixerStyle::dimLetters);
    painter.drawText(QRect(margin, height() - 26, innerWidth, 16), Qt::AlignCenter, footText());
    if (!m_name->hasFocus())
        MixerStyle::drawFocus(painter, *this);
}

void MixerStrip::buildName()
{
    m_name = new ChannelNameEdit(this);
    m_name->setGeometry(namePlace.adjusted(1, 1, -1, -1));
    m_name->setFrame(false);
    m_name->setAlignment(Qt::AlignCenter);
    QFont letters = m_name->font();
    letters.setPixelSize(12);
    m_name->setFont(letters);
    QPalette palette = m_name->palette();
    palette.setColor(QPalette::Base, Qt::transparent);
    m_name->setPalette(palette);
    m_name->setElideMargin(elideMargin);
    name(m_name, [](const QString& channel) { return tr("Name of %1").arg(channel); });
    m_texts.add([this] {
        showName();
        m_name->setToolTip(tr("A double click renames the channel"));
    });
    connect(m_name, &ChannelNameEdit::channelNameChanged, this, [this](const QString& text) {
        m_mixerModel.rename(m_channel, text == m_name->defaultName() ? QString() : text);
        m_name->home(false);
    });
}

void MixerStrip::showName()
{
    const QString whole = tr("Channel %1").arg(shownNumber(m_channel));
    const int room = m_name->width() - elideMargin - m_name->fontMetrics().horizontalAdvance(whole);
    m_name->setDefaultName(room >= 0 ? whole : tr("Ch. %1").arg(shownNumber(m_channel)));
    m_name->setChannelName(m_mixerModel.name(m_channel));
    m_name->home(false);
}

void MixerStrip::buildSource()
{
    m_source = new PullDownButtonController(this);
    MixerStyle::styleKey(m_source, QStringLiteral("wide"));
    m_source->setButtonSvg(MixerStyle::image(QStringLiteral("choice_up")));
    m_source->setPushButtonSvg(MixerStyle::image(QStringLiteral("choice_dw")));
    m_source->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_source->setTextLeftMargin(7);
    m_source->setGeometry(sourcePlace);
    m_texts.add([this] { m_source->setTextList(sourceNames()); });
    name(m_source, [](const QString& channel) { return tr("Source of %1").arg(channel); });
    bind(m_source, StripParameter::Source, m_channel);
    offerInputs();
}

// As many inputs as there are channels, and those of a usual mixer in any case.
void MixerStrip::offerInputs()
{
    const int inputs = std::max(m_mixerModel.channelCount(), defaultChannelCount);
    const int chosen = m_mixerModel.memory().strip(m_channel, StripParameter::Source);
    QList<bool> offered(SourceOff + 1, true);
    for (int source = SourceInput1 + inputs; source < SourceOff; ++source)
        offered[source] = source == chosen;
    m_source->setVisibleList(offered);
}

// The pair's width is one value, whichever of its strips switches it.
void MixerStrip::buildWidth()
{
    auto* group = new ButtonGroupController(this);
    group->setGeometry(widthPlace);
    const char* symbols[] = {"symbol_mono", "symbol_stereo"};
    for (int i = 0; i < 2; ++i) {
        auto* key = new PushButtonController(group);
        MixerStyle::styleKey(key, QStringLiteral("key"), QStringLiteral("blue"));
        key->setIconSvg(MixerStyle::image(QLatin1String(symbols[i])));
        key->move(i * (rightColumn - margin), 0);
        m_texts.add([this, key, i] {
            const QString text = i == 0 ? tr("%1 mono") : tr("%1 stereo");
            key->setAccessibleName(text.arg(m_mixerModel.shownName(m_channel)));
            key->setToolTip(key->accessibleName());
        });
    }
    name(group, [](const QString& channel) { return tr("Mono or stereo of %1").arg(channel); });
    bind(group, StripParameter::Stereo, m_channel & ~1);
}

void MixerStrip::buildKeys()
{
    Key* equalizer = addKey(equalizerPlace, QStringLiteral("white"));
    equalizer->setText(QStringLiteral("EQ"));
    name(equalizer, [](const QString& channel) { return tr("Equalizer of %1").arg(channel); });
    bind(equalizer, StripParameter::EqualizerOn, m_channel);

    Key* edit = addKey(editPlace, QString());
    m_texts.add([edit] { edit->setText(tr("Edit")); });
    name(edit, [](const QString& channel) { return tr("Editor of %1").arg(channel); });
    connect(edit, &QAbstractButton::clicked, this,
            [this] { Q_EMIT editorWanted(m_channel, isPair()); });

    Key* mute = addKey(mutePlace, QStringLiteral("red"));
    mute->setText(QStringLiteral("M"));
    name(mute, [](const QString& channel) { return tr("Mute of %1").arg(channel); });
    bind(mute, StripParameter::Mute, m_channel);

    Key* solo = addKey(soloPlace, QStringLiteral("amber"));
    solo->setText(QStringLiteral("S"));
    name(solo, [](const QString& channel) { return tr("Solo of %1").arg(channel); });
    bind(solo, StripParameter::Solo, m_channel);
}

void MixerStrip::buildFader()
{
    m_section = new FaderSection(this);
    name(&m_section->fader(),
         [](const QString& channel) { return tr("Fader of %1").arg(channel); });
    bind(&m_section->fader(), StripParameter::Level, m_channel);
    name(&m_section->level(),
         [](const QString& channel) { return tr("Level of %1").arg(channel); });
    bind(&m_section->level(), StripParameter::Level, m_channel);
}

void MixerStrip::buildBalance()
{
    auto* balance = new FaderController(this);
    balance->setOrientation(Qt::Horizontal);
    balance->setGeometry(balancePlace);
    balance->setKnobSvg(MixerStyle::image(QStringLiteral("balance_cap")));
    balance->setEnableDoubleClick(true);
    balance->setOperationType(FaderController::Relative);
    balance->setFocusPolicy(Qt::StrongFocus);
    name(balance, [](const QString& channel) { return tr("Balance of %1").arg(channel); });
    bind(balance, StripParameter::Balance, m_channel);
}

void MixerStrip::buildMeters()
{
    StripMeters& meters = m_section->meters();
    meters.setPair(m_shownAsPair);
    name(&meters.display(),
         [](const QString& channel) { return tr("Highest level of %1").arg(channel); });
    m_texts.add([this, &meters] {
        for (int side = 0; side < StripMeters::sides; ++side)
            meters.setNames(side, tr("Meter of channel %1").arg(shownNumber(m_channel + side)),
                            tr("Peak of channel %1").arg(shownNumber(m_channel + side)));
        meters.display().retranslate();
    });
}

void MixerStrip::bind(AbstractController* control, StripParameter parameter, int channel)
{
    control->setMemAPIValue(&m_mixerModel.memory(), stripId(parameter),
                            static_cast<unsigned short>(channel), 0);
}

MixerStrip::Key* MixerStrip::addKey(const QPoint& place, const QString& color)
{
    auto* key = new Key(this);
    MixerStyle::styleKey(key, QStringLiteral("key"), color);
    key->move(place);
    return key;
}

void MixerStrip::name(QWidget* control, const std::function<QString(const QString&)>& text)
{
    m_texts.add([this, control, text] {
        control->setAccessibleName(text(m_mixerModel.shownName(m_channel)));
        control->setToolTip(control->accessibleName());
    });
}

void MixerStrip::follow(int channel)
{
    const bool silenced = isSilenced();
    if (std::exchange(m_silenced, silenced) != silenced)
        update();
    if (channel == m_channel)
        offerInputs();
    if (channel != (m_channel & ~1) || isPair() == m_shownAsPair)
        return;
    m_shownAsPair = isPair();
    m_section->meters().setPair(m_shownAsPair);
    update();
}

// By the solo of other strips, not by its own mute.
bool MixerStrip::isSilenced() const
{
    return !m_mixerModel.isAudible(m_channel) &&
           m_mixerModel.memory().strip(m_channel, StripParameter::Mute) == 0;
}

QString MixerStrip::footText() const
{
    if (m_silenced)
        return tr("Silenced");
    const QString own = QString::number(shownNumber(m_channel));
    return isPair()
               ? own + QLatin1String(" + ") + QString::number(shownNumber(partnerOf(m_channel)))
               : own;
}

int MixerStrip::levelOf(const unsigned int* words, int channel) const
{
    const HostMemory& memory = m_mixerModel.memory();
    const int fader = memory.strip(m_channel, StripParameter::Level);
    if (fader == 0 || !m_mixerModel.isAudible(m_channel))
        return silent;
    const bool isOn = memory.strip(m_channel, StripParameter::EqualizerOn) != 0;
    const int level = wordAt(words, isOn ? HostModel::returnMeter : HostModel::sendMeter, channel);
    return level <= silent ? silent : std::max(silent, level + stripLevelTenths(fader));
}

void MixerStrip::drawBalance(QPainter& painter) const
{
    const QPointF middle = QRectF(balancePlace).center();
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x08, 0x09, 0x0b));
    painter.drawRoundedRect(
        QRectF(balancePlace.left() + 4, middle.y() - 2, balancePlace.width() - 8, 4), 2, 2);
    painter.fillRect(QRectF(middle.x() - 0.5, balancePlace.top() - 1, 1, balancePlace.height() + 2),
                     MixerStyle::dimLetters);
}

#include "moc_MixerStrip.cpp"
