// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

/// What the mixer's transport bar drives: the sound of a file that plays through the mixer. Whoever
/// plays audio derives from this and gives it to MixerModel::setTransport().
class Transport : public QObject
{
    Q_OBJECT

public:
    enum class State {
        Stopped,
        Playing,
        Stalled, ///< plays, but the device takes no sound at the moment
        Error    ///< stopped by an error
    };

    virtual State state() const = 0;
    /// Why no sound comes, as a sentence; empty unless the state is Stalled or Error.
    virtual QString error() const = 0;

    /// The file that is open; empty for none.
    virtual QString file() const = 0;
    /// What does not work becomes the state Error.
    virtual void open(const QString& file) = 0;
    virtual void play() = 0;
    virtual void stop() = 0;

    /// In seconds. The length is 0 without a file.
    virtual double length() const = 0;
    virtual double position() const = 0;
    virtual void seek(double seconds) = 0;

    /// What sound can go to, by the names that people know, and the one that it goes to (-1: none).
    virtual QStringList devices() const = 0;
    virtual int device() const = 0;
    virtual void chooseDevice(int index) = 0;

Q_SIGNALS:
    /// Anything of it but the position has changed.
    void changed();
};
