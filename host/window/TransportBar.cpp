// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/TransportBar.h"

#include "controls/PushButtonController.h"
#include "host/audio/AudioSession.h"
#include "host/model/MixerModel.h"
#include "host/window/MixerStyle.h"
#include "widgets/SvgLabel.h"

#include <QComboBox>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QSignalBlocker>
#include <QSlider>
#include <QStyleOptionSlider>

#include <algorithm>
#include <cmath>

namespace {

constexpr int barHeight = 46;
constexpr int stepsPerSecond = 10;

QString timeText(double seconds)
{
    const int whole = std::isfinite(seconds) ? static_cast<int>(seconds) : 0;
    return QStringLiteral("%1:%2").arg(whole / 60).arg(whole % 60, 2, 10, QLatin1Char('0'));
}

// A text as a tool tip shows it, whatever marks there are in it.
QString plain(const QString& text)
{
    return Qt::mightBeRichText(text) ? text.toHtmlEscaped() : text;
}

// Of a text that is too long a part is seen.
class ElidedLabel : public QLabel
{
public:
    ElidedLabel(Qt::TextElideMode mode, int smallestWidth, QWidget* parent)
        : QLabel(parent)
        , m_mode(mode)
    {
        setTextFormat(Qt::PlainText);
        setMinimumWidth(smallestWidth);
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        const QString shown = fontMetrics().elidedText(text(), m_mode, width());
        style()->drawItemText(&painter, rect(), Qt::AlignLeft | Qt::AlignVCenter, palette(),
                              isEnabled(), shown, foregroundRole());
    }

private:
    Qt::TextElideMode m_mode;
};

// A click anywhere goes there, and a drag goes on from there.
class SeekSlider : public QSlider
{
public:
    explicit SeekSlider(QWidget* parent)
        : QSlider(Qt::Horizontal, parent)
    {}

protected:
    void mousePressEvent(QMouseEvent* event) override
    {
        if (event->button() == Qt::LeftButton)
            setSliderPosition(positionAt(event->position().toPoint().x()));
        QSlider::mousePressEvent(event);
    }

private:
    int positionAt(int x) const
    {
        QStyleOptionSlider option;
        initStyleOption(&option);
        const auto rectOf = [&](QStyle::SubControl part) {
            return style()->subControlRect(QStyle::CC_Slider, &option, part, this);
        };
        const QRect groove = rectOf(QStyle::SC_SliderGroove);
        const int handle = rectOf(QStyle::SC_SliderHandle).width();
        return QStyle::sliderValueFromPosition(minimum(), maximum(), x - groove.left() - handle / 2,
                                               groove.width() - handle, option.upsideDown);
    }
};

} // namespace

TransportBar::TransportBar(MixerModel& mixerModel, QWidget* parent)
    : QWidget(parent)
    , m_mixerModel(mixerModel)
{
    setFixedHeight(barHeight);
    build();
    MixerStyle::followFocus(this);
    connect(&mixerModel, &MixerModel::transportChanged, this, &TransportBar::listen);
    listen();
}

void TransportBar::retranslate()
{
    m_texts.retranslate();
    showSession(m_mixerModel.transport());
}

void TransportBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    MixerStyle::drawPanel(painter, rect());
    MixerStyle::drawFocus(painter, *this);
}

TransportBar::Button* TransportBar::addButton(const QString& symbol, const Retranslator::Text& name)
{
    auto* button = new Button(this);
    MixerStyle::styleKey(button, QStringLiteral("key"));
    button->setIconSvg(MixerStyle::image(symbol));
    m_texts.add([button, name] {
        button->setAccessibleName(name());
        button->setToolTip(name());
    });
    return button;
}

void TransportBar::build()
{
    m_open = addButton(QStringLiteral("symbol_open"), [] { return tr("Open sound file"); });
    m_play = addButton(QStringLiteral("symbol_play"), [] { return tr("Play"); });
    m_stop = addButton(QStringLiteral("symbol_stop"), [] { return tr("Stop"); });
    m_start = addButton(QStringLiteral("symbol_start"), [] { return tr("Return to the start"); });
    m_loop = addButton(QStringLiteral("symbol_loop"), [] { return tr("Loop"); });
    MixerStyle::styleKey(m_loop, QStringLiteral("key"), QStringLiteral("blue"));
    m_file = new ElidedLabel(Qt::ElideMiddle, 50, this);
    m_position = new SeekSlider(this);
    m_position->setMinimumWidth(50);
    m_texts.add([this] { m_position->setAccessibleName(tr("Position")); });
    m_time = new QLabel(this);
    m_devices = new QComboBox(this);
    m_devices->setMinimumWidth(70);
    m_devices->setFocusPolicy(Qt::TabFocus);
    m_texts.add([this] { m_devices->setAccessibleName(tr("Output device")); });
    m_lamp = new SvgLabel(this);
    m_lamp->setFixedSize(14, 14);
    m_status = new ElidedLabel(Qt::ElideRight, 40, this);
    layOut();
    connectControls();
}

