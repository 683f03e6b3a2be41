// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "hosting/Result.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

/// The user's own presets: files "<name>.vstpreset" in one folder, which is made when the first one
/// is saved.
class PresetFolder
{
    Q_DECLARE_TR_FUNCTIONS(PresetFolder)

public:
    /// The folder in the user's data.
    static QString standardFolder();

    explicit PresetFolder(QString folder);

    const QString& path() const { return m_folder; }
    /// The presets' names, in the order in which people look for them.
    QStringList names() const;
    bool contains(const QString& name) const;
    /// The file of a preset, whether it exists or not.
    QString fileOf(const QString& name) const;

    /// Whether a preset, and so a file, can have this name.
    static Status checkName(const QString& name);
    /// Makes the folder.
    Status prepare() const;
    Status remove(const QString& name) const;
    /// Gives a preset another name, and so takes the place of one that has it.
    Status rename(const QString& from, const QString& to) const;

private:
    QString m_folder;
};
