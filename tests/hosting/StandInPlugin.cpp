// SPDX-License-Identifier: GPL-3.0-or-later
// A plug-in that stands in for the equalizer in the host's tests. Compiled several times:
// STAND_IN_IID is its interface identifier, STAND_IN_TYPE the kind of effect it says it is.
#include "interfaces/IModelInfo.h"
#include "interfaces/IVaskEffect.h"
#include "interfaces/IVaskEffectChFx.h"
#include "tests/hosting/StandInEditor.h"

class StandInPlugin : public QObject, public IVaskEffect, public IVaskEffectChFx
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID STAND_IN_IID)
    Q_INTERFACES(IVaskEffect IVaskEffectChFx)

public:
    IVaskEffectEditor* create(QWidget* parent, unsigned short ch, IModelInfo* modelInfo) override
    {
        if (!modelInfo || ch >= modelInfo->getChannelCount())
            return nullptr;
        auto* editor = new StandInEditor(parent);
        editor->setModelInfo(modelInfo);
        return editor;
    }

    int fxType() override { return STAND_IN_TYPE; }
};

#include "StandInPlugin.moc"
