// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "hosting/Result.h"

class QFileDevice;

namespace OggPages {

/// Whether the sound file library would give all of an OGG file. It leaves out without a word what
/// a damaged page held, and of several streams that follow one another all but the first. Reads all
/// of \a file, whose position changes.
Status check(QFileDevice& file);

} // namespace OggPages
