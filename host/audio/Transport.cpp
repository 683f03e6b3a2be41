// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/audio/Transport.h"

#include "moc_Transport.cpp"
