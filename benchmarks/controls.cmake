# SPDX-License-Identifier: GPL-3.0-or-later
add_executable(bench_controls bench_controls.cpp)
target_link_libraries(bench_controls PRIVATE
    zolta_options zolta_controls zolta_widgets zolta_resources zolta_gallery_core
    benchmark::benchmark)
