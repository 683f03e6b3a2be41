// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProcess>
#include <QString>

#include <jack/jack.h>

#include <atomic>
#include <cstdint>
#include <vector>

/// A sound server of our own that plays into nothing at 48000 Hz. It is the default server of this
/// process and of those that it starts for as long as it lives.
///
/// A second one beside it, with a name of its own, is nobody's default.
///
/// It waits for its clients in every cycle, so that a busy machine delays the sound instead of
/// tearing holes into it.
class JackServer
{
public:
    static constexpr int rate = 48000;
    static constexpr int block = 256;

    enum class Role { Default, Second };

    explicit JackServer(Role role = Role::Default, int ownRate = rate);
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
    bool answers() const;

    bool m_isDefault;
    QString m_name;
    QProcess m_process;
};

/// A program on the default server, with two channels that it hears and four that it gives out: it
/// keeps what is played on it, and gives out what it was told.
class JackEars
{
public:
    /// \a given is what it gives out repeatedly, on channel n (from 1 on) an n-th of it.
    explicit JackEars(const char* name, std::vector<float> given = {});
    ~JackEars();
    JackEars(const JackEars&) = delete;
    JackEars& operator=(const JackEars&) = delete;

    bool isOpen() const { return m_client != nullptr; }
    /// Gives the server another block size.
    void changeBlock(int frames)
    {
        jack_set_buffer_size(m_client, static_cast<jack_nframes_t>(frames));
    }
    /// Takes longer than the server has time for, once, and how often the server has said so.
    void dawdle() { m_dawdling = true; }
    int xruns() const { return m_xruns; }

    /// Frames that the server has played, silent ones, too.
    std::int64_t frames() const { return m_frames; }
    /// Frames heard so far since the first one that was not silent.
    std::size_t heard() const { return m_heard.load(std::memory_order_acquire); }
    /// The frames of a channel, from the first one on that was not silent on either.
    std::vector<float> channel(int index) const;
    /// Whether the last \a count frames of that are some part of \a given, which repeats, times
    /// \a factor.
    bool hears(int index, std::size_t count, const std::vector<float>& given,
               float factor = 1.0F) const;

private:
    static int process(jack_nframes_t frames, void* ears);
    void give(jack_nframes_t frames);
    void hear(jack_nframes_t frames);

    jack_client_t* m_client;
    std::vector<jack_port_t*> m_ins;
    std::vector<jack_port_t*> m_outs;
    std::vector<std::vector<float>> m_samples;
    std::vector<float> m_given;
    std::size_t m_givenPosition = 0;
    std::atomic<std::size_t> m_heard = 0;
    std::atomic<std::int64_t> m_frames = 0;
    std::atomic<bool> m_dawdling = false;
    std::atomic<int> m_xruns = 0;
};
