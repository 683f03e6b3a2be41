# SPDX-License-Identifier: GPL-3.0-or-later
add_executable(bench_daw bench_daw.cpp)
target_link_libraries(bench_daw PRIVATE
    zolta_daw_lv2 zolta_daw_vst3 benchmark::benchmark_main zolta_options ${CMAKE_DL_LIBS})
target_compile_definitions(bench_daw PRIVATE
    ZOLTA_LV2_LIBRARY="$<TARGET_FILE:zolta_lv2>" ZOLTA_VST3_LIBRARY="$<TARGET_FILE:zolta_vst3>")
add_dependencies(bench_daw zolta_lv2 zolta_vst3)
