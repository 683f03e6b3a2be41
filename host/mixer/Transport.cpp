// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/mixer/Transport.h"

#include "moc_Transport.cpp"
