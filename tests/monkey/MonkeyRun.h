// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

#include <cstdint>
#include <functional>

/// Runs a monkey: one act after another, also in the event loops of menus and dialogs that an act
/// opens.
class MonkeyRun : public QObject
{
    Q_OBJECT

public:
    /// Before there is an application object: lets a seed repeat a run.
    static void prepare();

    /// What every monkey is started with: "--seed S", "--events N", "--trace", which prints every
    /// event, and "--library FILE" for the editors. Another argument ends the program, as does
    /// "--help".
    struct Options
    {
        std::uint32_t seed;
        long events;
        QString plugin; ///< the editors' library
    };
    /// \a plugin is the library where none is named. Prints the seed.
    static Options options(const QString& plugin);

    /// How many event loops run within one another; 1 without any menu or dialog.
    static int depth();

    explicit MonkeyRun(long events)
        : m_left(events)
    {}

    /// \a act does one thing and returns what it found wrong, empty for nothing. The program's exit
    /// code.
    int run(const std::function<QString()>& act);

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    std::function<QString()> m_act;
    QString m_error;
    long m_left;
};
