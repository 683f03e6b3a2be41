// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "component/ZoltaComponent.h"
#include "hosting/Result.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

#include <pluginterfaces/base/funknown.h>

/// The settings of one equalizer in a file.
///
/// A file holds either a state as the component saves it (ZoltaComponent) or a VST 3 preset of the
/// editor's class with a state in it. A state counts if it has the component's version and size and
/// every parameter's value is from 0 to 1.
class StateFile
{
    Q_DECLARE_TR_FUNCTIONS(StateFile)

public:
    /// \a uid is the class that presets have to belong to.
    explicit StateFile(QString file, const Steinberg::FUID& uid = ZoltaComponent::classId());

    /// Reads and checks the state in the file, whatever the file is called.
    Result<QByteArray> read() const;

    /// Writes \a state, as a preset if the file's name ends in ".vstpreset" and as it stands
    /// otherwise. The file changes at once or not at all.
    Status write(const QByteArray& state) const;

    /// The check behind read(), over the \a bytes of a file that errors call \a file.
    static Result<QByteArray> decode(const QByteArray& bytes, const Steinberg::FUID& uid,
                                     const QString& file);

    /// \a state as the bytes of a preset of the class \a uid.
    static QByteArray encodePreset(const QByteArray& state, const Steinberg::FUID& uid);

private:
    QString m_file;
    Steinberg::FUID m_uid;
};
