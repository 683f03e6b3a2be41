# SPDX-License-Identifier: GPL-3.0-or-later
add_executable(bench_analyzer bench_analyzer.cpp)
target_link_libraries(bench_analyzer PRIVATE
    zolta_options zolta_host_window benchmark::benchmark)
