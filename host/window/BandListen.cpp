// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/BandListen.h"

#include "host/audio/AudioSession.h"
#include "host/model/MixerModel.h"
#include "host/window/BandFocus.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QShortcut>
#include <QWidget>

#include <utility>

namespace {

bool leavesWindow(QEvent::Type type)
{
    return type == QEvent::WindowDeactivate || type == QEvent::WindowBlocked ||
           type == QEvent::Hide || type == QEvent::Close;
}

bool letsGo(const QEvent& event)
{
    if (event.type() != QEvent::KeyRelease)
        return false;
    const auto& released = static_cast<const QKeyEvent&>(event);
    return released.key() == BandListen::key && !released.isAutoRepeat();
}

} // namespace

BandListen::BandListen(MixerModel& mixerModel, int channel, const BandFocus& focus, QWidget* window)
    : QObject(window)
    , m_mixerModel(mixerModel)
    , m_channel(channel)
    , m_focus(focus)
    , m_window(window)
{
    auto* pressed = new QShortcut(QKeySequence(key), window);
    pressed->setAutoRepeat(false);
    connect(pressed, &QShortcut::activated, this, &BandListen::hold);
    connect(&focus, &BandFocus::changed, this, &BandListen::followBand);
    connect(&mixerModel, &MixerModel::transportChanged, this, &BandListen::followTransport);
    followTransport();
    QCoreApplication::instance()->installEventFilter(this);
}

BandListen::~BandListen() { release(); }

void BandListen::hold()
{
    if (std::exchange(m_held, true))
        return;
    followBand();
}

void BandListen::release()
{
    if (!std::exchange(m_held, false))
        return;
    m_mixerModel.auditions().setBand(m_channel, noBand);
    Q_EMIT changed();
}

// The release of a key goes to whatever has the keyboard then.
bool BandListen::eventFilter(QObject* watched, QEvent* event)
{
    if (letsGo(*event) || (watched == m_window && leavesWindow(event->type())))
        release();
    return false;
}

void BandListen::followTransport()
{
    release();
    const AudioSession* transport = m_mixerModel.transport();
    if (!transport)
        return;
    connect(transport, &AudioSession::changed, this, [this, transport] {
        if (transport->state() == AudioSession::State::Stopped)
            release();
    });
}

void BandListen::followBand()
{
    if (!m_held)
        return;
    m_mixerModel.auditions().setBand(m_channel, m_focus.band());
    Q_EMIT changed();
}

#include "moc_BandListen.cpp"
