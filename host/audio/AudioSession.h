// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/ChannelMeters.h"
#include "host/audio/AudioDevice.h"
#include "host/audio/FileStream.h"

#include <QElapsedTimer>
#include <QObject>
#include <QStringList>
#include <QTimer>

#include <chrono>
#include <memory>
#include <optional>

class MixBus;

/// Plays a sound file, or what comes in, through the mix bus into a sound device: the transport
/// that a window drives. GUI thread only; the sound itself has threads of its own.
///
/// A file is played once, or repeated if looping. Of more than two channels the first two are
/// heard. Everything that goes wrong is a sentence, and the session can be used on: another file,
/// another device, another try.
class AudioSession : public QObject
{
    Q_OBJECT

public:
    enum class State {
        Stopped,
        Playing,
        Waiting, ///< the device went; it is played on again as soon as it is back
        Stalled  ///< the device has asked for no samples for a while; it may go on, or be stopped
    };
    Q_ENUM(State)

    /// \a bus mixes what is played and must outlive the session. \a patience is how long a device
    /// may ask for nothing before that is an error.
    AudioSession(MixBus& bus, std::unique_ptr<AudioDevice> device,
                 std::chrono::milliseconds patience = std::chrono::seconds(3));
    ~AudioSession() override;

    /// What it mixes by.
    MixBus& bus() const { return m_bus; }

    /// Opens a file, which stops what plays before, and is what play() plays from now on. A file
    /// that cannot be read changes nothing: what plays goes on, and error() is not about files.
    Status openFile(const QString& file);
    /// The file that is open; empty for none.
    const QString& file() const { return m_file; }
    /// In seconds; -1 where it is not known.
    double duration() const;

    /// For the next play().
    void setDevice(const AudioDeviceSettings& settings);
    void setLooping(bool looping);
    bool isLooping() const { return m_looping; }

    /// The devices that there were when they were looked for first, by name. Where there were none
    /// each play() looks again.
    QStringList outputs() const;
    /// The one of them that is played on; -1 if it is none of them.
    int output() const;
    /// Plays on another one of them, at once if something plays. Does nothing for an index that
    /// does not exist.
    void setOutput(int index);

    /// Plays the file on from position(), or from the beginning where that is the end; with a live
    /// device, what comes in.
    Status play();
    /// Stops where it is.
    void stop();
    /// The one or the other.
    void playOrStop();

    State state() const { return m_state; }
    /// What comes out, left and right, as MixBus says; silence while nothing plays.
    MeterLevels outputLevels() const;
    /// What went wrong last with the device; empty from the next openFile() or play() that works,
    /// or once a device that had stalled or gone goes on.
    const QString& error() const { return m_error; }

    /// Seconds from the beginning of the file; of what comes in always 0.
    double position() const;
    void setPosition(double seconds);

    /// The rate in Hz that the device runs at while sound is played; 0 otherwise.
    int runningRate() const { return holdsDevice() ? m_device->rate() : 0; }
    /// The rate in Hz that play() will use, as far as that can be said before; 0 without a device.
    int expectedRate() const;

Q_SIGNALS:
    /// The first sample is about to be mixed: what is published now is in force at once.
    void starting();
    void fileOpened(const QString& file);
    /// The file, the device, the state or the error is another one.
    void changed();
    /// About ten times a second while playing, and after setPosition().
    void positionChanged(double seconds);
    /// The file has been heard to its end; the state is Stopped, the position the beginning.
    void finished();
    void failed(const QString& sentence);

private:
    class Player;

    bool isStopped() const { return m_state == State::Stopped; }
    bool holdsDevice() const { return !isStopped() && m_state != State::Waiting; }
    const std::vector<AudioDeviceInfo>& devices() const;
    Status fail(const Status& error);
    void reportError(const QString& error);
    void setState(State state);
    Status start(const AudioDeviceSettings& settings);
    void halt();
    void pause();
    void watch();
    void waitForDevice(const QString& error);
    void tryAgain();
    void watchCalls();
    void finish();

    MixBus& m_bus;
    FileStream m_stream;
    std::unique_ptr<Player> m_player;
    std::unique_ptr<AudioDevice> m_device;
    AudioDeviceSettings m_settings;
    mutable std::optional<std::vector<AudioDeviceInfo>> m_devices; // as outputs() says
    QString m_file;
    QString m_error;
    State m_state = State::Stopped;
    bool m_looping = false;
    std::int64_t m_frame = 0; // of the file, while no device is open
    QTimer m_watch;
    std::chrono::milliseconds m_patience;
    std::int64_t m_calls = 0; // of the device, at the last watch
    QElapsedTimer m_sinceCall;
};
