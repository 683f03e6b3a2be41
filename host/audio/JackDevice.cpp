// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/audio/JackDevice.h"

#include "host/audio/CallbackGate.h"

#include <jack/jack.h>

#include <algorithm>
#include <atomic>
#include <string>
#include <utility>

namespace {

struct CloseClient
{
    void operator()(jack_client_t* client) const { jack_client_close(client); }
};
using ClientHandle = std::unique_ptr<jack_client_t, CloseClient>;

ClientHandle openClient(const char* name)
{
    jack_set_error_function([](const char*) {});
    jack_set_info_function([](const char*) {});
    return ClientHandle(jack_client_open(name, JackNoStartServer, nullptr));
}

// In the server's order; of \a device those alone that sound goes to (JackPortIsInput) or comes
// from (JackPortIsOutput).
std::vector<std::string> portNames(jack_client_t* client, unsigned long direction,
                                   const std::string& device = {})
{
    const std::unique_ptr<const char*, decltype(&jack_free)> found(
        jack_get_ports(client, nullptr, JACK_DEFAULT_AUDIO_TYPE, direction), &jack_free);
    std::vector<std::string> names;
    for (const char** name = found.get(); name && *name; ++name) {
        const std::string each = *name;
        if (device.empty() || each.starts_with(device + ':'))
            names.push_back(each);
    }
    return names;
}

AudioDeviceInfo& deviceOf(const std::string& port, std::vector<AudioDeviceInfo>* devices)
{
    const QString name =
        QStringLiteral("jack:%1").arg(QString::fromStdString(port.substr(0, port.find(':'))));
    const auto found =
        std::find_if(devices->begin(), devices->end(),
                     [&name](const AudioDeviceInfo& each) { return each.name == name; });
    if (found != devices->end())
        return *found;
    devices->emplace_back().name = name;
    return devices->back();
}

// The first one is what the server itself plays on.
std::vector<AudioDeviceInfo> devicesOf(jack_client_t* client)
{
    const int rate = static_cast<int>(jack_get_sample_rate(client));
    std::vector<AudioDeviceInfo> devices;
    for (const std::string& port : portNames(client, 0)) {
        AudioDeviceInfo& device = deviceOf(port, &devices);
        const int flags = jack_port_flags(jack_port_by_name(client, port.c_str()));
        ++((flags & JackPortIsInput) != 0 ? device.outputs : device.inputs);
        device.preferredRate = rate;
        device.rates = {rate};
    }
    if (!devices.empty()) {
        devices.front().isDefaultOutput = devices.front().outputs > 0;
        devices.front().isDefaultInput = devices.front().inputs > 0;
    }
    return devices;
}

} // namespace

// What the server calls. It outlives the JackDevice while the server hangs; all but gate() and
// isLost() is for the tasks.
class JackDevice::Client
{
public:
    explicit Client(const AudioRoute& route)
        : m_output(nameOn(route.output))
        , m_input(nameOn(route.input.value_or(route.output)))
        , m_outs(count(route.output.outputs, maxOutputs))
        , m_ins(route.input ? count(route.input->inputs, maxInputs) : 0)
        , m_outBuffers(m_outs.size())
        , m_inBuffers(m_ins.size())
    {}

    CallbackGate& gate() { return m_gate; }
    bool isLost() const { return m_lost; }

    bool open()
    {
        m_handle = openClient("zolta-host");
        if (!m_handle)
            return false;
        m_rate = jack_get_sample_rate(m_handle.get());
        jack_set_process_callback(m_handle.get(), &Client::process, this);
        jack_set_sample_rate_callback(m_handle.get(), &Client::changeRate, this);
        jack_on_shutdown(m_handle.get(), &Client::lose, this);
        if (!addPorts("outport ", JackPortIsOutput, &m_outs) ||
            !addPorts("inport ", JackPortIsInput, &m_ins))
            close();
        return m_handle != nullptr;
    }
    int rate() const { return static_cast<int>(m_rate); }

    bool start()
    {
        if (jack_activate(m_handle.get()) != 0)
            return false;
        connect(m_outs, portNames(m_handle.get(), JackPortIsInput, m_output), false);
        connect(m_ins, portNames(m_handle.get(), JackPortIsOutput, m_input), true);
        return true;
    }

    void close() { m_handle.reset(); }

private:
    static std::string nameOn(const AudioDeviceInfo& device)
    {
        return device.name.section(QLatin1Char(':'), 1).toStdString();
    }

    static std::size_t count(int channels, int most)
    {
        return static_cast<std::size_t>(std::min(channels, most));
    }

