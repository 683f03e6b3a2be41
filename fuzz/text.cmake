# SPDX-License-Identifier: GPL-3.0-or-later
# The corpus begins each text with the letter that chooses its parameter: B low type, C low
# frequency, D low gain, E low on, F middle 1 quality, V high type, \ drive, ] source, ^ stereo,
# _ equalizer on, b level.
zolta_fuzzer(fuzz_text LIBRARIES zolta_parameters)
