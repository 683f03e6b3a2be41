// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QKeySequence>
#include <QObject>

class BandFocus;
class MixerModel;
class QWidget;

/// Lets a band be heard by what it changes for as long as the user holds something: a button that
/// calls hold() and release(), or a key. The band is the one that the user has to do with, and may
/// change meanwhile.
///
/// It never lasts longer than somebody can hold: it ends as well when the window is left, hidden,
/// blocked by a dialog or gone, and when the transport stops.
class BandListen : public QObject
{
    Q_OBJECT

public:
    static constexpr Qt::Key key = Qt::Key_L;

    /// For \a channel of \a mixerModel and the keys of \a window, its parent. \a focus must outlive
    /// its use.
    BandListen(MixerModel& mixerModel, int channel, const BandFocus& focus, QWidget* window);
    ~BandListen() override;

    bool isHeld() const { return m_held; }
    void hold();
    void release();

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// It begins or ends, or the band is another one.
    void changed();

private:
    void followTransport();
    void followBand();

    MixerModel& m_mixerModel;
    int m_channel;
    const BandFocus& m_focus;
    QWidget* m_window;
    bool m_held = false;
};
