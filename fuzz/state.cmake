# SPDX-License-Identifier: GPL-3.0-or-later
zolta_fuzzer(fuzz_state LIBRARIES zolta_hosting)
