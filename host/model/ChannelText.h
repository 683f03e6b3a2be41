// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "hosting/HostMemory.h"
#include "hosting/Result.h"

#include <QJsonObject>
#include <QMimeData>
#include <QString>

#include <memory>

/// The settings of one equalizer as text that people can read, edit and send: a JSON object whose
/// keys are the parameters' English titles and whose values are their texts, {"Low gain": "+3.0"}.
namespace ChannelText {

QJsonObject toJson(const HostMemory::Values& values);

/// Reads \a object over \a values: a parameter that it does not name keeps its value. Names of no
/// parameter are ignored, so that files of a later version can be read. A value that is not text,
/// or not a text of its parameter, is an error.
Result<HostMemory::Values> fromJson(const QJsonObject& object, const HostMemory::Values& values);

/// For the clipboard: the object as text and under a type of its own.
std::unique_ptr<QMimeData> toMime(const HostMemory::Values& values);
/// Whether \a data has something to read; what it is shows when it is pasted.
bool canPaste(const QMimeData* data);
/// The same as fromJson(); the error is a sentence about pasting.
Result<HostMemory::Values> fromMime(const QMimeData* data, const HostMemory::Values& values);

} // namespace ChannelText
