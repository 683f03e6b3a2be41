# SPDX-License-Identifier: GPL-3.0-or-later

# A host that opens one editor out of the plug-in library and says how long that took. bench_editor
# starts it for every sample, so that each start is a first one.
add_executable(first_editor first_editor.cpp)
target_link_libraries(first_editor PRIVATE zolta_options zolta_host_program)
add_dependencies(first_editor zolta_plugin)

add_executable(bench_editor bench_editor.cpp)
target_link_libraries(bench_editor PRIVATE
    zolta_options zolta_editor zolta_graph zolta_widgets zolta_host_program benchmark::benchmark)
add_dependencies(bench_editor first_editor)
