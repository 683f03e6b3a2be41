// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// Marks an English text of a table for translation. Qt has the same macro, and its translation
/// tools look for this name; a room that knows only the standard library brings its own.
#ifndef QT_TRANSLATE_NOOP
#define QT_TRANSLATE_NOOP(context, text) text
#endif
