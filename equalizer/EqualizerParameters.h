// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

/// The one table of the equalizer's 27 parameters: what they are called in a host, which band and
/// field of the equalizer each holds, and where a saved state keeps it. Editor, graph, component,
/// programs and plug-in formats walk it. Ranges, defaults and texts are a host's (parameters/).

/// What a parameter holds.
enum class EqualizerField {
    Type,        ///< of an outer band: BandDesign::BandType
    Quality,     ///< of a middle band
    Frequency,   ///< of any band, as all that follow
    Gain,        ///< of any band
    On,          ///< of any band
    InputLevel,  ///< of no band, as all that follow
    OutputLevel, ///< of no band
    Drive        ///< of no band: 0 clean, 1 drive
};

/// One row of the table.
struct EqualizerParameter
{
    int number;           ///< 1 to 27, the number in its name
    const char* name;     ///< what models know it by
    int band;             ///< 0 low, 1 to 4 middle, 5 high; noBand for levels and drive
    EqualizerField field; ///< what it holds
    int statePosition;    ///< which of the state's values it is, from 0
};

/// The band of a parameter that belongs to none.
inline constexpr int noBand = -1;
/// How many parameters a channel has.
inline constexpr std::size_t parameterCount = 27;

/// By number. The state's order is odd, and fixed by every state saved so far: downwards within
/// the first five bands, upwards in the high band and after it.
inline constexpr std::array<EqualizerParameter, parameterCount> equalizerParameters = {{
    {1, "fx_rackfx_prm_1", 0, EqualizerField::Type, 3},
    {2, "fx_rackfx_prm_2", 0, EqualizerField::Frequency, 2},
    {3, "fx_rackfx_prm_3", 0, EqualizerField::Gain, 1},
    {4, "fx_rackfx_prm_4", 0, EqualizerField::On, 0},
    {5, "fx_rackfx_prm_5", 1, EqualizerField::Quality, 7},
    {6, "fx_rackfx_prm_6", 1, EqualizerField::Frequency, 6},
    {7, "fx_rackfx_prm_7", 1, EqualizerField::Gain, 5},
    {8, "fx_rackfx_prm_8", 1, EqualizerField::On, 4},
    {9, "fx_rackfx_prm_9", 2, EqualizerField::Quality, 11},
    {10, "fx_rackfx_prm_10", 2, EqualizerField::Frequency, 10},
    {11, "fx_rackfx_prm_11", 2, EqualizerField::Gain, 9},
    {12, "fx_rackfx_prm_12", 2, EqualizerField::On, 8},
    {13, "fx_rackfx_prm_13", 3, EqualizerField::Quality, 15},
    {14, "fx_rackfx_prm_14", 3, EqualizerField::Frequency, 14},
    {15, "fx_rackfx_prm_15", 3, EqualizerField::Gain, 13},
    {16, "fx_rackfx_prm_16", 3, EqualizerField::On, 12},
    {17, "fx_rackfx_prm_17", 4, EqualizerField::Quality, 19},
    {18, "fx_rackfx_prm_18", 4, EqualizerField::Frequency, 18},
    {19, "fx_rackfx_prm_19", 4, EqualizerField::Gain, 17},
    {20, "fx_rackfx_prm_20", 4, EqualizerField::On, 16},
    {21, "fx_rackfx_prm_21", 5, EqualizerField::Type, 20},
    {22, "fx_rackfx_prm_22", 5, EqualizerField::Frequency, 21},
    {23, "fx_rackfx_prm_23", 5, EqualizerField::Gain, 22},
    {24, "fx_rackfx_prm_24", 5, EqualizerField::On, 23},
    {25, "fx_rackfx_prm_25", noBand, EqualizerField::InputLevel, 24},
    {26, "fx_rackfx_prm_26", noBand, EqualizerField::OutputLevel, 25},
    {27, "fx_rackfx_prm_27", noBand, EqualizerField::Drive, 26},
}};

/// \a number is from 1 to 27.
constexpr const EqualizerParameter& equalizerParameter(int number)
{
    return equalizerParameters[static_cast<std::size_t>(number - 1)];
}

/// The index into equalizerParameters of what holds \a field of \a band; parameterCount if nothing
/// does.
constexpr std::size_t parameterIndex(int band, EqualizerField field)
{
    std::size_t index = 0;
    while (index < parameterCount &&
           (equalizerParameters[index].band != band || equalizerParameters[index].field != field))
        ++index;
    return index;
}

/// The parameters' indices into equalizerParameters, in the order in which a state holds the
/// values.
inline constexpr std::array<std::size_t, parameterCount> stateOrder = [] {
    std::array<std::size_t, parameterCount> order{};
    for (std::size_t index = 0; index < parameterCount; ++index)
        order[static_cast<std::size_t>(equalizerParameters[index].statePosition)] = index;
    return order;
}();

/// A state begins with these four bytes (ASCII "2620"); the same number of big-endian single floats
/// follows as there are parameters, and one more, which belongs to none.
inline constexpr std::array<unsigned char, 4> stateVersion = {'2', '6', '2', '0'};
/// The bytes of a state.
inline constexpr std::size_t stateSize = stateVersion.size() + 4 * (parameterCount + 1);

/// The class that presets of the equalizer belong to, in the four words of a VST 3 identifier.
inline constexpr std::array<std::uint32_t, 4> equalizerClassId = {0x56535464, 0x78704265,
                                                                  0x7175616C, 0x697A6572};
