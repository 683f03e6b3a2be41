// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <pluginterfaces/base/funknown.h>

/// The settings of one equalizer in a file.
///
/// A state is 116 bytes: "2620", then 28 big-endian single floats from 0 to 1 (the last one means
/// nothing). A file holds either these bytes as they stand, or a VST 3 preset of the editor's class
/// with these bytes as its component state.
class StateFile
{
public:
    static constexpr int stateSize = 116;

    /// What a file held, or why it does not count; exactly one of the two is not empty.
    struct Content
    {
        QByteArray state;
        QString fault;
    };

    /// \a uid is the class that presets have to belong to.
    StateFile(QString file, const Steinberg::FUID& uid);

    /// Reads and checks the file, whatever it is called. A fault is a sentence that names the file.
    Content read() const;

    /// Writes \a state, as a preset if the file's name ends in ".vstpreset" and as it stands
    /// otherwise. The file changes at once or not at all. Returns nothing, or what went wrong as a
    /// sentence that names the file.
    QString write(const QByteArray& state) const;

    /// The check behind read(), over the bytes of a file. A fault is the end of a sentence that
    /// begins with the file.
    static Content decode(const QByteArray& bytes, const Steinberg::FUID& uid);

    /// \a state as the bytes of a preset of the class \a uid.
    static QByteArray encodePreset(const QByteArray& state, const Steinberg::FUID& uid);

private:
    QString m_file;
    Steinberg::FUID m_uid;
};
