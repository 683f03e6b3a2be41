// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/audio/FileStream.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

namespace {

constexpr double secondsAhead = 1.0;
constexpr std::size_t pieceFrames = 2048;
constexpr std::chrono::milliseconds restBetweenFills{10};

} // namespace

FileStream::FileStream() = default;

FileStream::~FileStream() { stop(); }

Status FileStream::open(const QString& file)
{
    auto reader = std::make_unique<AudioReader>();
    const Status opened = reader->open(file);
    use(opened.isOk() ? std::move(reader) : nullptr);
    return opened;
}

void FileStream::use(std::unique_ptr<AudioReader> reader)
{
    stop();
    m_reader = std::move(reader);
    m_start = 0;
    m_delivered = 0;
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
    m_resampler = std::make_unique<Resampler>(channels(), rate(), deviceRate);
    m_ring = std::make_unique<RingBuffer>(samples);
    m_piece.resize(pieceFrames * static_cast<std::size_t>(m_reader->channels()));
    m_pending = {};
    m_allRead = m_stopping = false;
    m_complete = m_ended = false;
    m_delivered = 0;
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
        m_pending = m_pending.subspan(m_ring->write(m_pending));
        if (!m_pending.empty())
            return false;
        if (m_allRead)
            return true;
        readPiece();
    }
}

void FileStream::readPiece()
{
    const std::size_t frames = m_reader->read(m_piece);
    const bool atEnd = frames < pieceFrames;
    m_readSinceStart += frames;
    const bool again = atEnd && m_looping && m_readSinceStart > 0 && m_reader->status().isOk();
    keepHeardChannels(frames);
    const std::size_t heard = frames * static_cast<std::size_t>(channels());
    m_pending = m_resampler->process(std::span(m_piece).first(heard), atEnd && !again);
    if (again) {
        m_reader->seek(0);
        m_readSinceStart = 0;
    }
    m_allRead = atEnd && !again;
}

void FileStream::keepHeardChannels(std::size_t frames)
{
    const auto all = static_cast<std::size_t>(m_reader->channels());
    const auto heard = static_cast<std::size_t>(channels());
    for (std::size_t i = 1; all > heard && i < frames; ++i)
        std::copy_n(m_piece.begin() + static_cast<std::ptrdiff_t>(i * all), heard,
                    m_piece.begin() + static_cast<std::ptrdiff_t>(i * heard));
}

std::size_t FileStream::read(std::span<float> samples)
{
    const auto count = static_cast<std::size_t>(channels());
    // Asked first: what comes into the ring afterwards is not missed.
    const bool complete = m_complete.load(std::memory_order_acquire);
    const std::size_t got = m_ring->read(samples);
    std::ranges::fill(samples.subspan(got), 0.0F);
    m_delivered.fetch_add(static_cast<std::int64_t>(got / count), std::memory_order_relaxed);
    if (got < samples.size() && complete)
        m_ended.store(true, std::memory_order_release);
    return got / count;
}

std::int64_t FileStream::position() const
{
    const auto delivered = static_cast<double>(m_delivered.load(std::memory_order_relaxed));
    const std::int64_t frame = m_start + std::llround(delivered * m_fileFramesPerFrame);
    if (length() <= 0)
        return frame;
    return m_looping ? frame % length() : std::min(frame, length());
}
