# SPDX-License-Identifier: GPL-3.0-or-later
add_executable(bench_engine bench_engine.cpp)
target_link_libraries(bench_engine PRIVATE zolta_engine benchmark::benchmark_main zolta_options)
