// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/monkey/Dice.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

/// Files of every kind that the mixer reads, sound ones and damaged ones, all in one folder.
class ForeignFiles
{
public:
    /// \a folder must exist.
    ForeignFiles(Dice& dice, QString folder);

    const QString& folder() const { return m_folder; }
    /// Every file's name, whether it exists at the moment or not, and some that never do.
    QStringList names() const;
    QString anyName();
    /// Writes one of them anew.
    void writeAny();
    /// Spoils the content of \a file, which may not exist.
    void damage(const QString& file);

private:
    QByteArray anyContent(const QString& name);
    QByteArray anyBytes(int size);
    QByteArray damaged(QByteArray bytes);
    void write(const QString& file, const QByteArray& bytes);

    Dice& m_dice;
    QString m_folder;
};
