// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/base/EditModes.h"

int knobEditMode(int hostMode)
{
    switch (hostMode) {
    case 1:
        return 2;
    case 2:
        return 1;
    default:
        return 0;
    }
}

int faderEditMode(int hostMode)
{
    switch (hostMode) {
    case 0:
        return 3;
    case 1:
        return 1;
    case 3:
        return 2;
    default:
        return 0;
    }
}
