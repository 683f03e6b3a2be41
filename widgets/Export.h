// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// What programs see that link the controls as a shared library. Everything else stays inside.
#define ZOLTA_EXPORT __attribute__((visibility("default")))
