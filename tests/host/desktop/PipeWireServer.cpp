// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/host/desktop/PipeWireServer.h"

#include "tests/support/TestFiles.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTimer>

#include <csignal>
#include <functional>
#include <utility>

#include <sys/prctl.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int patience = 20000; // ms

bool hung = false;

const char* const noMonitors = "alsa_monitor.enabled = false\n"
                               "v4l2_monitor.enabled = false\n"
                               "libcamera_monitor.enabled = false\n";

QString sinkArguments(const QString& name, int priority)
{
    return u"{ factory.name = support.null-audio-sink node.name = %1 node.description = \"The %1\" "
           "media.class = Audio/Sink audio.position = \"FL,FR\" object.linger = true "
           "priority.session = %2 priority.driver = %2 }"_s.arg(name)
               .arg(priority);
}

QByteArray configuration(PipeWireServer::Hardware hardware)
{
    QString text = u"context.properties = {\n"
                   "  default.clock.allowed-rates = [ 44100 48000 ]\n"
                   "  default.clock.min-quantum = 64\n}\n"_s;
    if (hardware == PipeWireServer::Hardware::Present)
        text += u"context.objects = [\n  { factory = adapter args = %1 }\n"
                "  { factory = adapter args = %2 }\n]\n"_s.arg(sinkArguments(u"speakers"_s, 2000),
                                                               sinkArguments(u"phones"_s, 1000));
    return text.toUtf8();
}

bool waitFor(const std::function<bool()>& isDone)
{
    QElapsedTimer clock;
    clock.start();
    while (!isDone()) {
        if (clock.elapsed() > patience)
            return false;
    }
    return true;
}

void end(QProcess* process)
{
    process->kill();
    process->waitForFinished(patience);
}

// PipeWire asks its clients about what is theirs, and this process may be one of them.
void runToEnd(QProcess* process, const QString& program, const QStringList& arguments)
{
    PipeWireServer::prepare(process);
    QEventLoop loop;
    QObject::connect(process, &QProcess::finished, &loop, &QEventLoop::quit);
    QObject::connect(process, &QProcess::errorOccurred, &loop, &QEventLoop::quit);
    QTimer::singleShot(patience, &loop, &QEventLoop::quit);
    process->start(program, arguments);
    loop.exec();
    hung = process->state() != QProcess::NotRunning;
    end(process);
}

QJsonArray dump() { return QJsonDocument::fromJson(PipeWireServer::run(u"pw-dump"_s, {})).array(); }

QJsonObject propertiesOf(const QJsonValue& object) { return object[u"info"][u"props"].toObject(); }

QString nodeName(const QJsonArray& objects, const QJsonValue& id)
{
    for (const QJsonValue& object : objects) {
        if (object[u"id"] == id)
            return propertiesOf(object)[u"node.name"].toString();
    }
    return {};
}

} // namespace

PipeWireServer::PipeWireServer(Hardware hardware)
{
    const QString folder = m_folder.path();
    TestFiles::write(folder + "/pipewire/pipewire.conf.d/sinks.conf"_L1, configuration(hardware));
    TestFiles::write(folder + "/wireplumber/main.lua.d/51-none.lua"_L1, noMonitors);
    TestFiles::write(folder + "/wireplumber/bluetooth.lua.d/51-none.lua"_L1,
                     "bluez_monitor.enabled = false\n");
    for (const char* name : {"XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "XDG_STATE_HOME",
                             "XDG_CACHE_HOME", "XDG_DATA_HOME", "HOME"})
        qputenv(name, folder.toUtf8());
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + folder.toUtf8() + "/bus");
}

PipeWireServer::~PipeWireServer()
{
    killManager();
    killServer();
    end(&m_bus);
}

bool PipeWireServer::start()
{
    prepare(&m_bus);
    m_bus.start(u"dbus-daemon"_s,
                {u"--session"_s, u"--nofork"_s, u"--nopidfile"_s, u"--print-address"_s,
                 u"--address=unix:path="_s + folder() + "/bus"_L1});
    return m_bus.waitForReadyRead(patience) && startServer() && startManager();
}

bool PipeWireServer::startServer()
{
    prepare(&m_server);
    m_server.start(u"pipewire"_s, {});
    return waitFor([] { return !run(u"pw-cli"_s, {u"info"_s, u"0"_s}).isEmpty(); });
}

bool PipeWireServer::startManager()
{
    prepare(&m_manager);
    m_manager.start(u"wireplumber"_s, {});
    return waitFor([this] { return sinks().isEmpty() || !defaultSink().isEmpty(); });
}

bool PipeWireServer::replaceManager()
{
    killManager();
    prepare(&m_manager);
    QProcessEnvironment environment = m_manager.processEnvironment();
    environment.insert(u"WIREPLUMBER_DEBUG"_s, u"3"_s);
    m_manager.setProcessEnvironment(environment);
    m_manager.setProcessChannelMode(QProcess::MergedChannels);
    m_manager.start(u"wireplumber"_s, {});
    QByteArray log;
    while (!log.contains("Executing scripts")) {
        if (!m_manager.waitForReadyRead(patience))
            return false;
        log += m_manager.readAll();
    }
    return true;
}

