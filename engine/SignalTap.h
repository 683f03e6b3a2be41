// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

/// The newest samples before and after a channel's equalizer, for whoever looks at them. std only.
///
/// The audio thread writes, and neither waits nor allocates; while nobody listens it does nothing.
/// One other thread listens and reads, as often as it likes: reading takes nothing away, and what
/// is not read in time is lost.
class SignalTap
{
public:
    /// So many samples are kept, of each point.
    static constexpr std::size_t capacity = std::size_t{1} << 16;

    /// The reader's. Between the two samples are kept; calls are counted. Whoever is the first to
    /// listen finds no older samples. Listening for the first time allocates.
    void listen();
    void ignore();

    /// The reader's: how many samples there have been since the first one listened.
    std::uint64_t count() const { return m_written.load(std::memory_order_acquire) - m_first; }
    /// The reader's: the newest samples, the last one last; both spans are as long, half of
    /// capacity at most. False where there are not as many, or the writer has overtaken the
    /// reading; what is in the spans is void then.
    bool read(std::span<float> before, std::span<float> after) const;

    /// The writer's: a block at the one point, then as many samples at the other.
    void writeBefore(std::span<const double> block) noexcept;
    void writeAfter(std::span<const double> block) noexcept;
    /// As many samples of silence at both.
    void writeSilence(std::size_t frames) noexcept;

private:
    using Sample = std::atomic<float>;
    static_assert(Sample::is_always_lock_free);
    static constexpr std::size_t mask = capacity - 1;

    struct Samples
    {
        std::array<Sample, capacity> before{};
        std::array<Sample, capacity> after{};
    };

    bool begin(std::size_t frames) noexcept;

    std::unique_ptr<Samples> m_samples;
    int m_listeners = 0;       // the reader's
    std::uint64_t m_first = 0; // the reader's: what was written before it listened
    std::atomic<bool> m_wanted = false;
    bool m_writing = false; // the writer's: this block is kept
    std::atomic<std::uint64_t> m_begun = 0;
    std::atomic<std::uint64_t> m_written = 0;
};
