# SPDX-License-Identifier: GPL-3.0-or-later
zolta_fuzzer(fuzz_component LIBRARIES zolta_component)
