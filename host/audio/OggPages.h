// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QIODevice;

namespace OggPages {

/// Why the sound file library would leave out parts of the OGG file in \a device, which it does
/// without a word: a page is damaged, or several streams follow one another, of which it knows the
/// first. Nothing for a good file. Reads all of it; the device's position changes.
QString errorIn(QIODevice& device);

} // namespace OggPages
