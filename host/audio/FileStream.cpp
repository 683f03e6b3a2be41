// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/audio/FileStream.h"

#include <algorithm>
#include <chrono>
#include <cmath>

namespace {

constexpr double secondsAhead = 1.0;
constexpr std::size_t pieceFrames = 2048;
constexpr std::size_t maxFramesAtOnce = 8192;
constexpr std::chrono::milliseconds restBetweenFills{10};

} // namespace

FileStream::FileStream() = default;

FileStream::~FileStream() { stop(); }

QString FileStream::open(const QString& file)
{
    stop();
    m_reader = std::make_unique<AudioReader>();
    const QString error = m_reader->open(file);
    if (!error.isEmpty())
        m_reader.reset();
    m_start = 0;
    m_delivered = 0;
    return error;
}

int FileStream::channels() const
{
    return m_reader ? std::min(m_reader->channels(), maxChannels) : 0;
}

std::int64_t FileStream::length() const
{
    return m_reader && m_reader->knowsLength() ? m_reader->info().frames : -1;
}

void FileStream::start(std::int64_t frame, int deviceRate, bool looping)
{
    stop();
    const auto samples = static_cast<std::size_t>(deviceRate * channels() * secondsAhead);
    m_reader->seek(frame);
    m_start = m_reader->position();
    m_fileFramesPerFrame = double(rate()) / deviceRate;
    m_looping = looping;
    m_readSinceStart = 0;
    m_block = std::make_unique<AudioBlock>(m_reader->channels(), pieceFrames);
    m_resampler = std::make_unique<Resampler>(channels(), rate(), deviceRate);
    m_ring = std::make_unique<RingBuffer>(samples);
    m_taken.resize(maxFramesAtOnce * static_cast<std::size_t>(channels()));
    m_pending.clear();
    m_pendingStart = 0;
    m_allRead = m_stopping = false;
    m_complete = m_ended = false;
    m_delivered = m_underruns = 0;
    // What is heard first is there before the device asks for it.
    m_complete = fill();
    m_thread = std::thread([this] { run(); });
}

void FileStream::stop()
{
    if (!m_thread.joinable())
        return;
    {
        const std::lock_guard lock(m_mutex);
        m_stopping = true;
    }
    m_wakeUp.notify_one();
    m_thread.join();
}

void FileStream::run()
{
    std::unique_lock lock(m_mutex);
    while (!m_stopping && !m_complete) {
        lock.unlock();
        const bool complete = fill();
        lock.lock();
        m_complete.store(complete, std::memory_order_release);
        m_wakeUp.wait_for(lock, restBetweenFills, [this] { return m_stopping; });
    }
}

// Fills the ring as far as there is room; true when the file's last sample is in it.
bool FileStream::fill()
{
    for (;;) {
        const std::span<const float> pending =
            std::span<const float>(m_pending).subspan(m_pendingStart);
        m_pendingStart += m_ring->write(pending);
        if (m_pendingStart < m_pending.size())
            return false;
        if (m_allRead)
            return true;
        readPiece();
    }
}

void FileStream::readPiece()
{
    m_reader->read(m_block.get());
    const bool atEnd = m_block->frames() < m_block->capacity();
    m_readSinceStart += m_block->frames();
    const bool again = atEnd && m_looping && m_readSinceStart > 0 && m_reader->error().isEmpty();
    takePiece(*m_block, atEnd && !again);
    if (again) {
        m_reader->seek(0);
        m_readSinceStart = 0;
    }
    m_allRead = atEnd && !again;
}

void FileStream::takePiece(const AudioBlock& block, bool last)
{
    const auto count = static_cast<std::size_t>(channels());
    m_interleaved.resize(block.frames() * count);
    for (std::size_t c = 0; c < count; ++c) {
        const std::span<const double> samples = block.channel(c);
        for (std::size_t i = 0; i < samples.size(); ++i)
            m_interleaved[i * count + c] = static_cast<float>(samples[i]);
    }
    const std::span<const float> converted = m_resampler->process(m_interleaved, last);
    m_pending.assign(converted.begin(), converted.end());
    m_pendingStart = 0;
}

int FileStream::read(float* const* channels, int frames)
{
    const auto count = static_cast<std::size_t>(this->channels());
    const auto wanted = std::min(static_cast<std::size_t>(frames), maxFramesAtOnce);
    // Asked first: what comes into the ring afterwards is not missed.
    const bool complete = m_complete.load(std::memory_order_acquire);
    const std::span<float> taken(m_taken.data(), wanted * count);
    const std::size_t got = m_ring->read(taken) / count;
    for (std::size_t c = 0; c < count; ++c) {
        for (std::size_t i = 0; i < got; ++i)
            channels[c][i] = taken[i * count + c];
        std::fill(channels[c] + got, channels[c] + frames, 0.0F);
    }
    m_delivered.fetch_add(static_cast<std::int64_t>(got), std::memory_order_relaxed);
    if (got < wanted && complete)
        m_ended.store(true, std::memory_order_release);
    else if (got < wanted)
        m_underruns.fetch_add(1, std::memory_order_relaxed);
    return static_cast<int>(got);
}

std::int64_t FileStream::position() const
{
    const auto delivered = static_cast<double>(m_delivered.load(std::memory_order_relaxed));
    const std::int64_t frame = m_start + std::llround(delivered * m_fileFramesPerFrame);
    if (length() <= 0)
        return frame;
    return m_looping ? frame % length() : std::min(frame, length());
}
