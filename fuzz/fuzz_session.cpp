// SPDX-License-Identifier: GPL-3.0-or-later
// Session files of any bytes: each is refused with a sentence, or gives a session that the mixer
// can be set to and that is the same after it was saved and read again.
#include "fuzz/MemoryFile.h"
#include "fuzz/Require.h"
#include "host/files/PresetFolder.h"
#include "host/files/SessionFile.h"
#include "parameters/StripTable.h"

#include <QJsonDocument>

namespace {

void checkChannel(const SessionData::Channel& channel)
{
    require(!channel.preset || PresetFolder::checkName(channel.preset->name).isOk());
    require(areAllowed(channel.equalizer) && areAllowed(channel.compare.other));
    for (std::size_t i = 0; i < stripParameterCount; ++i) {
        require(channel.strip[i] >= stripTable[i].minimum);
        require(channel.strip[i] <= stripTable[i].maximum);
    }
}

void checkEditor(const SessionData::Editor& editor, int channelCount)
{
    require(editor.channel >= 0 && editor.channel < channelCount);
    require(editor.scale >= 0.5 && editor.scale <= 4.0);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static MemoryFile file;
    file.fill(data, size);
    const Result<SessionData> session = SessionFile::read(file.name());
    require(session.isOk() == session.error().isEmpty());
    if (!session.isOk())
        return 0;
    const int channelCount = session.value().channelCount;
    require(isChannelCount(channelCount));
    for (const SessionData::Channel& channel : session.value().channels)
        checkChannel(channel);
    for (const SessionData::Editor& editor : session.value().editors)
        checkEditor(editor, channelCount);
    const QByteArray saved = QJsonDocument(session.value().toJson({})).toJson();
    SessionData again;
    require(again.read(QJsonDocument::fromJson(saved).object()).isOk());
    require(QJsonDocument(again.toJson({})).toJson() == saved);
    return 0;
}