void PipeWireServer::killServer() { end(&m_server); }

void PipeWireServer::killManager() { end(&m_manager); }

QString PipeWireServer::errorText() const
{
    return m_bus.errorString() + u'\n' + m_server.errorString() + u'\n' + m_manager.errorString();
}

QString PipeWireServer::defaultSink() const { return metadata(u"default.audio.sink"_s); }

QString PipeWireServer::chosenSink() const { return metadata(u"default.configured.audio.sink"_s); }

QString PipeWireServer::metadata(const QString& key) const
{
    for (const QJsonValue& object : dump()) {
        if (object[u"props"][u"metadata.name"] != "default"_L1)
            continue;
        for (const QJsonValue& entry : object[u"metadata"].toArray()) {
            if (entry[u"key"] == key && entry[u"subject"].toInt() == 0)
                return entry[u"value"][u"name"].toString();
        }
    }
    return {};
}

QStringList PipeWireServer::sinks() const
{
    QStringList names;
    for (const QJsonValue& object : dump()) {
        const QJsonObject properties = propertiesOf(object);
        if (properties[u"media.class"] == "Audio/Sink"_L1)
            names << properties[u"node.name"].toString();
    }
    names.sort();
    return names;
}

QStringList PipeWireServer::playersOf(const QString& sink) const
{
    const QJsonArray objects = dump();
    QStringList names;
    for (const QJsonValue& object : objects) {
        if (object[u"type"] != "PipeWire:Interface:Link"_L1)
            continue;
        const QJsonValue info = object[u"info"];
        if (nodeName(objects, info[u"input-node-id"]) == sink)
            names << nodeName(objects, info[u"output-node-id"]);
    }
    names.removeDuplicates();
    names.sort();
    return names;
}

void PipeWireServer::chooseSink(const QString& name)
{
    run(u"pw-metadata"_s, {u"0"_s, u"default.configured.audio.sink"_s,
                           u"{ \"name\": \"%1\" }"_s.arg(name), u"Spa:String:JSON"_s});
}

void PipeWireServer::setClock(const QString& key, int value)
{
    run(u"pw-metadata"_s,
        {u"-n"_s, u"settings"_s, u"0"_s, "clock.force-"_L1 + key, QString::number(value)});
}

void PipeWireServer::addSink(const QString& name)
{
    run(u"pw-cli"_s, {u"create-node"_s, u"adapter"_s, sinkArguments(name, 500)});
}

void PipeWireServer::removeNode(const QString& name)
{
    const QJsonArray objects = dump();
    for (const QJsonValue& object : objects) {
        if (propertiesOf(object)[u"node.name"] == name)
            run(u"pw-cli"_s, {u"destroy"_s, QString::number(object[u"id"].toInt())});
    }
}

void PipeWireServer::dropAnAnswer()
{
    const auto manager = static_cast<pid_t>(m_manager.processId());
    ::kill(manager, SIGSTOP);
    QProcess program;
    prepare(&program);
    program.start(u"stdbuf"_s, {u"-oL"_s, u"pw-metadata"_s, u"-m"_s});
    program.waitForReadyRead(patience); // it has found whom to ask
    program.waitForFinished(100);       // and waits for the answer in vain
    end(&program);
    ::kill(manager, SIGCONT);
}

QByteArray PipeWireServer::run(const QString& program, const QStringList& arguments)
{
    if (hung)
        return {};
    QProcess process;
    runToEnd(&process, program, arguments);
    return process.readAllStandardOutput();
}

bool PipeWireServer::hasHung() { return std::exchange(hung, false); }

// A test that is killed leaves nothing running.
void PipeWireServer::prepare(QProcess* process)
{
    process->setProcessEnvironment(QProcessEnvironment::systemEnvironment());
    process->setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
}

const QString SoundPlayer::name = u"pw-play"_s;

SoundPlayer::SoundPlayer(const QString& file)
{
    PipeWireServer::prepare(&m_process);
    m_process.start(name, {file});
}

SoundPlayer::~SoundPlayer() { end(&m_process); }

SoundRecorder::SoundRecorder(const PipeWireServer& server, const QString& sink, int rate)
    : m_file(server.folder() + "/recorded.wav"_L1)
{
    PipeWireServer::prepare(&m_process);
    m_process.start(u"pw-record"_s, {u"--target"_s, u"0"_s, u"--rate"_s, QString::number(rate),
                                     u"--channels"_s, u"2"_s, u"--format"_s, u"f32"_s, m_file});
    for (const QString& side : {u"FL"_s, u"FR"_s})
        waitFor([&] {
            QProcess link;
            runToEnd(&link, u"pw-link"_s,
                     {sink + ":monitor_"_L1 + side, "pw-record:input_"_L1 + side});
            return link.exitCode() == 0;
        });
}

SoundRecorder::~SoundRecorder() { end(&m_process); }

QString SoundRecorder::finish()
{
    ::kill(static_cast<pid_t>(m_process.processId()), SIGINT);
    m_process.waitForFinished(patience);
    return m_file;
}
