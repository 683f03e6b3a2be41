# SPDX-License-Identifier: GPL-3.0-or-later
add_executable(bench_filters bench_filters.cpp)
target_link_libraries(bench_filters PRIVATE zolta_equalizer benchmark::benchmark_main zolta_options)
