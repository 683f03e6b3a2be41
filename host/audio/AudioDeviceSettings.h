// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// How a sound device is to be used.
struct AudioDeviceSettings
{
    QString device;    ///< AudioDevices::choose()
    int rate = 0;      ///< Hz; 0: what suits the sound best
    int block = 0;     ///< frames; 0: the device's default
    bool live = false; ///< opens the inputs, too
};
