// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProcess>
#include <QString>

#include <jack/jack.h>

#include <atomic>
#include <vector>

/// A sound server of our own that plays into nothing at 48000 Hz. It is the default server of this
/// process and of those that it starts for as long as it lives.
///
/// It waits for its clients in every cycle, so that a busy machine delays the sound instead of
/// tearing holes into it.
class JackServer
{
public:
    static constexpr int rate = 48000;
    static constexpr int block = 256;

    JackServer();
    ~JackServer();

    /// Whether it came up.
    bool isRunning();
    QString errorText() const;
    /// Ends it at once, as a crash would.
    void kill();
    /// Keeps it from doing anything until thaw().
    void freeze();
    void thaw();

private:
    void send(int signal);
    QProcess m_process;
};

/// A sound device on that server, with two channels that it hears and four that it gives out: it
/// keeps what is played on it, and gives out what play() was told.
class JackDevice
{
public:
    explicit JackDevice(const char* name);
    ~JackDevice();
    JackDevice(const JackDevice&) = delete;
    JackDevice& operator=(const JackDevice&) = delete;

    bool isOpen() const { return m_client != nullptr; }
    /// Gives the server another block size.
    void changeBlock(int frames)
    {
        jack_set_buffer_size(m_client, static_cast<jack_nframes_t>(frames));
    }

    /// Before anything is connected: what it gives out repeatedly, on channel n (from 1 on) an
    /// n-th of it.
    void play(std::vector<float> samples) { m_given = std::move(samples); }

    /// Frames heard so far since the first one that was not silent.
    std::size_t heard() const { return m_heard.load(std::memory_order_acquire); }
    /// The frames of a channel from the first one on that was not silent on either.
    std::vector<float> channel(int index) const;

private:
    static int process(jack_nframes_t frames, void* device);
    void hear(jack_nframes_t frames);

    jack_client_t* m_client;
    std::atomic<bool> m_lost = false; // the server went; the library cannot close such a client
    std::vector<jack_port_t*> m_ins;
    std::vector<jack_port_t*> m_outs;
    std::vector<std::vector<float>> m_samples;
    std::vector<float> m_given;
    std::size_t m_givenPosition = 0;
    std::atomic<std::size_t> m_heard = 0;
};
