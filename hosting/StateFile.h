// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "parameters/ParameterTable.h"

#include <QByteArray>
#include <QString>

#include <pluginterfaces/base/funknown.h>

#include <array>

/// The settings of one equalizer in a file.
///
/// A state is 116 bytes: "2620", then 28 big-endian single floats from 0 to 1 (the last one means
/// nothing). A file holds either these bytes as they stand, or a VST 3 preset of the editor's class
/// with these bytes as its component state.
class StateFile
{
public:
    static constexpr int stateSize = 116;
    /// The parameters' numbers in the order in which a state holds them, as the editor's component
    /// saves them: the first five bands downwards, then upwards.
    static constexpr std::array<int, parameterCount> order = {4,  3,  2,  1,  8,  7,  6,  5,  12,
                                                              11, 10, 9,  16, 15, 14, 13, 20, 19,
                                                              18, 17, 21, 22, 23, 24, 25, 26, 27};

    /// What a file held, or why it does not count; exactly one of the two is not empty.
    struct Content
    {
        QByteArray state;
        QString error;
    };

    /// \a uid is the class that presets have to belong to.
    StateFile(QString file, const Steinberg::FUID& uid);

    /// Reads and checks the file, whatever it is called. An error is a sentence that names the
    /// file.
    Content read() const;

    /// Writes \a state, as a preset if the file's name ends in ".vstpreset" and as it stands
    /// otherwise. The file changes at once or not at all. Returns nothing, or what went wrong as a
    /// sentence that names the file.
    QString write(const QByteArray& state) const;

    /// The check behind read(), over the bytes of a file. An error is the end of a sentence that
    /// begins with the file.
    static Content decode(const QByteArray& bytes, const Steinberg::FUID& uid);

    /// \a state as the bytes of a preset of the class \a uid.
    static QByteArray encodePreset(const QByteArray& state, const Steinberg::FUID& uid);

private:
    QString m_file;
    Steinberg::FUID m_uid;
};
