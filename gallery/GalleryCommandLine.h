// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

/// What the gallery was asked to do.
struct GalleryCommandLine
{
    bool help = false;
    QString sheet;      ///< file to write; empty: a window is opened
    double scale = 1.0; ///< device pixels per pixel, 0.5 to 4
    QString error;      ///< why the arguments make no sense, as a sentence; the rest is void then

    /// Whether the program does its work and ends, without a window.
    bool headless() const { return help || !sheet.isEmpty(); }

    /// \a arguments begin with the program's name.
    static GalleryCommandLine parse(const QStringList& arguments);
    static QString helpText();
};
