# SPDX-License-Identifier: GPL-3.0-or-later
# What the sources of the rooms with widgets include most, compiled once: reading Qt's headers is half
# of their build. Every file still includes what it uses, and builds without this option see to it.

# With no definition that one of the rooms lacks: the compiler would not take it there.
file(CONFIGURE OUTPUT precompiled/headers.cpp CONTENT "")
add_library(zolta_precompiled OBJECT ${CMAKE_CURRENT_BINARY_DIR}/precompiled/headers.cpp)
target_link_libraries(zolta_precompiled PRIVATE zolta_options Qt6::Widgets)
set_target_properties(zolta_precompiled PROPERTIES AUTOMOC OFF AUTOUIC OFF)
target_precompile_headers(zolta_precompiled PRIVATE
    <QApplication> <QFileInfo> <QLabel> <QMenu> <QMouseEvent> <QPainter> <QPointer> <QTimer>
    <algorithm> <array> <cmath> <functional> <memory> <optional> <span> <utility> <vector>)

foreach(room widgets controls effect graph editor hosting daw_editor gallery_core
             host_audio host_files host_meters host_model host_program host_window)
    target_precompile_headers(zolta_${room} REUSE_FROM zolta_precompiled)
endforeach()
