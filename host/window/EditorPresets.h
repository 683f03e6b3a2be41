// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/files/PresetFolder.h"
#include "host/model/ChannelPresets.h"

#include <QList>
#include <QObject>

class EditorSession;
struct Mixer;

/// The presets of one editor: those that come with the mixer and the user's own, and what is done
/// with them. Asks nothing; whoever calls has agreed with the user.
class EditorPresets : public QObject
{
    Q_OBJECT

public:
    /// Finds out which preset the channel has, where nobody knows. Mixer and session must outlive
    /// its use.
    EditorPresets(Mixer& mixer, EditorSession& session, QObject* parent);

    const PresetFolder& folder() const { return m_folder; }
    /// In the order in which they are offered: the mixer's, then the user's.
    QList<PresetName> all() const;
    /// What people call a preset.
    static QString shownName(const PresetName& preset);

    /// The one that the channel began with.
    std::optional<PresetName> current() const;
    /// Whether it has been changed since.
    bool isModified() const;
    /// Whether it is the user's own, which can be saved again and renamed.
    bool isOwn() const { return current() && !current()->isFactory; }

    /// Each tells by finished() how it went. Loading is one step of the mixer's history.
    void load(const PresetName& preset);
    /// Loads the one that is \a by places further, around the end; from none the first or the last.
    void step(int by);
    /// As the user's own; replaces one of that name.
    void save(const QString& name);
    void rename(const QString& from, const QString& to);
    void remove(const QString& name);

Q_SIGNALS:
    /// Another preset, or it has been modified or is as it was.
    void changed();
    /// What went wrong, or what was done; the other one is empty.
    void finished(const QString& error, const QString& success);

private:
    int channel() const;
    ChannelPresets& presets() const;
    Status apply(const PresetName& preset);
    void recognize();
    void report(const Status& status, const QString& success);

    Mixer& m_mixer;
    EditorSession& m_session;
    PresetFolder m_folder{PresetFolder::standardFolder()};
};
