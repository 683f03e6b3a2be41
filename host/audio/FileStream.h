// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/audio/AudioReader.h"
#include "host/audio/Resampler.h"
#include "host/audio/RingBuffer.h"

#include <QString>

#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <span>
#include <thread>
#include <vector>

/// A sound file on its way to a device, as interleaved floats: a thread of its own reads ahead and
/// converts to the device's rate, and the audio thread takes what is there without waiting.
///
/// Of a file of more than two channels the first two are heard. All but read() is for the thread
/// that owns the object.
class FileStream
{
public:
    static constexpr int maxChannels = 2;

    FileStream();
    ~FileStream();

    /// Opens \a file. Where that fails, a file that was open before is closed, too.
    Status open(const QString& file);
    /// Takes a file that was opened already.
    void use(std::unique_ptr<AudioReader> reader);
    bool isOpen() const { return m_reader != nullptr; }

    int channels() const;
    /// Of the file, in Hz.
    int rate() const { return m_reader ? m_reader->info().samplerate : 0; }
    /// In frames of the file; -1 where it is not known.
    std::int64_t length() const;

    /// Reads ahead from \a frame on, for a device of \a deviceRate Hz. Begins again at the end if
    /// \a looping.
    void start(std::int64_t frame, int deviceRate, bool looping);
    void stop();

    /// The audio thread's: fills \a samples with whole frames of channels() samples each, the rest
    /// with silence where the file has ended or is late. Returns how many frames came from the
    /// file.
    std::size_t read(std::span<float> samples);

    /// Whether everything has been heard.
    bool hasEnded() const { return m_ended.load(std::memory_order_acquire); }
    /// The frame of the file that is heard next.
    std::int64_t position() const;
    /// What went wrong while reading ahead; the stream ends there. Valid once it has ended.
    Status status() const { return hasEnded() && m_reader ? m_reader->status() : Status(); }

private:
    void run();
    bool fill();
    void readPiece();
    void keepHeardChannels(std::size_t frames);

    std::unique_ptr<AudioReader> m_reader;
    std::unique_ptr<Resampler> m_resampler;
    std::unique_ptr<RingBuffer> m_ring;
    std::vector<float> m_piece;       // of the file
    std::span<const float> m_pending; // converted, but without room so far
    std::int64_t m_start = 0;
    double m_fileFramesPerFrame = 1.0;
    bool m_looping = false;
    std::size_t m_readSinceStart = 0; // the reading thread's; of this round
    bool m_allRead = false;           // the reading thread's

    std::thread m_thread;
    std::mutex m_mutex;
    std::condition_variable m_wakeUp;
    bool m_stopping = false;              // behind the mutex
    std::atomic<bool> m_complete = false; // everything is in the ring
    std::atomic<bool> m_ended = false;
    std::atomic<std::int64_t> m_delivered = 0;
};
