// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QJsonObject>

#include <array>

/// How a spectrum is measured and shown. Every setting is a place in one of the tables below.
struct AnalyzerSettings
{
    enum Window { Hann, BlackmanHarris, FlatTop };
    enum Speed { Fast, Medium, Slow, Infinite }; ///< Infinite: the mean since the last reset

    static constexpr int smallestOrder = 12;
    static constexpr int largestOrder = 15;
    /// What a level is averaged over, in parts of an octave; 0 for none.
    static constexpr std::array smoothings = {0, 24, 12, 6, 3, 1};
    /// In dB per octave, about 1 kHz.
    static constexpr std::array tilts = {0.0, 3.0, 4.5, 6.0};

    int order = 14; ///< a transform has 2^order samples
    int window = Hann;
    int smoothing = 2;
    int tilt = 1;
    int speed = Medium;
    bool peaks = false; ///< keeps the highest levels in view
    bool curve = true;  ///< shows the equalizer's curve

    std::size_t size() const { return std::size_t{1} << order; }
    int smoothingParts() const { return smoothings[static_cast<std::size_t>(smoothing)]; }
    double tiltPerOctave() const { return tilts[static_cast<std::size_t>(tilt)]; }

    QJsonObject toJson() const;
    /// What \a object does not say, or says in a way that is not known, is as it is by default.
    static AnalyzerSettings fromJson(const QJsonObject& object);

    bool operator==(const AnalyzerSettings&) const = default;
};