    bool addPorts(const char* name, unsigned long direction, std::vector<jack_port_t*>* ports)
    {
        int number = 0;
        for (jack_port_t*& port : *ports) {
            port = jack_port_register(m_handle.get(), (name + std::to_string(number++)).c_str(),
                                      JACK_DEFAULT_AUDIO_TYPE, direction, 0);
        }
        return std::find(ports->begin(), ports->end(), nullptr) == ports->end();
    }

    void connect(const std::vector<jack_port_t*>& ports, const std::vector<std::string>& others,
                 bool fromOthers)
    {
        for (std::size_t i = 0; i < std::min(ports.size(), others.size()); ++i) {
            const char* own = jack_port_name(ports[i]);
            const char* other = others[i].c_str();
            jack_connect(m_handle.get(), fromOthers ? other : own, fromOthers ? own : other);
        }
    }

    static int process(jack_nframes_t frames, void* user)
    {
        auto* client = static_cast<Client*>(user);
        for (std::size_t i = 0; i < client->m_outs.size(); ++i)
            client->m_outBuffers[i] =
                static_cast<float*>(jack_port_get_buffer(client->m_outs[i], frames));
        for (std::size_t i = 0; i < client->m_ins.size(); ++i)
            client->m_inBuffers[i] =
                static_cast<const float*>(jack_port_get_buffer(client->m_ins[i], frames));
        client->m_gate.process(client->m_inBuffers, client->m_outBuffers, frames);
        return 0;
    }

    static int changeRate(jack_nframes_t rate, void* user)
    {
        auto* client = static_cast<Client*>(user);
        if (rate != client->m_rate)
            client->m_lost = true;
        return 0;
    }

    static void lose(void* user) { static_cast<Client*>(user)->m_lost = true; }

    std::string m_output;
    std::string m_input;
    jack_nframes_t m_rate = 0;
    std::vector<jack_port_t*> m_outs;
    std::vector<jack_port_t*> m_ins;
    std::vector<float*> m_outBuffers;
    std::vector<const float*> m_inBuffers;
    CallbackGate m_gate;
    std::atomic<bool> m_lost = false;
    ClientHandle m_handle; // last: what it calls is there until it is closed
};

JackDevice::JackDevice(std::chrono::milliseconds patience)
    : m_tasks(patience)
{}

JackDevice::~JackDevice() { JackDevice::close(); }

// The library crashes where a client of a server that went is closed after one of the next server
// was opened.
std::vector<AudioDeviceInfo> JackDevice::list() const
{
    if (m_tasks.isBusy() || !status().isOk())
        return m_devices;
    const auto devices = std::make_shared<std::vector<AudioDeviceInfo>>();
    const bool answered = m_tasks.run([devices] {
        if (const ClientHandle client = openClient("zolta-devices"))
            *devices = devicesOf(client.get());
    });
    if (answered)
        m_devices = *devices;
    return m_devices;
}

int JackDevice::rateFor(const AudioDeviceSettings& settings, int soundRate) const
{
    return AudioDevices::rateFor(list(), settings, soundRate);
}

Status JackDevice::open(const AudioDeviceSettings& settings, int soundRate)
{
    close();
    const auto route = AudioDevices::route(list(), settings, soundRate);
    if (!route.isOk())
        return route.status();
    m_name = route.value().output.name;
    if (m_tasks.isBusy())
        return notResponding();
    const auto client = std::make_shared<Client>(route.value());
    const auto opened = std::make_shared<bool>(false);
    if (!m_tasks.run([client, opened] { *opened = client->open(); }) || !*opened)
        return notResponding();
    m_client = client;
    m_rate = client->rate();
    return {};
}

Status JackDevice::start(AudioCallback& callback)
{
    const auto started = std::make_shared<bool>(false);
    if (!m_tasks.run([client = m_client, started] { *started = client->start(); }) || !*started) {
        close();
        return notResponding();
    }
    m_client->gate().open(callback);
    return {};
}

void JackDevice::close()
{
    if (!m_client)
        return;
    m_client->gate().shut();
    m_tasks.run([client = std::exchange(m_client, nullptr)] { client->close(); });
}

std::int64_t JackDevice::calls() const { return m_client ? m_client->gate().calls() : 0; }

Status JackDevice::status() const
{
    if (!m_client || !m_client->isLost())
        return {};
    return Error{
        tr("The sound device %1 was disconnected. It plays on as soon as it is back.").arg(m_name)};
}

Error JackDevice::notResponding() const
{
    return {tr("The sound device %1 is not responding.").arg(m_name)};
}
