# SPDX-License-Identifier: GPL-3.0-or-later
# No part of ./bench: bench_workstation needs a display, and the equalizers that bench_lv2 measures
# against are large to install.
function(zolta_workstation_bench name)
    add_executable(${name} EXCLUDE_FROM_ALL ${name}.cpp)
    target_link_libraries(${name} PRIVATE zolta_options ${ARGN})
    target_compile_definitions(${name} PRIVATE
        ZOLTA_EDITOR="$<TARGET_FILE:zolta-editor>" ZOLTA_LV2_FOLDER="${CMAKE_BINARY_DIR}/lib/lv2"
        ZOLTA_LV2_LIBRARY="$<TARGET_FILE:zolta_lv2>")
    set_target_properties(${name} PROPERTIES
        RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin AUTOMOC OFF AUTOUIC OFF)
    add_dependencies(${name} zolta-editor zolta_lv2)
endfunction()

find_package(PkgConfig REQUIRED)
zolta_workstation_bench(bench_workstation zolta_daw_window PkgConfig::xcb ${CMAKE_DL_LIBS})
pkg_check_modules(lilv IMPORTED_TARGET lilv-0)
if(lilv_FOUND)
    zolta_workstation_bench(bench_lv2 PkgConfig::lilv)
endif()
