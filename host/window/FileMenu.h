// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/window/Retranslator.h"

#include <QObject>

struct Mixer;

/// The mixer's menu of sound files and sessions. It opens sound files itself; what is to become of
/// the session, and what is to be rendered, it only says.
class FileMenu : public QObject
{
    Q_OBJECT

public:
    static constexpr int maxRecent = 8;

    /// Belongs to \a menu; \a mixer must outlive it.
    FileMenu(QMenu* menu, Mixer& mixer, Retranslator& texts);

    /// Asks for a sound file; empty if the user gives up.
    QString askForSound();
    /// Asks for the file to render what plays to, through the equalizer of \a channel; empty if
    /// the user gives up, or if there is nothing that plays.
    QString askForTarget(int channel);
    /// The same, and opens it.
    void chooseSound();
    void openSound(const QString& file);

Q_SIGNALS:
    /// The user opened a sound file, which some strip should play.
    void soundOpened();
    /// The user chose the file of a session: to begin a new one in it, to open the one in it, or to
    /// keep the one that is open there from now on.
    void newSessionWanted(const QString& file);
    void openSessionWanted(const QString& file);
    void saveSessionWanted(const QString& file);
    void renderWanted();

private:
    void addSessions(QMenu* menu, Retranslator& texts);
    void listen();
    void remember(const QString& file);
    void fillRecent();
    QString askForSession(bool saves, const QString& title);
    QWidget* window() const;

    Mixer& m_mixer;
    QMenu* m_recent = nullptr;
    QAction* m_render = nullptr;
};
