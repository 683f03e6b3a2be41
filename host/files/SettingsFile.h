// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "hosting/Result.h"

#include <QCoreApplication>
#include <QMap>
#include <QString>
#include <QVariant>

#include <functional>

/// What editors want to find again when they are opened the next time, one map a channel, and the
/// user's preferences, which hold in every session: kept in one JSON file. Without a file they are
/// kept for the run.
///
/// Maps and preferences hold what JSON can say: truth values, numbers, texts, lists and maps.
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

    /// A preference by its name; \a otherwise where nobody has chosen.
    QVariant preference(const QString& name, const QVariant& otherwise = {}) const
    {
        return m_preferences.value(name, otherwise);
    }
    /// Keeps it, at once; writes only what has changed.
    void setPreference(const QString& name, const QVariant& value);

private:
    Status read(const QByteArray& bytes);
    Status setAside(const QString& reason);
    void write();
    QByteArray bytes() const;

    QString m_file;
    Reporter m_reporter;
    QMap<int, Map> m_maps;
    Map m_preferences;
};
