// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/MeterConverter.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>

namespace {

// Thresholds in tenths of a dB. That the scale of 37 ends beyond the others is deliberate.
constexpr std::array<int, 30> seg30_dB_Tbl = {
    -600, -560, -520, -480, -440, -400, -360, -330, -300, -270, -240, -210, -180, -160, -140,
    -130, -120, -110, -100, -90,  -80,  -70,  -60,  -50,  -40,  -30,  -20,  -10,  0,    8191};

constexpr std::array<int, 37> seg37_dB_Tbl = {
    -600, -560, -520, -480, -450, -420, -390, -360, -340, -320, -300,  -280, -260,
    -240, -225, -210, -195, -180, -170, -160, -150, -140, -130, -120,  -110, -100,
    -90,  -80,  -70,  -60,  -50,  -40,  -30,  -20,  -10,  0,    131071};

constexpr std::array<int, 49> seg49_dB_Tbl = {
    -480, -460, -440, -420, -405, -390, -375, -360, -345, -330, -315, -300, -285,
    -270, -255, -240, -225, -210, -195, -180, -170, -160, -150, -140, -130, -120,
    -110, -100, -95,  -90,  -85,  -80,  -75,  -70,  -65,  -60,  -55,  -50,  -45,
    -40,  -35,  -30,  -25,  -20,  -15,  -10,  -5,   0,    8191};

constexpr std::array<int, 53> seg53_dB_Tbl = {
    -600, -560, -520, -500, -480, -460, -440, -420, -405, -390, -375, -360, -345, -330,
    -315, -300, -285, -270, -255, -240, -225, -210, -195, -180, -170, -160, -150, -140,
    -130, -120, -110, -100, -95,  -90,  -85,  -80,  -75,  -70,  -65,  -60,  -55,  -50,
    -45,  -40,  -35,  -30,  -25,  -20,  -15,  -10,  -5,   0,    8191};

// Thresholds of linear levels.
constexpr std::array<int, 30> seg30_lvl_Tbl = {
    2026, 2435, 2845, 3255, 3664, 4073, 4483, 4790, 5098, 5404, 5712, 6019, 6326, 6531, 6736,
    6838, 6941, 7043, 7145, 7247, 7350, 7453, 7555, 7657, 7760, 7862, 7965, 8067, 8169, 32768};

constexpr std::array<int, 37> seg37_lvl_Tbl = {
    2026, 2435, 2845, 3255, 3562, 3869, 4176, 4483, 4688, 4893, 5098, 5302, 5507,
    5712, 5865, 6019, 6173, 6326, 6429, 6531, 6633, 6736, 6838, 6941, 7043, 7145,
    7247, 7350, 7453, 7555, 7657, 7760, 7862, 7965, 8067, 8169, 32768};

constexpr std::array<int, 49> seg49_lvl_Tbl = {
    3255, 3459, 3664, 3869, 4022, 4176, 4329, 4483, 4637, 4790, 4944, 5098, 5251,
    5404, 5558, 5712, 5865, 6019, 6173, 6326, 6429, 6531, 6633, 6736, 6838, 6941,
    7043, 7145, 7196, 7247, 7299, 7350, 7401, 7453, 7504, 7555, 7606, 7657, 7708,
    7760, 7811, 7862, 7913, 7965, 8016, 8067, 8118, 8169, 32768};

constexpr std::array<int, 53> seg53_lvl_Tbl = {
    2026, 2435, 2845, 3050, 3255, 3459, 3664, 3869, 4022, 4176, 4329, 4483, 4637, 4790,
    4944, 5098, 5251, 5404, 5558, 5712, 5865, 6019, 6173, 6326, 6429, 6531, 6633, 6736,
    6838, 6941, 7043, 7145, 7196, 7247, 7299, 7350, 7401, 7453, 7504, 7555, 7606, 7657,
    7708, 7760, 7811, 7862, 7913, 7965, 8016, 8067, 8118, 8169, 32768};

using Table = std::span<const int>;

bool countReached(std::initializer_list<Table> tables, unsigned short segmentCount, int value,
                  unsigned short& segments)
{
    const auto table = std::find_if(tables.begin(), tables.end(), [segmentCount](Table candidate) {
        return candidate.size() == segmentCount;
    });
    if (table == tables.end())
        return false;
    const auto firstAbove = std::upper_bound(table->begin(), table->end(), value);
    segments = static_cast<unsigned short>(firstAbove - table->begin());
    return true;
}

} // namespace

bool MeterConverter::convertDB2SegNum(unsigned short segmentCount, unsigned int value,
                                      unsigned short& segments)
{
    return countReached({seg30_dB_Tbl, seg37_dB_Tbl, seg49_dB_Tbl, seg53_dB_Tbl}, segmentCount,
                        static_cast<std::int16_t>(value), segments);
}

bool MeterConverter::convertLevel2SegNum(unsigned short segmentCount, unsigned int value,
                                         unsigned short& segments)
{
    return countReached({seg30_lvl_Tbl, seg37_lvl_Tbl, seg49_lvl_Tbl, seg53_lvl_Tbl}, segmentCount,
                        static_cast<std::uint16_t>(value), segments);
}
