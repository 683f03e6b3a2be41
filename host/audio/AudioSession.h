// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/audio/AudioDevice.h"
#include "host/audio/FileStream.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <memory>

class AudioCallback;

/// Plays a sound file, or what comes in, through a callback into a sound device: what a window's
/// transport needs. GUI thread only; the sound itself has threads of its own.
///
/// A file is played once, or over and over if looping. Its one channel is heard on both sides, of
/// more than two the first two. Everything that goes wrong is a sentence, and the session can be
/// used on: another file, another device, another try.
class AudioSession : public QObject
{
    Q_OBJECT

public:
    enum class State {
        Stopped,
        Playing,
        Stalled ///< the device has asked for no samples for a while; it may go on, or be stopped
    };
    Q_ENUM(State)

    /// \a equalizer works on what is played and must outlive the session.
    explicit AudioSession(AudioCallback& equalizer, QObject* parent = nullptr);
    ~AudioSession() override;

    /// Opens a file, which stops the one before. Returns whether that worked; if not, errorText()
    /// says why and no file is open.
    bool openFile(const QString& file);
    const QString& file() const { return m_file; }
    /// In seconds; -1 where it is not known.
    double duration() const;

    /// For the next play().
    void setDevice(const AudioDevice::Settings& settings);
    const AudioDevice::Settings& device() const { return m_settings; }
    void setLooping(bool looping);
    /// How long a device may ask for nothing before that is an error; 3000 ms unless set.
    void setPatience(int milliseconds) { m_patience = milliseconds; }
    bool isLooping() const { return m_looping; }

    /// Plays the file on from position(), or from the beginning where that is the end; with a live
    /// device, what comes in. Returns whether that worked; errorText() says why not.
    bool play();
    /// Stops where it is.
    void stop();

    State state() const { return m_state; }
    /// What went wrong last; empty from the next openFile() or play() that works, or once a device
    /// that had stalled goes on.
    const QString& errorText() const { return m_error; }

    /// Seconds from the beginning of the file; of what comes in always 0.
    double position() const;
    void setPosition(double seconds);

    /// The rate of the device that plays, in Hz; 0 while stopped.
    int deviceRate() const { return isStopped() ? 0 : m_device.rate(); }
    /// The rate that play() will use, as far as that can be said before; 0 without a device.
    int expectedRate() const;
    QString deviceName() const { return m_device.name(); }
    /// How often a sound came too late since play(), by the file's error or the device's.
    qint64 underruns() const;

Q_SIGNALS:
    void fileChanged(const QString& file);
    void stateChanged(AudioSession::State state);
    /// About ten times a second while playing, and after setPosition().
    void positionChanged(double seconds);
    /// The file has been heard to its end; the state is Stopped, the position the beginning.
    void finished();
    void failed(const QString& sentence);

private:
    class Player;

    bool isStopped() const { return m_state == State::Stopped; }
    bool fail(const QString& error);
    void tell(const QString& error);
    void setState(State state);
    QString start();
    void halt();
    void watch();
    void watchCalls();

    std::unique_ptr<Player> m_player;
    FileStream m_stream;
    AudioDevice m_device;
    AudioDevice::Settings m_settings;
    QString m_file;
    QString m_error;
    State m_state = State::Stopped;
    bool m_looping = false;
    std::int64_t m_frame = 0; // of the file, while stopped
    QTimer m_watch;
    int m_patience = 3000;
    std::int64_t m_calls = 0; // of the device, when it was looked at last
    QElapsedTimer m_sinceCall;
};
