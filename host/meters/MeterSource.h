// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/meters/MeterProducer.h"

#include <QElapsedTimer>
#include <QTimer>

#include <memory>
#include <vector>

class HostMemory;

/// Hands the meters' readings to the memory's meter observers, 30 times a second.
///
/// Only the channels that an editor or a strip shows are read, and the timer runs only while one is
/// shown and somebody observes. It stops, too, once all meters have stood at the bottom for a while
/// and the producer rests, until wake(). Where the readings come from is the producer's matter. GUI
/// thread only.
class MeterSource
{
public:
    /// What an editor shows: its channel, the pair's other channel (-1 for none), and its rate.
    struct View
    {
        int channel = 0;
        int partner = -1;
        int sampleRate = 48000; ///< Hz; of two editors of a channel the one that came last decides
    };

    static constexpr int interval = 33;       ///< ms
    static constexpr double restsAfter = 5.0; ///< seconds; peaks have fallen by then

    /// \a memory must outlive it.
    MeterSource(HostMemory& memory, std::unique_ptr<MeterProducer> producer);

    /// Replaces where the readings come from.
    void setProducer(std::unique_ptr<MeterProducer> producer);
    /// Off, nothing is read or handed out. On at first.
    void setEnabled(bool enabled);

    /// Says what \a viewer shows from now on; call it after its editor has met the memory.
    void show(const void* viewer, const View& view);
    /// \a viewer is gone; call it after its editor has left the memory.
    void hide(const void* viewer);

    /// Something may be heard again.
    void wake();

    /// One reading, \a seconds after the one before: what the timer does.
    void advance(double seconds);

private:
    struct Viewer
    {
        const void* key;
        View view;
    };

    bool isWanted() const;
    bool isAtRest() const;
    void startOrStop();
    void read(const View& view, int channel, double seconds, std::vector<int>* words);

    HostMemory& m_memory;
    std::unique_ptr<MeterProducer> m_producer;
    std::vector<Viewer> m_viewers;
    bool m_enabled = true;
    double m_silence = 0.0; // seconds since a meter was above the bottom
    QElapsedTimer m_clock;
    QTimer m_timer;
};
