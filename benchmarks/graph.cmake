# SPDX-License-Identifier: GPL-3.0-or-later
find_package(Qt6 6.4 REQUIRED COMPONENTS Charts PrintSupport)
find_package(QCustomPlotQt6 REQUIRED)

add_executable(bench_graph bench_graph.cpp)
target_link_libraries(bench_graph PRIVATE
    zolta_options zolta_editor zolta_graph zolta_host_program benchmark::benchmark
    Qt6::Charts Qt6::PrintSupport QCustomPlotQt6::QCustomPlotQt6)
# QCustomPlot's header is written with Qt's keywords.
target_compile_options(bench_graph PRIVATE -UQT_NO_KEYWORDS)
