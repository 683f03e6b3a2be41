// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtPlugin>

#include <array>

/// The metadata block that the host's plug-in loader reads: the marker and the header of Qt 6.2's
/// layout, then the CBOR map that moc makes.
///
/// Qt's own macro would emit the layout and the entry function of the Qt version that is built
/// against, which hosts of an earlier Qt 6 do not look for. Redefining it before moc's output is
/// included puts the same map behind the header that every Qt 6 reads.
template <auto& Map> struct PluginMetaData
{
    unsigned char marker[12] = {'Q', 'T', 'M', 'E', 'T', 'A', 'D', 'A', 'T', 'A', ' ', '!'};
    unsigned char formatVersion = 0;
    unsigned char qtMajorVersion = 6;
    unsigned char qtMinorVersion = 2;
    unsigned char architectureRequirements = 0;
    unsigned char map[sizeof(Map)] = {};

    constexpr PluginMetaData()
    {
        for (std::size_t i = 0; i < sizeof(Map); ++i)
            map[i] = Map[i];
    }
};

#undef QT_MOC_EXPORT_PLUGIN_V2
#define QT_MOC_EXPORT_PLUGIN_V2(PluginClass, MangledName, Map)                                     \
    extern "C" Q_DECL_EXPORT QPluginMetaData qt_plugin_query_metadata()                            \
    {                                                                                              \
        QT_PLUGIN_METADATA_SECTION static constexpr PluginMetaData<Map> block;                     \
        return {&block, sizeof block};                                                             \
    }                                                                                              \
    QT_MOC_EXPORT_PLUGIN_COMMON(PluginClass, MangledName)
