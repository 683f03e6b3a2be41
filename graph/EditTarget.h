// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// A band, as the editor highlights it and as a drag grabs it. Elsewhere bands are numbered from 0,
/// as in EqualizerBands.
enum EditTarget {
    EditTargetNone,
    EditTargetLow,
    EditTargetMiddle1,
    EditTargetMiddle2,
    EditTargetMiddle3,
    EditTargetMiddle4,
    EditTargetHigh
};

/// Whether a target is one of the six bands.
constexpr bool isBand(EditTarget target)
{
    return target >= EditTargetLow && target <= EditTargetHigh;
}

/// The band's number; negative for EditTargetNone.
constexpr int bandOf(EditTarget target) { return target - EditTargetLow; }

constexpr EditTarget targetOfBand(int band)
{
    return static_cast<EditTarget>(band + EditTargetLow);
}