void TransportBar::layOut()
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(14, 4, 14, 4);
    row->setSpacing(6);
    const std::initializer_list<QWidget*> widgets = {m_open,    m_start, m_play,     m_stop,
                                                     m_loop,    m_file,  m_position, m_time,
                                                     m_devices, m_lamp,  m_status};
    for (QWidget* widget : widgets)
        row->addWidget(widget);
    row->insertSpacing(1, 8);
    row->setStretchFactor(m_position, 1);
}

void TransportBar::connectControls()
{
    const auto drive = [this](auto action) {
        return [this, action] {
            if (AudioSession* transport = m_mixerModel.transport())
                action(*transport);
        };
    };
    connect(m_open, &QAbstractButton::clicked, this, &TransportBar::openWanted);
    connect(m_play, &QAbstractButton::clicked, this, drive([](AudioSession& transport) {
                static_cast<void>(transport.play()); // failed() says what goes wrong
            }));
    connect(m_stop, &QAbstractButton::clicked, this,
            drive([](AudioSession& transport) { transport.stop(); }));
    connect(m_start, &QAbstractButton::clicked, this,
            drive([](AudioSession& transport) { transport.setPosition(0.0); }));
    connect(m_loop, &QAbstractButton::clicked, this,
            drive([this](AudioSession& transport) { transport.setLooping(m_loop->isChecked()); }));
    connect(m_position, &QSlider::actionTriggered, this, drive([this](AudioSession& transport) {
                transport.setPosition(double(m_position->sliderPosition()) / stepsPerSecond);
            }));
    connect(m_devices, &QComboBox::activated, this, drive([this](AudioSession& transport) {
                transport.setOutput(m_devices->currentIndex());
            }));
}

void TransportBar::listen()
{
    const AudioSession* transport = m_mixerModel.transport();
    if (transport) {
        connect(transport, &AudioSession::changed, this,
                [this] { showSession(m_mixerModel.transport()); });
        connect(transport, &AudioSession::positionChanged, this, &TransportBar::showPosition);
    }
    showSession(transport);
}

void TransportBar::showSession(const AudioSession* transport)
{
    const bool stopped = !transport || transport->state() == AudioSession::State::Stopped;
    const bool error = transport && !transport->error().isEmpty();
    const bool loaded = transport && !transport->file().isEmpty();
    MixerStyle::enableKey(m_open, transport);
    MixerStyle::enableKey(m_play, loaded && stopped);
    MixerStyle::enableKey(m_stop, !stopped);
    MixerStyle::enableKey(m_start, loaded);
    MixerStyle::enableKey(m_loop, transport);
    m_loop->setChecked(transport && transport->isLooping());
    m_position->setEnabled(loaded);
    m_file->setText(loaded ? QFileInfo(transport->file()).fileName() : tr("No file"));
    m_file->setToolTip(loaded ? plain(transport->file()) : QString());
    m_lamp->setSvg(MixerStyle::image(error     ? QStringLiteral("lamp_red")
                                     : stopped ? QStringLiteral("lamp_off")
                                               : QStringLiteral("lamp_green")));
    m_status->setText(statusText(transport));
    m_status->setToolTip(error ? plain(transport->error()) : m_status->text());
    showDevices(transport);
    showPosition();
}

void TransportBar::showDevices(const AudioSession* transport)
{
    m_devices->clear();
    const QStringList outputs = transport ? transport->outputs() : QStringList();
    m_devices->setEnabled(!outputs.isEmpty());
    m_devices->addItems(m_devices->isEnabled() ? outputs : QStringList{tr("No device")});
    m_devices->setCurrentIndex(m_devices->isEnabled() ? transport->output() : 0);
    m_devices->setToolTip(m_devices->accessibleName() + QLatin1Char('\n') +
                          m_devices->currentText());
}

void TransportBar::showPosition()
{
    const AudioSession* transport = m_mixerModel.transport();
    const double position = transport ? transport->position() : 0.0;
    const double length = transport ? std::max(transport->duration(), 0.0) : 0.0;
    m_time->setText(timeText(position) + QLatin1String(" / ") + timeText(length));
    m_position->setAccessibleDescription(m_time->text());
    if (m_position->isSliderDown())
        return;
    const QSignalBlocker blocker(m_position);
    m_position->setMaximum(static_cast<int>(std::lround(length * stepsPerSecond)));
    m_position->setValue(static_cast<int>(std::lround(position * stepsPerSecond)));
}

QString TransportBar::statusText(const AudioSession* transport) const
{
    if (transport && transport->state() == AudioSession::State::Waiting)
        return tr("Waiting for device");
    if (transport && !transport->error().isEmpty())
        return tr("Audio error");
    const bool playing = transport && transport->state() == AudioSession::State::Playing;
    return playing ? tr("Playing") : tr("No audio");
}

#include "moc_TransportBar.cpp"
