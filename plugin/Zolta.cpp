// SPDX-License-Identifier: GPL-3.0-or-later
#include "plugin/Zolta.h"

#include "editor/ZoltaEditor.h"
#include "interfaces/IModelInfo.h"
#include "plugin/PluginMetaData.h"

namespace {

constexpr int ChannelEqualizerFxType = 8;

bool listsChannel(IModelInfo* modelInfo, unsigned short ch)
{
    const unsigned int count = modelInfo->getChannelCount();
    for (unsigned int position = 0; position < count; ++position) {
        unsigned short attribute = 0;
        unsigned short channel = 0;
        modelInfo->getChannelEntry(&attribute, &channel, position);
        if (channel == ch)
            return true;
    }
    return false;
}

} // namespace

IVaskEffectEditor* Zolta::create(QWidget* parent, unsigned short ch, IModelInfo* modelInfo)
{
    if (!modelInfo || !listsChannel(modelInfo, ch))
        return nullptr;
    auto* editor = new ZoltaEditor(parent);
    static_cast<IVaskEffectEditor*>(editor)->setModelInfo(modelInfo);
    editor->initialize();
    return editor;
}

int Zolta::fxType() { return ChannelEqualizerFxType; }

#include "moc_Zolta.cpp"
