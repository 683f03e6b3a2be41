# SPDX-License-Identifier: GPL-3.0-or-later
# Other equalizers to measure against are no part of ./bench: they are large to install.
find_package(PkgConfig REQUIRED)
pkg_check_modules(lilv IMPORTED_TARGET lilv-0)
if(lilv_FOUND)
    add_executable(bench_lv2 EXCLUDE_FROM_ALL bench_lv2.cpp)
    target_link_libraries(bench_lv2 PRIVATE zolta_options PkgConfig::lilv)
    target_compile_definitions(bench_lv2 PRIVATE ZOLTA_LV2_FOLDER="${CMAKE_BINARY_DIR}/lib/lv2")
    set_target_properties(bench_lv2 PROPERTIES
        RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin AUTOMOC OFF AUTOUIC OFF)
    add_dependencies(bench_lv2 zolta_lv2)
endif()
