// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "hosting/Result.h"

#include <QCoreApplication>
#include <QMap>
#include <QString>
#include <QVariant>

#include <functional>

/// What editors want to find again when they are opened the next time: one map a channel, kept in
/// one JSON file. Without a file the maps are kept for the run.
///
/// The maps hold what JSON can say: truth values, numbers, texts, lists and maps.
class SettingsFile
{
    Q_DECLARE_TR_FUNCTIONS(SettingsFile)

public:
    using Map = QMap<QString, QVariant>;
    using Reporter = std::function<void(const QString&)>;

    /// The file in the user's configuration folder.
    static QString standardFile();

    /// Reads \a file and keeps the maps there from now on. A file that does not exist is made when
    /// something is to be kept. A damaged one is ignored and put aside under another name; where
    /// that is not possible, or the file cannot be read or is a later version's, it is left alone
    /// and nothing is written.
    Status open(const QString& file);

    /// Gets the errors of keep(), which is called where nobody could return them.
    void setReporter(Reporter reporter) { m_reporter = std::move(reporter); }

    /// The channel's map; empty if it has none.
    Map map(int channel) const { return m_maps.value(channel); }
    /// Keeps the channel's map, at once; writes only what has changed.
    void keep(int channel, const Map& map);

private:
    Status read(const QByteArray& bytes);
    Status setAside(const QString& reason);
    QByteArray bytes() const;

    QString m_file;
    Reporter m_reporter;
    QMap<int, Map> m_maps;
};
