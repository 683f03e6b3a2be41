// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/audio/AudioDeviceSettings.h"
#include "host/window/EditorSession.h"
#include "host/window/Language.h"

#include <QCoreApplication>
#include <QString>

#include <cstddef>
#include <optional>
#include <vector>

/// What the program was asked to do.
struct CommandLine
{
    Q_DECLARE_TR_FUNCTIONS(CommandLine)

public:
    /// One "--set": the value is inside the parameter's range.
    struct Setting
    {
        std::size_t parameter; ///< index into parameterTable
        int value;
    };

    /// "--render": sound through the equalizer from file to file.
    struct Render
    {
        QString input; ///< empty: nothing to render
        QString output;
        bool forceFloat = false; ///< "--float"
        bool overwrite = false;  ///< "--overwrite"
    };

    /// "--audio" and "--live": sound while the windows are open.
    struct Audio
    {
        QString file; ///< empty: none
        bool loop = false;
        AudioDeviceSettings device;
    };

    QString plugin; ///< empty: the library beside this program
    EditorSettings editor;
    int channels = 0; ///< "--channels"; 0: as many as the session has
    std::vector<Setting> settings;
    bool list = false;
    bool help = false;
    bool version = false;
    Language language = Language::English;
    std::optional<bool> meters; ///< empty: shown in windows only
    QString session;            ///< file to restore and keep; empty: the standard one in windows
    bool wantsEditor = false;   ///< something was asked for that concerns the editor to open
    QString state;              ///< file to load
    QString saveState;          ///< file to write
    QString screenshot;         ///< file to write
    Render render;
    Audio audio;
    bool desktop = false;         ///< "--desktop"
    bool devices = false;         ///< "--devices"
    bool sampleRateGiven = false; ///< whether "--sample-rate" was

    /// Whether the program does its work and ends, without a window.
    bool headless() const;
    /// Whether it does so without an editor, too.
    bool renders() const { return !render.input.isEmpty(); }
    bool plays() const { return !audio.file.isEmpty() || audio.device.live; }
    bool showsMeters() const { return meters.value_or(!headless()); }
};
