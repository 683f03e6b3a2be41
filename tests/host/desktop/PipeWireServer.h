// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QJsonArray>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>

/// A PipeWire of our own with its session manager and a message bus, for this process and those
/// that it starts as long as it lives. It has two sinks without hardware, "speakers", which is the
/// default one by its priority, and "phones", and shares nothing with any other server.
class PipeWireServer
{
public:
    enum class Hardware { Present, Absent };

    explicit PipeWireServer(Hardware hardware = Hardware::Present);
    ~PipeWireServer();
    PipeWireServer(const PipeWireServer&) = delete;
    PipeWireServer& operator=(const PipeWireServer&) = delete;

    /// Whether they came up.
    bool start();
    bool startServer();
    bool startManager();
    /// Another session manager comes at once, and is at work before this process hears of it.
    bool replaceManager();
    void killServer();
    void killManager();
    QString errorText() const;
    QString folder() const { return m_folder.path(); }

    /// By name. The default is what programs play to, the choice what the user wants that to be.
    QString defaultSink() const;
    QString chosenSink() const;
    QStringList sinks() const;
    /// Who plays to a sink.
    QStringList playersOf(const QString& sink) const;

    /// What a user does.
    void chooseSink(const QString& name);
    void setClock(const QString& key, int value);
    /// Another sink appears.
    void addSink(const QString& name);
    /// Somebody removes a node.
    void removeNode(const QString& name);
    /// A program asks the session manager, and goes before it has the answer. From then on PipeWire
    /// tells nobody what the session manager changes.
    void dropAnAnswer();

    /// Runs one of PipeWire's programs to its end; what it printed.
    static QByteArray run(const QString& program, const QStringList& arguments);
    /// Whether a program of PipeWire's own never got an answer since that was asked for. PipeWire
    /// 0.3.65 leaves all without one where two ask while its session manager starts; run() does
    /// nothing any more then.
    static bool hasHung();
    static void prepare(QProcess* process);

private:
    QString metadata(const QString& key) const;

    QTemporaryDir m_folder;
    QProcess m_bus;
    QProcess m_server;
    QProcess m_manager;
};

/// Plays a sound file as any program would, from its making on.
class SoundPlayer
{
public:
    static const QString name;

    explicit SoundPlayer(const QString& file);
    ~SoundPlayer();
    SoundPlayer(const SoundPlayer&) = delete;
    SoundPlayer& operator=(const SoundPlayer&) = delete;

    bool hasEnded() const { return m_process.state() == QProcess::NotRunning; }

private:
    QProcess m_process;
};

/// Records what a sink plays, from its making on.
class SoundRecorder
{
public:
    explicit SoundRecorder(const PipeWireServer& server, const QString& sink, int rate);
    ~SoundRecorder();
    SoundRecorder(const SoundRecorder&) = delete;
    SoundRecorder& operator=(const SoundRecorder&) = delete;

    /// Ends it; the file that it wrote.
    QString finish();

private:
    QString m_file;
    QProcess m_process;
};
