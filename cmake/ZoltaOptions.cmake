# SPDX-License-Identifier: GPL-3.0-or-later
# What every room's target is compiled with: one include root (the project's root), the warnings,
# hardening, and the sanitizers that the preset asks for.

add_library(zolta_options INTERFACE)
target_include_directories(zolta_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(zolta_options INTERFACE
    -pthread -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Woverloaded-virtual
    $<$<BOOL:${ZOLTA_WERROR}>:-Werror>)
if(CMAKE_UNITY_BUILD)
    # Several sources in one look to the compiler like a header with names of its own.
    target_compile_options(zolta_options INTERFACE -Wno-subobject-linkage)
endif()
target_compile_definitions(zolta_options INTERFACE
    QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII)

# Everything that is not in this project is the system's: no program or library of ours carries a
# path to look for libraries in.
set(CMAKE_SKIP_RPATH ON)

# What Debian hardens its own packages with. Sanitizers bring checks of their own.
if(NOT ZOLTA_SANITIZE)
    add_compile_options(-fstack-protector-strong -fcf-protection -fstack-clash-protection)
    add_compile_definitions($<$<CONFIG:Release>:_FORTIFY_SOURCE=2>
                            $<$<CONFIG:Release>:_GLIBCXX_ASSERTIONS>)
    add_link_options(LINKER:-z,relro LINKER:-z,now)
endif()

if(ZOLTA_SANITIZE)
    add_compile_options(-fsanitize=${ZOLTA_SANITIZE} -fno-sanitize-recover=all
                        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${ZOLTA_SANITIZE})
endif()
if(ZOLTA_FUZZERS)
    # libFuzzer steers by the coverage of the code under test, not only of the fuzzer's own file.
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()
