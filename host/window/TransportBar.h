// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/window/Retranslator.h"

#include <QWidget>

class MixerModel;
class SvgLabel;
class AudioSession;
class QComboBox;
class QLabel;
class QSlider;

namespace CommonController_MemAPI {
class PushButtonController;
}

/// The bar above the strips: opens a sound file, plays and stops it, shows and sets its position
/// and where the sound goes, and says whether there is any. Follows the mixer's model's transport;
/// without one it says that there is no audio.
class TransportBar : public QWidget
{
    Q_OBJECT

public:
    explicit TransportBar(MixerModel& mixerModel, QWidget* parent = nullptr);

    /// Says its texts anew, in another language.
    void retranslate();

Q_SIGNALS:
    /// The user wants to choose a sound file.
    void openWanted();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    using Button = CommonController_MemAPI::PushButtonController;

    Button* addButton(const QString& symbol, const Retranslator::Text& name);
    void build();
    void layOut();
    void connectControls();
    void listen();
    void showSession(const AudioSession* transport);
    void showDevices(const AudioSession* transport);
    void showPosition();
    QString statusText(const AudioSession* transport) const;

    MixerModel& m_mixerModel;
    Retranslator m_texts;
    Button* m_open = nullptr;
    Button* m_play = nullptr;
    Button* m_stop = nullptr;
    Button* m_start = nullptr;
    Button* m_loop = nullptr;
    QLabel* m_file = nullptr;
    QSlider* m_position = nullptr;
    QLabel* m_time = nullptr;
    QComboBox* m_devices = nullptr;
    SvgLabel* m_lamp = nullptr;
    QLabel* m_status = nullptr;
};
