// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/files/SessionFile.h"
#include "hosting/Result.h"

#include <QObject>
#include <QTimer>

#include <functional>

class MixerWindow;
struct Mixer;

/// Keeps a mixer and its windows in a session file: brings back at the start what was there at the
/// end, and saves when the last window closes, when the program or the desktop's session ends, and
/// a while after edits and after windows were opened, moved or closed. What it brings back is no
/// step of the history, which is empty afterwards.
class MixerSession : public QObject
{
    Q_OBJECT

public:
    using Reporter = std::function<void(const QString&)>;
    /// Gets an error of saving; whether to end nevertheless.
    using Asker = std::function<bool(const QString&)>;

    /// \a mixer must outlive it. The errors of saving go to \a reporter. A change is saved at most
    /// \a saveDelay milliseconds later, whatever changes meanwhile.
    explicit MixerSession(Mixer& mixer, Reporter reporter = {}, int saveDelay = 10000);

    /// Is asked, instead of the reporter, when the last window or the program cannot be closed
    /// without losing something; without an asker, they close.
    void setAsker(Asker asker) { m_asker = std::move(asker); }

    /// Reads \a file into the mixer's memory, names, A and B settings and settings maps.
    Status open(const QString& file);
    /// The same, but leaves \a file alone whatever is wrong with it and never saves. It must exist.
    Status read(const QString& file);
    /// Whether another program has the session open, so that nothing is saved.
    bool isTaken() const { return m_file->isTaken(); }
    /// Saves it nevertheless from now on.
    void saveAnyway() { m_file->saveAnyway(); }
    /// Whether there was no session to bring back: nobody has chosen yet what is open.
    bool isNew() const { return m_file->isNew(); }
    /// Puts \a window where it was and opens the editors that were open; saves from now on, also
    /// what \a window shows, which must outlive it. Whether any editor was opened.
    bool restoreWindows(MixerWindow& window);

    /// What the user does with sessions while the program runs. Each saves the one that is open
    /// before, and leaves everything as it is where something goes wrong. The next run begins with
    /// the session that was chosen last.
    ///
    /// Opens the session in \a file, with its windows.
    Status change(const QString& file);
    /// A new mixer, kept in \a file.
    Status begin(const QString& file);
    /// Keeps what there is in \a file from now on.
    Status saveAs(const QString& file);
    /// The session that a run begins with: the one that was chosen last, or else the standard one.
    static QString lastFile(const SettingsFile& settings);

    /// Opens the session's sound file where it was, without playing it, and says so where it has
    /// gone; from now on a change of the sound file is saved. Needs the mixer's transport.
    void restoreSound();
    /// The same with \a file in its place.
    void openSound(const QString& file);

    /// Saves now; false if it did not work, which has been reported.
    bool save();
    /// The same where nothing can be shown or asked any more, as when the display is gone.
    Status saveAtOnce();
    /// Whether it worked the last time.
    bool isSaved() const { return m_saved; }

Q_SIGNALS:
    /// The session's sound file is not there any more.
    void soundMissing(const QString& file);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void saveLater();
    Status write();
    bool saveAtEnd();
    void end();
    bool staysOpen();
    bool showWindows();
    void connectMenu();
    Status keepIn(const QString& file);
    Status moved();
    void restore();
    void restore(int channel);
    void restorePreset(int channel);
    void collect(int channel);
    Status writeChannels();
    void collectWindows();
    void collectSound();

    Mixer& m_mixer;
    Reporter m_reporter;
    Asker m_asker;
    std::unique_ptr<SessionFile> m_file = std::make_unique<SessionFile>();
    SessionData m_data;
    MixerWindow* m_window = nullptr;
    QTimer m_timer;
    bool m_saved = true;
    bool m_ended = false;   // the windows are closing, and there is nothing left to save
    bool m_staying = false; // they shall not close, after all
};
