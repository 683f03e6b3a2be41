// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/WindowPlaces.h"

#include "host/window/EditorWindow.h"

#include <algorithm>

namespace {

// What a window system that has not answered yet puts around a window.
constexpr QSize usualFrame(4, 34);

QSize frameOf(const QWidget& window)
{
    const QSize known = window.frameSize() - window.size();
    return known.isNull() ? usualFrame : known;
}

// The largest zoom that leaves the mixer its room.
void fitEditor(EditorWindow& editor, const QSize& room)
{
    const double first = editor.settings().scale;
    for (const double scale : {first, 0.75, 0.5}) {
        if (scale <= first)
            editor.fitTo(scale, QSize(QWIDGETSIZE_MAX, room.height()));
        if (editor.width() <= room.width())
            return;
    }
}

} // namespace

void placeSideBySide(QWidget& mixer, EditorWindow& editor, const QRect& room)
{
    const QSize frame = frameOf(mixer);
    const QSize inside(room.width() - 2 * frame.width(), room.height() - frame.height());
    const int narrowest = mixer.minimumSizeHint().width();
    fitEditor(editor, inside - QSize(narrowest, 0));
    mixer.resize(std::clamp(inside.width() - editor.width(), narrowest, mixer.width()),
                 std::min(std::max(mixer.height(), editor.height()), inside.height()));
    const int spare = inside.width() - mixer.width() - editor.width();
    const int height = std::max(mixer.height(), editor.height());
    const QPoint place =
        room.topLeft() + QPoint(std::max(spare, 0) / 2, std::max(inside.height() - height, 0) / 2);
    mixer.move(place);
    editor.move(place + QPoint(mixer.width() + frame.width(), 0));
}
