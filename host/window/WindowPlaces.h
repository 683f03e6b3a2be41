// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRect>

class EditorWindow;
class QWidget;

/// Puts the mixer and an editor beside one another into \a room, a part of the screen, so that
/// neither covers the other, and the mixer is as high as the editor or higher. Where there is no
/// room for both as they are, the mixer becomes narrower, and its strips scroll, or the editor
/// smaller.
void placeSideBySide(QWidget& mixer, EditorWindow& editor, const QRect& room);
