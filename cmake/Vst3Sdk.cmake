# SPDX-License-Identifier: GPL-3.0-or-later
# The VST 3 SDK, compiled from the sources that Debian installs. Nothing of it is copied here.
#
#   vst3_sdk       interfaces, identifiers and result codes (pluginterfaces)
#   vst3_presets   preset files and memory streams (public.sdk and what it needs of base), for hosts

set(ZOLTA_VST3_SDK_DIR
    /usr/share/juce/modules/juce_audio_processors/format_types/VST3_SDK
    CACHE PATH "Folder that holds the VST 3 SDK's pluginterfaces, base and public.sdk")

if(NOT EXISTS ${ZOLTA_VST3_SDK_DIR}/pluginterfaces/vst/ivstcomponent.h)
    message(FATAL_ERROR
        "The VST 3 SDK is not in ${ZOLTA_VST3_SDK_DIR}: install Debian's package "
        "juce-modules-source-data, or set ZOLTA_VST3_SDK_DIR to a folder that holds "
        "pluginterfaces, base and public.sdk.")
endif()

add_library(vst3_sdk STATIC
    ${ZOLTA_VST3_SDK_DIR}/pluginterfaces/base/coreiids.cpp
    ${ZOLTA_VST3_SDK_DIR}/pluginterfaces/base/funknown.cpp
    ${ZOLTA_VST3_SDK_DIR}/public.sdk/source/vst/vstinitiids.cpp)
target_include_directories(vst3_sdk SYSTEM PUBLIC ${ZOLTA_VST3_SDK_DIR})
target_compile_definitions(vst3_sdk PUBLIC $<IF:$<CONFIG:Debug>,DEVELOPMENT=1,RELEASE=1>)
target_compile_options(vst3_sdk PRIVATE -w)
set_target_properties(vst3_sdk PROPERTIES AUTOMOC OFF AUTOUIC OFF AUTORCC OFF)

set(VST3_BASE_SOURCES
    base/source/baseiids base/source/fbuffer base/source/fdebug base/source/fobject
    base/source/fstring base/source/updatehandler base/thread/source/flock
    pluginterfaces/base/conststringtable pluginterfaces/base/ustring)
list(TRANSFORM VST3_BASE_SOURCES REPLACE "(.+)" "${ZOLTA_VST3_SDK_DIR}/\\1.cpp")
add_library(vst3_presets STATIC
    ${VST3_BASE_SOURCES}
    ${ZOLTA_VST3_SDK_DIR}/public.sdk/source/common/memorystream.cpp
    ${ZOLTA_VST3_SDK_DIR}/public.sdk/source/vst/vstpresetfile.cpp)
target_link_libraries(vst3_presets PUBLIC vst3_sdk)
target_compile_options(vst3_presets PRIVATE -w)
set_target_properties(vst3_presets PROPERTIES AUTOMOC OFF AUTOUIC OFF AUTORCC OFF)
