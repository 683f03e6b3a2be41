# SPDX-License-Identifier: GPL-3.0-or-later
# The corpus was written by hand, as little-endian settings in the order in which the fuzzer takes
# them: ordinary bands at several rates, each band type, ranges as wide as int allows, equal and
# falling limits, and NaN, infinities, denormals, zeros and half the sample rate in each place.
zolta_fuzzer(fuzz_filters LIBRARIES zolta_equalizer)
