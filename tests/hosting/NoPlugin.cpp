// SPDX-License-Identifier: GPL-3.0-or-later
// A shared library that is not a Qt plug-in.
extern "C" __attribute__((visibility("default"))) int answer() { return 42; }
