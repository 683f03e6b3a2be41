// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

/// The user's own presets: files "<name>.vstpreset" in one folder, which is made when the first one
/// is saved. Errors are sentences; an empty text means success.
class PresetFolder
{
public:
    /// The folder in the user's data.
    static QString standardFolder();

    explicit PresetFolder(QString folder);

    /// The presets' names, in the order in which people look for them.
    QStringList names() const;
    bool contains(const QString& name) const;
    /// The file of a preset, whether it exists or not.
    QString fileOf(const QString& name) const;

    /// Why no preset can be called so: a file could not.
    static QString errorOfName(const QString& name);
    /// Makes the folder.
    QString prepare() const;
    QString remove(const QString& name) const;

private:
    QString m_folder;
};
