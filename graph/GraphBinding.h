// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "equalizer/EqualizerBands.h"
#include "equalizer/EqualizerParameters.h"

#include <array>
#include <optional>

class EffectEditor;
class IMemAPI;
class IPrmObserver;

/// The 24 band parameters of one channel of a host's memory: finds and observes them, mirrors them
/// as EqualizerBands and writes their raw values.
///
/// The mirror follows the host's notifications alone, never a write of its own. A parameter that
/// the host does not know, or whose range it does not tell, leaves its field as it is.
///
/// Writing is the last thing that each function does: whoever hears of the write may delete the
/// binding.
class GraphBinding
{
public:
    /// A change of the mirror that the host told of.
    struct Change
    {
        int band;
        Band before;
    };

    /// What is to be written to a field.
    struct Edit
    {
        EqualizerField field; ///< Quality, Frequency or Gain
        double difference; ///< by how much the raw quality moves; its range is the host's to keep
        float position;    ///< where the others go, 0 to 1 in their range
    };

    /// \a editor looks the parameters' names up, \a observer is registered for them. Both outlive
    /// the binding, and a memory outlives its being bound.
    GraphBinding(EffectEditor* editor, IPrmObserver* observer);
    ~GraphBinding();
    GraphBinding(const GraphBinding&) = delete;
    GraphBinding& operator=(const GraphBinding&) = delete;

    /// Leaves what was bound before, then reads and observes \a channel of \a memory; null leaves
    /// the mirror as it is.
    void bind(IMemAPI* memory, unsigned short channel);
    bool isBound() const { return m_memory != nullptr; }
    IMemAPI* memory() const { return m_memory; }
    unsigned short channel() const { return m_channel; }

    const EqualizerBands& bands() const { return m_bands; }
    /// In Hz.
    void setSampleRate(double sampleRate) { m_bands.setSampleRate(sampleRate); }
    /// Takes over a value that the host notified; nothing for a parameter that is not bound.
    std::optional<Change> receive(unsigned short parameter, int value);

    /// Whether a band of its type has a quality, a frequency or a gain to be set; false for what is
    /// no band.
    bool hasField(int band, EqualizerField field) const;
    /// What the next raw step upward adds to the frequency in Hz or the gain in dB.
    std::optional<double> stepSize(int band, EqualizerField field) const;

    /// Moves the raw value by \a count, within its range.
    void step(int band, EqualizerField field, int count);
    /// Writes the raw value nearest to a frequency in Hz or a gain in dB.
    void set(int band, EqualizerField field, double value);
    void edit(int band, const Edit& edit);

private:
    struct Range
    {
        int minimum;
        int maximum;
    };

    void join();
    void leave();
    std::optional<unsigned short> parameterId(int band, EqualizerField field) const;
    std::optional<int> value(unsigned short parameter) const;
    std::optional<Range> range(unsigned short parameter) const;
    std::optional<float> position(unsigned short parameter, int value) const;
    /// False when the field keeps what it holds, because the host does not tell the range.
    bool store(std::size_t slot, int value);
    void shift(unsigned short parameter, double difference);
    void setPosition(unsigned short parameter, float position);
    void write(unsigned short parameter, int value);

    EffectEditor* m_editor;
    IPrmObserver* m_observer;
    IMemAPI* m_memory = nullptr;
    unsigned short m_channel = 0;
    std::array<std::optional<unsigned short>, 24> m_parameters;
    EqualizerBands m_bands;
};
